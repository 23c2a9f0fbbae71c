#include "model/KeyedList_p.h"

#include <QtCore/QChar>

#include <cmath>
#include <limits>

namespace OrrinQuiver {

quint32 foldedKeyHash(QStringView key)
{
    // FNV-1a over the folded code points, then a final mix so that the low
    // bits the table uses depend on every character.
    quint32 hash = 2166136261u;
    const qsizetype n = key.size();
    for (qsizetype i = 0; i < n; ++i) {
        char32_t c = key[i].unicode();
        if (c < 0x80) {
            if (c >= 'A' && c <= 'Z')
                c += 'a' - 'A';
        } else {
            if (QChar::isHighSurrogate(c) && i + 1 < n && key[i + 1].isLowSurrogate())
                c = QChar::surrogateToUcs4(char16_t(c), key[++i].unicode());
            c = QChar::toCaseFolded(c);
        }
        hash = (hash ^ quint32(c)) * 16777619u;
    }
    hash ^= hash >> 16;
    hash *= 0x85ebca6bu;
    hash ^= hash >> 13;
    hash *= 0xc2b2ae35u;
    hash ^= hash >> 16;
    return hash;
}

Lookup readLookup(const QVariant &value)
{
    switch (value.typeId()) {
    case QMetaType::UnknownType:
        return { true, 0, {} };
    case QMetaType::Bool:
        return { true, value.toBool() ? -1.0 : 0.0, {} };
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::Long:
    case QMetaType::ULong:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Char:
    case QMetaType::SChar:
    case QMetaType::UChar:
    case QMetaType::Float:
    case QMetaType::Double:
        return { true, value.toDouble(), {} };
    default:
        return { false, 0, value.toString() };
    }
}

std::optional<int> toPosition(double number)
{
    if (!std::isfinite(number))
        return std::nullopt;
    // std::nearbyint rounds half to even in the default rounding mode.
    const double rounded = std::nearbyint(number);
    if (rounded < double(std::numeric_limits<int>::min()) || rounded > double(std::numeric_limits<int>::max()))
        return std::nullopt;
    return int(rounded);
}

QString formatKey(QStringView prefix, qint64 counter)
{
    // At least five digits, zero-padded; larger counters print in full.
    constexpr int MinimumDigits = 5;
    const QString digits = QString::number(counter);
    QString key;
    key.reserve(prefix.size() + std::max<qsizetype>(MinimumDigits, digits.size()));
    key.append(prefix);
    for (qsizetype i = digits.size(); i < MinimumDigits; ++i)
        key.append(QLatin1Char('0'));
    key.append(digits);
    return key;
}

MemberHolders::~MemberHolders()
{
    for (QObject *holder : m_holders)
        delete holder;
}

QObject *MemberHolders::nextParent()
{
    if (m_holders.empty() || m_holders.back()->children().size() >= MembersPerHolder)
        m_holders.push_back(new QObject);
    return m_holders.back();
}

void MemberHolders::retireAll()
{
    for (QObject *holder : m_holders)
        holder->deleteLater();
    m_holders.clear();
}

} // namespace OrrinQuiver
