# Read by CTest for each test program PROGRAM, which LAUNCHER runs: registers its suites under LABEL. LIST keeps them
# until the program is built anew.
if(NOT EXISTS ${PROGRAM})
  return()
endif()
if(NOT EXISTS ${LIST} OR ${PROGRAM} IS_NEWER_THAN ${LIST})
  execute_process(COMMAND ${LAUNCHER} ${PROGRAM} --gtest_list_tests
                  OUTPUT_VARIABLE output RESULT_VARIABLE status ERROR_VARIABLE error TIMEOUT 180)
  if(NOT status EQUAL 0)
    message(FATAL_ERROR "${PROGRAM} does not list its tests (${status}):\n${output}${error}")
  endif()
  # A suite stands at the beginning of its line and ends in a full stop; behind a parametrised one is a comment.
  string(REGEX MATCHALL "(^|\n)[A-Za-z0-9_/]+\\." suites "${output}")
  set(text "")
  foreach(suite IN LISTS suites)
    string(REGEX REPLACE "[\n.]" "" suite "${suite}")
    set(properties "LABELS ${LABEL} TIMEOUT 600")
    if(NOT LABEL STREQUAL core)
      # One desktop, one pointer, one keyboard.
      string(APPEND properties " RESOURCE_LOCK desktop")
    endif()
    if(suite MATCHES "^RealPrinter")
      string(APPEND properties " FIXTURES_REQUIRED print_queue ENVIRONMENT KVEZ_PRINT_QUEUE=1")
    endif()
    string(APPEND text "add_test(${suite} ${LAUNCHER} ${PROGRAM} --gtest_filter=${suite}.*)\n"
           "set_tests_properties(${suite} PROPERTIES ${properties})\n")
  endforeach()
  file(WRITE ${LIST} "${text}")
endif()
include(${LIST})
