#include "vantro/main/Windows.h"

#include "base/Logger.h"
#include "base/Notifications.h"
#include "base/Settings.h"
#include "vantro/app/Dictation.h"
#include "vantro/support/SupportMail.h"
#include "vantro/ui/history/HistoryModel.h"
#include "vantro/ui/history/NotesModel.h"
#include "vantro/ui/launcher/Launcher.h"
#include "vantro/ui/onboarding/OnboardingModel.h"
#include "vantro/ui/settings/AboutModel.h"
#include "vantro/ui/settings/GeneralSettings.h"
#include "vantro/ui/settings/MicrophoneSettings.h"
#include "vantro/ui/settings/ModesModel.h"
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
constexpr int noteExcerpt = 40;
constexpr QSize historySize(940, 660);
constexpr QSize onboardingSize(520, 420);

QUrl manifestAddress()
{
    // For tests, and for companies that host their own.
    const QString own = qEnvironmentVariable("VANTRO_UPDATE_MANIFEST");
    return QUrl(own.isEmpty() ? QLatin1String(product::updateManifest) : own);
}

const QString version = QStringLiteral(VANTRO_VERSION);

template <typename Model>
void put(LazyWindow::Content& content, const char* property, std::unique_ptr<Model> model)
{
    content.properties.insert(QLatin1String(property), QVariant::fromValue(model.get()));
    content.models.push_back(std::move(model));
}

} // namespace

Windows::Windows(Parts parts)
    : parts_(std::move(parts))
    , ui_(parts_.defaults, *parts_.platform.appearance)
    , idle_(parts_.recorder)
    , back_(*parts_.platform.session, *parts_.platform.keyEvents, parts_.clock)
    , alerts_(ui_.engine(), parts_.defaults, parts_.platform, idle_)
    , hud_(ui_.engine(), *parts_.platform.workspace, parts_.clock)
    , updates_(
          {parts_.defaults, *parts_.platform.workspace, parts_.clock, manifestAddress(), version, alerts_.forUpdates()})
    , settings_(ui_.engine(), *parts_.platform.workspace, parts_.defaults,
                {tr("vantro settings"), QUrl(QStringLiteral("qrc:/qt/qml/Vantro/Settings/Settings.qml")), settingsSize,
                 leastSettingsSize, setting::settingsWindowSize},
                [this] { return settingsContent(); })
    , transcriptions_(ui_.engine(), *parts_.platform.workspace, parts_.defaults,
                      {tr("vantro history"), QUrl(QStringLiteral("qrc:/qt/qml/Vantro/History/History.qml")),
                       historySize, leastSettingsSize, setting::historyWindowSize},
                      [this] { return historyContent(); })
    , onboarding_(ui_.engine(), *parts_.platform.workspace, parts_.defaults,
                  {tr("Welcome to vantro"), QUrl(QStringLiteral("qrc:/qt/qml/Vantro/Onboarding/Onboarding.qml")),
                   onboardingSize, onboardingSize, setting::guideWindowSize},
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
    connectTray();
    connect(&parts_.store, &CoreDataStack::noteAdded, this, &Windows::tellOfNote);
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
    tray_.setShortcut(shortcut ? shortcut->displayText() : QString());
}

std::unique_ptr<LauncherPanel> Windows::makeLauncher(Dictation& dictation)
{
    std::vector<LauncherModel::Mode> modes;
    for (const ProcessingMode mode : parts_.rewriting.visibleModes())
        modes.push_back({mode, parts_.rewriting.prompts().displayName(mode)});
    const QString note = leaveUnusableMode(dictation.recorder());
    const QString microphone = parts_.devices.effectiveDeviceName();
    return std::make_unique<Launcher>(
        Launcher::Context{ui_.engine(), dictation, parts_.shortcuts, *parts_.platform.workspace, parts_.notifications,
                          parts_.clock, modes, microphone.isEmpty() ? tr("the microphone") : microphone, note});
}

