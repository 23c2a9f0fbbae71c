#pragma once

#include "core/OrrinQuiverExport.h"
#include "core/QuiverEnums.h"

#include <QtCore/QString>

#include <exception>

namespace OrrinQuiver {

// The error that the few raising operations (the XML readers and writers)
// throw to a C++ host. Calls that arrive through the meta-object system never
// let it escape: they hand it to the script engine or log it instead.
class ORRINQUIVER_EXPORT QuiverError : public std::exception
{
public:
    QuiverError(int number, const QString &description);

    // The qvError number (negative, as the automation host sees it).
    int Number() const noexcept { return m_number; }
    QString Description() const { return m_description; }

    const char *what() const noexcept override { return m_what.constData(); }

private:
    int m_number;
    QString m_description;
    QByteArray m_what;
};

} // namespace OrrinQuiver
