# What CPack makes of the installed tree: an archive, or Debian packages (scripts/package).

set(ZUL_PACKAGE_MAINTAINER "ZULPickLists developers <zulpicklists@lists.invalid>" CACHE STRING
  "Who answers for the packages: a name and an address")

set(CPACK_PACKAGE_NAME zulpicklists)
set(CPACK_PACKAGE_VENDOR "ZULPickLists")
# Any other than this one, which is its default, CPack puts above each package's own.
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "${PROJECT_NAME} built using CMake")
set(CPACK_PACKAGE_DIRECTORY "${PROJECT_BINARY_DIR}/packages")
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_COMPONENTS_ALL runtime development tools)
set(CPACK_COMPONENT_DEVELOPMENT_DEPENDS runtime)
set(CPACK_COMPONENT_TOOLS_DEPENDS runtime)

set(library libzulpicklists${PROJECT_VERSION_MAJOR})
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "${ZUL_PACKAGE_MAINTAINER}")
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SOURCE zulpicklists)
# dpkg-shlibdeps knows which packages hold the libraries of others; those of our own it must find, and the packages depend
# on one another by name.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${CMAKE_LIBRARY_OUTPUT_DIRECTORY}")
set(CPACK_DEBIAN_ENABLE_COMPONENT_DEPENDS ON)
# What a program was linked with serves it, and so does a later one of the same major version.
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS_POLICY ">=")

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME ${library})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA "${PROJECT_BINARY_DIR}/triggers")
file(WRITE "${PROJECT_BINARY_DIR}/triggers" "activate-noawait ldconfig\n")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_RECOMMENDS fonts-liberation)
set(CPACK_DEBIAN_RUNTIME_DESCRIPTION "pick dialogs for business applications (libraries)
Wherever a user must choose a record, such as a customer, an order or an
item, an application calls one function of these libraries. A modal dialog
opens over the application's own database connection, and the key comes
back.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME libzulpicklists-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "qt6-base-dev (>= 6.4)")
set(CPACK_DEBIAN_DEVELOPMENT_DESCRIPTION "pick dialogs for business applications (development)
Headers, the CMake package, pkg-config files and documents for applications
that call the pick dialogs; the tables that these read, as SQL; and the
English texts for translators.")

set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME zulpicklists-tools)
set(CPACK_DEBIAN_TOOLS_PACKAGE_SECTION database)
set(CPACK_DEBIAN_TOOLS_PACKAGE_RECOMMENDS "fonts-liberation, libqt6sql6-sqlite")
set(CPACK_DEBIAN_TOOLS_PACKAGE_SUGGESTS "libqt6sql6-psql, libqt6sql6-odbc")
set(CPACK_DEBIAN_TOOLS_DESCRIPTION "pick dialogs for business applications (programs)
zulpick opens a pick dialog from a shell script and prints the key, zulhost
is a window with every pick, and zulsample writes the database of a made-up
company to try them on.")

set(CPACK_PRE_BUILD_SCRIPTS "${PROJECT_BINARY_DIR}/FinishDebian.cmake")
set(CPACK_ARCHIVE_COMPONENT_INSTALL OFF)
configure_file("${PROJECT_SOURCE_DIR}/cmake/FinishDebian.cmake.in" "${CPACK_PRE_BUILD_SCRIPTS}" @ONLY)
include(CPack)
