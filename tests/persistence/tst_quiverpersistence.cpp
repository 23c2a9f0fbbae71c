#include "control/Quiver.h"
#include "model/Header.h"
#include "model/Headers.h"
#include "model/Item.h"
#include "model/Items.h"
#include "model/Navigation.h"
#include "serialize/FormPropertyBag.h"
#include "serialize/MemoryPropertyBag.h"
#include "serialize/SettingsPropertyBag.h"

#include <QtCore/QSettings>
#include <QtCore/QTemporaryDir>
#include <QtGui/QCursor>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>

#include <memory>

using namespace OrrinQuiver;
using namespace Qt::StringLiterals;

namespace {

// A form with two image lists and a control with something of every kind.
struct Form {
    QWidget window;
    QObject *largeImages = new QObject(&window);
    QObject *smallImages = new QObject(&window);
    Quiver *control = nullptr;

    Form()
    {
        largeImages->setObjectName(u"imlLarge"_s);
        smallImages->setObjectName(u"imlSmall"_s);
    }
    Quiver *newControl()
    {
        auto *made = new Quiver(&window);
        made->setObjectName(u"Quiver1"_s);
        return made;
    }
};

void fill(Form &form)
{
    Quiver *q = form.control = form.newControl();
    q->InitProperties();
    q->setStyle(qvStyleVisualStudio);
    q->setFont(QFont(u"DejaVu Serif"_s, 13, QFont::Bold));
    q->setBackColor(0x00336699);
    q->setShadowColor(0x00102030);
    q->setHighlightColor(0x00405060);
    q->setItemOverForeColor(0x8000000Fu);
    q->setHeaderMouseIcon(QVariant::fromValue(QCursor(Qt::CrossCursor)));
    q->setItemMousePointer(3);
    q->setOLEDropMode(qvOLEDropItemsOnly);
    q->setScrollDelay(300);
    q->setSmoothScroll(false);
    q->setAutoMouseWheel(true);
    q->setItemsStayDownWithClick(true);
    q->setSoundItemURL(u"file:///nonexistent/click.wav"_s);
    q->setIcons(form.largeImages);
    q->setSmallIcons(form.smallImages);
    q->Navigation()->setEnabled(false);

    Header *first = q->Headers()->at(1);
    first->setCaption(u"Mail=Post\nBox"_s);
    first->setTag(u"t1"_s);
    for (int n = 1; n <= 3; ++n)
        first->Items()->Add(0, {}, u"Item %1"_s.arg(n), QString::number(n));
    first->Items()->at(2)->setURLIcon(u"https://example.invalid/2.png"_s);
    first->Items()->at(2)->setEnabled(false);
    first->Items()->at(3)->setToolTipText(u"third"_s);
    first->Items()->at(3)->setMaskColor(0x00FF00FF);
    Header *second = q->Headers()->Add(0, {}, u"Hidden"_s, qvViewSmallIcons);
    second->setVisible(false);
    second->setEnabled(false);
    Header *third = q->Headers()->Add(0, {}, u"Notes"_s);
    third->setToolTipText(u"all notes"_s);
    third->Items()->Add(0, {}, u"One"_s)->setTag(u"x"_s);
    third->Items()->Add(0, {}, u"Two"_s)->setVisible(false);
    third->setSelected(true);
    third->Items()->at(2)->setSelected(true);
}

std::unique_ptr<MemoryPropertyBag> saved(const Quiver &control)
{
    auto bag = std::make_unique<MemoryPropertyBag>();
    control.WriteProperties(*bag);
    return bag;
}

QStringList newControlKeys()
{
    return {u"HeaderMouseIcon"_s, u"ItemMouseIcon"_s, u"OLEDropMode"_s, u"TrackNavigation"_s,
            u"CurrentItem"_s,     u"NumHeaders"_s,    u"Caption1"_s,    u"Enabled1"_s,
            u"ToolTip1"_s,        u"View1"_s};
}

} // namespace

class tst_QuiverPersistence : public QObject
{
    Q_OBJECT

private slots:
    void newControlKeySet();
    void headerAndItemKeys_data();
    void headerAndItemKeys();
    void roundTrip_data();
    void roundTrip();
    void newControlReloads();
    void readOrder();
    void garbage_data();
    void garbage();
    void emptyBag();
    void propertyBagTextReplacesContent();

private:
    QTemporaryDir m_dir;
};

void tst_QuiverPersistence::newControlKeySet()
{
    Quiver control;
    control.InitProperties();
    const auto bag = saved(control);
    QCOMPARE(bag->names(), newControlKeys());
    QCOMPARE(bag->ReadProperty(u"HeaderMouseIcon"_s).toString(), u"cursor:13"_s);
    QCOMPARE(bag->ReadProperty(u"OLEDropMode"_s).toInt(), 3);
    QCOMPARE(bag->ReadProperty(u"TrackNavigation"_s).toBool(), true);
    QCOMPARE(bag->ReadProperty(u"CurrentItem"_s).toInt(), 0);
}

