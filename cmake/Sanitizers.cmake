# Applies to everything compiled here, including the speech library, so that races and overflows across the boundary are
# found.
if(VANTRO_SANITIZE)
  add_compile_options(-fsanitize=${VANTRO_SANITIZE} -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${VANTRO_SANITIZE})
  if(VANTRO_SANITIZE MATCHES "thread")
    add_link_options("-Wl,-rpath,${CMAKE_SOURCE_DIR}/build/tsan-qt/lib") # made by scripts/sanitized-qt
  endif()
  if(VANTRO_SANITIZE MATCHES "undefined")
    add_compile_options(-fno-sanitize-recover=undefined)
  endif()
endif()
