#include "vantro/cli/TranscribeSession.h"

#include "asr/ASRError.h"
#include "base/RunTask.h"
#include "base/SampleFormat.h"
#include "vantro/cli/Command.h"
#include "vantro/cli/Terminal.h"
#include "vantro/sound/AudioFile.h"
#include "vantro/text/TextReplacer.h"

#include <QElapsedTimer>
#include <QFileInfo>

#include <utility>

namespace vantro {

TranscriptionModel TranscribeSession::model(const QString& nameOrPath)
{
    try {
        return found(nameOrPath);
    } catch (const Error& error) {
        throw CommandError(ExitCode::noService, Command::tr("no model: ") + error.localizedDescription());
    }
}

TranscriptionModel TranscribeSession::found(const QString& nameOrPath)
{
    const bool isGguf = nameOrPath.endsWith(QLatin1String(".gguf"), Qt::CaseInsensitive);
    if (isGguf || nameOrPath.contains(QLatin1Char('/')) || nameOrPath.endsWith(QLatin1String(".bin"))) {
        if (!QFileInfo(nameOrPath).isFile())
            throw Error(Command::tr("There is no model file %1").arg(nameOrPath));
        if (isGguf)
            throw Error(Command::tr("%1 is no speech model, which are .bin files. --ctc-model takes the one that "
                                    "looks for words")
                            .arg(nameOrPath));
        return speech_.describe(nameOrPath);
    }
    const auto* entry = nameOrPath.isEmpty() ? &speech_.selection.selectedModel() : speech_.catalogue.match(nameOrPath);
    if (entry == nullptr) {
        QStringList names;
        for (const TranscriptionModel& known : speech_.catalogue.models())
            names << shortName(known);
        throw Error(Command::tr("There is no model \"%1\". The catalogue has %2; the path of a file works too")
                        .arg(nameOrPath, names.join(QStringLiteral(", "))));
    }
    if (!speech_.check(*entry).isReady) {
        throw Error(Command::tr("The model \"%1\" is not downloaded: run vantro models download %2")
                        .arg(entry->name, shortName(*entry)));
    }
    return *entry;
}

std::vector<Caption> TranscribeSession::captions(const Transcript& transcript) const
{
    auto captions = captionsFrom(transcript.tokens);
    for (Caption& caption : captions)
        caption.text = TextReplacer::applyReplacements(caption.text, vocabulary_.textReplacements());
    return captions;
}

Transcript TranscribeSession::transcribe(const QString& file, const TranscriptionModel& model, const Options& options,
                                         const QString& label)
{
    Transcript result{.file = file, .text = {}};
    result.hasTokenTimes = speech_.engines.of(model).timesTokens();
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
    TranscriptionFacade::Options wanted{&model, options.language, showProgress, keepTokens};
    wanted.terms = options.terms;
    wanted.termWeight = options.termWeight;
    wanted.boostingModel = options.boostingModel;
    wanted.onVocabulary = [&result](const VocabularyReport& report) {
        result.vocabulary = report;
    };
    result.text = runTask(speech_.facade.transcribe(file, std::move(audio.samples), std::move(wanted)));
    terminal::showProgress({});
    result.transcribeMs = timer.elapsed();
    return result;
}

int transcribing(const QString& file, const std::function<void()>& action)
{
    try {
        action();
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

} // namespace vantro
