#include "base/Translations.h"
#include "vantro/ai/PromptSettings.h"
#include "vantro/app/ApplicationRules.h"
#include "vantro/cli/Commands.h"
#include "vantro/cli/Terminal.h"
#include "vantro/delivery/PasteChords.h"

#include <algorithm>

namespace vantro {

namespace {

constexpr const char* description = QT_TRANSLATE_NOOP(
    "Command", R"(What dictations into the windows of an application are like, where that differs from the rest.

  list              List the rules. The default.
  set APPLICATION   Make or change the rule of an application.
  remove APPLICATION

APPLICATION is the class of its windows, such as thunderbird or xfce4-terminal, in any case; xprop WM_CLASS and a click
tell it. In the launcher another mode can still be chosen. Terminals and Emacs need no rule for their paste keys.

Exit status: 0 done, 1 failed, 2 wrong usage, 3 no such rule or mode, 5 the settings cannot be written.)");

auto ruleOf(const QString& application)
{
    return [application](const ApplicationRule& rule) {
        return rule.application.compare(application, Qt::CaseInsensitive) == 0;
    };
}

int list(const CommandCall& call)
{
    const Translations::Suspension forScripts(!terminal::outputIsTerminal());
    const UserDefaults defaults(UserDefaults::standardPath());
    QJsonArray array;
    std::vector<QStringList> rows{
        {Command::tr("APPLICATION"), Command::tr("MODE"), Command::tr("FULL STOP"), Command::tr("PASTE KEYS")}};
    for (const ApplicationRule& rule : applicationRules(defaults)) {
        const QString mode = rule.mode ? rawValue(*rule.mode) : QString();
        rows.push_back({rule.application, mode.isEmpty() ? QStringLiteral("-") : mode,
                        rule.hasFullStop ? Command::tr("yes") : Command::tr("no"),
                        rule.pasteKeys ? chordText(*rule.pasteKeys) : QStringLiteral("-")});
        array.append(QJsonObject{
            {QStringLiteral("application"), rule.application},
            {QStringLiteral("mode"), mode.isEmpty() ? QJsonValue() : QJsonValue(mode)},
            {QStringLiteral("full_stop"), rule.hasFullStop},
            {QStringLiteral("paste_keys"), rule.pasteKeys ? QJsonValue(chordText(*rule.pasteKeys)) : QJsonValue()}});
    }
    if (call.json())
        terminal::writeJson(array);
    else if (terminal::outputIsTerminal() && rows.size() == 1)
        terminal::writeMessage(Command::tr("Dictations are alike in all applications."));
    else
        terminal::writeTable(rows);
    return ExitCode::done;
}

std::optional<KeyEventPoster::PasteChord> pasteKeysFrom(const QString& text)
{
    const auto chord = chordNamed(text);
    if (!chord && !text.isEmpty())
        throw WrongUsage(Command::tr("\"%1\" are no paste keys: use Ctrl+V, Ctrl+Shift+V or Shift+Insert").arg(text));
    return chord;
}

ProcessingMode modeFrom(UserDefaults& defaults, const QString& name)
{
    const PromptSettings prompts(defaults);
    if (const auto mode = prompts.find(name))
        return *mode;
    throw CommandError(ExitCode::notFound, Command::tr("there is no mode \"%1\": vantro modes lists them").arg(name));
}

int set(const CommandCall& call)
{
    UserDefaults defaults(UserDefaults::standardPath());
    if (call.has("full-stop") && call.has("no-full-stop"))
        throw WrongUsage(Command::tr("choose either --full-stop or --no-full-stop"));
    const auto mode = call.has("mode") && !call.value("mode").isEmpty()
                          ? std::optional(modeFrom(defaults, call.value("mode")))
                          : std::nullopt;
    const auto pasteKeys = pasteKeysFrom(call.value("paste-keys"));
    const QString application = call.words.front().trimmed();
    defaults.change([&] {
        auto rules = applicationRules(defaults);
        auto rule = std::ranges::find_if(rules, ruleOf(application));
        if (rule == rules.end())
            rule = rules.insert(rules.end(), ApplicationRule{application});
        if (call.has("mode"))
            rule->mode = mode;
        if (call.has("paste-keys"))
            rule->pasteKeys = pasteKeys;
        if (call.has("full-stop") || call.has("no-full-stop"))
            rule->hasFullStop = call.has("full-stop");
        setApplicationRules(defaults, rules);
    });
    defaults.requireSaved();
    return ExitCode::done;
}

int remove(const CommandCall& call)
{
    UserDefaults defaults(UserDefaults::standardPath());
    std::size_t removed = 0;
    defaults.change([&] {
        auto rules = applicationRules(defaults);
        removed = std::erase_if(rules, ruleOf(call.words.front()));
        setApplicationRules(defaults, rules);
    });
    if (removed == 0)
        throw CommandError(
            ExitCode::notFound,
            Command::tr("there is no rule for %1: vantro applications lists them").arg(call.words.front()));
    defaults.requireSaved();
    return ExitCode::done;
}

} // namespace

Command applicationsCommand()
{
    return {
        .name = "applications",
        .summary = QT_TRANSLATE_NOOP("Command", "Show and change what dictations into an application are like."),
        .description = description,
        .actions = {{"list", list},
                    {"set", set, 1, 1, QT_TRANSLATE_NOOP("Command", "needs an APPLICATION")},
                    {"remove", remove, 1, 1, QT_TRANSLATE_NOOP("Command", "needs an APPLICATION")}},
        .options = {{"mode", QT_TRANSLATE_NOOP("Command", "set: begin in this mode; empty for the default one."),
                     "MODE"},
                    {"no-full-stop", QT_TRANSLATE_NOOP("Command", "set: leave the text's last full stop out.")},
                    {"full-stop", QT_TRANSLATE_NOOP("Command", "set: keep it.")},
                    {"paste-keys",
                     QT_TRANSLATE_NOOP("Command",
                                       "set: what is pressed to paste: Ctrl+V, Ctrl+Shift+V or Shift+Insert; empty for "
                                       "what is usual there."),
                     "KEYS"},
                    Command::jsonOption},
        .words = {{"APPLICATION", QT_TRANSLATE_NOOP("Command", "The class of its windows."), "[APPLICATION]]"}}};
}

} // namespace vantro
