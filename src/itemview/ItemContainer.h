#pragma once

#include "model/ItemViewLink.h"
#include "core/QuiverEnums.h"

#include <QtCore/QVariant>
#include <QtWidgets/QWidget>

#include <memory>

class QMimeData;

namespace OrrinQuiver {

class ItemContainerPrivate;
struct IconGeometry;
struct ItemLook;

// The view that shows the items of one header: a child widget of the bar,
// one per header. There is no widget per item: an item's "window" is a
// rectangle on a moving surface that the view stacks, paints and hit-tests
// itself, known by the item's view id (1, 2, ... in the order the items were
// added), so a header can hold a million items. Scrolling moves the surface;
// item rectangles never move. Hosted child windows become children of the
// view and move with their item.
//
// The view reports to the bar only through its signals, declared in this
// order; an item reference is the item's Key, empty for the surface or the
// view's background. Mouse coordinates are those of the item's rectangle
// (for an item) or of the view.
class ItemContainer : public QWidget, public ItemViewLink
{
    Q_OBJECT

public:
    explicit ItemContainer(QWidget *parent = nullptr);
    ~ItemContainer() override;

    // --- layout ---------------------------------------------------------
    // The number of view ids handed out so far (removed items included).
    int MaxPhysItems() const;
    // Set by the bar; while false SizeItems does nothing.
    bool Active() const;
    void setActive(bool on);
    // The position of the header shown; 0 for none. Stored as given.
    int CollectionIndex() const;
    void setCollectionIndex(int position);
    // Stores the view, recomputes the icon geometry from the look's style,
    // scrolls back to the top and re-stacks. Unknown views are stored as given.
    qvViewType View() const;
    void setView(qvViewType view) override;
    // What the bar's properties make of every item (style, colours, font,
    // image lists); a new style recomputes the icon geometry like setView.
    const ItemLook &look() const;
    void setLook(const ItemLook &look);
    const IconGeometry &iconGeometry() const;
    // Stacks the items and repaints; `force` re-reads every item. Cheap to
    // call often: the work runs once, before the next paint or query.
    void SizeItems(bool force);
    // Runs the resize handling on demand.
    void ForceResize();
    // The top edge of the item with that view id in view coordinates
    // (negative when scrolled above the view); 0 for an unknown id.
    int ItemTop(int viewId) const;
    // The Index of the item whose view id equals the top slot (or the last
    // fully visible slot); 0 when no such item exists.
    int TopItem() const;
    int LastFullyVisibleItem() const;
    bool IsDownArrowNeeded(int sliderTop, int viewHeight) const;
    // Whether scroll arrow `index` (0 towards the first item, 1 towards the
    // last) is wanted where the surface stands now.
    bool wantsArrow(int index) const;
    // Recomputes which scroll arrows are wanted and raises SetScrollArrows.
    void SetArrows();
    // Hosts `window` (a native window id or a QWidget's winId()) in the item
    // with that view id; returns the window's former parent, 0 on failure.
    quintptr SetChild(int viewId, quintptr window);
    // The item's rectangle inside the moving surface (unscrolled); a null
    // rectangle for an unknown or removed view id.
    QRect itemRect(int viewId) const;
    // The position of the first item whose rectangle (inside the surface,
    // both edges included) holds `y`; 0 for none.
    int positionAtSurfaceY(int y) const;
    // The surface's top: 0, or negative when scrolled.
    int sliderTop() const;
    // The position of the item shown at the top of the view (1 when empty).
    int topSlot() const;

    // --- interaction and scrolling --------------------------------------
    // Moves the view one item: direction 0 up, 1 down; other values do
    // nothing. With `animate` the move runs frame by frame on a timer.
    void Scroll(int direction, bool animate);
    // Moves the surface by the height of the item at the top slot.
    void Slide(bool up, bool animate);
    // Recomputes the last fully visible slot (see ItemLayout::setObscure).
    void SetObscure(int offset);
    // Whether a slide is still running.
    bool isSliding() const;
    // Runs a running slide to its end at once.
    void finishSlide();
    // Moves a running slide to its next frame now (the slide's timer does so
    // on every tick); false when no slide runs.
    bool advanceSlide();
    bool GotFocusFromMouse() const;
    void setGotFocusFromMouse(bool on);
    // Called when the view receives the focus: passes it on to an item (the
    // current item, else the top item) unless it came from the mouse.
    void GivenFocus();
    bool CanGetFocus() const;
    void setCanGetFocus(bool on);
    // The position of the current item (the one carrying the stays-down
    // mark); 0 for none. Stored as given.
    qint16 CurrentItem() const;
    void setCurrentItem(qint16 position);
    bool StayDownWithClick() const;
    void setStayDownWithClick(bool on);
    bool DesignMode() const;
    void setDesignMode(bool on);
    void setDefaultMaskColor(OLE_COLOR color);
    // The position of the item that has the keyboard focus; 0 for none.
    int focusPosition() const;
    // Asks the bar to open the caption editor over the item at `position`
    // (raises ItemDoRelabel); nothing for an unknown position.
    void RelabelItem(int position);

    // Shows mouse-pointer constant `pointer` over the view, with `picture` for
    // the custom pointer (see cursorForPointer).
    void updatePointer(int pointer, const QVariant &picture);

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

signals:
    void ForceRedraw();
    void ItemClick(const QString &item);
    // The argument given to RelabelItem, the item's key, its top inside the
    // view, its left, its width, its caption's width, its caption, and the
    // editor index to use (1 for large icons, 0 for small).
    void ItemDoRelabel(int position, const QString &item, int top, int left, int width, int textWidth,
                       const QString &caption, int editor);
    // A navigation command for the bar ("SCROLL+", "MOVEHeader-", ...);
    // `Cancel` starts false and the bar may set it.
    void ItemKeyEvent(const QString &item, const QString &command, bool *Cancel);
    void ItemOLECompleteDrag(const QString &item, int Effect);
    void ItemOLEDragDrop(const QString &item, const QMimeData *Data, int *Effect, int Button, int Shift,
                         float X, float Y);
    void ItemOLEDragOver(const QString &item, const QMimeData *Data, int *Effect, int Button, int Shift,
                         float X, float Y, int State);
    void ItemOLEStartDrag(const QString &item, QMimeData *Data, int *AllowedEffects);
    void MouseDown(const QString &item, int Button, int Shift, float X, float Y);
    void MouseMove(const QString &item, int Button, int Shift, float X, float Y);
    void MouseUp(const QString &item, int Button, int Shift, float X, float Y);
    void ScrollDown();
    void ScrollUp();
    void SetScrollArrows(bool *Up, bool *Down);

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void leaveEvent(QEvent *event) override;
    // Scrolls by whole items in the arrows' steps: every notch (120, high-
    // resolution wheels adding up to one) is QApplication::wheelScrollLines()
    // steps, towards the first item when turned away from the user, and only
    // as far as the arrow of that direction would be shown. A turn the view
    // cannot follow goes on to the parent.
    void wheelEvent(QWheelEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    bool focusNextPrevChild(bool next) override;

private:
    friend class ItemContainerPrivate;
    std::unique_ptr<ItemContainerPrivate> const d;
};

} // namespace OrrinQuiver
