#pragma once

#include <QString>

#include <array>
#include <optional>

namespace vantro {

/// How the microphone is chosen. Stored as the raw value.
enum class AudioInputMode { systemDefault, custom, prioritized };

inline constexpr std::array allAudioInputModes{AudioInputMode::systemDefault, AudioInputMode::custom,
                                               AudioInputMode::prioritized};

/// "System Default", "Custom Device", "Prioritized".
QString rawValue(AudioInputMode mode);
/// nullopt for an unknown raw value.
std::optional<AudioInputMode> audioInputModeFromRawValue(const QString& text);
/// The description shown in the settings.
QString caption(AudioInputMode mode);

} // namespace vantro
