#!/usr/bin/env python3
"""Checks that each folder includes only itself and the folders below it.

Usage: includes-point-down.py ROOT | --self-test
"""
import pathlib
import re
import common

ROOMS = ["platform", "tdk", "model", "services", "formats", "ui", "frame"]  # from the bottom up
FOR_HOSTS = ROOMS[: ROOMS.index("services") + 1]  # what hosts and programs may use of src/
MODULE_HEADER = "frame/exports.h"  # the one header of the module that programs may use
INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*(["<])([^">\n]+)[">]')


def src_reason(parts, target):
    """Why a file at parts (below src/) may not include target (below src/, or host/, apps/)."""
    room, other = parts[0], target[0]
    if other not in ROOMS:
        return f"src/ must not include {other}/"
    if ROOMS.index(other) > ROOMS.index(room):
        return f"{room}/ is below {other}/"
    inside_a_format = room == other == "formats" and len(parts) > 2
    if inside_a_format and parts[1] != target[1]:
        return "a format must not know another one"
    return None


def host_reason(parts, target):
    """The same for a file at parts (below host/)."""
    if target[0] in FOR_HOSTS:
        return None
    if target[0] != "host":
        return f"host/ must not include {target[0]}/"
    own, other = (names[0] if len(names) > 1 else "" for names in (parts, target[1:]))
    if other == own or (other == "document" and own != "document"):
        return None
    return f"host/{own} must not include host/{other}"


def apps_reason(parts, target):
    """The same for a file at parts (below apps/)."""
    own = [("apps",) + tuple(parts[:1]), ("apps", "common")]
    allowed = target[0] in FOR_HOSTS + ["host"] or "/".join(target) == MODULE_HEADER or target[:2] in own
    return None if allowed else f"apps/ must not include {'/'.join(target)}"


def reason(root, path, quote, name):
    """Why the file at path must not include name, or None."""
    area, parts, target = path.parts[0], path.parts[1:], pathlib.PurePosixPath(name).parts
    known = target[0] in ROOMS + ["host", "apps", "tests", "src"]
    if quote == "<":  # a system header, unless it is one of ours in the wrong brackets
        ours = any((root / base / name).is_file() for base in ("src", "."))
        return "write this include with quotes" if known and ours else None
    if "." in target or ".." in target or name.startswith("/"):
        return "write the path from src/ or from the root"
    if len(target) == 1:
        return None if area == "apps" else "write the include with its folder, or a system header with <>"
    if not known or target[0] == "src":
        return f"unknown folder {target[0]}/; system headers go with <>"
    if area == "src" and parts[0] not in ROOMS:
        return f"src/{parts[0]} is in no room"
    return {"src": src_reason, "host": host_reason, "apps": apps_reason}[area](parts, target)


def check(root):
    findings, looked_at = [], 0
    for path in common.sources(root, "src", "host", "apps"):
        looked_at += 1
        for number, line in enumerate(common.read(root, path).splitlines(), 1):
            match = INCLUDE.match(line)
            why = match and reason(pathlib.Path(root), path, *match.groups())
            if why:
                findings.append(f'{path}:{number}: includes {match.group(2)}: {why}')
    return findings, looked_at


def self_test():
    wrong = [("src/platform/a.cpp", "model/b.h"), ("src/formats/jb2/a.cpp", "formats/jb3/b.h"),
             ("src/formats/jb2/a.cpp", "ui/b.h"), ("src/ui/a.cpp", "frame/b.h"), ("src/tdk/a.h", "host/cad/b.h"),
             ("src/frame/a.cpp", "apps/kalvio/b.h"), ("src/model/a.cpp", "b.h"), ("src/model/a.cpp", "../tdk/b.h"),
             ("host/cad/a.cpp", "host/gis/b.h"), ("host/document/a.cpp", "host/cad/b.h"), ("host/cad/a.h", "ui/b.h"),
             ("apps/kalvio/a.cpp", "formats/jb2/b.h"), ("apps/kalvio/a.cpp", "frame/ask.h"), ("src/a.cpp", "tdk/b.h"),
             ("apps/kalvio/a.cpp", "apps/desktop/b.h"), ("src/model/a.cpp", "src/tdk/b.h")]
    right = [("src/frame/a.cpp", "formats/jb2/b.h"), ("src/formats/jb2/a.cpp", "formats/jb2/b.h"),
             ("src/formats/table.cpp", "formats/jb2/b.h"), ("src/tdk/a.h", "platform/b.h"),
             ("host/cad/a.cpp", "host/cad/b.h"), ("host/cad/a.cpp", "host/document/b.h"), ("host/gis/a.h", "model/b.h"),
             ("apps/kalvio/a.cpp", "b.h"), ("apps/kalvio/a.cpp", "frame/exports.h"), ("apps/kalvio/a.cpp", "host/cad/b.h")]
    for cases, count in ((wrong, 1), (right, 0)):
        for path, name in cases:
            with common.Tree({path: f'// x\n#include <vector>\n  #  include "{name}"\n'}) as root:
                found = check(root)[0]
                common.expect(len(found) == count and all(f"{path}:3:" in f for f in found), f"{path} {name}: {found}")
    with common.Tree({"src/ui/a.cpp": "#include <frame/b.h>\n", "src/frame/b.h": ""}) as root:
        common.expect(len(check(root)[0]) == 1, "an include of ours in angle brackets")


if __name__ == "__main__":
    common.main(check, self_test, "ROOT")
