#pragma once

#include <QString>

#include <chrono>
#include <optional>

namespace vantro {

/// An exclusive lock across threads and processes (flock). The system releases it however the process ends. Any
/// thread; movable between threads.
class FileLock
{
public:
    /// Locks the file @p path, which is created when missing and never removed; nullopt while somebody else holds the
    /// lock. Throws Error when the file cannot be created.
    static std::optional<FileLock> tryTake(const QString& path);
    /// The same, waiting for up to @p patience.
    static std::optional<FileLock> take(const QString& path, std::chrono::milliseconds patience);

    FileLock(FileLock&& other) noexcept;
    FileLock& operator=(FileLock&& other) noexcept;
    ~FileLock();

private:
    explicit FileLock(int descriptor) : descriptor_(descriptor) {}

    int descriptor_;
};

} // namespace vantro
