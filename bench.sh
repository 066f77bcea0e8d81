#!/usr/bin/env bash
# bench.sh [FILTER]: sets the machine up, builds the benchmarks and runs them with their peers, then prints
# the table of ratios. FILTER is a regular expression over the benchmarks' names. Results stay in
# out/bench/*.json. Exit status 1 when a ratio misses its goal.
set -euo pipefail

cd "$(dirname "$0")"
filter=${1:-.}
scripts/setup.sh build bench
scripts/build.sh bench
rm -rf out/bench && mkdir -p out/bench
for program in build/bench/bench_*; do
  [ -x "$program" ] && [ -f "$program" ] || continue
  name=$(basename "$program")
  echo "== $name"
  "$program" --benchmark_filter="$filter" --benchmark_out="out/bench/$name.json" --benchmark_out_format=json
done
/usr/bin/python3 bench/EzdxfPeer.py "$filter" out/bench/ezdxf.json
python3 bench/ratios.py out/bench
