#include "ModelTestSupport.h"

#include <QtCore/QPointer>

#include <type_traits>

using namespace OrrinQuiver;

// What Headers and Items share: positions, keys, lookups, renumbering,
// moves and re-keying. Every row runs against both collections ("Headers:
// ..." and "Items: ..."), unless the collections differ, where each has rows
// of its own.
class tst_Collections : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { flushDeletions(); }

    void add_data()
    {
        columns();
        QTest::addColumn<int>("existing");
        QTest::addColumn<int>("index");
        QTest::addColumn<QStringList>("keys");
        QTest::addColumn<QList<int>>("indexes");

        rows("empty", 0, 0, QStringList { "new#1" }, QList<int> { 1 });
        rows("zero appends", 2, 0, QStringList { "k1", "k2", "new#1" }, QList<int> { 1, 2, 3 });
        rows("Count appends", 2, 2, QStringList { "k1", "k2", "new#1" }, QList<int> { 1, 2, 3 });
        rows("above Count appends", 2, 99, QStringList { "k1", "k2", "new#1" }, QList<int> { 1, 2, 3 });
        rows("one goes after the first", 3, 1, QStringList { "k1", "new#1", "k2", "k3" },
             QList<int> { 1, 2, 3, 4 });
        // Headers renumber from the new member's place, items from the one after.
        row(true, "before the last", 3, 2, QStringList { "k1", "k2", "new#1", "k3" },
            QList<int> { 1, 2, 3, 4 });
        row(false, "before the last, which keeps its Index", 3, 2, QStringList { "k1", "k2", "new#1", "k3" },
            QList<int> { 1, 2, 3, 3 });
        row(true, "negative goes second", 2, -3, QStringList { "k1", "new#1", "k2" }, QList<int> { 1, 2, 3 });
        row(false, "negative onto one: both Index 1", 1, -5, QStringList { "k1", "new#1" },
            QList<int> { 1, 1 });
        row(false, "negative onto three appends", 3, -5, QStringList { "k1", "k2", "k3", "new#1" },
            QList<int> { 1, 2, 3, 4 });
    }
    void add() { forBoth(&tst_Collections::add<Headers>, &tst_Collections::add<Items>); }
    void generatedKeys_data()
    {
        columns();
        rows("counter");
    }
    void generatedKeys()
    {
        forBoth(&tst_Collections::generatedKeys<Headers>, &tst_Collections::generatedKeys<Items>);
    }

    void lookups_data()
    {
        columns();
        QTest::addColumn<QVariant>("index");
        QTest::addColumn<bool>("exists");
        QTest::addColumn<QString>("found");

        rows("position", QVariant(1), true, QString("k1"));
        rows("position 0", QVariant(0), false, QString());
        rows("past the end", QVariant(5), false, QString());
        rows("half rounds to even", QVariant(2.5), true, QString("k2"));
        rows("fraction below 1 exists, finds nothing", QVariant(0.7), true, QString());
        rows("huge number", QVariant(1e12), false, QString());
        rows("True is -1", QVariant(true), false, QString());
        rows("empty", QVariant(), false, QString());
        rows("key in another case", QVariant("K2"), true, QString("k2"));
        rows("caption only", QVariant("c2"), true, QString());
        rows("caption of one, key of another", QVariant("C1"), true, QString("C1"));
        rows("digits are a text", QVariant("2"), false, QString());
        rows("a key of digits", QVariant("7"), true, QString("7"));
        rows("unknown", QVariant("zz"), false, QString());
    }
    void lookups() { forBoth(&tst_Collections::lookups<Headers>, &tst_Collections::lookups<Items>); }

    void remove_data()
    {
        columns();
        QTest::addColumn<QVariant>("index");
        QTest::addColumn<bool>("result");
        QTest::addColumn<QStringList>("keys");
        QTest::addColumn<QList<int>>("indexes");

        const QStringList all { "k1", "k2", "k3", "k4" };
        const QStringList without2 { "k1", "k3", "k4" };
        rows("first", QVariant(1), true, QStringList { "k2", "k3", "k4" }, QList<int> { 1, 2, 3 });
        rows("last", QVariant(4), true, QStringList { "k1", "k2", "k3" }, QList<int> { 1, 2, 3 });
        rows("second to last: the last keeps its Index", QVariant(3), true, QStringList { "k1", "k2", "k4" },
             QList<int> { 1, 2, 4 });
        rows("past the end reports True", QVariant(1000), true, all, QList<int> { 1, 2, 3, 4 });
        rows("unknown", QVariant("zz"), false, all, QList<int> { 1, 2, 3, 4 });
        // Items remove by key, else by caption when that caption is no key;
        // headers consult captions only.
        row(false, "key in another case", QVariant("K2"), true, without2, QList<int> { 1, 2, 3 });
        row(false, "caption only", QVariant("c2"), false, all, QList<int> { 1, 2, 3, 4 });
        row(true, "caption in another case", QVariant("C2"), true, without2, QList<int> { 1, 2, 3 });
        row(true, "a key is not consulted", QVariant("k2"), false, all, QList<int> { 1, 2, 3, 4 });
    }
    void remove() { forBoth(&tst_Collections::remove<Headers>, &tst_Collections::remove<Items>); }

    void move_data()
    {
        columns();
        QTest::addColumn<int>("from");
        QTest::addColumn<int>("value");
        QTest::addColumn<QStringList>("keys");
        QTest::addColumn<QList<int>>("indexes");

        rows("first to third", 1, 3, QStringList { "k2", "k3", "k1", "k4" }, QList<int> { 1, 2, 3, 4 });
        rows("last to first", 4, 1, QStringList { "k4", "k1", "k2", "k3" }, QList<int> { 1, 2, 3, 4 });
        rows("above Count clamps to the end", 2, 99, QStringList { "k1", "k3", "k4", "k2" },
             QList<int> { 1, 2, 3, 4 });
        rows("negative means 1", 3, -2, QStringList { "k3", "k1", "k2", "k4" }, QList<int> { 1, 2, 3, 4 });
        rows("zero goes first and renumbers nothing", 3, 0, QStringList { "k3", "k1", "k2", "k4" },
             QList<int> { 0, 1, 2, 4 });
    }
    void move() { forBoth(&tst_Collections::move<Headers>, &tst_Collections::move<Items>); }

    void changeKey_data()
    {
        columns();
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("stored");

        rows("free", QString("fresh"), QString("fresh"));
        rows("own key in another case", QString("K2"), QString("K2"));
        rows("own caption", QString("c2"), QString("c2"));
        rows("another member's key", QString("k3"), QString("#1"));
        rows("another member's caption", QString("C1"), QString("#1"));
        // While the member is out, the ones after it sit one place before their
        // cached Index, so the caption test misses the last one.
        rows("last member's caption", QString("C3"), QString("C3"));
        rows("empty", QString(), QString("#1"));
    }
    void changeKey() { forBoth(&tst_Collections::changeKey<Headers>, &tst_Collections::changeKey<Items>); }

