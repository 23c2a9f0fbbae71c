#pragma once

#include <QtCore/QString>

QT_FORWARD_DECLARE_CLASS(QMessageBox)

// The resources that every Quiver in the process shares. Each control counts
// itself in when it is created and out when it is destroyed; the last one out
// releases what the controls created on first use.
namespace OrrinQuiver::modQuiver {

void addInstance();
void releaseInstance();
// The number of controls alive now.
int instanceCount();

// The library's version, "major.minor.revision" in plain decimals.
QString versionText();

// The about dialog, created on first use and kept until the last control
// goes. Never null.
QMessageBox *aboutDialog();

} // namespace OrrinQuiver::modQuiver
