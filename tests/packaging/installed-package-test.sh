#!/usr/bin/env bash
# installed-package-test.sh BUILD: packs what was built, installs it as a user would over packages of an older version while a
# collection runs, lets a foreign client have the bus start the service, collects, publishes, and purges it without a trace. Exit
# status 77 where that cannot be tried.
set -euo pipefail
readonly build=$1
readonly source=$(cd "$(dirname "$0")/../.." && pwd)
readonly package=norra-user-interactions-collector
readonly packages="$package $package-dev norra-fleet"
readonly service=com.norra.UserInteractionsCollectorService

skip() { echo "skipped: $*"; exit 77; }
fail() { echo "FAILED: $*" >&2; exit 1; }

[ "$(id -u)" -eq 0 ] || skip "packages can be installed by root only"
for program in apt-get dpkg lintian dbus-run-session zsh mosquitto; do
  command -v $program >/dev/null || skip "$program is not installed"
done
! dpkg --status $package >/dev/null 2>&1 || skip "$package is installed on this machine, and this test would remove it"

folder=$(mktemp -d)
# Nobody else's package management is disturbed, and a package of this test does not stay.
apt() { DEBIAN_FRONTEND=noninteractive apt-get -qq -o DPkg::Lock::Timeout=300 "$@" >>"$folder/apt.log" 2>&1; }
leave() {
  local status=$?
  if dpkg --status $package >/dev/null 2>&1; then apt purge -y $packages || true; fi
  [ -z "${broker:-}" ] || kill "$broker" || true
  rm -rf /run/norra-fleet
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

# The same files as a version before.
make_older() {
  local deb
  mkdir "$folder/older"
  for deb in "$folder"/packages/*.deb; do
    dpkg-deb --raw-extract "$deb" "$folder/raw"
    sed -i -e 's/^Version: .*/Version: 0.0.1-1/' -e "s/$package (= [^)]*)/$package (= 0.0.1-1)/" "$folder/raw/DEBIAN/control"
    dpkg-deb --root-owner-group --build "$folder/raw" "$folder/older/$(basename "$deb")" >/dev/null
    rm -r "$folder/raw"
  done
}

# What is under way goes on; what an administrator has changed stays.
upgrade_while_collecting() {
  local session=$folder/upgrade.jsonl
  apt install -y "$folder"/older/*.deb || fail "the older packages cannot be installed"
  echo "# changed here" >>/etc/norra-fleet/acl
  begin_collection "$session"
  apt install -y -o DPkg::Options::=--force-confdef -o DPkg::Options::=--force-confold "$folder"/packages/*.deb || fail "no upgrade"
  [ "$(dpkg-query -W -f '${Version}\n' $packages | sort -u | grep -vc '^0.0.1-1$')" -eq 1 ] || fail "the versions after the upgrade"
  grep -q "changed here" /etc/norra-fleet/acl || fail "a changed configuration file"
  kill -INT "$(pgrep -f -- "^norra-collect --output $session")"
  wait "$collection" || fail "a collection over an upgrade"
  grep -q '"operation":"stop"' "$session" || fail "the last report of a collection over an upgrade"
  in_session norra-collect --output "$folder/after.jsonl" --duration 1 || fail "a collection after an upgrade"
}

check_files() {
  local file
  for file in bin/norra-collect bin/norra-collector-service bin/norra-report bin/norra-export bin/norra-scenario \
    share/dbus-1/services/$service.service share/systemd/user/norra-collector-service.service \
    share/dbus-1/interfaces/com.norra.ServiceProtocol.xml share/man/man1/norra-collect.1.gz \
    share/doc/$package/README.Debian; do
    [ -f /usr/$file ] || fail "/usr/$file is not there"
  done
  for file in bin/norra-publish bin/norra-fleet share/man/man1/norra-fleet.1.gz lib/systemd/user/norra-fleet.service; do
    [ -f /usr/$file ] || fail "/usr/$file is not there"
  done
  for file in examples/python/collect.py examples/shell/watch.sh examples/mqtt/stream-desktop.sh docs/examples/client.py; do
    [ -x /usr/share/doc/$package/$file ] || fail "$file cannot be run where it is"
  done
  ! grep -r "$build" $(dpkg --listfiles $package | grep -E '^/usr/share/(dbus-1|systemd)/.*\.service$') || fail "a path of the build"
  XDG_RUNTIME_DIR=$folder systemd-analyze verify --user /usr/share/systemd/user/norra-collector-service.service \
    /usr/lib/systemd/user/norra-fleet*.service || fail "the systemd units of the user"
  systemd-analyze verify /usr/lib/systemd/system/norra-fleet-broker.service || fail "the systemd unit of the broker"
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
# Without a daemon for settings, which outlives its session, and the end of this test's output with it.
in_session() {
  mkdir -p -m 0700 "$folder/home" "$folder/runtime"
  env -i PATH=/usr/bin:/bin HOME="$folder/home" XDG_RUNTIME_DIR="$folder/runtime" GSETTINGS_BACKEND=memory timeout 120 dbus-run-session -- "$@"
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

# The folders are what systemd makes for the unit.
check_publishing() {
  install -d -o mosquitto -m 755 /run/norra-fleet
  install -d -o mosquitto -m 700 /var/lib/norra-fleet
  echo secret | norra-fleet bridge localhost:1 name >/etc/norra-fleet/bridge/central.conf || fail "norra-fleet"
  setpriv --reuid=mosquitto --regid=mosquitto --clear-groups norra-fleet serve 2>"$folder/broker.log" &
  broker=$!
  until [ -w /run/norra-fleet/socket ] && [ "$(stat -c %A /run/norra-fleet/socket)" = srw-rw-rw- ]; do
    kill -0 $broker || { cat "$folder/broker.log"; fail "no broker with the installed configuration"; }
    sleep 0.05
  done
  local home
  home=$(runuser -u nobody -- mktemp -d)
  runuser -u nobody -- env XDG_STATE_HOME="$home" norra-publish <"$folder/session.jsonl" || fail "norra-publish"
  rm -r "$home"
  kill $broker
  wait $broker || true
  broker=
  [ "$(stat -c %a /var/lib/norra-fleet/mosquitto.db)" = 600 ] || fail "who can read what waits"
  rmdir /run/norra-fleet
}

begin_collection() {
  in_session norra-collect --output "$1" 2>/dev/null &
  collection=$!
  until [ -s "$1" ]; do
    kill -0 $collection || fail "no collection"
    sleep 0.05
  done
}

# A collection that is under way ends, and its client is told.
remove_while_collecting() {
  local session=$folder/last.jsonl status=0
  begin_collection "$session"
  apt purge -y $packages || fail "the packages cannot be removed"
  wait "$collection" || status=$?
  [ $status -eq 3 ] || fail "a collection of a removed package, status $status"
}

pack
traces >"$folder/before"
make_older
upgrade_while_collecting
check_files
check_pages
check_collecting
check_publishing
remove_while_collecting
traces | diff "$folder/before" - || fail "it leaves traces"
! pgrep -f '^/usr/bin/norra-' || fail "something still runs"
echo "installed, upgraded, used and purged"
