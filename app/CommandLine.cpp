#include "CommandLine.h"

#include <QtCore/QRegularExpression>

namespace OrrinQuiver {

namespace {

// The control of a script host when --size does not say otherwise: the width
// and height a form designer gives a newly placed bar.
constexpr int DefaultControlWidth = 200;
constexpr int DefaultControlHeight = 480;

} // namespace

CommandLine::CommandLine()
    : m_sizeOption(QStringLiteral("size"), QStringLiteral("The control's size for a script (default 200x480)."),
                   QStringLiteral("WxH"))
    , m_outOption(QStringLiteral("out"),
                  QStringLiteral("demo: write the screens as PNG files into DIR instead of opening a window; "
                                 "render: the PNG file to write (default: FILE with .png)."),
                  QStringLiteral("DIR|FILE.png"))
    , m_controlSize(DefaultControlWidth, DefaultControlHeight)
{
    m_parser.setApplicationDescription(
        QStringLiteral("The Quiver navigation bar.\n\n"
                       "  demo            shows the demo window; without a display it writes its\n"
                       "                  screens as PNG files (into --out DIR, else here)\n"
                       "  script FILE.js  runs FILE.js against a new control\n"
                       "  render FILE.xml paints a new control holding the XML document FILE.xml\n"
                       "                  into a PNG file"));
    m_parser.addHelpOption();
    m_parser.addVersionOption();
    m_parser.addPositionalArgument(QStringLiteral("command"), QStringLiteral("demo, script or render."),
                                   QStringLiteral("demo|script|render"));
    m_parser.addPositionalArgument(QStringLiteral("file"), QStringLiteral("The script to run or document to render."),
                                   QStringLiteral("[FILE]"));
    m_parser.addOption(m_sizeOption);
    m_parser.addOption(m_outOption);
}

bool CommandLine::parse(const QStringList &arguments)
{
    if (!m_parser.parse(arguments))
        return fail(m_parser.errorText());
    if (m_parser.isSet(QStringLiteral("help")))
        m_parser.showHelp();
    if (m_parser.isSet(QStringLiteral("version")))
        m_parser.showVersion();

    const QStringList positional = m_parser.positionalArguments();
    const QString command = positional.value(0);
    if (command == u"demo") {
        m_command = Command::Demo;
        if (positional.size() > 1)
            return fail(QStringLiteral("demo takes no argument"));
        if (m_parser.isSet(m_sizeOption))
            return fail(QStringLiteral("--size belongs to script"));
        m_out = m_parser.value(m_outOption);
        return true;
    }
    if (command == u"script") {
        m_command = Command::Script;
        if (positional.size() != 2)
            return fail(QStringLiteral("script takes one FILE.js"));
        if (m_parser.isSet(m_outOption))
            return fail(QStringLiteral("--out belongs to demo"));
        m_file = positional.at(1);
        return readSize();
    }
    if (command == u"render") {
        m_command = Command::Render;
        if (positional.size() != 2)
            return fail(QStringLiteral("render takes one FILE.xml"));
        m_file = positional.at(1);
        m_out = m_parser.value(m_outOption);
        return readSize();
    }
    return fail(command.isEmpty() ? QStringLiteral("no command given")
                                  : QStringLiteral("unknown command \"%1\"").arg(command));
}

bool CommandLine::readSize()
{
    if (!m_parser.isSet(m_sizeOption))
        return true;
    static const QRegularExpression pattern(QStringLiteral("^(\\d{1,5})x(\\d{1,5})$"));
    const QRegularExpressionMatch match = pattern.match(m_parser.value(m_sizeOption));
    const QSize size = match.hasMatch() ? QSize(match.captured(1).toInt(), match.captured(2).toInt()) : QSize();
    if (size.isEmpty())
        return fail(QStringLiteral("--size wants WxH, for example 200x480"));
    m_controlSize = size;
    return true;
}

bool CommandLine::fail(const QString &text)
{
    m_error = text;
    return false;
}

} // namespace OrrinQuiver
