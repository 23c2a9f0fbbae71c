#include "RecordingControlLink.h"
#include "XmlTestSupport.h"

#include "model/ModelChecker.h"
#include "model/Navigation.h"
#include "platform/SystemColors.h"
#include "serialize/XmlReader.h"

#include <QtQml/QJSEngine>
#include <QtTest/QTest>

#include <pugixml.hpp>

#include <cstdlib>

using namespace OrrinQuiver;

namespace {

const QString FirstHeader = QStringLiteral("H NEW_HEADER00001 Header 1 1 selected");
const QString FirstHeaderElement
    = QStringLiteral("header caption=Header 1 key=NEW_HEADER00001 index=1 selected=True view=0");
const QString InvalidContent = QStringLiteral("Invalid XML content supplied");

void *failingAllocate(size_t) { return nullptr; }

// A header fragment holding `items`.
QString fragmentOf(const QString &items)
{
    return QStringLiteral("<?xml version=\"1.0\"?><orrinquiver version=\"201\" data=\"items\">"
                          "<header filter-src=\"h\">%1</header></orrinquiver>")
        .arg(items);
}

} // namespace

class tst_Xml : public QObject
{
    Q_OBJECT

private slots:
    void writeStyle_data();
    void writeStyle();
    void writeMembers_data();
    void writeMembers();
    void writeFragmentAndHistory();
    void readErrors_data();
    void readErrors();
    void readContent_data();
    void readContent();
    void readStyle_data();
    void readStyle();
    void readFragment_data();
    void readFragment();
    void readItemKeys_data();
    void readItemKeys();
    void readItemValues_data();
    void readItemValues();
    void callsThatReachTheControl();
    void noMemoryForTheDocument();
    void scriptGetsTheError();
    void roundTrip_data();
    void roundTrip();
};

void tst_Xml::writeStyle_data()
{
    QTest::addColumn<Setup>("setup");
    QTest::addColumn<QString>("attribute");

    QTest::newRow("order")
        << Setup([](Quiver &) {})
        << "orrinquiver version=201 data=items font-family=Sans font-size=9 backcolor="
           "#808080 shadowcolor=#808080 highlightcolor=#FFFFFF headerbackcolor=#D4D0C8 "
           "headerforecolor=#000000 checkcolor=#D4D0C8 dkshadowcolor=#404040 headeroverforecolor="
           "#000000 itemdownbackcolor=#808080 itemdownforecolor=#FFFFFF itemforecolor=#FFFFFF "
           "itemoverbackcolor=#808080 itemoverforecolor=#FFFFFF defaultmaskcolor=#C0C0C0 style=0 "
           "playsounds=True oledrag=0 oledrop=3 scroll=120 smooth=True tooltips=True snditemurl= "
           "sndhdrupurl= sndhdrdownurl= navtrack=True syssounds=True autowheel=False "
           "alwaysshowfirsthdr=True moveclick=False staydown=False underlineonmove=False icons= "
           "smallicons=";
    QTest::newRow("colours, numbers, Booleans") << Setup([](Quiver &q) {
        QFont font = q.Font();
        font.setPointSizeF(8.25);
        q.setFont(font);
        q.setCheckColor(0x336699);
        q.setStyle(qvStyleVisualStudio);
        q.setPlaySounds(false);
        q.Navigation()->setEnabled(false);
        auto *images = new QObject(&q);
        images->setObjectName("largeImages");
        q.setIcons(images);
    })
                                                << " font-size=8.25 | checkcolor=#996633 | style=4 | "
                                                   "playsounds=False | navtrack=False | icons=largeImages ";
}

void tst_Xml::writeStyle()
{
    QFETCH(Setup, setup);
    QFETCH(QString, attribute);
    Quiver quiver;
    quiver.InitProperties();
    quiver.setPalette(classicPalette());
    QFont font(QStringLiteral("Sans"), 9);
    quiver.setFont(font);
    setup(quiver);
    const QString root = elementLines(quiver.XML()).first() + u' ';
    for (const QString &part : attribute.split(u'|'))
        QVERIFY2(root.contains(part), qPrintable(part));
}

