#include "QuiverTest.h"

#include "control/PropertyTable.h"
#include "serialize/MemoryPropertyBag.h"
#include "serialize/SettingsPropertyBag.h"

#include <QtCore/QSettings>
#include <QtCore/QTemporaryDir>

#include <algorithm>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

QStringList names(QStringView spaced) { return spaced.toString().split(u' '); }

QStringList saved(const Quiver &control, MemoryPropertyBag &bag)
{
    control.WriteProperties(bag);
    return bag.names();
}

// The control keys in the order a save writes them, with the default it
// passes: what it leaves out and what a missing key reads as. The font, the
// pictures and the image lists have none of their own.
const std::pair<QString, std::optional<qint64>> Defaults[] = {
    { u"Style"_s, 0 }, { u"Font"_s, {} }, { u"DefaultMaskColor"_s, 0xC0C0C0 }, { u"BackColor"_s, 0x80000010 },
    { u"CheckColor"_s, 0x8000000F }, { u"ShadowColor"_s, 0x80000010 }, { u"DkShadowColor"_s, 0x80000015 },
    { u"HighlightColor"_s, 0x80000014 }, { u"HeaderBackColor"_s, 0x8000000F },
    { u"HeaderForeColor"_s, 0x80000012 }, { u"HeaderOverForeColor"_s, 0x80000012 },
    { u"ItemForeColor"_s, 0x80000005 }, { u"ItemOverForeColor"_s, 0x80000005 },
    { u"ItemOverBackColor"_s, 0x80000010 }, { u"ItemDownBackColor"_s, 0x80000010 },
    { u"ItemDownForeColor"_s, 0x80000005 }, { u"HeaderMouseIcon"_s, {} }, { u"HeaderMousePointer"_s, 99 },
    { u"ItemMouseIcon"_s, {} }, { u"ItemMousePointer"_s, 1 }, { u"PlaySounds"_s, 1 }, { u"OLEDragMode"_s, 0 },
    { u"OLEDropMode"_s, 0 }, { u"ScrollDelay"_s, 120 }, { u"SmoothScroll"_s, 1 }, { u"ShowToolTips"_s, 1 },
    { u"SoundItemURL"_s, 0 }, { u"SoundHeaderUpURL"_s, 0 }, { u"SoundHeaderDownURL"_s, 0 },
    { u"TrackNavigation"_s, 0 }, { u"UseSystemSounds"_s, 1 }, { u"AutoMouseWheel"_s, 0 },
    { u"AlwaysShowFirstHeader"_s, 1 }, { u"ItemsMoveWithClick"_s, 0 }, { u"ItemsStayDownWithClick"_s, 0 },
    { u"ItemsUnderlineOnMove"_s, 0 }, { u"Icons"_s, {} }, { u"SmallIcons"_s, {} },
};

std::optional<qint64> defaultOf(const QString &name)
{
    const auto *row = std::find_if(std::begin(Defaults), std::end(Defaults),
                                   [&](const auto &entry) { return entry.first == name; });
    return row == std::end(Defaults) ? std::nullopt : row->second;
}

// A control's value of a property with a default of its own, as a number;
// a text as its length.
qint64 number(const Quiver &control, const char *name)
{
    if (qstrcmp(name, "TrackNavigation") == 0)
        return control.Navigation()->Enabled();
    const QVariant value = control.property(name);
    return value.typeId() == QMetaType::QString ? value.toString().size() : value.toLongLong();
}

