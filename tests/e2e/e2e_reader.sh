#!/usr/bin/env bash
# Picks with a screen reader: what it hears over the accessibility bus while the keyboard alone is used.
set -euo pipefail
for tool in dbus-run-session /usr/libexec/at-spi-bus-launcher; do
  command -v "$tool" >/dev/null || {
    echo "$tool is not installed."
    exit 77
  }
done
[[ -n ${ZUL_OWN_SESSION:-} ]] || ZUL_OWN_SESSION=1 exec dbus-run-session -- "$0" "$@"
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

export QT_LINUX_ACCESSIBILITY_ALWAYS_ON=1
heard=$work/heard
"$3" >"$heard" 2>"$work/reader.log" &
desktop_pids+=($!)
wait_until "the reader to listen" grep -q '^listening$' "$heard"

# hears PATTERN: the last line of what was heard.
hears() { [[ $(tail -n 1 "$heard") =~ $1 ]]; }

rows_heard() { [[ $(grep -c '^focused: Cust\. ID: ' "$heard") == "$1" ]]; }

# The find box, then row after row with the titles of its columns.
start zulpick customer
wait_window '^Select ' "$running"
wait_until "the find box to be told" hears '^focused: Find$'
press "$running" Down
wait_until "the first row to be told" hears '^focused: Cust\. ID: C[0-9]+, .*Inactive: (yes|no)$'
press "$running" Down
wait_until "the second row to be told" rows_heard 2
press "$running" End
wait_until "the last row to be told" hears '^focused: Cust\. ID: C[0-9]+, .*Company: .*, Address: .*, Inactive: (yes|no)$'

# What is typed in the list goes to the find box, and a search from there moves no focus into the list.
write_text "$running" an
wait_until "the find box to be told again" hears '^focused: Find$'
press "$running" Return
rows_heard 3 || fail "The search moved the focus into the list: $(<"$heard")"
press "$running" Escape
finish 1

# Ticking is told.
start zulpick users
wait_window '^Select ' "$running"
press "$running" Down space
wait_until "the tick to be told" hears '^checked: yes, User Name: .*Ticked: yes'
press "$running" space
wait_until "the tick to be told off" hears '^checked: no, User Name: .*Ticked: no'
press "$running" Escape
finish 1
