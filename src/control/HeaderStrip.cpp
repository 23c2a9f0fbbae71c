#include "control/HeaderStrip.h"

#include "control/DrawHeader.h"
#include "control/HeaderGeometry.h"
#include "itemview/ItemContainer.h"
#include "model/Header.h"
#include "model/Headers.h"
#include "model/Items.h"
#include "platform/MouseCodes.h"
#include "platform/FrameInterval.h"
#include "platform/MousePointer.h"
#include "platform/SlideMover.h"

#include <QtCore/QMimeData>
#include <QtGui/QDrag>
#include <QtGui/QFontMetrics>
#include <QtGui/QMouseEvent>
#include <QtWidgets/QApplication>

namespace OrrinQuiver {

namespace {

// How far the mouse moves with the left button down before a header drag starts.
constexpr qreal DragThreshold = 2;

// Strictly inside: a point on the bar's first row or column counts as out.
bool inside(const QWidget *widget, QPointF point)
{
    return point.x() > 0 && point.x() < widget->width() && point.y() > 0 && point.y() < widget->height();
}

} // namespace

// A running slide: the widgets that travel, the mover that knows their next
// positions, and what is done to the item views when it ends. Widgets are
// held by guarded pointers, so headers removed meanwhile simply drop out.
struct HeaderStrip::Slide
{
    QList<QPointer<QWidget>> members;
    SlideMover mover;
    // Item views hidden once the bars are in place.
    QList<QPointer<QWidget>> hideAfter;
    // Opening a header above: its item view goes just below its bar at the end.
    QPointer<QWidget> snapView;
    QPointer<QWidget> snapBar;
};

HeaderStrip::HeaderStrip(QWidget *control, const Headers &headers, Host &host)
    : QObject(control)
    , m_control(control)
    , m_headers(headers)
    , m_host(host)
{
    setObjectName(QStringLiteral("HeaderStrip"));
    m_frames.setParent(this);
    m_frames.setObjectName(QStringLiteral("SlideTimer"));
    m_frames.setTimerType(Qt::PreciseTimer);
    connect(&m_frames, &QTimer::timeout, this, &HeaderStrip::nextFrame);
}

HeaderStrip::~HeaderStrip()
{
    if (m_slide)
        qApp->removeEventFilter(this);
    // The bars call back into the strip; none may outlive it.
    for (HeaderBar *bar : std::as_const(m_bars))
        delete bar;
}

QString HeaderStrip::headerKeyMimeType() { return QStringLiteral("application/x-orrinquiver-header-key"); }

void HeaderStrip::setLook(const StripLook &look) { m_look = look; }

HeaderBar *HeaderStrip::addBar(int barId, ItemContainer *itemView, int pointer, const QVariant &picture)
{
    auto *bar = new HeaderBar(this, barId, itemView, m_control);
    m_bars.insert(barId, bar);
    if (itemView)
        itemView->lower();
    if (const std::optional<QCursor> cursor = cursorForPointer(pointer, picture))
        bar->setCursor(*cursor);
    return bar;
}

void HeaderStrip::removeBar(int barId)
{
    HeaderBar *bar = m_bars.take(barId);
    if (!bar)
        return;
    // The header that held the view may be used by the host until control
    // returns to the event loop; so may its view.
    if (ItemContainer *view = bar->itemView()) {
        view->setActive(false);
        view->hide();
        view->deleteLater();
    }
    bar->hide();
    bar->deleteLater();
}

HeaderBar *HeaderStrip::bar(int barId) const { return m_bars.value(barId); }

ItemContainer *HeaderStrip::viewOf(const Header *header) const
{
    const HeaderBar *bar = header ? this->bar(header->barId()) : nullptr;
    return bar ? bar->itemView() : nullptr;
}

QWidget *HeaderStrip::viewAt(int position) const { return viewOf(m_headers.at(position)); }

Header *HeaderStrip::headerOf(const HeaderBar *bar) const
{
    if (!bar)
        return nullptr;
    // The record names the header by position; a header moved since the bar
    // was last drawn is found by its bar instead.
    Header *header = m_headers.at(bar->record().index());
    if (header && header->barId() == bar->barId())
        return header;
    for (Header *candidate : m_headers) {
        if (candidate->barId() == bar->barId())
            return candidate;
    }
    return nullptr;
}

void HeaderStrip::refreshRecord(HeaderBar *bar, const Header *header) const
{
    bar->record().setField(BarRecord::IndexField, QString::number(header->Index()));
    bar->record().setField(BarRecord::ToolTipField, m_look.showToolTips ? header->ToolTipText() : QString());
}

void HeaderStrip::layout(bool redrawAll)
{
    if (m_slide)
        return;
    m_headerHeight = HeaderGeometry::headerHeight(m_look.style, QFontMetrics(m_look.font).height(), m_headerHeight);

    HeaderGeometry::StripInput input;
    input.style = m_look.style;
    input.width = m_control->width();
    input.height = m_control->height();
    input.headerHeight = m_headerHeight;
    input.selected = m_host.openPosition();
    input.alwaysShowFirstHeader = m_look.alwaysShowFirstHeader;
    for (const Header *header : m_headers)
        input.visible.append(header->Visible());
    const HeaderGeometry::StripLayout strip = HeaderGeometry::layoutStrip(input);

    int position = 0;
    for (Header *header : m_headers) {
        const HeaderGeometry::BarPlacement &place = strip.bars.at(position++);
        if (HeaderBar *bar = this->bar(header->barId())) {
            bar->setGeometry(place.rect);
            bar->setVisible(place.visible);
            refreshRecord(bar, header);
            if (redrawAll)
                bar->setDrawnState(-1);
            drawHeader(header, HeaderNormal);
        }
        if (QWidget *view = viewOf(header)) {
            if (position == input.selected) {
                view->setGeometry(strip.openView);
                view->setVisible(header->Visible());
            } else {
                // Closed views keep their top and wait, hidden, for their header
                // to open, at the size they will have then: scrolling one to an
                // item before it opens measures the height it will show it in.
                view->setGeometry(strip.viewLeft, view->y(), strip.viewWidth,
                                  strip.viewHeights.at(position - 1));
                view->hide();
            }
        }
    }
}

void HeaderStrip::repaint(bool force)
{
    for (Header *header : m_headers) {
        HeaderBar *bar = this->bar(header->barId());
        if (!bar)
            continue;
        if (force)
            redrawNormal(header);
        else
            bar->update();
    }
}

void HeaderStrip::redraw(int barId)
{
    HeaderBar *bar = this->bar(barId);
    if (Header *header = headerOf(bar)) {
        refreshRecord(bar, header);
        bar->update();
        header->setNeedsPaint(false);
    }
}

void HeaderStrip::drawHeader(Header *header, int state, OLE_COLOR back, OLE_COLOR fore)
{
    HeaderBar *bar = header ? this->bar(header->barId()) : nullptr;
    if (!bar || bar->drawnState() == state)
        return;
    bar->setDrawnState(state);
    refreshRecord(bar, header);
    bar->setColors(back, fore);
    bar->update();
    header->setNeedsPaint(false);
}

void HeaderStrip::redrawNormal(Header *header, OLE_COLOR back, OLE_COLOR fore)
{
    HeaderBar *bar = header ? this->bar(header->barId()) : nullptr;
    if (!bar)
        return;
    // Forgetting the drawn look makes the draw happen even in the look shown.
    bar->setDrawnState(-1);
    drawHeader(header, HeaderNormal, back, fore);
}

OLE_COLOR HeaderStrip::shownBackColor(const Header *header) const
{
    const HeaderBar *bar = header ? this->bar(header->barId()) : nullptr;
    if (!bar)
        return HeaderBar::DefaultColor;
    return bar->backColor() != HeaderBar::DefaultColor ? bar->backColor() : m_look.colors.back;
}

HeaderLook HeaderStrip::lookOf(const HeaderBar *bar) const
{
    HeaderLook look;
    const Header *header = headerOf(bar);
    // A bar not drawn yet shows its normal look.
    look.state = qMax(bar->drawnState(), int(HeaderNormal));
    look.style = m_look.style;
    look.caption = header ? header->Caption() : QString();
    look.font = m_look.font;
    look.enabled = header && header->Enabled();
    look.colors = m_look.colors;
    if (bar->backColor() != HeaderBar::DefaultColor)
        look.colors.back = bar->backColor();
    if (bar->foreColor() != HeaderBar::DefaultColor)
        look.colors.fore = bar->foreColor();
    return look;
}

// --- the slide -----------------------------------------------------------------

void HeaderStrip::slide(int oldPosition, int newPosition)
{
    finishSlide();
    const Header *opened = m_headers.at(newPosition);
    HeaderBar *openedBar = opened ? bar(opened->barId()) : nullptr;
    QWidget *openedView = viewOf(opened);
    const int count = m_headers.Count();
    const int hh = m_headerHeight;
    const int height = m_control->height();
    const int content = HeaderGeometry::contentHeight(m_look.style, height, hh, count, newPosition,
                                                      m_look.alwaysShowFirstHeader);
    const HeaderGeometry::SlidePlan plan = HeaderGeometry::planSlide(
        { oldPosition, newPosition, count, opened ? opened->Items()->Count() : 0, height, hh, content });
    if (plan.isEmpty() || !openedBar || !openedView) {
        m_host.relayout();
        return;
    }

    QList<QPointer<QWidget>> members;
    QList<int> tops;
    for (int position : plan.barPositions) {
        const Header *header = m_headers.at(position);
        if (HeaderBar *member = header ? bar(header->barId()) : nullptr) {
            members.append(member);
            tops.append(member->y());
        }
    }
    // The item views wait ready at the width they will have when open.
    const int viewWidth = HeaderGeometry::itemViewRect(m_look.style, m_control->width(), 0, hh, content).width();
    if (openedView->width() != viewWidth)
        openedView->resize(viewWidth, openedView->height());
    QList<QPointer<QWidget>> hideAfter;
    if (plan.up) {
        openedView->move(openedView->x(), HeaderGeometry::slideViewTop(openedBar->y(), hh));
        openedView->show();
        const int lowest = qMax(1, newPosition - int(plan.barPositions.size()));
        for (int position = newPosition - 1; position >= lowest; --position)
            hideAfter.append(viewAt(position));
    } else {
        members.append(openedView);
        tops.append(openedView->y());
        for (int position = newPosition + 1; position <= count; ++position)
            hideAfter.append(viewAt(position));
    }

    m_slide.reset(new Slide { members, SlideMover(tops, plan.distance, plan.up, plan.fast, m_look.smoothScroll),
                              hideAfter, plan.up ? nullptr : openedView, plan.up ? nullptr : openedBar });
    if (!m_look.smoothScroll || !m_control->isVisible()) {
        finishSlide();
        return;
    }
    // The control keeps the mouse to itself for the whole slide, so that no
    // click lands on a bar on its way (the filter checks isSliding()).
    if (!m_look.designMode)
        qApp->installEventFilter(this);
    // A frame per refresh of the control's screen, so that each one is seen.
    m_frames.start(slideFrameInterval(m_control->screen()));
}

void HeaderStrip::finishSlide()
{
    if (!m_slide)
        return;
    m_slide->mover.finish();
    applyFrame();
    endSlide();
}

void HeaderStrip::nextFrame()
{
    if (!m_slide)
        return;
    const bool more = m_slide->mover.advance();
    applyFrame();
    if (!more)
        endSlide();
}

void HeaderStrip::applyFrame()
{
    const QList<int> &tops = m_slide->mover.tops();
    for (qsizetype i = 0; i < m_slide->members.size(); ++i) {
        if (QWidget *member = m_slide->members.at(i))
            member->move(member->x(), tops.at(i));
    }
}

void HeaderStrip::endSlide()
{
    m_frames.stop();
    const std::unique_ptr<Slide> slide = std::move(m_slide);
    qApp->removeEventFilter(this);
    if (slide->snapView && slide->snapBar)
        slide->snapView->move(slide->snapView->x(),
                              HeaderGeometry::slideViewTop(slide->snapBar->y(), m_headerHeight));
    for (QWidget *view : slide->hideAfter) {
        if (view)
            view->hide();
    }
    m_host.relayout();
}

bool HeaderStrip::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove: {
        const auto *widget = qobject_cast<const QWidget *>(watched);
        return m_slide && widget && (widget == m_control || m_control->isAncestorOf(widget));
    }
    default:
        return false;
    }
}

