#pragma once

#include "vantro/ai/TranscriptionStoring.h"

#include <functional>
#include <optional>
#include <utility>

namespace vantro {

/// The store as dictations see it: a text that cannot be stored, for example because the disk is full, is still
/// delivered, as is one that the user does not want to be kept. Failing to store a note remains an error, since it goes
/// nowhere else. Main thread.
class LenientStore final : public TranscriptionStoring
{
public:
    /// @p store must outlive this object. @p isKeeping: whether dictations are to be stored; asked for each one.
    explicit LenientStore(
        TranscriptionStoring& store, std::function<bool()> isKeeping = [] { return true; })
        : store_(store)
        , isKeeping_(std::move(isKeeping))
    {
    }

    /// Why texts are not being stored. Returned once per series of failures.
    [[nodiscard]] std::optional<QString> takeProblem();

    /// A text is about to be stored, which may fail before it gets here. @p stored: called with its ID once it is; may
    /// be empty.
    void expectText(std::function<void(const QUuid&)> stored = {})
    {
        hasLatest_ = false;
        stored_ = std::move(stored);
    }
    /// Whether the latest text was stored.
    [[nodiscard]] bool hasLatest() const { return hasLatest_; }

    // Both return a null ID if the text could not or was not to be stored.
    QUuid saveTranscription(const QString& transcription, const QString& formatted, ProcessingMode mode) override;
    QUuid saveTranscription(const QString& transcription, ProcessingMode mode) override;
    void updateFormatted(const QUuid& id, const QString& formatted) override;
    void setAside(const QUuid& id, const QString& answer, const QString& reason) override;

    QCoro::Task<QUuid> addNote(QString transcription) override;
    QCoro::Task<> summarizeToday(std::shared_ptr<FormatRequestServicing> service) override;

private:
    template <typename Save>
    void attempt(const Save& save);
    template <typename Save>
    QUuid keep(const Save& save);

    TranscriptionStoring& store_;
    std::function<bool()> isKeeping_;
    std::function<void(const QUuid&)> stored_; ///< for the next text; may be empty
    std::optional<QString> problem_;
    bool isFailing_ = false;
    bool hasLatest_ = true;
};

} // namespace vantro
