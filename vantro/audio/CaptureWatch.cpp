#include "vantro/audio/CaptureWatch.h"

#include <utility>

using namespace std::chrono_literals;

namespace vantro {

namespace {

constexpr auto lookEvery = 250ms;

} // namespace

void CaptureWatch::begin()
{
    seenCount_ = blockCount_.load(std::memory_order_relaxed);
    hasBegun_ = false;
    lastProgress_ = clock_.now();
    lookAgain();
}

void CaptureWatch::lookAgain()
{
    nextLook_ = std::make_unique<QObject>();
    clock_.callAfter(lookEvery, nextLook_.get(), [this] { look(); });
}

void CaptureWatch::look()
{
    lookAgain();
    const quint64 count = blockCount_.load(std::memory_order_relaxed);
    if (std::exchange(seenCount_, count) != count) {
        hasBegun_ = true;
        lastProgress_ = clock_.now();
        setStalled(false);
        return;
    }
    const auto waited = clock_.now() - lastProgress_;
    if (waited >= stallLimit)
        setStalled(true);
    if (waited >= (hasBegun_ ? stallLimit : startLimit))
        Q_EMIT stalledTooLong();
}

void CaptureWatch::setStalled(bool stalled)
{
    if (std::exchange(isStalled_, stalled) != stalled)
        Q_EMIT isStalledChanged();
}

} // namespace vantro
