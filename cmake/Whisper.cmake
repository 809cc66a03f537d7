# whisper.cpp with ggml. An installed library of the tested version wins; otherwise the pinned source tree that
# scripts/setup fetched is built with the project.
set(VANTRO_WHISPER_VERSION 1.9.1)
set(VANTRO_WHISPER_SOURCE "${CMAKE_SOURCE_DIR}/third_party/node_modules/nodejs-whisper/cpp/whisper.cpp"
  CACHE PATH "whisper.cpp source tree")

find_package(whisper ${VANTRO_WHISPER_VERSION} QUIET)
if(NOT whisper_FOUND)
  if(NOT EXISTS "${VANTRO_WHISPER_SOURCE}/CMakeLists.txt")
    message(FATAL_ERROR "No whisper.cpp ${VANTRO_WHISPER_VERSION} is installed and none lies in "
      "${VANTRO_WHISPER_SOURCE}. Run scripts/setup first.")
  endif()
  include(WhisperOptions)
  add_subdirectory("${VANTRO_WHISPER_SOURCE}" "${CMAKE_BINARY_DIR}/whisper" EXCLUDE_FROM_ALL SYSTEM)
  add_library(whisper::whisper ALIAS whisper)
endif()
