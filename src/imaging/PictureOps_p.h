#pragma once

#include <QtGui/QColor>
#include <QtGui/QImage>
#include <QtGui/QPalette>

#include <optional>

class QIcon;
class QPainter;

namespace OrrinQuiver::PictureOps {

// Every effect works on premultiplied 32-bit ARGB: the raster engine draws it
// without conversion, and a pixel is either kept or made fully transparent.
constexpr QImage::Format WorkFormat = QImage::Format_ARGB32_Premultiplied;

// A copy of `area` of `source` in WorkFormat. Pixels whose RGB equals
// `transparent`, pixels that are already fully transparent and the part of
// `area` outside `source` come out fully transparent; every other pixel keeps
// its colour and alpha.
QImage maskedCopy(const QImage &source, const QRect &area, std::optional<QRgb> transparent);

// `image` stretched pixel for pixel (nearest neighbour, so colour keys and
// masks stay exact) to `size`; `image` itself when the size already fits.
QImage stretched(const QImage &image, const QSize &size);

// The 4-connected region of non-transparent pixels of `image` that holds
// `seed`, painted in `colour` on a transparent image of the same size. Nothing
// is painted when `seed` lies outside the image or on a transparent pixel.
QImage floodSilhouette(const QImage &image, const QPoint &seed, const QColor &colour);

// `image` with each pixel mixed half and half with `colour`; alpha is kept, so
// transparent pixels stay transparent.
QImage blended(const QImage &image, const QColor &colour);

// Draws `image` (WorkFormat, with its device pixel ratio set) in the classic
// disabled look at `topLeft`: white and transparent pixels vanish, every other
// pixel becomes `highlight` one logical pixel down and right, under `shadow`
// at its own place.
void drawDisabled(QPainter &painter, const QPointF &topLeft, const QImage &image,
                  const QColor &highlight, const QColor &shadow);

// Covers `rect` with copies of `tile` (device pixel ratio respected) from the
// top-left corner, left to right and top to bottom; the last column and row
// are cut at the rectangle's right and bottom edges.
void tile(QPainter &painter, const QRect &rect, const QImage &tile);

// `icon` rendered to fill `size` (logical) at `ratio`: picked from the icon's
// own sizes for the device pixels and scaled once when none fits exactly.
// The result is in WorkFormat with its device pixel ratio set.
QImage renderIcon(const QIcon &icon, const QSize &size, qreal ratio);

// The palette that translates system colours when a caller sets none: the
// application's, or the classic one when there is no GUI application.
QPalette defaultPalette();

// The device pixel ratio of the surface `painter` draws on; 1 when inactive.
qreal ratioOf(const QPainter &painter);

// `size` in device pixels at `ratio`.
QSize deviceSize(const QSize &size, qreal ratio);

} // namespace OrrinQuiver::PictureOps
