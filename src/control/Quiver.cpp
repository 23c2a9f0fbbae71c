#include "control/Quiver.h"

#include "control/HeaderStrip.h"
#include "control/Quiver_p.h"
#include "control/modQuiver.h"
#include "control/StylePreset.h"
#include "imaging/ImageList.h"
#include "itemview/ItemContainer.h"
#include "itemview/ItemLook.h"
#include "model/Header.h"
#include "model/Headers.h"
#include "model/Item.h"
#include "model/Items.h"
#include "model/Navigation.h"
#include "core/ScriptErrors.h"
#include "platform/SoundOutput.h"
#include "serialize/XmlDocumentFormat.h"
#include "serialize/XmlReader.h"
#include "serialize/XmlWriter.h"

#include <QtCore/QScopedValueRollback>
#include <QtCore/QTimer>
#include <QtGui/QCursor>
#include <QtGui/QFontMetrics>
#include <QtGui/QGuiApplication>
#include <QtGui/QIcon>
#include <QtGui/QImage>
#include <QtGui/QPixmap>
#include <QtNetwork/QNetworkAccessManager>
#include <QtNetwork/QNetworkReply>
#include <QtWidgets/QMessageBox>

#include <algorithm>

namespace OrrinQuiver {

namespace {

// Timer intervals a new control starts with, in milliseconds.
constexpr int InitialFlashInterval = 1000;
constexpr int InitialArrowInterval = 200;
constexpr int InitialRedrawInterval = 250;

// The ranges the delay setters clamp to, in milliseconds.
constexpr int MinFlashDelay = 100;
constexpr int MaxFlashDelay = 5000;
constexpr int MinScrollDelay = 10;
constexpr int MaxScrollDelay = 2000;

constexpr int InitialScrollDelay = 120;

// The pointer the header bars show unless the host sets one.
constexpr Qt::CursorShape DefaultHeaderCursorShape = Qt::PointingHandCursor;

const QString FirstHeaderCaption = QStringLiteral("Header 1");
const QString RefusedPictureMessage = QStringLiteral("The MouseIcon property must be an icon or cursor");

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

QTimer *makeTimer(QObject *parent, const char *name, int interval)
{
    auto *timer = new QTimer(parent);
    timer->setObjectName(QLatin1String(name));
    timer->setInterval(interval);
    return timer;
}

} // namespace

// --- QuiverPrivate ---------------------------------------------------------

QuiverPrivate::QuiverPrivate(Quiver *control)
    : q(control)
    , strip(std::make_unique<HeaderStrip>(this))
    , documents(std::make_unique<XmlDocumentFormat>(*control))
{ }

QuiverPrivate::~QuiverPrivate() = default;

void QuiverPrivate::notify(const QString &name) { emit q->PropertyChanged(name); }

ItemContainer *QuiverPrivate::viewOf(const Header *header) const
{
    return header ? bars.value(header->barId()).view.data() : nullptr;
}

ItemContainer *QuiverPrivate::viewAt(int position) const { return viewOf(headers->at(position)); }

ItemContainer *QuiverPrivate::openView() const { return viewAt(selectedPosition); }

QList<ItemContainer *> QuiverPrivate::views() const
{
    QList<ItemContainer *> result;
    for (Header *header : *headers) {
        if (ItemContainer *view = viewOf(header))
            result.append(view);
    }
    return result;
}

void QuiverPrivate::recolorItems(const QString &name)
{
    quietly([this] {
        redrawItemViews();
        repaintHeaderStrip(false);
    });
    notify(name);
}

void QuiverPrivate::restyleHeaders(bool redrawAll, const QString &name)
{
    quietly([this, redrawAll] {
        if (redrawAll)
            headerRedraw = true;
        layoutStrip();
        repaintHeaderStrip(false);
    });
    notify(name);
}

void QuiverPrivate::redrawItemViews()
{
    const ItemLook look = itemLook();
    for (ItemContainer *view : views()) {
        view->setLook(look);
        view->relayoutItems(true);
    }
}

ItemLook QuiverPrivate::itemLook() const
{
    ItemLook look;
    look.style = style;
    look.colors = { .back = backColor,
                    .overFore = itemOverForeColor,
                    .overBack = itemOverBackColor,
                    .downFore = itemDownForeColor,
                    .downBack = itemDownBackColor,
                    .check = checkColor,
                    .highlight = highlightColor,
                    .shadow = shadowColor,
                    .dkShadow = dkShadowColor };
    look.font = q->font();
    look.underlineOnMove = itemsUnderlineOnMove;
    look.moveWithClick = itemsMoveWithClick;
    look.icons = qobject_cast<ImageList *>(icons.data());
    look.smallIcons = qobject_cast<ImageList *>(smallIcons.data());
    return look;
}

void QuiverPrivate::restyleItemViews()
{
    const ItemLook look = itemLook();
    for (ItemContainer *view : views())
        view->setLook(look);
}

void QuiverPrivate::repaintHeaderStrip(bool force) { strip->repaint(force); }

void QuiverPrivate::findOpenHeader()
{
    const int count = headers->Count();
    for (int position = 1; position <= count; ++position) {
        if (const ItemContainer *view = viewAt(position); view && view->Active()) {
            selectedPosition = position;
            return;
        }
    }
    if (selectedPosition == 0)
        return;
    // The open header itself went: a visible header near its place opens.
    selectedPosition = visiblePositionFor(selectedPosition);
    if (ItemContainer *view = openView())
        view->setActive(true);
}

void QuiverPrivate::layoutStrip()
{
    findOpenHeader();
    for (Header *header : *headers) {
        // Headers move without telling their views.
        if (ItemContainer *view = viewOf(header))
            view->setCollectionIndex(header->Index());
    }
    strip->layout();
}

int QuiverPrivate::visiblePositionFor(int requested) const
{
    const int count = headers->Count();
    auto visible = [this](int position) { return headers->at(position)->Visible(); };
    auto lowestFrom = [&](int from) {
        for (int position = from; position <= count; ++position) {
            if (visible(position))
                return position;
        }
        return 0;
    };
    auto highestFrom = [&](int from) {
        for (int position = from; position >= 1; --position) {
            if (visible(position))
                return position;
        }
        return 0;
    };
    if (requested > count)
        return highestFrom(count);
    if (requested < 1)
        return lowestFrom(1);
    if (const int position = lowestFrom(requested))
        return position;
    // No visible header at or after the request: the nearest one before it.
    return highestFrom(requested - 1);
}

void QuiverPrivate::selectHeader(int requested)
{
    if (headers->Count() == 0)
        return;
    // A slide still under way ends first, so that the next one starts from
    // where the bars belong.
    strip->finishSlide();
    findOpenHeader();
    headerRedraw = true;
    if (requested == selectedPosition) {
        if (ItemContainer *view = openView())
            view->setActive(true);
        return;
    }
    ItemContainer *previous = openView();
    const int previousPosition = selectedPosition;
    selectedPosition = visiblePositionFor(requested);
    ItemContainer *opened = openView();
    if (previous)
        previous->setActive(false);
    if (opened)
        opened->setActive(true);
    // The selection is final now; the bars slide to their places, and the
    // strip is laid out when they are there.
    strip->slide(previousPosition, selectedPosition);
    if (opened && !designMode && tabStop && opened->isVisible())
        opened->setFocus();
    notify(QStringLiteral("CurrentHeader"));
}

void QuiverPrivate::selectItem(qint16 index)
{
    Header *header = headers->at(selectedPosition);
    ItemContainer *view = viewOf(header);
    if (!view || index < 1 || index > header->Items()->Count())
        return;
    view->setCurrentItem(index);
    if (!followingHistory) {
        if (const Item *item = header->Items()->at(index))
            navigation->Record(header->Key(), item->Key());
    }
    notify(QStringLiteral("CurrentItem"));
}

void QuiverPrivate::followHistory(const QString &headerKey, const QString &itemKey)
{
    Header *header = headers->Item(headerKey);
    if (!header)
        return;
    QScopedValueRollback<bool> following(followingHistory, true);
    selectHeader(header->Index());
    if (headers->at(selectedPosition) != header)
        return;
    if (const Item *item = header->Items()->Item(itemKey))
        selectItem(qint16(item->Index()));
}

void QuiverPrivate::applyArrowInterval()
{
    arrowTimer->setInterval(smoothScroll ? scrollDelay : 2 * scrollDelay);
}

void QuiverPrivate::refusePicture()
{
    if (!designMode)
        return;
    // Not exec(): the designer and scripts must not wait in a nested loop.
    auto *box = new QMessageBox(QMessageBox::NoIcon, QGuiApplication::applicationDisplayName(),
                                RefusedPictureMessage, QMessageBox::Ok, q);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}

void QuiverPrivate::setSoundUrl(Sound &sound, const QString &url, const QString &name)
{
    if (url == sound.url)
        return;
    sound.url = url;
    notify(name);
    // Without a location the sound falls back to the built-in one; a new
    // location keeps the sound fetched so far until its own arrives.
    if (url.isEmpty()) {
        sound.loaded = false;
        return;
    }
    if (!network)
        network = std::make_unique<QNetworkAccessManager>();
    QNetworkReply *reply = network->get(QNetworkRequest(QUrl::fromUserInput(url)));
    QObject::connect(reply, &QNetworkReply::finished, reply, [this, &sound, reply, url, name] {
        // A location replaced while the fetch ran keeps the newer one's sound.
        if (reply->error() == QNetworkReply::NoError && sound.url == url)
            asyncReadComplete(name, reply->readAll());
        reply->deleteLater();
    });
}

// --- ControlLink -------------------------------------------------------------

Headers *QuiverPrivate::headerCollection() const { return headers; }

ControlLink::HeaderViews QuiverPrivate::createHeaderViews(int position, const QString &, qvViewType view)
{
    auto *container = new ItemContainer(q);
    container->hide();
    container->setFont(q->font());
    container->setDesignMode(designMode);
    container->setStayDownWithClick(itemsStayDownWithClick);
    container->setDefaultMaskColor(defaultMaskColor);
    container->updatePointer(itemPointer, itemIcon);
    container->setLook(itemLook());
    container->setView(view);
    container->setCollectionIndex(position);

    HeaderBar bar = templateBar;
    bar.view = container;
    const int barId = nextBarId++;
    bars.insert(barId, bar);
    strip->addBar(barId, container);
    strip->showPointer(barId, bar.pointer, bar.icon);

    // The first header of an empty bar, or one added while none is open,
    // becomes the open one.
    findOpenHeader();
    if (selectedPosition == 0) {
        selectedPosition = position;
        container->setActive(true);
    }
    return { barId, container };
}

void QuiverPrivate::destroyHeaderViews(int barId, bool relayout)
{
    const auto bar = bars.constFind(barId);
    if (bar == bars.cend())
        return;
    // The header that held the view may be used by the host until control
    // returns to the event loop; so may its view.
    if (ItemContainer *view = bar->view) {
        view->setActive(false);
        view->hide();
        view->deleteLater();
    }
    bars.erase(bar);
    strip->removeBar(barId);
    findOpenHeader();
    if (relayout)
        layoutStrip();
}

void QuiverPrivate::redrawHeaderBar(int barId) { strip->redraw(barId); }

void QuiverPrivate::relayoutStrip() { layoutStrip(); }

int QuiverPrivate::selectedHeaderPosition() const { return selectedPosition; }

void QuiverPrivate::openHeader(int position) { selectHeader(position); }

Header *QuiverPrivate::selectedHeader() const { return q->SelectedHeader(); }

Item *QuiverPrivate::selectedItem() const { return q->SelectedItem(); }

OLE_COLOR QuiverPrivate::itemForeColor() const { return itemForeColorValue; }

// Header flashing belongs to the timers of the strip; the request is ignored
// until they exist.
void QuiverPrivate::flashHeader(const QString &, bool) { }

void QuiverPrivate::startHeaderDrag(int barId) { strip->startDrag(barId); }

// The caption editor does not exist yet; the request is ignored.
void QuiverPrivate::startHeaderLabelEdit(const QString &) { }

// URL icons are not fetched yet; the address stays stored in the item.
void QuiverPrivate::loadUrlIcon(const QString &, bool) { }

const DocumentFormat *QuiverPrivate::documentFormat() const { return documents.get(); }

// --- Quiver ------------------------------------------------------------------

Quiver::Quiver(QWidget *parent)
    : QWidget(parent)
    , d(std::make_unique<QuiverPrivate>(this))
{
    d->defaultSound.data = modQuiver::folderSound();
    d->defaultSound.loaded = !d->defaultSound.data.isEmpty();
    modQuiver::addInstance(this);
    d->headers = new OrrinQuiver::Headers(d.get(), this);
    d->navigation = new OrrinQuiver::Navigation(d.get(), this);
    connect(d->navigation, &OrrinQuiver::Navigation::ChangePosition, this,
            [this](const QString &header, const QString &item) {
                quietly([&] { d->followHistory(header, item); });
            });
    d->flashTimer = makeTimer(this, "FlashTimer", InitialFlashInterval);
    d->arrowTimer = makeTimer(this, "ArrowTimer", InitialArrowInterval);
    d->redrawTimer = makeTimer(this, "RedrawTimer", InitialRedrawInterval);
    d->redrawTimer->setSingleShot(true);
    d->defaultFont = QWidget::font();
    d->defaultHeaderCursor = QVariant::fromValue(QCursor(DefaultHeaderCursorShape));
    d->templateBar.icon = d->defaultHeaderCursor;
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

        d->style = qvStyleOutlook;
        d->alwaysShowFirstHeader = true;
        d->autoMouseWheel = false;
        d->playSounds = true;
        d->scrollDelay = InitialScrollDelay;
        d->useSystemSounds = true;
        d->smoothScroll = true;

        setOLEDropMode(qvOLEDropHeadersItems);
        setOLEDragMode(qvOLEDragManual);
        setShowToolTips(true);

        d->headerBackColor = SystemColors::ButtonFace;
        d->checkColor = SystemColors::ButtonFace;
        d->defaultMaskColor = rgbColor(192, 192, 192);
        d->dkShadowColor = SystemColors::ButtonDarkShadow;
        d->shadowColor = SystemColors::ButtonShadow;
        d->headerForeColor = SystemColors::ButtonText;
        d->headerOverForeColor = d->headerForeColor;
        d->itemForeColorValue = SystemColors::Window;
        d->itemOverForeColor = d->itemForeColorValue;
        d->itemDownForeColor = d->itemForeColorValue;
        d->itemOverBackColor = d->backColor;
        d->itemDownBackColor = d->backColor;
        d->highlightColor = SystemColors::ButtonHighlight;

        setHeaderMouseIcon(d->defaultHeaderCursor);
        setHeaderMousePointer(MousePointer::Custom);
        setItemMouseIcon(QVariant());
        setItemMousePointer(MousePointer::Arrow);

        d->navigation->setEnabled(true);
        setFont(d->defaultFont);

        // Added to a new control, the header opens (its view becomes active).
        d->headers->Add(0, QString(), FirstHeaderCaption);
    });
}