void tst_QuiverPersistence::headerAndItemKeys_data()
{
    QTest::addColumn<int>("headerCount");
    QTest::addColumn<QString>("urlIcon");
    QTest::addColumn<QStringList>("present");
    QTest::addColumn<QStringList>("absent");

    QTest::newRow("ten headers") << 10 << QString()
                                 << QStringList{u"Caption10"_s, u"Header10Items"_s, u"Header10Item2Caption"_s,
                                                u"Header10Item2Icon"_s, u"Header10Item2SmallIcon"_s}
                                 << QStringList{u"Caption11"_s, u"Header10Item2URLIcon"_s};
    QTest::newRow("url icons") << 1 << u"https://example.invalid/a.png"_s
                               << QStringList{u"Header1Item2URLIcon"_s, u"Header1Item2URLSmallIcon"_s}
                               << QStringList{u"Header1Item2Icon"_s, u"Header1Item2SmallIcon"_s};
}

void tst_QuiverPersistence::headerAndItemKeys()
{
    QFETCH(int, headerCount);
    QFETCH(QString, urlIcon);
    QFETCH(QStringList, present);
    QFETCH(QStringList, absent);

    Quiver control;
    control.InitProperties();
    for (int i = 2; i <= headerCount; ++i)
        control.Headers()->Add(0, {}, u"H%1"_s.arg(i));
    Header *last = control.Headers()->at(headerCount);
    last->Items()->Add(0, {}, u"a"_s);
    Item *second = last->Items()->Add(0, {}, u"b"_s, u"icon"_s, u"small"_s);
    second->setURLIcon(urlIcon);
    second->setURLSmallIcon(urlIcon);

    const QStringList names = saved(control)->names();
    for (const QString &name : present)
        QVERIFY2(names.contains(name), qPrintable(name));
    for (const QString &name : absent)
        QVERIFY2(!names.contains(name), qPrintable(name));

    // A header's keys come in a fixed order, its items' keys right after them.
    // Tool tips start as the captions, so they are stored too; empty icons are not.
    const QString h = QString::number(headerCount);
    const qsizetype at = names.indexOf(u"Caption"_s + h);
    const QString iconField = urlIcon.isEmpty() ? u"Icon"_s : u"URLIcon"_s;
    const QString smallField = urlIcon.isEmpty() ? u"SmallIcon"_s : u"URLSmallIcon"_s;
    const QString p = u"Header"_s + h + u"Item"_s;
    QCOMPARE(names.mid(at),
             QStringList({u"Caption"_s + h, u"Enabled"_s + h, u"ToolTip"_s + h, u"View"_s + h,
                          u"Header"_s + h + u"Items"_s, p + u"1Caption"_s, p + u"1ToolTip"_s, p + u"2Caption"_s,
                          p + u"2ToolTip"_s, p + u"2"_s + iconField, p + u"2"_s + smallField}));
}

void tst_QuiverPersistence::roundTrip_data()
{
    QTest::addColumn<QString>("backend");
    QTest::newRow("memory") << u"memory"_s;
    QTest::newRow("form text") << u"form"_s;
    QTest::newRow("ini file") << u"ini"_s;
}

void tst_QuiverPersistence::roundTrip()
{
    QFETCH(QString, backend);

    Form form;
    fill(form);
    const auto original = saved(*form.control);

    Quiver *reloaded = form.newControl();
    if (backend == u"memory") {
        reloaded->ReadProperties(MemoryPropertyBag(original->toVariantMap()));
    } else if (backend == u"form") {
        FormPropertyBag text;
        form.control->WriteProperties(text);
        reloaded->ReadProperties(FormPropertyBag(text.text()));
    } else {
        const QString file = m_dir.filePath(u"form.ini"_s);
        {
            QSettings settings(file, QSettings::IniFormat);
            SettingsPropertyBag bag(settings, u"Quiver1"_s);
            form.control->WriteProperties(bag);
        }
        QSettings settings(file, QSettings::IniFormat);
        reloaded->ReadProperties(SettingsPropertyBag(settings, u"Quiver1"_s));
    }

    const auto again = saved(*reloaded);
    QCOMPARE(again->names(), original->names());
    for (const QString &name : original->names())
        QCOMPARE(again->ReadProperty(name).toString(), original->ReadProperty(name).toString());

    QCOMPARE(reloaded->Icons(), form.largeImages);
    QCOMPARE(reloaded->SmallIcons(), form.smallImages);
    QCOMPARE(reloaded->Headers()->Count(), 3);
    QCOMPARE(reloaded->SelectedHeader(), reloaded->Headers()->at(3));
    QCOMPARE(reloaded->SelectedItem(), reloaded->Headers()->at(3)->Items()->at(2));
    QCOMPARE(reloaded->Headers()->at(1)->Caption(), u"Mail=Post\nBox"_s);
    QCOMPARE(reloaded->Headers()->at(1)->Items()->at(2)->URLIcon(), u"https://example.invalid/2.png"_s);
    QCOMPARE(reloaded->HighlightColor(), OLE_COLOR(0x00405060));
    QCOMPARE(reloaded->HeaderMouseIcon().value<QCursor>().shape(), Qt::CrossCursor);
    QCOMPARE(reloaded->FlashDelay(), 1000);
}

