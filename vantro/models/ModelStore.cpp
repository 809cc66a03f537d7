#include "vantro/models/ModelStore.h"

#include "base/Logger.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QUrl>

#include <utility>

namespace vantro {

namespace {

constexpr qint64 chunkBytes = 1'048'576;

QString markerFor(const QString& path)
{
    return path + QStringLiteral(".verified");
}

} // namespace

QString sha1OfFile(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw Error(QStringLiteral("Could not read %1: %2").arg(path, file.errorString()));
    QCryptographicHash hash(QCryptographicHash::Sha1);
    QByteArray chunk(chunkBytes, Qt::Uninitialized);
    qint64 count = 0;
    while ((count = file.read(chunk.data(), chunkBytes)) > 0)
        hash.addData(QByteArrayView(chunk.constData(), count));
    if (count < 0)
        throw Error(QStringLiteral("Could not read %1: %2").arg(path, file.errorString()));
    return QString::fromLatin1(hash.result().toHex());
}

ModelStore::ModelStore(QString userFolder, QStringList systemFolders)
    : userFolder_(std::move(userFolder))
    , systemFolders_(std::move(systemFolders))
{
}

ModelStore ModelStore::standard()
{
    const QString sub = QStringLiteral("/vantro/models");
    const QString user = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    QStringList system;
    for (const QString& folder : QStandardPaths::standardLocations(QStandardPaths::GenericDataLocation)) {
        if (folder != user)
            system << folder + sub;
    }
    return {user + sub, system};
}

QString ModelStore::modelFile(const TranscriptionModel& model) const
{
    if (model.hash.isEmpty() && QUrl(model.url).isLocalFile())
        return QUrl(model.url).toLocalFile();
    QString own = userFolder_ + QLatin1Char('/') + model.fileName();
    if (QFileInfo::exists(own))
        return own;
    for (const QString& folder : systemFolders_) {
        QString shared = folder + QLatin1Char('/') + model.fileName();
        if (QFileInfo::exists(shared))
            return shared;
    }
    return own;
}

bool ModelStore::isReady(const TranscriptionModel& model)
{
    if (model.engine != TranscriptionEngine::whisper)
        return false;
    const QString path = modelFile(model);
    if (model.hash.isEmpty())
        return QFileInfo::exists(path);
    const QString marker = markerFor(path);
    if (!QFileInfo::exists(path)) {
        QFile::remove(marker);
        return false;
    }
    return QFileInfo::exists(marker) || verifyUserFile(path, marker, model.hash);
}

bool ModelStore::verifyUserFile(const QString& path, const QString& marker, const QString& hash)
{
    try {
        if (sha1OfFile(path) == hash) {
            QFile file(marker);
            // A system folder cannot be written to: the file is then hashed again next time, which is slow but right.
            std::ignore = file.open(QIODevice::WriteOnly);
            return true;
        }
    } catch (const Error& error) {
        printLine(QStringLiteral("Error: ") + error.localizedDescription());
        return false;
    }
    printLine(QStringLiteral("Error: Invalid model file detected - removing corrupted file: ") +
              QFileInfo(path).fileName());
    QFile::remove(path);
    QFile::remove(marker);
    return false;
}

} // namespace vantro
