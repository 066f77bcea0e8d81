#!/usr/bin/env python3
"""check_tree.py ROOT: rules of the source tree that the compiler does not hold.

- Windows is called by its API: POSIX and ICU headers are included in their own folders only.
- The library's sources know one platform: no conditional names a compiler or an operating system.
- Headers do not open namespaces for those who include them.
- Every source and header is in the encoding, and with the ends of line, that the others have.
Exit status: 0 all kept, 1 with a line for each place that breaks one.
"""
import pathlib
import re
import sys

LIBRARY = ("frame", "geometry", "entity", "objects", "database", "input", "text", "net")
OWNERS = {  # a header that matches is for these folders only
    r"(unistd|dlfcn|fcntl|dirent|poll|pthread|link|elf|sys/\w+)\.h": ("host/win32", "host/console", "host/testing"),
    r"unicode/.*": ("host/win32", "bench"),
    r"(TopoDS|BRep\w*|Geom\w*|gp_\w+|Standard\w*)(\.hxx)?": ("host/kernel", "bench"),
}
PLATFORM = re.compile(r"^\s*#\s*(if|ifdef|ifndef|elif)\b.*\b(__linux__|__GNUC__|__clang__|_WIN32|_WIN64|_MSC_VER|__unix__)")
INCLUDE = re.compile(r'^\s*#\s*include\s*[<"]([^>"]+)[>"]')


def faults_of(path, name):
    raw = path.read_bytes()
    try:
        text = raw.decode("utf-8")
    except UnicodeDecodeError as error:
        yield f"{name}: not UTF-8 at byte {error.start}"
        return
    if b"\r" in raw or not text.endswith("\n"):
        yield f"{name}: lines end in one line feed, the last one too"
    for number, line in enumerate(text.splitlines(), 1):
        include = INCLUDE.match(line)
        for pattern, folders in OWNERS.items():
            if include and re.fullmatch(pattern, include[1]) and not name.startswith(folders):
                if not name.startswith("tests/"):
                    yield f"{name}:{number}: <{include[1]}> belongs to {', '.join(folders)}"
        if name.split("/")[0] in LIBRARY and PLATFORM.match(line):
            yield f"{name}:{number}: the library is written for one platform"
        if name.endswith(".h") and re.match(r"\s*using\s+namespace\b", line):
            yield f"{name}:{number}: a header opens a namespace"


def main():
    root = pathlib.Path(sys.argv[1])
    files = [p for top in (*LIBRARY, "host", "samples", "tests", "bench") for p in (root / top).rglob("*")
             if p.suffix in (".h", ".cpp")] + sorted(root.glob("*.h"))
    faults = [fault for path in files for fault in faults_of(path, path.relative_to(root).as_posix())]
    print("\n".join(faults))
    print(f"{len(files)} files read, {len(faults)} faults")
    return 1 if faults or not files else 0


sys.exit(main())