// --- the mouse over a bar ------------------------------------------------------

void HeaderStrip::barPressed(HeaderBar *bar, QMouseEvent *event)
{
    Header *header = m_look.designMode ? nullptr : headerOf(bar);
    if (!header)
        return;
    if (event->button() == Qt::LeftButton && header->Enabled())
        drawHeader(header, HeaderPressed);
    bar->dragOrigin.reset();
    const QPointF at = event->position();
    emit headerMouseDown(header, buttonCode(event->button()), shiftCode(event->modifiers()),
                               float(at.x()), float(at.y()));
}

void HeaderStrip::barMoved(HeaderBar *bar, QMouseEvent *event)
{
    Header *header = m_look.designMode ? nullptr : headerOf(bar);
    if (!header || !header->Enabled())
        return;
    const int buttons = buttonCode(event->buttons());
    const bool leftDown = (buttons & LeftButtonBit) != 0;
    const QPointF at = event->position();
    if (!inside(bar, at)) {
        // Out of the bar: with the button up the mouse has left it; with the
        // button down the bar keeps the mouse and looks merely hot.
        drawHeader(header, leftDown ? HeaderHot : HeaderNormal);
        return;
    }
    drawHeader(header, leftDown ? HeaderPressed : HeaderHot);
    emit headerMouseMove(header, buttons, shiftCode(event->modifiers()), float(at.x()), float(at.y()));
    if (buttons != LeftButtonBit || m_look.dragMode != qvOLEDragAutomatic)
        return;
    if (!bar->dragOrigin) {
        bar->dragOrigin = at;
    } else if (qAbs(at.x() - bar->dragOrigin->x()) > DragThreshold
               || qAbs(at.y() - bar->dragOrigin->y()) > DragThreshold) {
        bar->dragOrigin.reset();
        startDrag(bar->barId());
    }
}

