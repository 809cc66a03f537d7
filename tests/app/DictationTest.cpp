// One dictation from the shortcut to the delivered text: everything of the program but the adapters, the windows and
// the speech engine is the real thing.
#include "base/testing/ManualClock.h"
#include "platform/KeyCode.h"
#include "platform/Wording.h"
#include "platform/testing/FakeAudioEngine.h"
#include "platform/testing/FakeAudioHardware.h"
#include "platform/testing/FakeHotKeyManager.h"
#include "platform/testing/FakeKeyEventPoster.h"
#include "platform/testing/FakePasteboard.h"
#include "platform/testing/FakePermissions.h"
#include "platform/testing/FakeSystemSounds.h"
#include "platform/testing/FakeWorkspace.h"
#include "vantro/ai/NormalModeHandler.h"
#include "vantro/ai/NotesModeHandler.h"
#include "vantro/app/AppDelegate.h"
#include "vantro/app/DictationPipeline.h"
#include "vantro/app/LenientStore.h"
#include "vantro/audio/AudioDeviceManager.h"

#include <QCoreApplication>
#include <QPromise>
#include <QTemporaryDir>
#include <qcoro/qcorofuture.h>

#include <gtest/gtest.h>

using namespace std::chrono_literals;
using namespace vantro;

namespace {

constexpr WindowID editor = 77;
constexpr WindowID otherWindow = 78;
const auto clipboard = Pasteboard::Selection::Clipboard;

/// A speech engine that answers when the test says so.
class SlowProvider final : public TranscriptionProviding
{
public:
    void prepare(const TranscriptionModel&) override { ++prepared; }
    QCoro::Task<QString> transcribe(TranscriptionRequest request) override
    {
        sampleCount = request.samples.size();
        answer_ = std::make_shared<QPromise<QString>>();
        answer_->start();
        co_return co_await answer_->future();
    }
    void cancel() override { ++cancelled; }
    void dictationEnded() override { ++ended; }

    [[nodiscard]] bool isAsked() const { return answer_ != nullptr; }
    void answer(const QString& text)
    {
        const auto answer = std::exchange(answer_, nullptr);
        // A text of its own in memory, as engines make them, so that memory checkers see what becomes of it.
        answer->addResult(QString(text.constData(), text.size()));
        answer->finish();
    }
    void fail(const QString& why)
    {
        const auto answer = std::exchange(answer_, nullptr);
        answer->setException(std::make_exception_ptr(Error(why)));
        answer->finish();
    }

    int prepared = 0;
    int cancelled = 0;
    int ended = 0;
    std::size_t sampleCount = 0;

private:
    std::shared_ptr<QPromise<QString>> answer_;
};

class MemoryStore final : public TranscriptionStoring
{
public:
    void saveTranscription(const QString& transcription, const QString&, ProcessingMode) override
    {
        if (full)
            throw Error(QStringLiteral("The disk is full."));
        rows << transcription;
    }
    QUuid saveTranscription(const QString& transcription, ProcessingMode) override
    {
        rows << transcription;
        return QUuid::createUuid();
    }
    void updateFormatted(const QUuid&, const QString&) override {}
    QCoro::Task<> addNote(QString transcription) override
    {
        if (full)
            throw Error(QStringLiteral("The disk is full."));
        rows << transcription;
        co_return;
    }
    QCoro::Task<> summarizeToday(std::shared_ptr<FormatRequestServicing>) override { co_return; }

    bool full = false;
    QStringList rows;
};

/// A panel without a window: takes the keyboard from the window in front and gives it back.
class PanelDouble final : public LauncherPanel
{
public:
    PanelDouble(AudioRecorder& recorder, doubles::FakeWorkspace& workspace, int& open)
        : recorder_(recorder)
        , workspace_(workspace)
        , open_(open)
    {
    }
    ~PanelDouble() override { PanelDouble::closePanel(); }

    [[nodiscard]] bool isVisible() const override { return isOpen_; }
    [[nodiscard]] QRect frame() const override { return {1, 2, 500, 200}; }
    void makeKeyAndOrderFront() override
    {
        isOpen_ = true;
        ++open_;
        former_ = workspace_.frontWindow();
        workspace_.setFrontWindow(1000);
        workspace_.setInputFocus(1000);
    }
    void orderFront() override
    {
        isOpen_ = true;
        ++open_;
    }
    void closePanel() override
    {
        if (!std::exchange(isOpen_, false))
            return;
        --open_;
        recorder_.cancelRecording();
        if (former_ && workspace_.windowExists(*former_))
            workspace_.focus(*former_);
        else
            workspace_.focus(otherWindow);
    }

private:
    AudioRecorder& recorder_;
    doubles::FakeWorkspace& workspace_;
    int& open_;
    bool isOpen_ = false;
    std::optional<WindowID> former_;
};

class SideWindowDouble final : public SideWindow
{
public:
    [[nodiscard]] bool isVisible() const override { return visible; }
    void orderOut() override { visible = false; }
    void orderFront() override { visible = true; }

