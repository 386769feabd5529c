# Highway's runtime (target detection and dispatch, allocation, printing, timing) built from a
# source tree, for builds that have no installed Highway for their target: Debian packages it
# for the build machine only. The SIMD code itself is header-only and compiled into the core;
# only these five files make up the library. scripts/cross-deps fetches the source of the
# version the native headers have, so every build uses the same Highway.
set(hwy_dir ${GRAINSMITH_HWY_SOURCE_DIR})
if(NOT EXISTS ${hwy_dir}/hwy/targets.cc OR NOT EXISTS ${hwy_dir}/hwy/highway.h)
  message(FATAL_ERROR "GRAINSMITH_HWY_SOURCE_DIR=${hwy_dir} is not a Highway source tree (no hwy/targets.cc "
                      "or hwy/highway.h); 'scripts/cross-deps highway' fetches one and prints its directory")
endif()

add_library(grainsmith_hwy STATIC
  ${hwy_dir}/hwy/aligned_allocator.cc
  ${hwy_dir}/hwy/nanobenchmark.cc
  ${hwy_dir}/hwy/per_target.cc
  ${hwy_dir}/hwy/print.cc
  ${hwy_dir}/hwy/targets.cc)
# Its headers are someone else's code: their warnings are not this project's to fix.
target_include_directories(grainsmith_hwy SYSTEM PUBLIC $<BUILD_INTERFACE:${hwy_dir}>)
target_compile_options(grainsmith_hwy PRIVATE -w)
# Highway reads the CPU's features through getauxval on Arm and similar targets when the C
# library has <sys/auxv.h>, and assumes its baseline without it.
include(CheckIncludeFileCXX)
check_include_file_cxx(sys/auxv.h GRAINSMITH_HAVE_SYS_AUXV_H)
if(NOT GRAINSMITH_HAVE_SYS_AUXV_H)
  target_compile_definitions(grainsmith_hwy PRIVATE TOOLCHAIN_MISS_SYS_AUXV_H=1)
endif()
set_target_properties(grainsmith_hwy PROPERTIES OUTPUT_NAME grainsmith_hwy EXPORT_NAME hwy_runtime)
# The same name find_package(hwy) gives, so the rest of the build does not care where it came from.
add_library(hwy::hwy ALIAS grainsmith_hwy)
unset(hwy_dir)
