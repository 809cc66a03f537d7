#include "asr/ASRError.h"
#include "base/RunTask.h"
#include "base/SampleFormat.h"
#include "vantro/app/Speech.h"
#include "vantro/cli/Captions.h"
#include "vantro/cli/Commands.h"
#include "vantro/cli/Terminal.h"
#include "vantro/models/SpokenLanguages.h"
#include "vantro/sound/AudioFile.h"
#include "vantro/text/TextReplacer.h"

#include <QElapsedTimer>
#include <QFileInfo>
#include <QJsonDocument>
#include <QSaveFile>

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
    std::vector<TranscribedToken> tokens = {};
};

/// Everything needed to transcribe files.
class Session
{
public:
    /// Returns the model with this catalogue name or file path; for an empty text, the selected one. Throws Error when
    /// it is missing.
    [[nodiscard]] TranscriptionModel model(const QString& nameOrPath);
    /// @p label: stands before the progress.
    [[nodiscard]] Transcript transcribe(const QString& file, const TranscriptionModel& model,
                                        const std::optional<QString>& language, const QString& label);
    /// With the user's replacements.
    [[nodiscard]] std::vector<Caption> captions(const Transcript& transcript) const;

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
    const auto* entry = nameOrPath.isEmpty() ? &speech_.selection.selectedModel() : speech_.catalogue.match(nameOrPath);
    if (entry == nullptr) {
        QStringList names;
        for (const TranscriptionModel& known : speech_.catalogue.models())
            names << shortName(known);
        throw Error(QStringLiteral("There is no model \"%1\". The catalogue has %2; the path of a file works too")
                        .arg(nameOrPath, names.join(QStringLiteral(", "))));
    }
    if (!speech_.check(*entry).isReady) {
        throw Error(QStringLiteral("The model \"%1\" is not downloaded: run vantro models download %2")
                        .arg(entry->name, shortName(*entry)));
    }
    return *entry;
}

std::vector<Caption> Session::captions(const Transcript& transcript) const
{
    auto captions = captionsFrom(transcript.tokens);
    for (Caption& caption : captions)
        caption.text = TextReplacer::applyReplacements(caption.text, vocabulary_.textReplacements());
    return captions;
}

Transcript Session::transcribe(const QString& file, const TranscriptionModel& model,
                               const std::optional<QString>& language, const QString& label)
{
    Transcript result{.file = file, .text = {}};
    QElapsedTimer timer;
    timer.start();
    AudioFile audio = AudioFile::read(file);
    result.readMs = timer.restart();
    result.seconds = durationOf(audio.samples.size()).count();
    if (audio.samples.size() < minimumSampleCount)
        return result;
    const auto showProgress = [&label](float fraction) {
        terminal::showProgress(QStringLiteral("%1: %2 %").arg(label).arg(static_cast<int>(fraction * 100)));
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

QJsonArray captionsAsJson(const std::vector<Caption>& captions)
{
    constexpr double perSecond = 1000;
    QJsonArray array;
    for (const Caption& caption : captions)
        array.append(QJsonObject{{QStringLiteral("start_s"), static_cast<double>(caption.start.count()) / perSecond},
                                 {QStringLiteral("end_s"), static_cast<double>(caption.end.count()) / perSecond},
                                 {QStringLiteral("text"), caption.text}});
    return array;
}

QString asJson(const Transcript& transcript, const TranscriptionModel& model, const std::vector<Caption>& captions)
{
    QJsonObject object{
        {QStringLiteral("file"), transcript.file},
        {QStringLiteral("model"), model.name},
        {QStringLiteral("text"), transcript.text},
        {QStringLiteral("duration_s"), transcript.seconds},
        {QStringLiteral("segments"), captionsAsJson(captions)},
        {QStringLiteral("timings"), QJsonObject{{QStringLiteral("read_ms"), transcript.readMs},
                                                {QStringLiteral("transcribe_ms"), transcript.transcribeMs}}},
    };
    if (model.engine == TranscriptionEngine::fluid)
        object[QStringLiteral("tokens")] = tokensAsJson(transcript.tokens);
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact)) + QLatin1Char('\n');
}

/// One run of the command.
struct Job
{
    explicit Job(const CommandCall& call);

    /// Throws Error.
    void transcribe(const QString& file, const QString& label);

    Session session;
    TranscriptionModel model;
    std::optional<QString> language;
    QString format; ///< the extension of its files
    QString folder; ///< where the texts go; empty for standard output

private:
    [[nodiscard]] QString formatted(const Transcript& transcript) const;
    void write(const QString& file, const QString& text) const;
};

