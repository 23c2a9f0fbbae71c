#include "control/Quiver.h"
#include "model/Header.h"
#include "model/Headers.h"
#include "model/Item.h"
#include "model/Items.h"
#include "model/Navigation.h"
#include "serialize/MemoryPropertyBag.h"
#include "serialize/SettingsPropertyBag.h"

#include <QtCore/QSettings>
#include <QtCore/QTemporaryDir>
#include <QtGui/QCursor>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

using namespace OrrinQuiver;
using namespace Qt::StringLiterals;

namespace {

QStringList names(QStringView spaced) { return spaced.toString().split(u' '); }

QStringList saved(const Quiver &control, MemoryPropertyBag &bag)
{
    control.WriteProperties(bag);
    return bag.names();
}

// A control on a form with two image lists, with something of every kind.
void fill(QWidget &form, Quiver &q)
{
    for (const QString &name : { u"imlLarge"_s, u"imlSmall"_s })
        (new QObject(&form))->setObjectName(name);
    q.setStyle(qvStyleVisualStudio);
    q.setFont(QFont(u"DejaVu Serif"_s, 13, QFont::Bold));
    q.setBackColor(0x00336699);
    q.setHeaderMouseIcon(QVariant::fromValue(QCursor(Qt::CrossCursor)));
    q.setItemMousePointer(3);
    q.setOLEDropMode(qvOLEDropItemsOnly);
    q.setScrollDelay(300);
    q.setSmoothScroll(false);
    q.setSoundItemURL(u"file:///nonexistent/click.wav"_s);
    q.setIcons(form.findChild<QObject *>(u"imlLarge"_s));
    q.setSmallIcons(form.findChild<QObject *>(u"imlSmall"_s));
    q.Navigation()->setEnabled(false);

    Header *first = q.Headers()->at(1);
    first->setCaption(u"Mail=Post\nBox"_s);
    for (int n = 1; n <= 3; ++n)
        first->Items()->Add(0, {}, u"Item %1"_s.arg(n), QString::number(n));
    first->Items()->at(2)->setURLIcon(u"https://example.invalid/2.png"_s);
    first->Items()->at(2)->setEnabled(false);
    first->Items()->at(3)->setMaskColor(0x00FF00FF);
    Header *hidden = q.Headers()->Add(0, {}, u"Hidden"_s, qvViewSmallIcons);
    hidden->setVisible(false);
    hidden->setEnabled(false);
    Header *notes = q.Headers()->Add(0, {}, u"Notes"_s);
    notes->setTag(u"t"_s);
    notes->Items()->Add(0, {}, u"One"_s);
    notes->Items()->Add(0, {}, u"Two"_s)->setVisible(false);
    notes->Items()->at(2)->setSelected(true);
}

} // namespace

class tst_QuiverPersistence : public QObject
{
    Q_OBJECT

private slots:
    void keySets_data();
    void keySets();
    void roundTrip_data();
    void roundTrip();
    void readOrder();
    void garbage_data();
    void garbage();
};

void tst_QuiverPersistence::keySets_data()
{
    QTest::addColumn<int>("headerCount");
    QTest::addColumn<bool>("items");
    QTest::addColumn<QString>("urlIcon");
    QTest::addColumn<QStringList>("tail");

    // Tool tips start as the captions, so they are stored; empty icons are not.
    QTest::newRow("new control") << 1 << false << QString() << names(u"Caption1 Enabled1 ToolTip1 View1");
    QTest::newRow("ten headers") << 10 << true << QString()
        << names(u"Caption10 Enabled10 ToolTip10 View10 Header10Items Header10Item1Caption Header10Item1ToolTip "
                 "Header10Item2Caption Header10Item2ToolTip Header10Item2Icon Header10Item2SmallIcon");
    QTest::newRow("url icons") << 1 << true << u"https://example.invalid/a.png"_s
        << names(u"Caption1 Enabled1 ToolTip1 View1 Header1Items Header1Item1Caption Header1Item1ToolTip "
                 "Header1Item2Caption Header1Item2ToolTip Header1Item2URLIcon Header1Item2URLSmallIcon");
}

