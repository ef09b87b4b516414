#!/usr/bin/env bash
# installed-package-test.sh BUILD: packs what was built, installs it as a user would, lets a foreign client have the bus start
# the service, collects, and removes it without a trace. Exit status 77 where that cannot be tried.
set -euo pipefail
readonly build=$1
readonly source=$(cd "$(dirname "$0")/../.." && pwd)
readonly package=norra-user-interactions-collector
readonly service=com.norra.UserInteractionsCollectorService

skip() { echo "skipped: $*"; exit 77; }
fail() { echo "FAILED: $*" >&2; exit 1; }

[ "$(id -u)" -eq 0 ] || skip "packages can be installed by root only"
for program in apt-get dpkg lintian dbus-run-session zsh; do
  command -v $program >/dev/null || skip "$program is not installed"
done
! dpkg --status $package >/dev/null 2>&1 || skip "$package is installed on this machine, and this test would remove it"

folder=$(mktemp -d)
# Nobody else's package management is disturbed, and a package of this test does not stay.
apt() { DEBIAN_FRONTEND=noninteractive apt-get -qq -o DPkg::Lock::Timeout=300 "$@" >>"$folder/apt.log" 2>&1; }
leave() {
  local status=$?
  if dpkg --status $package >/dev/null 2>&1; then apt purge -y $package $package-dev || true; fi
  [ $status -eq 0 ] || cat "$folder/apt.log" >&2
  rm -rf "$folder"
}
trap leave EXIT

# What this product has on the machine. Pages that man has shown it may keep for a while, of whatever package.
traces() { find /etc /opt /run /usr /var -xdev -path /var/cache/man -prune -o -iname '*norra*' -print 2>/dev/null | sort; }

pack() {
  (cd "$build" && cpack -G DEB -B "$folder/packages" >"$folder/cpack.log") || { cat "$folder/cpack.log"; fail "cpack"; }
  lintian --fail-on error "$folder"/packages/*.deb || fail "lintian"
}

check_files() {
  local file
  for file in bin/norra-collect bin/norra-collector-service bin/norra-report bin/norra-export bin/norra-scenario \
    share/dbus-1/services/$service.service share/systemd/user/norra-collector-service.service \
    share/dbus-1/interfaces/com.norra.ServiceProtocol.xml share/man/man1/norra-collect.1.gz \
    share/doc/$package/README.Debian; do
    [ -f /usr/$file ] || fail "/usr/$file is not there"
  done
  for file in examples/python/collect.py examples/shell/watch.sh examples/mqtt/stream-desktop.sh docs/examples/client.py; do
    [ -x /usr/share/doc/$package/$file ] || fail "$file cannot be run where it is"
  done
  ! grep -r "$build" $(dpkg --listfiles $package | grep -E '^/usr/share/(dbus-1|systemd)/.*\.service$') || fail "a path of the build"
  XDG_RUNTIME_DIR=$folder systemd-analyze verify --user /usr/share/systemd/user/norra-collector-service.service || fail "the systemd unit"
}

check_pages() {
  man --warnings norra-collect 2>"$folder/man.log" | grep -q -- --duration || fail "the manual page"
  [ ! -s "$folder/man.log" ] || { cat "$folder/man.log"; fail "the manual page has warnings"; }
  bash -c 'source /usr/share/bash-completion/completions/norra-collect
    COMP_WORDS=(norra-collect --format j) COMP_CWORD=2; _norra_collect; [ "${COMPREPLY[*]}" = jsonl ]' || fail "bash completion"
  mkdir -p "$folder/names" && touch "$folder/names/a session"
  (cd "$folder/names" && bash -c 'source /usr/share/bash-completion/completions/norra-report
    COMP_WORDS=(norra-report a) COMP_CWORD=1; _norra_report; [ "${COMPREPLY[0]}" = "a session" ]') || fail "bash completion of files"
  zsh -n /usr/share/zsh/vendor-completions/_norra-collect || fail "zsh completion"
}

# On a session bus as a session has it: nothing but the installed files says where the service is.
in_session() {
  mkdir -p -m 0700 "$folder/home" "$folder/runtime"
  env -i PATH=/usr/bin:/bin HOME="$folder/home" XDG_RUNTIME_DIR="$folder/runtime" timeout 120 dbus-run-session -- "$@"
}

check_collecting() {
  in_session "$source/tests/examples/check-client.sh" /usr/share/doc/$package/examples/python/collect.py || fail "the client"
  in_session sh -c "norra-collect --output $folder/session.jsonl --duration 1 &&
    busctl --user --activatable list | grep -q '^$service '" || fail "norra-collect"
  [ "$(wc -l <"$folder/session.jsonl")" -eq 2 ] || fail "a session of other than two reports"
  local scenario=/usr/share/doc/$package/tests/scenarios/click-on-a-button
  norra-scenario $scenario.json | diff $scenario.expected - || fail "the scenario of the documents"
  norra-scenario --decode "$folder/session.jsonl" >/dev/null || fail "norra-scenario"
  norra-report "$folder/session.jsonl" -o "$folder/session.html" && [ -s "$folder/session.html" ] || fail "norra-report"
  norra-export "$folder/session.jsonl" | grep -q "^</log>" || fail "norra-export"
  c++ -std=c++20 -fsyntax-only $(pkg-config --cflags $package) -x c++ - <<<'
    #include "NorraUserInteractionsCollectorServiceProtocol/BusNames.h"
    #include "NorraUserInteractionsCollectorServiceProtocol/ServiceProtocol.h"
    #include "NorraUserInteractionsCollectorServiceProtocol/ClientProtocol.h"
    const char* name = norra::busNames::service;' || fail "the headers"
}

# A collection that is under way ends, and its client is told.
remove_while_collecting() {
  local session=$folder/last.jsonl status=0
  in_session norra-collect --output "$session" 2>/dev/null &
  until [ -s "$session" ]; do
    kill -0 $! || fail "no collection"
    sleep 0.05
  done
  apt purge -y $package $package-dev || fail "the packages cannot be removed"
  wait $! || status=$?
  [ $status -eq 3 ] || fail "a collection of a removed package, status $status"
}

pack
traces >"$folder/before"
apt install -y "$folder"/packages/*.deb || fail "the packages cannot be installed"
check_files
check_pages
check_collecting
remove_while_collecting
traces | diff "$folder/before" - || fail "it leaves traces"
! pgrep -f '^/usr/bin/norra-' || fail "something still runs"
echo "installed, used and removed"
