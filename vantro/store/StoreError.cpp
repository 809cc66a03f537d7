#include "vantro/store/StoreError.h"

#include <QCoreApplication>
#include <QSqlError>

#include <sqlite3.h>

namespace vantro {

namespace {

constexpr int primaryCodeMask = 0xff;

QString explain(int code, const QString& path, const QString& detail)
{
    if (code == SQLITE_IOERR_WRITE)
        return QCoreApplication::translate("StoreError",
                                           "Nothing more can be written to the history %1: is a quota used up?")
            .arg(path);
    switch (code & primaryCodeMask) {
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return QCoreApplication::translate(
                   "StoreError", "The history %1 is locked by another program: end that program and try again")
            .arg(path);
    case SQLITE_FULL:
        return QCoreApplication::translate("StoreError",
                                           "There is no space left on the disk for the history %1: free some space")
            .arg(path);
    case SQLITE_READONLY:
    case SQLITE_PERM:
    case SQLITE_AUTH:
        return QCoreApplication::translate("StoreError", "The history %1 cannot be written to").arg(path);
    case SQLITE_NOTADB:
    case SQLITE_CORRUPT:
        return QCoreApplication::translate(
                   "StoreError", "The history %1 is damaged (%2) and was left unchanged: replace it with a backup or "
                                 "move it away")
            .arg(path, detail);
    case SQLITE_CANTOPEN:
        return QCoreApplication::translate(
                   "StoreError", "The history %1 cannot be opened: check that you can write to its folder and files")
            .arg(path);
    default:
        return QCoreApplication::translate("StoreError", "The history %1 cannot be used: %2").arg(path, detail);
    }
}

} // namespace

StoreError StoreError::from(const QSqlError& error, const QString& path)
{
    const int code = error.nativeErrorCode().toInt();
    // databaseText() is SQLite's message; it is empty when the file cannot be opened.
    const QString detail = error.databaseText().isEmpty() ? error.driverText() : error.databaseText();
    return StoreError(explain(code, path, detail));
}

PersistentStoreError::PersistentStoreError(const QString& description)
    : Error(QCoreApplication::translate("StoreError", "Failed to load persistent stores: ") + description)
{
}

} // namespace vantro
