#pragma once

#include "vantro/models/ModelStatus.h"
#include "vantro/models/TranscriptionModel.h"

#include <QFile>
#include <QString>
#include <QStringList>

namespace vantro {

/// Where whisper model files lie and whether they can be trusted. Everything it knows lies in files, so any thread and
/// any number of processes may use it.
///
/// An empty file "NAME.verified" beside a model says that its content has been seen to be right; for a system copy the
/// user's folder remembers it.
class WhisperModelFiles
{
public:
    /// @p folders are searched in order; the first is the user's own, made when it is first needed. See modelFolders().
    explicit WhisperModelFiles(QStringList folders);

    /// The file of @p model: the user's copy, else the first verified system copy, else the first system copy, else
    /// where the user's copy would stand. A model whose URL is a local file without a hash is that file.
    [[nodiscard]] QString find(const TranscriptionModel& model) const;
    /// Where the user's own copy stands or would stand.
    [[nodiscard]] QString ownFile(const TranscriptionModel& model) const;

    /// Never reads a model file.
    [[nodiscard]] ModelStatus status(const TranscriptionModel& model) const;
    /// Whether @p model is downloaded and its content verified. Hashes a file that has no marker yet; the user's copy
    /// is removed with its marker when its content is wrong, a system copy is left alone. A file that cannot be read
    /// counts as not ready and stays.
    ModelCheck check(const TranscriptionModel& model, Trust trust = Trust::markers) const;
    [[nodiscard]] bool isReady(const TranscriptionModel& model) const { return check(model).isReady; }
    /// Hashes the user's copy after a download and marks it when it is right; a wrong one stays, unmarked, for check().
    void markIfRight(const TranscriptionModel& model) const;

    /// Removes the user's copy, its marker and what was fetched of it; answers how many bytes that freed. Throws Error
    /// when it is being downloaded, or cannot be removed.
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
