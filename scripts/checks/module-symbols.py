#!/usr/bin/env python3
"""Checks that the module shows exactly its sixteen functions, and nothing else.

Usage: module-symbols.py MODULE.so | --self-test
"""
import os
import subprocess
import sys
import common

EXPECTED = set("""
FImportImageFile FImportJB2File FImportJB3File FImportTXTFile FImportCSVFile FImportDXFDWGFile
FExportJB2File FExportJB3File FExportTXTFile FExportCSVFile FExportDXFDWGFile FExportDATFile
FExportEntInFileShape FImportEntFromFileShape FExportLandXMLFile DummyVexa4modExport
""".split())


def shown_symbols(module):
    """(name, type letter) of each defined dynamic symbol; the names of version nodes are left out."""
    command = ["nm", "-D", "--defined-only", "--format=posix", module]
    run = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.PIPE, universal_newlines=True, check=False)
    if run.returncode != 0:
        sys.exit(f"{module}: nm failed: {run.stderr.strip()}")
    lines = [line.split()[:2] for line in run.stdout.splitlines() if line.strip()]
    nodes = {name.rpartition("@")[2] for name, _ in lines if "@" in name}
    plain = [(name.partition("@")[0], kind) for name, kind in lines]
    return [(name, kind) for name, kind in plain if not (kind == "A" and name in nodes)]


def check(module):
    symbols = shown_symbols(module)
    names = [name for name, _ in symbols]
    findings = [f"{module}: {name} is shown but is none of the sixteen functions"
                for name in names if name not in EXPECTED]
    findings += [f"{module}: {name} is missing" for name in sorted(EXPECTED - set(names))]
    findings += [f"{module}: {name} is no function (nm says {kind})"
                 for name, kind in symbols if name in EXPECTED and kind not in "TW"]
    return findings, len(symbols) or "a module without symbols"


def findings_for(source, link_options=()):
    """What check says of a module compiled from source."""
    with common.Tree({"m.c": source, "m.map": "NODE_1 { global: *; };\n"}) as folder:
        module = os.path.join(folder, "m.so")
        subprocess.run([os.environ.get("CC", "cc"), "-shared", "-fPIC", "-o", module, "m.c", *link_options],
                       cwd=folder, check=True)
        return [line.partition(": ")[2] for line in check(module)[0]]


def self_test():
    functions = "".join(f"int {name}(void) {{ return 0; }}\n" for name in sorted(EXPECTED))
    versioned = ["-Wl,--version-script=m.map"]
    common.expect(findings_for(functions) == [], "the sixteen alone must pass")
    common.expect(findings_for(functions, versioned) == [], "a version node must not count")
    one_more = findings_for(functions + "int extra(void) { return 0; }\n", versioned)
    common.expect(one_more == ["extra is shown but is none of the sixteen functions"], one_more)
    absolute = findings_for(functions + '__asm__(".globl loose\\n.set loose, 7");\n')
    common.expect(absolute == ["loose is shown but is none of the sixteen functions"], absolute)
    one_less = findings_for(functions.replace("FExportDATFile", "static_one"))
    common.expect("FExportDATFile is missing" in one_less and len(one_less) == 2, one_less)
    variable = findings_for(functions.replace("int FExportDATFile(void) { return 0; }", "int FExportDATFile = 1;"))
    common.expect(variable == ["FExportDATFile is no function (nm says D)"], variable)
    common.expect(len(findings_for("static int x;\n")) == len(EXPECTED), "a module that shows nothing")


if __name__ == "__main__":
    common.main(check, self_test, "MODULE.so")
