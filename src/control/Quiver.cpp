#include "control/Quiver.h"

#include "control/HeaderFlash.h"
#include "control/HeaderGeometry.h"
#include "control/HeaderStrip.h"
#include "control/ItemRelay.h"
#include "control/Quiver_p.h"
#include "control/QuiverSounds.h"
#include "control/ScrollArrows.h"
#include "control/StylePreset.h"
#include "control/modQuiver.h"
#include "core/ScriptErrors.h"
#include "itemview/DrawItem.h"
#include "itemview/ItemContainer.h"
#include "itemview/ItemLook.h"
#include "model/Header.h"
#include "model/Headers.h"
#include "model/Item.h"
#include "model/Items.h"
#include "model/Navigation.h"
#include "serialize/XmlReader.h"
#include "serialize/XmlWriter.h"

#include <QtCore/QTimer>
#include <QtGui/QBitmap>
#include <QtGui/QCursor>
#include <QtGui/QFontMetrics>
#include <QtGui/QIcon>
#include <QtGui/QImage>
#include <QtGui/QPixmap>
#include <QtWidgets/QMessageBox>

#include <algorithm>

namespace OrrinQuiver {

namespace P = PropertyTable;

namespace {

// Timer intervals a new control starts with, in milliseconds.
constexpr int InitialFlashInterval = 1000;
constexpr int InitialArrowInterval = 200;
constexpr int InitialRedrawInterval = 250;

// The range the flash delay clamps to, in milliseconds; it is the flash
// timer's interval and not kept in a property bag.
constexpr int MinFlashDelay = 100;
constexpr int MaxFlashDelay = 5000;

// The pointer the header bars show unless the host sets one.
constexpr Qt::CursorShape DefaultHeaderCursorShape = Qt::PointingHandCursor;

const QString FirstHeaderCaption = QStringLiteral("Header 1");

// What the size hints leave for the parts of a bar around its caption: the
// caption margin on both sides and the widest frame of the styles.
constexpr int HeaderCaptionRoom = 2 * 6 + 13;
// The rows of items the preferred size shows; the minimum shows one.
constexpr int PreferredItemRows = 4;

// What a value assigned to a pointer-picture property is.
enum class PictureKind {
    // No picture: an invalid variant or an empty picture.
    None,
    // An icon or a cursor.
    Pointer,
    // A bitmap or anything else.
    Refused
};

template<typename Image>
PictureKind bitmapKind(const QVariant &picture)
{
    return picture.value<Image>().isNull() ? PictureKind::None : PictureKind::Refused;
}

PictureKind pictureKind(const QVariant &picture)
{
    if (!picture.isValid() || picture.isNull())
        return PictureKind::None;
    switch (picture.userType()) {
    case QMetaType::QCursor:
        return PictureKind::Pointer;
    case QMetaType::QIcon:
        return picture.value<QIcon>().isNull() ? PictureKind::None : PictureKind::Pointer;
    case QMetaType::QPixmap:
        return bitmapKind<QPixmap>(picture);
    case QMetaType::QBitmap:
        return bitmapKind<QBitmap>(picture);
    case QMetaType::QImage:
        return bitmapKind<QImage>(picture);
    default:
        return PictureKind::Refused;
    }
}

// Fonts count as equal when these five attributes are; a font that differs
// only otherwise (weight within bold or not bold, strike-out, spacing, ...)
// changes nothing.
bool sameFont(const QFont &a, const QFont &b)
{
    return a.pointSizeF() == b.pointSizeF() && a.pixelSize() == b.pixelSize() && a.family() == b.family()
        && a.underline() == b.underline() && a.italic() == b.italic() && a.bold() == b.bold();
}

// The size that shows every bar and `itemRows` rows of the open header's
// items, at the control's least width.
QSize sizeFor(const QuiverPrivate &d, int itemRows)
{
    const qvStyle style = qvStyle(d.settings.style);
    const int count = d.headers->Count();
    const int headerHeight = HeaderGeometry::headerHeight(style, QFontMetrics(d.q->font()).height(), 0);
    // What the bars and frames take of any height: the content height of
    // one control height, taken from it.
    constexpr int Probe = 10000;
    const int bars = Probe
        - HeaderGeometry::contentHeight(style, Probe, headerHeight, count, qMax(1, d.selection->position()),
                                        d.settings.alwaysShowFirstHeader);
    const Header *open = d.selection->openHeader();
    const int row = ItemHeight(d.itemLook(), open ? open->View() : qvViewLargeIcons);
    return QSize(Quiver::MinimumWidth, bars + itemRows * row);
}

QTimer *makeTimer(QObject *parent, const char *name, int interval)
{
    auto *timer = new QTimer(parent);
    timer->setObjectName(QLatin1String(name));
    timer->setInterval(interval);
    return timer;
}

} // namespace

Quiver::Quiver(QWidget *parent)
    : QWidget(parent)
    , d(std::make_unique<QuiverPrivate>(this))
{
    modQuiver::addInstance(this);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
    d->sounds = new QuiverSounds(this);
    d->headers = new OrrinQuiver::Headers(d.get(), this);
    d->navigation = new OrrinQuiver::Navigation(d.get(), this);
    d->strip = new HeaderStrip(this, *d->headers, *d);
    d->relay = new ItemRelay(this, *d);
    d->selection = std::make_unique<HeaderSelection>(*d->headers, *d->navigation, *d);
    connect(d->navigation, &OrrinQuiver::Navigation::ChangePosition, this,
            [this](const QString &header, const QString &item) {
                quietly([&] { d->followHistory(header, item); });
            });
    connect(d->strip, &HeaderStrip::headerMouseDown, this, &Quiver::HeaderMouseDown);
    connect(d->strip, &HeaderStrip::headerMouseMove, this, &Quiver::HeaderMouseMove);
    connect(d->strip, &HeaderStrip::headerMouseUp, this, &Quiver::HeaderMouseUp);
    connect(d->strip, &HeaderStrip::headerClick, this, &Quiver::HeaderClick);
    d->flashTimer = makeTimer(this, "FlashTimer", InitialFlashInterval);
    d->arrowTimer = makeTimer(this, "ArrowTimer", InitialArrowInterval);
    d->redrawTimer = makeTimer(this, "RedrawTimer", InitialRedrawInterval);
    d->redrawTimer->setSingleShot(true);
    d->arrows = new ScrollArrows(this, *d);
    connect(d->redrawTimer, &QTimer::timeout, this, [this] { quietly([this] { d->redrawOpenView(); }); });
    d->flash = new HeaderFlash(this, *d->headers, *d->strip, *d->flashTimer);
    d->defaultFont = QWidget::font();
    d->defaultHeaderCursor = QVariant::fromValue(QCursor(DefaultHeaderCursorShape));
    d->headerIcon = d->defaultHeaderCursor;
    d->strip->setLook(d->stripLook());
    d->trackFocus();
}

Quiver::~Quiver()
{
    QObject::disconnect(d->focusTracking);
    // The headers give hosted windows back through the item views, which
    // must still exist then.
    delete d->headers;
    d->headers = nullptr;
    modQuiver::releaseInstance();
}

void Quiver::InitProperties()
{
    quietly([this] {
        setFocusPolicy(Qt::FocusPolicy(focusPolicy() & ~Qt::TabFocus));
        d->tabStop = (focusPolicy() & Qt::TabFocus) != 0;
        d->initProperties();
        // Added to a new control, the header opens (its view becomes active).
        d->headers->Add(0, QString(), FirstHeaderCaption);
    });
}

bool Quiver::DesignMode() const { return d->designMode; }

void Quiver::setDesignMode(bool on)
{
    d->designMode = on;
    quietly([this, on] {
        d->strip->setLook(d->stripLook());
        for (ItemContainer *view : d->views())
            view->setDesignMode(on);
    });
}

Headers *Quiver::Headers() const { return d->headers; }

Navigation *Quiver::Navigation() const { return d->navigation; }

bool Quiver::AlwaysShowFirstHeader() const { return d->settings.alwaysShowFirstHeader; }
void Quiver::setAlwaysShowFirstHeader(bool on) { d->assign(P::AlwaysShowFirstHeader, on); }

bool Quiver::AutoMouseWheel() const { return d->settings.autoMouseWheel; }
void Quiver::setAutoMouseWheel(bool on) { d->assign(P::AutoMouseWheel, on); }

OLE_COLOR Quiver::BackColor() const { return d->settings.backColor; }
void Quiver::setBackColor(OLE_COLOR color) { d->assign(P::BackColor, color); }

OLE_COLOR Quiver::CheckColor() const { return d->settings.checkColor; }
void Quiver::setCheckColor(OLE_COLOR color) { d->assign(P::CheckColor, color); }

OLE_COLOR Quiver::DefaultMaskColor() const { return d->settings.defaultMaskColor; }
void Quiver::setDefaultMaskColor(OLE_COLOR color) { d->assign(P::DefaultMaskColor, color); }

OLE_COLOR Quiver::DkShadowColor() const { return d->settings.dkShadowColor; }
void Quiver::setDkShadowColor(OLE_COLOR color) { d->assign(P::DkShadowColor, color); }

OLE_COLOR Quiver::ShadowColor() const { return d->settings.shadowColor; }

// Written by hand: the shadow colour deliberately overwrites the highlight
// colour too, and the strip is laid out without a repaint of its own.
void Quiver::setShadowColor(OLE_COLOR color)
{
    if (color == d->settings.shadowColor)
        return;
    d->settings.shadowColor = color;
    d->settings.highlightColor = color;
    d->applyEffects(P::RestyleViews | P::HeaderRedraw | P::Layout);
    d->notify(QStringLiteral("ShadowColor"));
}

OLE_COLOR Quiver::HighlightColor() const { return d->settings.highlightColor; }
void Quiver::setHighlightColor(OLE_COLOR color) { d->assign(P::HighlightColor, color); }

OLE_COLOR Quiver::HeaderBackColor() const { return d->settings.headerBackColor; }
void Quiver::setHeaderBackColor(OLE_COLOR color) { d->assign(P::HeaderBackColor, color); }

OLE_COLOR Quiver::HeaderForeColor() const { return d->settings.headerForeColor; }
void Quiver::setHeaderForeColor(OLE_COLOR color) { d->assign(P::HeaderForeColor, color); }

OLE_COLOR Quiver::HeaderOverForeColor() const { return d->settings.headerOverForeColor; }
void Quiver::setHeaderOverForeColor(OLE_COLOR color) { d->assign(P::HeaderOverForeColor, color); }

OLE_COLOR Quiver::ItemForeColor() const { return d->settings.itemForeColor; }
void Quiver::setItemForeColor(OLE_COLOR color) { d->assign(P::ItemForeColor, color); }

OLE_COLOR Quiver::ItemOverForeColor() const { return d->settings.itemOverForeColor; }
void Quiver::setItemOverForeColor(OLE_COLOR color) { d->assign(P::ItemOverForeColor, color); }

OLE_COLOR Quiver::ItemOverBackColor() const { return d->settings.itemOverBackColor; }
void Quiver::setItemOverBackColor(OLE_COLOR color) { d->assign(P::ItemOverBackColor, color); }

OLE_COLOR Quiver::ItemDownBackColor() const { return d->settings.itemDownBackColor; }
void Quiver::setItemDownBackColor(OLE_COLOR color) { d->assign(P::ItemDownBackColor, color); }

OLE_COLOR Quiver::ItemDownForeColor() const { return d->settings.itemDownForeColor; }
void Quiver::setItemDownForeColor(OLE_COLOR color) { d->assign(P::ItemDownForeColor, color); }

bool Quiver::ItemsMoveWithClick() const { return d->settings.itemsMoveWithClick; }
void Quiver::setItemsMoveWithClick(bool on) { d->assign(P::ItemsMoveWithClick, on); }

bool Quiver::ItemsStayDownWithClick() const { return d->settings.itemsStayDownWithClick; }
void Quiver::setItemsStayDownWithClick(bool on) { d->assign(P::ItemsStayDownWithClick, on); }

bool Quiver::ItemsUnderlineOnMove() const { return d->settings.itemsUnderlineOnMove; }
void Quiver::setItemsUnderlineOnMove(bool on) { d->assign(P::ItemsUnderlineOnMove, on); }

bool Quiver::PlaySounds() const { return d->settings.playSounds; }
void Quiver::setPlaySounds(bool on) { d->assign(P::PlaySounds, on); }

bool Quiver::UseSystemSounds() const { return d->settings.useSystemSounds; }
void Quiver::setUseSystemSounds(bool on) { d->assign(P::UseSystemSounds, on); }

qvOLEDragMode Quiver::OLEDragMode() const { return qvOLEDragMode(d->settings.oleDragMode); }
void Quiver::setOLEDragMode(qvOLEDragMode mode) { d->assign(P::OLEDragMode, int(mode)); }

qvOLEDropMode Quiver::OLEDropMode() const { return qvOLEDropMode(d->settings.oleDropMode); }
void Quiver::setOLEDropMode(qvOLEDropMode mode) { d->assign(P::OLEDropMode, int(mode)); }

qvStyle Quiver::Style() const { return qvStyle(d->settings.style); }
void Quiver::setStyle(qvStyle style) { d->assign(P::Style, int(style)); }

bool Quiver::ShowToolTips() const { return d->settings.showToolTips; }
void Quiver::setShowToolTips(bool on) { d->assign(P::ShowToolTips, on); }

int Quiver::ScrollDelay() const { return d->settings.scrollDelay; }
void Quiver::setScrollDelay(int milliseconds) { d->assign(P::ScrollDelay, milliseconds); }

bool Quiver::SmoothScroll() const { return d->settings.smoothScroll; }
void Quiver::setSmoothScroll(bool on) { d->assign(P::SmoothScroll, on); }

int Quiver::FlashDelay() const { return d->flashTimer->interval(); }

void Quiver::setFlashDelay(int milliseconds)
{
    d->flashTimer->setInterval(std::clamp(milliseconds, MinFlashDelay, MaxFlashDelay));
    d->notify(QStringLiteral("FlashDelay"));
}

QFont Quiver::Font() const { return QWidget::font(); }

// Written by hand: fonts compare on five attributes only, and every view and
// the bar height follow the new one.
void Quiver::setFont(const QFont &font)
{
    // What the new font leaves unset it takes from the current one, as the
    // widget itself does.
    if (sameFont(font.resolve(QWidget::font()), QWidget::font()))
        return;
    QWidget::setFont(font);
    quietly([this, &font] {
        for (ItemContainer *view : d->views())
            view->setFont(font);
    });
    d->applyEffects(P::RestyleViews | P::HeaderRedraw | P::Layout);
    d->notify(QStringLiteral("Font"));
}

quintptr Quiver::hWnd() const { return quintptr(winId()); }

// The image lists are not announced: the form keeps them, not the control.
QObject *Quiver::Icons() const { return d->icons; }

void Quiver::setIcons(QObject *images)
{
    d->icons = images;
    d->applyEffects(P::RestyleViews);
}

void Quiver::letIcons(QObject *images)
{
    d->icons = images;
    d->applyEffects(P::RestyleViews | P::Layout);
}

QObject *Quiver::SmallIcons() const { return d->smallIcons; }

void Quiver::setSmallIcons(QObject *images)
{
    d->smallIcons = images;
    d->applyEffects(P::RestyleViews | P::Layout);
}

void Quiver::letSmallIcons(QObject *images)
{
    d->smallIcons = images;
    d->applyEffects(P::RestyleViews);
}

// The pointers are written by hand: a picture is first told apart (none, a
// pointer, or refused with a message at design time), and every item view or
// bar shows the pair of pointer and picture.
QVariant Quiver::ItemMouseIcon() const { return d->itemIcon; }

void Quiver::setItemMouseIcon(const QVariant &picture)
{
    switch (pictureKind(picture)) {
    case PictureKind::Refused:
        d->refusePicture();
        return;
    case PictureKind::None:
        d->itemPointer = MousePointer::Arrow;
        d->itemIcon = QVariant();
        break;
    case PictureKind::Pointer:
        d->itemIcon = picture;
        break;
    }
    quietly([this] {
        for (ItemContainer *view : d->views())
            view->updatePointer(d->itemPointer, d->itemIcon);
    });
    d->notify(QStringLiteral("ItemMouseIcon"));
}

int Quiver::ItemMousePointer() const { return d->itemPointer; }

void Quiver::setItemMousePointer(int pointer)
{
    d->itemPointer = pointer;
    quietly([this] {
        for (ItemContainer *view : d->views())
            view->updatePointer(d->itemPointer, d->itemIcon);
    });
    d->notify(QStringLiteral("ItemMousePointer"));
}

QVariant Quiver::HeaderMouseIcon() const { return d->headerIcon; }

void Quiver::setHeaderMouseIcon(const QVariant &picture)
{
    QVariant icon = picture;
    switch (pictureKind(picture)) {
    case PictureKind::Refused:
        d->refusePicture();
        return;
    case PictureKind::None:
        icon = d->defaultHeaderCursor;
        setHeaderMousePointer(MousePointer::Custom);
        break;
    case PictureKind::Pointer:
        break;
    }
    d->headerIcon = icon;
    d->strip->showPointer(d->headerPointer, icon);
    d->notify(QStringLiteral("HeaderMouseIcon"));
}

int Quiver::HeaderMousePointer() const { return d->headerPointer; }

void Quiver::setHeaderMousePointer(int pointer)
{
    d->headerPointer = pointer;
    d->strip->showPointer(pointer, d->headerIcon);
    d->notify(QStringLiteral("HeaderMousePointer"));
}

QString Quiver::SoundItemURL() const { return d->sounds->sound(QuiverSounds::ItemSound).url; }

void Quiver::setSoundItemURL(const QString &url) { d->setSoundUrl(QuiverSounds::ItemSound, url); }

QString Quiver::SoundHeaderUpURL() const { return d->sounds->sound(QuiverSounds::HeaderUpSound).url; }

void Quiver::setSoundHeaderUpURL(const QString &url) { d->setSoundUrl(QuiverSounds::HeaderUpSound, url); }

QString Quiver::SoundHeaderDownURL() const { return d->sounds->sound(QuiverSounds::HeaderDownSound).url; }

void Quiver::setSoundHeaderDownURL(const QString &url) { d->setSoundUrl(QuiverSounds::HeaderDownSound, url); }

Header *Quiver::SelectedHeader() const { return d->selection->openHeader(); }

Item *Quiver::SelectedItem() const
{
    return quietly([this]() -> Item * {
        const ItemContainer *view = d->openView();
        return view ? SelectedHeader()->Items()->at(view->CurrentItem()) : nullptr;
    });
}

int Quiver::HeaderHeight() const { return d->strip->headerHeight() + 1; }

QString Quiver::XML() const { return XmlWriter::controlDocument(*this, *d->headers, *d->navigation); }

void Quiver::setXML(const QString &xml)
{
    XmlReader::readControlDocument(*this, *d->headers, *d->navigation, xml);
}

void Quiver::writeXml(const QString &xml)
{
    try {
        setXML(xml);
    } catch (const QuiverError &error) {
        reportToScript(this, error);
    }
}

QVariant Quiver::URLIcon(const QString &) const { return {}; }

QVariant Quiver::URLSmallIcon(const QString &) const { return {}; }

void Quiver::AboutBox()
{
    quietly([] { modQuiver::aboutDialog()->exec(); });
}

Item *Quiver::GetFirstVisible() const
{
    return quietly([this]() -> Item * {
        const ItemContainer *view = d->openView();
        const Items *items = view ? SelectedHeader()->Items() : nullptr;
        if (!items || items->Count() < 1)
            return nullptr;
        return items->at(view->TopItem());
    });
}

Item *Quiver::HitTest(int X, int Y) const
{
    return quietly([this, X, Y]() -> Item * {
        if (X < 0 || X > width())
            return nullptr;
        const ItemContainer *view = d->openView();
        if (!view)
            return nullptr;
        const int y = Y - view->y();
        if (y < 0)
            return nullptr;
        // Item tops as laid out, unscrolled; on an edge two items share the
        // earlier one wins.
        return SelectedHeader()->Items()->at(view->positionAtSurfaceY(y));
    });
}

QString Quiver::VBVersion() const { return QStringLiteral("VB6"); }

QString Quiver::Version() const { return modQuiver::versionText(); }

void Quiver::ApplyStylePreset(qvStyle style) { StylePreset::apply(style, *this); }

QSize Quiver::minimumSizeHint() const { return sizeFor(*d, 1); }

QSize Quiver::sizeHint() const
{
    QSize size = sizeFor(*d, PreferredItemRows);
    // Wide enough for the widest header caption.
    const QFontMetrics metrics(QWidget::font());
    for (const Header *header : *d->headers)
        size.setWidth(qMax(size.width(), metrics.horizontalAdvance(header->Caption()) + HeaderCaptionRoom));
    return size;
}

} // namespace OrrinQuiver
