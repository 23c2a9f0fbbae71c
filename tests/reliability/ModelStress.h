#pragma once

#include "QuiverTest.h"

#include "core/QuiverError.h"
#include "itemview/ItemContainer.h"
#include "model/ModelChecker.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QPointer>
#include <QtCore/QRegularExpression>
#include <QtCore/QSet>

#include <algorithm>
#include <array>
#include <climits>
#include <random>
#include <tuple>
#include <type_traits>
#include <vector>

// The operations of one run; QUIVER_STRESS_STEPS sets another number for a
// longer campaign.
constexpr int DefaultSteps = 100000;
// The whole model is checked after every this many operations (and after
// every clear, document read and return to the event loop); the operations
// in between check what they touched.
constexpr int FullCheckEvery = 64;
// The suite runs one fixed seed, so that every run of the test command
// checks the same sequence; QUIVER_STRESS_SEED replays another one, and
// QUIVER_STRESS_SEED=random draws a new seed for a campaign.
constexpr quint64 DefaultSeed = 20261122;

// References a host keeps at most; a new one then replaces an old one.
constexpr int KeptLimit = 16;

// A text no caption or key of the stress run ever has.
inline const QString Unknown = QStringLiteral("\x01unknown");

template<typename T>
constexpr bool IsHeader
    = std::is_same_v<std::remove_cv_t<T>, Header> || std::is_same_v<std::remove_cv_t<T>, Headers>;

template<typename T>
inline QLatin1String nameOf()
{
    if constexpr (std::is_same_v<T, Headers>)
        return QLatin1String("Headers");
    else if constexpr (std::is_same_v<T, Items>)
        return QLatin1String("Items");
    else
        return QLatin1String(IsHeader<T> ? "header" : "item");
}

inline QString flipCase(const QString &text)
{
    return text == text.toUpper() ? text.toLower() : text.toUpper();
}

// The key Items::Add generates for its n-th new member.
inline QString generatedItemKey(int n)
{
    return QStringLiteral("NEW_ITEM%1").arg(n, 5, 10, QLatin1Char('0'));
}

inline bool isGeneratedItemKey(const QString &key)
{
    static const QRegularExpression generated(QStringLiteral("^NEW_ITEM\\d+$"),
                                              QRegularExpression::CaseInsensitiveOption);
    return generated.match(key).hasMatch();
}

// Whether reading `items` back in document order could give a member another
// key than the one written: when an earlier member's caption or a key
// generated on the way equals it, the collection replaces it.
// `generatedBefore` is the number of keys the collection generated before
// reading; -1 when unknown, which counts every generated-looking key as a
// clash.
inline bool keysClashWhenRead(const Items &items, int generatedBefore)
{
    QSet<QString> keys;
    QSet<QString> captions;
    int position = 0;
    for (const Item *item : items) {
        ++position;
        const QString key = item->Key().toCaseFolded();
        if (captions.contains(key))
            return true;
        if (generatedBefore < 0 ? isGeneratedItemKey(key)
                                : keys.contains(generatedItemKey(generatedBefore + position).toCaseFolded()))
            return true;
        keys.insert(key);
        captions.insert(item->Caption().toCaseFolded());
    }
    return false;
}

// Drives a real Quiver through a seeded random sequence of what a host does
// to its content (add, remove, move, re-key, select, hide, clear, XML round
// trips, history moves, references kept across removals, bad arguments) and
// checks the model after every operation. The same seed replays the same
// sequence. Headers and items share their collection behaviour, so each such
// operation is written once, over the member type or its collection.
class ModelStress
{
public:
    struct Limits
    {
        // The model grows up to about these sizes, then shrinks again.
        int headers;
        int itemsPerHeader;
    };

    ModelStress(Quiver &bar, quint64 seed, Limits limits)
        : m_bar(bar)
        , m_random(seed)
        , m_limits(limits)
    { }

    QStringList recentOperations() const
    {
        QStringList lines;
        const int shown = qMin(m_steps, int(m_recent.size()));
        for (int step = m_steps - shown; step < m_steps; ++step) {
            const Record &record = m_recent[size_t(step) % m_recent.size()];
            lines << QStringLiteral("%1: %2(%3, %4)")
                         .arg(step + 1)
                         .arg(QLatin1String(Ops[record.op].name))
                         .arg(record.a)
                         .arg(record.b);
        }
        return lines;
    }

