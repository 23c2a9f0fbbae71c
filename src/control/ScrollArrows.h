#pragma once

#include "control/DrawArrow.h"

#include <QtCore/QObject>
#include <QtCore/QRect>

#include <array>

QT_FORWARD_DECLARE_CLASS(QMouseEvent)
QT_FORWARD_DECLARE_CLASS(QTimer)
QT_FORWARD_DECLARE_CLASS(QWidget)

namespace OrrinQuiver {

class ArrowButton;
class ItemContainer;
class QuiverPrivate;

// The two scroll arrow buttons of the control and their repeat: child
// widgets "picArrows0" (towards the first item) and "picArrows1" (towards the
// last) placed against the open header's item view, and the control's
// "ArrowTimer", whose dynamic property "Tag" names the held arrow ("0" or
// "1", empty while none is held). A child of the control named "ScrollArrows".
//
// Holding an arrow down scrolls the open view one item at once, then once
// every ScrollDelay milliseconds with SmoothScroll, every twice that without.
// Dragging off a held arrow stops the repeat; coming back starts it again.
class ScrollArrows : public QObject
{
    Q_OBJECT

public:
    ScrollArrows(QWidget *control, QuiverPrivate &d);

    // The button of arrow `index`; null for an index other than 0 and 1.
    QWidget *button(int index) const;
    // Whether arrow `index` is shown (Show arrow), false for other indices.
    bool isShown(int index) const;

    // Places both arrows against `view`, the open header's item view, and
    // shows arrow 0 when `up`, arrow 1 when `down`; hides the others. A view
    // that is hidden shows neither.
    void update(const ItemContainer &view, bool up, bool down);
    // Marks the arrow shown and shows its button, in front of its siblings.
    void showArrow(int index);
    // Hides the button, stops the repeat, draws the arrow raised and clears
    // its shown mark. Nothing for an index other than 0 and 1.
    void hideArrow(int index);
    // Before the bars slide to open another header: under Visual Studio,
    // where the arrows sit beside the bars, they stay and come to the front;
    // under the other styles, where they lie in the view that closes, both
    // are hidden until the strip has been laid out again.
    void prepareForSlide();
    // The bar's colours or style changed: both buttons paint again.
    void restyle();

    // Where arrow `index` goes against an open item view at `view` in a
    // control `controlWidth` wide whose bars are `headerHeight` high;
    // `besideBars` says whether the open header's bar is shown (with a lone
    // hidden bar the Visual Studio arrows go into the view like the others').
    static QRect placement(qvStyle style, int index, const QRect &view, int controlWidth, int headerHeight,
                           bool besideBars);

private:
    friend class ArrowButton;

    ArrowLook look() const;
    // Draws arrow `index` in `state`; pressing starts the repeat, raising
    // ends it. Drawing the state the arrow already shows does nothing, so a
    // move over a held arrow keeps the repeat's rhythm.
    void draw(int index, int state);
    void stopRepeat();
    void tick();
    void pressed(int index, QMouseEvent *event);
    void moved(int index, QMouseEvent *event);
    void released(int index);

    QuiverPrivate &d;
    QTimer *const m_timer;
    std::array<ArrowButton *, 2> m_buttons {};
    std::array<bool, 2> m_shown {};
};

} // namespace OrrinQuiver
