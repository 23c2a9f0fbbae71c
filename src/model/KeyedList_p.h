#pragma once

// Internal to the content model: not installed.

#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtCore/QStringView>
#include <QtCore/QVariant>

#include <algorithm>
#include <array>
#include <optional>
#include <vector>

namespace OrrinQuiver {

// Hash of a key as the collections compare keys: case-insensitively, by
// simple case folding of each code point (what QString::compare with
// Qt::CaseInsensitive does), so keys that compare equal hash equally.
quint32 foldedKeyHash(QStringView key);

// A collection argument as the object model reads it: a number is a
// position, anything else a text.
struct Lookup
{
    bool numeric = false;
    double number = 0;
    QString text;
};
// Numbers (and booleans, true = -1, and an empty variant = 0) are numeric;
// everything else is read as its text.
Lookup readLookup(const QVariant &value);
// A number as the 32-bit position it names: rounded half to even; nullopt
// when it does not fit.
std::optional<int> toPosition(double number);
// Generated keys write their counter with at least this many digits.
constexpr int GeneratedKeyDigits = 5;
// Room for a generated key: a prefix of up to 12 letters and a 64-bit counter.
using KeyBuffer = std::array<char16_t, 32>;
// `prefix` followed by `counter` written with at least GeneratedKeyDigits
// digits, in `buffer`.
QStringView formatKey(KeyBuffer &buffer, QStringView prefix, qint64 counter);
QString formatKey(QStringView prefix, qint64 counter);

// A multiset of 32-bit hashes: how many members have a text with that hash.
// It answers "no member has this text" without walking the members.
class HashCounts
{
public:
    void add(quint32 hash);
    // `hash` must have been added.
    void remove(quint32 hash);
    bool contains(quint32 hash) const;
    void clear();

private:
    size_t find(quint32 hash) const;
    void grow();

    // Open addressing with linear probing over one array, so a probe costs
    // one cache miss: each entry is the hash in the high half and its count
    // in the low half; a count of 0 marks a free slot.
    std::vector<quint64> m_entries;
    size_t m_used = 0;
};

// Keeps members alive for scripts. QJSEngine deletes an object returned from
// an invokable method once no script refers to it, unless the object has a
// QObject parent. Members are therefore parented to small holder objects
// rather than to their collection: a QObject finds a child in a linear list,
// so one parent for a million members would make every removal O(n).
class MemberHolders
{
public:
    MemberHolders() = default;
    MemberHolders(const MemberHolders &) = delete;
    MemberHolders &operator=(const MemberHolders &) = delete;
    // Deletes every holder and with it every member, removed ones included.
    ~MemberHolders();

    // The holder a new member is made under.
    QObject *nextParent();
    // Hands every holder (and every member in it) to the event loop for
    // deletion; later members go to new holders.
    void retireAll();

private:
    // Children per holder: removal scans at most this many pointers. A
    // QObject keeps its children in a QList, whose block Qt grows to the next
    // power of two; 126 pointers and the list's header fill a 1 KiB block
    // exactly, where 64 would leave half of one empty.
    static constexpr int MembersPerHolder = 126;
    std::vector<QObject *> m_holders;
};

// The members of a collection: a vector of pointers in position order, and an
// open-addressing table of the same pointers keyed by each member's Key. The
// table keeps each entry's folded hash beside it, so a probe compares hashes
// and touches a member only on a hash match; no second copy of any key is
// kept. From the first caption test on, the hashes of all captions are
// counted, so that a caption test answers "none" without walking the members;
// collections that are only filled and shown never pay for the count.
//
// Members whose key the collection generated (T::keyNumber() not 0, see
// below) are kept out of the table, in a vector indexed by that number: the
// numbers only grow, so adding one appends a pointer, where a hash table
// would spend a slot and a half and touch a random place in memory for every
// member added. A number that would leave that vector mostly empty goes to
// the table instead.
//
// T provides Key(), keyText(KeyBuffer &) (the key as a view, possibly into
// the buffer), Caption(), Index(), storeIndex(int) (which also clears the
// lag mark), storeKey(QString) and setIndexMayLag(bool). A T with generated
// keys also provides keyNumber() (the number of its generated key, 0 for a
// key of its own) and a static keyNumberOf(QStringView) (the number a text
// names as a generated key, 0 for any other text).
template<typename T>
class KeyedList
{
    static constexpr bool Numbered = requires(const T &member) { member.keyNumber(); };

public:
    int count() const { return int(m_members.size()); }
    T *const *begin() const { return m_members.data(); }
    T *const *end() const { return m_members.data() + m_members.size(); }

