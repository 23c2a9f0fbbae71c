#pragma once

#include "itemview/DrawItem.h"
#include "core/QuiverEnums.h"

#include <QtCore/QtGlobal>

#include <functional>
#include <vector>

namespace OrrinQuiver {

// The icon geometry that `style` and `view` give an item `width` pixels wide:
// Outlook styles (0, 2) large icons mode 2, left (width - 36) / 2, cell 36;
// small icons mode 1, left 0, cell 20; Windows styles (1, 3) mode 7, left
// (width - 32) / 2 - 2, cell `width`; Visual Studio (4) mode 0, left 4, cell
// `width`. Division truncates towards zero (a narrow view gives a negative
// left, which is kept). A style outside qvStyle, or a view outside qvViewType
// in an Outlook style, returns `current` unchanged.
IconGeometry iconGeometryFor(qvStyle style, qvViewType view, int width, const IconGeometry &current);

// The gap between stacked items: 2 pixels in the Outlook styles (0, 2) in
// either known view, else 0.
int itemGap(qvStyle style, qvViewType view);

// Where the items of one header lie and which of them the view shows: the
// stacking of item rectangles inside the moving surface (item tops never
// change when the view scrolls), the surface's top (0, or negative when
// scrolled), the top slot and the last fully visible slot. It knows nothing
// of widgets: it asks `visible(position)` for the items' Visible flags, and
// gives every item the same height (ItemHeight). Tops are prefix sums kept
// incrementally: appending items costs O(1) each, a change at position p
// re-reads items from p on at the next query, and every query is O(1) while
// no item is hidden, O(log n) otherwise.
class ItemLayout
{
public:
    using VisibleFn = std::function<bool(int position)>;

    // `visible` is asked for positions 1..count(); it must stay valid for the
    // layout's life. An empty `visible` counts every item visible.
    explicit ItemLayout(VisibleFn visible);

    // The number of items (a negative count means 0); changing it keeps what
    // was read below the smaller of the old and new count.
    int count() const;
    void setCount(int count);
    // Positions from `position` on must be read again (an item was inserted,
    // removed or changed its Visible there). Values below 1 mean all.
    void invalidateFrom(int position);

    // Row height and gap; a change re-stacks everything without reading the
    // items again. Negative values count as 0.
    int rowHeight() const;
    void setRowHeight(int height);
    int gap() const;
    void setGap(int gap);

    // The top of the item at `position` inside the surface: the rows and gaps
    // of the visible items before it. A hidden item lies at the top of the
    // next visible one. 0 for positions outside 1..count().
    int top(int position) const;
    bool isVisible(int position) const;
    // The surface's height: down to the bottom of the last item's rectangle
    // (visible or not); 0 without items.
    int surfaceHeight() const;
    // The first position whose rectangle [top, top + rowHeight] holds `y`
    // (both edges count, so on a shared edge the earlier item wins), hidden
    // items included; 0 when none does.
    int positionAt(int y) const;
    // The first and last visible positions whose rectangles meet the surface
    // band [y0, y1); {0, -1} when none.
    std::pair<int, int> visibleRange(int y0, int y1) const;

    // Scroll state. The surface's top (0 or negative), the top slot (>= 1)
    // and the last fully visible slot.
    int surfaceTop() const;
    void setSurfaceTop(int top);
    int topSlot() const;
    void setTopSlot(int slot);
    int lastFullyVisibleSlot() const;
    // Back to the top: surface top 0, top slot 1.
    void resetScroll();

    // Whether the bottom of the last item's rectangle, visible or not, lies
    // below the view: |surfaceTop| + viewHeight < its bottom, in full width
    // however far the surface is scrolled. False without items.
    bool isDownArrowNeeded(int surfaceTop, int viewHeight) const;
    // The distance a one-item slide moves the surface: the row height of the
    // item at the top slot (0 when no visible item is there).
    int slideDistance() const;
    // Recomputes the last fully visible slot after the view moved by at most
    // one item: walks positions from (last slot - 1, at least 1) to count(),
    // taking b = the position's bottom inside the surface minus `offset`;
    // stops at the first b > 0, otherwise that position becomes the last
    // fully visible slot. The view passes its own bottom edge in surface
    // coordinates, |surfaceTop| + view height.
    void setObscure(int offset);
    // Sets the last fully visible slot directly (clamped to at least 1), so
    // that a following setObscure walks from there: the view does so after a
    // resize or a jump to the top.
    void setLastFullyVisibleSlot(int slot);

    // Checks the cached tops against a full re-stack; for tests and debug
    // builds.
    bool checkInvariants() const;

private:
    qint64 stride() const;
    // Reads the Visible flags of the positions up to `position`.
    void ensureRead(int position) const;
    // Drops what was read from `position` on.
    void forgetFrom(int position) const;
    // Visible items among positions 1..position - 1 (position <= count + 1).
    int visibleBefore(int position) const;
    // The first position p with visibleBefore(p) >= `visible`, or a
    // position past count + 1 when there is none; everything must be read.
    int firstPositionWithVisibleBefore(int visible) const;

    VisibleFn m_visible;
    int m_count = 0;
    int m_rowHeight = 0;
    int m_gap = 0;
    int m_surfaceTop = 0;
    int m_topSlot = 1;
    int m_lastFullyVisibleSlot = 1;
    // Visible items before each position, read up to m_readUpTo; empty while
    // no item read so far is hidden.
    mutable std::vector<int> m_visibleBefore;
    mutable int m_readUpTo = 0;
};

} // namespace OrrinQuiver
