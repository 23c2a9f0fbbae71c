#include "itemview/DrawItem.h"

#include <QtGui/QFontMetrics>
#include <QtGui/QPainter>

namespace OrrinQuiver {

int ItemHeight(const ItemLook &look, qvViewType)
{
    return QFontMetrics(look.font).height() + 40;
}

void DrawItem(QPainter &painter, const QRect &rect, const ItemLook &, qvViewType, const IconGeometry &,
              const ItemPaint &item, const QPalette &)
{
    painter.drawText(rect, Qt::AlignCenter, item.caption);
}

} // namespace OrrinQuiver
