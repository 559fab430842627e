# What cpack makes of the installed files: three Debian packages, named as Debian names libraries, after
# the version of the interface.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME ta-vorlumine)
set(CPACK_PACKAGE_CONTACT "The maintainers of ta_vorlumine <maintainers@ta-vorlumine.example>"
  CACHE STRING "Name and address of whoever answers for the packages")
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_COMPONENTS_ALL library development tool)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

set(CPACK_DEBIAN_LIBRARY_PACKAGE_NAME libta-vorlumine${INTERFACE_VERSION})
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_LIBRARY_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")
# It draws the pictures by a plugin, which nothing is linked with.
set(CPACK_DEBIAN_LIBRARY_PACKAGE_DEPENDS libqt6svg6)
# The windows speak Japanese: what draws its characters, and the toolkit's own texts in it.
set(CPACK_DEBIAN_LIBRARY_PACKAGE_RECOMMENDS
  "fonts-ipaexfont-gothic | fonts-japanese-gothic, qt6-translations-l10n")
set(CPACK_COMPONENT_LIBRARY_DESCRIPTION "editor of replacement definitions for a host program
A library whose windows edit, inside a host program, the definitions of what
a placeholder in a letter is replaced by. The definitions lie in a SQLite file
or in a PostgreSQL database.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libta-vorlumine-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
  "${CPACK_DEBIAN_LIBRARY_PACKAGE_NAME} (= ${PROJECT_VERSION})")
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SUGGESTS "rule-store (= ${PROJECT_VERSION})")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION
  "editor of replacement definitions, development files
The headers for hosts in C++ and in C, and the files by which CMake and
pkg-config find the library.")

set(CPACK_DEBIAN_TOOL_PACKAGE_NAME rule-store)
set(CPACK_DEBIAN_TOOL_PACKAGE_SECTION database)
set(CPACK_DEBIAN_TOOL_PACKAGE_SHLIBDEPS ON)
set(CPACK_COMPONENT_TOOL_DESCRIPTION "makes, checks, prints and copies stores of replacement definitions
The command rule_store for the stores that the editor ta_vorlumine works on:
SQLite files and PostgreSQL databases.")
include(CPack)
