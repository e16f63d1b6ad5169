#!/usr/bin/env bash
# The picks from Python, over the sample company.
#   python_test.sh PYTHON LIBRARY SAMPLE_PROGRAM SANITIZERS
set -euo pipefail
python=$1 library=$2 sample=$3 sanitizers=$4
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
[[ -z $sanitizers ]] || {
  echo "The interpreter has no runtime of the sanitizers, with which the library is built."
  exit 77
}
"$python" -c 'import PyQt6.QtSql' 2>/dev/null || {
  echo "PyQt6 is not installed: scripts/setup installs it."
  exit 77
}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
"$sample" "$work/company.db"
export PYTHONPATH=$here/../../examples/python PYTHONDONTWRITEBYTECODE=1
"$python" "$here/python_picks.py" "$library" "$work/company.db" "$here/../../src/capi/zulpick.h"
