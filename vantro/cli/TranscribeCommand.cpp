#include "base/OutputFile.h"
#include "vantro/cli/Captions.h"
#include "vantro/cli/Commands.h"
#include "vantro/cli/Terminal.h"
#include "vantro/cli/TranscribeSession.h"
#include "vantro/cli/VocabularyPlaces.h"
#include "vantro/models/SpokenLanguages.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>

namespace vantro {

namespace {

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

QJsonObject vocabularyAsJson(const VocabularyReport& report)
{
    if (report.way == VocabularyReport::Way::none)
        return QJsonObject{{QStringLiteral("way"), QStringLiteral("none")}};
    if (report.way == VocabularyReport::Way::prompt)
        return QJsonObject{{QStringLiteral("way"), QStringLiteral("prompt")}};
    QJsonArray replacements;
    for (const VocabularyPlace& place : report.places) {
        if (place.isReplaced)
            replacements.append(placeAsJson(place));
    }
    QJsonObject object{{QStringLiteral("way"), QStringLiteral("boosting")},
                       {QStringLiteral("replacements"), replacements}};
    if (!report.notLookedFor.isEmpty())
        object[QStringLiteral("not_looked_for")] = QJsonArray::fromStringList(report.notLookedFor);
    if (!report.problem.isEmpty())
        object[QStringLiteral("skipped")] = report.problem;
    return object;
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
    object[QStringLiteral("vocabulary")] = vocabularyAsJson(transcript.vocabulary);
    if (transcript.hasTokenTimes)
        object[QStringLiteral("tokens")] = tokensAsJson(transcript.tokens);
    return QString::fromUtf8(QJsonDocument(object).toJson(QJsonDocument::Compact)) + QLatin1Char('\n');
}

/// Of a recording's text, without an extension.
QString nameOf(const QString& recording)
{
    return recording == QLatin1String("-") ? QStringLiteral("stdin") : QFileInfo(recording).completeBaseName();
}

/// One run of the command.
struct Job
{
    explicit Job(const CommandCall& call);

    /// Throws Error.
    void transcribe(const QString& file, const QString& label);

    TranscribeSession session;
    TranscriptionModel model;
    TranscribeSession::Options options;
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
        throw WrongUsage(Command::tr("no recording given"));
    const QStringList formats{QStringLiteral("txt"), QStringLiteral("srt"), QStringLiteral("vtt"),
                              QStringLiteral("json")};
    if (!formats.contains(format))
        throw WrongUsage(Command::tr("there is no format \"%1\": %2").arg(format, formats.join(QStringLiteral(", "))));
    if (call.words.size() > 1 && folder.isEmpty() && (format == QLatin1String("srt") || format == QLatin1String("vtt")))
        throw WrongUsage(Command::tr("subtitles of several recordings need a folder: --output DIR"));
    if (!folder.isEmpty() && !QFileInfo(folder).isDir())
        throw WrongUsage(Command::tr("there is no folder %1").arg(folder));
    if (QSet<QString> names; !folder.isEmpty()) {
        for (const QString& file : call.words) {
            if (names.contains(nameOf(file)))
                throw WrongUsage(
                    Command::tr("two recordings are called %1: give them different folders").arg(nameOf(file)));
            names.insert(nameOf(file));
        }
    }
    if (call.has("language"))
        options.language = call.value("language").toLower();
    if (options.language && !isSpokenLanguage(*options.language))
        throw WrongUsage(Command::tr("\"%1\" is not a language the models know: use a code such as en, de or fr, or "
                                     "auto")
                             .arg(*options.language));
    if (call.has("term"))
        options.terms = call.values("term");
    options.termWeight = weightOf(call);
    options.boostingModel = boostingModelOf(call);
    model = session.model(call.value("model"));
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
    writeFile(folder + QLatin1Char('/') + nameOf(file) + QLatin1Char('.') + format, text.toUtf8());
}

void Job::transcribe(const QString& file, const QString& label)
{
    const Transcript transcript = session.transcribe(file, model, options, label);
    if (label != file && terminal::errorIsTerminal())
        terminal::writeMessage(Command::tr("%1: %2 s in %3 s")
                                   .arg(label)
                                   .arg(transcript.seconds, 0, 'f', 1)
                                   .arg(static_cast<double>(transcript.transcribeMs) / 1000, 0, 'f', 1));
    write(file, formatted(transcript));
    if (!transcript.vocabulary.problem.isEmpty())
        terminal::writeError(
            Command::tr("%1: your words were not looked for: %2").arg(file, transcript.vocabulary.problem));
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
        const int outcome = transcribing(file, [&] { job.transcribe(file, label); });
        // The first failure decides; the remaining files are still transcribed.
        if (exitCode == ExitCode::done)
            exitCode = outcome;
    }
    return exitCode;
}

} // namespace

Command transcribeCommand()
{
    return {
        .name = "transcribe",
        .summary = QT_TRANSLATE_NOOP("Command", "Write the text of recordings to standard output."),
        .description = QT_TRANSLATE_NOOP(
            "Command", "Writes the text of recordings (WAV, FLAC, OGG, MP3) to standard output.\n\n"
                       "Exit status: 0 done, 1 recognition failed, 2 wrong usage, 3 a recording could not be read, "
                       "4 the model is missing or cannot be loaded."),
        .actions = {{"", transcribe, 0, Command::anyNumber}},
        .options =
            {{"model", QT_TRANSLATE_NOOP("Command", "Name of a model, such as parakeet-v3, or path of its file."),
              "NAME"},
             {"language", QT_TRANSLATE_NOOP("Command", "Language code, or \"auto\"."), "CODE"},
             {"format", QT_TRANSLATE_NOOP("Command", "txt, srt or vtt (subtitles), or json. The default is txt."),
              "FORMAT"},
             {"json", QT_TRANSLATE_NOOP("Command",
                                        "The same as --format json: one object per line, with duration and timings.")},
             {"ctc-model",
              QT_TRANSLATE_NOOP("Command", "Path of the model that looks for your words beside a Parakeet model."),
              "FILE"},
             {"term", QT_TRANSLATE_NOOP("Command", "Look for this word instead of your own; may be repeated."), "WORD"},
             {"weight", QT_TRANSLATE_NOOP("Command", "How readily words are written, from 0 to 4; usually 1."),
              "NUMBER"},
             {"output", QT_TRANSLATE_NOOP("Command", "Write each text into this folder, named after its recording."),
              "DIR"}},
        .words = {{"FILE", QT_TRANSLATE_NOOP("Command", "Recordings; - for standard input."), "FILE..."}}};
}

} // namespace vantro
