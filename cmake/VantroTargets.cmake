# One CMake target per folder; a folder may include only what its target links.

# Compiler settings for our own code; third-party headers are SYSTEM.
add_library(vantro_settings INTERFACE)
target_compile_options(vantro_settings INTERFACE -Wall -Wextra -Wpedantic)
if(VANTRO_WARNINGS_AS_ERRORS)
  target_compile_options(vantro_settings INTERFACE -Werror)
endif()
target_compile_definitions(vantro_settings INTERFACE
  QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_KEYWORDS QT_NO_NARROWING_CONVERSIONS_IN_CONNECT
  VANTRO_VERSION="${PROJECT_VERSION}"
  _REENTRANT) # as PulseAudio's and GLib's flags have it: precompiled headers serve only where it is the same
if(CMAKE_UNITY_BUILD AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # A coroutine's frame may hold its file's own types; the compiler takes that file for a header here.
  target_compile_options(vantro_settings INTERFACE -Wno-subobject-linkage)
endif()
if(VANTRO_SANITIZE)
  # With sanitizers, GCC reports false positives for std::optional.
  target_compile_options(vantro_settings INTERFACE -Wno-maybe-uninitialized)
endif()
if(VANTRO_ASSERTIONS)
  target_compile_options(vantro_settings INTERFACE -UNDEBUG)
endif()

# vantro_room(NAME SOURCES ... LINK ... [PRIVATE_LINK ...] [NO_QT]): a static library for one folder of the tree.
# LINK: needed by the public headers; PRIVATE_LINK: needed by the sources only; NO_QT: for a room that knows nothing of Qt.
function(vantro_room name)
  cmake_parse_arguments(ARG "NO_QT" "" "SOURCES;LINK;PRIVATE_LINK" ${ARGN})
  add_library(${name} STATIC ${ARG_SOURCES})
  if(NOT ARG_NO_QT)
    set_target_properties(${name} PROPERTIES AUTOMOC ON)
    target_precompile_headers(${name} REUSE_FROM vantro_headers)
  endif()
  target_include_directories(${name} PUBLIC "${CMAKE_SOURCE_DIR}")
  target_link_libraries(${name} PUBLIC ${ARG_LINK} PRIVATE vantro_settings ${ARG_PRIVATE_LINK})
endfunction()

# How often a test may take its usual time.
set(VANTRO_PATIENCE 1)
if(VANTRO_SANITIZE)
  set(VANTRO_PATIENCE 4)
endif()

function(vantro_time_limit variable seconds)
  math(EXPR limit "${VANTRO_PATIENCE} * ${seconds}")
  set(${variable} ${limit} PARENT_SCOPE)
endfunction()

# vantro_test(NAME SOURCES ... LINK ... [ENV NAME=VALUE ...] [LABELS ...] [TIMEOUT seconds] [WRAPPER command ...]):
# a GoogleTest program registered with ctest under NAME. WRAPPER runs it, for tests that need a display or a server.
function(vantro_test name)
  cmake_parse_arguments(ARG "" "TIMEOUT" "SOURCES;LINK;ENV;LABELS;WRAPPER" ${ARGN})
  if(NOT ARG_TIMEOUT)
    set(ARG_TIMEOUT 120)
  endif()
  vantro_time_limit(limit ${ARG_TIMEOUT})
  add_executable(${name} ${ARG_SOURCES})
  set_target_properties(${name} PROPERTIES AUTOMOC ON)
  target_include_directories(${name} PRIVATE "${CMAKE_SOURCE_DIR}")
  target_link_libraries(${name} PRIVATE vantro_settings ${ARG_LINK} GTest::gmock)
  target_precompile_headers(${name} REUSE_FROM vantro_test_headers)
  add_test(NAME ${name} COMMAND ${ARG_WRAPPER} $<TARGET_FILE:${name}>)
  set_tests_properties(${name} PROPERTIES TIMEOUT ${limit} LABELS "${ARG_LABELS}"
    ENVIRONMENT "VANTRO_SOURCE_DIR=${CMAKE_SOURCE_DIR};${ARG_ENV}")
endfunction()

# vantro_script_test(NAME SCRIPT [ENV NAME=VALUE ...] [LABELS ...] [TIMEOUT seconds] [SERIAL]): a Python test of the
# built program, registered with ctest under NAME. An exit status of 77 means that it cannot run on this machine.
function(vantro_script_test name script)
  cmake_parse_arguments(ARG "SERIAL" "TIMEOUT" "ENV;LABELS" ${ARGN})
  if(NOT ARG_TIMEOUT)
    set(ARG_TIMEOUT 120)
  endif()
  vantro_time_limit(limit ${ARG_TIMEOUT})
  add_test(NAME ${name} COMMAND "${CMAKE_CURRENT_SOURCE_DIR}/${script}")
  set_tests_properties(${name} PROPERTIES TIMEOUT ${limit} LABELS "${ARG_LABELS}" SKIP_RETURN_CODE 77
    ENVIRONMENT "VANTRO_PROGRAM=$<TARGET_FILE:vantro>;VANTRO_SOURCE_DIR=${CMAKE_SOURCE_DIR};VANTRO_PATIENCE=${VANTRO_PATIENCE};PYTHONDONTWRITEBYTECODE=1;${ARG_ENV}")
  if(ARG_SERIAL)
    set_tests_properties(${name} PROPERTIES RUN_SERIAL ON)
  endif()
endfunction()