    // 1-based; nullptr out of range.
    T *at(int position) const
    {
        return position >= 1 && position <= count() ? m_members[size_t(position - 1)] : nullptr;
    }

    // 1-based position of `member`, 0 when it is not one.
    int positionOf(const T *member) const
    {
        // The cached Index names the position unless renumbering left it
        // behind, so the scan is the exception, not the rule.
        if (member && at(member->Index()) == member)
            return member->Index();
        const auto it = std::find(m_members.begin(), m_members.end(), member);
        return it == m_members.end() ? 0 : int(it - m_members.begin()) + 1;
    }

    T *withKey(QStringView key) const
    {
        if constexpr (Numbered) {
            if (T *member = numbered(T::keyNumberOf(key)))
                return member;
        }
        if (m_tableUsed == 0)
            return nullptr;
        const size_t slot = findKey(key, foldedKeyHash(key));
        return slot == NoSlot ? nullptr : m_slots[slot].member;
    }

    // Inserts `member` under its Key before the 1-based `position` (Count + 1
    // appends). False, and nothing changed, when the key is taken.
    bool insert(T *member, int position)
    {
        if (keyTaken(member))
            return false;
        position = std::clamp(position, 1, count() + 1);
        m_members.insert(m_members.begin() + (position - 1), member);
        keyInsert(member);
        if (m_captionsCounted)
            m_captions.add(foldedKeyHash(member->Caption()));
        return true;
    }

    // Removes the member at a valid 1-based position and returns it.
    T *takeAt(int position)
    {
        T *member = m_members[size_t(position - 1)];
        m_members.erase(m_members.begin() + (position - 1));
        keyRemove(member);
        if (m_captionsCounted)
            m_captions.remove(foldedKeyHash(member->Caption()));
        return member;
    }

    // Forgets every member (their objects are the caller's).
    void clear()
    {
        m_members.clear();
        m_numbered.clear();
        m_firstNumber = 0;
        m_numberedUsed = 0;
        m_leadingHoles = 0;
        m_slots.clear();
        m_tableUsed = 0;
        m_mask = 0;
        m_captions.clear();
        m_captionsCounted = false;
    }

    // A member's caption changes from `from` to `to`.
    void captionChanged(QStringView from, QStringView to)
    {
        if (!m_captionsCounted)
            return;
        m_captions.remove(foldedKeyHash(from));
        m_captions.add(foldedKeyHash(to));
    }

    // The cached Index of the first member whose caption equals `caption`
    // case-insensitively, -1 when none.
    int indexOfCaption(QStringView caption) const
    {
        if (!m_captionsCounted) {
            for (const T *member : m_members)
                m_captions.add(foldedKeyHash(member->Caption()));
            m_captionsCounted = true;
        }
        if (!m_captions.contains(foldedKeyHash(caption)))
            return -1;
        for (const T *member : m_members) {
            if (caption.compare(member->Caption(), Qt::CaseInsensitive) == 0)
                return member->Index();
        }
        return -1;
    }

    // A caption match (its cached Index must name a position) before a key match.
    bool exists(const Lookup &lookup) const
    {
        if (lookup.numeric) {
            const std::optional<int> position = toPosition(lookup.number);
            return position && at(*position);
        }
        const int index = indexOfCaption(lookup.text);
        if (index == -1)
            return withKey(lookup.text) != nullptr;
        return at(index) != nullptr;
    }

    // Lookup by position, or by key when the text exists (so a text that
    // matched only a caption finds nothing).
    T *item(const Lookup &lookup) const
    {
        if (lookup.numeric) {
            if (lookup.number < 1)
                return nullptr;
            const std::optional<int> position = toPosition(lookup.number);
            return position ? at(*position) : nullptr;
        }
        // exists() and then the key probe, with the caption test made once.
        const int index = indexOfCaption(lookup.text);
        return index == -1 || at(index) ? withKey(lookup.text) : nullptr;
    }

