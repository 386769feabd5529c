# Cross build for 64-bit Arm Linux with Debian's cross compilers (g++-aarch64-linux-gnu); tests
# run under qemu's user-mode emulator (qemu-user), which ctest starts for every test program.
#   cmake -S . -B build-arm64 -DCMAKE_TOOLCHAIN_FILE=cmake/toolchains/aarch64-linux-gnu.cmake ...
# (scripts/build arm64 gives the whole configuration.)
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR aarch64)

set(CMAKE_C_COMPILER aarch64-linux-gnu-gcc)
set(CMAKE_CXX_COMPILER aarch64-linux-gnu-g++)

# Debian's cross compilers know their target's headers and libraries under this prefix; it is not
# a --sysroot (the compiler would then look below it for usr/include). Packages and libraries are
# looked for there only, programs on the build machine only.
set(GRAINSMITH_AARCH64_PREFIX /usr/aarch64-linux-gnu)
set(CMAKE_FIND_ROOT_PATH ${GRAINSMITH_AARCH64_PREFIX})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# -L: where the emulated program's dynamic loader and shared libraries are.
set(CMAKE_CROSSCOMPILING_EMULATOR qemu-aarch64;-L;${GRAINSMITH_AARCH64_PREFIX})
