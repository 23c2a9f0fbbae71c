#pragma once

#include "control/DrawHeader.h"

#include <QtCore/QSize>

class QPainter;
class QPalette;

namespace OrrinQuiver {

// The two looks of a scroll arrow button.
enum ArrowState : int {
    ArrowUp = 0, // raised: not held
    ArrowPressed = 2 // sunken: held, the repeat runs
};

// The scroll arrow buttons: 0 scrolls towards the first item, 1 towards the last.
constexpr int ArrowTowardsFirst = 0;
constexpr int ArrowTowardsLast = 1;

// What decides how both arrow buttons look: the style and the bar's colours
// (the header colours for the face and the triangle, the edge colours for
// the frame).
struct ArrowLook
{
    qvStyle style = qvStyleOutlook;
    HeaderColors colors;
};

// The four frame colours of an arrow in `state` under `look`, before
// translation: outer top-left, outer bottom-right, inner top-left, inner
// bottom-right. A state other than ArrowPressed gives the raised colours.
struct ArrowFrameColors
{
    OLE_COLOR outerTopLeft;
    OLE_COLOR outerBottomRight;
    OLE_COLOR innerTopLeft;
    OLE_COLOR innerBottomRight;
};
ArrowFrameColors arrowFrameColors(int state, const ArrowLook &look);

// Paints arrow button `index` of `size` (logical pixels) in `state`: the face
// in the header back colour, a frame of two rectangles whose top and left
// sides take the top-left colours and the others the bottom-right colours
// (each line leaving out its end point, as the desktop draws them), and a
// solid triangle in the header text colour, centred, pointing up for
// ArrowTowardsFirst and down for any other index. System colours resolve
// through `palette`. A button smaller than 4 x 4 gets its face only.
void DrawArrow(QPainter &painter, const QSize &size, int index, int state, const ArrowLook &look,
               const QPalette &palette);

} // namespace OrrinQuiver
