#pragma once

#include "base/Error.h"

#include <QDateTime>
#include <QString>
#include <QUuid>

#include <functional>
#include <span>
#include <vector>

namespace vantro {

/// A recording could not be written. The description names the file and says why.
class AudioFolderError : public Error
{
public:
    using Error::Error;
};

/// The recordings of dictations and notes: FLAC files of 16 kHz mono in a folder beside the history, one for each
/// dictation that has one, named by its ID. Only their user can read them. Any thread; every call works on the disk.
class AudioFolder
{
public:
    /// What may stay.
    struct Limits
    {
        QDateTime oldest;           ///< invalid for no limit
        qint64 bytes = 0;           ///< of all together
        bool isNoneAllowed = false; ///< everything goes
    };

    /// @p history: the path of the history's file.
    explicit AudioFolder(const QString& history);

    /// The recording of a dictation or note; empty when there is none.
    [[nodiscard]] QString file(const QUuid& id) const;
    /// Of all recordings.
    [[nodiscard]] qint64 bytes() const;
    /// Oldest first.
    [[nodiscard]] std::vector<QUuid> identities() const;
    /// Those that have to go so that the rest keeps within @p limits, oldest first.
    [[nodiscard]] std::vector<QUuid> beyond(const Limits& limits) const;

    /// @p samples: 16 kHz mono. The file is there as a whole or, when this throws AudioFolderError, not at all.
    void write(const QUuid& id, std::span<const float> samples) const;
    /// Unknown ones are ignored.
    void remove(const std::vector<QUuid>& ids) const;
    /// What is left of files that were being written when the process ended. Nobody may be writing now.
    void removeUnfinished() const;
    void removeAll() const;

private:
    [[nodiscard]] QString path(const QUuid& id) const;

    QString folder_;
};

} // namespace vantro
