#pragma once

#include <QString>

#include <optional>

namespace vantro {

/// A right that one of all threads of all processes has at a time. The system takes it back from a process that ends in
/// whatever way. Any thread; may be handed from one to another.
class FileLock
{
public:
    /// The lock named by the file @p path, which is made when missing and never removed; absent while somebody else has
    /// it. Throws Error when the file cannot be made.
    static std::optional<FileLock> tryTake(const QString& path);

    FileLock(FileLock&& other) noexcept;
    FileLock& operator=(FileLock&& other) noexcept;
    ~FileLock();

private:
    explicit FileLock(int descriptor) : descriptor_(descriptor) {}

    int descriptor_;
};

} // namespace vantro
