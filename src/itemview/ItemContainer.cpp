#include "itemview/ItemContainer.h"

#include "itemview/ItemContainer_p.h"
#include "platform/FrameInterval.h"
#include "platform/MousePointer.h"
#include "model/Item.h"
#include "model/Items.h"
#include "platform/SystemColors.h"

#include <QtGui/QPaintEvent>
#include <QtGui/QPainter>

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace OrrinQuiver {

// --- ItemContainerPrivate ----------------------------------------------------

ItemContainerPrivate::ItemContainerPrivate(ItemContainer *q)
    : q(q)
    , layout([this](int position) {
        const Item *item = itemAt(position);
        return item && item->Visible();
    })
{
    // A child of the view, so that the pace of its slides can be read.
    slideTimer.setParent(q);
    slideTimer.setObjectName(QStringLiteral("SlideTimer"));
    slideTimer.setTimerType(Qt::PreciseTimer);
}

Item *ItemContainerPrivate::itemAt(int position) const { return items ? items->at(position) : nullptr; }

bool ItemContainerPrivate::isLive(int viewId) const
{
    return viewId >= 1 && viewId <= int(live.size()) && live[viewId - 1];
}

Item *ItemContainerPrivate::itemWithViewId(int viewId) const
{
    if (!items || !isLive(viewId))
        return nullptr;
    // View ids follow positions until an item is inserted before others.
    if (Item *item = items->at(viewId); item && item->viewId() == viewId)
        return item;
    for (Item *item : *items) {
        if (item->viewId() == viewId)
            return item;
    }
    return nullptr;
}

int ItemContainerPrivate::positionOf(const Item *item) const
{
    if (!item || !items)
        return 0;
    if (items->at(item->Index()) == item)
        return item->Index();
    int position = 0;
    for (const Item *member : *items) {
        ++position;
        if (member == item)
            return position;
    }
    return 0;
}

QString ItemContainerPrivate::referenceOf(const Item *item) const { return item ? item->Key() : QString(); }

int ItemContainerPrivate::count() const { return items ? items->Count() : 0; }

void ItemContainerPrivate::rereadFrom(int position)
{
    pendingReread = std::min(pendingReread, std::max(position, 1));
    layoutDirty = true;
}

void ItemContainerPrivate::settleLayout() const
{
    if (!layoutDirty)
        return;
    layoutDirty = false;
    layout.setCount(count());
    if (pendingReread != NoReread) {
        layout.invalidateFrom(pendingReread);
        pendingReread = NoReread;
    }
    // What was fully visible may have moved: walk again from the top slot.
    layout.setLastFullyVisibleSlot(layout.topSlot());
    layout.setObscure(viewBottom());
}

int ItemContainerPrivate::viewBottom() const { return std::abs(layout.surfaceTop()) + q->height(); }

QRect ItemContainerPrivate::viewRectOf(int position) const
{
    settleLayout();
    return { 0, layout.surfaceTop() + layout.top(position), q->width(), layout.rowHeight() };
}

void ItemContainerPrivate::repaintPosition(int position)
{
    if (position >= 1 && position <= count())
        q->update(viewRectOf(position));
}

void ItemContainerPrivate::forgetMovedPositions()
{
    hotPosition = 0;
    pressedPosition = 0;
    heldPosition = 0;
    grabPosition.reset();
    focusPosition = std::min(focusPosition, count());
}

void ItemContainerPrivate::scheduleSizing()
{
    if (sizingQueued)
        return;
    sizingQueued = true;
    QMetaObject::invokeMethod(
        q, [this] { runSizing(); }, Qt::QueuedConnection);
}

void ItemContainerPrivate::runSizing()
{
    sizingQueued = false;
    if (!active)
        return;
    // A view resized while it was closed missed its resize handling.
    if (q->width() != geometryWidth) {
        handleResize();
        return;
    }
    if (slide) {
        sizingAfterSlide = true;
        return;
    }
    // Rows added, removed, hidden or resized above the top slot move the
    // slot's item: the surface follows it, so that a row always starts at
    // the view's top edge.
    placeAtTopSlot();
    q->SetArrows();
    q->update();
}

void ItemContainerPrivate::applyRowMetrics()
{
    layout.setRowHeight(ItemHeight(look, view));
    layout.setGap(itemGap(look.style, view));
    layoutDirty = true;
}

void ItemContainerPrivate::placeAtTopSlot()
{
    settleLayout();
    const int itemCount = layout.count();
    // Items removed from below the top slot leave at least the last of them
    // in view.
    if (layout.topSlot() > std::max(itemCount, 1))
        layout.setTopSlot(std::max(itemCount, 1));
    const int slot = layout.topSlot();
    layout.setSurfaceTop(itemCount ? -layout.top(slot) : 0);
    layout.setLastFullyVisibleSlot(slot);
    layout.setObscure(viewBottom());
    placeHosted();
}

void ItemContainerPrivate::handleResize()
{
    if (!active)
        return;
    q->finishSlide();
    geometry.iconLeft = iconGeometryFor(look.style, view, q->width(), geometry).iconLeft;
    geometryWidth = q->width();
    if (!items)
        return;
    placeAtTopSlot();
    q->SetArrows();
    q->update();
}

void ItemContainerPrivate::startSlide(bool up, bool animate, std::function<void()> then)
{
    settleLayout();
    afterSlide = std::move(then);
    // One step moves by an item's row and the gap below it, so that after
    // every step the surface's top is minus the rows and gaps above the top
    // slot, and every step down brings exactly one more row fully into view.
    const int row = layout.slideDistance();
    const int distance = row ? row + layout.gap() : 0;
    slide.emplace(QList<int> { layout.surfaceTop() }, distance, up, false, animate);
    if (animate) {
        // A frame per refresh of the screen the view is on: each one is seen,
        // and input and painting run between them.
        slideTimer.start(slideFrameInterval(q->screen()));
        return;
    }
    slide->finish();
    applySlideFrame();
    endSlide();
}

void ItemContainerPrivate::applySlideFrame()
{
    layout.setSurfaceTop(slide->tops().first());
    placeHosted();
    q->update();
}

void ItemContainerPrivate::endSlide()
{
    slideTimer.stop();
    slide.reset();
    q->SetObscure(viewBottom());
    // The continuation may start the next slide.
    const std::function<void()> then = std::exchange(afterSlide, nullptr);
    if (then)
        then();
    if (sizingAfterSlide && !slide) {
        sizingAfterSlide = false;
        runSizing();
    }
}

ItemPaint ItemContainerPrivate::paintOf(int position, const Item &item) const
{
    ItemPaint paint;
    paint.caption = item.Caption();
    paint.bold = item.Bold();
    paint.enabled = item.Enabled();
    paint.foreColor = item.ForeColor();
    paint.maskColor = item.MaskColor();
    paint.icon = view == qvViewSmallIcons ? item.SmallIcon() : item.Icon();
    // A disabled item never looks hot or pressed.
    if (item.Enabled())
        paint.state = position == pressedPosition ? ItemPressed
            : position == hotPosition             ? ItemHot
                                                  : ItemNormal;
    paint.staysDown = staysDown.contains(item.viewId());
    paint.hasFocus = position == focusPosition;
    return paint;
}

// --- ItemContainer -------------------------------------------------------------

ItemContainer::ItemContainer(QWidget *parent)
    : QWidget(parent)
    , d(std::make_unique<ItemContainerPrivate>(this))
{
    connect(&d->slideTimer, &QTimer::timeout, this, [this] { advanceSlide(); });
    // Hover follows the mouse with no button down; items take the focus by
    // click and by Tab until CanGetFocus says otherwise.
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    // The view paints every pixel it is asked for, so the bar need not paint
    // beneath it first.
    setAttribute(Qt::WA_OpaquePaintEvent);
}

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

void ItemContainer::setActive(bool on)
{
    d->active = on;
    // A view that opens catches up with what changed while it was closed.
    if (on)
        d->scheduleSizing();
}

int ItemContainer::CollectionIndex() const { return d->collectionIndex; }

void ItemContainer::setCollectionIndex(int position) { d->collectionIndex = position; }

qvViewType ItemContainer::View() const { return d->view; }

void ItemContainer::setView(qvViewType view)
{
    finishSlide();
    d->view = view;
    d->geometry = iconGeometryFor(d->look.style, view, width(), d->geometry);
    d->geometryWidth = width();
    d->applyRowMetrics();
    d->layout.resetScroll();
    d->placeAtTopSlot();
    SizeItems(true);
    update();
}

const ItemLook &ItemContainer::look() const { return d->look; }

void ItemContainer::setLook(const ItemLook &look)
{
    const bool restyled = look.style != d->look.style;
    d->look = look;
    if (restyled) {
        d->geometry = iconGeometryFor(look.style, d->view, width(), d->geometry);
        d->geometryWidth = width();
    }
    const int rowHeight = d->layout.rowHeight();
    const int gap = d->layout.gap();
    d->applyRowMetrics();
    if (rowHeight != d->layout.rowHeight() || gap != d->layout.gap()) {
        d->placeAtTopSlot();
        SizeItems(false);
    }
    update();
}

const IconGeometry &ItemContainer::iconGeometry() const { return d->geometry; }

void ItemContainer::SizeItems(bool force)
{
    if (!d->active)
        return;
    if (force) {
        d->applyRowMetrics();
        d->rereadFrom(1);
    }
    d->scheduleSizing();
}

void ItemContainer::ForceResize() { d->handleResize(); }

int ItemContainer::ItemTop(int viewId) const
{
    const int position = d->positionOf(d->itemWithViewId(viewId));
    if (!position)
        return 0;
    d->settleLayout();
    return d->layout.surfaceTop() + d->layout.top(position);
}

int ItemContainer::TopItem() const
{
    const Item *item = d->itemWithViewId(d->layout.topSlot());
    return item ? item->Index() : 0;
}

int ItemContainer::LastFullyVisibleItem() const
{
    d->settleLayout();
    const Item *item = d->itemWithViewId(d->layout.lastFullyVisibleSlot());
    return item ? item->Index() : 0;
}

bool ItemContainer::IsDownArrowNeeded(int sliderTop, int viewHeight) const
{
    d->settleLayout();
    return d->layout.isDownArrowNeeded(sliderTop, viewHeight);
}

bool ItemContainerPrivate::arrowWanted(bool towardsFirst) const
{
    settleLayout();
    const int top = layout.surfaceTop();
    return towardsFirst ? top < 0 : layout.isDownArrowNeeded(top, q->height());
}

void ItemContainer::SetArrows()
{
    bool up = d->arrowWanted(true);
    bool down = d->arrowWanted(false);
    emit SetScrollArrows(&up, &down);
    d->upNeeded = up;
    d->downNeeded = down;
}

QRect ItemContainer::itemRect(int viewId) const
{
    const int position = d->positionOf(d->itemWithViewId(viewId));
    if (!position)
        return {};
    d->settleLayout();
    return { 0, d->layout.top(position), width(), d->layout.rowHeight() };
}

int ItemContainer::positionAtSurfaceY(int y) const
{
    d->settleLayout();
    return d->layout.positionAt(y);
}

int ItemContainer::sliderTop() const { return d->layout.surfaceTop(); }

bool ItemContainer::wantsArrow(int index) const { return d->arrowWanted(index == 0); }

int ItemContainer::topSlot() const { return d->layout.topSlot(); }

void ItemContainer::Scroll(int direction, bool animate)
{
    if (direction != 0 && direction != 1)
        return;
    finishSlide();
    d->settleLayout();
    if (d->layout.topSlot() > d->layout.count())
        d->placeAtTopSlot();
    // A step whose slot holds no item has nothing to measure and changes
    // nothing, so that stepping towards an item ends at the last one.
    if (direction == 0) {
        const int slot = std::max(1, d->layout.topSlot() - 1);
        if (!d->itemAt(slot))
            return;
        // Up: the slot first, so that the slide measures the item that enters.
        d->layout.setTopSlot(slot);
        d->startSlide(false, animate, [this] {
            SetArrows();
            emit ScrollUp();
        });
        return;
    }
    // The last item stays in view, even in a view shorter than its row.
    if (!d->itemAt(d->layout.topSlot() + 1))
        return;
    // Down: the slide measures the item that leaves, then the slot moves.
    d->startSlide(true, animate, [this] {
        d->layout.setTopSlot(d->layout.topSlot() + 1);
        SetArrows();
        emit ScrollDown();
    });
}

void ItemContainer::Slide(bool up, bool animate)
{
    finishSlide();
    d->startSlide(up, animate, {});
}

void ItemContainer::SetObscure(int offset)
{
    d->settleLayout();
    d->layout.setObscure(offset);
}

bool ItemContainer::isSliding() const { return d->slide.has_value(); }

void ItemContainer::finishSlide()
{
    if (!d->slide)
        return;
    d->slide->finish();
    d->applySlideFrame();
    d->endSlide();
}

bool ItemContainer::advanceSlide()
{
    if (!d->slide)
        return false;
    const bool more = d->slide->advance();
    d->applySlideFrame();
    if (!more)
        d->endSlide();
    return true;
}

void ItemContainer::paintEvent(QPaintEvent *event)
{
    d->settleLayout();
    QPainter painter(this);
    const QPalette &colors = palette();
    const QRect exposed = event->rect();
    painter.fillRect(exposed, translateColor(d->look.colors.back, colors));
    const int top = d->layout.surfaceTop();
    const auto [first, last] = d->layout.visibleRange(exposed.top() - top, exposed.bottom() + 1 - top);
    for (int position = first; position <= last; ++position) {
        const Item *item = d->itemAt(position);
        if (!item || !d->layout.isVisible(position))
            continue;
        DrawItem(painter, d->viewRectOf(position), d->look, d->view, d->geometry, d->paintOf(position, *item),
                 colors);
    }
}

void ItemContainer::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    d->handleResize();
}

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

