#pragma once

#include "base/Error.h"
#include "vantro/cli/ExitCode.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QString>
#include <QStringList>

#include <functional>
#include <limits>
#include <string>
#include <vector>

namespace vantro {

/// Wrong usage of a command. The message is printed with a hint at the help.
class WrongUsage : public Error
{
public:
    using Error::Error;
};

/// Ends a command with a message on standard error and an exit code.
class CommandError : public Error
{
public:
    CommandError(int exitCode, const QString& text) : Error(text), exitCode_(exitCode) {}
    [[nodiscard]] int exitCode() const { return exitCode_; }

private:
    int exitCode_;
};

/// The arguments of a command.
struct CommandCall
{
    const QCommandLineParser& parser;
    QString command;
    QString action;    ///< empty for a command without actions
    QStringList words; ///< after the action

    [[nodiscard]] bool has(const char* option) const { return parser.isSet(QLatin1String(option)); }
    [[nodiscard]] QString value(const char* option) const { return parser.value(QLatin1String(option)); }
    /// Of an option that may be repeated.
    [[nodiscard]] QStringList values(const char* option) const { return parser.values(QLatin1String(option)); }
    [[nodiscard]] bool json() const { return has("json"); }
    /// The value of --limit, or @p otherwise; 0 means all. @p noun: what is counted, in the plural, as noted
    /// for translation. Throws WrongUsage.
    [[nodiscard]] int limit(int otherwise, const char* noun) const;
};

/// Texts for people are in English here, noted for translation where they stand, and translated when they are shown.
struct CommandOption
{
    const char* name;
    std::string help;
    const char* placeholder = ""; ///< for the value; empty when the option takes none
};

/// A positional argument after the action, or after the command if it has no actions.
struct CommandWord
{
    const char* name;
    const char* help;
    const char* syntax;
};

struct CommandAction
{
    const char* name; ///< empty for a command without actions
    /// Returns the exit code. An Error ends the command with exitCodeOf(error), by default ExitCode::failed.
    std::function<int(const CommandCall&)> run = {};
    qsizetype leastWords = 0;
    qsizetype mostWords = 0;
    const char* needs = ""; ///< the error when words are missing, such as "needs a name"
};

/// A command of the command line: its arguments, its help and what it does.
struct Command
{
    inline static const CommandOption jsonOption{"json", "JSON instead of text."};
    static constexpr qsizetype anyNumber = std::numeric_limits<qsizetype>::max();

    const char* name;
    const char* summary; ///< for "vantro --help"
    std::string description = {};
    std::vector<CommandAction> actions; ///< the first one is the default
    std::vector<CommandOption> options = {};
    std::vector<CommandWord> words = {};
    int (*exitCodeOf)(const Error&) = nullptr;
    bool namesFailedAction = true; ///< errors are prefixed, as in "models remove: ..."

    /// @p arguments: those after the command's name. Returns the exit code.
    [[nodiscard]] int run(const QStringList& arguments) const;
    /// How its arguments appear in the list of commands, such as "[ACTION]".
    [[nodiscard]] QString synopsis() const;

private:
    void describeTo(QCommandLineParser& parser) const;
    [[nodiscard]] QString help(const QCommandLineParser& parser) const;
    [[nodiscard]] bool hasActions() const { return *actions.front().name != '\0'; }
    [[nodiscard]] const CommandAction& chosen(CommandCall& call) const;

    /// Of all texts of the command line.
    Q_DECLARE_TR_FUNCTIONS(Command)
};

} // namespace vantro
