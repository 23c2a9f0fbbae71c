#include "core/ScriptErrors.h"

#include <QtCore/QMetaObject>
#include <QtQml/QJSEngine>

namespace OrrinQuiver {

void reportToScript(const QObject *receiver, const QuiverError &error)
{
    QJSEngine *engine = receiver ? qjsEngine(receiver) : nullptr;
    if (!engine) {
        qWarning("OrrinQuiver error %d: %s", error.Number(), qUtf8Printable(error.Description()));
        return;
    }
    QJSValue thrown = engine->newErrorObject(QJSValue::GenericError, error.Description());
    thrown.setProperty(QStringLiteral("number"), error.Number());
    engine->throwError(thrown);

    // From a running script the error unwinds at once: the script catches it
    // or ends with it. A call that came from C++ instead leaves it pending, and
    // the engine would throw it into whatever it evaluates next; once the event
    // loop runs again, an error still pending is such a stray one.
    QMetaObject::invokeMethod(
        engine,
        [engine] {
            if (engine->hasError()) {
                const QJSValue stray = engine->catchError();
                qWarning("OrrinQuiver error %d outside a script call: %s",
                         stray.property(QStringLiteral("number")).toInt(), qUtf8Printable(stray.toString()));
            }
        },
        Qt::QueuedConnection);
}

} // namespace OrrinQuiver
