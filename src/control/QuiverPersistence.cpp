#include "control/QuiverPersistence.h"

#include "control/Quiver_p.h"
#include "itemview/ItemContainer.h"
#include "model/Header.h"
#include "model/Headers.h"
#include "model/Item.h"
#include "model/Items.h"
#include "serialize/FormPropertyBag.h"
#include "serialize/PropertyBag.h"
#include "serialize/modPictureText.h"

namespace OrrinQuiver {

using namespace Qt::StringLiterals;
using namespace PropertyTable;

namespace {

// Where a restore opens when the bag does not say.
constexpr int DefaultCurrentHeader = 1;
constexpr int DefaultCurrentItem = 1;

// The bag's value types. Integer is 16-bit, Long 32-bit; colours are Longs.
QVariant integer(int value) { return QVariant::fromValue(qint16(value)); }

QVariant color(OLE_COLOR value) { return QVariant(qint32(value)); }

QString key(QStringView field, int header) { return field.toString() + QString::number(header); }

// "Header<i>Item<j>" followed by the field name.
QString itemKey(int header, int item, QStringView field)
{
    QString name = u"Header"_s + QString::number(header) + u"Item"_s + QString::number(item);
    name += field;
    return name;
}

QString itemCountKey(int header) { return u"Header"_s + QString::number(header) + u"Items"_s; }

// A row's value as the bag holds it.
QVariant toBag(BagType type, const QVariant &value)
{
    switch (type) {
    case BagType::Boolean:
        return value.toBool();
    case BagType::Integer:
        return integer(value.toInt());
    case BagType::Long:
        return QVariant(qint32(value.toLongLong()));
    case BagType::Text:
        return value.toString();
    case BagType::Font:
        return value.value<QFont>();
    case BagType::Picture:
        return modPictureText::pictureToText(value);
    case BagType::ObjectName: {
        const QObject *object = value.value<QObject *>();
        return object ? object->objectName() : QString();
    }
    }
    return {};
}

// The image list a restored control names: an object with that name among
// the descendants of the form the control sits on.
QObject *findOnForm(const QWidget *control, const QString &name)
{
    if (name.isEmpty())
        return nullptr;
    QObject *form = control->parent();
    if (!form)
        return nullptr;
    while (form->parent())
        form = form->parent();
    return form->findChild<QObject *>(name);
}

// Reads one table row from the bag with the default it was written against
// and assigns it through the row's setter; a name no object on the form has
// leaves an image list unset.
void readRow(QuiverPrivate &d, const PropertyBag &bag, Property property)
{
    const Row &row = PropertyTable::row(property);
    const QString name = QLatin1String(row.name);
    const QVariant fallback = toBag(row.type, d.tableValue(property, row.bagDefault));
    const QVariant stored = bag.ReadProperty(name, fallback);
    switch (row.type) {
    case BagType::Boolean:
        d.setValue(property, stored.toBool());
        break;
    case BagType::Integer:
        d.setValue(property, int(stored.value<qint16>()));
        break;
    case BagType::Long:
        d.setValue(property, stored.toInt());
        break;
    case BagType::Text:
    case BagType::Font:
        d.setValue(property, stored);
        break;
    case BagType::Picture:
        d.setValue(property, modPictureText::textToPicture(stored.toString()));
        break;
    case BagType::ObjectName:
        if (QObject *object = findOnForm(d.q, stored.toString()))
            d.setValue(property, QVariant::fromValue(object));
        break;
    }
}

// Reads a header's or item's own values with the defaults they were written against.
class Reader
{
public:
    explicit Reader(const PropertyBag &bag)
        : m_bag(bag)
    { }

