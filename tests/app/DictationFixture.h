#pragma once

// The dictation put together of real parts, with doubles where the desktop begins, and a clock that tests move.
#include "base/Notifications.h"
#include "base/Settings.h"
#include "base/testing/ManualClock.h"
#include "platform/KeyCode.h"
#include "platform/Wording.h"
#include "platform/testing/FakeAudioEngine.h"
#include "platform/testing/FakeAudioHardware.h"
#include "platform/testing/FakeHotKeyManager.h"
#include "platform/testing/FakeKeyEventPoster.h"
#include "platform/testing/FakePasteboard.h"
#include "platform/testing/FakePermissions.h"
#include "platform/testing/FakeSessionState.h"
#include "platform/testing/FakeSystemSounds.h"
#include "platform/testing/FakeWorkspace.h"
#include "tests/WaitFor.h"
#include "vantro/ai/NormalModeHandler.h"
#include "vantro/ai/NotesModeHandler.h"
#include "vantro/app/AppDelegate.h"
#include "vantro/app/LenientStore.h"
#include "vantro/audio/AudioDeviceManager.h"
#include "vantro/models/testing/FakeSpeechEngine.h"

#include <QCoreApplication>
#include <QPointer>
#include <QPromise>
#include <QTemporaryDir>
#include <qcoro/qcorofuture.h>

#include <gtest/gtest.h>

namespace vantro {

using namespace std::chrono_literals;

inline constexpr WindowID editor = 77;
inline constexpr WindowID otherWindow = 78;
inline const auto clipboard = Pasteboard::Selection::Clipboard;

/// A speech engine that answers when the test says so.
class SlowProvider final : public doubles::FakeSpeechEngine
{
public:
    using FakeSpeechEngine::FakeSpeechEngine;

    QCoro::Task<QString> prepare(TranscriptionModel) override
    {
        ++prepared;
        co_return whyUnusable;
    }
    [[nodiscard]] ModelStatus status(const TranscriptionModel&) const override { return {state, {}, false, 0, -1}; }
    QCoro::Task<QString> transcribe(TranscriptionRequest request) override
    {
        sampleCount = request.samples.size();
        stop = request.stop;
        isAhead = request.isAhead;
        const auto answer = std::make_shared<QPromise<QString>>();
        answer->start();
        answer_ = answer;
        const std::stop_callback onStop(request.stop, [this, answer, isAhead = isAhead] {
            if (isAhead && answer_ == answer)
                fail(QStringLiteral("stopped"));
        });
        const QFuture<QString> answered = answer->future();
        co_return co_await answered;
    }
    bool hear(const UnfinishedRecording& recording) override
    {
        heard.emplace_back(recording.samples.size(), recording.mayHaveEnded);
        onWords = recording.onWords;
        return keepsUp;
    }
    void hurry() override { ++hurried; }
    [[nodiscard]] std::size_t aheadLimit() const override { return limit; }
    void dictationEnded() override { ++ended; }

    [[nodiscard]] bool isAsked() const { return answer_ != nullptr; }
    void answer(const QString& text)
    {
        const auto answer = std::exchange(answer_, nullptr);
        // A text of its own in memory, as engines make them, so that memory checkers see what becomes of it.
        answer->addResult(QString(text.constData(), text.size()));
        answer->finish();
    }
    void fail(const QString& why) { fail(Error(why)); }
    template <typename Exception>
    void fail(const Exception& error)
    {
        const auto answer = std::exchange(answer_, nullptr);
        answer->setException(std::make_exception_ptr(error));
        answer->finish();
    }

    ModelStatus::State state = ModelStatus::State::ready;
    QString whyUnusable;
    int prepared = 0;
    int ended = 0;
    std::size_t sampleCount = 0;
    std::size_t limit = 0;
    bool keepsUp = false;
    std::vector<std::pair<std::size_t, bool>> heard; ///< numbers of samples, and whether speech had paused
    std::function<void(const QString&)> onWords;
    int hurried = 0;
    // Of the latest request.
    std::stop_token stop;
    bool isAhead = false;

private:
    std::shared_ptr<QPromise<QString>> answer_;
};

class MemoryStore final : public TranscriptionStoring
{
public:
    QUuid saveTranscription(const QString& transcription, const QString&, ProcessingMode mode) override
    {
        if (full)
            throw Error(QStringLiteral("The disk is full."));
        return saveTranscription(transcription, mode);
    }
    QUuid saveTranscription(const QString& transcription, ProcessingMode) override
    {
        rows << transcription;
        return QUuid::createUuid();
    }
    void updateFormatted(const QUuid&, const QString&) override {}
    void setAside(const QUuid&, const QString&, const QString&) override {}
    QCoro::Task<> addNote(QString transcription) override
    {
        if (full)
            throw Error(QStringLiteral("The disk is full."));
        rows << transcription;
        co_return;
    }
    QCoro::Task<> summarizeToday(std::shared_ptr<FormatRequestServicing>) override { co_return; }

