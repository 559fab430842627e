# What `cmake --install` puts down: the shared library, its headers, the store tool, and what other
# projects find them by. Nothing in it names the prefix, so that the whole may be moved.
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

# Before 1.0 each minor version may break its hosts.
set(INTERFACE_VERSION ${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR})
set_target_properties(ta_vorlumine PROPERTIES
  VERSION ${PROJECT_VERSION} SOVERSION ${INTERFACE_VERSION})
target_include_directories(ta_vorlumine INTERFACE
  $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}/include> $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}>)

install(TARGETS ta_vorlumine EXPORT ta_vorlumine
  LIBRARY COMPONENT library NAMELINK_COMPONENT development)
install(TARGETS vorlumine_rule_store RUNTIME COMPONENT tool)
# Debian wants manual pages compressed, and every reader takes them so.
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS
  ${PROJECT_SOURCE_DIR}/docs/rule_store.1)
execute_process(COMMAND gzip -9nc ${PROJECT_SOURCE_DIR}/docs/rule_store.1
  OUTPUT_FILE ${CMAKE_CURRENT_BINARY_DIR}/rule_store.1.gz COMMAND_ERROR_IS_FATAL ANY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/rule_store.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1
  COMPONENT tool)

# The rest is for who builds a host.
set(CMAKE_INSTALL_DEFAULT_COMPONENT_NAME development)
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/ta_vorlumine DESTINATION ${CMAKE_INSTALL_INCLUDEDIR})
install(FILES ${PROJECT_SOURCE_DIR}/CHANGELOG.md ${PROJECT_SOURCE_DIR}/docs/tables.md
  DESTINATION ${CMAKE_INSTALL_DOCDIR})
install(FILES ${PROJECT_SOURCE_DIR}/examples/host.c ${PROJECT_SOURCE_DIR}/examples/host.py
  ${PROJECT_SOURCE_DIR}/examples/host_thread.c DESTINATION ${CMAKE_INSTALL_DOCDIR}/examples)

# The windows are no part of the interface: a host that finds the library needs nothing else, and so
# the exported targets are the whole package config.
set(PACKAGE_FOLDER ${CMAKE_INSTALL_LIBDIR}/cmake/ta_vorlumine)
install(EXPORT ta_vorlumine NAMESPACE ta_vorlumine:: DESTINATION ${PACKAGE_FOLDER}
  FILE ta_vorlumineConfig.cmake)
write_basic_package_version_file(ta_vorlumineConfigVersion.cmake COMPATIBILITY SameMinorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/ta_vorlumineConfigVersion.cmake
  DESTINATION ${PACKAGE_FOLDER})

set(PKGCONFIG_FOLDER ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
file(RELATIVE_PATH PREFIX_FROM_PKGCONFIG /${PKGCONFIG_FOLDER} /)
configure_file(${CMAKE_CURRENT_LIST_DIR}/ta_vorlumine.pc.in ta_vorlumine.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/ta_vorlumine.pc DESTINATION ${PKGCONFIG_FOLDER})
