#!/usr/bin/env bash
# Does what docs/adding-a-pick.md says, word by word, on a copy of the tree: its blocks, its builds, its tests. Then leaves out one
# step after the other, which a test must notice. The copy is kept, so that a second run compiles only what has changed.
#   adding_a_pick.sh [BUILD_FOLDER]
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
project=$(cd "$here/../.." && pwd)
work=${1:-$project/build}/adding_a_pick
tree=$work/tree
page=$project/docs/adding-a-pick.md
export QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8

# The project as it is, with its dates, and nothing of an earlier run but the build.
copy_tree() {
  mkdir -p "$tree"
  find "$tree" -mindepth 1 -maxdepth 1 ! -name build -exec rm -r {} +
  tar -C "$project" --exclude=./build --exclude=./.git -cf - . | tar -C "$tree" -xf -
}

# quietly LOG COMMAND...: its output is shown only when it fails.
quietly() {
  local log=$work/$1
  shift
  "$@" >"$log" 2>&1 || {
    cat "$log"
    exit 1
  }
}

# must_tell STEP MESSAGE PATTERN...: without what goes to files of these patterns, a test fails and says so.
must_tell() {
  local step=$1 message=$2 patterns=()
  shift 2
  for pattern in "$@"; do patterns+=(--without "$pattern"); done
  copy_tree
  "$here/apply_page.py" "$page" "$tree" "${patterns[@]}" >/dev/null
  quietly build.log cmake --build "$tree/build/release" --target tst_NothingForgotten tst_AllPicks
  if (cd "$tree" && build/release/tests/tst_NothingForgotten && build/release/tests/tst_AllPicks) >"$work/tests.log" 2>&1; then
    echo "Nobody missed $step."
    exit 1
  fi
  grep -q "$message" "$work/tests.log" || {
    cat "$work/tests.log"
    echo "Nobody told that $step is missing."
    exit 1
  }
  echo "Without $step: told."
}

mkdir -p "$work"
copy_tree
"$here/apply_page.py" "$page" "$tree" >"$work/commands"
(cd "$tree" && quietly page.log bash -euxo pipefail "$work/commands")
echo "With everything: all tests pass."

must_tell "the table" 'reads the table BANK.*sample/schema.sql' 'sample/*'
must_tell "its rows" 'reads the table BANK, which is empty.*sample/tables' 'sample/tables/*'
must_tell "the texts" 'there is no text 65580.*en.txt' '*/en.txt'
must_tell "the unit in the build" 'uPickBank.h declares CallPickBank.*zul_units' 'src/picks/*/CMakeLists.txt' 'src/catalog/*' \
  'src/module/*' 'tests/*'
must_tell "the unit in the module's list" 'uPickBank must stand once.*PackageEntry.cpp' 'src/module/*'
must_tell "the catalog's entry" 'uPickBank::CallPickBank is exported 1 times.*src/catalog' 'src/catalog/*'
must_tell "the function's type" 'uPickBank::CallPickBank.*tst_AllPicks.cpp' 'tests/picks/tst_AllPicks.cpp'
must_tell "the golden texts" 'No golden text of uPickBank::TfrmPickBank ordered by 0.*golden/reference.txt' 'tests/ads/*'
must_tell "a test of its own" 'No test in tests/picks calls uPickBank::CallPickBank' 'tests/picks/*'
