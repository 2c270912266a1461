#!/usr/bin/env python3
"""Runs every script of examples/ and compares what it prints with tests/examples/NAME.out.

Beside NAME.out may stand:
    NAME.in      the answers to its questions, one a line
    NAME.env     lines VARIABLE=VALUE, set for the run
    NAME.given/  files put beside the script before the run
    NAME.left/   files that must be there after the run, byte for byte
A NAME of the form SCRIPT@CASE is one more run of SCRIPT. Nothing may come on standard error. A
script without its .out, or an .out without its script, is a failure too. Scripts in subfolders of
examples/ need a window and are looked at elsewhere.
"""

import argparse
import difflib
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile

TOP = pathlib.Path(__file__).resolve().parent.parent
EXPECTED = TOP / "tests" / "examples"


def environment(folder, name):
    """The variables of one run: everything that belongs to a user lies in the folder."""
    env = dict(os.environ, HOME=folder, TMPDIR=folder, XDG_CONFIG_HOME=f"{folder}/.config",
               XDG_DATA_HOME=f"{folder}/.data", XDG_CACHE_HOME=f"{folder}/.cache",
               TZ="Asia/Tokyo", QT_QPA_PLATFORM="offscreen")
    extra = EXPECTED / f"{name}.env"
    if extra.is_file():
        env.update(line.split("=", 1) for line in extra.read_text(encoding="utf-8").splitlines())
    return env


def differences(name, wanted, got):
    """Lines of a comparison of two lists of lines; none when they are equal."""
    if wanted == got:
        return []
    return [f"{name} differs",
            *difflib.unified_diff(wanted, got, "expected", "got", n=2, lineterm="")]


def readable(data):
    """Bytes as lines for a comparison; what isn't UTF-8 shows as its bytes, line ends too."""
    return data.decode("utf-8", "backslashreplace").replace("\r", "\\r").split("\n")


def check_left(name, place):
    """Compares the files that the run left with those of NAME.left."""
    problems, left = [], EXPECTED / f"{name}.left"
    for wanted in sorted(p for p in left.rglob("*") if p.is_file()):
        got = place / wanted.relative_to(left)
        if not got.is_file():
            problems.append(f"{name}: {wanted.relative_to(left)} wasn't written")
        else:
            problems += differences(f"{name}: {wanted.relative_to(left)}",
                                    readable(wanted.read_bytes()), readable(got.read_bytes()))
    return problems


def run(runtime, name, folder):
    """Runs one script in a copy of the examples folder; gives lines that tell what is wrong."""
    place, answers = pathlib.Path(folder) / "examples", EXPECTED / f"{name}.in"
    shutil.copytree(TOP / "examples", place)
    if (EXPECTED / f"{name}.given").is_dir():
        shutil.copytree(EXPECTED / f"{name}.given", place, dirs_exist_ok=True)
    script = name.partition("@")[0] + ".vlm"
    try:
        done = subprocess.run([runtime, str(place / script)], cwd=folder, timeout=20, check=False,
                              env=environment(folder, name), capture_output=True,
                              input=answers.read_bytes() if answers.is_file() else b"")
    except subprocess.TimeoutExpired:
        return [f"{name}: no end within 20 seconds"]
    problems = []
    if done.returncode != 0:
        problems.append(f"{name}: exit status {done.returncode}")
    if done.stderr:
        problems.append(f"{name}: reports: {done.stderr.decode('utf-8', 'backslashreplace')}")
    wanted = (EXPECTED / f"{name}.out").read_text(encoding="utf-8").splitlines()
    got = done.stdout.decode("utf-8", "backslashreplace").splitlines()
    return problems + differences(f"{name}: output", wanted, got) + check_left(name, place)


def check(runtime, name):
    """Lines that tell what is wrong with one example."""
    if not (EXPECTED / f"{name}.out").is_file():
        return [f"{name}: no {name}.out"]
    with tempfile.TemporaryDirectory(prefix="velm-example-") as folder:
        return run(runtime, name, folder)


def main():
    parser = argparse.ArgumentParser(
        description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter
    )
    parser.add_argument("runtime", help="path of velmconsole")
    parser.add_argument("names", nargs="*", help="examples without .vlm (default: all)")
    options = parser.parse_args()
    runtime = str(pathlib.Path(options.runtime).resolve())
    scripts = {p.stem for p in (TOP / "examples").glob("*.vlm")}
    names = options.names or sorted(scripts | {p.stem for p in EXPECTED.glob("*.out")})
    failed = 0
    for name in names:
        problems = check(runtime, name)
        failed += bool(problems)
        print("\n".join(problems) if problems else f"{name}: good")
    print(f"examples: {len(names) - failed} passed, {failed} failed")
    return 1 if failed or not names else 0


if __name__ == "__main__":
    sys.exit(main())
