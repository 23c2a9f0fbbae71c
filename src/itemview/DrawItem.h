#pragma once

#include "itemview/ItemLook.h"
#include "core/OleColor.h"
#include "core/QuiverEnums.h"

#include <QtCore/QRect>
#include <QtCore/QString>
#include <QtCore/QVariant>

class QPainter;
class QPalette;

namespace OrrinQuiver {

// The three mouse looks of an item.
enum ItemState : int {
    ItemNormal = 0,
    ItemHot = 1, // the mouse is over it: raised border
    ItemPressed = 2 // held down: sunken border
};

// Where the icon cell lies inside an item's rectangle, as the view works it
// out from the style and the view (ItemLayout.h, iconGeometryFor).
struct IconGeometry
{
    // 2 large icons and 1 small icons (Outlook styles), 7 (Windows styles),
    // 0 (Visual Studio style).
    int layoutMode = 2;
    int iconLeft = 0;
    int iconCellWidth = 36;
};

// One item as it is to be painted: its own fields and its state in the view.
struct ItemPaint
{
    QString caption;
    bool bold = false;
    bool enabled = true;
    OLE_COLOR foreColor = SystemColors::Window;
    // The colour that vanishes from the icon of a disabled item, besides the
    // icon's own transparent pixels.
    OLE_COLOR maskColor = rgbColor(192, 192, 192);
    // Key or 1-based index into the image list of the view (Icon for large
    // icons, SmallIcon for small icons); an empty value or one the list does
    // not know paints no icon.
    QVariant icon;
    int state = ItemNormal;
    bool staysDown = false;
    bool hasFocus = false;
};

// The height of every item's rectangle for `look` and `view`: room for the
// icon cell and one line of caption in the item font (bold or not, whichever
// is taller). All items of a view share it, so stacking needs no per-item
// measuring.
int ItemHeight(const ItemLook &look, qvViewType view);

// Paints one item into `rect` (logical pixels of the view's surface), which
// the caller has already filled with the look's back colour; nothing is
// painted outside `rect`. System colours resolve through `palette`. The
// caption is elided to fit; lines stay one logical pixel at any device pixel
// ratio. A state outside the three known ones paints as ItemNormal; an
// inactive painter or an empty rectangle paints nothing.
void DrawItem(QPainter &painter, const QRect &rect, const ItemLook &look, qvViewType view,
              const IconGeometry &geometry, const ItemPaint &item, const QPalette &palette);

} // namespace OrrinQuiver
