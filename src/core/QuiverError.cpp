#include "core/QuiverError.h"

namespace OrrinQuiver {

QuiverError::QuiverError(int number, const QString &description)
    : m_number(number)
    , m_description(description)
    , m_what(description.toUtf8())
{
}

} // namespace OrrinQuiver
