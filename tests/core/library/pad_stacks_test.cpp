#include "library/pad_stacks.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "common/errors.h"
#include "library/file_header.h"

namespace zantor {
namespace {

using Texts = std::vector<std::string>;

// A decal record (from line 40 of "lib.d") whose body is a terminal line and `stackLines`.
DecalRecord Decal(int version, Texts stackLines, std::uint16_t stacks) {
    DecalRecord record;
    record.header.version = version;
    record.header.dialect = DialectFor(version, false);
    record.fileName = "lib.d";
    record.name = "SO8";
    record.headerLineNumber = 40;
    record.counts.stacks = stacks;
    record.lines.push_back("T0 0 0 0 1");
    record.firstStack = 1;
    record.lines.insert(record.lines.end(), stackLines.begin(), stackLines.end());
    return record;
}

// Every field of an entry on one line: range, layer, size, shape, ori, len/inner, offset/spoke,
// spokes | plated, drill, drill ori, length, offset.
std::string Describe(const PadStackEntry& e) {
    std::ostringstream out;
    out << e.pin << ".." << e.pinLast << " " << e.layer << " " << e.size << " " << e.shape << " "
        << e.ori << " " << e.lenOrInner << " " << e.offsetOrSpoke << " " << e.spokes << " | "
        << e.plated << " " << e.drill << " " << e.drillOri << " " << e.drillLength << " "
        << e.drillOffset;
    return out.str();
}

Texts Described(const PadStackList& list) {
    Texts texts;
    for (const auto& entry : list) {
        texts.push_back(Describe(entry));
    }
    return texts;
}

Texts SamePadsForPins(const std::vector<int>& pins) {
    Texts lines;
    for (int pin : pins) {
        lines.insert(lines.end(), {"PAD " + std::to_string(pin) + " 2 P 35", "-2 60 R", "0 60 S"});
    }
    return lines;
}

Texts Ranges(const PadStackList& list) {
    Texts ranges;
    for (const auto& entry : list) {
        ranges.push_back(std::to_string(entry.pin) + ".." + std::to_string(entry.pinLast));
    }
    return ranges;
}

TEST(ReadPadStacks, TakesTheDrillWhereTheDialectPutsIt) {
    EXPECT_EQ(Described(ReadPadStacks(
                  Decal(4, {"PAD 6 2 Px 0.5 30 1.6 0.2", "-2 1.2 R", "0 1.1 OF 90 2.5 -0.3"}, 1))),
              (Texts{"6..6 -2 1.2 R 0 0 0 0 | P 0.5 30 1.6 0.2",
                     "6..6 0 1.1 OF 90 2.5 -0.3 0 | P 0.5 30 1.6 0.2"}));
    EXPECT_EQ(
        Described(ReadPadStacks(Decal(
            3, {"PAD 1 3", "-2 62 R 35 Plated", "-1 80 RT 45 62 12 4 36 N", "0 62 A 30 37"}, 1))),
        (Texts{"1..1 -2 62 R 0 0 0 0 | P 35 0 0 0", "1..1 -1 80 RT 45 62 12 4 | N 36 0 0 0",
               "1..1 0 62 A 0 30 0 0 |  37 0 0 0"}));
    auto record = Decal(4, {"PAD 0 1 N 0.8", "-2 1.5 R 7 P"}, 1);
    record.header.dialect.drillPlace = DrillPlace::Nowhere;
    EXPECT_EQ(Described(ReadPadStacks(record)), (Texts{"0..0 -2 1.5 R 0 0 0 0 |  0 0 0 0"}));
}

TEST(ReadPadStacks, EachShapeReadsItsOwnFieldsAndMissingWordsAreZero) {
    EXPECT_EQ(Described(ReadPadStacks(
                  Decal(4,
                        {"PAD 1 9 P", "-2 10 R 9", "-2 11 S 9", "-2 12 A 7 9",
                         "-2 13 OF 90 40 -5 9", "-2 14 RF 45.5 30 2.5 9", "-1 15 RTX 30 20 3 8 9",
                         "-1 16 ST 0 21 4 2 9", "0 17 O 9", "3 18 ST"},
                        1))),
              (Texts{"1..1 -2 10 R 0 0 0 0 | P 0 0 0 0", "1..1 -2 11 S 0 0 0 0 | P 0 0 0 0",
                     "1..1 -2 12 A 0 7 0 0 | P 0 0 0 0", "1..1 -2 13 OF 90 40 -5 0 | P 0 0 0 0",
                     "1..1 -2 14 RF 45.5 30 2.5 0 | P 0 0 0 0",
                     "1..1 -1 15 RT 30 20 3 8 | P 0 0 0 0", "1..1 -1 16 ST 0 21 4 2 | P 0 0 0 0",
                     "1..1 0 17 O 0 0 0 0 | P 0 0 0 0", "1..1 3 18 ST 0 0 0 0 | P 0 0 0 0"}));
}

TEST(ReadPadStacks, MergesOnlyIdenticalStacksOfConsecutivePins) {
    EXPECT_EQ(Ranges(ReadPadStacks(Decal(4, SamePadsForPins({1, 2, 3, 4, 5, 6, 7, 8}), 8))),
              (Texts{"1..8", "1..8"}));
    EXPECT_EQ(Ranges(ReadPadStacks(Decal(4, SamePadsForPins({1, 2, 4}), 3))),
              (Texts{"1..2", "1..2", "4..4", "4..4"}));
    EXPECT_EQ(Ranges(ReadPadStacks(Decal(4, SamePadsForPins({1, 1}), 2))),
              (Texts{"1..1", "1..1", "1..1", "1..1"}));

    // Pin 2 after pin 1's "PAD 1 2 P 35 / -2 60 R / 0 60 S", each differing in one thing.
    for (const Texts& pin2 :
         {Texts{"PAD 2 2 N 35", "-2 60 R", "0 60 S"}, Texts{"PAD 2 2 P 36", "-2 60 R", "0 60 S"},
          Texts{"PAD 2 2 P 35 1", "-2 60 R", "0 60 S"},
          Texts{"PAD 2 2 P 35 0 0 0.1", "-2 60 R", "0 60 S"},
          Texts{"PAD 2 2 P 35", "-1 60 R", "0 60 S"}, Texts{"PAD 2 2 P 35", "-2 61 R", "0 60 S"},
          Texts{"PAD 2 2 P 35", "-2 60 R", "0 60 O"}, Texts{"PAD 2 1 P 35", "-2 60 R"},
          Texts{"PAD 2 3 P 35", "-2 60 R", "0 60 S", "5 60 R"}}) {
        Texts lines = SamePadsForPins({1});
        lines.insert(lines.end(), pin2.begin(), pin2.end());
        Texts ranges = Ranges(ReadPadStacks(Decal(4, lines, 2)));
        ASSERT_GE(ranges.size(), 3u) << pin2[0];
        EXPECT_EQ(ranges.front(), "1..1") << pin2[0];
        EXPECT_EQ(ranges.back(), "2..2") << pin2[0];
    }
    EXPECT_EQ(Ranges(ReadPadStacks(Decal(
                  4, {"PAD 1 1", "-1 80 RT 45 62 12 4", "PAD 2 1", "-1 80 RT 45 62 12 2"}, 2))),
              (Texts{"1..1", "2..2"}));

    // After a stack that differs, merging goes on against that stack.
    Texts lines = SamePadsForPins({1, 2});
    lines.insert(lines.end(), {"PAD 3 1 P 35", "-2 70 R", "PAD 4 1 P 35", "-2 70 R"});
    EXPECT_EQ(Ranges(ReadPadStacks(Decal(4, lines, 4))), (Texts{"1..2", "1..2", "3..4"}));
}

TEST(ReadPadStacks, StopsAtTheEndOfAShortBody) {
    // The second stack promises three lines and has one; a third stack is counted but missing.
    EXPECT_EQ(
        Ranges(ReadPadStacks(Decal(4, {"PAD 0 1 P 35", "-2 60 R", "PAD 1 3 P 35", "-2 70 R"}, 3))),
        (Texts{"0..0", "1..1"}));
    EXPECT_TRUE(ReadPadStacks(Decal(4, {}, 2)).empty());
}

TEST(ReadPadStacks, ANumberFieldThatIsNoNumberNamesDecalAndLine) {
    try {
        ReadPadStacks(Decal(4, {"PAD 1 1 P 3x5", "-2 60 R"}, 1));
        FAIL() << "no error";
    } catch (const ConversionError& error) {
        EXPECT_STREQ(error.what(),
                     "lib.d:42: the drill of a pad stack of decal SO8 is not a number: \"3x5\"");
    }
    EXPECT_THROW(ReadPadStacks(Decal(4, {"PAD 1 1", "-1 60 RT 0 1 1 many"}, 1)), ConversionError);
    EXPECT_THROW(ReadPadStacks(Decal(3, {"PAD 1 1", "-1 60 R P 35"}, 1)), ConversionError);
    EXPECT_THROW(ReadPadStacks(Decal(4, {"PAD 1 1", "-1 60 RT 0 1 1 70000"}, 1)), RangeError);
    EXPECT_THROW(ReadPadStacks(Decal(4, {"PAD 3000000000 1", "-1 60 R"}, 1)), RangeError);
}

// A decal record of a file with `firstLine` whose body is `stackLines`.
DecalRecord NewerDecal(const std::string& firstLine, Texts stackLines, std::uint16_t stacks) {
    DecalRecord record = Decal(5, std::move(stackLines), stacks);
    record.header = AnalyseHeader(firstLine);
    return record;
}

TEST(ReadPadStacks, NewerPcbStacksTakeTheFirstDrillAfterTheShapeFieldsForTheWholeStack) {
    const std::string v95 = "!PADS-POWERPCB-V9.5-BASIC!";
    // The drill may stand on a later line; then it holds for the lines before it too.
    EXPECT_EQ(Described(ReadPadStacks(NewerDecal(
                  v95, {"PAD 1 3", "-2 60 R", "-1 60 A 30 35 N 45 90 5", "0 60 R 99 P"}, 1))),
              (Texts{"1..1 -2 60 R 0 0 0 0 | N 35 45 90 5", "1..1 -1 60 A 0 30 0 0 | N 35 45 90 5",
                     "1..1 0 60 R 0 0 0 0 | N 35 45 90 5"}));
    // Thermal and anti-pad lines carry no drill; without any, the stack has none.
    EXPECT_EQ(Described(ReadPadStacks(
                  NewerDecal(v95, {"PAD 0 2", "-1 80 RT 45 62 12 4", "-1 90 RA"}, 1))),
              (Texts{"0..0 -1 80 RT 45 62 12 4 |  0 0 0 0", "0..0 -1 90 RA 0 0 0 0 |  0 0 0 0"}));
    // A drill word that is no number is a plated flag out of place: no drill.
    EXPECT_EQ(Described(ReadPadStacks(NewerDecal(v95, {"PAD 0 1", "-2 60 R N"}, 1))),
              (Texts{"0..0 -2 60 R 0 0 0 0 |  0 0 0 0"}));
    EXPECT_THROW(ReadPadStacks(NewerDecal(v95, {"PAD 0 1", "-2 60 R 35 P 9x 1 1"}, 1)),
                 ConversionError);
}

TEST(ReadPadStacks, CornersStandWhereTheReleaseWritesThemAndTakePartInMerging) {
    // The same "S" and "RF" lines in two releases: V5 has no corners, so their last number is
    // the drill there.
    const Texts lines = {"PAD 1 2", "-2 60 S 5", "0 60 RF 90 120 0 5"};
    auto v5 = ReadPadStacks(NewerDecal("!PADS-POWERPCB-V5.0-BASIC!", lines, 1));
    ASSERT_EQ(v5.size(), 2u);
    EXPECT_EQ(Describe(v5[0]), "1..1 -2 60 S 0 0 0 0 | P 5 0 0 0");
    EXPECT_DOUBLE_EQ(v5[1].corner, 0);
    auto v9 = ReadPadStacks(NewerDecal("!PADS-POWERPCB-V9.0-BASIC!", lines, 1));
    ASSERT_EQ(v9.size(), 2u);
    EXPECT_EQ(Describe(v9[1]), "1..1 0 60 RF 90 120 0 0 |  0 0 0 0");
    EXPECT_DOUBLE_EQ(v9[0].corner, 5);
    EXPECT_DOUBLE_EQ(v9[1].corner, 5);

    // Libraries write the corner first: "RF corner ori length offset".
    auto library = ReadPadStacks(NewerDecal("*PADS-LIBRARY-PCB-DECALS-V9*",
                                            {"PAD 1 1 N 0", "-2 0.45 RF 0.1 90 1.5 0.2"}, 1));
    ASSERT_EQ(library.size(), 1u);
    EXPECT_EQ(Describe(library[0]), "1..1 -2 0.45 RF 90 1.5 0.2 0 | N 0 0 0 0");
    EXPECT_DOUBLE_EQ(library[0].corner, 0.1);

    // Stacks that differ in their corners only stay apart.
    auto apart = ReadPadStacks(NewerDecal(
        "*PADS-LIBRARY-PCB-DECALS-V9*",
        {"PAD 1 1 N 0", "-2 1 S 0.1", "PAD 2 1 N 0", "-2 1 S 0.2", "PAD 3 1 N 0", "-2 1 S 0.2"},
        3));
    EXPECT_EQ(Ranges(apart), (Texts{"1..1", "2..3"}));
}

TEST(FindStackEntry, UsesThePinsStackOrTheDefaultStackOnly) {
    Texts lines = {"PAD 0 2 N 0", "-2 50 S", "-1 50 S"};
    Texts pins = SamePadsForPins({1, 2, 3});
    lines.insert(lines.end(), pins.begin(), pins.end());
    lines.insert(lines.end(), {"PAD 7 1 P 0", "0 20 R", "PAD 8 1 P 0", "-1 20 O"});
    const auto list = ReadPadStacks(Decal(4, lines, 6));
    ASSERT_EQ(Ranges(list), (Texts{"0..0", "0..0", "1..3", "1..3", "7..7", "8..8"}));

    EXPECT_EQ(FindStackEntry(list, 2, -2), &list[2]);
    EXPECT_EQ(FindStackEntry(list, 7, 0), &list[4]);
    EXPECT_EQ(FindStackEntry(list, 4, -2), &list[0]);
    EXPECT_EQ(FindStackEntry(list, 4, -1), &list[1]);
    // No line from a later stack, neither for the default stack nor for a pin's own.
    EXPECT_EQ(FindStackEntry(list, 4, 0), nullptr);
    EXPECT_EQ(FindStackEntry(list, 7, -1), nullptr);
    EXPECT_EQ(FindStackEntry(list, 1, 5), nullptr);

    // Without a pin 0 stack the head of the list is the default.
    const auto noDefault =
        ReadPadStacks(Decal(4, {"PAD 5 1 P 0", "-2 20 R", "PAD 9 2 P 0", "-2 30 R", "0 30 R"}, 2));
    EXPECT_EQ(FindStackEntry(noDefault, 1, -2), &noDefault[0]);
    EXPECT_EQ(FindStackEntry(noDefault, 1, 0), nullptr);
    EXPECT_EQ(FindStackEntry(PadStackList{}, 1, -2), nullptr);
}

TEST(FormatMeasure, ShowsTheChosenUnitWithThreeDecimalsInSevenCharacters) {
    EXPECT_EQ(UnitSuffix('M', true), "mm");
    EXPECT_EQ(UnitSuffix('X', true), "mi");
    EXPECT_EQ(UnitSuffix('X', false), "mm");

    const LibraryUnits mils{0.0254, true};
    const LibraryUnits millimetres{1.0, false};
    EXPECT_EQ(FormatMeasure('I', 62.0, mils), "62.000");
    EXPECT_EQ(FormatMeasure('M', 100.0, mils), "2.540");
    EXPECT_EQ(FormatMeasure('I', 1.0, millimetres), "39.370");
    EXPECT_EQ(FormatMeasure('I', -2.5, millimetres), "-98.425");
    EXPECT_EQ(FormatMeasure('M', -0.0001, millimetres), "0.000");
    EXPECT_EQ(FormatMeasure('M', 12345.678, millimetres), "12345.6");
    EXPECT_EQ(FormatMeasure('M', 123456789.0, millimetres), "1234567");
    EXPECT_EQ(FormatMeasure('I', 1000.0, millimetres), "39370.0");

    // BASIC units: "As lib" follows the decal's letter, the factor converts.
    DecalRecord record;
    record.unitLetter = "I";
    record.unitFactor = 6.666666666666667e-07;
    EXPECT_EQ(FormatMeasure('X', 3810000.0, LibraryUnitsOf(record)), "100.000");
    record.unitLetter = "M";
    EXPECT_EQ(FormatMeasure('X', 750000.0, LibraryUnitsOf(record)), "0.500");
}

Texts CellTexts(const PadStackTableRow& row) {
    Texts texts;
    for (const auto& cell : row.cells) {
        texts.push_back(cell.text);
    }
    return texts;
}

TEST(PadStackTable, ListsEachStackHeaderAndItsLines) {
    Texts lines = {"PAD 0 2 N 1.5 90 4 -0.5", "-2 80 RT 45 62 12 4", "3 70 A 40"};
    Texts pins = SamePadsForPins({1, 2, 3, 4, 5, 6, 7, 8});
    lines.insert(lines.end(), pins.begin(), pins.end());
    lines.insert(lines.end(), {"PAD 9 1 P 35", "-1 60 RF 90 120 10.25"});
    const auto list = ReadPadStacks(Decal(4, lines, 10));
    ASSERT_EQ(PadStackTableLineCount(list), 8);

    const auto table = PadStackTableContent(list, 8, 'X', LibraryUnits{0.0254, true});
    EXPECT_EQ(table.rowCount, 8);
    EXPECT_EQ(table.title, "PAD-STACK DEFINITIONS (mi)");
    ASSERT_EQ(table.headings.size(), 8u);
    EXPECT_EQ(table.headings[6], (TableCell{"LEN/ID", 61.5, CellAlign::Centre}));
    ASSERT_EQ(table.rows.size(), 8u);
    const std::vector<TableCell> allPins = {
        {"All", 4.5, CellAlign::Centre},  {"DRL", 22.7, CellAlign::Centre},
        {"1.500", 37, CellAlign::Right},  {"NP", 40, CellAlign::Left},
        {"90.0", 53.5, CellAlign::Right}, {"4.000", 66, CellAlign::Right},
        {"-0.500", 77, CellAlign::Right}};
    EXPECT_TRUE(table.rows[0].stackHeader);
    EXPECT_EQ(table.rows[0].cells, allPins);
    EXPECT_FALSE(table.rows[1].stackHeader);
    EXPECT_EQ(CellTexts(table.rows[1]),
              (Texts{"Top", "80.000", "RT", "45.0", "62.000", "12.000/4"}));
    EXPECT_EQ(CellTexts(table.rows[2]), (Texts{"3", "70.000", "A", "40.000"}));
    EXPECT_EQ(table.rows[2].cells[3].x, 66.0);
    // A range and a round hole: RNG filled, no slot columns.
    EXPECT_EQ(CellTexts(table.rows[3]), (Texts{"1", "8", "DRL", "35.000", "PL", "0.0"}));
    EXPECT_EQ(table.rows[3].cells[1], (TableCell{"8", 14, CellAlign::Centre}));
    EXPECT_EQ(CellTexts(table.rows[5]), (Texts{"Bot", "60.000", "S"}));
    EXPECT_EQ(CellTexts(table.rows[6]), (Texts{"9", "DRL", "35.000", "PL", "0.0"}));
    EXPECT_EQ(CellTexts(table.rows[7]),
              (Texts{"Int", "60.000", "RF", "90.0", "120.000", "10.250"}));
}

TEST(PadStackTable, StopsAfterSixteenRowsOrTheLinesGiven) {
    Texts lines;
    for (int pin = 1; pin <= 6; ++pin) {
        lines.insert(lines.end(), {"PAD " + std::to_string(pin) + " 2 P " + std::to_string(pin),
                                   "-2 60 R", "0 60 R"});
    }
    const auto list = ReadPadStacks(Decal(4, lines, 6));
    ASSERT_EQ(PadStackTableLineCount(list), 18);
    const LibraryUnits mils{0.0254, true};

    const auto table = PadStackTableContent(list, 18, 'M', mils);
    EXPECT_EQ(table.rowCount, 16);
    EXPECT_EQ(table.title, "PAD-STACK DEFINITIONS (mm)");
    ASSERT_EQ(table.rows.size(), 16u);
    EXPECT_EQ(CellTexts(table.rows[15]), (Texts{"6", "DRL", "0.152", "PL", "0.0"}));

    EXPECT_EQ(PadStackTableContent(list, 5, 'M', mils).rows.size(), 5u);
    EXPECT_TRUE(PadStackTableContent(list, -3, 'M', mils).rows.empty());
    EXPECT_TRUE(PadStackTableContent({}, 4, 'M', mils).rows.empty());
}

}  // namespace
}  // namespace zantor
