#pragma once

#include "vantro/store/StoreError.h"

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
#include <QVariant>

#include <chrono>

namespace vantro {

/// What a statement answers. It keeps the write-ahead log from being emptied, so it must not outlive the task at hand.
class StoreQuery
{
public:
    StoreQuery(QSqlQuery query, QString path);

    /// Goes on to the first or the next row; false behind the last one. A change is stored for certain only then.
    /// Throws StoreError.
    bool next();
    [[nodiscard]] QVariant value(int column) const { return query_.value(column); }

private:
    QSqlQuery query_;
    QString path_;
};

/// The connection to the history's SQLite file: write-ahead log, and a commit is on the disk when it returns. Main
/// thread only. Every process may have its own; they wait busyTimeout for each other.
class PersistentContainer
{
public:
    static constexpr std::chrono::milliseconds busyTimeout{2000};

    /// @p path: the database file; empty for a store in memory.
    explicit PersistentContainer(QString path);
    ~PersistentContainer();
    PersistentContainer(const PersistentContainer&) = delete;
    PersistentContainer& operator=(const PersistentContainer&) = delete;

    /// Opens the file, which is made, readable by its owner only, when there is none, and brings its schema up to date.
    /// Throws PersistentStoreError; a file that is not understood is left as it is.
    void load();

    [[nodiscard]] const QString& path() const { return path_; }
    [[nodiscard]] bool isInMemory() const { return path_.isEmpty(); }

    /// Runs one statement with values for ?1, ?2, ... Throws StoreError.
    StoreQuery run(const QString& statement, const QVariantList& values = {}) const;
    /// The first column of the first row; invalid without a row. Throws StoreError.
    QVariant value(const QString& statement, const QVariantList& values = {}) const;

    /// As an expression, the first key of @p entity that is free from the millisecond ?1 on.
    [[nodiscard]] static QString freeKey(const QString& entity);

    /// All changes of its lifetime or none: taken back unless commit() was called.
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
    };

private:
    void makeFile() const;
    void open();

    QString path_;
    QString connection_;
    QSqlDatabase database_;
};

/// How a text is bound so that an empty one is stored as one: Qt knows two empty texts, and SQLite is told that one of
/// them is a missing value.
[[nodiscard]] QString presentText(const QString& text);

} // namespace vantro
