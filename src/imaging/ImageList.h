#pragma once

#include "core/OrrinQuiverExport.h"
#include "imaging/clsImageList.h"

#include <QtWidgets/QWidget>

#include <memory>

namespace OrrinQuiver {

// An image list that a form holds: a widget that never shows, placed on the
// form and found there by its object name, which is also the name that the
// control's Icons and SmallIcons properties store. The images themselves are
// in the clsImageList that Images() exposes; the invokable members let a form
// file or a script fill it without C++.
class ORRINQUIVER_EXPORT ImageList : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(int ImageWidth READ ImageWidth WRITE setImageWidth)
    Q_PROPERTY(int ImageHeight READ ImageHeight WRITE setImageHeight)
    Q_PROPERTY(int Count READ Count)

public:
    // Hidden from the start, with images of 32 x 32 pixels.
    explicit ImageList(QWidget *parent = nullptr);
    ~ImageList() override;

    // The image size; a change is ignored while the list holds images, and a
    // size below 1 is ignored always.
    int ImageWidth() const;
    void setImageWidth(int width);
    int ImageHeight() const;
    void setImageHeight(int height);

    int Count() const;

    // The list itself, for drawing and for every other operation.
    clsImageList *Images() const;

    // clsImageList::AddFromFile; -1 when the file cannot be read or the key is in use.
    Q_INVOKABLE int AddFromFile(const QString &fileName, int imageType = clsImageList::ImageBitmap,
                                const QString &key = {});
    // clsImageList::AddFromPicture; -1 for a value that is no picture or a key in use.
    Q_INVOKABLE int AddFromPicture(const QVariant &picture, const QString &key = {});
    // Removes every image.
    Q_INVOKABLE void Clear();

private:
    void setImageSize(int width, int height);

    std::unique_ptr<clsImageList> const m_images;
};

} // namespace OrrinQuiver
