#include "platform/FrameInterval.h"

#include <QtGui/QScreen>

#include <algorithm>
#include <cmath>

namespace OrrinQuiver {

namespace {

// What a display that reports no rate is taken to refresh at, per second.
constexpr qreal FallbackRefreshRate = 60;
// The longest frame interval, in milliseconds.
constexpr int SlowestFrameInterval = 50;

} // namespace

int slideFrameInterval(qreal refreshRate)
{
    // The negated comparison also catches a NaN.
    if (!(refreshRate > 0) || std::isinf(refreshRate))
        refreshRate = FallbackRefreshRate;
    const qreal milliseconds = std::ceil(1000 / refreshRate);
    return int(std::clamp<qreal>(milliseconds, 1, SlowestFrameInterval));
}

int slideFrameInterval(const QScreen *screen)
{
    return slideFrameInterval(screen ? screen->refreshRate() : FallbackRefreshRate);
}

} // namespace OrrinQuiver
