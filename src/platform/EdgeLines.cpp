#include "platform/EdgeLines.h"

#include <QtGui/QPainter>

namespace OrrinQuiver {

void drawLine(QPainter &painter, QPoint from, QPoint to, const QColor &color)
{
    if (from.y() == to.y() && from.x() != to.x()) {
        const int last = to.x() + (to.x() > from.x() ? -1 : 1);
        painter.fillRect(
            QRect(QPoint(qMin(from.x(), last), from.y()), QPoint(qMax(from.x(), last), from.y())), color);
    } else if (from.x() == to.x() && from.y() != to.y()) {
        const int last = to.y() + (to.y() > from.y() ? -1 : 1);
        painter.fillRect(
            QRect(QPoint(from.x(), qMin(from.y(), last)), QPoint(from.x(), qMax(from.y(), last))), color);
    }
}

void drawCorner(QPainter &painter, QPoint a, QPoint b, QPoint c, const QColor &color)
{
    drawLine(painter, a, b, color);
    drawLine(painter, b, c, color);
}

void drawEdges(QPainter &painter, const QRect &r, const QColor &topLeft, const QColor &bottomRight)
{
    drawCorner(painter, r.bottomLeft(), r.topLeft(), r.topRight(), topLeft);
    drawCorner(painter, r.topRight(), r.bottomRight(), r.bottomLeft(), bottomRight);
}

} // namespace OrrinQuiver
