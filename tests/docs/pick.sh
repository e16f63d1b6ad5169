#!/usr/bin/env bash
# Runs a command that opens a pick, on a desktop of its own, and picks as scripts/demo does: finds "an" and takes the second row.
#   pick.sh FOLDER COMMAND
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/../../scripts/desktop.sh"
work=$1 command=$2
running=
end() {
  [[ -z $running ]] || stop_process "$running"
  stop_desktop
}
trap end EXIT
trap 'exit 143' INT TERM

mkdir -p "$work"
export XDG_RUNTIME_DIR=$work
chmod 700 "$work"
start_desktop "$work/desktop"
eval "exec env $command" >"$work/out" &
running=$!
wait_window '^Select ' "$running"
write_text "$running" an
press "$running" Return shift+Tab Down Return
wait_until "the program to end" has_ended "$running"
code=0
wait "$running" || code=$?
running=
cat "$work/out"
exit "$code"
