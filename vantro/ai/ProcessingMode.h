#pragma once

#include <QString>

#include <array>
#include <optional>

namespace vantro {

/// What happens to a transcript before delivery. Stored and posted as its raw value.
enum class ProcessingMode { Normal, Email, Grammar, Custom, Notes, Custom2, Custom3, Custom4, Custom5 };

/// As many as there are digit keys. Those after Notes exist once the user has made them: see PromptSettings::modes().
inline constexpr std::array allProcessingModes{
    ProcessingMode::Normal,  ProcessingMode::Email,   ProcessingMode::Grammar,
    ProcessingMode::Custom,  ProcessingMode::Notes,   ProcessingMode::Custom2,
    ProcessingMode::Custom3, ProcessingMode::Custom4, ProcessingMode::Custom5};

/// One whose prompt is of the user's own making.
[[nodiscard]] constexpr bool isOwnMode(ProcessingMode mode)
{
    return mode == ProcessingMode::Custom || mode > ProcessingMode::Notes;
}
/// One that the user has made, and can remove.
[[nodiscard]] constexpr bool isAddedMode(ProcessingMode mode)
{
    return mode > ProcessingMode::Notes;
}

/// "Normal", "Email", "Grammar", "Custom", "Notes", "Custom2", ...
QString rawValue(ProcessingMode mode);
/// Case-sensitive; nullopt when no mode has this raw value.
std::optional<ProcessingMode> processingModeFromRawValue(const QString& text);

} // namespace vantro
