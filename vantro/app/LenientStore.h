#pragma once

#include "vantro/ai/TranscriptionStoring.h"

#include <optional>

namespace vantro {

/// The store as dictations see it: a text that cannot be stored, for example because the disk is full, is still
/// delivered. Failing to store a note remains an error, since it goes nowhere else. Main thread.
class LenientStore final : public TranscriptionStoring
{
public:
    /// @p store must outlive this object.
    explicit LenientStore(TranscriptionStoring& store) : store_(store) {}

    /// Why texts are not being stored. Returned once per series of failures.
    [[nodiscard]] std::optional<QString> takeProblem();

    /// A text is about to be stored, which may fail before it gets here.
    void expectText() { hasLatest_ = false; }
    /// Whether the latest text was stored.
    [[nodiscard]] bool hasLatest() const { return hasLatest_; }

    void saveTranscription(const QString& transcription, const QString& formatted, ProcessingMode mode) override;
    /// Returns a null id when it could not be stored.
    QUuid saveTranscription(const QString& transcription, ProcessingMode mode) override;
    void updateFormatted(const QUuid& id, const QString& formatted) override;

    QCoro::Task<> addNote(QString transcription) override;
    QCoro::Task<> summarizeToday(std::shared_ptr<FormatRequestServicing> service) override;

private:
    template <typename Save>
    void attempt(const Save& save);

    TranscriptionStoring& store_;
    std::optional<QString> problem_;
    bool isFailing_ = false;
    bool hasLatest_ = true;
};

} // namespace vantro
