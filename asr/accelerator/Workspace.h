#pragma once

#include <cstddef>
#include <vector>

namespace vantro::asr {

/// Memory aligned to cache lines that grows and is used again.
class AlignedBuffer
{
public:
    /// At least @p bytes, with any content. Throws std::bad_alloc.
    std::byte* reserve(std::size_t bytes)
    {
        const std::size_t lines = bytes / lineBytes + 1;
        if (lines_.size() < lines) {
            lines_ = {}; // first, so that both are never there at once
            lines_.resize(lines);
        }
        return data();
    }
    [[nodiscard]] std::byte* data() { return lines_.front().bytes; }

private:
    static constexpr std::size_t lineBytes = 64;
    struct alignas(lineBytes) Line
    {
        std::byte bytes[lineBytes];
    };
    std::vector<Line> lines_;
};

/// What the accelerator keeps between operations, and from one graph to the next.
struct Workspace
{
    AlignedBuffer columns; ///< packed for products
    AlignedBuffer floats;  ///< columns widened to float32
    AlignedBuffer matrix;  ///< with its rows filled up to whole blocks
    AlignedBuffer heads;   ///< packed keys and values
    AlignedBuffer scratch; ///< of each thread
};

} // namespace vantro::asr
