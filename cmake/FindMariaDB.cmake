# The client library of MariaDB (Debian's libmariadb-dev), as the target MariaDB::MariaDB.
find_package(PkgConfig QUIET)
if(PkgConfig_FOUND)
  pkg_check_modules(ZUL_PC_MARIADB QUIET libmariadb)
endif()
find_path(MariaDB_INCLUDE_DIR mysql.h HINTS ${ZUL_PC_MARIADB_INCLUDE_DIRS} PATH_SUFFIXES mariadb)
find_library(MariaDB_LIBRARY NAMES mariadb HINTS ${ZUL_PC_MARIADB_LIBRARY_DIRS})
mark_as_advanced(MariaDB_INCLUDE_DIR MariaDB_LIBRARY)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(MariaDB REQUIRED_VARS MariaDB_LIBRARY MariaDB_INCLUDE_DIR)

if(MariaDB_FOUND AND NOT TARGET MariaDB::MariaDB)
  add_library(MariaDB::MariaDB UNKNOWN IMPORTED)
  set_target_properties(MariaDB::MariaDB PROPERTIES
    IMPORTED_LOCATION "${MariaDB_LIBRARY}" INTERFACE_INCLUDE_DIRECTORIES "${MariaDB_INCLUDE_DIR}")
endif()