bool Quiver::DesignMode() const { return d->designMode; }

void Quiver::setDesignMode(bool on)
{
    d->designMode = on;
    quietly([this, on] {
        for (ItemContainer *view : d->views())
            view->setDesignMode(on);
    });
}

Headers *Quiver::Headers() const { return d->headers; }

Navigation *Quiver::Navigation() const { return d->navigation; }

bool Quiver::AlwaysShowFirstHeader() const { return d->alwaysShowFirstHeader; }

void Quiver::setAlwaysShowFirstHeader(bool on)
{
    d->alwaysShowFirstHeader = on;
    quietly([this] {
        if (d->headers->Count() == 1)
            d->layoutStrip();
    });
    d->notify(QStringLiteral("AlwaysShowFirstHeader"));
}

bool Quiver::AutoMouseWheel() const { return d->autoMouseWheel; }

void Quiver::setAutoMouseWheel(bool on)
{
    d->autoMouseWheel = on;
    d->notify(QStringLiteral("AutoMouseWheel"));
}

OLE_COLOR Quiver::BackColor() const { return d->backColor; }

void Quiver::setBackColor(OLE_COLOR color)
{
    if (!d->change(d->backColor, color))
        return;
    update();
    d->recolorItems(QStringLiteral("BackColor"));
}

