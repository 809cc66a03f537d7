# The core of llama.cpp, which the whisper library's source tree carries for the very same ggml: vantro::llama. All its
# architectures are built, since the library's table of them names each.
set(VANTRO_LLAMA_SOURCE "${VANTRO_WHISPER_SOURCE}/examples/talk-llama" CACHE PATH "llama.cpp's core, for the same ggml")

if(NOT EXISTS "${VANTRO_LLAMA_SOURCE}/llama.h")
  message(FATAL_ERROR "llama.cpp's core is not in ${VANTRO_LLAMA_SOURCE}. Run scripts/setup first.")
endif()
file(GLOB vantro_llama_core CONFIGURE_DEPENDS "${VANTRO_LLAMA_SOURCE}/llama*.cpp" "${VANTRO_LLAMA_SOURCE}/unicode*.cpp")
list(FILTER vantro_llama_core EXCLUDE REGEX "llama-quant\\.cpp$") # makes models
file(GLOB vantro_llama_models CONFIGURE_DEPENDS "${VANTRO_LLAMA_SOURCE}/models/*.cpp")

add_library(vantro_llama_models OBJECT EXCLUDE_FROM_ALL ${vantro_llama_models})
# 134 small files behind the same headers: together they compile in a quarter of the time.
set_target_properties(vantro_llama_models PROPERTIES UNITY_BUILD ON UNITY_BUILD_BATCH_SIZE 34)
set_source_files_properties( # these define a function that another one has too
  "${VANTRO_LLAMA_SOURCE}/models/gemma4.cpp" "${VANTRO_LLAMA_SOURCE}/models/qwen3next.cpp"
  PROPERTIES SKIP_UNITY_BUILD_INCLUSION ON)

add_library(vantro_llama_library STATIC EXCLUDE_FROM_ALL ${vantro_llama_core} $<TARGET_OBJECTS:vantro_llama_models>)
foreach(target IN ITEMS vantro_llama_library vantro_llama_models)
  # The arithmetic is ggml's. What is left builds graphs and picks tokens.
  target_compile_options(${target} PRIVATE -w -g0 -O2)
  target_include_directories(${target} SYSTEM PUBLIC "${VANTRO_LLAMA_SOURCE}")
  target_link_libraries(${target} PUBLIC ggml)
endforeach()
add_library(vantro::llama ALIAS vantro_llama_library)
