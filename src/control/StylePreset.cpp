#include "control/StylePreset.h"

#include "platform/MousePointer.h"
#include "core/OleColor.h"
#include "core/QuiverEnums.h"

#include <QtCore/QObject>
#include <QtCore/QPointer>

#include <array>

namespace OrrinQuiver {

namespace {

constexpr int StyleCount = qvStyleVisualStudio + 1;

bool isStyle(int style) { return style >= qvStyleOutlook && style <= qvStyleVisualStudio; }

// What a preset does with one property: leave it, set a fixed value, or copy
// the value another property has at that moment (always one the same preset
// has set before).
struct Cell
{
    enum class What { Leave, Set, Copy };
    What what = What::Leave;
    quint32 value = 0;
    const char *source = nullptr;
};

// How a row's fixed value becomes the property's value.
enum class Kind { Flag, Colour, Pointer, Picture };

struct Row
{
    const char *property;
    Kind kind;
    std::array<Cell, StyleCount> cells; // indexed by qvStyle
};

constexpr Cell set(quint32 value) { return { Cell::What::Set, value, nullptr }; }
constexpr Cell same(const char *source) { return { Cell::What::Copy, 0, source }; }
constexpr Cell rgb(int r, int g, int b) { return set(rgbColor(r, g, b)); }

constexpr Cell Keep {};
constexpr Cell On = set(1);
constexpr Cell Off = set(0);
constexpr Cell Face = set(SystemColors::ButtonFace);
constexpr Cell Shadow = set(SystemColors::ButtonShadow);
constexpr Cell Text = set(SystemColors::ButtonText);
constexpr Cell Light = set(SystemColors::ButtonHighlight);
constexpr Cell Dark = set(SystemColors::ButtonDarkShadow);
constexpr Cell Window = set(SystemColors::Window);
constexpr Cell Black = rgb(0, 0, 0);
constexpr Cell White = rgb(255, 255, 255);
constexpr Cell DefaultPointer = set(MousePointer::Default);
constexpr Cell NoPicture = set(0);
constexpr Cell BackColor = same("BackColor");
constexpr Cell ItemForeColor = same("ItemForeColor");
constexpr Cell HeaderForeColor = same("HeaderForeColor");

// The presets, written top to bottom. The Outlook styles set the header
// colours before the item colours, the others after them. Windows XP gives
// its hot and pressed item text fixed colours instead of copying the item
// text colour. Visual Studio leaves ItemOverBackColor and ItemDownForeColor
// alone, so those two keep whatever the bar had before.
constexpr Row Preset[] = {
    // clang-format off
    // property                kind             Outlook          Windows2000      OutlookXP           WindowsXP           VisualStudio
    {"ItemsMoveWithClick",     Kind::Flag,    {Off,             Off,             Off,                Off,                Off}},
    {"ItemsStayDownWithClick", Kind::Flag,    {Off,             On,              Off,                On,                 On}},
    {"ItemsUnderlineOnMove",   Kind::Flag,    {Off,             Off,             Off,                Off,                Off}},
    {"SmoothScroll",           Kind::Flag,    {On,              Off,             On,                 Off,                Off}},
    {"AlwaysShowFirstHeader",  Kind::Flag,    {On,              Off,             On,                 Off,                On}},

    {"HeaderBackColor",        Kind::Colour,  {Face,            Keep,            Face,               Keep,               Keep}},
    {"HeaderForeColor",        Kind::Colour,  {Text,            Keep,            Text,               Keep,               Keep}},
    {"BackColor",              Kind::Colour,  {Shadow,          Shadow,          Face,               rgb(222, 219, 214), Face}},
    {"ItemForeColor",          Kind::Colour,  {Window,          Window,          Black,              Black,              Text}},
    {"ItemOverForeColor",      Kind::Colour,  {Keep,            Keep,            Keep,               White,              Keep}},
    {"ItemDownForeColor",      Kind::Colour,  {Keep,            Keep,            Keep,               Black,              Keep}},
    {"ItemDownBackColor",      Kind::Colour,  {BackColor,       Keep,            rgb(132, 146, 181), rgb(132, 146, 181), Keep}},
    {"ItemOverBackColor",      Kind::Colour,  {BackColor,       BackColor,       rgb(181, 190, 214), rgb(181, 190, 214), Keep}},
    {"ItemOverForeColor",      Kind::Colour,  {Keep,            ItemForeColor,   Keep,               Keep,               Keep}},
    {"ItemDownBackColor",      Kind::Colour,  {Keep,            BackColor,       Keep,               Keep,               Keep}},
    {"ItemDownForeColor",      Kind::Colour,  {Keep,            ItemForeColor,   Keep,               Keep,               Keep}},
    {"CheckColor",             Kind::Colour,  {Face,            Face,            rgb(8, 36, 107),    rgb(8, 36, 107),    rgb(233, 229, 221)}},
    {"ItemDownBackColor",      Kind::Colour,  {Keep,            Keep,            Keep,               Keep,               rgb(233, 229, 221)}},
    {"ShadowColor",            Kind::Colour,  {Shadow,          Shadow,          Shadow,             rgb(132, 130, 132), Shadow}},
    {"DkShadowColor",          Kind::Colour,  {Dark,            Dark,            Dark,               Black,              Dark}},
    {"HighlightColor",         Kind::Colour,  {Light,           Light,           Light,              White,              Light}},
    {"HeaderBackColor",        Kind::Colour,  {Keep,            Face,            Keep,               rgb(236, 233, 216), Face}},
    {"ItemOverForeColor",      Kind::Colour,  {ItemForeColor,   Keep,            ItemForeColor,      Keep,               ItemForeColor}},
    {"ItemDownForeColor",      Kind::Colour,  {ItemForeColor,   Keep,            ItemForeColor,      Keep,               Keep}},
    {"HeaderForeColor",        Kind::Colour,  {Keep,            Text,            Keep,               Text,               Text}},
    {"HeaderOverForeColor",    Kind::Colour,  {HeaderForeColor, HeaderForeColor, HeaderForeColor,    HeaderForeColor,    HeaderForeColor}},

    {"ItemMousePointer",       Kind::Pointer, {DefaultPointer,  DefaultPointer,  DefaultPointer,     DefaultPointer,     DefaultPointer}},
    {"ItemMouseIcon",          Kind::Picture, {NoPicture,       NoPicture,       NoPicture,          NoPicture,          NoPicture}},
    {"HeaderMousePointer",     Kind::Pointer, {Keep,            DefaultPointer,  Keep,               DefaultPointer,     DefaultPointer}},
    // clang-format on
};

QVariant valueOf(Kind kind, quint32 value)
{
    switch (kind) {
    case Kind::Flag:
        return value != 0;
    case Kind::Colour:
        return QVariant::fromValue<OLE_COLOR>(value);
    case Kind::Pointer:
        return int(value);
    case Kind::Picture:
        break;
    }
    return QVariant();
}

// The target has the last word on the style: the preset follows the style
// it reports, not the one asked for.
void writePreset(int style, StylePreset::Target &target)
{
    target.write("Style", QVariant::fromValue(qvStyle(style)));
    bool isNumber = false;
    const int kept = target.read("Style").toInt(&isNumber);
    if (!isNumber || !isStyle(kept))
        return;
    for (const Row &row : Preset) {
        const Cell &cell = row.cells[std::size_t(kept)];
        switch (cell.what) {
        case Cell::What::Leave:
            break;
        case Cell::What::Set:
            target.write(row.property, valueOf(row.kind, cell.value));
            break;
        case Cell::What::Copy:
            target.write(row.property, target.read(cell.source));
            break;
        }
    }
}

class ObjectTarget final : public StylePreset::Target
{
public:
    explicit ObjectTarget(QObject *control)
        : m_control(control)
    { }

