#include "vantro/models/PartFile.h"

#include "vantro/models/ModelDownloadError.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

namespace vantro {

namespace {

constexpr QLatin1String wantedKey("sha1");
constexpr QLatin1String etagKey("etag");
constexpr QLatin1String lastModifiedKey("lastModified");
constexpr QLatin1String totalKey("totalBytes");

/// A rename is durable only once its folder is synced.
void syncFolder(const QString& folder)
{
    const int descriptor = ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor < 0)
        return;
    ::fsync(descriptor);
    ::close(descriptor);
}

} // namespace

PartFile::PartFile(const QString& destination)
    : destination_(destination)
    , folder_(QFileInfo(destination).absolutePath())
    , data_(beside(".part"))
{
}

QString PartFile::beside(const char* extension) const
{
    return folder_ + QStringLiteral("/.work/") + QFileInfo(destination_).fileName() + QLatin1String(extension);
}

std::optional<FileLock> PartFile::tryLock() const
{
    const QString work = folder_ + QStringLiteral("/.work");
    if (!QDir().mkpath(work) || ::access(QFile::encodeName(folder_).constData(), W_OK) != 0)
        throw ModelDownloadError::folderNotWritable(folder_, qt_error_string(errno));
    try {
        return FileLock::tryTake(beside(".lock"));
    } catch (const Error& error) {
        throw ModelDownloadError::folderNotWritable(folder_, error.localizedDescription());
    }
}

qint64 PartFile::bytes() const
{
    return note() ? QFileInfo(data_.fileName()).size() : 0;
}

std::optional<PartNote> PartFile::note() const
{
    QFile file(beside(".json"));
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    const QJsonDocument document = QJsonDocument::fromJson(file.readAll());
    if (!document.isObject())
        return std::nullopt;
    const QJsonObject object = document.object();
    return PartNote{object.value(wantedKey).toString(), object.value(etagKey).toString(),
                    object.value(lastModifiedKey).toString(), object.value(totalKey).toInteger(-1)};
}

void PartFile::discard()
{
    data_.close();
    QFile::remove(beside(".json"));
    data_.remove();
}

ModelStatus PartFile::status() const
{
    const auto known = note();
    if (!known || bytes() == 0)
        return {};
    return {ModelStatus::State::partial, {}, false, bytes(), known->totalBytes};
}

qint64 PartFile::removeAll()
{
    QFile file(destination_);
    if (!file.exists() && bytes() == 0)
        return 0;
    const auto lock = tryLock();
    if (!lock)
        throw Error(QCoreApplication::translate("ModelDownload", "%1 is being downloaded. Stop the download first.")
                        .arg(QFileInfo(destination_).fileName()));
    const qint64 freed = file.size() + bytes();
    discard();
    if (file.exists() && !file.remove())
        throw Error(QCoreApplication::translate("ModelDownload", "%1 could not be removed: %2")
                        .arg(destination_, file.errorString()));
    return freed;
}

void PartFile::begin(const PartNote& note)
{
    // A part without a note is ignored, so remove the old note first and write the new one before any data.
    QFile::remove(beside(".json"));
    openAt(QIODevice::WriteOnly | QIODevice::Truncate);
    QSaveFile file(beside(".json"));
    const QJsonObject object{{wantedKey, note.wanted},
                             {etagKey, note.etag},
                             {lastModifiedKey, note.lastModified},
                             {totalKey, note.totalBytes}};
    const QByteArray text = QJsonDocument(object).toJson(QJsonDocument::Compact);
    if (!file.open(QIODevice::WriteOnly) || file.write(text) != text.size() || !file.commit())
        throw ModelDownloadError::notWritten(file.fileName(), file.errorString());
}

void PartFile::resume()
{
    openAt(QIODevice::WriteOnly | QIODevice::Append);
}

void PartFile::openAt(QIODevice::OpenMode mode)
{
    data_.close();
    if (!data_.open(mode | QIODevice::Unbuffered))
        throw ModelDownloadError::notWritten(data_.fileName(), data_.errorString());
}

void PartFile::append(const char* data, qint64 count)
{
    // A nearly full disk accepts a partial write; only the next write reports the reason.
    qint64 written = 0;
    qint64 step = 0;
    while (written < count && (step = data_.write(data + written, count - written)) > 0)
        written += step;
    if (written == count)
        return;
    if (data_.error() == QFileDevice::ResourceError)
        throw ModelDownloadError::diskFull(folder_);
    throw ModelDownloadError::notWritten(data_.fileName(), data_.errorString());
}

void PartFile::settle()
{
    if (!data_.isOpen())
        resume();
    const bool synced = ::fsync(data_.handle()) == 0;
    const QString syncError = qt_error_string(errno);
    data_.close();
    if (!synced)
        throw ModelDownloadError::notWritten(data_.fileName(), syncError);
    if (std::rename(QFile::encodeName(data_.fileName()).constData(), QFile::encodeName(destination_).constData()) != 0)
        throw ModelDownloadError::notWritten(destination_, qt_error_string(errno));
    QFile::remove(beside(".json"));
    syncFolder(folder_);
}

} // namespace vantro
