#include "imaging/PictureOps_p.h"

#include "platform/SystemColors.h"

#include <QtGui/QGuiApplication>
#include <QtGui/QIcon>
#include <QtGui/QPainter>

#include <algorithm>
#include <vector>

namespace OrrinQuiver::PictureOps {

namespace {

constexpr QRgb RgbMask = 0x00FFFFFFu;

QRgb *line(QImage &image, int y) { return reinterpret_cast<QRgb *>(image.scanLine(y)); }
const QRgb *line(const QImage &image, int y) { return reinterpret_cast<const QRgb *>(image.constScanLine(y)); }

} // namespace

QImage maskedCopy(const QImage &source, const QRect &area, std::optional<QRgb> transparent)
{
    QImage out(area.size(), WorkFormat);
    out.fill(0);
    const QRect inside = area & source.rect();
    if (inside.isEmpty())
        return out;
    const QImage part = (inside == source.rect() ? source : source.copy(inside)).convertToFormat(QImage::Format_ARGB32);
    const QPoint offset = inside.topLeft() - area.topLeft();
    const QRgb key = transparent.value_or(0) & RgbMask;
    const int width = part.width();
    for (int y = 0; y < part.height(); ++y) {
        const QRgb *from = line(part, y);
        QRgb *to = line(out, y + offset.y()) + offset.x();
        for (int x = 0; x < width; ++x) {
            const QRgb p = from[x];
            const bool clear = qAlpha(p) == 0 || (transparent && (p & RgbMask) == key);
            to[x] = clear ? 0 : qPremultiply(p);
        }
    }
    return out;
}

QImage stretched(const QImage &image, const QSize &size)
{
    if (image.size() == size)
        return image;
    return image.scaled(size, Qt::IgnoreAspectRatio, Qt::FastTransformation);
}

QImage floodSilhouette(const QImage &image, const QPoint &seed, const QColor &colour)
{
    QImage out(image.size(), WorkFormat);
    out.fill(0);
    if (!image.rect().contains(seed))
        return out;
    const QImage in = image.convertToFormat(WorkFormat);
    if (qAlpha(line(in, seed.y())[seed.x()]) == 0)
        return out;

    const QRgb paint = qPremultiply(colour.rgba());
    const QRect bounds = in.rect();
    const int w = in.width();
    std::vector<bool> seen(size_t(w) * size_t(in.height()), false);
    std::vector<QPoint> pending{seed};
    seen[size_t(seed.y()) * size_t(w) + size_t(seed.x())] = true;
    while (!pending.empty()) {
        const QPoint p = pending.back();
        pending.pop_back();
        line(out, p.y())[p.x()] = paint;
        for (const QPoint step : {QPoint(1, 0), QPoint(-1, 0), QPoint(0, 1), QPoint(0, -1)}) {
            const QPoint n = p + step;
            if (!bounds.contains(n))
                continue;
            const size_t at = size_t(n.y()) * size_t(w) + size_t(n.x());
            if (seen[at] || qAlpha(line(in, n.y())[n.x()]) == 0)
                continue;
            seen[at] = true;
            pending.push_back(n);
        }
    }
    return out;
}

QImage blended(const QImage &image, const QColor &colour)
{
    const QImage in = image.convertToFormat(WorkFormat);
    QImage out(in.size(), WorkFormat);
    const QRgb opaque = colour.rgb();
    const int width = in.width();
    for (int y = 0; y < in.height(); ++y) {
        const QRgb *from = line(in, y);
        QRgb *to = line(out, y);
        for (int x = 0; x < width; ++x) {
            const QRgb p = from[x];
            const int a = qAlpha(p);
            if (a == 0) {
                to[x] = 0;
                continue;
            }
            // The colour at the pixel's own alpha, so transparency is kept.
            const QRgb c = a == 255 ? opaque : qPremultiply((opaque & RgbMask) | (QRgb(a) << 24));
            // The mean of each of the four bytes, rounded down.
            to[x] = (p & c) + (((p ^ c) & 0xFEFEFEFEu) >> 1);
        }
    }
    out.setDevicePixelRatio(image.devicePixelRatio());
    return out;
}

void drawDisabled(QPainter &painter, const QPointF &topLeft, const QImage &image,
                  const QColor &highlight, const QColor &shadow)
{
    const QImage in = image.convertToFormat(WorkFormat);
    QImage light(in.size(), WorkFormat);
    QImage dark(in.size(), WorkFormat);
    light.fill(0);
    dark.fill(0);
    const QRgb lightPixel = highlight.rgb();
    const QRgb darkPixel = shadow.rgb();
    const int width = in.width();
    for (int y = 0; y < in.height(); ++y) {
        const QRgb *from = line(in, y);
        QRgb *toLight = line(light, y);
        QRgb *toDark = line(dark, y);
        for (int x = 0; x < width; ++x) {
            // Premultiplied white (at any alpha, transparent included) is the
            // colour that vanishes; everything else belongs to the shape.
            const QRgb p = from[x];
            const int a = qAlpha(p);
            if (qRed(p) == a && qGreen(p) == a && qBlue(p) == a)
                continue;
            toLight[x] = lightPixel;
            toDark[x] = darkPixel;
        }
    }
    const qreal ratio = image.devicePixelRatio();
    light.setDevicePixelRatio(ratio);
    dark.setDevicePixelRatio(ratio);
    painter.drawImage(topLeft + QPointF(1, 1), light);
    painter.drawImage(topLeft, dark);
}

void tile(QPainter &painter, const QRect &rect, const QImage &tile)
{
    const qreal ratio = tile.devicePixelRatio();
    const QSize step = tile.deviceIndependentSize().toSize();
    if (rect.isEmpty() || step.isEmpty())
        return;
    for (int y = rect.top(); y <= rect.bottom(); y += step.height()) {
        const int h = std::min(step.height(), rect.bottom() + 1 - y);
        for (int x = rect.left(); x <= rect.right(); x += step.width()) {
            const int w = std::min(step.width(), rect.right() + 1 - x);
            painter.drawImage(QRectF(x, y, w, h), tile, QRectF(0, 0, w * ratio, h * ratio));
        }
    }
}

QImage renderIcon(const QIcon &icon, const QSize &size, qreal ratio)
{
    const QSize device = deviceSize(size, ratio);
    QImage image = icon.pixmap(size, ratio).toImage().convertToFormat(WorkFormat);
    if (image.isNull()) {
        // A picture so thin or flat that it keeps no pixel at this size
        // renders as a transparent image, not as none.
        image = QImage(device, WorkFormat);
        image.fill(Qt::transparent);
    } else if (image.size() != device) {
        image = image.scaled(device, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    }
    image.setDevicePixelRatio(ratio);
    return image;
}

QPalette defaultPalette()
{
    return qobject_cast<QGuiApplication *>(QCoreApplication::instance()) ? QGuiApplication::palette()
                                                                         : classicPalette();
}

qreal ratioOf(const QPainter &painter)
{
    return painter.isActive() && painter.device() ? painter.device()->devicePixelRatioF() : 1.0;
}

QSize deviceSize(const QSize &size, qreal ratio)
{
    return (QSizeF(size) * ratio).toSize();
}

} // namespace OrrinQuiver::PictureOps
