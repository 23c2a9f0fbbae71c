#pragma once

#include <QtCore/QCommandLineParser>
#include <QtCore/QSize>
#include <QtCore/QStringList>

namespace OrrinQuiver {

// The arguments of the quiver command:
//   quiver demo [--out DIR]
//   quiver script FILE.js [--size WxH]
class CommandLine
{
public:
    enum class Command { Demo, Script };

    CommandLine();

    // Reads `arguments` (the program name first). --help and --version print
    // and exit the process. Returns false, with errorText() saying why, for a
    // missing or unknown command, a missing or extra argument, an option the
    // command does not take and a size that is not WxH with both sides > 0.
    bool parse(const QStringList &arguments);
    QString errorText() const { return m_error; }
    QString helpText() const { return m_parser.helpText(); }

    Command command() const { return m_command; }
    // The script to run (Script only).
    QString scriptFile() const { return m_scriptFile; }
    // The control's size for a script, 200 x 480 unless --size gives one.
    QSize controlSize() const { return m_controlSize; }
    // Where the demo writes its screens; empty when --out is not given.
    QString outputDirectory() const { return m_outputDirectory; }

private:
    bool fail(const QString &text);

    QCommandLineParser m_parser;
    QCommandLineOption m_sizeOption;
    QCommandLineOption m_outOption;
    QString m_error;
    Command m_command = Command::Demo;
    QString m_scriptFile;
    QSize m_controlSize;
    QString m_outputDirectory;
};

} // namespace OrrinQuiver
