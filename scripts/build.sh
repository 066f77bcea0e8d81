#!/usr/bin/env bash
# build.sh PRESET [TARGET...]: configures one preset and builds it, or only these targets of it. Prints the
# compiler's words only when it fails.
set -euo pipefail

cd "$(dirname "$0")/.."
preset=$1
shift
echo "== building the preset '$preset' into build/$preset"
log=$(mktemp)
trap 'rm -f "$log"' EXIT
if ! { cmake --preset "$preset" && cmake --build --preset "$preset" ${1:+--target "$@"}; } >"$log" 2>&1; then
  grep -nE 'error|FAILED|CMake Error' -A5 "$log" | head -n 80 >&2 || tail -n 40 "$log" >&2
  echo "build.sh: the preset '$preset' does not build" >&2
  exit 1
fi
