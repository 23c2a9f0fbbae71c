#include "control/DrawHeader.h"

#include "platform/EdgeLines.h"
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
    const QRect bar(QPoint(0, 0), size);
    painter.fillRect(bar, color(c.back));

    switch (state) {
    case HeaderNormal:
        drawEdges(painter, bar, color(c.highlight), color(c.shadow));
        break;
    case HeaderHot:
        drawEdges(painter, bar, color(c.highlight), color(c.dkShadow));
        drawCorner(painter, QPoint(w - 2, 1), QPoint(w - 2, h - 2), QPoint(1, h - 2), color(c.shadow));
        break;
    case HeaderPressed:
        drawEdges(painter, bar, color(c.dkShadow), color(c.highlight));
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
