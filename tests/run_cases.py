#!/usr/bin/env python3
"""Runs script cases against the console face and compares everything that a case tells.

A case file holds cases one behind the other:

    === name, unique in its file
    --- script            the script, written as test.vlm: code page 932, CR LF
    --- script utf8       the same as UTF-8 with LF
    --- args              the words behind the script, one a line
    --- env NAME=VALUE    one more environment variable
    --- protection DIGITS the user's protection setting
    --- in                standard input, one answer a line
    --- out               the exact standard output
    --- err               the exact standard error; "--- err any" doesn't look at it
    --- status N          the exit status, 0 when absent
    --- file NAME         a file beside the script: code page 932, CR LF, no line end at its end
    --- hex NAME          the same, from hexadecimal bytes
    --- gives NAME        a file after the run: code page 932, CR LF read as LF
    --- gives-hex NAME    a file's bytes after the run
    --- gone NAME         no such file after the run

A section's empty last lines are not part of it; a run's last line end isn't compared. A line that
would look like a marker has a backslash in front. Lines with # before the first case are comments.
Each case has a folder of its own, which is also its home, its XDG folders and its temporary folder.

The runtime prints 表示 and questions on standard output and reports on standard error.
"""

import argparse
import concurrent.futures
import contextlib
import dataclasses
import difflib
import os
import pathlib
import shutil
import sqlite3
import subprocess
import sys
import tempfile

# kind: (needs an argument, may stand more than once)
KINDS = {
    "script": (False, False),
    "args": (False, False),
    "env": (True, True),
    "protection": (True, False),
    "in": (False, False),
    "out": (False, False),
    "err": (False, False),
    "status": (True, False),
    "file": (True, True),
    "hex": (True, True),
    "gives": (True, True),
    "gives-hex": (True, True),
    "gone": (True, True),
}


class BadCase(Exception):
    """A case file that cannot be read; the text says where and why."""


@dataclasses.dataclass
class Section:
    kind: str
    argument: str
    lines: list

    def text(self):
        return "\n".join(self.lines)


@dataclasses.dataclass
class Case:
    file: pathlib.Path
    line: int
    name: str
    sections: list

    def first(self, kind):
        return next((s for s in self.sections if s.kind == kind), None)

    def every(self, kind):
        return [s for s in self.sections if s.kind == kind]

    def text(self, kind):
        section = self.first(kind)
        return section.text() if section else ""


def add_section(case, line, where):
    if case is None:
        raise BadCase(f"{where}: a section before the first case: {line}")
    kind, _, argument = line[4:].strip().partition(" ")
    argument = argument.strip()
    if kind not in KINDS:
        raise BadCase(f"{where}: unknown section: {line}")
    needs_argument, repeats = KINDS[kind]
    if needs_argument and not argument:
        raise BadCase(f"{where}: '{kind}' needs an argument")
    if not repeats and case.first(kind):
        raise BadCase(f"{where}: a second '{kind}' section")
    section = Section(kind, argument, [])
    case.sections.append(section)
    return section


def parse_cases(path):
    """All cases of one file, in order."""
    cases, section = [], None
    for number, line in enumerate(path.read_text(encoding="utf-8").split("\n"), 1):
        where = f"{path}:{number}"
        if line.startswith("=== "):
            cases.append(Case(path, number, line[4:].strip(), []))
            section = None
        elif line.startswith("--- "):
            section = add_section(cases[-1] if cases else None, line, where)
        elif section is not None:
            section.lines.append(line[1:] if line.startswith(("\\---", "\\===")) else line)
        elif line.strip() and (cases or not line.startswith("#")):
            raise BadCase(f"{where}: text outside a section: {line}")
    seen = set()
    for case in cases:
        check_case(case, seen)
    if not cases:
        raise BadCase(f"{path}: no case")
    return cases