void tst_QuiverPersistence::keySets()
{
    QFETCH(int, headerCount);
    QFETCH(bool, items);
    QFETCH(QString, urlIcon);
    QFETCH(QStringList, tail);

    Quiver control;
    control.InitProperties();
    for (int i = 2; i <= headerCount; ++i)
        control.Headers()->Add(0, {}, u"H%1"_s.arg(i));
    if (items) {
        Header *last = control.Headers()->at(headerCount);
        last->Items()->Add(0, {}, u"a"_s);
        Item *second = last->Items()->Add(0, {}, u"b"_s, u"icon"_s, u"small"_s);
        second->setURLIcon(urlIcon);
        second->setURLSmallIcon(urlIcon);
    }
    MemoryPropertyBag bag;
    const QStringList written = saved(control, bag);
    // OLEDropMode and TrackNavigation are stored: a new control's values differ from their write defaults.
    QCOMPARE(written.first(6),
             names(u"HeaderMouseIcon ItemMouseIcon OLEDropMode TrackNavigation CurrentItem NumHeaders"));
    QCOMPARE(written.sliced(written.size() - tail.size()), tail);
    QCOMPARE(bag.ReadProperty(u"HeaderMouseIcon"_s).toString(), u"cursor:13"_s);
}

void tst_QuiverPersistence::roundTrip_data()
{
    QTest::addColumn<QString>("backend");
    QTest::addColumn<QString>("content");
    QTest::newRow("memory") << u"memory"_s << u"full"_s;
    QTest::newRow("form text, assigned over a new control") << u"form"_s << u"full"_s;
    QTest::newRow("ini file") << u"ini"_s << u"full"_s;
    QTest::newRow("new control") << u"memory"_s << u"new"_s;
    // Values at their write defaults are not stored and must reload as those defaults.
    QTest::newRow("at the write defaults") << u"memory"_s << u"defaults"_s;
}

void tst_QuiverPersistence::roundTrip()
{
    QFETCH(QString, backend);
    QFETCH(QString, content);

    QWidget form;
    auto *original = new Quiver(&form);
    original->InitProperties();
    if (content == u"full")
        fill(form, *original);
    if (content == u"defaults") {
        original->setOLEDropMode(qvOLEDropNone);
        original->Navigation()->setEnabled(false);
        original->Headers()->Clear();
    }
    MemoryPropertyBag before;
    const QStringList written = saved(*original, before);
    QCOMPARE(written.contains(u"OLEDropMode"_s), content != u"defaults");

    auto *reloaded = new Quiver(&form);
    QTemporaryDir dir;
    QSettings settings(dir.filePath(u"form.ini"_s), QSettings::IniFormat);
    if (backend == u"memory") {
        reloaded->ReadProperties(MemoryPropertyBag(before.toVariantMap()));
    } else if (backend == u"form") {
        // The text replaces whatever the control held.
        reloaded->InitProperties();
        reloaded->setProperty("PropertyBagText", original->PropertyBagText());
        QCOMPARE(reloaded->PropertyBagText(), original->PropertyBagText());
    } else {
        SettingsPropertyBag ini(settings, u"Quiver1"_s);
        original->WriteProperties(ini);
        settings.sync();
        QSettings fromDisk(settings.fileName(), QSettings::IniFormat);
        reloaded->ReadProperties(SettingsPropertyBag(fromDisk, u"Quiver1"_s));
    }

    MemoryPropertyBag after;
    QCOMPARE(saved(*reloaded, after), written);
    QCOMPARE(after.toVariantMap(), before.toVariantMap());
    QCOMPARE(reloaded->OLEDropMode(), original->OLEDropMode());
    QCOMPARE(reloaded->Navigation()->Enabled(), original->Navigation()->Enabled());
    QCOMPARE(reloaded->Headers()->Count(), original->Headers()->Count());
    if (content != u"full")
        return;
    QCOMPARE(reloaded->Icons(), original->Icons());
    QCOMPARE(reloaded->SmallIcons(), original->SmallIcons());
    QCOMPARE(reloaded->SelectedItem(), reloaded->Headers()->at(3)->Items()->at(2));
    QCOMPARE(reloaded->Headers()->at(1)->Caption(), u"Mail=Post\nBox"_s);
    QCOMPARE(reloaded->HeaderMouseIcon().value<QCursor>().shape(), Qt::CrossCursor);
    QCOMPARE(reloaded->FlashDelay(), 1000);
}

