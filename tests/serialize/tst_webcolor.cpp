#include "serialize/modWebColorFuncs.h"

#include "platform/SystemColors.h"

#include <QtTest/QTest>

using namespace OrrinQuiver;

class tst_WebColor : public QObject
{
    Q_OBJECT

private slots:
    void colorToText_data();
    void colorToText();
    void systemColorFollowsPalette();
    void textToColor_data();
    void textToColor();
};

void tst_WebColor::colorToText_data()
{
    QTest::addColumn<quint32>("color");
    QTest::addColumn<QString>("text");

    QTest::newRow("black") << quint32(0) << QStringLiteral("#000000");
    QTest::newRow("white") << quint32(0xFFFFFF) << QStringLiteral("#FFFFFF");
    QTest::newRow("red is the low byte") << quint32(0x0000FF) << QStringLiteral("#FF0000");
    QTest::newRow("blue is the third byte") << quint32(0xFF0000) << QStringLiteral("#0000FF");
    QTest::newRow("single digits padded") << quint32(0x0A0B0C) << QStringLiteral("#0C0B0A");
    QTest::newRow("button face resolved") << quint32(SystemColors::ButtonFace) << QStringLiteral("#D4D0C8");
    QTest::newRow("dark shadow resolved")
        << quint32(SystemColors::ButtonDarkShadow) << QStringLiteral("#404040");
    QTest::newRow("active caption, no palette role")
        << quint32(SystemColors::ActiveCaption) << QStringLiteral("#0A246A");
    QTest::newRow("system colour 0 is black") << quint32(0x80000000) << QStringLiteral("#000000");
    QTest::newRow("unknown system colour is black") << quint32(0x80000100) << QStringLiteral("#000000");
    QTest::newRow("extra digits go to blue") << quint32(0x01FFFFFF) << QStringLiteral("#FFFF1FF");
}

void tst_WebColor::colorToText()
{
    QFETCH(quint32, color);
    QFETCH(QString, text);
    QCOMPARE(modWebColorFuncs::colorToText(color, classicPalette()), text);
}

void tst_WebColor::systemColorFollowsPalette()
{
    QPalette dark = classicPalette();
    dark.setColor(QPalette::Active, QPalette::Button, QColor(0x12, 0x34, 0x56));
    QCOMPARE(modWebColorFuncs::colorToText(SystemColors::ButtonFace, dark), QStringLiteral("#123456"));
}

void tst_WebColor::textToColor_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<quint32>("color");

    const quint32 orange = rgbColor(0xFF, 0x80, 0x00);
    QTest::newRow("hash lower case") << QStringLiteral("#ff8000") << orange;
    QTest::newRow("bare hex") << QStringLiteral("FF8000") << orange;
    QTest::newRow("vb prefix on hex") << QStringLiteral("vbFF8000") << orange;
    QTest::newRow("VB prefix any case") << QStringLiteral("VBff8000") << orange;
    QTest::newRow("vbRed") << QStringLiteral("vbRed") << rgbColor(0xFF, 0, 0);
    QTest::newRow("RED") << QStringLiteral("RED") << rgbColor(0xFF, 0, 0);
    QTest::newRow("Green is pure green") << QStringLiteral("Green") << rgbColor(0, 0xFF, 0);
    QTest::newRow("white") << QStringLiteral("white") << rgbColor(0xFF, 0xFF, 0xFF);
    QTest::newRow("black") << QStringLiteral("Black") << rgbColor(0, 0, 0);
    QTest::newRow("blue") << QStringLiteral("vbBlue") << rgbColor(0, 0, 0xFF);
    QTest::newRow("yellow") << QStringLiteral("yellow") << rgbColor(0xFF, 0xFF, 0);
    QTest::newRow("magenta") << QStringLiteral("MAGENTA") << rgbColor(0xFF, 0, 0xFF);
    QTest::newRow("cyan") << QStringLiteral("cyan") << rgbColor(0, 0xFF, 0xFF);
    QTest::newRow("silver") << QStringLiteral("silver") << rgbColor(0xC0, 0xC0, 0xC0);
    QTest::newRow("name after hash is not a name") << QStringLiteral("#red") << quint32(0);
    QTest::newRow("missing pairs count 0") << QStringLiteral("#123") << rgbColor(0, 0x01, 0x23);
    QTest::newRow("one digit is blue") << QStringLiteral("7") << rgbColor(0, 0, 0x07);
    QTest::newRow("last six characters") << QStringLiteral("1234567") << rgbColor(0x23, 0x45, 0x67);
    QTest::newRow("long text keeps its tail") << QStringLiteral("zzzz#00FF00") << rgbColor(0, 0xFF, 0);
    QTest::newRow("orange is no name") << QStringLiteral("orange") << quint32(0);
    QTest::newRow("xyz") << QStringLiteral("xyz") << quint32(0);
    QTest::newRow("first character not hex") << QStringLiteral("#GG0000") << quint32(0);
    QTest::newRow("inner non-hex counts 0") << QStringLiteral("#1G2233") << rgbColor(0x10, 0x22, 0x33);
    QTest::newRow("empty") << QString() << quint32(0);
    QTest::newRow("only hash") << QStringLiteral("#") << quint32(0);
    QTest::newRow("only vb") << QStringLiteral("vb") << quint32(0);
    QTest::newRow("vb then hash") << QStringLiteral("vb#0000FF") << rgbColor(0, 0, 0xFF);
    QTest::newRow("second hash kept") << QStringLiteral("##FF") << quint32(0);
}

void tst_WebColor::textToColor()
{
    QFETCH(QString, text);
    QFETCH(quint32, color);
    QCOMPARE(modWebColorFuncs::textToColor(text), color);
}

QTEST_MAIN(tst_WebColor)
#include "tst_webcolor.moc"
