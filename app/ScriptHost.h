#pragma once

#include "ScriptTestDriver.h"

#include <QtCore/QObject>
#include <QtCore/QSize>
#include <QtQml/QJSEngine>

#include <memory>
#include <vector>

namespace OrrinQuiver {

class ControlWindow;

// Runs a script against a new control, as an automation client would drive
// it. The script sees the globals `Quiver1` (the control), every qv...
// enumeration constant by name, `print(...)` and `Test` (ScriptTestDriver).
// Every property, method and signal of the object model is reachable by its
// own name; errors that the control raises arrive as thrown JavaScript errors
// with `number` and `message`.
class ScriptHost : public QObject
{
    Q_OBJECT

public:
    // Opens the window of `Quiver1`, whose control is `controlSize` big
    // (offscreen when there is no display).
    explicit ScriptHost(const QSize &controlSize, QObject *parent = nullptr);
    ~ScriptHost() override;

    // Runs the script in the file at `path` and gives the command's exit code:
    // 0 when it ran to its end; 1 when the file cannot be read or an error was
    // left uncaught, in the script or in one of its event handlers. The
    // uncaught error goes to stderr with its place and number.
    int run(const QString &path);

    // The scripts' print(): its arguments, joined by spaces, as one line on
    // stdout.
    Q_INVOKABLE void print(const QString &line);

private:
    ControlWindow *openWindow();
    void installGlobals();

    QSize m_controlSize;
    std::vector<std::unique_ptr<ControlWindow>> m_windows;
    std::unique_ptr<ScriptTestDriver> m_driver;
    // Last, so that it goes first: nothing outlives the objects it wraps.
    QJSEngine m_engine;
};

} // namespace OrrinQuiver
