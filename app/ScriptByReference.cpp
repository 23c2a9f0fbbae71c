#include "ScriptByReference.h"

#include <QtQml/QJSEngine>

namespace OrrinQuiver {

namespace {

// connect and disconnect live on Function.prototype, where the engine puts
// them for every signal. The wrapped handler boxes the by-reference
// arguments, calls the script's handler with the boxes and writes them back
// whatever the handler did, thrown errors included. One wrapper per handler,
// so that disconnect finds what connect made.
const char *const WrapConnect = R"((function (references) {
    var connect = Function.prototype.connect;
    var disconnect = Function.prototype.disconnect;
    var wrappers = new WeakMap();
    function wrapperOf(handler) {
        if (typeof handler !== "function")
            return handler;
        if (!wrappers.has(handler)) {
            wrappers.set(handler, function () {
                var boxes = [];
                var args = Array.prototype.map.call(arguments, function (argument) {
                    if (typeof argument !== "object" || argument === null || !references.isReference(argument))
                        return argument;
                    var box = { value: references.read(argument) };
                    boxes.push([argument, box]);
                    return box;
                });
                try {
                    return handler.apply(this, args);
                } finally {
                    boxes.forEach(function (pair) { references.write(pair[0], pair[1].value); });
                }
            });
        }
        return wrappers.get(handler);
    }
    function wrapLast(original) {
        return function () {
            var args = Array.prototype.slice.call(arguments);
            args[args.length - 1] = wrapperOf(args[args.length - 1]);
            return original.apply(this, args);
        };
    }
    Function.prototype.connect = wrapLast(connect);
    Function.prototype.disconnect = wrapLast(disconnect);
}))";

} // namespace

void ScriptByReference::install(QJSEngine &engine, QObject *parent)
{
    auto *references = new ScriptByReference(parent);
    QJSEngine::setObjectOwnership(references, QJSEngine::CppOwnership);
    engine.evaluate(QString::fromLatin1(WrapConnect)).call({ engine.newQObject(references) });
}

bool ScriptByReference::isReference(const QVariant &argument) const
{
    return argument.metaType() == QMetaType::fromType<int *>() && argument.value<int *>();
}

int ScriptByReference::read(const QVariant &argument) const
{
    return isReference(argument) ? *argument.value<int *>() : 0;
}

void ScriptByReference::write(const QVariant &argument, int value) const
{
    if (isReference(argument))
        *argument.value<int *>() = value;
}

} // namespace OrrinQuiver
