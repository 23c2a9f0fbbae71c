// The checks a stress run makes after its operations, and the operations
// that write and read documents or pass bad arguments.

#include "ModelStress.h"

#include "control/HeaderStrip.h"

#include <QtCore/QCoreApplication>
#include <QtTest/QTest>

void ModelStress::controlXml()
{
    const Headers &headers = *m_bar.Headers();
    bool comparable = true;
    QSet<QString> headerCaptions;
    int position = 0;
    for (const Header *header : headers) {
        ++position;
        comparable = comparable && !headerCaptions.contains(header->Key().toCaseFolded())
            && header->Index() == position && !keysClashWhenRead(*header->Items(), 0);
        headerCaptions.insert(header->Caption().toCaseFolded());
    }
    // Reading opens a visible header instead of a hidden one that was open.
    if (const Header *open = m_bar.SelectedHeader())
        comparable = comparable && open->Visible();
    // Reading selects the open item by its Index.
    if (const Item *selected = m_bar.SelectedItem())
        comparable = comparable && selected->collection()->at(selected->Index()) == selected;
    note(headers.Count(), comparable);

    const QString written = m_bar.XML();
    try {
        m_bar.setXML(written);
    } catch (const QuiverError &error) {
        fail(QStringLiteral("the bar could not read its own document: %1").arg(error.Description()));
        return;
    }
    if (!comparable)
        return;
    ++m_comparedRoundTrips;
    const QString again = m_bar.XML();
    if (again != written)
        fail(QStringLiteral("an XML round trip changed the document:\n%1\n---\n%2").arg(written, again));
}

void ModelStress::headerXml()
{
    Header *source = anyHeader();
    Header *target = anyHeader();
    if (!source)
        return;
    note(source->Index(), target->Index());
    m_touched = target;
    QStringList expected;
    for (const Item *item : *source->Items())
        expected << item->Key() + QLatin1Char('|') + item->Caption();
    const bool comparable = !keysClashWhenRead(*source->Items(), -1);
    try {
        target->setXML(source->XML());
    } catch (const QuiverError &error) {
        fail(QStringLiteral("a header could not read its own fragment: %1").arg(error.Description()));
        return;
    }
    QStringList read;
    for (const Item *item : *target->Items())
        read << item->Key() + QLatin1Char('|') + item->Caption();
    if (comparable && read != expected)
        fail(QStringLiteral("a header fragment read back as\n%1\ninstead of\n%2")
                 .arg(read.join(QLatin1Char('\n')), expected.join(QLatin1Char('\n'))));
}

void ModelStress::returnToEventLoop()
{
    note(kept<Header>().size(), kept<Item>().size());
    QCoreApplication::sendPostedEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    std::apply(
        [this](auto &...lists) {
            const auto sweep = [this](auto &list) {
                for (const auto &member : std::as_const(list)) {
                    if (member && !isMember(member.data()))
                        fail(QStringLiteral("a removed %1 outlived the return to the event loop")
                                 .arg(nameOf<std::remove_cvref_t<decltype(*member)>>()));
                }
                list.removeAll(nullptr);
            };
            (sweep(lists), ...);
        },
        m_kept);
}

