# How the pinned whisper.cpp is built.
#
# The CPU back end is built once per instruction-set level as a loadable module and the best one is chosen when the
# program starts, so the result does not depend on the processor that built it. AMX stays out: GCC 12 compiles ggml's
# tile configuration wrongly, and quantised models crash on processors that have it.
set(BUILD_SHARED_LIBS ON)
set(GGML_NATIVE OFF)
set(GGML_BACKEND_DL ON)
set(GGML_CPU_ALL_VARIANTS ON)
set(GGML_AMX_TILE OFF)
set(GGML_AMX_INT8 OFF)
set(GGML_CCACHE OFF)
set(WHISPER_BUILD_TESTS OFF)
set(WHISPER_BUILD_SERVER OFF)
