#pragma once

#include "platform/SessionState.h"

#include <QDBusObjectPath>
#include <QObject>
#include <QTimer>
#include <QVariantMap>

#include <memory>

class QDBusPendingCall;

namespace vantro {

/// This session as logind (org.freedesktop.login1) knows it. Without logind, or in a session that it does not know, the
/// user is never away.
class LoginSession final : public QObject
{
    Q_OBJECT
public:
    LoginSession();

    [[nodiscard]] bool isAway() const { return isAsleep_ || isLocked_ || !isActive_ || lockRequest_.isActive(); }
    [[nodiscard]] std::unique_ptr<SessionState::SleepDelay> delaySleep() const;

Q_SIGNALS:
    void changed();

private Q_SLOTS:
    void prepareForSleep(bool begins);
    void lockRequested();
    void unlockRequested();
    void propertiesChanged(const QString& interface, const QVariantMap& changed, const QStringList& invalidated);

private:
    void findSession();
    void follow(const QDBusObjectPath& session);
    void take(const QVariantMap& properties);

    bool isAsleep_ = false;
    bool isLocked_ = false;
    bool isActive_ = true;
    QTimer lockRequest_; ///< runs while a locker may be about to answer a request
};

} // namespace vantro
