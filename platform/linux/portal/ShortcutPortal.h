#pragma once

#include <QDBusObjectPath>
#include <QObject>
#include <QString>
#include <QVariantMap>

#include <optional>

namespace vantro {

/// One shortcut of the desktop's, which it tells of when it is pressed and released, in whatever program. Whether the
/// desktop really does shows only when it is asked, and takes a moment. Main thread only.
class ShortcutPortal : public QObject
{
    Q_OBJECT
public:
    ShortcutPortal() = default;
    ~ShortcutPortal() override;

    /// Asks for @p keys, in the syntax of the XDG shortcuts specification ("CTRL+ALT+d"), in place of any other. The
    /// desktop may ask the user, or give other keys.
    void bind(const QString& keys, const QString& description);
    void unbind();
    /// Whether the desktop has agreed.
    [[nodiscard]] bool isBound() const { return isBound_; }
    /// The keys as the desktop describes them; empty where it does not.
    [[nodiscard]] QString givenKeys() const { return givenKeys_; }

Q_SIGNALS:
    void boundChanged();
    /// Once per press, however long it is held.
    void pressed();
    void released();

private Q_SLOTS:
    void activate(const QDBusObjectPath& session, const QString& id, qulonglong timestamp, const QVariantMap& options);
    void deactivate(const QDBusObjectPath& session, const QString& id, qulonglong timestamp,
                    const QVariantMap& options);

private:
    void createSession();
    void bindIn(const QString& session);
    void adopt(const QVariantMap& results);
    void setBound(bool isBound);
    void followSignals();
    [[nodiscard]] QVariant wanted() const;

    QString keys_;
    QString description_;
    QString session_;
    QString givenKeys_;
    bool isBound_ = false;
    bool isDown_ = false;
    bool isFollowing_ = false;
    int generation_ = 0; ///< of bind(); earlier answers do not count
};

} // namespace vantro
