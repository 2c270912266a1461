#!/usr/bin/env python3
"""Checks that settings survive what happens to processes.

Scripts write to a settings file, to the registry and to the user's settings, and tell each write on
standard output as soon as its sentence is done. They are killed (SIGKILL) at odd moments: whatever was
told must be there afterwards, and the file must be whole. Then several scripts write at once, and
nothing may be lost. A disk that is full is told and costs no old value. At last the protection gate is
asked with levels in the store.
"""

import argparse
import os
import pathlib
import random
import resource
import signal
import sqlite3
import subprocess
import sys
import tempfile
import time

ENTRIES = 100

FILE_WRITER = """設定ファイルは 「app.ini」
印＝「{mark}」
設定ファイルの印の「始」を1へ設定
N＝0
{count}回、繰り返し
N＝N＋1
鍵＝「k」＆N
設定ファイルの印の鍵を値へ設定
Nを表示
繰り返し終わり
"""

REGISTRY_WRITER = """N＝0
{count}回、繰り返し
N＝N＋1
路＝「HKEY_CURRENT_USER\\t\\{mark}\\k」＆N
レジストリの路を値へ設定
Nを表示
繰り返し終わり
"""

USER_WRITER = """N＝0
{count}回、繰り返し
N＝N＋1
鍵＝「k」＆N
組＝「{mark}」
組の鍵を値へ設定
Nを表示
繰り返し終わり
"""

WRITERS = {"settings file": FILE_WRITER, "registry": REGISTRY_WRITER, "user settings": USER_WRITER}


class Failed(Exception):
    """What was lost."""


def environment(folder):
    home = str(folder)
    return dict(os.environ, HOME=home, XDG_DATA_HOME=f"{home}/data", XDG_CONFIG_HOME=f"{home}/config")


def start(runtime, folder, name, source, before=None):
    (folder / name).write_bytes(source.replace("\n", "\r\n").encode("cp932"))
    return subprocess.Popen(
        [runtime, name], cwd=folder, env=environment(folder), stdout=subprocess.PIPE,
        stderr=subprocess.PIPE, preexec_fn=before,
    )


def sections_of(folder):
    """The keys of each section of the settings file; every line must be one of a whole file."""
    path = folder / "app.ini"
    sections, current = {}, None
    if not path.exists():
        return sections
    data = path.read_bytes()
    if data and not data.endswith(b"\r\n"):
        raise Failed("the settings file ends in the middle of a line")
    for line in data.decode("cp932").splitlines():
        if line.startswith("["):
            current = sections.setdefault(line[1:-1], [])
        elif line not in ("; 前書き", "始=1"):
            if not line.endswith("=値"):
                raise Failed(f"a line of the settings file is broken: {line}")
            current.append(line[:-2])
    return sections


def keys_in_store(folder, parent_path):
    """The names of the values of a key, read with another program than the runtime's own."""
    connection = sqlite3.connect(folder / "data/velmscript/settings.db")
    if connection.execute("PRAGMA integrity_check").fetchone()[0] != "ok":
        raise Failed("the store is damaged")
    root, *parts = parent_path
    parent = root
    for part in parts:
        row = connection.execute(
            "SELECT id FROM keys WHERE parent=? AND folded=?", (parent, part.upper())
        ).fetchone()
        if not row:
            return []
        parent = row[0]
    names = connection.execute("SELECT name FROM entries WHERE owner=?", (parent,)).fetchall()
    connection.close()
    return [name for (name,) in names]


def written(folder, kind, mark):
    if kind == "settings file":
        return sections_of(folder).get(mark, [])
    if kind == "registry":
        return keys_in_store(folder, (-0x80000001, "t", mark))
    return keys_in_store(folder, (-1, "Velmscript", "AppSettings", mark))


def check_written(folder, kind, mark, numbers):
    there = set(written(folder, kind, mark))
    lost = [n for n in numbers if f"k{n}" not in there]
    if lost:
        raise Failed(f"{kind}: {len(lost)} of {len(numbers)} writes of {mark} are lost: {lost[:5]}")


def told_numbers(output):
    """The numbers of the whole lines that the script printed."""
    return [int(line) for line in output.decode().split("\n")[:-1] if line]


def kill_writer(runtime, kind, delay):
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        (folder / "app.ini").write_bytes("; 前書き\r\n".encode("cp932"))
        writer = start(runtime, folder, "w.vlm", WRITERS[kind].format(mark="m", count=100000))
        first = writer.stdout.readline()
        time.sleep(delay)
        writer.send_signal(signal.SIGKILL)
        output = first + writer.stdout.read()
        writer.communicate()
        numbers = told_numbers(output)
        if not numbers:
            raise Failed(f"{kind}: nothing was written before the kill")
        check_written(folder, kind, "m", numbers)
        # A run after the kill finds no lock in its way.
        later = start(runtime, folder, "l.vlm", WRITERS[kind].format(mark="later", count=1))
        later.communicate(timeout=30)
        check_written(folder, kind, "later", [1])
        return len(numbers)


