#include "vantro/app/KeyboardWatch.h"

using namespace std::chrono_literals;

namespace vantro {

namespace {

constexpr auto timeBetweenLooks = 1s;
constexpr int looksAtLocker = 3;

} // namespace

void KeyboardWatch::begin()
{
    clock_.callAfter(timeBetweenLooks, this, [this] { look(); });
}

void KeyboardWatch::look()
{
    if (isOver_)
        return;
    const bool isTaken = keyEvents_.isKeyboardTaken() && !keyEvents_.isMenuOpen();
    timesTaken_ = isTaken ? timesTaken_ + 1 : 0;
    if (timesTaken_ == looksAtLocker)
        Q_EMIT keyboardTaken();
    else
        begin();
}

} // namespace vantro
