#pragma once

#include "base/Clock.h"
#include "base/Gate.h"
#include "base/UserDefaults.h"
#include "platform/SessionState.h"
#include "vantro/app/TranscriptionFacade.h"
#include "vantro/audio/PauseDetector.h"
#include "vantro/audio/SampleCollector.h"

#include <QObject>
#include <QString>
#include <qcoro/qcorotask.h>

#include <memory>
#include <optional>
#include <stop_token>
#include <vector>

namespace vantro {

/// Recognises one recording, if possible before it has ended. Engines that can do so follow it; for the others, what
/// has been said so far is transcribed at each pause, on one processor. When nothing but background follows, that text
/// stands; otherwise it is dropped. The engine gets the recording without the background at its end (PauseDetector)
/// either way, so the text does not depend on which happened. Main thread.
class RecognitionAhead final : public QObject
{
    Q_OBJECT
public:
    /// Between two looks at the samples.
    static constexpr std::chrono::milliseconds interval{30};
    /// A pause that may be the end.
    static constexpr std::size_t pauseCount = 4'800; // 0.3 s

    /// All must outlive this object.
    struct Parts
    {
        TranscriptionFacade& transcription;
        UserDefaults& defaults;
        const SessionState& session;
        Clock& clock;
    };

    explicit RecognitionAhead(Parts parts) : parts_(parts) {}
    ~RecognitionAhead() override;

    /// Begins to listen to a recording. Does nothing where the user or the machine saves power.
    void follow(std::shared_ptr<const SampleCollector> collector, const QString& recordingID);
    /// The user has ended the recording: any pause may be the last one, and all processors may be used.
    void expectEnd();
    /// Ends listening and returns the text of the whole recording. Throws the engine's errors, also when stopped.
    [[nodiscard]] QCoro::Task<QString> transcribe(QString recordingID, std::vector<float> samples,
                                                  TranscriptionFacade::Options options);
    /// Ends listening and drops what was recognised.
    void end();

Q_SIGNALS:
    /// What was said until a pause. Not final: the user may go on.
    void understood(const QString& text);

private:
    struct Attempt
    {
        std::size_t sampleCount = 0;
        std::stop_source stop;
        std::optional<QString> text; ///< when recognised
        QString language;            ///< that was heard; may be empty
        Gate done;
    };

    void look();
    void lookAgain();
    [[nodiscard]] bool hear(bool mayHaveEnded);
    void attempt();
    QCoro::Task<> recognise(std::shared_ptr<Attempt> attempt, std::vector<float> samples);
    void drop();
    void stopListening();

    Parts parts_;
    QString recordingID_;
    std::shared_ptr<const SampleCollector> collector_;
    std::vector<float> samples_; ///< heard so far
    PauseDetector pauses_;
    bool isEnding_ = false;
    bool hasFailed_ = false;
    std::shared_ptr<Attempt> attempt_;   ///< the latest that may still stand
    std::unique_ptr<QObject> listening_; ///< its destruction ends the looks
};

} // namespace vantro