def check_case(case, seen):
    where = f"{case.file}:{case.line}"
    for section in case.sections:
        while section.lines and not section.lines[-1]:
            section.lines.pop()
    if case.name in seen:
        raise BadCase(f"{where}: a second case named '{case.name}'")
    seen.add(case.name)
    if not case.first("script"):
        raise BadCase(f"{where}: no script")
    # A case that expects nothing proves nothing.
    if not any(case.first(k) for k in ("out", "err", "gives", "gives-hex", "gone", "status")):
        raise BadCase(f"{where}: nothing is expected")
    status = case.first("status")
    if status and not status.argument.isdecimal():
        raise BadCase(f"{where}: status needs a number")
    for section in case.every("env"):
        if "=" not in section.argument:
            raise BadCase(f"{where}: env needs NAME=VALUE")
    encode_script(case)


def to_dos_bytes(text, where):
    try:
        return text.replace("\n", "\r\n").encode("cp932")
    except UnicodeEncodeError as error:
        raise BadCase(f"{where}: not in code page 932: {error.object[error.start]!r}") from None


def encode_script(case):
    section = case.first("script")
    if section.argument == "utf8":
        return (section.text() + "\n").encode("utf-8")
    if section.argument:
        raise BadCase(f"{case.file}:{case.line}: unknown kind of script: {section.argument}")
    return to_dos_bytes(section.text() + "\n", f"{case.file}:{case.line}")


STORE = """
CREATE TABLE keys(id INTEGER PRIMARY KEY, parent INTEGER NOT NULL, folded TEXT NOT NULL,
    name TEXT NOT NULL, UNIQUE(parent, folded));
CREATE TABLE entries(id INTEGER PRIMARY KEY, owner INTEGER NOT NULL, folded TEXT NOT NULL,
    name TEXT NOT NULL, type INTEGER NOT NULL, data BLOB NOT NULL, UNIQUE(owner, folded));
INSERT INTO keys VALUES(1, -1, 'VELMSCRIPT', 'Velmscript'), (2, 1, 'SECURE', 'Secure');
"""


def write_protection(digits, folder):
    """Writes the store of the user's settings, which no script may give its protection."""
    store = folder / ".data/velmscript/settings.db"
    store.parent.mkdir(parents=True)
    with contextlib.closing(sqlite3.connect(store)) as connection:
        connection.executescript(STORE)
        connection.execute("INSERT INTO entries VALUES(1, 2, 'KEY', 'Key', 1, ?)",
                           (digits.encode(),))
        connection.commit()


def lay_out(case, folder):
    """Writes the script, the files and the settings of a case."""
    (folder / "test.vlm").write_bytes(encode_script(case))
    if case.first("protection"):
        write_protection(case.first("protection").argument, folder)
    for section in case.sections:
        if section.kind not in ("file", "hex"):
            continue
        target = folder / section.argument
        target.parent.mkdir(parents=True, exist_ok=True)
        if section.kind == "hex":
            target.write_bytes(bytes.fromhex("".join(section.text().split())))
        else:
            target.write_bytes(to_dos_bytes(section.text(), f"{case.file}:{case.line}"))


def environment(case, folder, report):
    env = dict(os.environ)
    for name in ("DISPLAY", "WAYLAND_DISPLAY", "VELM_COVERAGE"):
        env.pop(name, None)
    home = str(folder)
    env.update(
        HOME=home,
        TMPDIR=home,
        XDG_CONFIG_HOME=f"{home}/.config",
        XDG_DATA_HOME=f"{home}/.data",
        XDG_CACHE_HOME=f"{home}/.cache",
        XDG_STATE_HOME=f"{home}/.state",
        XDG_RUNTIME_DIR=home,
        TZ="Asia/Tokyo",
        QT_QPA_PLATFORM="offscreen",
    )
    if report:
        env["VELM_COVERAGE"] = str(report)
    for section in case.every("env"):
        name, _, value = section.argument.partition("=")
        env[name] = value
    return env


def plain(data):
    """Printed bytes as text to compare: LF line ends, the last one cut."""
    text = data.decode("utf-8", "backslashreplace").replace("\r\n", "\n")
    return text[:-1] if text.endswith("\n") else text


