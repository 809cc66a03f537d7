#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace vantro::asr {

/// A read-only memory mapping. Weights used directly from it are not copied: they stay in the page cache, which is
/// shared with other processes and reclaimed under memory pressure. Immutable; any thread.
class FileMapping
{
public:
    /// @p descriptor may be closed afterwards. Throws ASRError::modelLoadFailed.
    explicit FileMapping(int descriptor);
    ~FileMapping();
    FileMapping(const FileMapping&) = delete;
    FileMapping& operator=(const FileMapping&) = delete;

    [[nodiscard]] std::span<const std::byte> bytes() const { return bytes_; }
    /// Pre-faults a range, so that later accesses do not wait for the disk. Returns false on a read failure.
    [[nodiscard]] bool load(std::size_t offset, std::size_t size) const;
    /// False if the file has been modified or truncated. Accessing the memory of a truncated file crashes the process
    /// (SIGBUS).
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
