#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace vantro::asr {

/// A file seen as memory. What is computed with straight from it needs no copy: a loaded model is the system's own copy
/// of its file, which other programs share and which gives way when memory is scarce. Immutable; any thread.
class FileMapping
{
public:
    /// @p descriptor of an open file, which need not stay open. Throws ASRError::modelLoadFailed.
    explicit FileMapping(int descriptor);
    ~FileMapping();
    FileMapping(const FileMapping&) = delete;
    FileMapping& operator=(const FileMapping&) = delete;

    [[nodiscard]] std::span<const std::byte> bytes() const { return bytes_; }
    /// Reads a stretch into memory, as far as it is not there, so that nobody waits for it later; false when the disk
    /// cannot.
    [[nodiscard]] bool load(std::size_t offset, std::size_t size) const;
    /// False when somebody has written to the file or cut it off. The memory of a file that was cut off must not be
    /// touched: that ends the program.
    [[nodiscard]] bool isUnchanged() const;

private:
    struct Version
    {
        std::int64_t size = 0;
        std::int64_t seconds = 0;
        std::int64_t nanoseconds = 0;
        bool operator==(const Version&) const = default;
    };
    [[nodiscard]] Version version() const;

    int descriptor_;
    Version version_;
    std::span<const std::byte> bytes_;
};

} // namespace vantro::asr
