#pragma once

#include <QtCore/QtGlobal>

QT_FORWARD_DECLARE_CLASS(QScreen)

namespace OrrinQuiver {

// The time between two frames of a slide, in milliseconds: one refresh of a
// display that refreshes `refreshRate` times a second, rounded up so that no
// two frames fall into one refresh and every frame is seen. A rate that is
// not a positive number counts as 60; a very low one still gives at most
// 50 milliseconds, so that a slide never crawls.
int slideFrameInterval(qreal refreshRate);
// The same for the refresh rate of `screen`; 60 per second for none.
int slideFrameInterval(const QScreen *screen);

} // namespace OrrinQuiver
