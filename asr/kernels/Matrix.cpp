#include "asr/kernels/Matrix.h"

#include "asr/kernels/Levels.h"

#include <initializer_list>

namespace vantro::asr::kernels {

namespace {

struct Implementation
{
    MatrixFormat format;
    Level level;
    const MatrixKernels* (*kernels)();
};

/// The best ones of a format first.
constexpr std::initializer_list<Implementation> implementations = {
#ifdef VANTRO_ASR_X86
    {MatrixFormat::bfloat16, Level::avx512Bf16,
     [] {
         return &bfloat16Matrices();
     }},
    {MatrixFormat::float16, Level::avx512Bf16,
     [] {
         return &float16Matrices();
     }},
    {MatrixFormat::int8, Level::avx512Vnni,
     [] {
         return &int8Matrices();
     }},
    {MatrixFormat::q8, Level::avx512Vnni,
     [] {
         return &storedInt8Matrices();
     }},
    {MatrixFormat::q5, Level::avx512Vnni,
     [] {
         return &storedInt5Matrices();
     }},
    {MatrixFormat::q4, Level::avx512Vnni,
     [] {
         return &storedInt4Matrices();
     }},
    {MatrixFormat::float16, Level::avxVnni,
     [] {
         return &avxVnniMatrices().float16;
     }},
    {MatrixFormat::q8, Level::avxVnni,
     [] {
         return &avxVnniMatrices().q8;
     }},
    {MatrixFormat::q5, Level::avxVnni,
     [] {
         return &avxVnniMatrices().q5;
     }},
    {MatrixFormat::q4, Level::avxVnni,
     [] {
         return &avxVnniMatrices().q4;
     }},
    {MatrixFormat::float16, Level::avx2,
     [] {
         return &avx2Matrices().float16;
     }},
    {MatrixFormat::q8, Level::avx2,
     [] {
         return &avx2Matrices().q8;
     }},
    {MatrixFormat::q5, Level::avx2,
     [] {
         return &avx2Matrices().q5;
     }},
    {MatrixFormat::q4, Level::avx2,
     [] {
         return &avx2Matrices().q4;
     }},
#endif
#ifdef VANTRO_ASR_ARM64
    {MatrixFormat::q8, Level::i8mm,
     [] {
         return &matrixProductMatrices().q8;
     }},
    {MatrixFormat::q5, Level::i8mm,
     [] {
         return &matrixProductMatrices().q5;
     }},
    {MatrixFormat::q4, Level::i8mm,
     [] {
         return &matrixProductMatrices().q4;
     }},
    {MatrixFormat::q8, Level::dotProduct,
     [] {
         return &dotProductMatrices().q8;
     }},
    {MatrixFormat::q5, Level::dotProduct,
     [] {
         return &dotProductMatrices().q5;
     }},
    {MatrixFormat::q4, Level::dotProduct,
     [] {
         return &dotProductMatrices().q4;
     }},
#endif
};

} // namespace

const MatrixKernels* matrixKernels(MatrixFormat format, Level cap)
{
    for (const Implementation& implementation : implementations) {
        if (implementation.format == format && implementation.level <= cap && isSupported(implementation.level))
            return implementation.kernels();
    }
    return nullptr;
}

} // namespace vantro::asr::kernels
