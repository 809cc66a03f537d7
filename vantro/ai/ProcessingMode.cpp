#include "vantro/ai/ProcessingMode.h"

namespace vantro {

QString rawValue(ProcessingMode mode)
{
    switch (mode) {
    case ProcessingMode::Normal:
        return QStringLiteral("Normal");
    case ProcessingMode::Email:
        return QStringLiteral("Email");
    case ProcessingMode::Grammar:
        return QStringLiteral("Grammar");
    case ProcessingMode::Custom:
        return QStringLiteral("Custom");
    case ProcessingMode::Notes:
        return QStringLiteral("Notes");
    case ProcessingMode::Custom2:
        return QStringLiteral("Custom2");
    case ProcessingMode::Custom3:
        return QStringLiteral("Custom3");
    case ProcessingMode::Custom4:
        return QStringLiteral("Custom4");
    case ProcessingMode::Custom5:
        return QStringLiteral("Custom5");
    }
    Q_UNREACHABLE();
}

std::optional<ProcessingMode> processingModeFromRawValue(const QString& text)
{
    for (const ProcessingMode mode : allProcessingModes) {
        if (rawValue(mode) == text)
            return mode;
    }
    return std::nullopt;
}

} // namespace vantro
