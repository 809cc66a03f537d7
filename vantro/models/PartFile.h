#pragma once

#include "base/FileLock.h"
#include "vantro/models/ModelStatus.h"

#include <QFile>
#include <QString>

#include <optional>

namespace vantro {

/// What the server said about a part's file, so that only the same file is resumed.
struct PartNote
{
    QString wanted;       ///< identifies the wanted content; TransferRequest::sha1
    QString etag;         ///< strong entity tag, or empty
    QString lastModified; ///< as sent by the server, or empty
    qint64 totalBytes = -1;

    /// For If-Range; empty if the server sent neither.
    [[nodiscard]] const QString& validator() const { return etag.isEmpty() ? lastModified : etag; }
};

/// The part of a file that has been fetched so far, kept in the hidden folder ".work" beside its destination. It
/// survives crashes; settle() moves it to the destination. One thread at a time.
class PartFile
{
public:
    explicit PartFile(const QString& destination);

    /// Locks the part and the destination; nullopt while somebody else holds the lock. Creates the folders and throws
    /// Error when they are not writable.
    [[nodiscard]] std::optional<FileLock> tryLock() const;

    [[nodiscard]] const QString& destination() const { return destination_; }
    /// The file that has been fetched so far.
    [[nodiscard]] QString dataPath() const { return data_.fileName(); }
    /// Size of the part; 0 if there is none or its note is missing.
    [[nodiscard]] qint64 bytes() const;
    [[nodiscard]] std::optional<PartNote> note() const;
    void discard();
    /// For a destination that does not exist.
    [[nodiscard]] ModelStatus status() const;
    /// Removes the destination and the part; returns the number of bytes freed. Throws Error while it is being fetched
    /// or when it cannot be removed.
    qint64 removeAll();

    /// Starts a new part, discarding the old one.
    void begin(const PartNote& note);
    /// Continues at the end of the existing part.
    void resume();
    void append(const char* data, qint64 count);
    /// Syncs the complete part to disk, then renames it to the destination atomically.
    void settle();

private:
    void openAt(QIODevice::OpenMode mode);
    [[nodiscard]] QString beside(const char* extension) const;

    QString destination_;
    QString folder_;
    QFile data_;
};

} // namespace vantro
