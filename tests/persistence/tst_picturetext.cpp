#include "serialize/modPictureText.h"

#include <QtGui/QBitmap>
#include <QtGui/QCursor>
#include <QtGui/QIcon>
#include <QtGui/QImage>
#include <QtGui/QPixmap>
#include <QtTest/QTest>

using namespace OrrinQuiver;
using namespace Qt::StringLiterals;

namespace {

QPixmap sample()
{
    QImage image(16, 16, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    for (int i = 0; i < 16; ++i)
        image.setPixel(i, i, qRgb(200, 30, 40));
    return QPixmap::fromImage(image);
}

QImage imageOf(const QVariant &picture)
{
    if (picture.typeId() == QMetaType::QIcon)
        return picture.value<QIcon>().pixmap(16, 16).toImage().convertToFormat(QImage::Format_ARGB32);
    return picture.value<QCursor>().pixmap().toImage().convertToFormat(QImage::Format_ARGB32);
}

} // namespace

class tst_PictureText : public QObject
{
    Q_OBJECT

private slots:
    void roundTrip_data();
    void roundTrip();
    void garbage_data();
    void garbage();
};

void tst_PictureText::roundTrip_data()
{
    QTest::addColumn<QVariant>("picture");
    QTest::addColumn<QString>("prefix");

    QTest::newRow("nothing") << QVariant() << u""_s;
    QTest::newRow("null icon") << QVariant::fromValue(QIcon()) << u""_s;
    QTest::newRow("not a pointer") << QVariant::fromValue(sample()) << u""_s;
    QTest::newRow("shape cursor") << QVariant::fromValue(QCursor(Qt::PointingHandCursor)) << u"cursor:13"_s;
    QTest::newRow("picture cursor") << QVariant::fromValue(QCursor(sample(), 3, 5)) << u"cursor:3,5:"_s;
    QTest::newRow("icon") << QVariant::fromValue(QIcon(sample())) << u"icon:"_s;
}

void tst_PictureText::roundTrip()
{
    QFETCH(QVariant, picture);
    QFETCH(QString, prefix);

    const QString text = modPictureText::pictureToText(picture);
    QVERIFY2(prefix.isEmpty() ? text.isEmpty() : text.startsWith(prefix), qPrintable(text));
    const QVariant back = modPictureText::textToPicture(text);
    if (prefix.isEmpty()) {
        QVERIFY(!back.isValid());
        return;
    }
    QCOMPARE(back.typeId(), picture.typeId());
    if (back.typeId() == QMetaType::QCursor) {
        QCOMPARE(back.value<QCursor>().shape(), picture.value<QCursor>().shape());
        QCOMPARE(back.value<QCursor>().hotSpot(), picture.value<QCursor>().hotSpot());
    }
    if (prefix != u"cursor:13")
        QCOMPARE(imageOf(back), imageOf(picture));
}

void tst_PictureText::garbage_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("unknown form") << u"bitmap:AAAA"_s;
    QTest::newRow("shape out of range") << u"cursor:24"_s;
    QTest::newRow("shape not a number") << u"cursor:hand"_s;
    QTest::newRow("hot spot missing") << u"cursor::iVBORw0KGgo="_s;
    QTest::newRow("not base64") << u"icon:%%%"_s;
    QTest::newRow("not a png") << u"icon:aGVsbG8="_s;
}

void tst_PictureText::garbage()
{
    QFETCH(QString, text);
    QVERIFY(!modPictureText::textToPicture(text).isValid());
}

QTEST_MAIN(tst_PictureText)
#include "tst_picturetext.moc"
