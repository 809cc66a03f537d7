#pragma once

#include "base/Clock.h"
#include "base/SerialExecutor.h"
#include "vantro/audio/RecordingFile.h"
#include "vantro/audio/SampleCollector.h"

#include <QString>
#include <qcoro/qcorotask.h>

#include <memory>
#include <vector>

namespace vantro {

class RecordingSpool;

/// What was said in one dictation, kept outside the process until discard(). When its file cannot be written the
/// samples are kept in memory, once finish() has them. Main thread; the file is written on the spool's thread.
class Recording final
{
public:
    ~Recording();
    Recording(const Recording&) = delete;
    Recording& operator=(const Recording&) = delete;

    /// "audio-" and a UUID.
    [[nodiscard]] const QString& id() const { return id_; }
    [[nodiscard]] const RecordingFile::Header& header() const { return header_; }
    void setMode(ProcessingMode mode);

    /// Ends the keeping: @p samples are those of the whole recording.
    void finish(const std::vector<float>& samples);
    [[nodiscard]] bool isFinished() const { return collector_ == nullptr; }
    /// See vantro::mayHoldSpeech(); true until the recording is finished.
    [[nodiscard]] bool mayHoldSpeech() const { return mayHoldSpeech_; }
    /// Throws Error when they cannot be read.
    [[nodiscard]] QCoro::Task<std::vector<float>> samples() const;

    /// A hidden recording does not outlive the process, however that ends.
    void setHidden(bool hidden);
    void discard();

private:
    friend class RecordingSpool;
    struct Store;

    Recording(RecordingSpool& spool, QString id, RecordingFile::Header header, std::shared_ptr<Store> store);
    void follow(std::shared_ptr<const SampleCollector> collector);
    void copyNewSamples();

    RecordingSpool& spool_;
    QString id_;
    RecordingFile::Header header_;
    std::shared_ptr<Store> store_; ///< used on the spool's thread only
    std::shared_ptr<const SampleCollector> collector_;
    std::size_t copied_ = 0;
    bool mayHoldSpeech_ = true;
    std::unique_ptr<QObject> pulse_; ///< destroying it ends the copying
};

/// Keeps recordings as files of the user's own in memory that lasts as long as the login (the runtime folder), so that
/// what was said outlives the process. Without a folder that can be written, dictations go on and the log says so
/// once. Must outlive its recordings. Main thread.
class RecordingSpool
{
public:
    static constexpr std::chrono::milliseconds interval{250};

    RecordingSpool(QString folder, Clock& clock);

    /// "vantro" in the runtime folder; empty when there is none.
    [[nodiscard]] static QString standardFolder();

    /// Keeps what arrives in @p collector from now on.
    [[nodiscard]] std::shared_ptr<Recording> keep(std::shared_ptr<const SampleCollector> collector, const QString& id,
                                                  ProcessingMode mode);
    /// Takes over what earlier processes have left, oldest first. What another process uses or what is no recording
    /// stays untouched; what holds no speech is removed.
    [[nodiscard]] QCoro::Task<std::vector<std::shared_ptr<Recording>>> takeLeft();

    /// Whether a process, this one included, holds a recording. Blocks for a moment.
    [[nodiscard]] bool isInUse() const;

private:
    friend class Recording;

    QString folder_;
    Clock& clock_;
    std::shared_ptr<bool> hasToldOfFolder_ = std::make_shared<bool>(false); ///< used on the executor only
    SerialExecutor executor_{QStringLiteral("recordings")};
};

} // namespace vantro
