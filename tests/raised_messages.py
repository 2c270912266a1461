"""Finds the numbered messages that the sources can raise.

The table of messages is complete from the start; the code that raises them grows. A message counts as
raisable when its number reaches a call of RaiseError: as a literal, as a constant of the file or of a
header, or through a variable of the same file that is set from such a constant. (RaiseMessage brings a
text of its own.) A call whose number can't be told that way is a problem to be solved in the source,
unless its file only passes on what a caller gave.
"""

import re

# The raiser itself, and the engine's face to a host, which names any number.
PASSED_ON = {"core/diagnostics.cpp", "core/diagnostics.h", "core/velm.cpp"}

COMMENT_OR_TEXT = re.compile(r'//[^\n]*|/\*.*?\*/|"(?:\\.|[^"\\\n])*"', re.S)
CONSTANT = re.compile(r"\bconstexpr\s+[\w:]+\s+(k\w+)\s*=\s*(\d+)\s*;")
CALL = re.compile(r"\bRaiseError\s*\(")
CONDITION = re.compile(r"(?:[^?:]|::)*\?")
NAME_OR_NUMBER = re.compile(r"(?<!\w)(?:[A-Za-z_]\w*(?:(?:\.|->|::)\w+)*|\d+)")


def without_comments_and_texts(source):
    return COMMENT_OR_TEXT.sub(lambda hit: '""' if hit[0].startswith('"') else " ", source)


def first_argument(source, start):
    """The first argument of a call, from the place behind its opening bracket."""
    depth = 1
    for at in range(start, len(source)):
        if source[at] in "([{":
            depth += 1
        elif source[at] in ")]}":
            depth -= 1
        if depth == 0 or (depth == 1 and source[at] == ","):
            return source[start:at]
    return ""


def numbers_of(expression, source, constants, seen=frozenset()):
    """The numbers that an expression may have, None where a name of it can't be told."""
    numbers = set()
    for name in NAME_OR_NUMBER.findall(CONDITION.sub("", expression)):
        last = re.split(r"\.|->|::", name)[-1]
        if name.isdigit():
            numbers.add(int(name))
        elif last in constants:
            numbers.add(constants[last])
        else:
            found = numbers_of_variable(last, source, constants, seen)
            if found is None:
                return None
            numbers |= found
    return numbers


def numbers_of_variable(name, source, constants, seen):
    settings = re.findall(r"\b" + name + r"\s*=(?!=)\s*([^;]+);", source)
    if name in seen or not settings:
        return None
    found = [numbers_of(each, source, constants, seen | {name}) for each in settings]
    return None if None in found else set().union(*found)


def raised_in(name, source, header_constants):
    """The numbers that a source raises, and the problems with it."""
    source = without_comments_and_texts(source)
    constants = dict(header_constants)
    constants.update((each, int(number)) for each, number in CONSTANT.findall(source))
    raised, problems = set(), []
    for call in CALL.finditer(source):
        numbers = numbers_of(first_argument(source, call.end()), source, constants)
        if numbers is not None:
            raised |= numbers
        elif name not in PASSED_ON:
            line = source.count("\n", 0, call.start()) + 1
            problems.append(f"{name}: line {line}: the number of RaiseError can't be told")
    return raised, problems


def raised_messages(folder):
    """The numbers that any source below a folder raises, and the problems."""
    texts = {path.relative_to(folder).as_posix(): path.read_text(encoding="utf-8")
             for path in sorted(folder.rglob("*")) if path.suffix in (".cpp", ".h")}
    header_constants = {}
    for name, text in texts.items():
        if name.endswith(".h"):
            pairs = CONSTANT.findall(without_comments_and_texts(text))
            header_constants.update((each, int(number)) for each, number in pairs)
    raised, problems = set(), []
    for name, text in texts.items():
        found, wrong = raised_in(name, text, header_constants)
        raised |= found
        problems += wrong
    return raised, problems


def self_test():
    def raised(source):
        return raised_in("a.cpp", source, {"kShared": 7})

    constant = "constexpr int kOne = 1;\nconstexpr std::int32_t kTwo = 2;\nconstexpr int kSize = 5;\n"
    assert raised(constant + "RaiseError(kOne, kIcon, f(a, b), u\"\", -1);") == ({1}, [])
    assert raised(constant + "RaiseError(a == A::kSize ? kOne : kTwo, 16);") == ({1, 2}, [])
    assert raised(constant + "const int n = c ? kOne : kTwo;\nRaiseError(n, 16);") == ({1, 2}, [])
    assert raised(constant + "plan.error = kTwo;\nRaiseError(plan.error, 16);") == ({2}, [])
    assert raised("RaiseError(201, 16); RaiseError(kShared, 16);") == ({7, 201}, [])
    assert raised("RaiseMessage(u\"text\", 35, 16);") == (set(), [])
    assert raised("// RaiseError(3)\nconst char* a = \"RaiseError(4)\";") == (set(), [])
    assert raised("void F(int n) {\nRaiseError(n, 16);\n}")[1] == [
        "a.cpp: line 2: the number of RaiseError can't be told"
    ]
    assert raised_in("core/velm.cpp", "RaiseError(n, 16);", {}) == (set(), [])
