#!/usr/bin/env python3
"""Checks the habits of the tree that neither compiler nor linter sees.

For C++ under src and tests: no file over 800 lines (the literal tables apart), a comment at the
head of each file, #pragma once in each header, no tabs, no calls that depend on the locale outside
data/numbers.cpp, nothing left over for later, no switched-off test, every test file named so that
the build takes it, the formatter's layout. For the case files: no empty file, no case marked off.
"""

import argparse
import os
import pathlib
import re
import shutil
import subprocess
import sys

LONGEST_FILE = 800
LONGEST_FUNCTION = 100

# Literal tables: their length is their rows'.
TABLE_FILES = {
    "src/commands/command_table.cpp",
    "src/functions/function_table.cpp",
}

# What opens a block at namespace level without being a function.
NO_FUNCTION = re.compile(
    r"(struct|class|enum|union|namespace|extern|constexpr|const|static const|inline constexpr)\b|[}#]"
)

# The one place where numbers and text meet.
LOCALE_FILES = {"src/data/numbers.cpp"}

# The toolkit sets the user's locale when it starts; here the numbers are put back to the C locale.
LOCALE_RESTORED = {"src/platform/qt/qt_application.cpp"}

LOCALE_CALLS = """
    stod stof stold stoi stol stoll stoul stoull strtod strtof strtold strtol strtoul strtoll
    strtoull atof atoi atol atoll to_string to_wstring isalnum isalpha isblank iscntrl isdigit
    isgraph islower isprint ispunct isspace isupper isxdigit tolower toupper iswalnum iswalpha
    iswdigit iswlower iswspace iswupper towlower towupper scanf sscanf fscanf strcoll strxfrm mbstowcs wcstombs mbtowc
    wctomb mbrtowc wcrtomb localeconv
""".split()

# A call, not a member, not a name of ours that ends alike.
LOCALE_CALL = re.compile(r"(?<![\w.>:])(?:::)?(?:std::)?(" + "|".join(LOCALE_CALLS) + r")\s*\(")
# Formats with a fraction, or with names of days and months; whole numbers and texts are no matter.
LOCALE_FORMAT = re.compile(
    r'printf\s*\([^;]*?"[^"\n]*%[-+ #0-9.*lL]*[aefgAEFG]|strftime\s*\([^;]*?"[^"\n]*%[aAbBcpxXrEO+]'
)
LOCALE_TYPE = re.compile(
    r"\bstd::(locale|[io]?stringstream|basic_[io]?stringstream|setlocale)\b|(?<![\w.>])setlocale\s*\("
)

# Written in two halves, so that this file passes its own check.
LEFT_OVER = re.compile(r"\b(TO" r"DO|FIX" r"ME|XX" r"X|HA" r"CK)\b")
SWITCHED_OFF = re.compile(r"GTEST_" r"SKIP|DIS" r"ABLED_|#i" r"f 0\b")

TOKEN = re.compile(
    r'//[^\n]*|/\*.*?\*/|R"(\w*)\(.*?\)\1"|"(?:\\.|[^"\\\n])*"|(?<![0-9a-fA-F])\'(?:\\.|[^\'\\\n])*\'',
    re.DOTALL,
)


def code_only(text):
    """The text with comments and literals blanked out; lines keep their numbers."""
    return TOKEN.sub(lambda m: "\n" * m.group(0).count("\n") or " ", text)


def line_of(text, position):
    return text.count("\n", 0, position) + 1


def check_locale(name, text):
    if name in LOCALE_FILES or not name.startswith("src/"):
        return []
    code, problems = code_only(text), []
    for pattern in (LOCALE_CALL, LOCALE_TYPE):
        for hit in pattern.finditer(code):
            if "setlocale" in hit.group(0) and name in LOCALE_RESTORED:
                continue
            # Of whole numbers, as the platform's own names hold them, it doesn't depend on it.
            if "to_string" in hit.group(0) and name.startswith("src/platform/"):
                continue
            place = f"{name}:{line_of(code, hit.start())}"
            problems.append(f"{place}: depends on the locale: {hit.group(0).strip(' (')}")
    for hit in LOCALE_FORMAT.finditer(text):
        place = f"{name}:{line_of(text, hit.start())}"
        problems.append(f"{place}: depends on the locale: {hit.group(0).split('(')[0].strip()} with this format")
    return problems


