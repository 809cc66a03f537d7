#pragma once

namespace vantro {

class PersistentContainer;

/// The tables of the history and how files of earlier versions become files of this one. The file's version is its
/// PRAGMA user_version; docs/decisions/history-store.md describes the tables.
class StoreSchema
{
public:
    static constexpr int currentVersion = 2;

    /// Throws StoreError unless the file is empty or a history of this or an earlier version. Only reads.
    static void check(const PersistentContainer& container);
    /// Brings the file to the current version in one transaction. Throws StoreError; the file is then as it was.
    static void migrate(const PersistentContainer& container);
};

} // namespace vantro
