#include "itemview/ItemContainer.h"

#include "itemview/MousePointer.h"
#include "itemview/ItemContainer_p.h"
#include "model/Item.h"
#include "model/Items.h"

#include <QtCore/QHash>
#include <QtCore/QPointer>

#include <vector>

namespace OrrinQuiver {

namespace {

// The mask colour of items created without one, until the bar sets its own.
constexpr OLE_COLOR InitialMaskColor = rgbColor(192, 192, 192);

QWidget *widgetOf(quintptr window) { return window ? QWidget::find(WId(window)) : nullptr; }

} // namespace

ItemContainerPrivate::ItemContainerPrivate(ItemContainer *q)
    : q(q)
    , layout([this](int position) {
        const Item *item = itemAt(position);
        return item && item->Visible();
    })
{ }

Item *ItemContainerPrivate::itemAt(int position) const { return items ? items->at(position) : nullptr; }

bool ItemContainerPrivate::isLive(int viewId) const
{
    return viewId >= 1 && viewId <= int(live.size()) && live[viewId - 1];
}

ItemContainer::ItemContainer(QWidget *parent)
    : QWidget(parent)
    , d(std::make_unique<ItemContainerPrivate>(this))
{ }

ItemContainer::~ItemContainer()
{
    // A hosted window belongs to the host: it must outlive the view, and the
    // item that hosts it gives it back to its former parent.
    for (const auto &hosted : std::as_const(d->hosted)) {
        if (hosted.widget && hosted.widget->parentWidget() == this)
            hosted.widget->setParent(nullptr);
    }
}

int ItemContainer::MaxPhysItems() const { return int(d->live.size()); }

bool ItemContainer::Active() const { return d->active; }

void ItemContainer::setActive(bool on) { d->active = on; }

int ItemContainer::CollectionIndex() const { return d->collectionIndex; }

void ItemContainer::setCollectionIndex(int position) { d->collectionIndex = position; }

qvViewType ItemContainer::View() const { return d->view; }

void ItemContainer::setView(qvViewType view) { d->view = view; }

const ItemLook &ItemContainer::look() const { return d->look; }

void ItemContainer::setLook(const ItemLook &look) { d->look = look; }

const IconGeometry &ItemContainer::iconGeometry() const { return d->geometry; }

void ItemContainer::SizeItems(bool) { update(); }

void ItemContainer::ForceResize() { }

int ItemContainer::ItemTop(int) const { return 0; }

int ItemContainer::TopItem() const { return 0; }

int ItemContainer::LastFullyVisibleItem() const { return 0; }

bool ItemContainer::IsDownArrowNeeded(int, int) const { return false; }

void ItemContainer::SetArrows() { }

quintptr ItemContainer::SetChild(int viewId, quintptr window) { return hostChildWindow(viewId, window); }

int ItemContainer::positionAtSurfaceY(int) const { return 0; }

int ItemContainer::sliderTop() const { return 0; }

void ItemContainer::Scroll(int, bool) { }

void ItemContainer::Slide(bool, bool) { }

void ItemContainer::SetObscure(int) { }

bool ItemContainer::isSliding() const { return false; }

void ItemContainer::finishSlide() { }

void ItemContainer::paintEvent(QPaintEvent *) { }

void ItemContainer::resizeEvent(QResizeEvent *) { }

qint16 ItemContainer::CurrentItem() const { return d->currentItem; }

void ItemContainer::setCurrentItem(qint16 position) { d->currentItem = position; }

bool ItemContainer::StayDownWithClick() const { return d->stayDownWithClick; }

void ItemContainer::setStayDownWithClick(bool on) { d->stayDownWithClick = on; }

bool ItemContainer::DesignMode() const { return d->designMode; }

void ItemContainer::setDesignMode(bool on) { d->designMode = on; }

void ItemContainer::setDefaultMaskColor(OLE_COLOR color) { d->defaultMaskColor = color; }

void ItemContainer::updatePointer(int pointer, const QVariant &picture)
{
    if (const auto cursor = cursorForPointer(pointer, picture))
        setCursor(*cursor);
    else
        unsetCursor();
}

QRect ItemContainer::itemRect(int) const { return {}; }

void ItemContainer::showItems(Items *items) { d->items = items; }

int ItemContainer::addItemWindow(int, const QString &)
{
    d->live.push_back(true);
    ++d->itemCount;
    update();
    return int(d->live.size());
}

void ItemContainer::removeItemWindow(int viewId)
{
    if (!d->isLive(viewId))
        return;
    d->live[viewId - 1] = false;
    --d->itemCount;
    update();
}

void ItemContainer::relayoutItems(bool) { update(); }

void ItemContainer::redrawItem(int) { update(); }

void ItemContainer::resetItems()
{
    d->currentItem = 0;
    update();
}

// Until the items are laid out the whole header counts as visible.
int ItemContainer::firstVisiblePosition() const { return 1; }

int ItemContainer::lastFullyVisiblePosition() const { return d->itemCount; }

// Every item is visible (see firstVisiblePosition), so there is nothing to scroll to.
void ItemContainer::scrollOneStep(bool) { }

// The view does not drag or edit items yet; both requests are ignored.
void ItemContainer::startItemDrag(int) { }

void ItemContainer::startItemLabelEdit(int) { }

void ItemContainer::releaseMouseGrab()
{
    if (QWidget::mouseGrabber() == this)
        releaseMouse();
}

OLE_COLOR ItemContainer::defaultMaskColor() const { return d->defaultMaskColor; }

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
    d->hosted.insert(viewId, { widget, {} });
    return formerParent;
}

void ItemContainer::moveChildWindow(quintptr window, const QRect &rect)
{
    if (QWidget *widget = widgetOf(window)) {
        widget->move(rect.topLeft());
        widget->resize(rect.size());
    }
}

void ItemContainer::setChildWindowParent(quintptr window, quintptr parent)
{
    QWidget *widget = widgetOf(window);
    if (!widget)
        return;
    for (auto it = d->hosted.begin(); it != d->hosted.end();) {
        if (it.value().widget == widget)
            it = d->hosted.erase(it);
        else
            ++it;
    }
    const bool shown = !widget->isHidden();
    widget->setParent(widgetOf(parent));
    widget->setVisible(shown);
}

} // namespace OrrinQuiver
