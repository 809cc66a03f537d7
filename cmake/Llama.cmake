# The core of llama.cpp, which the whisper library's source tree carries for the very same ggml: vantro::llama. All its
# architectures are built, since the library's table of them names each.
set(VANTRO_LLAMA_SOURCE "${VANTRO_WHISPER_SOURCE}/examples/talk-llama" CACHE PATH "llama.cpp's core, for the same ggml")

if(NOT EXISTS "${VANTRO_LLAMA_SOURCE}/llama.h")
  message(FATAL_ERROR "llama.cpp's core is not in ${VANTRO_LLAMA_SOURCE}. Run scripts/setup first.")
endif()
file(GLOB vantro_llama_core CONFIGURE_DEPENDS "${VANTRO_LLAMA_SOURCE}/llama*.cpp" "${VANTRO_LLAMA_SOURCE}/unicode*.cpp")
list(FILTER vantro_llama_core EXCLUDE REGEX "llama-quant\\.cpp$") # makes models
file(GLOB vantro_llama_models CONFIGURE_DEPENDS "${VANTRO_LLAMA_SOURCE}/models/*.cpp")

# Many files behind the same headers: put together they compile in a fraction of the time.
add_library(vantro_llama_library STATIC EXCLUDE_FROM_ALL ${vantro_llama_core} ${vantro_llama_models})
set_target_properties(vantro_llama_library PROPERTIES UNITY_BUILD ON UNITY_BUILD_MODE GROUP)
# These define a function that another one has too.
list(FILTER vantro_llama_core EXCLUDE REGEX "/llama-kv-cache\\.cpp$")
list(FILTER vantro_llama_models EXCLUDE REGEX "/(gemma4|qwen3next)\\.cpp$")
set(part 0)
foreach(source IN LISTS vantro_llama_core vantro_llama_models)
  math(EXPR group "${part} / 27") # so many at once, for several processors
  set_source_files_properties("${source}" PROPERTIES UNITY_GROUP "part${group}")
  math(EXPR part "${part} + 1")
endforeach()
# The arithmetic is ggml's. What is left builds graphs and picks tokens.
target_compile_options(vantro_llama_library PRIVATE -w -g0 -O2)
target_include_directories(vantro_llama_library SYSTEM PUBLIC "${VANTRO_LLAMA_SOURCE}")
target_link_libraries(vantro_llama_library PUBLIC ggml)
add_library(vantro::llama ALIAS vantro_llama_library)
