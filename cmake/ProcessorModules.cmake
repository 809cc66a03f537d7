# The CPU back end's modules, one for each level of instruction sets, of which the program loads the best when it starts.
# Packages need all; a build for this machine saves minutes by making the one that would be loaded.
option(VANTRO_ALL_PROCESSORS "Build the recogniser for all processors, not only for this one" ${VANTRO_BUILD_BENCH})

# The library's levels for amd64, the best first, with its options for each; all have those of haswell too.
set(vantro_processor_levels
  "sapphirerapids AVX512 AVX512_VBMI AVX512_VNNI AVX512_BF16 AMX_TILE AMX_INT8"
  "zen4 AVX512 AVX512_VBMI AVX512_VNNI AVX512_BF16"
  "cooperlake AVX512 AVX512_VNNI AVX512_BF16"
  "icelake AVX512 AVX512_VBMI AVX512_VNNI"
  "cascadelake AVX512 AVX512_VNNI"
  "cannonlake AVX512 AVX512_VBMI"
  "skylakex AVX512"
  "alderlake AVX_VNNI"
  "haswell")
set(vantro_haswell_options SSE42 AVX F16C FMA AVX2 BMI2)

# Sets RESULT to those of the library's OPTIONS that this processor has.
function(vantro_processor_options result options)
  file(STRINGS /proc/cpuinfo flags REGEX "^flags" LIMIT_COUNT 1)
  string(TOUPPER "${flags}" flags)
  string(REGEX MATCHALL "[A-Z0-9_]+" flags "${flags}")
  set(present)
  foreach(option IN LISTS options)
    set(missing ${option})
    if(option STREQUAL "AVX512")
      set(missing AVX512F AVX512CD AVX512VL AVX512DQ AVX512BW)
    elseif(option STREQUAL "AVX512_VBMI")
      set(missing AVX512VBMI)
    elseif(option STREQUAL "SSE42")
      set(missing SSE4_2)
    endif()
    list(REMOVE_ITEM missing ${flags})
    if(NOT missing)
      list(APPEND present ${option})
    endif()
  endforeach()
  set(${result} "${present}" PARENT_SCOPE)
endfunction()

# Sets LEVEL to the best level of this processor and OPTIONS to the library's options for it. LEVEL is empty where all modules
# are wanted, and where this processor's cannot be told.
function(vantro_processor_level level options)
  set(${level} "" PARENT_SCOPE)
  if(VANTRO_ALL_PROCESSORS OR CMAKE_CROSSCOMPILING OR NOT CMAKE_SYSTEM_PROCESSOR MATCHES "x86_64|AMD64" OR NOT EXISTS /proc/cpuinfo)
    return()
  endif()
  foreach(entry IN LISTS vantro_processor_levels)
    string(REPLACE " " ";" wanted "${entry}")
    list(POP_FRONT wanted name)
    list(PREPEND wanted ${vantro_haswell_options})
    vantro_processor_options(present "${wanted}")
    if(present STREQUAL wanted)
      set(${level} ${name} PARENT_SCOPE)
      set(${options} "${wanted}" PARENT_SCOPE)
      return()
    endif()
  endforeach()
endfunction()
