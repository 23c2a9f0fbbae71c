#include "ScriptTestDriver.h"

#include "control/Quiver.h"
#include "serialize/MemoryPropertyBag.h"

#include <QtCore/QMetaEnum>
#include <QtGui/QGuiApplication>
#include <QtGui/QImage>
#include <QtGui/QStyleHints>
#include <QtGui/QWindow>
#include <QtQml/QJSEngine>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>

namespace OrrinQuiver {

namespace {

// The buttons a script may name: the values of Qt::MouseButton, which are also
// the button numbers of the control's mouse events.
constexpr int AllButtons = Qt::LeftButton | Qt::RightButton | Qt::MiddleButton;
constexpr int HeldButtons = -1;

} // namespace

ScriptTestDriver::ScriptTestDriver(QWidget *target, ControlFactory newControl, QObject *parent)
    : QObject(parent)
    , m_target(target)
    , m_newControl(std::move(newControl))
{
}

void ScriptTestDriver::wait(int ms)
{
    if (ms > 0)
        QTest::qWait(ms);
}

void ScriptTestDriver::press(int x, int y, int button)
{
    if (!validButton(button))
        return;
    const auto b = Qt::MouseButton(button);
    sendMouse(QEvent::MouseButtonPress, QPoint(x, y), b, m_held | b);
}

void ScriptTestDriver::release(int x, int y, int button)
{
    if (!validButton(button))
        return;
    const auto b = Qt::MouseButton(button);
    sendMouse(QEvent::MouseButtonRelease, QPoint(x, y), b, m_held & ~Qt::MouseButtons(b));
}

void ScriptTestDriver::click(int x, int y, int button)
{
    if (!validButton(button))
        return;
    const auto b = Qt::MouseButton(button);
    if (sendMouse(QEvent::MouseButtonPress, QPoint(x, y), b, m_held | b))
        sendMouse(QEvent::MouseButtonRelease, QPoint(x, y), b, m_held & ~Qt::MouseButtons(b));
}

void ScriptTestDriver::move(int x, int y, int buttons)
{
    if (buttons != HeldButtons && (buttons & ~AllButtons) != 0) {
        fail(QStringLiteral("Test.move: %1 is not a sum of the buttons 1, 2 and 4").arg(buttons));
        return;
    }
    const Qt::MouseButtons held = buttons == HeldButtons ? m_held : Qt::MouseButtons(buttons);
    sendMouse(QEvent::MouseMove, QPoint(x, y), Qt::NoButton, held);
}

void ScriptTestDriver::wheel(int x, int y, int delta)
{
    QWidget *window = m_target ? m_target->window() : nullptr;
    QWindow *handle = window ? window->windowHandle() : nullptr;
    if (!handle) {
        fail(QStringLiteral("Test.wheel: the control is not shown"));
        return;
    }
    const QPointF local = m_target->mapTo(window, QPointF(x, y));
    QWheelEvent event(local, handle->mapToGlobal(local), QPoint(), QPoint(0, delta), m_held,
                      QGuiApplication::keyboardModifiers(), Qt::NoScrollPhase, false);
    // The window hands the event to the widget under the point; marked as
    // coming from the window system, it then goes on to the parents while no
    // widget takes it (QCoreApplication::sendEvent would clear that mark).
    QSpontaneKeyEvent::setSpontaneous(&event);
    qApp->notify(handle, &event);
    QCoreApplication::processEvents();
}

void ScriptTestDriver::key(const QString &name, const QString &modifiers)
{
    const QString keyName = name.size() == 1 ? name.toUpper() : name;
    bool known = false;
    const int code = QMetaEnum::fromType<Qt::Key>().keyToValue((QStringLiteral("Key_") + keyName).toLatin1().constData(), &known);
    if (!known || name.isEmpty()) {
        fail(QStringLiteral("Test.key: unknown key \"%1\"").arg(name));
        return;
    }
    Qt::KeyboardModifiers mods;
    for (const QString &part : modifiers.split(u'+', Qt::SkipEmptyParts)) {
        const QString modifier = part.trimmed().toLower();
        if (modifier == u"ctrl")
            mods |= Qt::ControlModifier;
        else if (modifier == u"shift")
            mods |= Qt::ShiftModifier;
        else if (modifier == u"alt")
            mods |= Qt::AltModifier;
        else if (modifier == u"meta")
            mods |= Qt::MetaModifier;
        else {
            fail(QStringLiteral("Test.key: unknown modifier \"%1\"").arg(part));
            return;
        }
    }
    QWindow *window = m_target ? m_target->window()->windowHandle() : nullptr;
    if (!window) {
        fail(QStringLiteral("Test.key: the control is not shown"));
        return;
    }
    // The text a keyboard would type with the key: QTest's own, in capitals
    // when Shift is held.
    const char ascii = QTest::keyToAscii(Qt::Key(code));
    const QString text = ascii ? QString(QLatin1Char(ascii)) : QString();
    QTest::sendKeyEvent(QTest::Click, window, Qt::Key(code), mods & Qt::ShiftModifier ? text.toUpper() : text, mods);
}

QJSValue ScriptTestDriver::arrow(int index)
{
    if (index != 0 && index != 1) {
        fail(QStringLiteral("Test.arrow: %1 is not an arrow (0 or 1)").arg(index));
        return QJSValue::UndefinedValue;
    }
    QJSEngine *engine = qjsEngine(this);
    const QWidget *button
        = m_target ? m_target->findChild<QWidget *>(QStringLiteral("picArrows%1").arg(index)) : nullptr;
    if (!engine || !button || !button->isVisibleTo(m_target))
        return QJSValue::NullValue;
    QJSValue rect = engine->newObject();
    rect.setProperty(QStringLiteral("x"), button->x());
    rect.setProperty(QStringLiteral("y"), button->y());
    rect.setProperty(QStringLiteral("width"), button->width());
    rect.setProperty(QStringLiteral("height"), button->height());
    return rect;
}

QJSValue ScriptTestDriver::pixel(int x, int y)
{
    if (!m_target || !m_target->rect().contains(x, y)) {
        fail(QStringLiteral("Test.pixel: (%1, %2) is not on the control").arg(x).arg(y));
        return QJSValue::UndefinedValue;
    }
    // Painted at one device pixel per pixel, whatever the screen's ratio.
    QImage picture(m_target->size(), QImage::Format_RGB32);
    m_target->render(&picture);
    const QRgb rgb = picture.pixel(x, y);
    return QJSValue(int(qRed(rgb) | (qGreen(rgb) << 8) | (qBlue(rgb) << 16)));
}

void ScriptTestDriver::grab(const QString &path)
{
    if (!m_target) {
        fail(QStringLiteral("Test.grab: the control is gone"));
        return;
    }
    if (!m_target->grab().save(path, "PNG"))
        fail(QStringLiteral("Test.grab: cannot write \"%1\"").arg(path));
}

void ScriptTestDriver::resize(int width, int height)
{
    if (width <= 0 || height <= 0) {
        fail(QStringLiteral("Test.resize: %1 x %2 is not a size").arg(width).arg(height));
        return;
    }
    if (!m_target) {
        fail(QStringLiteral("Test.resize: the control is gone"));
        return;
    }
    // The control fills its window, so the window grows by what the control
    // has to grow.
    QWidget *window = m_target->window();
    const QSize wanted(width, height);
    if (window != m_target)
        window->resize(window->size() - m_target->size() + wanted);
    m_target->resize(wanted);
    QCoreApplication::processEvents();
}

QWidget *ScriptTestDriver::newControl()
{
    QWidget *control = m_newControl();
    QJSEngine::setObjectOwnership(control, QJSEngine::CppOwnership);
    return control;
}

QVariantMap ScriptTestDriver::writeProperties(QObject *control)
{
    const auto *quiver = qobject_cast<const Quiver *>(control);
    if (!quiver) {
        fail(QStringLiteral("Test.writeProperties: the argument is not a control"));
        return {};
    }
    MemoryPropertyBag bag;
    quiver->WriteProperties(bag);
    return bag.toVariantMap();
}

QWidget *ScriptTestDriver::readProperties(const QVariantMap &bag)
{
    auto control = std::make_unique<Quiver>();
    control->ReadProperties(MemoryPropertyBag(bag));
    if (m_target)
        control->resize(m_target->size());
    control->show();
    QJSEngine::setObjectOwnership(control.get(), QJSEngine::CppOwnership);
    m_restored.push_back(std::move(control));
    return m_restored.back().get();
}

bool ScriptTestDriver::sendMouse(QEvent::Type type, QPoint pos, Qt::MouseButton button, Qt::MouseButtons buttons)
{
    QWidget *window = m_target ? m_target->window() : nullptr;
    QWindow *handle = window ? window->windowHandle() : nullptr;
    if (!handle) {
        fail(QStringLiteral("Test: the control is not shown"));
        return false;
    }
    const QPoint local = m_target->mapTo(window, pos);
    // Event times run on a clock of their own: one step per event, and a
    // double-click interval after every release, so that two clicks never
    // make a double click by accident.
    ++m_timestamp;
    qt_handleMouseEvent(handle, local, handle->mapToGlobal(local), buttons, button, type,
                        QGuiApplication::keyboardModifiers(), m_timestamp);
    if (type == QEvent::MouseButtonRelease)
        m_timestamp += QGuiApplication::styleHints()->mouseDoubleClickInterval() + 1;
    m_held = buttons;
    QCoreApplication::processEvents();
    return true;
}

bool ScriptTestDriver::validButton(int button)
{
    if (button == Qt::LeftButton || button == Qt::RightButton || button == Qt::MiddleButton)
        return true;
    fail(QStringLiteral("Test: %1 is not a button (1 left, 2 right, 4 middle)").arg(button));
    return false;
}

void ScriptTestDriver::fail(const QString &message)
{
    if (QJSEngine *engine = qjsEngine(this))
        engine->throwError(QJSValue::GenericError, message);
    else
        qWarning("%s", qUtf8Printable(message));
}

} // namespace OrrinQuiver
