# Headers of the standard library and of the system, read once a build instead of once a file: they were three quarters
# of the compilation. Only other people's headers stand here, so that a change of ours never compiles everything again,
# and each file still includes what it uses: `./kvez lint` reads every file without this.
if(MSVC)
  set(CMAKE_DISABLE_PRECOMPILE_HEADERS ON)
endif()

# kvez_precompiled(<target> <headers...>): a target whose only purpose is to have read these headers.
function(kvez_precompiled target)
  file(CONFIGURE OUTPUT ${PROJECT_BINARY_DIR}/generated/${target}.cpp CONTENT "")
  add_library(${target} OBJECT ${PROJECT_BINARY_DIR}/generated/${target}.cpp)
  target_precompile_headers(${target} PRIVATE ${ARGN})
endfunction()

set(kvez_standard_headers <algorithm> <array> <cstdint> <filesystem> <fstream> <functional> <map> <memory> <optional>
    <span> <stdexcept> <string> <string_view> <unordered_map> <utility> <vector>)
kvez_precompiled(kvez_standard_precompiled ${kvez_standard_headers})
if(WIN32)
  set(kvez_system_headers <windows.h> <commctrl.h>)
  kvez_precompiled(kvez_system_precompiled ${kvez_standard_headers} ${kvez_system_headers})
endif()