void ModelStress::badInput()
{
    Headers &headers = *m_bar.Headers();
    Navigation &navigation = *m_bar.Navigation();
    Header *header = anyHeader();
    Items *items = header ? header->Items() : nullptr;
    const QString before = fingerprint();
    const int kind = pick(7);
    note(kind);
    switch (kind) {
    case 0:
        if (answersMissingWrongly(headers) || (items && answersMissingWrongly(*items)))
            fail(QStringLiteral("a collection answered a missing member wrongly"));
        break;
    case 1:
        if (header && headers.Add(wildIndex(headers.Count()), flipCase(header->Key())))
            fail(QStringLiteral("Headers.Add took a key in use"));
        if (items && items->Count() > 0
            && items->Add(wildIndex(items->Count()), flipCase(items->at(1)->Key())))
            fail(QStringLiteral("Items.Add took a key in use"));
        break;
    case 2:
    case 3: {
        const QString written = m_bar.XML();
        const QString bad[] = {
            QString(),
            QStringLiteral("not a document"),
            QStringLiteral("<other version=\"201\" data=\"items\"/>"),
            written.left(pick(int(written.size()) - 16)),
            QString(written).replace(QStringLiteral("version=\"201\""), QStringLiteral("version=\"202\"")),
            QString(written).replace(QStringLiteral("version=\"201\""), QStringLiteral("version=\"x\"")),
            written + written,
        };
        // A fragment is read without a version check: only the first four
        // texts are broken for a header.
        const bool forHeader = header && kind == 2 && chance(50);
        const QString &text = bad[pick(forHeader ? 4 : int(std::size(bad)))];
        if (kind == 3) {
            // Through the meta-object system the error must not escape; it
            // is reported as a warning instead.
            QTest::ignoreMessage(QtWarningMsg,
                                 QRegularExpression(QStringLiteral("^OrrinQuiver error -\\d+: ")));
            m_bar.setProperty("XML", text);
            break;
        }
        try {
            if (forHeader)
                header->setXML(text);
            else
                m_bar.setXML(text);
            fail(QStringLiteral("a broken document was read without an error"));
        } catch (const QuiverError &) { }
        break;
    }
    case 4: {
        const int position = navigation.CurrentPosition();
        navigation.GoBack(0);
        navigation.GoBack(-3);
        navigation.GoForward(INT_MIN);
        if (navigation.CurrentPosition() != position)
            fail(QStringLiteral("a history move of no steps moved"));
        break;
    }
    default:
        if (Item *item = anyItem())
            item->setIndex(item->Index());
        if (header)
            header->setIndex(header->Index());
        break;
    }
    if (fingerprint() != before)
        fail(QStringLiteral("bad input (kind %1) changed the bar").arg(kind));
}

void ModelStress::checkAfter(int op)
{
    const Headers &headers = *m_bar.Headers();
    if (m_steps % FullCheckEvery == 0 || Ops[op].fullCheck) {
        m_problems += checkModel(headers);
        for (const Header *header : headers)
            checkViewIds(*header);
    } else {
        // The model checker also checks its key tables member by member,
        // which is too slow for every step; this is the linear part of it.
        if (m_touched && isMember(m_touched)) {
            checkMembers(*m_touched->Items());
            checkViewIds(*m_touched);
        }
        checkMembers(headers);
        std::vector<int> barIds;
        for (const Header *header : headers) {
            if (header->Items()->headerKey() != header->Key())
                fail(QStringLiteral("the items of header %1 keep another header key").arg(header->Key()));
            if (std::find(barIds.begin(), barIds.end(), header->barId()) != barIds.end())
                fail(QStringLiteral("bar id %1 is used twice").arg(header->barId()));
            barIds.push_back(header->barId());
        }
    }
    checkControl();
    checkHistory();
    if (kept<Header>().contains(nullptr) || kept<Item>().contains(nullptr))
        fail(QStringLiteral("a kept reference was deleted before control returned to the event loop"));
}

template<typename Collection>
void ModelStress::checkMembers(const Collection &members)
{
    int position = 0;
    for (const auto *member : members) {
        ++position;
        const QLatin1String name = nameOf<std::remove_cvref_t<decltype(*member)>>();
        if (member->Index() != position && !member->indexMayLag())
            fail(QStringLiteral("%1 %2 has Index %3").arg(name).arg(position).arg(member->Index()));
        if (members.withKey(member->Key()) != member)
            fail(QStringLiteral("%1 %2 is not found by its key \"%3\"")
                     .arg(name)
                     .arg(position)
                     .arg(member->Key()));
    }
}

