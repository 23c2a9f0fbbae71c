#pragma once

#include "core/OleColor.h"

#include <QtCore/QString>
#include <QtCore/QStringView>
#include <QtGui/QPalette>

// The text form of colours used by the XML documents: "#RRGGBB" on writing,
// and a forgiving reader that accepts web-style names and hexadecimal texts.
namespace OrrinQuiver::modWebColorFuncs {

// "#" and six upper-case hex digits, red, green, blue. A system colour is
// first replaced by its current value in `palette` (index 0 and indices the
// desktop does not know give black), so it is written as a fixed colour.
// A value above 0xFFFFFF that is not a system colour writes its extra digits
// into the blue part rather than being cut off.
QString colorToText(OLE_COLOR color, const QPalette &palette);

// Never fails: text it cannot read gives black, and characters that are not
// hex digits inside a pair count as 0. Always a plain RGB colour.
OLE_COLOR textToColor(QStringView text);

} // namespace OrrinQuiver::modWebColorFuncs
