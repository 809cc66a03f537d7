#pragma once

#include "base/Error.h"
#include "vantro/cli/ExitCode.h"

#include <QCommandLineParser>
#include <QString>
#include <QStringList>

#include <functional>
#include <limits>
#include <string>
#include <vector>

namespace vantro {

/// The user has called a command wrongly: the text is followed by where its help is.
class WrongUsage : public Error
{
public:
    using Error::Error;
};

/// Ends a command with a text on standard error and an exit code.
class CommandError : public Error
{
public:
    CommandError(int exitCode, const QString& text) : Error(text), exitCode_(exitCode) {}
    [[nodiscard]] int exitCode() const { return exitCode_; }

private:
    int exitCode_;
};

/// What a command was called with.
struct CommandCall
{
    const QCommandLineParser& parser;
    QString command;
    QString action;    ///< empty for a command without actions
    QStringList words; ///< behind the action

    [[nodiscard]] bool has(const char* option) const { return parser.isSet(QLatin1String(option)); }
    [[nodiscard]] QString value(const char* option) const { return parser.value(QLatin1String(option)); }
    [[nodiscard]] bool json() const { return has("json"); }
    /// The value of --limit, @p otherwise without it; 0 stands for all. @p noun: what is counted, in the plural.
    [[nodiscard]] int limit(int otherwise, const char* noun) const;
};

struct CommandOption
{
    const char* name;
    std::string help;
    const char* placeholder = ""; ///< of the option's value; empty when it takes none
};

/// A word behind the action, or behind the command when it has no actions.
struct CommandWord
{
    const char* name;
    const char* help;
    const char* syntax;
};

struct CommandAction
{
    const char* name; ///< empty for what a command does that has no actions
    /// Answers the exit code; errors end the command with ExitCode::failed unless exitCodeOf says otherwise.
    std::function<int(const CommandCall&)> run = {};
    qsizetype leastWords = 0;
    qsizetype mostWords = 0;
    const char* needs = ""; ///< what is said when words are missing: "needs a name"
};

/// One command of the command line: what it is called with, what its help says, and what it does.
struct Command
{
    inline static const CommandOption jsonOption{"json", "JSON instead of text."};
    static constexpr qsizetype anyNumber = std::numeric_limits<qsizetype>::max();

    const char* name;
    const char* summary; ///< what "vantro --help" says
    std::string description = {};
    std::vector<CommandAction> actions; ///< the first is taken when none is named
    std::vector<CommandOption> options = {};
    std::vector<CommandWord> words = {};
    int (*exitCodeOf)(const Error&) = nullptr;
    bool namesFailedAction = true; ///< errors are told as "models remove: ..."

    /// @p arguments: what follows the command's name. Answers the process's exit code.
    [[nodiscard]] int run(const QStringList& arguments) const;
    /// What stands for its words in the list of commands: "[ACTION]".
    [[nodiscard]] QString synopsis() const;

private:
    void describeTo(QCommandLineParser& parser) const;
    [[nodiscard]] bool hasActions() const { return *actions.front().name != '\0'; }
    [[nodiscard]] const CommandAction& chosen(CommandCall& call) const;
};

} // namespace vantro
