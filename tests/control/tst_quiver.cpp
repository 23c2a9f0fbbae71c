#include "QuiverTest.h"

#include "control/PropertyTable.h"
#include "itemview/ItemContainer.h"

#include <QtCore/QTimer>
#include <QtGui/QBitmap>
#include <QtGui/QGuiApplication>
#include <QtGui/QIcon>
#include <QtGui/QImage>
#include <QtGui/QPixmap>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QTextEdit>

namespace {

// Rows of the property tables are named after their property, optionally
// followed by a space and a note or value.
QByteArray rowProperty() { return QByteArray(QTest::currentDataTag()).split(' ').first(); }

// The number that ends a row's name.
qlonglong rowNumber(const QByteArray &row) { return row.split(' ').last().toLongLong(nullptr, 0); }

QVariant pixmapOf(int size)
{
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::red);
    return pixmap;
}

} // namespace

class tst_Quiver : public QObject
{
    Q_OBJECT

private slots:
    void initialValues_data()
    {
        QTest::addColumn<qlonglong>("expected");

        // What a newly placed control holds. Every number-valued row of the
        // property table must have its value here.
        const QByteArray values
            = "AlwaysShowFirstHeader 1, AutoMouseWheel 0, BackColor 0x80000010, "
              "CheckColor 0x8000000F, DefaultMaskColor 0xC0C0C0, DkShadowColor 0x80000015, "
              "HighlightColor 0x80000014, ItemMousePointer 1, "
              "ItemsMoveWithClick 0, ItemsStayDownWithClick 0, ItemForeColor 0x80000005, "
              "ItemOverForeColor 0x80000005, ItemOverBackColor 0x80000010, "
              "ItemDownBackColor 0x80000010, ItemDownForeColor 0x80000005, "
              "ItemsUnderlineOnMove 0, OLEDragMode 0, OLEDropMode 3, PlaySounds 1, "
              "ScrollDelay 120, ShadowColor 0x80000010, ShowToolTips 1, SmoothScroll 1, Style 0, "
              "UseSystemSounds 1, HeaderBackColor 0x8000000F, HeaderMousePointer 99, "
              "HeaderForeColor 0x80000012, HeaderOverForeColor 0x80000012, TrackNavigation 1";
        QHash<QByteArray, qlonglong> expected;
        for (const QByteArray &row : values.split(','))
            expected.insert(row.trimmed().split(' ').first(), rowNumber(row));
        for (const PropertyTable::Row &row : PropertyTable::rows()) {
            if (row.type == PropertyTable::BagType::Boolean || row.type == PropertyTable::BagType::Integer
                || row.type == PropertyTable::BagType::Long) {
                QVERIFY2(expected.contains(row.name), row.name);
                QTest::newRow(row.name) << expected.value(row.name);
            }
        }
        // Not kept in a bag: the flash timer's own interval.
        QTest::newRow("FlashDelay") << 1000LL;
    }
    void initialValues()
    {
        QFETCH(qlonglong, expected);
        NewQuiver bar;
        const QByteArray name = QTest::currentDataTag();
        const QVariant value = name == "TrackNavigation" ? bar.Navigation()->Enabled() : bar.property(name);
        QVERIFY(value.isValid());
        QCOMPARE(value.toLongLong(), expected);
    }

