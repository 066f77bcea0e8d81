#!/usr/bin/env python3
"""EzdxfPeer.py FILTER OUT.json: what ezdxf takes to make a million lines, and to find those of a layer among a million
entities, in the form of Google Benchmark's results.

Measured on a tenth of them, since its time grows with their number.
"""
import json
import re
import sys
import time

COUNT, MEASURED = 1000000, 100000


def lines_made():
    import ezdxf
    space = ezdxf.new("R2018").modelspace()
    start = time.perf_counter()
    for i in range(MEASURED):
        space.add_line((i, 0, 0), (i, 10, 0))
    return (time.perf_counter() - start) * COUNT / MEASURED


def lines_selected():
    import ezdxf
    space = ezdxf.new("R2018").modelspace()
    for i in range(MEASURED):
        attribs = {"layer": "Walls" if i % 10 == 0 else "0"}
        if i % 2:
            space.add_circle((i, 0, 0), 4, dxfattribs=attribs)
        else:
            space.add_line((i, 0, 0), (i, 10, 0), dxfattribs=attribs)
    start = time.perf_counter()
    found = space.query('LINE[layer=="walls"]i')
    assert len(found) == MEASURED // 10
    return (time.perf_counter() - start) * COUNT / MEASURED


MEASURES = {"LinesMadeByScript/ezdxf": lines_made, "SelectFiltered/ezdxf": lines_selected}


def main():
    wanted, out = sys.argv[1:3]
    runs = [{"name": name, "run_name": name, "run_type": "iteration", "real_time": measure() * 1e3, "time_unit": "ms"}
            for name, measure in MEASURES.items() if re.search(wanted, name)]
    with open(out, "w") as file:
        json.dump({"benchmarks": runs}, file)


main()