void ItemContainer::showItems(Items *items)
{
    finishSlide();
    d->items = items;
    d->layout.resetScroll();
    d->rereadFrom(1);
    d->scheduleSizing();
}

int ItemContainer::addItemWindow(int position, const QString &)
{
    d->live.push_back(true);
    if (position < d->count())
        d->forgetMovedPositions();
    d->rereadFrom(position);
    d->addAwaitingRelayout = true;
    return int(d->live.size());
}

void ItemContainer::removeItemWindow(int viewId)
{
    if (!d->isLive(viewId))
        return;
    d->live[viewId - 1] = false;
    d->hosted.remove(viewId);
    d->forgetMovedPositions();
    // The collection has already let the item go, so its position is unknown.
    d->rereadFrom(1);
    // The arrows follow, also when the collection asks for no layout (the
    // last item removed, a clear).
    d->scheduleSizing();
}

void ItemContainer::relayoutItems(bool force)
{
    // Every item added calls this; the add has already recorded its position,
    // so a million adds in a row cost one reading of the new items.
    if (force || !d->addAwaitingRelayout)
        d->rereadFrom(1);
    d->addAwaitingRelayout = false;
    SizeItems(force);
}

// Painting touches only the visible rows, so one repaint of the view costs no
// more than one of the item, and many of them in one turn cost one.
void ItemContainer::redrawItem(int viewId)
{
    if (d->isLive(viewId))
        update();
}

void ItemContainer::resetItems()
{
    finishSlide();
    d->currentItem = 0;
    d->hotPosition = 0;
    d->pressedPosition = 0;
    d->focusPosition = 0;
    d->staysDown.clear();
    d->layout.resetScroll();
    d->rereadFrom(1);
    d->scheduleSizing();
}

int ItemContainer::firstVisiblePosition() const { return d->layout.topSlot(); }

int ItemContainer::lastFullyVisiblePosition() const
{
    d->settleLayout();
    return d->layout.lastFullyVisibleSlot();
}

// A host's step goes only where the arrows would take the user, judged once
// a step still sliding has landed.
void ItemContainer::scrollOneStep(bool up)
{
    finishSlide();
    if (d->arrowWanted(up))
        Scroll(up ? 0 : 1, false);
}

void ItemContainer::releaseMouseGrab()
{
    if (QWidget::mouseGrabber() == this)
        releaseMouse();
}

OLE_COLOR ItemContainer::defaultMaskColor() const { return d->defaultMaskColor; }

} // namespace OrrinQuiver
