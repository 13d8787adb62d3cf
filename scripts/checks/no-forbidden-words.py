#!/usr/bin/env python3
"""Looks through the tracked text files for what has no place in them, and warns of very long sources.

Usage: no-forbidden-words.py ROOT | --self-test
"""
import pathlib
import re
import subprocess
import sys
import common

# Written with a bracket in each word, so that this file does not match itself.
FORBIDDEN = [
    (re.compile(r"\b(s)pec(ification)?s?\b", re.IGNORECASE), "say it as the system's own developer would"),
    (re.compile(r"\b(P)arts? \d+\.\d+"), "name the thing itself, not a part of a document"),
    (re.compile(r"/(w)ork/|/(f)arm/|/(r)oot/|bash_(j)obs"), "a path of one machine"),
    (re.compile(r"\b(deb|security|ftp)\.(d)ebian\.org|registry\.(n)pmjs"), "the host of a package archive"),
]
LONG = 400  # lines of a source file past which one looks twice


def tracked_files(root):
    run = subprocess.run(["git", "-C", root, "ls-files", "-z"], stdout=subprocess.PIPE, check=False)
    if run.returncode != 0:
        sys.exit(f"{root}: git cannot list the tracked files")
    return [name for name in run.stdout.decode("utf-8", "surrogateescape").split("\0") if name]


def check(root):
    findings, looked_at = [], 0
    for name in tracked_files(root):
        path = pathlib.Path(root) / name
        data = path.read_bytes() if path.is_file() else b"\0"
        if b"\0" in data[:8000]:  # binary, or removed from the working tree
            continue
        looked_at += 1
        lines = data.decode("utf-8", "replace").split("\n")
        for number, line in enumerate([name] + lines):  # number 0: the name of the file itself
            findings += [f"{name}:{number}: '{match.group()}': {why}"
                         for pattern, why in FORBIDDEN for match in pattern.finditer(line)]
        if path.suffix in common.SOURCE_SUFFIXES and len(lines) - 1 > LONG:
            print(f"warning: {name}: {len(lines) - 1} lines; would it be better as two files?")
    return findings, looked_at


def findings_for(files):
    """What check says of a new repository in which the given files are tracked."""
    with common.Tree(files) as root:
        for command in (["init", "--quiet"], ["add", "--all"]):
            subprocess.run(["git", "-C", root, *command], check=True, stdout=subprocess.DEVNULL)
        return check(root)


def self_test():
    own_text = pathlib.Path(__file__).read_text(encoding="utf-8")
    allowed = {"a.md": "special, respect, Part one, network/\n", "own.py": own_text, "b.bin": "\0 S" + "PEC"}
    common.expect(findings_for(allowed) == ([], 2), findings_for(allowed))
    for text in ("the s" + "pec", "S" + "PECIFICATIONS", "see P" + "art 3.12", "/wo" + "rk/x", "/ro" + "ot/x", "deb.de" + "bian.org"):
        found = findings_for({"docs/a.md": f"fine\n{text}\n"})[0]
        common.expect(len(found) == 1 and found[0].startswith("docs/a.md:2:"), (text, found))
    common.expect(len(findings_for({"s" + "pec.md": "fine\n"})[0]) == 1, "a file's name")
    common.expect(findings_for({"long.cpp": "\n" * 500}) == ([], 1), "a long file must only be warned of")


if __name__ == "__main__":
    common.main(check, self_test, "ROOT")
