#include "vantro/cli/Terminal.h"

#include <langinfo.h>
#include <unistd.h>

#include <cstdio>
#include <string_view>

namespace vantro {

bool terminal::outputIsTerminal()
{
    return isatty(STDOUT_FILENO) != 0;
}

bool terminal::errorIsTerminal()
{
    return isatty(STDERR_FILENO) != 0;
}

void terminal::writeLine(const QString& line)
{
    std::fprintf(stdout, "%s\n", qUtf8Printable(line));
    std::fflush(stdout);
}

void terminal::writeError(const QString& text)
{
    showProgress({});
    std::fprintf(stderr, "vantro: %s\n", qUtf8Printable(text));
}

void terminal::writeMessage(const QString& line)
{
    std::fprintf(stderr, "%s\n", qUtf8Printable(line));
}

QString terminal::bar(int filled, int cells)
{
    static const bool isUtf8 = std::string_view(nl_langinfo(CODESET)) == "UTF-8";
    const QChar full = isUtf8 ? QChar(0x2588) : QLatin1Char('#');
    const QChar empty = isUtf8 ? QChar(0x2591) : QLatin1Char('.');
    return QString(filled, full) + QString(cells - filled, empty);
}

void terminal::showProgress(const QString& text)
{
    if (!errorIsTerminal())
        return;
    std::fprintf(stderr, "\r\033[K%s", qUtf8Printable(text));
    std::fflush(stderr);
}

void terminal::addHelpOption(QCommandLineParser& parser)
{
    parser.addOption({{QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("Show this text.")});
}

QString terminal::helpText(const QCommandLineParser& parser, const QString& command)
{
    const QString text = parser.helpText().trimmed();
    // The first line begins with this program's path.
    const auto options = text.indexOf(QLatin1String(" [options]"));
    return QStringLiteral("Usage: vantro ") + command + (options >= 0 ? text.mid(options) : text);
}

} // namespace vantro
