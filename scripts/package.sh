#!/usr/bin/env bash
# package.sh [SUITE]: builds the Debian packages and names them. Without SUITE for this machine's release, into
# build/package/packages; with one, such as trixie, in a Debian of that release (scripts/in-release.sh), into
# build/packages-SUITE.
set -euo pipefail
cd "$(dirname "$0")/.."

case "${1:-}" in
  -h | --help) sed -n '2,4s/^# //p' "$0"; exit 0 ;;
esac

if [ $# -gt 0 ]; then
  scripts/in-release.sh "$1" scripts/package.sh >&2
  mkdir -p "build/packages-$1"
  cp "${NORRA_RELEASES:-$HOME/.cache/norra/releases}/$1-build"/package/packages/*.deb "build/packages-$1/"
  ls "$PWD/build/packages-$1"/*.deb
  exit
fi

scripts/setup.sh
cmake --preset package >/dev/null
cmake --build --preset package --parallel "$(nproc)"
cd build/package
rm -f packages/*.deb
cpack -G DEB >/dev/null
lintian --fail-on error,warning packages/*.deb
ls "$PWD"/packages/*.deb
