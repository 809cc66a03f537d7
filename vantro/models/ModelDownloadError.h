#pragma once

#include "base/Error.h"
#include "base/network/NetworkError.h"

#include <QCoreApplication>
#include <QString>

namespace vantro {

/// Why a file could not be fetched. The description says what went wrong and what to do. The part is kept and resumed
/// next time unless the kind says otherwise.
class ModelDownloadError : public Error
{
    Q_DECLARE_TR_FUNCTIONS(ModelDownloadError)
public:
    enum class Kind {
        hostUnreachable,   ///< no such name, no connection, no network
        refusedByServer,   ///< 403, 404, 500 or anything else that is not the file
        connectionBroken,  ///< closed, stalled, or the body ended early
        redirectedInLoop,  ///< or from https to http
        notTrusted,        ///< the server's certificate
        wrongContent,      ///< not the published file; nothing is kept
        notEnoughSpace,    ///< also when the disk fills up during the download
        folderNotWritable, ///< or any other write failure
        cancelled,
    };

    /// For a request without an answer.
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

/// "453.0 MiB"
QString sizeText(qint64 bytes);

} // namespace vantro
