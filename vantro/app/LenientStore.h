#pragma once

#include "vantro/ai/TranscriptionStoring.h"

#include <optional>

namespace vantro {

/// The store as dictations see it: a text that cannot be kept, on a full disk for example, is delivered all the same.
/// A note is meant for the store alone: there a failure stays one. Main thread.
class LenientStore final : public TranscriptionStoring
{
public:
    /// @p store must outlive this object.
    explicit LenientStore(TranscriptionStoring& store) : store_(store) {}

    /// Why texts are not kept. Told once: again only when something was stored in between.
    [[nodiscard]] std::optional<QString> takeProblem();

    /// Whether the latest text is in the store. One that is not and is not delivered either is nowhere.
    [[nodiscard]] bool hasLatest() const { return hasLatest_; }

    void saveTranscription(const QString& transcription, const QString& formatted, ProcessingMode mode) override;
    /// A null identity when it could not be stored.
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
