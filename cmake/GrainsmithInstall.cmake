# Install rules: headers, the core (shared with a SONAME, and static), the plug-in, the tool,
# a CMake package (find_package(Grainsmith CONFIG) gives Grainsmith::core, ::core_static and
# ::plugin) and a pkg-config file (grainsmith.pc).
include(CMakePackageConfigHelpers)

set(GRAINSMITH_CMAKE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/Grainsmith)

install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/grainsmith ${PROJECT_BINARY_DIR}/generated/grainsmith
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR} FILES_MATCHING PATTERN "*.h")

install(TARGETS grainsmith_core EXPORT GrainsmithTargets
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR}
        INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
if(TARGET grainsmith)
  install(TARGETS grainsmith EXPORT GrainsmithTargets LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
endif()
if(TARGET grainsmith_core_shared)
  install(TARGETS grainsmith_core_shared EXPORT GrainsmithTargets
          LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
          INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
endif()
# Highway's runtime built from source (GRAINSMITH_HWY_SOURCE_DIR) goes along with the static
# core, which links it; otherwise the package config finds the installed Highway.
if(TARGET grainsmith_hwy)
  install(TARGETS grainsmith_hwy EXPORT GrainsmithTargets ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
  set(GRAINSMITH_FIND_HWY_PACKAGE OFF)
else()
  set(GRAINSMITH_FIND_HWY_PACKAGE ON)
endif()
if(TARGET grainsmith_cli)
  install(TARGETS grainsmith_cli RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
endif()

install(EXPORT GrainsmithTargets NAMESPACE Grainsmith:: DESTINATION ${GRAINSMITH_CMAKE_DIR})
configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/GrainsmithConfig.cmake.in
  ${PROJECT_BINARY_DIR}/GrainsmithConfig.cmake INSTALL_DESTINATION ${GRAINSMITH_CMAKE_DIR})
# 0.x releases are compatible only within the same minor version.
write_basic_package_version_file(${PROJECT_BINARY_DIR}/GrainsmithConfigVersion.cmake
  COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/GrainsmithConfig.cmake ${PROJECT_BINARY_DIR}/GrainsmithConfigVersion.cmake
        DESTINATION ${GRAINSMITH_CMAKE_DIR})

# pkg-config: written when installing, so that its paths are the absolute, clean paths of the
# prefix chosen then (cmake --install --prefix may choose it after configuration).
install(CODE "
  set(prefix \"\${CMAKE_INSTALL_PREFIX}\")
  set(PROJECT_VERSION ${PROJECT_VERSION})
  set(CMAKE_INSTALL_LIBDIR ${CMAKE_INSTALL_LIBDIR})
  set(CMAKE_INSTALL_INCLUDEDIR ${CMAKE_INSTALL_INCLUDEDIR})
  configure_file(\"${PROJECT_SOURCE_DIR}/cmake/grainsmith.pc.in\" \"${PROJECT_BINARY_DIR}/install/grainsmith.pc\" @ONLY)
  file(INSTALL \"${PROJECT_BINARY_DIR}/install/grainsmith.pc\"
       DESTINATION \"\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_LIBDIR}/pkgconfig\")")

# The examples and the generated reference, beside the other documentation.
install(DIRECTORY ${PROJECT_SOURCE_DIR}/examples/ DESTINATION ${CMAKE_INSTALL_DOCDIR}/examples)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/docs/ DESTINATION ${CMAKE_INSTALL_DOCDIR}/reference)
install(FILES ${PROJECT_SOURCE_DIR}/README.md ${PROJECT_SOURCE_DIR}/LICENSE ${PROJECT_SOURCE_DIR}/CHANGELOG.md
        DESTINATION ${CMAKE_INSTALL_DOCDIR})
