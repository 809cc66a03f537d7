#pragma once

#include "base/Error.h"

class QSqlError;

namespace vantro {

/// The history could not be read or changed. The description tells which file and what the user can do.
class StoreError : public Error
{
public:
    using Error::Error;

    /// From what SQLite answered about the file @p path.
    static StoreError from(const QSqlError& error, const QString& path);
};

/// The history cannot be opened at all: another version's, damaged, locked or read-only. Nothing was changed in it. The
/// program cannot go on with it: what is dictated would not be kept.
class PersistentStoreError : public Error
{
public:
    /// "Failed to load persistent stores: " and @p description.
    explicit PersistentStoreError(const QString& description);
};

} // namespace vantro
