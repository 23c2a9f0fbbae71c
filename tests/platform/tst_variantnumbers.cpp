#include "core/VariantNumbers.h"

#include <QtCore/QVariant>
#include <QtTest/QTest>

using namespace OrrinQuiver;

class tst_VariantNumbers : public QObject
{
    Q_OBJECT

private slots:
    void classify_data();
    void classify();
};

void tst_VariantNumbers::classify_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<bool>("integral");
    QTest::addColumn<bool>("floating");
    QTest::addColumn<bool>("character");

    QTest::newRow("int") << QVariant(3) << true << false << false;
    QTest::newRow("unsigned long long") << QVariant::fromValue(Q_UINT64_C(3)) << true << false << false;
    QTest::newRow("short") << QVariant::fromValue(qint16(-3)) << true << false << false;
    QTest::newRow("char") << QVariant::fromValue('3') << true << false << true;
    QTest::newRow("signed char") << QVariant::fromValue(static_cast<signed char>(3)) << true << false << true;
    QTest::newRow("unsigned char") << QVariant::fromValue(quint8(3)) << true << false << true;
    QTest::newRow("double") << QVariant(2.5) << false << true << false;
    QTest::newRow("float") << QVariant(2.5f) << false << true << false;
    QTest::newRow("bool") << QVariant(true) << false << false << false;
    QTest::newRow("QChar") << QVariant(QChar(u'3')) << false << false << false;
    QTest::newRow("numeric text") << QVariant(QStringLiteral("3")) << false << false << false;
    QTest::newRow("empty") << QVariant() << false << false << false;
}

void tst_VariantNumbers::classify()
{
    QFETCH(QVariant, value);
    QFETCH(bool, integral);
    QFETCH(bool, floating);
    QFETCH(bool, character);
    QCOMPARE(isIntegralVariant(value), integral);
    QCOMPARE(isFloatingVariant(value), floating);
    QCOMPARE(isNumericVariant(value), integral || floating);
    QCOMPARE(isCharVariant(value), character);
}

QTEST_MAIN(tst_VariantNumbers)
#include "tst_variantnumbers.moc"