OLE_COLOR Quiver::CheckColor() const { return d->checkColor; }

void Quiver::setCheckColor(OLE_COLOR color)
{
    if (d->change(d->checkColor, color))
        d->recolorItems(QStringLiteral("CheckColor"));
}

OLE_COLOR Quiver::DefaultMaskColor() const { return d->defaultMaskColor; }

void Quiver::setDefaultMaskColor(OLE_COLOR color)
{
    d->defaultMaskColor = color;
    // The views hand it to the items added from now on.
    quietly([this, color] {
        for (ItemContainer *view : d->views())
            view->setDefaultMaskColor(color);
    });
    d->notify(QStringLiteral("DefaultMaskColor"));
}

OLE_COLOR Quiver::DkShadowColor() const { return d->dkShadowColor; }

void Quiver::setDkShadowColor(OLE_COLOR color)
{
    if (!d->change(d->dkShadowColor, color))
        return;
    quietly([this] { d->redrawItemViews(); });
    d->restyleHeaders(true, QStringLiteral("DkShadowColor"));
}

OLE_COLOR Quiver::ShadowColor() const { return d->shadowColor; }

void Quiver::setShadowColor(OLE_COLOR color)
{
    if (color == d->shadowColor)
        return;
    d->shadowColor = color;
    d->highlightColor = color;
    quietly([this] {
        d->restyleItemViews();
        d->headerRedraw = true;
        d->layoutStrip();
    });
    d->notify(QStringLiteral("ShadowColor"));
}

