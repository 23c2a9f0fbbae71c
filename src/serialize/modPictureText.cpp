#include "serialize/modPictureText.h"

#include <QtCore/QBuffer>
#include <QtGui/QBitmap>
#include <QtGui/QCursor>
#include <QtGui/QIcon>
#include <QtGui/QImage>
#include <QtGui/QPixmap>

namespace OrrinQuiver::modPictureText {

namespace {

const QString CursorPrefix = QStringLiteral("cursor:");
const QString IconPrefix = QStringLiteral("icon:");
constexpr char16_t FieldSeparator = u':';
constexpr char16_t HotSpotSeparator = u',';
// The size an icon is kept at when it has no size of its own (one made by an
// icon engine draws at any size): the control's large icon size.
constexpr int FallbackIconSize = 32;

QString pngText(const QPixmap &pixmap)
{
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    pixmap.save(&buffer, "PNG");
    return QString::fromLatin1(png.toBase64());
}

QPixmap pngPixmap(QStringView text)
{
    const auto decoded
        = QByteArray::fromBase64Encoding(text.toLatin1(), QByteArray::AbortOnBase64DecodingErrors);
    QPixmap pixmap;
    if (decoded)
        pixmap.loadFromData(*decoded, "PNG");
    return pixmap;
}

// A two-colour cursor as a picture: black and white where its mask is set,
// clear elsewhere.
QPixmap bitmapCursorPixmap(const QCursor &cursor)
{
    const QImage bits = cursor.bitmap().toImage().convertToFormat(QImage::Format_Mono);
    const QImage mask = cursor.mask().toImage().convertToFormat(QImage::Format_Mono);
    QImage image(bits.size(), QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (mask.isNull() || mask.pixelIndex(x, y) == Qt::color1)
                image.setPixel(x, y,
                               bits.pixelIndex(x, y) == Qt::color1 ? qRgb(0, 0, 0) : qRgb(255, 255, 255));
        }
    }
    return QPixmap::fromImage(image);
}

QString cursorText(const QCursor &cursor)
{
    if (cursor.shape() != Qt::BitmapCursor)
        return CursorPrefix + QString::number(int(cursor.shape()));
    const QPixmap pixmap = cursor.pixmap().isNull() ? bitmapCursorPixmap(cursor) : cursor.pixmap();
    if (pixmap.isNull())
        return {};
    const QPoint hot = cursor.hotSpot();
    return CursorPrefix + QString::number(hot.x()) + HotSpotSeparator + QString::number(hot.y())
        + FieldSeparator + pngText(pixmap);
}

QString iconText(const QIcon &icon)
{
    if (icon.isNull())
        return {};
    const QList<QSize> sizes = icon.availableSizes();
    const QPixmap pixmap
        = icon.pixmap(sizes.isEmpty() ? QSize(FallbackIconSize, FallbackIconSize) : sizes.first());
    return pixmap.isNull() ? QString() : IconPrefix + pngText(pixmap);
}

QVariant cursorFromText(QStringView text)
{
    const qsizetype colon = text.indexOf(FieldSeparator);
    if (colon < 0) {
        bool ok = false;
        const int shape = text.toInt(&ok);
        if (!ok || shape < 0 || shape > Qt::LastCursor)
            return {};
        return QVariant::fromValue(QCursor(Qt::CursorShape(shape)));
    }
    const auto hot = text.first(colon).split(HotSpotSeparator);
    bool xOk = false;
    bool yOk = false;
    const int x = hot.size() == 2 ? hot.at(0).toInt(&xOk) : 0;
    const int y = hot.size() == 2 ? hot.at(1).toInt(&yOk) : 0;
    if (!xOk || !yOk)
        return {};
    const QPixmap pixmap = pngPixmap(text.sliced(colon + 1));
    if (pixmap.isNull())
        return {};
    return QVariant::fromValue(QCursor(pixmap, x, y));
}

} // namespace

QString pictureToText(const QVariant &picture)
{
    if (picture.typeId() == QMetaType::QCursor)
        return cursorText(picture.value<QCursor>());
    if (picture.typeId() == QMetaType::QIcon)
        return iconText(picture.value<QIcon>());
    return {};
}

QVariant textToPicture(const QString &text)
{
    if (text.startsWith(CursorPrefix))
        return cursorFromText(QStringView(text).sliced(CursorPrefix.size()));
    if (text.startsWith(IconPrefix)) {
        const QPixmap pixmap = pngPixmap(QStringView(text).sliced(IconPrefix.size()));
        if (!pixmap.isNull())
            return QVariant::fromValue(QIcon(pixmap));
    }
    return {};
}

} // namespace OrrinQuiver::modPictureText
