#pragma once

#include "vantro/models/ModelStatus.h"
#include "vantro/models/TranscriptionModel.h"

#include <QString>
#include <QStringList>

#include <memory>
#include <optional>

namespace vantro {

/// Locates and checks Parakeet model files. No digests are published, so a file is accepted when it contains everything
/// that its header announces. A checked file is not read again until its size or modification time changes. Any thread.
class FluidModelFiles
{
public:
    /// @p folders are searched in order; downloads go to the first, the user's own. See modelFolders().
    explicit FluidModelFiles(QStringList folders);

    /// The model's file, or an empty string: the published container, else one with another precision. A model whose
    /// URL is a local file is that file.
    [[nodiscard]] QString find(const TranscriptionModel& model) const;
    /// The path of the user's copy, whether it exists or not.
    [[nodiscard]] QString ownFile(const TranscriptionModel& model) const;
    /// Reports a damaged file as unchecked and keeps it.
    [[nodiscard]] ModelStatus status(const TranscriptionModel& model) const;
    /// Whether the model is present and complete. Removes the user's copy if it is damaged, never another one.
    [[nodiscard]] ModelCheck check(const TranscriptionModel& model) const;
    /// Removes the user's copy and any partial download; returns the number of bytes freed. Throws Error while it is
    /// being downloaded or when it cannot be removed.
    qint64 remove(const TranscriptionModel& model) const;

    /// A model for the user's Parakeet file; nullopt for any other file.
    static std::optional<TranscriptionModel> describe(const QString& file);

private:
    /// The files known to be complete, shared by all copies of this object.
    class Whole;

    [[nodiscard]] bool isOwn(const QString& path) const;
    [[nodiscard]] QString damageOf(const QString& path) const;

    QStringList folders_;
    std::shared_ptr<Whole> whole_;
};

} // namespace vantro
