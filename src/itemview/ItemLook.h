#pragma once

#include "core/OleColor.h"
#include "core/QuiverEnums.h"

#include <QtCore/QPointer>
#include <QtGui/QFont>

namespace OrrinQuiver {

class ImageList;

// The colours items are painted with, as the object model stores them (system
// colours are resolved through the view's palette when painting).
struct ItemColors
{
    OLE_COLOR back = SystemColors::ButtonShadow;
    OLE_COLOR overFore = SystemColors::Window;
    OLE_COLOR overBack = SystemColors::ButtonShadow;
    OLE_COLOR downFore = SystemColors::Window;
    OLE_COLOR downBack = SystemColors::ButtonShadow;
    OLE_COLOR check = SystemColors::ButtonFace;
    OLE_COLOR highlight = SystemColors::ButtonHighlight;
    OLE_COLOR shadow = SystemColors::ButtonShadow;
    OLE_COLOR dkShadow = SystemColors::ButtonDarkShadow;
};

// Everything of the bar that decides how the items of every header look. The
// bar hands one to each item view whenever one of these properties changes;
// an item's own fields (caption, ForeColor, Bold, icons, ...) come from the
// item itself.
struct ItemLook
{
    qvStyle style = qvStyleOutlook;
    ItemColors colors;
    QFont font;
    bool underlineOnMove = false;
    // A pressed item's icon and caption move one pixel right and down.
    bool moveWithClick = false;
    // The bar's image lists for large and small icons; either may be gone.
    QPointer<ImageList> icons;
    QPointer<ImageList> smallIcons;
};

} // namespace OrrinQuiver
