# The CPU back end's modules, one for each level of instruction sets, of which the program loads the best when it starts.
# Packages need all; a build for this machine saves a third of its time by making the one that will be loaded.
option(VANTRO_ALL_PROCESSORS "Build the recogniser for all processors, not only for this one" ${VANTRO_BUILD_BENCH})

# The flags of /proc/cpuinfo that the modules for amd64 need, the best first, in the order in which they are rated.
set(vantro_processor_levels
  "sapphirerapids: avx512f avx512_vbmi avx512_vnni avx512_bf16 amx_tile amx_int8 avx2 fma bmi2"
  "zen4: avx512f avx512cd avx512vl avx512dq avx512bw avx512_vbmi avx512_vnni avx512_bf16 avx2 fma bmi2"
  "cooperlake: avx512f avx512cd avx512vl avx512dq avx512bw avx512_vnni avx512_bf16 avx2 fma bmi2"
  "icelake: avx512f avx512cd avx512vl avx512dq avx512bw avx512_vbmi avx512_vnni avx2 fma bmi2"
  "cascadelake: avx512f avx512cd avx512vl avx512dq avx512bw avx512_vnni avx2 fma bmi2"
  "cannonlake: avx512f avx512cd avx512vl avx512dq avx512bw avx512_vbmi avx2 fma bmi2"
  "skylakex: avx512f avx512cd avx512vl avx512dq avx512bw avx2 fma bmi2"
  "alderlake: avx_vnni avx2 fma bmi2"
  "haswell: avx2 fma bmi2 f16c")

# Sets RESULT to the modules to build, of those in ALL. All of them where this processor's cannot be told.
function(vantro_processor_modules result all)
  set(${result} ${all} PARENT_SCOPE)
  if(VANTRO_ALL_PROCESSORS OR CMAKE_CROSSCOMPILING OR NOT EXISTS /proc/cpuinfo)
    return()
  endif()
  file(STRINGS /proc/cpuinfo flags REGEX "^flags" LIMIT_COUNT 1)
  string(REGEX MATCHALL "[a-z0-9_]+" flags "${flags}")
  string(REPLACE "avx512vbmi" "avx512_vbmi" flags "${flags}") # spelt without, unlike the others
  foreach(level IN LISTS vantro_processor_levels)
    string(REGEX MATCH "^([a-z0-9]+): (.*)$" matched "${level}")
    set(module "ggml-cpu-${CMAKE_MATCH_1}")
    string(REPLACE " " ";" missing "${CMAKE_MATCH_2}")
    list(REMOVE_ITEM missing ${flags})
    if(NOT missing AND module IN_LIST all)
      message(STATUS "Speech is recognised with ${module}")
      set(${result} ${module} PARENT_SCOPE)
      return()
    endif()
  endforeach()
endfunction()
