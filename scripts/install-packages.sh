#!/bin/bash
# install-packages.sh <role>...: installs the missing Debian packages of these roles (see scripts/packages).
# Says nothing and needs no rights when nothing is missing.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")"

wanted=()
for role in "$@"; do
    mapfile -t -O "${#wanted[@]}" wanted < <(awk -v role="$role" '$1 == role { print $2 }' packages)
done

missing=()
for package in "${wanted[@]}"; do
    state=$(dpkg-query --show --showformat='${db:Status-Status}' "$package" 2>/dev/null) || state=unknown
    [ "$state" = installed ] || missing+=("$package")
done
[ "${#missing[@]}" -gt 0 ] || exit 0

echo "Installing ${missing[*]}" >&2
as_root=()
if [ "$(id -u)" -ne 0 ]; then
    if ! command -v sudo >/dev/null; then
        echo "These packages are missing, and only root can install them:" >&2
        echo "    apt-get install ${missing[*]}" >&2
        exit 1
    fi
    as_root=(sudo)
fi
apt=("${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get --quiet --yes)
{
    # A stale list of packages may still do, so the installation is tried even when the update failed.
    "${apt[@]}" update || true
    "${apt[@]}" install --no-install-recommends "${missing[@]}"
} >&2
