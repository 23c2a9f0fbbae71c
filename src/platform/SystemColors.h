#pragma once

#include "core/OleColor.h"
#include "core/OrrinQuiverExport.h"

#include <QtGui/QColor>
#include <QtGui/QPalette>

namespace OrrinQuiver {

// Resolves a colour of the object model to the RGB colour to paint with.
// System colours (high bit set) are looked up in `palette`, so the bar follows
// the desktop's colour scheme, dark ones included; indices with no palette
// role take their classic desktop value. Unknown indices give black.
ORRINQUIVER_EXPORT QColor translateColor(OLE_COLOR color, const QPalette &palette);

// The classic desktop value of system colour number `index` (black for
// unknown indices).
ORRINQUIVER_EXPORT QColor classicSystemColor(int index);

// A palette filled with the classic desktop colours: painting with it gives
// the same pixels on every machine, which is what tests and the rendered demo
// screens rely on.
ORRINQUIVER_EXPORT QPalette classicPalette();

// An RGB colour as an OLE_COLOR value (0x00BBGGRR).
ORRINQUIVER_EXPORT OLE_COLOR toOleColor(const QColor &color);

} // namespace OrrinQuiver
