#include "base/RunTask.h"
#include "platform/Wording.h"
#include "vantro/ai/providers/KeychainError.h"
#include "vantro/ai/services/FormatServiceFactory.h"
#include "vantro/ai/services/RemoteFormatError.h"
#include "vantro/cli/Command.h"
#include "vantro/cli/ProvidersSession.h"
#include "vantro/cli/Terminal.h"

#include <QElapsedTimer>
#include <QHostAddress>
#include <QJsonArray>
#include <QUrl>

#include <algorithm>
#include <array>

namespace vantro {

namespace {

struct TextOption
{
    const char* name;
    const char* placeholder;
    ProviderForm::Field field;
    QString ProviderForm::*text;
    const char* help;
};

constexpr std::array textOptions{
    TextOption{"name", "NAME", ProviderForm::Field::name, &ProviderForm::name,
               QT_TRANSLATE_NOOP("Command", "Name in the list.")},
    TextOption{"model", "MODEL", ProviderForm::Field::model, &ProviderForm::model,
               QT_TRANSLATE_NOOP("Command", "Model.")},
    TextOption{"base-url", "URL", ProviderForm::Field::baseURL, &ProviderForm::baseURL,
               QT_TRANSLATE_NOOP("Command", "Address of your own server, up to /v1.")},
    TextOption{"max-tokens", "N", ProviderForm::Field::maxTokens, &ProviderForm::maxTokens,
               QT_TRANSLATE_NOOP("Command", "Maximum number of tokens in the answer.")},
    TextOption{"max-completion-tokens", "N", ProviderForm::Field::maxCompletionTokens,
               &ProviderForm::maxCompletionTokens, QT_TRANSLATE_NOOP("Command", "The same, under its newer name.")},
    TextOption{"temperature", "X", ProviderForm::Field::temperature, &ProviderForm::temperature,
               QT_TRANSLATE_NOOP("Command", "Temperature.")},
    TextOption{"top-p", "X", ProviderForm::Field::topP, &ProviderForm::topP, QT_TRANSLATE_NOOP("Command", "Top p.")},
    TextOption{"service-tier", "TIER", ProviderForm::Field::serviceTier, &ProviderForm::serviceTier,
               QT_TRANSLATE_NOOP("Command", "Service tier:")},
    TextOption{"reasoning-effort", "EFFORT", ProviderForm::Field::reasoningEffort, &ProviderForm::reasoningEffort,
               QT_TRANSLATE_NOOP("Command", "Reasoning effort.")},
};

constexpr char typeOption[] = "type";
constexpr char parametersOption[] = "parameters";
constexpr char enableOption[] = "enable";
constexpr char disableOption[] = "disable";
constexpr char keyStdinOption[] = "key-stdin";
constexpr char askKeyOption[] = "ask-key";

/// All of them at once.
void takeParameters(const QString& wanted, ProviderForm& form)
{
    if (wanted != QLatin1String("none") && wanted != QLatin1String("standard"))
        throw WrongUsage(Command::tr("--parameters: choose none or standard"));
    form.maxTokens = form.maxCompletionTokens = form.temperature = form.topP = QString();
    form.serviceTier = form.reasoningEffort = QString();
    form.sendsStandardParameters = wanted == QLatin1String("standard");
}

/// Applies the options to @p form. Throws WrongUsage.
void takeOptions(const CommandCall& call, ProviderForm& form)
{
    if (call.has(typeOption)) {
        const auto type = remoteProviderType(call.value(typeOption));
        if (!type)
            throw WrongUsage(Command::tr("--type: there is no type \"%1\": choose OpenAI, Anthropic, Gemini or Custom")
                                 .arg(call.value(typeOption)));
        form.type = *type;
    }
    if (call.has(enableOption) && call.has(disableOption))
        throw WrongUsage(Command::tr("choose either --enable or --disable"));
    for (const TextOption& option : textOptions) {
        if (call.has(option.name))
            form.*option.text = call.value(option.name);
    }
    if (call.has(parametersOption))
        takeParameters(call.value(parametersOption), form);
    const auto problems = form.problems();
    if (problems.empty())
        return;
    const auto option = std::ranges::find(textOptions, problems.front().field, &TextOption::field);
    throw WrongUsage(QStringLiteral("--%1: %2").arg(QLatin1String(option->name), problems.front().message));
}

ProviderConfiguration configured(const CommandCall& call, const ProviderForm& form, const ProviderConfiguration& former)
{
    ProviderConfiguration provider = form.applied(former);
    if (call.has(enableOption))
        provider.isEnabled = true;
    if (call.has(disableOption))
        provider.isEnabled = false;
    return provider;
}

/// A key from standard input or typed by the user; nullopt when there is none.
std::optional<QString> readKey(const CommandCall& call, bool asks)
{
    if (!call.has(keyStdinOption) && !(asks && terminal::inputIsTerminal()))
        return std::nullopt;
    auto key = terminal::readSecret(Command::tr("API key (Return for none): "));
    if (!key && call.has(keyStdinOption))
        throw CommandError(ExitCode::usage,
                           Command::tr("--key-stdin: there is no key on standard input; nothing was changed"));
    return key;
}

void warnOfOpenTransport(const ProviderConfiguration& provider)
{
    const QUrl url(provider.customBaseURL.value_or(QString()));
    const bool isLocal = url.host() == QLatin1String("localhost") || QHostAddress(url.host()).isLoopback();
    if (provider.providerType == RemoteProviderType::Custom && url.scheme() == QLatin1String("http") && !isLocal)
        terminal::writeError(Command::tr("texts and the key will be sent to %1 unencrypted").arg(url.host()));
}

/// @p sentence: with %1 for the name.
int tell(const ProviderConfiguration& provider, const QString& sentence, bool json)
{
    if (json)
        terminal::writeJson(providerJson(provider));
    else
        terminal::writeLine(sentence.arg(provider.name));
    return ExitCode::done;
}

/// The defaults of a public provider, so that only its type has to be given.
ProviderForm formForType(const QString& name)
{
    const auto type = remoteProviderType(name);
    for (const ProviderConfiguration& provider : ProviderConfiguration::defaults()) {
        if (type == provider.providerType)
            return ProviderForm(provider);
    }
    return {};
}

void addWithKey(ProvidersSession& session, const ProviderConfiguration& provider, const std::optional<QString>& key)
{
    ProviderConfigurationManager& manager = session.manager;
    // Before the key, so that a clean-up by another process knows the key's owner.
    manager.add(provider);
    session.defaults.requireSaved();
    try {
        if (key)
            runTask(manager.storeKey(provider.id, *key));
    } catch (const KeychainError&) {
        manager.remove(provider.id);
        throw;
    }
}

} // namespace

int providersExitCode(const Error& error)
{
    const auto* remote = dynamic_cast<const RemoteFormatError*>(&error);
    const auto* keychain = dynamic_cast<const KeychainError*>(&error);
    const bool isMissing = (remote != nullptr && remote->kind() == RemoteFormatError::Kind::networkError) ||
                           (keychain != nullptr && keychain->kind() == KeychainError::Kind::serviceMissing);
    return isMissing ? ExitCode::noService : ExitCode::failed;
}

std::vector<CommandOption> providerOptions()
{
    std::vector<CommandOption> options{
        {typeOption,
         QT_TRANSLATE_NOOP("Command", "OpenAI, Anthropic, Gemini or Custom (any server with OpenAI's chat "
                                      "completions API: vLLM, Ollama, llama.cpp)."),
         "TYPE"}};
    for (const TextOption& option : textOptions) {
        const QString help = Command::tr(option.help) + QLatin1Char(' ') + ProviderForm::hint(option.field);
        options.push_back({option.name, help.trimmed().toStdString(), option.placeholder});
    }
    options.push_back(
        {parametersOption,
         QT_TRANSLATE_NOOP(
             "Command", "Remove all parameters: standard sends temperature 0.3 and both penalties as 0, which is also "
                        "what a provider without parameters gets; none sends nothing, for models that refuse them."),
         "WHICH"});
    options.push_back({enableOption, QT_TRANSLATE_NOOP("Command", "Let modes use it.")});
    options.push_back({disableOption, QT_TRANSLATE_NOOP("Command", "Send nothing to it.")});
    options.push_back({keyStdinOption, QT_TRANSLATE_NOOP("Command", "Read the key from standard input.")});
    options.push_back({askKeyOption, QT_TRANSLATE_NOOP("Command", "With edit: ask for a new key.")});
    return options;
}

int addProvider(const CommandCall& call)
{
    ProvidersSession session;
    if (!call.has(typeOption))
        throw WrongUsage(Command::tr("providers add needs --type"));
    ProviderForm form = formForType(call.value(typeOption));
    takeOptions(call, form);
    ProviderConfiguration fresh;
    fresh.id = QUuid::createUuid();
    const ProviderConfiguration provider = configured(call, form, fresh);
    if (std::ranges::any_of(session.manager.configurations(),
                            [&provider](const auto& other) { return other.name == provider.name; }))
        throw CommandError(
            ExitCode::failed,
            Command::tr("there is already a provider \"%1\": edit it, or choose another --name").arg(provider.name));
    const auto key = readKey(call, true);
    addWithKey(session, provider, key);
    warnOfOpenTransport(provider);
    terminal::writeMessage(
        key ? wording::keyIsStoredSecurely()
            : Command::tr("No API key configured: vantro providers edit \"%1\" --ask-key").arg(provider.name));
    return tell(provider, Command::tr("%1 has been added"), call.json());
}

int editProvider(const CommandCall& call)
{
    ProvidersSession session;
    const ProviderConfiguration former = providerFrom(call, session);
    ProviderForm form(former);
    takeOptions(call, form);
    const ProviderConfiguration provider = configured(call, form, former);
    const auto key = readKey(call, call.has(askKeyOption));
    if (key) {
        runTask(session.manager.storeKey(provider.id, *key));
        terminal::writeMessage(wording::keyIsStoredSecurely());
    }
    if (provider != former)
        session.manager.update(provider);
    session.defaults.requireSaved();
    warnOfOpenTransport(provider);
    return tell(provider, Command::tr("%1 has been changed"), call.json());
}

int removeProvider(const CommandCall& call)
{
    ProvidersSession session;
    const ProviderConfiguration provider = providerFrom(call, session);
    if (!call.has("yes")) {
        if (!terminal::inputIsTerminal())
            throw WrongUsage(Command::tr("providers remove needs --yes when there is no terminal to ask on"));
        if (!terminal::ask(
                Command::tr("Are you sure you want to delete '%1'? This action cannot be undone.").arg(provider.name)))
            return ExitCode::failed;
    }
    session.manager.remove(provider.id);
    session.defaults.requireSaved();
    runTask(session.manager.cleanUpWhenPossible());
    return tell(provider, Command::tr("%1 has been removed"), call.json());
}

int testProvider(const CommandCall& call)
{
    ProvidersSession session;
    const ProviderConfiguration provider = providerFrom(call, session);
    QElapsedTimer timer;
    timer.start();
    QString problem;
    int code = ExitCode::done;
    try {
        runTask(session.rewriting.verify(provider));
    } catch (const Error& error) {
        problem = error.localizedDescription();
        code = providersExitCode(error);
    }
    if (call.json()) {
        const QJsonObject object{{QStringLiteral("name"), provider.name},
                                 {QStringLiteral("ok"), problem.isEmpty()},
                                 {QStringLiteral("problem"), problem},
                                 {QStringLiteral("ms"), timer.elapsed()}};
        terminal::writeJson(object);
    } else if (problem.isEmpty()) {
        terminal::writeLine(Command::tr("%1 accepts the key (%2 ms)").arg(provider.name).arg(timer.elapsed()));
    }
    if (!problem.isEmpty())
        terminal::writeError(QStringLiteral("%1: %2").arg(provider.name, problem));
    return code;
}

int offeredModels(const CommandCall& call)
{
    const ProvidersSession session;
    const QStringList names = runTask(session.rewriting.offeredModels(providerFrom(call, session)));
    if (call.json())
        terminal::writeJson(QJsonArray::fromStringList(names));
    else
        std::ranges::for_each(names, [](const QString& name) { terminal::writeLine(name); });
    return ExitCode::done;
}

} // namespace vantro
