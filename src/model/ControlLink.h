#pragma once

#include "core/OleColor.h"
#include "core/QuiverEnums.h"

#include <QtCore/QString>

namespace OrrinQuiver {

class DocumentFormat;
class Header;
class Headers;
class Item;
class ItemViewLink;

// What the content model needs of the control that shows it. The control
// (control/Quiver) implements it; model tests use a recording double.
// Positions are 1-based header positions. No call throws.
class ControlLink
{
public:
    virtual ~ControlLink() = default;

    // The control's one Headers collection.
    virtual Headers *headerCollection() const = 0;

    // The bar and item view made for a new header.
    struct HeaderViews {
        int barId = -1;
        ItemViewLink *itemView = nullptr;
    };
    // Creates the bar and item view of a header placed at `position`.
    virtual HeaderViews createHeaderViews(int position, const QString &caption, qvViewType view) = 0;
    // Destroys the bar and item view with that bar id; `relayout` is False
    // while a whole collection is being cleared.
    virtual void destroyHeaderViews(int barId, bool relayout) = 0;
    // Repaints the bar of one header.
    virtual void redrawHeaderBar(int barId) = 0;
    // Lays the header strip out again.
    virtual void relayoutStrip() = 0;

    // The position of the open header, 0 when none is open.
    virtual int selectedHeaderPosition() const = 0;
    // Opens the header at `position` (moved to a visible header as the control decides).
    virtual void openHeader(int position) = 0;
    // Selects the item at `index` in the open header; the index arrives as the
    // 16-bit Integer the item view keeps.
    virtual void selectItem(qint16 index) = 0;
    virtual Header *selectedHeader() const = 0;
    virtual Item *selectedItem() const = 0;

    // Colour given to the caption of every new item.
    virtual OLE_COLOR itemForeColor() const = 0;

    virtual void flashHeader(const QString &headerKey, bool enabled) = 0;
    virtual void startHeaderDrag(int barId) = 0;
    virtual void startHeaderLabelEdit(const QString &headerKey) = 0;
    // Starts fetching the picture at `url` into the control's own URL image
    // list (large or small icons).
    virtual void loadUrlIcon(const QString &url, bool large) = 0;

    // The format of the header and history documents; null when the control
    // has none, and the XML members then return an empty text.
    virtual const DocumentFormat *documentFormat() const = 0;
};

} // namespace OrrinQuiver
