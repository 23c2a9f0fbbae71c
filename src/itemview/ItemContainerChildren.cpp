// The windows a host places on items: taken in by the view, kept relative to
// their item as the view scrolls and items move, and given back.

#include "itemview/ItemContainer.h"

#include "itemview/ItemContainer_p.h"
#include "model/Item.h"

namespace OrrinQuiver {

namespace {

QWidget *widgetOf(quintptr window) { return window ? QWidget::find(WId(window)) : nullptr; }

} // namespace

void ItemContainerPrivate::placeHosted()
{
    if (hosted.isEmpty())
        return;
    settleLayout();
    for (const Hosted &child : std::as_const(hosted)) {
        const int position = positionOf(child.item);
        if (!child.widget || !position)
            continue;
        child.widget->move(child.rect.topLeft() + QPoint(0, layout.surfaceTop() + layout.top(position)));
        child.widget->resize(child.rect.size());
        child.widget->setVisible(child.shown && child.item->Visible());
    }
}

quintptr ItemContainer::SetChild(int viewId, quintptr window) { return hostChildWindow(viewId, window); }

QRect ItemContainer::childWindowRect(quintptr window) const
{
    const QWidget *widget = widgetOf(window);
    if (!widget)
        return {};
    if (widget->isWindow())
        return widget->frameGeometry();
    return { widget->mapToGlobal(QPoint(0, 0)), widget->size() };
}

quintptr ItemContainer::hostChildWindow(int viewId, quintptr window)
{
    QWidget *widget = widgetOf(window);
    if (!d->isLive(viewId) || !widget || widget == this || widget->isAncestorOf(this))
        return 0;
    const quintptr formerParent = widget->parentWidget() ? quintptr(widget->parentWidget()->winId()) : 0;
    const bool shown = !widget->isHidden();
    widget->setParent(this);
    widget->setVisible(shown);
    d->hosted.insert(viewId, { widget, {}, d->itemWithViewId(viewId), shown });
    return formerParent;
}

void ItemContainer::moveChildWindow(quintptr window, const QRect &rect)
{
    QWidget *widget = widgetOf(window);
    if (!widget)
        return;
    widget->move(rect.topLeft());
    widget->resize(rect.size());
    // A hosted window lies relative to its item and follows it from now on.
    for (auto &hosted : d->hosted) {
        if (hosted.widget == widget) {
            hosted.rect = rect;
            d->placeHosted();
            return;
        }
    }
}

void ItemContainer::setChildWindowParent(quintptr window, quintptr parent)
{
    QWidget *widget = widgetOf(window);
    if (!widget)
        return;
    bool shown = !widget->isHidden();
    for (auto it = d->hosted.begin(); it != d->hosted.end();) {
        if (it.value().widget == widget) {
            shown = it.value().shown;
            it = d->hosted.erase(it);
        } else {
            ++it;
        }
    }
    widget->setParent(widgetOf(parent));
    widget->setVisible(shown);
}

} // namespace OrrinQuiver
