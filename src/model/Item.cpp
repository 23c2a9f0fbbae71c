#include "model/Item.h"

#include "model/ControlLink.h"
#include "model/Header.h"
#include "model/Headers.h"
#include "model/ItemViewLink.h"
#include "model/Items.h"
#include "model/Items_p.h"
#include "model/ItemSlots_p.h"

#include <QtCore/QRect>

#include <limits>

namespace OrrinQuiver {

namespace {
// Mask colour of an item made without one from a view.
constexpr OLE_COLOR DefaultItemMaskColor = 0xC0C0C0;

// `text` without spare capacity. Texts that a program builds piece by piece
// (QString::number, operator+, arg) carry room to grow; an item keeps its
// texts for its whole life, and with a million items that room would cost
// more than the texts themselves.
QString compacted(QString text)
{
    if (text.capacity() > text.size())
        text.squeeze();
    return text;
}
}

// AddressSanitizer sees a use after free only in blocks of the global heap,
// so sanitized builds give every item a block of its own.
#if defined(__SANITIZE_ADDRESS__)
#define QUIVER_ITEMS_FROM_HEAP 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define QUIVER_ITEMS_FROM_HEAP 1
#endif
#endif
#ifndef QUIVER_ITEMS_FROM_HEAP
#define QUIVER_ITEMS_FROM_HEAP 0
#endif

namespace {
constexpr bool ItemsFromHeap = QUIVER_ITEMS_FROM_HEAP;

ItemSlots &itemSlots()
{
    // Never destroyed: an item may be deleted while static objects are.
    static ItemSlots *const pool = new ItemSlots(sizeof(Item));
    return *pool;
}
} // namespace

void *Item::operator new(std::size_t size)
{
    if (ItemsFromHeap || size != sizeof(Item))
        return ::operator new(size);
    return itemSlots().take();
}

void Item::operator delete(void *item, std::size_t size) noexcept
{
    if (ItemsFromHeap || size != sizeof(Item))
        ::operator delete(item);
    else
        itemSlots().give(item);
}

// The fields most items never use, made on first use.
struct ItemExtra
{
    // Only a tool tip that differs from the caption is kept here.
    QString toolTip;
    QVariant tag;
    QVariant icon;
    QVariant smallIcon;
    QString urlIcon;
    QString urlSmallIcon;
    // The hosted window, the parent it had before, and the screen rectangle
    // it had before (right and bottom exclusive, as the window system keeps them).
    quintptr childWindow = 0;
    quintptr childFormerParent = 0;
    int childLeft = 0;
    int childTop = 0;
    int childRight = 0;
    int childBottom = 0;
};

Item::Item()
    : m_maskColor(DefaultItemMaskColor)
    , m_bold(false)
    , m_enabled(false)
    , m_visible(true)
    , m_needsMeasure(true)
    , m_indexMayLag(false)
    , m_toolTipIsCaption(true)
    , m_live(true)
{
}

Item::~Item()
{
    if (m_collection)
        m_collection->forget(this);
}

ItemExtra &Item::extra()
{
    if (!m_extra)
        m_extra = std::make_unique<ItemExtra>();
    return *m_extra;
}

ItemViewLink *Item::itemView() const
{
    return m_collection ? m_collection->itemView() : nullptr;
}

ControlLink *Item::control() const
{
    return m_collection ? m_collection->control() : nullptr;
}

void Item::storeKey(const QString &value)
{
    if (value.isNull())
        m_ownKey.reset();
    else if (m_ownKey)
        *m_ownKey = compacted(value);
    else
        m_ownKey = std::make_unique<QString>(compacted(value));
    m_keyNumber = 0;
}

void Item::storeGeneratedKey(quint32 number)
{
    m_ownKey.reset();
    m_keyNumber = number;
}

quint32 Item::keyNumberOf(QStringView text)
{
    // Exactly what formatKey() writes: the prefix in any letter case, then
    // the padded digits, or more digits without a leading zero.
    const QStringView digits = text.mid(std::min(text.size(), GeneratedItemKeyPrefix.size()));
    if (digits.size() < GeneratedKeyDigits || !text.startsWith(GeneratedItemKeyPrefix, Qt::CaseInsensitive)
        || (digits.size() > GeneratedKeyDigits && digits.front() == u'0'))
        return 0;
    quint64 number = 0;
    for (QChar c : digits) {
        if (c < u'0' || c > u'9')
            return 0;
        number = number * 10 + (c.unicode() - u'0');
        if (number > std::numeric_limits<quint32>::max())
            return 0;
    }
    return quint32(number);
}

QStringView Item::keyText(KeyBuffer &buffer) const
{
    if (m_keyNumber)
        return formatKey(buffer, GeneratedItemKeyPrefix, m_keyNumber);
    return m_ownKey ? QStringView(*m_ownKey) : QStringView();
}

void Item::link(Items *collection)
{
    m_collection = collection;
}

void Item::unlink()
{
    releaseChildWindow();
    m_collection = nullptr;
}

// The view to tell about a change, nullptr while the live flag is cleared.
ItemViewLink *Item::liveView() const
{
    return m_live ? itemView() : nullptr;
}

void Item::relayoutIfShown()
{
    if (ItemViewLink *view = liveView())
        view->relayoutItems(false);
}

void Item::redrawIfShown()
{
    if (ItemViewLink *view = liveView())
        view->redrawItem(m_viewId);
}

bool Item::Bold() const
{
    return m_bold;
}

void Item::setBold(bool value)
{
    m_bold = value;
    relayoutIfShown();
}

QString Item::Caption() const
{
    return m_caption;
}

void Item::setCaption(const QString &value)
{
    const bool toolTipFollows = m_toolTipIsCaption;
    QString caption = value;
    // A caption is one line: every CR LF pair goes, lone CRs and LFs stay.
    if (caption.contains(u'\n') && caption.contains(QLatin1String("\r\n")))
        caption.remove(QLatin1String("\r\n"));
    if (m_collection)
        m_collection->d->list.captionChanged(m_caption, caption);
    m_caption = compacted(std::move(caption));
    if (!toolTipFollows && m_extra && m_extra->toolTip == m_caption) {
        // The separate tool tip now equals the caption, so from here on it follows.
        m_extra->toolTip.clear();
        m_toolTipIsCaption = true;
    }
    relayoutIfShown();
}

quintptr Item::ChildhWnd() const
{
    return m_extra ? m_extra->childWindow : 0;
}

void Item::releaseChildWindow()
{
    if (!m_extra)
        return;
    ItemExtra &x = *m_extra;
    ItemViewLink *view = itemView();
    if (view && x.childWindow && x.childFormerParent) {
        const int width = x.childRight - x.childLeft;
        const int height = x.childBottom - x.childTop;
        view->setChildWindowParent(x.childWindow, x.childFormerParent);
        view->moveChildWindow(x.childWindow, QRect(x.childLeft, x.childTop, width, height));
        // Moving in parent coordinates may land elsewhere on screen than the
        // saved screen rectangle; correct by the difference once.
        const QRect landed = view->childWindowRect(x.childWindow);
        const int dx = landed.left() - x.childLeft;
        const int dy = landed.top() - x.childTop;
        if (dx || dy)
            view->moveChildWindow(x.childWindow, QRect(x.childLeft - dx, x.childTop - dy, width, height));
    }
    x.childWindow = 0;
    x.childFormerParent = 0;
}

void Item::setChildhWnd(quintptr value)
{
    releaseChildWindow();
    ItemViewLink *view = itemView();
    if (!view)
        return;
    if (value) {
        ItemExtra &x = extra();
        x.childWindow = value;
        const QRect r = view->childWindowRect(value);
        x.childLeft = r.left();
        x.childTop = r.top();
        x.childRight = r.left() + r.width();
        x.childBottom = r.top() + r.height();
        x.childFormerParent = view->hostChildWindow(m_viewId, value);
        view->moveChildWindow(value, QRect(0, 0, r.width(), r.height()));
    }
    view->relayoutItems(false);
}

bool Item::Enabled() const
{
    return m_enabled;
}

void Item::setEnabled(bool value)
{
    m_enabled = value;
    if (ItemViewLink *view = liveView()) {
        view->redrawItem(m_viewId);
        view->releaseMouseGrab();
    }
}

OLE_COLOR Item::ForeColor() const
{
    return m_foreColor;
}

void Item::setForeColor(OLE_COLOR value)
{
    m_foreColor = value;
    redrawIfShown();
}

QString Item::Key() const
{
    if (m_keyNumber)
        return formatKey(GeneratedItemKeyPrefix, m_keyNumber);
    return m_ownKey ? *m_ownKey : QString();
}

void Item::setKey(const QString &value)
{
    KeyBuffer buffer;
    const QStringView key = keyText(buffer);
    if (value == key)
        return;
    // A linked item is re-keyed by its collection, which may pick another
    // key and stores it here.
    if (!key.isEmpty() && m_collection)
        m_collection->ChangeKey(key.toString(), value);
    else
        storeKey(value);
}

int Item::Index() const
{
    return m_index;
}

void Item::setIndex(int value)
{
    if (value == m_index)
        return;
    int index = value;
    if (m_collection && m_live) {
        const std::optional<int> moved = m_collection->MoveItem(this, value);
        if (!moved)
            return;
        index = *moved;
    } else if (m_collection) {
        // Held back by the XML reader: the number is stored, not moved to.
        m_indexMayLag = true;
    }
    // Stored as it is: the collection has marked whether it lags the position.
    m_index = index;
    m_needsMeasure = true;
    relayoutIfShown();
}

OLE_COLOR Item::MaskColor() const
{
    return m_maskColor;
}

void Item::setMaskColor(OLE_COLOR value)
{
    m_maskColor = value;
    redrawIfShown();
}

Header *Item::Parent() const
{
    Header *owner = m_collection ? m_collection->header() : nullptr;
    Headers *headers = owner ? owner->collection() : nullptr;
    return headers ? headers->at(m_collection->headerIndex()) : nullptr;
}

bool Item::Selected() const
{
    ControlLink *link = control();
    return link && link->selectedItem() == this;
}

void Item::setSelected(bool)
{
    if (ControlLink *link = control()) {
        link->openHeader(m_collection->headerIndex());
        link->selectItem(qint16(m_index));
    }
}

QVariant Item::Tag() const
{
    return m_extra ? m_extra->tag : QVariant();
}

void Item::setTag(const QVariant &value)
{
    if (value != Tag())
        extra().tag = value;
}

QString Item::ToolTipText() const
{
    return m_toolTipIsCaption ? m_caption : m_extra->toolTip;
}

void Item::setToolTipText(const QString &value)
{
    m_toolTipIsCaption = value == m_caption;
    if (m_toolTipIsCaption) {
        if (m_extra)
            m_extra->toolTip.clear();
    } else {
        extra().toolTip = value;
    }
    redrawIfShown();
}

QVariant Item::Icon() const
{
    return m_extra ? m_extra->icon : QVariant();
}

void Item::setIcon(const QVariant &value)
{
    extra().icon = value;
    redrawIfShown();
}

QVariant Item::SmallIcon() const
{
    return m_extra ? m_extra->smallIcon : QVariant();
}

void Item::setSmallIcon(const QVariant &value)
{
    extra().smallIcon = value;
    redrawIfShown();
}

QString Item::URLIcon() const
{
    return m_extra ? m_extra->urlIcon : QString();
}

void Item::setURLIcon(const QString &value)
{
    extra().urlIcon = value;
    if (ControlLink *link = control())
        link->loadUrlIcon(value, true);
}

QString Item::URLSmallIcon() const
{
    return m_extra ? m_extra->urlSmallIcon : QString();
}

void Item::setURLSmallIcon(const QString &value)
{
    extra().urlSmallIcon = value;
    if (ControlLink *link = control())
        link->loadUrlIcon(value, false);
}

bool Item::Visible() const
{
    return m_visible;
}

void Item::setVisible(bool value)
{
    m_visible = value;
    relayoutIfShown();
}

void Item::EnsureVisible()
{
    ItemViewLink *view = itemView();
    if (!view)
        return;
    // Scroll one step at a time; a step that leaves the visible range where
    // it was means the view can go no further, and ends the walk.
    int first = view->firstVisiblePosition();
    if (m_index < first) {
        while (m_index < first) {
            view->scrollOneStep(true);
            const int moved = view->firstVisiblePosition();
            if (moved == first)
                return;
            first = moved;
        }
        return;
    }
    int last = view->lastFullyVisiblePosition();
    while (m_index > last) {
        view->scrollOneStep(false);
        const int moved = view->lastFullyVisiblePosition();
        if (moved == last)
            return;
        last = moved;
    }
}

void Item::OLEDrag()
{
    if (ItemViewLink *view = itemView())
        view->startItemDrag(m_viewId);
}

void Item::StartLabelEdit()
{
    if (ItemViewLink *view = itemView())
        view->startItemLabelEdit(m_viewId);
}

int Item::viewId() const
{
    return m_viewId;
}

Items *Item::collection() const
{
    return m_collection;
}

bool Item::isLive() const
{
    return m_collection != nullptr && m_live;
}

void Item::setLive(bool value)
{
    m_live = value;
}

bool Item::needsMeasure() const
{
    return m_needsMeasure;
}

void Item::setNeedsMeasure(bool value)
{
    m_needsMeasure = value;
}

bool Item::indexMayLag() const
{
    return m_indexMayLag;
}

} // namespace OrrinQuiver
