#include "library/pad_stacks.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "common/errors.h"

namespace zantor {
namespace {

// A decal record whose body is one terminal line followed by `stackLines`.
DecalRecord Decal(int version, std::vector<std::string> stackLines, std::uint16_t stacks) {
    DecalRecord record;
    record.header.version = version;
    record.header.dialect = DialectFor(version, false);
    record.fileName = "lib.d";
    record.name = "SO8";
    record.unitLetter = "I";
    record.unitFactor = 0.0254;
    record.headerLineNumber = 40;
    record.counts.terminals = 1;
    record.counts.stacks = stacks;
    record.lines.push_back("T0 0 0 0 1");
    record.firstTerminal = 0;
    record.firstStack = 1;
    for (auto& line : stackLines) {
        record.lines.push_back(std::move(line));
    }
    return record;
}

// Pins 1..count with the same two-line stack each.
std::vector<std::string> SamePadsForPins(const std::vector<int>& pins) {
    std::vector<std::string> lines;
    for (int pin : pins) {
        lines.push_back("PAD " + std::to_string(pin) + " 2 P 35 0 0 0");
        lines.push_back("-2 60 R");
        lines.push_back("0 60 S");
    }
    return lines;
}

std::vector<std::pair<int, int>> Ranges(const PadStackList& list) {
    std::vector<std::pair<int, int>> ranges;
    for (const auto& entry : list) {
        ranges.emplace_back(entry.pin, entry.pinLast);
    }
    return ranges;
}

using Ranges_t = std::vector<std::pair<int, int>>;

TEST(ReadPadStacks, Version4TakesTheDrillFromTheStackHeader) {
    auto list = ReadPadStacks(
        Decal(4, {"PAD 6 2 Px 0.5   30     1.6   0.2", "-2 1.2 R", "0 1.1 OF 90 2.5 -0.3"}, 1));
    ASSERT_EQ(list.size(), 2u);
    for (const auto& entry : list) {
        EXPECT_EQ(entry.pin, 6);
        EXPECT_EQ(entry.pinLast, 6);
        EXPECT_EQ(entry.plated, "P");
        EXPECT_DOUBLE_EQ(entry.drill, 0.5);
        EXPECT_DOUBLE_EQ(entry.drillOri, 30.0);
        EXPECT_DOUBLE_EQ(entry.drillLength, 1.6);
        EXPECT_DOUBLE_EQ(entry.drillOffset, 0.2);
    }
    EXPECT_EQ(list[0].layer, -2);
    EXPECT_DOUBLE_EQ(list[0].size, 1.2);
    EXPECT_EQ(list[1].layer, 0);
    EXPECT_EQ(list[1].shape, "OF");

    // A dialect without drills leaves the header's further words unread.
    auto record = Decal(4, {"PAD 0 1 N 0.8", "-2 1.5 R 7 P"}, 1);
    record.header.dialect.drillPlace = DrillPlace::Nowhere;
    auto plain = ReadPadStacks(record);
    ASSERT_EQ(plain.size(), 1u);
    EXPECT_EQ(plain[0].plated, "");
    EXPECT_EQ(plain[0].drill, 0.0);
    EXPECT_DOUBLE_EQ(plain[0].size, 1.5);
}

TEST(ReadPadStacks, Version3TakesTheDrillFromEveryStackLine) {
    auto list = ReadPadStacks(Decal(
        3, {"PAD 1 3", "-2 62 R 35 Plated", "-1 80 RT 45 62 12 4 36 N", "0 62 A 30 37 P"}, 1));
    ASSERT_EQ(list.size(), 3u);
    EXPECT_DOUBLE_EQ(list[0].drill, 35.0);
    EXPECT_EQ(list[0].plated, "P");
    EXPECT_EQ(list[1].shape, "RT");
    EXPECT_DOUBLE_EQ(list[1].ori, 45.0);
    EXPECT_DOUBLE_EQ(list[1].lenOrInner, 62.0);
    EXPECT_DOUBLE_EQ(list[1].offsetOrSpoke, 12.0);
    EXPECT_EQ(list[1].spokes, 4);
    EXPECT_DOUBLE_EQ(list[1].drill, 36.0);
    EXPECT_EQ(list[1].plated, "N");
    EXPECT_DOUBLE_EQ(list[2].lenOrInner, 30.0);
    EXPECT_DOUBLE_EQ(list[2].drill, 37.0);
    EXPECT_EQ(list[2].plated, "P");
}

TEST(ReadPadStacks, EachShapeReadsItsOwnFields) {
    auto list = ReadPadStacks(Decal(
        4,
        {"PAD 1 8 P 0", "-2 10 R 99", "-2 11 S 99", "-2 12 A 7 99", "-2 13 OF 90 40 -5 99",
         "-2 14 RF 45.5 30 2.5 99", "-1 15 RTX 30 20 3 8 99", "-1 16 ST 0 21 4 2 99", "0 17 O 99"},
        1));
    ASSERT_EQ(list.size(), 8u);
    const std::vector<std::string> shapes = {"R", "S", "A", "OF", "RF", "RT", "ST", "O"};
    for (std::size_t i = 0; i < list.size(); ++i) {
        EXPECT_EQ(list[i].shape, shapes[i]);
        EXPECT_DOUBLE_EQ(list[i].size, 10.0 + static_cast<double>(i));
    }
    // Words after a shape's own fields are not read into the entry.
    for (std::size_t i : {0u, 1u, 7u}) {
        EXPECT_EQ(list[i].ori, 0.0);
        EXPECT_EQ(list[i].lenOrInner, 0.0);
        EXPECT_EQ(list[i].offsetOrSpoke, 0.0);
    }
    EXPECT_DOUBLE_EQ(list[2].lenOrInner, 7.0);
    EXPECT_EQ(list[2].ori, 0.0);
    EXPECT_EQ(list[2].offsetOrSpoke, 0.0);
    EXPECT_DOUBLE_EQ(list[3].ori, 90.0);
    EXPECT_DOUBLE_EQ(list[3].lenOrInner, 40.0);
    EXPECT_DOUBLE_EQ(list[3].offsetOrSpoke, -5.0);
    EXPECT_EQ(list[3].spokes, 0);
    EXPECT_DOUBLE_EQ(list[4].ori, 45.5);
    EXPECT_DOUBLE_EQ(list[4].offsetOrSpoke, 2.5);
    EXPECT_DOUBLE_EQ(list[5].ori, 30.0);
    EXPECT_DOUBLE_EQ(list[5].lenOrInner, 20.0);
    EXPECT_DOUBLE_EQ(list[5].offsetOrSpoke, 3.0);
    EXPECT_EQ(list[5].spokes, 8);
    EXPECT_EQ(list[6].spokes, 2);
    EXPECT_EQ(list[6].layer, -1);
    EXPECT_EQ(list[7].layer, 0);
    for (const auto& entry : list) {
        EXPECT_EQ(entry.drill, 0.0);
    }
}

TEST(ReadPadStacks, MissingWordsReadAsZeroOrEmpty) {
    auto list = ReadPadStacks(Decal(4, {"PAD 3 2", "-2 1.5 RT", ""}, 1));
    ASSERT_EQ(list.size(), 2u);
    EXPECT_EQ(list[0].plated, "");
    EXPECT_EQ(list[0].drill, 0.0);
    EXPECT_EQ(list[0].spokes, 0);
    EXPECT_EQ(list[1].layer, 0);
    EXPECT_EQ(list[1].shape, "");
}

TEST(ReadPadStacks, MergesIdenticalConsecutiveStacksIntoRanges) {
    auto eight = ReadPadStacks(Decal(4, SamePadsForPins({1, 2, 3, 4, 5, 6, 7, 8}), 8));
    EXPECT_EQ(Ranges(eight), (Ranges_t{{1, 8}, {1, 8}}));

    auto gap = ReadPadStacks(Decal(4, SamePadsForPins({1, 2, 4}), 3));
    EXPECT_EQ(Ranges(gap), (Ranges_t{{1, 2}, {1, 2}, {4, 4}, {4, 4}}));

    // A repeated pin number is no continuation either.
    auto repeated = ReadPadStacks(Decal(4, SamePadsForPins({1, 1}), 2));
    EXPECT_EQ(Ranges(repeated), (Ranges_t{{1, 1}, {1, 1}, {1, 1}, {1, 1}}));
}

TEST(ReadPadStacks, StacksThatDifferAreNotMerged) {
    const std::vector<std::string> variants = {
        "PAD 2 2 N 35 0 0 0\n-2 60 R\n0 60 S",  // plated flag
        "PAD 2 2 P 36 0 0 0\n-2 60 R\n0 60 S",  // drill
        "PAD 2 2 P 35 1 0 0\n-2 60 R\n0 60 S",  // drill orientation
        "PAD 2 2 P 35 0 0 0\n-1 60 R\n0 60 S",  // layer
        "PAD 2 2 P 35 0 0 0\n-2 61 R\n0 60 S",  // size
        "PAD 2 2 P 35 0 0 0\n-2 60 R\n0 60 O",  // shape
        "PAD 2 1 P 35 0 0 0\n-2 60 R",          // line count
        "PAD 2 3 P 35 0 0 0\n-2 60 R\n0 60 S\n5 60 R",
    };
    for (const auto& variant : variants) {
        auto lines = SamePadsForPins({1});
        std::string rest = variant;
        while (!rest.empty()) {
            auto end = rest.find('\n');
            lines.push_back(rest.substr(0, end));
            rest = end == std::string::npos ? "" : rest.substr(end + 1);
        }
        auto list = ReadPadStacks(Decal(4, lines, 2));
        ASSERT_GE(list.size(), 3u) << variant;
        EXPECT_EQ(list[0].pinLast, 1) << variant;
        EXPECT_EQ(list.back().pin, 2) << variant;
        EXPECT_EQ(list.back().pinLast, 2) << variant;
    }

    // Thermal fields take part in the comparison.
    auto thermals = ReadPadStacks(Decal(
        4, {"PAD 1 1 P 35", "-1 80 RT 45 62 12 4", "PAD 2 1 P 35", "-1 80 RT 45 62 12 2"}, 2));
    EXPECT_EQ(Ranges(thermals), (Ranges_t{{1, 1}, {2, 2}}));

    // After a stack that differs, merging goes on against that stack.
    auto lines = SamePadsForPins({1, 2});
    lines.insert(lines.end(), {"PAD 3 1 P 35", "-2 70 R", "PAD 4 1 P 35", "-2 70 R"});
    EXPECT_EQ(Ranges(ReadPadStacks(Decal(4, lines, 4))), (Ranges_t{{1, 2}, {1, 2}, {3, 4}}));
}

TEST(ReadPadStacks, StopsAtTheEndOfAShortBody) {
    // The second stack promises three lines and has one; a third stack is counted but missing.
    auto list = ReadPadStacks(Decal(4, {"PAD 0 1 P 35", "-2 60 R", "PAD 1 3 P 35", "-2 70 R"}, 3));
    EXPECT_EQ(Ranges(list), (Ranges_t{{0, 0}, {1, 1}}));

    auto empty = ReadPadStacks(Decal(4, {}, 2));
    EXPECT_TRUE(empty.empty());
}

TEST(ReadPadStacks, ANumberFieldThatIsNoNumberNamesDecalAndLine) {
    // Body line 2 of the record, two lines below its header on line 40.
    try {
        ReadPadStacks(Decal(4, {"PAD 1 1 P 3x5", "-2 60 R"}, 1));
        FAIL() << "no error";
    } catch (const ConversionError& error) {
        EXPECT_EQ(error.file(), "lib.d");
        EXPECT_EQ(error.line(), 42);
        EXPECT_STREQ(error.what(), "lib.d:42: Pad stack of decal \"SO8\": \"3x5\" is not a number");
    }
    EXPECT_THROW(ReadPadStacks(Decal(4, {"PAD 1 1 P 35", "top 60 R"}, 1)), ConversionError);
    EXPECT_THROW(ReadPadStacks(Decal(4, {"PAD 1 1 P 35", "-1 60 RT 0 1 1 many"}, 1)),
                 ConversionError);
    EXPECT_THROW(ReadPadStacks(Decal(3, {"PAD 1 1", "-1 60 R P 35"}, 1)), ConversionError);
    EXPECT_THROW(ReadPadStacks(Decal(4, {"PAD A1 1 P 35", "-2 60 R"}, 1)), ConversionError);
    EXPECT_THROW(ReadPadStacks(Decal(4, {"PAD 1 1", "-1 60 RT 0 1 1 70000"}, 1)), RangeError);
    EXPECT_THROW(ReadPadStacks(Decal(4, {"PAD 3000000000 1", "-1 60 R"}, 1)), RangeError);
}

TEST(FindStackEntry, UsesThePinsStackOrTheDefaultStack) {
    auto lines = SamePadsForPins({1, 2, 3});
    lines.insert(lines.begin(), {"PAD 0 2 N 0", "-2 50 S", "-1 50 S"});
    lines.insert(lines.end(), {"PAD 7 1 P 0", "0 20 R", "PAD 8 1 P 0", "-1 20 O"});
    const auto list = ReadPadStacks(Decal(4, lines, 6));
    ASSERT_EQ(Ranges(list), (Ranges_t{{0, 0}, {0, 0}, {1, 3}, {1, 3}, {7, 7}, {8, 8}}));

    EXPECT_EQ(FindStackEntry(list, 2, -2), &list[2]);
    EXPECT_EQ(FindStackEntry(list, 3, 0), &list[3]);
    EXPECT_EQ(FindStackEntry(list, 7, 0), &list[4]);
    // Pins without a stack of their own take the default stack's lines.
    EXPECT_EQ(FindStackEntry(list, 4, -2), &list[0]);
    EXPECT_EQ(FindStackEntry(list, 4, -1), &list[1]);
    // ... and have no pad where the default stack has none, although a later stack has one.
    EXPECT_EQ(FindStackEntry(list, 4, 0), nullptr);
    // A stack never lends a line of the stack after it.
    EXPECT_EQ(FindStackEntry(list, 7, -1), nullptr);
    EXPECT_EQ(FindStackEntry(list, 1, -1), nullptr);
    EXPECT_EQ(FindStackEntry(list, 1, 5), nullptr);
}

TEST(FindStackEntry, FallsBackToTheHeadOfTheListEvenWithoutPinZero) {
    const auto list =
        ReadPadStacks(Decal(4, {"PAD 5 1 P 0", "-2 20 R", "PAD 9 2 P 0", "-2 30 R", "0 30 R"}, 2));
    EXPECT_EQ(FindStackEntry(list, 1, -2), &list[0]);
    EXPECT_EQ(FindStackEntry(list, 1, 0), nullptr);
    EXPECT_EQ(FindStackEntry(list, 9, 0), &list[2]);
    EXPECT_EQ(FindStackEntry(PadStackList{}, 1, -2), nullptr);
}

TEST(UnitSuffix, NamesTheChosenOrTheLibrarysUnit) {
    EXPECT_EQ(UnitSuffix('I', false), "mi");
    EXPECT_EQ(UnitSuffix('M', true), "mm");
    EXPECT_EQ(UnitSuffix('X', true), "mi");
    EXPECT_EQ(UnitSuffix('X', false), "mm");
}

TEST(FormatMeasure, ConvertsBetweenMilsAndMillimetres) {
    const LibraryUnits mils{0.0254, true};
    const LibraryUnits millimetres{1.0, false};
    EXPECT_EQ(FormatMeasure('I', 62.0, mils), "62.000");
    EXPECT_EQ(FormatMeasure('X', 62.0, mils), "62.000");
    EXPECT_EQ(FormatMeasure('M', 100.0, mils), "2.540");
    EXPECT_EQ(FormatMeasure('M', 1.25, millimetres), "1.250");
    EXPECT_EQ(FormatMeasure('X', 1.25, millimetres), "1.250");
    EXPECT_EQ(FormatMeasure('I', 1.0, millimetres), "39.370");
    EXPECT_EQ(FormatMeasure('I', -2.5, millimetres), "-98.425");
    EXPECT_EQ(FormatMeasure('M', 0.0001, millimetres), "0.000");
    EXPECT_EQ(FormatMeasure('M', -0.0001, millimetres), "0.000");
}

TEST(FormatMeasure, CutsToSevenCharacters) {
    const LibraryUnits millimetres{1.0, false};
    EXPECT_EQ(FormatMeasure('M', 12345.678, millimetres), "12345.6");
    EXPECT_EQ(FormatMeasure('M', -1234.5, millimetres), "-1234.5");
    EXPECT_EQ(FormatMeasure('M', 123456789.0, millimetres), "1234567");
    EXPECT_EQ(FormatMeasure('I', 1000.0, millimetres), "39370.0");
}

TEST(FormatMeasure, ConvertsBasicUnitsThroughMillimetres) {
    DecalRecord record;
    record.unitLetter = "I";
    record.unitFactor = 6.666666666666667e-07;
    const LibraryUnits basic = LibraryUnitsOf(record);
    EXPECT_TRUE(basic.mils);
    EXPECT_EQ(FormatMeasure('X', 3810000.0, basic), "100.000");  // 0.1 inch
    EXPECT_EQ(FormatMeasure('M', 3810000.0, basic), "2.540");
    record.unitLetter = "M";
    EXPECT_EQ(FormatMeasure('X', 750000.0, LibraryUnitsOf(record)), "0.500");
    EXPECT_EQ(UnitSuffix('X', LibraryUnitsOf(record).mils), "mm");
}

std::vector<std::string> Texts(const PadStackTableRow& row) {
    std::vector<std::string> texts;
    for (const auto& cell : row.cells) {
        texts.push_back(cell.text);
    }
    return texts;
}

using Texts_t = std::vector<std::string>;

TEST(PadStackTable, ListsEveryStackWithItsLines) {
    auto lines = SamePadsForPins({1, 2, 3, 4, 5, 6, 7, 8});
    lines.insert(lines.begin(), {"PAD 0 2 N 1.5 90 4 -0.5", "-2 80 RT 45 62 12 4", "3 70 A 40"});
    lines.insert(lines.end(), {"PAD 9 1 P 35 0 0 0", "-1 60 RF 90 120 10.25"});
    const auto list = ReadPadStacks(Decal(4, lines, 10));
    ASSERT_EQ(PadStackTableLineCount(list), 8);

    const auto table =
        PadStackTableContent(list, PadStackTableLineCount(list), 'X', LibraryUnits{0.0254, true});
    EXPECT_EQ(table.rowCount, 8);
    EXPECT_EQ(table.title, "PAD-STACK DEFINITIONS (mi)");
    ASSERT_EQ(table.headings.size(), 8u);
    EXPECT_EQ(table.headings[6], (TableCell{"LEN/ID", 61.5, CellAlign::Centre}));
    ASSERT_EQ(table.rows.size(), 8u);

    EXPECT_TRUE(table.rows[0].stackHeader);
    EXPECT_EQ(Texts(table.rows[0]),
              (Texts_t{"All", "DRL", "1.500", "NP", "90.0", "4.000", "-0.500"}));
    EXPECT_EQ(table.rows[0].cells[0], (TableCell{"All", 4.5, CellAlign::Centre}));
    EXPECT_EQ(table.rows[0].cells[2], (TableCell{"1.500", 37.0, CellAlign::Right}));
    EXPECT_EQ(table.rows[0].cells[3], (TableCell{"NP", 40.0, CellAlign::Left}));
    EXPECT_EQ(table.rows[0].cells[5], (TableCell{"4.000", 66.0, CellAlign::Right}));
    EXPECT_EQ(table.rows[0].cells[6], (TableCell{"-0.500", 77.0, CellAlign::Right}));
    EXPECT_FALSE(table.rows[1].stackHeader);
    EXPECT_EQ(Texts(table.rows[1]), (Texts_t{"Top", "80.000", "RT", "45.0", "62.000", "12.000/4"}));
    EXPECT_EQ(table.rows[1].cells[0], (TableCell{"Top", 20.0, CellAlign::Left}));
    EXPECT_EQ(table.rows[1].cells[3], (TableCell{"45.0", 53.5, CellAlign::Right}));
    EXPECT_EQ(Texts(table.rows[2]), (Texts_t{"3", "70.000", "A", "40.000"}));
    EXPECT_EQ(table.rows[2].cells[3].x, 66.0);

    // The merged range, with a round hole: no slot columns.
    EXPECT_EQ(Texts(table.rows[3]), (Texts_t{"1", "8", "DRL", "35.000", "PL", "0.0"}));
    EXPECT_EQ(table.rows[3].cells[1], (TableCell{"8", 14.0, CellAlign::Centre}));
    EXPECT_EQ(Texts(table.rows[4]), (Texts_t{"Top", "60.000", "R"}));
    EXPECT_EQ(Texts(table.rows[5]), (Texts_t{"Bot", "60.000", "S"}));
    EXPECT_EQ(Texts(table.rows[6]), (Texts_t{"9", "DRL", "35.000", "PL", "0.0"}));
    EXPECT_EQ(Texts(table.rows[7]), (Texts_t{"Int", "60.000", "RF", "90.0", "120.000", "10.250"}));
}

TEST(PadStackTable, StopsAfterSixteenRows) {
    std::vector<std::string> lines;
    for (int pin = 1; pin <= 6; ++pin) {
        lines.push_back("PAD " + std::to_string(pin) + " 2 P " + std::to_string(pin));
        lines.push_back("-2 60 R");
        lines.push_back("0 60 R");
    }
    const auto list = ReadPadStacks(Decal(4, lines, 6));
    ASSERT_EQ(PadStackTableLineCount(list), 18);
    const LibraryUnits mils{0.0254, true};

    const auto table = PadStackTableContent(list, 18, 'M', mils);
    EXPECT_EQ(table.rowCount, 16);
    EXPECT_EQ(table.title, "PAD-STACK DEFINITIONS (mm)");
    ASSERT_EQ(table.rows.size(), 16u);
    EXPECT_EQ(Texts(table.rows[15]), (Texts_t{"6", "DRL", "0.152", "PL", "0.0"}));

    // The count the job passes in limits the rows too, even inside a stack.
    EXPECT_EQ(PadStackTableContent(list, 5, 'M', mils).rows.size(), 5u);
    EXPECT_EQ(PadStackTableContent(list, 0, 'M', mils).rowCount, 0);
    EXPECT_TRUE(PadStackTableContent(list, -3, 'M', mils).rows.empty());
    EXPECT_TRUE(PadStackTableContent({}, 4, 'M', mils).rows.empty());
}

}  // namespace
}  // namespace zantor
