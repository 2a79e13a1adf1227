"""The README's code is the code the tests build and run.

Every fenced block of C, C++, Fortran or CMake in README.md must be preceded
by a line `<!-- file: examples/... -->` naming the file it shows, and must be
that file's text exactly; every file of examples/readme/ must be shown. The
files themselves are compiled and run by the examples' tests (examples/
CMakeLists.txt) and against an installed library by consumer_test.sh.

usage: python3 readme_snippets.py <source dir>
"""
import os
import re
import sys

CODE_LANGUAGES = {"c", "cpp", "c++", "fortran", "f90", "cmake", "python"}
MARKER = re.compile(r"^<!-- file: (\S+) -->$")
FENCE = re.compile(r"^```(\S*)\s*$")


def blocks(lines):
    """Yields (line number, language, marked file or None, text) of each fenced block."""
    marked = None
    i = 0
    while i < len(lines):
        m = MARKER.match(lines[i])
        if m:
            marked = (m.group(1), i + 1)
            i += 1
            continue
        f = FENCE.match(lines[i])
        if f:
            start = i
            body = []
            i += 1
            while i < len(lines) and lines[i].rstrip() != "```":
                body.append(lines[i])
                i += 1
            name = marked[0] if marked and marked[1] == start else None
            yield start + 1, f.group(1), name, "".join(body)
            marked = None
        i += 1


def main(source):
    with open(os.path.join(source, "README.md"), encoding="utf-8") as f:
        lines = f.readlines()
    errors = []
    shown = set()
    for line, language, name, text in blocks(lines):
        if name is None:
            if language in CODE_LANGUAGES:
                errors.append(f"README.md:{line}: {language} block without a <!-- file: --> line")
            continue
        shown.add(os.path.normpath(name))
        path = os.path.join(source, name)
        if not os.path.isfile(path):
            errors.append(f"README.md:{line}: {name} does not exist")
            continue
        with open(path, encoding="utf-8") as f:
            if f.read() != text:
                errors.append(f"README.md:{line}: the block differs from {name}")
    readme_dir = os.path.join(source, "examples", "readme")
    for entry in sorted(os.listdir(readme_dir)):
        name = os.path.normpath(os.path.join("examples", "readme", entry))
        if name not in shown:
            errors.append(f"{name} is not shown in README.md")
    for e in errors:
        print(e)
    if not errors:
        print(f"README.md: {len(shown)} code blocks, each the text of its file")
    return 1 if errors else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1]))
