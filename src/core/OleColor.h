#pragma once

#include <QtCore/QtGlobal>

namespace OrrinQuiver {

// A colour as the object model stores it: either an RGB value 0x00BBGGRR, or,
// with the high bit set, a reference to system colour number (value & 0xFF).
// The control resolves system colours through its palette when it draws.
using OLE_COLOR = quint32;

constexpr OLE_COLOR SystemColorFlag = 0x80000000u;

constexpr bool isSystemColor(OLE_COLOR c) { return (c & SystemColorFlag) != 0; }
constexpr int systemColorIndex(OLE_COLOR c) { return int(c & 0xFFu); }
constexpr OLE_COLOR systemColor(int index) { return SystemColorFlag | OLE_COLOR(index & 0xFF); }
constexpr OLE_COLOR rgbColor(int r, int g, int b)
{
    return OLE_COLOR(r & 0xFF) | (OLE_COLOR(g & 0xFF) << 8) | (OLE_COLOR(b & 0xFF) << 16);
}

// The system colours the object model uses as defaults.
namespace SystemColors {
constexpr OLE_COLOR ActiveCaption = systemColor(2);
constexpr OLE_COLOR Window = systemColor(5);
constexpr OLE_COLOR CaptionText = systemColor(9);
constexpr OLE_COLOR ButtonFace = systemColor(15);
constexpr OLE_COLOR ButtonShadow = systemColor(16);
constexpr OLE_COLOR ButtonText = systemColor(18);
constexpr OLE_COLOR ButtonHighlight = systemColor(20);
constexpr OLE_COLOR ButtonDarkShadow = systemColor(21);
} // namespace SystemColors

} // namespace OrrinQuiver
