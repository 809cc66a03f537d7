#pragma once

#include "vantro/ai/ProcessingMode.h"
#include "vantro/store/Entities.h"
#include "vantro/store/PersistentContainer.h"

#include <QStringList>

#include <optional>
#include <vector>

namespace vantro {

/// Which dictations are wanted.
struct HistoryFilter
{
    QString search; ///< as it was typed, see SearchQuery
    std::optional<ProcessingMode> mode;
    QDateTime since; ///< invalid: from the beginning

    bool operator==(const HistoryFilter&) const = default;
};

/// What a list shows of a dictation.
struct TranscriptionExcerpt
{
    qint64 objectID = 0;
    QUuid id;
    QDateTime created_at;
    QString processingMode;
    QString text; ///< the beginning of Transcription::text()
    bool isFormatted = false;
};

/// Reads the dictations that pass a filter, newest first, a stretch at a time. All operations throw StoreError.
class TranscriptionFetch
{
public:
    /// Characters of an excerpt.
    static constexpr int excerptLength = 240;

    TranscriptionFetch(const PersistentContainer& container, const HistoryFilter& filter);

    [[nodiscard]] std::vector<Transcription> rows(FetchRange range, int limit) const;
    [[nodiscard]] std::vector<TranscriptionExcerpt> excerpts(FetchRange range, int limit) const;
    [[nodiscard]] int count(FetchRange range) const;

private:
    /// Without a @p limit in no order.
    [[nodiscard]] StoreQuery run(const QString& columns, FetchRange range, std::optional<int> limit) const;

    const PersistentContainer& container_;
    QString from_;
    QString key_;
    QStringList conditions_;
    QVariantList values_;
};

/// The stored form of a date: milliseconds since 1970; a missing one is a missing value.
QVariant storedDate(const QDateTime& date);
QDateTime dateFromStored(const QVariant& value);
/// The stored form of an identity: small letters, without braces.
QString storedIdentity(const QUuid& id);

} // namespace vantro
