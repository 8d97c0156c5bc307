# The program: its rooms from the bottom up, its resources, its folder.
kvez_room(kvez_forms forms gdi32 user32 comctl32 oleacc ole32 oleaut32 uuid)
kvez_room(kvez_settings settings kvez_forms kvez_core kvez_platform_windows)
kvez_room(kvez_controls controls kvez_forms kvez_platform_windows shell32)
#kvez_room(kvez_mainwindow mainwindow kvez_controls kvez_core)

# Other processors' programs have folders of their own; the folder that people know holds the x64 one.
if(CMAKE_SIZEOF_VOID_P EQUAL 8)
  set(KVEZ_PROGRAM_FOLDER ${PROJECT_SOURCE_DIR}/build/kvez)
else()
  set(KVEZ_PROGRAM_FOLDER ${PROJECT_BINARY_DIR}/kvez)
endif()

add_executable(kvez WIN32 mainwindow/program/main.cpp resources/kvez.rc)
target_link_libraries(kvez PRIVATE kvez_forms)
target_include_directories(kvez PRIVATE ${PROJECT_SOURCE_DIR}/resources)
set_target_properties(kvez PROPERTIES RUNTIME_OUTPUT_DIRECTORY ${KVEZ_PROGRAM_FOLDER})
if(MINGW)
  target_compile_options(kvez PRIVATE -Os)
  target_link_options(kvez PRIVATE -municode -s -Wl,--gc-sections)
endif()
