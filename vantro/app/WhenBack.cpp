#include "vantro/app/WhenBack.h"

#include <utility>

using namespace std::chrono_literals;

namespace vantro {

namespace {

/// Lockers that know no D-Bus release the keyboard without a word.
constexpr auto lookAgain = 1s;
/// What comes within it is told one after the other, and nothing is gone before it could be read.
constexpr auto sameMoment = 200ms;

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
    if (isThere && toldAt_ && clock_.now() - *toldAt_ < sameMoment) {
        waiting_.push_back(std::move(tell));
        return;
    }
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
    toldAt_ = clock_.now();
    lookAfter(next());
}

void WhenBack::lookAfter(std::chrono::milliseconds delay)
{
    nextLook_ = std::make_unique<QObject>();
    clock_.callAfter(delay, nextLook_.get(), [this] { look(); });
}

} // namespace vantro
