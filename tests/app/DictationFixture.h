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
#include "tests/app/ShellDouble.h"
#include "tests/app/SlowProvider.h"
#include "vantro/ai/NormalModeHandler.h"
#include "vantro/ai/NotesModeHandler.h"
#include "vantro/app/AppDelegate.h"
#include "vantro/app/LenientStore.h"
#include "vantro/audio/AudioDeviceManager.h"

#include <QCoreApplication>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace vantro {

using namespace std::chrono_literals;

inline const auto clipboard = Pasteboard::Selection::Clipboard;

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
    QCoro::Task<QUuid> addNote(QString transcription) override
    {
        if (full)
            throw Error(QStringLiteral("The disk is full."));
        rows << transcription;
        co_return QUuid::createUuid();
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

    void note(const QString& text)
    {
        pressShortcut();
        recorder.setProcessingMode(ProcessingMode::Notes);
        speak(16'000);
        stopAndDrain();
        provider.answer(text);
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
