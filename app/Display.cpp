#include "Display.h"

#include <QtCore/QByteArray>

namespace OrrinQuiver {

bool hasDisplay()
{
    if (qgetenv("QT_QPA_PLATFORM") == "offscreen")
        return false;
    return !qEnvironmentVariableIsEmpty("DISPLAY") || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY");
}

void useOffscreenWithoutDisplay()
{
    if (!hasDisplay())
        qputenv("QT_QPA_PLATFORM", "offscreen");
}

} // namespace OrrinQuiver
