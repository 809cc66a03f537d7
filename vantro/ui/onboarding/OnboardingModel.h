#pragma once

#include "KeyboardShortcuts/KeyboardShortcuts.h"
#include "base/Logger.h"
#include "base/NotificationCenter.h"
#include "base/UserDefaults.h"
#include "platform/KeyEventPoster.h"
#include "platform/LoginItem.h"
#include "platform/Permissions.h"
#include "vantro/audio/AudioDeviceManager.h"
#include "vantro/audio/MicrophoneMonitor.h"
#include "vantro/models/ModelSelection.h"
#include "vantro/models/Recommendation.h"
#include "vantro/ui/download/ModelDownloadModel.h"

#include <QObject>
#include <QStringList>
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
    Q_PROPERTY(QStringList microphones READ microphones NOTIFY changed)
    Q_PROPERTY(int microphone READ microphone WRITE setMicrophone NOTIFY changed)
    Q_PROPERTY(QStringList languages READ languages CONSTANT)
    Q_PROPERTY(int language READ language WRITE setLanguage NOTIFY changed)
    Q_PROPERTY(QStringList models READ models NOTIFY changed)
    Q_PROPERTY(int model READ model WRITE setModel NOTIFY changed)
    Q_PROPERTY(QString modelText READ modelText NOTIFY changed)
    Q_PROPERTY(bool startsAtLogin READ startsAtLogin WRITE setStartsAtLogin NOTIFY changed)
    Q_PROPERTY(QString problem READ problem NOTIFY changed)
public:
    enum Step { Welcome, Microphone, Keys, ShortcutStep, Model, Practice, Ready };
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
        UserDefaults& defaults;
        LoginItem& loginItem;
        ModelSelection& models;
        Machine machine;
        std::function<bool(const TranscriptionModel&)> isModelPresent;
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
    [[nodiscard]] bool isModelGood() const { return parts_.isModelPresent(parts_.models.selectedModel()); }
    /// The first one is whichever the desktop uses.
    [[nodiscard]] QStringList microphones() const;
    [[nodiscard]] int microphone() const;
    void setMicrophone(int index);
    [[nodiscard]] QStringList languages() const;
    [[nodiscard]] int language() const;
    void setLanguage(int index);
    /// With their sizes; the one that suits this machine and language is marked.
    [[nodiscard]] QStringList models() const;
    [[nodiscard]] int model() const;
    void setModel(int index);
    /// What the chosen model costs: download and waiting.
    [[nodiscard]] QString modelText() const;
    [[nodiscard]] bool startsAtLogin() const { return parts_.loginItem.isEnabled(); }
    void setStartsAtLogin(bool on);
    /// Why the latest change failed; otherwise empty.
    [[nodiscard]] QString problem() const { return problem_; }
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
    void followMicrophone();
    [[nodiscard]] const std::vector<TranscriptionModel>& catalogue() const
    {
        return parts_.models.catalogue().models();
    }

    Logger logger_{"OnboardingModel"};
    Parts parts_;
    Step step_ = Welcome;
    MicrophoneMonitor monitor_;
    bool isFinished_ = false;
    KeyTest keys_ = KeyTest::untried;
    QString keysProblem_;
    QString problem_;
    QTimer keyPatience_;
    ModelDownloadModel download_;
    std::vector<NotificationCenter::Observation> observations_;
};

} // namespace vantro
