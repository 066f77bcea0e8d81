#!/usr/bin/env bash
# test.sh [PRESET]: sets the machine up, builds and runs every test. The preset is release unless named;
# `./test.sh asan` runs them under the address and undefined-behaviour sanitizers with leak detection.
set -euo pipefail

cd "$(dirname "$0")"
preset=${1:-release}
scripts/setup.sh build test
scripts/build.sh "$preset"
echo "== testing build/$preset"
ctest --preset "$preset"