    // Index = position from `position` to Count, only when Count > position.
    // Returns the first position whose Index it rewrote (Count + 1 when none).
    // A start below 1 names no member, so nothing is rewritten. When Count
    // equals `position` the last member keeps its Index: a deliberate early
    // stop, which the member records.
    int renumber(int position)
    {
        const int n = count();
        if (position == n && position >= 1) {
            T *last = m_members.back();
            last->setIndexMayLag(last->Index() != n);
            return n + 1;
        }
        if (n <= position || position < 1)
            return n + 1;
        for (int p = position; p <= n; ++p)
            m_members[size_t(p - 1)]->storeIndex(p);
        return position;
    }

    // Positions `first`..`last` changed places but the renumbering began only
    // at `renumberedFrom`: each member there whose Index no longer matches its
    // position keeps it by rule.
    void settle(int first, int last, int renumberedFrom)
    {
        last = std::min({last, count(), renumberedFrom - 1});
        for (int p = std::max(first, 1); p <= last; ++p) {
            T *member = m_members[size_t(p - 1)];
            member->setIndexMayLag(member->Index() != p);
        }
    }

    // Moves `member` towards `index` and renumbers from the lower of its
    // cached Index and the clamped value. Returns the clamped value, which
    // the member stores as its Index; nullopt when it is not a member.
    std::optional<int> move(T *member, int index)
    {
        KeyBuffer buffer;
        if (withKey(member->keyText(buffer)) != member)
            return std::nullopt;
        int n = index;
        if (n >= 0 && n > count())
            n = count();
        if (n < 0)
            n = 1;
        const int oldPosition = positionOf(member);
        const int oldIndex = member->Index();
        m_members.erase(m_members.begin() + (oldPosition - 1));
        const int remaining = count();
        int newPosition;
        if (n >= remaining)
            newPosition = remaining < 1 || n > remaining ? remaining + 1 : remaining;
        else
            newPosition = n < 2 ? 1 : n;
        m_members.insert(m_members.begin() + (newPosition - 1), member);
        const int renumberedFrom = renumber(std::min(oldIndex, n));
        settle(std::min(oldPosition, newPosition), std::max(oldPosition, newPosition), renumberedFrom);
        // The member is about to store n whatever its place.
        member->setIndexMayLag(n != newPosition);
        return n;
    }

    // Takes the member with `oldKey` out, finds a free key (an empty one, or
    // one that exists as a key or caption, is replaced by `nextKey()`) and
    // puts the member back at its place under it.
    template<typename NextKey>
    std::optional<QString> changeKey(QStringView oldKey, QString newKey, NextKey nextKey)
    {
        T *member = withKey(oldKey);
        if (!member)
            return std::nullopt;
        const int position = positionOf(member);
        takeAt(position);
        if (newKey.isEmpty())
            newKey = nextKey();
        // A caption match whose cached Index names no position makes exists()
        // false for a key that is in use; keys stay unique all the same.
        while (exists(Lookup { false, 0, newKey }) || withKey(newKey))
            newKey = nextKey();
        member->storeKey(newKey);
        m_members.insert(m_members.begin() + std::min(position - 1, count()), member);
        keyInsert(member);
        if (m_captionsCounted)
            m_captions.add(foldedKeyHash(member->Caption()));
        return newKey;
    }

