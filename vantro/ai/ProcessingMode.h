#pragma once

#include <QString>

#include <array>
#include <optional>

namespace vantro {

/// What happens to a transcript before it is delivered. The raw value is what is stored and posted.
enum class ProcessingMode { Normal, Email, Grammar, Custom, Notes };

inline constexpr std::array allProcessingModes{ProcessingMode::Normal, ProcessingMode::Email, ProcessingMode::Grammar,
                                               ProcessingMode::Custom, ProcessingMode::Notes};

/// "Normal", "Email", "Grammar", "Custom", "Notes".
QString rawValue(ProcessingMode mode);
/// Nothing for a text that is no mode's raw value; upper and lower case differ.
std::optional<ProcessingMode> processingModeFromRawValue(const QString& text);

} // namespace vantro
