#pragma once

#include "base/Clock.h"
#include "base/Logger.h"
#include "platform/SystemInfo.h"
#include "vantro/audio/AudioRecorder.h"
#include "vantro/models/ModelSelection.h"
#include "vantro/models/SpeechEngine.h"

#include <QObject>

namespace vantro {

/// Unloads models that stay in memory between dictations: when one of another engine is selected, and when the machine
/// runs short of memory, with less than a sixteenth available. Looks after each dictation, and once a minute while a
/// model is loaded. Main thread.
class ModelMemory final : public QObject
{
    Q_OBJECT
public:
    /// All must outlive this object.
    struct Parts
    {
        const SpeechEngines& engines;
        const ModelSelection& selection;
        const UserDefaults& defaults;
        const AudioRecorder& recorder;
        const SystemInfo& system;
        Clock& clock;
    };

    explicit ModelMemory(Parts parts);

private:
    void unloadUnselected();
    void look();
    [[nodiscard]] bool isShort() const;

    Parts parts_;
    Logger logger_{"ModelMemory"};
    std::unique_ptr<QObject> nextLook_; ///< its destruction cancels it
};

} // namespace vantro
