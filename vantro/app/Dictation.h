#pragma once

#include "base/Clock.h"
#include "base/Gate.h"
#include "base/Logger.h"
#include "base/NotificationCenter.h"
#include "base/UserDefaults.h"
#include "platform/SystemSounds.h"
#include "vantro/ai/ModeHandlers.h"
#include "vantro/ai/ProcessingMode.h"
#include "vantro/app/DictationTimings.h"
#include "vantro/app/LauncherPanel.h"
#include "vantro/app/LenientStore.h"
#include "vantro/app/Shell.h"
#include "vantro/app/TranscriptionFacade.h"
#include "vantro/audio/AudioRecorder.h"
#include "vantro/delivery/PasteDelivery.h"

#include <QObject>
#include <qcoro/qcorotask.h>

#include <functional>
#include <memory>
#include <stop_token>
#include <vector>

namespace vantro {

/// One dictation, from the shortcut to the delivered text: run() is its whole course. Main thread.
class Dictation final : public QObject, public std::enable_shared_from_this<Dictation>
{
    Q_OBJECT
public:
    /// What a dictation works with; outlives every one.
    struct Parts
    {
        UserDefaults& defaults;
        NotificationCenter& notifications;
        Clock& clock;
        AudioRecorder& recorder;
        TranscriptionFacade& transcription;
        const ModeHandlers& handlers;
        /// A dictation may end in this mode: the way to its language model is opened.
        std::function<void(ProcessingMode)> expectService;
        /// The language model that serves a mode, at the moment of stopping; null for none.
        std::function<std::shared_ptr<FormatRequestServicing>(ProcessingMode, std::stop_token)> chooseService;
        LenientStore& store;
        PasteDelivery& delivery;
        SystemSounds& sounds;
        Shell& shell;
    };

    /// In this order. What fails or is cancelled is over at once, wherever it is.
    enum class State { starting, recording, draining, transcribing, processing, delivering, over };
    enum class Keyboard { taken, left };

    /// Begins to record, unless nothing can be recorded: then the user has been told, and it is over.
    [[nodiscard]] static std::shared_ptr<Dictation> begin(const Parts& parts, Keyboard keyboard);
    ~Dictation() override;

    [[nodiscard]] State state() const { return state_; }
    [[nodiscard]] bool isOver() const { return state_ == State::over; }
    [[nodiscard]] const DictationTimings& timings() const { return timings_; }
    [[nodiscard]] AudioRecorder& recorder() const { return parts_.recorder; }

    /// Ends the recording; what was said becomes text. Later than that it does nothing.
    void stop();
    /// Throws a running recording away; does nothing once it is stopped.
    void cancelRecording();
    /// The same until the text is on its way to its window; nothing is told of it.
    void cancel();

Q_SIGNALS:
    void stateChanged();
    /// 0..1 while the engine works.
    void transcriptionProgress(float fraction);

private:
    /// Ends run() without another word.
    struct GivenUp
    {
    };
    class Failure;

    explicit Dictation(const Parts& parts) : parts_(parts) {}

    QCoro::Task<> run(Keyboard keyboard);
    void startCapture();
    void openLauncher(Keyboard keyboard);
    void expectService();
    void endRecording();
    void noteLostMicrophone();
    QCoro::Task<std::vector<float>> drain();
    QCoro::Task<QString> transcribe(std::vector<float> samples);
    QCoro::Task<QString> process(QString transcript);
    void announce(const QString& finalText, const std::optional<QString>& errorMessage = std::nullopt);
    QCoro::Task<> deliver(QString text);
    QCoro::Task<> paste(QString text, QRect launcherFrame);
    void fail(const Failure& failure);
    void end();

    void enter(State state);
    void giveUpIfCancelled() const;
    void closeLauncher();
    void tellOfStoreProblem();
    [[nodiscard]] QString saveFromLoss(const QString& text);

    Parts parts_;
    Logger logger_{"Dictation"};
    State state_ = State::starting;
    std::stop_source stop_; ///< reaches the engine and the language model
    Gate spoken_;           ///< opens when the recording ends, however it does
    ProcessingMode mode_ = ProcessingMode::Normal;
    ModeHandler* handler_ = nullptr;
    std::shared_ptr<FormatRequestServicing> service_;
    QString notice_; ///< what the user is told once it is over
    DictationTimings timings_;
    std::unique_ptr<LauncherPanel> launcher_;
};

} // namespace vantro
