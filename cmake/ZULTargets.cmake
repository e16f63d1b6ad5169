# How every target of the project is built: the language, the warnings, the sanitizers, hidden symbols,
# one precompiled header for Qt.

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/lib")
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/lib")
set(CMAKE_INSTALL_RPATH "$ORIGIN/../${CMAKE_INSTALL_LIBDIR}:$ORIGIN")
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

# What every target shares. Not exported: a host picks its own warnings.
function(zul_target_defaults target)
  target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wshadow -Wconversion
    # GCC 12 reports joined std::strings at -O3 as overlapping copies, which they are not.
    $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>
    # A symbol that is unique in the whole process pins the library in which it was found first.
    $<$<AND:$<CXX_COMPILER_ID:GNU>,$<STREQUAL:$<TARGET_PROPERTY:TYPE>,SHARED_LIBRARY>>:-fno-gnu-unique>)
  if(ZUL_WARNINGS_AS_ERRORS)
    target_compile_options(${target} PRIVATE -Werror)
  endif()
  if(ZUL_SANITIZE)
    target_compile_options(${target} PRIVATE -fsanitize=${ZUL_SANITIZE} -fno-omit-frame-pointer
                                             -fno-sanitize-recover=undefined)
    target_link_options(${target} PRIVATE -fsanitize=${ZUL_SANITIZE})
  endif()
  target_compile_definitions(${target} PRIVATE QT_NO_CAST_TO_ASCII QT_NO_CAST_FROM_BYTEARRAY)
endfunction()

# A public library of the project: shared, hidden symbols but for its export macro, an alias and an install
# export under ZUL::, its headers checked to compile alone.
#   zul_library(ZULAds ALIAS Ads FOLDER ads SOURCES ... HEADERS ... PUBLIC ... PRIVATE ...)
function(zul_library target)
  cmake_parse_arguments(arg "" "ALIAS;FOLDER" "SOURCES;HEADERS;PUBLIC;PRIVATE" ${ARGN})
  add_library(${target} SHARED ${arg_SOURCES})
  add_library(ZUL::${arg_ALIAS} ALIAS ${target})
  zul_target_defaults(${target})
  set_target_properties(${target} PROPERTIES
    EXPORT_NAME ${arg_ALIAS} AUTOMOC ON AUTORCC ON
    VERIFY_INTERFACE_HEADER_SETS ON  # in the target all_verify_interface_header_sets
    VERSION ${PROJECT_VERSION} SOVERSION ${PROJECT_VERSION_MAJOR})
  string(TOLOWER ${target} lower)
  generate_export_header(${target}
    EXPORT_FILE_NAME "${PROJECT_BINARY_DIR}/include/${arg_FOLDER}/${lower}_export.h")
  target_sources(${target} PUBLIC
    FILE_SET HEADERS BASE_DIRS "${PROJECT_SOURCE_DIR}/src" "${PROJECT_BINARY_DIR}/include"
    FILES ${arg_HEADERS} "${PROJECT_BINARY_DIR}/include/${arg_FOLDER}/${lower}_export.h")
  target_include_directories(${target} PUBLIC
    $<INSTALL_INTERFACE:${CMAKE_INSTALL_INCLUDEDIR}/zul>)
  target_compile_features(${target} PUBLIC cxx_std_20)
  target_link_libraries(${target} PUBLIC ${arg_PUBLIC} PRIVATE ${arg_PRIVATE})
  target_link_options(${target} PRIVATE "-Wl,--version-script=${PROJECT_SOURCE_DIR}/cmake/OwnSymbols.map")
  set_property(TARGET ${target} APPEND PROPERTY LINK_DEPENDS "${PROJECT_SOURCE_DIR}/cmake/OwnSymbols.map")
  set_property(GLOBAL APPEND PROPERTY ZUL_LIBRARIES ${target})
  set_property(GLOBAL APPEND PROPERTY ZUL_INSTALLED ${target})
  if(ZUL_INSTALL)
    install(TARGETS ${target} EXPORT ZULPickListsTargets
      LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT runtime NAMELINK_COMPONENT development
      FILE_SET HEADERS DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/zul COMPONENT development)
  endif()
endfunction()

# A program of the project (not of the tests), installed with the others.
function(zul_program target)
  add_executable(${target} ${ARGN})
  zul_target_defaults(${target})
  set_target_properties(${target} PROPERTIES AUTOMOC ON AUTORCC ON)
  set_property(GLOBAL APPEND PROPERTY ZUL_INSTALLED ${target})
  if(ZUL_INSTALL)
    install(TARGETS ${target} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT tools)
  endif()
endfunction()

# Tests need no more than a light optimization, which compiles faster; GCC 12 also warns of std::string copies out of bounds that
# are none when it inlines more.
function(zul_test_defaults target)
  zul_target_defaults(${target})
  target_compile_options(${target} PRIVATE $<$<CONFIG:Release>:-O1>)
endfunction()

# A Qt Test program under ctest, on the offscreen platform. The test class lives in <name>.cpp beside.
#   zul_test(tst_Set LIBS ZUL::Common)
function(zul_test name)
  cmake_parse_arguments(arg "" "TIMEOUT" "SOURCES;LIBS;LABELS" ${ARGN})
  add_executable(${name} ${name}.cpp ${arg_SOURCES})
  zul_test_defaults(${name})
  set_target_properties(${name} PROPERTIES AUTOMOC ON AUTORCC ON
    RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/tests")
  target_link_libraries(${name} PRIVATE Qt6::Test ${arg_LIBS})
  target_include_directories(${name} PRIVATE "${PROJECT_SOURCE_DIR}/tests" "${PROJECT_SOURCE_DIR}")
  if(TARGET zultestpch)
    target_precompile_headers(${name} REUSE_FROM zultestpch)
    target_link_libraries(${name} PRIVATE zultestpch)
  endif()
  add_test(NAME ${name} COMMAND "${PROJECT_SOURCE_DIR}/tests/legible.sh" $<TARGET_FILE:${name}>)
  if(NOT arg_TIMEOUT)
    set(arg_TIMEOUT 300)
  endif()
  # Qt's own limit for a test function ends with the program's, not before.
  set_tests_properties(${name} PROPERTIES TIMEOUT ${arg_TIMEOUT} LABELS "${arg_LABELS}"
    ENVIRONMENT "QTEST_FUNCTION_TIMEOUT=${arg_TIMEOUT}000;QT_QPA_PLATFORM=offscreen;QT_LOGGING_RULES=qt.qpa.*=false;LC_ALL=C.UTF-8;LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/tests/lsan.supp:print_suppressions=0")
endfunction()
