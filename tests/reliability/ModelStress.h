#pragma once

#include <QtCore/QList>
#include <QtCore/QPointer>
#include <QtCore/QStringList>

#include <array>
#include <random>

namespace OrrinQuiver {

class Header;
class Item;
class Quiver;

// Drives a real Quiver through a seeded random sequence of what a host does
// to its content (add, remove, move, re-key, select, hide, clear, XML round
// trips, history moves, references kept across removals, bad arguments) and
// checks the model after every operation. The same seed replays the same
// sequence.
class ModelStress
{
public:
    struct Limits
    {
        // The model grows up to about these sizes, then shrinks again.
        int headers;
        int itemsPerHeader;
        // The whole model is checked every this many operations; in between,
        // the collection that was touched, the open header and the history.
        int fullCheckEvery;
    };

    ModelStress(Quiver &bar, quint64 seed, Limits limits);

    // Runs one operation and the checks after it: what went wrong, empty
    // when the model is sound.
    QStringList step();
    // The last operations run, oldest first, for a failure report.
    QStringList recentOperations() const;
    // How many XML round trips could be compared text for text.
    int comparedRoundTrips() const { return m_comparedRoundTrips; }

private:
    enum class Op {
        AddHeader,
        RemoveHeader,
        MoveHeader,
        RekeyHeader,
        SelectHeader,
        HideHeader,
        AddItem,
        RemoveItem,
        MoveItem,
        RekeyItem,
        SelectItem,
        HideItem,
        Caption,
        ClearItems,
        ClearHeaders,
        ControlXml,
        HeaderXml,
        GoBack,
        GoForward,
        SetPosition,
        ClearHistory,
        KeepReference,
        UseKeptReference,
        ReturnToEventLoop,
        BadInput,
    };
    struct OpInfo
    {
        Op op;
        int weight;
        const char *name;
    };
    static const OpInfo Ops[];
    struct Record
    {
        Op op;
        int a;
        int b;
    };

    Op chooseOp();
    void run(Op op);
    int pick(int n);
    bool chance(int percent);
    int wildIndex(int count);
    QString freshKey();
    QString someCaption();
    Header *anyHeader();
    Item *anyItem();
    void note(int a, int b = 0);

    void addHeader();
    void removeHeader();
    void rekeyHeader(Header *header);
    void addItem();
    void removeItem();
    void rekeyItem(Item *item);
    void changeCaption();
    void controlXml();
    void headerXml();
    void keepReference();
    void useKeptReference();
    void returnToEventLoop();
    void badInput();

    void checkAfter(Op op);
    void checkViewIds(const Header &header);
    void checkControl();
    void checkHistory();
    void checkKeptAlive();
    void fail(const QString &problem) { m_problems << problem; }
    bool isMember(const Header *header) const;
    bool isMember(const Item *item) const;
    // The content a host can see, as one text: what bad input must not change.
    QString fingerprint() const;

    Quiver &m_bar;
    std::mt19937_64 m_random;
    Limits m_limits;
    QStringList m_problems;
    Header *m_touched = nullptr;
    int m_steps = 0;
    int m_keyCounter = 0;
    int m_comparedRoundTrips = 0;
    QList<QPointer<Header>> m_keptHeaders;
    QList<QPointer<Item>> m_keptItems;
    std::array<Record, 24> m_recent {};
};

} // namespace OrrinQuiver
