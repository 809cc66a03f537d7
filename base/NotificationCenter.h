#pragma once

#include <QString>
#include <QVariantMap>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace vantro {

/// Publishes named notifications between decoupled objects. Main thread only; observers are called synchronously, in
/// the order of registration.
class NotificationCenter
{
public:
    using UserInfo = QVariantMap;
    using Observer = std::function<void(const UserInfo&)>;

    /// Ends the observation when destroyed. May outlive the centre.
    class Observation
    {
    public:
        Observation() = default;
        explicit Observation(std::shared_ptr<Observer> observer) : observer_(std::move(observer)) {}

    private:
        std::shared_ptr<Observer> observer_;
    };

    [[nodiscard]] Observation observe(const QString& name, Observer observer);
    void post(const QString& name, const UserInfo& userInfo = {});

private:
    struct Entry
    {
        QString name;
        std::weak_ptr<Observer> observer;
    };
    std::vector<Entry> entries_;
};

} // namespace vantro