/// A default that nobody serves would fail each dictation after it was spoken. Returns what to say about it.
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
    shortcutWindow_ = std::make_unique<ShortcutWindow>(ui_.engine(), parts_.shortcuts, *parts_.platform.hotKeys,
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

LazyWindow::Content Windows::settingsContent()
{
    auto about = std::make_unique<AboutModel>(AboutModel::Actions{[this] { alerts_.reportError(); },
                                                                  [this] { alerts_.sendFeedback(); },
                                                                  [this] {
                                                                      Q_EMIT quitRequested();
                                                                  }});
    about->version = version;
    about->system = mail::systemInformation(version, *parts_.platform.systemInfo);

    LazyWindow::Content content;
    put(content, "general",
        std::make_unique<GeneralSettings>(
            GeneralSettings::Parts{parts_.defaults, *parts_.platform.loginItem, updates_}));
    put(content, "microphone",
        std::make_unique<MicrophoneSettings>(parts_.platform.makeAudioEngine, parts_.devices, parts_.clock));
    put(content, "openRecorder", makeRecorder(KeyboardShortcuts::Name::openModal));
    put(content, "stopRecorder", makeRecorder(KeyboardShortcuts::Name::stopRecordingAndCloseModal));
    put(content, "models", makeModelList());
    put(content, "modes", makeModesModel());
    put(content, "providers", makeProvidersModel());
    put(content, "vocabulary", makeVocabularyModel());
    put(content, "about", std::move(about));
    return content;
}

std::unique_ptr<ModesModel> Windows::makeModesModel()
{
    return std::make_unique<ModesModel>(
        ModesModel::Parts{parts_.defaults, parts_.rewriting.prompts(), parts_.rewriting.providers(),
                          [this](ProcessingMode mode) { return parts_.rewriting.isUsable(mode); },
                          [this](std::function<void()> confirmed) {
                              alerts_.confirm(tr("Use the Built-In Prompt"),
                                              tr("Your own prompt will be overwritten and cannot be had back."),
                                              tr("Overwrite"), std::move(confirmed));
                          }});
}

std::unique_ptr<ModelListModel> Windows::makeModelList()
{
    auto models = std::make_unique<ModelListModel>(ModelListModel::Parts{
        parts_.speech.catalogue.models(), [this](const TranscriptionModel& model) { return stateOf(model); },
        [this] { return parts_.speech.selection.selectedModel().name; },
        [this](const TranscriptionModel& model) { parts_.speech.selection.select(model); },
        [this](const TranscriptionModel& model) { return parts_.speech.downloads.statusText(model.name); },
        [this] { return parts_.speech.downloads.progress(); },
        [this](const TranscriptionModel& model) { parts_.speech.downloads.add(model); },
        [this](const TranscriptionModel& model) { parts_.speech.downloads.cancel(model.name); },
        [this](const TranscriptionModel& model, std::function<void()> confirmed) {
            alerts_.confirm(tr("Remove the Model"),
                            tr("%1 (%2) will be deleted from this computer. It would have to be downloaded again.")
                                .arg(model.name, model.size),
                            tr("Remove"), std::move(confirmed));
        },
        [this](const TranscriptionModel& model) {
            parts_.speech.remove(model);
        }});
    connect(&parts_.speech.downloads, &DownloadQueue::changed, models.get(), &ModelListModel::refresh);
    // Queued: looking for the selection while a row is shown may be what settles it.
    const auto follow = [list = models.get()](const QString& key) {
        if (key == setting::selectedModelName.key)
            list->refresh();
    };
    connect(&parts_.defaults, &UserDefaults::changed, models.get(), follow, Qt::QueuedConnection);
    return models;
}

std::unique_ptr<VocabularyModel> Windows::makeVocabularyModel()
{
    return std::make_unique<VocabularyModel>(VocabularyModel::Parts{
        parts_.vocabulary,
        [this](const LimitNotice& notice) {
            alerts_.show(AlertWindow::Kind::informational, notice.title, notice.message);
        },
        [this](std::function<void()> confirmed) {
            alerts_.confirm(tr("Reset All Vocabulary & Replacements"),
                            tr("All words and replacements will be removed. This action cannot be undone."),
                            tr("Reset"), std::move(confirmed));
        }});
}

std::unique_ptr<ProvidersModel> Windows::makeProvidersModel()
{
    Rewriting& rewriting = parts_.rewriting;
    return std::make_unique<ProvidersModel>(
        ProvidersModel::Parts{rewriting.providers(), [&rewriting] { return rewriting.keyAccounts(); },
                              [&rewriting](const ProviderConfiguration& provider, const std::optional<QString>& key) {
                                  return rewriting.verify(provider, key);
                              },
                              [this](const QString& question, std::function<void()> confirmed) {
                                  alerts_.confirm(tr("Delete Provider"), question, tr("Delete"), std::move(confirmed));
                              }});
}

std::unique_ptr<RecorderCocoa> Windows::makeRecorder(const KeyboardShortcuts::Name& name)
{
    return std::make_unique<RecorderCocoa>(parts_.shortcuts, *parts_.platform.hotKeys,
                                           *parts_.platform.desktopShortcuts, parts_.notifications, name);
}

LazyWindow::Content Windows::historyContent()
{
    Pasteboard& pasteboard = *parts_.platform.pasteboard;
    auto changes = std::make_unique<HistoryChanges>();
    auto dictations = std::make_unique<HistoryModel>(
        HistoryModel::Parts{parts_.store, pasteboard, *changes, parts_.clock, [this](ProcessingMode mode) {
                                return parts_.rewriting.prompts().displayName(mode);
                            }});
    auto notes = std::make_unique<NotesModel>(NotesModel::Parts{
        parts_.store, pasteboard, *changes, parts_.clock, [this](const DailyNote& day) {
            return parts_.store.regenerateSummary(day, parts_.rewriting.choose(ProcessingMode::Notes));
        }});
    LazyWindow::Content content;
    put(content, "changes", std::move(changes));
    put(content, "model", std::move(dictations));
    put(content, "notes", std::move(notes));
    return content;
}

LazyWindow::Content Windows::onboardingContent()
{
    auto model = std::make_unique<OnboardingModel>(OnboardingModel::Parts{
        parts_.platform.makeAudioEngine, parts_.devices, *parts_.platform.permissions, *parts_.platform.keyEvents,
        parts_.shortcuts, parts_.notifications, parts_.clock, parts_.speech.downloads,
        parts_.speech.selection.selectedModel(),
        [this] { return !parts_.speech.status(parts_.speech.selection.selectedModel()).file.isEmpty(); },
        [this](bool sandbox) {
            isSandboxMode_ = sandbox;
        },
        [this] {
            if (!isQuitting_)
                hud_.showNews(tr("First steps left"), tr("vantro's tray menu, or \"vantro show guide\", goes on with them"));
        }});
    auto recorder = makeRecorder(KeyboardShortcuts::Name::openModal);
    LazyWindow::Content content;
    content.properties = {{QStringLiteral("model"), QVariant::fromValue(model.get())},
                          {QStringLiteral("recorder"), QVariant::fromValue(recorder.get())}};
    content.models.push_back(std::move(model));
    content.models.push_back(std::move(recorder));
    return content;
}

ModelListModel::State Windows::stateOf(const TranscriptionModel& model) const
{
    switch (parts_.speech.downloads.stateOf(model.name)) {
    case DownloadQueue::State::running:
        return ModelListModel::Downloading;
    case DownloadQueue::State::waiting:
        return ModelListModel::Waiting;
    case DownloadQueue::State::idle:
        break;
    }
    const ModelStatus status = parts_.speech.status(model);
    if (!status.file.isEmpty())
        return ModelListModel::Ready;
    return status.state == ModelStatus::State::partial ? ModelListModel::Partial : ModelListModel::Missing;
}

void Windows::showAlert(const QString& title, const QString& text)
{
    alerts_.show(AlertWindow::Kind::warning, title, text);
}

void Windows::offerTranscription(const QString& title, const QString& text, std::function<void(bool isWanted)> answered)
{
    alerts_.show(AlertWindow::Kind::warning, title, text, {tr("Transcribe"), tr("Discard")},
                 [this, answered = std::move(answered)](std::optional<int> button) {
                     if (button)
                         idle_.run([answered, isWanted = button == 0] { answered(isWanted); });
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
                         idle_.run([wanted, answer = button == 0 ? AsSpoken::paste : AsSpoken::copy] { wanted(answer); });
                 });
}

void Windows::showPasteHUD(std::optional<QRect> anchor, const QString& keys, const QString& reason)
{
    back_.run([this, anchor, keys, reason] { hud_.showHUD(anchor, keys, reason); });
}

/// By its first words.
void Windows::tellOfNote(const QString& text)
{
    QString words = text.simplified();
    if (words.size() > noteExcerpt)
        words = words.left(words.lastIndexOf(QLatin1Char(' '), noteExcerpt)) + QStringLiteral("\u2026");
    back_.run([this, words] { hud_.showNews(tr("Note filed"), words); });
    Logger("Windows").info(QStringLiteral("Note filed"));
}

/// Who sees the download needs no news of its end.
void Windows::tellOfModel(const QString& name)
{
    if (!settings_.isVisible() && !onboarding_.isVisible() && !(downloadWindow_ && downloadWindow_->isVisible()))
        back_.run([this, name] { hud_.showNews(tr("The speech model is ready"), name); });
    parts_.notifications.post(notification::modelDownloaded);
}

void Windows::showTranscribing()
{
    hud_.showNotice(tr("Transcribing..."));
}

void Windows::showUndoOffer(std::optional<QRect> anchor, std::function<void()> accepted)
{
    const auto shortcut = parts_.shortcuts.shortcut(KeyboardShortcuts::Name::openModal);
    hud_.showOffer(anchor, tr("Recording discarded"),
                   shortcut ? tr("%1 or a click transcribes it after all").arg(shortcut->displayText())
                            : tr("A click transcribes it after all"),
                   std::move(accepted));
}

void Windows::showModelDownload(const TranscriptionModel& model, const QString& problem)
{
    // The onboarding has its own page for the download.
    if (onboarding_.isVisible() && problem.isEmpty()) {
        showOnboarding();
        return;
    }
    if (!downloadWindow_)
        downloadWindow_ =
            std::make_unique<ModelDownloadWindow>(ui_.engine(), parts_.speech.downloads);
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
