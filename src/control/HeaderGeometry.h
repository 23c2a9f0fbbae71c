#pragma once

#include "core/QuiverEnums.h"

#include <QtCore/QList>
#include <QtCore/QRect>

namespace OrrinQuiver {

// The geometry of the header strip as pure functions of the control's size,
// style, bar height and the headers' visibility, so that the layout and the
// slide can be checked without a window. All values are pixels. A style
// outside the five known ones takes the Outlook values.
namespace HeaderGeometry {

// The bar height for a header font whose measured text height is
// `measuredTextHeight`; a height of 0 or less keeps `previous`.
int headerHeight(qvStyle style, int measuredTextHeight, int previous);

// The height given to the open header's item view in a control of inner
// height `height` showing `count` headers, the one at `selected` open. The
// result is rounded to the nearest integer, halves to even.
int contentHeight(qvStyle style, qreal height, int headerHeight, int count, int selected,
                  bool alwaysShowFirstHeader);

// Where the open header's item view goes, below a bar whose top is `barTop`
// in a control of inner width `width`; `content` is the content height.
QRect itemViewRect(qvStyle style, int width, int barTop, int headerHeight, int content);

// What the strip layout is computed from.
struct StripInput
{
    qvStyle style = qvStyleOutlook;
    int width = 0; // the control's inner width
    int height = 0; // the control's inner height
    int headerHeight = 0;
    QList<bool> visible; // the headers' Visible, in position order
    int selected = 0; // 1-based position of the open header, 0 when none is open
    bool alwaysShowFirstHeader = true;
};

struct BarPlacement
{
    QRect rect;
    bool visible = true;
};

struct StripLayout
{
    QList<BarPlacement> bars; // one per header, in position order
    int contentHeight = 0;
    // The open header's item view; a null rectangle when no header is open.
    QRect openView;
    // Left and width that every other item view keeps ready for its opening.
    int viewLeft = 0;
    int viewWidth = 0;
    // The height of each header's item view while its header is open, in
    // position order; closed views keep theirs ready too.
    QList<int> viewHeights;
};

// Places every bar and the open item view. A selected position outside
// 1..count lays every bar out in the bottom stack and leaves openView null.
StripLayout layoutStrip(const StripInput &input);

// What travels when another header opens, and how far.
struct SlidePlan
{
    bool up = false; // the bars travel upward (a header below the open one opens)
    QList<int> barPositions; // the header positions whose bars move, in slot order
    bool carriesView = false; // the opened header's item view moves as the last member
    bool fast = false; // the mover takes its larger minimum step
    int distance = 0;
    // Whether anything moves at all.
    bool isEmpty() const { return barPositions.isEmpty(); }
};

// What the header strip knows when another header opens.
struct SlideInput
{
    int oldPosition = 0; // the header open before, 0 when none was
    int newPosition = 0; // the header open now
    int count = 0; // headers in the strip
    int newItemCount = 0; // items in the newly opened header
    int height = 0; // the control's inner height
    int headerHeight = 0;
    int contentHeight = 0;
};

// The slide that opening `newPosition` starts; an empty plan when the
// positions are equal or the new one is not a header of the strip.
SlidePlan planSlide(const SlideInput &input);

// The top given to the opened header's item view for the slide, just below
// the bar whose top is `barTop`, whatever the style.
int slideViewTop(int barTop, int headerHeight);

} // namespace HeaderGeometry

} // namespace OrrinQuiver
