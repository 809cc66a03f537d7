#pragma once

#include "platform/SessionState.h"
#include "platform/linux/session/LoginSession.h"
#include "platform/linux/session/ScreenSavers.h"

namespace vantro {

/// Asks logind and the desktop's screen saver; a bus that is missing has nothing to say.
class LinuxSessionState final : public SessionState
{
    Q_OBJECT
public:
    LinuxSessionState();

    [[nodiscard]] bool isAway() const override { return isAway_; }
    [[nodiscard]] std::unique_ptr<SleepDelay> delaySleep() override { return login_.delaySleep(); }

private:
    void update();

    ScreenSavers savers_;
    LoginSession login_;
    bool isAway_ = false;
};

} // namespace vantro
