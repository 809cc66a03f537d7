#pragma once

#include "asr/kernels/Kernels.h"
#include "asr/kernels/Matrix.h"

namespace vantro::asr::kernels {

// The instruction-set levels that KernelsVariant.cpp is compiled for.
Kernels baselineKernels();
Kernels avx2Kernels();
Kernels avx512Kernels();

/// Products with matrices as they stand in a file.
struct StoredIntegerMatrices
{
    MatrixKernels q8;
    MatrixKernels q5;
    MatrixKernels q4;
};
struct StoredMatrices : StoredIntegerMatrices
{
    MatrixKernels float16;
};
const StoredMatrices& avx2Matrices();    ///< requires AVX2 with FMA and F16C
const StoredMatrices& avxVnniMatrices(); ///< and AVX-VNNI

const StoredIntegerMatrices& dotProductMatrices();    ///< requires arm64 with dot products of bytes
const StoredIntegerMatrices& matrixProductMatrices(); ///< and matrix products of bytes

const MatrixKernels& bfloat16Matrices();   ///< requires AVX-512 with BF16
const MatrixKernels& float16Matrices();    ///< the same
const MatrixKernels& int8Matrices();       ///< requires AVX-512 with VNNI
const MatrixKernels& storedInt8Matrices(); ///< the same
const MatrixKernels& storedInt5Matrices(); ///< the same
const MatrixKernels& storedInt4Matrices(); ///< the same

} // namespace vantro::asr::kernels
