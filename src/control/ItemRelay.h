#pragma once

#include <QtCore/QObject>

namespace OrrinQuiver {

class Header;
class ItemContainer;
class Quiver;
class QuiverPrivate;

// Turns the events of every header's item view into the control's own: the
// item sound, the selection of a clicked item and the host's item and
// header events. A child of the control named "ItemRelay".
class ItemRelay : public QObject
{
    Q_OBJECT

public:
    ItemRelay(Quiver *control, QuiverPrivate &d);

    // Relays the events of a new header's item view.
    void attach(ItemContainer *view);

private:
    enum class Mouse { Down, Move, Up };

    void itemClick(const QString &itemKey);
    void scrollArrows(ItemContainer *view, bool up, bool down);
    void keyCommand(const QString &command, bool cancel);
    // A mouse event over an item goes to the host as an item event; one over
    // the view's empty space as a header event of the open header, with the
    // point moved out of the view (see the .cpp).
    void mouse(Mouse kind, ItemContainer *view, const QString &itemKey, int button, int shift, float x,
               float y);

    Quiver *const q;
    QuiverPrivate &d;
};

} // namespace OrrinQuiver
