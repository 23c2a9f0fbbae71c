#include "imaging/clsImageList.h"

#include "imaging/PictureOps_p.h"
#include "platform/SystemColors.h"
#include "core/VariantNumbers.h"

#include <QtCore/QHash>
#include <QtGui/QBitmap>
#include <QtGui/QCursor>
#include <QtGui/QImageReader>
#include <QtGui/QPainter>
#include <QtGui/QPixmap>

#include <optional>
#include <vector>

namespace OrrinQuiver {

using namespace PictureOps;

namespace {

// The colour that selected images are mixed with.
constexpr OLE_COLOR HighlightColor = systemColor(13);
// The tones of the disabled look.
constexpr OLE_COLOR DisabledHighlight = SystemColors::ButtonHighlight;
constexpr OLE_COLOR DisabledShadow = SystemColors::ButtonShadow;

// A key or index read as a number, "3" included; -1 for anything else.
int numberIn(const QVariant &value)
{
    bool ok = false;
    const int number = value.toInt(&ok);
    return ok ? number : -1;
}

// The pixels of a picture handed in as a bitmap; null for other kinds.
QImage bitmapOf(const QVariant &handle)
{
    switch (handle.typeId()) {
    case QMetaType::QImage:
        return handle.value<QImage>();
    case QMetaType::QPixmap:
        return handle.value<QPixmap>().toImage();
    case QMetaType::QBitmap:
        return handle.value<QBitmap>().toImage();
    default:
        return {};
    }
}

// A cursor's picture: its pixmap, or its two-tone bitmap cut out by its mask;
// null for the standard shapes, which have no picture of their own here.
QIcon cursorIcon(const QCursor &cursor)
{
    if (!cursor.pixmap().isNull())
        return QIcon(cursor.pixmap());
    const QBitmap bitmap = cursor.bitmap();
    if (bitmap.isNull())
        return {};
    QPixmap picture(bitmap);
    picture.setMask(cursor.mask());
    return QIcon(picture);
}

// A picture handed in as an icon or cursor; null for other kinds.
QIcon iconOf(const QVariant &handle)
{
    switch (handle.typeId()) {
    case QMetaType::QIcon:
        return handle.value<QIcon>();
    case QMetaType::QCursor:
        return cursorIcon(handle.value<QCursor>());
    default: {
        const QImage image = bitmapOf(handle);
        return image.isNull() ? QIcon() : QIcon(QPixmap::fromImage(image));
    }
    }
}

// Every image a file holds (all sizes of an icon file) as one icon.
QIcon readIcon(const QString &fileName)
{
    QImageReader reader(fileName);
    QIcon icon;
    do {
        const QImage image = reader.read();
        if (image.isNull())
            break;
        icon.addPixmap(QPixmap::fromImage(image));
    } while (reader.jumpToNextImage());
    return icon;
}

QString resourcePath(const QString &resourceId)
{
    QString path = resourceId;
    if (path.startsWith(QLatin1String("qrc:")))
        path.remove(0, 4);
    while (path.startsWith(QLatin1Char(':')) || path.startsWith(QLatin1Char('/')))
        path.remove(0, 1);
    return QLatin1String(":/") + path;
}

struct Entry
{
    QString key;
    // Icons and cursors keep their source, to be rendered afresh for each
    // device pixel ratio; bitmaps have none.
    QIcon icon;
    // The image at the list's size for a device pixel ratio of 1.
    QImage base;
    // The image for the last other ratio it was drawn at.
    mutable QImage scaled;
};

} // namespace

struct clsImageList::Private
{
    int sizeX = DefaultIconSize;
    int sizeY = DefaultIconSize;
    bool created = false;
    std::vector<Entry> images;
    QHash<QString, int> keys;
    QPalette palette = defaultPalette();

    QSize size() const { return {sizeX, sizeY}; }
    bool valid(int index) const { return index >= 0 && index < int(images.size()); }

    // Brings the key lookup up to date after images from `first` on moved.
    void renumberFrom(int first)
    {
        for (int i = first; i < int(images.size()); ++i) {
            if (!images[size_t(i)].key.isEmpty())
                keys.insert(images[size_t(i)].key, i);
        }
    }

