#pragma once

#include "core/QuiverError.h"

QT_FORWARD_DECLARE_CLASS(QObject)

namespace OrrinQuiver {

// Hands `error` to the script whose call reached `receiver` through the
// meta-object system (a property write or an invokable method): the
// receiver's QJSEngine throws a JavaScript Error whose `number` and `message`
// are the error's Number() and Description(). A receiver that no engine knows
// (a C++ host, Qt Designer) or a null receiver gets a qWarning instead. An
// error reported while no script is running is taken back out of the engine
// when control returns to the event loop, and logged. Never throws.
void reportToScript(const QObject *receiver, const QuiverError &error);

} // namespace OrrinQuiver
