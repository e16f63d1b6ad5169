# What the end-to-end tests share: a folder of their own, the sample company, a desktop. To be sourced.
# shellcheck shell=bash
source "$(dirname "${BASH_SOURCE[0]}")/../../scripts/desktop.sh"

for tool in Xvfb openbox xdotool import sqlite3; do
  command -v "$tool" >/dev/null || {
    echo "$tool is not installed: scripts/setup installs it."
    exit 77
  }
done

programs=$1 pictures=$2
work=$(mktemp -d)
company=$work/company.db
running=

end() {
  [[ -z $running ]] || stop_process "$running"
  stop_desktop
  rm -rf "$work"
}
trap end EXIT
trap 'exit 143' INT TERM

mkdir -m 700 "$work/runtime"
export XDG_RUNTIME_DIR=$work/runtime
unset ZUL_DB
"$programs/zulsample" "$company"
start_desktop "$work/desktop"

# What SQLite itself says.
ask() { sqlite3 -readonly "$company" "$1"; }

# equal WHAT EXPECTED ACTUAL
equal() { [[ $2 == "$3" ]] || fail "$1: expected '$2', got '$3'. $(cat "$work/errors" 2>/dev/null)"; }

# start PROGRAM ARGUMENT...: in the background; its output goes to $work/out and $work/errors.
start() {
  local program=$1
  shift
  "$programs/$program" --db "$company" "$@" >"$work/out" 2>"$work/errors" &
  running=$!
}

# finish EXPECTED_CODE: waits for the program's own end.
finish() {
  local code=0
  wait_until "the program to end" has_ended "$running"
  wait "$running" || code=$?
  running=
  equal "exit code" "$1" "$code"
}
