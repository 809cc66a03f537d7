#include "asr/kernels/Matrix.h"

#include "asr/kernels/Levels.h"

namespace vantro::asr::kernels {

namespace {

#ifdef VANTRO_ASR_X86
bool hasAvx512()
{
    return __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512bw") &&
           __builtin_cpu_supports("avx512dq") && __builtin_cpu_supports("avx512vl");
}
#endif

} // namespace

const MatrixKernels* matrixKernels(MatrixFormat format)
{
#ifdef VANTRO_ASR_X86
    __builtin_cpu_init();
    if (format == MatrixFormat::bfloat16 && hasAvx512() && __builtin_cpu_supports("avx512bf16"))
        return &bfloat16Matrices();
    if (format == MatrixFormat::float16 && matrixKernels(MatrixFormat::bfloat16) != nullptr)
        return &float16Matrices();
    if (format == MatrixFormat::int8 && hasAvx512() && __builtin_cpu_supports("avx512vnni"))
        return &int8Matrices();
    if (format == MatrixFormat::q8 && matrixKernels(MatrixFormat::int8) != nullptr)
        return &storedInt8Matrices();
    if (format == MatrixFormat::q5 && matrixKernels(MatrixFormat::int8) != nullptr)
        return &storedInt5Matrices();
    if (format == MatrixFormat::q4 && matrixKernels(MatrixFormat::int8) != nullptr)
        return &storedInt4Matrices();
#endif
    static_cast<void>(format);
    return nullptr;
}

} // namespace vantro::asr::kernels
