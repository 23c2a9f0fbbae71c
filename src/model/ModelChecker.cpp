#include "model/ModelChecker.h"

#include "model/Header.h"
#include "model/Headers.h"
#include "model/Item.h"
#include "model/Items.h"
#include "model/Headers_p.h"
#include "model/Items_p.h"

#include <QtCore/QSet>

namespace OrrinQuiver {

namespace {

// Cached indexes against positions: a difference is allowed only where a
// deliberate early stop of renumbering left it (the member says so).
template<typename T>
void checkPositions(const QString &what, T *const *first, T *const *last, QStringList &problems)
{
    int position = 0;
    for (T *const *it = first; it != last; ++it) {
        ++position;
        const T *member = *it;
        if (!member) {
            problems << QStringLiteral("%1 %2: null member").arg(what).arg(position);
            continue;
        }
        if (member->Index() != position && !member->indexMayLag())
            problems << QStringLiteral("%1 %2 (\"%3\"): Index %4").arg(what).arg(position).arg(member->Key()).arg(member->Index());
        if (member->Key().isEmpty())
            problems << QStringLiteral("%1 %2: empty key").arg(what).arg(position);
    }
}

} // namespace

QStringList checkItems(const Items &items)
{
    QStringList problems;
    checkPositions(QStringLiteral("item"), items.begin(), items.end(), problems);
    problems += items.d->list.tableProblems();
    QSet<int> viewIds;
    for (const Item *item : items) {
        if (!item)
            continue;
        if (item->collection() != &items)
            problems << QStringLiteral("item \"%1\" does not point back to its collection").arg(item->Key());
        if (item->viewId() == -1)
            continue;
        if (viewIds.contains(item->viewId()))
            problems << QStringLiteral("view id %1 is used twice").arg(item->viewId());
        viewIds.insert(item->viewId());
    }
    return problems;
}

QStringList checkModel(const Headers &headers)
{
    QStringList problems;
    checkPositions(QStringLiteral("header"), headers.begin(), headers.end(), problems);
    problems += headers.d->list.tableProblems();
    QSet<int> barIds;
    for (const Header *header : headers) {
        if (!header)
            continue;
        const QString name = header->Key();
        if (header->collection() != &headers)
            problems << QStringLiteral("header \"%1\" does not point back to its collection").arg(name);
        if (header->barId() > 0) {
            if (barIds.contains(header->barId()))
                problems << QStringLiteral("bar id %1 is used twice").arg(header->barId());
            barIds.insert(header->barId());
        }
        const Items *items = header->Items();
        if (items->header() != header)
            problems << QStringLiteral("the items of header \"%1\" name another owner").arg(name);
        // The owner's key always reaches the items; its position does not
        // after the strip renumbers headers, so that is not checked.
        if (items->headerKey() != header->Key())
            problems << QStringLiteral("the items of header \"%1\" keep the header key \"%2\"").arg(name, items->headerKey());
        if (items->itemView() != header->itemView() || items->control() != headers.control())
            problems << QStringLiteral("the items of header \"%1\" are linked elsewhere").arg(name);
        for (const QString &problem : checkItems(*items))
            problems << QStringLiteral("header \"%1\": %2").arg(name, problem);
    }
    return problems;
}

} // namespace OrrinQuiver
