#include "vantro/cli/Command.h"

#include "base/UserDefaults.h"
#include "vantro/cli/HelpText.h"
#include "vantro/cli/Terminal.h"

#include <algorithm>
#include <array>

namespace vantro {

namespace {

/// Texts of Qt's parser, and of a header, for the translation.
[[maybe_unused]] constexpr std::array foreignTexts{
    QT_TRANSLATE_NOOP("QCommandLineParser", "Options:"),
    QT_TRANSLATE_NOOP("QCommandLineParser", "Arguments:"),
    QT_TRANSLATE_NOOP("QCommandLineParser", "Unknown option '%1'."),
    QT_TRANSLATE_NOOP("QCommandLineParser", "Unknown options: %1."),
    QT_TRANSLATE_NOOP("QCommandLineParser", "Missing value after '%1'."),
    QT_TRANSLATE_NOOP("QCommandLineParser", "Unexpected value after '%1'."),
    QT_TRANSLATE_NOOP("Command", "JSON instead of text."),
};

} // namespace

int CommandCall::limit(int otherwise, const char* noun) const
{
    if (!has("limit"))
        return otherwise;
    bool isNumber = false;
    const int number = value("limit").toInt(&isNumber);
    if (!isNumber || number < 0)
        throw WrongUsage(Command::tr("\"%1\" is not a number of %2").arg(value("limit"), Command::tr(noun)));
    return number;
}

QString Command::synopsis() const
{
    return hasActions() ? QStringLiteral("[ACTION]") : words.empty() ? QString() : QLatin1String(words.front().syntax);
}

void Command::describeTo(QCommandLineParser& parser) const
{
    parser.setApplicationDescription(reflowed(tr(description.c_str())));
    parser.addOption({{QStringLiteral("h"), QStringLiteral("help")}, tr("Show this text.")});
    for (const CommandOption& option : options)
        parser.addOption({QLatin1String(option.name), tr(option.help.c_str()), QLatin1String(option.placeholder)});
    if (hasActions())
        parser.addPositionalArgument(QStringLiteral("ACTION"), Command::tr("What to do."), QStringLiteral("[ACTION"));
    for (const CommandWord& word : words)
        parser.addPositionalArgument(QLatin1String(word.name), tr(word.help), QLatin1String(word.syntax));
}

const CommandAction& Command::chosen(CommandCall& call) const
{
    auto action = actions.begin();
    if (hasActions() && !call.words.isEmpty()) {
        const QString word = call.words.takeFirst();
        action = std::ranges::find_if(actions, [&](const CommandAction& a) { return word == QLatin1String(a.name); });
        if (action == actions.end())
            throw WrongUsage(Command::tr("there is no action \"%1\"").arg(word));
    }
    call.action = QLatin1String(action->name);
    if (call.words.size() < action->leastWords)
        throw WrongUsage(QStringList{call.command, call.action, tr(action->needs)}.join(QLatin1Char(' ')).simplified());
    if (call.words.size() > action->mostWords)
        throw WrongUsage(Command::tr("too many words"));
    return *action;
}

QString Command::help(const QCommandLineParser& parser) const
{
    const QString mark = QStringLiteral(" [options]");
    const QString text = parser.helpText().trimmed();
    // Starts with the path of this program.
    const QString rest = text.mid(text.indexOf(mark) + mark.size());
    return tr("Usage: vantro %1 [options]").arg(QLatin1String(name)) + rest;
}

int Command::run(const QStringList& arguments) const
{
    const QString command = QLatin1String(name);
    QCommandLineParser parser;
    describeTo(parser);
    const bool isParsed = parser.parse(QStringList{QStringLiteral("vantro ") + command} + arguments);
    if (isParsed && parser.isSet(QStringLiteral("help"))) {
        terminal::writeLine(help(parser));
        return ExitCode::done;
    }
    CommandCall call{parser, command, {}, parser.positionalArguments()};
    try {
        if (!isParsed)
            throw WrongUsage(parser.errorText());
        return chosen(call).run(call);
    } catch (const WrongUsage& error) {
        terminal::writeError(Command::tr("%1 (see vantro %2 --help)").arg(error.localizedDescription(), command));
        return ExitCode::usage;
    } catch (const CommandError& error) {
        terminal::writeError(error.localizedDescription());
        return error.exitCode();
    } catch (const Error& error) {
        const QString place =
            namesFailedAction && hasActions() ? QStringLiteral("%1 %2: ").arg(command, call.action) : QString();
        terminal::writeError(place + error.localizedDescription());
        if (dynamic_cast<const SettingsNotSaved*>(&error) != nullptr)
            return ExitCode::notSaved;
        return exitCodeOf != nullptr ? exitCodeOf(error) : ExitCode::failed;
    }
}

} // namespace vantro
