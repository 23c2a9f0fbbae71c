#pragma once

#include "core/OleColor.h"

#include <QtCore/QtGlobal>

#include <array>
#include <span>
#include <variant>

namespace OrrinQuiver {

// The plain values behind the control's routine properties. A new control
// holds the values a save writes as defaults; InitProperties then gives a
// newly placed control its initial ones (PropertyTable).
struct QuiverSettings
{
    int style;
    bool alwaysShowFirstHeader;
    bool autoMouseWheel;
    bool playSounds;
    bool useSystemSounds;
    bool smoothScroll;
    bool showToolTips;
    bool itemsMoveWithClick;
    bool itemsStayDownWithClick;
    bool itemsUnderlineOnMove;
    int scrollDelay;
    int oleDragMode;
    int oleDropMode;
    OLE_COLOR backColor;
    OLE_COLOR checkColor;
    OLE_COLOR defaultMaskColor;
    OLE_COLOR dkShadowColor;
    OLE_COLOR shadowColor;
    OLE_COLOR highlightColor;
    OLE_COLOR headerBackColor;
    OLE_COLOR headerForeColor;
    OLE_COLOR headerOverForeColor;
    OLE_COLOR itemForeColor;
    OLE_COLOR itemOverForeColor;
    OLE_COLOR itemOverBackColor;
    OLE_COLOR itemDownBackColor;
    OLE_COLOR itemDownForeColor;
};

// One row for every property the control keeps in a property bag: its name
// (also its key in the bag), how the bag holds it, the default a save passes
// and a restore reads a missing value as, the value a newly placed control
// starts with, its clamp, and what a change does. The rows drive the new
// control's values, InitProperties, WriteProperties, ReadProperties and the
// routine setters; setters whose behaviour is special are written by hand in
// Quiver.cpp and the table only names them.
namespace PropertyTable {

// The rows, in the order a save writes them.
enum Property : int {
    Style,
    Font,
    DefaultMaskColor,
    BackColor,
    CheckColor,
    ShadowColor,
    DkShadowColor,
    HighlightColor,
    HeaderBackColor,
    HeaderForeColor,
    HeaderOverForeColor,
    ItemForeColor,
    ItemOverForeColor,
    ItemOverBackColor,
    ItemDownBackColor,
    ItemDownForeColor,
    HeaderMouseIcon,
    HeaderMousePointer,
    ItemMouseIcon,
    ItemMousePointer,
    PlaySounds,
    OLEDragMode,
    OLEDropMode,
    ScrollDelay,
    SmoothScroll,
    ShowToolTips,
    SoundItemURL,
    SoundHeaderUpURL,
    SoundHeaderDownURL,
    TrackNavigation,
    UseSystemSounds,
    AutoMouseWheel,
    AlwaysShowFirstHeader,
    ItemsMoveWithClick,
    ItemsStayDownWithClick,
    ItemsUnderlineOnMove,
    Icons,
    SmallIcons,
    PropertyCount
};

// How a bag holds a value. Integer is 16-bit, Long 32-bit (colours are
// Longs); a Picture is kept as its text; an ObjectName row stores the name of
// the object set, and only while one is set.
enum class BagType { Boolean, Integer, Long, Text, Font, Picture, ObjectName };

// What a setter does. Without IfChanged or EffectsIfChanged a setter always
// stores, runs its effects and notifies.
enum Effect : unsigned {
    // An equal value changes nothing, not even the notification.
    IfChanged = 1u << 0,
    // An equal value is only notified.
    EffectsIfChanged = 1u << 1,
    // The rest run in this order, after the value is stored.
    RepaintSurface = 1u << 2, // the control's own surface repaints
    RestyleViews = 1u << 3, // every item view takes the new item look
    RedrawViews = 1u << 4, // ... and redraws all of its items
    ViewsMaskColor = 1u << 5, // every item view takes the default mask colour
    ViewsStayDown = 1u << 6, // every item view takes the stay-down switch
    RedrawOpenView = 1u << 7, // the open header's item view redraws
    ArrowInterval = 1u << 8, // the arrow timer takes its interval again
    HeaderRedraw = 1u << 9, // the next layout redraws every bar
    ForceRepaintStrip = 1u << 10, // every bar is drawn again in its normal look
    Layout = 1u << 11, // the full layout of the strip
    LayoutSingleHeader = 1u << 12, // the full layout, when there is exactly one header
    RepaintStrip = 1u << 13, // every bar repaints
    // The setter is written by hand; the table holds the property's bag facts.
    HandWritten = 1u << 14,
};

// Where a row's value lives: a field of QuiverSettings, the history's
// recording switch, or (std::monostate) the control's property of the
// row's name, read and written through the meta-object.
struct NavigationRecording
{ };
using Field = std::variant<std::monostate, NavigationRecording, bool QuiverSettings::*, int QuiverSettings::*,
                           OLE_COLOR QuiverSettings::*>;

// A value as the table gives it: a number, the current value of another
// property, or what the control itself holds for the type (its default
// font, the built-in header pointer picture, no picture, an empty text).
struct Value
{
    qint64 number = 0;
    Property from = PropertyCount;
    bool controlDefault = false;
};

// How InitProperties gives a newly placed control its value: not at all,
// stored directly (without the setter's effects), or through the setter.
enum class Init { None, Store, Setter };

struct Row
{
    const char *name;
    BagType type;
    Field field;
    Value bagDefault;
    Init init;
    Value initial;
    int minimum;
    int maximum; // below minimum: no clamp
    unsigned effects;
};

const std::array<Row, PropertyCount> &rows();
inline const Row &row(Property property) { return rows()[size_t(property)]; }

// The order a restore applies the rows in: the shadow colour before the
// highlight colour, which it overwrites, so that a stored highlight wins.
std::span<const Property> readOrder();
// The order InitProperties applies the rows that have an Init.
std::span<const Property> initOrder();

} // namespace PropertyTable
} // namespace OrrinQuiver
