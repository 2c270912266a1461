#!/usr/bin/env python3
"""Runs random programs on two builds of the console face, with the hidden caches and without them.

What both print, and how they end, must be the same. A program that tells them apart is made as short
as it goes and shown. The seeds are fixed, so that a run repeats:

  differential.py RUNTIME PLAIN_RUNTIME                     the programs of the test
  differential.py RUNTIME PLAIN_RUNTIME --seconds 600       as many as there is time for
  differential.py RUNTIME PLAIN_RUNTIME --first 1234 --programs 1 --print   look at one

With --self-test the second runtime is the first one on programs that lack one of their stores, as a
cache would forget it: a third of them at least must be found out.
"""

import argparse
import os
import pathlib
import re
import subprocess
import sys
import tempfile
import time

from random_flow import FlowProgram
from random_programs import Program

STORE = re.compile(r"^\S+（[^＝]*）＝(?!.*を表示)")
LONGEST_SHOWN = 2000
# What programs may run and refer to.
FILES = {"副.vlm": "和＝和＋1\n3回、繰り返す\n和＝和＋1\n繰り返し終わり\n",
         "部品.vlm": "手順は　増やす（甲）\n数＝数＋2\n4で抜ける\n終わり\n"}


def program_of(seed, statements):
    """Every other program is one of loops and procedures."""
    return (FlowProgram if seed % 2 else Program)(seed, statements)


class Runner:
    """Runs scripts in a folder of their own."""

    def __init__(self, folder, seconds):
        self.folder = pathlib.Path(folder)
        self.seconds = seconds
        for name, text in FILES.items():
            (self.folder / name).write_text(text, encoding="utf-8")
        self.environment = dict(os.environ, HOME=folder, TMPDIR=folder, LC_ALL="C.UTF-8",
                                XDG_CONFIG_HOME=f"{folder}/.config",
                                XDG_DATA_HOME=f"{folder}/.data", XDG_CACHE_HOME=f"{folder}/.cache")

    def run(self, runtime, text):
        """What a run printed and how it ended; nothing when it came to no end."""
        script = self.folder / "test.vlm"
        script.write_text(text, encoding="utf-8")
        try:
            done = subprocess.run([runtime, str(script)], capture_output=True, check=False,
                                  stdin=subprocess.DEVNULL, timeout=self.seconds,
                                  env=self.environment, cwd=self.folder)
        except subprocess.TimeoutExpired:
            return None
        return done.returncode, done.stdout, done.stderr

    def differ(self, runtimes, texts):
        return self.run(runtimes[0], texts[0]) != self.run(runtimes[1], texts[1])


def shorten(lines, still_differs):
    """The lines without those that aren't needed: halves first, then single ones."""
    step = max(len(lines) // 2, 1)
    while step >= 1:
        at = 0
        while at < len(lines):
            fewer = lines[:at] + lines[at + step:]
            if fewer and still_differs(fewer):
                lines = fewer
            else:
                at += step
        step //= 2
    return lines


def report(runner, runtimes, seed, lines):
    def still_differs(some):
        text = "\n".join(some) + "\n"
        outcome = runner.run(runtimes[0], text)
        other = None if outcome is None else runner.run(runtimes[1], text)
        return other is not None and outcome != other

    text = "\n".join(shorten(lines, still_differs)) + "\n"
    print(f"seed {seed}: the two differ on\n{text}")
    for runtime in runtimes:
        outcome = runner.run(runtime, text)
        if outcome is None:
            print(f"--- {runtime}: no end")
            continue
        status, out, err = outcome
        print(f"--- {runtime}: exit status {status}")
        print((out + err).decode("utf-8", "replace")[:LONGEST_SHOWN])


def without_a_store(program):
    """The program with one of its stores left out; nothing when it has none."""
    stores = [i for i, line in enumerate(program.lines) if STORE.match(line)]
    if not stores:
        return None
    at = program.random.choice(stores)
    return "\n".join(program.lines[:at] + ["'"] + program.lines[at + 1:]) + "\n"


def self_test(runner, runtime, options):
    found, tried = 0, 0
    for seed in range(options.first, options.first + options.programs):
        program = Program(seed, options.statements)
        broken = without_a_store(program)
        if broken is not None:
            tried += 1
            found += runner.differ((runtime, runtime), (program.text(), broken))
    again = Program(options.first, options.statements).text()
    same = again == Program(options.first, options.statements).text()
    print(f"differential: {found} of {tried} forgotten stores found; seeds repeat: {same}")
    return 0 if same and tried > 20 and found * 3 >= tried else 1


def compare(runner, runtimes, options):
    end = time.monotonic() + options.seconds
    seed, failed, unfinished = options.first, 0, 0
    while seed < options.first + options.programs and time.monotonic() < end:
        program = program_of(seed, options.statements)
        text = program.text()
        if options.print:
            print(text)
        outcomes = [runner.run(runtime, text) for runtime in runtimes]
        unfinished += None in outcomes
        if None not in outcomes and outcomes[0] != outcomes[1]:
            failed += 1
            report(runner, runtimes, seed, program.lines)
        seed += 1
    done = seed - options.first
    print(f"differential: {done} programs, {failed} differ, {unfinished} came to no end")
    # A generator whose programs don't end would test nothing.
    return 1 if failed or done == 0 or unfinished * 20 > done else 0


def main():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("runtime")
    parser.add_argument("plain", nargs="?", help="the build without caches")
    parser.add_argument("--first", type=int, default=1, help="the first seed (default 1)")
    parser.add_argument("--programs", type=int, help="how many at most (default 800)")
    parser.add_argument("--statements", type=int, default=30)
    parser.add_argument("--seconds", type=float, help="limit of time (default 20)")
    parser.add_argument("--print", action="store_true", help="show each program")
    parser.add_argument("--self-test", action="store_true")
    options = parser.parse_args()
    if options.plain is None and not options.self_test:
        parser.error("the second runtime is missing")
    if options.programs is None:
        bounded = options.seconds is None
        options.programs = 60 if options.self_test else 800 if bounded else 1 << 60
    options.seconds = options.seconds or 20
    with tempfile.TemporaryDirectory(prefix="velm-differential-") as folder:
        runner = Runner(folder, seconds=2)
        runtime = os.path.abspath(options.runtime)
        if options.self_test:
            return self_test(runner, runtime, options)
        return compare(runner, (runtime, os.path.abspath(options.plain)), options)


if __name__ == "__main__":
    sys.exit(main())