def difference(label, expected, got):
    if expected == got:
        return []
    lines = list(
        difflib.unified_diff(
            expected.split("\n"), got.split("\n"), "expected", "got", n=2, lineterm=""
        )
    )[2:]
    shown = [f"      {line}" for line in lines[:40]]
    if len(lines) > len(shown):
        shown.append(f"      ... {len(lines) - len(shown)} lines more")
    return [f"    {label} differs:"] + shown


def check_files(case, folder):
    problems = []
    for section in case.sections:
        target = folder / section.argument
        if section.kind == "gone" and target.exists():
            problems.append(f"    {section.argument} is still there")
        if section.kind not in ("gives", "gives-hex"):
            continue
        if not target.is_file():
            problems.append(f"    {section.argument} isn't there")
        elif section.kind == "gives":
            text = target.read_bytes().decode("cp932", "backslashreplace").replace("\r\n", "\n")
            text = text[:-1] if text.endswith("\n") else text
            problems += difference(section.argument, section.text(), text)
        else:
            expected = "".join(section.text().split()).lower()
            problems += difference(section.argument, expected, target.read_bytes().hex())
    return problems


def check_run(case, done):
    problems = []
    wanted = int(case.first("status").argument) if case.first("status") else 0
    if done.returncode != wanted:
        problems.append(f"    the exit status is {done.returncode}, not {wanted}")
    problems += difference("out", case.text("out"), plain(done.stdout))
    err = case.first("err")
    if not (err and err.argument == "any"):
        problems += difference("err", case.text("err"), plain(done.stderr))
    return problems


def run_case(case, runtime, seconds, report=None):
    """Runs one case; gives a list of lines that tell what went wrong, empty when nothing did."""
    folder = pathlib.Path(tempfile.mkdtemp(prefix="velm-"))
    try:
        lay_out(case, folder)
        words = case.first("args").lines if case.first("args") else []
        given = case.first("in")
        done = subprocess.run(
            [runtime, "test.vlm", *words],
            cwd=folder,
            env=environment(case, folder, report),
            input=(given.text() + "\n").encode("utf-8") if given else b"",
            capture_output=True,
            timeout=seconds,
            check=False,
        )
        return check_run(case, done) + check_files(case, folder)
    except subprocess.TimeoutExpired:
        return [f"    no end within {seconds:g} seconds"]
    except OSError as error:
        return [f"    {error}"]
    finally:
        shutil.rmtree(folder, ignore_errors=True)


def find_files(names):
    default = pathlib.Path(__file__).resolve().parent / "cases"
    found = []
    for path in [pathlib.Path(n) for n in names] or [default]:
        found += sorted(path.rglob("*.cases")) if path.is_dir() else [path]
    return found


def run_all(cases, options, reports):
    """Runs the cases side by side, prints those that fail in the order written, gives their count."""
    runtime = str(pathlib.Path(options.runtime).resolve())

    def one(numbered):
        number, case = numbered
        report = reports / str(number) if reports else None
        return run_case(case, runtime, options.seconds, report)

    failed = 0
    with concurrent.futures.ThreadPoolExecutor(options.j) as pool:
        for case, problems in zip(cases, pool.map(one, enumerate(cases))):
            if problems:
                failed += 1
                print(f"FAILED {case.file.name}:{case.line} {case.name}")
                print("\n".join(problems), flush=True)
    return failed


def merge_reports(reports, target):
    """Writes every row that any case ran, once, sorted."""
    rows = set()
    for report in reports.iterdir():
        rows.update(report.read_text(encoding="utf-8").splitlines())
    target.parent.mkdir(parents=True, exist_ok=True)
    target.write_text("".join(f"{row}\n" for row in sorted(rows)), encoding="utf-8")