void tst_Xml::writeMembers_data()
{
    QTest::addColumn<Setup>("setup");
    QTest::addColumn<QStringList>("lines");

    QTest::newRow("defaults") << Setup([](Quiver &q) { q.Headers()->at(1)->Items()->Add(0, "a", "A"); })
                              << QStringList { FirstHeaderElement, "item caption=A key=a index=1" };
    QTest::newRow("header that differs")
        << Setup([](Quiver &q) {
               Header *h = q.Headers()->Add(0, "two", "Two", qvViewSmallIcons);
               h->setToolTipText("TWO");
               h->setEnabled(false);
               h->setTag(7);
               h->setVisible(false);
           })
        << QStringList { FirstHeaderElement,
                         "header caption=Two key=two index=2 enabled=False tooltiptext=TWO "
                         "visible=False tag=7 view=1" };
    QTest::newRow("item that differs")
        << Setup([](Quiver &q) {
               Item *i = q.Headers()->at(1)->Items()->Add(0, "b", "B", "3", "small");
               i->setEnabled(false);
               i->setToolTipText("tip");
               i->setVisible(false);
               i->setTag(true);
               i->setForeColor(0x0000FF);
               i->setMaskColor(SystemColors::ButtonFace);
               i->setBold(true);
               i->setURLIcon("http://x/big.png");
               i->setURLSmallIcon("http://x/small.png");
               q.Headers()->at(1)->Items()->Add(0, "c", "C")->setSelected(false);
           })
        << QStringList { FirstHeaderElement,
                         "item caption=B key=b index=1 enabled=False tooltiptext=tip visible=False tag=True "
                         "itemforecolor=255 maskcolor=-2147483633 bold=True icon=3 smallicon=small "
                         "urlicon=http://x/big.png urlsmallicon=http://x/small.png",
                         "item caption=C key=c index=2 selected=True" };
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
                         "item caption=E key=e index=2 bold=False", "item caption=C key=c index=3 bold=False",
                         "item caption=B key=b index=4" };
}

void tst_Xml::writeMembers()
{
    QFETCH(Setup, setup);
    QFETCH(QStringList, lines);
    Quiver quiver;
    quiver.InitProperties();
    setup(quiver);
    QCOMPARE(elementLines(quiver.XML()).mid(1), lines);
}

void tst_Xml::writeFragmentAndHistory()
{
    Quiver quiver;
    quiver.InitProperties();
    quiver.Headers()->at(1)->Items()->Add(0, "a", "A")->setToolTipText("tip");
    QCOMPARE(quiver.Headers()->at(1)->XML(),
             "<?xml version=\"1.0\"?><orrinquiver version=\"201\" data=\"items\"><header "
             "filter-src=\"NEW_HEADER00001\"><item caption=\"A\" key=\"a\" index=\"1\" tooltiptext=\"tip\"/>"
             "</header></orrinquiver>");
    Navigation *navigation = quiver.Navigation();
    navigation->Clear();
    navigation->Record("h1", "i1");
    navigation->Record("h2", "i<2>");
    navigation->GoBack();
    QCOMPARE(elementLines(navigation->HistoryXML()),
             (QStringList { "orrinquiver version=201 data=history", "history header=h1 item=i1",
                            "history header=h2 item=i<2>" }));
}

void tst_Xml::readErrors_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("description");

    for (const char *file :
         { "broken-not-xml.xml", "broken-empty.xml", "broken-truncated.xml", "broken-wrong-root.xml",
           "broken-root-case.xml", "broken-two-roots.xml", "broken-mismatched-tags.xml" })
        QTest::newRow(file) << file << int(qvErrorXMLInvalidContent) << InvalidContent;
    const QString version
        = QStringLiteral("Invalid Quiver XML version in XML content%1 - current version is 201");
    QTest::newRow("199") << "broken-version-199.xml" << int(qvErrorXMLInvalidVersion) << version.arg(199);
    QTest::newRow("202") << "broken-version-202.xml" << int(qvErrorXMLInvalidVersion) << version.arg(202);
    QTest::newRow("none") << "broken-version-missing.xml" << int(qvErrorXMLInvalidVersion) << version.arg("");
    QTest::newRow("text") << "broken-version-text.xml" << int(qvErrorXMLInvalidVersion)
                          << version.arg("two hundred");
}