void tst_QuiverPersistence::newControlReloads()
{
    Quiver control;
    control.InitProperties();
    Quiver reloaded;
    reloaded.ReadProperties(*saved(control));
    QCOMPARE(reloaded.OLEDropMode(), qvOLEDropHeadersItems);
    QVERIFY(reloaded.Navigation()->Enabled());
    QCOMPARE(reloaded.Headers()->Count(), 1);
    QCOMPARE(reloaded.Headers()->at(1)->Caption(), u"Header 1"_s);

    // Values at their write defaults are not stored and reload as those defaults.
    control.setOLEDropMode(qvOLEDropNone);
    control.Navigation()->setEnabled(false);
    const auto bag = saved(control);
    QVERIFY(!bag->names().contains(u"OLEDropMode"_s));
    QVERIFY(!bag->names().contains(u"TrackNavigation"_s));
    Quiver second;
    second.ReadProperties(*bag);
    QCOMPARE(second.OLEDropMode(), qvOLEDropNone);
    QVERIFY(!second.Navigation()->Enabled());
}

void tst_QuiverPersistence::readOrder()
{
    // Every value differs from what a fresh control holds, so every setter
    // announces its change, in the order the values are read.
    const QStringList expected{
        u"Style"_s, u"Font"_s, u"BackColor"_s, u"DefaultMaskColor"_s, u"CheckColor"_s, u"ShadowColor"_s,
        u"DkShadowColor"_s, u"HighlightColor"_s, u"HeaderBackColor"_s, u"HeaderForeColor"_s,
        u"HeaderOverForeColor"_s, u"ItemForeColor"_s, u"ItemOverForeColor"_s, u"ItemOverBackColor"_s,
        u"ItemDownBackColor"_s, u"ItemDownForeColor"_s, u"HeaderMouseIcon"_s, u"HeaderMousePointer"_s,
        u"ItemMouseIcon"_s, u"ItemMousePointer"_s, u"PlaySounds"_s, u"OLEDropMode"_s, u"OLEDragMode"_s,
        u"ScrollDelay"_s, u"SmoothScroll"_s, u"ShowToolTips"_s, u"SoundItemURL"_s, u"SoundHeaderUpURL"_s,
        u"SoundHeaderDownURL"_s, u"UseSystemSounds"_s, u"AutoMouseWheel"_s, u"AlwaysShowFirstHeader"_s,
        u"ItemsMoveWithClick"_s, u"ItemsStayDownWithClick"_s, u"ItemsUnderlineOnMove"_s};
    QVariantMap values;
    int n = 0;
    for (const QString &name : expected)
        values.insert(name, ++n);
    values.insert(u"Font"_s, QFont(u"DejaVu Serif"_s, 17).toString());
    values.insert(u"HeaderMouseIcon"_s, u"cursor:2"_s);
    values.insert(u"ItemMouseIcon"_s, u"cursor:3"_s);
    for (const char *name : {"PlaySounds", "SmoothScroll", "ShowToolTips", "UseSystemSounds"})
        values.insert(QString::fromLatin1(name), false);
    for (const char *name : {"AutoMouseWheel", "ItemsMoveWithClick", "ItemsStayDownWithClick", "ItemsUnderlineOnMove"})
        values.insert(QString::fromLatin1(name), true);
    values.insert(u"AlwaysShowFirstHeader"_s, false);
    for (const char *name : {"SoundItemURL", "SoundHeaderUpURL", "SoundHeaderDownURL"})
        values.insert(QString::fromLatin1(name), u"file:///nonexistent/%1.wav"_s.arg(QLatin1String(name)));

    Quiver control;
    QSignalSpy changes(&control, &Quiver::PropertyChanged);
    control.ReadProperties(MemoryPropertyBag(values));
    QStringList order;
    for (const auto &change : changes)
        order << change.at(0).toString();
    QCOMPARE(order, expected);
    // The shadow colour also sets the highlight colour; the stored one wins.
    QCOMPARE(control.ShadowColor(), OLE_COLOR(6));
    QCOMPARE(control.HighlightColor(), OLE_COLOR(8));
    QCOMPARE(control.Headers()->Count(), 0);
}

