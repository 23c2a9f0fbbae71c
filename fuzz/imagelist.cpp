// Image loading into the image list: any file is either refused or becomes
// an image of the list's size that draws in every look.

#include "FuzzSupport.h"

#include "imaging/clsImageList.h"

#include <QtGui/QImage>
#include <QtGui/QPainter>

using namespace OrrinQuiver;
using namespace OrrinQuiver::FuzzSupport;

namespace {

// A small list keeps scaling cheap; the canvas has room for every image.
constexpr int IconSize = 16;
constexpr int CanvasSize = 2 * IconSize;

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QString path = writeInput(data, size);
    clsImageList list;
    list.setIconSizeX(IconSize);
    list.setIconSizeY(IconSize);
    if (!list.Create())
        fail("cannot create an image list");
    for (const int type : { clsImageList::ImageBitmap, clsImageList::ImageIcon, clsImageList::ImageCursor }) {
        const int index = list.AddFromFile(path, type);
        if (index != -1 && index != list.Count() - 1)
            fail("an added image is not the last one");
    }
    QImage canvas(CanvasSize, CanvasSize, QImage::Format_ARGB32_Premultiplied);
    canvas.fill(Qt::transparent);
    QPainter painter(&canvas);
    for (int index = 0; index < list.Count(); ++index) {
        list.DrawImage(index, painter, 0, 0);
        list.DrawImage(index, painter, 1, 1, true);
        list.DrawImage(index, painter, 2, 2, false, true);
        list.DrawImage(index, painter, 3, 3, false, false, true);
        if (list.ItemPicture(index).isNull())
            fail("an image in the list has no picture");
    }
    return 0;
}
