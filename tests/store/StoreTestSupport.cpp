#include "tests/store/StoreTestSupport.h"

namespace vantro {

StoreTest::StoreTest()
{
    store.loadPersistentStores();
}

std::unique_ptr<CoreDataStack> StoreTest::openAgain()
{
    auto other = std::make_unique<CoreDataStack>(clock, path);
    other->loadPersistentStores();
    return other;
}

QString StoreTest::loadFailure(const QString& path)
{
    doubles::ManualClock clock;
    try {
        CoreDataStack(clock, path).loadPersistentStores();
        return {};
    } catch (const PersistentStoreError& error) {
        return error.localizedDescription();
    }
}

std::vector<Transcription> StoreTest::rows(const HistoryFilter& filter, int limit) const
{
    return TranscriptionFetch(store.persistentContainer(), filter).rows({}, limit);
}

QStringList StoreTest::found(const QString& search) const
{
    HistoryFilter filter;
    filter.search = search;
    QStringList texts;
    for (const Transcription& row : rows(filter))
        texts << row.transcription;
    return texts;
}

QVariant StoreTest::value(const char* statement) const
{
    return store.persistentContainer().value(QLatin1String(statement));
}

QString integrityOf(const CoreDataStack& store)
{
    const PersistentContainer& container = store.persistentContainer();
    // The full-text index against the texts; it answers nothing and fails when they differ.
    container.run(QStringLiteral("INSERT INTO TranscriptionIndex (TranscriptionIndex, rank) "
                                 "VALUES ('integrity-check', 1)"));
    return container.value(QStringLiteral("PRAGMA integrity_check")).toString();
}

} // namespace vantro
