#include "vantro/ai/providers/ProviderConfigurationManager.h"

#include "base/Settings.h"
#include "vantro/ai/providers/KeychainError.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>

namespace vantro {

namespace {

void storeOrForget(UserDefaults& defaults, const QStringList& accounts)
{
    if (accounts.isEmpty())
        defaults.remove(setting::removedProviderKeys.key);
    else
        defaults.set(setting::removedProviderKeys,
                     QJsonDocument(QJsonArray::fromStringList(accounts)).toJson(QJsonDocument::Compact));
}

} // namespace

ProviderConfigurationManager::ProviderConfigurationManager(UserDefaults& defaults, KeychainServicing& keychain)
    : defaults_(defaults)
    , keychain_(keychain)
{
    load();
    connect(&defaults_, &UserDefaults::changed, this, [this](const QString& key) {
        if (key == setting::providerConfigurations.key)
            load();
    });
}

const ProviderConfiguration* ProviderConfigurationManager::find(const QUuid& id) const
{
    const auto found = std::ranges::find(configurations_, id, &ProviderConfiguration::id);
    return found != configurations_.end() ? &*found : nullptr;
}

void ProviderConfigurationManager::load()
{
    const auto former = configurations_;
    const auto data = defaults_.stored(setting::providerConfigurations);
    if (!data || !decode(*data))
        makeDefaults();
    if (configurations_ != former)
        Q_EMIT configurationsChanged();
}

void ProviderConfigurationManager::makeDefaults()
{
    defaults_.change([this] {
        // Another process may just have made them, with ids of its own.
        const auto data = defaults_.stored(setting::providerConfigurations);
        if (data && decode(*data))
            return;
        if (data)
            defaults_.keepUnreadable(setting::providerConfigurations.key);
        configurations_ = ProviderConfiguration::defaults();
        save();
    });
}

bool ProviderConfigurationManager::decode(const QByteArray& data)
{
    const QJsonDocument document = QJsonDocument::fromJson(data);
    if (!document.isArray())
        return false;
    std::vector<ProviderConfiguration> decoded;
    for (const QJsonValue& value : document.array()) {
        const auto configuration = ProviderConfiguration::fromJson(value.toObject());
        if (!configuration)
            return false;
        decoded.push_back(*configuration);
    }
    configurations_ = std::move(decoded);
    return true;
}

void ProviderConfigurationManager::save()
{
    QJsonArray array;
    for (const ProviderConfiguration& configuration : configurations_)
        array.append(configuration.toJson());
    defaults_.set(setting::providerConfigurations, QJsonDocument(array).toJson(QJsonDocument::Compact));
    Q_EMIT configurationsChanged();
}

void ProviderConfigurationManager::add(const ProviderConfiguration& configuration)
{
    defaults_.change([&] {
        configurations_.push_back(configuration);
        save();
    });
}

void ProviderConfigurationManager::update(const ProviderConfiguration& configuration)
{
    defaults_.change([&] {
        const auto found = std::ranges::find(configurations_, configuration.id, &ProviderConfiguration::id);
        if (found == configurations_.end())
            return;
        *found = configuration;
        save();
    });
}

void ProviderConfigurationManager::remove(const QUuid& id)
{
    defaults_.change([&] {
        if (std::erase_if(configurations_, [&id](const auto& configuration) { return configuration.id == id; }) == 0)
            return;
        storeOrForget(defaults_, removedKeys() << keychainAccount(id));
        save();
    });
}

QCoro::Task<> ProviderConfigurationManager::storeKey(QUuid id, QString key)
{
    co_await keychain_.save(key, keychainAccount(id));
    Q_EMIT keyStored(id);
}

QCoro::Task<std::optional<QString>> ProviderConfigurationManager::readKey(QUuid id)
{
    co_return co_await keychain_.read(keychainAccount(id));
}

QStringList ProviderConfigurationManager::removedKeys() const
{
    return QJsonDocument::fromJson(defaults_.get(setting::removedProviderKeys)).toVariant().toStringList();
}

bool ProviderConfigurationManager::isListed(const QString& account) const
{
    return std::ranges::any_of(configurations_, [&account](const auto& configuration) {
        return account.compare(configuration.keychainAccount(), Qt::CaseInsensitive) == 0;
    });
}

QCoro::Task<> ProviderConfigurationManager::cleanUpOrphanedKeys()
{
    const QStringList accounts = removedKeys();
    for (const QString& account : accounts) {
        if (!isListed(account))
            co_await removeKey(account);
        forgetRemovedKey(account);
    }
}

void ProviderConfigurationManager::forgetRemovedKey(const QString& account)
{
    defaults_.change([&] {
        QStringList left = removedKeys();
        left.removeAll(account);
        storeOrForget(defaults_, left);
    });
}

QCoro::Task<> ProviderConfigurationManager::removeKey(QString account)
{
    try {
        co_await keychain_.remove(account);
    } catch (const KeychainError& error) {
        if (error.kind() != KeychainError::Kind::itemNotFound)
            throw;
        co_return;
    }
    printLine(QStringLiteral("Cleaned up orphaned API key: ") + account);
}

QCoro::Task<> ProviderConfigurationManager::cleanUpWhenPossible()
{
    try {
        co_await cleanUpOrphanedKeys();
    } catch (const KeychainError& error) {
        logger_.info(tr("The keys of removed providers will be deleted at the next start: ") +
                     error.localizedDescription());
    }
}

bool ProviderConfigurationManager::isCleanUpDue() const
{
    return !removedKeys().isEmpty();
}

} // namespace vantro
