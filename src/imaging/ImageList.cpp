#include "imaging/ImageList.h"

namespace OrrinQuiver {

ImageList::ImageList(QWidget *parent)
    : QWidget(parent)
    , m_images(new clsImageList)
{
    // Hidden explicitly, so that showing the form does not show it.
    hide();
    m_images->Create();
}

ImageList::~ImageList() = default;

int ImageList::ImageWidth() const
{
    return m_images->IconSizeX();
}

void ImageList::setImageWidth(int width)
{
    setImageSize(width, ImageHeight());
}

int ImageList::ImageHeight() const
{
    return m_images->IconSizeY();
}

void ImageList::setImageHeight(int height)
{
    setImageSize(ImageWidth(), height);
}

void ImageList::setImageSize(int width, int height)
{
    if (width < 1 || height < 1 || Count() > 0)
        return;
    m_images->Destroy();
    m_images->setIconSizeX(width);
    m_images->setIconSizeY(height);
    m_images->Create();
}

int ImageList::Count() const
{
    return m_images->Count();
}

clsImageList *ImageList::Images() const
{
    return m_images.get();
}

int ImageList::AddFromFile(const QString &fileName, int imageType, const QString &key)
{
    return m_images->AddFromFile(fileName, imageType, key);
}

int ImageList::AddFromPicture(const QVariant &picture, const QString &key)
{
    return m_images->AddFromPicture(picture, key);
}

void ImageList::Clear()
{
    m_images->Clear();
}

} // namespace OrrinQuiver
