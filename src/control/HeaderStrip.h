#pragma once

#include "control/HeaderBar.h"
#include "core/OleColor.h"

#include <QtCore/QHash>
#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QTimer>

#include <memory>

QT_FORWARD_DECLARE_CLASS(QMouseEvent)

namespace OrrinQuiver {

class Header;
class QuiverPrivate;
struct HeaderLook;

// The header strip of one control: the bars, their layout and looks, the
// slide that opens another header, and what the mouse does over a bar. The
// control's private part owns it and keeps the state it reads (headers,
// style, colours, the open position).
class HeaderStrip : public QObject
{
    Q_OBJECT

public:
    explicit HeaderStrip(QuiverPrivate *control);
    ~HeaderStrip() override;

    // Makes the bar with id `barId` for a new header and puts the header's
    // item view below every bar, so that sliding bars pass over item views.
    HeaderBar *addBar(int barId, QWidget *itemView);
    // Takes the bar away; it is deleted once control returns to the event
    // loop. Unknown ids are ignored.
    void removeBar(int barId);
    // The bar with that id; null for unknown ids.
    HeaderBar *bar(int barId) const;

    // Measures the bar height, places every bar and item view, and draws
    // every bar in its normal look (redrawing all of them when the control's
    // header-redraw flag is set, which it then clears). While a slide runs
    // this waits: the slide lays the strip out when it ends.
    void layout();
    // Repaints every bar; `force` draws each in its normal look even when it
    // already shows it.
    void repaint(bool force);
    // Repaints the bar with that id after its header changed, clearing the
    // header's needs-paint flag; unknown ids are ignored.
    void redraw(int barId);
    // Draws the header's bar in `state` (a HeaderState), with `back` and
    // `fore` replacing the header colours unless they are DefaultColor.
    // Nothing happens when the bar already shows `state`, or for a header
    // without a bar. Clears the header's needs-paint flag when it draws.
    void drawHeader(Header *header, int state, OLE_COLOR back = HeaderBar::DefaultColor,
                    OLE_COLOR fore = HeaderBar::DefaultColor);

    // Moves the bars from the header at `oldPosition` being open to the one
    // at `newPosition`, then lays the strip out. The open position must
    // already be `newPosition`. Animated one frame per timer tick when the
    // control is shown and SmoothScroll is on, else done before returning.
    // A running slide is finished first.
    void slide(int oldPosition, int newPosition);
    // Ends a running slide at once, with the positions it would have ended
    // at; nothing when none runs.
    void finishSlide();
    bool isSliding() const { return m_slide != nullptr; }

    // Shows mouse-pointer constant `pointer` over the bar with that id, with
    // `picture` for the custom pointer; unknown ids are ignored.
    void showPointer(int barId, int pointer, const QVariant &picture);

    // Starts dragging the header of the bar with that id, carrying its key
    // and caption; returns when the drag ends. Unknown ids are ignored.
    void startDrag(int barId);

    // For the bars: how a bar looks now, and its mouse input.
    HeaderLook lookOf(const HeaderBar *bar) const;
    void barPressed(HeaderBar *bar, QMouseEvent *event);
    void barMoved(HeaderBar *bar, QMouseEvent *event);
    void barReleased(HeaderBar *bar, QMouseEvent *event);
    void barLeft(HeaderBar *bar);

    // The data format that carries a dragged header's key.
    static QString headerKeyMimeType();

protected:
    // Holds the mouse off the control and its children while a slide runs.
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Slide;

    Header *headerOf(const HeaderBar *bar) const;
    void refreshRecord(HeaderBar *bar, const Header *header) const;
    void playHeaderSound(const Header *clicked);
    void nextFrame();
    void applyFrame();
    void endSlide();

    QuiverPrivate *const d;
    QHash<int, QPointer<HeaderBar>> m_bars;
    std::unique_ptr<Slide> m_slide;
    QTimer m_frames;
};

} // namespace OrrinQuiver
