#!/usr/bin/env bash
# Looks into the Debian packages, unpacks them into a folder, builds the README's example against what is there, runs it, and
# takes everything away again.
#   unpacked_test.sh SOURCE_FOLDER BUILD_FOLDER CMAKE COMPILER PYTHON
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"
project=$1 packages=$2/packages work=$2/unpacked_test cmake=$3 compiler=$4 python=$5
rm -rf "$work"
mkdir -p "$work"
root=$work/root

library=$(package libzulpicklists1) development=$(package libzulpicklists-dev) tools=$(package zulpicklists-tools)

# has PACKAGE PATTERN...: each must be a file of the package.
has() {
  local file=$1 pattern
  shift
  files_of "$file" >"$work/files"
  for pattern in "$@"; do
    grep -qE "^/usr/$pattern$" "$work/files" || fail "$(basename "$file") has no $pattern."
  done
}
# asks FIELD PACKAGE PATTERN...: each must be named there.
asks() {
  local value pattern name=$1 file=$2
  value=", $(field "$file" "$name"),"
  shift 2
  for pattern in "$@"; do
    grep -qE ", $pattern( \([^)]*\))?," <<<"$value" || fail "$(basename "$file"): $name lacks $pattern: $value"
  done
}

for list in "$project"/abi/*.txt; do
  name=$(basename "$list" .txt)
  has "$library" "lib/[^/]*/$name\.so\.1" "lib/[^/]*/$name\.so\.1\.[0-9.]+"
  has "$development" "lib/[^/]*/$name\.so"
done
has "$development" "include/zul/picks/reference/uPickCity\.h" "lib/[^/]*/cmake/ZULPickLists/ZULPickListsConfig\.cmake" \
  "lib/[^/]*/pkgconfig/zulpicklists\.pc" "share/zulpicklists/schema\.sql" "share/zulpicklists/en\.txt" \
  "share/doc/zulpicklists/README\.md" "share/doc/zulpicklists/docs/embedding\.md"
has "$tools" bin/zulpick bin/zulhost bin/zulsample
asks Depends "$library" libqt6widgets6 libqt6sql6 libsqlite3-0 libc6
asks Recommends "$library" fonts-liberation
asks Depends "$development" libzulpicklists1 qt6-base-dev
asks Depends "$tools" libzulpicklists1 libqt6widgets6
asks Recommends "$tools" fonts-liberation

twice=$(for file in "$library" "$development" "$tools"; do files_of "$file"; done | sort | uniq -d)
[[ -z $twice ]] || fail "Two packages have the same file: $twice"
for file in "$library" "$development" "$tools"; do
  dpkg-deb -x "$file" "$root"
  grep -q "has not chosen a licence" "$root/usr/share/doc/$(field "$file" Package)/copyright" ||
    fail "$(basename "$file") does not say that there is no licence."
done
folder=$(dirname "$(find "$root" -name libZULPickLists.so.1)")
for binary in "$root"/usr/bin/* "$folder"/*.so; do
  ! readelf -d "$binary" | grep -E 'RPATH|RUNPATH' || fail "$(basename "$binary") has a search path of its own."
done

export LD_LIBRARY_PATH=$folder QT_QPA_PLATFORM=offscreen
"$python" -B "$here/../docs/host.py" "$project/README.md" "$work/example"
"$cmake" -G Ninja -S "$work/example" -B "$work/example/build" -DCMAKE_PREFIX_PATH="$root/usr" \
  -DCMAKE_CXX_COMPILER="$compiler" >"$work/example.log" 2>&1 || fail "$(<"$work/example.log")"
"$cmake" --build "$work/example/build" >"$work/example.log" 2>&1 || fail "$(<"$work/example.log")"
"$root/usr/bin/zulsample" "$work/company.db"
answer=$("$work/example/build/application" "$work/company.db")
[[ $answer == postcode\ * ]] || fail "The example picked nothing: $answer"
"$root/usr/bin/zulpick" --list >/dev/null

for file in "$library" "$development" "$tools"; do
  files_of "$file" | sed "s|^|$root|" | xargs -d '\n' rm
done
left=$(find "$root" ! -type d)
[[ -z $left ]] || fail "This stays: $left"
