# whisper.cpp with ggml. An installed library of the tested version wins; otherwise the pinned source tree that
# scripts/setup fetched is built with the project. Either way the target is vantro::whisper.
set(VANTRO_WHISPER_VERSION 1.9.1)
set(VANTRO_WHISPER_SOURCE "${CMAKE_SOURCE_DIR}/third_party/node_modules/nodejs-whisper/cpp/whisper.cpp"
  CACHE PATH "whisper.cpp source tree")

# A function, so that what is set for the library stays with the library.
function(vantro_add_whisper_source)
  set(CMAKE_BUILD_TYPE Release) # an unoptimised recogniser is of no use in a development build either
  string(APPEND CMAKE_C_FLAGS " -w") # its warnings are its authors' business
  string(APPEND CMAKE_CXX_FLAGS " -w")
  set(CMAKE_POLICY_DEFAULT_CMP0077 NEW) # the settings below reach the library's own options
  set(BUILD_SHARED_LIBS ON)
  set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}") # modules are looked for beside the program

  # Half the time of a whisper dictation on two cores (docs/performance.md).
  set(GGML_LLAMAFILE ON)
  set(GGML_NATIVE OFF)
  set(GGML_CCACHE OFF)
  set(WHISPER_BUILD_TESTS OFF)
  set(WHISPER_BUILD_EXAMPLES ${VANTRO_BUILD_BENCH})
  set(WHISPER_BUILD_SERVER OFF)
  if(VANTRO_SANITIZE)
    set(GGML_OPENMP OFF) # its runtime is not instrumented
  else()
    # The CPU back end is built once per instruction-set level as a loadable module and the best one is chosen when the
    # program starts, so the result does not depend on the processor that built it.
    set(GGML_BACKEND_DL ON)
    set(GGML_CPU_ALL_VARIANTS ON)
  endif()
  add_subdirectory("${VANTRO_WHISPER_SOURCE}" "${CMAKE_BINARY_DIR}/whisper" EXCLUDE_FROM_ALL SYSTEM)

  # GCC 12 compiles ggml's AMX tile configuration wrongly: quantised models crash on processors that have AMX. The
  # variant for those processors keeps everything else.
  if(TARGET ggml-cpu-sapphirerapids AND CMAKE_C_COMPILER_ID STREQUAL "GNU")
    target_compile_options(ggml-cpu-sapphirerapids PRIVATE -mno-amx-tile -mno-amx-int8 -mno-amx-bf16)
  endif()
endfunction()

find_package(whisper ${VANTRO_WHISPER_VERSION} QUIET)
if(NOT whisper_FOUND)
  if(NOT EXISTS "${VANTRO_WHISPER_SOURCE}/CMakeLists.txt")
    message(FATAL_ERROR "No whisper.cpp ${VANTRO_WHISPER_VERSION} is installed and none lies in "
      "${VANTRO_WHISPER_SOURCE}. Run scripts/setup first.")
  endif()
  vantro_add_whisper_source()
endif()
add_library(vantro::whisper ALIAS whisper)
add_library(vantro::ggml ALIAS ggml)
