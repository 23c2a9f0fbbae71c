#pragma once

#include <QtCore/QList>

namespace OrrinQuiver {

// Moves a set of windows (header bars, or the surface that carries a
// header's items), given by their tops, by a distance in decelerating
// frames: every frame covers a fixed minimum (a tenth of the distance, or a
// fifth when fast) plus a tenth of what remains, and the last frame puts
// every member on the leading member's target. The caller applies tops()
// after each advance(), one frame per timer tick. The mover keeps its own
// copy of the tops, so a member that goes away meanwhile costs nothing.
class SlideMover
{
public:
    // `tops` are the members' tops before the slide, the leading member
    // first; `up` moves them upward. Without `smooth` the whole distance is
    // one frame. An empty set ends at once.
    SlideMover(const QList<int> &tops, int distance, bool up, bool fast, bool smooth);

    // Moves to the next frame. Returns false once the slide has ended, the
    // final tops then in place; further calls change nothing.
    bool advance();
    // Runs the remaining frames at once.
    void finish();

    bool isFinished() const { return m_finished; }
    const QList<int> &tops() const { return m_tops; }
    // Where the leading member ends.
    int target() const { return m_target; }

private:
    QList<int> m_tops;
    int m_distance = 0;
    int m_target = 0;
    int m_step = 0;
    bool m_smooth = false;
    bool m_finished = false;
};

} // namespace OrrinQuiver