    // Checks the tables against the members: returns the problems found.
    QStringList tableProblems() const
    {
        QStringList problems;
        size_t used = 0;
        for (const Slot &slot : m_slots) {
            const T *entry = slot.member;
            if (!entry)
                continue;
            ++used;
            if (slot.hash != foldedKeyHash(entry->Key()))
                problems << QStringLiteral("key table: stale hash for key \"%1\"").arg(entry->Key());
            if (std::find(m_members.begin(), m_members.end(), entry) == m_members.end())
                problems << QStringLiteral("key table: \"%1\" is no member").arg(entry->Key());
        }
        if (used != m_tableUsed)
            problems << QStringLiteral("key table holds %1 entries, not %2").arg(used).arg(m_tableUsed);
        if constexpr (Numbered) {
            size_t firstUsed = m_numbered.size();
            size_t numberedUsed = 0;
            for (size_t i = 0; i < m_numbered.size(); ++i) {
                const T *entry = m_numbered[i];
                if (!entry)
                    continue;
                firstUsed = std::min(firstUsed, i);
                ++numberedUsed;
                if (entry->keyNumber() != m_firstNumber + i)
                    problems << QStringLiteral("generated key %1 kept under %2").arg(entry->Key()).arg(m_firstNumber + i);
                if (std::find(m_members.begin(), m_members.end(), entry) == m_members.end())
                    problems << QStringLiteral("generated key %1 is no member").arg(entry->Key());
            }
            if (!m_numbered.empty() && (!m_numbered.back() || firstUsed != m_leadingHoles))
                problems << QStringLiteral("generated keys: empty slots at the ends are not as recorded");
            if (numberedUsed != m_numberedUsed)
                problems << QStringLiteral("generated keys: %1 kept, not %2").arg(numberedUsed).arg(m_numberedUsed);
            used += numberedUsed;
        }
        if (used != m_members.size())
            problems << QStringLiteral("%1 keys kept for %2 members").arg(used).arg(m_members.size());
        for (const T *member : m_members) {
            if (withKey(member->Key()) != member)
                problems << QStringLiteral("key \"%1\" does not find its member").arg(member->Key());
            if (m_captionsCounted && !m_captions.contains(foldedKeyHash(member->Caption())))
                problems << QStringLiteral("caption \"%1\" is not counted").arg(member->Caption());
        }
        return problems;
    }

private:
    static constexpr size_t NoSlot = size_t(-1);
    // The table grows before it is three quarters full.
    static constexpr size_t MinimumTableSize = 16;

    // Whether another member has `member`'s key.
    bool keyTaken(const T *member) const
    {
        if constexpr (Numbered) {
            // A generated key needs its text only when members keep keys of their own.
            if (const quint32 number = member->keyNumber()) {
                KeyBuffer buffer;
                return numbered(number) || (m_tableUsed && withKey(member->keyText(buffer)));
            }
        }
        KeyBuffer buffer;
        return withKey(member->keyText(buffer)) != nullptr;
    }

    // The member kept in m_numbered under generated key `number`, nullptr
    // when none (or 0).
    T *numbered(quint32 number) const
    {
        const size_t i = size_t(number - m_firstNumber);
        return number && number >= m_firstNumber && i < m_numbered.size() ? m_numbered[i] : nullptr;
    }

    // Keeps `member` under its generated key `number`; false when the number
    // lies below the vector or so far past it that the slots up to it would
    // be mostly empty (the key then goes to the table).
    bool numberedInsert(T *member, quint32 number)
    {
        if (m_numberedUsed == 0) {
            m_numbered.assign(1, member);
            m_firstNumber = number;
            m_numberedUsed = 1;
            m_leadingHoles = 0;
            return true;
        }
        if (number < m_firstNumber)
            return false;
        const size_t i = size_t(number - m_firstNumber);
        if (i >= m_numbered.size()) {
            if (i >= 2 * (m_numberedUsed + 1) + MinimumNumberedRun)
                return false;
            m_numbered.resize(i + 1, nullptr);
        }
        m_numbered[i] = member;
        ++m_numberedUsed;
        m_leadingHoles = std::min(m_leadingHoles, i);
        return true;
    }

    // Drops the slot of generated key `number`, which must be in use. Empty
    // slots at the end go at once; those at the front go once they are half
    // the vector, so removing from the front costs O(1) amortised.
    void numberedRemove(quint32 number)
    {
        const size_t i = size_t(number - m_firstNumber);
        m_numbered[i] = nullptr;
        if (--m_numberedUsed == 0) {
            m_numbered.clear();
            m_leadingHoles = 0;
            return;
        }
        while (!m_numbered.back())
            m_numbered.pop_back();
        if (i == m_leadingHoles) {
            while (!m_numbered[m_leadingHoles])
                ++m_leadingHoles;
        }
        if (m_leadingHoles * 2 > m_numbered.size()) {
            m_numbered.erase(m_numbered.begin(), m_numbered.begin() + ptrdiff_t(m_leadingHoles));
            m_firstNumber += quint32(m_leadingHoles);
            m_leadingHoles = 0;
        }
    }

