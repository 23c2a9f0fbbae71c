#pragma once

#include "itemview/DrawItem.h"
#include "itemview/ItemContainer.h"
#include "itemview/ItemLayout.h"
#include "itemview/ItemLook.h"
#include "platform/SlideMover.h"

#include <QtCore/QHash>
#include <QtCore/QPointer>
#include <QtCore/QSet>
#include <QtCore/QTimer>

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

    ItemContainer *const q;

    QPointer<Items> items;
    // live[id - 1] is false once the item with view id `id` has been removed.
    std::vector<bool> live;
    int itemCount = 0;
    ItemLayout layout;
    mutable bool layoutDirty = false;

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

    // Mouse and keyboard state, by position: the item under the mouse, the
    // item held down, the item with the keyboard focus, and the items that
    // carry the stays-down mark (by view id, so that moves keep them).
    int hotPosition = 0;
    int pressedPosition = 0;
    int focusPosition = 0;
    QSet<int> staysDown;

    // The running slide, one frame per tick of slideTimer.
    std::optional<SlideMover> slide;
    QTimer slideTimer;

    // Child windows hosted by items, by view id, with their rectangle
    // relative to the item, until they are given back.
    struct Hosted
    {
        QPointer<QWidget> widget;
        QRect rect;
    };
    QHash<int, Hosted> hosted;
};

} // namespace OrrinQuiver
