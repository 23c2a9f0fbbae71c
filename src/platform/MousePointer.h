#pragma once

#include "core/OrrinQuiverExport.h"

#include <QtCore/QVariant>
#include <QtGui/QCursor>

#include <optional>

namespace OrrinQuiver {

// The mouse-pointer constants of the object model (the values a host assigns
// to HeaderMousePointer and ItemMousePointer). docs/api-mapping.md lists the
// Qt cursor shape of each.
namespace MousePointer {
constexpr int Default = 0;
constexpr int Arrow = 1;
constexpr int Crosshair = 2;
constexpr int IBeam = 3;
constexpr int IconPointer = 4;
constexpr int SizePointer = 5;
constexpr int SizeNESW = 6;
constexpr int SizeNS = 7;
constexpr int SizeNWSE = 8;
constexpr int SizeWE = 9;
constexpr int UpArrow = 10;
constexpr int Hourglass = 11;
constexpr int NoDrop = 12;
constexpr int ArrowHourglass = 13;
constexpr int ArrowQuestion = 14;
constexpr int SizeAll = 15;
constexpr int Custom = 99;
} // namespace MousePointer

// The cursor that `pointer` shows; `picture` (a QCursor or QIcon) is used by
// MousePointer::Custom. No value for MousePointer::Default, which shows the
// parent's cursor. Unknown constants, and Custom without a usable picture,
// give the arrow.
ORRINQUIVER_EXPORT std::optional<QCursor> cursorForPointer(int pointer, const QVariant &picture);

} // namespace OrrinQuiver
