#include "vantro/store/PersistentContainer.h"

#include "base/Logger.h"
#include "vantro/store/StoreSchema.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QScopedValueRollback>
#include <QSqlError>
#include <QUuid>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

namespace vantro {

namespace {

const auto driverName = QStringLiteral("QSQLITE");

/// Converts numbered placeholders, which Qt does not support, to positional ones.
struct PositionalStatement
{
    PositionalStatement(const QString& statement, const QVariantList& numbered)
    {
        static const QRegularExpression placeholder(QStringLiteral("\\?(\\d+)"));
        qsizetype end = 0;
        for (const QRegularExpressionMatch& match : placeholder.globalMatch(statement)) {
            text += QStringView(statement).mid(end, match.capturedStart() - end);
            text += QLatin1Char('?');
            values << numbered.value(match.capturedView(1).toInt() - 1);
            end = match.capturedEnd();
        }
        text += QStringView(statement).mid(end);
    }

    QString text;
    QVariantList values;
};

std::optional<FileIdentity> identityOf(const QString& path)
{
    struct stat status = {};
    if (::stat(QFile::encodeName(path).constData(), &status) != 0)
        return std::nullopt;
    return FileIdentity{status.st_dev, status.st_ino};
}

QString logOf(const QString& path)
{
    return path + QStringLiteral("-wal");
}

} // namespace

PersistentContainer::PersistentContainer(QString path)
    : path_(std::move(path))
    , connection_(QUuid::createUuid().toString())
{
}

PersistentContainer::~PersistentContainer()
{
    database_ = {};
    QSqlDatabase::removeDatabase(connection_);
}

void PersistentContainer::load()
{
    try {
        open();
    } catch (const StoreError& error) {
        throw PersistentStoreError(error.localizedDescription());
    }
}

void PersistentContainer::makeFile() const
{
    const QByteArray name = QFile::encodeName(path_);
    const QString folder = QFileInfo(path_).path();
    if (!QDir().mkpath(folder))
        throw StoreError(QCoreApplication::translate("StoreError", "The folder %1 cannot be created").arg(folder));
    const int made = ::open(name.constData(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (made >= 0) {
        ::close(made);
        return;
    }
    // Not opened here: closing the file would drop the locks of this process's other connections (POSIX locks).
    if (errno != EEXIST || ::access(name.constData(), R_OK | W_OK) != 0)
        throw StoreError(QCoreApplication::translate("StoreError", "The history %1 cannot be written to: %2")
                             .arg(path_, qt_error_string(errno)));
    QFile::setPermissions(path_, QFileDevice::ReadOwner | QFileDevice::WriteOwner);
}

void PersistentContainer::open() const
{
    const QScopedValueRollback fixed(isFixed_, true);
    if (!isInMemory()) {
        makeFile();
        file_ = identityOf(path_);
    }
    configure();
    if (!database_.open())
        throw StoreError::from(database_.lastError(), path_);
    // Before any write.
    StoreSchema::check(*this);
    run(QStringLiteral("PRAGMA journal_mode = WAL"));
    run(QStringLiteral("PRAGMA synchronous = FULL"));
    run(QStringLiteral("PRAGMA foreign_keys = ON"));
    StoreSchema::migrate(*this);
    log_ = identityOf(logOf(path_));
}

void PersistentContainer::configure() const
{
    if (database_.isValid())
        return;
    if (!QSqlDatabase::isDriverAvailable(driverName))
        throw StoreError(QCoreApplication::translate(
            "StoreError", "Qt's SQLite driver is missing: install the package libqt6sql6-sqlite"));
    database_ = QSqlDatabase::addDatabase(driverName, connection_);
    database_.setConnectOptions(QStringLiteral("QSQLITE_BUSY_TIMEOUT=%1").arg(busyTimeout.count()));
    database_.setDatabaseName(isInMemory() ? QStringLiteral(":memory:") : path_);
}

/// SQLite would go on with a file that nobody finds any more.
void PersistentContainer::follow() const
{
    if (!file_ || isFixed_ || (identityOf(path_) == file_ && database_.isOpen()))
        return;
    if (database_.isOpen())
        leaveFormerFile();
    try {
        open();
    } catch (const StoreError&) {
        database_.close(); // tried again by the next statement
        throw;
    }
    if (replaced_)
        replaced_();
}

/// Returns whether the file has all of its log, which others may be reading.
bool PersistentContainer::takeLogIn() const
{
    QSqlQuery query(database_);
    return query.exec(QStringLiteral("PRAGMA wal_checkpoint(TRUNCATE)")) && query.next() && query.value(0).toInt() == 0;
}

/// It may have been moved, and is left whole. Its log would be taken for the next file's.
void PersistentContainer::leaveFormerFile() const
{
    Logger("PersistentContainer")
        .error(QCoreApplication::translate(
                   "StoreError",
                   "The history %1 has been deleted, moved or replaced while it was in use. What was only in "
                   "that file is gone with it; what follows goes into the file that is there now")
                   .arg(path_));
    const bool isItsLog = log_ && identityOf(logOf(path_)) == log_;
    const bool isWhole = takeLogIn();
    database_.close();
    if (!isItsLog)
        return;
    if (isWhole)
        QFile::remove(logOf(path_));
    else
        QFile::rename(logOf(path_), logOf(path_ + QStringLiteral(".former")));
    QFile::remove(path_ + QStringLiteral("-shm"));
}

StoreQuery PersistentContainer::run(const QString& statement, const QVariantList& values) const
{
    follow();
    const PositionalStatement positional(statement, values);
    QSqlQuery query(database_);
    query.setForwardOnly(true);
    bool isDone = query.prepare(positional.text);
    if (isDone) {
        for (const QVariant& value : positional.values)
            query.addBindValue(value);
        isDone = query.exec();
    }
    if (!isDone)
        throw StoreError::from(query.lastError(), path_);
    return {std::move(query), path_};
}

QVariant PersistentContainer::value(const QString& statement, const QVariantList& values) const
{
    StoreQuery query = run(statement, values);
    if (!query.next())
        return {};
    QVariant first = query.value(0);
    // A statement with RETURNING commits after its last row.
    while (query.next()) {
    }
    return first;
}

QString PersistentContainer::freeKey(const QString& entity)
{
    return QStringLiteral("(SELECT CASE WHEN NOT EXISTS (SELECT 1 FROM %1 WHERE pk = ?1 * 1000) THEN ?1 * 1000 ELSE "
                          "(SELECT e.pk + 1 FROM %1 e WHERE e.pk >= ?1 * 1000 AND NOT EXISTS "
                          "(SELECT 1 FROM %1 WHERE pk = e.pk + 1) ORDER BY e.pk LIMIT 1) END)")
        .arg(entity);
}

StoreQuery::StoreQuery(QSqlQuery query, QString path) : query_(std::move(query)), path_(std::move(path)) {}

bool StoreQuery::next()
{
    if (query_.next())
        return true;
    if (query_.lastError().isValid())
        throw StoreError::from(query_.lastError(), path_);
    return false;
}

PersistentContainer::Transaction::Transaction(const PersistentContainer& container) : container_(container)
{
    container_.run(QStringLiteral("BEGIN IMMEDIATE"));
    wasFixed_ = std::exchange(container_.isFixed_, true);
}

PersistentContainer::Transaction::~Transaction()
{
    container_.isFixed_ = wasFixed_;
    if (!isOpen_)
        return;
    QSqlQuery query(container_.database_);
    // SQLite may already have rolled back, e.g. on a full disk.
    query.exec(QStringLiteral("ROLLBACK"));
}

void PersistentContainer::Transaction::commit()
{
    container_.run(QStringLiteral("COMMIT"));
    isOpen_ = false;
}

QString presentText(const QString& text)
{
    return text.isNull() ? QStringLiteral("") : text;
}

} // namespace vantro
