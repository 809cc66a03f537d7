# whisper.cpp with ggml: an installed library of the tested version if found, else the pinned source tree fetched by
# scripts/setup. Either way, the target is vantro::whisper.
set(VANTRO_WHISPER_VERSION 1.9.1)
set(VANTRO_WHISPER_SOURCE "${CMAKE_SOURCE_DIR}/third_party/node_modules/nodejs-whisper/cpp/whisper.cpp"
  CACHE PATH "whisper.cpp source tree")

# A function, so that the settings below apply to the library only.
function(vantro_add_whisper_source)
  set(CMAKE_BUILD_TYPE Release) # an unoptimised recogniser is too slow even for development builds
  string(APPEND CMAKE_C_FLAGS " -w") # third-party warnings
  string(APPEND CMAKE_CXX_FLAGS " -w")
  set(CMAKE_POLICY_DEFAULT_CMP0077 NEW) # lets the settings below override the library's options
  set(CMAKE_UNITY_BUILD OFF) # few large files
  set(BUILD_SHARED_LIBS ON)
  set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}") # modules are searched beside the program

  # Halves the time of a whisper dictation on two cores (docs/performance.md).
  set(GGML_LLAMAFILE ON)
  set(GGML_NATIVE OFF)
  set(GGML_CCACHE OFF)
  set(WHISPER_BUILD_TESTS OFF)
  set(WHISPER_BUILD_EXAMPLES ${VANTRO_BUILD_BENCH})
  set(WHISPER_BUILD_SERVER OFF)
  if(VANTRO_SANITIZE)
    set(GGML_OPENMP OFF) # its runtime is not instrumented
    set(GGML_NATIVE ON) # these programs stay on this machine
  else()
    # The CPU back end is built once per instruction-set level as a loadable module and the best one is chosen at start-up,
    # so that a package does not depend on the build machine's processor.
    set(GGML_BACKEND_DL ON)
    vantro_processor_level(level level_options)
    if(level)
      set(GGML_CPU_ALL_VARIANTS OFF)
      foreach(option IN ITEMS SSE42 AVX F16C FMA AVX2 BMI2 AVX_VNNI AVX512 AVX512_VBMI AVX512_VNNI AVX512_BF16
                              AMX_TILE AMX_INT8 AMX_BF16)
        set(GGML_${option} OFF)
      endforeach()
      foreach(option IN LISTS level_options)
        set(GGML_${option} ON)
      endforeach()
    else()
      set(GGML_CPU_ALL_VARIANTS ON)
    endif()
  endif()
  set(GIT_EXE true) # for a version that is the same with each commit here, and need not be compiled again
  add_subdirectory("${VANTRO_WHISPER_SOURCE}" "${CMAKE_BINARY_DIR}/whisper" EXCLUDE_FROM_ALL SYSTEM)
  if(level)
    message(STATUS "Speech is recognised with ggml-cpu-${level}")
    set_target_properties(ggml-cpu PROPERTIES OUTPUT_NAME ggml-cpu-${level}) # only so the library asks whether it may run
  endif()

  # Matrices are read where they lie in the file, which the processors concerned allow; and their halves are
  # put together by shifts into the sign, which the compilers concerned define.
  if(VANTRO_SANITIZE MATCHES "undefined")
    foreach(target ggml-base ggml-cpu)
      target_compile_options(${target} PRIVATE -fno-sanitize=alignment,shift)
    endforeach()
  endif()

  # Races are looked for in who does what and when. The arithmetic in between shows none of that and would take most of the
  # time.
  if(VANTRO_SANITIZE MATCHES "thread")
    set(cpu "${VANTRO_WHISPER_SOURCE}/ggml/src/ggml-cpu")
    file(GLOB arithmetic "${cpu}/*ops.cpp" "${cpu}/vec.cpp" "${cpu}/quants.c" "${cpu}/repack.cpp" "${cpu}/llamafile/*.cpp"
      "${cpu}/arch/x86/*.c" "${cpu}/arch/x86/repack.cpp")
    set_property(SOURCE ${arithmetic} TARGET_DIRECTORY ggml-cpu APPEND PROPERTY COMPILE_OPTIONS -fno-sanitize=thread)
  endif()

  # Ours, from the patched source. The library's own stays as it is, for its programs.
  find_package(Threads REQUIRED)
  find_program(VANTRO_PATCH patch REQUIRED)
  set(source "${VANTRO_WHISPER_SOURCE}/src/whisper.cpp")
  set(changes "${CMAKE_SOURCE_DIR}/third_party/patches/whisper.patch")
  set(patched "${CMAKE_BINARY_DIR}/whisper-patched/whisper.cpp")
  add_custom_command(OUTPUT "${patched}"
    COMMAND "${VANTRO_PATCH}" --quiet --fuzz=0 --output "${patched}" "${source}" "${changes}"
    DEPENDS "${source}" "${changes}" VERBATIM)
  add_library(vantro_whisper_library STATIC "${patched}")
  set_target_properties(vantro_whisper_library PROPERTIES POSITION_INDEPENDENT_CODE ON)
  target_compile_options(vantro_whisper_library PRIVATE -w -O3)
  target_include_directories(vantro_whisper_library SYSTEM
    PUBLIC "${VANTRO_WHISPER_SOURCE}/include" PRIVATE "${VANTRO_WHISPER_SOURCE}/src")
  target_compile_definitions(vantro_whisper_library PRIVATE WHISPER_VERSION="${VANTRO_WHISPER_VERSION}")
  target_link_libraries(vantro_whisper_library PUBLIC ggml Threads::Threads)

  # GCC 12 miscompiles ggml's AMX tile configuration: quantised models crash on processors with AMX. The variant for
  # those processors keeps everything else.
  set(amx_module ggml-cpu-sapphirerapids)
  if(level STREQUAL "sapphirerapids")
    set(amx_module ggml-cpu)
  endif()
  if(TARGET ${amx_module} AND CMAKE_C_COMPILER_ID STREQUAL "GNU")
    target_compile_options(${amx_module} PRIVATE -mno-amx-tile -mno-amx-int8 -mno-amx-bf16)
  endif()
endfunction()

find_package(whisper ${VANTRO_WHISPER_VERSION} QUIET)
if(NOT whisper_FOUND)
  if(NOT EXISTS "${VANTRO_WHISPER_SOURCE}/CMakeLists.txt")
    message(FATAL_ERROR "whisper.cpp ${VANTRO_WHISPER_VERSION} is neither installed nor in "
      "${VANTRO_WHISPER_SOURCE}. Run scripts/setup first.")
  endif()
  vantro_add_whisper_source()
endif()
if(TARGET vantro_whisper_library)
  add_library(vantro::whisper ALIAS vantro_whisper_library)
else()
  add_library(vantro::whisper ALIAS whisper)
endif()
add_library(vantro::ggml ALIAS ggml)
