#!/usr/bin/env bash
# Runs a test program without what Qt's offscreen platform warns of at each window, which would bury what has failed.
#   legible.sh PROGRAM [ARGUMENT...]
set -o pipefail
"$@" 2>&1 | sed --unbuffered "/ This plugin does not support propagateSizeHints()$/d"
