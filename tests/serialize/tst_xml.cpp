#include "QuiverTest.h"

#include "RecordingControlLink.h"

#include "core/QuiverError.h"
#include "model/ModelChecker.h"
#include "platform/SystemColors.h"
#include "serialize/XmlReader.h"
#include "serialize/modWebColorFuncs.h"

#include <QtCore/QFile>
#include <QtCore/QXmlStreamReader>

#include <pugixml.hpp>

#include <cstdlib>
#include <functional>

using Setup = std::function<void(Quiver &)>;
Q_DECLARE_METATYPE(Setup)

namespace {

const QString FirstHeader = QStringLiteral("H NEW_HEADER00001 Header 1 1 selected");
const QString FirstHeaderElement
    = QStringLiteral("header caption=Header 1 key=NEW_HEADER00001 index=1 selected=True view=0");

QString fixture(const QString &name)
{
    QFile file(qEnvironmentVariable("QUIVER_TEST_DATA") + QStringLiteral("/fixtures/") + name);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("missing fixture %s", qPrintable(name));
    return QString::fromUtf8(file.readAll());
}

// A header fragment holding `items`.
QString fragmentOf(const QString &items)
{
    return QStringLiteral("<?xml version=\"1.0\"?><orrinquiver version=\"201\" data=\"items\">"
                          "<header filter-src=\"h\">%1</header></orrinquiver>")
        .arg(items);
}

// Every element as "name attribute=value ...", attributes in document order.
QStringList elementLines(const QString &xml)
{
    QStringList lines;
    QXmlStreamReader reader(xml);
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement)
            continue;
        QStringList parts { reader.name().toString() };
        for (const QXmlStreamAttribute &attribute : reader.attributes())
            parts << QStringLiteral("%1=%2").arg(attribute.name(), attribute.value());
        lines << parts.join(u' ');
    }
    return lines;
}

// The number and description of the QuiverError `call` throws; 0 for none.
std::pair<int, QString> errorOf(const std::function<void()> &call)
{
    try {
        call();
    } catch (const QuiverError &error) {
        return { error.Number(), error.Description() };
    }
    return { 0, QString() };
}

// One line per header ("H") and item ("I"): key, caption, Index, then what
// differs from a member as Add made it.
QStringList outline(const Quiver &quiver)
{
    using Notes = QList<std::pair<bool, QString>>;
    QStringList lines;
    const auto line = [&lines](const char *kind, const auto &member, const Notes &more) {
        const QString tag = member.Tag().toString(), tip = member.ToolTipText();
        QStringList parts { QLatin1String(kind), member.Key(), member.Caption(),
                            QString::number(member.Index()) };
        for (const auto &[on, text] : Notes { { !member.Enabled(), "disabled" },
                                              { !member.Visible(), "hidden" },
                                              { tip != member.Caption(), "tip=" + tip },
                                              { !tag.isEmpty(), "tag=" + tag },
                                              { member.Selected(), "selected" },
                                              { !member.isLive(), "not live" } }
                 + more) {
            if (on)
                parts << text;
        }
        lines << parts.join(u' ');
    };
    for (const Header *header : *quiver.Headers()) {
        line("H", *header, { { header->View() != 0, "small view" } });
        for (const Item *item : *header->Items()) {
            const QString icons[] = { item->Icon().toString(), item->SmallIcon().toString(), item->URLIcon(),
                                      item->URLSmallIcon() };
            const OLE_COLOR fore = item->ForeColor(), mask = item->MaskColor();
            line("I", *item,
                 { { fore != quiver.ItemForeColor(), "fore=" + QString::number(fore, 16) },
                   { mask != quiver.DefaultMaskColor(), "mask=" + QString::number(mask, 16) },
                   { item->Bold(), "bold" },
                   { !icons[0].isEmpty(), "icon=" + icons[0] },
                   { !icons[1].isEmpty(), "icon=" + icons[1] },
                   { !icons[2].isEmpty(), "icon=" + icons[2] },
                   { !icons[3].isEmpty(), "icon=" + icons[3] } });
        }
    }
    return lines;
}

// The classic palette with its button face changed, so that a resolved system
// colour shows which palette it came from.
QPalette changedPalette()
{
    QPalette palette = classicPalette();
    palette.setColor(QPalette::Active, QPalette::Button, QColor(0x12, 0x34, 0x56));
    return palette;
}

