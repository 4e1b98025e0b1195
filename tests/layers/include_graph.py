#!/usr/bin/env python3
"""Checks that the include graph of src/ matches the link graph of the build.

The build writes one line per folder library: its name, its folder under src/ and
the folder libraries it links directly. Every include of a project header must
name the file's own folder or one that its library reaches through its links, and
every direct link must be used by at least one include, so the link lines say no
more than the code needs. The per-library include roots already make a forbidden
include fail to compile; this check also catches links that outlived their use
and states the whole graph in one place.

    include_graph.py SOURCE_DIR GRAPH_FILE
"""
import pathlib
import re
import sys

INCLUDE = re.compile(r'^\s*#\s*include\s+"([^"]+)"', re.MULTILINE)
# Headers the build writes, and the library whose include path holds them.
GENERATED = {"config.h": "vistarro_core"}


def read_graph(path):
    folders, links = {}, {}
    for line in pathlib.Path(path).read_text().splitlines():
        name, folder, *deps = line.split()
        folders[name] = folder
        links[name] = deps
    return folders, links


def reach(name, links, seen=None):
    seen = set() if seen is None else seen
    for dep in links[name]:
        if dep not in seen:
            seen.add(dep)
            reach(dep, links, seen)
    return seen


def owner(header, folders):
    """The library whose folder holds `header`, the longest folder that matches."""
    best = None
    for name, folder in folders.items():
        if header.startswith(folder + "/") and "/" not in header[len(folder) + 1:]:
            if best is None or len(folder) > len(folders[best]):
                best = name
    return best


def main():
    src = pathlib.Path(sys.argv[1]) / "src"
    folders, links = read_graph(sys.argv[2])
    faults = []
    used = {name: set() for name in folders}
    for name, folder in sorted(folders.items()):
        allowed = reach(name, links) | {name}
        files = sorted(p for p in (src / folder).iterdir() if p.suffix in (".h", ".cpp"))
        for file in files:
            for header in INCLUDE.findall(file.read_text(encoding="utf-8")):
                target = GENERATED.get(header) or owner(header, folders)
                where = file.relative_to(src.parent)
                if target is None:
                    faults.append(f'{where}: "{header}" is no header of a folder library')
                elif target not in allowed:
                    faults.append(f'{where}: "{header}" belongs to {target}, which {name} does not link')
                elif target != name:
                    used[name].add(target)
    for name, deps in sorted(links.items()):
        for dep in deps:
            # A link is used when the library includes the linked library's own
            # headers; a link kept only to pass another library on is not.
            if dep not in used[name]:
                faults.append(f"{name} links {dep} but includes none of its headers")
    for fault in faults:
        print(fault)
    if faults:
        return 1
    print(f"{len(folders)} libraries; every include is within the links, every link is used")
    return 0


if __name__ == "__main__":
    sys.exit(main())
