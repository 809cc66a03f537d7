#include "vantro/store/StoreWatch.h"

#include "base/Logger.h"

#include <array>
#include <chrono>

using namespace std::chrono_literals;

namespace vantro {

namespace {

/// The write-ahead log is written before the commit takes effect, which causes no event itself. So check repeatedly,
/// with growing delays for slow disks.
constexpr std::array<std::chrono::milliseconds, 5> pauses{0ms, 20ms, 100ms, 500ms, 3000ms};

} // namespace

StoreWatch::StoreWatch(const PersistentContainer& container)
    : container_(container)
    , version_(container.value(QStringLiteral("PRAGMA data_version")).toLongLong())
{
    files_.addPath(container.path() + QStringLiteral("-wal"));
    connect(&files_, &QFileSystemWatcher::fileChanged, this, &StoreWatch::logWritten);
    nextLook_.setSingleShot(true);
    connect(&nextLook_, &QTimer::timeout, this, &StoreWatch::look);
}

void StoreWatch::logWritten()
{
    looks_ = 0;
    nextLook_.start(pauses.front());
}

void StoreWatch::look()
{
    if (++looks_ < pauses.size())
        nextLook_.start(pauses[looks_]);
    try {
        const qint64 version = container_.value(QStringLiteral("PRAGMA data_version")).toLongLong();
        if (std::exchange(version_, version) != version)
            Q_EMIT changedElsewhere();
    } catch (const StoreError& error) {
        Logger("StoreWatch").error(error.localizedDescription());
    }
}

} // namespace vantro
