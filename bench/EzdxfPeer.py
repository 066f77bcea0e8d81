#!/usr/bin/env python3
"""EzdxfPeer.py FILTER OUT.json: what ezdxf takes to make a million lines, in the form of Google Benchmark's results.

Measured on a tenth of them, since its time grows with their number.
"""
import json
import re
import sys
import time

COUNT, MEASURED = 1000000, 100000
NAME = "LinesMadeByScript/ezdxf"


def lines_made():
    import ezdxf
    space = ezdxf.new("R2018").modelspace()
    start = time.perf_counter()
    for i in range(MEASURED):
        space.add_line((i, 0, 0), (i, 10, 0))
    return (time.perf_counter() - start) * COUNT / MEASURED


def main():
    wanted, out = sys.argv[1:3]
    runs = []
    if re.search(wanted, NAME):
        runs.append({"name": NAME, "run_name": NAME, "run_type": "iteration",
                     "real_time": lines_made() * 1e3, "time_unit": "ms"})
    with open(out, "w") as file:
        json.dump({"benchmarks": runs}, file)


main()
