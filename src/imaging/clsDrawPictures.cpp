#include "imaging/clsDrawPictures.h"

#include "imaging/PictureOps_p.h"
#include "platform/SystemColors.h"

#include <QtGui/QIcon>
#include <QtGui/QPainter>
#include <QtGui/QPixmap>

namespace OrrinQuiver {

using namespace PictureOps;

namespace {

// The second tone of a check pattern: the light half of a pressed-in button.
constexpr OLE_COLOR CheckHighlight = SystemColors::ButtonHighlight;

// The two tones of the disabled look.
constexpr OLE_COLOR DisabledHighlight = SystemColors::ButtonHighlight;
constexpr OLE_COLOR DisabledShadow = SystemColors::ButtonShadow;

constexpr QRgb White = 0xFFFFFFu;

void paintCheck(QPainter &painter, const QRect &rect, const QImage &pattern, const QColor &color,
                const QColor &highlight)
{
    constexpr int n = clsDrawPictures::CheckTileSize;
    const QImage source = pattern.convertToFormat(QImage::Format_RGB32);
    QImage tileImage(n, n, QImage::Format_RGB32);
    for (int y = 0; y < n; ++y) {
        for (int x = 0; x < n; ++x) {
            const bool white = source.valid(x, y) && (source.pixel(x, y) & White) == White;
            tileImage.setPixel(x, y, white ? color.rgb() : highlight.rgb());
        }
    }
    const qreal ratio = ratioOf(painter);
    tileImage = stretched(tileImage, deviceSize(QSize(n, n), ratio));
    tileImage.setDevicePixelRatio(ratio);
    tile(painter, rect, tileImage);
}

} // namespace

struct clsDrawPictures::Private
{
    QPalette palette;

    const QPalette &paletteFor(const QPalette *given) const { return given ? *given : palette; }

    void checkPatternFor(QPainter &painter, const QRect &target, const PictureOptions &options,
                         const QPalette &pal) const
    {
        if (!options.CheckPattern)
            return;
        const QImage &pattern = options.CheckPatternSource.isNull() ? DitherPattern() : options.CheckPatternSource;
        paintCheck(painter, target, pattern, translateColor(options.CheckColor, pal),
                   translateColor(CheckHighlight, pal));
    }

    // The transparent painting proper. `masked` is the picture with its
    // transparent pixels cleared; `seed` is the shadow's seed in its pixels.
    void compose(QPainter &painter, const QRect &target, const QImage &masked, const QPoint &seed,
                 const PictureOptions &options, const QPalette &pal) const
    {
        const qreal ratio = ratioOf(painter);
        const QSize size = deviceSize(target.size(), ratio);
        if (size.isEmpty())
            return;
        checkPatternFor(painter, target, options, pal);
        QImage picture = stretched(masked, size);
        const bool fill = options.FillBack && !options.CheckPattern;
        if (fill || options.Shadow) {
            // A layer of the destination's size that starts see-through, so
            // whatever is not painted keeps what lies beneath.
            QImage work(size, WorkFormat);
            work.fill(fill ? translateColor(options.BackColor, pal) : QColor(Qt::transparent));
            QPainter layer(&work);
            if (options.Shadow) {
                const QImage shadow = floodSilhouette(masked, seed, translateColor(options.ShadowColor, pal));
                const qreal offset = options.ShadowOffset * ratio;
                layer.drawImage(QPointF(offset, offset), stretched(shadow, size));
            }
            layer.drawImage(0, 0, picture);
            layer.end();
            picture = std::move(work);
        }
        if (options.MirrorHorizontal || options.MirrorVertical)
            picture = std::move(picture).mirrored(options.MirrorHorizontal, options.MirrorVertical);
        picture.setDevicePixelRatio(ratio);
        painter.drawImage(target.topLeft(), picture);
    }

