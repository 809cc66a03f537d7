#include "vantro/main/WhenBack.h"

#include <utility>

using namespace std::chrono_literals;

namespace vantro {

namespace {

/// Lockers that know no D-Bus release the keyboard without a word.
constexpr auto lookAgain = 1s;

} // namespace

WhenBack::WhenBack(const SessionState& session, const KeyEventPoster& keyEvents, Clock& clock)
    : session_(session)
    , keyEvents_(keyEvents)
    , clock_(clock)
{
    connect(&session, &SessionState::returned, this, &WhenBack::look);
}

void WhenBack::run(std::function<void()> action)
{
    waiting_ = std::move(action);
    look();
}

void WhenBack::look()
{
    nextLook_ = std::make_unique<QObject>();
    if (!waiting_ || session_.isAway())
        return;
    if (keyEvents_.isKeyboardTaken())
        clock_.callAfter(lookAgain, nextLook_.get(), [this] { look(); });
    else
        std::exchange(waiting_, nullptr)();
}

} // namespace vantro
