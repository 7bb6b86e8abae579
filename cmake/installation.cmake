# What `cmake --install` lays down: the three libraries with their headers, the console program, the CMake package
# `blockcommon` and one pkg-config file a library.
include_guard(GLOBAL)
include(CMakePackageConfigHelpers)

# The pkg-config files find the prefix from where they lie, so that an installed tree may be moved.
file(RELATIVE_PATH pkgconfig_to_prefix /prefix/${CMAKE_INSTALL_LIBDIR}/pkgconfig /prefix)
set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/blockcommon)

# The SDK's headers have plain names (OdString.h), so they get a folder of their own.
set(sdk_headers ${CMAKE_INSTALL_INCLUDEDIR}/mvdrawing)

# install_library(TARGET EXPORT-SET EXPORT-NAME HEADER-SOURCE HEADER-FOLDER PKGCONFIG-NAME)
function(install_library target set name headers folder pkgconfig)
  set_target_properties(${target} PROPERTIES
    EXPORT_NAME ${name} VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR})
  install(TARGETS ${target} EXPORT ${set}
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} INCLUDES DESTINATION ${folder})
  install(DIRECTORY ${headers}/ DESTINATION ${folder} FILES_MATCHING PATTERN "*.h")
  configure_file(${PROJECT_SOURCE_DIR}/cmake/${pkgconfig}.pc.in ${PROJECT_BINARY_DIR}/${pkgconfig}.pc @ONLY)
  install(FILES ${PROJECT_BINARY_DIR}/${pkgconfig}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
endfunction()

install_library(mvdrawing morvane-targets sdk ${PROJECT_SOURCE_DIR}/drawing/include ${sdk_headers} libmvdrawing)
install_library(mvhost morvane-targets host
  ${PROJECT_SOURCE_DIR}/morvane/include ${CMAKE_INSTALL_INCLUDEDIR} libmorvane)
install(EXPORT morvane-targets NAMESPACE morvane:: DESTINATION ${package_dir})

install_library(blockcommon blockcommon-targets blockcommon
  ${PROJECT_SOURCE_DIR}/blockcommon/include ${CMAKE_INSTALL_INCLUDEDIR} libblockcommon)
install(EXPORT blockcommon-targets NAMESPACE blockcommon:: DESTINATION ${package_dir})

install(TARGETS morvane RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})

configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/blockcommon-config.cmake.in
  ${PROJECT_BINARY_DIR}/blockcommon-config.cmake INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/blockcommon-config-version.cmake
  VERSION ${PROJECT_VERSION} COMPATIBILITY SameMinorVersion)
install(FILES ${PROJECT_BINARY_DIR}/blockcommon-config.cmake ${PROJECT_BINARY_DIR}/blockcommon-config-version.cmake
  DESTINATION ${package_dir})
