#!/usr/bin/env python3
"""Checks that numbers become text, and text numbers, in src/platform alone.

Everywhere else in src/, host/ and apps/ the functions that do so are forbidden: most of them obey the
process locale, and the others accept texts that are no numbers here.

Usage: numbers-only-in-platform.py ROOT | --self-test
"""
import re
import common

FORBIDDEN = """
strtod strtof strtold strtol strtoul strtoll strtoull atof atoi atol atoll
wcstod wcstof wcstold wcstol wcstoul wcstoll wcstoull stod stof stold stoi stol stoll stoul stoull
scanf sscanf fscanf vsscanf swscanf printf fprintf dprintf sprintf snprintf asprintf
vprintf vfprintf vsprintf vsnprintf vasprintf swprintf vswprintf wprintf fwprintf
from_chars to_chars to_string to_wstring
istringstream ostringstream stringstream wistringstream wostringstream wstringstream setprecision
""".split()

# (path, name): why it is right there. An entry that no longer applies is a finding.
ALLOWED = {}

# Comments and literals, which are blanked out. A ' inside a number separates digits and opens nothing.
NO_CODE = re.compile(r"""
    //[^\n]*
  | /\*.*?\*/
  | (?<![0-9A-Za-z_]) (?:u8|[uUL])? R"(?P<mark>[^(\s]*)\(.*?\)(?P=mark)"
  | "(?:\\.|[^"\\\n])*"
  | (?<![0-9A-Za-z_]) (?:u8|[uUL])? '(?:\\.|[^'\\\n])+'
""", re.VERBOSE | re.DOTALL)
NAME = re.compile(r"\b(?:" + "|".join(FORBIDDEN) + r")\b")


def code_of(text):
    """The text with comments and literals blanked, its line ends kept."""
    return NO_CODE.sub(lambda match: " " + "\n" * match.group().count("\n"), text)


def check(root, allowed=None):
    allowed = ALLOWED if allowed is None else allowed
    findings, used, looked_at = [], set(), 0
    for path in common.sources(root, "src", "host", "apps"):
        if path.parts[:2] == ("src", "platform"):
            continue
        looked_at += 1
        for number, line in enumerate(code_of(common.read(root, path)).splitlines(), 1):
            for name in NAME.findall(line):
                key = (path.as_posix(), name)
                used.add(key)
                if key not in allowed:
                    findings.append(f"{path}:{number}: {name}: convert numbers through src/platform")
    findings += [f"{path}: {name} is allowed but not there" for path, name in sorted(set(allowed) - used)]
    return findings, looked_at


def self_test():
    harmless = """// strtod
/* std::to_string
   atof */ const char* a = "sscanf \\" atoi"; auto b = R"x(stod " stoi)x"; char c = '"'; int d = 1'000'000;
int my_strtod, L; wchar_t e = L'"'; const char* f = "//"; /* */
"""
    files = {"src/model/a.cpp": harmless, "src/platform/n.cpp": "x = strtod(t, &e);\n"}
    with common.Tree(files) as root:
        common.expect(check(root)[0] == [], check(root))
    for folder in ("src/model", "host/cad", "apps/kalvio"):
        for name in FORBIDDEN:
            with common.Tree({f"{folder}/b.h": harmless + f"auto y = {name}(x);\n"}) as root:
                found = check(root)[0]
                common.expect(len(found) == 1 and found[0].startswith(f"{folder}/b.h:5: {name}:"), found)
                common.expect(check(root, {(f"{folder}/b.h", name): "why"})[0] == [], "an allowed use")
    with common.Tree(files) as root:
        stale = check(root, {("src/model/a.cpp", "atof"): "why"})[0]
        common.expect(stale == ["src/model/a.cpp: atof is allowed but not there"], stale)


if __name__ == "__main__":
    common.main(check, self_test, "ROOT")
