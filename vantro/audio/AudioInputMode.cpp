#include "vantro/audio/AudioInputMode.h"

#include <QCoreApplication>

namespace vantro {

QString rawValue(AudioInputMode mode)
{
    switch (mode) {
    case AudioInputMode::systemDefault:
        return QStringLiteral("System Default");
    case AudioInputMode::custom:
        return QStringLiteral("Custom Device");
    case AudioInputMode::prioritized:
        return QStringLiteral("Prioritized");
    }
    Q_UNREACHABLE();
}

std::optional<AudioInputMode> audioInputModeFromRawValue(const QString& text)
{
    for (const AudioInputMode mode : allAudioInputModes) {
        if (rawValue(mode) == text)
            return mode;
    }
    return std::nullopt;
}

QString caption(AudioInputMode mode)
{
    switch (mode) {
    case AudioInputMode::systemDefault:
        return QCoreApplication::translate("AudioInputMode", "Use system's default input device");
    case AudioInputMode::custom:
        return QCoreApplication::translate("AudioInputMode", "Select a specific input device");
    case AudioInputMode::prioritized:
        return QCoreApplication::translate("AudioInputMode", "Set up device priority order");
    }
    Q_UNREACHABLE();
}

} // namespace vantro
