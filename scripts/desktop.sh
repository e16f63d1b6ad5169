# Functions for a script that drives a program with the keyboard on a display of its own. To be sourced, after `set -euo pipefail`.
# shellcheck shell=bash

desktop_pids=()
window=

fail() {
  echo "$*" >&2
  exit 1
}

# wait_until WHAT COMMAND...: polls until the command succeeds, for a minute at most.
wait_until() {
  local what=$1 end=$((SECONDS + 60))
  shift
  until "$@" 2>/dev/null; do
    ((SECONDS < end)) || fail "Waited in vain for $what."
    sleep 0.05
  done
}

# start_desktop FOLDER: an X server that nobody sees and a window manager; their logs go to the folder. Sets DISPLAY.
start_desktop() {
  local folder=$1
  mkdir -p "$folder"
  : >"$folder/display"
  Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp -noreset 3>"$folder/display" >"$folder/xvfb.log" 2>&1 &
  desktop_pids+=($!)
  wait_until "the X server" grep -q '[0-9]' "$folder/display"
  DISPLAY=:$(<"$folder/display")
  export DISPLAY
  unset WAYLAND_DISPLAY
  export QT_QPA_PLATFORM=xcb
  openbox --sm-disable --config-file /etc/xdg/openbox/rc.xml >"$folder/openbox.log" 2>&1 &
  desktop_pids+=($!)
  wait_until "the window manager" manager_runs
}

manager_runs() { xdotool get_desktop >/dev/null; }

# stop_process PID...: ends processes of this script and waits for their end.
stop_process() {
  local pid
  for pid in "$@"; do
    kill "$pid" 2>/dev/null || true
    wait "$pid" 2>/dev/null || true
  done
}

# Ends what start_desktop started, the window manager first.
stop_desktop() {
  local index
  for ((index = ${#desktop_pids[@]} - 1; index >= 0; --index)); do stop_process "${desktop_pids[index]}"; done
  desktop_pids=()
}

find_window() {
  window=$(xdotool search --onlyvisible --name "$1" | tail -n 1)
  [[ -n $window ]]
}

is_active() { [[ $(xdotool getactivewindow) == "$window" ]]; }

# wait_window TITLE PID: until a window whose title matches the pattern has the keyboard and its program waits for it. Sets `window`.
wait_window() {
  wait_until "a window '$1'" find_window "$1"
  wait_until "'$1' to become active" is_active
  wait_idle "$2"
}

# Whether a process of this script has come to its end, waited for or not.
has_ended() {
  local load
  load=$(process_load "$1") || return 0
  [[ $load == Z* ]]
}

# The program's processor time in hundredths of a second, with its state in front.
process_load() {
  local stat
  read -r stat <"/proc/$1/stat" || return 1
  stat=${stat##*) }
  set -- $stat
  echo "$1 $((${12} + ${13}))"
}

# wait_idle PID: until the program has handled what it was sent: it sleeps and has used no processor time for a quarter of a second.
wait_idle() {
  local pid=$1 before now=none quiet=0 end=$((SECONDS + 60))
  while ((quiet < 5)); do
    ((SECONDS < end)) || fail "The program never comes to rest."
    before=$now
    now=$(process_load "$pid" 2>/dev/null) || return 0
    if [[ $now == "$before" && $now == S* ]]; then quiet=$((quiet + 1)); else quiet=0; fi
    sleep 0.05
  done
}

# press PID KEY...: keys one after the other, each after the program has handled the one before.
press() {
  local pid=$1 key
  shift
  for key in "$@"; do
    xdotool key --clearmodifiers "$key"
    wait_idle "$pid"
  done
}

# write_text PID TEXT
write_text() {
  xdotool type --clearmodifiers --delay 20 "$2"
  wait_idle "$1"
}

# screenshot FILE: what the screen shows, without its empty border, as a PNG.
screenshot() {
  mkdir -p "$(dirname "$1")"
  import -window root -trim +repage "$1"
}
