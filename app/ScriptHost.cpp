#include "ScriptHost.h"

#include "ControlWindow.h"
#include "ScriptByReference.h"
#include "control/Quiver.h"
#include "core/QuiverEnums.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QMetaEnum>
#include <QtCore/QUrl>
#include <QtTest/QTest>

#include <cstdio>

namespace OrrinQuiver {

namespace {

// An error thrown in an event handler does not reach the script that
// connected it: the engine reports it as a warning placed in the script's
// file. While a script runs, such warnings are noted so that they fail it.
QString watchedScriptUrl;
bool handlerFailed = false;
QtMessageHandler previousHandler = nullptr;

void noteScriptWarnings(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    if (type == QtWarningMsg && context.file && QString::fromUtf8(context.file) == watchedScriptUrl)
        handlerFailed = true;
    previousHandler(type, context, message);
}

// The JavaScript side of print(): every argument as text, joined by spaces.
const char *const PrintFunction = R"((function (host) {
    return function () { host.print(Array.prototype.map.call(arguments, String).join(" ")); };
}))";

} // namespace

ScriptHost::ScriptHost(const QSize &controlSize, QObject *parent)
    : QObject(parent)
    , m_controlSize(controlSize)
{
    Quiver *first = openWindow()->control();
    m_driver = std::make_unique<ScriptTestDriver>(first, [this] { return openWindow()->control(); });
    installGlobals();
}

ScriptHost::~ScriptHost() = default;

int ScriptHost::run(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        std::fprintf(stderr, "quiver: cannot read %s: %s\n", qUtf8Printable(path),
                     qUtf8Printable(file.errorString()));
        return 1;
    }
    const QString source = QString::fromUtf8(file.readAll());
    const QString absolutePath = QFileInfo(path).absoluteFilePath();

    watchedScriptUrl = QUrl::fromLocalFile(absolutePath).toString();
    handlerFailed = false;
    previousHandler = qInstallMessageHandler(noteScriptWarnings);
    const QJSValue result = m_engine.evaluate(source, absolutePath, 1);
    qInstallMessageHandler(previousHandler);
    std::fflush(stdout);

    if (result.isError()) {
        const QJSValue number = result.property(QStringLiteral("number"));
        const QString suffix = number.isUndefined() ? QString() : QStringLiteral(" (number %1)").arg(number.toString());
        std::fprintf(stderr, "%s:%d: %s%s\n", qUtf8Printable(path),
                     result.property(QStringLiteral("lineNumber")).toInt(), qUtf8Printable(result.toString()),
                     qUtf8Printable(suffix));
        // The way there, when the error came from inside a function.
        const QStringList frames = result.property(QStringLiteral("stack")).toString().split(u'\n');
        if (frames.size() > 1) {
            for (const QString &frame : frames)
                std::fprintf(stderr, "    %s\n", qUtf8Printable(frame));
        }
        return 1;
    }
    return handlerFailed ? 1 : 0;
}

void ScriptHost::print(const QString &line)
{
    std::fputs(qUtf8Printable(line + u'\n'), stdout);
    std::fflush(stdout);
}

ControlWindow *ScriptHost::openWindow()
{
    auto window = std::make_unique<ControlWindow>(m_controlSize);
    window->setWindowTitle(QStringLiteral("Quiver%1").arg(m_windows.size() + 1));
    window->show();
    window->activateWindow();
    if (!QTest::qWaitForWindowExposed(window.get()))
        std::fprintf(stderr, "quiver: the control's window was not shown\n");
    QJSEngine::setObjectOwnership(window->control(), QJSEngine::CppOwnership);
    m_windows.push_back(std::move(window));
    return m_windows.back().get();
}

void ScriptHost::installGlobals()
{
    m_engine.installExtensions(QJSEngine::GarbageCollectionExtension);
    ScriptByReference::install(m_engine, this);
    QJSValue global = m_engine.globalObject();

    QJSEngine::setObjectOwnership(this, QJSEngine::CppOwnership);
    QJSEngine::setObjectOwnership(m_driver.get(), QJSEngine::CppOwnership);
    global.setProperty(QStringLiteral("Quiver1"), m_engine.newQObject(m_windows.front()->control()));
    global.setProperty(QStringLiteral("Test"), m_engine.newQObject(m_driver.get()));
    global.setProperty(QStringLiteral("print"),
                       m_engine.evaluate(QString::fromLatin1(PrintFunction)).call({m_engine.newQObject(this)}));

    const QMetaObject &enumerations = OrrinQuiver::staticMetaObject;
    for (int e = enumerations.enumeratorOffset(); e < enumerations.enumeratorCount(); ++e) {
        const QMetaEnum enumeration = enumerations.enumerator(e);
        for (int k = 0; k < enumeration.keyCount(); ++k)
            global.setProperty(QString::fromLatin1(enumeration.key(k)), enumeration.value(k));
    }
}

} // namespace OrrinQuiver
