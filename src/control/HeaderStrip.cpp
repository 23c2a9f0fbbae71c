#include "control/HeaderStrip.h"

#include "control/DrawHeader.h"
#include "control/HeaderGeometry.h"
#include "control/HeaderSound.h"
#include "control/Quiver_p.h"
#include "platform/SlideMover.h"
#include "itemview/ItemContainer.h"
#include "platform/MousePointer.h"
#include "model/Header.h"
#include "model/Headers.h"
#include "model/Items.h"
#include "platform/MouseCodes.h"
#include "platform/SoundOutput.h"

#include <QtCore/QFile>
#include <QtCore/QMimeData>
#include <QtGui/QDrag>
#include <QtGui/QFontMetrics>
#include <QtGui/QMouseEvent>
#include <QtWidgets/QApplication>

namespace OrrinQuiver {

namespace {

// Time between two frames of a slide, about one tick of the desktop's timer.
constexpr int SlideFrameInterval = 10;
// How far the mouse moves with the left button down before a header drag starts.
constexpr qreal DragThreshold = 2;

// Strictly inside: a point on the bar's first row or column counts as out.
bool inside(const QWidget *widget, QPointF point)
{
    return point.x() > 0 && point.x() < widget->width() && point.y() > 0 && point.y() < widget->height();
}

// The control's own folder sound, read once from the library's resources.
const QByteArray &builtInHeaderSound()
{
    static const QByteArray wave = [] {
        QFile file(QStringLiteral(":/OrrinQuiver/FOLDER_SOUND"));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }();
    return wave;
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

HeaderStrip::HeaderStrip(QuiverPrivate *control)
    : d(control)
{
    m_frames.setInterval(SlideFrameInterval);
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

HeaderBar *HeaderStrip::addBar(int barId, QWidget *itemView)
{
    auto *bar = new HeaderBar(this, barId, d->q);
    m_bars.insert(barId, bar);
    if (itemView)
        itemView->lower();
    return bar;
}

void HeaderStrip::removeBar(int barId)
{
    if (HeaderBar *bar = m_bars.take(barId)) {
        bar->hide();
        bar->deleteLater();
    }
}

HeaderBar *HeaderStrip::bar(int barId) const { return m_bars.value(barId); }

Header *HeaderStrip::headerOf(const HeaderBar *bar) const
{
    if (!bar)
        return nullptr;
    // The record names the header by position; a header moved since the bar
    // was last drawn is found by its bar instead.
    Header *header = d->headers->at(bar->record().index());
    if (header && header->barId() == bar->barId())
        return header;
    for (Header *candidate : *d->headers) {
        if (candidate->barId() == bar->barId())
            return candidate;
    }
    return nullptr;
}

void HeaderStrip::refreshRecord(HeaderBar *bar, const Header *header) const
{
    bar->record().setField(BarRecord::IndexField, QString::number(header->Index()));
    bar->record().setField(BarRecord::ToolTipField, d->showToolTips ? header->ToolTipText() : QString());
}

void HeaderStrip::layout()
{
    if (m_slide)
        return;
    Quiver *q = d->q;
    d->headerHeight
        = HeaderGeometry::headerHeight(d->style, QFontMetrics(q->font()).height(), d->headerHeight);

    HeaderGeometry::StripInput input;
    input.style = d->style;
    input.width = q->width();
    input.height = q->height();
    input.headerHeight = d->headerHeight;
    input.selected = d->selectedPosition;
    input.alwaysShowFirstHeader = d->alwaysShowFirstHeader;
    for (const Header *header : *d->headers)
        input.visible.append(header->Visible());
    const HeaderGeometry::StripLayout strip = HeaderGeometry::layoutStrip(input);

    int position = 0;
    for (Header *header : *d->headers) {
        const HeaderGeometry::BarPlacement &place = strip.bars.at(position++);
        if (HeaderBar *bar = this->bar(header->barId())) {
            bar->setGeometry(place.rect);
            bar->setVisible(place.visible);
            refreshRecord(bar, header);
            if (d->headerRedraw)
                bar->setDrawnState(-1);
            drawHeader(header, HeaderNormal);
        }
        if (QWidget *view = d->viewOf(header)) {
            if (position == d->selectedPosition) {
                view->setGeometry(strip.openView);
                view->setVisible(header->Visible());
            } else {
                // Closed views keep their top and wait, hidden, for their header to open.
                view->setGeometry(strip.viewLeft, view->y(), strip.viewWidth, view->height());
                view->hide();
            }
        }
    }
    d->headerRedraw = false;
}

void HeaderStrip::repaint(bool force)
{
    for (Header *header : *d->headers) {
        HeaderBar *bar = this->bar(header->barId());
        if (!bar)
            continue;
        if (force) {
            bar->setDrawnState(-1);
            drawHeader(header, HeaderNormal);
        } else {
            bar->update();
        }
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

HeaderLook HeaderStrip::lookOf(const HeaderBar *bar) const
{
    HeaderLook look;
    const Header *header = headerOf(bar);
    // A bar not drawn yet shows its normal look.
    look.state = qMax(bar->drawnState(), int(HeaderNormal));
    look.style = d->style;
    look.caption = header ? header->Caption() : QString();
    look.font = d->q->font();
    look.enabled = header && header->Enabled();
    look.colors.back = bar->backColor() == HeaderBar::DefaultColor ? d->headerBackColor : bar->backColor();
    look.colors.fore = bar->foreColor() == HeaderBar::DefaultColor ? d->headerForeColor : bar->foreColor();
    look.colors.overFore = d->headerOverForeColor;
    look.colors.highlight = d->highlightColor;
    look.colors.shadow = d->shadowColor;
    look.colors.dkShadow = d->dkShadowColor;
    return look;
}

// --- the slide -----------------------------------------------------------------

void HeaderStrip::slide(int oldPosition, int newPosition)
{
    finishSlide();
    Quiver *q = d->q;
    Headers *headers = d->headers;
    const Header *opened = headers->at(newPosition);
    HeaderBar *openedBar = opened ? bar(opened->barId()) : nullptr;
    QWidget *openedView = d->viewOf(opened);
    const int count = headers->Count();
    const int hh = d->headerHeight;
    const int content = HeaderGeometry::contentHeight(d->style, q->height(), hh, count, newPosition,
                                                      d->alwaysShowFirstHeader);
    const HeaderGeometry::SlidePlan plan = HeaderGeometry::planSlide(
        { oldPosition, newPosition, count, opened ? opened->Items()->Count() : 0, q->height(), hh, content });
    if (plan.isEmpty() || !openedBar || !openedView) {
        d->layoutStrip();
        return;
    }

    QList<QPointer<QWidget>> members;
    QList<int> tops;
    for (int position : plan.barPositions) {
        const Header *header = headers->at(position);
        if (HeaderBar *member = header ? bar(header->barId()) : nullptr) {
            members.append(member);
            tops.append(member->y());
        }
    }
    // The item views wait ready at the width they will have when open.
    const int viewWidth = HeaderGeometry::itemViewRect(d->style, q->width(), 0, hh, content).width();
    if (openedView->width() != viewWidth)
        openedView->resize(viewWidth, openedView->height());
    QList<QPointer<QWidget>> hideAfter;
    if (plan.up) {
        openedView->move(openedView->x(), HeaderGeometry::slideViewTop(openedBar->y(), hh));
        openedView->show();
        const int lowest = qMax(1, newPosition - int(plan.barPositions.size()));
        for (int position = newPosition - 1; position >= lowest; --position)
            hideAfter.append(d->viewAt(position));
    } else {
        members.append(openedView);
        tops.append(openedView->y());
        for (int position = newPosition + 1; position <= count; ++position)
            hideAfter.append(d->viewAt(position));
    }

    m_slide.reset(new Slide { members, SlideMover(tops, plan.distance, plan.up, plan.fast, d->smoothScroll),
                              hideAfter, plan.up ? nullptr : openedView, plan.up ? nullptr : openedBar });
    if (!d->smoothScroll || !q->isVisible()) {
        finishSlide();
        return;
    }
    // The control keeps the mouse to itself for the whole slide, so that no
    // click lands on a bar on its way (the filter checks isSliding()).
    if (!d->designMode)
        qApp->installEventFilter(this);
    m_frames.start();
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
                              HeaderGeometry::slideViewTop(slide->snapBar->y(), d->headerHeight));
    for (QWidget *view : slide->hideAfter) {
        if (view)
            view->hide();
    }
    d->layoutStrip();
}

bool HeaderStrip::eventFilter(QObject *watched, QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove: {
        const auto *widget = qobject_cast<const QWidget *>(watched);
        return m_slide && widget && (widget == d->q || d->q->isAncestorOf(widget));
    }
    default:
        return false;
    }
}

// --- the mouse over a bar ------------------------------------------------------

void HeaderStrip::barPressed(HeaderBar *bar, QMouseEvent *event)
{
    Header *header = d->designMode ? nullptr : headerOf(bar);
    if (!header)
        return;
    if (event->button() == Qt::LeftButton && header->Enabled())
        drawHeader(header, HeaderPressed);
    bar->dragOrigin.reset();
    const QPointF at = event->position();
    emit d->q->HeaderMouseDown(header, buttonCode(event->button()), shiftCode(event->modifiers()),
                               float(at.x()), float(at.y()));
}

void HeaderStrip::barMoved(HeaderBar *bar, QMouseEvent *event)
{
    Header *header = d->designMode ? nullptr : headerOf(bar);
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
    emit d->q->HeaderMouseMove(header, buttons, shiftCode(event->modifiers()), float(at.x()), float(at.y()));
    if (buttons != LeftButtonBit || d->oleDragMode != qvOLEDragAutomatic)
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
    Header *header = d->designMode ? nullptr : headerOf(bar);
    if (!header)
        return;
    const QPointF at = event->position();
    if (event->button() == Qt::LeftButton && header->Enabled()) {
        drawHeader(header, HeaderHot);
        if (inside(bar, at)) {
            if (header->Index() != d->selectedPosition) {
                playHeaderSound(header);
                d->selectHeader(header->Index());
            }
            emit d->q->HeaderClick(header);
        }
    }
    emit d->q->HeaderMouseUp(header, buttonCode(event->button()), shiftCode(event->modifiers()),
                             float(at.x()), float(at.y()));
}

void HeaderStrip::barLeft(HeaderBar *bar)
{
    Header *header = d->designMode ? nullptr : headerOf(bar);
    if (header && header->Enabled())
        drawHeader(header, HeaderNormal);
}

void HeaderStrip::playHeaderSound(const Header *clicked)
{
    SoundOutput *output = d->soundOutput.get();
    if (!output)
        return;
    HeaderSoundInput input;
    input.playSounds = d->playSounds;
    input.useSystemSounds = d->useSystemSounds;
    input.builtInLoaded = !builtInHeaderSound().isEmpty();
    input.upLoaded = d->headerUpSound.loaded;
    input.downLoaded = d->headerDownSound.loaded;
    input.clickedPosition = clicked->Index();
    input.openPosition = d->selectedPosition;
    switch (chooseHeaderSound(input)) {
    case HeaderSound::BuiltIn:
        output->playWave(builtInHeaderSound());
        break;
    case HeaderSound::Up:
        output->playWave(d->headerUpSound.data);
        break;
    case HeaderSound::Down:
        output->playWave(d->headerDownSound.data);
        break;
    case HeaderSound::None:
        break;
    }
}

void HeaderStrip::showPointer(int barId, int pointer, const QVariant &picture)
{
    HeaderBar *bar = this->bar(barId);
    if (!bar)
        return;
    if (const std::optional<QCursor> cursor = cursorForPointer(pointer, picture))
        bar->setCursor(*cursor);
    else
        bar->unsetCursor();
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
