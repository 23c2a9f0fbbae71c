#include "itemview/ItemLayout.h"

#include <algorithm>
#include <limits>
#include <numeric>

namespace OrrinQuiver {

namespace {

// Layout modes that item painting branches on.
constexpr int OutlookLargeMode = 2;
constexpr int OutlookSmallMode = 1;
constexpr int WindowsMode = 7;
constexpr int VisualStudioMode = 0;

// The icon cell of the Outlook styles: centred and 36 pixels wide for large
// icons, at the left edge and 20 wide for small ones.
constexpr int OutlookLargeCell = 36;
constexpr int OutlookSmallCell = 20;
constexpr int OutlookSmallLeft = 0;
// The Windows styles centre a 32-pixel icon and then shift it 2 pixels left.
constexpr int WindowsIcon = 32;
constexpr int WindowsIconShift = 2;
// The Visual Studio style keeps its icon 4 pixels from the left edge.
constexpr int VisualStudioLeft = 4;

// Space between two stacked items in the Outlook styles.
constexpr int OutlookItemGap = 2;

bool isOutlook(qvStyle style) { return style == qvStyleOutlook || style == qvStyleOutlookXP; }

bool isKnownView(qvViewType view) { return view == qvViewLargeIcons || view == qvViewSmallIcons; }

int clampToInt(qint64 value)
{
    return int(std::clamp<qint64>(value, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

// Division rounding towards minus infinity, for bands that start above the
// surface.
qint64 floorDiv(qint64 a, qint64 b) { return a / b - ((a % b != 0) && ((a < 0) != (b < 0))); }

} // namespace

IconGeometry iconGeometryFor(qvStyle style, qvViewType view, int width, const IconGeometry &current)
{
    switch (style) {
    case qvStyleOutlook:
    case qvStyleOutlookXP:
        if (view == qvViewLargeIcons)
            return { OutlookLargeMode, int((qint64(width) - OutlookLargeCell) / 2), OutlookLargeCell };
        if (view == qvViewSmallIcons)
            return { OutlookSmallMode, OutlookSmallLeft, OutlookSmallCell };
        return current;
    case qvStyleWindows2000:
    case qvStyleWindowsXP:
        return { WindowsMode, int((qint64(width) - WindowsIcon) / 2 - WindowsIconShift), width };
    case qvStyleVisualStudio:
        return { VisualStudioMode, VisualStudioLeft, width };
    }
    return current;
}

int itemGap(qvStyle style, qvViewType view)
{
    return isOutlook(style) && isKnownView(view) ? OutlookItemGap : 0;
}

ItemLayout::ItemLayout(VisibleFn visible)
    : m_visible(std::move(visible))
{ }

int ItemLayout::count() const { return m_count; }

void ItemLayout::setCount(int count)
{
    m_count = std::max(count, 0);
    forgetFrom(m_count + 1);
}

void ItemLayout::invalidateFrom(int position) { forgetFrom(std::max(position, 1)); }

int ItemLayout::rowHeight() const { return m_rowHeight; }

// Tops are kept as counts of visible items, so a new row height or gap needs
// no re-reading: every top is a count times the new stride.
void ItemLayout::setRowHeight(int height) { m_rowHeight = std::max(height, 0); }

int ItemLayout::gap() const { return m_gap; }

void ItemLayout::setGap(int gap) { m_gap = std::max(gap, 0); }

int ItemLayout::top(int position) const
{
    if (position < 1 || position > m_count)
        return 0;
    return clampToInt(visibleBefore(position) * stride());
}

bool ItemLayout::isVisible(int position) const
{
    if (position < 1 || position > m_count)
        return false;
    return visibleBefore(position + 1) > visibleBefore(position);
}

int ItemLayout::surfaceHeight() const
{
    if (m_count == 0)
        return 0;
    return clampToInt(qint64(top(m_count)) + m_rowHeight);
}

int ItemLayout::positionAt(int y) const
{
    if (m_count == 0)
        return 0;
    ensureRead(m_count);
    // Tops never decrease with the position, so the first rectangle holding y
    // is the first one whose bottom reaches y, provided its top is not below y.
    const qint64 reach = qint64(y) - m_rowHeight;
    const qint64 step = stride();
    int position = 1;
    if (reach > 0) {
        if (step == 0)
            return 0;
        const qint64 needed = floorDiv(reach - 1, step) + 1;
        if (needed > m_count)
            return 0;
        position = firstPositionWithVisibleBefore(int(needed));
        if (position > m_count)
            return 0;
    }
    return top(position) <= y ? position : 0;
}

std::pair<int, int> ItemLayout::visibleRange(int y0, int y1) const
{
    constexpr std::pair<int, int> none { 0, -1 };
    if (m_count == 0 || m_rowHeight == 0 || y0 >= y1)
        return none;
    ensureRead(m_count);
    const qint64 shown = visibleBefore(m_count + 1);
    const qint64 step = stride();
    // The j-th visible item (from 0) covers [j * step, j * step + rowHeight);
    // it meets the band when it starts above y1 and ends below y0.
    const qint64 first = std::max<qint64>(0, floorDiv(qint64(y0) - m_rowHeight, step) + 1);
    const qint64 last = std::min(shown - 1, -floorDiv(-qint64(y1), step) - 1);
    if (first > last)
        return none;
    return { firstPositionWithVisibleBefore(int(first) + 1) - 1,
             firstPositionWithVisibleBefore(int(last) + 1) - 1 };
}

int ItemLayout::surfaceTop() const { return m_surfaceTop; }

void ItemLayout::setSurfaceTop(int top) { m_surfaceTop = top; }

int ItemLayout::topSlot() const { return m_topSlot; }

void ItemLayout::setTopSlot(int slot) { m_topSlot = std::max(slot, 1); }

int ItemLayout::lastFullyVisibleSlot() const { return m_lastFullyVisibleSlot; }

void ItemLayout::resetScroll()
{
    m_surfaceTop = 0;
    m_topSlot = 1;
    m_lastFullyVisibleSlot = 1;
}

bool ItemLayout::isDownArrowNeeded(int surfaceTop, int viewHeight) const
{
    if (m_count == 0)
        return false;
    // In full width: a 16-bit sum would wrap once the surface is scrolled past
    // 32,767 pixels (about 1,300 small items), and the arrow towards the last
    // item would then never go, letting the wheel, the arrow and End scroll
    // the last item off the view.
    const qint64 viewBottom = qAbs(qint64(surfaceTop)) + viewHeight;
    return viewBottom < qint64(top(m_count)) + m_rowHeight;
}

// A hidden item takes no room, so stepping over it moves nothing and the
// surface keeps resting on the top of a row.
int ItemLayout::slideDistance() const { return isVisible(m_topSlot) ? m_rowHeight : 0; }

void ItemLayout::setObscure(int offset)
{
    for (int position = std::max(m_lastFullyVisibleSlot - 1, 1); position <= m_count; ++position) {
        if (qint64(top(position)) + m_rowHeight - offset > 0)
            break;
        m_lastFullyVisibleSlot = position;
    }
}

void ItemLayout::setLastFullyVisibleSlot(int slot) { m_lastFullyVisibleSlot = std::max(slot, 1); }

bool ItemLayout::checkInvariants() const
{
    if (m_topSlot < 1 || m_lastFullyVisibleSlot < 1 || m_rowHeight < 0 || m_gap < 0)
        return false;
    qint64 y = 0;
    for (int position = 1; position <= m_count; ++position) {
        if (top(position) != clampToInt(y))
            return false;
        const bool shown = !m_visible || m_visible(position);
        if (isVisible(position) != shown)
            return false;
        if (shown)
            y += stride();
    }
    return m_visibleBefore.empty()
        || (int(m_visibleBefore.size()) == m_readUpTo + 1 && m_visibleBefore.back() < m_readUpTo);
}

qint64 ItemLayout::stride() const { return qint64(m_rowHeight) + m_gap; }

void ItemLayout::ensureRead(int position) const
{
    const int end = std::min(position, m_count);
    for (int p = m_readUpTo + 1; p <= end; ++p) {
        const bool shown = !m_visible || m_visible(p);
        if (m_visibleBefore.empty()) {
            if (shown)
                continue;
            // The first hidden item: from here on tops need the counts.
            m_visibleBefore.resize(p);
            std::iota(m_visibleBefore.begin(), m_visibleBefore.end(), 0);
        }
        m_visibleBefore.push_back(m_visibleBefore.back() + (shown ? 1 : 0));
    }
    m_readUpTo = std::max(m_readUpTo, end);
}

void ItemLayout::forgetFrom(int position) const
{
    if (position > m_readUpTo)
        return;
    m_readUpTo = position - 1;
    if (m_visibleBefore.empty())
        return;
    m_visibleBefore.resize(position);
    if (m_visibleBefore.back() == m_readUpTo)
        m_visibleBefore.clear();
}

int ItemLayout::visibleBefore(int position) const
{
    ensureRead(position - 1);
    return m_visibleBefore.empty() ? position - 1 : m_visibleBefore[position - 1];
}

int ItemLayout::firstPositionWithVisibleBefore(int visible) const
{
    if (m_visibleBefore.empty())
        return visible + 1;
    const auto begin = m_visibleBefore.begin();
    return int(std::lower_bound(begin, begin + m_count + 1, visible) - begin) + 1;
}

} // namespace OrrinQuiver
