#!/usr/bin/env bash
# setup.sh: installs the Debian packages of scripts/packages.txt that are missing, and nothing else.
set -euo pipefail
cd "$(dirname "$0")/.."

case "${1:-}" in
  -h | --help) sed -n '2s/^# //p' "$0"; exit 0 ;;
esac

wanted() { sed -e 's/#.*//' -e '/^[[:space:]]*$/d' scripts/packages.txt; }

installed() { dpkg-query --show --showformat='${Package} ${db:Status-Status}\n' | sed -n 's/ installed$//p'; }

missing() { comm -23 <(wanted | sort -u) <(installed | sort -u); }

# A person at a terminal may be asked for a password; a machine is not.
as_root() {
  if [ "$(id -u)" -eq 0 ]; then
    "$@"
  elif [ -t 0 ]; then
    sudo "$@"
  else
    sudo --non-interactive "$@"
  fi
}

mapfile -t packages < <(missing)
[ "${#packages[@]}" -gt 0 ] || exit 0
if ! command -v apt-get >/dev/null; then
  echo "setup.sh: these Debian packages are needed, and there is no apt-get to install them: ${packages[*]}" >&2
  exit 1
fi
echo "Installing: ${packages[*]}" >&2
as_root apt-get update -q >&2
as_root env DEBIAN_FRONTEND=noninteractive apt-get install -q -y --no-install-recommends "${packages[@]}" >&2
