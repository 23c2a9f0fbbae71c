#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

QT_FORWARD_DECLARE_CLASS(QMessageBox)
QT_FORWARD_DECLARE_CLASS(QWidget)

// The resources that every Quiver in the process shares. Each control counts
// itself in when it is created and out when it is destroyed; the last one out
// releases what the controls created on first use.
namespace OrrinQuiver {

class clsDrawPictures;

namespace modQuiver {

// Counts `control` in: takes the scroll-bar width from its style, and makes
// the shared picture-effects object when it is the first control.
void addInstance(const QWidget *control);
// Counts a control out; the last one releases the picture-effects object and
// the about dialog. Extra calls are ignored.
void releaseInstance();
// The number of controls alive now.
int instanceCount();

// The width of a vertical scroll bar in the style of the control made last,
// in pixels; 0 before any control was made.
int scrollBarWidth();

// The picture effects every control draws with; null while no control lives.
clsDrawPictures *pictureEffects();

// The built-in header click: the FOLDER_SOUND wave file, shared, not copied.
QByteArray folderSound();

// The library's version, "major.minor.revision" in plain decimals.
QString versionText();

// The about dialog, created on first use and kept until the last control
// goes. Never null.
QMessageBox *aboutDialog();

} // namespace modQuiver
} // namespace OrrinQuiver