    QStringList step()
    {
        int op = chooseOp();
        Header *header = anyHeader();
        Item *item = anyItem();
        if (Ops[op].needs > 0 && !header)
            op = 0;
        else if (Ops[op].needs > 1 && !item)
            op = 1;
        m_recent[size_t(m_steps) % m_recent.size()] = { op, 0, 0 };
        m_touched = nullptr;
        Ops[op].run(*this, header, item);
        ++m_steps;
        checkAfter(op);
        return std::exchange(m_problems, {});
    }

    // How many XML round trips could be compared text for text.
    // Lets deferred deletions run, as a return to the event loop does, and
    // checks that exactly the removed members went.
    void returnToEventLoop();

    int comparedRoundTrips() const { return m_comparedRoundTrips; }

private:
    // An operation: how often it runs, its name, what it needs (0 nothing,
    // 1 a header, 2 an item; one is added first when there is none), whether
    // the whole model is checked after it, and what it does.
    struct OpInfo
    {
        int weight;
        const char *name;
        int needs;
        bool fullCheck;
        void (*run)(ModelStress &s, Header *header, Item *item);
    };
    static const OpInfo Ops[25];
    struct Record
    {
        int op, a, b;
    };

    void fail(const QString &problem) { m_problems << problem; }
    // The header whose items an operation changed, checked after it.
    void touch(Header *header) { m_touched = header; }
    void touch(Item *item) { m_touched = item->collection()->header(); }
    template<typename T>
    QList<QPointer<T>> &kept()
    {
        return std::get<QList<QPointer<T>>>(m_kept);
    }

    int pick(int n) { return n <= 0 ? 0 : int(m_random() % quint64(n)); }
    bool chance(int percent) { return pick(100) < percent; }

    // Positions a host may pass: the edges, just outside them, the extremes of
    // the type, and ordinary ones.
    int wildIndex(int count)
    {
        const int edges[] = { INT_MIN, -1, 0, count, count + 1, INT_MAX };
        const int which = pick(10);
        return which < 6 ? edges[which] : 1 + pick(qMax(count, 1));
    }

    QString freshKey()
    {
        return (chance(50) ? QStringLiteral("k") : QStringLiteral("K")) + QString::number(++m_keyCounter);
    }

    QString someCaption()
    {
        switch (pick(10)) {
        case 0:
            return {};
        case 1:
            return QStringLiteral("c%1\r\nsecond line").arg(pick(1000));
        case 2:
            if (const Item *item = anyItem())
                return item->Caption();
            return QStringLiteral("C%1").arg(pick(1000));
        case 3:
            return QStringLiteral("\u03a9 %1 \U0001F600").arg(pick(1000));
        default:
            return QStringLiteral("c%1").arg(pick(1000));
        }
    }

    Header *anyHeader()
    {
        const Headers &headers = *m_bar.Headers();
        return headers.at(1 + pick(headers.Count()));
    }

    Item *anyItem()
    {
        const Header *header = anyHeader();
        return header ? header->Items()->at(1 + pick(header->Items()->Count())) : nullptr;
    }

    void note(int a, int b = 0)
    {
        Record &record = m_recent[size_t(m_steps) % m_recent.size()];
        record.a = a;
        record.b = b;
    }

    int chooseOp()
    {
        static const int total = [] {
            int sum = 0;
            for (const OpInfo &info : Ops)
                sum += info.weight;
            return sum;
        }();
        int roll = pick(total);
        int op = 0;
        while (roll >= Ops[op].weight)
            roll -= Ops[op++].weight;
        return op;
    }

    template<typename Collection>
    void add(Collection &members)
    {
        const int count = members.Count();
        if (count >= (IsHeader<Collection> ? m_limits.headers : m_limits.itemsPerHeader)) {
            remove(members);
            return;
        }
        const int index = wildIndex(count);
        const auto *taken = count > 0 && chance(10) ? members.at(1 + pick(count)) : nullptr;
        const QString key = taken ? flipCase(taken->Key()) : chance(15) ? QString() : freshKey();
        note(index, taken ? -1 : key.isEmpty() ? 0 : 1);
        const auto *member = addTo(members, index, key);
        const QLatin1String name = nameOf<Collection>();
        if (taken) {
            if (member || members.Count() != count)
                fail(QStringLiteral("%1.Add took the key \"%2\" that is in use").arg(name, key));
            return;
        }
        if constexpr (!IsHeader<Collection>) {
            // The generated key was taken by an item read from another header.
            if (!member && key.isEmpty() && members.Count() == count
                && std::any_of(members.begin(), members.end(),
                               [](const Item *item) { return isGeneratedItemKey(item->Key()); }))
                return;
        }
        if (!member || members.Count() != count + 1)
            fail(QStringLiteral("%1.Add refused the free key \"%2\"").arg(name, key));
        else if (members.withKey(member->Key()) != member)
            fail(QStringLiteral("a new %1 is not found by its key \"%2\"")
                     .arg(nameOf<std::remove_cvref_t<decltype(*member)>>(), member->Key()));
    }

