#!/usr/bin/env python3
"""Checks that includes go one way.

From the bottom: platform interfaces (src/platform/*.h), data, core, functions and commands,
objects, graphics and media, faces. A folder under src/platform/ implements interfaces and may use
data. Only such a folder includes headers of other libraries; Qt headers stand only in
platform/qt, platform/web and the window face. No file includes itself by a detour. The few
declared exceptions are listed below, each with its reason.
"""

import argparse
import pathlib
import re
import sys

# What each place may include besides itself.
MAY_INCLUDE = {
    "interface": {"data"},
    "implementation": {"interface", "data"},
    "data": {"interface"},
    "core": {"interface", "data"},
    "functions": {"interface", "data", "core", "commands"},
    "commands": {"interface", "data", "core", "functions"},
    "objects": {"interface", "data", "core", "functions", "commands", "graphics", "media"},
    "graphics": {"interface", "data", "core", "functions", "commands", "objects", "media"},
    "media": {"interface", "data", "core", "functions", "commands", "objects", "graphics"},
    "faces": {
        "interface", "implementation", "data", "core", "functions", "commands", "objects",
        "graphics", "media",
    },
}

# The tables name the handlers of every folder: that is how the lower layers reach upward. The core
# has them built once, at its start.
TABLES = {
    "commands/command_table.cpp",
    "commands/setting_words.cpp",
    "functions/function_table.cpp",
}
TABLE_HEADERS = {"commands/command_table.h", "functions/function_table.h"}

# Interfaces may use these of data, which themselves use nothing but the standard library.
BOTTOM_OF_DATA = {"data/failure.h", "data/member_value.h", "data/pixmap.h", "data/text.h"}

QT_PLACES = ("platform/qt/", "platform/web/", "faces/window/", "faces/velmscript")

STANDARD_HEADERS = set(
    """
    algorithm any array atomic barrier bit bitset charconv chrono codecvt compare complex concepts
    condition_variable coroutine deque exception execution filesystem format forward_list fstream
    functional future initializer_list iomanip ios iosfwd iostream istream iterator latch limits
    list locale map memory memory_resource mutex new numbers numeric optional ostream queue random
    ranges ratio regex scoped_allocator semaphore set shared_mutex source_location span sstream
    stack stdexcept stop_token streambuf string string_view strstream syncstream system_error
    thread tuple type_traits typeindex typeinfo unordered_map unordered_set utility valarray
    variant vector version cassert cctype cerrno cfenv cfloat cinttypes climits clocale cmath
    csetjmp csignal cstdarg cstddef cstdint cstdio cstdlib cstring ctime cuchar cwchar cwctype
    """.split()
)

INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*([<"])([^>"]+)[>"]', re.MULTILINE)


def place_of(name):
    """The layer of a path relative to src."""
    parts = name.split("/")
    if parts[0] == "platform":
        return "interface" if len(parts) == 2 else "implementation"
    return parts[0]


def check_library(name, header):
    """What is wrong with a header in angle brackets."""
    is_qt = bool(re.match(r"(Qt?[A-Z0-9]|q[a-z])", header)) or header.startswith("Qt")
    if is_qt:
        if not name.startswith(QT_PLACES):
            return f"{name}: Qt header <{header}>"
    elif header not in STANDARD_HEADERS and place_of(name) != "implementation":
        return f"{name}: <{header}> is no standard header; only src/platform/*/ may include it"
    return None


def check_own(name, header, files):
    """What is wrong with a header in quotes."""
    if header not in files:
        return f'{name}: no src/{header} (paths are relative to src)'
    here, there = place_of(name), place_of(header)
    if here == "implementation" and there == "implementation":
        if name.split("/")[1] != header.split("/")[1]:
            return f"{name}: includes {header} of another platform folder"
        return None
    if here == "interface" and there == "data" and header not in BOTTOM_OF_DATA:
        return f"{name}: a platform interface includes {header}"
    if here == there or name in TABLES or there in MAY_INCLUDE[here]:
        return None
    if here == "core" and name.endswith(".cpp") and header in TABLE_HEADERS:
        return None
    return f"{name}: {here} must not include {there} ({header})"


def find_cycle(graph):
    """One chain of files that leads back to its start, or nothing."""
    done, trail = set(), []

    def visit(node):
        if node in trail:
            return trail[trail.index(node):] + [node]
        if node in done:
            return None
        trail.append(node)
        for following in sorted(graph.get(node, ())):
            cycle = visit(following)
            if cycle:
                return cycle
        trail.pop()
        done.add(node)
        return None

    for node in sorted(graph):
        cycle = visit(node)
        if cycle:
            return cycle
    return None


def check(files):
    """All breaches in a tree given as {path relative to src: text}."""
    problems, graph = [], {}
    for name, text in sorted(files.items()):
        if place_of(name) not in MAY_INCLUDE:
            problems.append(f"{name}: a folder that the layers don't know")
            continue
        graph[name] = set()
        for mark, header in INCLUDE.findall(text):
            if mark == "<":
                problem = check_library(name, header)
            else:
                problem = check_own(name, header, files)
                graph[name].add(header)
            if problem:
                problems.append(problem)
    cycle = find_cycle(graph)
    if cycle:
        problems.append("a cycle of includes: " + " -> ".join(cycle))
    return problems


def read_tree(source):
    paths = [p for p in source.rglob("*") if p.suffix in (".h", ".cpp")]
    return {str(p.relative_to(source)): p.read_text(encoding="utf-8") for p in paths}


def self_test():
    good = {
        "platform/files.h": '#include <string>\n#include "data/failure.h"\n',
        "platform/posix/files.cpp": '#include <unistd.h>\n#include "platform/files.h"\n',
        "platform/qt/window.cpp": "#include <QWidget>\n",
        "data/failure.h": "#include <string>\n",
        "data/list.h": "#include <vector>\n",
        "core/engine.h": '#include "data/failure.h"\n',
        "commands/command_table.cpp": '#include "objects/window.h"\n',
        "commands/command_table.h": "",
        "core/engine.cpp": '#include "commands/command_table.h"\n',
        "objects/window.h": '#include "core/engine.h"\n',
        "faces/window/main.cpp": '#include <QApplication>\n#include "objects/window.h"\n',
    }
    assert check(good) == [], check(good)
    breaches = {
        "data/up.cpp": '#include "core/engine.h"\n',
        "core/up.cpp": '#include "objects/window.h"\n',
        "core/qt.cpp": "#include <QString>\n",
        "core/up.h": '#include "commands/command_table.h"\n',
        "platform/posix/qt.cpp": "#include <QtCore/QFile>\n",
        "functions/posix.cpp": "#include <unistd.h>\n",
        "data/c.cpp": "#  include <sys/stat.h>\n",
        "platform/wide.h": '#include "data/list.h"\n',
        "platform/media/other.cpp": '#include "platform/posix/near.h"\n',
        "platform/posix/near.h": "",
        "objects/lost.cpp": '#include "window.h"\n',
        "extra/new.cpp": "\n",
    }
    found = check(good | breaches)
    for name in breaches:
        expected = 0 if name == "platform/posix/near.h" else 1
        assert sum(p.startswith(name + ":") for p in found) == expected, (name, found)
    cycle = good | {"data/a.h": '#include "data/b.h"\n', "data/b.h": '#include "data/a.h"\n'}
    assert check(cycle) == ["a cycle of includes: data/a.h -> data/b.h -> data/a.h"]
    print("self-test: breaches and cycles are noticed")
    return 0


def main():
    parser = argparse.ArgumentParser(
        description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter
    )
    default = pathlib.Path(__file__).resolve().parent.parent / "src"
    parser.add_argument("source", nargs="?", type=pathlib.Path, default=default)
    parser.add_argument("--self-test", action="store_true", help="prove that breaches are noticed")
    options = parser.parse_args()
    if options.self_test:
        return self_test()
    files = read_tree(options.source)
    if not files:
        print(f"{options.source}: no sources")
        return 1
    problems = check(files)
    print("\n".join(problems + [f"layers: {len(files)} files, {len(problems)} breaches"]))
    return 1 if problems else 0


if __name__ == "__main__":
    sys.exit(main())
