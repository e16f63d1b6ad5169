#!/usr/bin/env bash
# Installs the Debian packages, with what they ask for, on a system that has nothing else but a compiler; builds the README's example
# there, runs it, and removes the packages again. The system without them is kept in the build folder.
#   cleanroot_test.sh SOURCE_FOLDER BUILD_FOLDER PYTHON
# Needs root and debootstrap; where one is missing it is skipped, and unpacked_test.sh has to do.
set -euo pipefail
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"
project=$1 packages=$2/packages kept=$2/cleanroot python=$3

skip() {
  echo "$*"
  exit 77
}
[[ $(id -u) == 0 ]] || skip "A clean root needs root."
command -v debootstrap >/dev/null || skip "debootstrap is not installed: scripts/setup cleanroot installs it."

# All mounts are this process's own and end with it.
if [[ -z ${ZUL_IN_NAMESPACE:-} ]]; then
  unshare -m true 2>/dev/null || skip "Nothing can be mounted here."
  ZUL_IN_NAMESPACE=yes exec unshare -m "$0" "$@"
fi

base=$kept/base archives=$kept/archives
in_base() { chroot "$base" env DEBIAN_FRONTEND=noninteractive LC_ALL=C.UTF-8 PATH=/usr/sbin:/usr/bin:/sbin:/bin "$@" </dev/null; }

# The mirror and the release are those of this machine.
make_base() {
  local mirror release
  read -r mirror release < <(apt-get indextargets --format '$(REPO_URI) $(CODENAME)' 'Created-By: Packages' |
    grep -vE 'security|backports|-updates' | head -n 1)
  [[ -n $mirror ]] || skip "apt knows no mirror here."
  rm -rf "$base"
  mkdir -p "$base"
  debootstrap --variant=minbase "$release" "$base" "$mirror" >"$kept/debootstrap.log" 2>&1 || {
    tail -n 5 "$kept/debootstrap.log"
    rm -rf "$base"
    skip "debootstrap cannot make a root here."
  }
  cp -a /etc/apt/. "$base/etc/apt/"
  cp /etc/resolv.conf /etc/hosts "$base/etc/" 2>/dev/null || true
  in_base apt-get -qq update
  in_base apt-get -qq install -y --no-install-recommends g++ cmake ninja-build >"$kept/base.log" 2>&1 ||
    fail "$(tail -n 20 "$kept/base.log")"
  touch "$kept/complete"  # what was left half made is made anew
}

mkdir -p "$archives"
[[ -e $kept/complete ]] || make_base

# What is done to the root goes to a layer above it, which is in memory.
mkdir -p "$kept/layer"
mount -t tmpfs tmpfs "$kept/layer"
mkdir "$kept/layer/upper" "$kept/layer/work" "$kept/layer/root"
if mount -t overlay overlay -o "lowerdir=$base,upperdir=$kept/layer/upper,workdir=$kept/layer/work" "$kept/layer/root" 2>/dev/null; then
  base=$kept/layer/root
else
  rm -rf "$kept/copy"
  cp -a "$base" "$kept/copy"
  base=$kept/copy
fi
mount --bind "$archives" "$base/var/cache/apt/archives"
mount -t proc proc "$base/proc"

mkdir "$base/packages" "$base/example"
library=$(package libzulpicklists1) development=$(package libzulpicklists-dev) tools=$(package zulpicklists-tools)
cp "$library" "$development" "$tools" "$base/packages"
"$python" -B "$here/../docs/host.py" "$project/README.md" "$base/example"

quietly() { "$@" >"$kept/step.log" 2>&1 || fail "$* : $(tail -n 30 "$kept/step.log")"; }
quietly in_base apt-get -qq update
# Recommended, but for apt's own choice of all that the packages below them recommend.
quietly in_base apt-get install -y --no-install-recommends $(cd "$base" && ls packages/*.deb | sed 's|^|/|') fonts-liberation libqt6sql6-sqlite
in_base zulsample /example/company.db
picks=$(in_base zulpick --list)
[[ $picks == *customer* ]] || fail "zulpick lists no picks."
quietly in_base cmake -G Ninja -S /example -B /example/build
quietly in_base cmake --build /example/build
answer=$(in_base env QT_QPA_PLATFORM=offscreen /example/build/application /example/company.db 2>/dev/null) || fail "The example failed."
[[ $answer == postcode\ * ]] || fail "The example picked nothing: $answer"

for file in "$library" "$development" "$tools"; do files_of "$file"; done >"$kept/files"
while read -r file; do
  [[ -e $base$file || -L $base$file ]] || fail "$file was not installed."
done <"$kept/files"
quietly in_base apt-get purge -y libzulpicklists1 libzulpicklists-dev zulpicklists-tools
rm -r "$base/packages" "$base/example"
left=$(find "$base" -xdev -iname '*zul*' ! -iname 'zulu')
[[ -z $left ]] || fail "This stays: $left"
! grep -q libZUL "$base/etc/ld.so.cache" || fail "The loader still knows the libraries."
echo "Installed, used and removed on $(. "$base/etc/os-release" && echo "$PRETTY_NAME")."
