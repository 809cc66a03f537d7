#include "vantro/main/Program.h"

#include "KeyboardShortcuts/RawKeyMonitor.h"
#include "platform/KeyCode.h"
#include "platform/linux/LinuxPlatform.h"
#include "vantro/app/AppDelegate.h"
#include "vantro/app/ControlService.h"
#include "vantro/app/DictationPipeline.h"
#include "vantro/app/LanguageModels.h"
#include "vantro/app/LenientStore.h"
#include "vantro/app/ModeHandlers.h"
#include "vantro/app/Speech.h"
#include "vantro/app/VisibleModes.h"
#include "vantro/audio/AudioDeviceManager.h"
#include "vantro/audio/HeadsetSwitch.h"
#include "vantro/cli/ExitCode.h"
#include "vantro/cli/Terminal.h"
#include "vantro/main/EndSignals.h"
#include "vantro/main/RunMarker.h"
#include "vantro/main/SecondStart.h"
#include "vantro/main/SoleInstance.h"
#include "vantro/main/Windows.h"
#include "vantro/store/CoreDataStack.h"
#include "vantro/store/MigrationManager.h"
#include "vantro/ui/launcher/Launcher.h"
#include "vantro/ui/shortcuts/ShortcutWindow.h"

#include <QDBusConnection>
#include <QGuiApplication>
#include <QMessageBox>
#include <QSessionManager>
#include <QTimer>

#include <ranges>

namespace vantro {

namespace {

/// A session manager would start the program at the next login as well, and with arguments of its own.
void leaveStartToAutostart(QSessionManager& session)
{
    session.setRestartHint(QSessionManager::RestartNever);
}

/// Everything the desktop program consists of, in the order in which it is built; torn down in reverse.
class Program
{
public:
    explicit Program(const ProgramOptions& options);

    /// False when another instance runs already.
    [[nodiscard]] bool becomeTheRunningInstance();
    /// Which runs, when this is another one.
    [[nodiscard]] const SoleInstance& soleInstance() const { return soleInstance_; }
    /// Throws PersistentStoreError.
    void launch();

private:
    void settleShortcut(const QString& wanted);
    void askForShortcut();
    void showOnboarding();
    void useShortcut(const QString& text);
    void handOver(const QStringList& arguments);
    [[nodiscard]] Surfaces surfaces();
    [[nodiscard]] std::unique_ptr<LauncherPanel> makeLauncher(ProcessingMode defaultMode);
    void showAlert(AlertWindow::Kind kind, const QString& title, const QString& text);
    [[nodiscard]] QCoro::Task<bool> modelIsReady(TranscriptionModel model);
    void connectShell();
    void followRecorder();
    [[nodiscard]] QString microphoneName() const;
    [[nodiscard]] QString shortcutName() const;
    [[nodiscard]] QJsonObject statusDetails();
    [[nodiscard]] DictationPipeline::FormatServices formatServices();

    ProgramOptions options_;
    /// Above all that the next one would have to share.
    SoleInstance soleInstance_;
    SystemClock clock_;
    UserDefaults defaults_{UserDefaults::standardPath()};
    NotificationCenter notifications_;
    Platform platform_;

    VocabularySettings vocabulary_{defaults_};
    Speech speech_{defaults_, vocabulary_, options_.modelHost};
    QString modelProblem_; ///< why a model that was there has to be fetched again

