// Saving the control into a property bag and restoring it from one.

#include "control/Quiver.h"

#include "control/Quiver_p.h"
#include "itemview/ItemContainer.h"
#include "platform/MousePointer.h"
#include "model/Header.h"
#include "model/Headers.h"
#include "model/Item.h"
#include "model/Items.h"
#include "model/Navigation.h"
#include "serialize/FormPropertyBag.h"
#include "serialize/PropertyBag.h"
#include "serialize/modPictureText.h"

namespace OrrinQuiver {

using namespace Qt::StringLiterals;

namespace {

// The defaults a save passes with each value; a value equal to its default
// is not stored, and a restore reads a missing value as this default.
constexpr qvStyle DefaultStyle = qvStyleOutlook;
constexpr OLE_COLOR DefaultMaskColorValue = rgbColor(192, 192, 192);
constexpr OLE_COLOR DefaultBackColor = SystemColors::ButtonShadow;
constexpr OLE_COLOR DefaultCheckColor = SystemColors::ButtonFace;
constexpr OLE_COLOR DefaultShadowColor = SystemColors::ButtonShadow;
constexpr OLE_COLOR DefaultDkShadowColor = SystemColors::ButtonDarkShadow;
constexpr OLE_COLOR DefaultHighlightColor = SystemColors::ButtonHighlight;
constexpr OLE_COLOR DefaultHeaderBackColor = SystemColors::ButtonFace;
constexpr OLE_COLOR DefaultHeaderForeColor = SystemColors::ButtonText;
constexpr OLE_COLOR DefaultItemForeColor = SystemColors::Window;
constexpr int DefaultHeaderMousePointer = MousePointer::Custom;
constexpr int DefaultItemMousePointer = MousePointer::Arrow;
// Both drag modes are stored against "none": a new control starts with
// headers and items accepting drops, so it stores its drop mode.
constexpr qvOLEDragMode DefaultOLEDragMode = qvOLEDragManual;
constexpr qvOLEDropMode DefaultOLEDropMode = qvOLEDropNone;
constexpr int DefaultScrollDelay = 120;
// Stored against "off" while a new control records its history: a new
// control stores its recording.
constexpr bool DefaultTrackNavigation = false;
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

// Reads a bag with the defaults its values were written against.
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
    QString text(const QString &name, const QString &defaultValue = {}) const
    {
        return m_bag.ReadProperty(name, defaultValue).toString();
    }
    QFont font(const QString &name, const QFont &defaultValue) const
    {
        return m_bag.ReadProperty(name, defaultValue).value<QFont>();
    }
    QVariant picture(const QString &name) const { return modPictureText::textToPicture(text(name)); }

private:
    const PropertyBag &m_bag;
};

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

} // namespace

