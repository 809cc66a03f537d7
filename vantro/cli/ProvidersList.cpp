#include "base/RunTask.h"
#include "base/Translations.h"
#include "vantro/ai/providers/KeychainError.h"
#include "vantro/cli/Command.h"
#include "vantro/cli/ProvidersSession.h"
#include "vantro/cli/Terminal.h"

namespace vantro {

namespace {

/// Which providers have a key; unknown when the key store is not available.
class StoredKeys
{
public:
    explicit StoredKeys(ProvidersSession& session)
    {
        try {
            accounts_ = runTask(session.rewriting.keyAccounts());
        } catch (const KeychainError& error) {
            terminal::writeError(error.localizedDescription());
        }
    }

    [[nodiscard]] std::optional<bool> has(const ProviderConfiguration& provider) const
    {
        if (!accounts_)
            return std::nullopt;
        return accounts_->contains(provider.keychainAccount(), Qt::CaseInsensitive);
    }

private:
    std::optional<QStringList> accounts_;
};

QString address(const ProviderConfiguration& provider)
{
    return provider.customBaseURL.value_or(QString());
}

QString keyText(std::optional<bool> hasKey)
{
    if (!hasKey)
        return Command::tr("unknown");
    return *hasKey ? ProviderForm::maskedKey() : Command::tr("No API key configured");
}

void printTable(const ProvidersSession& session, const StoredKeys& keys)
{
    std::vector<QStringList> rows{{Command::tr("NAME"), Command::tr("TYPE"), Command::tr("MODEL"), Command::tr("KEY"),
                                   Command::tr("STATE"), Command::tr("ADDRESS")}};
    for (const ProviderConfiguration& provider : session.manager.configurations())
        rows.push_back({provider.name, displayName(provider.providerType), provider.model, keyText(keys.has(provider)),
                        provider.isEnabled ? Command::tr("enabled") : Command::tr("disabled"), address(provider)});
    terminal::writeTable(rows);
}

void printPlain(const ProvidersSession& session, const StoredKeys& keys)
{
    const Translations::Suspension forScripts(!terminal::outputIsTerminal());
    for (const ProviderConfiguration& provider : session.manager.configurations()) {
        const auto hasKey = keys.has(provider);
        const QStringList fields{provider.name,
                                 rawValue(provider.providerType),
                                 provider.model,
                                 !hasKey   ? QStringLiteral("unknown")
                                 : *hasKey ? QStringLiteral("key")
                                           : QStringLiteral("-"),
                                 provider.isEnabled ? QStringLiteral("enabled") : QStringLiteral("disabled"),
                                 address(provider),
                                 standardForm(provider.id)};
        terminal::writeLine(fields.join(QLatin1Char('\t')));
    }
}

} // namespace

QJsonObject providerJson(const ProviderConfiguration& provider)
{
    QJsonObject object{{QStringLiteral("id"), standardForm(provider.id)},
                       {QStringLiteral("name"), provider.name},
                       {QStringLiteral("type"), rawValue(provider.providerType)},
                       {QStringLiteral("model"), provider.model},
                       {QStringLiteral("enabled"), provider.isEnabled}};
    if (provider.customBaseURL)
        object.insert(QStringLiteral("base_url"), *provider.customBaseURL);
    if (provider.parameters)
        object.insert(QStringLiteral("parameters"), provider.parameters->toJson());
    return object;
}

namespace {

void tellOfStrayAddresses(const ProvidersSession& session)
{
    for (const ProviderConfiguration& provider : session.manager.configurations()) {
        if (const auto address = provider.strayAddress())
            terminal::writeError(Command::tr("%1 is not asked: the type %2 has an address of its own, and %3 is "
                                             "given: vantro providers edit \"%1\" --type custom, or --base-url \"\"")
                                     .arg(provider.name, rawValue(provider.providerType), *address));
    }
}

} // namespace

int listProviders(const CommandCall& call)
{
    ProvidersSession session;
    tellOfStrayAddresses(session);
    const StoredKeys keys(session);
    if (!call.json()) {
        terminal::outputIsTerminal() ? printTable(session, keys) : printPlain(session, keys);
        return ExitCode::done;
    }
    QJsonArray array;
    for (const ProviderConfiguration& provider : session.manager.configurations()) {
        QJsonObject object = providerJson(provider);
        const auto hasKey = keys.has(provider);
        object.insert(QStringLiteral("has_key"), hasKey ? QJsonValue(*hasKey) : QJsonValue());
        array.append(object);
    }
    terminal::writeJson(array);
    return ExitCode::done;
}

} // namespace vantro
