#pragma once

#include <QtCore/QObject>
#include <QtCore/QPointF>

QT_FORWARD_DECLARE_CLASS(QMimeData)

namespace OrrinQuiver {

class Header;
class Item;
class ItemContainer;
class Quiver;
class QuiverPrivate;

// Turns the events of every header's item view into the control's own: the
// item sound, the selection of a clicked item, re-layouts and the host's
// item and header events. A child of the control named "ItemRelay".
class ItemRelay : public QObject
{
    Q_OBJECT

public:
    ItemRelay(Quiver *control, QuiverPrivate &d);

    // Relays the events of a new header's item view.
    void attach(ItemContainer *view);

private:
    enum class Mouse { Down, Move, Up };

    void forceRedraw();
    void itemClick(const QString &itemKey);
    void scrollArrows(ItemContainer *view, bool up, bool down);
    void keyCommand(const QString &command, bool cancel);
    // A mouse event over an item goes to the host as an item event; one over
    // the view's empty space as a header event of the open header, with the
    // point moved out of the view (see the .cpp).
    void mouse(Mouse kind, ItemContainer *view, const QString &itemKey, int button, int shift, float x,
               float y);
    void scrolled(ItemContainer *view, bool up);
    // Drags over an item go to the host as item events, over the view's
    // empty space as the open header's, moved as the mouse events are; the
    // handlers' *effect goes back to the view.
    void dragOver(ItemContainer *view, const QString &itemKey, const QMimeData *data, int *effect, int button,
                  int shift, float x, float y, int state);
    void dragDrop(ItemContainer *view, const QString &itemKey, const QMimeData *data, int *effect, int button,
                  int shift, float x, float y);
    void startDrag(ItemContainer *view, const QString &itemKey, QMimeData *data, int *allowedEffects);
    void completeDrag(ItemContainer *view, const QString &itemKey, int effect);

    // The header whose items `view` shows; null once it is gone.
    Header *headerOf(const ItemContainer *view) const;
    // The item with that key among the items `view` shows; null for the
    // view's empty space.
    Item *itemOf(const ItemContainer *view, const QString &itemKey) const;
    // A point of `view` in the frame of the open header's events: its bar,
    // or the control while its lone bar is hidden.
    QPointF intoOpenHeader(const ItemContainer *view, const Header *open, float x, float y) const;

    Quiver *const q;
    QuiverPrivate &d;
};

} // namespace OrrinQuiver
