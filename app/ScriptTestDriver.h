#pragma once

#include <QtCore/QEvent>
#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtQml/QJSValue>
#include <QtWidgets/QWidget>

#include <functional>
#include <memory>
#include <vector>

namespace OrrinQuiver {

// The `Test` object of a script: it runs the event loop and sends real input
// events to the target control, at the control's own coordinates, the way a
// user's mouse and keyboard would. Mouse events enter through the control's
// window, so the child widget under the point receives them, with enter and
// leave events and the implicit grab of a pressed button. Buttons are the
// numbers 1 (left), 2 (right) and 4 (middle). Bad arguments throw a JavaScript
// Error into the calling script (a qWarning when no script is calling) and
// send nothing.
class ScriptTestDriver : public QObject
{
    Q_OBJECT

public:
    // Makes another control in its own window and returns it.
    using ControlFactory = std::function<QWidget *()>;

    ScriptTestDriver(QWidget *target, ControlFactory newControl, QObject *parent = nullptr);

    // Runs the event loop for `ms` milliseconds (none for ms <= 0).
    Q_INVOKABLE void wait(int ms);
    // Presses, releases or clicks one button at (x, y).
    Q_INVOKABLE void press(int x, int y, int button = 1);
    Q_INVOKABLE void release(int x, int y, int button = 1);
    Q_INVOKABLE void click(int x, int y, int button = 1);
    // Moves the mouse to (x, y) holding `buttons` (a sum of button numbers);
    // -1 keeps the buttons that press() left down.
    Q_INVOKABLE void move(int x, int y, int buttons = -1);
    // Turns the wheel at (x, y) by `delta` (120 per notch, positive away from
    // the user); the widget under the point gets it, and its parents when it
    // does not take it.
    Q_INVOKABLE void wheel(int x, int y, int delta);
    // Presses and releases a key in the focus widget of the control's window.
    // `name` is a Qt key name without "Key_" ("Down", "PageUp", "Return",
    // "F2", "A"); `modifiers` joins "Ctrl", "Shift", "Alt", "Meta" with "+".
    Q_INVOKABLE void key(const QString &name, const QString &modifiers = {});
    // The rectangle {x, y, width, height} of scroll arrow `index` (0 or 1)
    // in the control's coordinates while it is shown; null while it is
    // hidden. Another index throws.
    Q_INVOKABLE QJSValue arrow(int index);
    // The colour at (x, y) of the control as it is painted now, as a number
    // 0xBBGGRR; a point outside the control throws.
    Q_INVOKABLE QJSValue pixel(int x, int y);
    // Saves a PNG picture of the control.
    Q_INVOKABLE void grab(const QString &path);
    // Resizes the control (its window follows); both sides must be positive.
    Q_INVOKABLE void resize(int width, int height);
    // Another new control in its own window; input still goes to the target.
    Q_INVOKABLE QWidget *newControl();
    // A plain object holding exactly the names and values that `control`
    // stores when it saves itself into a property bag. Not a control: throws.
    Q_INVOKABLE QVariantMap writeProperties(QObject *control);
    // A new control in its own window, restored from such an object as a
    // loaded control is, then shown. Values the bag cannot read take their
    // defaults. Input still goes to the target.
    Q_INVOKABLE QWidget *readProperties(const QVariantMap &bag);

private:
    // False, after throwing, when the control has no window on screen.
    bool sendMouse(QEvent::Type type, QPoint pos, Qt::MouseButton button, Qt::MouseButtons buttons);
    bool validButton(int button);
    void fail(const QString &message);

    QPointer<QWidget> m_target;
    ControlFactory m_newControl;
    std::vector<std::unique_ptr<QWidget>> m_restored;
    Qt::MouseButtons m_held;
    int m_timestamp = 0;
};

} // namespace OrrinQuiver
