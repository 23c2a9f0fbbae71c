#pragma once

#include "itemview/DrawItem.h"
#include "itemview/ItemContainer.h"
#include "itemview/ItemLayout.h"
#include "itemview/ItemLook.h"
#include "platform/SlideMover.h"

#include <QtCore/QHash>
#include <QtCore/QMimeData>
#include <QtCore/QPointer>
#include <QtCore/QSet>
#include <QtCore/QTimer>

#include <functional>
#include <limits>
#include <optional>
#include <vector>

namespace OrrinQuiver {

class Item;
class Items;

// The state of one item view. Layout, painting and scrolling live in
// ItemContainer.cpp, mouse, keyboard and focus in ItemContainerInput.cpp.
class ItemContainerPrivate
{
public:
    explicit ItemContainerPrivate(ItemContainer *q);

    // Whether `viewId` names an item that was added and not removed.
    bool isLive(int viewId) const;
    // The item at `position` of the shown collection; null outside it.
    Item *itemAt(int position) const;
    // The live item with that view id (a search only when view ids no longer
    // follow positions); null when there is none.
    Item *itemWithViewId(int viewId) const;
    // The item reference that events carry: the item's key; empty for none.
    QString referenceOf(const Item *item) const;
    // Brings the stacking up to date when something asked for it.
    void settleLayout() const;
    // The rectangle of the item at `position` in view coordinates (scrolled).
    QRect viewRectOf(int position) const;
    // Repaints the item at `position` (only its rectangle).
    void repaintPosition(int position);
    // Items moved under the mouse and keyboard state: nothing stays hot or
    // pressed (the next mouse move finds what is under it again), and the
    // focus stays at its position as far as the items reach.
    void forgetMovedPositions();

    // The number of items of the shown collection; 0 without one.
    int count() const;
    // The position of `item` in the shown collection (its cached Index when
    // that is right, else a search); 0 when it is not there.
    int positionOf(const Item *item) const;
    // Records that positions from `position` on must be read again at the
    // next settleLayout.
    void rereadFrom(int position);
    // Runs the deferred part of SizeItems once the current event-loop turn
    // is done: one stacking, one SetArrows and one repaint however many
    // changes asked for it.
    void scheduleSizing();
    void runSizing();
    // Row height and gap from the look and the view.
    void applyRowMetrics();
    // The surface's top for the current top slot, keeping the top slot's item
    // at the top edge; then the last fully visible slot from there.
    void placeAtTopSlot();
    // Whether the arrow towards the first item (`towardsFirst`) or towards
    // the last would be shown now: the surface is scrolled, or the last
    // item's rectangle reaches below the view.
    bool arrowWanted(bool towardsFirst) const;
    // The view's bottom edge in surface coordinates: |surface top| + height.
    int viewBottom() const;
    // The resize handling: icon left from the width, re-stack, keep the top
    // slot, arrows. Only while active.
    void handleResize();
    // Starts a one-item slide of the surface; `then` runs when it has ended.
    void startSlide(bool up, bool animate, std::function<void()> then);
    // Applies the running slide's current frame to the surface.
    void applySlideFrame();
    // Ends the slide whose last frame is in place.
    void endSlide();
    // Places every hosted child window over its item, shown with its item.
    void placeHosted();
    // The ItemPaint of the item at `position`, from the item and the input state.
    ItemPaint paintOf(int position, const Item &item) const;

    ItemContainer *const q;

    QPointer<Items> items;
    // live[id - 1] is false once the item with view id `id` has been removed.
    std::vector<bool> live;
    // Stacking is settled lazily from const queries, hence mutable.
    mutable ItemLayout layout;
    mutable bool layoutDirty = false;
    // The first position to read again at the next settleLayout; NoReread
    // when none.
    static constexpr int NoReread = std::numeric_limits<int>::max();
    mutable int pendingReread = NoReread;
    // Set by addItemWindow: the collection's relayout that follows an add
    // concerns only the position already recorded.
    bool addAwaitingRelayout = false;
    // A deferred SizeItems pass is queued.
    bool sizingQueued = false;
    // Sizing asked for while the surface slides runs when the slide ends.
    bool sizingAfterSlide = false;
    // The width the icon geometry was last computed for.
    int geometryWidth = 0;

    ItemLook look;
    IconGeometry geometry;
    bool active = false;
    int collectionIndex = 0;
    qvViewType view = qvViewLargeIcons;
    qint16 currentItem = 0;
    bool stayDownWithClick = false;
    bool designMode = false;
    bool canGetFocus = true;
    bool gotFocusFromMouse = false;
    OLE_COLOR defaultMaskColor = rgbColor(192, 192, 192);
    bool upNeeded = false;
    bool downNeeded = false;
    // What the wheel has turned short of a whole notch, in eighths of a
    // degree; its sign is the direction it was turned in.
    int wheelRemainder = 0;

    // Mouse and keyboard state, by position: the item under the mouse, the
    // item held down, the item with the keyboard focus, and the items that
    // carry the stays-down mark (by view id, so that moves keep them).
    int hotPosition = 0;
    int pressedPosition = 0;
    int focusPosition = 0;
    QSet<int> staysDown;
    // While a button is held, the position the press went down on (0: the
    // background): it receives the moves and the release, as the window that
    // holds the mouse; none once the last button is up or the press let go.
    std::optional<int> grabPosition;
    // The enabled item a left press holds down; it looks pressed while the
    // mouse is over it, and only a release over it clicks it. 0 for none.
    int heldPosition = 0;
    // A drag passing over the view: the position it is over (0: the
    // background), its data and last point, for the leave that ends it.
    std::optional<int> dragOverPosition;
    QPointer<const QMimeData> dragData;
    QPointF dragPoint;

    // The running slide, one frame per tick of slideTimer.
    std::optional<SlideMover> slide;
    QTimer slideTimer;
    // What the Scroll that started the running slide does once it has ended.
    std::function<void()> afterSlide;

    // Child windows hosted by items, by view id, with their rectangle
    // relative to the item, until they are given back.
    struct Hosted
    {
        QPointer<QWidget> widget;
        QRect rect;
        // The item that hosts it, and whether the host had it shown: it is
        // hidden while its item is and shown again as the host left it.
        QPointer<Item> item;
        bool shown = true;
    };
    QHash<int, Hosted> hosted;
};

} // namespace OrrinQuiver
