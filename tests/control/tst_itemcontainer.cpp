#include "itemview/ItemContainer.h"

#include <QtCore/QPointer>
#include <QtTest/QTest>

using namespace OrrinQuiver;

class tst_ItemContainer : public QObject
{
    Q_OBJECT

private slots:
    void viewIds();
    void hostChildWindow_data();
    void hostChildWindow();
    void hostedChildOutlivesView();
};

void tst_ItemContainer::viewIds()
{
    ItemContainer view;
    QCOMPARE(view.addItemWindow(1, QStringLiteral("a")), 1);
    QCOMPARE(view.addItemWindow(1, QStringLiteral("b")), 2);
    QCOMPARE(view.addItemWindow(3, QStringLiteral("c")), 3);
    view.removeItemWindow(2);
    view.removeItemWindow(2);
    view.removeItemWindow(7);
    QCOMPARE(view.addItemWindow(3, QStringLiteral("d")), 4);
    QCOMPARE(view.MaxPhysItems(), 4);
    QCOMPARE(view.firstVisiblePosition(), 1);
    QCOMPARE(view.lastFullyVisiblePosition(), 3);
}

void tst_ItemContainer::hostChildWindow_data()
{
    QTest::addColumn<int>("viewId");
    QTest::addColumn<QString>("window");
    QTest::addColumn<bool>("hosted");

    QTest::newRow("live item") << 1 << "child" << true;
    QTest::newRow("removed item") << 2 << "child" << false;
    QTest::newRow("unknown item") << 9 << "child" << false;
    QTest::newRow("no window") << 1 << "none" << false;
    QTest::newRow("an ancestor of the view") << 1 << "host" << false;
}

void tst_ItemContainer::hostChildWindow()
{
    QFETCH(int, viewId);
    QFETCH(QString, window);
    QFETCH(bool, hosted);
    QWidget host;
    QWidget form;
    auto *child = new QWidget(&form);
    auto *view = new ItemContainer(&host);
    view->addItemWindow(1, QString());
    view->addItemWindow(2, QString());
    view->removeItemWindow(2);
    const quintptr handle = window == "child" ? quintptr(child->winId())
        : window == "host"                    ? quintptr(host.winId())
                                              : 0;

    const quintptr former = view->hostChildWindow(viewId, handle);

    QCOMPARE(former, hosted ? quintptr(form.winId()) : 0);
    QCOMPARE(child->parentWidget(), hosted ? static_cast<QWidget *>(view) : &form);
    QVERIFY(!host.parentWidget());
}

void tst_ItemContainer::hostedChildOutlivesView()
{
    QWidget form;
    QPointer<QWidget> child = new QWidget(&form);
    auto *view = new ItemContainer;
    view->addItemWindow(1, QString());
    view->hostChildWindow(1, child->winId());

    delete view;

    QVERIFY(child);
    QVERIFY(!child->parentWidget());
    delete child;
}

QTEST_MAIN(tst_ItemContainer)
#include "tst_itemcontainer.moc"
