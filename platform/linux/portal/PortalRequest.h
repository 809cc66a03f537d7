#pragma once

#include <QObject>
#include <QVariantMap>

#include <functional>
#include <optional>

namespace vantro {

/// A call of the desktop portal, whose answer comes later as a signal. Deletes itself when it is answered, or with its
/// parent, which then never hears of it. Main thread only.
class PortalRequest final : public QObject
{
    Q_OBJECT
public:
    static QString service() { return QStringLiteral("org.freedesktop.portal.Desktop"); }
    static QString path() { return QStringLiteral("/org/freedesktop/portal/desktop"); }

    struct Call
    {
        QString interface; ///< "GlobalShortcuts"
        QString method;
        QVariantList arguments; ///< without the options, which come last
        QVariantMap options;    ///< without the token of the request
    };
    /// What the portal answers; nullopt if the user or the desktop refuses, or there is no such portal.
    using Answered = std::function<void(const std::optional<QVariantMap>& results)>;

    static void send(QObject& parent, const Call& call, Answered answered);

private Q_SLOTS:
    void respond(uint code, const QVariantMap& results);

private:
    PortalRequest(QObject& parent, Answered answered);
    void finish(const std::optional<QVariantMap>& results);

    Answered answered_;
};

} // namespace vantro