/// What is wrong with the call comes before what is wrong with the machine.
Job::Job(const CommandCall& call)
    : format(call.json()          ? QStringLiteral("json")
             : call.has("format") ? call.value("format")
                                  : QStringLiteral("txt"))
    , folder(call.value("output"))
{
    if (call.words.isEmpty())
        throw WrongUsage(QStringLiteral("no recording given"));
    const QStringList formats{QStringLiteral("txt"), QStringLiteral("srt"), QStringLiteral("vtt"),
                              QStringLiteral("json")};
    if (!formats.contains(format))
        throw WrongUsage(
            QStringLiteral("there is no format \"%1\": %2").arg(format, formats.join(QStringLiteral(", "))));
    if (call.words.size() > 1 && folder.isEmpty() && (format == QLatin1String("srt") || format == QLatin1String("vtt")))
        throw WrongUsage(QStringLiteral("subtitles of several recordings need a folder: --output DIR"));
    if (!folder.isEmpty() && !QFileInfo(folder).isDir())
        throw WrongUsage(QStringLiteral("there is no folder %1").arg(folder));
    if (call.has("language"))
        language = call.value("language").toLower();
    if (language && !isSpokenLanguage(*language))
        throw WrongUsage(QStringLiteral("\"%1\" is not a language the models know: use a code such as en, de or fr, or "
                                        "auto")
                             .arg(*language));
    try {
        model = session.model(call.value("model"));
    } catch (const Error& error) {
        throw CommandError(ExitCode::noService, QStringLiteral("no model: ") + error.localizedDescription());
    }
}

QString Job::formatted(const Transcript& transcript) const
{
    if (format == QLatin1String("txt"))
        return transcript.text + QLatin1Char('\n');
    const auto captions = session.captions(transcript);
    if (format == QLatin1String("srt"))
        return subRip(captions);
    if (format == QLatin1String("vtt"))
        return webVtt(captions);
    return asJson(transcript, model, captions);
}

void Job::write(const QString& file, const QString& text) const
{
    if (folder.isEmpty()) {
        terminal::writeLine(text.chopped(text.endsWith(QLatin1Char('\n')) ? 1 : 0));
        return;
    }
    const QString name = file == QLatin1String("-") ? QStringLiteral("stdin") : QFileInfo(file).completeBaseName();
    QSaveFile target(folder + QLatin1Char('/') + name + QLatin1Char('.') + format);
    if (!target.open(QIODevice::WriteOnly) || target.write(text.toUtf8()) < 0 || !target.commit())
        throw Error(QStringLiteral("%1 could not be written: %2").arg(target.fileName(), target.errorString()));
}

void Job::transcribe(const QString& file, const QString& label)
{
    const Transcript transcript = session.transcribe(file, model, language, label);
    if (label != file && terminal::errorIsTerminal())
        terminal::writeMessage(QStringLiteral("%1: %2 s in %3 s")
                                   .arg(label)
                                   .arg(transcript.seconds, 0, 'f', 1)
                                   .arg(static_cast<double>(transcript.transcribeMs) / 1000, 0, 'f', 1));
    write(file, formatted(transcript));
}

/// Returns the exit code; the error has been written.
int outcomeOf(Job& job, const QString& file, const QString& label)
{
    try {
        job.transcribe(file, label);
        return ExitCode::done;
    } catch (const AudioFileError& error) {
        terminal::writeError(error.localizedDescription());
        return ExitCode::notFound;
    } catch (const WhisperInProcessError& error) {
        terminal::writeError(QStringLiteral("%1: %2").arg(file, error.localizedDescription()));
        return error.kind() == WhisperInProcessError::Kind::modelLoadFailed ? ExitCode::noService : ExitCode::failed;
    } catch (const asr::ASRError& error) {
        terminal::writeError(
            QStringLiteral("%1: %2 %3").arg(file, localizedDescription(error), QString::fromStdString(error.detail())));
        return error.kind() == asr::ASRError::Kind::modelLoadFailed ? ExitCode::noService : ExitCode::failed;
    } catch (const std::exception& error) {
        terminal::writeError(QStringLiteral("%1: %2").arg(file, localizedDescription(error)));
        return ExitCode::failed;
    }
}

int transcribe(const CommandCall& call)
{
    Job job(call);
    int exitCode = ExitCode::done;
    qsizetype number = 0;
    for (const QString& file : call.words) {
        ++number;
        const QString label =
            call.words.size() == 1 ? file : QStringLiteral("[%1/%2] %3").arg(number).arg(call.words.size()).arg(file);
        const int outcome = outcomeOf(job, file, label);
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
            .options = {{"model", "Name of a model, such as parakeet-v3, or path of its file.", "NAME"},
                        {"language", "Language code, or \"auto\".", "CODE"},
                        {"format", "txt, srt or vtt (subtitles), or json. The default is txt.", "FORMAT"},
                        {"json", "The same as --format json: one object per line, with duration and timings."},
                        {"output", "Write each text into this folder, named after its recording.", "DIR"}},
            .words = {{"FILE", "Recordings; - for standard input.", "FILE..."}}};
}

} // namespace vantro
