#pragma once

#include "KeyboardShortcuts/KeyboardShortcuts.h"
#include "base/Clock.h"
#include "base/Logger.h"
#include "base/NotificationCenter.h"
#include "base/UserDefaults.h"
#include "platform/Permissions.h"
#include "platform/SystemSounds.h"
#include "vantro/ai/ProcessingMode.h"
#include "vantro/app/DictationTimings.h"
#include "vantro/app/HoldToTalk.h"
#include "vantro/app/LauncherPanel.h"
#include "vantro/app/LenientStore.h"
#include "vantro/app/PasteDelivery.h"
#include "vantro/app/SideWindow.h"
#include "vantro/audio/AudioRecorder.h"
#include "vantro/models/ModelSelection.h"
#include "vantro/store/MigrationManager.h"

#include <QObject>
#include <qcoro/qcorotask.h>

#include <functional>
#include <memory>
#include <optional>

namespace vantro {

/// What the delegate has shown: windows are made above it.
struct Surfaces
{
    /// A panel for @p defaultMode, not yet shown.
    std::function<std::unique_ptr<LauncherPanel>(ProcessingMode defaultMode)> makeLauncher;
    std::function<void(std::optional<QRect> anchor)> showPasteHUD;
    std::function<void(const QString& title, const QString& text)> showAlert;
    /// Begins to download @p model and shows how far it is; brings the window forward when it is there already. Its end
    /// is announced as "download:model:success".
    std::function<void(const TranscriptionModel& model)> showModelDownload;
    std::function<void()> closeModelDownload;
    /// Leads through what is missing; its end is announced as "permissions:close".
    std::function<void()> showOnboarding;
    std::function<void()> closeOnboarding;
    /// Null where there is none.
    SideWindow* settingsWindow = nullptr;
    SideWindow* transcriptionsWindow = nullptr;
};

/// Brings one dictation from the shortcut to the delivered text: opens the launcher, starts the recorder, and delivers
/// what the recorder announces. Main thread.
class AppDelegate final : public QObject
{
    Q_OBJECT
public:
    struct Parts
    {
        UserDefaults& defaults;
        NotificationCenter& notifications;
        Clock& clock;
        const Permissions& permissions;
        SystemSounds& sounds;
        AudioRecorder& audioRecorder;
        KeyboardShortcuts& shortcuts;
        PasteDelivery& delivery;
        ModelSelection& models;
        /// Runs in the background; called when the user wants a check at every launch.
        std::function<void()> checkForUpdates;
        MigrationManager& migrations;
        /// Makes models that lie on this machine usable; before the selection is settled.
        std::function<QCoro::Task<>()> prepareModels;
        std::function<QCoro::Task<bool>(TranscriptionModel)> modelIsReady;
        LenientStore& store;
        Surfaces surfaces;
    };

    explicit AppDelegate(Parts parts);
    ~AppDelegate() override;

    /// The launch handler: update check, repairs, observers, onboarding when something is missing, model.
    void applicationDidFinishLaunching();
    /// Before the process ends: what is being recorded is thrown away, and the clipboard gets back what it held.
    void applicationWillTerminate();

    /// The launcher's practice run: own windows stay where they are.
    void setSandboxMode(bool sandbox) { isSandboxMode_ = sandbox; }
    [[nodiscard]] bool isReadyToDictate() const;

    enum class Keyboard { Taken, Left };

    /// The shortcut's action: opens the launcher and records, unless a dictation is under way.
    void showLauncherAndRecord(Keyboard keyboard = Keyboard::Taken);
    /// What Space does in the launcher.
    void stopRecording();
    /// What Escape does in the launcher, also while the recording is being processed.
    void cancelDictation();
    [[nodiscard]] const DictationTimings& timings() const { return timings_; }

private:
    void observeNotifications();
    void observeLauncher();
    void putWindowsAside();
    void bringWindowsBack();
    QCoro::Task<> checkModel();
    void downloadModel(const TranscriptionModel& model);
    QCoro::Task<> modelDownloaded();
    void modelBecameReady(const TranscriptionModel& model);
    void explainRefusedRecording();
    void recordingFinished(const NotificationCenter::UserInfo& userInfo);
    QCoro::Task<> handleFinish(QString finalText, ProcessingMode mode);
    QCoro::Task<> deliver(QString text, std::optional<QRect> frame);
    void captureLost(const QString& message);
    void shortcutFailed(const QString& name, const QString& reason);
    void closeWindow();
    void showAlertSoon(const QString& text);
    void tellOfStoreProblem();
    [[nodiscard]] QString saveFromLoss(const QString& text);

    Logger logger_{"AppDelegate"};
    Parts parts_;
    std::unique_ptr<LauncherPanel> window_;
    std::unique_ptr<HoldToTalk> openModalAction_;
    std::vector<NotificationCenter::Observation> observations_;
    DictationTimings timings_;
    bool hasErrorOccurred_ = false;
    bool isModelMissing_ = false;
    bool isSandboxMode_ = false;
    bool isDelivering_ = false;
    bool transcriptionsWindowWasVisible_ = false;
    bool settingsWindowWasVisible_ = false;
};

} // namespace vantro
