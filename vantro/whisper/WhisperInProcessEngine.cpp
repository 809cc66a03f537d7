#include "vantro/whisper/WhisperInProcessEngine.h"

#include "asr/accelerator/Accelerator.h"
#include "asr/accelerator/ProcessorBackend.h"
#include "base/SampleFormat.h"
#include "platform/ThisProcess.h"
#include "vantro/whisper/WhisperModelFile.h"

#include <QElapsedTimer>
#include <QFileInfo>
#include <QMutex>
#include <QMutexLocker>

#include <whisper.h>

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace vantro {

namespace {

/// The library's return code after an abort.
constexpr std::int32_t codeOfAbort = -6;

/// What a warm-up encodes, in frames of 20 ms: enough to touch all weights. A whole window made the first transcription
/// no faster (docs/performance.md).
constexpr int warmUpFrames = 128;

/// Frees a model that is still loaded when the process exits without destroying the engine: GPU back ends complain or
/// crash when their memory outlives them.
class ResidentContextTracker
{
public:
    static ResidentContextTracker& shared()
    {
        static auto* tracker = new ResidentContextTracker; // never destroyed: used by the exit handler
        return *tracker;
    }

    void set(whisper_context* context)
    {
        const QMutexLocker locker(&lock_);
        context_ = context;
    }

private:
    ResidentContextTracker()
    {
        std::atexit([] { shared().freeContext(); });
    }

    void freeContext()
    {
        const QMutexLocker locker(&lock_);
        if (auto* context = std::exchange(context_, nullptr))
            whisper_free(context);
    }

    QMutex lock_;
    whisper_context* context_ = nullptr;
};

void logWhisperLine(ggml_log_level level, const char* text, void* /*userData*/)
{
    static const Logger logger("whisper.cpp");
    if (text == nullptr)
        return;
    const QString line = QString::fromUtf8(text).trimmed();
    if (!line.isEmpty())
        logger.debug(QStringLiteral("whisper[%1]: %2").arg(static_cast<int>(level)).arg(line));
}

bool isAnybodyWaiting(void* count)
{
    return static_cast<const std::atomic<int>*>(count)->load(std::memory_order_relaxed) > 0;
}

bool isStopped(void* token)
{
    return static_cast<const std::stop_token*>(token)->stop_requested();
}

QString elapsedText(const QElapsedTimer& timer)
{
    return QStringLiteral("%1 ms").arg(timer.elapsed());
}

/// Without a language the library detects one, which takes a run of the encoder. A model that knows English only has no
/// tokens for languages: whichever is given, its text is the same.
whisper_full_params quietParameters(whisper_context* context)
{
    whisper_full_params parameters = whisper_full_default_params(WHISPER_SAMPLING_GREEDY);
    parameters.no_context = true;
    parameters.print_progress = false;
    parameters.print_realtime = false;
    parameters.print_timestamps = false;
    parameters.initial_prompt = nullptr;
    parameters.language = whisper_is_multilingual(context) != 0 ? nullptr : "en";
    parameters.suppress_nst = true;
    return parameters;
}

/// The library counts in hundredths of a second.
TranscribedToken segmentOf(whisper_context* context, int number, const char* text)
{
    constexpr double perSecond = 100;
    return {
        QChar(0x2581) + QString::fromUtf8(text),
        std::chrono::duration<double>(static_cast<double>(whisper_full_get_segment_t0(context, number)) / perSecond),
        std::chrono::duration<double>(static_cast<double>(whisper_full_get_segment_t1(context, number)) / perSecond)};
}

} // namespace

WhisperInProcessError WhisperInProcessError::modelLoadFailed(const QString& path)
{
    return {Kind::modelLoadFailed, QStringLiteral("Could not load the whisper model at ") + path};
}

WhisperInProcessError WhisperInProcessError::transcriptionFailed(std::int32_t code)
{
    return {Kind::transcriptionFailed, QStringLiteral("whisper transcription failed (code %1)").arg(code)};
}

WhisperInProcessError WhisperInProcessError::modelNotLoaded()
{
    return {Kind::modelNotLoaded, QStringLiteral("The whisper model is not loaded.")};
}

WhisperInProcessError WhisperInProcessError::stopped()
{
    return transcriptionFailed(codeOfAbort);
}

WhisperInProcessEngine::WhisperInProcessEngine() : executor_(QStringLiteral("whisper"))
{
    whisper_log_set(logWhisperLine, nullptr);
}

WhisperInProcessEngine::~WhisperInProcessEngine()
{
    unload().waitForFinished();
}

template <typename Work>
auto WhisperInProcessEngine::enqueue(Work work)
{
    ++waitingCount_;
    return executor_.run([this, work = std::move(work)] {
        --waitingCount_;
        return work();
    });
}

QFuture<void> WhisperInProcessEngine::load(const QString& modelPath)
{
    return enqueue([this, modelPath] { loadNow(modelPath); });
}

QFuture<void> WhisperInProcessEngine::warmUp()
{
    return executor_.run([this] { warmUpNow(); });
}

QFuture<QString> WhisperInProcessEngine::transcribe(Request request)
{
    const int number = ++transcriptionCount_;
    return enqueue([this, request = std::move(request), number] { return transcribeNow(request, number); });
}

void WhisperInProcessEngine::hurry()
{
    hurriedCount_ = transcriptionCount_.load();
    asr::accelerator::hurry(whisper_full_default_params(WHISPER_SAMPLING_GREEDY).n_threads);
}

QFuture<void> WhisperInProcessEngine::unload()
{
    return enqueue([this] { unloadNow(); });
}

void WhisperInProcessEngine::loadNow(const QString& modelPath)
{
    const auto file = FileVersion::of(modelPath);
    if (resident_ && resident_->file == file)
        return;
    QElapsedTimer timer;
    timer.start();
    if (!asr::accelerator::loadProcessorBackend(process::programFile().parent_path())) {
        logger_.error(QStringLiteral("No ggml module for this processor was found beside the program"));
        throw WhisperInProcessError::modelLoadFailed(modelPath);
    }
    whisper_context* context = nullptr;
    try {
        context = WhisperModelFile(modelPath).load();
    } catch (const Error& error) {
        logger_.error(QStringLiteral("%1: %2").arg(modelPath, error.localizedDescription()));
        throw WhisperInProcessError::modelLoadFailed(modelPath);
    }
    whisper_context* previous = resident_ ? resident_->context : nullptr;
    resident_ = ResidentModel{context, file};
    isResident_ = true;
    asr::accelerator::includeFewRows(whisper_model_ftype(context) == GGML_FTYPE_MOSTLY_F16);
    ResidentContextTracker::shared().set(context);
    whisper_free(previous);
    logger_.info(
        QStringLiteral("whisper model loaded in %1 (%2)").arg(elapsedText(timer), QFileInfo(modelPath).fileName()));
}

void WhisperInProcessEngine::warmUpNow()
{
    if (!resident_ || resident_->isWarm || waitingCount_ > 0)
        return;
    QElapsedTimer timer;
    timer.start();
    const std::vector<float> silence(sampleRateHz, 0.0F);
    whisper_full_params parameters = quietParameters(resident_->context);
    parameters.language = "en"; // nothing is said
    parameters.audio_ctx = warmUpFrames;
    parameters.abort_callback = isAnybodyWaiting;
    parameters.abort_callback_user_data = &waitingCount_;
    const int code = whisper_full(resident_->context, parameters, silence.data(), sampleRateHz);
    resident_->isWarm = code == 0;
    if (code != 0 && waitingCount_ > 0)
        logger_.debug(QStringLiteral("whisper warmup gave way after %1").arg(elapsedText(timer)));
    else if (code != 0)
        logger_.error(QStringLiteral("whisper warmup inference failed (code %1)").arg(code));
    else
        logger_.info(QStringLiteral("whisper warmup finished in %1").arg(elapsedText(timer)));
}

QString WhisperInProcessEngine::transcribeNow(const Request& request, int number)
{
    if (request.stop.stop_requested())
        throw WhisperInProcessError::stopped();
    if (!resident_)
        throw WhisperInProcessError::modelNotLoaded();
    QElapsedTimer timer;
    timer.start();
    const QByteArray language = request.language.toUtf8();
    const QByteArray prompt = request.prompt.toUtf8();

    whisper_full_params parameters = quietParameters(resident_->context);
    parameters.translate = false;
    parameters.single_segment = false;
    if (!prompt.isEmpty())
        parameters.initial_prompt = prompt.constData();
    if (language != "auto" && parameters.language == nullptr)
        parameters.language = language.constData();
    parameters.suppress_blank = true;
    parameters.temperature = 0.0F;
    parameters.temperature_inc = 0.0F; // no fall-back to a higher temperature
    if (request.isAhead) {
        asr::accelerator::hurry(0);
        // Read afterwards: whoever hurries meanwhile is heard by one or the other.
        if (number > hurriedCount_)
            parameters.n_threads = 1;
    }
    parameters.abort_callback = isStopped;
    parameters.abort_callback_user_data = const_cast<std::stop_token*>(&request.stop);
    if (request.onProgress) {
        parameters.progress_callback = [](whisper_context*, whisper_state*, int percent, void* sink) {
            (*static_cast<const std::function<void(float)>*>(sink))(static_cast<float>(percent) / 100.0F);
        };
        parameters.progress_callback_user_data = const_cast<std::function<void(float)>*>(&request.onProgress);
    }

    const auto count = static_cast<int>(request.samples.size());
    const int code = whisper_full(resident_->context, parameters, request.samples.data(), count);
    if (code != 0 && request.stop.stop_requested())
        throw WhisperInProcessError::stopped();
    if (code != 0)
        throw WhisperInProcessError::transcriptionFailed(code);
    resident_->isWarm = true;
    if (request.spokenLanguage && whisper_is_multilingual(resident_->context) != 0)
        *request.spokenLanguage = QLatin1String(whisper_lang_str(whisper_full_lang_id(resident_->context)));
    QByteArray text;
    for (int i = 0; i < whisper_full_n_segments(resident_->context); ++i) {
        const char* segment = whisper_full_get_segment_text(resident_->context, i);
        if (segment == nullptr)
            continue;
        text += segment;
        if (request.segments)
            request.segments->push_back(segmentOf(resident_->context, i, segment));
    }
    logger_.info(QStringLiteral("whisper transcribed %1s in %2")
                     .arg(durationOf(request.samples.size()).count(), 0, 'f', 1)
                     .arg(elapsedText(timer)));
    return QString::fromUtf8(text).trimmed();
}

void WhisperInProcessEngine::unloadNow()
{
    if (!resident_)
        return;
    ResidentContextTracker::shared().set(nullptr);
    whisper_free(resident_->context);
    resident_.reset();
    isResident_ = false;
}

} // namespace vantro
