#include "control/DrawArrow.h"

#include "platform/EdgeLines.h"
#include "platform/SystemColors.h"

#include <QtGui/QPainter>

namespace OrrinQuiver {

namespace {

// The desktop's three-dimensional light colour, a step below the highlight.
constexpr OLE_COLOR ThreeDLight = systemColor(22);

// Below this side the frame's two rectangles leave no room inside.
constexpr int MinimumFramedSide = 4;

} // namespace

ArrowFrameColors arrowFrameColors(int state, const ArrowLook &look)
{
    const HeaderColors &c = look.colors;
    const bool flat = look.style == qvStyleVisualStudio;
    if (state == ArrowPressed)
        return flat ? ArrowFrameColors { c.dkShadow, ThreeDLight, c.back, c.back }
                    : ArrowFrameColors { c.shadow, c.highlight, c.dkShadow, ThreeDLight };
    return flat ? ArrowFrameColors { c.highlight, c.shadow, c.back, c.back }
                : ArrowFrameColors { ThreeDLight, c.dkShadow, c.highlight, c.shadow };
}

void DrawArrow(QPainter &painter, const QSize &size, int index, int state, const ArrowLook &look,
               const QPalette &palette)
{
    const auto color = [&palette](OLE_COLOR ole) { return translateColor(ole, palette); };
    const int w = size.width();
    const int h = size.height();
    painter.fillRect(QRect(QPoint(0, 0), size), color(look.colors.back));
    if (w < MinimumFramedSide || h < MinimumFramedSide)
        return;

    const ArrowFrameColors frame = arrowFrameColors(state, look);
    drawEdges(painter, QRect(0, 0, w, h), color(frame.outerTopLeft), color(frame.outerBottomRight));
    drawEdges(painter, QRect(1, 1, w - 2, h - 2), color(frame.innerTopLeft), color(frame.innerBottomRight));

    // The triangle takes half the button's width, the width first rounded up
    // to even: as many rows as fit in half of that, each two pixels wider
    // than the one before, from a one-pixel point. Centred both ways.
    const int half = (w + (w & 1)) / 2;
    const int rows = half / 2;
    const int base = 2 * rows - 1;
    const int left = (w - base) / 2;
    const int top = (h - rows) / 2;
    const bool pointsUp = index == ArrowTowardsFirst;
    const QColor ink = color(look.colors.fore);
    for (int row = 0; row < rows; ++row) {
        // Counted from the point: row 0 is one pixel wide.
        const int y = pointsUp ? top + row : top + rows - 1 - row;
        painter.fillRect(QRect(left + rows - 1 - row, y, 2 * row + 1, 1), ink);
    }
}

} // namespace OrrinQuiver
