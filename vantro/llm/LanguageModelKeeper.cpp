#include "vantro/llm/LanguageModelKeeper.h"

#include "base/Logger.h"
#include "vantro/llm/LlamaError.h"
#include "vantro/models/ModelHost.h"
#include "vantro/models/PartFile.h"
#include "vantro/models/Sha1.h"

#include <QFile>
#include <QFileInfo>

#include <utility>

namespace vantro {

namespace {

/// Beside a file, what its host announced; written when the file had it.
QString digestFile(const QString& path)
{
    return path + QStringLiteral(".verified");
}

ModelCheck refused(const QString& path, const QString& why, bool isDownload)
{
    const QString problem = QStringLiteral("%1 is no usable language model: %2").arg(QFileInfo(path).fileName(), why);
    if (!isDownload)
        return {false, problem + QStringLiteral(". It was not downloaded by vantro and is left alone: %1").arg(path)};
    const auto lock = PartFile(path).tryLock();
    if (!lock)
        return {false, problem + QStringLiteral(" and is being replaced right now. Try again later.")};
    printLine(QStringLiteral("Error: Invalid model file detected - removing corrupted file: ") +
              QFileInfo(path).fileName());
    if (!QFile::remove(path))
        return {false, problem + QStringLiteral(" and cannot be removed.")};
    QFile::remove(digestFile(path));
    return {false, problem + QStringLiteral(". It has been removed and will be fetched again.")};
}

void noteDigest(const QString& path, const QString& sha256)
{
    const QString host = sha256.isEmpty()
                             ? QStringLiteral("its host announces no SHA-256: checked for being whole only")
                             : QStringLiteral("has the SHA-256 that its host announced");
    printLine(QFileInfo(path).fileName() + QStringLiteral(": ") + host);
    QFile note(digestFile(path));
    // Best effort: without it, the file is only checked for being whole.
    if (sha256.isEmpty())
        note.remove();
    else if (note.open(QIODevice::WriteOnly | QIODevice::Truncate))
        note.write(sha256.toLatin1());
}

void compareWithNote(const QString& path)
{
    QFile note(digestFile(path));
    const QString announced = note.open(QIODevice::ReadOnly) ? QString::fromLatin1(note.readAll()) : QString();
    if (!announced.isEmpty() && sha256OfFile(path) != announced)
        throw LlamaError(LlamaError::Kind::unusableFile, LlamaError::tr("it is not the file that was published"));
}

ModelCheck checkFile(const QString& path, bool isDownload, Trust trust)
{
    try {
        LlamaModelFile::read(path);
        if (trust == Trust::contentOnly)
            compareWithNote(path);
        return {true, {}};
    } catch (const Error& error) {
        return refused(path, error.localizedDescription(), isDownload);
    }
}

} // namespace

LanguageModelKeeper::LanguageModelKeeper(LanguageModels& models, FileDownloader& downloader)
    : models_(models)
    , downloader_(downloader)
{
}

QFuture<ModelCheck> LanguageModelKeeper::check(const TranscriptionModel& model, Trust trust)
{
    const ModelStatus status = models_.status(model);
    return checks_.run([status, trust] {
        return status.file.isEmpty() ? ModelCheck() : checkFile(status.file, !status.isSystemCopy, trust);
    });
}

QFuture<void> LanguageModelKeeper::startDownload(const TranscriptionModel& model, FileDownloader::OnProgress onProgress,
                                                 std::stop_token stop)
{
    TransferRequest request;
    request.url = ModelHost::urlOf(model);
    request.destination = models_.file(model);
    request.isThere = [path = request.destination] {
        return QFileInfo::exists(path) && checkFile(path, true, Trust::markers).isReady;
    };
    request.onCompared = [path = request.destination](const QString& sha256) {
        noteDigest(path, sha256);
    };
    return downloader_.download(std::move(request), std::move(onProgress), std::move(stop));
}

} // namespace vantro
