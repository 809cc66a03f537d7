#include "platform/linux/session/LinuxSessionState.h"

#include "base/Logger.h"

#include <utility>

namespace vantro {

LinuxSessionState::LinuxSessionState()
{
    connect(&savers_, &ScreenSavers::changed, this, &LinuxSessionState::update);
    connect(&login_, &LoginSession::changed, this, &LinuxSessionState::update);
}

void LinuxSessionState::update()
{
    const bool isAway = savers_.isAnyActive() || login_.isAway();
    if (std::exchange(isAway_, isAway) == isAway)
        return;
    Logger("Session").info(isAway ? QStringLiteral("The user is away") : QStringLiteral("The user is back"));
    if (isAway)
        Q_EMIT aboutToBeAway();
    else
        Q_EMIT returned();
}

} // namespace vantro
