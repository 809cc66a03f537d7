#pragma once

// Products with a matrix as stored in a model file, for any instruction set. A layout says how a part of a panel of the
// matrix is packed into the cache, how columns are, and how one is multiplied by the other. Everything is local to the
// file that includes this, which may be compiled for other instructions than the next.
#include "asr/kernels/Matrix.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace vantro::asr::kernels {

namespace {

constexpr std::size_t blockInputs = 32; ///< share a scale

std::size_t panels(std::size_t count, std::size_t size)
{
    return (count + size - 1) / size;
}

/// Rows in a file, unaligned.
struct Rows
{
    const unsigned char* first = nullptr;
    std::size_t rowBytes = 0;
    std::size_t count = 0;
};

/// The rows of the panel that starts at @p output, at most @p most.
Rows panelRows(const void* matrix, std::size_t rowBytes, std::size_t outputs, std::size_t output, std::size_t most)
{
    const std::size_t left = outputs - output;
    return {static_cast<const unsigned char*>(matrix) + output * rowBytes, rowBytes, left < most ? left : most};
}

struct Product
{
    std::size_t inputs; ///< in this part
    std::size_t outputs;
    const float* bias;
    float* result;
    bool isContinued; ///< adds to the sums in result
};

template <typename Layout>
std::size_t activationBytes(std::size_t inputs, std::size_t columns)
{
    return panels(columns, Layout::panelColumns) * inputs / blockInputs * sizeof(typename Layout::ActivationBlock);
}

template <typename Layout>
void packActivations(const float* source, std::size_t inputs, std::size_t columns, void* target, Share share)
{
    const std::size_t count = panels(columns, Layout::panelColumns);
    const std::size_t blocks = inputs / blockInputs;
    for (std::size_t p = count * share.thread / share.threads; p < count * (share.thread + 1) / share.threads; ++p) {
        auto* panel = static_cast<typename Layout::ActivationBlock*>(target) + p * blocks;
        const std::size_t first = p * Layout::panelColumns;
        const std::size_t used = columns - first < Layout::panelColumns ? columns - first : Layout::panelColumns;
        for (std::size_t block = 0; block < blocks; ++block) {
            for (std::size_t c = 0; c < used; ++c)
                Layout::packColumn(source + (first + c) * inputs + block * blockInputs, panel[block], c);
        }
    }
}

/// Copies @p count sums of a column, usually all of a panel.
template <std::size_t Width>
void copySums(const float* source, std::size_t count, float* target)
{
    if (count == Width)
        std::memcpy(target, source, Width * sizeof(float));
    else
        std::memcpy(target, source, count * sizeof(float));
}

/// Multiplies @p Columns columns by a packed part of the matrix.
template <typename Layout, std::size_t Columns>
void multiplyTile(const Product& product, const typename Layout::MatrixBlock* matrix, std::size_t output,
                  const typename Layout::ActivationBlock* activations, std::size_t column)
{
    constexpr std::size_t width = Layout::outputsPerPanel;
    alignas(64) float sums[Columns][width] = {};
    const std::size_t left = product.outputs - output;
    const std::size_t used = left < width ? left : width;
    float* results = product.result + column * product.outputs + output;
    if (product.isContinued) {
        for (std::size_t c = 0; c < Columns; ++c)
            copySums<width>(results + c * product.outputs, used, sums[c]);
    }
    for (std::size_t block = 0; block < product.inputs / blockInputs; ++block)
        Layout::template addBlock<Columns>(matrix[block], activations[block], sums);
    for (std::size_t c = 0; c < Columns; ++c) {
        if (product.bias != nullptr) {
            for (std::size_t i = 0; i < used; ++i)
                sums[c][i] += product.bias[output + i];
        }
        copySums<width>(sums[c], used, results + c * product.outputs);
    }
}

/// The same for a number of columns that is known at run time, up to @p Most.
template <typename Layout, std::size_t Most>
void multiplyFewer(const Product& product, const typename Layout::MatrixBlock* matrix, std::size_t output,
                   const typename Layout::ActivationBlock* activations, std::size_t column, std::size_t columns)
{
    if (columns == Most)
        multiplyTile<Layout, Most>(product, matrix, output, activations, column);
    else if constexpr (Most > 1)
        multiplyFewer<Layout, Most - 1>(product, matrix, output, activations, column, columns);
}

template <typename Layout>
void multiplyColumns(const Product& product, const typename Layout::MatrixBlock* matrix, std::size_t output,
                     const typename Layout::ActivationBlock* activations, std::size_t blocks, std::size_t columns)
{
    constexpr std::size_t width = Layout::panelColumns;
    for (std::size_t column = 0; column < columns; column += width, activations += blocks) {
        const std::size_t left = columns - column;
        if (left >= width)
            multiplyTile<Layout, width>(product, matrix, output, activations, column);
        else
            multiplyFewer<Layout, width - 1>(product, matrix, output, activations, column, left);
    }
}

/// Prefetches the next part while this one is multiplied.
void prefetch(const Rows& rows, std::size_t offset, std::size_t bytes)
{
    constexpr std::size_t line = 64;
    for (std::size_t i = 0; i < rows.count; ++i) {
        for (std::size_t byte = 0; byte < bytes; byte += line)
            __builtin_prefetch(rows.first + i * rows.rowBytes + offset + byte, 0, 2);
    }
}

template <typename Layout, typename Stored>
void multiply(const void* matrix, std::size_t inputs, std::size_t outputs, const void* activations, std::size_t columns,
              const float* bias, float* result, Share share)
{
    alignas(64) typename Layout::MatrixBlock packed[Layout::partBlocks];
    const auto* values = static_cast<const typename Layout::ActivationBlock*>(activations);
    const std::size_t blocks = inputs / blockInputs;
    const std::size_t rowBytes = blocks * Stored::bytes;
    const std::size_t count = panels(outputs, Layout::outputsPerPanel);
    for (std::size_t p = count * share.thread / share.threads; p < count * (share.thread + 1) / share.threads; ++p) {
        const std::size_t output = p * Layout::outputsPerPanel;
        const Rows rows = panelRows(matrix, rowBytes, outputs, output, Layout::outputsPerPanel);
        for (std::size_t first = 0; first < blocks; first += Layout::partBlocks) {
            const std::size_t used = blocks - first < Layout::partBlocks ? blocks - first : Layout::partBlocks;
            for (std::size_t block = 0; block < used; ++block)
                Layout::template packBlock<Stored>(
                    {rows.first + (first + block) * Stored::bytes, rows.rowBytes, rows.count}, packed[block]);
            const std::size_t ahead =
                blocks - first - used < Layout::partBlocks ? blocks - first - used : Layout::partBlocks;
            prefetch(rows, (first + used) * Stored::bytes, ahead * Stored::bytes);
            multiplyColumns<Layout>(
                {used * blockInputs, outputs, first + used == blocks ? bias : nullptr, result, first > 0}, packed,
                output, values + first, blocks, columns);
        }
    }
}

template <typename Stored>
std::size_t storedBytes(std::size_t inputs, std::size_t outputs)
{
    return inputs / blockInputs * outputs * Stored::bytes;
}

template <typename Layout, typename Stored>
constexpr MatrixKernels kernelsOf = {storedBytes<Stored>, nullptr, activationBytes<Layout>, packActivations<Layout>,
                                     multiply<Layout, Stored>};

} // namespace

} // namespace vantro::asr::kernels