    bool full = false;
    Gate* answer = nullptr; ///< of the language model, which is waited for; null if it answers at once
    QStringList rows;
};

/// A mode whose language model answers when the test says so.
class SlowHandler final : public ModeHandler
{
public:
    SlowHandler(TranscriptionStoring& store, Gate* const& answer) : store_(store), answer_(answer) {}

    QCoro::Task<QString> process(QString transcript, std::shared_ptr<FormatRequestServicing>) override
    {
        store_.saveTranscription(transcript, ProcessingMode::Email);
        if (answer_)
            co_await answer_->opened();
        co_return transcript;
    }

private:
    TranscriptionStoring& store_;
    Gate* const& answer_;
};

/// A panel without a window: takes the keyboard from the window in front and gives it back.
class PanelDouble final : public LauncherPanel
{
public:
    PanelDouble(Dictation& dictation, doubles::FakeWorkspace& workspace, int& open)
        : dictation_(dictation)
        , workspace_(workspace)
        , open_(open)
    {
    }
    ~PanelDouble() override { PanelDouble::closePanel(); }

    [[nodiscard]] QRect frame() const override { return {1, 2, 500, 200}; }
    void makeKeyAndOrderFront() override
    {
        orderFront();
        isKey_ = true;
        former_ = workspace_.frontWindow();
        workspace_.makeOwn(1000);
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
        dictation_.cancelRecording();
        if (!isKey_)
            return;
        if (former_ && workspace_.windowExists(*former_))
            workspace_.focus(*former_);
        else
            workspace_.focus(otherWindow);
    }

private:
    Dictation& dictation_;
    doubles::FakeWorkspace& workspace_;
    int& open_;
    bool isOpen_ = false;
    bool isKey_ = false;
    std::optional<WindowID> former_;
};

/// Notes what the program would show.
class ShellDouble final : public Shell
{
public:
    struct Hud
    {
        std::optional<QRect> anchor;
        QString keys;
        QString reason;
    };

    ShellDouble(doubles::FakeWorkspace& workspace, const doubles::FakeAudioEngines& engines)
        : workspace_(workspace)
        , engines_(engines)
    {
    }

    void checkForUpdates() override { steps << QStringLiteral("update check"); }
    std::unique_ptr<LauncherPanel> makeLauncher(Dictation& dictation) override
    {
        EXPECT_NE(engines_.current(), nullptr) << "the first word may come before the panel is made";
        auto panel = std::make_unique<PanelDouble>(dictation, workspace_, openPanels);
        launcher = panel.get();
        if (onLauncher)
            onLauncher(dictation);
        return panel;
    }
    void showPasteHUD(std::optional<QRect> anchor, std::function<QString()> keys, const QString& reason) override
    {
        huds.push_back({anchor, keys ? keys() : QString(), reason});
    }
    void showUndoOffer(std::optional<QRect> anchor, std::function<void()> accepted) override
    {
        undoAnchor = anchor;
        undo = std::move(accepted);
    }
    void showTranscribing() override { isTranscribingShown = true; }
    void withdrawHUD() override
    {
        undo = nullptr;
        isTranscribingShown = false;
    }
    void offerTranscription(const QString& title, const QString& text, QObject* about,
                            std::function<void(bool isWanted)> answered) override
    {
        showAlert(title, text);
        offer = about;
        answerOffer = std::move(answered);
    }
    void showRewritingFailure(const QString& text, std::function<void(AsSpoken)> wanted) override
    {
        showAlert({}, text);
        answerFailure = std::move(wanted);
    }
    void showAlert(const QString&, const QString& text) override
    {
        EXPECT_EQ(openPanels, 0) << "an alert takes the keyboard";
        alerts << text;
    }
    void putWindowsAside() override { areWindowsAside = true; }
    void bringWindowsBack() override { areWindowsAside = false; }
    void showModelDownload(const TranscriptionModel& model, const QString& problem) override
    {
        downloads << model.name + problem;
    }
    void closeModelDownload() override { downloads.clear(); }
    void showOnboarding() override { steps << QStringLiteral("onboarding"); }
    void closeOnboarding() override { steps << QStringLiteral("onboarding closed"); }

    QStringList steps; ///< of the launch, in their order
    QStringList alerts;
    QStringList downloads; ///< models whose download is shown
    std::vector<Hud> huds;
    std::function<void()> undo;                  ///< a click on the offer that is shown
    std::optional<QRect> undoAnchor;             ///< where it is
    QPointer<QObject> offer;                     ///< while the latest alert that asks is open
    std::function<void(bool)> answerOffer;       ///< a button of the latest alert that asks
    std::function<void(AsSpoken)> answerFailure; ///< the same of a text that was not rewritten
    bool isTranscribingShown = false;
    int openPanels = 0;
    LauncherPanel* launcher = nullptr; ///< the latest; gone when its dictation is
    bool areWindowsAside = false;
    std::function<void(const Dictation&)> onLauncher; ///< may be empty

private:
    doubles::FakeWorkspace& workspace_;
    const doubles::FakeAudioEngines& engines_;
};

class DictationTest : public ::testing::Test
{
protected:
    explicit DictationTest(bool isModelReady = true) : isModelReady(isModelReady)
    {
        workspace.openWindow(editor);
        workspace.openWindow(otherWindow);
        workspace.focus(editor);
        keyEvents.setTarget([this](auto) { delivered = pasteboard.fetch(clipboard, *workspace.frontWindow()); });
        shortcuts.setShortcut(KeyboardShortcuts::Name::openModal, shortcut);
        history.loadPersistentStores();
        delegate.applicationDidFinishLaunching();
    }
    /// What still waits would otherwise go on in the next test, with objects of this one.
    ~DictationTest() override
    {
        delegate.applicationWillTerminate();
        pump();
        if (provider.isAsked())
            provider.answer({});
        clock.advance(1min);
        pump();
        EXPECT_TRUE(waitFor([this] { return readings == 0; }));
    }

