#!/usr/bin/env bash
# setup.sh [LIST]: installs the Debian packages of scripts/packages.txt, or of another list, that are missing, and nothing
# else.
set -euo pipefail
cd "$(dirname "$0")/.."

case "${1:-}" in
  -h | --help) sed -n '2,3s/^# //p' "$0"; exit 0 ;;
esac

readonly list=${1:-scripts/packages.txt}

wanted() { sed -e 's/#.*//' -e '/^[[:space:]]*$/d' "$list"; }

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
