#pragma once

namespace OrrinQuiver {

// True when windows can appear on a screen: the environment names an X11 or
// Wayland display and does not ask for the offscreen platform.
bool hasDisplay();

// Chooses the offscreen platform when there is no display, so that the
// command runs the same on a desktop, over ssh and in CI. Call it before the
// QApplication is constructed; it changes nothing when a display exists.
void useOffscreenWithoutDisplay();

} // namespace OrrinQuiver
