#pragma once

// Internal to the content model: not installed.

#include "model/Items.h"
#include "model/KeyedList_p.h"
#include "model/Item.h"

namespace OrrinQuiver {

// The keys Add makes: "NEW_" and what NextKey() gives, "ITEM" and the counter.
inline constexpr QStringView GeneratedItemKeyPrefix = u"NEW_ITEM";

class Items::Private
{
public:
    KeyedList<OrrinQuiver::Item> list;
    MemberHolders holders;
    Header *header = nullptr;
    ItemViewLink *view = nullptr;
    ControlLink *control = nullptr;
    int headerIndex = 0;
    QString headerKey;
    qint64 keyCounter = 0;
    // True only while Clear runs: removals then neither renumber nor re-lay-out.
    bool clearing = false;
};

} // namespace OrrinQuiver
