# The data tool, and the three data files that the build lays beside the program.
if(KVEZ_FUZZERS)
  return()
endif()

# The order of the Czech alphabet comes from the machine: Windows has it, elsewhere ICU does.
if(WIN32)
  add_library(kvez_collation INTERFACE)
  target_link_libraries(kvez_collation INTERFACE kvez_platform_windows)
else()
  find_package(ICU REQUIRED COMPONENTS i18n uc)
  kvez_room(kvez_collation platform/portable/collation kvez_standard_precompiled ICU::i18n ICU::uc)
endif()
# Files that are replaced safely need calls that the standard library lacks.
if(WIN32)
  add_library(kvez_durable_files INTERFACE)
  target_link_libraries(kvez_durable_files INTERFACE kvez_platform_windows)
else()
  kvez_room(kvez_durable_files platform/portable/posix kvez_standard_precompiled)
endif()

# Everything but main() is a library, so that tests can run commands without a process for each.
file(GLOB tool_sources CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/tools/*.cpp)
list(REMOVE_ITEM tool_sources ${PROJECT_SOURCE_DIR}/tools/main.cpp)
add_library(kvez_tool STATIC ${tool_sources})
target_link_libraries(kvez_tool PUBLIC kvez_database kvez_platform_portable kvez_collation kvez_durable_files)
target_precompile_headers(kvez_tool REUSE_FROM kvez_standard_precompiled)
add_executable(kvezdata ${PROJECT_SOURCE_DIR}/tools/main.cpp)
target_link_libraries(kvezdata PRIVATE kvez_tool)
if(MINGW)
  target_link_options(kvezdata PRIVATE -municode)
endif()

# A build for another machine cannot run its own tool and takes the one of the native build.
if(CMAKE_CROSSCOMPILING)
  set(data_tool ${PROJECT_SOURCE_DIR}/build/native/kvezdata)
  set(data_tool_target)
else()
  set(data_tool $<TARGET_FILE:kvezdata>)
  set(data_tool_target kvezdata)
endif()
if(WIN32)
  set(KVEZ_DATA_FOLDER ${KVEZ_PROGRAM_FOLDER})
else()
  set(KVEZ_DATA_FOLDER ${PROJECT_BINARY_DIR}/data)
endif()
# The time of the data files is the state of the list, so this file tells the build when they were made.
set(KVEZ_DATA_STAMP ${PROJECT_BINARY_DIR}/data.stamp)
set(data_files ${KVEZ_DATA_FOLDER}/vd1.kl_ ${KVEZ_DATA_FOLDER}/vd2.kl_ ${KVEZ_DATA_FOLDER}/vd3.kl_)
set(data_tables ${PROJECT_SOURCE_DIR}/data)
# The tool of another build is no dependency that Ninja could make: the script names it in the dependency file, and
# says what to do when it is missing.
add_custom_command(
  OUTPUT ${KVEZ_DATA_STAMP}
  BYPRODUCTS ${data_files}
  COMMAND ${CMAKE_COMMAND} -DTOOL=${data_tool} -DTABLES=${data_tables} -DFOLDER=${KVEZ_DATA_FOLDER}
          -DSTAMP=${KVEZ_DATA_STAMP} -DDEPFILE=${PROJECT_BINARY_DIR}/data.d -P ${PROJECT_SOURCE_DIR}/cmake/make-data.cmake
  DEPENDS ${data_tables}/obce.csv ${data_tables}/posty.csv ${data_tables}/okresy.csv ${data_tables}/stav.txt
          ${PROJECT_SOURCE_DIR}/cmake/make-data.cmake ${data_tool_target}
  DEPFILE ${PROJECT_BINARY_DIR}/data.d
  COMMENT "Making the three data files"
  VERBATIM)
add_custom_target(kvez_data ALL DEPENDS ${KVEZ_DATA_STAMP})
