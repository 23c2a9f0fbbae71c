#include "control/modQuiver.h"

#include "imaging/clsDrawPictures.h"

#include <QtCore/QPointer>
#include <QtCore/QResource>
#include <QtWidgets/QMessageBox>
#include <QtWidgets/QStyle>
#include <QtWidgets/QWidget>

#include <memory>

// The library's resources (the folder sound) are compiled into it; a program
// that links its objects statically keeps them only through this call.
static void initLibraryResources() { Q_INIT_RESOURCE(sounds); }

namespace OrrinQuiver::modQuiver {

namespace {

int instances = 0;
int scrollBarExtent = 0;
std::unique_ptr<clsDrawPictures> effects;
QPointer<QMessageBox> about;

// Where the library keeps its built-in header click (control/resources/sounds.qrc).
const QString FolderSoundResource = QStringLiteral(":/OrrinQuiver/FOLDER_SOUND");

} // namespace

void addInstance(const QWidget *control)
{
    initLibraryResources();
    scrollBarExtent = control->style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, control);
    ++instances;
    if (!effects)
        effects = std::make_unique<clsDrawPictures>();
}

void releaseInstance()
{
    if (instances > 0)
        --instances;
    if (instances > 0)
        return;
    effects.reset();
    if (!about)
        return;
    // A dialog on screen may be running its own event loop: it goes once
    // control is back in the main loop.
    if (about->isVisible())
        about->deleteLater();
    else
        delete about;
}

int instanceCount() { return instances; }

int scrollBarWidth() { return scrollBarExtent; }

clsDrawPictures *pictureEffects() { return effects.get(); }

QByteArray folderSound() { return QResource(FolderSoundResource).uncompressedData(); }

QString versionText()
{
    return QStringLiteral("%1.%2.%3")
        .arg(ORRINQUIVER_VERSION_MAJOR)
        .arg(ORRINQUIVER_VERSION_MINOR)
        .arg(ORRINQUIVER_VERSION_PATCH);
}

QMessageBox *aboutDialog()
{
    if (!about) {
        about = new QMessageBox(
            QMessageBox::Information, QStringLiteral("About OrrinQuiver"),
            QStringLiteral("OrrinQuiver %1\nAn Outlook-style navigation bar for Qt.").arg(versionText()),
            QMessageBox::Ok);
    }
    return about;
}

} // namespace OrrinQuiver::modQuiver