    static ModeHandlers makeHandlers(TranscriptionStoring& store, Gate* const& answer)
    {
        ModeHandlers handlers;
        handlers[ProcessingMode::Normal] = std::make_unique<NormalModeHandler>(store);
        handlers[ProcessingMode::Notes] = std::make_unique<NotesModeHandler>(store);
        handlers[ProcessingMode::Email] = std::make_unique<SlowHandler>(store, answer);
        return handlers;
    }

    void pressShortcut()
    {
        hotKeys.strike(keys);
        pump();
    }
    /// Not the shortcut, which would take a cancel back.
    void startNext()
    {
        delegate.showLauncherAndRecord();
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

    QCoro::Task<> readStored(std::shared_ptr<Recording> recording)
    {
        ++readings;
        const std::vector<float> samples = co_await recording->samples();
        stored.push_back(samples.size());
        --readings;
    }

    [[nodiscard]] QStringList keptFiles() { return QDir(kept).entryList(QDir::Files | QDir::Hidden); }

    static constexpr doubles::FakeHotKeyManager::Combination keys{2, Modifier::command | Modifier::option};
    const KeyboardShortcuts::Shortcut shortcut{{2}, Modifier::command | Modifier::option};
    QTemporaryDir folder;
    UserDefaults defaults{folder.filePath(QStringLiteral("vantro.ini"))};
    NotificationCenter notifications;
    doubles::ManualClock clock;
    const QString kept = folder.filePath(QStringLiteral("vantro"));
    RecordingSpool spool{kept, clock}; ///< before all that may hold recordings
    doubles::FakeAudioEngines engines;
    doubles::FakeAudioHardware hardware;
    doubles::FakePermissions permissions;
    doubles::FakeHotKeyManager hotKeys;
    doubles::FakeKeyEventPoster keyEvents;
    doubles::FakePasteboard pasteboard;
    doubles::FakeWorkspace workspace;
    doubles::FakeSessionState session;
    doubles::FakeSystemSounds sounds;
    ModelCatalogue catalogue;
    ModelSelection models{catalogue, defaults, [](const auto& model) {
                              return model.name == QLatin1String("tiny.en");
                          }};
    SlowProvider provider;
    MemoryStore store;
    CoreDataStack history{true, clock}; ///< what the repairs at the launch run on
    MigrationManager migrations{defaults, history};
    SlowProvider neuralProvider{TranscriptionEngine::fluid};
    SpeechEngines speechEngines{{&provider, &neuralProvider}};
    TranscriptionFacade facade{models, speechEngines};
    bool isKeeping = true;
    LenientStore lenientStore{store, [this] {
                                  return isKeeping;
                              }};
    const ModeHandlers handlers = makeHandlers(lenientStore, store.answer);
    AudioDeviceManager devices{hardware, defaults};
    AudioRecorder recorder{engines.factory(), devices, permissions, clock};
    KeyboardShortcuts shortcuts{hotKeys, defaults, notifications};
    PasteDelivery delivery{pasteboard, keyEvents, workspace, session, defaults, clock};
    ShellDouble shell{workspace, engines};
    Recovery recovery{spool, clock, session, shell};
    bool isModelReady;
    std::optional<QString> delivered;
    int readings = 0;                ///< that go on
    std::vector<std::size_t> stored; ///< the numbers of samples of the recordings whose texts are stored
    AppDelegate delegate{
        {{defaults,
          notifications,
          clock,
          recorder,
          facade,
          handlers,
          {},
          {},
          [this](const QUuid&, std::shared_ptr<Recording> recording) { readStored(std::move(recording)); },
          lenientStore,
          delivery,
          spool,
          recovery,
          sounds,
          session,
          keyEvents,
          shell},
         permissions,
         shortcuts,
         models,
         migrations,
         [this]() -> QCoro::Task<> {
             shell.steps << QStringLiteral("model");
             co_return;
         },
         [this](const auto&) {
             return QtFuture::makeReadyFuture(ModelCheck(isModelReady, QString()));
         }}};
};

class DictationWithoutModel : public DictationTest
{
protected:
    DictationWithoutModel() : DictationTest(false) {}
};

} // namespace vantro