    void disabled(QPainter &painter, const QRect &target, const QImage &masked, const PictureOptions &options) const
    {
        const QPalette &pal = paletteFor(options.Palette);
        const qreal ratio = ratioOf(painter);
        checkPatternFor(painter, target, options, pal);
        QImage image = stretched(masked, deviceSize(target.size(), ratio));
        image.setDevicePixelRatio(ratio);
        drawDisabled(painter, target.topLeft(), image, translateColor(DisabledHighlight, pal),
                     translateColor(DisabledShadow, pal));
    }
};

clsDrawPictures::clsDrawPictures()
    : clsDrawPictures(defaultPalette())
{
}

clsDrawPictures::clsDrawPictures(const QPalette &palette)
    : d(new Private{palette})
{
}

clsDrawPictures::~clsDrawPictures() = default;

QPalette clsDrawPictures::Palette() const
{
    return d->palette;
}

void clsDrawPictures::setPalette(const QPalette &palette)
{
    d->palette = palette;
}

QImage clsDrawPictures::DitherPattern()
{
    static const QImage pattern = [] {
        QImage image(CheckTileSize, CheckTileSize, QImage::Format_RGB32);
        for (int y = 0; y < CheckTileSize; ++y)
            for (int x = 0; x < CheckTileSize; ++x)
                image.setPixel(x, y, (x + y) % 2 == 0 ? qRgb(255, 255, 255) : qRgb(0, 0, 0));
        return image;
    }();
    return pattern;
}

void clsDrawPictures::DrawDisabledHDC(QPainter &painter, const QRect &target, const QImage &source,
                                      const QPoint &sourceOrigin, OLE_COLOR transparentColor,
                                      const PictureOptions &options) const
{
    if (!painter.isActive() || target.isEmpty() || source.isNull())
        return;
    const QRgb key = translateColor(transparentColor, d->paletteFor(options.Palette)).rgb();
    d->disabled(painter, target, maskedCopy(source, QRect(sourceOrigin, target.size()), key), options);
}

void clsDrawPictures::DrawDisabledPicture(QPainter &painter, const QRect &target, const QPixmap &picture,
                                          OLE_COLOR transparentColor, const PictureOptions &options) const
{
    if (!picture.isNull())
        DrawDisabledHDC(painter, target, picture.toImage(), QPoint(0, 0), transparentColor, options);
}

void clsDrawPictures::DrawDisabledPicture(QPainter &painter, const QRect &target, const QIcon &picture,
                                          OLE_COLOR transparentColor, const PictureOptions &options) const
{
    if (!painter.isActive() || target.isEmpty() || picture.isNull())
        return;
    const QRgb key = translateColor(transparentColor, d->paletteFor(options.Palette)).rgb();
    const QImage icon = renderIcon(picture, target.size(), ratioOf(painter));
    d->disabled(painter, target, maskedCopy(icon, icon.rect(), key), options);
}

void clsDrawPictures::PaintTransparentDC(QPainter &painter, const QRect &target, const QImage &source,
                                         const QRect &sourceRect, OLE_COLOR transparentColor,
                                         const PictureOptions &options) const
{
    if (!painter.isActive() || target.isEmpty() || source.isNull() || sourceRect.isEmpty())
        return;
    const QPalette &pal = d->paletteFor(options.Palette);
    const QImage masked = maskedCopy(source, sourceRect, translateColor(transparentColor, pal).rgb());
    d->compose(painter, target, masked, QPoint(ShadowSeed, ShadowSeed), options, pal);
}

void clsDrawPictures::PaintTransparentStdPic(QPainter &painter, const QRect &target, const QPixmap &picture,
                                             const QRect &sourceRect, OLE_COLOR transparentColor,
                                             const PictureOptions &options) const
{
    if (!picture.isNull())
        PaintTransparentDC(painter, target, picture.toImage(), sourceRect, transparentColor, options);
}

void clsDrawPictures::PaintTransparentStdPic(QPainter &painter, const QRect &target, const QIcon &picture,
                                             OLE_COLOR transparentColor, const PictureOptions &options) const
{
    if (!painter.isActive() || target.isEmpty() || picture.isNull())
        return;
    const QPalette &pal = d->paletteFor(options.Palette);
    const qreal ratio = ratioOf(painter);
    const QImage icon = renderIcon(picture, target.size(), ratio);
    QImage canvas(icon.size(), WorkFormat);
    canvas.setDevicePixelRatio(ratio);
    canvas.fill(translateColor(options.BackColor, pal));
    QPainter(&canvas).drawImage(0, 0, icon);
    const QImage masked = maskedCopy(canvas, canvas.rect(), translateColor(transparentColor, pal).rgb());
    // The icon is rendered at device resolution, so the seed scales with it.
    const QPoint seed = (QPointF(ShadowSeed, ShadowSeed) * ratio).toPoint();
    d->compose(painter, target, masked, seed, options, pal);
}

void clsDrawPictures::PaintCheckPattern(QPainter &painter, const QRect &rect, const QImage &pattern,
                                        OLE_COLOR color, const QPalette *palette) const
{
    if (!painter.isActive() || pattern.isNull())
        return;
    const QPalette &pal = d->paletteFor(palette);
    paintCheck(painter, rect, pattern, translateColor(color, pal), translateColor(CheckHighlight, pal));
}

void clsDrawPictures::TileBitmapToHDC(QPainter &painter, const QRect &rect, const QPixmap &picture) const
{
    if (painter.isActive() && !picture.isNull())
        tile(painter, rect, picture.toImage());
}

void clsDrawPictures::DrawShadow(QPainter &painter, int x, int y, const QImage &source,
                                 OLE_COLOR transparentColor, OLE_COLOR shadowColor, const QPalette *palette) const
{
    if (!painter.isActive() || source.isNull())
        return;
    const QPalette &pal = d->paletteFor(palette);
    const QImage masked = maskedCopy(source, source.rect(), translateColor(transparentColor, pal).rgb());
    const qreal ratio = ratioOf(painter);
    QImage shadow = floodSilhouette(masked, QPoint(ShadowSeed, ShadowSeed), translateColor(shadowColor, pal));
    shadow = stretched(shadow, deviceSize(source.size(), ratio));
    shadow.setDevicePixelRatio(ratio);
    painter.drawImage(QPoint(x, y), shadow);
}

} // namespace OrrinQuiver