    void initialObjects()
    {
        Quiver bar;
        const QFont widgetFont = bar.font();
        bar.InitProperties();

        QCOMPARE(bar.Headers()->Count(), 1);
        QCOMPARE(bar.Headers()->at(1)->Caption(), QStringLiteral("Header 1"));
        QCOMPARE(bar.SelectedHeader(), bar.Headers()->at(1));
        QVERIFY(bar.Navigation()->Enabled());
        QCOMPARE(bar.Font(), widgetFont);
        QCOMPARE(bar.HeaderMouseIcon().value<QCursor>().shape(), Qt::PointingHandCursor);
        QVERIFY(!bar.ItemMouseIcon().isValid());
        QVERIFY(!(bar.focusPolicy() & Qt::TabFocus));
        QCOMPARE(bar.HeaderHeight(), QFontMetrics(widgetFont).height() + 4 + 4 + 1);
        QCOMPARE(bar.SoundItemURL(), QString());
        QCOMPARE(bar.Version(), QStringLiteral("2.0.1"));
        QCOMPARE(bar.VBVersion(), QStringLiteral("VB6"));

        const auto views = bar.findChildren<ItemContainer *>();
        QCOMPARE(views.size(), 1);
        QVERIFY(views.first()->Active());
        const QTimer *redraw = bar.findChild<QTimer *>(QStringLiteral("RedrawTimer"));
        QCOMPARE(redraw->interval(), 250);
        QVERIFY(redraw->isSingleShot());
    }

    void clamps_data()
    {
        QTest::addColumn<int>("value");
        QTest::addColumn<int>("stored");

        QTest::newRow("FlashDelay below") << 50 << 100;
        QTest::newRow("FlashDelay low edge") << 100 << 100;
        QTest::newRow("FlashDelay above") << 9000 << 5000;
        QTest::newRow("ScrollDelay zero") << 0 << 10;
        QTest::newRow("ScrollDelay negative") << -40 << 10;
        QTest::newRow("ScrollDelay above") << 2001 << 2000;
    }
    void clamps()
    {
        QFETCH(int, value);
        QFETCH(int, stored);
        const QByteArray property = rowProperty();
        NewQuiver bar;
        QVERIFY(bar.setProperty(property.constData(), value));
        QCOMPARE(bar.property(property.constData()).toInt(), stored);
        if (property == "FlashDelay")
            QCOMPARE(bar.findChild<QTimer *>(QStringLiteral("FlashTimer"))->interval(), stored);
    }

    void notifications_data()
    {
        QTest::addColumn<QVariant>("value");
        QTest::addColumn<int>("first");
        QTest::addColumn<int>("second");

        const QVariant red = QVariant::fromValue<OLE_COLOR>(0x0000FF);
        for (const char *name :
             { "BackColor", "CheckColor", "DkShadowColor", "HighlightColor", "ShadowColor", "ItemForeColor",
               "ItemOverForeColor", "ItemOverBackColor", "ItemDownBackColor", "ItemDownForeColor",
               "HeaderBackColor", "HeaderForeColor", "HeaderOverForeColor" })
            QTest::newRow(name) << red << 1 << 0;
        QTest::newRow("DefaultMaskColor") << red << 1 << 1;
        for (const char *name : { "ItemsMoveWithClick", "ItemsStayDownWithClick", "ItemsUnderlineOnMove" })
            QTest::newRow(name) << QVariant(true) << 1 << 0;
        // These announce every assignment, a repeated one too.
        for (const char *name :
             { "AlwaysShowFirstHeader", "PlaySounds", "UseSystemSounds", "ShowToolTips", "SmoothScroll" })
            QTest::newRow(name) << QVariant(false) << 1 << 1;
        QTest::newRow("AutoMouseWheel") << QVariant(true) << 1 << 1;
        for (const char *row :
             { "OLEDragMode 1", "OLEDropMode 0", "Style 4", "Style out of range 9", "FlashDelay 300",
               "ScrollDelay 300", "ItemMousePointer 3", "HeaderMousePointer 3" })
            QTest::newRow(row) << QVariant(int(rowNumber(row))) << 1 << 1;
        for (const char *name : { "ItemMouseIcon", "HeaderMouseIcon" })
            QTest::newRow(name) << QVariant(QCursor(Qt::CrossCursor)) << 1 << 1;
        for (const char *name : { "SoundItemURL", "SoundHeaderUpURL", "SoundHeaderDownURL" })
            QTest::newRow(name) << QVariant(QStringLiteral("/nowhere/%1.wav").arg(QLatin1String(name))) << 1
                                << 0;
        QTest::newRow("Font") << QVariant(QFont(QStringLiteral("Serif Test Family"))) << 1 << 0;
    }
    void notifications()
    {
        QFETCH(QVariant, value);
        QFETCH(int, first);
        QFETCH(int, second);
        const QByteArray property = rowProperty();
        NewQuiver bar;
        QSignalSpy spy(&bar, &Quiver::PropertyChanged);

        QVERIFY(bar.setProperty(property.constData(), value));
        QCOMPARE(announced(spy), QStringList(first, QString::fromLatin1(property)));
        spy.clear();
        QVERIFY(bar.setProperty(property.constData(), value));
        QCOMPARE(announced(spy), QStringList(second, QString::fromLatin1(property)));
        const QVariant stored = bar.property(property.constData());
        if (value.userType() == QMetaType::QString)
            QCOMPARE(stored.toString(), value.toString());
        else if (value.canConvert<qlonglong>())
            QCOMPARE(stored.toLongLong(), value.toLongLong());
    }