void *failingAllocate(size_t) { return nullptr; }

} // namespace

class tst_Xml : public QObject
{
    Q_OBJECT

private slots:
    void colorToText_data()
    {
        QTest::addColumn<quint32>("color");
        QTest::addColumn<QString>("text");

        QTest::newRow("black") << quint32(0) << "#000000";
        QTest::newRow("white") << quint32(0xFFFFFF) << "#FFFFFF";
        QTest::newRow("red first, digits padded") << quint32(0x0A0B0C) << "#0C0B0A";
        QTest::newRow("button face from the palette") << quint32(SystemColors::ButtonFace) << "#123456";
        QTest::newRow("dark shadow resolved") << quint32(SystemColors::ButtonDarkShadow) << "#404040";
        QTest::newRow("active caption, no palette role") << quint32(SystemColors::ActiveCaption) << "#0A246A";
        QTest::newRow("system colour 0 is black") << quint32(0x80000000) << "#000000";
        QTest::newRow("unknown system colour is black") << quint32(0x80000100) << "#000000";
        QTest::newRow("extra digits go to blue") << quint32(0x01FFFFFF) << "#FFFF1FF";
    }
    void colorToText()
    {
        QFETCH(quint32, color);
        QFETCH(QString, text);
        QCOMPARE(modWebColorFuncs::colorToText(color, changedPalette()), text);
    }

    void textToColor_data()
    {
        QTest::addColumn<QStringList>("texts");
        QTest::addColumn<QString>("colors"); // as colour text, one for each

        QTest::newRow("hex with a hash, bare or after vb in any case")
            << QStringList { "#ff8000", "FF8000", "vbFF8000", "VBff8000", "vb#0000FF" }
            << "#FF8000 #FF8000 #FF8000 #FF8000 #0000FF";
        QTest::newRow("names in any case, with or without vb")
            << QStringList { "vbRed",  "RED",    "Green",   "white", "Black",
                             "vbBlue", "yellow", "MAGENTA", "cyan",  "silver" }
            << "#FF0000 #FF0000 #00FF00 #FFFFFF #000000 #0000FF #FFFF00 #FF00FF #00FFFF #C0C0C0";
        QTest::newRow("short texts fill the leading pairs with 0")
            << QStringList { "#123", "7" } << "#000123 #000007";
        QTest::newRow("only the last six characters count")
            << QStringList { "1234567", "zzzz#00FF00" } << "#234567 #00FF00";
        QTest::newRow("black when the first character is no hex digit")
            << QStringList { "#red", "orange", "xyz", "#GG0000", "", "#", "vb", "##FF" }
            << "#000000 #000000 #000000 #000000 #000000 #000000 #000000 #000000";
        QTest::newRow("inner non-hex counts 0") << QStringList { "#1G2233" } << "#102233";
    }
    // Read back through the writer, which the rows above pin.
    void textToColor()
    {
        QFETCH(QStringList, texts);
        QFETCH(QString, colors);
        QStringList read;
        for (const QString &text : texts)
            read << modWebColorFuncs::colorToText(modWebColorFuncs::textToColor(text), classicPalette());
        QCOMPARE(read.join(u' '), colors);
    }

    // Every style attribute in its place, system colours resolved to colour text.
    void writeStyle()
    {
        NewQuiver quiver;
        quiver.setPalette(classicPalette());
        QFont font(QStringLiteral("Sans"));
        font.setPointSizeF(8.25);
        quiver.setFont(font);
        quiver.setCheckColor(0x336699);
        quiver.setStyle(qvStyleVisualStudio);
        quiver.setPlaySounds(false);
        quiver.Navigation()->setEnabled(false);
        auto *images = new QObject(&quiver);
        images->setObjectName("largeImages");
        quiver.setIcons(images);
        QCOMPARE(
            elementLines(quiver.XML()).first(),
            "orrinquiver version=201 data=items font-family=Sans font-size=8.25 backcolor=#808080 "
            "shadowcolor=#808080 highlightcolor=#FFFFFF headerbackcolor=#D4D0C8 headerforecolor=#000000 "
            "checkcolor=#996633 dkshadowcolor=#404040 headeroverforecolor=#000000 itemdownbackcolor=#808080 "
            "itemdownforecolor=#FFFFFF itemforecolor=#FFFFFF itemoverbackcolor=#808080 "
            "itemoverforecolor=#FFFFFF defaultmaskcolor=#C0C0C0 style=4 playsounds=False oledrag=0 "
            "oledrop=3 scroll=120 smooth=True tooltips=True snditemurl= sndhdrupurl= sndhdrdownurl= "
            "navtrack=False syssounds=True autowheel=False alwaysshowfirsthdr=True moveclick=False "
            "staydown=False underlineonmove=False icons=largeImages smallicons=");
    }

