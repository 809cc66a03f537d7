#pragma once

#include "platform/SessionState.h"
#include "platform/linux/session/LoginSession.h"
#include "platform/linux/session/PowerProfiles.h"
#include "platform/linux/session/ScreenSavers.h"

namespace vantro {

/// Asks logind, the desktop's screen saver and the power profiles; a bus that is missing has nothing to say.
class LinuxSessionState final : public SessionState
{
    Q_OBJECT
public:
    LinuxSessionState();

    [[nodiscard]] bool isAway() const override { return isAway_; }
    [[nodiscard]] bool isSavingPower() const override { return power_.isSaving(); }
    [[nodiscard]] std::unique_ptr<SleepDelay> delaySleep() override { return login_.delaySleep(); }

private:
    void update();

    ScreenSavers savers_;
    LoginSession login_;
    PowerProfiles power_;
    bool isAway_ = false;
};

} // namespace vantro
