#pragma once

#include "vantro/store/StoreError.h"

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
#include <QVariant>

#include <chrono>
#include <functional>
#include <optional>
#include <utility>

namespace vantro {

/// A statement's result. Keep it short-lived: it blocks checkpoints of the write-ahead log.
class StoreQuery
{
public:
    StoreQuery(QSqlQuery query, QString path);

    /// Moves to the next row; returns false after the last one. Only then is a change certainly stored. Throws
    /// StoreError.
    bool next();
    [[nodiscard]] QVariant value(int column) const { return query_.value(column); }

private:
    QSqlQuery query_;
    QString path_;
};

/// Tells one file from another that has the same name.
struct FileIdentity
{
    quint64 device = 0;
    quint64 number = 0;

    bool operator==(const FileIdentity&) const = default;
};

/// The connection to the history's SQLite file, in WAL mode with durable commits. Main thread only. Other processes may
/// have their own; they wait up to busyTimeout for each other. A file that has been deleted or replaced meanwhile is
/// made anew or opened before the next statement.
class PersistentContainer
{
public:
    static constexpr std::chrono::milliseconds busyTimeout{2000};

    /// @p path: the database file; empty for an in-memory store.
    explicit PersistentContainer(QString path);
    ~PersistentContainer();
    PersistentContainer(const PersistentContainer&) = delete;
    PersistentContainer& operator=(const PersistentContainer&) = delete;

    /// Opens the file, creating it with mode 0600 if necessary, and migrates its schema. Throws PersistentStoreError
    /// and leaves an unknown file unchanged.
    void load();
    /// @p action: called, from within whatever statement finds it, when the file is another one now.
    void onReplaced(std::function<void()> action) { replaced_ = std::move(action); }

    [[nodiscard]] const QString& path() const { return path_; }
    [[nodiscard]] bool isInMemory() const { return path_.isEmpty(); }

    /// Runs one statement with values for ?1, ?2, ... Throws StoreError.
    StoreQuery run(const QString& statement, const QVariantList& values = {}) const;
    /// Returns the first column of the first row, invalid without a row. Throws StoreError.
    QVariant value(const QString& statement, const QVariantList& values = {}) const;

    /// SQL expression for the first unused key of @p entity from the millisecond ?1 on.
    [[nodiscard]] static QString freeKey(const QString& entity);

    /// Rolls back on destruction unless commit() was called.
    class Transaction
    {
    public:
        /// Waits for other writers. Throws StoreError.
        explicit Transaction(const PersistentContainer& container);
        ~Transaction();
        Transaction(const Transaction&) = delete;
        Transaction& operator=(const Transaction&) = delete;

        /// Throws StoreError.
        void commit();

    private:
        const PersistentContainer& container_;
        bool isOpen_ = true;
        bool wasFixed_ = false;
    };

private:
    void makeFile() const;
    void open() const;
    void configure() const;
    void follow() const;
    [[nodiscard]] bool takeLogIn() const;
    void leaveFormerFile() const;

    QString path_;
    QString connection_;
    std::function<void()> replaced_; ///< may be empty
    mutable QSqlDatabase database_;
    mutable std::optional<FileIdentity> file_; ///< the open one; none before load() and in memory
    mutable std::optional<FileIdentity> log_;  ///< its write-ahead log
    mutable bool isFixed_ = false;             ///< within a transaction, and while it is opened
};

/// Makes a null text empty, because Qt binds null strings as NULL.
[[nodiscard]] QString presentText(const QString& text);

} // namespace vantro
