#include "vantro/store/AudioFolder.h"

#include "vantro/sound/AudioFile.h"

#include <QDir>
#include <QFileInfo>
#include <QSaveFile>

#include <sys/stat.h>

#include <cerrno>
#include <numeric>

namespace vantro {

namespace {

const auto ending = QLatin1String(".flac");

QUuid identityOf(const QFileInfo& file)
{
    return QUuid(file.completeBaseName());
}

/// Oldest first. What else somebody has put there is left alone.
QFileInfoList filesIn(const QString& folder)
{
    if (folder.isEmpty())
        return {};
    auto files = QDir(folder).entryInfoList({QLatin1Char('*') + ending}, QDir::Files, QDir::Time | QDir::Reversed);
    files.removeIf([](const QFileInfo& file) { return identityOf(file).isNull(); });
    return files;
}

qint64 sizeOf(const QFileInfoList& files)
{
    return std::accumulate(files.begin(), files.end(), qint64(0),
                           [](qint64 sum, const QFileInfo& file) { return sum + file.size(); });
}

void makeFolder(const QString& folder)
{
    if (::mkdir(QFile::encodeName(folder).constData(), S_IRWXU) != 0 && errno != EEXIST)
        throw AudioFolderError(QStringLiteral("%1: %2").arg(folder, qt_error_string(errno)));
}

} // namespace

AudioFolder::AudioFolder(const QString& history)
    : folder_(history.isEmpty() ? QString() : QFileInfo(history).path() + QStringLiteral("/recordings"))
{
}

QString AudioFolder::path(const QUuid& id) const
{
    return folder_ + QLatin1Char('/') + id.toString(QUuid::WithoutBraces) + ending;
}

QString AudioFolder::file(const QUuid& id) const
{
    return !id.isNull() && QFileInfo(path(id)).isFile() ? path(id) : QString();
}

qint64 AudioFolder::bytes() const
{
    return sizeOf(filesIn(folder_));
}

std::vector<QUuid> AudioFolder::identities() const
{
    std::vector<QUuid> ids;
    for (const QFileInfo& file : filesIn(folder_))
        ids.push_back(identityOf(file));
    return ids;
}

std::vector<QUuid> AudioFolder::beyond(const Limits& limits) const
{
    const QFileInfoList files = filesIn(folder_);
    qint64 left = sizeOf(files);
    std::vector<QUuid> ids;
    for (const QFileInfo& file : files) {
        const bool isTooOld = limits.oldest.isValid() && file.lastModified() < limits.oldest;
        if (!limits.isNoneAllowed && !isTooOld && left <= limits.bytes)
            break;
        ids.push_back(identityOf(file));
        left -= file.size();
    }
    return ids;
}

void AudioFolder::write(const QUuid& id, std::span<const float> samples) const
{
    makeFolder(folder_);
    QSaveFile file(path(id));
    // Readable by nobody else before the first byte is in it.
    const bool isOpen =
        file.open(QIODevice::WriteOnly) && file.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner);
    const QByteArray contents = isOpen ? flacOf(samples) : QByteArray();
    if (!isOpen || file.write(contents) != contents.size() || !file.commit())
        throw AudioFolderError(QStringLiteral("%1: %2").arg(path(id), file.errorString()));
}

void AudioFolder::remove(const std::vector<QUuid>& ids) const
{
    for (const QUuid& id : ids)
        QFile::remove(path(id));
}

/// The way QSaveFile names them.
void AudioFolder::removeUnfinished() const
{
    if (folder_.isEmpty())
        return;
    QDir folder(folder_);
    const QStringList names = folder.entryList({QLatin1Char('*') + ending + QStringLiteral(".??????")}, QDir::Files);
    for (const QString& name : names)
        folder.remove(name);
}

void AudioFolder::removeAll() const
{
    remove(identities());
    removeUnfinished();
}

} // namespace vantro
