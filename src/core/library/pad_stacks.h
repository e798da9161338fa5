#pragma once

// The pad stacks of one decal: what copper each pin has on each layer and its drill hole, read
// from the decal's "PAD" blocks, with identical consecutive stacks merged into pin ranges. The
// terminal drawing looks entries up by pin and layer; the pad-stack table on the decal page is
// built here as rows of positioned texts so that drawing it is a plain loop.

#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "library/decal_record.h"

namespace zantor {

// One line of a pad stack with a copy of its stack's header. Lengths are in library units.
struct PadStackEntry {
    std::int32_t pin = 0;      // 0: the default stack for every pin without its own
    std::int32_t pinLast = 0;  // last pin of a merged range pin..pinLast (when > 0)
    std::int32_t layer = 0;    // -2 top, -1 inner layers, 0 bottom, > 0 that layer
    double size = 0.0;         // diameter, or width of a finger
    std::string shape;         // at most 2 characters: R S A OF RF RT ST O (others are kept)
    double drill = 0.0;
    double drillOri = 0.0;       // degrees, of a slotted drill
    double drillLength = 0.0;    // 0 for a round hole
    double drillOffset = 0.0;    // along the slot
    std::string plated;          // at most 1 character; "P" is plated, anything else is not
    double ori = 0.0;            // degrees (OF, RF, RT, ST)
    double lenOrInner = 0.0;     // finger length (OF, RF) or inner diameter (A, RT, ST)
    double offsetOrSpoke = 0.0;  // finger offset (OF, RF) or spoke width (RT, ST)
    std::uint16_t spokes = 0;    // thermal spokes (RT, ST)
    // Corners of an "S" or "RF" pad, in the files that write them: 0 square, > 0 the radius of
    // rounded corners, < 0 the size of chamfered ones.
    double corner = 0.0;

    bool operator==(const PadStackEntry&) const = default;
};

// Entries in file order, the first stack's entries first. A stack is a run of consecutive entries
// with the same pin and pinLast.
using PadStackList = std::vector<PadStackEntry>;

// Reads the record's counts.stacks "PAD" blocks from record.firstStack and merges identical
// consecutive stacks. Where the drill stands is the file dialect's drillPlace, where the corner of
// "S" and "RF" pads its cornerPlace. Every line of a stack is kept, in file order, also several
// lines for one layer, anti-pads and the mask and paste layers. A body shorter than its counts
// ends the reading at its last line. A number field that is not a number is a ConversionError
// naming the decal, the file and the line (a whole number beyond its field's range a RangeError).
PadStackList ReadPadStacks(const DecalRecord& record);

// An anti-pad ("RA" round, "SA" square): the clearance round a pin in a plane layer, which is
// not copper and is not drawn as a pad.
bool IsAntiPad(const PadStackEntry& entry);

// Whether two entries belong to the same stack.
bool SameStack(const PadStackEntry& a, const PadStackEntry& b);

// The entry for `pin` on `layer`: from the pin's own stack, else from the default stack at the
// head of the list; nullptr when that stack has no line for the layer. With several lines for
// the layer it is the first of them. The pointer is into `stacks`.
const PadStackEntry* FindStackEntry(const PadStackList& stacks, std::int32_t pin,
                                    std::int32_t layer);

// How the lengths of a decal are measured: millimetres per library unit, and whether the decal
// counts in mils (what "As lib" shows).
struct LibraryUnits {
    double unitFactor = 1.0;
    bool mils = false;
};

// A decal counts in mils when its unit letter is "I". In BASIC files the numbers are stored in
// BASIC units whatever the letter, but the letter still says what the decal was designed in, so
// "As lib" follows the letter there too and the factor does the conversion.
LibraryUnits LibraryUnitsOf(const DecalRecord& record);

// The unit text of a measurement unit letter ('I' mils, 'M' millimetres, anything else "As lib"):
// "mi" or "mm".
std::string UnitSuffix(char unitChar, bool libraryIsMils);

// `value` in library units shown in the unit of `unitChar` (as UnitSuffix chooses it): converted
// through millimetres with the library's unit factor, so that BASIC units work like any other;
// a value already in the shown unit is not converted at all. Fixed-point with 3 decimals, cut to
// at most 7 characters.
std::string FormatMeasure(char unitChar, double value, const LibraryUnits& units);

// The pad-stack table on the decal page. Positions are millimetres from the table's left edge.
inline constexpr int kPadStackTableMaxRows = 16;
inline constexpr double kPadStackTableWidth = 78.80597014925372;
inline constexpr double kPadStackTableRowPitch = 3.5;
inline constexpr double kPadStackTableTextHeight = 2.5;
// The vertical rules between the columns, from the heading row down.
inline constexpr std::array<double, 7> kPadStackTableRules = {9.0,  18.5, 26.5, 39.2,
                                                              44.8, 55.5, 67.5};

enum class CellAlign { Left, Centre, Right };

struct TableCell {
    std::string text;
    double x = 0.0;
    CellAlign align = CellAlign::Left;

    bool operator==(const TableCell&) const = default;
};

struct PadStackTableRow {
    bool stackHeader = false;  // the row of a stack's pin, range and drill; else one stack line
    std::vector<TableCell> cells;
};

struct PadStackTable {
    int rowCount = 0;  // data rows the frame is sized for: lineCount, at most 16
    std::string title;
    std::vector<TableCell> headings;
    std::vector<PadStackTableRow> rows;  // at most rowCount
};

// The number of table lines the stacks need: one per stack header and one per stack line.
int PadStackTableLineCount(const PadStackList& stacks);

// The table's texts for `lineCount` lines (usually PadStackTableLineCount), in `stackUnit`.
// With lineCount <= 0 there is no table (rowCount 0, no rows).
PadStackTable PadStackTableContent(const PadStackList& stacks, int lineCount, char stackUnit,
                                   const LibraryUnits& units);

}  // namespace zantor
