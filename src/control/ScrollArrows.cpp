#include "control/ScrollArrows.h"

#include "control/Quiver_p.h"
#include "itemview/ItemContainer.h"
#include "itemview/StyleFamily.h"
#include "model/Headers.h"

#include <QtCore/QTimer>
#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <QtWidgets/QWidget>

namespace OrrinQuiver {

namespace {

// The arrows inside the view: squares of a scroll button's size, kept off
// the view's right edge and off its top or bottom edge by a margin that
// follows the style's frame (the wide Outlook frame, the thin Windows one).
constexpr int InViewArrowSide = 16;
constexpr int OutlookArrowMargin = 4;
constexpr int WindowsArrowMargin = 2;

// The property of the repeat timer that names the held arrow.
constexpr char TimerTag[] = "Tag";

// The repeat's first step comes at once.
constexpr int FirstStepInterval = 1;

} // namespace

// One arrow button: paints itself with DrawArrow and hands its mouse input
// to the arrows' room. A held button keeps receiving the mouse until the
// release (Qt's implicit grab), wherever the pointer goes.
class ArrowButton : public QWidget
{
public:
    ArrowButton(ScrollArrows &arrows, int index, QWidget *parent)
        : QWidget(parent)
        , m_arrows(arrows)
        , m_index(index)
    {
        setObjectName(QStringLiteral("picArrows%1").arg(index));
        setAttribute(Qt::WA_OpaquePaintEvent);
        hide();
    }

    int state = ArrowUp;

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        DrawArrow(painter, size(), m_index, state, m_arrows.look(), palette());
    }
    void mousePressEvent(QMouseEvent *event) override { m_arrows.pressed(m_index, event); }
    void mouseMoveEvent(QMouseEvent *event) override { m_arrows.moved(m_index, event); }
    void mouseReleaseEvent(QMouseEvent *) override { m_arrows.released(m_index); }

private:
    ScrollArrows &m_arrows;
    const int m_index;
};

ScrollArrows::ScrollArrows(QWidget *control, QuiverPrivate &d)
    : QObject(control)
    , d(d)
    , m_timer(d.arrowTimer)
{
    setObjectName(QStringLiteral("ScrollArrows"));
    for (int index : { ArrowTowardsFirst, ArrowTowardsLast })
        m_buttons[index] = new ArrowButton(*this, index, control);
    m_timer->setProperty(TimerTag, QString());
    connect(m_timer, &QTimer::timeout, this, [this] { quietly([this] { tick(); }); });
}

QWidget *ScrollArrows::button(int index) const
{
    return index == 0 || index == 1 ? m_buttons[index] : nullptr;
}

bool ScrollArrows::isShown(int index) const { return (index == 0 || index == 1) && m_shown[index]; }

ArrowLook ScrollArrows::look() const
{
    const QuiverSettings &s = d.settings;
    return { qvStyle(s.style),
             { .back = s.headerBackColor,
               .fore = s.headerForeColor,
               .overFore = s.headerOverForeColor,
               .highlight = s.highlightColor,
               .shadow = s.shadowColor,
               .dkShadow = s.dkShadowColor } };
}

QRect ScrollArrows::placement(qvStyle style, int index, const QRect &view, int controlWidth, int headerHeight,
                              bool besideBars)
{
    const StyleFamily family = styleFamilyOf(style);
    if (family == StyleFamily::Flat && besideBars) {
        // The square of the bar's height that the open header's bar (arrow 0)
        // and the bar after it (arrow 1) leave free at their right ends; with
        // the last header open the row kept free below the view takes its place.
        const int left = controlWidth - headerHeight;
        const int top = index == ArrowTowardsFirst ? view.top() - 1 - headerHeight : view.bottom() + 2;
        return QRect(left, top, headerHeight, headerHeight);
    }
    const int margin = family == StyleFamily::Windows ? WindowsArrowMargin : OutlookArrowMargin;
    const int left = view.right() + 1 - margin - InViewArrowSide;
    const int top
        = index == ArrowTowardsFirst ? view.top() + margin : view.bottom() + 1 - margin - InViewArrowSide;
    return QRect(left, top, InViewArrowSide, InViewArrowSide);
}

