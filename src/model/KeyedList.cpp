#include "model/KeyedList_p.h"

#include "core/VariantNumbers.h"

#include <QtCore/QChar>

#include <algorithm>
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
    if (!value.isValid())
        return { true, 0, {} };
    if (value.typeId() == QMetaType::Bool)
        return { true, value.toBool() ? -1.0 : 0.0, {} };
    if (isNumericVariant(value))
        return { true, value.toDouble(), {} };
    return { false, 0, value.toString() };
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

QStringView formatKey(KeyBuffer &buffer, QStringView prefix, qint64 counter)
{
    // Zero-padded to the minimum; larger counters print in full.
    char16_t digits[20];
    int n = 0;
    for (quint64 value = quint64(counter); value || n < GeneratedKeyDigits; value /= 10)
        digits[n++] = char16_t(u'0' + value % 10);
    const qsizetype length = std::min<qsizetype>(prefix.size(), qsizetype(buffer.size()) - n);
    std::copy_n(prefix.utf16(), length, buffer.begin());
    std::reverse_copy(digits, digits + n, buffer.begin() + length);
    return QStringView(buffer.data(), length + n);
}

QString formatKey(QStringView prefix, qint64 counter)
{
    KeyBuffer buffer;
    return formatKey(buffer, prefix, counter).toString();
}

namespace {
// The count table grows before it is three quarters full.
constexpr size_t MinimumCountTableSize = 16;
constexpr quint64 CountMask = 0xFFFFFFFFu;

quint32 hashOf(quint64 entry)
{
    return quint32(entry >> 32);
}
} // namespace

size_t HashCounts::find(quint32 hash) const
{
    const size_t mask = m_entries.size() - 1;
    size_t slot = hash & mask;
    while ((m_entries[slot] & CountMask) && hashOf(m_entries[slot]) != hash)
        slot = (slot + 1) & mask;
    return slot;
}

void HashCounts::grow()
{
    std::vector<quint64> old(std::max(MinimumCountTableSize, m_entries.size() * 2), 0);
    old.swap(m_entries);
    for (quint64 entry : old) {
        if (entry & CountMask)
            m_entries[find(hashOf(entry))] = entry;
    }
}

void HashCounts::add(quint32 hash)
{
    if ((m_used + 1) * 4 > m_entries.size() * 3)
        grow();
    quint64 &entry = m_entries[find(hash)];
    if (!(entry & CountMask)) {
        entry = quint64(hash) << 32;
        ++m_used;
    }
    ++entry;
}

void HashCounts::remove(quint32 hash)
{
    if (m_entries.empty())
        return;
    const size_t mask = m_entries.size() - 1;
    size_t hole = find(hash);
    if (!(m_entries[hole] & CountMask) || (--m_entries[hole] & CountMask))
        return;
    --m_used;
    // Backward-shift deletion, as in the key table.
    for (size_t next = (hole + 1) & mask; m_entries[next] & CountMask; next = (next + 1) & mask) {
        const size_t home = hashOf(m_entries[next]) & mask;
        if (((next - home) & mask) >= ((next - hole) & mask)) {
            m_entries[hole] = m_entries[next];
            hole = next;
        }
    }
    m_entries[hole] = 0;
}

bool HashCounts::contains(quint32 hash) const
{
    return !m_entries.empty() && (m_entries[find(hash)] & CountMask) != 0;
}

void HashCounts::clear()
{
    m_entries.clear();
    m_used = 0;
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
