#include "control/HeaderGeometry.h"

#include "itemview/StyleFamily.h"

#include <cmath>

namespace OrrinQuiver::HeaderGeometry {

namespace {

// Bar height around the text: a thin bar under Visual Studio, a framed
// button elsewhere.
constexpr int FlatTextAbove = 1;
constexpr int FlatTextBelow = 2;
constexpr int FramedTextAbove = 4;
constexpr int FramedTextBelow = 4;

// What the frame of the Outlook styles takes from the content height, and the
// thinner frame of the Windows styles.
constexpr int OutlookFrame = 13;
constexpr int WindowsFrame = 3;

// The item view's place below its bar, per style family.
constexpr int OutlookViewLeft = 7;
constexpr int OutlookViewGap = 6;
constexpr int OutlookViewNarrowing = 13;
constexpr int WindowsViewLeft = 2;
constexpr int WindowsViewGap = 2;
constexpr int WindowsViewNarrowing = 4;
constexpr int WindowsViewShortening = 3;
constexpr int FlatViewGap = 1;

// Framed bars sit one pixel inside the control's edge on three sides; flat
// bars fill the width and leave a one-pixel line between each other.
constexpr int FramedBarInset = 1;
constexpr int FramedBarNarrowing = 2;
constexpr int FlatBarGap = 1;

// Distance that opening a header below the open one adds to the bars' travel.
constexpr int UpwardSlideExtra = 12;
// Gap between a bar and its item view while the view slides in.
constexpr int SlideViewGap = 6;
// Top of the hidden template bar that the downward travel is measured from:
// it sits at the control's top edge.
constexpr int TemplateBarTop = 0;
// Headers whose opening always moves with the larger minimum step: a full
// item view, or a long way to go.
constexpr int FastItemCount = 11;
constexpr int FastDistanceInHeaders = 5;

int roundHalfToEven(qreal value)
{
    const qreal lower = std::floor(value);
    const qreal fraction = value - lower;
    if (fraction > 0.5 || (fraction == 0.5 && std::fmod(lower, 2.0) != 0.0))
        return int(lower) + 1;
    return int(lower);
}

} // namespace

int headerHeight(qvStyle style, int measuredTextHeight, int previous)
{
    if (measuredTextHeight <= 0)
        return previous;
    if (styleFamilyOf(style) == StyleFamily::Flat)
        return FlatTextAbove + measuredTextHeight + FlatTextBelow;
    return FramedTextAbove + measuredTextHeight + FramedTextBelow;
}

int contentHeight(qvStyle style, qreal height, int headerHeight, int count, int selected,
                  bool alwaysShowFirstHeader)
{
    const StyleFamily family = styleFamilyOf(style);
    qreal content = 0;
    if (!alwaysShowFirstHeader && count == 1)
        content = height - (family == StyleFamily::Flat ? headerHeight : OutlookFrame);
    else if (family == StyleFamily::Windows)
        content = height - WindowsFrame - qreal(headerHeight) * count;
    else if (family == StyleFamily::Outlook)
        content = height - OutlookFrame - qreal(headerHeight) * count;
    else if (selected < count)
        content = height - qreal(headerHeight + FlatBarGap) * count;
    else
        // With the last header open the flat style keeps one more row free at
        // the bottom, where the scroll arrows sit.
        content = height - qreal(headerHeight + FlatBarGap) * (count + 1);
    return roundHalfToEven(content);
}

QRect itemViewRect(qvStyle style, int width, int barTop, int headerHeight, int content)
{
    switch (styleFamilyOf(style)) {
    case StyleFamily::Windows:
        return QRect(WindowsViewLeft, barTop + headerHeight + WindowsViewGap, width - WindowsViewNarrowing,
                     content - WindowsViewShortening);
    case StyleFamily::Flat:
        return QRect(0, barTop + headerHeight + FlatViewGap, width, content);
    case StyleFamily::Outlook:
        break;
    }
    return QRect(OutlookViewLeft, barTop + headerHeight + OutlookViewGap, width - OutlookViewNarrowing,
                 content);
}

StripLayout layoutStrip(const StripInput &input)
{
    const bool flat = styleFamilyOf(input.style) == StyleFamily::Flat;
    const int hh = input.headerHeight;
    const int gap = flat ? FlatBarGap : 0;
    const int left = flat ? 0 : FramedBarInset;
    const int firstTop = flat ? 0 : FramedBarInset;
    const int barWidth = flat ? input.width : input.width - FramedBarNarrowing;
    const int count = int(input.visible.size());
    const int selected = input.selected >= 1 && input.selected <= count ? input.selected : 0;
    // A lone header whose bar is not to be shown lies just above the top edge,
    // so the item view below it starts where the bar would have started.
    const bool hideLoneBar = !input.alwaysShowFirstHeader && count == 1;

    StripLayout layout;
    layout.contentHeight
        = contentHeight(input.style, input.height, hh, count, selected, input.alwaysShowFirstHeader);
    const QRect viewTemplate = itemViewRect(input.style, input.width, 0, hh, layout.contentHeight);
    layout.viewLeft = viewTemplate.left();
    layout.viewWidth = viewTemplate.width();
    layout.bars.reserve(count);
    layout.viewHeights.reserve(count);
    for (int p = 1; p <= count; ++p) {
        const int content = p == selected
            ? layout.contentHeight
            : contentHeight(input.style, input.height, hh, count, p, input.alwaysShowFirstHeader);
        layout.viewHeights.append(itemViewRect(input.style, input.width, 0, hh, content).height());
    }

    int visibleAfter = 0;
    int nextVisible = 0;
    for (int p = selected + 1; p <= count; ++p) {
        if (!input.visible.at(p - 1))
            continue;
        ++visibleAfter;
        if (!nextVisible)
            nextVisible = p;
    }

    int visibleBefore = 0;
    for (int p = 1; p <= count; ++p) {
        const bool visible = input.visible.at(p - 1);
        int top = 0;
        if (p <= selected) {
            top = firstTop + visibleBefore * (hh + gap);
            visibleBefore += visible ? 1 : 0;
        } else {
            visibleAfter -= visible ? 1 : 0;
            top = input.height - (visibleAfter + 1) * hh - visibleAfter * gap;
        }
        if (hideLoneBar)
            top = firstTop - hh;
        // Under the flat style the open bar and the one shown below its item
        // view leave a square of the bar's height free at their right ends
        // for the arrows; hidden headers in between take no part.
        const bool besideArrows = flat && selected > 0 && (p == selected || p == nextVisible);
        layout.bars.append(
            { QRect(left, top, besideArrows ? barWidth - hh : barWidth, hh), visible && !hideLoneBar });
    }
    if (selected > 0)
        layout.openView = itemViewRect(input.style, input.width, layout.bars.at(selected - 1).rect.top(), hh,
                                       layout.contentHeight);
    return layout;
}

SlidePlan planSlide(const SlideInput &input)
{
    SlidePlan plan;
    const int from = input.oldPosition;
    const int to = input.newPosition;
    if (to == from || to < 1 || to > input.count)
        return plan;
    const int k = to > from ? to - from : from - to;
    plan.fast = input.newItemCount >= FastItemCount || k >= FastDistanceInHeaders;
    if (to > from) {
        plan.up = true;
        for (int i = 0; i < k; ++i)
            plan.barPositions.append(to - i);
        plan.distance = input.contentHeight - input.headerHeight * (k - 1) + UpwardSlideExtra;
    } else {
        if (to >= input.count)
            return SlidePlan();
        for (int i = 1; i <= k; ++i)
            plan.barPositions.append(to + i);
        plan.carriesView = true;
        plan.distance = input.height - 1 - (input.headerHeight + TemplateBarTop);
    }
    return plan;
}

int slideViewTop(int barTop, int headerHeight) { return barTop + headerHeight + SlideViewGap; }

} // namespace OrrinQuiver::HeaderGeometry
