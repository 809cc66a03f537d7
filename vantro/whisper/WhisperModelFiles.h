#pragma once

#include "vantro/models/ModelStatus.h"
#include "vantro/models/TranscriptionModel.h"

#include <QFile>
#include <QString>
#include <QStringList>

namespace vantro {

/// Locates and verifies whisper model files. All state is on disk, so any thread and any number of processes may use
/// it.
///
/// An empty file "NAME.verified" beside a model marks its content as verified; for system copies, the mark is kept in
/// the user's folder.
class WhisperModelFiles
{
public:
    /// @p folders are searched in order; the first is the user's own, created on demand. See modelFolders().
    explicit WhisperModelFiles(QStringList folders);

    /// The file of @p model: the user's copy, else the first verified system copy, else the first system copy, else the
    /// path for a user's copy. A model without a hash whose URL is a local file is that file.
    [[nodiscard]] QString find(const TranscriptionModel& model) const;
    /// The path of the user's copy, whether it exists or not.
    [[nodiscard]] QString ownFile(const TranscriptionModel& model) const;

    /// Never reads a model file.
    [[nodiscard]] ModelStatus status(const TranscriptionModel& model) const;
    /// Whether @p model is present and verified. Hashes files without a marker; removes a wrong user's copy and its
    /// marker, but never a system copy. An unreadable file counts as not ready and is kept.
    ModelCheck check(const TranscriptionModel& model, Trust trust = Trust::markers) const;
    [[nodiscard]] bool isReady(const TranscriptionModel& model) const { return check(model).isReady; }
    /// Hashes the user's copy after a download and marks it if valid; a wrong one is kept unmarked for check().
    void markIfRight(const TranscriptionModel& model) const;

    /// Removes the user's copy, its marker and any partial download; returns the number of bytes freed. Throws Error
    /// while it is being downloaded or when it cannot be removed.
    qint64 remove(const TranscriptionModel& model) const;

private:
    [[nodiscard]] QStringList candidates(const TranscriptionModel& model) const;
    [[nodiscard]] bool isOwn(const QString& path) const;
    [[nodiscard]] bool isTrusted(const QString& path) const;
    void remember(const QString& path) const;
    [[nodiscard]] QString memoryOf(const QString& systemPath) const;
    ModelCheck checkContent(const QString& path, const TranscriptionModel& model) const;
    bool removeWrongFile(const QString& path, const QFile& hashed) const;

    QStringList folders_;
};

} // namespace vantro
