#include "XmlTestSupport.h"

#include "model/ModelChecker.h"
#include "model/Navigation.h"
#include "platform/SystemColors.h"

#include <QtQml/QJSEngine>
#include <QtTest/QTest>

#include <pugixml.hpp>

#include <cstdlib>

using namespace OrrinQuiver;

namespace {

const QString FirstHeader = QStringLiteral("H NEW_HEADER00001 Header 1 1 selected");
const QString InvalidContent = QStringLiteral("Invalid XML content supplied");

void *failingAllocate(size_t)
{
    return nullptr;
}

} // namespace

class tst_XmlReader : public QObject
{
    Q_OBJECT

private slots:
    void errors_data();
    void errors();
    void content_data();
    void content();
    void style_data();
    void style();
    void headerFragment_data();
    void headerFragment();
    void noMemoryForTheDocument();
    void scriptGetsTheError();
    void roundTrip_data();
    void roundTrip();
};

void tst_XmlReader::errors_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<int>("number");
    QTest::addColumn<QString>("description");

    const QString version = QStringLiteral("Invalid Quiver XML version in XML content%1 - current version is 201");
    for (const char *file : {"broken-not-xml.xml", "broken-empty.xml", "broken-truncated.xml",
                             "broken-wrong-root.xml", "broken-root-case.xml", "broken-two-roots.xml",
                             "broken-mismatched-tags.xml"})
        QTest::newRow(file) << file << int(qvErrorXMLInvalidContent) << InvalidContent;
    QTest::newRow("version 199") << "broken-version-199.xml" << int(qvErrorXMLInvalidVersion) << version.arg(199);
    QTest::newRow("version 202") << "broken-version-202.xml" << int(qvErrorXMLInvalidVersion) << version.arg(202);
    QTest::newRow("no version") << "broken-version-missing.xml" << int(qvErrorXMLInvalidVersion) << version.arg("");
    QTest::newRow("version text") << "broken-version-text.xml" << int(qvErrorXMLInvalidVersion)
                                  << version.arg("two hundred");
}

void tst_XmlReader::errors()
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

void tst_XmlReader::content_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QStringList>("lines");

    QTest::newRow("version 201") << "control-201.xml"
                                 << QStringList{"H mail Mail 1", "I inbox Inbox 1 icon=1",
                                                "I sent Sent 2 disabled tip=Sent mail tag=archive mask=8000000f bold "
                                                "icon=sent16",
                                                "H tasks Tasks 2 tip=To do tag=42 selected small view",
                                                "I today Today 1 hidden",
                                                "I later Later 2 selected url=file:///nonexistent/later.png"};
    QTest::newRow("version 200") << "control-200.xml"
                                 << QStringList{"H old Old 1 selected small view", "I first First 1"};
    QTest::newRow("other data appends") << "append.xml" << QStringList{FirstHeader, "H added Added 2", "I one One 1"};
    QTest::newRow("unknown header attribute ends all")
        << "header-stop.xml" << QStringList{"H read Read 1 selected", "I kept Kept 1", "H NEW_HEADER00003 Stops 2 not live"};
    QTest::newRow("bad header value ends all")
        << "header-bad-value.xml" << QStringList{"H NEW_HEADER00002 Stops 1 selected not live"};
    QTest::newRow("itemforecolor ends its header's items")
        << "itemforecolor-stop.xml"
        << QStringList{"H colours Colours 1 selected", "I plain Plain 1", "I red Red 2 not live", "H next Next 2",
                       "I still Still read 1"};
    QTest::newRow("bad item value ends its header's items")
        << "item-bad-value.xml"
        << QStringList{"H bad Bad 1 selected", "I before Before 1", "I broken Broken 2 not live", "H good Good 2",
                       "I fine Fine 1"};
    QTest::newRow("header fragment stops at filter-src")
        << "header-fragment.xml" << QStringList{"H NEW_HEADER00002  1 selected not live"};
    QTest::newRow("taken keys are replaced")
        << "key-clash.xml" << QStringList{"H mail Mail 1 selected", "H HEADER00004 Other 2", "H HEADER00006 Third 3"};
}

void tst_XmlReader::content()
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

void tst_XmlReader::style_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("property");
    QTest::addColumn<QVariant>("expected");

    QTest::newRow("201 colour") << "control-201.xml" << QByteArray("ItemForeColor") << QVariant(0x332211u);
    QTest::newRow("201 shadow, then highlight") << "control-201.xml" << QByteArray("HighlightColor")
                                                << QVariant(0x908070u);
    QTest::newRow("201 style") << "control-201.xml" << QByteArray("Style") << QVariant::fromValue(qvStyleWindowsXP);
    QTest::newRow("201 boolean") << "control-201.xml" << QByteArray("ItemsStayDownWithClick") << QVariant(true);
    QTest::newRow("201 font size") << "control-201.xml" << QByteArray("Font") << QVariant(11.5);
    QTest::newRow("200 ignores style") << "control-200.xml" << QByteArray("ScrollDelay") << QVariant(120);
    QTest::newRow("200 ignores font") << "control-200.xml" << QByteArray("Font") << QVariant(-1.0);
    QTest::newRow("wrong-case name skipped") << "style-skips.xml" << QByteArray("Style")
                                             << QVariant::fromValue(qvStyleOutlook);
    QTest::newRow("number") << "style-skips.xml" << QByteArray("ScrollDelay") << QVariant(300);
    QTest::newRow("unreadable boolean skipped") << "style-skips.xml" << QByteArray("SmoothScroll") << QVariant(true);
    QTest::newRow("boolean as a number") << "style-skips.xml" << QByteArray("ShowToolTips") << QVariant(false);
    QTest::newRow("unknown colour name is black") << "style-skips.xml" << QByteArray("BackColor") << QVariant(0u);
    QTest::newRow("vb colour name") << "style-skips.xml" << QByteArray("CheckColor") << QVariant(0x0000FFu);
}

