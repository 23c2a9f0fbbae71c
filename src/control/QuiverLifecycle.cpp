// What the control does when it is shown, resized and painted.

#include "control/Quiver.h"

#include "control/Quiver_p.h"
#include "itemview/ItemContainer.h"
#include "model/Header.h"
#include "model/Headers.h"
#include "model/Item.h"
#include "model/Items.h"
#include "model/Navigation.h"
#include "platform/SystemColors.h"

#include <QtCore/QScopedValueRollback>
#include <QtCore/QTimer>
#include <QtGui/QPainter>
#include <QtGui/QPaintEvent>
#include <QtGui/QResizeEvent>

namespace OrrinQuiver {

void Quiver::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    quietly([this] {
        const bool userMode = !d->designMode;
        if (userMode && !d->userModeAtRead) {
            for (Header *header : *d->headers) {
                if (ItemContainer *view = d->viewOf(header))
                    view->setDesignMode(false);
                setSmoothScroll(false);
            }
        }
        if (userMode) {
            Header *open = d->selection->openHeader();
            const ItemContainer *view = d->viewOf(open);
            if (view && view->CurrentItem() >= 1) {
                if (const Item *item = open->Items()->at(view->CurrentItem()))
                    d->navigation->Record(open->Key(), item->Key());
            }
        }
        d->layoutStrip();
        d->redrawTimer->start();
    });
}

void Quiver::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    if (d->resizing || width() < 1 || height() < 1)
        return;
    quietly([this] {
        QScopedValueRollback<bool> guard(d->resizing, true);
        if (width() < MinimumWidth)
            resize(MinimumWidth, height());
        d->headerRedraw = true;
        d->layoutStrip();
        d->strip->repaint(true);
    });
}

void Quiver::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    painter.fillRect(event->rect(), translateColor(d->settings.backColor, palette()));
}

} // namespace OrrinQuiver
