#include "vantro/llm/Turn.h"

namespace vantro {

std::shared_ptr<void> Turn::take()
{
    {
        const std::scoped_lock locker(state_->lock);
        ++state_->count;
    }
    return {nullptr, [state = state_](void*) {
                const std::scoped_lock locker(state->lock);
                if (--state->count == 0)
                    state->isFree.notify_all();
            }};
}

bool Turn::isTaken() const
{
    const std::scoped_lock locker(state_->lock);
    return state_->count > 0;
}

void Turn::wait(const std::stop_token& stop) const
{
    std::unique_lock locker(state_->lock);
    state_->isFree.wait(locker, stop, [this] { return state_->count == 0; });
}

} // namespace vantro