def self_test():
    """Proves on made-up runtimes that the runner notices each kind of difference."""
    folder = pathlib.Path(tempfile.mkdtemp(prefix="velm-self-"))
    try:
        runtime = folder / "runtime"
        runtime.write_text(
            "#!/bin/sh\ncat\necho \"out $2 $MARK\"\necho err >&2\nprintf 'a\\r\\nb' >new.txt\n"
            "[ -n \"$VELM_COVERAGE\" ] && echo 'command x' >>\"$VELM_COVERAGE\"\nexit 3\n"
        )
        runtime.chmod(0o755)
        good = (
            "# comment\n=== good\n--- script\nx\n--- args\nw\n--- env MARK=m\n--- in\nin\n--- out\nin\n"
            "out w m\n--- err\nerr\n--- status 3\n--- file f.txt\nx\n--- gives new.txt\na\nb\n"
            "--- gives-hex f.txt\n78\n--- gone no.txt\n"
        )
        breaks = {
            "out": ("out w m", "out w n"),
            "err": ("--- err\nerr", "--- err\nerror"),
            "exit status": ("--- status 3", "--- status 0"),
            "new.txt differs": ("a\nb\n", "a\nc\n"),
            "f.txt differs": ("\n78\n", "\n79\n"),
            "other.txt isn't there": ("gives new.txt", "gives other.txt"),
            "still there": ("gone no.txt", "gone new.txt"),
        }
        path = folder / "self.cases"
        path.write_text(good, encoding="utf-8")
        report = folder / "report"
        problems = run_case(parse_cases(path)[0], str(runtime), 10, report)
        assert problems == [], problems
        assert report.read_text() == "command x\n"
        for what, (old, new) in breaks.items():
            assert good.count(old) == 1, old
            path.write_text(good.replace(old, new), encoding="utf-8")
            problems = run_case(parse_cases(path)[0], str(runtime), 10)
            assert any(what in p for p in problems), (what, problems)
        for bad in (
            "=== a\n--- script\nx\n",
            "=== a\n--- out\nx\n",
            "--- script\nx\n",
            "=== a\ntext\n",
            "=== a\n--- what\n",
            "=== a\n--- script\n--- status x\n",
            "=== a\n--- script\n--- out\n--- out\n",
            "=== a\n--- script\n😀\n--- out\n",
            "=== a\n--- script\n--- out\n=== a\n--- script\n--- out\n",
        ):
            path.write_text(bad, encoding="utf-8")
            try:
                parse_cases(path)
            except BadCase:
                continue
            raise AssertionError(f"read without complaint: {bad!r}")
    finally:
        shutil.rmtree(folder)
    print("self-test: the runner notices what it should")
    return 0


def main():
    parser = argparse.ArgumentParser(
        description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter
    )
    parser.add_argument("runtime", nargs="?", help="path of velmconsole")
    parser.add_argument("files", nargs="*", help="case files or folders (default: tests/cases)")
    parser.add_argument("-k", metavar="WORD", default="", help="only cases with WORD in file or name")
    parser.add_argument("-j", type=int, default=os.cpu_count() or 2, help="cases at once")
    parser.add_argument("--seconds", type=float, default=30, help="limit for one case")
    parser.add_argument("--coverage", type=pathlib.Path, metavar="FILE",
                        help="write the table rows that the cases ran (see check_coverage.py)")
    parser.add_argument("--self-test", action="store_true", help="prove that failures are noticed")
    options = parser.parse_args()
    if options.self_test:
        return self_test()
    if not options.runtime:
        parser.error("the path of the runtime is missing")
    try:
        cases = [c for path in find_files(options.files) for c in parse_cases(path)]
    except (BadCase, OSError, UnicodeDecodeError) as error:
        print(error, file=sys.stderr)
        return 2
    pattern = options.k
    cases = [c for c in cases if pattern in c.file.name or pattern in c.name]
    if not cases:
        print(f"no case holds '{pattern}'", file=sys.stderr)
        return 2
    reports = pathlib.Path(tempfile.mkdtemp(prefix="velm-rows-")) if options.coverage else None
    try:
        failed = run_all(cases, options, reports)
        if reports:
            merge_reports(reports, options.coverage)
    finally:
        if reports:
            shutil.rmtree(reports, ignore_errors=True)
    print(f"cases: {len(cases) - failed} passed, {failed} failed")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
