#include "vantro/store/TranscriptionFetch.h"

#include "vantro/store/SearchText.h"

namespace vantro {

namespace {

constexpr qint64 keysPerMillisecond = 1000;

} // namespace

TranscriptionFetch::TranscriptionFetch(const PersistentContainer& container, const HistoryFilter& filter)
    : container_(container)
    , from_(QStringLiteral("Transcription t"))
    , key_(QStringLiteral("t.pk"))
{
    const auto place = [this](const QVariant& value) {
        values_ << value;
        return QStringLiteral("?%1").arg(values_.size());
    };
    const SearchQuery query(filter.search);
    if (!query.match.isEmpty()) {
        // In this order and with the index's rowid, results come newest first without sorting.
        from_ = QStringLiteral("TranscriptionIndex i CROSS JOIN Transcription t ON t.pk = i.rowid");
        key_ = QStringLiteral("i.rowid");
        conditions_ << QStringLiteral("TranscriptionIndex MATCH ") + place(query.match);
    }
    for (const QString& literal : query.literals)
        conditions_ << QStringLiteral("(instr(t.transcription, %1) OR instr(t.formatted, %1))").arg(place(literal));
    if (filter.mode)
        conditions_ << QStringLiteral("t.processingMode = ") + place(rawValue(*filter.mode));
    if (filter.isUnrewritten)
        conditions_ << QStringLiteral("t.processingMode NOT IN ('Normal', 'Notes') AND "
                                      "ifnull(t.formatted, '') = ''");
    if (filter.since.isValid())
        conditions_ << key_ + QStringLiteral(" >= ") + place(filter.since.toMSecsSinceEpoch() * keysPerMillisecond);
}

std::vector<Transcription> TranscriptionFetch::rows(FetchRange range, int limit) const
{
    StoreQuery query =
        run(QStringLiteral("t.pk, t.id, t.created_at, t.processingMode, t.transcription, t.formatted, t.setAside, "
                           "t.setAsideReason"),
            range, limit);
    std::vector<Transcription> result;
    while (query.next())
        result.push_back(transcriptionFrom(query));
    return result;
}

std::vector<TranscriptionExcerpt> TranscriptionFetch::excerpts(FetchRange range, int limit) const
{
    StoreQuery query = run(QStringLiteral("t.pk, t.id, t.created_at, t.processingMode, "
                                          "substr(iif(t.formatted <> '', t.formatted, t.transcription), 1, %1), "
                                          "ifnull(t.formatted <> '', 0)")
                               .arg(excerptLength),
                           range, limit);
    std::vector<TranscriptionExcerpt> result;
    while (query.next())
        result.push_back({query.value(0).toLongLong(), QUuid(query.value(1).toString()), dateFromStored(query.value(2)),
                          query.value(3).toString(), query.value(4).toString(), query.value(5).toBool()});
    return result;
}

int TranscriptionFetch::count(FetchRange range) const
{
    StoreQuery query = run(QStringLiteral("count(*)"), range, std::nullopt);
    return query.next() ? query.value(0).toInt() : 0;
}

std::vector<QUuid> TranscriptionFetch::identities() const
{
    StoreQuery query = run(QStringLiteral("t.id"), {}, std::nullopt);
    std::vector<QUuid> result;
    while (query.next())
        result.emplace_back(query.value(0).toString());
    return result;
}

StoreQuery TranscriptionFetch::run(const QString& columns, FetchRange range, std::optional<int> limit) const
{
    QVariantList values = values_;
    const auto place = [&values](const QVariant& value) {
        values << value;
        return QStringLiteral("?%1").arg(values.size());
    };
    QStringList conditions = conditions_;
    conditions << key_ + QStringLiteral(" <= ") + place(range.newest)
               << key_ + QStringLiteral(" >= ") + place(range.oldest);
    QString statement =
        QStringLiteral("SELECT %1 FROM %2 WHERE %3").arg(columns, from_, conditions.join(QStringLiteral(" AND ")));
    if (limit)
        statement += QStringLiteral(" ORDER BY %1 DESC LIMIT %2").arg(key_, place(*limit));
    return container_.run(statement, values);
}

Transcription transcriptionFrom(const StoreQuery& query)
{
    return {query.value(0).toLongLong(), QUuid(query.value(1).toString()), dateFromStored(query.value(2)),
            query.value(3).toString(),   query.value(4).toString(),        query.value(5).toString(),
            query.value(6).toString(),   query.value(7).toString()};
}

QVariant storedDate(const QDateTime& date)
{
    return date.isValid() ? QVariant(date.toMSecsSinceEpoch()) : QVariant();
}

QDateTime dateFromStored(const QVariant& value)
{
    return value.isNull() ? QDateTime() : QDateTime::fromMSecsSinceEpoch(value.toLongLong());
}

QString storedIdentity(const QUuid& id)
{
    return id.toString(QUuid::WithoutBraces);
}

} // namespace vantro