void Quiver::setHighlightColor(OLE_COLOR color)
{
    if (!d->change(d->highlightColor, color))
        return;
    quietly([this] { d->restyleItemViews(); });
    d->restyleHeaders(true, QStringLiteral("HighlightColor"));
}

void Quiver::setHeaderBackColor(OLE_COLOR color)
{
    if (d->change(d->headerBackColor, color))
        d->restyleHeaders(true, QStringLiteral("HeaderBackColor"));
}

void Quiver::setHeaderForeColor(OLE_COLOR color)
{
    if (d->change(d->headerForeColor, color))
        d->restyleHeaders(true, QStringLiteral("HeaderForeColor"));
}

// The hover colour shows only on the bar under the mouse, so the bars keep
// their drawn look.
void Quiver::setHeaderOverForeColor(OLE_COLOR color)
{
    if (d->change(d->headerOverForeColor, color))
        d->restyleHeaders(false, QStringLiteral("HeaderOverForeColor"));
}

OLE_COLOR Quiver::HighlightColor() const { return d->highlightColor; }

OLE_COLOR Quiver::HeaderBackColor() const { return d->headerBackColor; }

OLE_COLOR Quiver::HeaderForeColor() const { return d->headerForeColor; }

OLE_COLOR Quiver::HeaderOverForeColor() const { return d->headerOverForeColor; }

