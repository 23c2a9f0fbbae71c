#include "control/HeaderFlash.h"

#include "control/HeaderStrip.h"
#include "model/Header.h"
#include "model/Headers.h"

#include <QtCore/QTimer>

namespace OrrinQuiver {

HeaderFlash::HeaderFlash(QObject *control, const Headers &headers, HeaderStrip &strip, QTimer &timer)
    : QObject(control)
    , m_headers(headers)
    , m_strip(strip)
    , m_timer(timer)
{
    setObjectName(QStringLiteral("HeaderFlash"));
    connect(&m_timer, &QTimer::timeout, this, &HeaderFlash::tick);
}

void HeaderFlash::flash(const QString &headerKey, bool enabled)
{
    if (Header *flashing = m_key.isEmpty() ? nullptr : m_headers.withKey(m_key))
        m_strip.redrawNormal(flashing);
    if (enabled)
        m_timer.start();
    else
        m_timer.stop();
    m_key = enabled ? headerKey : QString();
}

void HeaderFlash::tick()
{
    // Stopped while the bar is drawn, so that a tick that goes wrong leaves
    // the flash ended.
    m_timer.stop();
    if (m_key.isEmpty())
        return;
    Header *header = m_headers.withKey(m_key);
    if (!header) {
        m_key.clear();
        return;
    }
    // A bar in the control's header back colour shows its normal look, and
    // the flash colours come next; any other colour (the flash colours, or a
    // colour the control's header colour no longer is) gives way to the
    // normal look.
    if (m_strip.shownBackColor(header) == m_strip.look().colors.back)
        m_strip.redrawNormal(header, header->flashColor(), header->flashTextColor());
    else
        m_strip.redrawNormal(header);
    m_timer.start();
}

} // namespace OrrinQuiver
