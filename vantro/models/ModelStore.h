#pragma once

#include "base/Error.h"
#include "vantro/models/ModelCatalogue.h"
#include "vantro/models/ModelCheck.h"

#include <QFile>
#include <QString>
#include <QStringList>

namespace vantro {

/// What is known of a model without reading its file.
struct ModelStatus
{
    enum class State {
        missing,
        partial,   ///< a part has been fetched
        unchecked, ///< there is a file, its content has not been verified yet
        ready,
    };

    State state = State::missing;
    QString file; ///< empty when missing or partial
    bool isSystemCopy = false;
    qint64 bytes = 0;       ///< of the file or the part
    qint64 totalBytes = -1; ///< of the whole file where a part knows it
};

/// Where whisper model files lie and whether they can be trusted. Everything it knows lies in files, so any thread and
/// any number of processes may use it.
///
/// The user's folder is the only one that is written to; the system's folders are searched after it, so that an
/// administrator can install models once for everybody. An empty file "NAME.verified" beside a model says that its
/// content has been seen to be right; for a system copy the user's folder remembers it.
class ModelStore
{
public:
    enum class Trust { markers, contentOnly };

    /// @p userFolder is made when it is first needed.
    ModelStore(QString userFolder, QStringList systemFolders);

    /// "vantro/models" below the XDG data folder, below each of the system's data folders, and below /usr/share.
    static ModelStore standard();

    /// The file of @p model: the user's copy, else the first verified system copy, else the first system copy, else
    /// where the user's copy would stand. A model whose URL is a local file without a hash is that file.
    [[nodiscard]] QString modelFile(const TranscriptionModel& model) const;
    /// Where the user's own copy stands or would stand.
    [[nodiscard]] QString ownFile(const TranscriptionModel& model) const;
    [[nodiscard]] const QString& userFolder() const { return userFolder_; }
    /// All folders in the order in which they are searched.
    [[nodiscard]] QStringList folders() const { return QStringList(userFolder_) + systemFolders_; }

    /// Never reads a model file.
    [[nodiscard]] ModelStatus status(const TranscriptionModel& model) const;
    /// Whether @p model is downloaded and its content verified. Hashes a file that has no marker yet; the user's copy
    /// is removed with its marker when its content is wrong, a system copy is left alone. A file that cannot be read
    /// counts as not ready and stays.
    ModelCheck check(const TranscriptionModel& model, Trust trust = Trust::markers) const;
    [[nodiscard]] bool isReady(const TranscriptionModel& model) const { return check(model).isReady; }
    /// Whether check() would answer ready without hashing.
    [[nodiscard]] bool isVerified(const TranscriptionModel& model) const;
    /// Hashes the user's copy after a download and marks it when it is right; a wrong one stays, unmarked, for check().
    void markIfRight(const TranscriptionModel& model) const;

    /// Removes the user's copy, its marker and what was fetched of it; answers how many bytes that freed. Throws Error
    /// when it is being downloaded, or cannot be removed.
    qint64 remove(const TranscriptionModel& model) const;
    /// Removes what was downloaded of every model but @p keep; skips what is being downloaded. Answers the bytes freed.
    qint64 removeAllExcept(const ModelCatalogue& catalogue, const TranscriptionModel* keep) const;
    /// What the user's copies and parts take up.
    [[nodiscard]] qint64 bytesUsed(const ModelCatalogue& catalogue) const;

private:
    [[nodiscard]] QStringList candidates(const TranscriptionModel& model) const;
    [[nodiscard]] bool isOwn(const QString& path) const;
    [[nodiscard]] bool isTrusted(const QString& path) const;
    void remember(const QString& path) const;
    [[nodiscard]] QString memoryOf(const QString& systemPath) const;
    ModelCheck checkContent(const QString& path, const TranscriptionModel& model) const;
    bool removeWrongFile(const QString& path, const QFile& hashed) const;

    QString userFolder_;
    QStringList systemFolders_;
};

} // namespace vantro
