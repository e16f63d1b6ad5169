#!/usr/bin/env bash
# Builds with a server left out, and with both, on a system that lacks their libraries; and looks how a configuration is
# refused that cannot be built.
#   configurations_test.sh SOURCE_FOLDER BUILD_FOLDER CMAKE COMPILER
set -euo pipefail
project=$1 work=$2/configurations cmake=$3 compiler=$4
mkdir -p "$work"
export QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8 QT_LOGGING_RULES='qt.qpa.*=false'

fail() {
  echo "$*" >&2
  exit 1
}
quietly() { "$@" >"$work/step.log" 2>&1 || fail "$*: $(tail -n 40 "$work/step.log")"; }

# configure FOLDER OPTION...
configure() {
  local folder=$work/$1
  shift
  "$cmake" -G Ninja -S "$project" -B "$folder" -DCMAKE_CXX_COMPILER="$compiler" -DCMAKE_CXX_FLAGS=-O0 -DZUL_WARNINGS_AS_ERRORS=ON "$@"
}

# refused TEXT FOLDER OPTION...: must not be configured, and the text must be said.
refused() {
  local text=$1
  shift
  rm -rf "${work:?}/$1"
  ! configure "$@" >"$work/step.log" 2>&1 || fail "Was configured: $*"
  # CMake breaks the lines of its messages.
  tr -s ' \n' ' ' <"$work/step.log" | grep -qF -- "$text" || fail "$* does not say '$text': $(<"$work/step.log")"
}

# needs YES_OR_NO LIBRARY FILE: whether the file is linked with the library.
needs() {
  local found=no
  ! readelf -d "$3" | grep -q "NEEDED.*\[$2\." || found=yes
  [[ $found == "$1" ]] || fail "$(basename "$3"), linked with $2: $found, not $1."
}

# try FOLDER POSTGRESQL ODBC: what a build has that reads only these, with yes or no.
try() {
  local folder=$work/$1
  needs "$2" libpq "$folder/lib/libZULAds.so"
  needs "$3" libodbc "$folder/lib/libZULAds.so"
  needs "$2" libpq "$folder/bin/zulsample"
  rm -f "$folder/company.db"
  "$folder/bin/zulsample" "$folder/company.db"
  local errors code=0
  errors=$("$folder/bin/zulsample" --db postgresql://127.0.0.1:1/none 2>&1) || code=$?
  [[ $code == 1 ]] || fail "zulsample ends with $code over a server that is not there."
  if [[ $2 == no ]]; then
    [[ $errors == *"built without PostgreSQL"* ]] || fail "zulsample says: $errors"
  else
    [[ $errors != *"built without"* ]] || fail "zulsample says: $errors"
  fi
}

without_postgresql=(-DZUL_WITH_POSTGRESQL=OFF -DCMAKE_DISABLE_FIND_PACKAGE_PostgreSQL=ON)
without_mariadb=(-DZUL_WITH_MARIADB=OFF -DCMAKE_DISABLE_FIND_PACKAGE_MariaDB=ON)
without_odbc=(-DZUL_WITH_ODBC=OFF -DCMAKE_DISABLE_FIND_PACKAGE_ODBC=ON)

refused "configure with -DZUL_WITH_MARIADB=OFF" refused -DCMAKE_DISABLE_FIND_PACKAGE_MariaDB=ON
refused "configure with -DZUL_WITH_POSTGRESQL=OFF" refused -DCMAKE_DISABLE_FIND_PACKAGE_PostgreSQL=ON
refused "Debian's package unixodbc-dev" refused -DCMAKE_DISABLE_FIND_PACKAGE_ODBC=ON
refused "shared libraries only" refused -DBUILD_SHARED_LIBS=OFF

quietly configure odbc "${without_postgresql[@]}" "${without_mariadb[@]}" -DZUL_BUILD_TESTS=OFF
quietly "$cmake" --build "$work/odbc" --target ZULAds zulsample
try odbc no yes
quietly configure postgresql "${without_odbc[@]}" -DZUL_BUILD_TESTS=OFF
quietly "$cmake" --build "$work/postgresql" --target ZULAds zulsample
try postgresql yes no

# Everything that is installed, without both, and some tests of what is left.
tests=(tst_LeftOutDatabases tst_DataSet tst_SampleProgram tst_Zulpick tst_PickCustomer)
quietly configure sqlite "${without_postgresql[@]}" "${without_odbc[@]}" "${without_mariadb[@]}"
quietly "$cmake" --build "$work/sqlite" --target zul_install "${tests[@]}"
try sqlite no no
for test in "${tests[@]}"; do quietly "$work/sqlite/tests/$test"; done
"$work/sqlite/bin/zulpick" --list >/dev/null
