#pragma once

#include "core/OleColor.h"
#include "core/OrrinQuiverExport.h"

#include <QtCore/QString>
#include <QtCore/QVariant>
#include <QtGui/QIcon>
#include <QtGui/QPalette>

#include <memory>

class QPainter;

namespace OrrinQuiver {

// A list of equally sized images, each with an optional text key, so that
// headers and items can name their icons by key or by 0-based index. Images
// come from files, Qt resources, pictures (QPixmap, QImage, QBitmap, QIcon,
// QCursor) and are drawn normal, selected, cut or disabled. Bitmaps are
// taken pixel for pixel (a mask colour makes one colour transparent); icons
// and cursors are rendered once for each device pixel ratio they are drawn
// at. Keys are compared exactly (letter case counts) and are unique: an add
// or a re-key that would repeat a key in use is refused.
class ORRINQUIVER_EXPORT clsImageList
{
public:
    // How AddFromFile, AddFromResourceID and AddFromHandle read a picture.
    enum ImageType { ImageBitmap = 0, ImageIcon = 1, ImageCursor = 2 };

    // "No colour" for mask and cut colours: the bitmap's top-left pixel, or
    // the window background colour, is used instead.
    static constexpr OLE_COLOR NoColor = 0xFFFFFFFFu;
    // The image size of a new list, in pixels.
    static constexpr int DefaultIconSize = 32;

    // Uses the application's palette (the classic one without a GUI application).
    clsImageList();
    ~clsImageList();
    clsImageList(const clsImageList &) = delete;
    clsImageList &operator=(const clsImageList &) = delete;

    // Image width and height; they can only change while the list is not
    // created, and Create refuses sizes below 1.
    int IconSizeX() const;
    void setIconSizeX(int size);
    int IconSizeY() const;
    void setIconSizeY(int size);

    // Makes the list ready for images at the current size; false (and no
    // list) for a size below 1. Creating an existing list empties it.
    bool Create();
    // Removes every image; adding fails until the next Create.
    void Destroy();

    // The palette that translates system colours (mask, cut, disabled look).
    QPalette Palette() const;
    void setPalette(const QPalette &palette);

    int Count() const;

    // A number is taken as an index, a text as a key; -1 when the list holds
    // no such image (empty texts and other values included).
    int ItemIndex(const QVariant &keyOrIndex) const;
    // The key of image `index`; empty for an image without one or a bad index.
    QString ItemKey(int index) const;
    // Sets or (with an empty text) removes the key of image `index`; false
    // and nothing changed for a bad index or a key of another image.
    bool setItemKey(int index, const QString &key);
    // Whether ItemIndex finds an image.
    bool Exists(const QVariant &keyOrIndex) const;

    // Removes the image; the images after it move up, keys included. Does
    // nothing when there is no such image.
    void RemoveImage(const QVariant &keyOrIndex);
    // Removes every image.
    void Clear();

    // Adds the picture in `fileName` (every format Qt reads: BMP, ICO, CUR,
    // PNG, ...) with AddFromHandle. Returns the new image's index, or -1
    // when the file cannot be read or AddFromHandle refuses it.
    int AddFromFile(const QString &fileName, int imageType = ImageBitmap, const QString &key = {},
                    OLE_COLOR maskColor = NoColor, int insertPosition = -1);
    // The same for a Qt resource: ":/icons/open.png", "qrc:/icons/open.png"
    // or "icons/open.png" all name the same resource.
    int AddFromResourceID(const QString &resourceId, int imageType = ImageBitmap, const QString &key = {},
                          OLE_COLOR maskColor = NoColor, int insertPosition = -1);
    // Adds a picture by its kind: a QIcon as an icon, a QCursor as a cursor,
    // a QPixmap, QBitmap or QImage as a bitmap. -1 for anything else.
    int AddFromPicture(const QVariant &picture, const QString &key = {}, OLE_COLOR maskColor = NoColor,
                       int insertPosition = -1);
    // Adds `handle` (a QPixmap, QBitmap, QImage, QIcon or QCursor) read as
    // `imageType`. A bitmap loses the pixels of `maskColor` (with NoColor,
    // the colour of its top-left pixel, unless that pixel is already
    // transparent) and is placed at the top-left of an image of the list's
    // size: a larger one is cut, a smaller one leaves the rest transparent.
    // An icon or cursor is scaled to the list's size. With 0 <= insertPosition
    // < Count() the image goes there and the images from that position on move
    // one place along, keys included; otherwise it goes to the end. Returns
    // the new image's index; -1, with nothing added, when the list is not
    // created, the handle is null or of another kind, the type is unknown, a
    // cursor has no picture (a standard shape), or the key is already in use.
    int AddFromHandle(const QVariant &handle, int imageType, const QString &key = {},
                      OLE_COLOR maskColor = NoColor, int insertPosition = -1);

    // Draws the image at (x, y) at the list's size. Cut (over the other
    // flags): the image mixed half and half with `cutColor`, or with the
    // window background colour for NoColor. Otherwise disabled: the classic
    // embossed look. Otherwise selected: mixed half and half with the
    // highlight colour. With `external`, `keyOrIndex` is read as a number
    // (a text such as "3" included) and the image of `external` is drawn.
    // Draws nothing when there is no such image or the painter is inactive.
    void DrawImage(const QVariant &keyOrIndex, QPainter &painter, int x, int y, bool selected = false,
                   bool cut = false, bool disabled = false, OLE_COLOR cutColor = NoColor,
                   const clsImageList *external = nullptr) const;

    // The image as an icon of the list's size; a null icon when there is no
    // such image.
    QIcon ItemPicture(const QVariant &keyOrIndex) const;

private:
    struct Private;
    std::unique_ptr<Private> const d;
};

} // namespace OrrinQuiver
