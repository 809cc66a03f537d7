#include "base/RunTask.h"
#include "platform/Wording.h"
#include "vantro/ai/providers/KeychainError.h"
#include "vantro/ai/services/FormatServiceFactory.h"
#include "vantro/ai/services/RemoteFormatError.h"
#include "vantro/cli/ExitCode.h"
#include "vantro/cli/ProvidersSession.h"
#include "vantro/cli/Terminal.h"

#include <QElapsedTimer>
#include <QHostAddress>
#include <QJsonDocument>
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
    TextOption{"name", "NAME", ProviderForm::Field::name, &ProviderForm::name, "What the list calls it."},
    TextOption{"model", "MODEL", ProviderForm::Field::model, &ProviderForm::model, "The model that is asked."},
    TextOption{"base-url", "URL", ProviderForm::Field::baseURL, &ProviderForm::baseURL,
               "Address of a server of your own, up to /v1."},
    TextOption{"max-tokens", "N", ProviderForm::Field::maxTokens, &ProviderForm::maxTokens, "Most tokens answered."},
    TextOption{"max-completion-tokens", "N", ProviderForm::Field::maxCompletionTokens,
               &ProviderForm::maxCompletionTokens, "The same under its newer name."},
    TextOption{"temperature", "X", ProviderForm::Field::temperature, &ProviderForm::temperature, "Temperature."},
    TextOption{"top-p", "X", ProviderForm::Field::topP, &ProviderForm::topP, "Top p."},
    TextOption{"service-tier", "TIER", ProviderForm::Field::serviceTier, &ProviderForm::serviceTier, "Service tier:"},
    TextOption{"reasoning-effort", "EFFORT", ProviderForm::Field::reasoningEffort, &ProviderForm::reasoningEffort,
               "Reasoning effort."},
};

const auto typeOption = QStringLiteral("type");
const auto enableOption = QStringLiteral("enable");
const auto disableOption = QStringLiteral("disable");
const auto keyStdinOption = QStringLiteral("key-stdin");
const auto askKeyOption = QStringLiteral("ask-key");

int wrongUsage(const QString& text)
{
    terminal::writeError(text + QStringLiteral(" (see vantro providers --help)"));
    return ExitCode::usage;
}

/// Puts what the options say into @p form; what is wrong with them, or nothing.
QString takeOptions(const QCommandLineParser& parser, ProviderForm& form)
{
    if (parser.isSet(typeOption)) {
        const auto type = remoteProviderType(parser.value(typeOption));
        if (!type)
            return QStringLiteral("--type: there is no type \"%1\": choose OpenAI, Anthropic, Gemini or Custom")
                .arg(parser.value(typeOption));
        form.type = *type;
    }
    if (parser.isSet(enableOption) && parser.isSet(disableOption))
        return QStringLiteral("choose either --enable or --disable");
    for (const TextOption& option : textOptions) {
        if (parser.isSet(QLatin1String(option.name)))
            form.*option.text = parser.value(QLatin1String(option.name));
    }
    const auto problems = form.problems();
    if (problems.empty())
        return {};
    const auto option = std::ranges::find(textOptions, problems.front().field, &TextOption::field);
    return QStringLiteral("--%1: %2").arg(QLatin1String(option->name), problems.front().message);
}

ProviderConfiguration configured(const QCommandLineParser& parser, const ProviderForm& form,
                                 const ProviderConfiguration& former)
{
    ProviderConfiguration provider = form.applied(former);
    if (parser.isSet(enableOption))
        provider.isEnabled = true;
    if (parser.isSet(disableOption))
        provider.isEnabled = false;
    return provider;
}

/// A key that was given or typed; nothing when there is none.
std::optional<QString> readKey(const QCommandLineParser& parser, bool asks)
{
    if (!parser.isSet(keyStdinOption) && !(asks && terminal::inputIsTerminal()))
        return std::nullopt;
    return terminal::readSecret(QStringLiteral("API key (Return for none): "));
}

void warnOfOpenTransport(const ProviderConfiguration& provider)
{
    const QUrl url(provider.customBaseURL.value_or(QString()));
    const bool isLocal = url.host() == QLatin1String("localhost") || QHostAddress(url.host()).isLoopback();
    if (provider.providerType == RemoteProviderType::Custom && url.scheme() == QLatin1String("http") && !isLocal)
        terminal::writeError(QStringLiteral("texts and the key will travel to %1 unencrypted").arg(url.host()));
}

int tell(const ProviderConfiguration& provider, const QString& what, bool json)
{
    if (json)
        terminal::writeLine(QString::fromUtf8(QJsonDocument(providerJson(provider)).toJson(QJsonDocument::Compact)));
    else
        terminal::writeLine(QStringLiteral("%1 %2").arg(provider.name, what));
    return ExitCode::done;
}

int exitCode(const Error& error)
{
    const auto* remote = dynamic_cast<const RemoteFormatError*>(&error);
    const auto* keychain = dynamic_cast<const KeychainError*>(&error);
    const bool isMissing = (remote != nullptr && remote->kind() == RemoteFormatError::Kind::networkError) ||
                           (keychain != nullptr && keychain->kind() == KeychainError::Kind::serviceMissing);
    return isMissing ? ExitCode::noService : ExitCode::failed;
}

