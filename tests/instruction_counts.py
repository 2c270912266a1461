#!/usr/bin/env python3
"""Counts the instructions of the programs of bench/ on small inputs, as a guard against regressions.

  instruction_counts.py RUNTIME            fails where a count is more than a tenth above the recorded
  instruction_counts.py RUNTIME --record   writes tests/instruction_counts.txt anew

Times on a busy machine say little, instruction counts repeat. What the start of the runtime costs is
taken off each count, so that neither the dynamic linker nor the surroundings play a part. The counts
belong to one compiler and machine type, whose name the file holds: for another one there is nothing
to compare, and the test says so and doesn't count. It needs valgrind (Debian: valgrind).
"""

import argparse
import concurrent.futures
import importlib.machinery
import importlib.util
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

HERE = pathlib.Path(__file__).resolve().parent
RECORDED = HERE / "instruction_counts.txt"
SKIPPED = 77
TOLERATED = 1.10
# The start itself may change with the surroundings, so that it gets more room.
START_TOLERATED = 1.30

# Programs of bench/programs with the size for this test. Each does about ten million instructions.
SIZES = {
    "start": None, "counted": 20000, "counted_proc": 20000, "until": 20000, "forever": 8000,
    "conditions": 3000, "calls": 10, "call_sentences": 10, "append": 20000, "sieve": 10000,
    "grid": 100, "cells": 10, "dictionary": 4000, "keys": 3000, "text_functions": 1000, "lines": 4000,
    "fields": 6000, "replace": 20000, "sort_numbers": 5000, "sort_texts": 4000,
    "sort_rows_by_number": 2000, "sort_rows_by_text": 2000, "csv_sum": 2000, "csv_group": 1500,
}


def load_bench():
    loader = importlib.machinery.SourceFileLoader("bench_run", str(HERE.parent / "bench" / "run"))
    spec = importlib.util.spec_from_loader("bench_run", loader)
    module = importlib.util.module_from_spec(spec)
    # Its dataclasses look their module up.
    sys.modules["bench_run"] = module
    sys.dont_write_bytecode = True
    loader.exec_module(module)
    return module


def count_instructions(runtime, name, bench):
    """Instructions of one program, in a folder and an environment that are always alike."""
    size = SIZES[name]
    with tempfile.TemporaryDirectory(prefix="velm-count-") as folder:
        row = bench.Row(name, size, size, csv=name.startswith("csv"))
        language = bench.Language("velm", ".vlm", [])
        program = bench.prepare(row, language, False, pathlib.Path(folder))
        if row.csv:
            bench.write_csv(pathlib.Path(folder) / "data.csv", size)
        done = subprocess.run(
            ["valgrind", "--tool=callgrind", "--callgrind-out-file=/dev/null", runtime,
             program.name],
            cwd=folder, stdin=subprocess.DEVNULL, capture_output=True, text=True, check=False,
            env={"PATH": os.environ.get("PATH", ""), "LC_ALL": "C.UTF-8", "HOME": folder})
    found = re.search(r"Collected : (\d+)", done.stderr)
    if done.returncode != 0 or not done.stdout or not found:
        raise SystemExit(f"{name}: exit status {done.returncode}\n{done.stdout}{done.stderr}")
    return int(found.group(1))


def measure(runtime):
    """All counts, without that of the start but for the start's own."""
    bench = load_bench()
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        counts = list(pool.map(lambda name: count_instructions(runtime, name, bench), SIZES))
    result = dict(zip(SIZES, counts))
    for name in SIZES:
        if name != "start":
            result[name] -= result["start"]
    return result


def record(counts, compiler):
    lines = ["# Instructions of the programs of bench/ by callgrind, without the start's own.",
             "# Written by: tests/instruction_counts.py RUNTIME --record --compiler NAME",
             f"compiler {compiler}"]
    lines += [f"{name} {SIZES[name] or 0} {count}" for name, count in counts.items()]
    RECORDED.write_text("\n".join(lines) + "\n", encoding="utf-8")


def read_recorded():
    """The name of the compiler, and size and count by program."""
    compiler, recorded = "", {}
    for line in RECORDED.read_text(encoding="utf-8").splitlines():
        if line.startswith("compiler "):
            compiler = line.removeprefix("compiler ")
        elif line and not line.startswith("#"):
            name, size, count = line.split()
            recorded[name] = (int(size), int(count))
    return compiler, recorded


def compare(counts, recorded):
    """A line for each program; gives those that are over the limit."""
    over, lines = [], []
    for name, count in counts.items():
        size, old = recorded.get(name, (None, 0))
        if size != (SIZES[name] or 0):
            over.append(name)
            lines.append(f"{name:<20} {count:>12}  isn't recorded for this size")
            continue
        limit = START_TOLERATED if name == "start" else TOLERATED
        mark = ""
        if count > old * limit:
            over.append(name)
            mark = "  over the limit"
        elif count * limit < old:
            mark = "  less: worth recording"
        lines.append(f"{name:<20} {count:>12} {count / old:6.3f}{mark}")
    return over, lines


def self_test():
    """That the comparison tells what it should, on made-up counts."""
    same = {name: 1000 for name in SIZES}
    recorded = {name: (SIZES[name] or 0, 1000) for name in SIZES}
    assert compare(same, recorded)[0] == []
    assert compare(dict(same, append=1099), recorded)[0] == []
    assert compare(dict(same, append=1101), recorded)[0] == ["append"]
    assert compare(dict(same, start=1301), recorded)[0] == ["start"]
    assert compare(same, dict(recorded, append=(1, 1000)))[0] == ["append"]
    assert set(read_recorded()[1]) == set(SIZES), "programs without a recorded count"
    print("instruction counts: self-test passed")
    return 0


def main():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("runtime", nargs="?")
    parser.add_argument("--compiler", help="its name and machine type; default: the recorded one")
    parser.add_argument("--record", action="store_true", help="write the counts as the new ones")
    parser.add_argument("--self-test", action="store_true")
    options = parser.parse_args()
    if options.self_test:
        return self_test()
    if options.runtime is None:
        parser.error("the runtime is missing")
    if shutil.which("valgrind") is None:
        print("instruction counts: skipped, valgrind is absent (Debian: valgrind)")
        return SKIPPED
    recorded_compiler, recorded = read_recorded() if RECORDED.exists() else ("", {})
    compiler = options.compiler or recorded_compiler
    if not options.record and compiler != recorded_compiler:
        print(f"instruction counts: skipped, recorded for {recorded_compiler}, not for {compiler}")
        return SKIPPED
    counts = measure(os.path.abspath(options.runtime))
    if options.record:
        record(counts, compiler)
    over, lines = compare(counts, read_recorded()[1])
    print("\n".join(lines))
    if over:
        print(f"instruction counts: over the limit: {', '.join(over)}")
    return 1 if over else 0


if __name__ == "__main__":
    sys.exit(main())
