# Windows x86-64 with Debian's mingw-w64 (POSIX threads, so std::thread and std::mutex work),
# the programs run under wine. Used by `scripts/build windows`:
#   cmake -S . -B build-windows -DCMAKE_TOOLCHAIN_FILE=cmake/toolchains/mingw-w64-x86_64.cmake \
#         -DGRAINSMITH_HWY_SOURCE_DIR=$(scripts/cross-deps windows) ...
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR AMD64)

set(GRAINSMITH_MINGW_TRIPLET x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${GRAINSMITH_MINGW_TRIPLET}-gcc-posix)
set(CMAKE_CXX_COMPILER ${GRAINSMITH_MINGW_TRIPLET}-g++-posix)
set(CMAKE_RC_COMPILER ${GRAINSMITH_MINGW_TRIPLET}-windres)

# Libraries and headers come from the mingw-w64 tree only; programs run on the build machine.
set(CMAKE_FIND_ROOT_PATH /usr/${GRAINSMITH_MINGW_TRIPLET})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# ctest (and try_run) start the programs through wine. Debian's `wine` picks the 64-bit loader
# when no 32-bit wine is installed.
find_program(GRAINSMITH_WINE NAMES wine wine64 PATHS /usr/lib/wine NO_CMAKE_FIND_ROOT_PATH)
if(GRAINSMITH_WINE)
  set(CMAKE_CROSSCOMPILING_EMULATOR ${GRAINSMITH_WINE})
endif()
