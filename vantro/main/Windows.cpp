#include "vantro/main/Windows.h"

#include "base/Logger.h"
#include "base/Notifications.h"
#include "base/PlainText.h"
#include "base/Settings.h"
#include "platform/Wording.h"
#include "vantro/app/Dictation.h"
#include "vantro/ui/launcher/Launcher.h"
#include "vantro/ui/shortcuts/ShortcutRecorderType.h"

#include <QGuiApplication>
#include <QIcon>

#include "generated/Product.h"

#include <utility>

void qml_register_types_Vantro_History();
void qml_register_types_Vantro_Onboarding();
void qml_register_types_Vantro_Settings();

namespace vantro {

namespace {

constexpr QSize settingsSize(820, 620);
constexpr QSize leastSettingsSize(640, 420);
/// In characters.
constexpr qsizetype noteExcerpt = 40;
constexpr QSize historySize(940, 660);
constexpr QSize onboardingSize(560, 480);

QUrl manifestAddress()
{
    // For tests, and for companies that host their own.
    const QString own = qEnvironmentVariable("VANTRO_UPDATE_MANIFEST");
    return QUrl(own.isEmpty() ? QLatin1String(product::updateManifest) : own);
}

} // namespace

Windows::Windows(const Parts& parts)
    : parts_(parts)
    , secondTranscription_(parts_.speech.facade, parts_.recorder)
    , ui_(parts_.defaults, *parts_.platform.appearance)
    , idle_(parts_.recorder)
    , back_(*parts_.platform.session, *parts_.platform.keyEvents, parts_.clock)
    , alerts_(ui_.engine(), parts_.clock, parts_.defaults, parts_.platform, idle_)
    , hud_(ui_.engine(), *parts_.platform.workspace, parts_.clock)
    , updates_({parts_.defaults, *parts_.platform.workspace, parts_.clock, manifestAddress(),
                QStringLiteral(VANTRO_VERSION), alerts_.forUpdates()})
    , settings_(ui_.engine(), *parts_.platform.workspace, parts_.defaults,
                {tr("vantro settings"), QUrl(QStringLiteral("qrc:/qt/qml/Vantro/Settings/Settings.qml")),
                 settingsSize * textScale(), leastSettingsSize, setting::settingsWindowSize},
                [this] { return settingsContent(); })
    , transcriptions_(ui_.engine(), *parts_.platform.workspace, parts_.defaults,
                      {tr("vantro history"), QUrl(QStringLiteral("qrc:/qt/qml/Vantro/History/History.qml")),
                       historySize * textScale(), leastSettingsSize, setting::historyWindowSize},
                      [this] { return historyContent(); })
    , onboarding_(ui_.engine(), *parts_.platform.workspace, parts_.defaults,
                  {tr("Welcome to vantro"), QUrl(QStringLiteral("qrc:/qt/qml/Vantro/Onboarding/Onboarding.qml")),
                   onboardingSize * textScale(), onboardingSize, setting::guideWindowSize},
                  [this] { return onboardingContent(); })
    , tray_(*parts_.platform.tray)
{
    keepModule(qml_register_types_Vantro_History);
    keepModule(qml_register_types_Vantro_Onboarding);
    keepModule(qml_register_types_Vantro_Settings);
    keepModule(qml_register_types_Vantro_Shortcuts);
    QGuiApplication::setWindowIcon(QIcon(QStringLiteral(":/icons/com.vantro.app.svg")));
    onboarding_.onClosed([this] {
        isSandboxMode_ = false;
        parts_.notifications.post(notification::onboardingClosed);
    });
    // What could be undone goes with the window.
    transcriptions_.onClosed([this] { parts_.history.audio.sweep(); });
    connect(&parts_.history.audio, &KeptAudio::failed, this, [this](const QString& problem) {
        showAlert(tr("Recordings Not Kept"),
                  tr("Your dictations are stored, but not their recordings: %1").arg(problem));
    });
    connectTray();
    connectTrayOffers();
    connect(&parts_.history.store, &CoreDataStack::noteAdded, this, &Windows::tellOfNote);
    connect(&parts_.speech.downloads, &DownloadQueue::finished, this, &Windows::tellOfModel);
}

Windows::~Windows()
{
    isQuitting_ = true;
}

void Windows::connectTray()
{
    connect(&parts_.recorder, &AudioRecorder::isRecordingChanged, this, &Windows::followRecorder);
    connect(&parts_.recorder, &AudioRecorder::isBusyChanged, this, &Windows::followRecorder);
    shortcutObservation_ = parts_.notifications.observe(KeyboardShortcuts::shortcutByNameDidChange,
                                                        [this](const auto&) { followShortcut(); });
    followShortcut();
    connect(&tray_, &TrayIcon::dictateRequested, this, &Windows::dictateRequested);
    connect(&tray_, &TrayIcon::finishRequested, this, &Windows::finishRequested);
    connect(&tray_, &TrayIcon::cancelRequested, this, &Windows::cancelRequested);
    connect(&tray_, &TrayIcon::settingsRequested, this, [this] { showSettings(QStringLiteral("general")); });
    connect(&tray_, &TrayIcon::modelsRequested, this, [this] { showSettings(QStringLiteral("models")); });
    connect(&tray_, &TrayIcon::aboutRequested, this, [this] { showSettings(QStringLiteral("about")); });
    connect(&tray_, &TrayIcon::notesRequested, this, [this] { showHistory(QStringLiteral("notes")); });
    connect(&tray_, &TrayIcon::guideRequested, this, &Windows::showOnboarding);
    connect(&tray_, &TrayIcon::privateRequested, &parts_.history.retention, &Retention::setPrivate);
    connect(&parts_.history.retention, &Retention::privateChanged, this,
            [this] { tray_.setPrivate(parts_.history.retention.isPrivate()); });
    connect(&tray_, &TrayIcon::historyRequested, this, [this] { showHistory(QStringLiteral("dictations")); });
    connect(&tray_, &TrayIcon::updateCheckRequested, this, [this] { updates_.check(UpdateChecker::Asker::user); });
    connect(&tray_, &TrayIcon::errorReportRequested, &alerts_, &Alerts::reportError);
    connect(&tray_, &TrayIcon::feedbackRequested, &alerts_, &Alerts::sendFeedback);
    connect(&tray_, &TrayIcon::quitRequested, this, &Windows::quitRequested);
}

void Windows::followRecorder()
{
    tray_.setState(parts_.recorder.isRecording() ? TrayIcon::State::recording
                   : parts_.recorder.isBusy()    ? TrayIcon::State::processing
                                                 : TrayIcon::State::idle);
}

void Windows::followShortcut()
{
    const auto shortcut = parts_.shortcuts.shortcut(KeyboardShortcuts::Name::openModal);
    tray_.setShortcut(shortcut ? wording::shownKeys(shortcut->displayText()) : QString());
}

std::unique_ptr<LauncherPanel> Windows::makeLauncher(Dictation& dictation)
{
    std::vector<LauncherModel::Mode> modes;
    for (const ProcessingMode mode : parts_.rewriting.visibleModes())
        modes.push_back({mode, parts_.rewriting.prompts().displayName(mode)});
    QString note = leaveUnusableMode(dictation.recorder());
    if (note.isEmpty() && parts_.history.retention.isPrivate())
        note = tr("Private session: this is not kept.");
    const QString microphone = parts_.devices.effectiveDeviceName();
    return std::make_unique<Launcher>(
        Launcher::Context{ui_.engine(), dictation, parts_.shortcuts, *parts_.platform.workspace, parts_.notifications,
                          parts_.clock, modes, microphone.isEmpty() ? tr("the microphone") : microphone, note});
}

/// A default mode that is not set up would fail each dictation after it was spoken. Returns the note for the launcher.
QString Windows::leaveUnusableMode(AudioRecorder& recorder) const
{
    const ProcessingMode mode = recorder.processingMode();
    if (parts_.rewriting.isUsable(mode))
        return {};
    recorder.setProcessingMode(ProcessingMode::Normal);
    return tr("%1 is not set up: your text stays as it is.").arg(parts_.rewriting.prompts().displayName(mode));
}

void Windows::putWindowsAside()
{
    if (isSandboxMode_)
        return;
    for (LazyWindow* const window : {&transcriptions_, &settings_}) {
        if (window->orderOut())
            aside_.push_back(window);
    }
}

void Windows::bringWindowsBack()
{
    for (LazyWindow* const window : std::exchange(aside_, {}))
        window->orderFront();
}

void Windows::showOnboarding()
{
    if (!shortcutWindow_)
        idle_.run([this] { onboarding_.open(); });
}

void Windows::askForShortcut(const QString& reason)
{
    shortcutWindow_ =
        std::make_unique<ShortcutWindow>(ui_.engine(), parts_.clock, parts_.shortcuts, *parts_.platform.hotKeys,
                                         *parts_.platform.desktopShortcuts, parts_.notifications, reason);
    idle_.run([this] { shortcutWindow_->present(); });
}

void Windows::showMain()
{
    if (onboarding_.isOpen())
        showOnboarding();
    else
        showSettings(QStringLiteral("general"));
}

void Windows::showSettings(const QString& page)
{
    idle_.run([this, page] {
        settings_.open();
        if (QObject* const root = settings_.root())
            root->setProperty("page", page);
    });
}

void Windows::showHistory(const QString& page)
{
    idle_.run([this, page] {
        transcriptions_.open();
        if (QObject* const root = transcriptions_.root())
            root->setProperty("page", page);
    });
}

bool Windows::show(const QString& name)
{
    if (name == QLatin1String("settings"))
        showSettings(QStringLiteral("general"));
    else if (name == QLatin1String("history"))
        showHistory(QStringLiteral("dictations"));
    else if (name == QLatin1String("notes"))
        showHistory(QStringLiteral("notes"));
    else if (name == QLatin1String("guide"))
        showOnboarding();
    else
        return false;
    return true;
}

void Windows::showAlert(const QString& title, const QString& text)
{
    alerts_.show(AlertWindow::Kind::warning, title, text);
}

void Windows::offerTranscription(const QString& title, const QString& text, QObject* about,
                                 std::function<void(bool isWanted)> answered)
{
    alerts_.show({.title = title, .text = text, .buttons = {tr("Transcribe"), tr("Discard")}, .about = about},
                 [this, answered = std::move(answered)](std::optional<int> button) {
                     if (button == 0)
                         idle_.run([answered] { answered(true); });
                     else if (button == 1)
                         askToDiscard([answered] { answered(false); });
                 });
}

void Windows::askToDiscard(std::function<void()> discard)
{
    alerts_.show(AlertWindow::Kind::warning, tr("Discard the recording?"),
                 tr("What you said will be gone. If you keep it, vantro offers it again at the next start."),
                 {tr("Keep"), tr("Discard")}, [this, discard = std::move(discard)](std::optional<int> button) {
                     if (button == 1)
                         idle_.run(discard);
                 });
}

void Windows::showRewritingFailure(const QString& text, std::function<void(AsSpoken)> wanted)
{
    alerts_.show({.title = tr("Not Rewritten"),
                  .text = text,
                  .buttons = {tr("Paste as Spoken"), tr("Copy"), tr("Open Providers")}},
                 [this, wanted = std::move(wanted)](std::optional<int> button) {
                     if (button == 2)
                         showSettings(QStringLiteral("providers"));
                     else if (button)
                         idle_.run(
                             [wanted, answer = button == 0 ? AsSpoken::paste : AsSpoken::copy] { wanted(answer); });
                 });
}

void Windows::showPasteHUD(std::optional<QRect> anchor, std::function<QString()> keys, const QString& reason)
{
    std::function<QString()> shown;
    if (keys)
        shown = [keys] {
            return wording::shownKeys(keys());
        };
    back_.run([this, anchor, shown, reason] { return hud_.showHUD(anchor, shown, reason); });
}

void Windows::tellOfNote(const QString& text)
{
    back_.run([this, words = firstWords(text, noteExcerpt)] { return hud_.showNews(tr("Note filed"), words); });
    Logger("Windows").info(QStringLiteral("Note filed"));
}

/// No news for a user who sees the download end.
void Windows::tellOfModel(const QString& name)
{
    if (!settings_.isVisible() && !onboarding_.isVisible() && !(downloadWindow_ && downloadWindow_->isVisible()))
        back_.run([this, name] {
            const bool rewrites = parts_.speech.languageModels.find(name) != nullptr;
            return hud_.showNews(rewrites ? tr("The language model is ready") : tr("The speech model is ready"), name);
        });
    // Observers wait for a model that transcribes.
    if (parts_.speech.catalogue.find(name) != nullptr)
        parts_.notifications.post(notification::modelDownloaded);
}

void Windows::showTranscribing()
{
    hud_.showNotice(tr("Transcribing..."));
}

void Windows::showUndoOffer(std::optional<QRect> anchor, std::function<void()> accepted,
                            std::function<void(bool isCovered)> covered)
{
    const auto shortcut = parts_.shortcuts.shortcut(KeyboardShortcuts::Name::openModal);
    hud_.showOffer(anchor, tr("Recording discarded"),
                   shortcut && !parts_.defaults.get(setting::holdToTalk)
                       ? tr("%1 in its window, or a click, transcribes it after all")
                             .arg(wording::shownKeys(shortcut->displayText()))
                       : tr("A click transcribes it after all"),
                   {std::move(accepted), std::move(covered)});
}

void Windows::showModelDownload(const TranscriptionModel& model, const QString& problem)
{
    // The onboarding has its own page for the download.
    if (onboarding_.isVisible() && problem.isEmpty()) {
        showOnboarding();
        return;
    }
    if (!downloadWindow_)
        downloadWindow_ = std::make_unique<ModelDownloadWindow>(ui_.engine(), parts_.clock, parts_.speech.downloads);
    idle_.run([this, model, problem] {
        if (downloadWindow_)
            downloadWindow_->present(model, problem);
    });
}

void Windows::closeModelDownload()
{
    if (!downloadWindow_)
        return;
    // Deferred: the window itself is the caller.
    downloadWindow_->close();
    downloadWindow_.release()->deleteLater();
}

} // namespace vantro
