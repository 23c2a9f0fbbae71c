#include "XmlTestSupport.h"

#include "model/Navigation.h"
#include "platform/SystemColors.h"

#include <QtTest/QTest>

using namespace OrrinQuiver;

class tst_XmlWriter : public QObject
{
    Q_OBJECT

private slots:
    void root();
    void style_data();
    void style();
    void members_data();
    void members();
    void headerFragment();
    void history();
};

void tst_XmlWriter::root()
{
    Quiver quiver;
    quiver.InitProperties();
    const QString xml = quiver.XML();
    QVERIFY(xml.startsWith(QStringLiteral("<?xml version=\"1.0\"?>")));
    QXmlStreamReader reader(xml);
    reader.readNextStartElement();
    QStringList names{reader.name().toString()};
    for (const QXmlStreamAttribute &attribute : reader.attributes())
        names << attribute.name().toString();
    QCOMPARE(names.join(u' '),
             QStringLiteral("orrinquiver version data font-family font-size backcolor shadowcolor "
                            "highlightcolor headerbackcolor headerforecolor checkcolor dkshadowcolor "
                            "headeroverforecolor itemdownbackcolor itemdownforecolor itemforecolor "
                            "itemoverbackcolor itemoverforecolor defaultmaskcolor style playsounds oledrag "
                            "oledrop scroll smooth tooltips snditemurl sndhdrupurl sndhdrdownurl navtrack "
                            "syssounds autowheel alwaysshowfirsthdr moveclick staydown underlineonmove icons "
                            "smallicons"));
    QVERIFY(xml.contains(QStringLiteral("<orrinquiver version=\"201\" data=\"items\" ")));
}

void tst_XmlWriter::style_data()
{
    QTest::addColumn<Setup>("setup");
    QTest::addColumn<QString>("attribute");

    QTest::newRow("system colour as its palette value")
        << Setup([](Quiver &q) { q.setBackColor(SystemColors::ButtonFace); }) << "backcolor=\"#D4D0C8\"";
    QTest::newRow("rgb colour") << Setup([](Quiver &q) { q.setCheckColor(0x336699); }) << "checkcolor=\"#996633\"";
    QTest::newRow("font size with a fraction") << Setup([](Quiver &q) {
        QFont font = q.Font();
        font.setPointSizeF(8.25);
        q.setFont(font);
    }) << "font-size=\"8.25\"";
    QTest::newRow("style number") << Setup([](Quiver &q) { q.setStyle(qvStyleVisualStudio); }) << "style=\"4\"";
    QTest::newRow("boolean false") << Setup([](Quiver &q) { q.setPlaySounds(false); }) << "playsounds=\"False\"";
    QTest::newRow("history recording") << Setup([](Quiver &q) { q.Navigation()->setEnabled(false); })
                                       << "navtrack=\"False\"";
    QTest::newRow("image list by name") << Setup([](Quiver &q) {
        auto *images = new QObject(&q);
        images->setObjectName(QStringLiteral("largeImages"));
        q.setIcons(images);
    }) << "icons=\"largeImages\"";
}

void tst_XmlWriter::style()
{
    QFETCH(Setup, setup);
    QFETCH(QString, attribute);
    Quiver quiver;
    quiver.InitProperties();
    quiver.setPalette(classicPalette());
    setup(quiver);
    QVERIFY2(elementLines(quiver.XML()).first().contains(u' ' + attribute.remove(u'"')), qPrintable(attribute));
}

void tst_XmlWriter::members_data()
{
    QTest::addColumn<Setup>("setup");
    QTest::addColumn<QStringList>("lines");

    const QString first = QStringLiteral("header caption=Header 1 key=NEW_HEADER00001 index=1 selected=True view=0");
    QTest::newRow("defaults") << Setup([](Quiver &q) { q.Headers()->at(1)->Items()->Add(0, "a", "A"); })
                              << QStringList{first, "item caption=A key=a index=1"};
    QTest::newRow("header that differs") << Setup([](Quiver &q) {
        Header *h = q.Headers()->Add(0, "two", "Two", qvViewSmallIcons);
        h->setToolTipText("TWO");
        h->setEnabled(false);
        h->setTag(7);
        h->setVisible(false);
    }) << QStringList{first, "header caption=Two key=two index=2 enabled=False tooltiptext=TWO visible=False "
                             "tag=7 view=1"};
    QTest::newRow("item that differs") << Setup([](Quiver &q) {
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
    }) << QStringList{first, "item caption=B key=b index=1 enabled=False tooltiptext=tip visible=False tag=True "
                             "itemforecolor=255 maskcolor=-2147483633 bold=True icon=3 smallicon=small "
                             "urlicon=http://x/big.png urlsmallicon=http://x/small.png"};
    QTest::newRow("object and empty tags, control's own colours") << Setup([](Quiver &q) {
        Items *items = q.Headers()->at(1)->Items();
        items->Add(0, "o", "O")->setTag(QVariant::fromValue<QObject *>(&q));
        items->Add(0, "e", "E")->setTag(QString());
        items->Add(0, "c", "C")->setForeColor(q.ItemForeColor());
    }) << QStringList{first, "item caption=O key=o index=1", "item caption=E key=e index=2",
                      "item caption=C key=c index=3"};
    QTest::newRow("bold compared with the control's font") << Setup([](Quiver &q) {
        QFont font = q.Font();
        font.setBold(true);
        q.setFont(font);
        q.Headers()->at(1)->Items()->Add(0, "n", "N");
        q.Headers()->at(1)->Items()->Add(0, "b", "B")->setBold(true);
    }) << QStringList{first, "item caption=N key=n index=1 bold=False", "item caption=B key=b index=2"};
    QTest::newRow("selected item") << Setup([](Quiver &q) {
        q.Headers()->at(1)->Items()->Add(0, "a", "A");
        q.Headers()->at(1)->Items()->Add(0, "b", "B")->setSelected(false);
    }) << QStringList{first, "item caption=A key=a index=1", "item caption=B key=b index=2 selected=True"};
}

void tst_XmlWriter::members()
{
    QFETCH(Setup, setup);
    QFETCH(QStringList, lines);
    Quiver quiver;
    quiver.InitProperties();
    setup(quiver);
    QCOMPARE(elementLines(quiver.XML()).mid(1), lines);
}

void tst_XmlWriter::headerFragment()
{
    Quiver quiver;
    quiver.InitProperties();
    Header *header = quiver.Headers()->at(1);
    header->Items()->Add(0, "a", "A")->setToolTipText("tip");
    QCOMPARE(header->XML(), QStringLiteral("<?xml version=\"1.0\"?><orrinquiver version=\"201\" data=\"items\">"
                                           "<header filter-src=\"NEW_HEADER00001\"><item caption=\"A\" key=\"a\" "
                                           "index=\"1\" tooltiptext=\"tip\"/></header></orrinquiver>"));
}

void tst_XmlWriter::history()
{
    Quiver quiver;
    Navigation *navigation = quiver.Navigation();
    QCOMPARE(navigation->HistoryXML(),
             QStringLiteral("<?xml version=\"1.0\"?><orrinquiver version=\"201\" data=\"history\"/>"));
    navigation->setEnabled(true);
    navigation->Record("h1", "i1");
    navigation->Record("h2", "i<2>");
    navigation->GoBack();
    QCOMPARE(elementLines(navigation->HistoryXML()),
             (QStringList{"orrinquiver version=201 data=history", "history header=h1 item=i1",
                          "history header=h2 item=i<2>"}));
}

QTEST_MAIN(tst_XmlWriter)
#include "tst_xmlwriter.moc"
