# Applied to everything that is compiled here, the speech library included: a race or an overflow that crosses the
# border between our code and the library would otherwise go unseen.
if(VANTRO_SANITIZE)
  add_compile_options(-fsanitize=${VANTRO_SANITIZE} -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${VANTRO_SANITIZE})
  if(VANTRO_SANITIZE MATCHES "undefined")
    add_compile_options(-fno-sanitize-recover=undefined)
  endif()
endif()
