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
    connect(view, &ItemContainer::ItemClick, this, &ItemRelay::itemClick);
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
        if (Item *item = open->Items()->Item(itemKey))
            (q->*ItemEvents[int(kind)])(item, button, shift, x, y);
        return;
    }
    // Empty space belongs to the open header: the point is moved into the
    // control's frame, and into its bar's unless the lone bar is hidden.
    x += float(view->x());
    y += float(view->y());
    const bool barShown = d.settings.alwaysShowFirstHeader || d.headers->Count() >= 2;
    if (const HeaderBar *bar = d.strip->bar(open->barId()); bar && barShown)
        y -= float(bar->y());
    (q->*HeaderEvents[int(kind)])(open, button, shift, x, y);
}

} // namespace OrrinQuiver
