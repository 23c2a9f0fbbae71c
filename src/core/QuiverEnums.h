#pragma once

#include "core/OrrinQuiverExport.h"

#include <QtCore/QObject>

// The public enumerations of the object model. They live in the namespace's
// meta-object so that scripts, Qt Designer and QMetaEnum see every constant by
// its qv... name. Each has int as its underlying type: properties store an
// out-of-range value as given, and every int must be a valid value then.
namespace OrrinQuiver {
Q_NAMESPACE_EXPORT(ORRINQUIVER_EXPORT)

// The five drawing styles of the bar.
enum qvStyle : int {
    qvStyleOutlook = 0,
    qvStyleWindows2000 = 1,
    qvStyleOutlookXP = 2,
    qvStyleWindowsXP = 3,
    qvStyleVisualStudio = 4,
};
Q_ENUM_NS(qvStyle)

// How a header shows its items.
enum qvViewType : int {
    qvViewLargeIcons = 0,
    qvViewSmallIcons = 1,
};
Q_ENUM_NS(qvViewType)

enum qvOLEDragMode : int {
    qvOLEDragManual = 0,
    qvOLEDragAutomatic = 1,
};
Q_ENUM_NS(qvOLEDragMode)

enum qvOLEDropMode : int {
    qvOLEDropNone = 0,
    qvOLEDropHeadersOnly = 1,
    qvOLEDropItemsOnly = 2,
    qvOLEDropHeadersItems = 3,
};
Q_ENUM_NS(qvOLEDropMode)

// Error numbers raised to the host. The two Invalid... codes are part of the
// enumeration for compatibility but no operation raises them.
enum qvError : int {
    qvErrorInvalidHeader = -2147217392,
    qvErrorInvalidItem = -2147217376,
    qvErrorXMLParserNotPresent = -2147216640,
    qvErrorXMLInvalidContent = -2147216639,
    qvErrorXMLInvalidVersion = -2147216638,
};
Q_ENUM_NS(qvError)

} // namespace OrrinQuiver
