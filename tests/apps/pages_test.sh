#!/usr/bin/env bash
# The manual pages are right for troff, the entry in the menu for desktops, and bash completes what is typed.
#   pages_test.sh FOLDER DESKTOP_ENTRY ZULPICK
set -euo pipefail
folder=$1 entry=$2 zulpick=$3

fail() {
  echo "$*" >&2
  exit 1
}

for tool in groff desktop-file-validate; do
  command -v "$tool" >/dev/null || {
    echo "$tool is not installed: scripts/setup installs it."
    exit 77
  }
done

for page in zulpick zulhost zulsample; do
  warnings=$(groff -man -Tutf8 -ww -rLL=120n "$folder/$page.1" 2>&1 >/dev/null)
  [[ -z $warnings ]] || fail "$page.1: $warnings"
  shown=$(groff -man -Tascii -P-cbou -rLL=120n "$folder/$page.1")
  for section in NAME SYNOPSIS DESCRIPTION OPTIONS EXAMPLES; do
    [[ $shown == *"$section"* ]] || fail "$page.1 has no $section."
  done
done

# The page has every option and every pick.
shown=$(groff -man -Tascii -P-cbou -rLL=120n "$folder/zulpick.1")
while read -r word; do
  [[ $shown == *"$word"* ]] || fail "zulpick.1 does not name $word."
done < <("$zulpick" --list | sed -nE 's/^ +(--[a-z-]+|[a-z-]+ ).*/\1/p'; "$zulpick" --help | sed -nE 's/^  (--[a-z-]+).*/\1/p')

desktop-file-validate "$entry"

# completed WORD...: what is offered for the last of them.
completed() {
  COMP_WORDS=("$@")
  COMP_CWORD=$(($# - 1))
  COMPREPLY=()
  "$(complete -p "$1" | sed 's/.*-F \([^ ]*\).*/\1/')"
  echo "${COMPREPLY[*]}"
}
offers() {
  local expected=$1 offered
  shift
  offered=$(completed "$@")
  [[ $offered == "$expected" ]] || fail "For '$*' bash offers '$offered', not '$expected'."
}

for program in zulpick zulsample; do
  # shellcheck source=/dev/null
  source "$folder/$program"
done
offers "customer customer-email customer-po" zulpick cus
offers "--types" zulpick oe-doc --t
offers "quote,order" zulpick oe-doc --types quote,or
offers "quote,order" zulpick oe-doc --types = quote,or
offers "invoice" zulpick oe-docs --type inv
offers "yes" zulpick customer --filter-by-entity = y
offers "json" zulpick --format j
offers "" zulpick customer --entity M
offers "$folder/zulpick $folder/zulpick.1" zulpick --db "$folder/zulpick"
offers "$folder/zulsample $folder/zulsample.1" zulsample "$folder/zulsample"
offers "--scale --seed" zulsample --s
offers "customer customer-email customer-po" zulhost cus
offers "--types" zulhost oe-doc --t
offers "--format" zulpick --for
offers "" zulhost --for
offers "--db --date-format" zulhost --d
