#include "control/HeaderStrip.h"
#include "itemview/ItemContainer.h"
#include "QuiverTest.h"

#include <QtGui/QImage>

// Item.EnsureVisible brings its item onto the screen: painted where the view
// shows it and clicked there, however its header was opened.
class tst_EnsureVisible : public QObject
{
    Q_OBJECT

private slots:
    void onScreen_data();
    void onScreen();
};

void tst_EnsureVisible::onScreen_data()
{
    QTest::addColumn<int>("target");
    QTest::addColumn<bool>("smooth");
    QTest::addColumn<QString>("when"); // "open", "opening" (its slide running), "closed"

    for (int target : { 60, 1 }) {
        for (const char *when : { "open", "opening", "closed" }) {
            QTest::addRow("item %d, smooth, %s", target, when) << target << true << when;
            QTest::addRow("item %d, instant, %s", target, when) << target << false << when;
        }
    }
}

void tst_EnsureVisible::onScreen()
{
    QFETCH(int, target);
    QFETCH(bool, smooth);
    QFETCH(QString, when);

    NewQuiver bar;
    bar.setSmoothScroll(smooth);
    Header *first = bar.Headers()->at(1);
    Header *header = bar.Headers()->Add();
    Items *items = header->Items();
    for (int i = 1; i <= 60; ++i)
        items->Add(0, {}, QStringLiteral("Item %1").arg(i));
    Item *item = items->at(target);
    item->setForeColor(0x0000FF);
    bar.resize(200, 480);
    bar.show();
    QVERIFY(QTest::qWaitForWindowExposed(&bar));
    auto *strip = bar.findChild<HeaderStrip *>();
    const auto open = [strip](Header *opened) { opened->setSelected(true), strip->finishSlide(); };
    if (target == 1) { // from the other end
        open(header);
        items->at(60)->EnsureVisible();
        open(first);
    }
    if (when == "open")
        open(header);
    else if (when == "opening")
        header->setSelected(true);
    item->EnsureVisible();
    if (when == "closed")
        header->setSelected(true);
    QTRY_VERIFY(!strip->isSliding());

    auto *view = static_cast<ItemContainer *>(header->itemView());
    const QRect shown(0, view->ItemTop(item->viewId()), view->width(),
                      view->itemRect(item->viewId()).height());
    QVERIFY(view->rect().contains(shown));
    // Scrolled by whole rows: the surface's top lies at the top slot's item.
    QCOMPARE(view->sliderTop(), -view->itemRect(items->at(view->firstVisiblePosition())->viewId()).top());
    const QImage painted = view->grab(shown).toImage().convertToFormat(QImage::Format_RGB32);
    const auto *pixels = reinterpret_cast<const QRgb *>(painted.constBits());
    QVERIFY(std::count(pixels, pixels + painted.sizeInBytes() / 4, qRgb(255, 0, 0)) > 0);
    QSignalSpy clicks(&bar, &Quiver::ItemClick);
    QTest::mouseClick(view, Qt::LeftButton, {}, shown.center());
    QCOMPARE(clicks.size() == 1 ? clicks.first().first().value<Item *>() : nullptr, item);
}

QTEST_MAIN(tst_EnsureVisible)
#include "tst_ensurevisible.moc"
