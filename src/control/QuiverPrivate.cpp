// What the control's rooms share: the property table's setters and effects,
// the content model's link to the control, the strip's host and the item
// views as header selection sees them.

#include "control/Quiver_p.h"

#include "control/HeaderFlash.h"
#include "control/ItemRelay.h"
#include "control/QuiverSounds.h"
#include "control/ScrollArrows.h"
#include "imaging/ImageList.h"
#include "itemview/ItemContainer.h"
#include "itemview/ItemLook.h"
#include "model/Header.h"
#include "model/Headers.h"
#include "model/Item.h"
#include "model/Items.h"
#include "model/Navigation.h"
#include "serialize/XmlDocumentFormat.h"

#include <QtCore/QScopeGuard>
#include <QtCore/QTimer>
#include <QtGui/QGuiApplication>
#include <QtWidgets/QApplication>
#include <QtWidgets/QMessageBox>

namespace OrrinQuiver {

using namespace PropertyTable;

namespace {

const QString RefusedPictureMessage = QStringLiteral("The MouseIcon property must be an icon or cursor");

} // namespace

QuiverPrivate::QuiverPrivate(Quiver *control)
    : q(control)
    , documents(std::make_unique<XmlDocumentFormat>(*control))
{
    // A control holds the values a save passes as defaults until
    // InitProperties or a restore gives it others.
    for (int property = 0; property < PropertyCount; ++property)
        store(Property(property),
              tableValue(Property(property), PropertyTable::row(Property(property)).bagDefault));
}

QuiverPrivate::~QuiverPrivate() = default;

void QuiverPrivate::notify(const QString &name) { emit q->PropertyChanged(name); }

QVariant QuiverPrivate::value(Property property) const
{
    const Row &row = PropertyTable::row(property);
    if (auto field = std::get_if<bool QuiverSettings::*>(&row.field))
        return settings.*(*field);
    if (auto field = std::get_if<int QuiverSettings::*>(&row.field))
        return settings.*(*field);
    if (auto field = std::get_if<OLE_COLOR QuiverSettings::*>(&row.field))
        return QVariant::fromValue(settings.*(*field));
    if (std::holds_alternative<NavigationRecording>(row.field))
        return navigation->Enabled();
    return q->property(row.name);
}

void QuiverPrivate::store(Property property, const QVariant &value)
{
    const Row &row = PropertyTable::row(property);
    if (auto field = std::get_if<bool QuiverSettings::*>(&row.field))
        settings.*(*field) = value.toBool();
    else if (auto field = std::get_if<int QuiverSettings::*>(&row.field))
        settings.*(*field) = value.toInt();
    else if (auto field = std::get_if<OLE_COLOR QuiverSettings::*>(&row.field))
        settings.*(*field) = OLE_COLOR(value.toLongLong());
}

void QuiverPrivate::setValue(Property property, const QVariant &value)
{
    const Row &row = PropertyTable::row(property);
    if (row.effects & HandWritten) {
        if (std::holds_alternative<NavigationRecording>(row.field))
            navigation->setEnabled(value.toBool());
        else if (std::holds_alternative<OLE_COLOR QuiverSettings::*>(row.field))
            q->setProperty(row.name, QVariant::fromValue(OLE_COLOR(value.toLongLong())));
        else
            q->setProperty(row.name, value);
    } else if (std::holds_alternative<bool QuiverSettings::*>(row.field)) {
        assign(property, value.toBool());
    } else if (std::holds_alternative<int QuiverSettings::*>(row.field)) {
        assign(property, value.toInt());
    } else if (std::holds_alternative<OLE_COLOR QuiverSettings::*>(row.field)) {
        assign(property, OLE_COLOR(value.toLongLong()));
    }
}

QVariant QuiverPrivate::tableValue(Property property, const Value &value) const
{
    const Row &row = PropertyTable::row(property);
    if (value.from != PropertyCount)
        return this->value(value.from);
    switch (row.type) {
    case BagType::Font:
        return defaultFont;
    case BagType::Picture:
        return value.controlDefault ? defaultHeaderCursor : QVariant();
    case BagType::Text:
    case BagType::ObjectName:
        return QString();
    case BagType::Boolean:
        return value.number != 0;
    case BagType::Integer:
    case BagType::Long:
        break;
    }
    if (std::holds_alternative<OLE_COLOR QuiverSettings::*>(row.field))
        return QVariant::fromValue(OLE_COLOR(value.number));
    return int(value.number);
}

void QuiverPrivate::initProperties()
{
    for (Property property : initOrder()) {
        const Row &row = PropertyTable::row(property);
        const QVariant initial = tableValue(property, row.initial);
        if (row.init == Init::Setter)
            setValue(property, initial);
        else
            store(property, initial);
    }
}

void QuiverPrivate::applyEffects(unsigned effects)
{
    quietly([this, effects] {
        strip->setLook(stripLook());
        arrows->restyle();
        if (effects & RepaintSurface)
            q->update();
        if (effects & (RestyleViews | RedrawViews))
            restyleItemViews(effects & RedrawViews);
        if (effects & ViewsMaskColor) {
            // The views hand it to the items added from now on.
            for (ItemContainer *view : views())
                view->setDefaultMaskColor(settings.defaultMaskColor);
        }
        if (effects & ViewsStayDown) {
            for (ItemContainer *view : views())
                view->setStayDownWithClick(settings.itemsStayDownWithClick);
        }
        if (effects & RedrawOpenView) {
            if (ItemContainer *view = openView())
                view->relayoutItems(true);
        }
        if (effects & ArrowInterval)
            arrowTimer->setInterval(settings.smoothScroll ? settings.scrollDelay : 2 * settings.scrollDelay);
        if (effects & HeaderRedraw)
            headerRedraw = true;
        if (effects & ForceRepaintStrip)
            strip->repaint(true);
        if ((effects & Layout) || ((effects & LayoutSingleHeader) && headers->Count() == 1))
            layoutStrip();
        if (effects & RepaintStrip)
            strip->repaint(false);
    });
}

ItemLook QuiverPrivate::itemLook() const
{
    ItemLook look;
    look.style = qvStyle(settings.style);
    look.colors = { .back = settings.backColor,
                    .overFore = settings.itemOverForeColor,
                    .overBack = settings.itemOverBackColor,
                    .downFore = settings.itemDownForeColor,
                    .downBack = settings.itemDownBackColor,
                    .check = settings.checkColor,
                    .highlight = settings.highlightColor,
                    .shadow = settings.shadowColor,
                    .dkShadow = settings.dkShadowColor };
    look.font = q->font();
    look.underlineOnMove = settings.itemsUnderlineOnMove;
    look.moveWithClick = settings.itemsMoveWithClick;
    look.icons = qobject_cast<ImageList *>(icons.data());
    look.smallIcons = qobject_cast<ImageList *>(smallIcons.data());
    return look;
}

StripLook QuiverPrivate::stripLook() const
{
    StripLook look;
    look.style = qvStyle(settings.style);
    look.font = q->font();
    look.colors = { .back = settings.headerBackColor,
                    .fore = settings.headerForeColor,
                    .overFore = settings.headerOverForeColor,
                    .highlight = settings.highlightColor,
                    .shadow = settings.shadowColor,
                    .dkShadow = settings.dkShadowColor };
    look.showToolTips = settings.showToolTips;
    look.alwaysShowFirstHeader = settings.alwaysShowFirstHeader;
    look.smoothScroll = settings.smoothScroll;
    look.designMode = designMode;
    look.dragMode = qvOLEDragMode(settings.oleDragMode);
    return look;
}

void QuiverPrivate::restyleItemViews(bool redraw)
{
    const ItemLook look = itemLook();
    for (ItemContainer *view : views()) {
        view->setLook(look);
        if (redraw)
            view->relayoutItems(true);
    }
}

ItemContainer *QuiverPrivate::viewOf(const Header *header) const { return strip->viewOf(header); }

ItemContainer *QuiverPrivate::openView() const { return viewOf(selection->openHeader()); }

void QuiverPrivate::redrawOpenView()
{
    redrawTimer->stop();
    if (ItemContainer *view = openView())
        view->relayoutItems(true);
}

QList<ItemContainer *> QuiverPrivate::views() const
{
    QList<ItemContainer *> result;
    for (Header *header : *headers) {
        if (ItemContainer *view = viewOf(header))
            result.append(view);
    }
    return result;
}

void QuiverPrivate::layoutStrip()
{
    selection->findOpenHeader();
    for (Header *header : *headers) {
        // Headers move without telling their views.
        if (ItemContainer *view = viewOf(header))
            view->setCollectionIndex(header->Index());
    }
    strip->layout(std::exchange(headerRedraw, false));
    // The open view places and shows the arrows (through the relay); with
    // none open there is nothing to scroll.
    if (ItemContainer *view = openView()) {
        view->SetArrows();
    } else {
        for (int index : { ArrowTowardsFirst, ArrowTowardsLast })
            arrows->hideArrow(index);
    }
    // Captions, the font and the style decide the size hints.
    q->updateGeometry();
}

void QuiverPrivate::selectHeader(int requested)
{
    if (headers->Count() == 0)
        return;
    // A slide still under way ends first, so that the next one starts from
    // where the bars belong.
    strip->finishSlide();
    headerRedraw = true;
    const std::optional<HeaderSelection::Change> change = selection->open(requested);
    if (!change)
        return;
    // The selection is final now; the bars slide to their places, and the
    // strip is laid out when they are there.
    arrows->prepareForSlide();
    strip->slide(change->from, change->to);
    ItemContainer *opened = openView();
    if (opened && !designMode && tabStop && opened->isVisible())
        opened->setFocus();
    notify(QStringLiteral("CurrentHeader"));
}

void QuiverPrivate::selectItem(qint16 index)
{
    if (selection->chooseItem(index))
        notify(QStringLiteral("CurrentItem"));
}

void QuiverPrivate::followHistory(const QString &headerKey, const QString &itemKey)
{
    Header *header = headers->Item(headerKey);
    if (!header)
        return;
    selection->setFollowingHistory(true);
    const auto following = qScopeGuard([this] { selection->setFollowingHistory(false); });
    selectHeader(header->Index());
    if (selection->openHeader() != header)
        return;
    if (const Item *item = header->Items()->Item(itemKey))
        selectItem(qint16(item->Index()));
}

void QuiverPrivate::setSoundUrl(QuiverSounds::Kind kind, const QString &url)
{
    if (!sounds->setUrl(kind, url))
        return;
    // The change is announced before the sound is fetched.
    notify(QuiverSounds::propertyOf(kind));
    quietly([this, kind] { sounds->fetch(kind); });
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

void QuiverPrivate::trackFocus()
{
    focusTracking = QObject::connect(qApp, &QApplication::focusChanged, q, [this](QWidget *, QWidget *now) {
        const bool inside = now && (now == q || q->isAncestorOf(now));
        if (inside == hasFocus)
            return;
        hasFocus = inside;
        if (!inside || now != q || !tabStop)
            return;
        if (ItemContainer *view = openView())
            view->setFocus(Qt::OtherFocusReason);
    });
}

// --- HeaderStrip::Host ---------------------------------------------------------

int QuiverPrivate::openPosition() const { return selection->position(); }

void QuiverPrivate::playHeaderSound(const Header *clicked)
{
    sounds->playHeaderSound(clicked->Index(), selection->position(), settings.playSounds,
                            settings.useSystemSounds);
}

void QuiverPrivate::relayout() { layoutStrip(); }

// --- HeaderSelection::OpenViews ------------------------------------------------

bool QuiverPrivate::isActive(const Header *header) const
{
    const ItemContainer *view = viewOf(header);
    return view && view->Active();
}

void QuiverPrivate::setActive(const Header *header, bool active)
{
    if (ItemContainer *view = viewOf(header))
        view->setActive(active);
}

void QuiverPrivate::setCurrentItem(const Header *header, qint16 index)
{
    if (ItemContainer *view = viewOf(header))
        view->setCurrentItem(index);
}

// --- ControlLink -----------------------------------------------------------------

Headers *QuiverPrivate::headerCollection() const { return headers; }

ControlLink::HeaderViews QuiverPrivate::createHeaderViews(int position, const QString &, qvViewType view)
{
    auto *container = new ItemContainer(q);
    container->hide();
    container->setFont(q->font());
    container->setDesignMode(designMode);
    container->setStayDownWithClick(settings.itemsStayDownWithClick);
    container->setDefaultMaskColor(settings.defaultMaskColor);
    container->updatePointer(itemPointer, itemIcon);
    container->setLook(itemLook());
    container->setView(view);
    container->setCollectionIndex(position);

    relay->attach(container);
    const int barId = nextBarId++;
    strip->addBar(barId, container, headerPointer, headerIcon);
    // The first header of an empty bar, or one added while none is open,
    // becomes the open one.
    if (selection->adopt(position))
        container->setActive(true);
    return { barId, container };
}

void QuiverPrivate::destroyHeaderViews(int barId, bool relayout)
{
    if (!strip->bar(barId))
        return;
    strip->removeBar(barId);
    selection->findOpenHeader();
    if (relayout)
        layoutStrip();
}

void QuiverPrivate::redrawHeaderBar(int barId) { strip->redraw(barId); }

void QuiverPrivate::relayoutStrip() { layoutStrip(); }

int QuiverPrivate::selectedHeaderPosition() const { return selection->position(); }

void QuiverPrivate::openHeader(int position) { selectHeader(position); }

Header *QuiverPrivate::selectedHeader() const { return q->SelectedHeader(); }

Item *QuiverPrivate::selectedItem() const { return q->SelectedItem(); }

OLE_COLOR QuiverPrivate::itemForeColor() const { return settings.itemForeColor; }

void QuiverPrivate::flashHeader(const QString &headerKey, bool enabled)
{
    quietly([&] { flash->flash(headerKey, enabled); });
}

void QuiverPrivate::startHeaderDrag(int barId) { strip->startDrag(barId); }

// The caption editor does not exist yet; the request is ignored.
void QuiverPrivate::startHeaderLabelEdit(const QString &) { }

// URL icons are not fetched yet; the address stays stored in the item.
void QuiverPrivate::loadUrlIcon(const QString &, bool) { }

const DocumentFormat *QuiverPrivate::documentFormat() const { return documents.get(); }

} // namespace OrrinQuiver
