#pragma once

#include "base/Error.h"
#include "base/network/NetworkError.h"

#include <QCoreApplication>
#include <QString>

namespace vantro {

/// Why a file could not be fetched. The description says what was wrong and what to do; what was fetched so far is kept
/// and continued next time, unless the kind says that it is of no use.
class ModelDownloadError : public Error
{
    Q_DECLARE_TR_FUNCTIONS(ModelDownloadError)
public:
    enum class Kind {
        hostUnreachable,   ///< no such name, no connection, no network
        refusedByServer,   ///< 403, 404, 500 and whatever else is no file
        connectionBroken,  ///< cut off, or stalled, or the body ended too early
        redirectedInLoop,  ///< or from an encrypted to an open address
        notTrusted,        ///< the server's certificate
        wrongContent,      ///< not the published file; nothing of it is kept
        notEnoughSpace,    ///< also a disk that became full meanwhile
        folderNotWritable, ///< and every other failure to write
        cancelled,
    };

    /// A request that got no answer.
    explicit ModelDownloadError(const NetworkError& error);
    static ModelDownloadError refusedByServer(const QString& host, int status, const QString& file);
    static ModelDownloadError connectionBroken(const QString& host, const QString& reason);
    static ModelDownloadError wrongContent(const QString& description);
    static ModelDownloadError notEnoughSpace(const QString& folder, qint64 neededBytes, qint64 freeBytes);
    static ModelDownloadError diskFull(const QString& folder);
    static ModelDownloadError folderNotWritable(const QString& folder, const QString& reason);
    static ModelDownloadError notWritten(const QString& file, const QString& reason);
    static ModelDownloadError cancelled();

    [[nodiscard]] Kind kind() const { return kind_; }
    /// Whether the network or the model host failed, rather than this machine.
    [[nodiscard]] bool isHostsFault() const;

private:
    ModelDownloadError(Kind kind, const QString& description) : Error(description), kind_(kind) {}

    Kind kind_;
};

/// "453.0 MiB", as sizes are written everywhere.
QString sizeText(qint64 bytes);

} // namespace vantro