    Header *addTo(Headers &headers, int index, const QString &key)
    {
        const qvViewType view = qvViewType(chance(10) ? 5 : pick(2));
        Header *header = headers.Add(index, key, someCaption(), view);
        m_touched = header;
        return header;
    }

    Item *addTo(Items &items, int index, const QString &key)
    {
        m_touched = items.header();
        const QString icon = chance(30) ? QStringLiteral("icon%1").arg(pick(8)) : QString();
        return items.Add(index, key, someCaption(), icon, icon);
    }

    template<typename Collection>
    void remove(Collection &members)
    {
        if constexpr (!IsHeader<Collection>)
            m_touched = members.header();
        const QLatin1String name = nameOf<Collection>();
        const int count = members.Count();
        const auto *member = members.at(1 + pick(count));
        switch (member ? pick(4) : 0) {
        case 0: {
            const int index = wildIndex(count);
            note(0, index);
            if (!members.Remove(index))
                fail(QStringLiteral("%1.Remove(%2) reported false").arg(name).arg(index));
            const int expected = index >= 1 && index <= count ? count - 1 : count;
            if (members.Count() != expected)
                fail(QStringLiteral("%1.Remove(%2) left %3 of %4")
                         .arg(name)
                         .arg(index)
                         .arg(members.Count())
                         .arg(count));
            break;
        }
        case 1: {
            // Items remove the member with the key; Headers only consult captions.
            const bool expected = !IsHeader<Collection> || members.IndexOfCaption(member->Key()) != -1;
            note(1, member->Index());
            if (members.Remove(member->Key()) != expected)
                fail(QStringLiteral("%1.Remove of the key \"%2\" reported %3")
                         .arg(name, member->Key(), QLatin1String(expected ? "false" : "true")));
            break;
        }
        case 2:
            note(2, member->Index());
            members.Remove(member->Caption());
            break;
        default:
            note(3);
            if (members.Remove(Unknown) || members.Count() != count)
                fail(QStringLiteral("%1.Remove of an unknown text removed something").arg(name));
            break;
        }
    }

    template<typename T>
    void move(T *member)
    {
        const int index = wildIndex(member->collection()->Count());
        note(member->Index(), index);
        touch(member);
        member->setIndex(index);
        if (!isMember(member))
            fail(QStringLiteral("a moved %1 left its collection").arg(nameOf<T>()));
    }

    template<typename T>
    void rekey(T *member)
    {
        const auto &members = *member->collection();
        const T *other = members.at(1 + pick(members.Count()));
        QString key;
        switch (pick(5)) {
        case 0:
            break;
        case 1:
            key = freshKey();
            break;
        case 2:
            key = flipCase(other->Key());
            break;
        case 3:
            key = other->Caption();
            break;
        default:
            key = flipCase(member->Key());
            break;
        }
        note(member->Index(), other->Index());
        touch(member);
        member->setKey(key);
        if (!isMember(member) || members.withKey(member->Key()) != member)
            fail(QStringLiteral("re-keying a %1 to \"%2\" lost it").arg(nameOf<T>(), key));
    }

    template<typename T>
    void hide(T *member)
    {
        const bool visible = chance(60);
        note(member->Index(), visible);
        touch(member);
        member->setVisible(visible);
    }

    template<typename T>
    void select(T *member)
    {
        note(member->Index());
        member->setSelected(chance(50));
    }

    void clearItems(Header *header)
    {
        if (!header)
            return;
        note(header->Index(), header->Items()->Count());
        touch(header);
        header->Items()->Clear();
        if (header->Items()->Count() != 0)
            fail(QStringLiteral("Items.Clear left members"));
    }

    void moveInHistory(bool back)
    {
        Navigation &navigation = *m_bar.Navigation();
        const int steps = pick(5) - 1;
        note(navigation.CurrentPosition(), steps);
        back ? navigation.GoBack(steps) : navigation.GoForward(steps);
    }

