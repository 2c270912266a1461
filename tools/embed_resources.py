#!/usr/bin/env python3
"""Writes a C++ source that holds the given files as byte arrays: OUTPUT FILE..."""

import pathlib
import sys


def literal(data):
    """A C++ string literal of the bytes, every byte outside plain ASCII escaped in octal."""
    plain = set(range(0x20, 0x7F)) - {0x22, 0x5C, 0x3F}
    out, line = [], ""
    for byte in data:
        line += chr(byte) if byte in plain else f"\\{byte:03o}"
        if len(line) > 90:
            out.append(f'    "{line}"')
            line = ""
    out.append(f'    "{line}"')
    return "\n".join(out)


def main():
    output, files = pathlib.Path(sys.argv[1]), [pathlib.Path(f) for f in sys.argv[2:]]
    parts = ['#include "data/embedded_resources.h"\n', "namespace velm {\nnamespace {\n"]
    for f in files:
        parts.append(f"const char k_{f.stem}[] =\n{literal(f.read_bytes())};\n")
    parts.append("}  // namespace\n\nconst EmbeddedResource kEmbeddedResources[] = {")
    for f in files:
        parts.append(f'    {{"{f.stem}", std::string_view(k_{f.stem}, sizeof(k_{f.stem}) - 1)}},')
    parts.append("};\nconst std::size_t kEmbeddedResourceCount = %d;\n\n}  // namespace velm" % len(files))
    output.parent.mkdir(parents=True, exist_ok=True)
    output.write_text("\n".join(parts) + "\n", encoding="utf-8")


if __name__ == "__main__":
    main()
