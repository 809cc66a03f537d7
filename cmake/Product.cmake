# The makers' addresses. Distributions with their own builds set their own.
set(VANTRO_UPDATE_MANIFEST "https://vantro.com/update/latest.json" CACHE STRING
  "HTTPS URL of the JSON document that describes the newest release")
set(VANTRO_SUPPORT_ADDRESS "support@vantro.com" CACHE STRING "Mailbox for error reports")
set(VANTRO_FEEDBACK_ADDRESS "feedback@vantro.com" CACHE STRING "Mailbox for feedback")
if(NOT VANTRO_UPDATE_MANIFEST MATCHES "^https://")
  message(FATAL_ERROR "VANTRO_UPDATE_MANIFEST must be an https URL")
endif()
configure_file("${CMAKE_SOURCE_DIR}/cmake/Product.h.in" "${CMAKE_BINARY_DIR}/generated/Product.h" @ONLY)
