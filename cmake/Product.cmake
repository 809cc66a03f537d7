# Where the makers are reached. A distribution that ships its own builds sets its own.
set(VANTRO_UPDATE_MANIFEST "https://vantro.com/update/latest.json" CACHE STRING
  "HTTPS address of the JSON document that tells the newest release")
set(VANTRO_SUPPORT_ADDRESS "support@vantro.com" CACHE STRING "Mailbox for error reports")
set(VANTRO_FEEDBACK_ADDRESS "feedback@vantro.com" CACHE STRING "Mailbox for feedback")
if(NOT VANTRO_UPDATE_MANIFEST MATCHES "^https://")
  message(FATAL_ERROR "VANTRO_UPDATE_MANIFEST must be an https address")
endif()
configure_file("${CMAKE_SOURCE_DIR}/cmake/Product.h.in" "${CMAKE_BINARY_DIR}/generated/Product.h" @ONLY)
