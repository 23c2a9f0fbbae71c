#pragma once

#include "core/OleColor.h"

#include <QtGui/QIcon>
#include <QtGui/QImage>
#include <QtGui/QPalette>
#include <QtGui/QPixmap>

#include <memory>

class QPainter;

namespace OrrinQuiver {

// How far right and down a drop shadow falls unless the caller says otherwise.
constexpr int DefaultShadowOffset = 2;

// The optional inputs of the transparent and disabled painting operations
// of clsDrawPictures.
struct PictureOptions
{
    // Colour under the picture when FillBack is set; icons are first
    // drawn over it by PaintTransparentStdPic.
    OLE_COLOR BackColor = SystemColors::ButtonFace;
    bool FillBack = false;
    bool MirrorHorizontal = false;
    bool MirrorVertical = false;
    // A flat shadow of the picture, ShadowOffset pixels right and down.
    bool Shadow = false;
    int ShadowOffset = DefaultShadowOffset;
    OLE_COLOR ShadowColor = SystemColors::ButtonShadow;
    // Fills the destination with the check pattern first (FillBack is
    // then ignored); a null CheckPatternSource means DitherPattern().
    bool CheckPattern = false;
    OLE_COLOR CheckColor = SystemColors::ButtonFace;
    QImage CheckPatternSource = {};
    // Palette for system colours; nullptr means the object's own.
    const QPalette *Palette = nullptr;
};

// The drawing toolkit of item and header painting: pictures in the disabled
// look, pictures with one colour treated as transparent (stretched, mirrored,
// over a background colour, over a check pattern, with a drop shadow), check
// patterns, tiles and flat shadows. Every operation draws through the painter
// that the caller passes, in the painter's logical coordinates; on a surface
// with a device pixel ratio above 1 the work is done at device resolution, so
// masks stay exact and icons are rendered once at the size they are shown.
// Colours are translated through a palette: the one given with a call, or the
// object's own. Nothing is drawn when the painter is inactive, the picture is
// null or a rectangle is empty.
class clsDrawPictures
{
public:
    // The seed of the shadow's flood fill: the centre of a 32 x 32 icon.
    static constexpr int ShadowSeed = 16;
    // Width and height of one tile of the check pattern.
    static constexpr int CheckTileSize = 8;

    // Uses the application's palette (the classic one without a GUI application).
    clsDrawPictures();
    explicit clsDrawPictures(const QPalette &palette);
    ~clsDrawPictures();
    clsDrawPictures(const clsDrawPictures &) = delete;
    clsDrawPictures &operator=(const clsDrawPictures &) = delete;

    // The palette that translates system colours when a call gives none.
    QPalette Palette() const;
    void setPalette(const QPalette &palette);

    // The standard 8 x 8 check pattern: white and black pixels alternating,
    // white at the top-left.
    static QImage DitherPattern();

    // Draws the area of `source` at `sourceOrigin` with the size of `target`
    // into `target` in the disabled look: pixels of `transparentColor` and
    // white vanish, the rest becomes a button-highlight copy one pixel down
    // and right under a button-shadow copy (so the drawing reaches one pixel
    // past the rectangle). Uses CheckPattern, CheckColor, CheckPatternSource
    // and Palette of `options`.
    void DrawDisabledHDC(QPainter &painter, const QRect &target, const QImage &source,
                         const QPoint &sourceOrigin, OLE_COLOR transparentColor,
                         const PictureOptions &options = {}) const;
    // The same for a bitmap picture, taken from its top-left corner.
    void DrawDisabledPicture(QPainter &painter, const QRect &target, const QPixmap &picture,
                             OLE_COLOR transparentColor, const PictureOptions &options = {}) const;
    // The same for an icon, rendered at the size of `target`; the icon's own
    // transparent pixels vanish as well.
    void DrawDisabledPicture(QPainter &painter, const QRect &target, const QIcon &picture,
                             OLE_COLOR transparentColor, const PictureOptions &options = {}) const;

    // Paints `sourceRect` of `source` stretched (nearest neighbour) into
    // `target`: pixels of `transparentColor` keep what lay beneath, all others
    // are copied, so a source without that colour paints an opaque rectangle.
    // Mirror flags mirror the picture inside the same rectangle. Parts of
    // `sourceRect` outside the source count as transparent.
    void PaintTransparentDC(QPainter &painter, const QRect &target, const QImage &source,
                            const QRect &sourceRect, OLE_COLOR transparentColor,
                            const PictureOptions &options = {}) const;
    // PaintTransparentDC for a bitmap picture.
    void PaintTransparentStdPic(QPainter &painter, const QRect &target, const QPixmap &picture,
                                const QRect &sourceRect, OLE_COLOR transparentColor,
                                const PictureOptions &options = {}) const;
    // PaintTransparentDC for an icon: it is rendered at the size of `target`
    // over BackColor first, then painted with `transparentColor` removed.
    void PaintTransparentStdPic(QPainter &painter, const QRect &target, const QIcon &picture,
                                OLE_COLOR transparentColor, const PictureOptions &options = {}) const;

    // Fills `rect` with 8 x 8 tiles of the top-left 8 x 8 of `pattern`, read
    // as two tones: white pixels take `color`, all others the button
    // highlight colour. The last column and row are cut at the edges.
    void PaintCheckPattern(QPainter &painter, const QRect &rect, const QImage &pattern,
                           OLE_COLOR color, const QPalette *palette = nullptr) const;

    // Covers `rect` with copies of `picture` at its own size, left to right
    // and top to bottom, the last column and row cut at the edges.
    void TileBitmapToHDC(QPainter &painter, const QRect &rect, const QPixmap &picture) const;

    // Draws, at (x, y), the part of the picture's silhouette (the pixels that
    // are not `transparentColor`) connected to pixel (16, 16) of `source` in
    // `shadowColor`; the rest of the target keeps its pixels. A source whose
    // pixel (16, 16) is transparent, or that is smaller, draws nothing.
    void DrawShadow(QPainter &painter, int x, int y, const QImage &source, OLE_COLOR transparentColor,
                    OLE_COLOR shadowColor, const QPalette *palette = nullptr) const;

private:
    struct Private;
    std::unique_ptr<Private> const d;
};

} // namespace OrrinQuiver