void HeaderStrip::barReleased(HeaderBar *bar, QMouseEvent *event)
{
    Header *header = m_look.designMode ? nullptr : headerOf(bar);
    if (!header)
        return;
    const QPointF at = event->position();
    if (event->button() == Qt::LeftButton && header->Enabled()) {
        drawHeader(header, HeaderHot);
        if (inside(bar, at)) {
            if (header->Index() != m_host.openPosition()) {
                m_host.playHeaderSound(header);
                m_host.openHeader(header->Index());
            }
            emit headerClick(header);
        }
    }
    emit headerMouseUp(header, buttonCode(event->button()), shiftCode(event->modifiers()),
                             float(at.x()), float(at.y()));
}

void HeaderStrip::barLeft(HeaderBar *bar)
{
    Header *header = m_look.designMode ? nullptr : headerOf(bar);
    if (header && header->Enabled())
        drawHeader(header, HeaderNormal);
}

void HeaderStrip::showPointer(int pointer, const QVariant &picture)
{
    const std::optional<QCursor> cursor = cursorForPointer(pointer, picture);
    for (HeaderBar *bar : std::as_const(m_bars)) {
        if (!bar)
            continue;
        if (cursor)
            bar->setCursor(*cursor);
        else
            bar->unsetCursor();
    }
}

void HeaderStrip::startDrag(int barId)
{
    QPointer<HeaderBar> source = bar(barId);
    QPointer<Header> header = headerOf(source);
    if (!header)
        return;
    auto *data = new QMimeData;
    data->setText(header->Caption());
    data->setData(headerKeyMimeType(), header->Key().toUtf8());
    auto *drag = new QDrag(source);
    drag->setMimeData(data);
    drag->exec(Qt::CopyAction | Qt::MoveAction);
    // The drop took the button's release: the bar goes back to its normal look.
    if (source && header)
        drawHeader(header, HeaderNormal);
}

} // namespace OrrinQuiver
