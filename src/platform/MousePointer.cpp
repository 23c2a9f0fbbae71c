#include "platform/MousePointer.h"

#include <QtGui/QIcon>
#include <QtGui/QPixmap>

namespace OrrinQuiver {

namespace {

// Edge of the pixmap taken from an icon that serves as a custom cursor.
constexpr int CustomCursorSize = 32;

std::optional<QCursor> customCursor(const QVariant &picture)
{
    if (picture.userType() == QMetaType::QCursor)
        return picture.value<QCursor>();
    if (picture.userType() == QMetaType::QIcon) {
        const QPixmap pixmap = picture.value<QIcon>().pixmap(CustomCursorSize);
        if (!pixmap.isNull())
            return QCursor(pixmap);
    }
    return std::nullopt;
}

} // namespace

std::optional<QCursor> cursorForPointer(int pointer, const QVariant &picture)
{
    using namespace MousePointer;
    switch (pointer) {
    case Default:
        return std::nullopt;
    case Crosshair:
        return QCursor(Qt::CrossCursor);
    case IBeam:
        return QCursor(Qt::IBeamCursor);
    case SizePointer:
    case SizeAll:
        return QCursor(Qt::SizeAllCursor);
    case SizeNESW:
        return QCursor(Qt::SizeBDiagCursor);
    case SizeNS:
        return QCursor(Qt::SizeVerCursor);
    case SizeNWSE:
        return QCursor(Qt::SizeFDiagCursor);
    case SizeWE:
        return QCursor(Qt::SizeHorCursor);
    case UpArrow:
        return QCursor(Qt::UpArrowCursor);
    case Hourglass:
        return QCursor(Qt::WaitCursor);
    case NoDrop:
        return QCursor(Qt::ForbiddenCursor);
    case ArrowHourglass:
        return QCursor(Qt::BusyCursor);
    case ArrowQuestion:
        return QCursor(Qt::WhatsThisCursor);
    case Custom:
        if (auto cursor = customCursor(picture))
            return cursor;
        return QCursor(Qt::ArrowCursor);
    case Arrow:
    case IconPointer: // Qt has no icon-shaped pointer
    default:
        return QCursor(Qt::ArrowCursor);
    }
}

} // namespace OrrinQuiver