/// A public provider needs no more than its type: the rest is as in a new installation.
ProviderForm formForType(const QString& name)
{
    const auto type = remoteProviderType(name);
    for (const ProviderConfiguration& provider : ProviderConfiguration::defaults()) {
        if (type == provider.providerType)
            return ProviderForm(provider);
    }
    return {};
}

void addWithKey(ProviderConfigurationManager& manager, const ProviderConfiguration& provider,
                const std::optional<QString>& key)
{
    // Listed first: another process's clean-up knows the key's owner then.
    manager.add(provider);
    try {
        if (key)
            runTask(manager.storeKey(provider.id, *key));
    } catch (const KeychainError&) {
        manager.remove(provider.id);
        throw;
    }
}

} // namespace

void addProviderOptions(QCommandLineParser& parser)
{
    parser.addOption({typeOption,
                      QStringLiteral("OpenAI, Anthropic, Gemini or Custom (any server that speaks OpenAI's "
                                     "chat completions: vLLM, Ollama, llama.cpp)."),
                      QStringLiteral("TYPE")});
    for (const TextOption& option : textOptions) {
        const QString help = QLatin1String(option.help) + QLatin1Char(' ') + ProviderForm::hint(option.field);
        parser.addOption({QLatin1String(option.name), help.trimmed(), QLatin1String(option.placeholder)});
    }
    parser.addOption({enableOption, QStringLiteral("Let modes use it.")});
    parser.addOption({disableOption, QStringLiteral("Send it nothing any more.")});
    parser.addOption({keyStdinOption, QStringLiteral("Read the key from standard input.")});
    parser.addOption({askKeyOption, QStringLiteral("With edit: ask for a new key.")});
}

int addProvider(ProvidersSession& session, const QCommandLineParser& parser)
{
    if (!parser.isSet(typeOption))
        return wrongUsage(QStringLiteral("providers add needs --type"));
    ProviderForm form = formForType(parser.value(typeOption));
    if (const QString problem = takeOptions(parser, form); !problem.isEmpty())
        return wrongUsage(problem);
    ProviderConfiguration fresh;
    fresh.id = QUuid::createUuid();
    const ProviderConfiguration provider = configured(parser, form, fresh);
    if (std::ranges::any_of(session.manager.configurations(),
                            [&provider](const auto& other) { return other.name == provider.name; })) {
        terminal::writeError(
            QStringLiteral("there is a provider \"%1\" already: edit it, or choose another --name").arg(provider.name));
        return ExitCode::failed;
    }
    const auto key = readKey(parser, true);
    addWithKey(session.manager, provider, key);
    warnOfOpenTransport(provider);
    terminal::writeMessage(
        key ? wording::keyIsStoredSecurely()
            : QStringLiteral("No API key configured: vantro providers edit \"%1\" --ask-key").arg(provider.name));
    return tell(provider, QStringLiteral("is added"), parser.isSet(QStringLiteral("json")));
}

int editProvider(ProvidersSession& session, const ProviderConfiguration& former, const QCommandLineParser& parser)
{
    ProviderForm form(former);
    if (const QString problem = takeOptions(parser, form); !problem.isEmpty())
        return wrongUsage(problem);
    const ProviderConfiguration provider = configured(parser, form, former);
    const auto key = readKey(parser, parser.isSet(askKeyOption));
    if (key) {
        runTask(session.manager.storeKey(provider.id, *key));
        terminal::writeMessage(wording::keyIsStoredSecurely());
    }
    if (provider != former)
        session.manager.update(provider);
    warnOfOpenTransport(provider);
    return tell(provider, QStringLiteral("is changed"), parser.isSet(QStringLiteral("json")));
}

int removeProvider(ProvidersSession& session, const ProviderConfiguration& provider, const QCommandLineParser& parser)
{
    if (!parser.isSet(QStringLiteral("yes"))) {
        if (!terminal::inputIsTerminal())
            return wrongUsage(QStringLiteral("providers remove needs --yes where nobody can be asked"));
        if (!terminal::ask(QStringLiteral("Are you sure you want to delete '%1'? This action cannot be undone.")
                               .arg(provider.name)))
            return ExitCode::failed;
    }
    session.manager.remove(provider.id);
    runTask(session.manager.cleanUpWhenPossible());
    return tell(provider, QStringLiteral("is removed"), parser.isSet(QStringLiteral("json")));
}

int testProvider(ProvidersSession& session, const ProviderConfiguration& provider, bool json)
{
    QElapsedTimer timer;
    timer.start();
    QString problem;
    int code = ExitCode::done;
    try {
        runTask(session.rewriting.verify(provider));
    } catch (const Error& error) {
        problem = error.localizedDescription();
        code = exitCode(error);
    }
    if (json) {
        const QJsonObject object{{QStringLiteral("name"), provider.name},
                                 {QStringLiteral("ok"), problem.isEmpty()},
                                 {QStringLiteral("problem"), problem},
                                 {QStringLiteral("ms"), timer.elapsed()}};
        terminal::writeLine(QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact)));
    } else if (problem.isEmpty()) {
        terminal::writeLine(QStringLiteral("%1 accepts the key (%2 ms)").arg(provider.name).arg(timer.elapsed()));
    }
    if (!problem.isEmpty())
        terminal::writeError(QStringLiteral("%1: %2").arg(provider.name, problem));
    return code;
}

} // namespace vantro
