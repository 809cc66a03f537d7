#pragma once

#include <QDBusMessage>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QString>
#include <QVariantMap>

#include <cstdint>
#include <functional>
#include <optional>
#include <set>
#include <vector>

namespace vantro {

/// Global shortcuts by the desktop portal, which tells when they are pressed and released in any program. Whether the
/// desktop has them is known only a moment after it was asked. Main thread only.
class ShortcutPortal : public QObject
{
    Q_OBJECT
public:
    struct Shortcut
    {
        std::uint32_t number = 0; ///< the caller's
        QString keys;             ///< as the portal writes keys: "CTRL+ALT+d"
        QString description;      ///< for the desktop's settings
    };

    ShortcutPortal();
    ~ShortcutPortal() override;

    /// Asks for @p shortcuts in place of any others; for none, gives them up. The desktop may ask the user, or give
    /// other keys.
    void bind(std::vector<Shortcut> shortcuts);
    /// Whether the desktop has agreed.
    [[nodiscard]] bool isBound() const { return isBound_; }
    /// Whether one of them is held down.
    [[nodiscard]] bool isAnyDown() const { return !down_.empty(); }

Q_SIGNALS:
    void boundChanged();
    /// Once per press, however long it is held.
    void pressed(std::uint32_t number);
    void released(std::uint32_t number);

private Q_SLOTS:
    // The signals' arguments: session, identifier, timestamp, options. Qt connects no slot that takes types of D-Bus
    // until some were sent.
    void activate(const QDBusMessage& signal);
    void deactivate(const QDBusMessage& signal);

private:
    void unbind();
    void bindAgain();
    void createSession();
    void bindIn(const QString& session);
    void ask(const QString& method, const QVariantList& arguments, std::function<void(const QVariantMap&)> answered);
    [[nodiscard]] std::set<std::uint32_t> numbersIn(const QVariantMap& results) const;
    void adopt(const QVariantMap& results);
    void setBound(bool isBound);
    void followSignals();
    [[nodiscard]] QVariant wanted() const;
    [[nodiscard]] std::optional<std::uint32_t> numberOf(const QString& id) const;
    [[nodiscard]] std::optional<std::uint32_t> numberIn(const QDBusMessage& signal) const;

    QDBusServiceWatcher watcher_;
    std::vector<Shortcut> shortcuts_;
    QString session_;
    std::set<std::uint32_t> down_;
    bool isBound_ = false;
    bool isFollowing_ = false;
    bool mayTryAgain_ = false; ///< to create the session
    int generation_ = 0;       ///< of bind(); earlier answers do not count
};

} // namespace vantro
