#!/usr/bin/env bash
# setup.sh GROUP...: installs the packages of these groups of packages.txt that are not there yet.
# Says what it does; does nothing, quickly, when all is there. Needs root only when something is missing.
set -euo pipefail

here=$(cd "$(dirname "$0")" && pwd)

packages_of() { # GROUP: the package names listed under [GROUP]
  awk -v group="[$1]" '/^\[/{on = ($1 == group); next} on && NF && $1 !~ /^#/{print $1}' "$here/packages.txt"
}

wanted=()
for group in "$@"; do
  while read -r package; do wanted+=("$package"); done < <(packages_of "$group")
done

missing=()
for package in "${wanted[@]}"; do
  dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null | grep -qx installed || missing+=("$package")
done
[ ${#missing[@]} -eq 0 ] && exit 0

echo "== installing with apt-get: ${missing[*]}"
if [ "$(id -u)" -ne 0 ]; then
  echo "setup.sh: root is needed to install them; run once as root: apt-get install ${missing[*]}" >&2
  exit 1
fi
export DEBIAN_FRONTEND=noninteractive
log=$(mktemp)
if ! { apt-get update && apt-get install -y --no-install-recommends "${missing[@]}"; } >"$log" 2>&1; then
  tail -n 20 "$log" >&2
  echo "setup.sh: the installation failed; the whole log is $log" >&2
  exit 1
fi
rm -f "$log"