void Quiver::WriteProperties(PropertyBag &bag) const
{
    bag.WriteProperty(u"Style"_s, QVariant(int(d->style)), QVariant(int(DefaultStyle)));
    bag.WriteProperty(u"Font"_s, QWidget::font(), d->defaultFont);
    bag.WriteProperty(u"DefaultMaskColor"_s, color(d->defaultMaskColor), color(DefaultMaskColorValue));
    bag.WriteProperty(u"BackColor"_s, color(d->backColor), color(DefaultBackColor));
    bag.WriteProperty(u"CheckColor"_s, color(d->checkColor), color(DefaultCheckColor));
    bag.WriteProperty(u"ShadowColor"_s, color(d->shadowColor), color(DefaultShadowColor));
    bag.WriteProperty(u"DkShadowColor"_s, color(d->dkShadowColor), color(DefaultDkShadowColor));
    bag.WriteProperty(u"HighlightColor"_s, color(d->highlightColor), color(DefaultHighlightColor));
    bag.WriteProperty(u"HeaderBackColor"_s, color(d->headerBackColor), color(DefaultHeaderBackColor));
    bag.WriteProperty(u"HeaderForeColor"_s, color(d->headerForeColor), color(DefaultHeaderForeColor));
    bag.WriteProperty(u"HeaderOverForeColor"_s, color(d->headerOverForeColor), color(d->headerForeColor));
    bag.WriteProperty(u"ItemForeColor"_s, color(d->itemForeColorValue), color(DefaultItemForeColor));
    bag.WriteProperty(u"ItemOverForeColor"_s, color(d->itemOverForeColor), color(d->itemForeColorValue));
    bag.WriteProperty(u"ItemOverBackColor"_s, color(d->itemOverBackColor), color(d->backColor));
    bag.WriteProperty(u"ItemDownBackColor"_s, color(d->itemDownBackColor), color(d->backColor));
    bag.WriteProperty(u"ItemDownForeColor"_s, color(d->itemDownForeColor), color(d->itemForeColorValue));
    bag.WriteProperty(u"HeaderMouseIcon"_s, modPictureText::pictureToText(HeaderMouseIcon()));
    bag.WriteProperty(u"HeaderMousePointer"_s, HeaderMousePointer(), DefaultHeaderMousePointer);
    bag.WriteProperty(u"ItemMouseIcon"_s, modPictureText::pictureToText(ItemMouseIcon()));
    bag.WriteProperty(u"ItemMousePointer"_s, ItemMousePointer(), DefaultItemMousePointer);
    bag.WriteProperty(u"PlaySounds"_s, d->playSounds, true);
    bag.WriteProperty(u"OLEDragMode"_s, integer(d->oleDragMode), integer(DefaultOLEDragMode));
    bag.WriteProperty(u"OLEDropMode"_s, integer(d->oleDropMode), integer(DefaultOLEDropMode));
    bag.WriteProperty(u"ScrollDelay"_s, integer(d->scrollDelay), integer(DefaultScrollDelay));
    bag.WriteProperty(u"SmoothScroll"_s, d->smoothScroll, true);
    bag.WriteProperty(u"ShowToolTips"_s, d->showToolTips, true);
    bag.WriteProperty(u"SoundItemURL"_s, d->itemSound.url, QString());
    bag.WriteProperty(u"SoundHeaderUpURL"_s, d->headerUpSound.url, QString());
    bag.WriteProperty(u"SoundHeaderDownURL"_s, d->headerDownSound.url, QString());
    bag.WriteProperty(u"TrackNavigation"_s, d->navigation->Enabled(), DefaultTrackNavigation);
    bag.WriteProperty(u"UseSystemSounds"_s, d->useSystemSounds, true);
    bag.WriteProperty(u"AutoMouseWheel"_s, d->autoMouseWheel, false);
    bag.WriteProperty(u"AlwaysShowFirstHeader"_s, d->alwaysShowFirstHeader, true);
    bag.WriteProperty(u"ItemsMoveWithClick"_s, d->itemsMoveWithClick, false);
    bag.WriteProperty(u"ItemsStayDownWithClick"_s, d->itemsStayDownWithClick, false);
    bag.WriteProperty(u"ItemsUnderlineOnMove"_s, d->itemsUnderlineOnMove, false);
    if (d->icons)
        bag.WriteProperty(u"Icons"_s, d->icons->objectName(), QString());
    if (d->smallIcons)
        bag.WriteProperty(u"SmallIcons"_s, d->smallIcons->objectName(), QString());
    const ItemContainer *open = d->openView();
    bag.WriteProperty(u"CurrentHeader"_s, integer(d->selectedPosition), integer(DefaultCurrentHeader));
    bag.WriteProperty(u"CurrentItem"_s, integer(open ? open->CurrentItem() : 0), integer(DefaultCurrentItem));
    bag.WriteProperty(u"NumHeaders"_s, integer(d->headers->Count()), integer(0));

    for (int i = 1; i <= d->headers->Count(); ++i) {
        const Header *header = d->headers->at(i);
        bag.WriteProperty(key(u"Caption", i), header->Caption());
        bag.WriteProperty(key(u"Enabled", i), header->Enabled());
        bag.WriteProperty(key(u"Tag", i), header->Tag(), QString());
        bag.WriteProperty(key(u"ToolTip", i), header->ToolTipText(), QString());
        bag.WriteProperty(key(u"View", i), int(header->View()));
        bag.WriteProperty(key(u"Visible", i), header->Visible(), true);
        const OrrinQuiver::Items *items = header->Items();
        bag.WriteProperty(itemCountKey(i), items->Count(), 0);
        for (int j = 1; j <= items->Count(); ++j) {
            const Item *item = items->at(j);
            bag.WriteProperty(itemKey(i, j, u"Caption"), item->Caption(), QString());
            bag.WriteProperty(itemKey(i, j, u"ToolTip"), item->ToolTipText(), QString());
            bag.WriteProperty(itemKey(i, j, u"Tag"), item->Tag(), QString());
            bag.WriteProperty(itemKey(i, j, u"Visible"), item->Visible(), true);
            bag.WriteProperty(itemKey(i, j, u"Enabled"), item->Enabled(), true);
            bag.WriteProperty(itemKey(i, j, u"MaskColor"), color(item->MaskColor()),
                              color(d->defaultMaskColor));
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

void Quiver::ReadProperties(const PropertyBag &bag)
{
    quietly([&] {
        const Reader read(bag);
        d->userModeAtRead = !d->designMode;
        d->tabStop = (focusPolicy() & Qt::TabFocus) != 0;

        setStyle(qvStyle(read.number(u"Style"_s, DefaultStyle)));
        setFont(read.font(u"Font"_s, d->defaultFont));
        setBackColor(read.color(u"BackColor"_s, DefaultBackColor));
        setDefaultMaskColor(read.color(u"DefaultMaskColor"_s, DefaultMaskColorValue));
        setCheckColor(read.color(u"CheckColor"_s, DefaultCheckColor));
        // The shadow colour also sets the highlight colour; reading the
        // highlight colour after it lets the stored one win.
        setShadowColor(read.color(u"ShadowColor"_s, DefaultShadowColor));
        setDkShadowColor(read.color(u"DkShadowColor"_s, DefaultDkShadowColor));
        setHighlightColor(read.color(u"HighlightColor"_s, DefaultHighlightColor));
        setHeaderBackColor(read.color(u"HeaderBackColor"_s, DefaultHeaderBackColor));
        setHeaderForeColor(read.color(u"HeaderForeColor"_s, DefaultHeaderForeColor));
        setHeaderOverForeColor(read.color(u"HeaderOverForeColor"_s, d->headerForeColor));
        setItemForeColor(read.color(u"ItemForeColor"_s, DefaultItemForeColor));
        setItemOverForeColor(read.color(u"ItemOverForeColor"_s, d->itemForeColorValue));
        setItemOverBackColor(read.color(u"ItemOverBackColor"_s, d->backColor));
        setItemDownBackColor(read.color(u"ItemDownBackColor"_s, d->backColor));
        setItemDownForeColor(read.color(u"ItemDownForeColor"_s, d->itemForeColorValue));
        setHeaderMouseIcon(read.picture(u"HeaderMouseIcon"_s));
        setHeaderMousePointer(read.number(u"HeaderMousePointer"_s, DefaultHeaderMousePointer));
        setItemMouseIcon(read.picture(u"ItemMouseIcon"_s));
        setItemMousePointer(read.number(u"ItemMousePointer"_s, DefaultItemMousePointer));
        setPlaySounds(read.boolean(u"PlaySounds"_s, true));
        setOLEDropMode(qvOLEDropMode(read.integer(u"OLEDropMode"_s, DefaultOLEDropMode)));
        setOLEDragMode(qvOLEDragMode(read.integer(u"OLEDragMode"_s, DefaultOLEDragMode)));
        setScrollDelay(read.integer(u"ScrollDelay"_s, DefaultScrollDelay));
        setSmoothScroll(read.boolean(u"SmoothScroll"_s, true));
        setShowToolTips(read.boolean(u"ShowToolTips"_s, true));
        setSoundItemURL(read.text(u"SoundItemURL"_s));
        setSoundHeaderUpURL(read.text(u"SoundHeaderUpURL"_s));
        setSoundHeaderDownURL(read.text(u"SoundHeaderDownURL"_s));
        setUseSystemSounds(read.boolean(u"UseSystemSounds"_s, true));
        setAutoMouseWheel(read.boolean(u"AutoMouseWheel"_s, false));
        setAlwaysShowFirstHeader(read.boolean(u"AlwaysShowFirstHeader"_s, true));
        setItemsMoveWithClick(read.boolean(u"ItemsMoveWithClick"_s, false));
        setItemsStayDownWithClick(read.boolean(u"ItemsStayDownWithClick"_s, false));
        setItemsUnderlineOnMove(read.boolean(u"ItemsUnderlineOnMove"_s, false));
        d->navigation->setEnabled(read.boolean(u"TrackNavigation"_s, DefaultTrackNavigation));
        if (QObject *images = findOnForm(this, read.text(u"Icons"_s)))
            setIcons(images);
        if (QObject *images = findOnForm(this, read.text(u"SmallIcons"_s)))
            setSmallIcons(images);

        const int headerCount = read.integer(u"NumHeaders"_s, 0);
        for (int i = 1; i <= headerCount; ++i) {
            // Values written without a default read as empty when missing.
            Header *header = d->headers->Add(0, QString(), read.text(key(u"Caption", i)),
                                             qvViewType(read.number(key(u"View", i), qvViewLargeIcons)));
            if (!header)
                continue;
            header->setEnabled(read.boolean(key(u"Enabled", i), false));
            header->setTag(read.text(key(u"Tag", i)));
            header->setToolTipText(read.text(key(u"ToolTip", i)));
            header->setVisible(read.boolean(key(u"Visible", i), true));
            OrrinQuiver::Items *items = header->Items();
            const int itemCount = read.number(itemCountKey(i), 0);
            for (int j = 1; j <= itemCount; ++j) {
                Item *item = items->Add(0, QString(), read.text(itemKey(i, j, u"Caption")));
                if (!item)
                    continue;
                item->setToolTipText(read.text(itemKey(i, j, u"ToolTip")));
                item->setTag(read.text(itemKey(i, j, u"Tag")));
                item->setVisible(read.boolean(itemKey(i, j, u"Visible"), true));
                item->setEnabled(read.boolean(itemKey(i, j, u"Enabled"), true));
                item->setMaskColor(read.color(itemKey(i, j, u"MaskColor"), d->defaultMaskColor));
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

        d->selectHeader(read.integer(u"CurrentHeader"_s, DefaultCurrentHeader));
        d->selectItem(qint16(read.integer(u"CurrentItem"_s, DefaultCurrentItem)));
    });
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
