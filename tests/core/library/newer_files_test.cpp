// Decal records of files written after version 4: libraries of V9, PCB files of V5.0, V2005.0,
// V9.5, V10.0 and PADS Layout, each framed and laid out by its dialect.

#include <gtest/gtest.h>

#include <iomanip>
#include <sstream>
#include <string>
#include <vector>

#include "common/errors.h"
#include "library/decal_reader.h"
#include "library/pad_stacks.h"
#include "support/test_support.h"

namespace zantor {
namespace {

using Texts = std::vector<std::string>;

std::filesystem::path Newer(const std::string& name) {
    return test::DataDir() / "library" / "newer" / name;
}

struct Sections {
    std::size_t lines, firstPiece, firstText, firstTerminal, firstStack, endOfStacks;
    bool operator==(const Sections&) const = default;
};

Sections SectionsOf(const DecalRecord& record) {
    return {record.lines.size(),  record.firstPiece, record.firstText,
            record.firstTerminal, record.firstStack, record.endOfStacks};
}

std::vector<int> CountsOf(const DecalRecord& record) {
    const DecalCounts& c = record.counts;
    return {c.attributes, c.labels, c.pieces, c.texts, c.terminals, c.stacks};
}

std::vector<DecalRecord> AllRecords(const std::filesystem::path& file) {
    DecalReader reader(file);
    std::vector<DecalRecord> records;
    DecalRecord record;
    while (reader.NextRecord(record)) {
        records.push_back(record);
    }
    return records;
}

Texts Names(const std::vector<DecalRecord>& records) {
    Texts names;
    for (const DecalRecord& record : records) {
        names.push_back(record.name);
    }
    return names;
}

// The stacks as "pins layer size shape corner | plated drill slot-length".
Texts Stacks(const DecalRecord& record) {
    Texts texts;
    for (const PadStackEntry& e : ReadPadStacks(record)) {
        std::ostringstream out;
        out << std::setprecision(10);
        out << e.pin << ".." << e.pinLast << " " << e.layer << " " << e.size << " " << e.shape
            << " " << e.ori << "/" << e.lenOrInner << "/" << e.offsetOrSpoke << "/" << e.spokes
            << " c" << e.corner << " | " << e.plated << " " << e.drill << " " << e.drillOri << "/"
            << e.drillLength << "/" << e.drillOffset;
        texts.push_back(out.str());
    }
    return texts;
}

TEST(NewerLibrary, RecordsAreFramedByTheirCounts) {
    DecalReader reader(Newer("v9_library.d"));
    EXPECT_EQ(reader.Header().version, 5);
    EXPECT_EQ(reader.Header().dialect.framing, Framing::Counts);

    const auto records = AllRecords(Newer("v9_library.d"));
    // FINGER follows the file header without a blank line; ONE, TWO and COPPER follow each other
    // directly; "*END*" follows COPPER's last piece, and the remarks after it are no records.
    ASSERT_EQ(Names(records), (Texts{"FINGER", "ONE", "TWO", "COPPER"}));

    const DecalRecord& finger = records[0];
    EXPECT_EQ(finger.headerLineNumber, 2);
    EXPECT_EQ(CountsOf(finger), (std::vector<int>{1, 1, 3, 1, 2, 2}));
    // TIMESTAMP, one attribute line, one label of two lines, then the pieces.
    EXPECT_EQ(SectionsOf(finger), (Sections{34, 4, 18, 20, 22, 34}));
    EXPECT_EQ(finger.lines[finger.firstPiece], "CLOSED 5 0.1 20 -1");
    EXPECT_EQ(finger.lines[finger.firstTerminal + 1], "T1.5 0 1.6 0.2 MH2");

    EXPECT_EQ(records[1].lines, (Texts{"T0 0 0 0 1"}));
    EXPECT_EQ(SectionsOf(records[1]), (Sections{1, 0, 0, 0, 1, 1}));
    EXPECT_EQ(records[2].lines, (Texts{"T100 0 100 0 A"}));
    EXPECT_EQ(records[2].headerLineNumber, 40);

    const DecalRecord& copper = records[3];
    EXPECT_EQ(copper.lines.size(), 15u);  // the TIMESTAMP line and five pieces, up to "*END*"
    EXPECT_EQ(copper.firstPiece, 1u);
    EXPECT_EQ(copper.endOfStacks, 15u);
    EXPECT_EQ(reader.CurrentLine(), "*PADS-LIBRARY-PCB-DECALS-V9*");  // untouched by AllRecords
}

TEST(NewerLibrary, StacksCarryHeaderDrillsSlotsAndCornersBeforeTheFinger) {
    const auto records = AllRecords(Newer("v9_library.d"));
    ASSERT_FALSE(records.empty());
    EXPECT_EQ(
        Stacks(records[0]),
        (Texts{"0..0 -2 1.2 S 0/0/0/0 c0.1 | P 0.6 0/0/0", "0..0 -1 1.2 R 0/0/0/0 c0 | P 0.6 0/0/0",
               "0..0 0 1.2 R 0/0/0/0 c0 | P 0.6 0/0/0", "0..0 21 1.3 S 0/0/0/0 c0.1 | P 0.6 0/0/0",
               // Corner 0.2 first, then orientation 90, length 2.4, offset 0.1.
               "2..2 -2 1 RF 90/2.4/0.1/0 c0.2 | N 0.8 90/2/0.1",
               "2..2 -1 1 OF 90/2.4/0.1/0 c0 | N 0.8 90/2/0.1",
               "2..2 -1 0.9 RT 45/1.5/0.2/4 c0 | N 0.8 90/2/0.1",
               "2..2 0 1 OF 90/2.4/0.1/0 c0 | N 0.8 90/2/0.1",
               "2..2 23 1.1 RF 90/2.5/0.1/0 c0 | N 0.8 90/2/0.1",
               "2..2 28 1.1 RF 90/2.5/0.1/0 c0 | N 0.8 90/2/0.1"}));
    // With two lines for the inner layer the first one is the pad there.
    const PadStackList stacks = ReadPadStacks(records[0]);
    ASSERT_NE(FindStackEntry(stacks, 2, -1), nullptr);
    EXPECT_EQ(FindStackEntry(stacks, 2, -1)->shape, "OF");
    EXPECT_EQ(FindStackEntry(stacks, 1, 28), nullptr);
}

TEST(NewerLibrary, UnitsComeFromEachDecalsLetter) {
    const auto records = AllRecords(Newer("v9_library.d"));
    ASSERT_EQ(records.size(), 4u);
    EXPECT_DOUBLE_EQ(records[0].unitFactor, 1.0);
    EXPECT_DOUBLE_EQ(records[1].unitFactor, 0.0254);
}

TEST(NewerLibrary, SearchesGoRecordByRecord) {
    DecalReader reader(Newer("v9_library.d"));
    DecalRecord record;
    // From the file's first line, past the header line.
    ASSERT_TRUE(reader.FindDecal("FINGER"));
    EXPECT_EQ(reader.CurrentLineNumber(), 2);
    reader.ReadRecord(record);
    // The record ended at the blank line after it; TWO is the second record after it.
    ASSERT_TRUE(reader.FindDecal("TWO"));
    EXPECT_EQ(reader.CurrentLineNumber(), 40);
    reader.ReadRecord(record);
    EXPECT_EQ(reader.CurrentLine(), "COPPER I 0 0 0 0 5 0 0 0 0");
    ASSERT_TRUE(reader.FindDecal("COPPER"));
    EXPECT_EQ(reader.CurrentLineNumber(), 42);

    // Body lines are not headers: a label name or a text is not found, and the search ends at
    // "*END*" without reading the remarks after it.
    EXPECT_FALSE(reader.FindDecalFromStart("REF-DES"));
    EXPECT_FALSE(reader.FindDecalFromStart("A1"));
    EXPECT_EQ(reader.CurrentLine(), "*END*");
    EXPECT_FALSE(reader.FindDecalFromStart("model.stp/0/0/0/0/0/0"));
    ASSERT_TRUE(reader.FindDecalFromStart("ONE"));
    EXPECT_EQ(reader.CurrentLineNumber(), 38);
    reader.RestartAtDecals();
    EXPECT_FALSE(reader.FindDecal("*END*"));
}

TEST(NewerPcb, V2005BasicFileWithFontLinesAndLabelsBeforeTheTerminals) {
    const auto records = AllRecords(Newer("v2005_basic.asc"));
    ASSERT_EQ(Names(records), (Texts{"RELAY"}));  // the parttype section ends the decals
    const DecalRecord& relay = records[0];
    EXPECT_EQ(relay.headerLineNumber, 11);
    // BASIC units whatever the letter says.
    EXPECT_EQ(relay.unitLetter, "I");
    EXPECT_DOUBLE_EQ(relay.unitFactor, 6.666666666666667e-07);
    EXPECT_EQ(CountsOf(relay), (std::vector<int>{0, 2, 2, 1, 3, 3}));
    // A text of three lines, two labels of three lines each, then the terminals.
    EXPECT_EQ(SectionsOf(relay), (Sections{34, 0, 10, 19, 22, 34}));
    EXPECT_EQ(relay.lines[relay.firstTerminal], "T1905000 2857500 1905000 2857500");
    // Drills straight after the shape fields; no corner radius in this release.
    EXPECT_EQ(Stacks(relay), (Texts{"0..0 -2 2286000 R 0/0/0/0 c0 | P 1143000 0/0/0",
                                    "0..0 -1 2286000 R 0/0/0/0 c0 | P 1143000 0/0/0",
                                    "0..0 0 2286000 R 0/0/0/0 c0 | P 1143000 0/0/0",
                                    "1..1 -2 2286000 S 0/0/0/0 c0 | P 1143000 0/0/0",
                                    "1..1 -1 2286000 S 0/0/0/0 c0 | P 1143000 0/0/0",
                                    "1..1 0 2286000 S 0/0/0/0 c0 | P 1143000 0/0/0",
                                    "3..3 -2 1524000 OF 90/3048000/0/0 c0 | N 1143000 0/0/0",
                                    "3..3 -1 1524000 OF 90/3048000/0/0 c0 | N 1143000 0/0/0",
                                    "3..3 0 1524000 OF 90/3048000/0/0 c0 | N 1143000 0/0/0"}));
}

TEST(NewerPcb, V5FileHasTwoLineTextsAndLabelsAndTheUnitsOfItsHeader) {
    const auto records = AllRecords(Newer("v5_mils.asc"));
    ASSERT_EQ(Names(records), (Texts{"HDR2"}));
    const DecalRecord& header = records[0];
    EXPECT_EQ(SectionsOf(header), (Sections{21, 0, 9, 13, 15, 21}));
    // MILS in the file header: the "M" of the decal does not make it millimetres.
    EXPECT_DOUBLE_EQ(header.unitFactor, 0.0254);
    EXPECT_EQ(
        Stacks(header),
        (Texts{"0..0 -2 60 S 0/0/0/0 c0 | P 35 0/0/0", "0..0 -1 60 R 0/0/0/0 c0 | P 35 0/0/0",
               "0..0 0 60 R 0/0/0/0 c0 | P 35 0/0/0", "2..2 -2 60 RF 90/120/0/0 c0 | N 35 0/0/0"}));
}

TEST(NewerPcb, V95MetricFileWithCornersSlotsAntiPadsAndBackToBackRecords) {
    DecalReader reader(Newer("v95_metric.asc"));
    reader.PositionAtDecals();
    EXPECT_EQ(reader.CurrentLine(), "SOT I 0 0 5 3 3 1 2");  // right after "*PARTDECAL*"

    const auto records = AllRecords(Newer("v95_metric.asc"));
    ASSERT_EQ(Names(records), (Texts{"SOT", "MARK"}));
    const DecalRecord& sot = records[0];
    EXPECT_DOUBLE_EQ(sot.unitFactor, 1.0);  // METRIC, though the letter says mils
    EXPECT_EQ(SectionsOf(sot), (Sections{44, 0, 18, 27, 30, 44}));
    EXPECT_EQ(
        Stacks(sot),
        (Texts{"0..0 -2 0.6 RF 0/1.1/0/0 c0.1 | N 0 0/0/0", "0..0 -1 1.5 RA 0/0/0/0 c0 | N 0 0/0/0",
               "0..0 -1 0 R 0/0/0/0 c0 | N 0 0/0/0", "0..0 0 0 R 0/0/0/0 c0 | N 0 0/0/0",
               // A plated drill of 0.7 with a slot of 1.3 at 90 degrees.
               "3..3 -2 1.2 OF 90/2.4/0/0 c0 | P 0.7 90/1.3/0",
               "3..3 -1 1.6 RA 0/0/0/0 c0 | P 0.7 90/1.3/0",
               "3..3 -1 1.4 RT 45/1.8/0.3/4 c0 | P 0.7 90/1.3/0",
               "3..3 0 1.2 OF 90/2.4/0/0 c0 | P 0.7 90/1.3/0",
               // Corner, then the drill without a plated flag: plated.
               "2..2 -2 0.8 S 0/0/0/0 c0.15 | P 0.5 0/0/0",
               "2..2 -1 0.8 S 0/0/0/0 c0.15 | P 0.5 0/0/0",
               "2..2 0 0.8 S 0/0/0/0 c0.15 | P 0.5 0/0/0"}));
    const PadStackList stacks = ReadPadStacks(sot);
    EXPECT_TRUE(IsAntiPad(stacks[1]));
    EXPECT_FALSE(IsAntiPad(stacks[2]));

    EXPECT_EQ(records[1].lines, (Texts{"BRDCIR 2 0.1 -1 20", "-1 0", "1 0"}));
}

TEST(NewerPcb, CutV10HeaderInBasicUnitsWithRecordsWithoutBlankLines) {
    DecalReader reader(Newer("v10_basic_cut.asc"));
    EXPECT_TRUE(reader.Header().basicUnits);
    EXPECT_EQ(reader.Header().release, (FormatRelease{10, 0}));
    const auto records = AllRecords(Newer("v10_basic_cut.asc"));
    ASSERT_EQ(Names(records), (Texts{"TP1", "TP2"}));
    for (const DecalRecord& record : records) {
        EXPECT_DOUBLE_EQ(record.unitFactor, 6.666666666666667e-07) << record.name;
    }
    EXPECT_EQ(SectionsOf(records[0]), (Sections{6, 0, 3, 3, 4, 6}));
    EXPECT_EQ(SectionsOf(records[1]), (Sections{5, 0, 2, 2, 3, 5}));
    EXPECT_EQ(Stacks(records[0]), (Texts{"0..0 -2 2399995 R 0/0/0/0 c0 | P 1499997 0/0/0"}));
    ASSERT_TRUE(reader.FindDecalFromStart("TP2"));
    EXPECT_EQ(reader.CurrentLineNumber(), 10);
}

TEST(NewerPcb, PadsLayoutFilesAreRead) {
    const auto records = AllRecords(Newer("layout_mm.asc"));
    ASSERT_EQ(Names(records), (Texts{"R0402"}));
    EXPECT_TRUE(records[0].header.pcbFile);
    EXPECT_DOUBLE_EQ(records[0].unitFactor, 1.0);
    EXPECT_EQ(SectionsOf(records[0]), (Sections{12, 0, 6, 6, 8, 12}));
}

TEST(NewerPcb, ACountThatIsNoNumberNamesItsLine) {
    test::TempDir dir;
    auto file = dir.WriteFile("bad.asc",
                              "!PADS-POWERPCB-V9.5-METRIC!\n*PARTDECAL*\nX M 0 0 1 0 0 0 0\n"
                              "OPEN many 0.1 -1 26\n0 0\nY M 0 0 0 0 0 0 0\n");
    try {
        AllRecords(file);
        FAIL() << "no error";
    } catch (const ConversionError& error) {
        EXPECT_EQ(error.line(), 4);
        EXPECT_EQ(error.message(),
                  "the corner count of a piece of decal X is not a number: \"many\"");
    }
    // A search for another decal passes over the broken record up to its blank line.
    auto search = dir.WriteFile("search.asc",
                                "!PADS-POWERPCB-V9.5-METRIC!\n*PARTDECAL*\nX M 0 0 1 0 0 0 0\n"
                                "OPEN many 0.1 -1 26\n0 0\n\nY M 0 0 0 0 0 0 0\n");
    DecalReader reader(search);
    EXPECT_TRUE(reader.FindDecalFromStart("Y"));
}

}  // namespace
}  // namespace zantor
