#pragma once

#include "vantro/store/PersistentContainer.h"

#include <QFileSystemWatcher>
#include <QObject>
#include <QTimer>

namespace vantro {

/// Signals changes of the store by other connections, in any process. Triggered by file system events for the
/// write-ahead log, so an idle store costs nothing. Main thread.
class StoreWatch final : public QObject
{
    Q_OBJECT
public:
    explicit StoreWatch(const PersistentContainer& container);

Q_SIGNALS:
    void changedElsewhere();

private:
    void logWritten();
    void look();

    const PersistentContainer& container_;
    QFileSystemWatcher files_;
    QTimer nextLook_;
    std::size_t looks_ = 0;
    qint64 version_;
};

} // namespace vantro