void tst_XmlReader::style()
{
    QFETCH(QString, file);
    QFETCH(QByteArray, property);
    QFETCH(QVariant, expected);
    Quiver quiver;
    quiver.InitProperties();
    const double initialSize = quiver.Font().pointSizeF();
    quiver.setXML(fixture(file));
    QVariant value = quiver.property(property);
    // Font rows check the point size; -1 stands for the size the control started with.
    if (property == "Font")
        value = quiver.Font().pointSizeF() == initialSize ? -1.0 : quiver.Font().pointSizeF();
    QCOMPARE(value.toString(), expected.toString());
}

void tst_XmlReader::headerFragment_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("number");
    QTest::addColumn<QStringList>("lines");

    const QStringList untouched{FirstHeader, "I old Old 1"};
    QTest::newRow("replaces the items") << fixture("header-fragment.xml") << 0
                                        << QStringList{FirstHeader, "I alpha Alpha 1", "I beta Beta 7 tip=Second"};
    QTest::newRow("version not checked") << fixture("broken-version-199.xml") << 0 << QStringList{FirstHeader};
    QTest::newRow("no header element") << fixture("broken-fragment-no-header.xml")
                                       << int(qvErrorXMLInvalidContent) << untouched;
    QTest::newRow("wrong root") << fixture("broken-wrong-root.xml") << int(qvErrorXMLInvalidContent) << untouched;
    QTest::newRow("not xml") << fixture("broken-not-xml.xml") << int(qvErrorXMLInvalidContent) << untouched;
}

void tst_XmlReader::headerFragment()
{
    QFETCH(QString, text);
    QFETCH(int, number);
    QFETCH(QStringList, lines);
    Quiver quiver;
    quiver.InitProperties();
    Header *header = quiver.Headers()->at(1);
    header->Items()->Add(0, "old", "Old");
    QCOMPARE(errorOf([&] { header->setXML(text); }).first, number);
    QCOMPARE(outline(quiver), lines);
}

void tst_XmlReader::noMemoryForTheDocument()
{
    Quiver quiver;
    pugi::set_memory_management_functions(failingAllocate, std::free);
    const auto error = errorOf([&] { quiver.setXML(fixture("control-201.xml")); });
    pugi::set_memory_management_functions(std::malloc, std::free);
    QCOMPARE(error, std::make_pair(int(qvErrorXMLParserNotPresent),
                                   QStringLiteral("MSXML or MSXML3 not found during XML operation")));
}

void tst_XmlReader::scriptGetsTheError()
{
    QJSEngine engine;
    auto *quiver = new Quiver;
    engine.globalObject().setProperty("q", engine.newQObject(quiver));
    const QJSValue result = engine.evaluate("try { q.XML = '<quiver/>'; 'no error' } "
                                            "catch (e) { e.number + ': ' + e.message }");
    QCOMPARE(result.toString(), QString::number(qvErrorXMLInvalidContent) + ": " + InvalidContent);
}

void tst_XmlReader::roundTrip_data()
{
    QTest::addColumn<Setup>("setup");

    QTest::newRow("new control") << Setup([](Quiver &) {});
    QTest::newRow("fixture content and style") << Setup([](Quiver &q) { q.setXML(fixture("control-201.xml")); });
    QTest::newRow("texts that need escaping") << Setup([](Quiver &q) {
        Header *h = q.Headers()->Add(0, "k<&>\"'", "Line 1\r\nLine 2\tend");
        Item *i = h->Items()->Add(0, "\u00e9\U0001F600", "caption with \"quotes\" & <tags>");
        i->setToolTipText("  spaced  ");
        i->setTag("a\nb");
    });
    QTest::newRow("system colours become fixed") << Setup([](Quiver &q) {
        q.setBackColor(SystemColors::ButtonDarkShadow);
        q.setDefaultMaskColor(SystemColors::ButtonFace);
        q.Headers()->at(1)->Items()->Add(0, "i", "I")->setMaskColor(SystemColors::ButtonText);
    });
    QTest::newRow("second header open with a hidden item selected") << Setup([](Quiver &q) {
        Header *h = q.Headers()->Add(0, "two", "Two", qvViewSmallIcons);
        h->Items()->Add(0, "a", "A");
        Item *b = h->Items()->Add(0, "b", "B", "", "5");
        b->setSelected(true);
        b->setVisible(false);
        b->setBold(true);
        q.Navigation()->setEnabled(false);
    });
}

void tst_XmlReader::roundTrip()
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

QTEST_MAIN(tst_XmlReader)
#include "tst_xmlreader.moc"
