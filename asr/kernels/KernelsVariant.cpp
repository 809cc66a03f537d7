// Compiled once per instruction-set level, named by VANTRO_ASR_LEVEL. Everything is local to this file and no templates
// of the standard library are used, because the linker might pick a shared function from the wrong level.
#include "asr/kernels/FastExp.h"
#include "asr/kernels/Kernels.h"
#include "asr/kernels/Levels.h"

namespace vantro::asr::kernels {

namespace {

constexpr std::size_t blockChannels = 32;
constexpr std::size_t maximumColumns = 512; ///< half of the maximum number of mel bands
constexpr std::size_t maximumTaps = 255;
constexpr std::size_t blockFrames = 64;

struct Range
{
    std::size_t begin;
    std::size_t end;
};

Range rangeOf(std::size_t count, Share share)
{
    return {count * share.thread / share.threads, count * (share.thread + 1) / share.threads};
}

/// A number of channels known at compile time (whole blocks) or at run time.
struct WholeBlock
{
    static constexpr std::size_t count = blockChannels;
};
struct PartBlock
{
    std::size_t count;
};

/// Computes one row of the first map, [column][blockChannels]; returns false for a row in the padding.
template <typename Block>
bool firstRow(const Map& source, std::ptrdiff_t row, const Convolution& convolution, std::size_t channel, Block block,
              float* result)
{
    const std::size_t columns = (source.columns + 1) / 2;
    if (row < 0 || static_cast<std::size_t>(row) >= (source.rows + 1) / 2)
        return false;
    for (std::size_t column = 0; column < columns; ++column) {
        float sums[blockChannels];
        for (std::size_t c = 0; c < block.count; ++c)
            sums[c] = convolution.bias[channel + c];
        for (std::size_t tap = 0; tap < 9; ++tap) {
            const std::ptrdiff_t y = 2 * row + static_cast<std::ptrdiff_t>(tap / 3) - 1;
            const std::ptrdiff_t x = static_cast<std::ptrdiff_t>(2 * column + tap % 3) - 1;
            if (y < 0 || x < 0 || static_cast<std::size_t>(y) >= source.rows ||
                static_cast<std::size_t>(x) >= source.columns)
                continue;
            const float value =
                source.values[static_cast<std::size_t>(y) * source.columns + static_cast<std::size_t>(x)];
            const float* weights = convolution.taps + tap * convolution.channels + channel;
            for (std::size_t c = 0; c < block.count; ++c)
                sums[c] += value * weights[c];
        }
        for (std::size_t c = 0; c < block.count; ++c)
            result[column * blockChannels + c] = sums[c] > 0 ? sums[c] : 0;
    }
    return true;
}

/// Computes a result row from three source rows; rows in the padding are null. @p stride: floats between columns.
template <typename Block>
void depthwiseRow(const float* const (&rows)[3], std::size_t columns, std::size_t stride,
                  const Convolution& convolution, std::size_t channel, Block block, float* result)
{
    for (std::size_t column = 0; column < (columns + 1) / 2; ++column) {
        float sums[blockChannels];
        for (std::size_t c = 0; c < block.count; ++c)
            sums[c] = convolution.bias[channel + c];
        for (std::size_t tap = 0; tap < 9; ++tap) {
            const float* row = rows[tap / 3];
            const std::ptrdiff_t x = static_cast<std::ptrdiff_t>(2 * column + tap % 3) - 1;
            if (row == nullptr || x < 0 || static_cast<std::size_t>(x) >= columns)
                continue;
            const float* values = row + static_cast<std::size_t>(x) * stride;
            const float* weights = convolution.taps + tap * convolution.channels + channel;
            for (std::size_t c = 0; c < block.count; ++c)
                sums[c] += values[c] * weights[c];
        }
        for (std::size_t c = 0; c < block.count; ++c)
            result[column * convolution.channels + channel + c] = sums[c];
    }
}

template <typename Block>
void subsampleTwiceBlock(const Map& source, const Convolution& first, const Convolution& second, const Map& result,
                         Range rows, std::size_t channel, Block block)
{
    float buffer[3][maximumColumns * blockChannels];
    const std::size_t columns = (source.columns + 1) / 2;
    bool isSet[3] = {};
    for (std::size_t row = rows.begin; row < rows.end; ++row) {
        const auto centre = static_cast<std::ptrdiff_t>(2 * row);
        // The last of the three rows is reused as the first of the next three.
        const std::size_t kept = 2 * row % 3;
        for (std::size_t i = row == rows.begin ? 0 : 1; i < 3; ++i) {
            const std::size_t slot = (kept + i) % 3;
            isSet[slot] =
                firstRow(source, centre - 1 + static_cast<std::ptrdiff_t>(i), first, channel, block, buffer[slot]);
        }
        const float* three[3];
        for (std::size_t i = 0; i < 3; ++i) {
            const std::size_t slot = (kept + i) % 3;
            three[i] = isSet[slot] ? buffer[slot] : nullptr;
        }
        depthwiseRow(three, columns, blockChannels, second, channel, block,
                     result.values + row * result.columns * second.channels);
    }
}

void subsampleTwice(const Map& source, const Convolution& first, const Convolution& second, const Map& result,
                    Share share)
{
    const Range rows = rangeOf(result.rows, share);
    for (std::size_t channel = 0; channel < first.channels; channel += blockChannels) {
        const std::size_t left = first.channels - channel;
        if (left >= blockChannels)
            subsampleTwiceBlock(source, first, second, result, rows, channel, WholeBlock());
        else
            subsampleTwiceBlock(source, first, second, result, rows, channel, PartBlock{left});
    }
}

template <typename Block>
void subsampleBlock(const Map& source, const Convolution& convolution, const Map& result, std::size_t row,
                    std::size_t channel, Block block)
{
    const float* three[3];
    for (std::size_t i = 0; i < 3; ++i) {
        const std::size_t y = 2 * row + i; // source row + 1, so that the padding is 0
        three[i] = y == 0 || y > source.rows
                       ? nullptr
                       : source.values + (y - 1) * source.columns * convolution.channels + channel;
    }
    depthwiseRow(three, source.columns, convolution.channels, convolution, channel, block,
                 result.values + row * result.columns * convolution.channels);
}

void subsample(const Map& source, const Convolution& convolution, const Map& result, Share share)
{
    const Range rows = rangeOf(result.rows, share);
    for (std::size_t row = rows.begin; row < rows.end; ++row) {
        for (std::size_t channel = 0; channel < convolution.channels; channel += blockChannels) {
            const std::size_t left = convolution.channels - channel;
            if (left >= blockChannels)
                subsampleBlock(source, convolution, result, row, channel, WholeBlock());
            else
                subsampleBlock(source, convolution, result, row, channel, PartBlock{left});
        }
    }
}

/// The gated values of @p count frames from @p begin on; zeros outside the audio.
template <typename Block>
void gateFrames(const float* source, std::size_t frames, std::size_t channels, std::ptrdiff_t begin, std::size_t count,
                std::size_t channel, Block block, float* gated)
{
    for (std::size_t i = 0; i < count; ++i) {
        const std::ptrdiff_t frame = begin + static_cast<std::ptrdiff_t>(i);
        const bool isInside = frame >= 0 && static_cast<std::size_t>(frame) < frames;
        const float* values = source + (isInside ? static_cast<std::size_t>(frame) : 0) * 2 * channels + channel;
        float* target = gated + i * blockChannels;
        for (std::size_t c = 0; c < block.count; ++c)
            target[c] = isInside ? values[c] / (1.0F + fastExp(-values[channels + c])) : 0.0F;
    }
}

template <typename Block>
void gatedConvolutionBlock(const float* source, std::size_t frames, const TimeConvolution& convolution, float* result,
                           std::size_t channel, Block block)
{
    float gated[(blockFrames + maximumTaps) * blockChannels];
    const auto reach = static_cast<std::ptrdiff_t>(convolution.size / 2);
    for (std::size_t begin = 0; begin < frames; begin += blockFrames) {
        const std::size_t count = frames - begin < blockFrames ? frames - begin : blockFrames;
        gateFrames(source, frames, convolution.channels, static_cast<std::ptrdiff_t>(begin) - reach,
                   count + convolution.size - 1, channel, block, gated);
        for (std::size_t i = 0; i < count; ++i) {
            float sums[blockChannels];
            for (std::size_t c = 0; c < block.count; ++c)
                sums[c] = convolution.bias[channel + c];
            for (std::size_t tap = 0; tap < convolution.size; ++tap) {
                const float* values = gated + (i + tap) * blockChannels;
                const float* weights = convolution.taps + tap * convolution.channels + channel;
                for (std::size_t c = 0; c < block.count; ++c)
                    sums[c] += values[c] * weights[c];
            }
            float* target = result + (begin + i) * convolution.channels + channel;
            for (std::size_t c = 0; c < block.count; ++c)
                target[c] = sums[c] / (1.0F + fastExp(-sums[c]));
        }
    }
}

void gatedConvolution(const float* source, std::size_t frames, const TimeConvolution& convolution, float* result,
                      Share share)
{
    const std::size_t blocks = (convolution.channels + blockChannels - 1) / blockChannels;
    const Range range = rangeOf(blocks, share);
    for (std::size_t i = range.begin; i < range.end; ++i) {
        const std::size_t channel = i * blockChannels;
        const std::size_t left = convolution.channels - channel;
        if (left >= blockChannels)
            gatedConvolutionBlock(source, frames, convolution, result, channel, WholeBlock());
        else
            gatedConvolutionBlock(source, frames, convolution, result, channel, PartBlock{left});
    }
}

} // namespace

Kernels VANTRO_ASR_LEVEL()
{
    return {subsampleTwice, subsample, gatedConvolution};
}

} // namespace vantro::asr::kernels
