#pragma once

#include <QString>

#include <array>
#include <optional>

namespace vantro {

/// What happens to a transcript before delivery. Stored and posted as its raw value.
enum class ProcessingMode { Normal, Email, Grammar, Custom, Notes };

inline constexpr std::array allProcessingModes{ProcessingMode::Normal, ProcessingMode::Email, ProcessingMode::Grammar,
                                               ProcessingMode::Custom, ProcessingMode::Notes};

/// "Normal", "Email", "Grammar", "Custom", "Notes".
QString rawValue(ProcessingMode mode);
/// Case-sensitive; nullopt when no mode has this raw value.
std::optional<ProcessingMode> processingModeFromRawValue(const QString& text);

} // namespace vantro