void ModelStress::checkViewIds(const Header &header)
{
    const auto *view = dynamic_cast<const ItemContainer *>(header.itemView());
    std::vector<bool> given(view ? size_t(view->MaxPhysItems()) + 1 : 0);
    for (const Item *item : *header.Items()) {
        const size_t id = size_t(qMax(item->viewId(), 0));
        if (id < 1 || id >= given.size() || given[id])
            fail(QStringLiteral("item \"%1\" has view id %2, not one of its own from its view")
                     .arg(item->Key())
                     .arg(item->viewId()));
        else
            given[id] = true;
    }
}

void ModelStress::checkControl()
{
    const Header *open = m_bar.SelectedHeader();
    const Header *active = nullptr;
    int activeViews = 0;
    bool anyVisible = false;
    // While headers slide, the view of the header left behind travels in
    // sight until the slide ends.
    const HeaderStrip *strip = m_bar.findChild<HeaderStrip *>();
    const bool sliding = strip && strip->isSliding();
    for (const Header *header : *m_bar.Headers()) {
        anyVisible = anyVisible || header->Visible();
        const auto *view = dynamic_cast<const ItemContainer *>(header->itemView());
        if (!view || header->barId() < 1) {
            fail(QStringLiteral("header \"%1\" has no bar or item view").arg(header->Key()));
            continue;
        }
        if (view->Active()) {
            ++activeViews;
            active = header;
        }
        if (!sliding && view->isVisibleTo(&m_bar) != (header == open && header->Visible()))
            fail(QStringLiteral("the item view of header \"%1\" is %2")
                     .arg(header->Key(), QLatin1String(view->isVisibleTo(&m_bar) ? "shown" : "hidden")));
    }
    if (open && (activeViews != 1 || active != open))
        fail(QStringLiteral("the open header \"%1\" is not the one active view's (%2 active)")
                 .arg(open->Key())
                 .arg(activeViews));
    if (!open && activeViews != 0)
        fail(QStringLiteral("%1 item views are active while no header is open").arg(activeViews));
    if (!open && anyVisible)
        fail(QStringLiteral("no header is open although one is visible"));
    if (const Item *selected = m_bar.SelectedItem();
        selected && (!open || selected->collection() != open->Items()))
        fail(QStringLiteral("the selected item \"%1\" is not in the open header").arg(selected->Key()));
}

void ModelStress::checkHistory()
{
    const Navigation &navigation = *m_bar.Navigation();
    const int position = navigation.CurrentPosition();
    const qsizetype entries = navigation.headerKeys().size();
    if (navigation.itemKeys().size() != entries)
        fail(QStringLiteral("the history keeps %1 header keys and %2 item keys")
                 .arg(entries)
                 .arg(navigation.itemKeys().size()));
    if (position < 0 || position > entries)
        fail(QStringLiteral("history position %1 of %2 entries").arg(position).arg(entries));
    if (navigation.CanGoBack() && (position < 2 || !navigation.Enabled()))
        fail(QStringLiteral("the history can go back from position %1").arg(position));
}

QString ModelStress::fingerprint() const
{
    QString text;
    const auto flag = [](bool on) { return on ? QLatin1Char('1') : QLatin1Char('0'); };
    for (const Header *header : *m_bar.Headers()) {
        text += header->Key() + QLatin1Char('|') + header->Caption() + QLatin1Char('|')
            + QString::number(header->Index()) + flag(header->Visible()) + flag(header->Enabled())
            + QString::number(int(header->View())) + QLatin1Char('\n');
        for (const Item *item : *header->Items()) {
            text += QLatin1Char(' ') + item->Key() + QLatin1Char('|') + item->Caption() + QLatin1Char('|')
                + QString::number(item->Index()) + flag(item->Visible()) + flag(item->Enabled())
                + QLatin1Char('\n');
        }
    }
    if (const Header *open = m_bar.SelectedHeader())
        text += QLatin1String("open ") + open->Key();
    if (const Item *selected = m_bar.SelectedItem())
        text += QLatin1String(" selected ") + selected->Key();
    return text;
}
