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

/// One dictation, from the shortcut to the delivered text; run() is the whole course. Main thread.
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
        /// Called when this mode becomes likely, to connect to its language model early; may be empty.
        std::function<void(ProcessingMode)> expectService;
        /// Returns the language model for a mode, or null. Called when the recording stops; may be empty.
        std::function<std::shared_ptr<FormatRequestServicing>(ProcessingMode, std::stop_token)> chooseService;
        LenientStore& store;
        PasteDelivery& delivery;
        SystemSounds& sounds;
        Shell& shell;
    };

    /// In this order. A failure or a cancel leads from any of them straight to over.
    enum class State { starting, recording, draining, transcribing, processing, delivering, over };
    enum class Keyboard { taken, left };

    /// Starts recording. If that fails, the user is told and the dictation is over.
    [[nodiscard]] static std::shared_ptr<Dictation> begin(const Parts& parts, Keyboard keyboard);
    ~Dictation() override;

    [[nodiscard]] State state() const { return state_; }
    [[nodiscard]] bool isOver() const { return state_ == State::over; }
    /// False once it is known that the recording cannot be transcribed now.
    [[nodiscard]] bool isModelUsable() const { return isModelUsable_; }
    [[nodiscard]] const DictationTimings& timings() const { return timings_; }
    [[nodiscard]] AudioRecorder& recorder() const { return parts_.recorder; }

    /// Ends the recording and goes on to transcribe it. Does nothing once it has stopped.
    void stop();
    /// Discards a running recording. Does nothing once it has stopped.
    void cancelRecording();
    /// Abandons the dictation silently. Does nothing once the delivery has begun.
    void cancel();

Q_SIGNALS:
    void stateChanged();
    /// The engine cannot load its model. The recording goes on.
    void modelFailed();
    /// 0..1, while the engine is working.
    void transcriptionProgress(float fraction);

private:
    /// Ends run() without reporting an error.
    struct GivenUp
    {
    };
    class Failure;

    explicit Dictation(const Parts& parts) : parts_(parts) {}

    QCoro::Task<> run(Keyboard keyboard);
    void startCapture();
    [[nodiscard]] TranscriptionFacade::EngineUse loadModel();
    void openLauncher(Keyboard keyboard);
    void expectService();
    void endRecording();
    void noteLostMicrophone();
    void noteGaps();
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
    bool isModelUsable_ = true;
    std::stop_source stop_; ///< stops the engine and the language model
    Gate spoken_;           ///< opens when the recording ends for any reason
    ProcessingMode mode_ = ProcessingMode::Normal;
    ModeHandler* handler_ = nullptr;
    std::shared_ptr<FormatRequestServicing> service_;
    QString notice_; ///< shown to the user at the end
    DictationTimings timings_;
    std::unique_ptr<LauncherPanel> launcher_;
};

} // namespace vantro