    void keyInsert(T *member)
    {
        if constexpr (Numbered) {
            if (const quint32 number = member->keyNumber(); number && numberedInsert(member, number))
                return;
        }
        KeyBuffer buffer;
        tableInsert(member, foldedKeyHash(member->keyText(buffer)));
    }

    void keyRemove(const T *member)
    {
        if constexpr (Numbered) {
            if (const quint32 number = member->keyNumber(); number && numbered(number) == member) {
                numberedRemove(number);
                return;
            }
        }
        tableRemove(member);
    }

    // Only called while the table holds entries, so it has free slots too.
    size_t findKey(QStringView key, quint32 hash) const
    {
        KeyBuffer buffer;
        for (size_t slot = hash & m_mask; m_slots[slot].member; slot = (slot + 1) & m_mask) {
            const Slot &entry = m_slots[slot];
            if (entry.hash == hash && key.compare(entry.member->keyText(buffer), Qt::CaseInsensitive) == 0)
                return slot;
        }
        return NoSlot;
    }

    void tableInsert(T *member, quint32 hash)
    {
        if ((m_tableUsed + 1) * 4 > m_slots.size() * 3)
            rehash(std::max(MinimumTableSize, m_slots.size() * 2));
        ++m_tableUsed;
        size_t slot = hash & m_mask;
        while (m_slots[slot].member)
            slot = (slot + 1) & m_mask;
        m_slots[slot] = { member, hash };
    }

    // Linear probing with backward-shift deletion: no tombstones, so probes
    // stay short however many keys come and go.
    void tableRemove(const T *member)
    {
        KeyBuffer buffer;
        size_t hole = foldedKeyHash(member->keyText(buffer)) & m_mask;
        while (m_slots[hole].member != member)
            hole = (hole + 1) & m_mask;
        for (size_t next = (hole + 1) & m_mask; m_slots[next].member; next = (next + 1) & m_mask) {
            const size_t home = m_slots[next].hash & m_mask;
            // Move the entry back when its home is not in (hole, next].
            if (((next - home) & m_mask) >= ((next - hole) & m_mask)) {
                m_slots[hole] = m_slots[next];
                hole = next;
            }
        }
        m_slots[hole] = { nullptr, 0 };
        --m_tableUsed;
    }

    void rehash(size_t size)
    {
        std::vector<Slot> old(size, Slot { nullptr, 0 });
        old.swap(m_slots);
        m_mask = size - 1;
        for (const Slot &entry : old) {
            if (!entry.member)
                continue;
            size_t slot = entry.hash & m_mask;
            while (m_slots[slot].member)
                slot = (slot + 1) & m_mask;
            m_slots[slot] = entry;
        }
    }

    // A table entry: the member and the folded hash of its key, packed into
    // twelve bytes so that a probe reads one place in memory.
    struct [[gnu::packed]] Slot
    {
        T *member;
        quint32 hash;
    };

    // A generated number may open a run of empty slots this long before the
    // vector counts as mostly empty.
    static constexpr size_t MinimumNumberedRun = 64;

    std::vector<T *> m_members;
    // Members with generated keys: slot i holds the member whose key number
    // is m_firstNumber + i, or nullptr. The last slot is in use unless the
    // vector is empty; m_leadingHoles counts the empty slots before the first
    // used one. Other members are in m_slots.
    std::vector<T *> m_numbered;
    quint32 m_firstNumber = 0;
    size_t m_numberedUsed = 0;
    size_t m_leadingHoles = 0;
    std::vector<Slot> m_slots;
    size_t m_tableUsed = 0;
    size_t m_mask = 0;
    // Made by the first caption test, which is a const lookup.
    mutable HashCounts m_captions;
    mutable bool m_captionsCounted = false;
};

} // namespace OrrinQuiver