void ScrollArrows::update(const ItemContainer &view, bool up, bool down)
{
    const bool besideBars = d.settings.alwaysShowFirstHeader || d.headers->Count() >= 2;
    const bool shown = !view.isHidden();
    const bool wanted[] = { up && shown, down && shown };
    for (int index : { ArrowTowardsFirst, ArrowTowardsLast }) {
        m_buttons[index]->setGeometry(placement(qvStyle(d.settings.style), index, view.geometry(),
                                                d.q->width(), d.strip->headerHeight(), besideBars));
        // An arrow already hidden stays so without touching the repeat,
        // which may belong to the other arrow.
        if (wanted[index])
            showArrow(index);
        else if (m_shown[index])
            hideArrow(index);
    }
}

void ScrollArrows::showArrow(int index)
{
    ArrowButton *arrow = m_buttons.at(index);
    m_shown[index] = true;
    if (arrow->isHidden()) {
        arrow->raise();
        arrow->show();
    }
}

void ScrollArrows::hideArrow(int index)
{
    if (index != 0 && index != 1)
        return;
    m_buttons[index]->hide();
    stopRepeat();
    draw(index, ArrowUp);
    m_shown[index] = false;
}

void ScrollArrows::prepareForSlide()
{
    const bool besideBars = styleFamilyOf(qvStyle(d.settings.style)) == StyleFamily::Flat;
    for (int index : { ArrowTowardsFirst, ArrowTowardsLast }) {
        if (!besideBars && m_shown[index])
            hideArrow(index);
        m_buttons[index]->raise();
    }
}

void ScrollArrows::restyle()
{
    for (ArrowButton *arrow : m_buttons)
        arrow->QWidget::update();
}

void ScrollArrows::draw(int index, int state)
{
    ArrowButton *arrow = m_buttons.at(index);
    if (arrow->state == state)
        return;
    arrow->state = state;
    arrow->QWidget::update();
    if (state != ArrowPressed) {
        stopRepeat();
        return;
    }
    m_timer->setProperty(TimerTag, QString::number(index));
    m_timer->setInterval(FirstStepInterval);
    m_timer->start();
}

void ScrollArrows::stopRepeat()
{
    m_timer->stop();
    m_timer->setInterval(0);
    m_timer->setProperty(TimerTag, QString());
}

void ScrollArrows::tick()
{
    if (!m_shown[0] && !m_shown[1]) {
        stopRepeat();
        return;
    }
    const bool smooth = d.settings.smoothScroll;
    m_timer->setInterval(smooth ? d.settings.scrollDelay : 2 * d.settings.scrollDelay);
    bool known = false;
    const int index = m_timer->property(TimerTag).toString().toInt(&known);
    if (!known || !button(index) || button(index)->isHidden())
        return;
    ItemContainer *view = d.openView();
    if (!view)
        return;
    // A step still sliding is let run: the next one follows it by a tick,
    // as the delay promises, instead of cutting it short with a jump.
    if (view->isSliding())
        return;
    // While the bars slide the arrows wait for the layout at the slide's
    // end, so the view itself says whether there is anything left on that side.
    if (m_buttons[index]->isHidden() || !view->wantsArrow(index))
        return;
    view->Scroll(index, smooth);
}

void ScrollArrows::pressed(int index, QMouseEvent *event)
{
    if (d.designMode || event->button() != Qt::LeftButton)
        return;
    draw(index, ArrowPressed);
}

void ScrollArrows::moved(int index, QMouseEvent *event)
{
    if (d.designMode)
        return;
    const ArrowButton *arrow = m_buttons.at(index);
    const QPointF at = event->position();
    // Strictly inside: the button's first row and column count as outside.
    const bool inside = at.x() > 0 && at.x() < arrow->width() && at.y() > 0 && at.y() < arrow->height();
    const bool held = inside && !arrow->isHidden() && (event->buttons() & Qt::LeftButton);
    draw(index, held ? ArrowPressed : ArrowUp);
}

void ScrollArrows::released(int index)
{
    if (d.designMode)
        return;
    draw(index, ArrowUp);
}

} // namespace OrrinQuiver
