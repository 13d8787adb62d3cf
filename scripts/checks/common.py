"""What the checks share: walking the sources, reporting, and the tree of a self-test."""
import pathlib
import sys
import tempfile

SOURCE_SUFFIXES = {".cpp", ".h", ".hpp", ".cc", ".inl", ".inc"}


def sources(root, *folders):
    """The C++ files under root's given folders, as paths relative to root, in order."""
    root = pathlib.Path(root)
    for folder in folders:
        for path in sorted((root / folder).rglob("*")):
            if path.suffix in SOURCE_SUFFIXES and path.is_file():
                yield path.relative_to(root)


def read(root, path):
    return (pathlib.Path(root) / path).read_text(encoding="utf-8", errors="replace")


def main(check, self_test, argument):
    """Runs check on the one command-line argument, or self_test; exits 1 on any finding, 2 on bad usage.

    check takes the argument and gives back (findings, number of things looked at). Having looked at
    nothing is a finding too: a check that is pointed at the wrong place must not pass.
    """
    if len(sys.argv) != 2 or (sys.argv[1].startswith("-") and sys.argv[1] != "--self-test"):
        sys.exit(f"usage: {sys.argv[0]} {argument} | --self-test")
    if sys.argv[1] == "--self-test":
        self_test()
        print("self-test passed")
        return
    findings, looked_at = check(sys.argv[1])
    if not looked_at:
        findings = [f"{sys.argv[1]}: nothing to look at here"]
    print("\n".join(findings) if findings else f"nothing found in {looked_at}")
    sys.exit(1 if findings else 0)


class Tree:
    """A folder for the length of a with block, filled with the given files (path: text)."""

    def __init__(self, files):
        self.files = files
        self.folder = tempfile.TemporaryDirectory()

    def __enter__(self):
        root = pathlib.Path(self.folder.name)
        for path, text in self.files.items():
            (root / path).parent.mkdir(parents=True, exist_ok=True)
            (root / path).write_text(text, encoding="utf-8")
        return str(root)

    def __exit__(self, *error):
        self.folder.cleanup()


def expect(condition, what):
    """A self-test's assertion; unlike assert it holds under python -O too."""
    if not condition:
        sys.exit(f"self-test FAILED: {what}")
