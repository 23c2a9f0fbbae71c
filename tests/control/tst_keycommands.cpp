#include "control/KeyCommands.h"
#include "itemview/ItemContainer.h"
#include "QuiverTest.h"

// The navigation keys of a focused item: the command texts the bar reads,
// and what each key does to the open header, the scroll position and the
// selected item.
class tst_KeyCommands : public QObject
{
    Q_OBJECT

private slots:
    void parse_data();
    void parse();
    void keys_data();
    void keys();
};

void tst_KeyCommands::parse_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("command"); // the word's number and its sign; empty: not a command

    QTest::newRow("sign after, as the view writes")
        << "SCROLL+" << QString("%1+").arg(int(KeyCommand::Scroll));
    QTest::newRow("sign before") << "-SCROLL" << QString("%1-").arg(int(KeyCommand::Scroll));
    QTest::newRow("any case") << "MOVEHeader-" << QString("%1-").arg(int(KeyCommand::MoveHeader));
    QTest::newRow("header") << "+header" << QString("%1+").arg(int(KeyCommand::Header));
    QTest::newRow("move") << "MOVE+" << QString("%1+").arg(int(KeyCommand::Move));
    for (const char *text : { "SCROLL", "+SCROLL-", "JUMP+", "+", "" })
        QTest::addRow("not a command: '%s'", text) << text << QString();
}

void tst_KeyCommands::parse()
{
    QFETCH(QString, text);
    QFETCH(QString, command);

    const std::optional<KeyCommand> parsed = parseKeyCommand(text);
    QCOMPARE(parsed ? QString("%1%2").arg(int(parsed->word)).arg(parsed->forward ? '+' : '-') : QString(),
             command);
}

void tst_KeyCommands::keys_data()
{
    QTest::addColumn<int>("openAt"); // the header open first
    QTest::addColumn<int>("startTop"); // its first visible item
    QTest::addColumn<QKeyCombination>("key");
    QTest::addColumn<int>("open");
    QTest::addColumn<int>("top"); // -1: scrolled to the end
    QTest::addColumn<int>("selected"); // 0: unchanged

    const auto ctrl = [](Qt::Key key) { return QKeyCombination(Qt::ControlModifier, key); };
    QTest::newRow("Page Down") << 2 << 1 << QKeyCombination(Qt::Key_PageDown) << 2 << 2 << 0;
    QTest::newRow("Page Up") << 2 << 5 << QKeyCombination(Qt::Key_PageUp) << 2 << 4 << 0;
    QTest::newRow("Page Up at the top") << 2 << 1 << QKeyCombination(Qt::Key_PageUp) << 2 << 1 << 0;
    QTest::newRow("End") << 2 << 1 << QKeyCombination(Qt::Key_End) << 2 << -1 << 40;
    QTest::newRow("Home") << 2 << 9 << QKeyCombination(Qt::Key_Home) << 2 << 1 << 1;
    QTest::newRow("Ctrl+Page Down") << 1 << 1 << ctrl(Qt::Key_PageDown) << 2 << 1 << 0;
    QTest::newRow("Ctrl+Page Down on the last") << 3 << 1 << ctrl(Qt::Key_PageDown) << 3 << 1 << 0;
    QTest::newRow("Ctrl+Page Up") << 3 << 1 << ctrl(Qt::Key_PageUp) << 2 << 1 << 0;
    QTest::newRow("Ctrl+Page Up on the first") << 1 << 1 << ctrl(Qt::Key_PageUp) << 1 << 1 << 0;
    QTest::newRow("Ctrl+End") << 1 << 1 << ctrl(Qt::Key_End) << 3 << 1 << 0;
    QTest::newRow("Ctrl+Home") << 3 << 1 << ctrl(Qt::Key_Home) << 1 << 1 << 0;
}

void tst_KeyCommands::keys()
{
    QFETCH(int, openAt);
    QFETCH(int, startTop);
    QFETCH(QKeyCombination, key);
    QFETCH(int, open);
    QFETCH(int, top);
    QFETCH(int, selected);

    NewQuiver bar;
    bar.setSmoothScroll(false);
    for (int h = 1; h <= 3; ++h) {
        Header *header = h == 1 ? bar.Headers()->at(1) : bar.Headers()->Add();
        for (int i = 1; i <= 40; ++i)
            header->Items()->Add(0, {}, QStringLiteral("Item %1").arg(i));
    }
    bar.resize(180, 400);
    bar.show();
    bar.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&bar));
    bar.Headers()->at(openAt)->setSelected(true);
    auto *view = static_cast<ItemContainer *>(bar.SelectedHeader()->itemView());
    while (view->firstVisiblePosition() < startTop)
        view->Scroll(1, false);
    QCoreApplication::processEvents();
    view->setFocus(Qt::TabFocusReason);
    QVERIFY(view->focusPosition() > 0);
    const Item *before = bar.SelectedItem();

    QTest::keyClick(view, key.key(), key.keyboardModifiers());
    QCOMPARE(bar.SelectedHeader()->Index(), open);
    auto *opened = static_cast<ItemContainer *>(bar.SelectedHeader()->itemView());
    opened->finishSlide();
    QCOMPARE(top < 0 ? opened->LastFullyVisibleItem() : bar.GetFirstVisible()->Index(), top < 0 ? 40 : top);
    QCOMPARE(bar.findChild<QWidget *>(QStringLiteral("picArrows1"))->isVisible(), top >= 0);
    QCOMPARE(bar.SelectedItem(), selected ? bar.SelectedHeader()->Items()->at(selected) : before);
}

QTEST_MAIN(tst_KeyCommands)
#include "tst_keycommands.moc"
