#include "control/PropertyTable.h"

#include "core/QuiverEnums.h"
#include "platform/MousePointer.h"

namespace OrrinQuiver::PropertyTable {

namespace {

using S = QuiverSettings;

constexpr Value number(qint64 value) { return { value, PropertyCount, false }; }
constexpr Value from(Property property) { return { 0, property, false }; }
// The control's own value for the row's type (see Value).
constexpr Value own() { return { 0, PropertyCount, true }; }
constexpr Value none() { return {}; }

constexpr qint64 DefaultMask = rgbColor(192, 192, 192);

// The ranges the delay setters clamp to, in milliseconds.
constexpr int MinScrollDelay = 10;
constexpr int MaxScrollDelay = 2000;
constexpr int NoClamp[] = { 0, -1 };

// Colours of items and bars alike: item views redraw, the strip repaints.
constexpr unsigned ItemAndBarColor = IfChanged | RedrawViews | RepaintStrip;
// Colours of the bars: every bar is drawn again after the layout.
constexpr unsigned BarColor = IfChanged | HeaderRedraw | Layout | RepaintStrip;
// What is read when an item is painted or clicked: the views take the new look.
constexpr unsigned ItemLookOnly = IfChanged | RestyleViews;

constexpr Row row(const char *name, BagType type, Field field, Value bagDefault, Init init, Value initial,
                  unsigned effects, const int (&clamp)[2] = NoClamp)
{
    return { name, type, field, bagDefault, init, initial, clamp[0], clamp[1], effects };
}

constexpr int ScrollDelayClamp[] = { MinScrollDelay, MaxScrollDelay };

// Defaults and initial values that differ do so deliberately: a new control
// drops on headers and items and records its history, while a save stores
// both against "off", so a new control stores them.
const std::array<Row, PropertyCount> Rows { {
    row("Style", BagType::Long, &S::style, number(qvStyleOutlook), Init::Store, number(qvStyleOutlook),
        EffectsIfChanged | RestyleViews | HeaderRedraw | ForceRepaintStrip | Layout),
    row("Font", BagType::Font, {}, own(), Init::Setter, own(), HandWritten),
    row("DefaultMaskColor", BagType::Long, &S::defaultMaskColor, number(DefaultMask), Init::Store,
        number(DefaultMask), ViewsMaskColor),
    row("BackColor", BagType::Long, &S::backColor, number(SystemColors::ButtonShadow), Init::None, none(),
        ItemAndBarColor | RepaintSurface),
    row("CheckColor", BagType::Long, &S::checkColor, number(SystemColors::ButtonFace), Init::Store,
        number(SystemColors::ButtonFace), ItemAndBarColor),
    row("ShadowColor", BagType::Long, &S::shadowColor, number(SystemColors::ButtonShadow), Init::Store,
        number(SystemColors::ButtonShadow), HandWritten),
    row("DkShadowColor", BagType::Long, &S::dkShadowColor, number(SystemColors::ButtonDarkShadow), Init::Store,
        number(SystemColors::ButtonDarkShadow), BarColor | RedrawViews),
    row("HighlightColor", BagType::Long, &S::highlightColor, number(SystemColors::ButtonHighlight), Init::Store,
        number(SystemColors::ButtonHighlight), BarColor | RestyleViews),
    row("HeaderBackColor", BagType::Long, &S::headerBackColor, number(SystemColors::ButtonFace), Init::Store,
        number(SystemColors::ButtonFace), BarColor),
    row("HeaderForeColor", BagType::Long, &S::headerForeColor, number(SystemColors::ButtonText), Init::Store,
        number(SystemColors::ButtonText), BarColor),
    // The hover colour shows only on the bar under the mouse, so the bars
    // keep their drawn look.
    row("HeaderOverForeColor", BagType::Long, &S::headerOverForeColor, from(HeaderForeColor), Init::Store,
        from(HeaderForeColor), IfChanged | Layout | RepaintStrip),
    row("ItemForeColor", BagType::Long, &S::itemForeColor, number(SystemColors::Window), Init::Store,
        number(SystemColors::Window), ItemAndBarColor),
    row("ItemOverForeColor", BagType::Long, &S::itemOverForeColor, from(ItemForeColor), Init::Store,
        from(ItemForeColor), ItemLookOnly),
    row("ItemOverBackColor", BagType::Long, &S::itemOverBackColor, from(BackColor), Init::Store, from(BackColor),
        ItemLookOnly),
    row("ItemDownBackColor", BagType::Long, &S::itemDownBackColor, from(BackColor), Init::Store, from(BackColor),
        ItemLookOnly),
    row("ItemDownForeColor", BagType::Long, &S::itemDownForeColor, from(ItemForeColor), Init::Store,
        from(ItemForeColor), ItemLookOnly),
    row("HeaderMouseIcon", BagType::Picture, {}, none(), Init::Setter, own(), HandWritten),
    row("HeaderMousePointer", BagType::Long, {}, number(MousePointer::Custom), Init::Setter,
        number(MousePointer::Custom), HandWritten),
    row("ItemMouseIcon", BagType::Picture, {}, none(), Init::Setter, none(), HandWritten),
    row("ItemMousePointer", BagType::Long, {}, number(MousePointer::Arrow), Init::Setter,
        number(MousePointer::Arrow), HandWritten),
    row("PlaySounds", BagType::Boolean, &S::playSounds, number(true), Init::Store, number(true), 0),
    row("OLEDragMode", BagType::Integer, &S::oleDragMode, number(qvOLEDragManual), Init::Setter,
        number(qvOLEDragManual), 0),
    row("OLEDropMode", BagType::Integer, &S::oleDropMode, number(qvOLEDropNone), Init::Setter,
        number(qvOLEDropHeadersItems), 0),
    row("ScrollDelay", BagType::Integer, &S::scrollDelay, number(120), Init::Store, number(120), ArrowInterval,
        ScrollDelayClamp),
    row("SmoothScroll", BagType::Boolean, &S::smoothScroll, number(true), Init::Store, number(true),
        EffectsIfChanged | ArrowInterval),
    row("ShowToolTips", BagType::Boolean, &S::showToolTips, number(true), Init::Setter, number(true),
        EffectsIfChanged | RedrawOpenView),
    row("SoundItemURL", BagType::Text, {}, none(), Init::None, none(), HandWritten),
    row("SoundHeaderUpURL", BagType::Text, {}, none(), Init::None, none(), HandWritten),
    row("SoundHeaderDownURL", BagType::Text, {}, none(), Init::None, none(), HandWritten),
    row("TrackNavigation", BagType::Boolean, NavigationRecording {}, number(false), Init::Setter, number(true),
        HandWritten),
    row("UseSystemSounds", BagType::Boolean, &S::useSystemSounds, number(true), Init::Store, number(true), 0),
    row("AutoMouseWheel", BagType::Boolean, &S::autoMouseWheel, number(false), Init::Store, number(false), 0),
    row("AlwaysShowFirstHeader", BagType::Boolean, &S::alwaysShowFirstHeader, number(true), Init::Store,
        number(true), LayoutSingleHeader),
    row("ItemsMoveWithClick", BagType::Boolean, &S::itemsMoveWithClick, number(false), Init::None, none(),
        ItemLookOnly),
    row("ItemsStayDownWithClick", BagType::Boolean, &S::itemsStayDownWithClick, number(false), Init::None, none(),
        IfChanged | ViewsStayDown),
    row("ItemsUnderlineOnMove", BagType::Boolean, &S::itemsUnderlineOnMove, number(false), Init::None, none(),
        ItemLookOnly),
    row("Icons", BagType::ObjectName, {}, none(), Init::None, none(), HandWritten),
    row("SmallIcons", BagType::ObjectName, {}, none(), Init::None, none(), HandWritten),
} };

constexpr Property ReadOrder[] = {
    Style, Font, BackColor, DefaultMaskColor, CheckColor, ShadowColor, DkShadowColor, HighlightColor,
    HeaderBackColor, HeaderForeColor, HeaderOverForeColor, ItemForeColor, ItemOverForeColor, ItemOverBackColor,
    ItemDownBackColor, ItemDownForeColor, HeaderMouseIcon, HeaderMousePointer, ItemMouseIcon, ItemMousePointer,
    PlaySounds, OLEDropMode, OLEDragMode, ScrollDelay, SmoothScroll, ShowToolTips, SoundItemURL, SoundHeaderUpURL,
    SoundHeaderDownURL, UseSystemSounds, AutoMouseWheel, AlwaysShowFirstHeader, ItemsMoveWithClick,
    ItemsStayDownWithClick, ItemsUnderlineOnMove, TrackNavigation, Icons, SmallIcons,
};
static_assert(std::size(ReadOrder) == PropertyCount);

// The switches first, the drag and drop modes and tooltips through their
// setters, the colours, the pointers, the history and last the font, whose
// setter lays the strip out with everything else in place.
constexpr Property InitOrder[] = {
    Style, AlwaysShowFirstHeader, AutoMouseWheel, PlaySounds, ScrollDelay, UseSystemSounds, SmoothScroll,
    OLEDropMode, OLEDragMode, ShowToolTips, HeaderBackColor, CheckColor, DefaultMaskColor, DkShadowColor,
    ShadowColor, HeaderForeColor, HeaderOverForeColor, ItemForeColor, ItemOverForeColor, ItemDownForeColor,
    ItemOverBackColor, ItemDownBackColor, HighlightColor, HeaderMouseIcon, HeaderMousePointer, ItemMouseIcon,
    ItemMousePointer, TrackNavigation, Font,
};

} // namespace

const std::array<Row, PropertyCount> &rows() { return Rows; }

std::span<const Property> readOrder() { return ReadOrder; }

std::span<const Property> initOrder() { return InitOrder; }

} // namespace OrrinQuiver::PropertyTable
