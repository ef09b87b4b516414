#!/usr/bin/env bash
# in-release.sh SUITE COMMAND...: runs a command of the project in a Debian of another release, such as trixie or sid:
#   scripts/in-release.sh trixie scripts/test.sh
# That Debian is made at the first run, with what scripts/packages.txt names, and kept in ~/.cache/norra/releases (or
# NORRA_RELEASES). The project is there under its own path, with a build folder of the release's own, kept as well. Mounts and
# processes are its own and end with the command. Needs root.
set -euo pipefail

case "${1:-}" in
  "" | -h | --help) sed -n '2,6s/^# \{0,1\}//p' "$0"; exit 0 ;;
esac
suite=$1
shift
readonly project=$(cd "$(dirname "$0")/.." && pwd)
readonly releases=${NORRA_RELEASES:-$HOME/.cache/norra/releases}
readonly root=$releases/$suite
# The archive that this machine's own packages come from.
readonly archive=${NORRA_ARCHIVE:-$(apt-get indextargets --format '$(REPO_URI)' | grep '/debian/*$' | head -n 1)}

[[ $suite =~ ^[a-z][a-z0-9-]*$ ]] || { echo "in-release.sh: $suite is no release's name" >&2; exit 2; }
[ "$(id -u)" -eq 0 ] || { echo "in-release.sh: root is needed, for mounts" >&2; exit 1; }

# An interrupted debootstrap leaves a folder that looks like a Debian and is none: it becomes one by its new name.
make_root() {
  command -v debootstrap >/dev/null || { echo "in-release.sh: debootstrap is needed (apt install debootstrap)" >&2; exit 1; }
  mkdir -p "$releases"
  local unfinished
  unfinished=$(mktemp -d "$root.XXXXXX")
  chmod 755 "$unfinished"
  debootstrap --variant=minbase "$suite" "$unfinished" "$archive" >&2
  printf '#!/bin/sh\nexit 101\n' >"$unfinished/usr/sbin/policy-rc.d" # no package starts a service there
  chmod 755 "$unfinished/usr/sbin/policy-rc.d"
  mv "$unfinished" "$root"
}

# What the machine says of itself is read anew at each run: a network may have changed.
refresh_root() {
  cp /etc/resolv.conf /etc/hosts "$root/etc/"
  mkdir -p "$root$project" "$releases/$suite-build" "$project/build"
}

# inside COMMAND...
inside() {
  unshare --mount --pid --ipc --fork --kill-child --propagation private \
    env -i ROOT="$root" PROJECT="$project" BUILD="$releases/$suite-build" TERM="${TERM:-dumb}" HOME=/root LANG=C.UTF-8 \
    PATH=/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin $(env | grep -E '^(NORRA|CTEST)_[A-Z_]+=[^ ]*$' || true) \
    bash -euc '
mount -t proc proc "$ROOT/proc"
mount -t sysfs -o ro sysfs "$ROOT/sys"
mount -t tmpfs -o mode=755,nosuid tmpfs "$ROOT/dev"
while read -r name minor; do mknod -m 666 "$ROOT/dev/$name" c 1 "$minor"; done <<<"null 3
zero 5
full 7
random 8
urandom 9"
mknod -m 666 "$ROOT/dev/tty" c 5 0
mkdir -m 1777 "$ROOT/dev/shm"
mkdir "$ROOT/dev/pts"
mount -t devpts -o newinstance,ptmxmode=666 devpts "$ROOT/dev/pts"
ln -s pts/ptmx "$ROOT/dev/ptmx"
ln -s /proc/self/fd "$ROOT/dev/fd"
mount --bind "$PROJECT" "$ROOT$PROJECT"
mount --bind "$BUILD" "$ROOT$PROJECT/build"
# This shell is the first process there, and takes the status of those that lost their parents: no exec.
chroot "$ROOT" env --chdir="$PROJECT" --unset=ROOT --unset=BUILD --unset=PROJECT "$@"
exit $?' in-release "$@"
}

[ -d "$root/usr" ] || make_root
refresh_root
inside scripts/setup.sh
[ $# -eq 0 ] || inside "$@"
