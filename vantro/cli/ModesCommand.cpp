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

constexpr char description[] =
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

Exit status: 0 done, 1 failed, 2 wrong usage, 3 no such mode or provider, 5 the settings cannot be written.)";

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
                           QStringLiteral("there is no mode \"%1\": vantro modes lists them").arg(text));
    return *mode;
}

QString Session::providerText(ProcessingMode mode) const
{
    const ModeConfiguration configuration = prompts.configuration(mode);
    if (configuration.cleans)
        return QStringLiteral("rules, no language model");
    if (mode == ProcessingMode::Normal)
        return QStringLiteral("no language model");
    if (configuration.useLocalAI)
        return localText();
    if (!configuration.providerConfigId)
        return providers.rewriting.isUsable(mode) ? localText() : QStringLiteral("no provider chosen");
    const auto* provider = providers.manager.find(*configuration.providerConfigId);
    if (provider == nullptr)
        return QStringLiteral("its provider has been removed");
    return provider->isEnabled ? provider->name : QStringLiteral("%1 (disabled)").arg(provider->name);
}

QString Session::localText() const
{
    const auto* model = providers.rewriting.local().models().chosen();
    return model != nullptr ? QStringLiteral("this computer (%1)").arg(model->name)
                            : QStringLiteral("this computer, which has no language model yet");
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
            remarks << QStringLiteral("default");
        if (!session.providers.rewriting.isUsable(mode))
            remarks << QStringLiteral("not offered");
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
    terminal::writeLine(QStringLiteral("Mode:      %1").arg(rawValue(mode)));
    terminal::writeLine(QStringLiteral("Name:      %1").arg(session.prompts.displayName(mode)));
    terminal::writeLine(QStringLiteral("Provider:  %1").arg(session.providerText(mode)));
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
                QStringLiteral("there is no provider \"%1\": vantro providers lists them. Nothing was changed")
                    .arg(call.value("provider")));
        configuration = {false, provider->id};
    }
    if (call.has("local"))
        configuration = {true, {}};
    if (call.has("no-provider"))
        configuration = {};
    if (call.has("clean") && mode == ProcessingMode::Notes)
        throw WrongUsage(QStringLiteral("--clean: notes are kept as they were said"));
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
        terminal::writeError(
            QStringLiteral("there is no language model on this computer yet: vantro models lists those "
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
        throw WrongUsage(QStringLiteral("the mode needs a name"));
    if (session.prompts.find(name))
        throw WrongUsage(QStringLiteral("there is a mode \"%1\" already").arg(name));
    const auto mode = session.prompts.add(name);
    if (!mode)
        throw Error(QStringLiteral("there are nine modes already, as many as digit keys: remove one first"));
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
        throw WrongUsage(QStringLiteral("%1 is built in: only modes that you have added can be removed").arg(name));
    if (!isConfirmed(QStringLiteral("Remove the mode %1 with its prompt?").arg(name), call))
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
        throw WrongUsage(QStringLiteral("\"%1\" is not a place: use 1 to %2")
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
    terminal::writeLine(QStringLiteral("Dictations now start in %1").arg(session.prompts.displayName(mode)));
    return ExitCode::done;
}

} // namespace

Command modesCommand()
{
    return {.name = "modes",
            .summary = "Show and change modes: prompts, names, language models.",
            .description = description,
            .actions = {{"list", list},
                        {"show", show, 1, 1, "needs one mode"},
                        {"set", set, 1, 1, "needs one mode"},
                        {"default", beginIn, 1, 1, "needs one mode"},
                        {"add", add, 1, 1, "needs a name"},
                        {"remove", remove, 1, 1, "needs one mode"},
                        {"move", move, 2, 2, "needs a mode and a place"}},
            .options = {Command::jsonOption,
                        {"name", "set: the name in the launcher; empty for the built-in name.", "NAME"},
                        {"prompt", "set: the prompt for the language model.", "TEXT"},
                        {"prompt-file", "set: the prompt from a file; \"-\" for standard input.", "FILE"},
                        {"built-in-prompt", "set: the built-in prompt."},
                        {"provider", "set: the provider (see vantro providers).", "NAME"},
                        {"local", "set: rewrite on this computer (see vantro models)."},
                        {"clean", "set: clean the text by rules, without a language model (see vantro cleaning)."},
                        {"no-provider", "set: neither a provider nor rules."},
                        {"yes", "remove: without asking."}},
            .words = {{"MODE", "A mode.", "[MODE"}, {"N", "move: its place.", "[N]]]"}}};
}

} // namespace vantro
