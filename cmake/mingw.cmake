# MinGW-w64 with the POSIX thread model: the other model lacks std::mutex, which GoogleTest needs.
set(triple ${CMAKE_SYSTEM_PROCESSOR}-w64-mingw32)
set(CMAKE_C_COMPILER ${triple}-gcc-posix)
set(CMAKE_CXX_COMPILER ${triple}-g++-posix)
set(CMAKE_DLLTOOL ${triple}-dlltool)
set(CMAKE_RC_COMPILER ${triple}-windres)
# Resource scripts are UTF-8.
set(CMAKE_RC_FLAGS_INIT "-c 65001")
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static")
# Windows 7 is the oldest system that the program starts on.
set(CMAKE_CXX_FLAGS_INIT "-D_WIN32_WINNT=0x0601 -DWINVER=0x0601 -DUNICODE -D_UNICODE -DNOMINMAX -DWIN32_LEAN_AND_MEAN -DSTRICT")

set(CMAKE_FIND_ROOT_PATH /usr/${triple})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

set(CMAKE_CROSSCOMPILING_EMULATOR ${CMAKE_CURRENT_LIST_DIR}/../tests/support/under-wine)
