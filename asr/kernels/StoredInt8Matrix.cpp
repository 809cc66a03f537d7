// Products with matrices as stored in a model file. Compiled for AVX-512 with VNNI, like Int8Matrix.cpp.
#include "asr/kernels/Int8Panels.h"
#include "asr/kernels/Levels.h"

#include <immintrin.h>

#include <cstring>
#include <type_traits>

namespace vantro::asr::kernels {

using namespace int8;

namespace {

constexpr std::size_t storedBlocks = 16; ///< per panel, which takes 17 KiB

/// Prefetches the next blocks while these are multiplied.
void prefetch(const Rows& rows, std::size_t blocks)
{
    constexpr std::size_t line = 64;
    if (blocks > storedBlocks)
        blocks = storedBlocks;
    for (std::size_t i = 0; i < rows.count; ++i) {
        for (std::size_t byte = 0; byte < blocks * rows.blockBytes; byte += line)
            _mm_prefetch(rows.at(i) + byte, _MM_HINT_T1);
    }
}

/// A q8_0 block: a scale and 32 bytes.
struct StoredBytes
{
    static constexpr std::size_t bytes = storedBlockBytes;
};

/// Unpacks 32 nibbles (0 to 15) from 16 bytes: first all low ones, then all high ones.
__m256i nibbles(const unsigned char* stored)
{
    const __m128i pairs = _mm_loadu_si128(reinterpret_cast<const __m128i*>(stored));
    return _mm256_and_si256(_mm256_set_m128i(_mm_srli_epi16(pairs, 4), pairs), _mm256_set1_epi8(0x0F));
}

/// A q4_0 block: a scale and 32 numbers of 4 bits with an offset of -8.
struct StoredNibbles
{
    static constexpr std::size_t bytes = sizeof(std::uint16_t) + blockInputs / 2;

    static __m256i values(const unsigned char* stored)
    {
        return _mm256_sub_epi8(nibbles(stored + sizeof(std::uint16_t)), _mm256_set1_epi8(8));
    }
};

/// A q5_0 block: a scale, the fifth bits of 32 numbers, and their lower four bits, with an offset of -16.
struct StoredFiveBits
{
    static constexpr std::size_t bytes = sizeof(std::uint16_t) + sizeof(std::uint32_t) + blockInputs / 2;

    static __m256i values(const unsigned char* stored)
    {
        std::uint32_t fifth = 0;
        std::memcpy(&fifth, stored + sizeof(std::uint16_t), sizeof fifth);
        const __m256i low = nibbles(stored + sizeof(std::uint16_t) + sizeof fifth);
        return _mm256_sub_epi8(_mm256_or_si256(low, _mm256_maskz_set1_epi8(fifth, 16)), _mm256_set1_epi8(16));
    }
};

/// Converts the first @p blocks of up to 32 rows to q8_0, which is lossless.
template <typename Stored>
Rows asBytes(const Rows& rows, std::size_t blocks, unsigned char* target)
{
    if constexpr (std::is_same_v<Stored, StoredBytes>)
        return rows;
    else {
        const Rows wide{target, blocks * storedBlockBytes, rows.count};
        for (std::size_t row = 0; row < rows.count; ++row) {
            for (std::size_t block = 0; block < blocks; ++block) {
                const unsigned char* stored = rows.from(block).at(row);
                unsigned char* bytes = target + row * wide.rowBytes + block * storedBlockBytes;
                std::memcpy(bytes, stored, sizeof(std::uint16_t));
                _mm256_storeu_si256(reinterpret_cast<__m256i*>(bytes + sizeof(std::uint16_t)), Stored::values(stored));
            }
        }
        return wide;
    }
}

/// Multiplies by the matrix as stored in the file: packs some blocks of a panel at a time into the cache and uses them
/// for all columns.
template <typename Stored>
void multiplyStored(const void* matrix, std::size_t inputs, std::size_t outputs, const void* activations,
                    std::size_t columns, const float* bias, float* result, Share share)
{
    alignas(64) unsigned char packed[storedBlocks * matrixBlockBytes];
    unsigned char wide[std::is_same_v<Stored, StoredBytes> ? 1 : panelOutputs * storedBlocks * storedBlockBytes];
    const std::size_t blocks = inputs / blockInputs;
    const Activations values{static_cast<const ActivationBlock*>(activations), blocks, columns};
    const std::size_t count = panels(outputs, panelOutputs);
    const std::size_t end = count * (share.thread + 1) / share.threads;
    for (std::size_t p = count * share.thread / share.threads; p < end; ++p) {
        const Rows rows = panelRows(matrix, blocks, outputs, p * panelOutputs, Stored::bytes);
        for (std::size_t first = 0; first < blocks; first += storedBlocks) {
            const std::size_t used = blocks - first < storedBlocks ? blocks - first : storedBlocks;
            packPanel(asBytes<Stored>(rows.from(first), used, wide), used, packed);
            if (first + used < blocks)
                prefetch(rows.from(first + used), blocks - first - used);
            else if (p + 1 < end)
                prefetch(panelRows(matrix, blocks, outputs, (p + 1) * panelOutputs, Stored::bytes), blocks);
            multiplyColumns({used, outputs, first + used == blocks ? bias : nullptr, result, first > 0}, packed,
                            p * panelOutputs, values, first);
        }
    }
}

template <typename Stored>
std::size_t storedBytes(std::size_t inputs, std::size_t outputs)
{
    return inputs / blockInputs * outputs * Stored::bytes;
}

template <typename Stored>
const MatrixKernels& storedMatrices()
{
    static const MatrixKernels kernels{storedBytes<Stored>, nullptr, activationBytes, packActivations,
                                       multiplyStored<Stored>};
    return kernels;
}

} // namespace

const MatrixKernels& storedInt8Matrices()
{
    return storedMatrices<StoredBytes>();
}

const MatrixKernels& storedInt5Matrices()
{
    return storedMatrices<StoredFiveBits>();
}

const MatrixKernels& storedInt4Matrices()
{
    return storedMatrices<StoredNibbles>();
}

} // namespace vantro::asr::kernels
