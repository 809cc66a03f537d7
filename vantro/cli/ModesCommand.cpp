#include "vantro/ai/BuiltInPrompts.h"
#include "vantro/ai/DefaultMode.h"
#include "vantro/ai/PromptSettings.h"
#include "vantro/cli/Commands.h"
#include "vantro/cli/ListFile.h"
#include "vantro/cli/ProvidersSession.h"
#include "vantro/cli/Terminal.h"

#include <algorithm>

namespace vantro {

namespace {

constexpr char description[] =
    R"(What becomes of a dictation. Normal keeps the text; Email, Grammar and Custom have a language model rewrite it;
Notes files it under the day. In the launcher the digit keys choose among the modes that can be used.

  list           All modes, and what serves them. The default.
  show MODE      One mode with its whole prompt.
  set MODE       Change it, by the options below.
  default MODE   Dictations begin in this mode.

A mode is named by its own or by the name that you gave it.

Exit status: 0 done, 1 failed, 2 wrong usage, 3 no such mode or provider.)";

struct Session
{
    /// By its raw value or its display name, upper and lower case being equal.
    /// Throws CommandError when there is none.
    [[nodiscard]] ProcessingMode find(const QString& text) const;
    [[nodiscard]] QString providerText(ProcessingMode mode) const;
    [[nodiscard]] QJsonObject toJson(ProcessingMode mode) const;

    ProvidersSession providers;
    PromptSettings& prompts = providers.rewriting.prompts();
};

ProcessingMode Session::find(const QString& text) const
{
    const auto mode = std::ranges::find_if(allProcessingModes, [&](ProcessingMode candidate) {
        return rawValue(candidate).compare(text, Qt::CaseInsensitive) == 0 ||
               prompts.displayName(candidate).compare(text, Qt::CaseInsensitive) == 0;
    });
    if (mode == allProcessingModes.end())
        throw CommandError(ExitCode::notFound,
                           QStringLiteral("there is no mode \"%1\": vantro modes lists them").arg(text));
    return *mode;
}

QString Session::providerText(ProcessingMode mode) const
{
    if (mode == ProcessingMode::Normal)
        return QStringLiteral("no language model");
    const ModeConfiguration configuration = prompts.configuration(mode);
    if (configuration.useLocalAI)
        return QStringLiteral("this machine, which has no language model yet");
    if (!configuration.providerConfigId)
        return QStringLiteral("no provider chosen");
    const auto* provider = providers.manager.find(*configuration.providerConfigId);
    if (provider == nullptr)
        return QStringLiteral("its provider was removed");
    return provider->isEnabled ? provider->name : QStringLiteral("%1, which is disabled").arg(provider->name);
}

QJsonObject Session::toJson(ProcessingMode mode) const
{
    const ModeConfiguration configuration = prompts.configuration(mode);
    QJsonObject object{{QStringLiteral("mode"), rawValue(mode)},
                       {QStringLiteral("name"), prompts.displayName(mode)},
                       {QStringLiteral("default"), mode == defaultMode(providers.defaults)},
                       {QStringLiteral("usable"), providers.rewriting.isUsable(mode)},
                       {QStringLiteral("useLocalAI"), configuration.useLocalAI},
                       {QStringLiteral("prompt"), prompts.prompt(mode)}};
    if (configuration.providerConfigId)
        object.insert(QStringLiteral("providerConfigId"),
                      configuration.providerConfigId->toString(QUuid::WithoutBraces).toUpper());
    return object;
}

int list(const CommandCall& call)
{
    const Session session;
    QJsonArray array;
    for (const ProcessingMode mode : allProcessingModes) {
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
    terminal::writeLine(QStringLiteral("Served by: %1").arg(session.providerText(mode)));
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

int set(const CommandCall& call)
{
    Session session;
    const ProcessingMode mode = session.find(call.words.front());
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
    if (call.has("no-provider"))
        configuration = {};
    // What can fail comes before what is stored.
    setPrompt(session, mode, call);
    if (configuration != session.prompts.configuration(mode))
        session.prompts.setConfiguration(mode, configuration);
    if (call.has("name"))
        session.prompts.setCustomModeName(mode, call.value("name").trimmed());
    return tell(session, mode, call);
}

int beginIn(const CommandCall& call)
{
    Session session;
    const ProcessingMode mode = session.find(call.words.front());
    setDefaultMode(session.providers.defaults, mode);
    terminal::writeLine(QStringLiteral("Dictations begin in %1").arg(session.prompts.displayName(mode)));
    return ExitCode::done;
}

} // namespace

Command modesCommand()
{
    return {.name = "modes",
            .summary = "Show and set what becomes of a dictation: prompts, names, language models.",
            .description = description,
            .actions = {{"list", list},
                        {"show", show, 1, 1, "needs one mode"},
                        {"set", set, 1, 1, "needs one mode"},
                        {"default", beginIn, 1, 1, "needs one mode"}},
            .options = {Command::jsonOption,
                        {"name", "set: what the launcher calls the mode; empty for its own name.", "NAME"},
                        {"prompt", "set: the instruction to the language model.", "TEXT"},
                        {"prompt-file", "set: the same from a file; \"-\" is standard input.", "FILE"},
                        {"built-in-prompt", "set: the instruction that vantro came with."},
                        {"provider", "set: who serves the mode (see vantro providers).", "NAME"},
                        {"no-provider", "set: nobody does."}},
            .words = {{"MODE", "A mode.", "[MODE]]"}}};
}

} // namespace vantro
