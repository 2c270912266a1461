#!/usr/bin/env python3
"""Compares the runtime's code page 932 with Python's own cp932 codec, code by code.

Usage: code_page_932_check.py DUMP_PROGRAM

Every difference must be one of those listed below, and each of those must really be there.
"""

import subprocess
import sys

MIDDLE_DOT = "30fb"
QUESTION = "3f"
LEADS = [*range(0x81, 0xA0), *range(0xE0, 0xFD)]

# The codec knows U+F8F0 as byte A0; the home platform has the byte as U+00A0 and no code for U+F8F0.
BYTE_DIFFERENCES = {"a0": ("00a0", "f8f0")}
# The codec adds the likenesses that other forms of Shift JIS have for three characters; the home
# platform has none for them.
UNIT_DIFFERENCES = {
    "00a0": ("a0", None),
    "f8f0": (QUESTION, "a0"),
    "2016": (QUESTION, "8161"),
    "2212": (QUESTION, "817c"),
    "301c": (QUESTION, "8160"),
}


def byte_differences():
    """A lead byte alone is an error to the codec and a middle dot to the runtime."""
    return BYTE_DIFFERENCES | {f"{lead:02x}": (MIDDLE_DOT, None) for lead in LEADS}


def best_fits():
    """Characters outside the code page that the home platform writes by a likeness.

    These are 80 of its 83: the codec has the other three, "¢", "£" and "¬", too.
    """
    letters = {
        "A": "ÀÁÂÃÄÅÆ", "C": "Ç", "E": "ÈÉÊË", "I": "ÌÍÎÏ", "D": "Ð", "N": "Ñ", "O": "ÒÓÔÕÖØ",
        "U": "ÙÚÛÜ", "Y": "Ý", "T": "Þ", "s": "ß", "a": "àáâãäåæª", "c": "ç©", "e": "èéêë",
        "i": "ìíîï", "d": "ð", "n": "ñ", "o": "òóôõöøº", "u": "ùúûü", "y": "ýÿ", "t": "þ",
        "R": "®", "!": "¡", "\\": "¥", "|": "¦", "-": "\u00ad", "1": "¹", "2": "²", "3": "³",
    }  # fmt: skip
    wide = {"≪": "«", "￣": "¯", "μ": "µ", "・": "·", "，": "¸", "≫": "»", "ヴ": "ゔ"}
    return {
        f"{ord(char):04x}": (written.encode("cp932").hex(), None)
        for written, chars in (letters | wide).items()
        for char in chars
    }


def extension_pairs():
    """The IBM characters that the codec writes by NEC's choice and the platform by the extension."""
    result = {}
    by_char = {}
    for lead in range(0xFA, 0xFD):
        for trail in [*range(0x40, 0x7F), *range(0x80, 0xFD)]:
            code = bytes([lead, trail])
            char = code.decode("cp932", "ignore")
            if len(char) == 1:
                by_char[char] = code.hex()
    for char, extension in by_char.items():
        published = char.encode("cp932").hex()
        if published[:2] in ("ed", "ee"):
            result[f"{ord(char):04x}"] = (extension, published)
    return result


def unit_differences():
    return UNIT_DIFFERENCES | best_fits() | extension_pairs()


def codec_decode(code):
    try:
        return bytes.fromhex(code).decode("cp932").encode("utf-16-be").hex()
    except UnicodeDecodeError:
        return None


def codec_encode(unit):
    try:
        return chr(int(unit, 16)).encode("cp932").hex()
    except UnicodeEncodeError:
        return None


def find_problems(dump):
    """One line of text for each difference that isn't wanted and each wanted one that isn't there."""
    problems = []
    wanted = {"b": byte_differences(), "u": unit_differences()}
    seen = {"b": 0, "p": 0, "u": 0}
    for line in dump.splitlines():
        kind, code, ours = line.split(" ")
        seen[kind] += 1
        theirs = codec_encode(code) if kind == "u" else codec_decode(code)
        # What has no code is "?" or a middle dot: no difference needs to be listed for that, but a
        # pair must have been taken whole.
        nothing = QUESTION if kind == "u" else MIDDLE_DOT
        expected = theirs if theirs is not None or kind == "b" else nothing
        if code in wanted.get(kind, {}):
            if wanted[kind].pop(code) != (ours, theirs):
                problems.append(f"{line}: the listed difference isn't there, codec: {theirs}")
        elif ours != expected:
            problems.append(f"{line}: not listed, codec: {theirs}")
    for kind, rest in wanted.items():
        problems += [f"{kind} {code}: listed, but not in the dump" for code in rest]
    if seen != {"b": 256, "p": len(LEADS) * 255, "u": 65536}:
        problems.append(f"the dump isn't whole: {seen}")
    return problems


def main(arguments):
    if len(arguments) != 1:
        sys.exit(__doc__)
    dump = subprocess.run(arguments, check=True, capture_output=True, text=True).stdout
    problems = find_problems(dump)
    for problem in problems[:50]:
        print(problem)
    sys.exit(f"{len(problems)} differences" if problems else 0)


if __name__ == "__main__":
    main(sys.argv[1:])
