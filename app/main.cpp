// The quiver command: the demo, the script host and the renderer.
#include "CommandLine.h"
#include "Demo.h"
#include "Display.h"
#include "Render.h"
#include "ScriptHost.h"

#include <QtCore/QDir>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>

#include <cstdio>

using namespace OrrinQuiver;

namespace {

// A window where there is a display and no --out; else the screens as PNG
// files, whose paths are printed.
int runDemo(const QString &outputDirectory)
{
    Demo demo;
    demo.show();
    if (hasDisplay() && outputDirectory.isEmpty())
        return QApplication::exec();

    const QString directory = outputDirectory.isEmpty() ? QDir::currentPath() : outputDirectory;
    if (!QTest::qWaitForWindowExposed(&demo)) {
        std::fprintf(stderr, "quiver: the demo window was not shown\n");
        return 1;
    }
    const QStringList files = demo.renderScreens(directory);
    if (files.isEmpty()) {
        std::fprintf(stderr, "quiver: cannot write the demo screens into %s\n", qUtf8Printable(directory));
        return 1;
    }
    for (const QString &file : files)
        std::printf("%s\n", qUtf8Printable(QDir::toNativeSeparators(file)));
    return 0;
}

} // namespace

int main(int argc, char **argv)
{
    useOffscreenWithoutDisplay();
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("quiver"));
    QApplication::setApplicationVersion(QStringLiteral(QUIVER_VERSION));

    CommandLine commandLine;
    if (!commandLine.parse(QApplication::arguments())) {
        std::fprintf(stderr, "quiver: %s\n\n%s", qUtf8Printable(commandLine.errorText()),
                     qUtf8Printable(commandLine.helpText()));
        return 2;
    }
    switch (commandLine.command()) {
    case CommandLine::Command::Demo:
        return runDemo(commandLine.output());
    case CommandLine::Command::Script:
        return ScriptHost(commandLine.controlSize()).run(commandLine.file());
    case CommandLine::Command::Render:
        return renderDocument(commandLine.file(), commandLine.controlSize(), commandLine.output());
    }
    return 2;
}
