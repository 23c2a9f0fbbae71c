#pragma once

class QColor;
class QPainter;
class QPoint;
class QRect;

namespace OrrinQuiver {

// Paints the line from `from` towards `to` the way the desktop's line
// drawing does: `from` is painted, `to` is left out, so that the next segment
// starting there paints it. Only horizontal and vertical lines are drawn; a
// slanted line or one of no length paints nothing.
void drawLine(QPainter &painter, QPoint from, QPoint to, const QColor &color);

// Two joined segments: from `a` to `b`, then on to `c`, `c` left out. Points
// that do not make horizontal or vertical segments paint nothing for them.
void drawCorner(QPainter &painter, QPoint a, QPoint b, QPoint c, const QColor &color);

// The four edges of `r`: up the left and along the top in `topLeft`, then down
// the right and back along the bottom in `bottomRight`. An empty or one-pixel
// `r` paints what its degenerate edges cover, nothing for edges of no length.
void drawEdges(QPainter &painter, const QRect &r, const QColor &topLeft, const QColor &bottomRight);

} // namespace OrrinQuiver
