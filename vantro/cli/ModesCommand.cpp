#include "base/Translations.h"
#include "vantro/ai/BuiltInPrompts.h"
#include "vantro/ai/DefaultMode.h"
#include "vantro/ai/PromptSettings.h"
#include "vantro/cli/Commands.h"
#include "vantro/cli/HistorySession.h"
#include "vantro/cli/ProvidersSession.h"
#include "vantro/cli/Terminal.h"
#include "vantro/text/ListFile.h"

#include <algorithm>

namespace vantro {

namespace {

constexpr const char* description = QT_TRANSLATE_NOOP(
    "Command",
    R"(What happens to a dictation. Normal keeps the text; Email, Grammar and Custom have a language model rewrite it;
Notes adds it to the notes of the day. In the launcher, the digit keys choose a mode.

  list           List all modes and their language models. The default.
  show MODE      Show a mode with its prompt.
  set MODE       Change a mode with the options below.
  default MODE   Start dictations in this mode.
  add NAME       Make a mode of your own; the options below set it up.
  remove MODE    Remove a mode that you have added, with its prompt, after asking.
  move MODE N    Give a mode the place N, and with it the digit key.

MODE is its built-in name or the one you gave it.

Exit status: 0 done, 1 failed, 2 wrong usage, 3 no such mode or provider, 5 the settings cannot be written.)");

struct Session
{
    /// Finds a mode by raw value or display name, in any case. Throws CommandError when there is none.
    [[nodiscard]] ProcessingMode find(const QString& text) const;
    [[nodiscard]] QString localText() const;
    [[nodiscard]] QString providerText(ProcessingMode mode) const;
    [[nodiscard]] QJsonObject toJson(ProcessingMode mode) const;

