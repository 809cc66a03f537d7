#include "vantro/models/ModelDownloadError.h"

#include <QLocale>

namespace vantro {

namespace {

ModelDownloadError::Kind kindOf(const NetworkError& error)
{
    switch (error.kind()) {
    case NetworkError::Kind::notTrusted:
        return ModelDownloadError::Kind::notTrusted;
    case NetworkError::Kind::redirected:
        return ModelDownloadError::Kind::redirectedInLoop;
    default:
        return ModelDownloadError::Kind::hostUnreachable;
    }
}

} // namespace

QString sizeText(qint64 bytes)
{
    return QLocale().formattedDataSize(bytes, 1, QLocale::DataSizeIecFormat);
}

ModelDownloadError::ModelDownloadError(const NetworkError& error)
    : ModelDownloadError(kindOf(error), error.localizedDescription())
{
}

ModelDownloadError ModelDownloadError::refusedByServer(const QString& host, int status, const QString& file)
{
    QString text;
    if (status == 0)
        text = tr("%1 has no readable file %2. Check the model host's address.").arg(host, file);
    else if (status == 404 || status == 410)
        text = tr("%1 has no file %2 (error %3). Check the model host's address.").arg(host, file).arg(status);
    else if (status == 401 || status == 403 || status == 407)
        text = tr("%1 refuses access to %2 (error %3). Check the model host's address and whether it requires a login.")
                   .arg(host, file)
                   .arg(status);
    else
        text = tr("%1 cannot deliver %2 at the moment (error %3). Try again later.").arg(host, file).arg(status);
    return {Kind::refusedByServer, text};
}

ModelDownloadError ModelDownloadError::connectionBroken(const QString& host, const QString& reason)
{
    return {Kind::connectionBroken, tr("The connection to %1 was lost (%2). Try again to resume the download.")
                                        .arg(host, NetworkError::withoutFullStop(reason))};
}

ModelDownloadError ModelDownloadError::wrongContent(const QString& description)
{
    return {Kind::wrongContent, description};
}

ModelDownloadError ModelDownloadError::notEnoughSpace(const QString& folder, qint64 neededBytes, qint64 freeBytes)
{
    return {Kind::notEnoughSpace,
            tr("There is not enough space in %1: %2 more needed, %3 free. Free some space, or choose a smaller model.")
                .arg(folder, sizeText(neededBytes), sizeText(freeBytes))};
}

ModelDownloadError ModelDownloadError::diskFull(const QString& folder)
{
    return {Kind::notEnoughSpace,
            tr("The disk of %1 is full. Free some space, then try again to resume the download.").arg(folder)};
}

ModelDownloadError ModelDownloadError::folderNotWritable(const QString& folder, const QString& reason)
{
    return {Kind::folderNotWritable, tr("The folder %1 is not writable (%2). Change its permissions.")
                                         .arg(folder, NetworkError::withoutFullStop(reason))};
}

ModelDownloadError ModelDownloadError::notWritten(const QString& file, const QString& reason)
{
    return {Kind::folderNotWritable,
            tr("%1 could not be written (%2). Check the disk.").arg(file, NetworkError::withoutFullStop(reason))};
}

ModelDownloadError ModelDownloadError::cancelled()
{
    return {Kind::cancelled, tr("The download was stopped. It can be resumed later.")};
}

bool ModelDownloadError::isHostsFault() const
{
    return kind_ == Kind::hostUnreachable || kind_ == Kind::refusedByServer || kind_ == Kind::connectionBroken ||
           kind_ == Kind::redirectedInLoop || kind_ == Kind::notTrusted;
}

} // namespace vantro
