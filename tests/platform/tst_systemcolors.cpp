#include "platform/SystemColors.h"

#include <QtTest/QTest>

using namespace OrrinQuiver;

class tst_SystemColors : public QObject
{
    Q_OBJECT

private slots:
    void translate_data();
    void translate();
    void followsPalette();
};

void tst_SystemColors::translate_data()
{
    QTest::addColumn<quint32>("color");
    QTest::addColumn<QColor>("expected");

    QTest::newRow("rgb is BGR") << quint32(0x00336699) << QColor(0x99, 0x66, 0x33);
    QTest::newRow("button face") << quint32(0x8000000F) << QColor(212, 208, 200);
    QTest::newRow("button shadow") << quint32(0x80000010) << QColor(128, 128, 128);
    QTest::newRow("window") << quint32(0x80000005) << QColor(255, 255, 255);
    QTest::newRow("dark shadow") << quint32(0x80000015) << QColor(64, 64, 64);
    QTest::newRow("active caption, no role") << quint32(0x80000002) << QColor(10, 36, 106);
    QTest::newRow("unknown index") << quint32(0x800000FE) << QColor(Qt::black);
    QTest::newRow("high byte of rgb ignored") << quint32(0x01FFFFFF) << QColor(255, 255, 255);
}

void tst_SystemColors::translate()
{
    QFETCH(quint32, color);
    QFETCH(QColor, expected);
    QCOMPARE(translateColor(color, classicPalette()), expected);
}

void tst_SystemColors::followsPalette()
{
    QPalette dark = classicPalette();
    dark.setColor(QPalette::Active, QPalette::Button, QColor(40, 40, 40));
    QCOMPARE(translateColor(SystemColors::ButtonFace, dark), QColor(40, 40, 40));
    // A colour without a palette role stays at its classic value.
    QCOMPARE(translateColor(SystemColors::ActiveCaption, dark), QColor(10, 36, 106));
}

QTEST_MAIN(tst_SystemColors)
#include "tst_systemcolors.moc"
