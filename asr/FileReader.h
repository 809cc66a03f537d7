#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <span>

namespace vantro::asr {

class FileMapping;

/// A file that several threads read at once, each where it likes.
class FileReader
{
public:
    /// Throws ASRError::modelLoadFailed when there is no such file.
    explicit FileReader(const std::filesystem::path& path);
    ~FileReader();
    FileReader(const FileReader&) = delete;
    FileReader& operator=(const FileReader&) = delete;

    [[nodiscard]] std::uint64_t size() const { return size_; }
    /// Fills @p target; false when the file ends before or cannot be read.
    [[nodiscard]] bool read(std::uint64_t offset, std::span<std::byte> target) const;
    /// The whole file in memory; outlives the reader. Throws ASRError::modelLoadFailed.
    [[nodiscard]] std::shared_ptr<const FileMapping> map() const;

private:
    int descriptor_ = -1;
    std::uint64_t size_ = 0;
};

} // namespace vantro::asr