    const QImage &imageAt(int index, qreal ratio) const
    {
        const Entry &entry = images[size_t(index)];
        if (qFuzzyCompare(ratio, 1.0))
            return entry.base;
        if (entry.scaled.isNull() || !qFuzzyCompare(entry.scaled.devicePixelRatio(), ratio)) {
            entry.scaled = entry.icon.isNull() ? stretched(entry.base, deviceSize(size(), ratio))
                                               : renderIcon(entry.icon, size(), ratio);
            entry.scaled.setDevicePixelRatio(ratio);
        }
        return entry.scaled;
    }
};

clsImageList::clsImageList()
    : d(new Private)
{
}

clsImageList::~clsImageList() = default;

int clsImageList::IconSizeX() const
{
    return d->sizeX;
}

void clsImageList::setIconSizeX(int size)
{
    if (!d->created)
        d->sizeX = size;
}

int clsImageList::IconSizeY() const
{
    return d->sizeY;
}

void clsImageList::setIconSizeY(int size)
{
    if (!d->created)
        d->sizeY = size;
}

bool clsImageList::Create()
{
    Clear();
    d->created = d->sizeX > 0 && d->sizeY > 0;
    return d->created;
}

void clsImageList::Destroy()
{
    Clear();
    d->created = false;
}

QPalette clsImageList::Palette() const
{
    return d->palette;
}

void clsImageList::setPalette(const QPalette &palette)
{
    d->palette = palette;
}

int clsImageList::Count() const
{
    return int(d->images.size());
}

int clsImageList::ItemIndex(const QVariant &keyOrIndex) const
{
    if (keyOrIndex.typeId() == QMetaType::QString) {
        const QString key = keyOrIndex.toString();
        return key.isEmpty() ? -1 : d->keys.value(key, -1);
    }
    // A one-byte character type is a character here, not an index.
    if (!isNumericVariant(keyOrIndex) || isCharVariant(keyOrIndex))
        return -1;
    const int index = keyOrIndex.toInt();
    return d->valid(index) ? index : -1;
}

QString clsImageList::ItemKey(int index) const
{
    return d->valid(index) ? d->images[size_t(index)].key : QString();
}

bool clsImageList::setItemKey(int index, const QString &key)
{
    if (!d->valid(index))
        return false;
    if (!key.isEmpty() && d->keys.value(key, index) != index)
        return false;
    QString &current = d->images[size_t(index)].key;
    d->keys.remove(current);
    current = key;
    if (!key.isEmpty())
        d->keys.insert(key, index);
    return true;
}

bool clsImageList::Exists(const QVariant &keyOrIndex) const
{
    return ItemIndex(keyOrIndex) >= 0;
}

void clsImageList::RemoveImage(const QVariant &keyOrIndex)
{
    const int index = ItemIndex(keyOrIndex);
    if (index < 0)
        return;
    d->keys.remove(d->images[size_t(index)].key);
    d->images.erase(d->images.begin() + index);
    d->renumberFrom(index);
}

void clsImageList::Clear()
{
    d->images.clear();
    d->keys.clear();
}

int clsImageList::AddFromFile(const QString &fileName, int imageType, const QString &key, OLE_COLOR maskColor,
                              int insertPosition)
{
    if (imageType == ImageBitmap) {
        const QImage bitmap = QImageReader(fileName).read();
        return bitmap.isNull() ? -1 : AddFromHandle(bitmap, imageType, key, maskColor, insertPosition);
    }
    const QIcon icon = readIcon(fileName);
    return icon.isNull() ? -1 : AddFromHandle(icon, imageType, key, maskColor, insertPosition);
}

int clsImageList::AddFromResourceID(const QString &resourceId, int imageType, const QString &key,
                                    OLE_COLOR maskColor, int insertPosition)
{
    return AddFromFile(resourcePath(resourceId), imageType, key, maskColor, insertPosition);
}

int clsImageList::AddFromPicture(const QVariant &picture, const QString &key, OLE_COLOR maskColor,
                                 int insertPosition)
{
    switch (picture.typeId()) {
    case QMetaType::QIcon:
        return AddFromHandle(picture, ImageIcon, key, maskColor, insertPosition);
    case QMetaType::QCursor:
        return AddFromHandle(picture, ImageCursor, key, maskColor, insertPosition);
    default:
        return AddFromHandle(picture, ImageBitmap, key, maskColor, insertPosition);
    }
}

int clsImageList::AddFromHandle(const QVariant &handle, int imageType, const QString &key, OLE_COLOR maskColor,
                                int insertPosition)
{
    if (!d->created || (!key.isEmpty() && d->keys.contains(key)))
        return -1;
    Entry entry{key, {}, {}, {}};
    switch (imageType) {
    case ImageBitmap: {
        const QImage bitmap = bitmapOf(handle);
        if (bitmap.isNull())
            return -1;
        std::optional<QRgb> mask;
        if (maskColor != NoColor)
            mask = translateColor(maskColor, d->palette).rgb();
        else if (const QRgb corner = bitmap.pixel(0, 0); qAlpha(corner) != 0)
            mask = corner;
        entry.base = maskedCopy(bitmap, QRect(QPoint(0, 0), d->size()), mask);
        break;
    }
    case ImageIcon:
    case ImageCursor:
        entry.icon = iconOf(handle);
        if (entry.icon.isNull())
            return -1;
        entry.base = renderIcon(entry.icon, d->size(), 1.0);
        break;
    default:
        return -1;
    }
    const int count = Count();
    const int at = insertPosition >= 0 && insertPosition < count ? insertPosition : count;
    d->images.insert(d->images.begin() + at, std::move(entry));
    d->renumberFrom(at);
    return at;
}

void clsImageList::DrawImage(const QVariant &keyOrIndex, QPainter &painter, int x, int y, bool selected, bool cut,
                             bool disabled, OLE_COLOR cutColor, const clsImageList *external) const
{
    if (!painter.isActive())
        return;
    const clsImageList &list = external ? *external : *this;
    const int index = external ? numberIn(keyOrIndex) : ItemIndex(keyOrIndex);
    if (!list.d->valid(index))
        return;

    const QImage &image = list.d->imageAt(index, ratioOf(painter));
    const QPoint at(x, y);
    const QPalette &pal = d->palette;
    if (cut)
        painter.drawImage(at, blended(image, translateColor(cutColor == NoColor ? SystemColors::Window : cutColor, pal)));
    else if (disabled)
        drawDisabled(painter, at, image, translateColor(DisabledHighlight, pal), translateColor(DisabledShadow, pal));
    else if (selected)
        painter.drawImage(at, blended(image, translateColor(HighlightColor, pal)));
    else
        painter.drawImage(at, image);
}

QIcon clsImageList::ItemPicture(const QVariant &keyOrIndex) const
{
    const int index = ItemIndex(keyOrIndex);
    return index < 0 ? QIcon() : QIcon(QPixmap::fromImage(d->images[size_t(index)].base));
}

} // namespace OrrinQuiver
