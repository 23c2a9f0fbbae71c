#include "model/Headers.h"

#include "model/ControlLink.h"
#include "model/Header.h"
#include "model/Items.h"
#include "model/Headers_p.h"

namespace OrrinQuiver {

Headers::Headers(ControlLink *control, QObject *parent)
    : QObject(parent)
    , d(std::make_unique<Private>())
{
    d->control = control;
}

Headers::~Headers()
{
    for (Header *header : d->list)
        header->unlink();
    d->list.clear();
}

Header *Headers::Add(int Index, const QString &Key, const QString &Caption, qvViewType View)
{
    const int count = Count();
    if (Index < 0)
        Index = 1;
    else if (Index == 0 || Index > count)
        Index = count + 1;

    const QString key = Key.isEmpty() ? QLatin1String("NEW_") + NextKey() : Key;

    // Not linked yet: the setters touch only the header's own fields.
    auto *header = new Header;
    header->setCaption(Caption);
    header->setEnabled(true);
    header->setView(View);
    header->setIndex(Index);
    header->setKey(key);

    if (!d->list.insert(header, Index > count ? count + 1 : Index + 1)) {
        delete header;
        return nullptr;
    }
    header->setParent(d->holders.nextParent());
    header->link(this, d->control);

    if (d->control) {
        const ControlLink::HeaderViews views = d->control->createHeaderViews(Index, header->Caption(), header->View());
        header->setViews(views.barId, views.itemView);
    }

    Renumber(Index);
    if (d->control)
        d->control->relayoutStrip();
    return header;
}

void Headers::Clear()
{
    if (Count() == 0)
        return;
    d->clearing = true;
    while (Count() >= 2)
        RemoveAt(Count());
    d->clearing = false;
    RemoveAt(1);
}

int Headers::Count() const
{
    return d->list.count();
}

bool Headers::Exists(const QVariant &Index) const
{
    return d->list.exists(readLookup(Index));
}

bool Headers::Remove(const QVariant &Index)
{
    const Lookup lookup = readLookup(Index);
    if (lookup.numeric) {
        if (const std::optional<int> position = toPosition(lookup.number))
            RemoveAt(*position);
        return true;
    }
    // Only captions name a header to remove here, never keys.
    const int index = d->list.indexOfCaption(lookup.text);
    if (index == -1)
        return false;
    RemoveAt(index);
    return true;
}

Header *Headers::Item(const QVariant &Index) const
{
    return d->list.item(readLookup(Index));
}

QList<Header *> Headers::NewEnum() const
{
    return QList<Header *>(d->list.begin(), d->list.end());
}

Headers::const_iterator Headers::begin() const
{
    return d->list.begin();
}

Headers::const_iterator Headers::end() const
{
    return d->list.end();
}

Header *Headers::at(int position) const
{
    return d->list.at(position);
}

Header *Headers::withKey(const QString &key) const
{
    return d->list.withKey(key);
}

QString Headers::NextKey()
{
    return formatKey(u"HEADER", ++d->keyCounter);
}

int Headers::IndexOfCaption(const QString &caption) const
{
    return d->list.indexOfCaption(caption);
}

void Headers::RemoveAt(int position)
{
    if (!d->list.at(position))
        return;
    Header *header = d->list.takeAt(position);
    const int barId = header->barId();
    if (!d->clearing && Count() >= position)
        Renumber(position);
    // Hosted windows go back before the control destroys the item view.
    header->unlink();
    if (barId > 0 && d->control)
        d->control->destroyHeaderViews(barId, !d->clearing);
    header->deleteLater();
}

void Headers::forget(Header *header)
{
    const int position = d->list.positionOf(header);
    if (position == 0)
        return;
    d->list.takeAt(position);
    const int barId = header->barId();
    if (Count() >= position)
        Renumber(position);
    header->unlink();
    if (barId > 0 && d->control)
        d->control->destroyHeaderViews(barId, true);
}

void Headers::Renumber(int position)
{
    d->list.settle(position, Count(), d->list.renumber(position));
}

std::optional<int> Headers::MoveHeader(Header *header, int index)
{
    return header ? d->list.move(header, index) : std::nullopt;
}

std::optional<QString> Headers::ChangeKey(const QString &oldKey, const QString &newKey)
{
    return d->list.changeKey(oldKey, newKey, [this] { return NextKey(); });
}

ControlLink *Headers::control() const
{
    return d->control;
}

} // namespace OrrinQuiver
