#!/usr/bin/env bash
# demo.sh [DRAWING.dxf]: sets the machine up, builds, and does a drafting job on a real drawing: opens it in arxhost, loads
# the library and a module that stands on it, runs a script, saves and plots. Without a drawing it is the site plan of
# samples/drawings/site.dxf; the results are out/site.dxf, out/site.png and out/site.svg (out/NAME.* for NAME.dxf).
set -euo pipefail

fail() {
  echo "demo.sh: $1" >&2
  exit 1
}

[[ ${1:-} == -h || ${1:-} == --help ]] && { sed -n '2,4s/^# //p' "$0"; exit; }
(($# <= 1)) || fail "takes one drawing at most"
drawing=${1:+$(realpath -m -- "$1")}
cd "$(dirname "$(realpath "$0")")"
script=samples/axis-grid/anywhere.scr
if [[ -z $drawing ]]; then
  drawing=$PWD/samples/drawings/site.dxf
  script=samples/axis-grid/site.scr
fi
[[ -e $drawing ]] || fail "$drawing: there is no such file"
[[ ! -d $drawing ]] || fail "$drawing: this is a folder; name a drawing in it"
[[ -r $drawing ]] || fail "$drawing: you may not read this file"
[[ $(head -c 3 -- "$drawing" | tr -d '\0') != AC1 ]] || fail "$drawing: this is a DWG file; save it as DXF"
[[ -s $drawing ]] || fail "$drawing: this file is empty"
mkdir -p out 2>/dev/null && [[ -w out ]] || fail "$PWD/out: results cannot be written there"
name=$(basename "$drawing")
result=out/${name%.*}
[[ ! $drawing -ef $result.dxf ]] || result+=-2

scripts/setup.sh build test
scripts/build.sh release arxhost_program QmCADLib AxisGrid
host=build/release/arxhost

echo "== what is in $drawing"
"$host" "$drawing" --list
echo "== an axis grid is drawn into it: $script"
"$host" "$drawing" --load build/release/QmCADLib.arx --load build/release/AxisGrid.arx --script "$script" \
  --save "$result.dxf" --pixels 2000 --plot "$result.png" --plot "$result.svg"
echo "== what is in the result"
"$host" "$result.dxf" --list
echo "== look at $result.png or $result.svg; the drawing is $result.dxf"
