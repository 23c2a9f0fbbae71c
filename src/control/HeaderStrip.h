#pragma once

#include "control/DrawHeader.h"
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
class Headers;
class ItemContainer;

// Everything of the control's properties that decides how the strip looks
// and behaves. The control hands the strip a new one whenever one of them
// changes.
struct StripLook
{
    qvStyle style = qvStyleOutlook;
    QFont font;
    HeaderColors colors;
    bool showToolTips = true;
    bool alwaysShowFirstHeader = true;
    bool smoothScroll = true;
    bool designMode = false;
    qvOLEDragMode dragMode = qvOLEDragManual;
};

// The header strip of one control: the bars, their layout and looks, the
// slide that opens another header, and what the mouse does over a bar. Each
// bar keeps the one record of its header's bar: its item view and its
// pointer. What the strip needs of the control beyond its look it asks
// through Host; what happens on a bar it reports through its signals.
class HeaderStrip : public QObject
{
    Q_OBJECT

public:
    class Host
    {
    public:
        virtual ~Host() = default;
        // The position of the open header; 0 while none is open.
        virtual int openPosition() const = 0;
        // A click opens the header at `position` (after its sound).
        virtual void openHeader(int position) = 0;
        virtual void playHeaderSound(const Header *clicked) = 0;
        // The control's full layout, which finds the open header again
        // before it places the strip.
        virtual void relayout() = 0;
    };

    // A child of `control` named "HeaderStrip", as are the bars; the headers
    // are those the control shows.
    HeaderStrip(QWidget *control, const Headers &headers, Host &host);
    ~HeaderStrip() override;

    void setLook(const StripLook &look);
    const StripLook &look() const { return m_look; }

    // Makes the bar with id `barId` for a new header, showing `pointer` with
    // `picture`, and puts the header's item view below every bar, so that
    // sliding bars pass over item views.
    HeaderBar *addBar(int barId, ItemContainer *itemView, int pointer, const QVariant &picture);
    // Takes the bar away; it and its item view are deleted once control
    // returns to the event loop. Unknown ids are ignored.
    void removeBar(int barId);
    // The bar with that id; null for unknown ids.
    HeaderBar *bar(int barId) const;
    // The item view of a header; null for a header without a bar.
    ItemContainer *viewOf(const Header *header) const;

    // The height of one bar as the last layout measured it.
    int headerHeight() const { return m_headerHeight; }

    // Measures the bar height, places every bar and item view, and draws
    // every bar in its normal look (every one again when `redrawAll`).
    // While a slide runs this waits: the slide lays the strip out when it ends.
    void layout(bool redrawAll);
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
    // Draws the header's bar in its normal look with `back` and `fore`
    // (DefaultColor: the header colours), also when it shows that look
    // already. Nothing for a header without a bar.
    void redrawNormal(Header *header, OLE_COLOR back = HeaderBar::DefaultColor,
                      OLE_COLOR fore = HeaderBar::DefaultColor);
    // The back colour the header's bar shows: the one it was last drawn with,
    // or the look's header back colour when it was drawn with the header
    // colours; DefaultColor for a header without a bar.
    OLE_COLOR shownBackColor(const Header *header) const;

    // Moves the bars from the header at `oldPosition` being open to the one
    // at `newPosition`, then has the control lay out. The open position must
    // already be `newPosition`. Animated one frame per timer tick when the
    // control is shown and the look's smoothScroll is on, else done before
    // returning. A running slide is finished first.
    void slide(int oldPosition, int newPosition);
    // Ends a running slide at once, with the positions it would have ended
    // at; nothing when none runs.
    void finishSlide();
    bool isSliding() const { return m_slide != nullptr; }

    // Shows mouse-pointer constant `pointer` with `picture` over every bar.
    void showPointer(int pointer, const QVariant &picture);

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

signals:
    // Mouse input on a bar, outside design mode (the control's events of the
    // same names).
    void headerMouseDown(OrrinQuiver::Header *header, int button, int shift, float x, float y);
    void headerMouseMove(OrrinQuiver::Header *header, int button, int shift, float x, float y);
    void headerMouseUp(OrrinQuiver::Header *header, int button, int shift, float x, float y);
    void headerClick(OrrinQuiver::Header *header);

protected:
    // Holds the mouse off the control and its children while a slide runs.
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Slide;

    Header *headerOf(const HeaderBar *bar) const;
    QWidget *viewAt(int position) const;
    void refreshRecord(HeaderBar *bar, const Header *header) const;
    void nextFrame();
    void applyFrame();
    void endSlide();

    QWidget *const m_control;
    const Headers &m_headers;
    Host &m_host;
    StripLook m_look;
    int m_headerHeight = 0;
    QHash<int, QPointer<HeaderBar>> m_bars;
    std::unique_ptr<Slide> m_slide;
    QTimer m_frames;
};

} // namespace OrrinQuiver
