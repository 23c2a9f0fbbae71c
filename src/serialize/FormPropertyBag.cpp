#include "serialize/FormPropertyBag.h"

namespace OrrinQuiver {

namespace {

constexpr char16_t NameValueSeparator = u'=';
constexpr char16_t LineSeparator = u'\n';
constexpr char16_t CarriageReturn = u'\r';
constexpr char16_t Escape = u'\\';
// Characters below this one are control characters and are escaped.
constexpr char16_t FirstPrintable = u' ';
// "\xHH": two hexadecimal digits follow the x.
constexpr int HexEscapeDigits = 2;

QString escaped(const QString &text)
{
    QString out;
    out.reserve(text.size());
    for (const QChar c : text) {
        switch (c.unicode()) {
        case u'\\':
            out += u"\\\\";
            break;
        case u'\n':
            out += u"\\n";
            break;
        case u'\r':
            out += u"\\r";
            break;
        case u'\t':
            out += u"\\t";
            break;
        default:
            if (c.unicode() < FirstPrintable) {
                out += u"\\x";
                out += QString::number(c.unicode(), 16).rightJustified(HexEscapeDigits, u'0');
            } else {
                out += c;
            }
        }
    }
    return out;
}

bool isHexCode(QStringView digits)
{
    if (digits.size() != HexEscapeDigits)
        return false;
    for (const QChar c : digits) {
        if (!c.isDigit() && !(c.toLower() >= u'a' && c.toLower() <= u'f'))
            return false;
    }
    return true;
}

QString unescaped(QStringView text)
{
    QString out;
    out.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (c != Escape || i + 1 == text.size()) {
            out += c;
            continue;
        }
        const QChar next = text.at(++i);
        switch (next.unicode()) {
        case u'n':
            out += u'\n';
            break;
        case u'r':
            out += u'\r';
            break;
        case u't':
            out += u'\t';
            break;
        case u'x':
            if (const QStringView digits = text.mid(i + 1, HexEscapeDigits); isHexCode(digits)) {
                out += QChar(digits.toUShort(nullptr, 16));
                i += HexEscapeDigits;
            } else {
                out += next;
            }
            break;
        default:
            out += next;
        }
    }
    return out;
}

QString valueText(const QVariant &value)
{
    if (value.typeId() == QMetaType::Bool)
        return value.toBool() ? QStringLiteral("True") : QStringLiteral("False");
    return escaped(value.toString());
}

} // namespace

FormPropertyBag::FormPropertyBag(const QString &text)
{
    for (QStringView line : QStringView(text).split(LineSeparator)) {
        // A text that passed through a Windows editor ends its lines in "\r\n".
        if (line.endsWith(CarriageReturn))
            line.chop(1);
        const qsizetype at = line.indexOf(NameValueSeparator);
        if (at > 0)
            store(line.left(at).toString(), unescaped(line.mid(at + 1)));
    }
}

QString FormPropertyBag::text() const
{
    QString out;
    for (const QString &name : names()) {
        out += name;
        out += NameValueSeparator;
        out += valueText(*storedValue(name));
        out += LineSeparator;
    }
    return out;
}

} // namespace OrrinQuiver
