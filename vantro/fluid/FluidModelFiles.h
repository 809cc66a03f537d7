#pragma once

#include "vantro/models/TranscriptionModel.h"

#include <QString>
#include <QStringList>

namespace vantro {

/// Where the files of Parakeet models lie. A model is published in several precisions under its repository's name: the
/// smallest that is there is taken.
class FluidModelFiles
{
public:
    /// @p folders are searched in order.
    explicit FluidModelFiles(QStringList folders);

    /// The model's file, or an empty text. A model whose URL is a local file is that file.
    [[nodiscard]] QString find(const TranscriptionModel& model) const;

    /// A model for a Parakeet file that the user named; nothing when the file is of another kind.
    static std::optional<TranscriptionModel> describe(const QString& file);

private:
    QStringList folders_;
};

} // namespace vantro
