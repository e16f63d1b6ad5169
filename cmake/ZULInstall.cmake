# What an installed tree has besides libraries, headers and programs: the CMake package (find_package(ZULPickLists) gives
# ZUL::PickLists and what is below it), the pkg-config files, the documents, and what goes into a host's own work.
include(CMakePackageConfigHelpers)

set(ZUL_PACKAGE_DIR "${CMAKE_INSTALL_LIBDIR}/cmake/ZULPickLists")
configure_package_config_file("${PROJECT_SOURCE_DIR}/cmake/ZULPickListsConfig.cmake.in"
  "${PROJECT_BINARY_DIR}/ZULPickListsConfig.cmake" INSTALL_DESTINATION "${ZUL_PACKAGE_DIR}")
write_basic_package_version_file("${PROJECT_BINARY_DIR}/ZULPickListsConfigVersion.cmake" COMPATIBILITY SameMajorVersion)
install(FILES "${PROJECT_BINARY_DIR}/ZULPickListsConfig.cmake" "${PROJECT_BINARY_DIR}/ZULPickListsConfigVersion.cmake"
  DESTINATION "${ZUL_PACKAGE_DIR}" COMPONENT development)
install(EXPORT ZULPickListsTargets NAMESPACE ZUL:: DESTINATION "${ZUL_PACKAGE_DIR}" COMPONENT development)

# A pkg-config file. It finds its folders from where it stands, so a tree may be moved.
#   zul_pkgconfig(zulpicklists "Modal pick dialogs" LIBRARIES ZULPickLists ZULAds REQUIRES Qt6Sql)
function(zul_pkgconfig name description)
  cmake_parse_arguments(arg "" "" "LIBRARIES;REQUIRES" ${ARGN})
  list(TRANSFORM arg_LIBRARIES PREPEND "-l")
  list(JOIN arg_LIBRARIES " " ZUL_PC_LIBRARIES)
  list(JOIN arg_REQUIRES ", " ZUL_PC_REQUIRES)
  set(ZUL_PC_NAME ${name})
  set(ZUL_PC_DESCRIPTION "${description}")
  file(RELATIVE_PATH ZUL_PC_PREFIX "/${CMAKE_INSTALL_LIBDIR}/pkgconfig" "/")
  string(REGEX REPLACE "/$" "" ZUL_PC_PREFIX "${ZUL_PC_PREFIX}")
  configure_file("${PROJECT_SOURCE_DIR}/cmake/pkgconfig.pc.in" "${PROJECT_BINARY_DIR}/${name}.pc" @ONLY)
  install(FILES "${PROJECT_BINARY_DIR}/${name}.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig" COMPONENT development)
endfunction()

zul_pkgconfig(zulpicklists "${PROJECT_DESCRIPTION}"
  LIBRARIES ZULPickLists ZULToolkit ZULAds ZULCommon REQUIRES "Qt6Widgets >= 6.4" "Qt6Sql >= 6.4")
zul_pkgconfig(zulcatalog "What can be picked, as data" LIBRARIES ZULCatalog REQUIRES "zulpicklists = ${PROJECT_VERSION}")
zul_pkgconfig(zulcheck "What a database lacks for the picks" LIBRARIES ZULCheck REQUIRES "zulcatalog = ${PROJECT_VERSION}")
zul_pkgconfig(zulpickc "The picks in plain C" LIBRARIES ZULPickC)

if(CMAKE_INSTALL_DOCDIR STREQUAL "${CMAKE_INSTALL_DATAROOTDIR}/doc/${PROJECT_NAME}")
  set(CMAKE_INSTALL_DOCDIR "${CMAKE_INSTALL_DATAROOTDIR}/doc/zulpicklists")  # unless somebody has chosen another
endif()
install(FILES README.md CHANGELOG.md DESTINATION "${CMAKE_INSTALL_DOCDIR}" COMPONENT development)
install(DIRECTORY docs examples DESTINATION "${CMAKE_INSTALL_DOCDIR}" COMPONENT development)
# For those who make a database, or lay the texts of another language over the English ones.
install(FILES sample/schema.sql src/zulcommon/strings/en.txt src/zulcommon/strings/en.names.txt
  src/zulcommon/strings/de.txt
  DESTINATION "${CMAKE_INSTALL_DATADIR}/zulpicklists" COMPONENT development)