// A control on a form with two image lists, with something of every kind.
void fill(QWidget &form, Quiver &q)
{
    for (const QString &name : { u"imlLarge"_s, u"imlSmall"_s })
        (new QObject(&form))->setObjectName(name);
    q.setFont(QFont(u"DejaVu Serif"_s, 13, QFont::Bold));
    q.setOLEDropMode(qvOLEDropItemsOnly);
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
    void everyControlKey()
    {
        using namespace PropertyTable;
        // A bag in which every value differs from its default: numbers count up,
        // flags are the opposite of their default.
        QVariantMap values;
        for (size_t n = 0; n < rows().size(); ++n) {
            const QString name = QLatin1String(rows()[n].name);
            const BagType type = rows()[n].type;
            values.insert(name, type == BagType::Boolean ? QVariant(!*defaultOf(name))
                              : type == BagType::Text    ? QVariant(u"file:///nonexistent/"_s + name)
                              : type == BagType::Font    ? QVariant(QFont(u"DejaVu Serif"_s, 17).toString())
                              : type == BagType::Picture ? QVariant(u"cursor:%1"_s.arg(n))
                              : type == BagType::ObjectName ? QVariant(u"iml"_s + name)
                                                            : QVariant(int(n + 1)));
        }
        QWidget form;
        for (const char *name : { "imlIcons", "imlSmallIcons" })
            (new QObject(&form))->setObjectName(QLatin1String(name));
        auto *control = new Quiver(&form);
        QSignalSpy changes(control, &Quiver::PropertyChanged);
        control->ReadProperties(MemoryPropertyBag(values));

        // Every setter announces its change, in the order the values are read.
        QCOMPARE(announced(changes),
                 names(u"Style Font BackColor DefaultMaskColor CheckColor ShadowColor DkShadowColor "
                       "HighlightColor HeaderBackColor HeaderForeColor HeaderOverForeColor ItemForeColor "
                       "ItemOverForeColor ItemOverBackColor ItemDownBackColor ItemDownForeColor HeaderMouseIcon "
                       "HeaderMousePointer ItemMouseIcon ItemMousePointer PlaySounds OLEDropMode OLEDragMode "
                       "ScrollDelay SmoothScroll ShowToolTips SoundItemURL SoundHeaderUpURL SoundHeaderDownURL "
                       "UseSystemSounds AutoMouseWheel AlwaysShowFirstHeader ItemsMoveWithClick "
                       "ItemsStayDownWithClick ItemsUnderlineOnMove"));
        // The shadow colour also sets the highlight colour; the stored one wins.
        QCOMPARE(control->ShadowColor(), OLE_COLOR(6));
        QCOMPARE(control->HighlightColor(), OLE_COLOR(8));
        QCOMPARE(control->Icons(), form.findChild<QObject *>(u"imlIcons"_s));

        // A save writes every key in its order, and the values it read.
        MemoryPropertyBag bag;
        QStringList order;
        for (const auto &[name, value] : Defaults)
            order << name;
        QCOMPARE(saved(*control, bag), order + names(u"CurrentHeader CurrentItem"));
        values.insert(u"CurrentHeader"_s, 0);
        values.insert(u"CurrentItem"_s, 0);
        QCOMPARE(bag.toVariantMap(), values);

        // Missing keys read as the defaults a save leaves out. Image lists
        // without a name stay as they are, and so does a font set before: the
        // default font sets nothing of its own over it.
        control->ReadProperties(MemoryPropertyBag());
        for (const Row &row : rows()) {
            if (const auto expected = defaultOf(QLatin1String(row.name)))
                QCOMPARE(number(*control, row.name), *expected);
        }
        bag.clear();
        QCOMPARE(saved(*control, bag),
                 names(u"Font HeaderMouseIcon ItemMouseIcon Icons SmallIcons CurrentHeader CurrentItem"));
    }

    void roundTrip_data()
    {
        QTest::addColumn<QString>("backend");
        QTest::addColumn<QString>("content");
        QTest::addColumn<QStringList>("tail");

        QTest::newRow("memory") << u"memory"_s << u"full"_s << QStringList();
        QTest::newRow("form text, assigned over a new control") << u"form"_s << u"full"_s << QStringList();
        QTest::newRow("ini file") << u"ini"_s << u"full"_s << QStringList();
        // OLEDropMode and TrackNavigation are stored: a new control's values
        // differ from their write defaults. Tool tips start as the captions, so
        // they are stored; empty icons are not.
        QTest::newRow("new control")
            << u"memory"_s << u"new"_s
            << names(u"HeaderMouseIcon ItemMouseIcon OLEDropMode TrackNavigation CurrentItem NumHeaders Caption1 "
                     "Enabled1 ToolTip1 View1");
        // Values at their write defaults are not stored and must reload as those defaults.
        QTest::newRow("at the write defaults")
            << u"memory"_s << u"defaults"_s << names(u"HeaderMouseIcon ItemMouseIcon CurrentHeader CurrentItem");
        QTest::newRow("ten headers")
            << u"memory"_s << u"ten headers"_s
            << names(u"Caption10 Enabled10 ToolTip10 View10 Header10Items Header10Item1Caption "
                     "Header10Item1ToolTip Header10Item2Caption Header10Item2ToolTip Header10Item2Icon "
                     "Header10Item2SmallIcon");
        QTest::newRow("url icons")
            << u"memory"_s << u"url icons"_s
            << names(u"Caption1 Enabled1 ToolTip1 View1 Header1Items Header1Item1Caption Header1Item1ToolTip "
                     "Header1Item2Caption Header1Item2ToolTip Header1Item2URLIcon Header1Item2URLSmallIcon");
    }
    void roundTrip()
    {
        QFETCH(QString, backend);
        QFETCH(QString, content);
        QFETCH(QStringList, tail);

        QWidget form;
        auto *original = new NewQuiver(&form);
        if (content == u"full")
            fill(form, *original);
        if (content == u"defaults") {
            original->setOLEDropMode(qvOLEDropNone);
            original->Navigation()->setEnabled(false);
            original->Headers()->Clear();
        }
        if (content == u"ten headers" || content == u"url icons") {
            for (int i = 2; content == u"ten headers" && i <= 10; ++i)
                original->Headers()->Add(0, {}, u"H%1"_s.arg(i));
            Items *items = original->Headers()->at(original->Headers()->Count())->Items();
            items->Add(0, {}, u"a"_s);
            Item *second = items->Add(0, {}, u"b"_s, u"icon"_s, u"small"_s);
            if (content == u"url icons") {
                second->setURLIcon(u"https://example.invalid/a.png"_s);
                second->setURLSmallIcon(u"https://example.invalid/a.png"_s);
            }
        }
        MemoryPropertyBag before;
        const QStringList written = saved(*original, before);
        QCOMPARE(written.contains(u"OLEDropMode"_s), content != u"defaults");
        // A new control, and one at the write defaults, store exactly these keys;
        // the other rows give how a save ends.
        const bool whole = content == u"new" || content == u"defaults";
        QCOMPARE(whole ? written : written.sliced(written.size() - tail.size()), tail);
        QCOMPARE(before.ReadProperty(u"HeaderMouseIcon"_s).toString(), u"cursor:13"_s);

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
        QCOMPARE(reloaded->FlashDelay(), 1000);
    }

    void garbage_data()
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
        QTest::newRow("over colour follows the stored colour")
            << with(u"HeaderForeColor"_s, 5) << QByteArray("HeaderOverForeColor") << qint64(5);
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
    void garbage()
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
};

QTEST_MAIN(tst_QuiverPersistence)
#include "tst_quiverpersistence.moc"
