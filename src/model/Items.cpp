#include "model/Items.h"

#include "model/ControlLink.h"
#include "model/Item.h"
#include "model/ItemViewLink.h"
#include "model/Items_p.h"

#include <limits>

namespace OrrinQuiver {

Items::Items(QObject *parent)
    : QObject(parent)
    , d(std::make_unique<Private>())
{
}

Items::~Items()
{
    unlinkAll();
    for (OrrinQuiver::Item *item : d->list)
        item->m_collection = nullptr;
    d->list.clear();
}

OrrinQuiver::Item *Items::Add(int Index, const QString &Key, const QString &Caption, const QString &Icon,
                              const QString &SmallIcon)
{
    const int count = Count();
    int p = Index;
    if (p < 0)
        p = 0;
    else if (count == 0 || p != 0)
        p = std::min(p, count);
    else
        p = count;

    auto *item = new OrrinQuiver::Item;
    item->setCaption(Caption);
    item->m_enabled = true;
    item->m_index = p + 1;
    if (!Key.isEmpty())
        item->storeKey(Key);
    else if (++d->keyCounter <= std::numeric_limits<quint32>::max())
        item->storeGeneratedKey(quint32(d->keyCounter));
    else
        item->storeKey(formatKey(GeneratedItemKeyPrefix, d->keyCounter));
    if (d->control)
        item->m_foreColor = d->control->itemForeColor();
    if (d->view)
        item->m_maskColor = d->view->defaultMaskColor();
    if (!Icon.isEmpty())
        item->setIcon(Icon);
    if (!SmallIcon.isEmpty())
        item->setSmallIcon(SmallIcon);

    if (!d->list.insert(item, p < 1 ? count + 1 : p + 1)) {
        delete item;
        return nullptr;
    }
    item->setParent(d->holders.nextParent());
    item->link(this);

    if (d->view)
        item->m_viewId = d->view->addItemWindow(p + 1, item->Caption());

    const int renumberedFrom = d->list.renumber(p + 2);
    const int position = p < 1 ? Count() : p + 1;
    d->list.settle(position, position, renumberedFrom);
    if (d->view) {
        d->view->relayoutItems(false);
        d->view->redrawItem(item->m_viewId);
    }
    return item;
}

void Items::Clear()
{
    if (Count() == 0)
        return;
    d->clearing = true;
    while (Count() >= 1)
        RemoveAt(Count());
    d->clearing = false;
    // Every member is gone: the holders go with the items removed here.
    d->holders.retireAll();
    if (d->view)
        d->view->resetItems();
}

int Items::Count() const
{
    return d->list.count();
}

bool Items::Exists(const QVariant &Index) const
{
    return d->list.exists(readLookup(Index));
}

bool Items::Remove(const QVariant &Index)
{
    const Lookup lookup = readLookup(Index);
    if (lookup.numeric) {
        if (const std::optional<int> position = toPosition(lookup.number))
            RemoveAt(*position);
        return true;
    }
    int index;
    if (d->list.exists(lookup)) {
        // A text that exists only as a caption names no key: nothing is removed.
        const OrrinQuiver::Item *item = d->list.withKey(lookup.text);
        if (!item)
            return false;
        index = item->Index();
    } else {
        index = d->list.indexOfCaption(lookup.text);
    }
    if (index == -1)
        return false;
    RemoveAt(index);
    return true;
}

OrrinQuiver::Item *Items::Item(const QVariant &Index) const
{
    if (Count() == 0)
        return nullptr;
    return d->list.item(readLookup(Index));
}

QList<OrrinQuiver::Item *> Items::NewEnum() const
{
    return QList<OrrinQuiver::Item *>(d->list.begin(), d->list.end());
}

Items::const_iterator Items::begin() const
{
    return d->list.begin();
}

Items::const_iterator Items::end() const
{
    return d->list.end();
}

OrrinQuiver::Item *Items::at(int position) const
{
    return d->list.at(position);
}

OrrinQuiver::Item *Items::withKey(const QString &key) const
{
    return d->list.withKey(key);
}

QString Items::NextKey()
{
    return formatKey(u"ITEM", ++d->keyCounter);
}

int Items::IndexOfCaption(const QString &caption) const
{
    return d->list.indexOfCaption(caption);
}

void Items::RemoveAt(int position)
{
    if (!d->list.at(position))
        return;
    OrrinQuiver::Item *item = d->list.takeAt(position);
    const int viewId = item->m_viewId;
    item->unlink();
    if (d->view)
        d->view->removeItemWindow(viewId);
    if (!d->clearing) {
        if (Count() >= position)
            d->list.settle(position, Count(), d->list.renumber(position));
        if (d->view)
            d->view->relayoutItems(true);
        item->deleteLater();
    }
}

void Items::forget(OrrinQuiver::Item *item)
{
    const int position = d->list.positionOf(item);
    if (position == 0)
        return;
    d->list.takeAt(position);
    item->unlink();
    if (d->view)
        d->view->removeItemWindow(item->m_viewId);
    if (Count() >= position)
        d->list.settle(position, Count(), d->list.renumber(position));
    if (d->view)
        d->view->relayoutItems(true);
}

void Items::Renumber(int position)
{
    d->list.settle(position, Count(), d->list.renumber(position));
}

std::optional<int> Items::MoveItem(OrrinQuiver::Item *item, int index)
{
    return item ? d->list.move(item, index) : std::nullopt;
}

std::optional<QString> Items::ChangeKey(const QString &oldKey, const QString &newKey)
{
    return d->list.changeKey(oldKey, newKey, [this] { return NextKey(); });
}

void Items::SetHeaderIndex(int index)
{
    d->headerIndex = index;
}

int Items::headerIndex() const
{
    return d->headerIndex;
}

void Items::SetHeaderKey(const QString &key)
{
    d->headerKey = key;
}

QString Items::headerKey() const
{
    return d->headerKey;
}

Header *Items::header() const
{
    return d->header;
}

void Items::setHeader(Header *header)
{
    d->header = header;
}

void Items::setItemView(ItemViewLink *view)
{
    if (d->view && d->view != view)
        d->view->showItems(nullptr);
    d->view = view;
    if (view)
        view->showItems(this);
}

ItemViewLink *Items::itemView() const
{
    return d->view;
}

void Items::setControl(ControlLink *control)
{
    d->control = control;
}

ControlLink *Items::control() const
{
    return d->control;
}

void Items::unlinkAll()
{
    for (OrrinQuiver::Item *item : d->list)
        item->releaseChildWindow();
    d->view = nullptr;
    d->control = nullptr;
}

} // namespace OrrinQuiver
