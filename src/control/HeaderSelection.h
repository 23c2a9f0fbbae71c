#pragma once

#include <QtCore/QString>

#include <optional>

namespace OrrinQuiver {

class Header;
class Headers;
class Navigation;

// Which header is open and which item of it is current, and the history
// entries that choosing them records; no widgets. What it needs of the item
// views it asks through OpenViews.
class HeaderSelection
{
public:
    // The item view of each header, as far as opening and choosing goes.
    class OpenViews
    {
    public:
        virtual ~OpenViews() = default;
        // A header is open while its view is active; no view counts as closed.
        virtual bool isActive(const Header *header) const = 0;
        virtual void setActive(const Header *header, bool active) = 0;
        // Makes the item at `index` the header's current item.
        virtual void setCurrentItem(const Header *header, qint16 index) = 0;
    };

    // A change of the open header: the positions before and after.
    struct Change
    {
        int from = 0;
        int to = 0;
    };

    HeaderSelection(const Headers &headers, Navigation &navigation, OpenViews &views);

    // The position of the open header; 0 while none is open.
    int position() const { return m_position; }
    Header *openHeader() const;

    // The open header is the one whose view is active. Adding, removing and
    // moving headers change its position, not which header is open; this
    // finds the position again. When the open header itself was removed, the
    // visible header nearest its place opens.
    void findOpenHeader();
    // A header being added at `position` opens when none is open: true when
    // it does. The header is not in the collection yet, so activating its
    // view is the caller's.
    bool adopt(int position);
    // The visible position that a request for `requested` opens: the first
    // visible one at or after it, else the nearest before it; requests past
    // either end count from that end. 0 when no header is visible.
    int visiblePositionFor(int requested) const;
    // Opens the visible header a request for `requested` leads to, closing
    // the one open before. Nothing changes, and nothing is returned, when
    // that is the open header (its view is made active again) or there are
    // no headers.
    std::optional<Change> open(int requested);
    // Makes the item at `index` of the open header current and records it in
    // the history, unless the history itself is being followed. False, with
    // nothing changed, for an index outside the open header's items.
    bool chooseItem(qint16 index);

    // While set, choosing records nothing: the history is moving to a place
    // it already holds.
    void setFollowingHistory(bool on) { m_followingHistory = on; }

private:
    const Headers &m_headers;
    Navigation &m_navigation;
    OpenViews &m_views;
    int m_position = 0;
    bool m_followingHistory = false;
};

} // namespace OrrinQuiver
