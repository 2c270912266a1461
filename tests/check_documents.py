#!/usr/bin/env python3
"""Checks that the documents tell the truth about the tree.

Every path that README.md, CONTRIBUTING.md or a page of docs/ names in backticks or links to must
exist. With --runtime, every block of the language in them (```vlm) that is followed by a block of
its output (```text) is run, and must print exactly that.
"""

import argparse
import pathlib
import re
import subprocess
import sys
import tempfile

TOP = pathlib.Path(__file__).resolve().parent.parent

FENCED = re.compile(r"^```(\w*)\n(.*?)^```$", re.MULTILINE | re.DOTALL)
LINK = re.compile(r"!?\[[^\]]*\]\(([^)#\s]+)[^)]*\)")
QUOTED = re.compile(r"`([^`\n]+)`")
PATH = re.compile(r"\.?/?[\w.-]+(/[\w.-]+)*/?")
FOLDERS = ("src", "tests", "tools", "docs", "examples", "bench", "cmake", ".ci")
SUFFIXES = (".h", ".cpp", ".md", ".py", ".sh", ".vlm", ".cases", ".cmake", ".txt", ".json")


def is_path(word):
    """Whether a word in backticks names a file or folder of the tree, not one still to be made."""
    if not PATH.fullmatch(word) or word.startswith(("build", "./build")):
        return False
    first = word.removeprefix("./").split("/")[0]
    return ("/" in word and first in FOLDERS) or word.endswith(SUFFIXES)


def named_paths(text):
    """(path, is a link) for all that a page names."""
    prose = FENCED.sub("", text)
    links = [(target, True) for target in LINK.findall(prose) if "://" not in target]
    words = [(word, False) for word in QUOTED.findall(prose) if is_path(word)]
    return links + words


def exists(target, is_link, page, top):
    if (page.parent / target).exists():
        return True
    # Backticks count from the top of the tree; sources also from src, as includes do.
    return not is_link and ((top / target).exists() or (top / "src" / target).exists())


def check_paths(page, text, top):
    return [
        f"{page.relative_to(top)}: no {target}"
        for target, is_link in named_paths(text)
        if not exists(target, is_link, page, top)
    ]


def examples(text):
    """(source, output) of each block of the language with its output behind it."""
    blocks = FENCED.findall(text)
    return [
        (first[1], second[1])
        for first, second in zip(blocks, blocks[1:])
        if first[0] == "vlm" and second[0] == "text"
    ]


def run_example(source, runtime):
    with tempfile.TemporaryDirectory(prefix="velm-doc-") as folder:
        script = pathlib.Path(folder) / "example.vlm"
        script.write_text(source, encoding="utf-8")
        try:
            done = subprocess.run([runtime, str(script)], cwd=folder, stdin=subprocess.DEVNULL,
                                  capture_output=True, timeout=20, check=False)
        except subprocess.TimeoutExpired:
            return "(no end within 20 seconds)\n"
    return (done.stdout + done.stderr).decode("utf-8", "backslashreplace")


def check_examples(page, text, runtime, top):
    problems = []
    for source, output in examples(text):
        got = run_example(source, runtime)
        if got != output:
            problems.append(f"{page.relative_to(top)}: this example\n{source}prints\n{got}")
    return problems


def pages(top):
    return [p for p in [top / "README.md", top / "CONTRIBUTING.md"] if p.exists()] + sorted(
        (top / "docs").rglob("*.md")
    )


def self_test():
    with tempfile.TemporaryDirectory() as folder:
        top = pathlib.Path(folder)
        (top / "docs").mkdir()
        (top / "src").mkdir()
        (top / "src" / "a.cpp").touch()
        page = top / "docs" / "page.md"
        page.touch()
        good = "`src/a.cpp` `a.cpp` [x](page.md) [y](https://a.b/c) `1/2` `build/x` `ls src/*`\n"
        assert check_paths(page, good, top) == []
        bad = "`src/b.cpp` [x](gone.md) ![z](pictures/no.png) `tests/`\n```\n`src/c.cpp`\n```\n"
        assert len(check_paths(page, bad, top)) == 4, check_paths(page, bad, top)
        block = "```vlm\nx\n```\n\nprints\n\n```text\ny\n```\n"
        assert examples(block) == [("x\n", "y\n")]
        echo = top / "echo"
        echo.write_text("#!/bin/sh\ncat \"$1\"\n")
        echo.chmod(0o755)
        assert len(check_examples(page, block, str(echo), top)) == 1
        assert check_examples(page, block.replace("\ny", "\nx"), str(echo), top) == []
    print("self-test: missing files and wrong examples are noticed")
    return 0


def main():
    parser = argparse.ArgumentParser(
        description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter
    )
    parser.add_argument("--runtime", help="path of velmconsole: run the examples of the pages too")
    parser.add_argument("--self-test", action="store_true", help="prove that faults are noticed")
    options = parser.parse_args()
    if options.self_test:
        return self_test()
    problems, count, paths = [], 0, 0
    for page in pages(TOP):
        text = page.read_text(encoding="utf-8")
        problems += check_paths(page, text, TOP)
        paths += len(named_paths(text))
        count += len(examples(text))
        if options.runtime:
            runtime = str(pathlib.Path(options.runtime).resolve())
            problems += check_examples(page, text, runtime, TOP)
    print("\n".join(problems + [f"documents: {paths} paths, {count} examples, "
                                f"{len(problems)} faults"]))
    return 1 if problems or not paths else 0


if __name__ == "__main__":
    sys.exit(main())
