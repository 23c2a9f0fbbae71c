#include "control/KeyCommands.h"
#include "control/Quiver.h"
#include "itemview/ItemContainer.h"
#include "model/Header.h"
#include "model/Headers.h"
#include "model/Item.h"
#include "model/Items.h"

#include <QtTest/QTest>

using namespace OrrinQuiver;

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
    QTest::addColumn<int>("word"); // -1: not a command
    QTest::addColumn<bool>("forward");

    QTest::newRow("sign after, as the view writes") << "SCROLL+" << int(KeyCommand::Scroll) << true;
    QTest::newRow("sign before") << "-SCROLL" << int(KeyCommand::Scroll) << false;
    QTest::newRow("any case") << "MOVEHeader-" << int(KeyCommand::MoveHeader) << false;
    QTest::newRow("header") << "+header" << int(KeyCommand::Header) << true;
    QTest::newRow("move") << "MOVE+" << int(KeyCommand::Move) << true;
    QTest::newRow("no sign") << "SCROLL" << -1 << false;
    QTest::newRow("sign at both ends") << "+SCROLL-" << -1 << false;
    QTest::newRow("unknown word") << "JUMP+" << -1 << false;
    QTest::newRow("sign alone") << "+" << -1 << false;
    QTest::newRow("empty") << "" << -1 << false;
}

void tst_KeyCommands::parse()
{
    QFETCH(QString, text);
    QFETCH(int, word);
    QFETCH(bool, forward);

    const std::optional<KeyCommand> command = parseKeyCommand(text);
    QCOMPARE(command.has_value(), word >= 0);
    if (command) {
        QCOMPARE(int(command->word), word);
        QCOMPARE(command->forward, forward);
    }
}

void tst_KeyCommands::keys_data()
{
    QTest::addColumn<int>("openAt"); // the header open first
    QTest::addColumn<int>("startTop"); // its first visible item
    QTest::addColumn<int>("key");
    QTest::addColumn<bool>("ctrl");
    QTest::addColumn<int>("open");
    QTest::addColumn<int>("top"); // -1: scrolled to the end
    QTest::addColumn<int>("selected"); // 0: unchanged

    QTest::newRow("Page Down") << 2 << 1 << int(Qt::Key_PageDown) << false << 2 << 2 << 0;
    QTest::newRow("Page Up") << 2 << 5 << int(Qt::Key_PageUp) << false << 2 << 4 << 0;
    QTest::newRow("Page Up at the top") << 2 << 1 << int(Qt::Key_PageUp) << false << 2 << 1 << 0;
    QTest::newRow("End") << 2 << 1 << int(Qt::Key_End) << false << 2 << -1 << 40;
    QTest::newRow("Home") << 2 << 9 << int(Qt::Key_Home) << false << 2 << 1 << 1;
    QTest::newRow("Ctrl+Page Down") << 2 << 1 << int(Qt::Key_PageDown) << true << 3 << 1 << 0;
    QTest::newRow("Ctrl+Page Down on the last") << 3 << 1 << int(Qt::Key_PageDown) << true << 3 << 1 << 0;
    QTest::newRow("Ctrl+Page Up") << 2 << 1 << int(Qt::Key_PageUp) << true << 1 << 1 << 0;
    QTest::newRow("Ctrl+Page Up on the first") << 1 << 1 << int(Qt::Key_PageUp) << true << 1 << 1 << 0;
    QTest::newRow("Ctrl+End") << 1 << 1 << int(Qt::Key_End) << true << 3 << 1 << 0;
    QTest::newRow("Ctrl+Home") << 3 << 1 << int(Qt::Key_Home) << true << 1 << 1 << 0;
}

void tst_KeyCommands::keys()
{
    QFETCH(int, openAt);
    QFETCH(int, startTop);
    QFETCH(int, key);
    QFETCH(bool, ctrl);
    QFETCH(int, open);
    QFETCH(int, top);
    QFETCH(int, selected);

    Quiver bar;
    bar.InitProperties();
    bar.setSmoothScroll(false);
    for (int h = 2; h <= 3; ++h)
        bar.Headers()->Add(0, {}, QStringLiteral("Header %1").arg(h));
    for (Header *header : *bar.Headers()) {
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

    QTest::keyClick(view, Qt::Key(key), ctrl ? Qt::ControlModifier : Qt::NoModifier);
    QCOMPARE(bar.SelectedHeader()->Index(), open);
    auto *opened = static_cast<ItemContainer *>(bar.SelectedHeader()->itemView());
    opened->finishSlide();
    if (top < 0) {
        QCOMPARE(opened->LastFullyVisibleItem(), 40);
        QVERIFY(!bar.findChild<QWidget *>(QStringLiteral("picArrows1"))->isVisible());
    } else {
        QCOMPARE(bar.GetFirstVisible()->Index(), top);
    }
    QCOMPARE(bar.SelectedItem(), selected ? bar.SelectedHeader()->Items()->at(selected) : before);
}

QTEST_MAIN(tst_KeyCommands)
#include "tst_keycommands.moc"
