#!/usr/bin/env python3
"""Writes the constant tables of code page 932 as a C++ source.

Usage: generate_table.py code_page_932.txt code_page_932_table.cpp

The build runs this; its output is never kept in the tree. The layout of the tables is declared in
src/data/code_page_932_table.h, the format of the input is told at the head of the data file.
"""

import sys
import unicodedata

CELLS_PER_ROW = 94
BLOCK_BITS = 5
BLOCK_SIZE = 1 << BLOCK_BITS
LEADS = [*range(0x81, 0xA0), *range(0xE0, 0xF0), *range(0xFA, 0xFD)]
TRAILS = [*range(0x40, 0x7F), *range(0x80, 0xFD)]
SELECTED_BY_NEC = (0xED, 0xEE)
EXPECTED_CELLS = 7724
EXPECTED_FITS = 83


def row_codes(first):
    """The double-byte codes of the row that begins at `first`."""
    lead, trail = divmod(first, 0x100)
    start = TRAILS.index(trail)
    if lead not in LEADS or start % CELLS_PER_ROW != 0:
        raise ValueError(f"no row begins at {first:04X}")
    return [lead << 8 | t for t in TRAILS[start : start + CELLS_PER_ROW]]


def parse_units(words):
    """UTF-16 units from words such as A1 or C0-C6."""
    for word in words:
        first, _, last = word.partition("-")
        yield from range(int(first, 16), int(last or first, 16) + 1)


def read_data(path):
    """Returns ({code: unit}, {unit: best-fit code})."""
    cells, fits = {}, {}
    with open(path, encoding="utf-8", newline="\n") as lines:
        for number, line in enumerate(lines, 1):
            line = line.removesuffix("\n")
            if not line or line.startswith("#"):
                continue
            kind, code, rest = line.split(" ", 2)
            if kind == "row":
                for cell, char in zip(row_codes(int(code, 16)), rest, strict=False):
                    if char != ".":
                        cells[cell] = ord(char)
            elif kind == "fit":
                fits.update((unit, int(code, 16)) for unit in parse_units(rest.split()))
            else:
                raise ValueError(f"{path}:{number}: unknown line kind {kind}")
    return cells, fits


def check_data(cells, fits):
    """Stops the build on data that an editor has damaged, by normalising it for instance."""
    if len(cells) != EXPECTED_CELLS:
        raise ValueError(f"{len(cells)} cells instead of {EXPECTED_CELLS}")
    if len(fits) != EXPECTED_FITS:
        raise ValueError(f"{len(fits)} best fits instead of {EXPECTED_FITS}")
    if max(cells.values()) > 0xFFFF or min(cells.values()) < 0x80:
        raise ValueError("a cell holds a character that isn't one non-ASCII UTF-16 unit")
    if unicodedata.normalize("NFC", chr(cells[0x81F0])) == chr(cells[0x81F0]):
        raise ValueError("the data file was normalised: 81F0 must be U+212B")


def preference(code):
    """Sort key of the codes of one character: the least one is written."""
    return (code >> 8 in SELECTED_BY_NEC, code)


def encode_map(cells, fits):
    """{unit: code} of all that isn't a rule in the C++ code."""
    result = {}
    for code in sorted(cells, key=preference):
        result.setdefault(cells[code], code)
    clash = result.keys() & fits.keys()
    if clash:
        raise ValueError(f"best fits that have a cell of their own: {sorted(clash)}")
    return result | fits


def two_stages(encoded):
    """Cuts the 65,536 codes into blocks and keeps each distinct block once."""
    index, blocks = [], {}
    for start in range(0, 0x10000, BLOCK_SIZE):
        block = tuple(encoded.get(unit, 0) for unit in range(start, start + BLOCK_SIZE))
        index.append(blocks.setdefault(block, len(blocks)))
    return index, [code for block in blocks for code in block]


def lead_rows():
    """For each byte the number of its row in the decoding table, or 255."""
    return [LEADS.index(byte) if byte in LEADS else 255 for byte in range(0x100)]


def array(declaration, values, digits):
    """One array definition, 12 values a line."""
    lines = [f"extern const {declaration} = {{"]
    for start in range(0, len(values), 12):
        row = values[start : start + 12]
        lines.append("    " + " ".join(f"0x{value:0{digits}X}," for value in row))
    return "\n".join(lines) + "\n};\n"


def render(cells, fits):
    """The whole C++ source."""
    decoded = [cells.get(lead << 8 | trail, 0) for lead in LEADS for trail in TRAILS]
    index, codes = two_stages(encode_map(cells, fits))
    if len(codes) // BLOCK_SIZE > 0xFFFF:
        raise ValueError("too many blocks")
    return "\n".join(
        [
            "// Written by tools/code_page_932/generate_table.py; don't edit.",
            '#include "data/code_page_932_table.h"',
            "",
            "namespace velm::code_page_932 {",
            "",
            array("std::uint8_t kLeadRows[256]", lead_rows(), 2),
            array("char16_t kDecoded[kLeadCount * kTrailCount]", decoded, 4),
            array("std::uint16_t kEncodeBlocks[0x10000 >> kBlockBits]", index, 4),
            array(f"std::uint16_t kEncoded[{len(codes)}]", codes, 4),
            "}  // namespace velm::code_page_932",
            "",
        ]
    )


def main(arguments):
    if len(arguments) != 2:
        sys.exit(__doc__)
    source, target = arguments
    cells, fits = read_data(source)
    check_data(cells, fits)
    with open(target, "w", encoding="ascii", newline="\n") as output:
        output.write(render(cells, fits))


if __name__ == "__main__":
    main(sys.argv[1:])
