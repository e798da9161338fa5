#include "library/attribute_scan.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "common/errors.h"
#include "support/recording_messages.h"
#include "support/test_support.h"

namespace zantor::test {
namespace {

std::filesystem::path Fixture(const std::string& name) {
    return DataDir() / "library" / "attributes" / name;
}

// Keeps what the scan showed.
class RecordingDisplay : public ScanDisplay {
  public:
    void Begin() override { calls.push_back("begin"); }
    void ShowItem(std::string_view name) override { calls.push_back(std::string(name)); }
    void End() override { calls.push_back("end"); }
    std::vector<std::string> calls;
};

std::vector<std::string> Names(const AttributeList& attributes) {
    std::vector<std::string> names;
    for (const AttributeEntry& entry : attributes) {
        names.push_back(entry.name);
    }
    return names;
}

std::vector<std::string> Scan(const std::filesystem::path& file, ScanKind kind,
                              AttributeList attributes = {}) {
    ScanDisplay display;
    ScanAttributes(file, kind, attributes, display);
    return Names(attributes);
}

AttributeList Numbered(int count) {
    AttributeList list;
    for (int n = 1; n <= count; ++n) {
        list.push_back({"A" + std::to_string(n), n == 1});
    }
    return list;
}

using Strings = std::vector<std::string>;

TEST(AttributeScan, FindsTheNamesOfEveryFileKindAndVersion) {
    struct Case {
        const char* file;
        ScanKind kind;
        Strings names;
    };
    const Case cases[] = {
        // Quoted names keep their blanks and lose their quotes; names come once.
        {"v4_decals.d", ScanKind::Decals, {"Value", "Part Number", "Height mm"}},
        {"v4_parttypes.p", ScanKind::Parttypes, {"Part Number", "Tolerance", "Voltage Rating"}},
        // The attribute blocks of the PCB file, not the dictionary nor the parts' blocks.
        {"v4_board.asc", ScanKind::Decals, {"Design.Timestamp", "Part Number", "Height"}},
        {"v4_board.asc", ScanKind::Parttypes, {"DFT.Allow Stubs", "Value"}},
        // Newer files: TIMESTAMP lines, counts framing records without blank lines.
        {"v9_decals.d", ScanKind::Decals, {"Geometry.Height", "Manufacturer_Name", "Description"}},
        {"v2007_parttypes.p",
         ScanKind::Parttypes,
         {"Voltage Rating", "Value", "Manufacturer #1", "Cost"}},
        {"v95_board.asc", ScanKind::Parttypes, {"Manufacturer_Name", "Description"}},
        {"v95_board.asc", ScanKind::Decals, {"Geometry.Height"}},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(Scan(Fixture(c.file), c.kind), c.names) << c.file;
    }
}

TEST(AttributeScan, ShowsEachItemCutToItsWidthAndEndsTheDisplay) {
    RecordingDisplay decals;
    AttributeList attributes;
    ScanAttributes(Fixture("v4_decals.d"), ScanKind::Decals, attributes, decals);
    EXPECT_EQ(decals.calls, (Strings{"begin", "R0603", "CONNECTOR_HEADER", "end"}));

    RecordingDisplay parttypes;
    ScanAttributes(Fixture("v4_parttypes.p"), ScanKind::Parttypes, attributes, parttypes);
    EXPECT_EQ(parttypes.calls,
              (Strings{"begin", "RESISTOR_CHIP_0603_WITH_A_NAME_OF_FORTY_", "HEADER", "end"}));

    RecordingDisplay board;
    ScanAttributes(Fixture("v4_board.asc"), ScanKind::Decals, attributes, board);
    EXPECT_EQ(board.calls, (Strings{"begin", "R0603", "R0603", "end"}));
}

TEST(AttributeScan, NewNamesAreAppendedUncheckedAfterTheListHeld) {
    AttributeList attributes = {{"Value", true}, {"Cost", true}};
    ScanDisplay display;
    ScanAttributes(Fixture("v4_decals.d"), ScanKind::Decals, attributes, display);
    const AttributeList expected = {
        {"Value", true}, {"Cost", true}, {"Part Number", false}, {"Height mm", false}};
    EXPECT_EQ(attributes, expected);
}

TEST(AttributeScan, TheLimitOf32HoldsBetweenDecalsButWithinParttypes) {
    // A decal scan looks at the count only between decals: the decal it reads adds all its names.
    Strings decals = Scan(Fixture("v4_decals.d"), ScanKind::Decals, Numbered(31));
    EXPECT_EQ(decals.size(), 33U);
    EXPECT_EQ(decals.back(), "Part Number");
    EXPECT_EQ(Scan(Fixture("v4_decals.d"), ScanKind::Decals, Numbered(32)).size(), 34U);
    EXPECT_EQ(Scan(Fixture("v4_decals.d"), ScanKind::Decals, Numbered(33)).size(), 35U);

    // A parttype scan stops at 32.
    Strings parttypes = Scan(Fixture("v4_parttypes.p"), ScanKind::Parttypes, Numbered(31));
    EXPECT_EQ(parttypes.size(), 32U);
    EXPECT_EQ(parttypes.back(), "Part Number");
    EXPECT_EQ(Scan(Fixture("v4_parttypes.p"), ScanKind::Parttypes, Numbered(32)).size(), 32U);
    EXPECT_EQ(Scan(Fixture("v4_board.asc"), ScanKind::Decals, Numbered(31)).size(), 32U);
}

TEST(AttributeScan, AnEmptyAttributeLineEndsTheScanKeepingWhatWasFound) {
    TempDir dir;
    const auto library = dir.WriteFile(
        "gap.d", "*PADS-LIBRARY-PCB-DECALS-V4*\n\nA M 0 0 3 3 0 0 0 0\nFirst\n\nThird\n\n*END*\n");
    const auto board = dir.WriteFile("gap.asc",
                                     "!PADS-POWERPCB-V4.0-MILS!\n*MISC*\nATTRIBUTE VALUES\n{\n"
                                     "DECAL A\n{\nFirst\n\n}\n}\n*END*\n");
    for (const auto& file : {library, board}) {
        RecordingDisplay display;
        AttributeList attributes;
        EXPECT_THROW(ScanAttributes(file, ScanKind::Decals, attributes, display), RangeError);
        EXPECT_EQ(Names(attributes), Strings{"First"});
        EXPECT_EQ(display.calls.back(), "end");
    }
}

TEST(AttributeScan, PcbFileWithoutAttributeBlocksAddsNothing) {
    TempDir dir;
    const auto noMisc = dir.WriteFile(
        "a.asc", "!PADS-POWERPCB-V4.0-MILS!\n*PARTDECAL*\nDECAL X\n{\nValue\n}\n*END*\n");
    EXPECT_EQ(Scan(noMisc, ScanKind::Decals), Strings{});
    const auto noValues = dir.WriteFile(
        "b.asc", "!PADS-POWERPCB-V9.5-MILS!\n*MISC*\nATTRIBUTE VALE\n{\nDECAL X\n{\nValue\n}\n}\n");
    EXPECT_EQ(Scan(noValues, ScanKind::Decals), Strings{});
}

class ScanFileCommandTest : public ::testing::Test {
  protected:
    void Run(const std::filesystem::path& file, PlotKind kind) {
        display.calls.clear();
        ScanFileCommand(file, kind, attributes, messages, display);
    }
    RecordingMessages messages;
    RecordingDisplay display;
    AttributeList attributes = {{"Old", true}};
};

TEST_F(ScanFileCommandTest, AsksWhetherToEraseTheListAndScansForTheJob) {
    messages.QueueYesNo(false);
    Run(Fixture("v4_decals.d"), PlotKind::Decal);
    EXPECT_EQ(messages.Texts(), Strings{"Erase current attribute-list?"});
    EXPECT_EQ(Names(attributes), (Strings{"Old", "Value", "Part Number", "Height mm"}));
    EXPECT_EQ(display.calls.front(), "begin");

    // The same file again with No changes nothing.
    const AttributeList before = attributes;
    messages.QueueYesNo(false);
    Run(Fixture("v4_decals.d"), PlotKind::Decal);
    EXPECT_EQ(attributes, before);

    messages.QueueYesNo(true);
    Run(Fixture("v4_board.asc"), PlotKind::Parttype);
    EXPECT_EQ(Names(attributes), (Strings{"DFT.Allow Stubs", "Value"}));
}

TEST_F(ScanFileCommandTest, WrongOrMissingFilesAreReportedAndTheIndexJobScansNothing) {
    TempDir dir;
    const auto parttypesOnly = dir.WriteFile("x.p", "7400 DIP14 I TTL 0 1 0 0\nGATE\n");
    const auto decalsOnly = dir.WriteFile("x.d", "DIP14 I 0 0 0 0 0 0 0 0\n");
    const std::string missing = (dir.Path() / "none.d").string();

    Run(missing, PlotKind::Decal);
    Run(parttypesOnly, PlotKind::Decal);
    Run(decalsOnly, PlotKind::Parttype);
    Run(Fixture("v4_decals.d"), PlotKind::Index);
    EXPECT_EQ(messages.Texts(),
              (Strings{"File: " + missing + " not found.", "No decals found in file.",
                       "No parttypes found in file."}));
    EXPECT_EQ(Names(attributes), Strings{"Old"});
    EXPECT_TRUE(display.calls.empty());
}

}  // namespace
}  // namespace zantor::test
