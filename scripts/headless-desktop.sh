#!/usr/bin/env bash
# headless-desktop.sh COMMAND...: runs the command inside a desktop that nobody sees, and ends with its status.
#
# The desktop is private: X server, session bus, window manager and accessibility bus are its own, and so are HOME and
# XDG_RUNTIME_DIR. Nothing of it is left afterwards, also when a signal ends it. XDG_DATA_DIRS is passed on, so that a
# service of a build tree can be started by the bus. NORRA_DESKTOP_LOGS names a folder that keeps the desktop's logs,
# NORRA_DESKTOP_SCREEN says how large the screen is (1280x900x24).
# NORRA_COMPOSITOR=sway, kwin or gnome_shell makes it a Wayland desktop, with NORRA_XWAYLAND=1 with an X server beside. sway
# refuses to run as root, so a Wayland desktop of root's runs as the user nobody. GNOME Shell has the project's extension.
set -euo pipefail

[ $# -gt 0 ] || { sed -n '2,10s/^# \{0,1\}//p' "$0" >&2; exit 2; }

readonly compositor=${NORRA_COMPOSITOR:-}
if [ -n "$compositor" ] && [ "$(id -u)" = 0 ]; then
  exec setpriv --reuid nobody --regid nogroup --clear-groups --inh-caps=-all "$0" "$@"
fi

# What a Wayland desktop of GNOME needs beside. The extension is for 45 and later.
if [ "$compositor" = gnome_shell ]; then
  version=$(gnome-shell --version 2>/dev/null | grep --only-matching '[0-9]*' | head -n 1 || true)
  [ "${version:-0}" -ge 45 ] && /usr/bin/python3 -c 'import dbusmock' 2>/dev/null && command -v pipewire >/dev/null ||
    { echo "headless-desktop.sh: skipped: needs gnome-shell 45 or later, python3-dbusmock and pipewire" >&2; exit 77; }
fi

readonly limit_seconds=30
desktop=$(mktemp -d "${TMPDIR:-/tmp}/norra-desktop-XXXXXX")
logs=${NORRA_DESKTOP_LOGS:-$desktop/logs}
mkdir -p -m 0700 "$desktop/runtime" "$desktop/home" "$logs"
command_process=

# Processes of this desktop carry its folder in their environment.
processes_of_desktop() {
  local environment
  for environment in /proc/[0-9]*/environ; do
    if grep --quiet --no-messages --text --fixed-strings "XDG_RUNTIME_DIR=$desktop/runtime" "$environment"; then
      environment=${environment#/proc/}
      [ "${environment%/environ}" = $$ ] || echo "${environment%/environ}"
    fi
  done
}

# end_all SIGNAL: sends it to all, and waits until they have gone; one that has ended but was not waited for is gone.
end_all() {
  local processes
  processes=$(processes_of_desktop)
  [ -n "$processes" ] || return 0
  kill -s "$1" $processes 2>/dev/null || true
  have_gone() { ! ps -o stat= -p "${processes//$'\n'/,}" | grep --quiet --invert-match '^Z'; }
  wait_until have_gone 5
}

tear_down() {
  trap - EXIT
  trap '' HUP INT TERM
  end_all TERM && end_all TERM || end_all KILL || true  # twice: the first may have started something
  wait
  rm -rf "$desktop"
}

# wait_until CONDITION [SECONDS]
wait_until() {
  local deadline=$((SECONDS + ${2:-$limit_seconds}))
  until "$1"; do
    [ "$SECONDS" -lt "$deadline" ] || return 1
    sleep 0.05
  done
}

fail() {
  echo "headless-desktop.sh: $1" >&2
  tail -n 20 "$logs"/*.log >&2 || true
  exit 1
}

start_x_server() {
  Xvfb -displayfd 3 -screen 0 "${NORRA_DESKTOP_SCREEN:-1280x900x24}" -nolisten tcp 3>"$desktop/display" >"$logs/xvfb.log" 2>&1 &
  has_display() { [ -s "$desktop/display" ]; }
  wait_until has_display || fail "The X server does not start."
  export DISPLAY=":$(<"$desktop/display")"
}

start_compositor() {
  unset DISPLAY
  printf '#!/bin/sh\n[ -z "$DISPLAY" ] || echo "$DISPLAY" >"%s"\n' "$desktop/display" >"$desktop/tell-display"
  chmod +x "$desktop/tell-display"
  export XDG_SESSION_TYPE=wayland GDK_BACKEND=wayland QT_QPA_PLATFORM=wayland MOZ_ENABLE_WAYLAND=1
  export QT_WAYLAND_DISABLE_WINDOWDECORATION=1
  "start_$compositor" >"$logs/compositor.log" 2>&1 &
  has_socket() { socket=$(find "$XDG_RUNTIME_DIR" -maxdepth 1 -type s -name 'wayland-*') && [ -n "$socket" ]; }
  wait_until has_socket || fail "The compositor does not start."
  export WAYLAND_DISPLAY=${socket##*/}
  [ "$compositor" != gnome_shell ] || wait_until has_shell 60 || fail "GNOME Shell does not start, or not its extension."
  [ "$compositor" != sway ] || export SWAYSOCK=$XDG_RUNTIME_DIR/sway
  [ -n "${NORRA_XWAYLAND:-}" ] || return 0
  has_display() { [ -s "$desktop/display" ]; }
  wait_until has_display || fail "The compositor starts no X server."
  export DISPLAY="$(<"$desktop/display")"
}

# Two windows beside each other have a place on the screen each.
start_sway() {
  cat >"$desktop/sway" <<END
output HEADLESS-1 resolution 1280x900 position 0 0
default_border none
default_floating_border none
focus_follows_mouse no
exec $desktop/tell-display
xwayland $([ -n "${NORRA_XWAYLAND:-}" ] && echo force || echo disable)
END
  SWAYSOCK=$XDG_RUNTIME_DIR/sway XDG_CURRENT_DESKTOP=sway WLR_BACKENDS=headless WLR_LIBINPUT_NO_DEVICES=1 \
    WLR_RENDERER=pixman exec sway --config "$desktop/sway"
}

# A copy of it, since a container refuses to run a program with its file capability. What its task bar may know,
# our tests may know. That does not say how large the frames around windows are, so there are none.
start_kwin() {
  mkdir -p "$HOME/.config"
  printf '[org.kde.kdecoration2]\nNoPlugin=true\n' >"$HOME/.config/kwinrc"
  cp "$(command -v kwin_wayland)" "$desktop/kwin_wayland"
  KWIN_WAYLAND_NO_PERMISSION_CHECKS=1 KWIN_COMPOSE=Q XDG_CURRENT_DESKTOP=KDE exec "$desktop/kwin_wayland" --virtual \
    --width 1280 --height 900 --socket wayland-0 --no-lockscreen ${NORRA_XWAYLAND:+--xwayland "$desktop/tell-display"}
}

# Its settings come from a file, and its log-in daemon is a mock on a system bus of the desktop's own.
# Unsafe mode lets the tests ask it for windows.
start_gnome_shell() {
  local extension
  extension=$(cd "$(dirname "${BASH_SOURCE[0]}")/../packaging/gnome-shell" && pwd)
  mkdir -p "$HOME/.local/share/gnome-shell" "$HOME/.config/glib-2.0/settings"
  ln -s "$extension" "$HOME/.local/share/gnome-shell/extensions"
  printf '[org/gnome/shell]\nenabled-extensions=[%s]\nwelcome-dialog-last-shown-version="99"\n' "'collector@norra.com'" \
    >"$HOME/.config/glib-2.0/settings/keyfile"
  export XDG_CURRENT_DESKTOP=GNOME GSETTINGS_BACKEND=keyfile DBUS_SYSTEM_BUS_ADDRESS="unix:path=$XDG_RUNTIME_DIR/system_bus"
  start_system_bus
  pipewire &
  wireplumber &
  exec gnome-shell --headless --wayland --unsafe-mode $([ -n "${NORRA_XWAYLAND:-}" ] || echo --no-x11) --virtual-monitor 1280x900 \
    --wayland-display wayland-0
}

start_system_bus() {
  cat >"$desktop/system.conf" <<END
<busconfig><type>system</type><listen>$DBUS_SYSTEM_BUS_ADDRESS</listen><auth>EXTERNAL</auth>
<policy context="default"><allow user="*"/><allow own="*"/><allow send_destination="*"/><allow receive_sender="*"/>
</policy></busconfig>
END
  dbus-daemon --config-file="$desktop/system.conf" --nofork --nopidfile &
  has_system_bus() { [ -S "$XDG_RUNTIME_DIR/system_bus" ]; }
  wait_until has_system_bus
  /usr/bin/python3 -m dbusmock --system --template logind &
  has_login() { owns --address="$DBUS_SYSTEM_BUS_ADDRESS" org.freedesktop.login1; }
  wait_until has_login
}

# owns BUS NAME: whether somebody has the name on the bus.
owns() { busctl "$1" call org.freedesktop.DBus / org.freedesktop.DBus GetNameOwner s "$2" >/dev/null 2>&1; }
has_shell() {
  busctl --user --auto-start=no get-property org.gnome.Shell /com/norra/GnomeShell com.norra.GnomeShell Version >/dev/null 2>&1
}

start_session_bus() {
  export DBUS_SESSION_BUS_ADDRESS="unix:path=$XDG_RUNTIME_DIR/bus"
  dbus-daemon --session --nofork --nopidfile --address="$DBUS_SESSION_BUS_ADDRESS" >"$logs/bus.log" 2>&1 &
  has_bus() { busctl --user call org.freedesktop.DBus / org.freedesktop.DBus GetId >/dev/null 2>&1; }
  wait_until has_bus || fail "The session bus does not start."
}

start_window_manager() {
  openbox >"$logs/openbox.log" 2>&1 &
  has_window_manager() { xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep --quiet 'window id'; }
  wait_until has_window_manager || fail "The window manager does not start."
}

start_accessibility_bus() {
  /usr/libexec/at-spi-bus-launcher --launch-immediately >"$logs/accessibility.log" 2>&1 &
  has_accessibility_bus() {
    busctl --user --auto-start=no call org.a11y.Bus /org/a11y/bus org.a11y.Bus GetAddress >/dev/null 2>&1
  }
  wait_until has_accessibility_bus || fail "The accessibility bus does not start."
}

command_has_ended() { ! kill -0 "$command_process" 2>/dev/null; }

# The command may end in its own way before the desktop goes.
end_early() {
  trap '' HUP INT TERM
  if [ -n "$command_process" ]; then
    kill -s TERM "$command_process" 2>/dev/null || true
    wait_until command_has_ended 10 || true
  fi
  exit "$1"
}

trap tear_down EXIT
trap 'end_early 129' HUP
trap 'end_early 130' INT
trap 'end_early 143' TERM

unset WAYLAND_DISPLAY SWAYSOCK XAUTHORITY SESSION_MANAGER XDG_CONFIG_HOME XDG_DATA_HOME XDG_CACHE_HOME XDG_STATE_HOME
unset AT_SPI_BUS_ADDRESS NO_AT_BRIDGE GTK_MODULES
export XDG_RUNTIME_DIR="$desktop/runtime" HOME="$desktop/home" XDG_SESSION_TYPE=x11
# Without a graphics card GTK 4 would emulate one, which takes a processor and makes it answer late.
export GDK_BACKEND=x11 QT_QPA_PLATFORM=xcb LIBGL_ALWAYS_SOFTWARE=1 GSK_RENDERER=cairo

if [ -z "$compositor" ]; then
  start_x_server
  start_session_bus
  start_window_manager
else
  start_session_bus
  start_compositor
fi
start_accessibility_bus

# In the background, so that a signal is heard while it runs; the shell would let it ignore some.
env --default-signal=INT,QUIT "$@" <&0 &
command_process=$!
status=0
wait "$command_process" || status=$?
exit "$status"
