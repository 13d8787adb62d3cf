"""Every text that a person sees has its Italian: italian-complete.py ROOT | --self-test

Collects the texts marked with Xlate or ToXlate with gettext's own tools and compares them with po/it.po.
"""
import os
import pathlib
import subprocess
import sys
import tempfile


def run(*words):
    """Runs a tool of gettext, which is to speak English here: its remarks are told apart by their words."""
    return subprocess.run(words, capture_output=True, text=True, check=False,
                          env={**os.environ, "LC_ALL": "C.UTF-8", "LANGUAGE": ""})


def findings(root):
    """Lines that say which texts have no Italian."""
    sources = [str(path) for folder in ("src", "host", "apps") for path in sorted((root / folder).rglob("*"))
               if path.suffix in (".cpp", ".h")]
    if not sources:
        return ["no sources below " + str(root)]
    with tempfile.TemporaryDirectory() as folder:
        template = folder + "/texts.pot"
        made = run("xgettext", "--language=C++", "--from-code=UTF-8", "--keyword=Xlate", "--keyword=ToXlate",
                   "--output=" + template, *sources)
        if made.returncode != 0:
            return [made.stderr]
        compared = run("msgcmp", "--use-untranslated", str(root / "po" / "it.po"), template)
        missing = run("msgcmp", str(root / "po" / "it.po"), template)
    return [line for line in (compared.stderr + missing.stderr).splitlines() if "not used" not in line]


def self_test():
    with tempfile.TemporaryDirectory() as folder:
        root = pathlib.Path(folder)
        (root / "src").mkdir()
        (root / "po").mkdir()
        head = 'msgid ""\nmsgstr "Content-Type: text/plain; charset=UTF-8\\n"\n\nmsgid "yes"\nmsgstr "sì"\n'
        (root / "po" / "it.po").write_text(head, encoding="utf-8")
        (root / "src" / "a.cpp").write_text('auto a = Xlate("yes");\n')
        assert not findings(root), findings(root)
        (root / "src" / "b.cpp").write_text('auto b = ToXlate("no");\n')
        assert findings(root)
    print("italian-complete: self-test passed")


if __name__ == "__main__":
    if sys.argv[1] == "--self-test":
        self_test()
    else:
        found = findings(pathlib.Path(sys.argv[1]))
        print("\n".join(found) if found else "every text has its Italian")
        sys.exit(1 if found else 0)
