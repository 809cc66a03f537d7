#include "vantro/main/WhenIdle.h"

#include <utility>

namespace vantro {

WhenIdle::WhenIdle(const AudioRecorder& recorder) : recorder_(recorder)
{
    // Later: the windows that the dictation has put aside come back first.
    connect(&recorder_, &AudioRecorder::isBusyChanged, this, &WhenIdle::catchUp, Qt::QueuedConnection);
}

void WhenIdle::run(std::function<void()> action)
{
    if (recorder_.isBusy())
        waiting_.push_back(std::move(action));
    else
        action();
}

void WhenIdle::catchUp()
{
    for (auto& action : std::exchange(waiting_, {}))
        run(std::move(action));
}

} // namespace vantro
