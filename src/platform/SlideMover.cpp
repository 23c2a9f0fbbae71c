#include "platform/SlideMover.h"

#include <cstdlib>

namespace OrrinQuiver {

namespace {

// The minimum step of a frame is this fraction of the whole distance...
constexpr int SlowStepDivisor = 10;
constexpr int FastStepDivisor = 5;
// ... plus this fraction of what is left.
constexpr int RemainderDivisor = 10;

} // namespace

SlideMover::SlideMover(const QList<int> &tops, int distance, bool up, bool fast, bool smooth)
    : m_tops(tops)
    , m_distance(up ? -distance : distance)
    , m_smooth(smooth)
    , m_finished(tops.isEmpty())
{
    if (m_finished)
        return;
    m_target = m_tops.first() + m_distance;
    m_step = std::abs(m_distance) / (fast ? FastStepDivisor : SlowStepDivisor);
    if (m_step < 1)
        m_step = 1;
}

bool SlideMover::advance()
{
    if (m_finished)
        return false;
    if (!m_smooth) {
        for (int &top : m_tops)
            top += m_distance;
        m_finished = true;
        return false;
    }
    const int lead = m_tops.first();
    int increment = m_step + std::abs(m_target - lead) / RemainderDivisor;
    if (m_distance < 0)
        increment = -increment;
    const bool arrives = m_distance < 0 ? lead + increment <= m_target : lead + increment >= m_target;
    if (!arrives) {
        for (int &top : m_tops)
            top += increment;
        return true;
    }
    // Every member ends on the leading member's target; the layout that
    // follows a slide puts each one in its own place.
    for (int &top : m_tops)
        top = m_target;
    m_finished = true;
    return false;
}

void SlideMover::finish()
{
    while (advance()) { }
}

} // namespace OrrinQuiver
