# The data tool, and the three data files that the build lays beside the program.
file(GLOB tool_sources CONFIGURE_DEPENDS tools/*.cpp)
if(tool_sources)
  add_executable(kvezdata ${tool_sources})
  target_link_libraries(kvezdata PRIVATE kvez_core kvez_platform_portable)
endif()
