# Which servers are read is chosen when the build is configured. A SQLite host needs neither libpq nor unixODBC.

# Finds what a chosen server is reached by.
#   zul_find_database(PostgreSQL ZUL_WITH_POSTGRESQL libpq-dev)
macro(zul_find_database name option debian_package)
  if(${option})
    find_package(${name})
    if(NOT ${name}_FOUND)
      message(FATAL_ERROR "${name} was not found. Install it (Debian's package ${debian_package}), "
        "or configure with -D${option}=OFF to build without it.")
    endif()
  endif()
endmacro()

# Adds to a target what reads a server, or what says that this build cannot.
#   zul_database_sources(ZULAds ZUL_WITH_ODBC LIBRARY ODBC::ODBC WITH ODBCCursor.cpp WITHOUT NoODBC.cpp)
function(zul_database_sources target option)
  cmake_parse_arguments(arg "" "LIBRARY" "WITH;WITHOUT" ${ARGN})
  if(${option})
    target_sources(${target} PRIVATE ${arg_WITH})
    target_link_libraries(${target} PRIVATE ${arg_LIBRARY})
  else()
    target_sources(${target} PRIVATE ${arg_WITHOUT})
  endif()
endfunction()
