#include "asr/ASRError.h"
#include "base/RunTask.h"
#include "base/SampleFormat.h"
#include "vantro/app/Speech.h"
#include "vantro/cli/Commands.h"
#include "vantro/cli/Terminal.h"
#include "vantro/sound/AudioFile.h"

#include <QElapsedTimer>
#include <QFileInfo>

#include <utility>

namespace vantro {

namespace {

struct Transcript
{
    QString file;
    QString text;
    double seconds = 0;
    qint64 readMs = 0;
    qint64 transcribeMs = 0;
    std::optional<std::vector<TranscribedToken>> tokens = {};
};

/// Everything needed to transcribe files.
class Session
{
public:
    /// Returns the model with this catalogue name or file path; for an empty text, the selected one. Throws Error when
    /// it is missing.
    [[nodiscard]] TranscriptionModel model(const QString& nameOrPath);
    [[nodiscard]] Transcript transcribe(const QString& file, const TranscriptionModel& model,
                                        const std::optional<QString>& language);

private:
    UserDefaults defaults_{UserDefaults::standardPath()};
    VocabularySettings vocabulary_{defaults_};
    Speech speech_{defaults_, vocabulary_};
};

TranscriptionModel Session::model(const QString& nameOrPath)
{
    if (nameOrPath.contains(QLatin1Char('/')) || nameOrPath.endsWith(QLatin1String(".bin"))) {
        if (!QFileInfo(nameOrPath).isFile())
            throw Error(QStringLiteral("There is no model file %1").arg(nameOrPath));
        return speech_.describe(nameOrPath);
    }
    const auto* entry = nameOrPath.isEmpty() ? &speech_.selection.selectedModel() : speech_.catalogue.find(nameOrPath);
    if (entry == nullptr) {
        QStringList names;
        for (const TranscriptionModel& known : speech_.catalogue.models())
            names << QStringLiteral("\"%1\"").arg(known.name);
        throw Error(QStringLiteral("There is no model \"%1\". The catalogue has %2; the path of a file works too")
                        .arg(nameOrPath, names.join(QStringLiteral(", "))));
    }
    if (!speech_.check(*entry).isReady) {
        throw Error(
            QStringLiteral("The model \"%1\" is not downloaded: run vantro models download \"%1\"").arg(entry->name));
    }
    return *entry;
}

Transcript Session::transcribe(const QString& file, const TranscriptionModel& model,
                               const std::optional<QString>& language)
{
    Transcript result{.file = file, .text = {}};
    QElapsedTimer timer;
    timer.start();
    AudioFile audio = AudioFile::read(file);
    result.readMs = timer.restart();
    result.seconds = durationOf(audio.samples.size()).count();
    if (audio.samples.size() < minimumSampleCount)
        return result;
    const auto showProgress = [&file](float fraction) {
        terminal::showProgress(QStringLiteral("%1: %2 %").arg(file).arg(static_cast<int>(fraction * 100)));
    };
    const auto keepTokens = [&result](const std::vector<TranscribedToken>& tokens) {
        result.tokens = tokens;
    };
    result.text = runTask(
        speech_.facade.transcribe(file, std::move(audio.samples), {&model, language, showProgress, keepTokens}));
    terminal::showProgress({});
    result.transcribeMs = timer.elapsed();
    return result;
}

QJsonArray tokensAsJson(const std::vector<TranscribedToken>& tokens)
{
    QJsonArray array;
    for (const TranscribedToken& token : tokens)
        array.append(QJsonObject{{QStringLiteral("token"), token.piece},
                                 {QStringLiteral("start_s"), token.start.count()},
                                 {QStringLiteral("end_s"), token.end.count()},
                                 {QStringLiteral("confidence"), static_cast<double>(token.confidence)}});
    return array;
}

void print(const Transcript& transcript, const TranscriptionModel& model, bool json)
{
    if (!json) {
        terminal::writeLine(transcript.text);
        return;
    }
    QJsonObject object{
        {QStringLiteral("file"), transcript.file},
        {QStringLiteral("model"), model.name},
        {QStringLiteral("text"), transcript.text},
        {QStringLiteral("duration_s"), transcript.seconds},
        {QStringLiteral("timings"), QJsonObject{{QStringLiteral("read_ms"), transcript.readMs},
                                                {QStringLiteral("transcribe_ms"), transcript.transcribeMs}}},
    };
    if (transcript.tokens)
        object[QStringLiteral("tokens")] = tokensAsJson(*transcript.tokens);
    terminal::writeJson(object);
}

int transcribe(const CommandCall& call)
{
    if (call.words.isEmpty())
        throw WrongUsage(QStringLiteral("no recording given"));
    const auto language = call.has("language") ? std::optional(call.value("language")) : std::nullopt;
    Session session;
    TranscriptionModel model;
    try {
        model = session.model(call.value("model"));
    } catch (const Error& error) {
        throw CommandError(ExitCode::noService, QStringLiteral("no model: ") + error.localizedDescription());
    }
    int exitCode = ExitCode::done;
    for (const QString& file : call.words) {
        int outcome = ExitCode::done;
        try {
            print(session.transcribe(file, model, language), model, call.json());
        } catch (const AudioFileError& error) {
            terminal::writeError(error.localizedDescription());
            outcome = ExitCode::notFound;
        } catch (const WhisperInProcessError& error) {
            terminal::writeError(QStringLiteral("%1: %2").arg(file, error.localizedDescription()));
            outcome =
                error.kind() == WhisperInProcessError::Kind::modelLoadFailed ? ExitCode::noService : ExitCode::failed;
        } catch (const asr::ASRError& error) {
            terminal::writeError(QStringLiteral("%1: %2 %3")
                                     .arg(file, localizedDescription(error), QString::fromStdString(error.detail())));
            outcome = error.kind() == asr::ASRError::Kind::modelLoadFailed ? ExitCode::noService : ExitCode::failed;
        } catch (const std::exception& error) {
            terminal::writeError(QStringLiteral("%1: %2").arg(file, localizedDescription(error)));
            outcome = ExitCode::failed;
        }
        // The first failure decides; the remaining files are still transcribed.
        if (exitCode == ExitCode::done)
            exitCode = outcome;
    }
    return exitCode;
}

} // namespace

Command transcribeCommand()
{
    return {.name = "transcribe",
            .summary = "Write the text of recordings to standard output.",
            .description = "Writes the text of recordings (WAV, FLAC, OGG, MP3) to standard output.\n\n"
                           "Exit status: 0 done, 1 recognition failed, 2 wrong usage, 3 a recording could not be read, "
                           "4 the model is missing or cannot be loaded.",
            .actions = {{"", transcribe, 0, Command::anyNumber}},
            .options = {{"model", "Catalogue name or path of a model file.", "NAME"},
                        {"language", "Language code, or \"auto\".", "CODE"},
                        {"json", "One JSON object per line, with duration and timings."}},
            .words = {{"FILE", "Recordings; - for standard input.", "FILE..."}}};
}

} // namespace vantro
