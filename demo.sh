#!/usr/bin/env bash
# demo.sh: sets the machine up, builds, and shows what there is to show. The drawing host is not there yet:
# for now this is the library's first client, a list of drawing names sorted as a person would sort it.
set -euo pipefail

cd "$(dirname "$0")"
scripts/setup.sh build test
scripts/build.sh release first_steps
mkdir -p out
echo "== the list, as a Windows program left it (code page 936):"
iconv -f GBK -t UTF-8 samples/first-steps/drawings.txt
build/release/first_steps samples/first-steps/drawings.txt out/drawings.tsv
echo "== sorted and numbered, in out/drawings.tsv (UTF-8): column, name, next copy, link"
cat out/drawings.tsv
echo "== The drawing host, its sample drawing and the picture of it do not exist yet; this is all there is."
