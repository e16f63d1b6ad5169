#!/usr/bin/env bash
# A pick in zulhost, with the keyboard alone.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

mkdir "$work/home"
export HOME=$work/home
unset XDG_CONFIG_HOME

calls() { wc -l <"$work/out"; }
called() { (($(calls) == $1)); }

start zulhost
wait_window '^Pick lists$' "$running"
write_text "$running" uPickCity
press "$running" Return
wait_window '^Select ' "$running"
write_text "$running" 30
press "$running" Return shift+Tab Return
wait_until "the first call to return" called 1
zip=$(ask "SELECT Zip FROM Area WHERE UPPER(Zip) LIKE '%30%' ORDER BY UPPER(Zip) LIMIT 1")
equal "the chosen postcode" "uPickCity::CallPickCity(): true \"$zip\"" "$(<"$work/out")"

# The window has the keyboard again, and a cancelled pick empties the key.
wait_window '^Pick lists$' "$running"
press "$running" Return
wait_window '^Select ' "$running"
press "$running" Escape
wait_until "the second call to return" called 2
equal "the cancelled pick" 'uPickCity::CallPickCity(): false ""' "$(tail -n 1 "$work/out")"
wait_window '^Pick lists$' "$running"
screenshot "$pictures/host.png"

# The file dialog of Qt likes to write down which folders were visited; nothing may be kept.
press "$running" ctrl+o
wait_window '^Open a database$' "$running"
press "$running" Escape
wait_window '^Pick lists$' "$running"
press "$running" ctrl+q
finish 0
[[ ! -e $HOME/.config ]] || fail "zulhost keeps something on the disk: $(find "$HOME/.config")"
