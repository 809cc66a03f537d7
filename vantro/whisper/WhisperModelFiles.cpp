#include "vantro/whisper/WhisperModelFiles.h"

#include "base/Error.h"
#include "base/Logger.h"
#include "vantro/models/PartFile.h"
#include "vantro/models/Sha1.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QUrl>

#include <sys/stat.h>

#include <utility>

namespace vantro {

namespace {

QString markerFor(const QString& path)
{
    return path + QStringLiteral(".verified");
}

bool isPlainFile(const TranscriptionModel& model)
{
    return model.hash.isEmpty() && QUrl(model.url).isLocalFile();
}

/// Identifies a verified file without reading it again.
QByteArray fingerprint(const QString& path)
{
    const QFileInfo file(path);
    return QStringLiteral("%1\n%2\n%3\n")
        .arg(path)
        .arg(file.size())
        .arg(file.lastModified().toMSecsSinceEpoch())
        .toUtf8();
}

bool isStillThere(const QString& path, const QFile& opened)
{
    struct stat byName = {};
    struct stat byHandle = {};
    return ::stat(QFile::encodeName(path).constData(), &byName) == 0 && ::fstat(opened.handle(), &byHandle) == 0 &&
           byName.st_dev == byHandle.st_dev && byName.st_ino == byHandle.st_ino;
}

} // namespace

WhisperModelFiles::WhisperModelFiles(QStringList folders) : folders_(std::move(folders)) {}

QString WhisperModelFiles::ownFile(const TranscriptionModel& model) const
{
    return folders_.first() + QLatin1Char('/') + model.fileName();
}

QStringList WhisperModelFiles::candidates(const TranscriptionModel& model) const
{
    QStringList paths = folders_;
    for (QString& path : paths)
        path += QLatin1Char('/') + model.fileName();
    return paths;
}

QString WhisperModelFiles::find(const TranscriptionModel& model) const
{
    if (isPlainFile(model))
        return QUrl(model.url).toLocalFile();
    QString existing;
    for (const QString& path : candidates(model)) {
        if (!QFileInfo::exists(path))
            continue;
        // The user's copy counts even if it is wrong: check() removes it.
        if (isOwn(path) || isTrusted(path))
            return path;
        if (existing.isEmpty())
            existing = path;
    }
    return existing.isEmpty() ? ownFile(model) : existing;
}

ModelStatus WhisperModelFiles::status(const TranscriptionModel& model) const
{
    const QString path = find(model);
    if (const QFileInfo file(path); file.exists()) {
        const bool ready = model.hash.isEmpty() || isTrusted(path);
        return {ready ? ModelStatus::State::ready : ModelStatus::State::unchecked, path, !isOwn(path), file.size(), -1};
    }
    return PartFile(ownFile(model)).status();
}

ModelCheck WhisperModelFiles::check(const TranscriptionModel& model, Trust trust) const
{
    if (isPlainFile(model))
        return {QFileInfo::exists(find(model)), {}};
    ModelCheck result;
    for (const QString& path : candidates(model)) {
        if (!QFileInfo::exists(path)) {
            if (isOwn(path))
                QFile::remove(markerFor(path));
            continue;
        }
        if (trust == Trust::markers && isTrusted(path))
            return {true, {}};
        ModelCheck answer = checkContent(path, model);
        if (answer.isReady)
            return answer;
        if (result.problem.isEmpty())
            result.problem = answer.problem;
    }
    return result;
}

ModelCheck WhisperModelFiles::checkContent(const QString& path, const TranscriptionModel& model) const
{
    QFile file(path);
    QString found;
    try {
        if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
            throw Error(QCoreApplication::translate("WhisperModelFiles", "%1 could not be read: %2")
                            .arg(path, file.errorString()));
        found = sha1OfFile(file);
    } catch (const Error& error) {
        printLine(QStringLiteral("Error: ") + error.localizedDescription());
        return {false, error.localizedDescription()};
    }
    if (found == model.hash) {
        remember(path);
        return {true, {}};
    }
    const QString wrong = QStringLiteral("%1 is not the published file (its SHA-1 is %2 instead of %3)")
                              .arg(QFileInfo(path).fileName(), found, model.hash);
    if (!isOwn(path)) {
        printLine(QStringLiteral("Error: Invalid model file detected in a system folder: ") + path);
        return {false, wrong + QStringLiteral(". It is a system file, so it is left in place and not used.")};
    }
    try {
        if (!removeWrongFile(path, file))
            return {false, wrong + QStringLiteral(" and is being replaced right now. Try again later.")};
    } catch (const Error& error) {
        return {false, wrong + QStringLiteral(" and cannot be removed. ") + error.localizedDescription()};
    }
    return {false, wrong + QStringLiteral(". It has been removed and will be fetched again.")};
}

bool WhisperModelFiles::removeWrongFile(const QString& path, const QFile& hashed) const
{
    // A download may have replaced the file meanwhile.
    const auto lock = PartFile(path).tryLock();
    if (!lock || !isStillThere(path, hashed))
        return false;
    printLine(QStringLiteral("Error: Invalid model file detected - removing corrupted file: ") +
              QFileInfo(path).fileName());
    QFile file(path);
    if (!file.remove())
        throw Error(file.errorString());
    QFile::remove(markerFor(path));
    return true;
}

void WhisperModelFiles::markIfRight(const TranscriptionModel& model) const
{
    const QString path = ownFile(model);
    if (sha1OfFile(path) == model.hash)
        remember(path);
}

bool WhisperModelFiles::isOwn(const QString& path) const
{
    return path.startsWith(folders_.first() + QLatin1Char('/'));
}

QString WhisperModelFiles::memoryOf(const QString& systemPath) const
{
    return folders_.first() + QStringLiteral("/.work/") + QFileInfo(systemPath).fileName() + QStringLiteral(".system");
}

bool WhisperModelFiles::isTrusted(const QString& path) const
{
    if (QFileInfo::exists(markerFor(path)))
        return true;
    if (isOwn(path))
        return false;
    QFile memory(memoryOf(path));
    return memory.open(QIODevice::ReadOnly) && memory.readAll() == fingerprint(path);
}

void WhisperModelFiles::remember(const QString& path) const
{
    const bool own = isOwn(path);
    if (!own)
        QDir().mkpath(folders_.first() + QStringLiteral("/.work"));
    QFile file(own ? markerFor(path) : memoryOf(path));
    // Best effort: if this cannot be written, the file is hashed again next time.
    if (file.open(QIODevice::WriteOnly | QIODevice::Truncate) && !own)
        file.write(fingerprint(path));
}

qint64 WhisperModelFiles::remove(const TranscriptionModel& model) const
{
    const QString path = ownFile(model);
    const qint64 freed = PartFile(path).removeAll();
    QFile::remove(markerFor(path));
    return freed;
}

} // namespace vantro