    QVariant read(const char *name) const override
    {
        return m_control ? m_control->property(name) : QVariant();
    }

    void write(const char *name, const QVariant &value) override
    {
        if (m_control)
            m_control->setProperty(name, value);
    }

private:
    QPointer<QObject> m_control;
};

} // namespace

QString StylePreset::description(int style)
{
    static const std::array<QString, StyleCount> descriptions = {
        QStringLiteral(
            "Resets the control to default settings. Turns off item moving, staying down, underline. "
            "Turns on smooth scrolling and first header. Colors restored to Outlook 2000 system colors."),
        QStringLiteral(
            "Turns off first header, item underline, item moving, smooth scrolling. Turns on items stay "
            "down. Colors restored to Windows / Office 2000 system colors. Header and item mouse icons "
            "set to arrow."),
        QStringLiteral(
            "Turns off item moving, staying down, underline. Turns on smooth scrolling and first header. "
            "Colors restored to Outlook XP system colors. Header and item mouse icons set to arrow."),
        QStringLiteral(
            "Turns off first header, item underline, item moving, smooth scrolling. Turns on items stay "
            "down. Colors restored to Windows / Office XP system colors. Header and item mouse icons set "
            "to arrow."),
        QStringLiteral(
            "Turns off item underline, smooth scrolling, move with click. Turns on items stay down and "
            "first header. Colors restored to Visual Studio colors. Header and item mouse icons set to "
            "arrow."),
    };
    return isStyle(style) ? descriptions[std::size_t(style)] : QString();
}

void StylePreset::apply(int style, Target &target)
{
    if (!isStyle(style))
        return;
    target.beginPreset();
    writePreset(style, target);
    target.endPreset();
}

void StylePreset::apply(int style, QObject &control)
{
    ObjectTarget target(&control);
    apply(style, target);
}

std::unique_ptr<StylePreset::Target> StylePreset::targetFor(QObject *control)
{
    return std::make_unique<ObjectTarget>(control);
}

} // namespace OrrinQuiver
