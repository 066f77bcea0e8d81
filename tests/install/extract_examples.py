#!/usr/bin/env python3
"""extract_examples.py PAGE FOLDER: the files that a page of the documentation shows.

A code block behind the line <!-- file: NAME --> becomes FOLDER/NAME. Exit status 1 when there is none.
"""
import pathlib
import re
import sys

BLOCK = re.compile(r"^<!-- file: (\S+) -->\n```\w*\n(.*?)^```$", re.M | re.S)


def main():
    page, folder = map(pathlib.Path, sys.argv[1:3])
    blocks = BLOCK.findall(page.read_text(encoding="utf-8"))
    folder.mkdir(parents=True, exist_ok=True)
    for name, text in blocks:
        (folder / name).write_text(text, encoding="utf-8")
    return 0 if blocks else 1


sys.exit(main())
