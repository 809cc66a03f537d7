#pragma once

#include <QString>

#include <array>
#include <optional>

namespace vantro {

/// How the microphone is picked. The raw value is what is stored.
enum class AudioInputMode { systemDefault, custom, prioritized };

inline constexpr std::array allAudioInputModes{AudioInputMode::systemDefault, AudioInputMode::custom,
                                               AudioInputMode::prioritized};

/// "System Default", "Custom Device", "Prioritized".
QString rawValue(AudioInputMode mode);
/// Nothing for a text that is no mode's raw value.
std::optional<AudioInputMode> audioInputModeFromRawValue(const QString& text);
/// The sentence beside the choice in the settings.
QString caption(AudioInputMode mode);

} // namespace vantro
