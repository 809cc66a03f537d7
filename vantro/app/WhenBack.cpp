#include "vantro/app/WhenBack.h"

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

/// To a user who is there it goes before what has waited: that is older.
void WhenBack::run(Tell tell)
{
    const bool isThere = !session_.isAway() && !keyEvents_.isKeyboardTaken();
    waiting_.insert(isThere ? waiting_.begin() : waiting_.end(), std::move(tell));
    look();
}

void WhenBack::look()
{
    nextLook_.reset();
    if (waiting_.empty() || session_.isAway())
        return;
    if (keyEvents_.isKeyboardTaken()) {
        lookAfter(lookAgain);
        return;
    }
    const Tell next = std::move(waiting_.front());
    waiting_.pop_front();
    lookAfter(next());
}

void WhenBack::lookAfter(std::chrono::milliseconds delay)
{
    nextLook_ = std::make_unique<QObject>();
    clock_.callAfter(delay, nextLook_.get(), [this] { look(); });
}

} // namespace vantro
