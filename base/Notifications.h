#pragma once

#include <QLatin1String>

/// The names of all notifications.
namespace vantro::notification {

inline constexpr QLatin1String recordingProcesses("recorder:process:start"); ///< a stopped recording is being processed
inline constexpr QLatin1String recordingFinished("recorder:finish");         ///< with the outcome
inline constexpr QLatin1String launcherClosed("launcher:closed");
inline constexpr QLatin1String onboardingClosed("permissions:close");
inline constexpr QLatin1String modelDownloaded("download:model:success");

} // namespace vantro::notification
