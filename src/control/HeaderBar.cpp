#include "control/HeaderBar.h"

#include "control/DrawHeader.h"
#include "control/HeaderStrip.h"

#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>

namespace OrrinQuiver {

HeaderBar::HeaderBar(HeaderStrip *strip, int barId, ItemContainer *itemView, QWidget *parent)
    : QWidget(parent)
    , m_strip(strip)
    , m_barId(barId)
    , m_itemView(itemView)
{
    // Moves over the bar with no button down are what make it look hot.
    setMouseTracking(true);
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void HeaderBar::setColors(OLE_COLOR back, OLE_COLOR fore)
{
    m_backColor = back;
    m_foreColor = fore;
}

void HeaderBar::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    DrawHeader(painter, size(), m_strip->lookOf(this), palette());
}

void HeaderBar::mousePressEvent(QMouseEvent *event) { m_strip->barPressed(this, event); }

void HeaderBar::mouseMoveEvent(QMouseEvent *event) { m_strip->barMoved(this, event); }

void HeaderBar::mouseReleaseEvent(QMouseEvent *event) { m_strip->barReleased(this, event); }

void HeaderBar::leaveEvent(QEvent *) { m_strip->barLeft(this); }

} // namespace OrrinQuiver
