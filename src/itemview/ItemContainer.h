#pragma once

#include "model/ItemViewLink.h"
#include "model/QuiverEnums.h"

#include <QtCore/QVariant>
#include <QtWidgets/QWidget>

#include <memory>

namespace OrrinQuiver {

class ItemContainerPrivate;

// The view that shows the items of one header: a child widget of the bar,
// one per header. It has no widget per item; each item is known by its view
// id (1, 2, ... in the order the items were added) and hosted child windows
// become children of the view itself.
class ItemContainer : public QWidget, public ItemViewLink
{
    Q_OBJECT

public:
    explicit ItemContainer(QWidget *parent = nullptr);
    ~ItemContainer() override;

    // The number of view ids handed out so far (removed items included).
    int MaxPhysItems() const;

    // Set by the bar while this view's header is open.
    bool Active() const;
    void setActive(bool on);
    // The position of the header shown; 0 for none. Stored as given.
    int CollectionIndex() const;
    void setCollectionIndex(int position);
    // Views other than the two known ones are stored as given.
    qvViewType View() const;
    void setView(qvViewType view) override;
    // The position of the current item; 0 for none. Stored as given.
    qint16 CurrentItem() const;
    void setCurrentItem(qint16 position);
    bool StayDownWithClick() const;
    void setStayDownWithClick(bool on);
    bool DesignMode() const;
    void setDesignMode(bool on);
    void setDefaultMaskColor(OLE_COLOR color);

    // Shows mouse-pointer constant `pointer` over the view, with `picture` for
    // the custom pointer (see cursorForPointer).
    void updatePointer(int pointer, const QVariant &picture);

    // The item's rectangle in view coordinates; a null rectangle for an
    // unknown view id and for every item until the items are laid out.
    QRect itemRect(int viewId) const;

    // ItemViewLink
    void showItems(Items *items) override;
    int addItemWindow(int position, const QString &caption) override;
    void removeItemWindow(int viewId) override;
    void relayoutItems(bool force) override;
    void redrawItem(int viewId) override;
    void resetItems() override;
    int firstVisiblePosition() const override;
    int lastFullyVisiblePosition() const override;
    void scrollOneStep(bool up) override;
    void startItemDrag(int viewId) override;
    void startItemLabelEdit(int viewId) override;
    void releaseMouseGrab() override;
    OLE_COLOR defaultMaskColor() const override;
    QRect childWindowRect(quintptr window) const override;
    quintptr hostChildWindow(int viewId, quintptr window) override;
    void moveChildWindow(quintptr window, const QRect &rect) override;
    void setChildWindowParent(quintptr window, quintptr parent) override;

private:
    std::unique_ptr<ItemContainerPrivate> const d;
};

} // namespace OrrinQuiver
