#pragma once

#include <QtCore/QObject>
#include <QtCore/QVariant>

QT_FORWARD_DECLARE_CLASS(QJSEngine)

namespace OrrinQuiver {

// Arguments passed by reference (`int *`) reach a script's event handler as
// an object `{ value: n }`; what the handler leaves in `value` is written
// back before the signal returns, so the control reads it as a C++ slot's
// `*Effect = n`. A box kept after the handler returned changes nothing.
//
// The engine itself hands such an argument over as an opaque value; the
// script side of this (the handlers' `connect` and `disconnect` wrapped
// for every signal) asks this object to read and write through it.
class ScriptByReference : public QObject
{
    Q_OBJECT

public:
    // Makes every signal connected in `engine` from now on box its
    // by-reference arguments.
    static void install(QJSEngine &engine, QObject *parent);

    // For the script side: whether `argument` is passed by reference, its
    // value, and writing a value back through it.
    Q_INVOKABLE bool isReference(const QVariant &argument) const;
    Q_INVOKABLE int read(const QVariant &argument) const;
    Q_INVOKABLE void write(const QVariant &argument, int value) const;

private:
    using QObject::QObject;
};

} // namespace OrrinQuiver
