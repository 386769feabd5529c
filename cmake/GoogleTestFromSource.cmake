# GoogleTest built from a source tree, for builds that have no installed GoogleTest for their
# target: Debian's libgtest-dev has the libraries for the build machine only, and its source
# package part (googletest, /usr/src/googletest) is the same version. Gives the names that
# find_package(GTest) gives.
set(gtest_dir ${GRAINSMITH_GTEST_SOURCE_DIR})
if(NOT EXISTS ${gtest_dir}/googletest/CMakeLists.txt)
  message(FATAL_ERROR "GRAINSMITH_GTEST_SOURCE_DIR=${gtest_dir} is not a GoogleTest source tree (no "
                      "googletest/CMakeLists.txt); Debian's googletest package installs one in /usr/src/googletest")
endif()
# Only the libraries the tests link, none of GoogleTest's own tests or install rules.
set(INSTALL_GTEST OFF)
set(BUILD_GMOCK OFF)
add_subdirectory(${gtest_dir}/googletest ${PROJECT_BINARY_DIR}/googletest EXCLUDE_FROM_ALL)
# Someone else's code: its warnings are not this project's to fix.
target_compile_options(gtest PRIVATE -w)
target_compile_options(gtest_main PRIVATE -w)
# GoogleTest 1.12 and later name them itself; older trees do not.
if(NOT TARGET GTest::gtest)
  add_library(GTest::gtest ALIAS gtest)
  add_library(GTest::gtest_main ALIAS gtest_main)
endif()
unset(gtest_dir)