    CoreDataStack store_{clock_};
    LenientStore lenientStore_{store_};
    MigrationManager migrations_{defaults_, store_};
    PromptSettings prompts_{defaults_};
    LanguageModels languageModels_{defaults_, platform_, clock_, prompts_};
    DictationPipeline pipeline_{speech_.facade, makeModeHandlers(lenientStore_, prompts_), formatServices()};
    AudioDeviceManager devices_{*platform_.audioHardware, defaults_};
    AudioRecorder recorder_{
        platform_.makeAudioEngine, devices_, *platform_.permissions, notifications_, clock_, pipeline_};
    HeadsetSwitch headsetSwitch_{*platform_.audioCards, devices_, recorder_, defaults_, clock_};
    KeyboardShortcuts shortcuts_{*platform_.hotKeys, defaults_, notifications_};
    RawKeyMonitor rawKeys_{shortcuts_, *platform_.hotKeys};
    PasteDelivery delivery_;
    Windows windows_{{defaults_, notifications_, clock_, platform_, speech_.catalogue, speech_.selection,
                      speech_.downloader, store_, devices_, shortcuts_, vocabulary_, prompts_, languageModels_,
                      [this](const auto& model) { return speech_.status(model); },
                      [this](const auto& model) { speech_.remove(model); },
                      [this](bool sandbox) {
                          delegate_.setSandboxMode(sandbox);
                      }}};
    std::unique_ptr<ShortcutWindow> shortcutWindow_;
    std::optional<RunMarker> marker_;
    std::optional<EndSignals> endSignals_;
    NotificationCenter::Observation shortcutObservation_;
    AppDelegate delegate_;
    ControlService control_;
};

Program::Program(const ProgramOptions& options)
    : options_(options)
    , soleInstance_(SoleInstance::standardFolder(), [this](const QStringList& arguments) { handOver(arguments); })
    , platform_(makeLinuxPlatform())
    , delivery_(*platform_.pasteboard, *platform_.keyEvents, *platform_.workspace, defaults_, clock_)
    , delegate_({defaults_, notifications_, clock_, *platform_.permissions, *platform_.sounds, recorder_, shortcuts_,
                 delivery_, speech_.selection, [this] { windows_.applyTheme(); },
                 [this] { windows_.updates().check(UpdateChecker::Asker::launch); }, migrations_,
                 [this] { return speech_.preparation.run(); },
                 [this](TranscriptionModel model) { return modelIsReady(std::move(model)); }, lenientStore_,
                 surfaces()})
    , control_(
          delegate_, recorder_, [this] { return statusDetails(); },
          [this](const QStringList& arguments) { handOver(arguments); })
{
    connectShell();
}

void Program::connectShell()
{
    QObject::connect(&windows_.tray(), &TrayIcon::dictateRequested, &delegate_,
                     [this] { delegate_.showLauncherAndRecord(); });
    QObject::connect(&windows_, &Windows::quitRequested, qApp, &QCoreApplication::quit);
    QObject::connect(&recorder_, &AudioRecorder::isRecordingChanged, &windows_, [this] { followRecorder(); });
    QObject::connect(&recorder_, &AudioRecorder::isBusyChanged, &windows_, [this] { followRecorder(); });
    shortcutObservation_ = notifications_.observe(KeyboardShortcuts::shortcutByNameDidChange,
                                                  [this](const auto&) { windows_.tray().setShortcut(shortcutName()); });
    // A session that only saves itself, or whose end is called off, costs no dictation: nothing is lost before the end.
    for (const auto request : {&QGuiApplication::commitDataRequest, &QGuiApplication::saveStateRequest})
        QObject::connect(qGuiApp, request, &delegate_, &leaveStartToAutostart);
    QObject::connect(qApp, &QCoreApplication::aboutToQuit, &delegate_, &AppDelegate::applicationWillTerminate);
}

void Program::followRecorder()
{
    windows_.tray().setState(recorder_.isRecording() ? TrayIcon::State::recording
                             : recorder_.isBusy()    ? TrayIcon::State::processing
                                                     : TrayIcon::State::idle);
}

DictationPipeline::FormatServices Program::formatServices()
{
    return {[this](ProcessingMode mode) { return languageModels_.choose(mode); },
            [this] {
                languageModels_.expectUse(recorder_.processingMode());
            }};
}

bool Program::becomeTheRunningInstance()
{
    // The bus alone would not do: one of both may have been started where there is none.
    if (!soleInstance_.claim())
        return false;
    if (control_.publish())
        return true;
    if (QDBusConnection::sessionBus().isConnected())
        return false;
    Logger("Program").error(QStringLiteral("There is no session bus: vantro's commands cannot reach this program"));
    return true;
}

void Program::launch()
{
    store_.loadPersistentStores();
    endSignals_.emplace();
    marker_.emplace(RunMarker::standardPath());
    store_.setSummaryPrompt([this] { return prompts_.prompt(ProcessingMode::Notes); });
    // A mode that is chosen while the user speaks may need another provider than the one that was expected.
    QObject::connect(&recorder_, &AudioRecorder::processingModeChanged, &recorder_, [this] {
        if (recorder_.isRecording())
            languageModels_.expectUse(recorder_.processingMode());
    });
    defaults_.watch();
    const bool isFirstStart = options_.shortcut.isEmpty() && !shortcuts_.shortcut(KeyboardShortcuts::Name::openModal);
    settleShortcut(options_.shortcut);
    windows_.tray().setShortcut(shortcutName());
    if (isFirstStart)
        showOnboarding();
    delegate_.applicationDidFinishLaunching();
    languageModels_.start();
    if (marker_->foundCrash())
        windows_.tellOfCrash();
    if (defaults_.keptAside())
        windows_.tellOfSettings(*defaults_.keptAside());
}

void Program::showOnboarding()
{
    // The question for a shortcut is what is missing most.
    if (!shortcutWindow_)
        windows_.showOnboarding();
}

void Program::settleShortcut(const QString& wanted)
{
    const auto name = KeyboardShortcuts::Name::openModal;
    if (!wanted.isEmpty()) {
        useShortcut(wanted);
    } else if (!shortcuts_.shortcut(name)) {
        if (const auto proposed = shortcuts_.proposeShortcut(name))
            printLine(QStringLiteral("Press %1 to dictate").arg(proposed->displayText()));
        else
            askForShortcut();
    }
}

void Program::askForShortcut()
{
    const QString reason =
        QGuiApplication::tr("The usual shortcuts are all used by other programs. Take one of your own.");
    Logger("Program").info(reason);
    shortcutWindow_ = std::make_unique<ShortcutWindow>(windows_.engine(), shortcuts_, *platform_.hotKeys,
                                                       *platform_.desktopShortcuts, notifications_, reason);
    shortcutWindow_->present();
}

void Program::useShortcut(const QString& text)
{
    const auto parsed = parseShortcut(text);
    if (!parsed)
        return;
    const auto name = KeyboardShortcuts::Name::openModal;
    shortcuts_.setShortcut(name, KeyboardShortcuts::Shortcut({parsed->keyCode}, parsed->modifiers));
}

void Program::handOver(const QStringList& arguments)
{
    if (arguments.isEmpty()) {
        windows_.showMain();
        return;
    }
    useShortcut(arguments.first());
    // A shortcut that does not work has its own alert.
    if (shortcuts_.failure(KeyboardShortcuts::Name::openModal))
        return;
    showAlert(AlertWindow::Kind::informational, QGuiApplication::tr("vantro is running"),
              QGuiApplication::tr("Press %1 to dictate into the window you are working in.").arg(shortcutName()));
}

Surfaces Program::surfaces()
{
    return {[this](ProcessingMode mode) { return makeLauncher(mode); },
            [this](std::optional<QRect> anchor) { windows_.showPasteHUD(anchor); },
            [this](const QString& title, const QString& text) { showAlert(AlertWindow::Kind::warning, title, text); },
            [this](const TranscriptionModel& model) { windows_.showModelDownload(model, modelProblem_); },
            [this] { windows_.closeModelDownload(); },
            [this] { showOnboarding(); },
            [this] { windows_.closeOnboarding(); },
            &windows_.settingsWindow(),
            &windows_.transcriptionsWindow()};
}

QCoro::Task<bool> Program::modelIsReady(TranscriptionModel model)
{
    const auto checked = speech_.engines.of(model).check(model);
    const ModelCheck check = co_await checked;
    modelProblem_ = check.problem;
    co_return check.isReady;
}

std::unique_ptr<LauncherPanel> Program::makeLauncher(ProcessingMode defaultMode)
{
    std::vector<LauncherModel::Mode> modes;
    for (const ProcessingMode mode : visibleModes(prompts_, languageModels_.providers(), defaultMode))
        modes.push_back({mode, prompts_.displayName(mode)});
    auto launcher =
        std::make_unique<Launcher>(Launcher::Context{windows_.engine(), recorder_, shortcuts_, *platform_.workspace,
                                                     notifications_, clock_, modes, defaultMode, microphoneName()});
    QObject::connect(&pipeline_, &DictationPipeline::transcriptionProgress, &launcher->model(),
                     &LauncherModel::setProgress);
    return launcher;
}

void Program::showAlert(AlertWindow::Kind kind, const QString& title, const QString& text)
{
    windows_.showAlert(kind, title, text, {QGuiApplication::tr("OK")});
}

QString Program::microphoneName() const
{
    const auto id =
        devices_.effectiveDeviceID() ? devices_.effectiveDeviceID() : platform_.audioHardware->defaultInputDevice();
    const auto& devices = devices_.availableDevices();
    const auto device = std::ranges::find_if(devices, [&](const auto& d) { return id == std::optional(d.id); });
    return device != devices.end() ? device->name : QGuiApplication::tr("the microphone");
}

QString Program::shortcutName() const
{
    const auto shortcut = shortcuts_.shortcut(KeyboardShortcuts::Name::openModal);
    return shortcut ? shortcut->displayText() : QString();
}

QJsonObject Program::statusDetails()
{
    DictationTimings timings = delegate_.timings();
    timings.engine = pipeline_.lastEngineTime();
    const auto* model = speech_.selection.stored();
    QJsonObject details{{QStringLiteral("model"), model != nullptr ? model->name : QString()},
                        {QStringLiteral("microphone"), microphoneName()},
                        {QStringLiteral("shortcut"), shortcutName()},
                        {QStringLiteral("version"), QStringLiteral(VANTRO_VERSION)},
                        {QStringLiteral("last"), timings.toJson()}};
    if (const auto failure = shortcuts_.failure(KeyboardShortcuts::Name::openModal))
        details.insert(QStringLiteral("shortcut_failure"), *failure);
    return details;
}

} // namespace

int runProgram(const ProgramOptions& options)
{
    auto program = std::make_unique<Program>(options);
    const QStringList arguments = options.shortcut.isEmpty() ? QStringList() : QStringList{options.shortcut};
    if (!program->becomeTheRunningInstance())
        return endSecondStart(program->soleInstance(), arguments);
    try {
        program->launch();
    } catch (const PersistentStoreError& error) {
        // Nothing is kept of whatever would be dictated. Who started it from a menu reads no standard error.
        terminal::writeError(error.localizedDescription());
        program.reset();
        QMessageBox::critical(nullptr, QStringLiteral("vantro"), error.localizedDescription());
        return ExitCode::failed;
    }
    return QGuiApplication::exec();
}

} // namespace vantro