    void shadowSetsHighlight()
    {
        NewQuiver bar;
        bar.setShadowColor(0x123456);
        QCOMPARE(bar.HighlightColor(), OLE_COLOR(0x123456));
        bar.setHighlightColor(0x654321);
        QCOMPARE(bar.ShadowColor(), OLE_COLOR(0x123456));
        QCOMPARE(bar.HighlightColor(), OLE_COLOR(0x654321));
    }

    void imageListForms_data()
    {
        QTest::addColumn<bool>("small");
        QTest::addColumn<bool>("byValue");
        QTest::addColumn<bool>("laysOut");

        QTest::newRow("Icons by reference") << false << false << false;
        QTest::newRow("Icons by value") << false << true << true;
        QTest::newRow("SmallIcons by reference") << true << false << true;
        QTest::newRow("SmallIcons by value") << true << true << false;
    }
    // The layout measures the header height from the control's font; a font set
    // behind the Font property's back shows in HeaderHeight only once the
    // strip is laid out again.
    void imageListForms()
    {
        QFETCH(bool, small);
        QFETCH(bool, byValue);
        QFETCH(bool, laysOut);
        NewQuiver bar;
        const int before = bar.HeaderHeight();
        QFont large = bar.font();
        large.setPixelSize(QFontMetrics(large).height() * 3);
        static_cast<QWidget &>(bar).setFont(large);
        QSignalSpy spy(&bar, &Quiver::PropertyChanged);

        QObject images;
        if (small)
            byValue ? bar.letSmallIcons(&images) : bar.setSmallIcons(&images);
        else
            byValue ? bar.letIcons(&images) : bar.setIcons(&images);

        QCOMPARE(small ? bar.SmallIcons() : bar.Icons(), &images);
        QCOMPARE(bar.HeaderHeight() != before, laysOut);
        QCOMPARE(spy.count(), 0);
    }

    void pointerPictures_data()
    {
        QTest::addColumn<QVariant>("picture");
        QTest::addColumn<bool>("accepted");
        QTest::addColumn<bool>("none");

        QTest::newRow("invalid is none") << QVariant() << true << true;
        QTest::newRow("null pixmap is none") << QVariant(QPixmap()) << true << true;
        QTest::newRow("null icon is none") << QVariant(QIcon()) << true << true;
        QTest::newRow("cursor") << QVariant(QCursor(Qt::CrossCursor)) << true << false;
        QTest::newRow("icon") << QVariant(QIcon(pixmapOf(16).value<QPixmap>())) << true << false;
        QTest::newRow("pixmap refused") << pixmapOf(16) << false << false;
        QTest::newRow("image refused") << QVariant(pixmapOf(16).value<QPixmap>().toImage()) << false << false;
        QTest::newRow("bitmap refused") << QVariant(QBitmap(16, 16)) << false << false;
        QTest::newRow("text refused") << QVariant(QStringLiteral("arrow.cur")) << false << false;
    }
    void pointerPictures()
    {
        QFETCH(QVariant, picture);
        QFETCH(bool, accepted);
        QFETCH(bool, none);
        NewQuiver bar;
        const QVariant old = QCursor(Qt::SizeAllCursor);
        bar.setItemMouseIcon(old);
        bar.setItemMousePointer(99);
        QSignalSpy spy(&bar, &Quiver::PropertyChanged);

        bar.setItemMouseIcon(picture);

        QCOMPARE(spy.count(), accepted ? 1 : 0);
        QVERIFY(bar.findChildren<QMessageBox *>().isEmpty());
        if (!accepted)
            QCOMPARE(bar.ItemMouseIcon().value<QCursor>().shape(), Qt::SizeAllCursor);
        else if (none)
            QVERIFY(!bar.ItemMouseIcon().isValid());
        else
            QCOMPARE(bar.ItemMouseIcon().userType(), picture.userType());
        QCOMPARE(bar.ItemMousePointer(), none ? 1 : 99);
    }

