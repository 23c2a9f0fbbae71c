#pragma once

#include "core/QuiverEnums.h"

namespace OrrinQuiver {

// The five drawing styles fall into three families that share their
// geometry and painting: the Outlook styles, the Windows styles, and the flat
// Visual Studio style. A value outside qvStyle counts as Outlook.
enum class StyleFamily { Outlook, Windows, Flat };

constexpr StyleFamily styleFamilyOf(qvStyle style)
{
    switch (style) {
    case qvStyleWindows2000:
    case qvStyleWindowsXP:
        return StyleFamily::Windows;
    case qvStyleVisualStudio:
        return StyleFamily::Flat;
    case qvStyleOutlook:
    case qvStyleOutlookXP:
        break;
    }
    return StyleFamily::Outlook;
}

} // namespace OrrinQuiver
