#include "base/NotificationCenter.h"

#include <utility>

namespace vantro {

NotificationCenter::Observation NotificationCenter::observe(const QString& name, Observer observer)
{
    auto shared = std::make_shared<Observer>(std::move(observer));
    entries_.push_back({name, shared});
    return Observation(std::move(shared));
}

void NotificationCenter::post(const QString& name, const UserInfo& userInfo)
{
    std::erase_if(entries_, [](const Entry& entry) { return entry.observer.expired(); });
    // A copy, because observers may add and end observations.
    const std::vector<Entry> current = entries_;
    for (const Entry& entry : current) {
        if (entry.name != name)
            continue;
        if (const auto observer = entry.observer.lock())
            (*observer)(userInfo);
    }
}

} // namespace vantro
