#pragma once

#include "base/FileLock.h"
#include "vantro/models/ModelStatus.h"

#include <QFile>
#include <QString>

#include <optional>

namespace vantro {

/// What a server said about the file that a part belongs to, so that the rest is only asked of the very same file.
struct PartNote
{
    QString wanted;       ///< the SHA-1 of the file that is wanted
    QString etag;         ///< a strong entity tag, else empty
    QString lastModified; ///< as the server wrote it, else empty
    qint64 totalBytes = -1;

    /// What a request for the rest is made conditional on; empty when the server gave nothing to go by.
    [[nodiscard]] const QString& validator() const { return etag.isEmpty() ? lastModified : etag; }
};

/// What has been fetched of a file so far, kept in the hidden folder ".work" beside its destination until it is whole.
/// A part survives whatever ends the process; only what settle() has moved counts as the file. One thread at a time.
class PartFile
{
public:
    explicit PartFile(const QString& destination);

    /// The right to write the part and the destination; absent while somebody else has it. Makes the folders, and
    /// throws Error when they cannot be written to.
    [[nodiscard]] std::optional<FileLock> tryLock() const;

    [[nodiscard]] const QString& destination() const { return destination_; }
    /// What is there already; 0 when there is no part or nobody knows what it is a part of.
    [[nodiscard]] qint64 bytes() const;
    [[nodiscard]] std::optional<PartNote> note() const;
    void discard();
    /// For a destination that is not there.
    [[nodiscard]] ModelStatus status() const;
    /// Removes the destination and what was fetched of it; answers how many bytes that freed. Throws Error when it is
    /// being fetched, or cannot be removed.
    qint64 removeAll();

    /// Starts a new part: what was there is given up.
    void begin(const PartNote& note);
    /// Goes on at the end of the part that is there.
    void resume();
    void append(const char* data, qint64 count);
    /// Everything is written: puts it on the disk itself, and only then under its name, in one step.
    void settle();

private:
    void openAt(QIODevice::OpenMode mode);
    [[nodiscard]] QString beside(const char* extension) const;

    QString destination_;
    QString folder_;
    QFile data_;
};

} // namespace vantro
