#pragma once

#include "platform/SessionState.h"

#include <utility>

namespace vantro::doubles {

/// A user whom the test sends away and calls back.
class FakeSessionState final : public SessionState
{
public:
    [[nodiscard]] bool isAway() const override { return isAway_; }
    [[nodiscard]] bool isSavingPower() const override { return isSavingPower_; }
    [[nodiscard]] std::unique_ptr<SleepDelay> delaySleep() override { return std::make_unique<Delay>(delays_); }

    void setAway(bool away)
    {
        if (std::exchange(isAway_, away) != away)
            away ? Q_EMIT aboutToBeAway() : Q_EMIT returned();
    }
    void setSavingPower(bool saving) { isSavingPower_ = saving; }
    [[nodiscard]] bool isSleepDelayed() const { return delays_ > 0; }

private:
    class Delay final : public SleepDelay
    {
    public:
        explicit Delay(int& count) : count_(count) { ++count_; }
        ~Delay() override { --count_; }
        Delay(const Delay&) = delete;
        Delay& operator=(const Delay&) = delete;

    private:
        int& count_;
    };

    bool isAway_ = false;
    bool isSavingPower_ = false;
    int delays_ = 0;
};

} // namespace vantro::doubles
