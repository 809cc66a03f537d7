#pragma once

#include <QByteArray>

namespace vantro {

/// A memory file for handing bytes to the compositor. Closed with the object; mappings of it stay.
class SharedMemory
{
public:
    explicit SharedMemory(const QByteArray& contents);
    ~SharedMemory();
    SharedMemory(const SharedMemory&) = delete;
    SharedMemory& operator=(const SharedMemory&) = delete;

    /// Negative if the system had none.
    [[nodiscard]] int descriptor() const { return descriptor_; }

private:
    int descriptor_;
};

/// The contents of a memory file; empty if it cannot be read.
[[nodiscard]] QByteArray readSharedMemory(int descriptor, std::size_t sizeBytes);

} // namespace vantro
