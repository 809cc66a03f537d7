#pragma once

namespace vantro {

class PersistentContainer;

/// The history's tables and the migration from earlier versions. The file's version is its PRAGMA user_version;
/// docs/decisions/history-store.md describes the tables.
class StoreSchema
{
public:
    static constexpr int currentVersion = 3;

    /// Throws StoreError unless the file is empty or a history of this or an earlier version. Read-only.
    static void check(const PersistentContainer& container);
    /// Migrates the file to the current version in one transaction. Throws StoreError without changing it.
    static void migrate(const PersistentContainer& container);
};

} // namespace vantro
