#pragma once

#include "asr/FileReader.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace vantro::asr {

/// Reads little-endian values one after the other from a file that is not trusted: everything is checked against the
/// rest of the file before memory is allocated for it. The functions take what is read, for the message, and throw
/// ASRError::modelLoadFailed.
class SequentialReader
{
public:
    explicit SequentialReader(const FileReader& file) : file_(file) {}

    [[nodiscard]] std::uint64_t position() const { return position_; }
    [[nodiscard]] std::uint64_t remaining() const { return file_.size() - position_; }
    template <typename T>
    [[nodiscard]] T read(const char* what)
    {
        T value{};
        bytes(&value, sizeof value, what);
        return value;
    }
    [[nodiscard]] std::string text(std::uint64_t length, std::uint64_t maximum, const char* what);
    /// Each must be a finite number.
    [[nodiscard]] std::vector<float> floats(std::uint64_t count, const char* what);
    void skip(std::uint64_t length, const char* what);

private:
    void bytes(void* target, std::uint64_t length, const char* what);

    const FileReader& file_;
    std::uint64_t position_ = 0; ///< of the next value
    std::array<std::byte, 4096> ahead_{};
    std::uint64_t aheadBegin_ = 0; ///< file offset of ahead_
    std::uint64_t aheadEnd_ = 0;
};

} // namespace vantro::asr
