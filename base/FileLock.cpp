#include "base/FileLock.h"

#include "base/Error.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QFile>
#include <QThread>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

namespace vantro {

std::optional<FileLock> FileLock::tryTake(const QString& path)
{
    const int descriptor = ::open(QFile::encodeName(path).constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600);
    if (descriptor < 0)
        throw Error(
            QCoreApplication::translate("OutputFile", "%1 could not be created: %2").arg(path, qt_error_string(errno)));
    FileLock lock(descriptor);
    if (::flock(descriptor, LOCK_EX | LOCK_NB) == 0)
        return lock;
    if (errno != EWOULDBLOCK && errno != EINTR)
        throw Error(
            QCoreApplication::translate("OutputFile", "%1 could not be locked: %2").arg(path, qt_error_string(errno)));
    return std::nullopt;
}

std::optional<FileLock> FileLock::take(const QString& path, std::chrono::milliseconds patience)
{
    constexpr unsigned long pauseMs = 2;
    const QDeadlineTimer end(patience);
    auto lock = tryTake(path);
    while (!lock && !end.hasExpired()) {
        QThread::msleep(pauseMs);
        lock = tryTake(path);
    }
    return lock;
}

FileLock::FileLock(FileLock&& other) noexcept : descriptor_(std::exchange(other.descriptor_, -1)) {}

FileLock& FileLock::operator=(FileLock&& other) noexcept
{
    std::swap(descriptor_, other.descriptor_);
    return *this;
}

FileLock::~FileLock()
{
    if (descriptor_ >= 0)
        ::close(descriptor_);
}

} // namespace vantro
