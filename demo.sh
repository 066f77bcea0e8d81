#!/usr/bin/env bash
# demo.sh [DRAWING.dxf]: sets the machine up, builds, and does a drafting job on a real drawing: opens it in arxhost, loads
# the library and a module that stands on it, runs a script, saves and plots. Without a drawing it is the site plan of
# samples/drawings/site.dxf; the results are out/site.dxf, out/site.png and out/site.svg (out/NAME.* for NAME.dxf).
set -euo pipefail

drawing=${1:+$(realpath "$1")}
cd "$(dirname "$0")"
script=samples/axis-grid/anywhere.scr
if [[ -z $drawing ]]; then
  drawing=$PWD/samples/drawings/site.dxf
  script=samples/axis-grid/site.scr
fi
[[ -r $drawing ]] || { echo "demo.sh: $drawing cannot be read" >&2; exit 1; }
name=$(basename "${drawing%.*}")

scripts/setup.sh build test
scripts/build.sh release arxhost_program QmCADLib AxisGrid
mkdir -p out
host=build/release/arxhost

echo "== what is in $drawing"
"$host" "$drawing" --list
echo "== an axis grid is drawn into it: $script"
"$host" "$drawing" --load build/release/QmCADLib.arx --load build/release/AxisGrid.arx --script "$script" \
  --save "out/$name.dxf" --plot "out/$name.png"
"$host" "out/$name.dxf" --plot "out/$name.svg"
echo "== what is in the result"
"$host" "out/$name.dxf" --list
echo "== look at out/$name.png or out/$name.svg; the drawing is out/$name.dxf"