    void headerPictures()
    {
        NewQuiver bar;
        bar.setDesignMode(true);
        bar.setHeaderMouseIcon(QCursor(Qt::CrossCursor));
        bar.setHeaderMousePointer(5);
        QSignalSpy spy(&bar, &Quiver::PropertyChanged);

        // A refused picture is reported at design time and changes nothing.
        bar.setHeaderMouseIcon(pixmapOf(32));
        auto *box = bar.findChild<QMessageBox *>();
        QVERIFY(box);
        QCOMPARE(box->text(), QStringLiteral("The MouseIcon property must be an icon or cursor"));
        QCOMPARE(box->standardButtons(), QMessageBox::Ok);
        box->button(QMessageBox::Ok)->click();
        QTRY_VERIFY(bar.findChildren<QMessageBox *>().isEmpty());
        QCOMPARE(spy.count(), 0);
        QCOMPARE(bar.HeaderMouseIcon().value<QCursor>().shape(), Qt::CrossCursor);

        // No picture at all brings the built-in hand back.
        bar.setHeaderMouseIcon(QVariant());
        QCOMPARE(announced(spy), QStringList({ "HeaderMousePointer", "HeaderMouseIcon" }));
        QCOMPARE(bar.HeaderMousePointer(), 99);
        QCOMPARE(bar.HeaderMouseIcon().value<QCursor>().shape(), Qt::PointingHandCursor);
    }

    void itemViewsShowItemPointer()
    {
        NewQuiver bar;
        bar.setItemMousePointer(3);
        bar.Headers()->Add();
        for (const ItemContainer *view : bar.findChildren<ItemContainer *>())
            QCOMPARE(view->cursor().shape(), Qt::IBeamCursor);

        bar.setItemMouseIcon(QCursor(Qt::WaitCursor));
        bar.setItemMousePointer(99);
        for (const ItemContainer *view : bar.findChildren<ItemContainer *>())
            QCOMPARE(view->cursor().shape(), Qt::WaitCursor);
    }

    void fontComparison_data()
    {
        QTest::addColumn<QFont>("font");
        QTest::addColumn<bool>("taken");

        const auto changed = [](auto change) {
            QFont font = QGuiApplication::font();
            change(font);
            return font;
        };
        QTest::newRow("strike-out only") << changed([](QFont &f) { f.setStrikeOut(true); }) << false;
        QTest::newRow("weight below bold") << changed([](QFont &f) { f.setWeight(QFont::Light); }) << false;
        QTest::newRow("letter spacing")
            << changed([](QFont &f) { f.setLetterSpacing(QFont::AbsoluteSpacing, 3); }) << false;
        QTest::newRow("size") << changed([](QFont &f) { f.setPointSizeF(f.pointSizeF() + 5); }) << true;
        QTest::newRow("family") << changed([](QFont &f) { f.setFamily(QStringLiteral("Another Family")); })
                                << true;
        QTest::newRow("underline") << changed([](QFont &f) { f.setUnderline(true); }) << true;
        QTest::newRow("italic") << changed([](QFont &f) { f.setItalic(true); }) << true;
        QTest::newRow("bold") << changed([](QFont &f) { f.setBold(true); }) << true;
    }
    void fontComparison()
    {
        QFETCH(QFont, font);
        QFETCH(bool, taken);
        NewQuiver bar;
        bar.Headers()->Add();
        QSignalSpy spy(&bar, &Quiver::PropertyChanged);

        bar.setFont(font);

        QCOMPARE(spy.count(), taken ? 1 : 0);
        QCOMPARE(bar.Font() == font, taken);
        for (const ItemContainer *view : bar.findChildren<ItemContainer *>())
            QCOMPARE(view->font() == font, taken);
    }

