#include "vantro/cli/Command.h"

#include "base/UserDefaults.h"
#include "vantro/cli/Terminal.h"

#include <algorithm>

namespace vantro {

int CommandCall::limit(int otherwise, const char* noun) const
{
    if (!has("limit"))
        return otherwise;
    bool isNumber = false;
    const int number = value("limit").toInt(&isNumber);
    if (!isNumber || number < 0)
        throw WrongUsage(QStringLiteral("\"%1\" is not a number of %2").arg(value("limit"), QLatin1String(noun)));
    return number;
}

QString Command::synopsis() const
{
    return hasActions() ? QStringLiteral("[ACTION]") : words.empty() ? QString() : QLatin1String(words.front().syntax);
}

void Command::describeTo(QCommandLineParser& parser) const
{
    parser.setApplicationDescription(QString::fromStdString(description));
    parser.addOption({{QStringLiteral("h"), QStringLiteral("help")}, QStringLiteral("Show this text.")});
    for (const CommandOption& option : options)
        parser.addOption(
            {QLatin1String(option.name), QString::fromStdString(option.help), QLatin1String(option.placeholder)});
    if (hasActions())
        parser.addPositionalArgument(QStringLiteral("ACTION"), QStringLiteral("What to do."),
                                     QStringLiteral("[ACTION"));
    for (const CommandWord& word : words)
        parser.addPositionalArgument(QLatin1String(word.name), QLatin1String(word.help), QLatin1String(word.syntax));
}

const CommandAction& Command::chosen(CommandCall& call) const
{
    auto action = actions.begin();
    if (hasActions() && !call.words.isEmpty()) {
        const QString word = call.words.takeFirst();
        action = std::ranges::find_if(actions, [&](const CommandAction& a) { return word == QLatin1String(a.name); });
        if (action == actions.end())
            throw WrongUsage(QStringLiteral("there is no action \"%1\"").arg(word));
    }
    call.action = QLatin1String(action->name);
    if (call.words.size() < action->leastWords)
        throw WrongUsage(
            QStringList{call.command, call.action, QLatin1String(action->needs)}.join(QLatin1Char(' ')).simplified());
    if (call.words.size() > action->mostWords)
        throw WrongUsage(QStringLiteral("too many words"));
    return *action;
}

int Command::run(const QStringList& arguments) const
{
    const QString command = QLatin1String(name);
    QCommandLineParser parser;
    describeTo(parser);
    const bool isParsed = parser.parse(QStringList{QStringLiteral("vantro ") + command} + arguments);
    if (isParsed && parser.isSet(QStringLiteral("help"))) {
        const QString text = parser.helpText().trimmed();
        // Starts with the path of this program.
        terminal::writeLine(QStringLiteral("Usage: vantro ") + command +
                            text.mid(text.indexOf(QLatin1String(" [options]"))));
        return ExitCode::done;
    }
    CommandCall call{parser, command, {}, parser.positionalArguments()};
    try {
        if (!isParsed)
            throw WrongUsage(parser.errorText());
        return chosen(call).run(call);
    } catch (const WrongUsage& error) {
        terminal::writeError(QStringLiteral("%1 (see vantro %2 --help)").arg(error.localizedDescription(), command));
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
