#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>

namespace vantro::asr {

class FileMapping;

/// Random access to a file, thread-safe for concurrent reads.
class FileReader
{
public:
    /// Throws ASRError::modelLoadFailed if the file cannot be opened.
    explicit FileReader(const std::filesystem::path& path);
    ~FileReader();
    FileReader(const FileReader&) = delete;
    FileReader& operator=(const FileReader&) = delete;

    [[nodiscard]] std::uint64_t size() const { return size_; }
    /// Fills @p target; returns false on a read failure or if the file is too short.
    [[nodiscard]] bool read(std::uint64_t offset, std::span<std::byte> target) const;
    /// Maps the whole file; the mapping may outlive the reader. Throws ASRError::modelLoadFailed.
    [[nodiscard]] std::shared_ptr<const FileMapping> map() const;

private:
    int descriptor_ = -1;
    std::uint64_t size_ = 0;
};

} // namespace vantro::asr
