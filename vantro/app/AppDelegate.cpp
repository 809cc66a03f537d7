#include "vantro/app/AppDelegate.h"

#include "base/Notifications.h"
#include "base/Settings.h"
#include "platform/Wording.h"
#include "vantro/ai/DefaultMode.h"
#include "vantro/ai/providers/LegacyKeyName.h"

#include <QTimer>

#include <utility>

namespace vantro {

AppDelegate::AppDelegate(Parts parts) : parts_(std::move(parts)) {}

AppDelegate::~AppDelegate()
{
    closeWindow();
}

void AppDelegate::applicationDidFinishLaunching()
{
    if (parts_.defaults.get(setting::checkForUpdatesOnLaunch))
        parts_.checkForUpdates();
    renameLegacyKey(parts_.defaults);
    parts_.migrations.runTranscriptionTrimMigrationIfNeeded();
    parts_.migrations.runEmptyTranscriptionDeleteMigrationIfNeeded();
    observeNotifications();
    if (isReadyToDictate()) {
        printLine(QStringLiteral("All permissions granted"));
        printLine(QStringLiteral("setupInitialState"));
    } else {
        printLine(QStringLiteral("Missing permissions, showing onboarding"));
        parts_.surfaces.showOnboarding();
    }
    // Attached in either case: a sound server or a shortcut that comes later works without a restart.
    openModalAction_ =
        std::make_unique<HoldToTalk>(parts_.shortcuts, parts_.audioRecorder, parts_.defaults, parts_.clock,
                                     HoldToTalk::Actions{.open = [this] { showLauncherAndRecord(); },
                                                         .openAside = [this] { showLauncherAndRecord(Keyboard::Left); },
                                                         .stop = [this] { stopRecording(); },
                                                         .cancel =
                                                             [this] {
                                                                 cancelDictation();
                                                             }});
    checkModel();
    observeLauncher();
}

bool AppDelegate::isReadyToDictate() const
{
    return parts_.permissions.microphoneAuthorized() && parts_.permissions.trustedForAccessibility() &&
           parts_.shortcuts.shortcut(KeyboardShortcuts::Name::openModal);
}

void AppDelegate::applicationWillTerminate()
{
    cancelDictation();
    parts_.delivery.restoreNow();
}

void AppDelegate::observeNotifications()
{
    auto& center = parts_.notifications;
    observations_.push_back(center.observe(notification::recordingProcesses, [this](const auto&) {
        timings_.stopped = parts_.clock.now();
        if (parts_.audioRecorder.processingMode() == ProcessingMode::Notes)
            closeWindow();
    }));
    observations_.push_back(
        center.observe(notification::recordingFinished, [this](const auto& userInfo) { recordingFinished(userInfo); }));
    observations_.push_back(
        center.observe(notification::onboardingClosed, [this](const auto&) { parts_.surfaces.closeOnboarding(); }));
    connect(&parts_.audioRecorder, &AudioRecorder::captureLost, this, &AppDelegate::captureLost);
    connect(&parts_.shortcuts, &KeyboardShortcuts::shortcutFailed, this, &AppDelegate::shortcutFailed);
}

void AppDelegate::observeLauncher()
{
    observations_.push_back(parts_.notifications.observe(notification::launcherClosed, [this](const auto&) {
        // Not between the text and the window it is meant for.
        if (!isDelivering_)
            bringWindowsBack();
    }));
}

void AppDelegate::putWindowsAside()
{
    SideWindow* const transcriptions = parts_.surfaces.transcriptionsWindow;
    SideWindow* const settings = parts_.surfaces.settingsWindow;
    transcriptionsWindowWasVisible_ = transcriptions != nullptr && transcriptions->isVisible();
    settingsWindowWasVisible_ = settings != nullptr && settings->isVisible();
    if (isSandboxMode_)
        return;
    if (transcriptionsWindowWasVisible_)
        transcriptions->orderOut();
    if (settingsWindowWasVisible_)
        settings->orderOut();
}

void AppDelegate::bringWindowsBack()
{
    if (std::exchange(transcriptionsWindowWasVisible_, false))
        parts_.surfaces.transcriptionsWindow->orderFront();
    if (std::exchange(settingsWindowWasVisible_, false))
        parts_.surfaces.settingsWindow->orderFront();
}

QCoro::Task<> AppDelegate::checkModel()
{
    co_await parts_.prepareModels();
    const TranscriptionModel model = parts_.models.selectedModel();
    printLine(QStringLiteral("Checking model: ") + model.name);
    if (co_await parts_.modelIsReady(model)) {
        modelBecameReady(model);
        if (!isReadyToDictate())
            parts_.surfaces.showOnboarding();
    } else {
        downloadModel(model);
    }
}

void AppDelegate::modelBecameReady(const TranscriptionModel& model)
{
    isModelMissing_ = false;
    printLine(QStringLiteral("Model %1 is downloaded").arg(model.name));
}

void AppDelegate::downloadModel(const TranscriptionModel& model)
{
    isModelMissing_ = true;
    printLine(QStringLiteral("Need to download model: ") + model.name);
    observations_.push_back(
        parts_.notifications.observe(notification::modelDownloaded, [this](const auto&) { modelDownloaded(); }));
    parts_.surfaces.showModelDownload(model);
}

QCoro::Task<> AppDelegate::modelDownloaded()
{
    parts_.surfaces.closeModelDownload();
    // The settings may have fetched another one than the one that is missing.
    const TranscriptionModel model = parts_.models.selectedModel();
    if (co_await parts_.modelIsReady(model))
        modelBecameReady(model);
}

void AppDelegate::showLauncherAndRecord(Keyboard keyboard)
{
    AudioRecorder& recorder = parts_.audioRecorder;
    if (recorder.isBusy())
        return;
    if (isModelMissing_) {
        parts_.surfaces.showModelDownload(parts_.models.selectedModel());
        return;
    }
    timings_ = {};
    timings_.shortcut = parts_.clock.now();
    hasErrorOccurred_ = false;
    parts_.delivery.rememberTarget();
    if (window_ && !window_->isVisible())
        window_.reset();
    putWindowsAside();
    if (!window_) {
        if (recorder.isRecording())
            recorder.cancelRecording();
        window_ = parts_.surfaces.makeLauncher(defaultMode(parts_.defaults));
    }
    if (!recorder.isRecording())
        recorder.startRecording();
    if (!recorder.isRecording()) {
        explainRefusedRecording();
        return;
    }
    if (keyboard == Keyboard::Taken)
        window_->makeKeyAndOrderFront();
    else
        window_->orderFront();
}

void AppDelegate::explainRefusedRecording()
{
    // A capture that could not start has reported itself as a finished recording with an error.
    closeWindow();
    if (!parts_.permissions.microphoneAuthorized())
        showAlertSoon(wording::noSoundServer());
}

void AppDelegate::stopRecording()
{
    parts_.audioRecorder.stopRecording();
}

void AppDelegate::cancelDictation()
{
    parts_.audioRecorder.cancelDictation();
    closeWindow();
}

void AppDelegate::recordingFinished(const NotificationCenter::UserInfo& userInfo)
{
    timings_.textReady = parts_.clock.now();
    timings_.firstSample = parts_.audioRecorder.firstSampleAt();
    const QString finalText = userInfo.value(QStringLiteral("finalText")).toString();
    const QVariant message = userInfo.value(QStringLiteral("errorMessage"));
    const auto mode = processingModeFromRawValue(userInfo.value(QStringLiteral("processingMode")).toString());
    if (userInfo.value(QStringLiteral("hasError"), false).toBool() && message.isValid()) {
        showAlertSoon(message.toString() + saveFromLoss(finalText));
        hasErrorOccurred_ = true;
    }
    handleFinish(finalText, mode.value_or(parts_.audioRecorder.processingMode()));
}

QCoro::Task<> AppDelegate::handleFinish(QString finalText, ProcessingMode mode)
{
    logger_.debug(QStringLiteral("handleFinish"));
    if (mode == ProcessingMode::Notes) {
        logger_.debug(QStringLiteral("Note processed"));
        co_return;
    }
    logger_.debug(QStringLiteral("final closing"));
    if (std::exchange(hasErrorOccurred_, false)) {
        closeWindow();
        co_return;
    }
    const std::optional<QRect> frame = window_ ? std::optional(window_->frame()) : std::nullopt;
    const QString text = finalText.trimmed();
    if (text.isEmpty()) {
        closeWindow();
        co_return;
    }
    isDelivering_ = true;
    co_await deliver(text, frame);
    isDelivering_ = false;
    bringWindowsBack();
    if (parts_.defaults.get(setting::playSoundOnComplete))
        parts_.sounds.play(QStringLiteral("Blow"));
    tellOfStoreProblem(); // not before: its window takes the keyboard
}

void AppDelegate::tellOfStoreProblem()
{
    if (const auto problem = parts_.store.takeProblem()) {
        parts_.surfaces.showAlert(tr("Not in the History"),
                                  tr("What you dictate is delivered but not kept: %1").arg(*problem));
    }
}

/// What is not delivered is in the history. What is not there either, a note on a full disk for example, goes to the
/// clipboard; answers what to tell of that.
QString AppDelegate::saveFromLoss(const QString& text)
{
    if (parts_.store.hasLatest() || text.trimmed().isEmpty())
        return {};
    parts_.delivery.copy(text.trimmed());
    return QStringLiteral("\n\n") + tr("What you said is on the clipboard.");
}

QCoro::Task<> AppDelegate::deliver(QString text, std::optional<QRect> frame)
{
    if (!parts_.defaults.get(setting::autoPasteEnabled)) {
        parts_.delivery.copy(text);
        parts_.surfaces.showPasteHUD(frame);
        closeWindow();
        co_return;
    }
    closeWindow();
    const auto outcome = co_await parts_.delivery.deliver(text);
    if (outcome == PasteDelivery::Outcome::Pasted) {
        timings_.pasted = parts_.clock.now();
        co_return;
    }
    // The text stands on the clipboard; the user pastes it where it belongs.
    logger_.info(parts_.delivery.explanation(outcome));
    parts_.surfaces.showPasteHUD(frame);
}

void AppDelegate::captureLost(const QString& message)
{
    showAlertSoon(message);
}

void AppDelegate::shortcutFailed(const QString& name, const QString& reason)
{
    if (name != KeyboardShortcuts::Name::openModal.rawValue)
        return;
    const QString text = reason + QStringLiteral("\n\n") + wording::howToChooseShortcut();
    QTimer::singleShot(0, this, [this, text] { parts_.surfaces.showAlert(tr("Shortcut Not Available"), text); });
}

void AppDelegate::closeWindow()
{
    // Closing posts "launcher:closed", whose observers may ask for the window again.
    if (const auto window = std::move(window_))
        window->closePanel();
}

void AppDelegate::showAlertSoon(const QString& text)
{
    QTimer::singleShot(0, this, [this, text] { parts_.surfaces.showAlert(tr("Transcription Error"), text); });
}

} // namespace vantro
