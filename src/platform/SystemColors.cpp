#include "platform/SystemColors.h"

#include <array>
#include <optional>

namespace OrrinQuiver {

namespace {

// The classic ("Windows Standard") scheme, by system colour index.
constexpr std::array<QRgb, 31> ClassicColors = {
    qRgb(212, 208, 200), // 0 scroll bar
    qRgb(58, 110, 165),  // 1 desktop
    qRgb(10, 36, 106),   // 2 active caption
    qRgb(128, 128, 128), // 3 inactive caption
    qRgb(212, 208, 200), // 4 menu
    qRgb(255, 255, 255), // 5 window
    qRgb(0, 0, 0),       // 6 window frame
    qRgb(0, 0, 0),       // 7 menu text
    qRgb(0, 0, 0),       // 8 window text
    qRgb(255, 255, 255), // 9 caption text
    qRgb(212, 208, 200), // 10 active border
    qRgb(212, 208, 200), // 11 inactive border
    qRgb(128, 128, 128), // 12 application workspace
    qRgb(10, 36, 106),   // 13 highlight
    qRgb(255, 255, 255), // 14 highlight text
    qRgb(212, 208, 200), // 15 button face
    qRgb(128, 128, 128), // 16 button shadow
    qRgb(128, 128, 128), // 17 grey text
    qRgb(0, 0, 0),       // 18 button text
    qRgb(212, 208, 200), // 19 inactive caption text
    qRgb(255, 255, 255), // 20 button highlight
    qRgb(64, 64, 64),    // 21 3-D dark shadow
    qRgb(212, 208, 200), // 22 3-D light
    qRgb(0, 0, 0),       // 23 tooltip text
    qRgb(255, 255, 225), // 24 tooltip background
    qRgb(181, 181, 181), // 25 (unused slot)
    qRgb(0, 0, 128),     // 26 hot-tracked item
    qRgb(166, 202, 240), // 27 gradient of the active caption
    qRgb(192, 192, 192), // 28 gradient of the inactive caption
    qRgb(49, 106, 197),  // 29 highlighted menu item
    qRgb(212, 208, 200), // 30 menu bar
};

struct RoleOf {
    QPalette::ColorGroup group;
    QPalette::ColorRole role;
};

// The palette role that stands for a system colour; indices without one keep
// their classic value whatever the desktop's scheme.
std::optional<RoleOf> paletteRoleOf(int index)
{
    switch (index) {
    case 4: return RoleOf{QPalette::Active, QPalette::Window};
    case 5: return RoleOf{QPalette::Active, QPalette::Base};
    case 7: return RoleOf{QPalette::Active, QPalette::WindowText};
    case 8: return RoleOf{QPalette::Active, QPalette::Text};
    case 13: return RoleOf{QPalette::Active, QPalette::Highlight};
    case 14: return RoleOf{QPalette::Active, QPalette::HighlightedText};
    case 15: return RoleOf{QPalette::Active, QPalette::Button};
    case 16: return RoleOf{QPalette::Active, QPalette::Dark};
    case 17: return RoleOf{QPalette::Disabled, QPalette::Text};
    case 18: return RoleOf{QPalette::Active, QPalette::ButtonText};
    case 20: return RoleOf{QPalette::Active, QPalette::Light};
    case 21: return RoleOf{QPalette::Active, QPalette::Shadow};
    case 22: return RoleOf{QPalette::Active, QPalette::Midlight};
    case 23: return RoleOf{QPalette::Active, QPalette::ToolTipText};
    case 24: return RoleOf{QPalette::Active, QPalette::ToolTipBase};
    case 26: return RoleOf{QPalette::Active, QPalette::Link};
    case 30: return RoleOf{QPalette::Active, QPalette::Window};
    default: return std::nullopt;
    }
}

} // namespace

QColor classicSystemColor(int index)
{
    if (index < 0 || index >= int(ClassicColors.size()))
        return QColor(Qt::black);
    return QColor(ClassicColors[size_t(index)]);
}

QColor translateColor(OLE_COLOR color, const QPalette &palette)
{
    if (!isSystemColor(color))
        return QColor(int(color & 0xFF), int((color >> 8) & 0xFF), int((color >> 16) & 0xFF));
    const int index = systemColorIndex(color);
    if (const auto role = paletteRoleOf(index))
        return palette.color(role->group, role->role);
    return classicSystemColor(index);
}

QPalette classicPalette()
{
    QPalette p(classicSystemColor(15), classicSystemColor(4));
    const auto set = [&p](QPalette::ColorRole role, int index) {
        p.setColor(QPalette::All, role, classicSystemColor(index));
    };
    set(QPalette::Window, 4);
    set(QPalette::WindowText, 7);
    set(QPalette::Base, 5);
    set(QPalette::Text, 8);
    set(QPalette::Highlight, 13);
    set(QPalette::HighlightedText, 14);
    set(QPalette::Button, 15);
    set(QPalette::Dark, 16);
    set(QPalette::ButtonText, 18);
    set(QPalette::Light, 20);
    set(QPalette::Shadow, 21);
    set(QPalette::Midlight, 22);
    set(QPalette::ToolTipText, 23);
    set(QPalette::ToolTipBase, 24);
    set(QPalette::Link, 26);
    set(QPalette::Mid, 16);
    p.setColor(QPalette::Disabled, QPalette::Text, classicSystemColor(17));
    p.setColor(QPalette::Disabled, QPalette::WindowText, classicSystemColor(17));
    p.setColor(QPalette::Disabled, QPalette::ButtonText, classicSystemColor(17));
    return p;
}

OLE_COLOR toOleColor(const QColor &color)
{
    return rgbColor(color.red(), color.green(), color.blue());
}

} // namespace OrrinQuiver
