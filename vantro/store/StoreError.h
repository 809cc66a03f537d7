#pragma once

#include "base/Error.h"

class QSqlError;

namespace vantro {

/// The history could not be read or changed. The description names the file and says what to do.
class StoreError : public Error
{
public:
    using Error::Error;

    /// Translates an SQLite error for the file @p path.
    static StoreError from(const QSqlError& error, const QString& path);
};

/// The history cannot be opened: newer version, damaged, locked or read-only. It has not been changed. The program must
/// not continue, because dictations would not be stored.
class PersistentStoreError : public Error
{
public:
    /// "Failed to load persistent stores: " and @p description.
    explicit PersistentStoreError(const QString& description);
};

} // namespace vantro
