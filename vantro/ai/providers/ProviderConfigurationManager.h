#pragma once

#include "base/Logger.h"
#include "base/UserDefaults.h"
#include "vantro/ai/providers/KeychainServicing.h"
#include "vantro/ai/providers/ProviderConfiguration.h"

#include <QObject>
#include <qcoro/qcorotask.h>

#include <vector>

namespace vantro {

/// The user's list of providers and their API keys. Changes are written to the settings at once; changes made by
/// another process are picked up. Main thread.
class ProviderConfigurationManager final : public QObject
{
    Q_OBJECT
public:
    ProviderConfigurationManager(UserDefaults& defaults, KeychainServicing& keychain);

    [[nodiscard]] const std::vector<ProviderConfiguration>& configurations() const { return configurations_; }
    /// Null when the list has no such id.
    [[nodiscard]] const ProviderConfiguration* find(const QUuid& id) const;

    /// Reads the stored list. If it is missing or unreadable, the defaults are stored in its place, which fixes their
    /// ids.
    void load();
    void save();
    void add(const ProviderConfiguration& configuration);
    /// Does nothing when the list has no such id.
    void update(const ProviderConfiguration& configuration);
    /// Its key is deleted by the next clean-up.
    void remove(const QUuid& id);

    // These throw KeychainError.
    QCoro::Task<> storeKey(QUuid id, QString key);
    QCoro::Task<std::optional<QString>> readKey(QUuid id);

    /// Deletes the keys of the configurations that remove() has taken out. Keys that are merely unknown stay: another
    /// profile may own them, or a list that was lost.
    QCoro::Task<> cleanUpOrphanedKeys();
    /// The same, but only logs errors; a clean-up that fails is retried at the next start.
    QCoro::Task<> cleanUpWhenPossible();
    [[nodiscard]] bool isCleanUpDue() const;

Q_SIGNALS:
    void configurationsChanged();
    /// A key was stored for that configuration.
    void keyStored(const QUuid& id);

private:
    [[nodiscard]] bool decode(const QByteArray& data);
    void makeDefaults();
    [[nodiscard]] QStringList removedKeys() const;
    void forgetRemovedKey(const QString& account);
    [[nodiscard]] bool isListed(const QString& account) const;
    QCoro::Task<> removeKey(QString account);

    Logger logger_{"ProviderConfigurationManager"};
    UserDefaults& defaults_;
    KeychainServicing& keychain_;
    std::vector<ProviderConfiguration> configurations_;
};

} // namespace vantro
