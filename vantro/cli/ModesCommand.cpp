#include "vantro/cli/ModesCommand.h"

#include "vantro/ai/BuiltInPrompts.h"
#include "vantro/ai/DefaultMode.h"
#include "vantro/ai/PromptSettings.h"
#include "vantro/cli/ExitCode.h"
#include "vantro/cli/ListFile.h"
#include "vantro/cli/ProvidersSession.h"
#include "vantro/cli/Terminal.h"

#include <QCommandLineParser>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

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
    [[nodiscard]] std::optional<ProcessingMode> find(const QString& text) const;
    [[nodiscard]] QString providerText(ProcessingMode mode) const;
    [[nodiscard]] QJsonObject toJson(ProcessingMode mode) const;

    ProvidersSession providers;
    PromptSettings& prompts = providers.rewriting.prompts();
};

std::optional<ProcessingMode> Session::find(const QString& text) const
{
    const auto mode = std::ranges::find_if(allProcessingModes, [&](ProcessingMode candidate) {
        return rawValue(candidate).compare(text, Qt::CaseInsensitive) == 0 ||
               prompts.displayName(candidate).compare(text, Qt::CaseInsensitive) == 0;
    });
    return mode != allProcessingModes.end() ? std::optional(*mode) : std::nullopt;
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

int wrongUsage(const QString& text)
{
    terminal::writeError(text + QStringLiteral(" (see vantro modes --help)"));
    return ExitCode::usage;
}

template <typename Json>
void writeJson(const Json& json)
{
    terminal::writeLine(QString::fromUtf8(QJsonDocument(json).toJson(QJsonDocument::Compact)));
}

int list(const Session& session, bool json)
{
    QJsonArray array;
    for (const ProcessingMode mode : allProcessingModes) {
        if (json) {
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
    if (json)
        writeJson(array);
    return ExitCode::done;
}

int show(const Session& session, ProcessingMode mode, bool json)
{
    if (json) {
        writeJson(session.toJson(mode));
        return ExitCode::done;
    }
    terminal::writeLine(QStringLiteral("Mode:      %1").arg(rawValue(mode)));
    terminal::writeLine(QStringLiteral("Name:      %1").arg(session.prompts.displayName(mode)));
    terminal::writeLine(QStringLiteral("Served by: %1").arg(session.providerText(mode)));
    if (mode != ProcessingMode::Normal)
        terminal::writeLine(QStringLiteral("\n%1").arg(session.prompts.prompt(mode)));
    return ExitCode::done;
}

void setPrompt(Session& session, ProcessingMode mode, const QCommandLineParser& parser)
{
    if (parser.isSet(QStringLiteral("prompt")))
        session.prompts.setPrompt(mode, parser.value(QStringLiteral("prompt")));
    if (parser.isSet(QStringLiteral("prompt-file")))
        session.prompts.setPrompt(
            mode, QString::fromUtf8(readListFile(parser.value(QStringLiteral("prompt-file")))).trimmed());
    if (parser.isSet(QStringLiteral("built-in-prompt")))
        session.prompts.setPrompt(mode, builtInPrompt(mode).value_or(QString()));
}

int set(Session& session, ProcessingMode mode, const QCommandLineParser& parser)
{
    ModeConfiguration configuration = session.prompts.configuration(mode);
    if (parser.isSet(QStringLiteral("provider"))) {
        const QString name = parser.value(QStringLiteral("provider"));
        const auto* provider = session.providers.find(name);
        if (provider == nullptr) {
            terminal::writeError(
                QStringLiteral("there is no provider \"%1\": vantro providers lists them. Nothing was changed")
                    .arg(name));
            return ExitCode::notFound;
        }
        configuration = {false, provider->id};
    }
    if (parser.isSet(QStringLiteral("no-provider")))
        configuration = {};
    // What can fail comes before what is stored.
    setPrompt(session, mode, parser);
    if (configuration != session.prompts.configuration(mode))
        session.prompts.setConfiguration(mode, configuration);
    if (parser.isSet(QStringLiteral("name")))
        session.prompts.setCustomModeName(mode, parser.value(QStringLiteral("name")).trimmed());
    return show(session, mode, parser.isSet(QStringLiteral("json")));
}

int carryOut(Session& session, const QString& action, ProcessingMode mode, const QCommandLineParser& parser)
{
    if (action == QLatin1String("show"))
        return show(session, mode, parser.isSet(QStringLiteral("json")));
    if (action == QLatin1String("set"))
        return set(session, mode, parser);
    setDefaultMode(session.providers.defaults, mode);
    terminal::writeLine(QStringLiteral("Dictations begin in %1").arg(session.prompts.displayName(mode)));
    return ExitCode::done;
}

void addOptions(QCommandLineParser& parser)
{
    const auto add = [&parser](const char* name, const char* text, const char* value = "") {
        parser.addOption({QLatin1String(name), QLatin1String(text), QLatin1String(value)});
    };
    parser.setApplicationDescription(QLatin1String(description));
    terminal::addHelpOption(parser);
    add("json", "JSON instead of text.");
    add("name", "set: what the launcher calls the mode; empty for its own name.", "NAME");
    add("prompt", "set: the instruction to the language model.", "TEXT");
    add("prompt-file", "set: the same from a file; \"-\" is standard input.", "FILE");
    add("built-in-prompt", "set: the instruction that vantro came with.");
    add("provider", "set: who serves the mode (see vantro providers).", "NAME");
    add("no-provider", "set: nobody does.");
    parser.addPositionalArgument(QStringLiteral("ACTION"), QStringLiteral("What to do."), QStringLiteral("[ACTION"));
    parser.addPositionalArgument(QStringLiteral("MODE"), QStringLiteral("A mode."), QStringLiteral("[MODE]]"));
}

} // namespace

int runModes(const QStringList& arguments)
{
    QCommandLineParser parser;
    addOptions(parser);
    if (!parser.parse(QStringList{QStringLiteral("vantro modes")} + arguments))
        return wrongUsage(parser.errorText());
    if (parser.isSet(QStringLiteral("help"))) {
        terminal::writeLine(terminal::helpText(parser, QStringLiteral("modes")));
        return ExitCode::done;
    }
    const QStringList words = parser.positionalArguments();
    const QString action = words.value(0, QStringLiteral("list"));
    static const QStringList withMode{QStringLiteral("show"), QStringLiteral("set"), QStringLiteral("default")};
    if (action != QLatin1String("list") && !withMode.contains(action))
        return wrongUsage(QStringLiteral("there is no action \"%1\"").arg(action));
    if (words.size() != (withMode.contains(action) ? 2 : std::min<qsizetype>(words.size(), 1)))
        return wrongUsage(QStringLiteral("modes %1 needs one mode").arg(action));

    Session session;
    if (action == QLatin1String("list"))
        return list(session, parser.isSet(QStringLiteral("json")));
    const auto mode = session.find(words[1]);
    if (!mode) {
        terminal::writeError(QStringLiteral("there is no mode \"%1\": vantro modes lists them").arg(words[1]));
        return ExitCode::notFound;
    }
    try {
        return carryOut(session, action, *mode, parser);
    } catch (const Error& error) {
        terminal::writeError(QStringLiteral("modes %1: %2").arg(action, error.localizedDescription()));
        return ExitCode::failed;
    }
}

} // namespace vantro
