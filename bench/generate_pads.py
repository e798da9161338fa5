#!/usr/bin/env python3
"""Writes large synthetic PADS PowerPCB V4 files for Zantor's benchmark.

  generate_pads.py library OUT.d --megabytes 100
      a V4 decal library of at least that size (as many decals as it takes)
  generate_pads.py library OUT.d --decals 5000
      a V4 decal library of that many decals
  generate_pads.py pcb OUT.asc --decals 2000
      a V4 PCB ASCII file whose parts use that many decals: a *PARTDECAL* section with those
      decals and a tenth as many more that no part uses, a *PARTTYPE* per decal and one to three
      placed *PART*s per used decal

The decals are footprints of the usual families (DIP, SOIC, QFP, BGA, two-pin chips, headers)
with outlines, a pin-1 mark, a text, terminals and pad stacks. The same seed gives the same file.
"""

import argparse
import random
import sys

LIBRARY_HEADER = "*PADS-LIBRARY-PCB-DECALS-V4*"
PCB_HEADER = "!PADS-POWERPCB-V4.0-MILS! DESIGN DATABASE ASCII FILE 1.0"


class Decal:
    """One footprint in mils: pieces as (keyword, width, layer, corners), texts, terminals and
    pad stacks as lists of lines."""

    def __init__(self, name, pieces, texts, terminals, stacks):
        self.name = name
        self.pieces = pieces
        self.texts = texts
        self.terminals = terminals
        self.stacks = stacks

    def piece_lines(self):
        lines = []
        for keyword, width, layer, corners in self.pieces:
            lines.append(f"{keyword} {len(corners)} {width} {layer}")
            lines.extend(f"{x} {y}" for x, y in corners)
        return lines

    def text_lines(self):
        lines = []
        for x, y, text in self.texts:
            lines.append(f"{x} {y} 0 26 30 3 N")
            lines.append(text)
        return lines

    def stack_count(self):
        return sum(1 for line in self.stacks if line.startswith("PAD "))

    def library_record(self, height_mils):
        attributes = [f'"Geometry.Height" {height_mils}mil']
        labels = ["0 100 0 0 50 5 26 17 34", "REF-DES", "0 -100 0 0 40 4 27 17 35", "PART-TYPE"]
        header = (f"{self.name} I 0 0 {len(attributes)} 2 {len(self.pieces)} {len(self.texts)} "
                  f"{len(self.terminals)} {self.stack_count()}")
        return [header, *attributes, *labels, *self.piece_lines(), *self.text_lines(),
                *self.terminals, *self.stacks, ""]

    def pcb_record(self):
        header = (f"{self.name} I 0 0 {len(self.pieces)} {len(self.terminals)} "
                  f"{self.stack_count()} {len(self.texts)} 0")
        return [header, *self.piece_lines(), *self.text_lines(), *self.terminals, *self.stacks,
                ""]


def box(x1, y1, x2, y2):
    return [(x1, y1), (x2, y1), (x2, y2), (x1, y2), (x1, y1)]


def terminal(x, y, pin):
    return f"T{x} {y} {x} {y} {pin}"


def through_hole_stacks(drill, size):
    return [f"PAD 0 3 P {drill} 0 0 0", f"-2 {size} R", f"-1 {size} R", f"0 {size} R",
            f"PAD 1 3 P {drill} 0 0 0", f"-2 {size} S", f"-1 {size} R", f"0 {size} S"]


def smd_stacks(size):
    return [f"PAD 0 1 P 0 0 0 0", f"-2 {size} S"]