void tst_Xml::readErrors()
{
    QFETCH(QString, file);
    QFETCH(int, number);
    QFETCH(QString, description);
    Quiver quiver;
    quiver.InitProperties();
    quiver.Headers()->at(1)->Items()->Add(0, "kept", "Kept");
    const QString before = quiver.XML();
    QCOMPARE(errorOf([&] { quiver.setXML(fixture(file)); }), std::make_pair(number, description));
    QCOMPARE(quiver.XML(), before);
}

void tst_Xml::readContent_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QStringList>("lines");

    QTest::newRow("version 201") << "control-201.xml"
                                 << QStringList {
                                        "H mail Mail 1",
                                        "I inbox Inbox 1 icon=1",
                                        "I sent Sent 2 disabled tip=Sent mail tag=archive mask=8000000f bold "
                                        "icon=sent16",
                                        "H tasks Tasks 2 tip=To do tag=42 selected small view",
                                        "I today Today 1 hidden",
                                        "I later Later 2 selected icon=file:///nonexistent/later.png"
                                    };
    QTest::newRow("version 200") << "control-200.xml"
                                 << QStringList { "H old Old 1 selected small view", "I first First 1" };
    QTest::newRow("other data appends")
        << "append.xml" << QStringList { FirstHeader, "H added Added 2", "I one One 1" };
    QTest::newRow("header attribute stops all")
        << "header-stop.xml"
        << QStringList { "H read Read 1 selected", "I kept Kept 1", "H NEW_HEADER00003 Stops 2 not live" };
    QTest::newRow("header value stops all")
        << "header-bad-value.xml" << QStringList { "H NEW_HEADER00002 Stops 1 selected not live" };
    QTest::newRow("itemforecolor stops items")
        << "itemforecolor-stop.xml"
        << QStringList { "H colours Colours 1 selected", "I plain Plain 1", "I red Red 2 not live",
                         "H next Next 2", "I still Still read 1" };
    QTest::newRow("item value stops items")
        << "item-bad-value.xml"
        << QStringList { "H bad Bad 1 selected", "I before Before 1", "I broken Broken 2 not live",
                         "H good Good 2", "I fine Fine 1" };
    QTest::newRow("fragment stops at filter-src")
        << "header-fragment.xml" << QStringList { "H NEW_HEADER00002  1 selected not live" };
    QTest::newRow("taken keys replaced")
        << "key-clash.xml"
        << QStringList { "H mail Mail 1 selected", "H HEADER00004 Other 2", "H HEADER00006 Third 3" };
}

void tst_Xml::readContent()
{
    QFETCH(QString, file);
    QFETCH(QStringList, lines);
    Quiver quiver;
    quiver.InitProperties();
    quiver.setXML(fixture(file));
    QCOMPARE(outline(quiver), lines);
    const QStringList problems = checkModel(*quiver.Headers());
    QVERIFY2(problems.isEmpty(), qPrintable(problems.join(u'\n')));
}

void tst_Xml::readStyle_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("values");

    // Font size, ItemForeColor, HighlightColor (after ShadowColor), Style, ScrollDelay, SmoothScroll,
    // ShowToolTips, BackColor, CheckColor.
    QTest::newRow("201") << "control-201.xml"
                         << "11.5 332211 908070 3 300 0 0 302010 30201";
    QTest::newRow("200 ignores style") << "control-200.xml"
                                       << "9 80000005 80000014 0 120 1 1 80000010 8000000f";
    QTest::newRow("skips and colour names") << "style-skips.xml"
                                            << "9 80000005 80000014 0 300 1 0 0 ff";
}