private:
    template<typename... Values>
    static void row(bool headers, const char *name, const Values &...values)
    {
        ((QTest::addRow("%s: %s", headers ? "Headers" : "Items", name) << headers) << ... << values);
    }
    // The same row for each collection.
    template<typename... Values>
    static void rows(const char *name, const Values &...values)
    {
        row(true, name, values...);
        row(false, name, values...);
    }
    static void columns() { QTest::addColumn<bool>("headers"); }
    void forBoth(void (tst_Collections::*forHeaders)(), void (tst_Collections::*forItems)())
    {
        QFETCH(bool, headers);
        (this->*(headers ? forHeaders : forItems))();
    }

    // Members keyed k1, k2, ... with captions c1, c2, ...
    template<typename C>
    static std::unique_ptr<C> filled(int count)
    {
        std::unique_ptr<C> members;
        if constexpr (std::is_same_v<C, Headers>)
            members = std::make_unique<Headers>(nullptr);
        else
            members = std::make_unique<Items>();
        for (int i = 1; i <= count; ++i)
            members->Add(0, QStringLiteral("k%1").arg(i), QStringLiteral("c%1").arg(i));
        return members;
    }
    // Keys as the rows write them: "#n" is the n-th key the collection
    // generates ("ITEM00001"), "new#n" the n-th that Add generates.
    template<typename C>
    static QString prefix()
    {
        return std::is_same_v<C, Headers> ? QStringLiteral("HEADER") : QStringLiteral("ITEM");
    }
    template<typename C>
    static QString key(const QString &text)
    {
        return QString(text)
            .replace(QLatin1String("new#"), QLatin1String("NEW_#"))
            .replace(QLatin1String("#"), prefix<C>() + QLatin1String("0000"));
    }
    template<typename C>
    static QStringList keys(const QStringList &texts)
    {
        QStringList result;
        for (const QString &text : texts)
            result << key<C>(text);
        return result;
    }

    template<typename C>
    void add()
    {
        QFETCH(int, existing);
        QFETCH(int, index);
        QFETCH(QStringList, keys);
        QFETCH(QList<int>, indexes);

        auto members = filled<C>(existing);
        const auto *member = members->Add(index, QString(), QStringLiteral("New"));
        QVERIFY(member);
        QCOMPARE(keysOf(*members), tst_Collections::keys<C>(keys));
        QCOMPARE(indexesOf(*members), indexes);
        QCOMPARE(members->Count(), int(keys.size()));
        QCOMPARE(members->withKey(member->Key()), member);
        QCOMPARE(member->Caption(), QStringLiteral("New"));
        QVERIFY(member->Enabled());
        CHECK_MODEL(*members);
    }

    template<typename C>
    void generatedKeys()
    {
        auto members = filled<C>(0);
        QCOMPARE(members->Add()->Key(), key<C>("new#1"));
        // Keys are unique whatever their letter case, generated ones included.
        QVERIFY(members->Add(0, key<C>("new#2").toLower()));
        QCOMPARE(members->Add(), nullptr);
        QCOMPARE(members->Add(0, key<C>("new#1")), nullptr);
        QVERIFY(members->Add(0, QStringLiteral("\u00C9mile")));
        QCOMPARE(members->Add(0, QStringLiteral("\u00E9MILE")), nullptr);
        QCOMPARE(members->Count(), 3);
        QCOMPARE(members->Item(key<C>("new#1").toLower()), members->at(1));
        // Clearing does not reset the counter.
        members->Clear();
        QCOMPARE(members->Add()->Key(), key<C>("new#3"));
        CHECK_MODEL(*members);
        for (int i = 4; i < 99999; ++i)
            members->NextKey();
        QCOMPARE(members->NextKey(), prefix<C>() + QLatin1String("99999"));
        QCOMPARE(members->NextKey(), prefix<C>() + QLatin1String("100000"));
    }

    template<typename C>
    void lookups()
    {
        QFETCH(QVariant, index);
        QFETCH(bool, exists);
        QFETCH(QString, found);

        auto members = filled<C>(2);
        members->Add(0, QStringLiteral("C1"), QStringLiteral("c3"));
        members->Add(0, QStringLiteral("7"), QStringLiteral("c4"));
        QCOMPARE(members->Exists(index), exists);
        const auto *member = members->Item(index);
        QCOMPARE(member ? member->Key() : QString(), found);
    }

    template<typename C>
    void remove()
    {
        QFETCH(QVariant, index);
        QFETCH(bool, result);
        QFETCH(QStringList, keys);
        QFETCH(QList<int>, indexes);

        auto members = filled<C>(4);
        QList<QPointer<std::remove_pointer_t<decltype(members->at(1))>>> before;
        for (auto *member : *members)
            before << member;
        QCOMPARE(members->Remove(index), result);
        QCOMPARE(keysOf(*members), keys);
        QCOMPARE(indexesOf(*members), indexes);
        QCOMPARE(members->Count(), int(keys.size()));
        CHECK_MODEL(*members);
        // A removed member stays usable, unlinked, until the event loop runs.
        for (const auto &member : std::as_const(before))
            QCOMPARE(member->isLive(), keys.contains(member->Key()));
        flushDeletions();
        for (const auto &member : std::as_const(before))
            QCOMPARE(member.isNull(), !keys.contains(member ? member->Key() : QString()));
    }

    template<typename C>
    void move()
    {
        QFETCH(int, from);
        QFETCH(int, value);
        QFETCH(QStringList, keys);
        QFETCH(QList<int>, indexes);

        auto members = filled<C>(4);
        members->at(from)->setIndex(value);
        QCOMPARE(keysOf(*members), keys);
        QCOMPARE(indexesOf(*members), indexes);
        CHECK_MODEL(*members);
    }

    template<typename C>
    void changeKey()
    {
        QFETCH(QString, key);
        QFETCH(QString, stored);

        auto members = filled<C>(3);
        auto *member = members->at(2);
        stored = tst_Collections::key<C>(stored);
        member->setKey(key);
        QCOMPARE(member->Key(), stored);
        QCOMPARE(keysOf(*members), (QStringList { "k1", stored, "k3" }));
        QCOMPARE(members->withKey(stored), member);
        QCOMPARE(members->Exists(QStringLiteral("k2")),
                 key.compare(QLatin1String("k2"), Qt::CaseInsensitive) == 0);
        CHECK_MODEL(*members);
    }
};

QTEST_GUILESS_MAIN(tst_Collections)
#include "tst_collections.moc"
