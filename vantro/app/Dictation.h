#pragma once

#include "base/Clock.h"
#include "base/Gate.h"
#include "base/Logger.h"
#include "base/NotificationCenter.h"
#include "base/UserDefaults.h"
#include "platform/KeyEventPoster.h"
#include "platform/SessionState.h"
#include "platform/SystemSounds.h"
#include "vantro/ai/ModeHandlers.h"
#include "vantro/ai/ProcessingMode.h"
#include "vantro/app/ApplicationRules.h"
#include "vantro/app/DictationTimings.h"
#include "vantro/app/KeyboardWatch.h"
#include "vantro/app/LauncherPanel.h"
#include "vantro/app/LenientStore.h"
#include "vantro/app/RecognitionAhead.h"
#include "vantro/app/Recovery.h"
#include "vantro/app/Shell.h"
#include "vantro/app/TextHandover.h"
#include "vantro/app/TranscriptionFacade.h"
#include "vantro/audio/AudioRecorder.h"
#include "vantro/audio/RecordingSpool.h"
#include "vantro/delivery/PasteDelivery.h"

#include <QObject>
#include <qcoro/qcorotask.h>

#include <exception>
#include <functional>
#include <memory>
#include <optional>
#include <stop_token>
#include <vector>

namespace vantro {

/// One dictation, from the shortcut to the delivered text; run() is the whole course. A kept recording goes through its
/// second half, from runAgain() on. Main thread.
class Dictation final : public QObject, public std::enable_shared_from_this<Dictation>
{
    Q_OBJECT
public:
    /// What a dictation needs; must outlive it.
    struct Parts
    {
        UserDefaults& defaults;
        NotificationCenter& notifications;
        Clock& clock;
        AudioRecorder& recorder;
        TranscriptionFacade& transcription;
        const ModeHandlers& handlers;
        /// Called when this mode becomes likely, to connect to its language model early or to load it. The model stays
        /// loaded for as long as the result lives. May be empty.
        std::function<std::shared_ptr<void>(ProcessingMode)> expectService;
        /// Returns the language model for a mode, or null. Called when the recording stops; may be empty.
        std::function<std::shared_ptr<FormatRequestServicing>(ProcessingMode, std::stop_token)> chooseService;
        /// Called with a dictation's ID and recording when its text has been stored; may be empty.
        std::function<void(const QUuid&, std::shared_ptr<Recording>)> textStored;
        LenientStore& store;
        PasteDelivery& delivery;
        RecordingSpool& spool;
        Recovery& recovery;
        SystemSounds& sounds;
        SessionState& session;
        const KeyEventPoster& keyEvents;
        Shell& shell;
    };

    /// In this order. A failure or a cancel leads from any of them straight to over.
    enum class State { starting, recording, draining, transcribing, processing, delivering, over };
    /// Whether the launcher takes the keyboard focus or leaves it where it is.
    enum class Keyboard { taken, left };

    /// Starts recording. If that fails, the user is told and the dictation is over.
    [[nodiscard]] static std::shared_ptr<Dictation> begin(const Parts& parts, Keyboard keyboard);
    /// Transcribes and delivers a recording that is kept.
    [[nodiscard]] static std::shared_ptr<Dictation> again(const Parts& parts, Owed owed);
    ~Dictation() override;

    [[nodiscard]] State state() const { return state_; }
    [[nodiscard]] bool isOver() const { return state_ == State::over; }
    /// False once it is known that the recording cannot be transcribed now.
    [[nodiscard]] bool isModelUsable() const { return isModelUsable_; }
    /// Awaitable, by one caller: resumes when the dictation is over.
    [[nodiscard]] auto ended() { return over_.opened(); }
    /// Who rewrites the text at this moment, for the user; empty when nobody does.
    [[nodiscard]] QString rewriter() const;
    /// What was said, as it was recognised; empty until then.
    [[nodiscard]] const QString& transcript() const { return transcript_; }
    /// The delivered text.
    [[nodiscard]] const QString& text() const { return text_; }
    /// Why there is no text; nullopt when nothing went wrong.
    [[nodiscard]] const std::optional<QString>& failure() const { return failure_; }
    [[nodiscard]] const DictationTimings& timings() const { return timings_; }
    [[nodiscard]] AudioRecorder& recorder() const { return parts_.recorder; }