void tst_Xml::readStyle()
{
    QFETCH(QString, file);
    QFETCH(QString, values);
    Quiver quiver;
    quiver.InitProperties();
    quiver.setFont(QFont(QStringLiteral("Sans"), 9));
    quiver.setXML(fixture(file));
    const QStringList actual {
        QString::number(quiver.Font().pointSizeF()),  QString::number(quiver.ItemForeColor(), 16),
        QString::number(quiver.HighlightColor(), 16), QString::number(quiver.Style()),
        QString::number(quiver.ScrollDelay()),        QString::number(quiver.SmoothScroll()),
        QString::number(quiver.ShowToolTips()),       QString::number(quiver.BackColor(), 16),
        QString::number(quiver.CheckColor(), 16)
    };
    QCOMPARE(actual.join(u' '), values);
}

void tst_Xml::readFragment_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<int>("number");
    QTest::addColumn<QStringList>("lines");

    const QStringList untouched { FirstHeader, "I old Old 1" };
    QTest::newRow("replaces the items")
        << "header-fragment.xml" << 0
        << QStringList { FirstHeader, "I alpha Alpha 1", "I beta Beta 7 tip=Second" };
    QTest::newRow("version not checked") << "broken-version-199.xml" << 0 << QStringList { FirstHeader };
    QTest::newRow("no header") << "broken-fragment-no-header.xml" << int(qvErrorXMLInvalidContent)
                               << untouched;
    QTest::newRow("not xml") << "broken-not-xml.xml" << int(qvErrorXMLInvalidContent) << untouched;
}

void tst_Xml::readFragment()
{
    QFETCH(QString, file);
    QFETCH(int, number);
    QFETCH(QStringList, lines);
    Quiver quiver;
    quiver.InitProperties();
    Header *header = quiver.Headers()->at(1);
    header->Items()->Add(0, "old", "Old");
    QCOMPARE(errorOf([&] { header->setXML(fixture(file)); }).first, number);
    QCOMPARE(outline(quiver), lines);
}

void tst_Xml::readItemKeys_data()
{
    QTest::addColumn<QString>("items");
    QTest::addColumn<QString>("keys");

    // The keys read, then the key the next Items.Add() generates: taken keys
    // and generated ones use up the collection's counter alike.
    QTest::newRow("free keys") << "<item caption='A' key='a'/><item caption='B' key='b'/>"
                               << "a b NEW_ITEM00003";
    QTest::newRow("key before caption") << "<item key='a' caption='A'/>" << "a NEW_ITEM00002";
    QTest::newRow("key equal to its own caption") << "<item caption='Same' key='same'/>" << "same NEW_ITEM00002";
    QTest::newRow("key taken in another case") << "<item key='a'/><item key='A'/>" << "a ITEM00003 NEW_ITEM00004";
    QTest::newRow("key equal to an earlier caption")
        << "<item caption='Mail' key='m'/><item key='mail'/>" << "m ITEM00003 NEW_ITEM00004";
    QTest::newRow("empty key") << "<item caption='A' key=''/>" << "ITEM00002 NEW_ITEM00003";
    QTest::newRow("no key") << "<item caption='A'/>" << "NEW_ITEM00001 NEW_ITEM00002";
    QTest::newRow("a stop before the key") << "<item index='x' key='k'/>" << "NEW_ITEM00001 NEW_ITEM00002";
    QTest::newRow("names in any letter case") << "<item CAPTION='A' Key='a'/><item caption='B' KEY='b'/>"
                                              << "a b NEW_ITEM00003";
}

void tst_Xml::readItemKeys()
{
    QFETCH(QString, items);
    QFETCH(QString, keys);
    Quiver quiver;
    quiver.InitProperties();
    Header *header = quiver.Headers()->at(1);
    header->setXML(fragmentOf(items));
    header->Items()->Add();
    QStringList actual;
    for (const Item *item : *header->Items())
        actual << item->Key();
    QCOMPARE(actual.join(u' '), keys);
    const QStringList problems = checkModel(*quiver.Headers());
    QVERIFY2(problems.isEmpty(), qPrintable(problems.join(u'\n')));
}

