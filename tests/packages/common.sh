# What the tests of the packages share. To be sourced, with the names of the three packages' files.
# shellcheck shell=bash
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)

fail() {
  echo "$*" >&2
  exit 1
}

# The one package's file whose name begins so.
package() {
  local found=("$packages/$1"_*.deb)
  [[ ${#found[@]} == 1 && -e ${found[0]} ]] || fail "There is no package $1."
  echo "${found[0]}"
}

# The files and links of a package, with a slash in front.
files_of() { dpkg-deb --fsys-tarfile "$1" | tar t | sed 's/^\.//' | grep -v '/$'; }

field() { dpkg-deb -f "$1" "$2"; }