    bool boolean(const QString &name, bool defaultValue) const
    {
        return m_bag.ReadProperty(name, defaultValue).toBool();
    }
    int integer(const QString &name, int defaultValue) const
    {
        return m_bag.ReadProperty(name, OrrinQuiver::integer(defaultValue)).value<qint16>();
    }
    int number(const QString &name, int defaultValue) const
    {
        return m_bag.ReadProperty(name, defaultValue).toInt();
    }
    OLE_COLOR color(const QString &name, OLE_COLOR defaultValue) const
    {
        return OLE_COLOR(m_bag.ReadProperty(name, OrrinQuiver::color(defaultValue)).toInt());
    }
    QString text(const QString &name) const { return m_bag.ReadProperty(name, QString()).toString(); }

private:
    const PropertyBag &m_bag;
};

void writeHeaders(const QuiverPrivate &d, PropertyBag &bag)
{
    for (int i = 1; i <= d.headers->Count(); ++i) {
        const Header *header = d.headers->at(i);
        bag.WriteProperty(key(u"Caption", i), header->Caption());
        bag.WriteProperty(key(u"Enabled", i), header->Enabled());
        bag.WriteProperty(key(u"Tag", i), header->Tag(), QString());
        bag.WriteProperty(key(u"ToolTip", i), header->ToolTipText(), QString());
        bag.WriteProperty(key(u"View", i), int(header->View()));
        bag.WriteProperty(key(u"Visible", i), header->Visible(), true);
        const Items *items = header->Items();
        bag.WriteProperty(itemCountKey(i), items->Count(), 0);
        for (int j = 1; j <= items->Count(); ++j) {
            const Item *item = items->at(j);
            bag.WriteProperty(itemKey(i, j, u"Caption"), item->Caption(), QString());
            bag.WriteProperty(itemKey(i, j, u"ToolTip"), item->ToolTipText(), QString());
            bag.WriteProperty(itemKey(i, j, u"Tag"), item->Tag(), QString());
            bag.WriteProperty(itemKey(i, j, u"Visible"), item->Visible(), true);
            bag.WriteProperty(itemKey(i, j, u"Enabled"), item->Enabled(), true);
            bag.WriteProperty(itemKey(i, j, u"MaskColor"), color(item->MaskColor()),
                              color(d.settings.defaultMaskColor));
            if (!item->URLIcon().isEmpty())
                bag.WriteProperty(itemKey(i, j, u"URLIcon"), item->URLIcon(), QString());
            else
                bag.WriteProperty(itemKey(i, j, u"Icon"), item->Icon(), QString());
            if (!item->URLSmallIcon().isEmpty())
                bag.WriteProperty(itemKey(i, j, u"URLSmallIcon"), item->URLSmallIcon(), QString());
            else
                bag.WriteProperty(itemKey(i, j, u"SmallIcon"), item->SmallIcon(), QString());
        }
    }
}

void readHeaders(QuiverPrivate &d, const Reader &read)
{
    const int headerCount = read.integer(u"NumHeaders"_s, 0);
    for (int i = 1; i <= headerCount; ++i) {
        // Values written without a default read as empty when missing.
        Header *header = d.headers->Add(0, QString(), read.text(key(u"Caption", i)),
                                        qvViewType(read.number(key(u"View", i), qvViewLargeIcons)));
        if (!header)
            continue;
        header->setEnabled(read.boolean(key(u"Enabled", i), false));
        header->setTag(read.text(key(u"Tag", i)));
        header->setToolTipText(read.text(key(u"ToolTip", i)));
        header->setVisible(read.boolean(key(u"Visible", i), true));
        Items *items = header->Items();
        const int itemCount = read.number(itemCountKey(i), 0);
        for (int j = 1; j <= itemCount; ++j) {
            Item *item = items->Add(0, QString(), read.text(itemKey(i, j, u"Caption")));
            if (!item)
                continue;
            item->setToolTipText(read.text(itemKey(i, j, u"ToolTip")));
            item->setTag(read.text(itemKey(i, j, u"Tag")));
            item->setVisible(read.boolean(itemKey(i, j, u"Visible"), true));
            item->setEnabled(read.boolean(itemKey(i, j, u"Enabled"), true));
            item->setMaskColor(read.color(itemKey(i, j, u"MaskColor"), d.settings.defaultMaskColor));
            // A picture address stands in for the image-list icon.
            if (const QString url = read.text(itemKey(i, j, u"URLIcon")); !url.isEmpty())
                item->setURLIcon(url);
            else
                item->setIcon(read.text(itemKey(i, j, u"Icon")));
            if (const QString url = read.text(itemKey(i, j, u"URLSmallIcon")); !url.isEmpty())
                item->setURLSmallIcon(url);
            else
                item->setSmallIcon(read.text(itemKey(i, j, u"SmallIcon")));
        }
    }
}

} // namespace

void QuiverPersistence::write(const QuiverPrivate &d, PropertyBag &bag)
{
    for (int property = 0; property < PropertyCount; ++property) {
        const Row &row = PropertyTable::row(Property(property));
        const QVariant value = d.value(Property(property));
        const QString name = QLatin1String(row.name);
        if (row.type == BagType::Picture) {
            // Pictures are always stored, as their text.
            bag.WriteProperty(name, toBag(row.type, value));
        } else if (row.type != BagType::ObjectName || value.value<QObject *>()) {
            // An image list is stored by name, and only while one is set.
            bag.WriteProperty(name, toBag(row.type, value),
                              toBag(row.type, d.tableValue(Property(property), row.bagDefault)));
        }
    }
    const ItemContainer *open = d.openView();
    bag.WriteProperty(u"CurrentHeader"_s, integer(d.selection->position()), integer(DefaultCurrentHeader));
    bag.WriteProperty(u"CurrentItem"_s, integer(open ? open->CurrentItem() : 0), integer(DefaultCurrentItem));
    bag.WriteProperty(u"NumHeaders"_s, integer(d.headers->Count()), integer(0));
    writeHeaders(d, bag);
}

void QuiverPersistence::read(QuiverPrivate &d, const PropertyBag &bag)
{
    const Reader read(bag);
    d.userModeAtRead = !d.designMode;
    d.tabStop = (d.q->focusPolicy() & Qt::TabFocus) != 0;
    for (Property property : readOrder())
        readRow(d, bag, property);
    readHeaders(d, read);
    d.selectHeader(read.integer(u"CurrentHeader"_s, DefaultCurrentHeader));
    d.selectItem(qint16(read.integer(u"CurrentItem"_s, DefaultCurrentItem)));
}

// --- Quiver's entry points --------------------------------------------------------

void Quiver::WriteProperties(PropertyBag &bag) const { QuiverPersistence::write(*d, bag); }

void Quiver::ReadProperties(const PropertyBag &bag)
{
    quietly([&] { QuiverPersistence::read(*d, bag); });
}

QString Quiver::PropertyBagText() const
{
    return quietly([this] {
        FormPropertyBag bag;
        WriteProperties(bag);
        return bag.text();
    });
}

void Quiver::setPropertyBagText(const QString &text)
{
    quietly([&] {
        d->headers->Clear();
        ReadProperties(FormPropertyBag(text));
    });
}

} // namespace OrrinQuiver