    template<typename T>
    void changeLooks(T *member)
    {
        const QString caption = someCaption();
        note(IsHeader<T> ? 0 : 1, member->Index());
        touch(member);
        switch (pick(6)) {
        case 0:
            member->setToolTipText(caption);
            break;
        case 1:
            member->setTag(chance(50) ? QVariant(pick(100)) : QVariant(caption));
            break;
        case 2:
            member->setEnabled(chance(50));
            break;
        case 3:
            if constexpr (IsHeader<T>)
                member->setView(qvViewType(pick(3)));
            else
                member->setBold(chance(50));
            break;
        default:
            member->setCaption(caption);
            break;
        }
        if (!IsHeader<T> && member->Caption().contains(QLatin1String("\r\n")))
            fail(QStringLiteral("an item caption kept a CR LF pair"));
    }

    // Writes the bar as a document and reads it back. Where the collections'
    // key rules cannot change a key on the way, the bar must write the very same
    // document again.
    void controlXml();

    void headerXml();

    template<typename T>
    void keepReference()
    {
        QPointer<T> member;
        if constexpr (IsHeader<T>)
            member = anyHeader();
        else
            member = anyItem();
        if (!member)
            return;
        note(IsHeader<T> ? 0 : 1, member->Index());
        if (kept<T>().size() < KeptLimit)
            kept<T>() << member;
        else
            kept<T>()[pick(KeptLimit)] = member;
    }

    // A host uses a header or item it kept, which may have been removed since:
    // reading it is safe, and changing a removed one changes nothing in the bar.
    template<typename T>
    void useKeptReference()
    {
        if (kept<T>().isEmpty())
            return;
        T *member = kept<T>().at(pick(kept<T>().size())).data();
        if (!member)
            return;
        const bool removed = !isMember(member);
        const QString before = removed ? fingerprint() : QString();
        const int action = pick(7);
        note(IsHeader<T> ? 0 : 1, action + (removed ? 100 : 0));
        switch (action) {
        case 0:
            member->setCaption(member->Caption() + QLatin1Char('+'));
            break;
        case 1:
            member->setIndex(wildIndex(3));
            break;
        case 2:
            member->setKey(freshKey());
            break;
        case 3:
            member->setSelected(true);
            break;
        case 4:
            member->setVisible(!member->Visible());
            break;
        case 5:
            if constexpr (IsHeader<T>)
                member->Items()->Add(0, freshKey());
            else
                member->EnsureVisible();
            break;
        default:
            if constexpr (IsHeader<T>) {
                if (removed && !member->XML().isEmpty())
                    fail(QStringLiteral("a removed header still writes a fragment"));
            } else if (removed && (member->Parent() || member->Selected())) {
                fail(QStringLiteral("a removed item still names a parent or is selected"));
            }
            break;
        }
        if (removed && fingerprint() != before)
            fail(QStringLiteral("changing a removed %1 changed the bar").arg(nameOf<T>()));
    }

    // Whether a collection finds, or reports removing, a member that is not there.
    template<typename Collection>
    bool answersMissingWrongly(Collection &members)
    {
        const int count = members.Count();
        return members.Item(QVariant()) || members.Item(0) || members.Item(-1) || members.Item(count + 1)
            || members.Item(Unknown) || members.Exists(QVariant()) || members.Exists(INT_MIN)
            || !members.Remove(count + 1 + pick(5)) || members.Remove(Unknown);
    }

    // Arguments a host should not pass: each gets its documented default or
    // error, and the bar's content stays as it was.
    void badInput();

    void checkAfter(int op);

    // Each member's Index names its place (unless renumbering may leave it
    // behind) and its key finds it.
    template<typename Collection>
    void checkMembers(const Collection &members);

    // Every item has its own view id, one that its header's view gave out.
    void checkViewIds(const Header &header);

    // Exactly the open header's item view is active, only that view is shown
    // (and only while its header is visible), and a header is open whenever one
    // is visible. The open header itself may be hidden: hiding a header whose
    // cached Index lags its position does not move the selection.
    void checkControl();

    void checkHistory();

    bool isMember(const Header *header) const { return header->collection() == m_bar.Headers(); }

    bool isMember(const Item *item) const
    {
        const Items *items = item->collection();
        return items && items->header() && isMember(items->header()) && items->withKey(item->Key()) == item;
    }

    QString fingerprint() const;

    Quiver &m_bar;
    std::mt19937_64 m_random;
    Limits m_limits;
    QStringList m_problems;
    Header *m_touched = nullptr;
    int m_steps = 0;
    int m_keyCounter = 0;
    int m_comparedRoundTrips = 0;
    std::tuple<QList<QPointer<Header>>, QList<QPointer<Item>>> m_kept;
    std::array<Record, 24> m_recent {};
};