    void writeMembers_data()
    {
        QTest::addColumn<Setup>("setup");
        QTest::addColumn<QStringList>("lines");

        QTest::newRow("header and item that differ")
            << Setup([](Quiver &q) {
                   Header *h = q.Headers()->Add(0, "two", "Two", qvViewSmallIcons);
                   h->setToolTipText("TWO");
                   h->setEnabled(false);
                   h->setTag(7);
                   h->setVisible(false);
                   Items *items = q.Headers()->at(1)->Items();
                   Item *i = items->Add(0, "b", "B", "3", "small");
                   i->setEnabled(false);
                   i->setToolTipText("tip");
                   i->setVisible(false);
                   i->setTag(true);
                   i->setForeColor(0x0000FF);
                   i->setMaskColor(SystemColors::ButtonFace);
                   i->setBold(true);
                   i->setURLIcon("http://x/big.png");
                   i->setURLSmallIcon("http://x/small.png");
                   items->Add(0, "c", "C")->setSelected(false);
               })
            << QStringList {
                   FirstHeaderElement,
                   "item caption=B key=b index=1 enabled=False tooltiptext=tip visible=False tag=True "
                   "itemforecolor=255 maskcolor=-2147483633 bold=True icon=3 smallicon=small "
                   "urlicon=http://x/big.png urlsmallicon=http://x/small.png",
                   "item caption=C key=c index=2 selected=True",
                   "header caption=Two key=two index=2 enabled=False tooltiptext=TWO visible=False "
                   "tag=7 view=1"
               };
        QTest::newRow("object tag, empty tag, the control's colour and bold font")
            << Setup([](Quiver &q) {
                   QFont font = q.Font();
                   font.setBold(true);
                   q.setFont(font);
                   Items *items = q.Headers()->at(1)->Items();
                   items->Add(0, "o", "O")->setTag(QVariant::fromValue<QObject *>(&q));
                   items->Add(0, "e", "E")->setTag(QString());
                   items->Add(0, "c", "C")->setForeColor(q.ItemForeColor());
                   items->Add(0, "b", "B")->setBold(true);
               })
            << QStringList { FirstHeaderElement, "item caption=O key=o index=1 bold=False",
                             "item caption=E key=e index=2 bold=False",
                             "item caption=C key=c index=3 bold=False", "item caption=B key=b index=4" };
    }
    void writeMembers()
    {
        QFETCH(Setup, setup);
        QFETCH(QStringList, lines);
        NewQuiver quiver;
        setup(quiver);
        QCOMPARE(elementLines(quiver.XML()).mid(1), lines);
    }

    void writeFragmentAndHistory()
    {
        NewQuiver quiver;
        Items *items = quiver.Headers()->at(1)->Items();
        items->Add(0, "a", "A")->setToolTipText("tip");
        items->Add(0, "b", "B");
        QCOMPARE(
            quiver.Headers()->at(1)->XML(),
            "<?xml version=\"1.0\"?><orrinquiver version=\"201\" data=\"items\"><header "
            "filter-src=\"NEW_HEADER00001\"><item caption=\"A\" key=\"a\" index=\"1\" tooltiptext=\"tip\"/>"
            "<item caption=\"B\" key=\"b\" index=\"2\"/></header></orrinquiver>");
        Navigation *navigation = quiver.Navigation();
        navigation->Clear();
        navigation->Record("h1", "i1");
        navigation->Record("h2", "i<2>");
        navigation->GoBack();
        QCOMPARE(elementLines(navigation->HistoryXML()),
                 (QStringList { "orrinquiver version=201 data=history", "history header=h1 item=i1",
                                "history header=h2 item=i<2>" }));
    }

    void readErrors_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<int>("number");
        QTest::addColumn<QString>("description");

