#include "platform/PreparedText.h"

#include <QtGui/QFont>
#include <QtGui/QFontMetrics>
#include <QtTest/QTest>

using namespace OrrinQuiver;

// Prepared captions are kept between calls: a kept one must never stand in
// for the same text in another font or at another width.
class tst_PreparedText : public QObject
{
    Q_OBJECT

private slots:
    void keptPerFontAndWidth_data();
    void keptPerFontAndWidth();
};

void tst_PreparedText::keptPerFontAndWidth_data()
{
    QTest::addColumn<bool>("bold");
    QTest::addColumn<int>("width");
    QTest::addColumn<bool>("elided");

    // The rows run in order against one cache, each after the one before.
    QTest::newRow("fits") << false << 1000 << false;
    QTest::newRow("same text, too narrow") << false << 40 << true;
    QTest::newRow("wide again") << false << 1000 << false;
    QTest::newRow("bold, wide") << true << 1000 << false;
    QTest::newRow("bold, too narrow") << true << 40 << true;
    QTest::newRow("no room") << false << -5 << true;
}

void tst_PreparedText::keptPerFontAndWidth()
{
    QFETCH(bool, bold);
    QFETCH(int, width);
    QFETCH(bool, elided);

    const QString caption = QStringLiteral("Deleted Items of the whole year");
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPixelSize(12);
    font.setBold(bold);
    const QFontMetrics metrics(font);

    for (int round = 0; round < 2; ++round) {
        const PreparedText prepared = prepareFittedText(font, caption, width);
        QCOMPARE(prepared.text.text() != caption, elided);
        QCOMPARE(prepared.width, metrics.horizontalAdvance(prepared.text.text()));
        QVERIFY(prepared.width <= qMax(width, 0) || !elided);
    }
}

QTEST_MAIN(tst_PreparedText)
#include "tst_preparedtext.moc"
