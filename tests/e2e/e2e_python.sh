#!/usr/bin/env bash
# The window in Python, with the keyboard alone: its button opens a pick, and the key comes into the window.
#   e2e_python.sh FOLDER_OF_THE_PROGRAMS PICTURES PYTHON LIBRARY SANITIZERS
set -euo pipefail
python=$3 library=$4 sanitizers=$5
[[ -z $sanitizers ]] || {
  echo "The interpreter has no runtime of the sanitizers, with which the library is built."
  exit 77
}
"$python" -c 'import PyQt6.QtSql' 2>/dev/null || {
  echo "PyQt6 is not installed: scripts/setup installs it."
  exit 77
}
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"
export PYTHONDONTWRITEBYTECODE=1

start_window() {
  "$python" "$(dirname "${BASH_SOURCE[0]}")/../../examples/python/pick_customer.py" "$1" "$library" >"$work/out" 2>"$work/errors" &
  running=$!
  wait_window '^Order$' "$running"
}

found="SELECT ID FROM Cust WHERE Inactive = 0 AND UPPER(Company) LIKE '%AN%' ORDER BY UPPER(Company)"

# A cancelled pick changes nothing; then the first customer that is found.
start_window "$company"
press "$running" space
wait_window '^Select ' "$running"
press "$running" Escape
wait_window '^Order$' "$running"
press "$running" space
wait_window '^Select ' "$running"
write_text "$running" an
press "$running" Return shift+Tab
screenshot "$pictures/python-pick.png"
press "$running" Return
customer=$(ask "$found LIMIT 1")
[[ -n $customer ]] || fail "There is nobody to be found."
wait_window "^Order of $customer\$" "$running"
screenshot "$pictures/python-window.png"
press "$running" alt+F4
finish 0
equal "what the window complains of" "" "$(<"$work/errors")"

# An error comes as an exception, which the window shows, and goes on.
sqlite3 "$work/empty.db" "CREATE TABLE Other (x)"
start_window "$work/empty.db"
press "$running" space
wait_window '^No pick$' "$running"
screenshot "$pictures/python-error.png"
press "$running" Return
wait_window '^Order$' "$running"
press "$running" alt+F4
finish 0