    bool visible = false;
};

class Dictation : public ::testing::Test
{
protected:
    explicit Dictation(bool isModelReady = true) : isModelReady(isModelReady)
    {
        workspace.openWindow(editor);
        workspace.openWindow(otherWindow);
        workspace.focus(editor);
        keyEvents.setTarget([this](auto) { delivered = pasteboard.fetch(clipboard, *workspace.frontWindow()); });
        shortcuts.setShortcut(KeyboardShortcuts::Name::openModal, shortcut);
        history.loadPersistentStores();
        delegate.applicationDidFinishLaunching();
    }

    static DictationPipeline::Handlers handlers(TranscriptionStoring& store)
    {
        DictationPipeline::Handlers handlers;
        handlers[ProcessingMode::Normal] = std::make_unique<NormalModeHandler>(store);
        handlers[ProcessingMode::Notes] = std::make_unique<NotesModeHandler>(store);
        return handlers;
    }

    void pressShortcut()
    {
        hotKeys.strike({2, Modifier::command | Modifier::option});
        pump();
    }
    void speak(std::size_t samples) { engines.current()->hear(samples, 0.1F); }
    void stopAndDrain()
    {
        delegate.stopRecording();
        clock.advance(150ms);
        pump();
    }
    /// Lets everything that is due happen.
    static void pump()
    {
        for (int i = 0; i < 20; ++i) {
            QCoreApplication::sendPostedEvents();
            QCoreApplication::processEvents();
        }
    }
    void dictate(const QString& text)
    {
        pressShortcut();
        speak(16'000);
        stopAndDrain();
        ASSERT_TRUE(provider.isAsked());
        provider.answer(text);
        pump();
        // A focus that returned by itself needs no waiting, a missing one ends in a bounded wait.
        clock.advance(600ms);
        pump();
    }

    const KeyboardShortcuts::Shortcut shortcut{{2}, Modifier::command | Modifier::option};
    QTemporaryDir folder;
    UserDefaults defaults{folder.filePath(QStringLiteral("vantro.ini"))};
    NotificationCenter notifications;
    doubles::ManualClock clock;
    doubles::FakeAudioEngines engines;
    doubles::FakeAudioHardware hardware;
    doubles::FakePermissions permissions;
    doubles::FakeHotKeyManager hotKeys;
    doubles::FakeKeyEventPoster keyEvents;
    doubles::FakePasteboard pasteboard;
    doubles::FakeWorkspace workspace;
    doubles::FakeSystemSounds sounds;
    ModelCatalogue catalogue;
    ModelSelection models{catalogue, defaults, [](const auto& model) {
                              return model.name == QLatin1String("tiny.en");
                          }};
    SlowProvider provider;
    MemoryStore store;
    CoreDataStack history{true, clock}; ///< what the repairs at the launch run on
    MigrationManager migrations{defaults, history};
    SlowProvider neuralProvider;
    TranscriptionFacade facade{models, provider, neuralProvider};
    LenientStore lenientStore{store};
    DictationPipeline pipeline{facade, handlers(lenientStore)};
    AudioDeviceManager devices{hardware, defaults};
    AudioRecorder recorder{engines.factory(), devices, permissions, notifications, clock, pipeline};
    KeyboardShortcuts shortcuts{hotKeys, defaults, notifications};
    PasteDelivery delivery{pasteboard, keyEvents, workspace, defaults, clock};
    int openPanels = 0;
    SideWindowDouble settingsWindow;
    SideWindowDouble historyWindow;
    QStringList steps; ///< of the launch, in their order
    QStringList alerts;
    bool isModelReady;
    QStringList downloads; ///< models whose download is shown
    std::vector<std::optional<QRect>> huds;
    std::optional<QString> delivered;
    AppDelegate delegate{
        {defaults,
         notifications,
         clock,
         permissions,
         sounds,
         recorder,
         shortcuts,
         delivery,
         models,
         [this] { steps << QStringLiteral("theme"); },
         [this] { steps << QStringLiteral("update check"); },
         migrations,
         [this]() -> QCoro::Task<> {
             steps << QStringLiteral("model");
             co_return;
         },
         [this](const auto&) -> QCoro::Task<bool> { co_return isModelReady; },
         lenientStore,
         {[this](ProcessingMode) { return std::make_unique<PanelDouble>(recorder, workspace, openPanels); },
          [this](std::optional<QRect> anchor) { huds.push_back(anchor); },
          [this](const QString&, const QString& text) { alerts << text; },
          [this](const auto& model) { downloads << model.name; }, [this] { downloads.clear(); },
          [this] { steps << QStringLiteral("onboarding"); }, [this] { steps << QStringLiteral("onboarding closed"); },
          &settingsWindow, &historyWindow}}};
};

class DictationWithoutModel : public Dictation
{
protected:
    DictationWithoutModel() : Dictation(false) {}
};

} // namespace

TEST_F(DictationWithoutModel, ShowsTheDownloadInsteadOfTheLauncherUntilTheModelIsThere)
{
    EXPECT_EQ(downloads, QStringList{QStringLiteral("tiny.en")}) << "at the start";
    pressShortcut();
    EXPECT_EQ(openPanels, 0) << "nobody should speak in vain";
    EXPECT_EQ(downloads.size(), 2) << "the window is brought back";

    notifications.post(QStringLiteral("download:model:success"));
    EXPECT_TRUE(downloads.isEmpty()) << "the window closes by itself";
    pressShortcut();
    EXPECT_EQ(openPanels, 0) << "it was another model";
    isModelReady = true;
    notifications.post(QStringLiteral("download:model:success"));
    dictate(QStringLiteral("Now it works."));
    EXPECT_EQ(delivered, QStringLiteral("Now it works."));
}

TEST_F(Dictation, LaunchRunsItsStepsInOrderAndShowsWhatIsMissing)
{
    EXPECT_EQ(steps, QStringList({QStringLiteral("theme"), QStringLiteral("model")}));
    steps.clear();
    defaults.setBoolean(QStringLiteral("checkForUpdatesOnLaunch"), true);
    permissions.microphone = false;
    delegate.applicationDidFinishLaunching();
    EXPECT_EQ(steps, QStringList({QStringLiteral("theme"), QStringLiteral("update check"), QStringLiteral("onboarding"),
                                  QStringLiteral("model"), QStringLiteral("onboarding")}))
        << "shown once more when the model turns out to be there";
    notifications.post(QStringLiteral("permissions:close"));
    EXPECT_EQ(steps.last(), QStringLiteral("onboarding closed"));
}

TEST_F(Dictation, PutsOwnWindowsAsideAndBringsBackThoseThatWereThere)
{
    settingsWindow.visible = true;
    pressShortcut();
    EXPECT_FALSE(settingsWindow.visible);
    delegate.cancelDictation();
    notifications.post(QStringLiteral("launcher:closed"));
    EXPECT_TRUE(settingsWindow.visible);
    EXPECT_FALSE(historyWindow.visible) << "it was not there before";

    historyWindow.visible = true;
    delegate.setSandboxMode(true);
    pressShortcut();
    EXPECT_TRUE(settingsWindow.visible && historyWindow.visible) << "practice hides nothing";
}

TEST_F(Dictation, EndOfTheProcessThrowsTheRecordingAwayAndGivesTheClipboardBack)
{
    pasteboard.setByOther(clipboard, QStringLiteral("former"));
    pressShortcut();
    speak(16'000);
    delegate.applicationWillTerminate();
    EXPECT_FALSE(recorder.isBusy());
    EXPECT_EQ(openPanels, 0);

    pressShortcut();
    speak(16'000);
    stopAndDrain();
    provider.answer(QStringLiteral("Pasted."));
    pump();
    EXPECT_EQ(delivered, QStringLiteral("Pasted."));
    delegate.applicationWillTerminate();
    EXPECT_EQ(pasteboard.string(clipboard), QStringLiteral("former")) << "without the usual wait";
}

TEST_F(Dictation, EndsInTheWindowThatTheUserWasWorkingIn)
{
    pasteboard.setByOther(clipboard, QStringLiteral("former"));
    pressShortcut();
    EXPECT_EQ(openPanels, 1);
    EXPECT_EQ(provider.prepared, 1) << "the model loads while the user speaks";
    speak(16'000);
    stopAndDrain();
    EXPECT_EQ(openPanels, 1) << "the panel stays while the text is made";
    EXPECT_EQ(provider.sampleCount, 16'000U);
    provider.answer(QStringLiteral(" Hello there.\n"));
    pump();
    EXPECT_EQ(openPanels, 0);
    EXPECT_EQ(delivered, QStringLiteral("Hello there."));
    EXPECT_EQ(workspace.frontWindow(), editor);
    EXPECT_EQ(store.rows, QStringList{QStringLiteral(" Hello there.\n")});
    EXPECT_FALSE(recorder.isBusy());
    clock.advance(300ms);
    pump();
    EXPECT_EQ(pasteboard.string(clipboard), QStringLiteral("former"));
    EXPECT_EQ(provider.ended, 1);
}

TEST_F(Dictation, WithoutAutoPasteLeavesTheTextOnTheClipboardAndSaysSo)
{
    defaults.setBoolean(QStringLiteral("autoPasteEnabled"), false);
    dictate(QStringLiteral("Keep me."));
    EXPECT_FALSE(delivered);
    EXPECT_EQ(pasteboard.string(clipboard), QStringLiteral("Keep me."));
    ASSERT_EQ(huds.size(), 1U);
    EXPECT_EQ(huds.front(), QRect(1, 2, 500, 200)) << "the HUD starts where the launcher was";
    EXPECT_EQ(openPanels, 0);
}

TEST_F(Dictation, SoundsOnlyWhenTheUserWantsItAndTextWasDelivered)
{
    dictate(QStringLiteral("In silence."));
    EXPECT_TRUE(sounds.played.isEmpty());
    defaults.setBoolean(QStringLiteral("playSoundOnComplete"), true);
    dictate(QStringLiteral(" "));
    EXPECT_TRUE(sounds.played.isEmpty());
    dictate(QStringLiteral("And now?"));
    EXPECT_EQ(sounds.played, QStringList{QStringLiteral("Blow")});
}

TEST_F(Dictation, NeverPastesIntoAnotherWindow)
{
    pressShortcut();
    speak(16'000);
    workspace.closeWindow(editor);
    stopAndDrain();
    provider.answer(QStringLiteral("For the editor only."));
    pump();
    clock.advance(600ms);
    pump();
    EXPECT_FALSE(delivered);
    EXPECT_TRUE(keyEvents.posted().empty());
    EXPECT_EQ(pasteboard.string(clipboard), QStringLiteral("For the editor only."));
    EXPECT_EQ(huds.size(), 1U);
}

TEST_F(Dictation, WithNothingSaidClosesWithoutATrace)
{
    pasteboard.setByOther(clipboard, QStringLiteral("former"));
    pressShortcut();
    speak(4'799);
    stopAndDrain();
    EXPECT_FALSE(provider.isAsked()) << "under 0.3 s nothing is transcribed";
    EXPECT_EQ(openPanels, 0);

    dictate(QStringLiteral(" \n "));
    EXPECT_EQ(openPanels, 0);
    EXPECT_TRUE(alerts.isEmpty());
    EXPECT_TRUE(huds.empty());
    EXPECT_EQ(pasteboard.changes(clipboard), 0);
    EXPECT_EQ(provider.ended, 2) << "the model is released after either";
}

TEST_F(Dictation, IgnoresTheShortcutWhileOneIsUnderWay)
{
    for (int i = 0; i < 10; ++i)
        pressShortcut();
    EXPECT_EQ(openPanels, 1);
    EXPECT_EQ(engines.madeCount(), 1);
    speak(16'000);
    stopAndDrain();
    pressShortcut();
    EXPECT_EQ(engines.madeCount(), 1);
    provider.answer(QStringLiteral("Once."));
    pump();
    EXPECT_EQ(delivered, QStringLiteral("Once."));
    dictate(QStringLiteral("Again."));
    EXPECT_EQ(delivered, QStringLiteral("Again."));
}

TEST_F(Dictation, CancelledAtAnyMomentDeliversNothingAndLeavesTheNextOneFree)
{
    pressShortcut();
    speak(16'000);
    delegate.cancelDictation(); // while recording
    pump();
    EXPECT_EQ(openPanels, 0);
    EXPECT_FALSE(recorder.isBusy());

    pressShortcut();
    speak(16'000);
    delegate.stopRecording();
    delegate.cancelDictation(); // while draining
    clock.advance(150ms);
    pump();
    EXPECT_FALSE(provider.isAsked());

    pressShortcut();
    speak(16'000);
    stopAndDrain();
    ASSERT_TRUE(provider.isAsked());
    const int endedBefore = provider.ended;
    const int cancelledBefore = provider.cancelled;
    delegate.cancelDictation(); // while transcribing
    EXPECT_FALSE(recorder.isBusy());
    EXPECT_EQ(provider.cancelled, cancelledBefore + 1) << "the engine need not finish what nobody wants";

    pressShortcut(); // before the engine has noticed
    provider.answer(QStringLiteral("Nobody wants this."));
    pump();
    EXPECT_EQ(provider.ended, endedBefore) << "the model stays for the dictation that is being recorded";
    delegate.cancelDictation();
    pump();
    EXPECT_EQ(provider.ended, endedBefore + 1);

    EXPECT_FALSE(delivered);
    EXPECT_TRUE(alerts.isEmpty());
    dictate(QStringLiteral("Wanted."));
    EXPECT_EQ(delivered, QStringLiteral("Wanted."));
}

TEST_F(Dictation, TellsWhyAFailedOneDeliversNothing)
{
    pressShortcut();
    speak(16'000);
    stopAndDrain();
    provider.fail(QStringLiteral("Could not load the whisper model at /models/x.bin"));
    pump();
    EXPECT_EQ(alerts.takeLast(),
              QStringLiteral("Failed to transcribe audio: Could not load the whisper model at /models/x.bin"));
    EXPECT_EQ(openPanels, 0);
    EXPECT_FALSE(delivered) << "nothing is delivered after an error";
    dictate(QStringLiteral("It works."));
    EXPECT_EQ(delivered, QStringLiteral("It works."));
}

TEST_F(Dictation, DeliversWhatCannotBeStoredAndTellsItOnce)
{
    store.full = true;
    dictate(QStringLiteral("One."));
    EXPECT_EQ(delivered, QStringLiteral("One."));
    EXPECT_EQ(alerts, QStringList{QStringLiteral("What you dictate is delivered but not kept: The disk is full.")});
    dictate(QStringLiteral("Two."));
    EXPECT_EQ(delivered, QStringLiteral("Two."));
    EXPECT_EQ(alerts.size(), 1) << "known already";

    store.full = false;
    dictate(QStringLiteral("Three."));
    EXPECT_EQ(store.rows, QStringList{QStringLiteral("Three.")});
    store.full = true;
    dictate(QStringLiteral("Four."));
    EXPECT_EQ(alerts.size(), 2) << "again, after it had worked";
}

TEST_F(Dictation, ANoteThatCannotBeStoredIsOnTheClipboard)
{
    const auto onClipboard = [this] {
        return pasteboard.fetch(clipboard, editor);
    };
    const auto note = [this](const QString& text) {
        pressShortcut();
        recorder.setProcessingMode(ProcessingMode::Notes);
        speak(16'000);
        stopAndDrain();
        provider.answer(text);
        pump();
    };
    note(QStringLiteral("Buy milk."));
    EXPECT_EQ(store.rows, QStringList{QStringLiteral("Buy milk.")});
    EXPECT_NE(onClipboard(), QStringLiteral("Buy milk."));

    store.full = true;
    note(QStringLiteral("Buy bread."));
    EXPECT_EQ(onClipboard(), QStringLiteral("Buy bread."));
    ASSERT_EQ(alerts.size(), 1);
    EXPECT_TRUE(alerts.front().contains(QStringLiteral("The disk is full."))) << alerts.front().toStdString();
    EXPECT_TRUE(alerts.front().endsWith(QStringLiteral("What you said is on the clipboard.")));
    EXPECT_FALSE(delivered) << "a note is never pasted";
}

TEST_F(Dictation, TellsWhyARecordingCannotStart)
{
    permissions.microphone = false;
    pressShortcut();
    EXPECT_EQ(openPanels, 0);
    EXPECT_EQ(alerts, QStringList{wording::noSoundServer()});
    permissions.microphone = true;

    engines.settings.startError = wording::noMicrophone();
    pressShortcut();
    EXPECT_EQ(openPanels, 0);
    EXPECT_EQ(alerts.last(), QStringLiteral("Could not start the microphone: ") + wording::noMicrophone());
    EXPECT_FALSE(recorder.isBusy());
    engines.settings.startError.reset();

    dictate(QStringLiteral("Works again."));
    EXPECT_EQ(delivered, QStringLiteral("Works again."));
    EXPECT_EQ(alerts.size(), 2);
}

TEST_F(Dictation, ASecondProgramsHotKeyIsToldToTheUser)
{
    const doubles::FakeHotKeyManager::Combination taken{3, Modifier::command | Modifier::option};
    hotKeys.refuse(taken, QStringLiteral("That one is taken."));
    shortcuts.setShortcut(KeyboardShortcuts::Name::openModal, KeyboardShortcuts::Shortcut{{3}, taken.modifiers});
    pump();
    ASSERT_EQ(alerts.size(), 1);
    EXPECT_TRUE(alerts.front().startsWith(QStringLiteral("That one is taken.")));

    shortcuts.setShortcut(KeyboardShortcuts::Name::openModal, shortcut);
    pressShortcut();
    EXPECT_EQ(openPanels, 1);
    EXPECT_EQ(alerts.size(), 1);
}