    void arrowInterval_data()
    {
        QTest::addColumn<QList<int>>("delays");
        QTest::addColumn<QList<int>>("smooth");
        QTest::addColumn<int>("interval");

        // Assignments run in row order: delays first, then the smooth flags.
        QTest::newRow("untouched") << QList<int>() << QList<int>() << 200;
        QTest::newRow("smooth unchanged keeps the timer") << QList<int>() << QList<int> { 1 } << 200;
        QTest::newRow("delay 0 smooth") << QList<int> { 0 } << QList<int>() << 10;
        QTest::newRow("delay 0 then not smooth") << QList<int> { 0 } << QList<int> { 0 } << 20;
        QTest::newRow("not smooth uses the stored delay") << QList<int>() << QList<int> { 0 } << 240;
        QTest::newRow("back to smooth") << QList<int> { 300 } << QList<int> { 0, 1 } << 300;
    }
    void arrowInterval()
    {
        QFETCH(QList<int>, delays);
        QFETCH(QList<int>, smooth);
        QFETCH(int, interval);
        NewQuiver bar;
        for (int delay : delays)
            bar.setScrollDelay(delay);
        for (int on : smooth)
            bar.setSmoothScroll(on != 0);
        QCOMPARE(bar.findChild<QTimer *>(QStringLiteral("ArrowTimer"))->interval(), interval);
    }

    void openHeaderStaysOpen_data()
    {
        QTest::addColumn<QString>("change");
        QTest::addColumn<QString>("open");

        const std::pair<const char *, const char *> rows[] {
            { "add before", "H3" },       { "remove 1 before", "H3" },
            { "move 1 before", "H3" },    { "remove 3, the open one", "H4" },
            { "hide 4, remove 3", "H2" }, { "clear", "" }
        };
        for (const auto &[change, open] : rows)
            QTest::newRow(change) << QString::fromLatin1(change) << QString::fromLatin1(open);
    }
    // Headers H1 to H4 with H3 open; other headers come and go.
    void openHeaderStaysOpen()
    {
        QFETCH(QString, change);
        QFETCH(QString, open);
        NewQuiver bar;
        bar.Headers()->at(1)->setCaption(QStringLiteral("H1"));
        for (int i = 2; i <= 4; ++i)
            bar.Headers()->Add(0, QString(), QStringLiteral("H%1").arg(i));
        bar.Headers()->at(3)->setSelected(true);

        if (change.startsWith("add"))
            bar.Headers()->Add(-1);
        else if (change.startsWith("move 1"))
            bar.Headers()->at(1)->setIndex(4);
        else if (change == "clear")
            bar.Headers()->Clear();
        else if (change.startsWith("hide 4"))
            bar.Headers()->at(4)->setVisible(false);
        if (change.contains("remove"))
            bar.Headers()->Remove(change.section(QLatin1String("remove "), 1).left(1).toInt());

        const Header *selected = bar.SelectedHeader();
        QCOMPARE(selected ? selected->Caption() : QString(), open);
        if (selected)
            QCOMPARE(static_cast<ItemContainer *>(selected->itemView())->CollectionIndex(),
                     selected->Index());
        int active = 0;
        for (const Header *header : *bar.Headers())
            active += static_cast<ItemContainer *>(header->itemView())->Active() ? 1 : 0;
        QCOMPARE(active, open.isEmpty() ? 0 : 1);
    }