def dual_row(name, pins, pitch, span, through_hole):
    per_side = pins // 2
    top = (per_side - 1) * pitch // 2
    terminals = []
    for i in range(per_side):
        terminals.append(terminal(-span // 2, top - i * pitch, i + 1))
    for i in range(per_side):
        terminals.append(terminal(span // 2, -top + i * pitch, per_side + i + 1))
    body = span // 2 - (60 if through_hole else 40)
    pieces = [("CLOSED", 10, 26, box(-body, -top - pitch // 2, body, top + pitch // 2)),
              ("OPEN", 8, 26, [(-body, top + pitch // 2 - 40), (-body + 40, top + pitch // 2)])]
    stacks = through_hole_stacks(35, 60) if through_hole else smd_stacks(24)
    return Decal(name, pieces, [(-body + 20, 0, name[:12])], terminals, stacks)


def quad(name, pins, pitch):
    per_side = pins // 4
    half = (per_side - 1) * pitch // 2
    reach = half + 80
    terminals = []
    pin = 1
    for i in range(per_side):
        terminals.append(terminal(-reach, half - i * pitch, pin)); pin += 1
    for i in range(per_side):
        terminals.append(terminal(-half + i * pitch, -reach, pin)); pin += 1
    for i in range(per_side):
        terminals.append(terminal(reach, -half + i * pitch, pin)); pin += 1
    for i in range(per_side):
        terminals.append(terminal(half - i * pitch, reach, pin)); pin += 1
    body = half + 30
    pieces = [("CLOSED", 8, 26, box(-body, -body, body, body)),
              ("CIRCLE", 6, 26, [(-body + 30, body - 30), (-body + 50, body - 30)])]
    return Decal(name, pieces, [(-body + 40, 0, name[:12])], terminals, smd_stacks(14))


def grid(name, rows, pitch):
    half = (rows - 1) * pitch // 2
    letters = "ABCDEFGHJKLMNPRTUVWY"
    terminals = []
    pin = 1
    for row in range(rows):
        for column in range(rows):
            terminals.append(terminal(-half + column * pitch, half - row * pitch, pin))
            pin += 1
    body = half + pitch
    pieces = [("CLOSED", 8, 26, box(-body, -body, body, body)),
              ("OPEN", 8, 26, [(-body, body - pitch), (-body + pitch, body)])]
    texts = [(-body, body + 20, f"{letters[rows % len(letters)]}{rows}x{rows}")]
    return Decal(name, pieces, texts, terminals, smd_stacks(pitch // 2))


def two_pin(name, length):
    pieces = [("OPEN", 6, 26, [(-length // 2, 30), (length // 2, 30)]),
              ("OPEN", 6, 26, [(-length // 2, -30), (length // 2, -30)])]
    terminals = [terminal(-length // 2, 0, 1), terminal(length // 2, 0, 2)]
    return Decal(name, pieces, [], terminals, smd_stacks(40))


def header(name, pins):
    columns = pins // 2
    terminals = []
    for column in range(columns):
        terminals.append(terminal(column * 100, 50, 2 * column + 1))
        terminals.append(terminal(column * 100, -50, 2 * column + 2))
    pieces = [("CLOSED", 10, 26, box(-50, -100, columns * 100 - 50, 100))]
    return Decal(name, pieces, [(0, 120, name[:12])], terminals, through_hole_stacks(40, 70))


def make_decal(rng, index):
    family = rng.choice(["DIP", "SOIC", "QFP", "BGA", "CHIP", "HDR"])
    if family == "DIP":
        pins = rng.choice([8, 14, 16, 20, 24, 28, 40, 48])
        return dual_row(f"DIP{pins}_{index:06d}", pins, 100, 300 if pins < 24 else 600, True)
    if family == "SOIC":
        pins = rng.choice([8, 14, 16, 20, 28])
        return dual_row(f"SO{pins}_{index:06d}", pins, 50, 240, False)
    if family == "QFP":
        pins = rng.choice([32, 44, 64, 100, 144, 208])
        return quad(f"QFP{pins}_{index:06d}", pins, rng.choice([20, 26, 31]))
    if family == "BGA":
        rows = rng.choice([8, 10, 12, 16, 20, 27])
        return grid(f"BGA{rows * rows}_{index:06d}", rows, rng.choice([31, 39, 50]))
    if family == "CHIP":
        size = rng.choice([(40, "0402"), (60, "0603"), (80, "0805"), (120, "1206")])
        return two_pin(f"R{size[1]}_{index:06d}", size[0])
    pins = rng.choice([4, 6, 10, 20, 40, 64])
    return header(f"HDR{pins}_{index:06d}", pins)


class Output:
    def __init__(self, path):
        self.file = open(path, "w", encoding="ascii", newline="\n")
        self.size = 0

    def lines(self, lines):
        text = "\n".join(lines) + "\n"
        self.file.write(text)
        self.size += len(text)

    def close(self):
        self.file.close()


def write_library(path, decals, megabytes, rng):
    out = Output(path)
    out.lines([LIBRARY_HEADER, ""])
    limit = megabytes * 1000 * 1000 if megabytes else None
    index = 0
    while (limit is not None and out.size < limit) or (decals is not None and index < decals):
        decal = make_decal(rng, index)
        out.lines(decal.library_record(rng.choice([40, 60, 100, 180])))
        index += 1
    out.lines(["*END*"])
    out.close()
    return index, out.size


def write_pcb(path, used, rng):
    unused = max(1, used // 10)
    decals = [make_decal(rng, index) for index in range(used + unused)]
    rng.shuffle(decals)
    in_use = {decal.name for decal in decals[:used]}
    out = Output(path)
    out.lines([PCB_HEADER, "*PCB*        GENERAL PARAMETERS OF THE PCB DESIGN", "UNITS        1",
               "", "*PARTDECAL*  ITEMS",
               "*REMARK* NAME UNITS ORIX ORIY PIECES TERMINALS STACKS TEXT LABELS",
               "*REMARK* PIECETYPE CORNERS WIDTH LEVEL", ""])
    for decal in decals:
        out.lines(decal.pcb_record())

    out.lines(["*PARTTYPE*   ITEMS",
               "*REMARK* NAME DECALNM UNITS LOGFAM ATTRS GATES SIGPINS PINNMS FLAGS", ""])
    for decal in decals:
        pins = len(decal.terminals)
        out.lines([f"PT_{decal.name} {decal.name} I UND 0 1 0 0 0",
                   f"G 0 {pins}",
                   " ".join(f"{pin}.0.U." for pin in range(1, pins + 1)), ""])

    out.lines(["*PART*       ITEMS",
               "*REMARK* REFNM PTYPENM X Y ORI GLUE MIRROR ALT CLSTID CLSTATTR BROTHERID LABELS",
               ""])
    reference = 1
    parts = []
    for decal in decals:
        if decal.name not in in_use:
            continue
        for _ in range(rng.randint(1, 3)):
            x, y = rng.randrange(0, 20000, 25), rng.randrange(0, 15000, 25)
            orientation = rng.choice([0, 90, 180, 270])
            parts.append(f"U{reference} PT_{decal.name} {x} {y} {orientation} U N 0 -1 0 -1 0")
            reference += 1
    rng.shuffle(parts)
    out.lines(parts)
    out.lines(["", "*END*     OF ASCII OUTPUT FILE"])
    out.close()
    return len(decals), out.size


def main():
    parser = argparse.ArgumentParser(description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("kind", choices=["library", "pcb"])
    parser.add_argument("output")
    parser.add_argument("--decals", type=int, help="decals (for a PCB file: decals in use)")
    parser.add_argument("--megabytes", type=float, help="library: at least this many megabytes")
    parser.add_argument("--seed", type=int, default=1)
    args = parser.parse_args()
    rng = random.Random(args.seed)
    if args.kind == "library":
        if args.decals is None and args.megabytes is None:
            parser.error("library needs --decals or --megabytes")
        count, size = write_library(args.output, args.decals, args.megabytes, rng)
    else:
        if args.decals is None or args.decals < 1:
            parser.error("pcb needs --decals N (N >= 1)")
        count, size = write_pcb(args.output, args.decals, rng)
    print(f"{args.output}: {count} decals, {size / 1e6:.1f} MB", file=sys.stderr)


if __name__ == "__main__":
    main()
