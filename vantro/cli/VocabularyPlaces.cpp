#include "vantro/cli/VocabularyPlaces.h"

#include "vantro/cli/Terminal.h"
#include "vantro/cli/TranscribeSession.h"

#include <QFileInfo>
#include <QJsonArray>

namespace vantro {

namespace {

QString seconds(std::chrono::duration<double> time)
{
    return QString::number(time.count(), 'f', 2);
}

QString score(float value)
{
    return QString::number(static_cast<double>(value), 'f', 1);
}

/// @p isAll: none of the words could be looked for.
void printForAPerson(const Transcript& transcript, bool isAll)
{
    terminal::writeLine(transcript.text);
    for (const VocabularyPlace& place : transcript.vocabulary.places)
        terminal::writeLine(Command::tr("  %1 to %2 s  \"%3\" → %4: %5 (similarity %6, heard %7, term %8, bias %9)")
                                .arg(seconds(place.start), seconds(place.end), place.heard, place.term,
                                     place.isReplaced ? Command::tr("replaced") : Command::tr("kept"),
                                     QString::number(static_cast<double>(place.similarity), 'f', 2),
                                     score(place.scoreBefore), score(place.scoreAfter), score(place.bias)));
    const QStringList& impossible = transcript.vocabulary.notLookedFor;
    for (const QString& word : impossible)
        terminal::writeLine(Command::tr("  \"%1\" cannot be looked for: it needs at least three letters that the "
                                        "model knows, and at most a thousand")
                                .arg(terminal::elided(word, 40)));
    if (transcript.vocabulary.places.empty() && !isAll)
        terminal::writeLine(impossible.isEmpty() ? Command::tr("  No place in the recording sounds like it.")
                                                 : Command::tr("  No place in the recording sounds like the others."));
}

void printAsJson(const Transcript& transcript)
{
    QJsonArray places;
    for (const VocabularyPlace& place : transcript.vocabulary.places)
        places.append(placeAsJson(place));
    terminal::writeJson(QJsonObject{
        {QStringLiteral("file"), transcript.file},
        {QStringLiteral("text"), transcript.text},
        {QStringLiteral("places"), places},
        {QStringLiteral("not_looked_for"), QJsonArray::fromStringList(transcript.vocabulary.notLookedFor)}});
}

void requireBoosting(const VocabularyReport& report)
{
    if (report.way == VocabularyReport::Way::none)
        throw CommandError(ExitCode::usage, Command::tr("there is no word to try: name one with --term"));
    if (report.way == VocabularyReport::Way::prompt)
        throw CommandError(ExitCode::noService,
                           Command::tr("whisper models get the words as a prompt: there is nothing to try. Name a "
                                       "Parakeet model with --model"));
    if (!report.problem.isEmpty())
        throw CommandError(ExitCode::noService, report.problem);
}

} // namespace

QString boostingModelOf(const CommandCall& call)
{
    QString path = call.value("ctc-model");
    if (call.has("ctc-model") && !QFileInfo(path).isFile())
        throw CommandError(ExitCode::noService, Command::tr("no model: There is no model file %1").arg(path));
    return path;
}

double weightOf(const CommandCall& call)
{
    if (!call.has("weight"))
        return VocabularyDetails().weight;
    bool isNumber = false;
    const double weight = call.value("weight").toDouble(&isNumber);
    // Written so that it refuses "nan", too.
    const bool isWithin = weight >= VocabularyDetails::leastWeight && weight <= VocabularyDetails::greatestWeight;
    if (!isNumber || !isWithin)
        throw WrongUsage(Command::tr("\"%1\" is not a weight from 0 to 4").arg(call.value("weight")));
    return weight;
}

QJsonObject placeAsJson(const VocabularyPlace& place)
{
    return QJsonObject{{QStringLiteral("term"), place.term},
                       {QStringLiteral("heard"), place.heard},
                       {QStringLiteral("start_s"), place.start.count()},
                       {QStringLiteral("end_s"), place.end.count()},
                       {QStringLiteral("similarity"), static_cast<double>(place.similarity)},
                       {QStringLiteral("score_before"), static_cast<double>(place.scoreBefore)},
                       {QStringLiteral("score_after"), static_cast<double>(place.scoreAfter)},
                       {QStringLiteral("bias"), static_cast<double>(place.bias)},
                       {QStringLiteral("replaced"), place.isReplaced}};
}

int tryVocabulary(const CommandCall& call)
{
    TranscribeSession session;
    TranscribeSession::Options options;
    if (call.has("term"))
        options.terms = call.values("term");
    options.termWeight = weightOf(call);
    options.boostingModel = boostingModelOf(call);
    const TranscriptionModel model = session.model(call.value("model"));
    const QString& file = call.words.front();
    std::optional<Transcript> transcript;
    if (const int failure = transcribing(file, [&] { transcript = session.transcribe(file, model, options, file); });
        failure != ExitCode::done)
        return failure;
    requireBoosting(transcript->vocabulary);
    if (call.json())
        printAsJson(*transcript);
    else
        printForAPerson(*transcript,
                        options.terms && options.terms->size() == transcript->vocabulary.notLookedFor.size());
    return ExitCode::done;
}

} // namespace vantro
