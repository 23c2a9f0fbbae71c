#include "control/HeaderSelection.h"

#include "model/Header.h"
#include "model/Headers.h"
#include "model/Item.h"
#include "model/Items.h"
#include "model/Navigation.h"

namespace OrrinQuiver {

HeaderSelection::HeaderSelection(const Headers &headers, Navigation &navigation, OpenViews &views)
    : m_headers(headers)
    , m_navigation(navigation)
    , m_views(views)
{ }

Header *HeaderSelection::openHeader() const { return m_headers.at(m_position); }

void HeaderSelection::findOpenHeader()
{
    const int count = m_headers.Count();
    for (int position = 1; position <= count; ++position) {
        if (m_views.isActive(m_headers.at(position))) {
            m_position = position;
            return;
        }
    }
    if (m_position == 0)
        return;
    // The open header itself went: a visible header near its place opens.
    m_position = visiblePositionFor(m_position);
    if (const Header *header = openHeader())
        m_views.setActive(header, true);
}

bool HeaderSelection::adopt(int position)
{
    findOpenHeader();
    if (m_position != 0)
        return false;
    m_position = position;
    return true;
}

int HeaderSelection::visiblePositionFor(int requested) const
{
    const int count = m_headers.Count();
    auto visible = [this](int position) { return m_headers.at(position)->Visible(); };
    auto lowestFrom = [&](int from) {
        for (int position = from; position <= count; ++position) {
            if (visible(position))
                return position;
        }
        return 0;
    };
    auto highestFrom = [&](int from) {
        for (int position = from; position >= 1; --position) {
            if (visible(position))
                return position;
        }
        return 0;
    };
    if (requested > count)
        return highestFrom(count);
    if (requested < 1)
        return lowestFrom(1);
    if (const int position = lowestFrom(requested))
        return position;
    // No visible header at or after the request: the nearest one before it.
    return highestFrom(requested - 1);
}

std::optional<HeaderSelection::Change> HeaderSelection::open(int requested)
{
    if (m_headers.Count() == 0)
        return std::nullopt;
    findOpenHeader();
    if (requested == m_position) {
        if (const Header *header = openHeader())
            m_views.setActive(header, true);
        return std::nullopt;
    }
    const Change change { m_position, visiblePositionFor(requested) };
    const Header *previous = openHeader();
    m_position = change.to;
    if (previous)
        m_views.setActive(previous, false);
    if (const Header *opened = openHeader())
        m_views.setActive(opened, true);
    return change;
}

bool HeaderSelection::chooseItem(qint16 index)
{
    const Header *header = openHeader();
    if (!header || index < 1 || index > header->Items()->Count())
        return false;
    m_views.setCurrentItem(header, index);
    if (!m_followingHistory) {
        if (const Item *item = header->Items()->at(index))
            m_navigation.Record(header->Key(), item->Key());
    }
    return true;
}

} // namespace OrrinQuiver
