#include "model/Header.h"

#include "model/ControlLink.h"
#include "model/DocumentFormat.h"
#include "model/Headers.h"
#include "model/ItemViewLink.h"
#include "model/Items.h"
#include "model/Headers_p.h"
#include "core/QuiverError.h"
#include "core/ScriptErrors.h"

namespace OrrinQuiver {

class Header::Private
{
public:
    QString caption;
    QString key;
    QString toolTip;
    QVariant tag;
    OrrinQuiver::Items *items = nullptr;
    Headers *collection = nullptr;
    ControlLink *control = nullptr;
    ItemViewLink *itemView = nullptr;
    int index = 0;
    int barId = -1;
    OLE_COLOR flashColor = SystemColors::ActiveCaption;
    OLE_COLOR flashTextColor = SystemColors::CaptionText;
    qvViewType view = qvViewLargeIcons;
    bool enabled = false;
    bool visible = true;
    bool needsPaint = true;
    bool indexMayLag = false;
    // Cleared by the XML reader while it sets a new header's attributes.
    bool live = true;
};

Header::Header()
    : d(std::make_unique<Private>())
{
    // A child, so that scripts never take the collection for theirs to delete.
    d->items = new OrrinQuiver::Items(this);
    d->items->setHeader(this);
}

Header::~Header()
{
    if (d->collection)
        d->collection->forget(this);
    delete d->items;
}

ControlLink *Header::control() const
{
    return d->control;
}

void Header::storeIndex(int value)
{
    d->index = value;
    d->indexMayLag = false;
}

void Header::storeKey(const QString &value)
{
    d->key = value;
}

QStringView Header::keyText(KeyBuffer &) const
{
    return d->key;
}

void Header::setIndexMayLag(bool value)
{
    d->indexMayLag = value;
}

void Header::link(Headers *collection, ControlLink *control)
{
    d->collection = collection;
    d->control = control;
    d->items->setControl(control);
}

void Header::setViews(int barId, ItemViewLink *view)
{
    d->barId = barId;
    d->itemView = view;
    d->items->setItemView(view);
}

void Header::unlink()
{
    d->items->unlinkAll();
    d->collection = nullptr;
    d->control = nullptr;
    d->itemView = nullptr;
}

void Header::redrawBar()
{
    d->needsPaint = true;
    if (d->control && d->live)
        d->control->redrawHeaderBar(d->barId);
}

QString Header::Caption() const
{
    return d->caption;
}

void Header::setCaption(const QString &value)
{
    if (d->toolTip == d->caption)
        d->toolTip = value;
    if (d->collection)
        d->collection->d->list.captionChanged(d->caption, value);
    d->caption = value;
    redrawBar();
}

bool Header::Enabled() const
{
    return d->enabled;
}

void Header::setEnabled(bool value)
{
    d->enabled = value;
    redrawBar();
}

QString Header::Key() const
{
    return d->key;
}

void Header::setKey(const QString &value)
{
    if (value == d->key)
        return;
    // A linked header is re-keyed by its collection, which may pick another
    // key and stores it here.
    if (!d->key.isEmpty() && d->collection) {
        if (!d->collection->ChangeKey(d->key, value))
            return;
    } else {
        storeKey(value);
    }
    d->items->SetHeaderKey(d->key);
}

int Header::Index() const
{
    return d->index;
}

void Header::setIndex(int value)
{
    if (value == d->index)
        return;
    int index = value;
    if (d->collection && d->live) {
        const std::optional<int> moved = d->collection->MoveHeader(this, value);
        if (!moved)
            return;
        index = *moved;
    } else if (d->collection) {
        // Held back by the XML reader: the number is stored, not moved to.
        d->indexMayLag = true;
    }
    d->index = index;
    d->items->SetHeaderIndex(index);
    redrawBar();
    if (d->control && d->live)
        d->control->relayoutStrip();
}

OrrinQuiver::Items *Header::Items() const
{
    return d->items;
}

bool Header::Selected() const
{
    return d->control && d->control->selectedHeader() == this;
}

void Header::setSelected(bool)
{
    if (d->control)
        d->control->openHeader(d->index);
}

QVariant Header::Tag() const
{
    return d->tag;
}

void Header::setTag(const QVariant &value)
{
    if (value != d->tag)
        d->tag = value;
}

QString Header::ToolTipText() const
{
    return d->toolTip;
}

void Header::setToolTipText(const QString &value)
{
    d->toolTip = value;
    redrawBar();
}

qvViewType Header::View() const
{
    return d->view;
}

void Header::setView(qvViewType value)
{
    if (value == d->view)
        return;
    d->view = value == qvViewSmallIcons ? qvViewSmallIcons : qvViewLargeIcons;
    if (d->itemView)
        d->itemView->setView(d->view);
    if (d->control)
        d->control->relayoutStrip();
}

bool Header::Visible() const
{
    return d->visible;
}

void Header::setVisible(bool value)
{
    if (value == d->visible)
        return;
    d->visible = value;
    if (!d->control)
        return;
    const int open = d->control->selectedHeaderPosition();
    const int count = d->collection ? d->collection->Count() : 0;
    if (open != d->index && open >= 1)
        d->control->relayoutStrip();
    else
        d->control->openHeader(open >= count ? open - 1 : open + 1);
}

QString Header::XML() const
{
    const DocumentFormat *format = d->control ? d->control->documentFormat() : nullptr;
    return format ? format->headerXml(*this) : QString();
}

void Header::setXML(const QString &value)
{
    if (const DocumentFormat *format = d->control ? d->control->documentFormat() : nullptr)
        format->readHeaderXml(*this, value);
}

QString Header::readXml() const
{
    try {
        return XML();
    } catch (const QuiverError &error) {
        reportToScript(this, error);
    } catch (...) {
        qWarning("OrrinQuiver: writing a header's XML failed");
    }
    return {};
}

void Header::writeXml(const QString &value)
{
    try {
        setXML(value);
    } catch (const QuiverError &error) {
        reportToScript(this, error);
    } catch (...) {
        qWarning("OrrinQuiver: reading a header's XML failed");
    }
}

void Header::Flash(bool Enabled, OLE_COLOR FlashColor, OLE_COLOR FlashTextColor)
{
    d->flashColor = FlashColor;
    d->flashTextColor = FlashTextColor;
    if (d->control)
        d->control->flashHeader(d->key, Enabled);
}

void Header::OLEDrag()
{
    if (d->control)
        d->control->startHeaderDrag(d->barId);
}

void Header::StartLabelEdit()
{
    if (d->control)
        d->control->startHeaderLabelEdit(d->key);
}

int Header::barId() const
{
    return d->barId;
}

ItemViewLink *Header::itemView() const
{
    return d->itemView;
}

bool Header::needsPaint() const
{
    return d->needsPaint;
}

void Header::setNeedsPaint(bool value)
{
    d->needsPaint = value;
}

OLE_COLOR Header::flashColor() const
{
    return d->flashColor;
}

OLE_COLOR Header::flashTextColor() const
{
    return d->flashTextColor;
}

Headers *Header::collection() const
{
    return d->collection;
}

bool Header::isLive() const
{
    return d->collection != nullptr && d->live;
}

void Header::setLive(bool value)
{
    d->live = value;
}

bool Header::indexMayLag() const
{
    return d->indexMayLag;
}

} // namespace OrrinQuiver
