#!/usr/bin/env bash
# Installs the build into a folder of its own and builds a host against what is there, as somebody does who has nothing else.
# The folder is kept, so that a second run compiles only what has changed.
#   install_test.sh CMAKE BUILD_FOLDER COMPILER BUILD_TYPE SANITIZERS
set -euo pipefail
cmake=$1 build=$(cd "$2" && pwd) compiler=$3 type=$4 sanitizers=$5
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
work=$build/install_test
prefix=$work/prefix
mkdir -p "$work/headers"

# quietly LOG COMMAND...: its output is shown only when it fails.
quietly() {
  local log=$work/$1
  shift
  "$@" >"$log" 2>&1 || {
    cat "$log"
    exit 1
  }
}

# What an earlier run installed and this one does not must not be found.
remove_leftovers() {
  [[ -d $prefix ]] || return 0
  find "$prefix" ! -type d | sort | comm -23 - <(sort "$build/install_manifest.txt") | xargs -r -d '\n' rm
}

# write_source FILE: from standard input, unless it holds that already.
write_source() {
  local text
  text=$(cat)
  [[ -f $1 && $(<"$1") == "$text" ]] || echo "$text" >"$1"
}

quietly install.log "$cmake" --install "$build" --prefix "$prefix"
remove_leftovers

# One source that has every public header, and one for each, so that each must compile alone. With sanitizers the headers are the
# same: one source is enough.
mapfile -t headers < <(cd "$prefix/include/zul" && find . -name '*.h' | sed 's|^\./||' | sort)
((${#headers[@]} > 60)) || {
  echo "Only ${#headers[@]} headers were installed."
  exit 1
}
rm -f "$work/sources"
printf '#include "%s"\n' "${headers[@]}" | write_source "$work/headers/all.cpp"
echo "$work/headers/all.cpp" >>"$work/sources"
if [[ -z $sanitizers ]]; then
  for header in "${headers[@]}"; do
    source=$work/headers/${header//\//_}.cpp
    echo "#include \"$header\"" | write_source "$source"
    echo "$source" >>"$work/sources"
  done
fi

flags=
[[ -z $sanitizers ]] || flags="-fsanitize=$sanitizers -fno-sanitize-recover=undefined"
quietly configure.log "$cmake" -G Ninja -S "$here/consumer" -B "$work/consumer" -DCMAKE_PREFIX_PATH="$prefix" \
  -DSOURCES="$work/sources" -DCMAKE_CXX_COMPILER="$compiler" -DCMAKE_BUILD_TYPE="$type" -DCMAKE_CXX_FLAGS="$flags"
quietly build.log "$cmake" --build "$work/consumer"
"$prefix/bin/zulpick" --list >/dev/null  # finds its libraries from where it stands
"$work/consumer/host"
"$work/consumer/chost"
"$work/consumer/loader" "$(find "$prefix" -name libZULPickLists.so)"