OLE_COLOR Quiver::ItemForeColor() const { return d->itemForeColorValue; }

void Quiver::setItemForeColor(OLE_COLOR color)
{
    if (d->change(d->itemForeColorValue, color))
        d->recolorItems(QStringLiteral("ItemForeColor"));
}

// The item state colours and the two item switches are read when an item
// is painted or clicked; storing them is all.
OLE_COLOR Quiver::ItemOverForeColor() const { return d->itemOverForeColor; }

void Quiver::setItemOverForeColor(OLE_COLOR color)
{
    if (!d->change(d->itemOverForeColor, color))
        return;
    quietly([this] { d->restyleItemViews(); });
    d->notify(QStringLiteral("ItemOverForeColor"));
}

OLE_COLOR Quiver::ItemOverBackColor() const { return d->itemOverBackColor; }

void Quiver::setItemOverBackColor(OLE_COLOR color)
{
    if (!d->change(d->itemOverBackColor, color))
        return;
    quietly([this] { d->restyleItemViews(); });
    d->notify(QStringLiteral("ItemOverBackColor"));
}

OLE_COLOR Quiver::ItemDownBackColor() const { return d->itemDownBackColor; }

void Quiver::setItemDownBackColor(OLE_COLOR color)
{
    if (!d->change(d->itemDownBackColor, color))
        return;
    quietly([this] { d->restyleItemViews(); });
    d->notify(QStringLiteral("ItemDownBackColor"));
}

