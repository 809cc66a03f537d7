#pragma once

#include "vantro/models/ModelStatus.h"
#include "vantro/models/TranscriptionModel.h"

#include <QString>
#include <QStringList>

#include <memory>
#include <optional>

namespace vantro {

/// Where the files of Parakeet models lie and whether they are whole. No digest of them is published: a file counts as
/// right when everything that its header announces is there. A file that was found whole is not read again until its
/// size or its time changes. Any thread.
class FluidModelFiles
{
public:
    /// @p folders are searched in order; the first is the user's own, where downloads go. See modelFolders().
    explicit FluidModelFiles(QStringList folders);

    /// The model's file, or an empty text: the container that is downloaded, else one of another precision that
    /// somebody has put there. A model whose URL is a local file is that file.
    [[nodiscard]] QString find(const TranscriptionModel& model) const;
    /// Where the user's own copy stands or would stand.
    [[nodiscard]] QString ownFile(const TranscriptionModel& model) const;
    /// A damaged file is unchecked and stays where it is.
    [[nodiscard]] ModelStatus status(const TranscriptionModel& model) const;
    /// Whether the model is there and whole. The user's copy is removed when it is not, another one is left alone.
    [[nodiscard]] ModelCheck check(const TranscriptionModel& model) const;
    /// Removes the user's copy and what was fetched of it; answers how many bytes that freed. Throws Error when it is
    /// being downloaded, or cannot be removed.
    qint64 remove(const TranscriptionModel& model) const;

    /// A model for a Parakeet file that the user named; nothing when the file is of another kind.
    static std::optional<TranscriptionModel> describe(const QString& file);

private:
    /// The files that were found whole, for all copies of this object.
    class Whole;

    [[nodiscard]] bool isOwn(const QString& path) const;
    [[nodiscard]] QString damageOf(const QString& path) const;

    QStringList folders_;
    std::shared_ptr<Whole> whole_;
};

} // namespace vantro