    ProvidersSession providers;
    PromptSettings& prompts = providers.rewriting.prompts();
};

ProcessingMode Session::find(const QString& text) const
{
    const auto mode = prompts.find(text);
    if (!mode)
        throw CommandError(ExitCode::notFound,
                           Command::tr("there is no mode \"%1\": vantro modes lists them").arg(text));
    return *mode;
}

QString Session::providerText(ProcessingMode mode) const
{
    const ModeConfiguration configuration = prompts.configuration(mode);
    if (configuration.cleans)
        return Command::tr("rules, no language model");
    if (mode == ProcessingMode::Normal)
        return Command::tr("no language model");
    if (configuration.useLocalAI)
        return localText();
    if (!configuration.providerConfigId)
        return providers.rewriting.isUsable(mode) ? localText() : Command::tr("no provider chosen");
    const auto* provider = providers.manager.find(*configuration.providerConfigId);
    if (provider == nullptr)
        return Command::tr("its provider has been removed");
    return provider->isEnabled ? provider->name : Command::tr("%1 (disabled)").arg(provider->name);
}

QString Session::localText() const
{
    const auto* model = providers.rewriting.local().models().chosen();
    return model != nullptr ? Command::tr("this computer (%1)").arg(model->name)
                            : Command::tr("this computer, which has no language model yet");
}

QJsonObject Session::toJson(ProcessingMode mode) const
{
    const ModeConfiguration configuration = prompts.configuration(mode);
    QJsonObject object{{QStringLiteral("mode"), rawValue(mode)},
                       {QStringLiteral("name"), prompts.displayName(mode)},
                       {QStringLiteral("default"), mode == defaultMode(providers.defaults)},
                       {QStringLiteral("usable"), providers.rewriting.isUsable(mode)},
                       {QStringLiteral("use_local_ai"), configuration.useLocalAI},
                       {QStringLiteral("cleans"), configuration.cleans},
                       {QStringLiteral("prompt"), prompts.prompt(mode)}};
    if (configuration.providerConfigId)
        object.insert(QStringLiteral("provider_id"),
                      configuration.providerConfigId->toString(QUuid::WithoutBraces).toUpper());
    return object;
}

int list(const CommandCall& call)
{
    const Translations::Suspension forScripts(!terminal::outputIsTerminal());
    const Session session;
    QJsonArray array;
    for (const ProcessingMode mode : session.prompts.modes()) {
        if (call.json()) {
            array.append(session.toJson(mode));
            continue;
        }
        const QString name = session.prompts.displayName(mode);
        const QString label = name == rawValue(mode) ? name : QStringLiteral("%1 (%2)").arg(name, rawValue(mode));
        QStringList remarks{session.providerText(mode)};
        if (mode == defaultMode(session.providers.defaults))
            remarks << Command::tr("default");
        if (!session.providers.rewriting.isUsable(mode))
            remarks << Command::tr("not offered");
        const QString remark = remarks.join(QStringLiteral(", "));
        terminal::writeLine(terminal::outputIsTerminal() ? label.leftJustified(24) + remark
                                                         : label + QLatin1Char('\t') + remark);
    }
    if (call.json())
        terminal::writeJson(array);
    return ExitCode::done;
}

int tell(const Session& session, ProcessingMode mode, const CommandCall& call)
{
    if (call.json()) {
        terminal::writeJson(session.toJson(mode));
        return ExitCode::done;
    }
    terminal::writeLine(Command::tr("Mode:      %1").arg(rawValue(mode)));
    terminal::writeLine(Command::tr("Name:      %1").arg(session.prompts.displayName(mode)));
    terminal::writeLine(Command::tr("Provider:  %1").arg(session.providerText(mode)));
    if (mode != ProcessingMode::Normal)
        terminal::writeLine(QStringLiteral("\n%1").arg(session.prompts.prompt(mode)));
    return ExitCode::done;
}

int show(const CommandCall& call)
{
    const Session session;
    return tell(session, session.find(call.words.front()), call);
}

void setPrompt(Session& session, ProcessingMode mode, const CommandCall& call)
{
    if (call.has("prompt"))
        session.prompts.setPrompt(mode, call.value("prompt"));
    if (call.has("prompt-file"))
        session.prompts.setPrompt(mode, QString::fromUtf8(readListFile(call.value("prompt-file"))).trimmed());
    if (call.has("built-in-prompt"))
        session.prompts.setPrompt(mode, builtInPrompt(mode).value_or(QString()));
}

int change(Session& session, ProcessingMode mode, const CommandCall& call)
{
    ModeConfiguration configuration = session.prompts.configuration(mode);
    if (call.has("provider")) {
        const auto* provider = session.providers.find(call.value("provider"));
        if (provider == nullptr)
            throw CommandError(
                ExitCode::notFound,
                Command::tr("there is no provider \"%1\": vantro providers lists them. Nothing was changed")
                    .arg(call.value("provider")));
        configuration = {false, provider->id};
    }
    if (call.has("local"))
        configuration = {true, {}};
    if (call.has("no-provider"))
        configuration = {};
    if (call.has("clean") && mode == ProcessingMode::Notes)
        throw WrongUsage(Command::tr("--clean: notes are kept as they were said"));
    if (call.has("clean"))
        configuration = {.cleans = true};
    // First what can fail, so that nothing is stored then.
    setPrompt(session, mode, call);
    if (configuration != session.prompts.configuration(mode))
        session.prompts.setConfiguration(mode, configuration);
    if (call.has("name"))
        session.prompts.setCustomModeName(mode, call.value("name").trimmed());
    session.providers.defaults.requireSaved();
    if (call.has("local") && session.providers.rewriting.local().models().chosen() == nullptr)
        terminal::writeError(Command::tr("there is no language model on this computer yet: vantro models lists those "
                                         "that can be downloaded"));
    return tell(session, mode, call);
}

int set(const CommandCall& call)
{
    Session session;
    return change(session, session.find(call.words.front()), call);
}

int add(const CommandCall& call)
{
    Session session;
    const QString name = call.words.front().trimmed();
    if (name.isEmpty())
        throw WrongUsage(Command::tr("the mode needs a name"));
    if (session.prompts.find(name))
        throw WrongUsage(Command::tr("there is a mode \"%1\" already").arg(name));
    const auto mode = session.prompts.add(name);
    if (!mode)
        throw Error(Command::tr("there are nine modes already, as many as digit keys: remove one first"));
    try {
        return change(session, *mode, call);
    } catch (const Error&) {
        session.prompts.remove(*mode);
        throw;
    }
}

int remove(const CommandCall& call)
{
    Session session;
    const ProcessingMode mode = session.find(call.words.front());
    const QString name = session.prompts.displayName(mode);
    if (!isAddedMode(mode))
        throw WrongUsage(Command::tr("%1 is built in: only modes that you have added can be removed").arg(name));
    if (!isConfirmed(Command::tr("Remove the mode %1 with its prompt?").arg(name), call))
        return ExitCode::failed;
    session.prompts.remove(mode);
    session.providers.defaults.requireSaved();
    return ExitCode::done;
}

int move(const CommandCall& call)
{
    Session session;
    const ProcessingMode mode = session.find(call.words.front());
    bool isNumber = false;
    const int place = call.words.at(1).toInt(&isNumber);
    if (!isNumber || place < 1 || place > static_cast<int>(session.prompts.modes().size()))
        throw WrongUsage(Command::tr("\"%1\" is not a place: use 1 to %2")
                             .arg(call.words.at(1))
                             .arg(session.prompts.modes().size()));
    session.prompts.move(mode, place - 1);
    session.providers.defaults.requireSaved();
    return ExitCode::done;
}

int beginIn(const CommandCall& call)
{
    Session session;
    const ProcessingMode mode = session.find(call.words.front());
    setDefaultMode(session.providers.defaults, mode);
    session.providers.defaults.requireSaved();
    terminal::writeLine(Command::tr("Dictations now start in %1").arg(session.prompts.displayName(mode)));
    return ExitCode::done;
}

} // namespace

Command modesCommand()
{
    return {
        .name = "modes",
        .summary = QT_TRANSLATE_NOOP("Command", "Show and change modes: prompts, names, language models."),
        .description = description,
        .actions = {{"list", list},
                    {"show", show, 1, 1, QT_TRANSLATE_NOOP("Command", "needs one mode")},
                    {"set", set, 1, 1, QT_TRANSLATE_NOOP("Command", "needs one mode")},
                    {"default", beginIn, 1, 1, QT_TRANSLATE_NOOP("Command", "needs one mode")},
                    {"add", add, 1, 1, QT_TRANSLATE_NOOP("Command", "needs a name")},
                    {"remove", remove, 1, 1, QT_TRANSLATE_NOOP("Command", "needs one mode")},
                    {"move", move, 2, 2, QT_TRANSLATE_NOOP("Command", "needs a mode and a place")}},
        .options = {Command::jsonOption,
                    {"name",
                     QT_TRANSLATE_NOOP("Command", "set: the name in the launcher; empty for the built-in name."),
                     "NAME"},
                    {"prompt", QT_TRANSLATE_NOOP("Command", "set: the prompt for the language model."), "TEXT"},
                    {"prompt-file",
                     QT_TRANSLATE_NOOP("Command", "set: the prompt from a file; \"-\" for standard input."), "FILE"},
                    {"built-in-prompt", QT_TRANSLATE_NOOP("Command", "set: the built-in prompt.")},
                    {"provider", QT_TRANSLATE_NOOP("Command", "set: the provider (see vantro providers)."), "NAME"},
                    {"local", QT_TRANSLATE_NOOP("Command", "set: rewrite on this computer (see vantro models).")},
                    {"clean",
                     QT_TRANSLATE_NOOP(
                         "Command", "set: clean the text by rules, without a language model (see vantro cleaning).")},
                    {"no-provider", QT_TRANSLATE_NOOP("Command", "set: neither a provider nor rules.")},
                    {"yes", QT_TRANSLATE_NOOP("Command", "remove: without asking.")}},
        .words = {{"MODE", QT_TRANSLATE_NOOP("Command", "A mode."), "[MODE"},
                  {"N", QT_TRANSLATE_NOOP("Command", "move: its place."), "[N]]]"}}};
}

} // namespace vantro
