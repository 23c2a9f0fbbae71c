#pragma once

#include "model/OleColor.h"
#include "model/QuiverEnums.h"

#include <QtCore/QString>

namespace OrrinQuiver {

class Header;
class Headers;
class Item;
class ItemViewLink;

// What the content model needs of the control that shows it. The control
// (control/Quiver) implements it; model tests use a recording double.
// Positions are 1-based header positions. No call throws but setHeaderXml().
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

    // The XML fragment of one header, and its reading; the control owns the
    // document format. Reading errors reach the caller as QuiverError.
    virtual QString headerXml(const Header *header) const = 0;
    virtual void setHeaderXml(Header *header, const QString &xml) = 0;
    // The history document of the control's Navigation.
    virtual QString historyXml() const = 0;
};

} // namespace OrrinQuiver
