#include "vantro/cli/TranscribeCommand.h"

#include "asr/ASRError.h"
#include "base/RunTask.h"
#include "base/SampleFormat.h"
#include "vantro/app/Speech.h"
#include "vantro/cli/ExitCode.h"
#include "vantro/cli/Terminal.h"
#include "vantro/sound/AudioFile.h"

#include <QCommandLineParser>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <exception>
#include <utility>

namespace vantro {

namespace {

struct Options
{
    QStringList files;
    QString model;
    std::optional<QString> language;
    bool json = false;
};

struct Transcript
{
    QString file;
    QString text;
    double seconds = 0;
    qint64 readMs = 0;
    qint64 transcribeMs = 0;
    std::optional<std::vector<TranscribedToken>> tokens = {};
};

/// Everything a transcription without windows needs.
class Session
{
public:
    /// The model the user named, by its catalogue name or as a file; the selected one for an empty text. Throws Error
    /// when it is not there.
    [[nodiscard]] TranscriptionModel model(const QString& nameOrPath);
    [[nodiscard]] Transcript transcribe(const QString& file, const TranscriptionModel& model, const Options& options);

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
        throw Error(QStringLiteral("There is no model \"%1\". The catalogue has %2; a file's path works too")
                        .arg(nameOrPath, names.join(QStringLiteral(", "))));
    }
    if (!speech_.check(*entry).isReady) {
        throw Error(
            QStringLiteral("The model \"%1\" is not downloaded: run vantro models download \"%1\"").arg(entry->name));
    }
    return *entry;
}

Transcript Session::transcribe(const QString& file, const TranscriptionModel& model, const Options& options)
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
    result.text = runTask(speech_.facade.transcribe(file, std::move(audio.samples),
                                                    {&model, options.language, showProgress, keepTokens}));
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
    terminal::writeLine(QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact)));
}

int transcribeAll(const Options& options)
{
    Session session;
    TranscriptionModel model;
    try {
        model = session.model(options.model);
    } catch (const Error& error) {
        terminal::writeError(QStringLiteral("no model: ") + error.localizedDescription());
        return ExitCode::noService;
    }
    int exitCode = ExitCode::done;
    for (const QString& file : options.files) {
        int outcome = ExitCode::done;
        try {
            print(session.transcribe(file, model, options), model, options.json);
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
        // The first failure decides; the other files are transcribed all the same.
        if (exitCode == ExitCode::done)
            exitCode = outcome;
    }
    return exitCode;
}

} // namespace

int runTranscribe(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Writes the text of recordings (WAV, FLAC, OGG, MP3) to standard output.\n\n"
                       "Exit status: 0 done, 1 recognition failed, 2 wrong usage, 3 a recording could not be read, "
                       "4 the model is missing or cannot be loaded."));
    terminal::addHelpOption(parser);
    parser.addOption(
        {QStringLiteral("model"), QStringLiteral("Catalogue name or path of a model file."), QStringLiteral("NAME")});
    parser.addOption(
        {QStringLiteral("language"), QStringLiteral("Language code, or \"auto\"."), QStringLiteral("CODE")});
    parser.addOption({QStringLiteral("json"), QStringLiteral("One JSON object a line, with duration and timings.")});
    parser.addPositionalArgument(QStringLiteral("FILE"), QStringLiteral("Recordings; - is standard input."),
                                 QStringLiteral("FILE..."));
    if (!parser.parse(QStringList{QStringLiteral("vantro transcribe")} + arguments)) {
        terminal::writeError(parser.errorText() + QStringLiteral(" (see vantro transcribe --help)"));
        return ExitCode::usage;
    }
    if (parser.isSet(QStringLiteral("help"))) {
        terminal::writeLine(terminal::helpText(parser, QStringLiteral("transcribe")));
        return ExitCode::done;
    }
    Options options;
    options.files = parser.positionalArguments();
    options.model = parser.value(QStringLiteral("model"));
    if (parser.isSet(QStringLiteral("language")))
        options.language = parser.value(QStringLiteral("language"));
    options.json = parser.isSet(QStringLiteral("json"));
    if (options.files.isEmpty()) {
        terminal::writeError(QStringLiteral("no recording given (see vantro transcribe --help)"));
        return ExitCode::usage;
    }
    return transcribeAll(options);
}

} // namespace vantro
