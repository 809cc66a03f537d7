#include "vantro/cli/Terminal.h"

#include "vantro/cli/Command.h"

#include <QJsonDocument>

#include <langinfo.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <cstdio>
#include <string_view>

namespace vantro {

namespace {

constexpr int defaultWidth = 80;

} // namespace

bool terminal::outputIsTerminal()
{
    return isatty(STDOUT_FILENO) != 0;
}

bool terminal::errorIsTerminal()
{
    return isatty(STDERR_FILENO) != 0;
}

bool terminal::canAsk()
{
    return isatty(STDIN_FILENO) != 0 && errorIsTerminal();
}

int terminal::outputWidth()
{
    struct winsize size = {};
    if (ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_col == 0)
        return defaultWidth;
    return size.ws_col;
}

bool terminal::hasOutputFailed()
{
    return std::ferror(stdout) != 0;
}

void terminal::writeLine(const QString& line)
{
    // The text may contain NUL, so no C string functions.
    const QByteArray bytes = line.toUtf8() + '\n';
    std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), stdout);
    std::fflush(stdout);
}

void terminal::writeJson(const QJsonObject& object)
{
    writeLine(QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact)));
}

void terminal::writeJson(const QJsonArray& array)
{
    writeLine(QString::fromUtf8(QJsonDocument(array).toJson(QJsonDocument::Compact)));
}

bool terminal::ask(const QString& question)
{
    //: What is typed for yes, in lower case, and the choice after a question.
    const QString yes = Command::tr("y");
    std::fprintf(stderr, "%s %s ", qUtf8Printable(question), qUtf8Printable(Command::tr("[y/N]")));
    std::fflush(stderr);
    std::array<char, 16> answer{};
    if (std::fgets(answer.data(), static_cast<int>(answer.size()), stdin) == nullptr)
        return false;
    const QString typed = QString::fromLocal8Bit(answer.data()).toLower();
    return typed.startsWith(QLatin1Char('y')) || typed.startsWith(yes);
}

QString terminal::printable(const QString& text)
{
    QString result = text;
    for (QChar& character : result) {
        if (character.category() == QChar::Other_Control && character != QLatin1Char('\n') &&
            character != QLatin1Char('\t'))
            character = QLatin1Char(' ');
    }
    return result;
}

QString terminal::singleLine(const QString& text)
{
    return printable(text).simplified();
}

QString terminal::elided(const QString& text, qsizetype columns)
{
    if (text.size() <= columns)
        return text;
    QString cut = text.left(std::max<qsizetype>(columns - 1, 1));
    if (cut.back().isHighSurrogate())
        cut.chop(1);
    return cut + QChar(0x2026);
}

void terminal::writeError(const QString& text)
{
    showProgress({});
    const char* name = errorIsTerminal() && wantsColour() ? "\033[1;31mvantro:\033[0m" : "vantro:";
    std::fprintf(stderr, "%s %s\n", name, qUtf8Printable(text));
}

bool terminal::wantsColour()
{
    return qEnvironmentVariableIsEmpty("NO_COLOR") && qEnvironmentVariable("TERM") != QLatin1String("dumb");
}

QString terminal::bold(const QString& text)
{
    return outputIsTerminal() && wantsColour() ? QStringLiteral("\033[1m%1\033[0m").arg(text) : text;
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

namespace {

/// Puts the terminal into raw mode without echo for its lifetime.
class HiddenTyping
{
public:
    HiddenTyping() : isTyped_(terminal::inputIsTerminal() && tcgetattr(STDIN_FILENO, &shown_) == 0)
    {
        termios hidden = shown_;
        // Ctrl-C arrives as a character, since ending the process here would leave the terminal without echo.
        hidden.c_lflag &= ~static_cast<tcflag_t>(ECHO | ICANON | ISIG);
        if (isTyped_)
            tcsetattr(STDIN_FILENO, TCSAFLUSH, &hidden);
    }
    ~HiddenTyping()
    {
        if (!isTyped_)
            return;
        tcsetattr(STDIN_FILENO, TCSAFLUSH, &shown_);
        std::fputc('\n', stderr);
    }
    HiddenTyping(const HiddenTyping&) = delete;
    HiddenTyping& operator=(const HiddenTyping&) = delete;

    [[nodiscard]] bool isTyped() const { return isTyped_; }

private:
    termios shown_{};
    bool isTyped_;
};

constexpr int interrupt = 3;
constexpr int endOfInput = 4;
constexpr int backspace = 8;
constexpr int erase = 127;

} // namespace

std::optional<QString> terminal::readSecret(const QString& prompt)
{
    QByteArray line;
    bool isInterrupted = false;
    {
        const HiddenTyping typing;
        if (typing.isTyped())
            std::fprintf(stderr, "%s", qUtf8Printable(prompt));
        for (int c = std::getc(stdin); c != EOF && c != '\n' && c != '\r'; c = std::getc(stdin)) {
            if (typing.isTyped() && c == interrupt)
                isInterrupted = true;
            if (typing.isTyped() && (c == interrupt || c == endOfInput))
                break;
            if (typing.isTyped() && (c == backspace || c == erase))
                line.chop(1);
            else
                line += static_cast<char>(c);
        }
    }
    if (isInterrupted)
        std::raise(SIGINT);
    const QString text = QString::fromUtf8(line).trimmed();
    return text.isEmpty() ? std::nullopt : std::optional(text);
}

bool terminal::inputIsTerminal()
{
    return isatty(STDIN_FILENO) != 0;
}

} // namespace vantro
