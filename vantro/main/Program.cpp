#include "vantro/main/Program.h"

#include "KeyboardShortcuts/RawKeyMonitor.h"
#include "base/Notifications.h"
#include "platform/Platform.h"
#include "vantro/ai/ModeHandlers.h"
#include "vantro/app/AppDelegate.h"
#include "vantro/app/ControlService.h"
#include "vantro/app/History.h"
#include "vantro/app/ModelMemory.h"
#include "vantro/app/Rewriting.h"
#include "vantro/app/Speech.h"
#include "vantro/audio/AudioDeviceManager.h"
#include "vantro/audio/HeadsetSwitch.h"
#include "vantro/cli/ExitCode.h"
#include "vantro/cli/Terminal.h"
#include "vantro/main/EndSignals.h"
#include "vantro/main/RunMarker.h"
#include "vantro/main/SecondStart.h"
#include "vantro/main/ShortcutSetup.h"
#include "vantro/main/SoleInstance.h"
#include "vantro/main/Windows.h"

#include <QDBusConnection>
#include <QFileInfo>
#include <QGuiApplication>
#include <QMessageBox>
#include <QSessionManager>
#include <QTimer>

#include <ranges>

namespace vantro {

namespace {

/// Otherwise the session manager would also start the program at the next login, with its own arguments.
void leaveStartToAutostart(QSessionManager& session)
{
    session.setRestartHint(QSessionManager::RestartNever);
}

/// The parts of the desktop program in order of construction; destroyed in reverse.
class Program
{
public:
    explicit Program(const ProgramOptions& options);

    /// False when another instance is already running.
    [[nodiscard]] bool becomeTheRunningInstance();
    /// For reaching that other instance.
    [[nodiscard]] const SoleInstance& soleInstance() const { return soleInstance_; }
    /// Throws PersistentStoreError.
    void launch();

private:
    void connectShell();
    QCoro::Task<> keepAudio(QUuid id, std::shared_ptr<Recording> recording);
    void countWords(const NotificationCenter::UserInfo& finished);
    QCoro::Task<> tellWhatWasLeft();
    [[nodiscard]] Dictation::Parts dictationParts();

    ProgramOptions options_;
    /// Before everything that two instances must not share.
    SoleInstance soleInstance_;
    SystemClock clock_;
    UserDefaults defaults_{UserDefaults::standardPath()};
    NotificationCenter notifications_;
    RecordingSpool spool_{RecordingSpool::standardFolder(), clock_}; ///< before all that may hold recordings
    Platform platform_;

    VocabularySettings vocabulary_{defaults_};
    Speech speech_{defaults_, vocabulary_, options_.modelHost};

