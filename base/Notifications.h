#pragma once

#include <QLatin1String>

/// The names under which the program's parts announce something to whom it may concern.
namespace vantro::notification {

inline constexpr QLatin1String recordingProcesses("recorder:process:start"); ///< a stopped recording is being processed
inline constexpr QLatin1String recordingFinished("recorder:finish");         ///< with what became of it
inline constexpr QLatin1String launcherClosed("launcher:closed");
inline constexpr QLatin1String onboardingClosed("permissions:close");
inline constexpr QLatin1String modelDownloaded("download:model:success");

} // namespace vantro::notification
