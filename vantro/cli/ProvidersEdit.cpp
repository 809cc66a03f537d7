#include "base/RunTask.h"
#include "platform/Wording.h"
#include "vantro/ai/providers/KeychainError.h"
#include "vantro/ai/services/FormatServiceFactory.h"
#include "vantro/ai/services/RemoteFormatError.h"
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
    TextOption{"name", "NAME", ProviderForm::Field::name, &ProviderForm::name, "Name in the list."},
    TextOption{"model", "MODEL", ProviderForm::Field::model, &ProviderForm::model, "Model."},
    TextOption{"base-url", "URL", ProviderForm::Field::baseURL, &ProviderForm::baseURL,
               "Address of your own server, up to /v1."},
    TextOption{"max-tokens", "N", ProviderForm::Field::maxTokens, &ProviderForm::maxTokens,
               "Maximum number of tokens in the answer."},
    TextOption{"max-completion-tokens", "N", ProviderForm::Field::maxCompletionTokens,
               &ProviderForm::maxCompletionTokens, "The same, under its newer name."},
    TextOption{"temperature", "X", ProviderForm::Field::temperature, &ProviderForm::temperature, "Temperature."},
    TextOption{"top-p", "X", ProviderForm::Field::topP, &ProviderForm::topP, "Top p."},
    TextOption{"service-tier", "TIER", ProviderForm::Field::serviceTier, &ProviderForm::serviceTier, "Service tier:"},
    TextOption{"reasoning-effort", "EFFORT", ProviderForm::Field::reasoningEffort, &ProviderForm::reasoningEffort,
               "Reasoning effort."},
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
        throw WrongUsage(QStringLiteral("--parameters: choose none or standard"));
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
            throw WrongUsage(
                QStringLiteral("--type: there is no type \"%1\": choose OpenAI, Anthropic, Gemini or Custom")
                    .arg(call.value(typeOption)));
        form.type = *type;
    }
    if (call.has(enableOption) && call.has(disableOption))
        throw WrongUsage(QStringLiteral("choose either --enable or --disable"));
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
    auto key = terminal::readSecret(QStringLiteral("API key (Return for none): "));
    if (!key && call.has(keyStdinOption))
        throw CommandError(ExitCode::usage,
                           QStringLiteral("--key-stdin: there is no key on standard input; nothing was changed"));
    return key;
}

void warnOfOpenTransport(const ProviderConfiguration& provider)
{
    const QUrl url(provider.customBaseURL.value_or(QString()));
    const bool isLocal = url.host() == QLatin1String("localhost") || QHostAddress(url.host()).isLoopback();
    if (provider.providerType == RemoteProviderType::Custom && url.scheme() == QLatin1String("http") && !isLocal)
        terminal::writeError(QStringLiteral("texts and the key will be sent to %1 unencrypted").arg(url.host()));
}

int tell(const ProviderConfiguration& provider, const QString& what, bool json)
{
    if (json)
        terminal::writeJson(providerJson(provider));
    else
        terminal::writeLine(QStringLiteral("%1 %2").arg(provider.name, what));
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
    std::vector<CommandOption> options{{typeOption,
                                        "OpenAI, Anthropic, Gemini or Custom (any server with OpenAI's chat "
                                        "completions API: vLLM, Ollama, llama.cpp).",
                                        "TYPE"}};
    for (const TextOption& option : textOptions) {
        const QString help = QLatin1String(option.help) + QLatin1Char(' ') + ProviderForm::hint(option.field);
        options.push_back({option.name, help.trimmed().toStdString(), option.placeholder});
    }
    options.push_back({parametersOption,
                       "Remove all parameters: standard sends temperature 0.3 and both penalties as 0, which is also "
                       "what a provider without parameters gets; none sends nothing, for models that refuse them.",
                       "WHICH"});
    options.push_back({enableOption, "Let modes use it."});
    options.push_back({disableOption, "Send nothing to it."});
    options.push_back({keyStdinOption, "Read the key from standard input."});
    options.push_back({askKeyOption, "With edit: ask for a new key."});
    return options;
}

int addProvider(const CommandCall& call)
{
    ProvidersSession session;
    if (!call.has(typeOption))
        throw WrongUsage(QStringLiteral("providers add needs --type"));
    ProviderForm form = formForType(call.value(typeOption));
    takeOptions(call, form);
    ProviderConfiguration fresh;
    fresh.id = QUuid::createUuid();
    const ProviderConfiguration provider = configured(call, form, fresh);
    if (std::ranges::any_of(session.manager.configurations(),
                            [&provider](const auto& other) { return other.name == provider.name; }))
        throw CommandError(
            ExitCode::failed,
            QStringLiteral("there is already a provider \"%1\": edit it, or choose another --name").arg(provider.name));
    const auto key = readKey(call, true);
    addWithKey(session, provider, key);
    warnOfOpenTransport(provider);
    terminal::writeMessage(
        key ? wording::keyIsStoredSecurely()
            : QStringLiteral("No API key configured: vantro providers edit \"%1\" --ask-key").arg(provider.name));
    return tell(provider, QStringLiteral("has been added"), call.json());
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
    return tell(provider, QStringLiteral("has been changed"), call.json());
}

int removeProvider(const CommandCall& call)
{
    ProvidersSession session;
    const ProviderConfiguration provider = providerFrom(call, session);
    if (!call.has("yes")) {
        if (!terminal::inputIsTerminal())
            throw WrongUsage(QStringLiteral("providers remove needs --yes when there is no terminal to ask on"));
        if (!terminal::ask(QStringLiteral("Are you sure you want to delete '%1'? This action cannot be undone.")
                               .arg(provider.name)))
            return ExitCode::failed;
    }
    session.manager.remove(provider.id);
    session.defaults.requireSaved();
    runTask(session.manager.cleanUpWhenPossible());
    return tell(provider, QStringLiteral("has been removed"), call.json());
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
        terminal::writeLine(QStringLiteral("%1 accepts the key (%2 ms)").arg(provider.name).arg(timer.elapsed()));
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
