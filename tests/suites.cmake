# kvez_discover_suites(<target> <label> [<session>...]): CTest gets one entry for each suite of a test program. A process a test cost
# nine minutes under Wine where a process a suite costs one; a suite that crashes still takes no other along.
#
# The suites run in the Wine sessions of the folders <session>, in turn, so that several run at a time. What prints takes
# the first.
#
# The suites are asked from the program when CTest starts, because the build may not be able to run it.
function(kvez_discover_suites target label)
  set(include ${CMAKE_CURRENT_BINARY_DIR}/${target}-suites-include.cmake)
  file(GENERATE OUTPUT ${include} CONTENT "set(PROGRAM \"$<TARGET_FILE:${target}>\")
set(LAUNCHER \"${CMAKE_CROSSCOMPILING_EMULATOR}\")
set(LABEL ${label})
set(SESSIONS \"${ARGN}\")
set(LIST \"${CMAKE_CURRENT_BINARY_DIR}/${target}-suites.cmake\")
include(\"${CMAKE_CURRENT_FUNCTION_LIST_DIR}/add-suites.cmake\")
")
  set_property(DIRECTORY APPEND PROPERTY TEST_INCLUDE_FILES ${include})
endfunction()
