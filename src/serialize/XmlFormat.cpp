#include "serialize/XmlFormat.h"

#include <cmath>
#include <limits>

namespace OrrinQuiver::XmlFormat {

int currentVersion() { return QUIVER_VERSION_MAJOR * 100 + QUIVER_VERSION_MINOR * 10 + QUIVER_VERSION_PATCH; }

const char *booleanText(bool value) { return value ? "True" : "False"; }

std::optional<bool> parseBoolean(QStringView text)
{
    const QStringView word = text.trimmed();
    if (word.compare(u"true", Qt::CaseInsensitive) == 0)
        return true;
    if (word.compare(u"false", Qt::CaseInsensitive) == 0)
        return false;
    if (const auto number = parseNumber(word))
        return *number != 0;
    return std::nullopt;
}

std::optional<double> parseNumber(QStringView text)
{
    bool ok = false;
    const double value = text.trimmed().toDouble(&ok);
    if (!ok || !std::isfinite(value))
        return std::nullopt;
    return value;
}

std::optional<qint32> parseLong(QStringView text)
{
    // Plain integers, what the writers produce, skip the floating-point parse.
    bool isInteger = false;
    const qint32 integer = text.toInt(&isInteger);
    if (isInteger)
        return integer;
    const auto number = parseNumber(text);
    if (!number)
        return std::nullopt;
    // nearbyint rounds in the current mode, which is to nearest, ties to even.
    const double rounded = std::nearbyint(*number);
    if (rounded < double(std::numeric_limits<qint32>::min())
        || rounded > double(std::numeric_limits<qint32>::max()))
        return std::nullopt;
    return qint32(rounded);
}

} // namespace OrrinQuiver::XmlFormat
