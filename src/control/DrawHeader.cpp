#include "control/DrawHeader.h"

#include "platform/FitText.h"
#include "platform/SystemColors.h"

#include <QtGui/QFontMetrics>
#include <QtGui/QPainter>

namespace OrrinQuiver {

namespace {

// Text top and inner inset: the flat Visual Studio bar keeps its caption
// near the top, the framed bars inside their frame.
constexpr int FlatTextTop = 2;
constexpr int FramedTextTop = 4;
// The caption keeps three pixels free at either end of the bar.
constexpr int CaptionMargin = 6;
// How far a pressed flat bar pushes its caption right and down.
constexpr int FlatPressOffset = 1;

// Draws the line from `from` towards `to` the way the desktop's line drawing
// does: horizontal or vertical, the end point left out, so that the next
// segment starting there paints it.
void drawLine(QPainter &painter, QPoint from, QPoint to, const QColor &color)
{
    if (from.y() == to.y() && from.x() != to.x()) {
        const int step = to.x() > from.x() ? 1 : -1;
        const int last = to.x() - step;
        painter.fillRect(
            QRect(QPoint(qMin(from.x(), last), from.y()), QPoint(qMax(from.x(), last), from.y())), color);
    } else if (from.x() == to.x() && from.y() != to.y()) {
        const int step = to.y() > from.y() ? 1 : -1;
        const int last = to.y() - step;
        painter.fillRect(
            QRect(QPoint(from.x(), qMin(from.y(), last)), QPoint(from.x(), qMax(from.y(), last))), color);
    }
}

// Two joined segments: from `a` to `b` in one colour, then on to `c`.
void drawCorner(QPainter &painter, QPoint a, QPoint b, QPoint c, const QColor &color)
{
    drawLine(painter, a, b, color);
    drawLine(painter, b, c, color);
}

} // namespace

void DrawHeader(QPainter &painter, const QSize &size, const HeaderLook &look, const QPalette &palette)
{
    const bool flat = look.style == qvStyleVisualStudio;
    // The flat style has no hot look.
    const int state = flat && look.state == HeaderHot ? HeaderNormal : look.state;
    const int textTop = flat ? FlatTextTop : FramedTextTop;
    const HeaderColors &c = look.colors;
    const auto color = [&palette](OLE_COLOR ole) { return translateColor(ole, palette); };

    painter.save();
    painter.setFont(look.font);
    const FittedText caption
        = FitTextWithEllipsis(painter.fontMetrics(), look.caption, size.width() - CaptionMargin);

    const int w = size.width();
    const int h = size.height();
    painter.fillRect(QRect(QPoint(0, 0), size), color(c.back));

    const QPoint bottomLeft(0, h - 1);
    const QPoint topLeft(0, 0);
    const QPoint topRight(w - 1, 0);
    const QPoint bottomRight(w - 1, h - 1);
    switch (state) {
    case HeaderNormal:
        drawCorner(painter, bottomLeft, topLeft, topRight, color(c.highlight));
        drawCorner(painter, topRight, bottomRight, bottomLeft, color(c.shadow));
        break;
    case HeaderHot:
        drawCorner(painter, bottomLeft, topLeft, topRight, color(c.highlight));
        drawCorner(painter, topRight, bottomRight, bottomLeft, color(c.dkShadow));
        drawCorner(painter, QPoint(w - 2, 1), QPoint(w - 2, h - 2), QPoint(1, h - 2), color(c.shadow));
        break;
    case HeaderPressed:
        drawCorner(painter, bottomLeft, topLeft, topRight, color(c.dkShadow));
        drawCorner(painter, topRight, bottomRight, bottomLeft, color(c.highlight));
        drawCorner(painter, QPoint(1, h - 2), QPoint(1, 1), QPoint(w - 2, 1), color(c.shadow));
        break;
    default:
        break;
    }

    OLE_COLOR text = c.shadow;
    if (look.enabled)
        text = state == HeaderHot || state == HeaderPressed ? c.overFore : c.fore;
    QPoint origin((w - caption.width) / 2, textTop);
    if (flat && state == HeaderPressed)
        origin += QPoint(FlatPressOffset, FlatPressOffset);
    painter.setPen(color(text));
    painter.drawText(origin + QPoint(0, painter.fontMetrics().ascent()), caption.text);
    painter.restore();
}

} // namespace OrrinQuiver