void tst_Xml::readItemValues_data()
{
    QTest::addColumn<QString>("items");
    QTest::addColumn<QStringList>("lines");

    QTest::newRow("index with blanks and a sign")
        << "<item key='a' index=' 7 '/><item key='b' index='+3'/><item key='c' index='-2'/>"
        << QStringList { "I a  7", "I b  3", "I c  -2" };
    QTest::newRow("index rounded half to even") << "<item key='a' index='2.5'/><item key='b' index='3.5e0'/>"
                                                << QStringList { "I a  2", "I b  4" };
    QTest::newRow("index beyond a Long stops the items")
        << "<item key='a' index='2147483648'/><item key='b'/>" << QStringList { "I a  1 not live" };
    QTest::newRow("negative colour is a system colour")
        << "<item key='a' maskcolor='-2147483633' forecolor='255'/>"
        << QStringList { "I a  1 fore=ff mask=8000000f" };
    QTest::newRow("every spelling of a name")
        << "<item caption='A' key='a' tooltiptext='t'/><item Caption='B' key='b' ToolTipText='u'/>"
           "<item CAPTION='C' key='c' TOOLTIPTEXT='v'/>"
        << QStringList { "I a A 1 tip=t", "I b B 2 tip=u", "I c C 3 tip=v" };
}

void tst_Xml::readItemValues()
{
    QFETCH(QString, items);
    QFETCH(QStringList, lines);
    Quiver quiver;
    quiver.InitProperties();
    quiver.Headers()->at(1)->setXML(fragmentOf(items));
    QCOMPARE(outline(quiver).mid(1), lines);
}

void tst_Xml::callsThatReachTheControl()
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
        return QStringList { QStringLiteral("addItemWindow(1,%1)").arg(first), "relayoutItems(false)",
                             "redrawItem(1)", QStringLiteral("addItemWindow(2,%1)").arg(second),
                             "relayoutItems(false)", "redrawItem(2)" };
    };
    QCOMPARE(link.view(1)->take(), added("Inbox", "Sent"));
    QCOMPARE(link.view(2)->take(), QStringList { "setView(1)" } + added("Today", "Later"));
}

void tst_Xml::noMemoryForTheDocument()
{
    Quiver quiver;
    pugi::set_memory_management_functions(failingAllocate, std::free);
    const auto error = errorOf([&] { quiver.setXML(fixture("control-201.xml")); });
    pugi::set_memory_management_functions(std::malloc, std::free);
    QCOMPARE(error,
             std::make_pair(int(qvErrorXMLParserNotPresent),
                            QStringLiteral("MSXML or MSXML3 not found during XML operation")));
}

void tst_Xml::scriptGetsTheError()
{
    QJSEngine engine;
    engine.globalObject().setProperty("q", engine.newQObject(new Quiver));
    const QJSValue result = engine.evaluate("try { q.XML = '<quiver/>'; 'no error' } "
                                            "catch (e) { e.number + ': ' + e.message }");
    QCOMPARE(result.toString(), QString::number(qvErrorXMLInvalidContent) + ": " + InvalidContent);
}

void tst_Xml::roundTrip_data()
{
    QTest::addColumn<Setup>("setup");

    QTest::newRow("new control") << Setup([](Quiver &) {});
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

void tst_Xml::roundTrip()
{
    QFETCH(Setup, setup);
    Quiver source;
    source.InitProperties();
    setup(source);
    const QString xml = source.XML();
    Quiver copy;
    copy.InitProperties();
    copy.setXML(xml);
    QCOMPARE(copy.XML(), xml);
    QCOMPARE(outline(copy), outline(source));
}

QTEST_MAIN(tst_Xml)
#include "tst_xml.moc"