void tst_QuiverPersistence::garbage_data()
{
    QTest::addColumn<QVariantMap>("bag");
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<QVariant>("expected");

    const QVariantMap oneHeader{{u"NumHeaders"_s, 1}, {u"Caption1"_s, u"A"_s}};
    auto with = [&](const QString &key, const QVariant &value, const QVariantMap &more = {}) {
        QVariantMap map = oneHeader;
        map.insert(more);
        map.insert(key, value);
        return map;
    };
    QTest::newRow("style text") << with(u"Style"_s, u"abc"_s) << QByteArray("Style") << QVariant(0);
    QTest::newRow("scroll delay overflow")
        << with(u"ScrollDelay"_s, 99999) << QByteArray("ScrollDelay") << QVariant(120);
    QTest::newRow("bool garbage") << with(u"PlaySounds"_s, u"maybe"_s) << QByteArray("PlaySounds") << QVariant(true);
    QTest::newRow("colour as list") << with(u"BackColor"_s, QStringList{u"1"_s}) << QByteArray("BackColor")
                                    << QVariant(0x80000010u);
    QTest::newRow("font garbage") << with(u"Font"_s, u"Nope"_s) << QByteArray("Font") << QVariant(Quiver().Font());
    QTest::newRow("pointer picture garbage")
        << with(u"HeaderMouseIcon"_s, u"bitmap:zz"_s, {{u"HeaderMousePointer"_s, 5}})
        << QByteArray("HeaderMousePointer") << QVariant(5);
    QTest::newRow("drop mode as map") << with(u"OLEDropMode"_s, QVariantMap{}) << QByteArray("OLEDropMode")
                                      << QVariant(0);
    QTest::newRow("negative header count") << QVariantMap{{u"NumHeaders"_s, -5}} << QByteArray("headers")
                                           << QVariant(0);
    QTest::newRow("header count text") << QVariantMap{{u"NumHeaders"_s, u"two"_s}} << QByteArray("headers")
                                       << QVariant(0);
    QTest::newRow("missing captions") << QVariantMap{{u"NumHeaders"_s, 3}} << QByteArray("headers") << QVariant(3);
    QTest::newRow("item count garbage") << with(u"Header1Items"_s, u"lots"_s) << QByteArray("items")
                                        << QVariant(0);
    QTest::newRow("current header beyond")
        << QVariantMap{{u"NumHeaders"_s, 3}, {u"Visible3"_s, false}, {u"CurrentHeader"_s, 40}}
        << QByteArray("selected") << QVariant(2);
}

void tst_QuiverPersistence::garbage()
{
    QFETCH(QVariantMap, bag);
    QFETCH(QByteArray, property);
    QFETCH(QVariant, expected);

    Quiver control;
    control.ReadProperties(MemoryPropertyBag(bag));
    QVariant actual;
    if (property == "headers")
        actual = control.Headers()->Count();
    else if (property == "items")
        actual = control.Headers()->at(1)->Items()->Count();
    else if (property == "selected")
        actual = control.SelectedHeader() ? control.SelectedHeader()->Index() : 0;
    else
        actual = control.property(property.constData());
    if (expected.typeId() == QMetaType::QFont)
        QCOMPARE(actual.value<QFont>().family(), expected.value<QFont>().family());
    else
        QCOMPARE(actual.toLongLong(), expected.toLongLong());
}

void tst_QuiverPersistence::emptyBag()
{
    Quiver control;
    control.ReadProperties(MemoryPropertyBag());
    QCOMPARE(control.Headers()->Count(), 0);
    QCOMPARE(control.OLEDropMode(), qvOLEDropNone);
    QVERIFY(!control.Navigation()->Enabled());
    QCOMPARE(control.HeaderMousePointer(), 99);
    QCOMPARE(control.HeaderMouseIcon().value<QCursor>().shape(), Qt::PointingHandCursor);
    QCOMPARE(control.Style(), qvStyleOutlook);
}

void tst_QuiverPersistence::propertyBagTextReplacesContent()
{
    Form form;
    fill(form);
    const QString text = form.control->PropertyBagText();
    QVERIFY(text.contains(u"Caption1=Mail=Post\\nBox\n"_s));

    Quiver *other = form.newControl();
    other->InitProperties();
    other->Headers()->Add(0, {}, u"Extra"_s);
    other->setProperty("PropertyBagText", text);
    QCOMPARE(other->Headers()->Count(), 3);
    QCOMPARE(other->PropertyBagText(), text);
}

QTEST_MAIN(tst_QuiverPersistence)
#include "tst_quiverpersistence.moc"