def write_at_once(runtime, kind, writers):
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        started = [
            start(runtime, folder, f"w{i}.vlm", WRITERS[kind].format(mark=f"m{i}", count=ENTRIES))
            for i in range(writers)
        ]
        for i, writer in enumerate(started):
            output, errors = writer.communicate(timeout=120)
            if errors or told_numbers(output) != list(range(1, ENTRIES + 1)):
                raise Failed(f"{kind}: writer {i} failed: {errors.decode()}")
        for i in range(writers):
            check_written(folder, kind, f"m{i}", range(1, ENTRIES + 1))


FULL_DISK = """設定ファイルは 「app.ini」
設定ファイルの「s」の「k」を{value}へ設定
レジストリの「HKEY_CURRENT_USER\\a\\b」を{value}へ設定
A＝設定（設定ファイルの「s」の「k」）
Aを表示
A＝設定（レジストリの「HKEY_CURRENT_USER\\a\\b」）
Aを表示
"""


def limit_files():
    """In the child: no file may grow over 64 KB; what would is refused, as by a full disk."""
    signal.signal(signal.SIGXFSZ, signal.SIG_IGN)
    resource.setrlimit(resource.RLIMIT_FSIZE, (65536, 65536))


def check_full_disk(runtime):
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        old = "; 前書き\r\n[s]\r\nk=old\r\n".encode("cp932")
        (folder / "app.ini").write_bytes(old)
        first = 'レジストリの「HKEY_CURRENT_USER\\a\\b」をoldへ設定\n'
        start(runtime, folder, "w.vlm", first).communicate()
        writer = start(
            runtime, folder, "f.vlm", FULL_DISK.format(value="y" * 100000), limit_files
        )
        output, errors = (text.decode() for text in writer.communicate())
        if output.split() != ["old", "old"] or (folder / "app.ini").read_bytes() != old:
            raise Failed(f"a full disk took the old values: {output} {errors}")
        for number in (39, 26):
            if f"エラー番号{number}］" not in errors:
                raise Failed(f"a full disk: message {number} is missing: {errors}")
        if [entry.name for entry in folder.iterdir() if entry.name.startswith(".")]:
            raise Failed("a full disk: a file of the failed write stays")


GUARDED = """X＝-5
cのabsでXを呼び出せ
レジストリの「HKEY_CURRENT_USER\\a\\b」を1へ設定
「.abc」を「show」へ関連づけ
窓の幅を1へ設定
A＝設定（窓の幅）
Aを表示
"""


def guarded_run(runtime, digits):
    """What the gate says with these digits in the store."""
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        start(runtime, folder, "w.vlm", USER_WRITER.format(mark="m", count=1)).communicate()
        connection = sqlite3.connect(folder / "data/velmscript/settings.db")
        parent = connection.execute("SELECT id FROM keys WHERE folded='VELMSCRIPT'").fetchone()[0]
        key = connection.execute(
            "INSERT INTO keys(parent, folded, name) VALUES(?, 'SECURE', 'Secure') RETURNING id", (parent,)
        ).fetchone()[0]
        connection.execute(
            "INSERT INTO entries(owner, folded, name, type, data) VALUES(?, 'KEY', 'Key', 1, ?)",
            (key, digits.encode()),
        )
        connection.commit()
        connection.close()
        output, errors = start(runtime, folder, "g.vlm", GUARDED).communicate()
        return output.decode().split(), errors.decode()


def check_protection(runtime):
    expected = {
        "": [],                     # no level
        "005": [3, 4],              # registry; 関連づけ asks for the registry too
        "115": [],                  # files
        "025": [2],                 # system: calls are refused with it
        "135": [2],                 # external calls
    }
    for digits, lines in expected.items():
        output, errors = guarded_run(runtime, digits)
        refused = [n for n in range(1, 8) if f"g.vlm {n}行目 エラー番号99" in errors]
        if refused != lines or output != ["1"]:
            raise Failed(f"protection {digits!r}: refused {refused}, told {output}: {errors}")
    _, errors = guarded_run(runtime, "105")
    if "保護機能の設定が壊れています。" not in errors:
        raise Failed(f"wrong check digits were not told: {errors}")


def main():
    parser = argparse.ArgumentParser(
        description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter
    )
    parser.add_argument("runtime", type=pathlib.Path, help="the console runtime")
    parser.add_argument("--kills", type=int, default=5, help="kills of each kind of writer")
    parser.add_argument("--seed", type=int, default=time.time_ns() % 100000)
    options = parser.parse_args()
    runtime = str(options.runtime.resolve())
    chance = random.Random(options.seed)
    print(f"seed {options.seed}")
    try:
        for kind in WRITERS:
            counts = [
                kill_writer(runtime, kind, chance.uniform(0.001, 0.3)) for _ in range(options.kills)
            ]
            print(f"{kind}: killed {len(counts)} writers behind {sum(counts)} writes, nothing lost")
            write_at_once(runtime, kind, 3)
            print(f"{kind}: 3 writers at once, nothing lost")
        check_full_disk(runtime)
        print("full disk: told, and the old values stay")
        check_protection(runtime)
        print("protection: the levels of the store hold")
    except Failed as failed:
        print(f"FAILED {failed}")
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
