#pragma once

#include "base/SerialExecutor.h"
#include "vantro/store/CoreDataStack.h"
#include "vantro/store/TranscriptionExport.h"

#include <QObject>
#include <qcoro/qcorotask.h>

#include <functional>
#include <memory>
#include <vector>

namespace vantro {

/// Work on many dictations at once. It is done in pieces, on a thread and a connection of its own, so that the main
/// thread goes on and a dictation that is to be stored meanwhile waits for one piece at most. Main thread.
class HistoryJobs final : public QObject
{
    Q_OBJECT
public:
    /// Dictations in a piece.
    static constexpr std::size_t pieceRows = 250;

    /// Called after each piece with the number of dictations that are done.
    using Progress = std::function<void(std::size_t done)>;

    /// What a job has deleted until it was done, or failed.
    struct Removed
    {
        Removed() = default;

        std::vector<Transcription> rows;
        QString problem; ///< empty when all are deleted
    };

    /// @p store, a file, must be loaded when a job begins, and outlive this object.
    explicit HistoryJobs(CoreDataStack& store);
    ~HistoryJobs() override;

    /// Newest first. Unknown ones are ignored.
    [[nodiscard]] QCoro::Task<Removed> remove(std::vector<QUuid> ids, Progress progress);
    /// Brings back what was removed. Throws StoreError.
    [[nodiscard]] QCoro::Task<> restore(std::vector<Transcription> rows, Progress progress);
    /// Deletes all dictations that are older than @p moment, with their recordings; they cannot be had back. Returns
    /// how many. Throws StoreError.
    [[nodiscard]] QCoro::Task<int> removeBefore(QDateTime moment);
    /// Deletes all dictations, recordings and notes, and takes what was written of them from the disk. Throws
    /// StoreError.
    [[nodiscard]] QCoro::Task<> clear();

    /// Oldest first. Throws StoreError.
    [[nodiscard]] QCoro::Task<std::vector<Transcription>> read(std::vector<QUuid> ids);
    /// Oldest first, in the format of the file's name. Throws Error.
    [[nodiscard]] QCoro::Task<> exportTo(QString path, std::vector<QUuid> ids);

private:
    template <typename Work>
    auto onStore(Work work);

    CoreDataStack& store_;
    std::shared_ptr<void> alive_ = std::make_shared<int>(); ///< asked by a job that comes back after the end
    SerialExecutor executor_{QStringLiteral("history jobs")};
};

} // namespace vantro
