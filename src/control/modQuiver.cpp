#include "control/modQuiver.h"

#include <QtCore/QPointer>
#include <QtWidgets/QMessageBox>

namespace OrrinQuiver::modQuiver {

namespace {

int instances = 0;
QPointer<QMessageBox> about;

} // namespace

void addInstance() { ++instances; }

void releaseInstance()
{
    if (instances > 0)
        --instances;
    if (instances > 0 || !about)
        return;
    // A dialog on screen may be running its own event loop: it goes once
    // control is back in the main loop.
    if (about->isVisible())
        about->deleteLater();
    else
        delete about;
}

int instanceCount() { return instances; }

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
