#!/usr/bin/env python3
"""Runs every script of examples/ and compares what it prints with tests/examples/NAME.out.

NAME.in holds the answers to its questions, one a line. Nothing may come on standard error. A
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


def run(runtime, script, answers):
    """Standard output and error of one script, which runs in a copy of the examples folder."""
    with tempfile.TemporaryDirectory(prefix="velm-example-") as folder:
        place = pathlib.Path(folder) / "examples"
        shutil.copytree(TOP / "examples", place)
        env = dict(os.environ, HOME=folder, TMPDIR=folder, XDG_CONFIG_HOME=f"{folder}/.config",
                   XDG_DATA_HOME=f"{folder}/.data", XDG_CACHE_HOME=f"{folder}/.cache",
                   TZ="Asia/Tokyo", QT_QPA_PLATFORM="offscreen")
        done = subprocess.run([runtime, str(place / script)], cwd=folder, env=env, input=answers,
                              capture_output=True, timeout=20, check=False)
    return done


def check(runtime, name, expected_folder):
    """Lines that tell what is wrong with one example."""
    expected = expected_folder / f"{name}.out"
    if not expected.is_file():
        return [f"{name}: no {expected.name}"]
    answers = expected_folder / f"{name}.in"
    try:
        done = run(runtime, f"{name}.vlm", answers.read_bytes() if answers.is_file() else b"")
    except subprocess.TimeoutExpired:
        return [f"{name}: no end within 20 seconds"]
    problems = []
    if done.returncode != 0:
        problems.append(f"{name}: exit status {done.returncode}")
    if done.stderr:
        problems.append(f"{name}: reports: {done.stderr.decode('utf-8', 'backslashreplace')}")
    got = done.stdout.decode("utf-8", "backslashreplace").splitlines()
    wanted = expected.read_text(encoding="utf-8").splitlines()
    if got != wanted:
        problems.append(f"{name}: output differs")
        problems += difflib.unified_diff(wanted, got, "expected", "got", n=2, lineterm="")
    return problems


def main():
    parser = argparse.ArgumentParser(
        description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter
    )
    parser.add_argument("runtime", help="path of velmconsole")
    parser.add_argument("names", nargs="*", help="examples without .vlm (default: all)")
    options = parser.parse_args()
    runtime = str(pathlib.Path(options.runtime).resolve())
    expected_folder = TOP / "tests" / "examples"
    scripts = {p.stem for p in (TOP / "examples").glob("*.vlm")}
    names = options.names or sorted(scripts | {p.stem for p in expected_folder.glob("*.out")})
    failed = 0
    for name in names:
        problems = check(runtime, name, expected_folder)
        failed += bool(problems)
        print("\n".join(problems) if problems else f"{name}: good")
    print(f"examples: {len(names) - failed} passed, {failed} failed")
    return 1 if failed or not names else 0


if __name__ == "__main__":
    sys.exit(main())
