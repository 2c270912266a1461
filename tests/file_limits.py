#!/usr/bin/env python3
"""Runs scripts where the file system says no: a full disk, missing permission, another file system.

The runtime is the one argument. A full disk and a second file system are a small tmpfs in a mount
namespace of the test's own; permission is tried as a user without rights. Where the machine allows
neither, the part says so and the exit status is 77: not passed, not failed.
"""

import os
import pathlib
import shutil
import subprocess
import sys
import tempfile

CANNOT_RUN = 77
NOBODY = 65534


class CannotRun(Exception):
    """The machine doesn't allow a part; the text says why."""


def expect(what, found, wanted):
    if found != wanted:
        raise AssertionError(f"{what} is {found!r}, not {wanted!r}")


def write_script(folder, lines):
    script = folder / "test.vlm"
    script.write_bytes("\r\n".join(lines).encode("cp932"))
    return script


def run(command, folder):
    environment = {"HOME": str(folder), "TMPDIR": str(folder), "PATH": os.environ["PATH"]}
    done = subprocess.run(command, cwd=folder, env=environment, stdin=subprocess.DEVNULL,
                          capture_output=True, timeout=60, check=False)
    return done.stdout.decode(), done.stderr.decode()


def with_small_disk(runtime, folder, lines, before="true"):
    """Runs a script beside `disk`, a tmpfs of 256 KiB; what is left in it is copied to `left`."""
    (folder / "disk").mkdir()
    (folder / "left").mkdir()
    script = write_script(folder, lines)
    unshare = ["unshare", "-m"] if os.geteuid() == 0 else ["unshare", "-rm"]
    probe = subprocess.run(unshare + ["mount", "-t", "tmpfs", "-o", "size=256k", "none",
                                      str(folder / "disk")], capture_output=True, check=False)
    if probe.returncode != 0:
        raise CannotRun("no file system can be mounted here: " + probe.stderr.decode().strip())
    return run(unshare + ["sh", "-c", f"mount -t tmpfs -o size=256k none disk && {before} && "
                                      f"'{runtime}' '{script}' && cp -a disk/. left/"], folder)


def full_disk(runtime, folder):
    """Every form of writing is reported, and the old content is whole."""
    out, err = with_small_disk(runtime, folder, [
        "長い文は 繰り返せ（200000、「n」）",
        "長い文を「disk\\a.txt」へ保存",
        "エラー番号を表示",
        "長い文を「disk\\b.txt」へUTF8で保存",
        "長い文を「disk\\c.txt」へ追加保存",
        "長い文を「disk\\d.txt」の1行目へ追加保存",
        "長い文を「disk\\new.txt」へ保存",
        "「短い」を「disk\\e.txt」へ保存",
    ], before="for f in a b c d e; do printf old > disk/$f.txt; done; "
              "head -c 150000 /dev/zero > disk/ballast")
    expect("output", out, "203\n")
    expect("number of reports", err.count("ディスクに空きがありません。"), 5)
    for name in "abcd":
        expect(name, (folder / "left" / f"{name}.txt").read_bytes(), b"old")
    expect("e", (folder / "left" / "e.txt").read_bytes(), "短い".encode("cp932"))
    left = sorted(path.name for path in (folder / "left").iterdir())
    expect("entries", left, ["a.txt", "b.txt", "ballast", "c.txt", "d.txt", "e.txt"])


def other_file_system(runtime, folder):
    """Moving and the trash work across file systems, and a move that finds no space loses nothing."""
    (folder / "src" / "in").mkdir(parents=True)
    (folder / "src" / "in" / "a.txt").write_bytes(b"moved")
    (folder / "big").mkdir()
    (folder / "big" / "b.bin").write_bytes(b"b" * 400000)
    out, err = with_small_disk(runtime, folder, [
        "「src」を「disk\\dst」へすぐ移動",
        "「disk\\t」を「ごみ箱」へすぐ移動",
        "「big」を「disk\\big」へすぐ移動",
        "エラー番号を表示",
    ], before="mkdir disk/t && printf trash > disk/t/x.txt")
    expect("output", out, "0\n")
    expect("report of no space", "ディスクに空きがありません。" in err, True)
    expect("moved file", (folder / "left" / "dst" / "in" / "a.txt").read_bytes(), b"moved")
    expect("source", (folder / "src").exists(), False)
    trash = folder / ".local" / "share" / "Trash"
    expect("trash", (trash / "files" / "t" / "x.txt").read_bytes(), b"trash")
    expect("note", (trash / "info" / "t.trashinfo").exists(), True)
    expect("what didn't fit", (folder / "big" / "b.bin").stat().st_size, 400000)


def no_permission(runtime, folder):
    """Reading, writing and deleting without the right to are reported, and nothing changes."""
    command = []
    if os.geteuid() == 0:
        if shutil.which("setpriv") is None:
            raise CannotRun("the superuser may do anything, and there is no setpriv")
        command = ["setpriv", f"--reuid={NOBODY}", f"--regid={NOBODY}", "--clear-groups"]
    secret = folder / "secret.txt"
    locked = folder / "locked"
    locked.mkdir()
    for path in (secret, locked / "a.txt"):
        path.write_bytes(b"old")
    script = write_script(folder, [
        "開け（「secret.txt」）を表示",
        "「x」を「secret.txt」へ保存",
        "「x」を「secret.txt」の1行目へ追加保存",
        "「x」を「locked\\new.txt」へ保存",
        "「x」を「locked\\a.txt」へ追加保存",
        "「locked\\a.txt」をすぐ削除",
        "「locked」をすぐ削除",
        "「locked\\a.txt」を「b.txt」へすぐ変更",
        "フォルダ 「locked」を削除",
        "エラー番号を表示",
    ])
    secret.chmod(0)
    (locked / "a.txt").chmod(0o444)
    locked.chmod(0o555)
    try:
        out, err = run(command + [str(runtime), str(script)], folder)
    finally:
        locked.chmod(0o755)
        secret.chmod(0o600)
    numbers = [line.split("エラー番号")[1].rstrip("］")
               for line in err.splitlines() if "エラー番号" in line]
    expect("numbers", numbers, ["210", "203", "203", "203", "203", "211"])
    expect("output", out, "\n211\n")
    expect("boxes of deleting", err.count("の削除ができません。"), 1)
    expect("boxes of renaming", err.count("の変更ができません。"), 1)
    expect("secret", secret.read_bytes(), b"old")
    expect("locked", [path.name for path in locked.iterdir()], ["a.txt"])
    expect("locked file", (locked / "a.txt").read_bytes(), b"old")


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    status = 0
    for part in (full_disk, other_file_system, no_permission):
        with tempfile.TemporaryDirectory(prefix="velm-limits-") as name:
            folder = pathlib.Path(name)
            folder.chmod(0o755)
            runtime = folder / "velmconsole"
            shutil.copy(sys.argv[1], runtime)
            try:
                part(runtime, folder)
                print(f"{part.__name__}: passed")
            except CannotRun as reason:
                print(f"{part.__name__}: can't run: {reason}")
                status = status or CANNOT_RUN
            except AssertionError as fault:
                print(f"{part.__name__}: FAILED: {fault}")
                status = 1
    sys.exit(status)


if __name__ == "__main__":
    main()
