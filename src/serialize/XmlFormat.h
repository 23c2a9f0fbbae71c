#pragma once

#include <QtCore/QString>
#include <QtCore/QStringView>

#include <array>
#include <optional>

// Names, version and value texts shared by the XML writers and readers.
namespace OrrinQuiver::XmlFormat {

// The format version written into every document: major * 100 + minor * 10 +
// revision of the library's own version (201 for 2.0.1).
int currentVersion();
// The oldest version a control document may carry; it restores content only.
constexpr int OldestReadableVersion = 200;
// The first version whose root carries the control's style attributes.
constexpr int FirstStyledVersion = 201;

inline constexpr char RootElement[] = "orrinquiver";
inline constexpr char HeaderElement[] = "header";
inline constexpr char ItemElement[] = "item";
inline constexpr char HistoryElement[] = "history";
inline constexpr char VersionAttribute[] = "version";
inline constexpr char DataAttribute[] = "data";
// The "data" of control documents and header fragments; reading a control
// document with it replaces the headers instead of adding to them.
inline constexpr char ItemsData[] = "items";
inline constexpr char HistoryData[] = "history";
// The one attribute of a header fragment's header element: the header's key.
inline constexpr char FilterSourceAttribute[] = "filter-src";
// The first two attributes of every header and item element.
inline constexpr char CaptionAttribute[] = "caption";
inline constexpr char KeyAttribute[] = "key";

// How a style attribute of the control document holds its property's value.
enum class StyleValue {
    FontFamily, // the family of the control's Font
    FontSize, // the point size of the control's Font, a decimal number
    Color, // colour text (#RRGGBB on writing)
    Number, // a decimal Long
    Boolean,
    Text,
    ImageList, // the object name of the bound image list, "" when none
};

// Which object holds a style attribute's property.
enum class StyleTarget { Control, Navigation };

struct StyleAttribute
{
    const char *name;
    const char *property;
    StyleValue value;
    StyleTarget target = StyleTarget::Control;
};

// The style attributes of a control document's root, in the order they are
// written; readers match the names exactly (case-sensitive).
inline constexpr std::array<StyleAttribute, 35> StyleAttributes = { {
    { "font-family", "Font", StyleValue::FontFamily },
    { "font-size", "Font", StyleValue::FontSize },
    { "backcolor", "BackColor", StyleValue::Color },
    { "shadowcolor", "ShadowColor", StyleValue::Color },
    { "highlightcolor", "HighlightColor", StyleValue::Color },
    { "headerbackcolor", "HeaderBackColor", StyleValue::Color },
    { "headerforecolor", "HeaderForeColor", StyleValue::Color },
    { "checkcolor", "CheckColor", StyleValue::Color },
    { "dkshadowcolor", "DkShadowColor", StyleValue::Color },
    { "headeroverforecolor", "HeaderOverForeColor", StyleValue::Color },
    { "itemdownbackcolor", "ItemDownBackColor", StyleValue::Color },
    { "itemdownforecolor", "ItemDownForeColor", StyleValue::Color },
    { "itemforecolor", "ItemForeColor", StyleValue::Color },
    { "itemoverbackcolor", "ItemOverBackColor", StyleValue::Color },
    { "itemoverforecolor", "ItemOverForeColor", StyleValue::Color },
    { "defaultmaskcolor", "DefaultMaskColor", StyleValue::Color },
    { "style", "Style", StyleValue::Number },
    { "playsounds", "PlaySounds", StyleValue::Boolean },
    { "oledrag", "OLEDragMode", StyleValue::Number },
    { "oledrop", "OLEDropMode", StyleValue::Number },
    { "scroll", "ScrollDelay", StyleValue::Number },
    { "smooth", "SmoothScroll", StyleValue::Boolean },
    { "tooltips", "ShowToolTips", StyleValue::Boolean },
    { "snditemurl", "SoundItemURL", StyleValue::Text },
    { "sndhdrupurl", "SoundHeaderUpURL", StyleValue::Text },
    { "sndhdrdownurl", "SoundHeaderDownURL", StyleValue::Text },
    { "navtrack", "Enabled", StyleValue::Boolean, StyleTarget::Navigation },
    { "syssounds", "UseSystemSounds", StyleValue::Boolean },
    { "autowheel", "AutoMouseWheel", StyleValue::Boolean },
    { "alwaysshowfirsthdr", "AlwaysShowFirstHeader", StyleValue::Boolean },
    { "moveclick", "ItemsMoveWithClick", StyleValue::Boolean },
    { "staydown", "ItemsStayDownWithClick", StyleValue::Boolean },
    { "underlineonmove", "ItemsUnderlineOnMove", StyleValue::Boolean },
    { "icons", "Icons", StyleValue::ImageList },
    { "smallicons", "SmallIcons", StyleValue::ImageList },
} };

// "True" or "False", the object model's text for a Boolean.
const char *booleanText(bool value);

// "True" or "False" in any letter case, or a number (0 is False, any other
// number True). Anything else gives no value.
std::optional<bool> parseBoolean(QStringView text);

// A decimal number, blanks around it allowed; no value for anything else.
std::optional<double> parseNumber(QStringView text);

// A number that fits a signed 32-bit Long, a fraction rounded half to even;
// no value when the text is not a number or the number does not fit.
std::optional<qint32> parseLong(QStringView text);

} // namespace OrrinQuiver::XmlFormat
