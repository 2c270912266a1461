#!/usr/bin/env python3
"""Fails when a row of the runtime's tables was never run by any case.

The runtime prints its rows for --list-rows, one a line: "command WORD", "function NAME",
"setting WORD", "message NUMBER". Under VELM_COVERAGE=FILE it appends the rows that ran to FILE in
the same form; run_cases.py --coverage collects them. A row that ran but isn't listed is a fault
too: then the list has drifted from the tables.

Of the messages only those count that some source raises (see raised_messages.py); the others are
told. A message that ran although no source seems to raise it is a fault of that search.
"""

import argparse
import pathlib
import subprocess
import sys

import raised_messages

SOURCES = pathlib.Path(__file__).resolve().parent.parent / "src"

KINDS = ("command", "function", "setting", "message")


def read_rows(text):
    return {line.strip() for line in text.splitlines() if line.strip()}


def compare(listed, ran):
    """Lines that tell what is wrong; empty when every listed row ran."""
    problems = [f"not a row: {row}" for row in sorted(listed) if row.split(" ")[0] not in KINDS]
    for kind in KINDS:
        if not any(row.startswith(kind + " ") for row in listed):
            problems.append(f"no {kind} row is listed at all")
    problems += [f"no case runs: {row}" for row in sorted(listed - ran)]
    problems += [f"ran, but isn't listed: {row}" for row in sorted(ran - listed)]
    return problems


def message_rows(numbers):
    return {f"message {number}" for number in numbers}


def sort_out_messages(listed, ran, raisable):
    """The listed rows that a case must run, the rest, and lines that tell what is wrong."""
    messages = {row for row in listed if row.startswith("message ")}
    silent = messages - message_rows(raisable)
    problems = [f"ran, but no source raises it: {row}" for row in sorted(silent & ran)]
    return listed - silent, silent, problems


def tell_silent(silent):
    numbers = sorted(int(row.split(" ")[1]) for row in silent)
    if numbers:
        print("no source raises yet: message " + " ".join(map(str, numbers)))


def self_test():
    listed = {"command 表示", "function 左", "setting 色", "message 1"}
    assert compare(listed, set(listed)) == []
    assert compare(listed, listed - {"message 1"}) == ["no case runs: message 1"]
    assert compare(listed, listed | {"command x"}) == ["ran, but isn't listed: command x"]
    assert compare(listed - {"setting 色"}, listed - {"setting 色"}) == [
        "no setting row is listed at all"
    ]
    assert "not a row: 表示" in compare(listed | {"表示"}, listed | {"表示"})
    assert read_rows("a\n\n b \na\n") == {"a", "b"}
    more = listed | {"message 2"}
    assert sort_out_messages(more, listed, {1, 90}) == (listed, {"message 2"}, [])
    assert sort_out_messages(more, more, {1})[2] == ["ran, but no source raises it: message 2"]
    raised_messages.self_test()
    print("self-test: missing and unknown rows are noticed")
    return 0


def main():
    parser = argparse.ArgumentParser(
        description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter
    )
    parser.add_argument("runtime", nargs="?", help="path of velmconsole")
    parser.add_argument("reports", nargs="*", type=pathlib.Path,
                        help="what run_cases.py --coverage wrote")
    parser.add_argument("--self-test", action="store_true", help="prove that failures are noticed")
    options = parser.parse_args()
    if options.self_test:
        return self_test()
    if not options.runtime or not options.reports:
        parser.error("the runtime and at least one report are needed")
    listing = subprocess.run(
        [options.runtime, "--list-rows"], capture_output=True, check=False, stdin=subprocess.DEVNULL
    )
    if listing.returncode != 0:
        print(f"--list-rows ended with status {listing.returncode}")
        return 1
    listed, ran, problems = read_rows(listing.stdout.decode("utf-8")), set(), []
    for report in options.reports:
        if report.is_file():
            ran |= read_rows(report.read_text(encoding="utf-8"))
        else:
            problems.append(f"no report {report}: its cases did not run")
    raisable, unclear = raised_messages.raised_messages(SOURCES)
    wanted, silent, drifted = sort_out_messages(listed, ran, raisable)
    problems += unclear + drifted + compare(wanted, ran - silent)
    tell_silent(silent)
    print("\n".join(problems))
    print(f"coverage: {len(wanted & ran)} of {len(wanted)} rows ran")
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
