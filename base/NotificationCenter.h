#pragma once

#include <QString>
#include <QVariantMap>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace vantro {

/// Named announcements between objects that do not know each other. Main thread only; observers are called in the
/// order in which they began to observe, before post() returns.
class NotificationCenter
{
public:
    using UserInfo = QVariantMap;
    using Observer = std::function<void(const UserInfo&)>;

    /// Ends the observation when destroyed. Outliving the centre is allowed.
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
