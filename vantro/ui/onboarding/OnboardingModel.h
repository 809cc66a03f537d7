#pragma once

#include "KeyboardShortcuts/KeyboardShortcuts.h"
#include "base/Logger.h"
#include "base/NotificationCenter.h"
#include "platform/KeyEventPoster.h"
#include "platform/Permissions.h"
#include "vantro/audio/AudioDeviceManager.h"
#include "vantro/audio/MicrophoneMonitor.h"
#include "vantro/ui/download/ModelDownloadModel.h"

#include <QObject>
#include <QTimer>
#include <QtQml/qqmlregistration.h>

#include <functional>

namespace vantro {

/// The view model of the onboarding. Each page really tries what the first dictation needs. Main thread; lives as long
/// as its window.
class OnboardingModel : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made with its window")
    Q_PROPERTY(Step step READ step WRITE setStep NOTIFY changed)
    Q_PROPERTY(bool isMicrophoneGood READ isMicrophoneGood NOTIFY changed)
    Q_PROPERTY(QString microphoneText READ microphoneText NOTIFY changed)
    Q_PROPERTY(qreal level READ level NOTIFY levelChanged)
    Q_PROPERTY(bool areKeysGood READ areKeysGood NOTIFY changed)
    Q_PROPERTY(QString keysText READ keysText NOTIFY changed)
    Q_PROPERTY(bool isShortcutGood READ isShortcutGood NOTIFY changed)
    Q_PROPERTY(QString shortcut READ shortcut NOTIFY changed)
    Q_PROPERTY(QString shortcutText READ shortcutText NOTIFY changed)
    Q_PROPERTY(bool isModelGood READ isModelGood NOTIFY changed)
    Q_PROPERTY(vantro::ModelDownloadModel* download READ download CONSTANT)
public:
    enum Step { Microphone, Keys, ShortcutStep, Model, Practice };
    Q_ENUM(Step)

    struct Parts
    {
        AudioEngineFactory makeEngine;
        AudioDeviceManager& devices;
        const Permissions& permissions;
        KeyEventPoster& keyEvents;
        KeyboardShortcuts& shortcuts;
        NotificationCenter& notifications;
        Clock& clock;
        DownloadQueue& downloads;
        TranscriptionModel model;
        std::function<bool()> isModelPresent;
        /// Keeps the program's own windows visible during a recording.
        std::function<void(bool)> setSandboxMode;
        /// Called when the window closes before the last page.
        std::function<void()> left;
    };

    explicit OnboardingModel(Parts parts);
    ~OnboardingModel() override;

    [[nodiscard]] Step step() const { return step_; }
    void setStep(Step step);
    [[nodiscard]] bool isMicrophoneGood() const { return monitor_.hasHeard(); }
    [[nodiscard]] QString microphoneText() const;
    [[nodiscard]] qreal level() const { return static_cast<qreal>(monitor_.level()); }
    [[nodiscard]] bool areKeysGood() const { return keys_ == KeyTest::arrived; }
    [[nodiscard]] QString keysText() const;
    [[nodiscard]] bool isShortcutGood() const;
    [[nodiscard]] QString shortcut() const;
    [[nodiscard]] QString shortcutText() const;
    [[nodiscard]] bool isModelGood() const { return parts_.isModelPresent(); }
    [[nodiscard]] ModelDownloadModel* download() { return &download_; }

    /// Posts the paste keystroke; the page calls keyArrived() when it receives it.
    Q_INVOKABLE void tryKeys();
    Q_INVOKABLE void keyArrived();
    Q_INVOKABLE void startDownload();
    /// Posts "permissions:close".
    Q_INVOKABLE void finish();

Q_SIGNALS:
    void changed();
    void levelChanged();

private:
    enum class KeyTest { untried, posted, arrived, lost };

    void failKeys(const QString& reason);

    Logger logger_{"OnboardingModel"};
    Parts parts_;
    Step step_ = Microphone;
    MicrophoneMonitor monitor_;
    bool isFinished_ = false;
    KeyTest keys_ = KeyTest::untried;
    QString keysProblem_;
    QTimer keyPatience_;
    ModelDownloadModel download_;
    std::vector<NotificationCenter::Observation> observations_;
};

} // namespace vantro