def check_left_overs(name, text):
    problems = []
    for number, line in enumerate(text.split("\n"), 1):
        for pattern in (LEFT_OVER, SWITCHED_OFF):
            hit = pattern.search(line)
            if hit:
                problems.append(f"{name}:{number}: left over: {hit.group(0)}")
    return problems


def check_shape(name, text):
    problems = []
    lines = text.count("\n")
    if lines > LONGEST_FILE and name not in TABLE_FILES:
        problems.append(f"{name}: {lines} lines, over {LONGEST_FILE}")
    if "\t" in text:
        problems.append(f"{name}:{line_of(text, text.index(chr(9)))}: a tab")
    if "\r" in text:
        problems.append(f"{name}: carriage returns")
    if not text.startswith("//"):
        problems.append(f"{name}: no comment at its head")
    if text and not text.endswith("\n"):
        problems.append(f"{name}: no line end at its end")
    if name.endswith(".h") and "\n#pragma once\n" not in text:
        problems.append(f"{name}: no #pragma once")
    return problems


def function_lengths(text):
    """(line, lines of the body) of each function at namespace level.

    The formatter puts the closing brace of such a function, and nothing else of it but its head,
    into the first column. Functions written on one line don't count.
    """
    found, head, start = [], None, None
    for number, line in enumerate(code_only(text).split("\n"), 1):
        line = line.rstrip()
        if start is not None:
            if line.startswith("}"):
                found.append((head, number - start - 1))
                start = head = None
            continue
        if line and not line[0].isspace():
            head = None if NO_FUNCTION.match(line) else number
        if line.endswith((";", "}")):
            head = None
        elif head is not None and line.endswith("{") and not line.endswith("= {"):
            start = number
    return found


def check_functions(name, text):
    return [
        f"{name}:{line}: a function of {length} lines, over {LONGEST_FUNCTION}"
        for line, length in function_lengths(text)
        if length > LONGEST_FUNCTION
    ]


def check_test_name(name, text):
    """A file with tests that the build's pattern doesn't take would never run."""
    has_tests = re.search(r"^(TEST|TEST_F|TEST_P|TYPED_TEST)\(", text, re.MULTILINE)
    taken = name.startswith("tests/unit/") and name.endswith("_test.cpp")
    if has_tests and not taken and not name.startswith("tests/gui/"):
        return [f"{name}: holds tests, but isn't tests/unit/**/*_test.cpp"]
    if taken and not has_tests:
        return [f"{name}: holds no test"]
    if name.startswith("tests/fuzz/") and name.endswith(".cpp"):
        if not name.endswith("_fuzz.cpp") or "LLVMFuzzerTestOneInput" not in text:
            return [f"{name}: a fuzzer is named *_fuzz.cpp and has LLVMFuzzerTestOneInput"]
    return []


def check_cpp(name, text):
    return (
        check_shape(name, text)
        + check_locale(name, text)
        + check_left_overs(name, text)
        + check_functions(name, text)
        + check_test_name(name, text)
    )


def describe_sizes(texts):
    """One line that tells how long functions are and how much of the tree is tests."""
    source = {name: text for name, text in texts.items() if name.startswith("src/")}
    lengths = sorted(n for text in source.values() for _, n in function_lengths(text))
    lines = sum(text.count("\n") for text in source.values())
    tests = sum(text.count("\n") for name, text in texts.items() if name.startswith("tests/"))
    if not lengths:
        return "no function"
    return (
        f"functions: median {lengths[len(lengths) // 2]}, 90% {lengths[len(lengths) * 9 // 10]}, "
        f"longest {lengths[-1]} lines; tests: {tests / lines:.2f} line a line of source"
    )


def check_other(name, text):
    """Scripts, case files and documents."""
    problems = check_left_overs(name, text)
    if name.endswith(".cases") and "\n=== " not in "\n" + text:
        problems.append(f"{name}: no case")
    if name.endswith(".py") and "\t" in text:
        problems.append(f"{name}: a tab")
    return problems