OLE_COLOR Quiver::ItemDownForeColor() const { return d->itemDownForeColor; }

void Quiver::setItemDownForeColor(OLE_COLOR color)
{
    if (!d->change(d->itemDownForeColor, color))
        return;
    quietly([this] { d->restyleItemViews(); });
    d->notify(QStringLiteral("ItemDownForeColor"));
}

bool Quiver::ItemsMoveWithClick() const { return d->itemsMoveWithClick; }

void Quiver::setItemsMoveWithClick(bool on)
{
    if (!d->change(d->itemsMoveWithClick, on))
        return;
    quietly([this] { d->restyleItemViews(); });
    d->notify(QStringLiteral("ItemsMoveWithClick"));
}

bool Quiver::ItemsUnderlineOnMove() const { return d->itemsUnderlineOnMove; }

void Quiver::setItemsUnderlineOnMove(bool on)
{
    if (!d->change(d->itemsUnderlineOnMove, on))
        return;
    quietly([this] { d->restyleItemViews(); });
    d->notify(QStringLiteral("ItemsUnderlineOnMove"));
}

bool Quiver::PlaySounds() const { return d->playSounds; }

void Quiver::setPlaySounds(bool on)
{
    d->playSounds = on;
    d->notify(QStringLiteral("PlaySounds"));
}

bool Quiver::UseSystemSounds() const { return d->useSystemSounds; }

void Quiver::setUseSystemSounds(bool on)
{
    d->useSystemSounds = on;
    d->notify(QStringLiteral("UseSystemSounds"));
}

qvOLEDragMode Quiver::OLEDragMode() const { return d->oleDragMode; }

void Quiver::setOLEDragMode(qvOLEDragMode mode)
{
    d->oleDragMode = mode;
    d->notify(QStringLiteral("OLEDragMode"));
}

qvOLEDropMode Quiver::OLEDropMode() const { return d->oleDropMode; }

void Quiver::setOLEDropMode(qvOLEDropMode mode)
{
    d->oleDropMode = mode;
    d->notify(QStringLiteral("OLEDropMode"));
}

int Quiver::FlashDelay() const { return d->flashTimer->interval(); }

void Quiver::setFlashDelay(int milliseconds)
{
    d->flashTimer->setInterval(std::clamp(milliseconds, MinFlashDelay, MaxFlashDelay));
    d->notify(QStringLiteral("FlashDelay"));
}

QFont Quiver::Font() const { return QWidget::font(); }

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
        d->restyleItemViews();
        d->headerRedraw = true;
        d->layoutStrip();
    });
    d->notify(QStringLiteral("Font"));
}

quintptr Quiver::hWnd() const { return quintptr(winId()); }

QObject *Quiver::Icons() const { return d->icons; }

void Quiver::setIcons(QObject *images)
{
    d->icons = images;
    quietly([this] { d->restyleItemViews(); });
}

void Quiver::letIcons(QObject *images)
{
    d->icons = images;
    quietly([this] {
        d->restyleItemViews();
        d->layoutStrip();
    });
}

QObject *Quiver::SmallIcons() const { return d->smallIcons; }

void Quiver::setSmallIcons(QObject *images)
{
    d->smallIcons = images;
    quietly([this] {
        d->restyleItemViews();
        d->layoutStrip();
    });
}

void Quiver::letSmallIcons(QObject *images)
{
    d->smallIcons = images;
    quietly([this] { d->restyleItemViews(); });
}

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

