#pragma once

// Internal to the content model: not installed.

#include "model/Headers.h"
#include "model/KeyedList_p.h"
#include "model/Header.h"

namespace OrrinQuiver {

class Headers::Private
{
public:
    KeyedList<Header> list;
    MemberHolders holders;
    ControlLink *control = nullptr;
    qint64 keyCounter = 0;
    // True while Clear removes all but the first header: those removals
    // neither renumber nor lay the strip out.
    bool clearing = false;
};

} // namespace OrrinQuiver
