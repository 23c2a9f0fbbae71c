#pragma once

#include <QtCore/qcompilerdetection.h>

// The library is built with every symbol hidden; what a host may reach is
// marked ORRINQUIVER_EXPORT. The library's own code is compiled with
// ORRINQUIVER_LIBRARY defined.
#if defined(ORRINQUIVER_LIBRARY)
#define ORRINQUIVER_EXPORT Q_DECL_EXPORT
#else
#define ORRINQUIVER_EXPORT Q_DECL_IMPORT
#endif
