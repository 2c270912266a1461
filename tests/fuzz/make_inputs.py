#!/usr/bin/env python3
"""Makes what the fuzzers of the language start from.

  make_inputs.py --dictionary         writes velm.dict, the language's words, beside this script
  make_inputs.py --corpus FOLDER      writes FOLDER/TARGET/... , small seeds for each target

The words come from the source's own tables; the seeds are the scripts of the test cases and of the
examples, whole and line by line.
"""

import argparse
import hashlib
import pathlib
import re

HERE = pathlib.Path(__file__).resolve().parent
TOP = HERE.parent.parent
TABLES = ["src/commands/command_table.cpp", "src/functions/function_table.cpp",
          "src/commands/setting_words.cpp"]
SIGNS = """
を に へ で から まで と は、 が、 は　 回 の として 、 。 ， , ： 　 ＝ ＞ ＜ ＞＝ ＜＝ ＜＞ ！＝ ＆ ＋ － × ÷ ＾
％ ￥ + - * / ^ % ( ) （ ） 「 」 ［ ］ 「」 （） ［］ もし もし、 なら 　なら でないなら 他なら 他でもし もし終わり
以上 以下 より上 より下 のどれか から　 または "空" "数字" "文字" "全角" 回、繰り返し 繰り返し終わり 永遠に まで繰り返し
について分岐 の場合 他の場合 分岐終わり 手順は　 終わり 抜ける それ はい いいえ ’ ' _ 1 0 -1 １ 0.5 1E+15 &hFF
数 名前 表 辞 語 空 表（2，3） 表（1） 辞（町） 番目 文字だけ 行目 列目
""".split()

# A line is the input of these, a whole script of those.
LINE_TARGETS = ["sentence", "words", "conditions"]
SCRIPT_TARGETS = ["prepare", "blocks"]
LONGEST = 600


def words():
    """The signs, particles, keywords and names of the language, each once."""
    found = list(SIGNS)
    for name in TABLES:
        for text in re.findall(r'\{u"([^"]+)"', (TOP / name).read_text(encoding="utf-8")):
            found += text.split(",")
    return list(dict.fromkeys(found))


def write_dictionary():
    lines = ["# The language's words in UTF-8, made by make_inputs.py from the tables of src."]
    for word in words():
        escaped = "".join(f"\\x{byte:02X}" for byte in word.encode("utf-8"))
        lines += [f"# {word}", f'"{escaped}"']
    (HERE / "velm.dict").write_text("\n".join(lines) + "\n", encoding="utf-8")


def scripts():
    """The scripts of the cases and the examples."""
    for path in sorted((TOP / "tests/cases").rglob("*.cases")):
        text = path.read_text(encoding="utf-8")
        yield from re.findall(r"^--- script[^\n]*\n(.*?)(?=^--- |^=== |\Z)", text, re.M | re.S)
    for path in sorted((TOP / "examples").glob("*.vlm")):
        data = path.read_bytes()
        try:
            yield data.decode("utf-8")
        except UnicodeDecodeError:
            yield data.decode("cp932", "replace")


def write_seed(folder, data):
    folder.mkdir(parents=True, exist_ok=True)
    (folder / hashlib.sha1(data).hexdigest()).write_bytes(data)


def write_corpus(folder):
    for script in scripts():
        lines = script.replace("\r", "").split("\n")
        whole = "\n".join(lines).encode("utf-8")
        if len(whole) <= LONGEST:
            for target in SCRIPT_TARGETS:
                write_seed(folder / target, whole)
        for line in lines:
            data = line.strip().encode("utf-8")
            if not data or len(data) > LONGEST:
                continue
            for target in LINE_TARGETS:
                write_seed(folder / target, b"0" + data if target == "conditions" else data)
    for seed in range(64):
        write_seed(folder / "value", hashlib.sha512(bytes([seed])).digest())


def main():
    parser = argparse.ArgumentParser(
        description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter
    )
    parser.add_argument("--dictionary", action="store_true")
    parser.add_argument("--corpus", type=pathlib.Path)
    args = parser.parse_args()
    if args.dictionary:
        write_dictionary()
    if args.corpus:
        write_corpus(args.corpus)


if __name__ == "__main__":
    main()
