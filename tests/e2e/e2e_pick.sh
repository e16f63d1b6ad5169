#!/usr/bin/env bash
# Picks with zulpick as a user does who has no mouse, and compares what it prints with what SQLite says.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

second_of_found="SELECT Zip FROM Area WHERE UPPER(Zip) LIKE '%20%' ORDER BY UPPER(Zip)"

# A find text, Enter, and the second row of what was found.
start zulpick city
wait_window '^Select ' "$running"
write_text "$running" 20
press "$running" Return shift+Tab Down
screenshot "$pictures/pick-city.png"
press "$running" Return
finish 0
equal "the chosen postcode" "$(ask "$second_of_found LIMIT 1 OFFSET 1")" "$(<"$work/out")"
[[ -s $work/out ]] || fail "Nothing was chosen."

# The same, descending, chosen with the OK button.
start zulpick city
wait_window '^Select ' "$running"
write_text "$running" 20
press "$running" Return Tab Tab Tab Tab space
screenshot "$pictures/pick-city-descending.png"
press "$running" Tab space
finish 0
equal "the last postcode" "$(ask "$second_of_found DESC LIMIT 1")" "$(<"$work/out")"

# Escape gives nothing.
start zulpick city
wait_window '^Select ' "$running"
press "$running" Escape
finish 1
equal "the output of a cancelled pick" "" "$(<"$work/out")"

# Several keys: the first and the third user are ticked with the space bar, and OK stands before the first control.
start zulpick users
wait_window '^Select ' "$running"
press "$running" shift+Tab space Down Down space
screenshot "$pictures/pick-users.png"
press "$running" shift+Tab shift+Tab space
finish 0
users="SELECT UserName FROM Names ORDER BY UPPER(DisplayNm)"
equal "the ticked users" "$(ask "$users LIMIT 1") $(ask "$users LIMIT 1 OFFSET 2")" "$(paste -sd ' ' "$work/out")"

# As JSON: the keys, and what the list shows of the chosen rows.
start zulpick entity --format json
wait_window '^Select ' "$running"
press "$running" shift+Tab Down Return
finish 0
json() { ask "SELECT json_extract(CAST(readfile('$work/out') AS TEXT), '$1')"; }
key=$(json '$.keys[0]')
[[ -n $key ]] || fail "There is no key: $(<"$work/out")"
equal "the columns" "$key $(ask "SELECT \"Desc\" FROM Entity WHERE Entity = '$key'")" \
  "$(json '$.rows[0].Entity') $(json '$.rows[0].Desc')"

# A result that cannot be written is not said to be chosen.
"$programs/zulpick" city --db "$company" >/dev/full 2>"$work/errors" &
running=$!
wait_window '^Select ' "$running"
press "$running" shift+Tab Return
finish 3
grep -q "cannot be written: No space left on device" "$work/errors" || fail "The full disk is not named: $(<"$work/errors")"

# A database that is none of the company's fails with the database's message, and no dialog stays.
sqlite3 "$work/empty.db" "CREATE TABLE Other (x)"
code=0
"$programs/zulpick" city --db "$work/empty.db" >"$work/out" 2>"$work/errors" || code=$?
equal "exit code" 3 "$code"
grep -qi 'sys' "$work/errors" || fail "The message does not name the missing table: $(<"$work/errors")"
