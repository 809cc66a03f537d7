#pragma once

#include "base/Logger.h"
#include "base/UserDefaults.h"
#include "vantro/ai/providers/KeychainServicing.h"
#include "vantro/ai/providers/ProviderConfiguration.h"

#include <QObject>
#include <qcoro/qcorotask.h>

#include <vector>

namespace vantro {

/// The user's list of providers, written through to the settings and read anew when another process changes it, and
/// their keys in the key store. Main thread.
class ProviderConfigurationManager final : public QObject
{
    Q_OBJECT
public:
    ProviderConfigurationManager(UserDefaults& defaults, KeychainServicing& keychain);

    [[nodiscard]] const std::vector<ProviderConfiguration>& configurations() const { return configurations_; }
    /// Null when there is none.
    [[nodiscard]] const ProviderConfiguration* find(const QUuid& id) const;

    /// Reads the stored list. Where nothing is stored, or nothing that can be read, the defaults are taken and stored,
    /// so that they keep their ids.
    void load();
    void save();
    void add(const ProviderConfiguration& configuration);
    /// Does nothing for one that is not in the list.
    void update(const ProviderConfiguration& configuration);
    /// Its key goes with the next clean-up.
    void remove(const QUuid& id);

    // The keys; all throw KeychainError.
    QCoro::Task<> storeKey(QUuid id, QString key);
    QCoro::Task<std::optional<QString>> readKey(QUuid id);

    /// Deletes the keys of configurations that are no more.
    QCoro::Task<> cleanUpOrphanedKeys();
    /// The same, without a word when the key store is not at hand; a clean-up that was missed is made up for at a later
    /// start.
    QCoro::Task<> cleanUpWhenPossible();
    [[nodiscard]] bool isCleanUpDue() const;

Q_SIGNALS:
    void configurationsChanged();

private:
    [[nodiscard]] bool decode(const QByteArray& data);

    Logger logger_{"ProviderConfigurationManager"};
    UserDefaults& defaults_;
    KeychainServicing& keychain_;
    std::vector<ProviderConfiguration> configurations_;
};

} // namespace vantro
