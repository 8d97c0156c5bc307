# The program: its rooms from the bottom up, its resources, its folder.
kvez_room(kvez_forms forms kvez_system_precompiled kvez_platform_windows gdi32 user32 comctl32 oleaut32 uuid)
kvez_room(kvez_settings settings kvez_system_precompiled kvez_forms kvez_postal kvez_platform_windows)
kvez_room(kvez_controls controls kvez_system_precompiled kvez_forms kvez_platform_windows)
kvez_room(kvez_mainwindow mainwindow kvez_system_precompiled kvez_controls kvez_settings kvez_postal)

# Icons, manifest and version information; the test programs carry them too.
configure_file(resources/version.h.in generated/version.h)
configure_file(resources/app.manifest.in generated/app.manifest)
file(GLOB icons CONFIGURE_DEPENDS resources/icons/*.ico)
add_library(kvez_resources OBJECT resources/kvez.rc)
target_include_directories(kvez_resources PRIVATE ${PROJECT_SOURCE_DIR}/resources ${PROJECT_BINARY_DIR}/generated)
set_source_files_properties(resources/kvez.rc PROPERTIES OBJECT_DEPENDS
  "${PROJECT_BINARY_DIR}/generated/version.h;${PROJECT_BINARY_DIR}/generated/app.manifest;${icons}")

# Where the program looks for its maker. Without addresses of its own it asks ./kvez serve on this machine; the others are
# of a domain that nobody can own.
set(KVEZ_DOWNLOAD_BASE "http://127.0.0.1:22780/kvez/" CACHE STRING "Address of the folder that ./kvez publish lays out")
set(KVEZ_MAIL "kvez@kvez.example" CACHE STRING "Mail address behind the button E-mail")
set(KVEZ_WEB "www.kvez.example" CACHE STRING "Web page behind the button Internet, without http://")
option(KVEZ_TRIAL "The About panel says that this is a trial without addresses of its own" OFF)
include(cmake/download-base.cmake)
kvez_check_download_base("${KVEZ_DOWNLOAD_BASE}")
set_source_files_properties(mainwindow/addresses.cpp PROPERTIES COMPILE_DEFINITIONS
  "KVEZ_DOWNLOAD_BASE=L\"${KVEZ_DOWNLOAD_BASE}\";KVEZ_MAIL=L\"${KVEZ_MAIL}\";KVEZ_WEB=L\"${KVEZ_WEB}\";KVEZ_TRIAL=$<BOOL:${KVEZ_TRIAL}>")

# The state of the official list that data/ comes from.
file(STRINGS ${PROJECT_SOURCE_DIR}/data/stav.txt KVEZ_DATA_STATE ENCODING UTF-8 LIMIT_COUNT 1)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/data/stav.txt)
set_source_files_properties(mainwindow/about_text.cpp PROPERTIES COMPILE_DEFINITIONS
  "KVEZ_DATA_STATE=L\"${KVEZ_DATA_STATE}\"")

# Other processors' programs have folders of their own; the folder that people know holds the x64 one. Packages are
# built elsewhere, and leave it alone.
set(KVEZ_PROGRAM_FOLDER "" CACHE PATH "Folder of the finished program, when it is another than usual")
if(KVEZ_PROGRAM_FOLDER)
  # It stays.
elseif(CMAKE_SIZEOF_VOID_P EQUAL 8)
  set(KVEZ_PROGRAM_FOLDER ${PROJECT_SOURCE_DIR}/build/kvez)
else()
  set(KVEZ_PROGRAM_FOLDER ${PROJECT_BINARY_DIR}/kvez)
endif()

add_executable(kvez WIN32 mainwindow/program/main.cpp)
target_link_libraries(kvez PRIVATE kvez_mainwindow kvez_resources)
set_target_properties(kvez PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${KVEZ_PROGRAM_FOLDER})
if(MINGW)
  target_compile_options(kvez PRIVATE -Os)
  # The same sources give the same program, whenever they are linked.
  target_link_options(kvez PRIVATE -municode -s -Wl,--gc-sections -Wl,--no-insert-timestamp)
endif()
