#pragma once

#include "core/OleColor.h"
#include "core/QuiverEnums.h"

#include <QtCore/QRect>
#include <QtCore/QString>

namespace OrrinQuiver {

// What the content model needs of the item view that shows one header's
// items. The item view (itemview/) implements it; model tests use a recording
// double. Positions are 1-based item positions, view ids are the ids that
// addItemWindow() handed out. No call may throw.
class Items;

class ItemViewLink
{
public:
    virtual ~ItemViewLink() = default;

    // The collection whose items the view shows from now on (null: none).
    // The view reads item fields (caption, icons, Visible, Enabled, ...)
    // straight from it when it lays out and paints.
    virtual void showItems(Items *items) = 0;

    // Adds the window of a new item at `position` with its caption and returns
    // the item's view id (fixed for the item's life).
    virtual int addItemWindow(int position, const QString &caption) = 0;
    // Takes the window with that view id out of the view; unknown ids are ignored.
    virtual void removeItemWindow(int viewId) = 0;
    // Re-stacks the items and repaints them; `force` asks for every item to be
    // measured again.
    virtual void relayoutItems(bool force) = 0;
    // Repaints the one item with that view id.
    virtual void redrawItem(int viewId) = 0;
    // Shows the items as large or small icons from now on.
    virtual void setView(qvViewType view) = 0;
    // Brings the view back to its empty state after its items were cleared.
    virtual void resetItems() = 0;
    // The positions of the item at the top of the view and of the last item
    // that is wholly visible.
    virtual int firstVisiblePosition() const = 0;
    virtual int lastFullyVisiblePosition() const = 0;
    // Scrolls one item up (towards the first item) or down.
    virtual void scrollOneStep(bool up) = 0;
    // Starts a drag of, or an in-place caption editor on, the item with that view id.
    virtual void startItemDrag(int viewId) = 0;
    virtual void startItemLabelEdit(int viewId) = 0;
    // A pressed item that becomes disabled loses the mouse.
    virtual void releaseMouseGrab() = 0;
    // The mask colour of items created without one of their own.
    virtual OLE_COLOR defaultMaskColor() const = 0;

    // Hosting a child window in an item. `window` is a native window id (or a
    // QWidget's winId()). The rectangles are in global (screen) coordinates.
    virtual QRect childWindowRect(quintptr window) const = 0;
    // Makes `window` a child of the item with that view id; returns the
    // window's former parent (0 when it had none or on failure).
    virtual quintptr hostChildWindow(int viewId, quintptr window) = 0;
    // Moves `window` to `rect` (global coordinates when it is top-level, else
    // in its parent's coordinates, as the window system does).
    virtual void moveChildWindow(quintptr window, const QRect &rect) = 0;
    // Gives `window` back to `parent`.
    virtual void setChildWindowParent(quintptr window, quintptr parent) = 0;
};

} // namespace OrrinQuiver