    History history_{defaults_, clock_};
    Rewriting rewriting_{defaults_, platform_, clock_};
    Statistics statistics_{defaults_, clock_,
                           QFileInfo(CoreDataStack::standardPath()).path() + QStringLiteral("/statistics.json")};
    const ModeHandlers modeHandlers_ =
        makeModeHandlers(history_.dictations, rewriting_.prompts(),
                         [this](ProcessingMode mode, const QString& text) { return rewriting_.cleaned(mode, text); });
    AudioDeviceManager devices_{*platform_.audioHardware, defaults_};
    AudioRecorder recorder_{platform_.makeAudioEngine, devices_, *platform_.permissions, clock_};
    ModelMemory modelMemory_{{speech_.engines, speech_.selection, defaults_, recorder_, *platform_.systemInfo, clock_}};
    HeadsetSwitch headsetSwitch_{*platform_.audioCards, devices_, recorder_, defaults_, clock_};
    KeyboardShortcuts shortcuts_{*platform_.hotKeys, defaults_, notifications_};
    RawKeyMonitor rawKeys_{shortcuts_, *platform_.hotKeys};
    PasteDelivery delivery_;
    Windows windows_{{defaults_, notifications_, clock_, platform_, speech_, history_, devices_, recorder_, shortcuts_,
                      vocabulary_, rewriting_, statistics_}};
    ShortcutSetup shortcutSetup_{shortcuts_, windows_};
    Recovery recovery_{spool_, clock_, *platform_.session, windows_};
    std::optional<RunMarker> marker_;
    std::optional<EndSignals> endSignals_;
    NotificationCenter::Observation finished_;
    AppDelegate delegate_;
    ControlService control_;
};

Program::Program(const ProgramOptions& options)
    : options_(options)
    , soleInstance_(SoleInstance::standardFolder(),
                    [this](const QStringList& arguments) { shortcutSetup_.handOver(arguments); })
    , platform_(makePlatform())
    , delivery_(*platform_.pasteboard, *platform_.keyEvents, *platform_.workspace, *platform_.session, defaults_,
                clock_)
    , delegate_({dictationParts(), *platform_.permissions, shortcuts_, speech_.selection, history_.migrations,
                 [this] { return speech_.preparation.run(); },
                 [this](const TranscriptionModel& model) {
                     return speech_.engines.of(model).check(model);
                 }})
    , control_(delegate_, {recorder_, devices_, speech_.selection, shortcuts_, recovery_, platform_.ways},
               {[this](const QStringList& arguments) { shortcutSetup_.handOver(arguments); },
                [this](const QString& window) { return windows_.show(window); },
                [this](ProcessingMode mode) { return rewriting_.isUsable(mode); },
                [] {
                    QCoreApplication::quit();
                }})
{
    connectShell();
    speech_.facade.setTurn([&turn = rewriting_.local().engine().turn()] { return turn.take(); });
}

void Program::connectShell()
{
    QObject::connect(&windows_, &Windows::dictateRequested, &delegate_, [this] { delegate_.showLauncherAndRecord(); });
    QObject::connect(&windows_, &Windows::finishRequested, &delegate_, &AppDelegate::stopRecording);
    QObject::connect(&windows_, &Windows::cancelRequested, &delegate_, &AppDelegate::cancelDictation);
    QObject::connect(&windows_, &Windows::pasteRequested, &delegate_, &AppDelegate::pasteAgain);
    QObject::connect(&windows_, &Windows::quitRequested, qApp, &QCoreApplication::quit);
    finished_ = notifications_.observe(notification::recordingFinished, [this](const auto& info) { countWords(info); });
    // A dictation survives a session that only saves its state or whose logout is cancelled: cleaning up waits for the
    // quit.
    for (const auto request : {&QGuiApplication::commitDataRequest, &QGuiApplication::saveStateRequest})
        QObject::connect(qGuiApp, request, &delegate_, &leaveStartToAutostart);
    QObject::connect(qApp, &QCoreApplication::aboutToQuit, &delegate_, &AppDelegate::applicationWillTerminate);
}

void Program::countWords(const NotificationCenter::UserInfo& finished)
{
    if (finished.contains(QStringLiteral("hasError")) || history_.retention.isPrivate())
        return;
    const DictationTimings timings = delegate_.timings();
    const auto spoken =
        timings.firstSample && timings.stopped ? *timings.stopped - *timings.firstSample : Clock::Instant::duration();
    statistics_.add(finished.value(QStringLiteral("finalText")).toString(),
                    std::chrono::duration_cast<std::chrono::seconds>(spoken));
}

/// Reads the recording before anybody can discard it: its thread runs tasks in order.
QCoro::Task<> Program::keepAudio(QUuid id, std::shared_ptr<Recording> recording)
{
    if (!history_.audio.isKeeping())
        co_return;
    try {
        std::vector<float> samples = co_await recording->samples();
        history_.audio.keep(id, std::move(samples));
    } catch (const Error& error) {
        Logger("Program").error(QStringLiteral("Recording not kept: ") + error.localizedDescription());
    }
}

Dictation::Parts Program::dictationParts()
{
    return {defaults_,
            notifications_,
            clock_,
            recorder_,
            speech_.facade,
            modeHandlers_,
            [this](ProcessingMode mode) { return rewriting_.expectUse(mode); },
            [this](ProcessingMode mode, std::stop_token stop) { return rewriting_.choose(mode, std::move(stop)); },
            [this](const QUuid& id, std::shared_ptr<Recording> recording) { keepAudio(id, std::move(recording)); },
            history_.dictations,
            delivery_,
            spool_,
            recovery_,
            *platform_.sounds,
            *platform_.session,
            *platform_.keyEvents,
            windows_};
}

bool Program::becomeTheRunningInstance()
{
    // The bus name alone is not enough: one of the two may run without a bus.
    if (!soleInstance_.claim())
        return false;
    if (control_.publish())
        return true;
    if (QDBusConnection::sessionBus().isConnected())
        return false;
    Logger("Program").error(QStringLiteral("No session bus: vantro's commands cannot reach this program"));
    return true;
}

void Program::launch()
{
    history_.store.loadPersistentStores();
    endSignals_.emplace();
    marker_.emplace(RunMarker::standardPath());
    history_.store.setSummaryPrompt([this] { return rewriting_.prompts().prompt(ProcessingMode::Notes); });
    defaults_.watch();
    shortcutSetup_.settle(options_.shortcut);
    delegate_.applicationDidFinishLaunching();
    history_.retention.start();
    history_.audio.start();
    rewriting_.start();
    tellWhatWasLeft();
    if (const auto& kept = defaults_.repair())
        windows_.alerts().tellOfSettings(*kept);
}

/// The offer of a kept recording tells of the crash as well.
QCoro::Task<> Program::tellWhatWasLeft()
{
    const bool isOffered = co_await recovery_.offerLeft();
    if (!isOffered && marker_->foundCrash())
        windows_.alerts().tellOfCrash();
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
        // Without a store nothing dictated could be kept. Shown in a box as well: nobody reads standard error when the
        // program was started from a menu.
        terminal::writeError(error.localizedDescription());
        program.reset();
        QMessageBox::critical(nullptr, QStringLiteral("vantro"), error.localizedDescription());
        return ExitCode::failed;
    }
    return QGuiApplication::exec();
}

} // namespace vantro
