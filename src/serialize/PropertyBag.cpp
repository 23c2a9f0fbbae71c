#include "serialize/PropertyBag.h"

#include "core/VariantNumbers.h"

#include <QtGui/QFont>

#include <cmath>
#include <limits>

namespace OrrinQuiver {

namespace {

// A font text as QFont::toString() writes it: the family, the size, then
// the style fields (Qt 5 wrote 10 fields, Qt 6 writes 16 or 17).
constexpr qsizetype FewestFontFields = 10;
constexpr qsizetype MostFontFields = 17;

// Integer and Long, and the unsigned spelling of a Long that colours use.
constexpr qint64 IntegerMin = std::numeric_limits<qint16>::min();
constexpr qint64 IntegerMax = std::numeric_limits<qint16>::max();
constexpr qint64 LongMin = std::numeric_limits<qint32>::min();
constexpr qint64 LongMax = std::numeric_limits<quint32>::max();

// A whole number from a number or a decimal text; nothing for anything else,
// fractions included.
std::optional<qint64> wholeNumber(const QVariant &raw)
{
    if (isIntegralVariant(raw)) {
        if (raw.typeId() == QMetaType::ULongLong || raw.typeId() == QMetaType::ULong) {
            const quint64 u = raw.toULongLong();
            if (u > quint64(std::numeric_limits<qint64>::max()))
                return std::nullopt;
            return qint64(u);
        }
        return raw.toLongLong();
    }
    if (isFloatingVariant(raw)) {
        const double d = raw.toDouble();
        if (!std::isfinite(d) || d != std::trunc(d) || std::fabs(d) > double(LongMax))
            return std::nullopt;
        return qint64(d);
    }
    if (raw.typeId() == QMetaType::QString) {
        bool ok = false;
        const qint64 n = raw.toString().toLongLong(&ok, 10);
        if (ok)
            return n;
    }
    return std::nullopt;
}

std::optional<bool> toBoolean(const QVariant &raw)
{
    if (raw.typeId() == QMetaType::Bool)
        return raw.toBool();
    if (raw.typeId() == QMetaType::QString) {
        const QString text = raw.toString().trimmed();
        if (text.compare(u"true", Qt::CaseInsensitive) == 0)
            return true;
        if (text.compare(u"false", Qt::CaseInsensitive) == 0)
            return false;
    }
    if (isFloatingVariant(raw)) {
        const double d = raw.toDouble();
        if (std::isnan(d))
            return std::nullopt;
        return d != 0.0;
    }
    if (const auto n = wholeNumber(raw))
        return *n != 0;
    return std::nullopt;
}

std::optional<QString> toText(const QVariant &raw)
{
    if (raw.typeId() == QMetaType::QString)
        return raw.toString();
    if (raw.typeId() == QMetaType::Bool)
        return raw.toBool() ? QStringLiteral("True") : QStringLiteral("False");
    if (isIntegralVariant(raw) || isFloatingVariant(raw))
        return raw.toString();
    return std::nullopt;
}

std::optional<QFont> toFont(const QVariant &raw)
{
    if (raw.typeId() == QMetaType::QFont)
        return raw.value<QFont>();
    if (raw.typeId() != QMetaType::QString)
        return std::nullopt;
    const QString text = raw.toString();
    const auto fields = QStringView(text).split(u',');
    if (fields.size() < FewestFontFields || fields.size() > MostFontFields || fields.first().isEmpty())
        return std::nullopt;
    QFont font;
    if (!font.fromString(text))
        return std::nullopt;
    return font;
}

// The value converted to the type of `model`; nothing when it does not fit.
std::optional<QVariant> convert(const QVariant &raw, const QVariant &model)
{
    switch (model.typeId()) {
    case QMetaType::Bool:
        if (const auto b = toBoolean(raw))
            return QVariant(*b);
        return std::nullopt;
    case QMetaType::Short:
        if (const auto n = wholeNumber(raw); n && *n >= IntegerMin && *n <= IntegerMax)
            return QVariant::fromValue(qint16(*n));
        return std::nullopt;
    case QMetaType::Int:
        if (const auto n = wholeNumber(raw); n && *n >= LongMin && *n <= LongMax)
            return QVariant(qint32(quint32(*n)));
        return std::nullopt;
    case QMetaType::UInt:
        if (const auto n = wholeNumber(raw); n && *n >= LongMin && *n <= LongMax)
            return QVariant(quint32(*n));
        return std::nullopt;
    case QMetaType::QString:
        if (const auto s = toText(raw))
            return QVariant(*s);
        return std::nullopt;
    case QMetaType::QFont:
        if (const auto f = toFont(raw))
            return QVariant(*f);
        return std::nullopt;
    default:
        return raw;
    }
}

// What a backend keeps: bool, int or QString.
QVariant plain(const QVariant &value)
{
    if (!value.isValid())
        return QString();
    if (value.typeId() == QMetaType::Bool || value.typeId() == QMetaType::QString)
        return value;
    if (value.typeId() == QMetaType::QFont)
        return value.value<QFont>().toString();
    if (isIntegralVariant(value))
        return qint32(quint32(value.toULongLong()));
    return value.toString();
}

} // namespace

PropertyBag::~PropertyBag() = default;

QVariant PropertyBag::ReadProperty(const QString &name, const QVariant &defaultValue) const
{
    const std::optional<QVariant> raw = storedValue(name);
    if (!raw)
        return defaultValue;
    if (!defaultValue.isValid())
        return *raw;
    return convert(*raw, defaultValue).value_or(defaultValue);
}

void PropertyBag::WriteProperty(const QString &name, const QVariant &value, const QVariant &defaultValue)
{
    const QVariant stored = plain(value);
    if (defaultValue.isValid() && stored == plain(defaultValue))
        remove(name);
    else
        store(name, stored);
}

} // namespace OrrinQuiver