void tst_QuiverPersistence::readOrder()
{
    // Every value differs from a fresh control's, so every setter announces
    // its change, in the order the values are read.
    const QStringList order = names(
        u"Style Font BackColor DefaultMaskColor CheckColor ShadowColor DkShadowColor HighlightColor "
        "HeaderBackColor HeaderForeColor HeaderOverForeColor ItemForeColor ItemOverForeColor "
        "ItemOverBackColor ItemDownBackColor ItemDownForeColor HeaderMouseIcon HeaderMousePointer "
        "ItemMouseIcon ItemMousePointer PlaySounds OLEDropMode OLEDragMode ScrollDelay SmoothScroll "
        "ShowToolTips SoundItemURL SoundHeaderUpURL SoundHeaderDownURL UseSystemSounds AutoMouseWheel "
        "AlwaysShowFirstHeader ItemsMoveWithClick ItemsStayDownWithClick ItemsUnderlineOnMove");
    // Numbers count up; flags are the opposite of a fresh control's.
    const Quiver fresh;
    QVariantMap values;
    for (int n = 0; n < order.size(); ++n) {
        const QVariant current = fresh.property(order.at(n).toLatin1().constData());
        const bool url = order.at(n).startsWith(u"Sound");
        values.insert(order.at(n), current.typeId() == QMetaType::Bool ? QVariant(!current.toBool())
                                   : url ? QVariant(u"file:///nonexistent/"_s + order.at(n))
                                         : QVariant(n + 1));
    }
    values.insert(u"Font"_s, QFont(u"DejaVu Serif"_s, 17).toString());
    values.insert(u"HeaderMouseIcon"_s, u"cursor:2"_s);
    values.insert(u"ItemMouseIcon"_s, u"cursor:3"_s);
    Quiver control;
    QSignalSpy changes(&control, &Quiver::PropertyChanged);
    control.ReadProperties(MemoryPropertyBag(values));
    QStringList announced;
    for (const auto &change : changes)
        announced << change.at(0).toString();
    QCOMPARE(announced, order);
    // The shadow colour also sets the highlight colour; the stored one wins.
    QCOMPARE(control.ShadowColor(), OLE_COLOR(6));
    QCOMPARE(control.HighlightColor(), OLE_COLOR(8));
}

void tst_QuiverPersistence::garbage_data()
{
    QTest::addColumn<QVariantMap>("bag");
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<qint64>("expected");

    const QVariantMap oneHeader { { u"NumHeaders"_s, 1 }, { u"Caption1"_s, u"A"_s } };
    auto with = [&](const QString &key, const QVariant &value) {
        QVariantMap map = oneHeader;
        map.insert(key, value);
        return map;
    };
    QTest::newRow("style text") << with(u"Style"_s, u"abc"_s) << QByteArray("Style") << qint64(0);
    QTest::newRow("delay overflow") << with(u"ScrollDelay"_s, 99999) << QByteArray("ScrollDelay")
                                    << qint64(120);
    QTest::newRow("flag garbage") << with(u"PlaySounds"_s, u"maybe"_s) << QByteArray("PlaySounds")
                                  << qint64(1);
    QTest::newRow("colour as list") << with(u"BackColor"_s, QStringList { u"1"_s }) << QByteArray("BackColor")
                                    << qint64(0x80000010u);
    QTest::newRow("picture garbage") << with(u"HeaderMouseIcon"_s, u"bitmap:zz"_s)
                                     << QByteArray("HeaderMousePointer") << qint64(99);
    QTest::newRow("negative header count")
        << QVariantMap { { u"NumHeaders"_s, -5 } } << QByteArray("headers") << qint64(0);
    QTest::newRow("header count text")
        << QVariantMap { { u"NumHeaders"_s, u"two"_s } } << QByteArray("headers") << qint64(0);
    QTest::newRow("missing captions")
        << QVariantMap { { u"NumHeaders"_s, 3 } } << QByteArray("headers") << qint64(3);
    QTest::newRow("item count garbage")
        << with(u"Header1Items"_s, u"lots"_s) << QByteArray("items") << qint64(0);
    QTest::newRow("current header beyond")
        << QVariantMap { { u"NumHeaders"_s, 3 }, { u"Visible3"_s, false }, { u"CurrentHeader"_s, 40 } }
        << QByteArray("selected") << qint64(2);
}

void tst_QuiverPersistence::garbage()
{
    QFETCH(QVariantMap, bag);
    QFETCH(QByteArray, property);
    QFETCH(qint64, expected);

    Quiver control;
    control.ReadProperties(MemoryPropertyBag(bag));
    const qint64 actual = property == "headers" ? control.Headers()->Count()
        : property == "items"                   ? control.Headers()->at(1)->Items()->Count()
        : property == "selected"                ? control.SelectedHeader()->Index()
                                                : control.property(property.constData()).toLongLong();
    QCOMPARE(actual, expected);
}

QTEST_MAIN(tst_QuiverPersistence)
#include "tst_quiverpersistence.moc"
