#include "serialize/modWebColorFuncs.h"

#include "platform/SystemColors.h"

#include <array>

namespace OrrinQuiver::modWebColorFuncs {

namespace {

// System colour number 0 has no desktop value of its own; it stands for black.
constexpr OLE_COLOR SystemColorZeroValue = 0;
// The desktop knows system colour numbers up to this one; higher ones read as black.
constexpr quint32 HighestSystemColorIndex = 0xFF;

// Only this many trailing characters of a colour text carry the colour.
constexpr qsizetype ColorTextDigits = 6;

struct NamedColor
{
    QStringView name;
    QStringView hex;
};

// The colour names the reader knows. "green" is the pure green 00FF00 on
// purpose: documents written for this control have always meant that.
constexpr std::array<NamedColor, 9> NamedColors = { {
    { u"white", u"FFFFFF" },
    { u"black", u"000000" },
    { u"red", u"FF0000" },
    { u"green", u"00FF00" },
    { u"blue", u"0000FF" },
    { u"yellow", u"FFFF00" },
    { u"magenta", u"FF00FF" },
    { u"cyan", u"00FFFF" },
    { u"silver", u"C0C0C0" },
} };

quint32 resolveSystemColor(OLE_COLOR color, const QPalette &palette)
{
    const quint32 index = color & ~SystemColorFlag;
    if (index == 0)
        return SystemColorZeroValue;
    if (index > HighestSystemColorIndex)
        return 0;
    return toOleColor(translateColor(color, palette));
}

QString twoDigitHex(quint32 part) { return QString::number(part, 16).toUpper().rightJustified(2, u'0'); }

bool isHexDigit(QChar c)
{
    const char16_t lower = c.toLower().unicode();
    return (lower >= u'0' && lower <= u'9') || (lower >= u'a' && lower <= u'f');
}

int hexDigitValue(QChar c)
{
    const char16_t lower = c.toLower().unicode();
    if (lower >= u'0' && lower <= u'9')
        return lower - u'0';
    if (lower >= u'a' && lower <= u'f')
        return lower - u'a' + 10;
    return 0;
}

// Reads up to two characters as hexadecimal; characters that are not hex
// digits count 0 instead of failing the whole colour.
int hexPairValue(QStringView pair)
{
    int value = 0;
    int place = 1;
    for (qsizetype i = pair.size() - 1; i >= 0; --i) {
        value += hexDigitValue(pair[i]) * place;
        place *= 16;
    }
    return value;
}

// Takes the last two characters off `w`, or gives "0" when nothing is left.
QStringView takeLastPair(QStringView &w)
{
    if (w.isEmpty())
        return u"0";
    const QStringView pair = w.last(qMin<qsizetype>(2, w.size()));
    w.chop(pair.size());
    return pair;
}

} // namespace

QString colorToText(OLE_COLOR color, const QPalette &palette)
{
    quint32 v = isSystemColor(color) ? resolveSystemColor(color, palette) : color;
    quint32 blue = 0;
    quint32 green = 0;
    if (v > 0xFFFF) {
        blue = v / 0x10000;
        v -= blue * 0x10000;
    }
    if (v > 0xFF) {
        green = v / 0x100;
        v -= green * 0x100;
    }
    return u'#' + twoDigitHex(v) + twoDigitHex(green) + twoDigitHex(blue);
}

OLE_COLOR textToColor(QStringView text)
{
    QStringView w = text;
    if (w.size() >= 2 && w.first(2).compare(u"vb", Qt::CaseInsensitive) == 0)
        w = w.sliced(2);
    for (const NamedColor &named : NamedColors) {
        if (w.compare(named.name, Qt::CaseInsensitive) == 0) {
            w = named.hex;
            break;
        }
    }
    if (w.startsWith(u'#'))
        w = w.sliced(1);
    if (w.size() > ColorTextDigits)
        w = w.last(ColorTextDigits);
    if (w.isEmpty() || !isHexDigit(w.front()))
        return 0;

    const int blue = hexPairValue(takeLastPair(w));
    const int green = hexPairValue(takeLastPair(w));
    const int red = hexPairValue(takeLastPair(w));
    return rgbColor(red, green, blue);
}

} // namespace OrrinQuiver::modWebColorFuncs
