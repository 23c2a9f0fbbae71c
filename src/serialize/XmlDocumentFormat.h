#pragma once

#include "model/DocumentFormat.h"

QT_FORWARD_DECLARE_CLASS(QObject)

namespace OrrinQuiver {

// The XML documents of a header and of the history (XmlWriter, XmlReader)
// for the control `control`, whose look a header fragment carries.
class XmlDocumentFormat : public DocumentFormat
{
public:
    explicit XmlDocumentFormat(const QObject &control)
        : m_control(control)
    { }

    QString headerXml(const Header &header) const override;
    void readHeaderXml(Header &header, const QString &xml) const override;
    QString historyXml(const Navigation &navigation) const override;

private:
    const QObject &m_control;
};

} // namespace OrrinQuiver
