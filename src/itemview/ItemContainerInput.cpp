#include "itemview/ItemContainer.h"
#include "itemview/ItemContainer_p.h"
#include "model/Item.h"
#include "model/Items.h"
#include "platform/MouseCodes.h"

#include <QtCore/QMimeData>
#include <QtGui/QDrag>
#include <QtGui/QFontMetrics>
#include <QtGui/QGuiApplication>
#include <QtGui/QKeyEvent>
#include <QtGui/QMouseEvent>
#include <QtGui/QWheelEvent>
#include <QtWidgets/QApplication>

#include <cmath>
#include <cstdlib>
#include <utility>

namespace OrrinQuiver {

namespace {

// Drop effects have the values of Qt's drop actions: copy 1, move 2, link 4.
constexpr int DropEffectMask = Qt::CopyAction | Qt::MoveAction | Qt::LinkAction;
// What a dragged item offers unless the bar narrows it: copy or move.
constexpr int ItemDragEffects = Qt::CopyAction | Qt::MoveAction;
// The State of a drag-over report: the drag came onto, left, or moved over
// an item (or the background).
constexpr int DragEntered = 0;
constexpr int DragLeft = 1;
constexpr int DragMovedOver = 2;
// One notch of a wheel, in eighths of a degree.
constexpr int WheelNotch = 120;
// The caption editors: single-line for small icons, multi-line for large icons.
constexpr int SingleLineEditor = 0;
constexpr int MultiLineEditor = 1;

// The data format that carries a dragged item's key beside its caption text.
QString itemKeyMimeType() { return QStringLiteral("application/x-orrinquiver-item-key"); }

// The position of the visible item whose rectangle holds `point` (view
// coordinates); 0 over the background, below the last item and outside the view.
int positionAtPoint(const ItemContainerPrivate &d, QPointF point)
{
    if (point.x() < 0 || point.x() >= d.q->width())
        return 0;
    d.settleLayout();
    const int surfaceY = int(std::floor(point.y())) - d.layout.surfaceTop();
    int position = d.layout.positionAt(surfaceY);
    if (position == 0)
        return 0;
    // A hidden item lies at the top of the next visible one, which owns the
    // row; hidden items after the last visible one own nothing.
    while (position <= d.layout.count() && !d.layout.isVisible(position))
        ++position;
    return position <= d.layout.count() ? position : 0;
}

// What a mouse or drag report says about `point` (view coordinates) when it
// concerns the item at `position`: its reference, and the point in the item's
// own rectangle, or in the view's for the background.
struct Report
{
    QString item;
    QPointF at;
};

Report reportFor(const ItemContainerPrivate &d, int position, QPointF point)
{
    const Item *item = d.itemAt(position);
    if (!item)
        return { {}, point };
    return { d.referenceOf(item), point - QPointF(d.viewRectOf(position).topLeft()) };
}

// Whether `at`, in an item's own coordinates, lies on the item's rectangle.
bool insideItem(const ItemContainerPrivate &d, int position, QPointF at)
{
    const QRect rect = d.viewRectOf(position);
    return at.x() >= 0 && at.y() >= 0 && at.x() < rect.width() && at.y() < rect.height();
}

// Gives the hot and pressed looks to new positions, repainting what changed.
void setMouseLook(ItemContainerPrivate &d, int hot, int pressed)
{
    const int oldHot = std::exchange(d.hotPosition, hot);
    const int oldPressed = std::exchange(d.pressedPosition, pressed);
    for (const int position : { oldHot, oldPressed, hot, pressed }) {
        if (position != 0)
            d.repaintPosition(position);
    }
}

// The looks that follow the mouse at `point`: the enabled item under it is
// hot; while a button is held only the item the press went down on reacts,
// and it looks pressed when it is held down.
void followMouse(ItemContainerPrivate &d, QPointF point)
{
    const int under = positionAtPoint(d, point);
    const Item *item = d.itemAt(under);
    int hot = item && item->Enabled() ? under : 0;
    if (d.grabPosition && hot != *d.grabPosition)
        hot = 0;
    setMouseLook(d, hot, hot != 0 && hot == d.heldPosition ? hot : 0);
}

// The mark moves to `position` and the item that carried it as the current
// item loses it.
void moveStaysDownMark(ItemContainerPrivate &d, int position, const Item &item)
{
    if (const Item *current = d.itemAt(d.currentItem)) {
        d.staysDown.remove(current->viewId());
        d.repaintPosition(d.currentItem);
    }
    d.staysDown.insert(item.viewId());
    d.currentItem = qint16(position);
    d.repaintPosition(position);
}

void setFocusPosition(ItemContainerPrivate &d, int position)
{
    const int old = std::exchange(d.focusPosition, position);
    if (old == position)
        return;
    d.repaintPosition(old);
    d.repaintPosition(position);
}

// Drop effects chosen by the bar become the event's action: the proposed
// action when it is among them, else the first of copy, move and link.
void acceptEffect(QDropEvent *event, int effect)
{
    const Qt::DropActions chosen = Qt::DropActions(effect & DropEffectMask) & event->possibleActions();
    if (!chosen) {
        event->ignore();
        return;
    }
    if (chosen & event->proposedAction()) {
        event->acceptProposedAction();
        return;
    }
    for (const Qt::DropAction action : { Qt::CopyAction, Qt::MoveAction, Qt::LinkAction }) {
        if (chosen & action) {
            event->setDropAction(action);
            break;
        }
    }
    event->accept();
}

// Reports that a drag has left what it was over, if anything.
void reportDragLeave(ItemContainer *q, ItemContainerPrivate &d)
{
    const std::optional<int> left = std::exchange(d.dragOverPosition, std::nullopt);
    if (!left)
        return;
    const Report report = reportFor(d, *left, d.dragPoint);
    int effect = 0;
    emit q->ItemOLEDragOver(report.item, d.dragData, &effect, buttonCode(QGuiApplication::mouseButtons()),
                            shiftCode(QGuiApplication::keyboardModifiers()), float(report.at.x()),
                            float(report.at.y()), DragLeft);
}

// Reports a drag over the view's `event` point and returns the effect the
// bar chose; the effects the source offers are the starting value.
int reportDragOver(ItemContainer *q, ItemContainerPrivate &d, QDragMoveEvent *event)
{
    const int position = positionAtPoint(d, event->position());
    if (d.dragOverPosition && *d.dragOverPosition != position)
        reportDragLeave(q, d);
    const int state = d.dragOverPosition ? DragMovedOver : DragEntered;
    d.dragOverPosition = position;
    d.dragData = event->mimeData();
    d.dragPoint = event->position();
    const Report report = reportFor(d, position, event->position());
    int effect = int(event->possibleActions()) & DropEffectMask;
    emit q->ItemOLEDragOver(report.item, event->mimeData(), &effect, buttonCode(event->buttons()),
                            shiftCode(event->modifiers()), float(report.at.x()), float(report.at.y()), state);
    return effect;
}

} // namespace

bool ItemContainer::GotFocusFromMouse() const { return d->gotFocusFromMouse; }

void ItemContainer::setGotFocusFromMouse(bool on) { d->gotFocusFromMouse = on; }

void ItemContainer::GivenFocus()
{
    if (d->gotFocusFromMouse || !d->canGetFocus || d->count() < 1)
        return;
    const int top = firstVisiblePosition();
    setFocusPosition(*d, d->itemAt(d->currentItem) ? d->currentItem : d->itemAt(top) ? top : 1);
}

bool ItemContainer::CanGetFocus() const { return d->canGetFocus; }

void ItemContainer::setCanGetFocus(bool on)
{
    d->canGetFocus = on;
    setFocusPolicy(on ? Qt::StrongFocus : Qt::NoFocus);
    if (!on)
        setFocusPosition(*d, 0);
}

int ItemContainer::focusPosition() const { return d->focusPosition; }

void ItemContainer::RelabelItem(int position)
{
    const Item *item = d->itemAt(position);
    if (!item)
        return;
    const QRect rect = d->viewRectOf(position);
    QFont font = d->look.font;
    if (item->Bold())
        font.setBold(true);
    const QString caption = item->Caption();
    emit ItemDoRelabel(position, d->referenceOf(item), rect.top(), rect.left(), rect.width(),
                       QFontMetrics(font).horizontalAdvance(caption), caption,
                       d->view == qvViewSmallIcons ? SingleLineEditor : MultiLineEditor);
}

void ItemContainer::startItemLabelEdit(int viewId)
{
    if (const int position = d->positionOf(d->itemWithViewId(viewId)))
        RelabelItem(position);
}

void ItemContainer::startItemDrag(int viewId)
{
    const Item *item = d->itemWithViewId(viewId);
    if (!item)
        return;
    const QString reference = d->referenceOf(item);
    auto *data = new QMimeData;
    data->setText(item->Caption());
    data->setData(itemKeyMimeType(), item->Key().toUtf8());
    int allowed = ItemDragEffects;
    emit ItemOLEStartDrag(reference, data, &allowed);
    const Qt::DropActions actions = Qt::DropActions(allowed & DropEffectMask);
    if (!actions) {
        delete data;
        emit ItemOLECompleteDrag(reference, 0);
        return;
    }
    QPointer<ItemContainer> self(this);
    auto *drag = new QDrag(this);
    drag->setMimeData(data);
    const int effect = int(drag->exec(actions)) & DropEffectMask;
    if (!self)
        return;
    // The drop took the button's release: nothing is held any more.
    d->grabPosition.reset();
    d->heldPosition = 0;
    setMouseLook(*d, 0, 0);
    emit ItemOLECompleteDrag(reference, effect);
}

void ItemContainer::mousePressEvent(QMouseEvent *event)
{
    if (d->designMode) {
        QWidget::mousePressEvent(event);
        return;
    }
    // The first button down picks the receiver of every message until the
    // last button is up.
    if (!d->grabPosition || event->buttons() == event->button())
        d->grabPosition = positionAtPoint(*d, event->position());
    const int position = *d->grabPosition;
    const Report report = reportFor(*d, position, event->position());
    emit MouseDown(report.item, buttonCode(event->button()), shiftCode(event->modifiers()),
                   float(report.at.x()), float(report.at.y()));
    const Item *item = d->itemAt(position);
    if (!item || event->button() != Qt::LeftButton)
        return;
    if (d->canGetFocus)
        setFocusPosition(*d, position);
    // Only the Visual Studio style moves the mark on the press; the others
    // move it when the click is complete.
    if (d->stayDownWithClick && d->look.style == qvStyleVisualStudio)
        moveStaysDownMark(*d, position, *item);
    if (!insideItem(*d, position, report.at)) {
        d->grabPosition.reset();
        d->heldPosition = 0;
        setMouseLook(*d, 0, 0);
        return;
    }
    if (item->Enabled()) {
        d->heldPosition = position;
        setMouseLook(*d, position, position);
    }
}

void ItemContainer::mouseMoveEvent(QMouseEvent *event)
{
    if (d->designMode) {
        QWidget::mouseMoveEvent(event);
        return;
    }
    const int position = d->grabPosition ? *d->grabPosition : positionAtPoint(*d, event->position());
    const Report report = reportFor(*d, position, event->position());
    emit MouseMove(report.item, buttonCode(event->buttons()), shiftCode(event->modifiers()),
                   float(report.at.x()), float(report.at.y()));
    followMouse(*d, event->position());
}

void ItemContainer::mouseReleaseEvent(QMouseEvent *event)
{
    if (d->designMode) {
        QWidget::mouseReleaseEvent(event);
        return;
    }
    const int position = d->grabPosition ? *d->grabPosition : positionAtPoint(*d, event->position());
    const Report report = reportFor(*d, position, event->position());
    const Item *item = d->itemAt(position);
    bool clicked = false;
    if (item && !insideItem(*d, position, report.at)) {
        d->heldPosition = 0;
    } else if (item && event->button() == Qt::LeftButton && item->Enabled() && d->heldPosition == position) {
        if (d->stayDownWithClick) {
            if (d->look.style == qvStyleVisualStudio) {
                for (const int viewId : std::as_const(d->staysDown))
                    redrawItem(viewId);
                d->staysDown.clear();
            }
            moveStaysDownMark(*d, position, *item);
        }
        clicked = true;
    }
    if (event->button() == Qt::LeftButton)
        d->heldPosition = 0;
    if (event->buttons() == Qt::NoButton)
        d->grabPosition.reset();
    followMouse(*d, event->position());
    if (item)
        d->repaintPosition(position);
    // The click comes before the release so that the bar has acted on the
    // item by the time it reports the button going up.
    if (clicked)
        emit ItemClick(report.item);
    emit MouseUp(report.item, buttonCode(event->button()), shiftCode(event->modifiers()),
                 float(report.at.x()), float(report.at.y()));
}

void ItemContainer::leaveEvent(QEvent *event)
{
    QWidget::leaveEvent(event);
    if (!d->grabPosition)
        setMouseLook(*d, 0, 0);
}

void ItemContainer::wheelEvent(QWheelEvent *event)
{
    const int delta = event->angleDelta().y();
    if (d->designMode || delta == 0) {
        event->ignore();
        return;
    }
    finishSlide();
    const bool towardsFirst = delta > 0;
    if (!d->arrowWanted(towardsFirst)) {
        d->wheelRemainder = 0;
        event->ignore();
        return;
    }
    event->accept();
    // A turn the other way starts counting afresh.
    if ((d->wheelRemainder > 0) != towardsFirst)
        d->wheelRemainder = 0;
    d->wheelRemainder += delta;
    const int notches = std::abs(d->wheelRemainder / WheelNotch);
    d->wheelRemainder %= WheelNotch;
    for (int step = notches * QApplication::wheelScrollLines(); step > 0; --step) {
        if (!d->arrowWanted(towardsFirst)) {
            // At the end: what was left over would only wait to push past it.
            d->wheelRemainder = 0;
            break;
        }
        Scroll(towardsFirst ? 0 : 1, false);
    }
}

void ItemContainer::dragEnterEvent(QDragEnterEvent *event)
{
    const int effect = reportDragOver(this, *d, event);
    // The enter is always taken so that the moves over other items follow;
    // the effect decides what a drop would do here.
    acceptEffect(event, effect);
    event->accept();
}

void ItemContainer::dragMoveEvent(QDragMoveEvent *event)
{
    acceptEffect(event, reportDragOver(this, *d, event));
}

void ItemContainer::dragLeaveEvent(QDragLeaveEvent *event)
{
    reportDragLeave(this, *d);
    event->accept();
}

void ItemContainer::dropEvent(QDropEvent *event)
{
    const int position = positionAtPoint(*d, event->position());
    if (d->dragOverPosition && *d->dragOverPosition != position)
        reportDragLeave(this, *d);
    d->dragOverPosition.reset();
    const Report report = reportFor(*d, position, event->position());
    int effect = int(event->possibleActions()) & DropEffectMask;
    emit ItemOLEDragDrop(report.item, event->mimeData(), &effect, buttonCode(event->buttons()),
                         shiftCode(event->modifiers()), float(report.at.x()), float(report.at.y()));
    acceptEffect(event, effect);
}

void ItemContainer::keyPressEvent(QKeyEvent *event)
{
    const Item *item = d->itemAt(d->focusPosition);
    if (d->designMode || !item) {
        QWidget::keyPressEvent(event);
        return;
    }
    // Ctrl alone selects the header-wide commands; Ctrl with another
    // modifier counts as no Ctrl.
    const bool ctrl = shiftCode(event->modifiers()) == ControlBit;
    QString command;
    switch (event->key()) {
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (item->Enabled())
            emit ItemClick(d->referenceOf(item));
        return;
    case Qt::Key_Up:
    case Qt::Key_Down: {
        const int next = d->focusPosition + (event->key() == Qt::Key_Up ? -1 : 1);
        if (d->canGetFocus && next >= 1 && next <= d->count()) {
            setFocusPosition(*d, next);
            d->itemAt(next)->EnsureVisible();
        }
        return;
    }
    case Qt::Key_PageUp:
        command = ctrl ? QStringLiteral("Header-") : QStringLiteral("SCROLL-");
        break;
    case Qt::Key_PageDown:
        command = ctrl ? QStringLiteral("Header+") : QStringLiteral("SCROLL+");
        break;
    case Qt::Key_Home:
        command = ctrl ? QStringLiteral("MOVEHeader-") : QStringLiteral("MOVE-");
        break;
    case Qt::Key_End:
        command = ctrl ? QStringLiteral("MOVEHeader+") : QStringLiteral("MOVE+");
        break;
    default:
        QWidget::keyPressEvent(event);
        return;
    }
    bool cancel = false;
    emit ItemKeyEvent(d->referenceOf(item), command, &cancel);
}

void ItemContainer::focusInEvent(QFocusEvent *event)
{
    QWidget::focusInEvent(event);
    if (event->reason() == Qt::MouseFocusReason)
        d->gotFocusFromMouse = true;
    GivenFocus();
    // The flag describes the one focus change it was set for.
    d->gotFocusFromMouse = false;
}

void ItemContainer::focusOutEvent(QFocusEvent *event)
{
    QWidget::focusOutEvent(event);
    setFocusPosition(*d, 0);
}

// Tab leaves the control: items are not widgets, and the control itself
// would hand the focus straight back to its open view. The walk starts at the
// control's own place in the tab order, which item views created later do
// not share.
bool ItemContainer::focusNextPrevChild(bool next)
{
    QWidget *control = parentWidget() ? parentWidget() : this;
    const auto step = [next](QWidget *widget) {
        return next ? widget->nextInFocusChain() : widget->previousInFocusChain();
    };
    for (QWidget *widget = step(control); widget && widget != control; widget = step(widget)) {
        const bool ours = control->isAncestorOf(widget);
        if (!ours && (widget->focusPolicy() & Qt::TabFocus) && widget->isVisible() && widget->isEnabled()) {
            widget->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
            return true;
        }
    }
    return false;
}

} // namespace OrrinQuiver
