#!/usr/bin/env python3
"""Prints the advance-width tables of tools/SvgLayout.cpp from the fonts.

The SVG map measures its texts in DejaVu Sans (Debian's fonts-dejavu-core).
This reads the regular and the oblique face's horizontal metrics and prints,
for U+0020 to U+007E and U+00A0 to U+00FF, the wider of the two advances in
font units (2048 to the em), as C++ arrays. Only the standard library is used.

    python3 scripts/font-advance-widths.py [FONT_FOLDER]
"""

import struct
import sys


def advances(path):
    data = open(path, "rb").read()
    tables = {}
    for i in range(struct.unpack(">H", data[4:6])[0]):
        tag, _, offset, _ = struct.unpack(">4sIII", data[12 + 16 * i : 28 + 16 * i])
        tables[tag.decode()] = offset
    hhea = tables["hhea"]
    metrics = struct.unpack(">H", data[hhea + 34 : hhea + 36])[0]
    hmtx = tables["hmtx"]
    widths = [struct.unpack(">H", data[hmtx + 4 * g : hmtx + 4 * g + 2])[0] for g in range(metrics)]
    glyphs = {}
    cmap = tables["cmap"]
    for i in range(struct.unpack(">H", data[cmap + 2 : cmap + 4])[0]):
        platform, encoding, offset = struct.unpack(">HHI", data[cmap + 4 + 8 * i : cmap + 12 + 8 * i])
        sub = cmap + offset
        if platform != 3 or encoding != 1 or struct.unpack(">H", data[sub : sub + 2])[0] != 4:
            continue
        size = struct.unpack(">H", data[sub + 6 : sub + 8])[0]
        count = size // 2
        ends = struct.unpack(">%dH" % count, data[sub + 14 : sub + 14 + size])
        starts = struct.unpack(">%dH" % count, data[sub + 16 + size : sub + 16 + 2 * size])
        deltas = struct.unpack(">%dh" % count, data[sub + 16 + 2 * size : sub + 16 + 3 * size])
        ranges = sub + 16 + 3 * size
        offsets = struct.unpack(">%dH" % count, data[ranges : ranges + size])
        for s in range(count):
            for code in range(starts[s], min(ends[s], 0xFFFE) + 1):
                if offsets[s] == 0:
                    glyph = (code + deltas[s]) & 0xFFFF
                else:
                    at = ranges + 2 * s + offsets[s] + 2 * (code - starts[s])
                    glyph = struct.unpack(">H", data[at : at + 2])[0]
                    glyph = (glyph + deltas[s]) & 0xFFFF if glyph else 0
                glyphs[code] = glyph
    return lambda code: widths[min(glyphs.get(code, 0), metrics - 1)]


def array(name, values):
    print("const quint16 %s[] = {" % name)
    for i in range(0, len(values), 16):
        print("    " + ", ".join(str(v) for v in values[i : i + 16]) + ",")
    print("};")


folder = sys.argv[1] if len(sys.argv) > 1 else "/usr/share/fonts/truetype/dejavu"
regular = advances(folder + "/DejaVuSans.ttf")
oblique = advances(folder + "/DejaVuSans-Oblique.ttf")
wider = lambda codes: [max(regular(c), oblique(c)) for c in codes]
array("asciiWidths", wider(range(0x20, 0x7F)))
print()
array("latin1Widths", wider(range(0xA0, 0x100)))
