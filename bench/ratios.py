#!/usr/bin/env python3
"""ratios.py FOLDER: the table of ratios of a benchmark run.

Reads the JSON results in FOLDER. A benchmark is named Family/ours or Family/PEER; the ratio is the peer's
time divided by ours, so more is better. A family's goal is the counter "goal" of its ours.
Exit status: 0 every goal reached, 1 one missed, 2 nothing to read.
"""
import json
import pathlib
import sys
from collections import defaultdict

SECONDS = {"ns": 1e-9, "us": 1e-6, "ms": 1e-3, "s": 1.0}


def read(folder):
    """{family: {side: (seconds, goal)}}; of repeated runs the median, when it was asked for."""
    families = defaultdict(dict)
    for path in sorted(pathlib.Path(folder).glob("*.json")):
        text = path.read_text()
        for run in json.loads(text)["benchmarks"] if text.strip() else []:
            if run.get("error_occurred"):
                print(f"{run['name']}: {run.get('error_message')}")
                continue
            if run.get("run_type") == "aggregate" and run.get("aggregate_name") != "median":
                continue
            family, _, side = run["run_name"].partition("/")
            side = side.split("/")[0]  # what follows are the library's own marks, such as iterations:5
            families[family][side] = (run["real_time"] * SECONDS[run["time_unit"]], run.get("goal"))
    return families


def shown(seconds):
    """A time with the unit that suits it."""
    for unit, size in (("s", 1.0), ("ms", 1e-3), ("us", 1e-6)):
        if seconds >= size:
            return f"{seconds / size:.3f} {unit}"
    return f"{seconds * 1e9:.3f} ns"


def main():
    families = read(sys.argv[1]) if len(sys.argv) == 2 else {}
    if not families:
        print(__doc__.strip())
        return 2
    missed = 0
    print(f"\n{'family':40} {'ours':>12} {'peer':>15} {'':>12} {'ratio':>8} {'goal':>6}")
    for family, sides in sorted(families.items()):
        ours, goal = sides.get("ours", (None, None))
        if ours is None:
            continue
        for peer, (time, _) in sorted(sides.items()):
            if peer == "ours":
                continue
            ratio = time / ours
            ok = goal is None or ratio >= goal
            missed += not ok
            print(f"{family:40} {shown(ours):>12} {peer[:15]:>15} {shown(time):>12} {ratio:8.2f} "
                  f"{goal if goal is not None else '-':>6}{'' if ok else '  MISSED'}")
    return 1 if missed else 0


sys.exit(main())
