#!/usr/bin/env python3
"""Checks that a file is whole whenever the script that writes it is killed.

Scripts write to files and are killed (SIGKILL) at odd moments. A file that is replaced holds the old
text or the new one, nothing between; one that grows keeps what it held. The sizes make a write last
long enough to be met.
"""

import argparse
import os
import pathlib
import random
import signal
import subprocess
import sys
import tempfile
import time

SIZE = 400000

REPLACING = """甲＝繰り返せ（{size}、「a」）
乙＝繰り返せ（{size}、「b」）
「」を「begun」へ保存
100000回、繰り返し
甲を「x.txt」へ保存
乙を「x.txt」へ保存
繰り返し終わり
"""

INSERTING = """甲＝繰り返せ（{size}、「a」）
「」を「begun」へ保存
100000回、繰り返し
甲を「x.txt」へ保存
「c」を「x.txt」の1行目へ追加保存
繰り返し終わり
"""

RESTORING = """甲＝繰り返せ（{size}、「YWFh」）
乙＝繰り返せ（{size}、「YmJi」）
「」を「begun」へ保存
100000回、繰り返し
甲を「x.txt」へ復元
乙を「x.txt」へ復元
繰り返し終わり
"""

COPYING = """甲＝繰り返せ（{size}、「a」）
甲を「a.txt」へ保存
乙＝繰り返せ（{size}、「b」）
乙を「b.txt」へ保存
「」を「begun」へ保存
100000回、繰り返し
「a.txt」を「x.txt」へすぐコピー
「b.txt」を「x.txt」へすぐコピー
繰り返し終わり
"""

APPENDING = """甲＝繰り返せ（{size}、「d」）
「」を「begun」へ保存
{size}回、繰り返し
甲を「x.txt」へ追加保存
繰り返し終わり
"""

FIRST = b"first" * SIZE
A = b"a" * SIZE
B = b"b" * SIZE


class Failed(Exception):
    """What was lost."""


def is_either(content):
    return content in (FIRST, A, B)


def is_inserted(content):
    return content in (FIRST, A, A + b"\r\nc")


def is_restored(content):
    return content in (FIRST, A * 3, B * 3)


def is_grown(content):
    lines = (b"d" * SIZE + b"\r\n") * (len(content) // SIZE + 1)
    return content.startswith(FIRST) and lines.startswith(content[len(FIRST):])


# The script, and whether a content is one that the file may have.
WAYS = {
    "保存": (REPLACING, is_either),
    "追加保存 at a line": (INSERTING, is_inserted),
    "復元": (RESTORING, is_restored),
    "すぐコピー": (COPYING, is_either),
    "追加保存": (APPENDING, is_grown),
}


def kill_while_writing(runtime, folder, script, seconds):
    """Runs a script, and kills it some time after it began to write."""
    (folder / "t.vlm").write_bytes(script.format(size=SIZE).replace("\n", "\r\n").encode("cp932"))
    env = dict(os.environ, HOME=str(folder), TMPDIR=str(folder))
    with subprocess.Popen([runtime, "t.vlm"], cwd=folder, env=env, stdin=subprocess.DEVNULL,
                          stderr=subprocess.PIPE) as process:
        while process.poll() is None and not (folder / "begun").exists():
            time.sleep(0.001)
        time.sleep(seconds)
        process.send_signal(signal.SIGKILL)
        told = process.stderr.read().decode()
        if process.wait() != -signal.SIGKILL or told:
            raise Failed(f"the script ended with {process.returncode}: {told}")


def check_way(runtime, name, kills, chance):
    script, is_whole = WAYS[name]
    with tempfile.TemporaryDirectory(prefix="velm-saves-") as place:
        folder = pathlib.Path(place)
        met = 0
        for _ in range(kills):
            (folder / "begun").unlink(missing_ok=True)
            (folder / "x.txt").write_bytes(FIRST)
            kill_while_writing(runtime, folder, script, chance.uniform(0.01, 0.12))
            content = (folder / "x.txt").read_bytes()
            if not is_whole(content):
                raise Failed(f"{name}: the file holds {len(content)} bytes, neither old nor new")
            met += content != FIRST
    if met == 0:
        raise Failed(f"{name}: no kill came late enough to find anything written")
    print(f"{name}: {kills} kills, the file was whole each time, {met} times a new one")


def main():
    parser = argparse.ArgumentParser(
        description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter
    )
    parser.add_argument("runtime", type=pathlib.Path, help="path of velmconsole")
    parser.add_argument("--kills", type=int, default=12, help="how often each script is killed")
    parser.add_argument("--seed", type=int, default=1, help="for the moments")
    options = parser.parse_args()
    chance = random.Random(options.seed)
    try:
        for name in WAYS:
            check_way(str(options.runtime.resolve()), name, options.kills, chance)
    except Failed as failed:
        print(failed)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
