#pragma once

#include <QtCore/QString>

namespace OrrinQuiver {

class Header;
class Navigation;

// The XML documents of a header and of the history, as the model's XML
// members need them. The format lives above the model (serialize/); the
// control owns an implementation and hands it out through
// ControlLink::documentFormat(), so the model never includes the format.
class DocumentFormat
{
public:
    virtual ~DocumentFormat() = default;

    // The fragment of one header with its items.
    virtual QString headerXml(const Header &header) const = 0;
    // Reads such a fragment into `header`; a text that is not one throws
    // QuiverError before anything changes.
    virtual void readHeaderXml(Header &header, const QString &xml) const = 0;
    // The history document of `navigation`.
    virtual QString historyXml(const Navigation &navigation) const = 0;
};

} // namespace OrrinQuiver
