#pragma once

#include <QtCore/QCommandLineParser>
#include <QtCore/QSize>
#include <QtCore/QStringList>

namespace OrrinQuiver {

// The arguments of the quiver command:
//   quiver demo [--out DIR]
//   quiver script FILE.js [--size WxH]
//   quiver render FILE.xml [--size WxH] [--out FILE.png]
class CommandLine
{
public:
    enum class Command { Demo, Script, Render };

    CommandLine();

    // Reads `arguments` (the program name first). --help and --version print
    // and exit the process. Returns false, with errorText() saying why, for a
    // missing or unknown command, a missing or extra argument, an option the
    // command does not take and a size that is not WxH with both sides > 0.
    bool parse(const QStringList &arguments);
    QString errorText() const { return m_error; }
    QString helpText() const { return m_parser.helpText(); }

    Command command() const { return m_command; }
    // The script to run (Script) or the document to render (Render).
    QString file() const { return m_file; }
    // The control's size for a script or a rendering, 200 x 480 unless
    // --size gives one.
    QSize controlSize() const { return m_controlSize; }
    // Where the demo writes its screens, or the PNG file a rendering goes
    // to; empty when --out is not given.
    QString output() const { return m_out; }

private:
    bool fail(const QString &text);
    // Reads --size into m_controlSize; false for a value that is not WxH.
    bool readSize();

    QCommandLineParser m_parser;
    QCommandLineOption m_sizeOption;
    QCommandLineOption m_outOption;
    QString m_error;
    Command m_command = Command::Demo;
    QString m_file;
    QSize m_controlSize;
    QString m_out;
};

} // namespace OrrinQuiver
