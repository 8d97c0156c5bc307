# kvez_check_download_base(<address>): stops the configuration at an address that the program must not ask. What it
# downloads is read and shown without a signature, so the server has to prove who it is; only this machine need not.
# Tried alone: cmake -DKVEZ_DOWNLOAD_BASE=... -P cmake/download-base.cmake
function(kvez_check_download_base base)
  if(NOT base MATCHES "/$")
    message(FATAL_ERROR "KVEZ_DOWNLOAD_BASE must end with a slash; it is ${base}")
  endif()
  if(NOT base MATCHES "^https://[^/]" AND NOT base MATCHES "^http://127\\.0\\.0\\.1(:[0-9]+)?/")
    message(FATAL_ERROR "KVEZ_DOWNLOAD_BASE must begin with https://; it is ${base}")
  endif()
endfunction()

if(CMAKE_SCRIPT_MODE_FILE)
  kvez_check_download_base("${KVEZ_DOWNLOAD_BASE}")
endif()
