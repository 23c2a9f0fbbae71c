#include "control/ItemRelay.h"

#include "control/KeyCommands.h"
#include "control/QuiverSounds.h"
#include "control/ScrollArrows.h"
#include "control/Quiver_p.h"
#include "itemview/ItemContainer.h"
#include "model/Header.h"
#include "model/Headers.h"
#include "model/Item.h"
#include "model/Items.h"

#include <QtCore/QMimeData>

namespace OrrinQuiver {

ItemRelay::ItemRelay(Quiver *control, QuiverPrivate &d)
    : QObject(control)
    , q(control)
    , d(d)
{
    setObjectName(QStringLiteral("ItemRelay"));
}

void ItemRelay::attach(ItemContainer *view)
{
    connect(view, &ItemContainer::ForceRedraw, this, &ItemRelay::forceRedraw);
    connect(view, &ItemContainer::ItemClick, this, &ItemRelay::itemClick);
    connect(view, &ItemContainer::ItemOLECompleteDrag, this,
            [this, view](const QString &item, int effect) { completeDrag(view, item, effect); });
    connect(view, &ItemContainer::ItemOLEDragDrop, this,
            [this, view](const QString &item, const QMimeData *data, int *effect, int b, int s, float x, float y) {
                dragDrop(view, item, data, effect, b, s, x, y);
            });
    connect(view, &ItemContainer::ItemOLEDragOver, this,
            [this, view](const QString &item, const QMimeData *data, int *effect, int b, int s, float x, float y,
                         int state) { dragOver(view, item, data, effect, b, s, x, y, state); });
    connect(view, &ItemContainer::ItemOLEStartDrag, this,
            [this, view](const QString &item, QMimeData *data, int *allowed) {
                startDrag(view, item, data, allowed);
            });
    connect(view, &ItemContainer::MouseDown, this,
            [this, view](const QString &item, int b, int s, float x, float y) {
                mouse(Mouse::Down, view, item, b, s, x, y);
            });
    connect(view, &ItemContainer::MouseMove, this,
            [this, view](const QString &item, int b, int s, float x, float y) {
                mouse(Mouse::Move, view, item, b, s, x, y);
            });
    connect(view, &ItemContainer::MouseUp, this,
            [this, view](const QString &item, int b, int s, float x, float y) {
                mouse(Mouse::Up, view, item, b, s, x, y);
            });
    connect(view, &ItemContainer::SetScrollArrows, this,
            [this, view](bool *up, bool *down) { scrollArrows(view, *up, *down); });
    connect(view, &ItemContainer::ItemKeyEvent, this,
            [this](const QString &, const QString &command, bool *cancel) { keyCommand(command, *cancel); });
    connect(view, &ItemContainer::ScrollDown, this, [this, view] { scrolled(view, false); });
    connect(view, &ItemContainer::ScrollUp, this, [this, view] { scrolled(view, true); });
}

// Only the open header's view has arrows. While the bars slide they wait:
// the layout at the slide's end asks the view again.
void ItemRelay::scrollArrows(ItemContainer *view, bool up, bool down)
{
    quietly([&] {
        if (view == d.openView() && !d.strip->isSliding())
            d.arrows->update(*view, up, down);
    });
}

// A focused item's keys reach the control while it holds the focus, which
// it does whenever a key arrives from one of its items; a handler that set
// Cancel runs the command in any case.
void ItemRelay::keyCommand(const QString &command, bool cancel)
{
    quietly([&] {
        if (!cancel && !d.hasFocus)
            return;
        if (const std::optional<KeyCommand> parsed = parseKeyCommand(command))
            runKeyCommand(d, *parsed);
    });
}

// The view wants every bar drawn again: the header-redraw flag, then the
// full layout, which draws them and clears the flag.
void ItemRelay::forceRedraw()
{
    quietly([this] {
        d.headerRedraw = true;
        d.layoutStrip();
    });
}

// The item sound, then the item becomes the open header's current one (which
// records it in the history), then the host hears of the click.
void ItemRelay::itemClick(const QString &itemKey)
{
    quietly([&] {
        const Header *open = d.selection->openHeader();
        Item *item = open ? open->Items()->Item(itemKey) : nullptr;
        if (!item)
            return;
        d.sounds->playItemSound(d.settings.playSounds, d.settings.useSystemSounds);
        QPointer<Item> clicked = item;
        d.selectItem(qint16(item->Index()));
        if (clicked)
            emit q->ItemClick(clicked);
    });
}

void ItemRelay::mouse(Mouse kind, ItemContainer *view, const QString &itemKey, int button, int shift, float x,
                      float y)
{
    Header *open = d.selection->openHeader();
    if (!open)
        return;
    if (kind == Mouse::Move && d.settings.autoMouseWheel)
        // The wheel reaches the view that has the focus.
        view->setFocus(Qt::MouseFocusReason);
    // The host's events for a press, a move and a release, in that order,
    // raised by calling their signals.
    using ItemEvent = void (Quiver::*)(Item *, int, int, float, float);
    using HeaderEvent = void (Quiver::*)(Header *, int, int, float, float);
    static constexpr ItemEvent ItemEvents[]
        = { &Quiver::ItemMouseDown, &Quiver::ItemMouseMove, &Quiver::ItemMouseUp };
    static constexpr HeaderEvent HeaderEvents[]
        = { &Quiver::HeaderMouseDown, &Quiver::HeaderMouseMove, &Quiver::HeaderMouseUp };
    if (!itemKey.isEmpty()) {
        if (Item *item = itemOf(view, itemKey))
            (q->*ItemEvents[int(kind)])(item, button, shift, x, y);
        return;
    }
    const QPointF at = intoOpenHeader(view, open, x, y);
    (q->*HeaderEvents[int(kind)])(open, button, shift, float(at.x()), float(at.y()));
}

void ItemRelay::scrolled(ItemContainer *view, bool up)
{
    Header *header = headerOf(view);
    if (!header)
        return;
    if (up)
        emit q->ScrollUp(header);
    else
        emit q->ScrollDown(header);
}

void ItemRelay::dragOver(ItemContainer *view, const QString &itemKey, const QMimeData *data, int *effect,
                         int button, int shift, float x, float y, int state)
{
    if (!itemKey.isEmpty()) {
        if (Item *item = itemOf(view, itemKey))
            emit q->ItemOLEDragOver(item, data, effect, button, shift, x, y, state);
        return;
    }
    if (Header *open = d.selection->openHeader()) {
        const QPointF at = intoOpenHeader(view, open, x, y);
        emit q->HeaderOLEDragOver(open, data, effect, button, shift, float(at.x()), float(at.y()), state);
    }
}

void ItemRelay::dragDrop(ItemContainer *view, const QString &itemKey, const QMimeData *data, int *effect,
                         int button, int shift, float x, float y)
{
    if (!itemKey.isEmpty()) {
        if (Item *item = itemOf(view, itemKey))
            emit q->ItemOLEDragDrop(item, data, effect, button, shift, x, y);
        return;
    }
    if (Header *open = d.selection->openHeader()) {
        const QPointF at = intoOpenHeader(view, open, x, y);
        emit q->HeaderOLEDragDrop(open, data, effect, button, shift, float(at.x()), float(at.y()));
    }
}

// Only items start and complete drags; the view's empty space has none.
void ItemRelay::startDrag(ItemContainer *view, const QString &itemKey, QMimeData *data, int *allowedEffects)
{
    if (Item *item = itemOf(view, itemKey))
        emit q->ItemOLEStartDrag(item, data, allowedEffects);
}

void ItemRelay::completeDrag(ItemContainer *view, const QString &itemKey, int effect)
{
    if (Item *item = itemOf(view, itemKey))
        emit q->ItemOLECompleteDrag(item, effect);
}

// The view knows its header's position from the last layout; a header moved
// since then is found by its view instead.
Header *ItemRelay::headerOf(const ItemContainer *view) const
{
    const auto shows = [view](const Header *header) {
        return header && header->itemView() == static_cast<const ItemViewLink *>(view);
    };
    if (Header *header = d.headers->at(view->CollectionIndex()); shows(header))
        return header;
    for (Header *header : *d.headers) {
        if (shows(header))
            return header;
    }
    return nullptr;
}

Item *ItemRelay::itemOf(const ItemContainer *view, const QString &itemKey) const
{
    if (itemKey.isEmpty())
        return nullptr;
    const Header *header = headerOf(view);
    return header ? header->Items()->Item(itemKey) : nullptr;
}

// Out of the view into the control's frame, and into the open header's bar
// unless that bar is hidden, as a lone header's is without
// AlwaysShowFirstHeader.
QPointF ItemRelay::intoOpenHeader(const ItemContainer *view, const Header *open, float x, float y) const
{
    QPointF at(x + float(view->x()), y + float(view->y()));
    const bool barShown = d.settings.alwaysShowFirstHeader || d.headers->Count() >= 2;
    if (const HeaderBar *bar = d.strip->bar(open->barId()); bar && barShown)
        at.ry() -= bar->y();
    return at;
}

} // namespace OrrinQuiver