def check_format(paths):
    """Asks the formatter, where there is one of the version that the layout was made with."""
    formatter = shutil.which("clang-format-14")
    if not formatter or not paths:
        return []
    done = subprocess.run(
        [formatter, "--dry-run", "-Werror", "--ferror-limit=1", *map(str, paths)],
        capture_output=True, text=True, check=False,
    )
    if done.returncode == 0:
        return []
    hits = re.findall(r"^(\S+?):(\d+):\d+: error", done.stderr, re.MULTILINE)
    return [f"{name}:{line}: not as the formatter lays it out" for name, line in hits] or [
        f"the formatter failed: {done.stderr.strip()[:300]}"
    ]


def collect(top):
    cpp, other = [], []
    for folder in ("src", "tests", "bench"):
        for path in sorted((top / folder).rglob("*")):
            if path.suffix in (".h", ".cpp"):
                cpp.append(path)
            elif path.suffix in (".py", ".cases", ".cmake") or path.name in ("CMakeLists.txt", "run"):
                other.append(path)
    for pattern in ("*.py", "*.sh"):
        other += sorted((top / "tools").glob(pattern))
    return cpp, [p for p in other if p.is_file()]


def self_test():
    head = "// A file.\n"
    assert check_cpp("src/data/a.cpp", head + "int x;\n") == []
    faults = {
        "over 800": ("src/core/a.cpp", head * 801),
        "of 101 lines": (
            "src/core/a.cpp", head + "int F(int a,\n      int b) {\n" + "    x;\n" * 101 + "}\n"
        ),
        "a tab": ("src/core/a.cpp", head + "\tint x;\n"),
        "carriage": ("src/core/a.cpp", "// A file.\r\n"),
        "no comment": ("src/core/a.cpp", "int x;\n"),
        "no line end": ("src/core/a.cpp", head + "int x;"),
        "#pragma once": ("src/core/a.h", head + "int x;\n"),
        "std::stod": ("src/core/a.cpp", head + "auto d = std::stod(s);\n"),
        "isdigit": ("src/core/a.cpp", head + "if (isdigit(c)) {}\n"),
        "printf with": ("src/core/a.cpp", head + 'snprintf (b, 9,\n"%5.2f", x);\n'),
        "strftime with": ("src/core/a.cpp", head + 'strftime(b, 9, "%Y %b", t);\n'),
        "stringstream": ("src/core/a.cpp", head + "std::ostringstream out;\n"),
        "setlocale": ("src/core/a.cpp", head + "setlocale(LC_ALL, p);\n"),
        "left over": ("src/core/a.cpp", head + "// TO" + "DO later\n"),
        "DIS" + "ABLED_": ("tests/unit/core/a_test.cpp", head + "TEST(A, DIS" + "ABLED_B) {}\n"),
        "holds tests": ("tests/unit/core/a.cpp", head + "TEST(A, B) {}\n"),
        "holds no test": ("tests/unit/core/a_test.cpp", head + "int x;\n"),
        "a fuzzer": ("tests/fuzz/a.cpp", head + "int x;\n"),
    }
    for what, (name, text) in faults.items():
        found = check_cpp(name, text)
        assert len(found) == 1 and what in found[0], (what, found)
    fine = head + 'Isdigit(c); printf("%s %d", a, b); text = "std::stod(s)"; // isdigit(c)\n'
    assert check_locale("src/core/a.cpp", fine) == []
    assert check_locale("src/data/numbers.cpp", "strtod(a, b)") == []
    assert check_other("tests/cases/a.cases", "# nothing\n") == ["tests/cases/a.cases: no case"]
    print("self-test: each fault is noticed")
    return 0


def main():
    parser = argparse.ArgumentParser(
        description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter
    )
    parser.add_argument("--no-format", action="store_true", help="don't ask the formatter")
    parser.add_argument("--self-test", action="store_true", help="prove that faults are noticed")
    options = parser.parse_args()
    if options.self_test:
        return self_test()
    top = pathlib.Path(__file__).resolve().parent.parent
    os.chdir(top)
    cpp, other = collect(pathlib.Path("."))
    problems, texts = [], {}
    for path in cpp + other:
        texts[str(path)] = path.read_text(encoding="utf-8")
        check = check_cpp if path in cpp else check_other
        problems += check(str(path), texts[str(path)])
    if not options.no_format:
        problems += check_format(cpp)
    print(describe_sizes(texts))
    print("\n".join(problems + [f"style: {len(cpp) + len(other)} files, {len(problems)} faults"]))
    return 1 if problems or not cpp else 0


if __name__ == "__main__":
    sys.exit(main())
