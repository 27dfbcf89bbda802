# Cross compiling for 64-bit Windows with MinGW-w64, as Debian packages it. The compiler is the one
# with POSIX threads: the other has no std::thread and std::mutex.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(triple x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${triple}-gcc-posix)
set(CMAKE_CXX_COMPILER ${triple}-g++-posix)
set(CMAKE_RC_COMPILER ${triple}-windres)

# packaging/windows-sdl.sh and windows-sqlite.sh build what is in the second and third of these.
set(deps ${CMAKE_CURRENT_LIST_DIR}/../build/windows-deps)
list(APPEND CMAKE_FIND_ROOT_PATH /usr/${triple} ${deps}/sdl ${deps}/sqlite)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# SDL's own finder would make windowed programs of all that link it.
set(MINGW32_LIBRARY mingw32 CACHE STRING "Link flags for MinGW")

# What runs the programs here, tests above all.
if(NOT CMAKE_CROSSCOMPILING_EMULATOR)
  find_program(CMAKE_CROSSCOMPILING_EMULATOR NAMES wine64 wine PATHS /usr/lib/wine)
endif()