    void selectItemRecordsAndNotifies()
    {
        NewQuiver bar;
        Header *second = bar.Headers()->Add(0, QStringLiteral("h2"), QStringLiteral("Second"));
        second->Items()->Add(0, QStringLiteral("a"), QStringLiteral("A"));
        Item *b = second->Items()->Add(0, QStringLiteral("b"), QStringLiteral("B"));
        QSignalSpy spy(&bar, &Quiver::PropertyChanged);

        b->setSelected(false);

        QCOMPARE(announced(spy), QStringList({ "CurrentHeader", "CurrentItem" }));
        QCOMPARE(bar.SelectedItem(), b);
        QVERIFY(b->Selected());
        QCOMPARE(bar.Navigation()->CurrentPosition(), 1);
    }

    void historyMoveOpensWithoutRecording()
    {
        NewQuiver bar;
        Header *first = bar.Headers()->at(1);
        Header *second = bar.Headers()->Add(0, QStringLiteral("h2"), QStringLiteral("Second"));
        Item *a = first->Items()->Add(0, QStringLiteral("a"));
        Item *b = second->Items()->Add(0, QStringLiteral("b"));
        Item *c = second->Items()->Add(0, QStringLiteral("c"));
        a->setSelected(true);
        b->setSelected(true);
        c->setSelected(true);
        a->setSelected(true);
        QCOMPARE(bar.Navigation()->CurrentPosition(), 4);
        QSignalSpy moves(bar.Navigation(), &Navigation::ChangePosition);

        bar.Navigation()->GoBack(2);

        // The history reads the entry one past the new position: the third pair.
        QCOMPARE(moves.count(), 1);
        QCOMPARE(moves.at(0).at(1).toString(), QStringLiteral("c"));
        QCOMPARE(bar.SelectedHeader(), second);
        QCOMPARE(bar.SelectedItem(), c);
        QCOMPARE(bar.Navigation()->CurrentPosition(), 2);
        QVERIFY(bar.Navigation()->CanGoForward());
    }

    void barIdsNeverReused()
    {
        NewQuiver bar;
        bar.Headers()->Add();
        bar.Headers()->Add();
        bar.Headers()->Remove(2);
        const Header *added = bar.Headers()->Add();
        QCOMPARE(added->barId(), 4);
        QCOMPARE(bar.Headers()->at(1)->barId(), 1);
        QTRY_COMPARE(bar.findChildren<ItemContainer *>().size(), 3);
    }

    // Beside an editor in a row layout the bar keeps room for its widest header
    // caption and, at the least, for every bar and one row of items.
    void fitsLayouts()
    {
        QWidget window;
        auto *row = new QHBoxLayout(&window);
        auto *bar = new NewQuiver;
        const QString caption = QStringLiteral("Mail and calendar folders");
        bar->Headers()->Add(0, QString(), caption)->Items()->Add(0, QString(), QStringLiteral("Inbox"));
        bar->Headers()->Add(0, QString(), QStringLiteral("Notes"));
        row->addWidget(bar);
        row->addWidget(new QTextEdit);
        window.resize(600, 400);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));

        QVERIFY(bar->minimumSizeHint().width() >= Quiver::MinimumWidth);
        QVERIFY(bar->width() >= QFontMetrics(bar->font()).horizontalAdvance(caption));
        QCOMPARE(bar->width(), bar->sizeHint().width());

        // Squeezed to its least size, the open header still shows a whole item.
        window.resize(window.minimumSizeHint());
        QTRY_COMPARE(bar->size(), bar->minimumSizeHint());
        const QWidget *view = static_cast<ItemContainer *>(bar->SelectedHeader()->itemView());
        QVERIFY(view->isVisible());
        QVERIFY(view->height() >= static_cast<const ItemContainer *>(view)->itemRect(1).height());
    }
};

QTEST_MAIN(tst_Quiver)
#include "tst_quiver.moc"