    /// Ends the recording and goes on to transcribe it. Does nothing once it has stopped.
    Q_SLOT void stop();
    /// Cancels a running recording. Does nothing once it has stopped.
    void cancelRecording();
    /// Abandons the dictation; for a while the user can have it transcribed after all. Does nothing once the delivery
    /// has begun.
    void cancel();
    /// Delivers the words as they were said, without waiting any longer for the language model. Does nothing unless one
    /// is at work.
    Q_SLOT void deliverAsSpoken();
    /// Discards a running recording that nobody meant to make.
    void discardRecording();
    /// Abandons the dictation because the process ends. What was said is offered at the next start.
    void leave();

Q_SIGNALS:
    void stateChanged();
    /// The engine cannot load its model. The recording goes on.
    void modelFailed();
    /// What the user has said until a pause. Not final.
    void understood(const QString& text);
    /// What the language model has written so far, where it tells.
    void writing(const QString& text);
    /// 0..1, while the engine is working.
    void transcriptionProgress(float fraction);

private:
    /// Ends run() without reporting an error.
    struct GivenUp
    {
    };
    /// What becomes of the recording. From failed on, it has not become text.
    enum class Fate { done, handedOver, failed, cancelled, left };

    explicit Dictation(const Parts& parts);

    QCoro::Task<> run(Keyboard keyboard);
    QCoro::Task<> runAgain();
    QCoro::Task<> bringText(std::vector<float> samples);
    void startCapture();
    [[nodiscard]] TranscriptionFacade::EngineUse loadModel();
    void openLauncher(Keyboard keyboard);
    void expectService();
    void endRecording();
    QCoro::Task<std::vector<float>> drain();
    QCoro::Task<std::vector<float>> readKept();
    void chooseHandler();
    void showWriting();
    QCoro::Task<QString> transcribe(std::vector<float> samples);
    QCoro::Task<QString> process(QString transcript);
    void announce(const QString& finalText, const std::optional<QString>& errorMessage = std::nullopt);
    QCoro::Task<> deliver(QString text);
    QCoro::Task<> paste(QString text, std::optional<QRect> launcherFrame);
    void tellOfSilence();
    void copy(const QString& text, std::optional<QRect> launcherFrame);
    void tellOfNotice();
    QCoro::Task<> bringAsSpoken(Shell::AsSpoken wanted);
    void stopFor(const std::exception_ptr& cause);
    void fail(const QString& what);
    void end();

    void enter(State state);
    void giveUp(Fate fate);
    void tellOfStoredText(std::optional<QRect> launcherFrame);
    void giveUpIfCancelled() const;
    void keepRest();
    void settleRecording(std::optional<QRect> launcherFrame);
    [[nodiscard]] std::optional<QRect> launcherFrame() const;
    void closeLauncher();
    void tellOfStoreProblem();
    [[nodiscard]] bool isTextStored() const;
    [[nodiscard]] bool isTextSafe() const;
    [[nodiscard]] QString saveFromLoss();

    Parts parts_;
    Logger logger_{"Dictation"};
    State state_ = State::starting;
    bool isModelUsable_ = true;
    std::stop_source stop_;      ///< stops the engine
    std::stop_source rewriting_; ///< stops the language model
    Gate spoken_;                ///< opens when the recording ends for any reason
    Gate over_;
    std::unique_ptr<SessionState::SleepDelay> awake_; ///< until the end of the recording is safe
    Owed owed_;                                       ///< what was said
    Fate fate_ = Fate::done;
    bool isAgain_ = false;
    bool isWantedAsSpoken_ = false;
    bool isUnrewritten_ = false;          ///< the text is there, but not as its mode would have it
    std::optional<ApplicationRule> rule_; ///< for the target
    QString transcript_;
    QString spokenLanguage_; ///< as the engine has heard; may be empty
    QString text_;
    std::optional<QString> failure_;
    ProcessingMode mode_ = ProcessingMode::Normal;
    ModeHandler* handler_ = nullptr;
    std::shared_ptr<void> expectation_; ///< keeps the language model loaded; may be null
    std::shared_ptr<FormatRequestServicing> service_;
    QString rewritten_; ///< as far as it is written
    QString notice_;    ///< shown to the user at the end
    DictationTimings timings_;
    KeyboardWatch keyboard_;
    TextHandover handover_;
    RecognitionAhead ahead_;
    std::unique_ptr<LauncherPanel> launcher_;
};

} // namespace vantro