QVariant Quiver::HeaderMouseIcon() const { return d->templateBar.icon; }

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
    d->templateBar.icon = icon;
    for (auto bar = d->bars.begin(); bar != d->bars.end(); ++bar) {
        bar->icon = icon;
        d->strip->showPointer(bar.key(), bar->pointer, icon);
    }
    d->notify(QStringLiteral("HeaderMouseIcon"));
}

int Quiver::HeaderMousePointer() const { return d->templateBar.pointer; }

void Quiver::setHeaderMousePointer(int pointer)
{
    d->templateBar.pointer = pointer;
    for (auto bar = d->bars.begin(); bar != d->bars.end(); ++bar) {
        bar->pointer = pointer;
        d->strip->showPointer(bar.key(), pointer, bar->icon);
    }
    d->notify(QStringLiteral("HeaderMousePointer"));
}

bool Quiver::ItemsStayDownWithClick() const { return d->itemsStayDownWithClick; }

void Quiver::setItemsStayDownWithClick(bool on)
{
    if (on == d->itemsStayDownWithClick)
        return;
    d->itemsStayDownWithClick = on;
    quietly([this, on] {
        for (ItemContainer *view : d->views())
            view->setStayDownWithClick(on);
    });
    d->notify(QStringLiteral("ItemsStayDownWithClick"));
}

qvStyle Quiver::Style() const { return d->style; }

void Quiver::setStyle(qvStyle style)
{
    if (style != d->style) {
        d->style = style;
        quietly([this] {
            d->restyleItemViews();
            d->headerRedraw = true;
            d->repaintHeaderStrip(true);
            d->layoutStrip();
        });
    }
    d->notify(QStringLiteral("Style"));
}

bool Quiver::ShowToolTips() const { return d->showToolTips; }

void Quiver::setShowToolTips(bool on)
{
    if (on != d->showToolTips) {
        d->showToolTips = on;
        quietly([this] {
            if (ItemContainer *view = d->openView())
                view->relayoutItems(true);
        });
    }
    d->notify(QStringLiteral("ShowToolTips"));
}

int Quiver::ScrollDelay() const { return d->scrollDelay; }

void Quiver::setScrollDelay(int milliseconds)
{
    d->scrollDelay = std::clamp(milliseconds, MinScrollDelay, MaxScrollDelay);
    d->applyArrowInterval();
    d->notify(QStringLiteral("ScrollDelay"));
}

bool Quiver::SmoothScroll() const { return d->smoothScroll; }

void Quiver::setSmoothScroll(bool on)
{
    if (on != d->smoothScroll) {
        d->smoothScroll = on;
        d->applyArrowInterval();
    }
    d->notify(QStringLiteral("SmoothScroll"));
}

QString Quiver::SoundItemURL() const { return d->itemSound.url; }

void Quiver::setSoundItemURL(const QString &url)
{
    quietly([&] { d->setSoundUrl(d->itemSound, url, QStringLiteral("SoundItemURL")); });
}

QString Quiver::SoundHeaderUpURL() const { return d->headerUpSound.url; }

void Quiver::setSoundHeaderUpURL(const QString &url)
{
    quietly([&] { d->setSoundUrl(d->headerUpSound, url, QStringLiteral("SoundHeaderUpURL")); });
}

QString Quiver::SoundHeaderDownURL() const { return d->headerDownSound.url; }

void Quiver::setSoundHeaderDownURL(const QString &url)
{
    quietly([&] { d->setSoundUrl(d->headerDownSound, url, QStringLiteral("SoundHeaderDownURL")); });
}

Header *Quiver::SelectedHeader() const { return d->headers->at(d->selectedPosition); }

Item *Quiver::SelectedItem() const
{
    return quietly([this]() -> Item * {
        const ItemContainer *view = d->openView();
        return view ? SelectedHeader()->Items()->at(view->CurrentItem()) : nullptr;
    });
}

int Quiver::HeaderHeight() const { return d->headerHeight + 1; }

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

} // namespace OrrinQuiver
