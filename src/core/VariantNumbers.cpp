#include "core/VariantNumbers.h"

#include <QtCore/QVariant>

namespace OrrinQuiver {

bool isIntegralVariant(const QVariant &value)
{
    switch (value.typeId()) {
    case QMetaType::Char:
    case QMetaType::SChar:
    case QMetaType::UChar:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Long:
    case QMetaType::ULong:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
        return true;
    default:
        return false;
    }
}

bool isFloatingVariant(const QVariant &value)
{
    return value.typeId() == QMetaType::Double || value.typeId() == QMetaType::Float;
}

bool isNumericVariant(const QVariant &value)
{
    return isIntegralVariant(value) || isFloatingVariant(value);
}

bool isCharVariant(const QVariant &value)
{
    const int type = value.typeId();
    return type == QMetaType::Char || type == QMetaType::SChar || type == QMetaType::UChar;
}

} // namespace OrrinQuiver
