#pragma once

#include "base/Error.h"
#include "vantro/models/TranscriptionModel.h"

#include <QString>
#include <QStringList>

namespace vantro {

/// Where whisper model files lie and whether they can be trusted. Main thread.
///
/// The user's folder is the only one that is written to; the system's folders are searched after it, so that an
/// administrator can install models once for everybody.
class ModelStore
{
public:
    /// @p userFolder is made when it is first needed.
    ModelStore(QString userFolder, QStringList systemFolders);

    /// "vantro/models" below the XDG data folder, and below each of the system's data folders.
    static ModelStore standard();

    /// The file of @p model: the copy in the user's folder if there is one, else a system copy, else where the user's
    /// copy would stand. A model whose URL is a local file without a hash is that file.
    [[nodiscard]] QString modelFile(const TranscriptionModel& model) const;

    /// Whether @p model is downloaded and its content verified. Hashes the file once and then remembers the answer in a
    /// marker file beside it; a file with the wrong content is removed together with its marker.
    bool isReady(const TranscriptionModel& model);

    [[nodiscard]] const QString& userFolder() const { return userFolder_; }

private:
    bool verifyUserFile(const QString& path, const QString& marker, const QString& hash);

    QString userFolder_;
    QStringList systemFolders_;
};

/// The SHA-1 of a file as 40 lower-case hex digits, read in chunks of 1 MiB. Throws Error when it cannot be read.
QString sha1OfFile(const QString& path);

} // namespace vantro
