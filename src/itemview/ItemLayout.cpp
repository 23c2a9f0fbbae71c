#include "itemview/ItemLayout.h"

namespace OrrinQuiver {

IconGeometry iconGeometryFor(qvStyle, qvViewType, int, const IconGeometry &current) { return current; }

int itemGap(qvStyle, qvViewType) { return 0; }

ItemLayout::ItemLayout(VisibleFn visible) : m_visible(std::move(visible)) { }

int ItemLayout::count() const { return m_count; }
void ItemLayout::setCount(int count) { m_count = count; }
void ItemLayout::invalidateFrom(int) { }
int ItemLayout::rowHeight() const { return m_rowHeight; }
void ItemLayout::setRowHeight(int height) { m_rowHeight = height; }
int ItemLayout::gap() const { return m_gap; }
void ItemLayout::setGap(int gap) { m_gap = gap; }
int ItemLayout::top(int position) const { return (position - 1) * (m_rowHeight + m_gap); }
bool ItemLayout::isVisible(int) const { return true; }
int ItemLayout::surfaceHeight() const { return m_count * (m_rowHeight + m_gap); }
int ItemLayout::positionAt(int) const { return 0; }
std::pair<int, int> ItemLayout::visibleRange(int, int) const { return { 0, -1 }; }
int ItemLayout::surfaceTop() const { return m_surfaceTop; }
void ItemLayout::setSurfaceTop(int top) { m_surfaceTop = top; }
int ItemLayout::topSlot() const { return m_topSlot; }
void ItemLayout::setTopSlot(int slot) { m_topSlot = slot; }
int ItemLayout::lastFullyVisibleSlot() const { return m_lastFullyVisibleSlot; }
void ItemLayout::resetScroll() { }
bool ItemLayout::isDownArrowNeeded(int, int) const { return false; }
int ItemLayout::slideDistance() const { return m_rowHeight; }
void ItemLayout::setObscure(int) { }
void ItemLayout::setLastFullyVisibleSlot(int slot) { m_lastFullyVisibleSlot = slot; }
bool ItemLayout::checkInvariants() const { return true; }
void ItemLayout::ensureRead(int) const { }

} // namespace OrrinQuiver