        for (const char *file :
             { "broken-not-xml.xml", "broken-empty.xml", "broken-truncated.xml", "broken-wrong-root.xml",
               "broken-root-case.xml", "broken-two-roots.xml", "broken-mismatched-tags.xml" })
            QTest::newRow(file) << file << int(qvErrorXMLInvalidContent) << "Invalid XML content supplied";
        const QString version
            = QStringLiteral("Invalid Quiver XML version in XML content%1 - current version is 201");
        QTest::newRow("199") << "broken-version-199.xml" << int(qvErrorXMLInvalidVersion) << version.arg(199);
        QTest::newRow("202") << "broken-version-202.xml" << int(qvErrorXMLInvalidVersion) << version.arg(202);
        QTest::newRow("none") << "broken-version-missing.xml" << int(qvErrorXMLInvalidVersion)
                              << version.arg("");
        QTest::newRow("text") << "broken-version-text.xml" << int(qvErrorXMLInvalidVersion)
                              << version.arg("two hundred");
    }
    void readErrors()
    {
        QFETCH(QString, file);
        QFETCH(int, number);
        QFETCH(QString, description);
        NewQuiver quiver;
        quiver.Headers()->at(1)->Items()->Add(0, "kept", "Kept");
        const QString before = quiver.XML();
        QCOMPARE(errorOf([&] { quiver.setXML(fixture(file)); }), std::make_pair(number, description));
        QCOMPARE(quiver.XML(), before);
    }

    void readContent_data()
    {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QStringList>("lines");
        // Font size, ItemForeColor, HighlightColor (after ShadowColor), Style, ScrollDelay, SmoothScroll,
        // ShowToolTips, BackColor, CheckColor; the defaults when empty.
        QTest::addColumn<QString>("style");

        QTest::newRow("version 201")
            << "control-201.xml"
            << QStringList { "H mail Mail 1",
                             "I inbox Inbox 1 icon=1",
                             "I sent Sent 2 disabled tip=Sent mail tag=archive "
                             "mask=8000000f bold icon=sent16",
                             "H tasks Tasks 2 tip=To do tag=42 selected small view",
                             "I today Today 1 hidden",
                             "I later Later 2 selected icon=file:///nonexistent/later.png" }
            << "11.5 332211 908070 3 300 0 0 302010 30201";
        QTest::newRow("version 200 ignores style")
            << "control-200.xml" << QStringList { "H old Old 1 selected small view", "I first First 1" }
            << "";
        QTest::newRow("style skips and colour names")
            << "style-skips.xml" << QStringList() << "9 80000005 80000014 0 300 1 0 0 ff";
        QTest::newRow("other data appends")
            << "append.xml" << QStringList { FirstHeader, "H added Added 2", "I one One 1" } << "";
        QTest::newRow("header attribute stops all")
            << "header-stop.xml"
            << QStringList { "H read Read 1 selected", "I kept Kept 1", "H NEW_HEADER00003 Stops 2 not live" }
            << "";
        QTest::newRow("header value stops all")
            << "header-bad-value.xml" << QStringList { "H NEW_HEADER00002 Stops 1 selected not live" } << "";
        QTest::newRow("itemforecolor stops items")
            << "itemforecolor-stop.xml"
            << QStringList { "H colours Colours 1 selected", "I plain Plain 1", "I red Red 2 not live",
                             "H next Next 2", "I still Still read 1" }
            << "";
        QTest::newRow("item value stops items")
            << "item-bad-value.xml"
            << QStringList { "H bad Bad 1 selected", "I before Before 1", "I broken Broken 2 not live",
                             "H good Good 2", "I fine Fine 1" }
            << "";
        QTest::newRow("fragment stops at filter-src")
            << "header-fragment.xml" << QStringList { "H NEW_HEADER00002  1 selected not live" } << "";
        QTest::newRow("taken keys replaced")
            << "key-clash.xml"
            << QStringList { "H mail Mail 1 selected", "H HEADER00004 Other 2", "H HEADER00006 Third 3" }
            << "";
    }
    void readContent()
    {
        QFETCH(QString, file);
        QFETCH(QStringList, lines);
        QFETCH(QString, style);
        NewQuiver quiver;
        quiver.setFont(QFont(QStringLiteral("Sans"), 9));
        quiver.setXML(fixture(file));
        QCOMPARE(outline(quiver), lines);
        const QStringList problems = checkModel(*quiver.Headers());
        QVERIFY2(problems.isEmpty(), qPrintable(problems.join(u'\n')));
        const QStringList actual {
            QString::number(quiver.Font().pointSizeF()),  QString::number(quiver.ItemForeColor(), 16),
            QString::number(quiver.HighlightColor(), 16), QString::number(quiver.Style()),
            QString::number(quiver.ScrollDelay()),        QString::number(quiver.SmoothScroll()),
            QString::number(quiver.ShowToolTips()),       QString::number(quiver.BackColor(), 16),
            QString::number(quiver.CheckColor(), 16)
        };
        QCOMPARE(actual.join(u' '),
                 style.isEmpty() ? "9 80000005 80000014 0 120 1 1 80000010 8000000f" : style);
    }

    void readFragment_data()
    {
        QTest::addColumn<QString>("xml");
        QTest::addColumn<int>("number");
        QTest::addColumn<QStringList>("lines");

        // The header's items, and last the one the next Items.Add() makes: taken
        // keys and generated ones use up the collection's key counter alike.
        QTest::newRow("replaces the items")
            << fixture("header-fragment.xml") << 0
            << QStringList { "I alpha Alpha 1", "I beta Beta 7 tip=Second", "I NEW_ITEM00003  3" };
        QTest::newRow("version not checked")
            << fixture("broken-version-199.xml") << 0 << QStringList { "I NEW_ITEM00001  1" };
        QTest::newRow("no header") << fixture("broken-fragment-no-header.xml")
                                   << int(qvErrorXMLInvalidContent)
                                   << QStringList { "I old Old 1", "I NEW_ITEM00001  2" };
        QTest::newRow("not xml") << fixture("broken-not-xml.xml") << int(qvErrorXMLInvalidContent)
                                 << QStringList { "I old Old 1", "I NEW_ITEM00001  2" };
        QTest::newRow("key before caption") << fragmentOf("<item key='a' caption='A'/>") << 0
                                            << QStringList { "I a A 1", "I NEW_ITEM00002  2" };
        QTest::newRow("key equal to its own caption")
            << fragmentOf("<item caption='Same' key='same'/>") << 0
            << QStringList { "I same Same 1", "I NEW_ITEM00002  2" };
        QTest::newRow("key taken in another case")
            << fragmentOf("<item key='a'/><item key='A'/>") << 0
            << QStringList { "I a  1", "I ITEM00003  2", "I NEW_ITEM00004  3" };
        QTest::newRow("key equal to an earlier caption")
            << fragmentOf("<item caption='Mail' key='m'/><item key='mail'/>") << 0
            << QStringList { "I m Mail 1", "I ITEM00003  2", "I NEW_ITEM00004  3" };
        QTest::newRow("empty key") << fragmentOf("<item caption='A' key=''/>") << 0
                                   << QStringList { "I ITEM00002 A 1", "I NEW_ITEM00003  2" };
        QTest::newRow("no key") << fragmentOf("<item caption='A'/>") << 0
                                << QStringList { "I NEW_ITEM00001 A 1", "I NEW_ITEM00002  2" };
        QTest::newRow("a stop before the key")
            << fragmentOf("<item index='x' key='k'/>") << 0
            << QStringList { "I NEW_ITEM00001  1 not live", "I NEW_ITEM00002  2" };
        QTest::newRow("names in any letter case")
            << fragmentOf(
                   "<item caption='A' key='a' tooltiptext='t'/><item Caption='B' Key='b' ToolTipText='u'/>"
                   "<item CAPTION='C' KEY='c' TOOLTIPTEXT='v'/>")
            << 0 << QStringList { "I a A 1 tip=t", "I b B 2 tip=u", "I c C 3 tip=v", "I NEW_ITEM00004  4" };
        QTest::newRow("index with blanks and a sign")
            << fragmentOf("<item key='a' index=' 7 '/><item key='b' index='+3'/><item key='c' index='-2'/>")
            << 0 << QStringList { "I a  7", "I b  3", "I c  -2", "I NEW_ITEM00004  4" };
        QTest::newRow("index rounded half to even")
            << fragmentOf("<item key='a' index='2.5'/><item key='b' index='3.5e0'/>") << 0
            << QStringList { "I a  2", "I b  4", "I NEW_ITEM00003  3" };
        QTest::newRow("index beyond a Long stops the items")
            << fragmentOf("<item key='a' index='2147483648'/><item key='b'/>") << 0
            << QStringList { "I a  1 not live", "I NEW_ITEM00002  2" };
        QTest::newRow("negative colour is a system colour")
            << fragmentOf("<item key='a' maskcolor='-2147483633' forecolor='255'/>") << 0
            << QStringList { "I a  1 fore=ff mask=8000000f", "I NEW_ITEM00002  2" };
    }
    // The header keeps its own caption and key whatever the fragment says.
    void readFragment()
    {
        QFETCH(QString, xml);
        QFETCH(int, number);
        QFETCH(QStringList, lines);
        NewQuiver quiver;
        Header *header = quiver.Headers()->at(1);
        header->Items()->Add(0, "old", "Old");
        QCOMPARE(errorOf([&] { header->setXML(xml); }).first, number);
        header->Items()->Add();
        QCOMPARE(outline(quiver), QStringList { FirstHeader } + lines);
        const QStringList problems = checkModel(*quiver.Headers());
        QVERIFY2(problems.isEmpty(), qPrintable(problems.join(u'\n')));
    }

    void callsThatReachTheControl()
    {
        RecordingControlLink link;
        Headers headers(&link);
        link.headers = &headers;
        Navigation navigation;
        QObject control;
        XmlReader::readControlDocument(control, headers, navigation, fixture("control-201.xml"));
        // With the live flags cleared, only "selected", "view" and "urlicon" reach the control and the
        // views; the last header read is redrawn at the end.
        QCOMPARE(link.take(),
                 (QStringList { "createHeaderViews(1,,0)", "relayoutStrip()", "createHeaderViews(2,,0)",
                                "relayoutStrip()", "openHeader(2)", "relayoutStrip()", "openHeader(2)",
                                "selectItem(2)", "loadUrlIcon(file:///nonexistent/later.png,true)",
                                "redrawHeaderBar(2)" }));
        // An item reaches its view with the caption it was written with.
        const auto added = [](const char *first, const char *second) {
            return QStringList {
                QStringLiteral("addItemWindow(1,%1)").arg(first),  "relayoutItems(false)", "redrawItem(1)",
                QStringLiteral("addItemWindow(2,%1)").arg(second), "relayoutItems(false)", "redrawItem(2)"
            };
        };
        QCOMPARE(link.view(1)->take(), added("Inbox", "Sent"));
        QCOMPARE(link.view(2)->take(), QStringList { "setView(1)" } + added("Today", "Later"));
    }

    void noMemoryForTheDocument()
    {
        Quiver quiver;
        pugi::set_memory_management_functions(failingAllocate, std::free);
        const auto error = errorOf([&] { quiver.setXML(fixture("control-201.xml")); });
        pugi::set_memory_management_functions(std::malloc, std::free);
        QCOMPARE(error,
                 std::make_pair(int(qvErrorXMLParserNotPresent),
                                QStringLiteral("MSXML or MSXML3 not found during XML operation")));
    }

    void roundTrip_data()
    {
        QTest::addColumn<Setup>("setup");

        QTest::newRow("fixture content and style")
            << Setup([](Quiver &q) { q.setXML(fixture("control-201.xml")); });
        QTest::newRow("texts that need escaping") << Setup([](Quiver &q) {
            Header *h = q.Headers()->Add(0, "k<&>\"'", "Line 1\r\nLine 2\tend");
            Item *i = h->Items()->Add(0, "\u00e9\U0001F600", "caption with \"quotes\" & <tags>");
            i->setToolTipText("  spaced  ");
            i->setTag("a\nb");
        });
        QTest::newRow("system colours") << Setup([](Quiver &q) {
            q.setBackColor(SystemColors::ButtonDarkShadow);
            q.setDefaultMaskColor(SystemColors::ButtonFace);
            q.Headers()->at(1)->Items()->Add(0, "i", "I")->setMaskColor(SystemColors::ButtonText);
        });
        QTest::newRow("second header open, a hidden item selected") << Setup([](Quiver &q) {
            Header *h = q.Headers()->Add(0, "two", "Two", qvViewSmallIcons);
            h->Items()->Add(0, "a", "A");
            Item *b = h->Items()->Add(0, "b", "B", "", "5");
            b->setSelected(true);
            b->setVisible(false);
            b->setBold(true);
        });
    }
    void roundTrip()
    {
        QFETCH(Setup, setup);
        NewQuiver source;
        setup(source);
        const QString xml = source.XML();
        NewQuiver copy;
        copy.setXML(xml);
        QCOMPARE(copy.XML(), xml);
        QCOMPARE(outline(copy), outline(source));
    }
};

QTEST_MAIN(tst_Xml)
#include "tst_xml.moc"
