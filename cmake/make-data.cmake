# Runs the data tool TOOL: the tables in TABLES become the data files in FOLDER, whose time is the
# state of the list; STAMP gets the time of the build, and DEPFILE says that it depends on TOOL.
if(NOT EXISTS ${TOOL})
  message(FATAL_ERROR "The data files are made by the native data tool, and ${TOOL} is missing.\n"
    "Build it first: cmake --preset native && cmake --build --preset native --target kvezdata")
endif()
execute_process(COMMAND ${TOOL} build ${TABLES} ${FOLDER} OUTPUT_VARIABLE output RESULT_VARIABLE status)
if(NOT status EQUAL 0)
  message(FATAL_ERROR "The data files were not made (${TOOL} build ${TABLES} ${FOLDER}).")
endif()
file(WRITE ${DEPFILE} "${STAMP}: ${TOOL}\n")
file(WRITE ${STAMP} "")
