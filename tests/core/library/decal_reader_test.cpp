#include "library/decal_reader.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "common/errors.h"
#include "support/test_support.h"

namespace zantor {
namespace {

std::filesystem::path Fixture(const std::string& name) {
    return test::DataDir() / "library" / name;
}

std::string ReadBytes(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    std::ostringstream bytes;
    bytes << in.rdbuf();
    return bytes.str();
}

// The same text with CRLF line ends turned into LF, or LF into CRLF.
std::string WithLineEnds(const std::string& text, const std::string& end) {
    std::string result;
    for (char c : text) {
        if (c == '\r') {
            continue;
        }
        if (c == '\n') {
            result += end;
        } else {
            result += c;
        }
    }
    return result;
}

struct Sections {
    std::size_t lines, firstPiece, firstText, firstTerminal, firstStack, endOfStacks;
    bool operator==(const Sections&) const = default;
};

Sections SectionsOf(const DecalRecord& record) {
    return {record.lines.size(),  record.firstPiece, record.firstText,
            record.firstTerminal, record.firstStack, record.endOfStacks};
}

void ExpectCounts(const DecalCounts& counts, std::vector<int> expected) {
    EXPECT_EQ((std::vector<int>{counts.attributes, counts.labels, counts.pieces, counts.texts,
                                counts.terminals, counts.stacks}),
              expected);
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

TEST(DecalReaderLibrary, WalksRecordsSeparatedBySeveralBlankLines) {
    DecalReader reader(Fixture("v4_library.d"));
    EXPECT_EQ(reader.Header().version, 4);
    EXPECT_FALSE(reader.Header().pcbFile);

    DecalRecord record;
    ASSERT_TRUE(reader.NextRecord(record));
    EXPECT_EQ(record.name, "FIRST");
    EXPECT_EQ(record.unitLetter, "I");
    EXPECT_DOUBLE_EQ(record.unitFactor, 0.0254);
    EXPECT_EQ(record.headerLineNumber, 3);
    EXPECT_EQ(record.fileName, Fixture("v4_library.d").string());
    ExpectCounts(record.counts, {0, 0, 1, 1, 1, 1});
    EXPECT_EQ(SectionsOf(record), (Sections{8, 0, 3, 5, 6, 8}));
    EXPECT_EQ(record.lines[record.firstTerminal], "T0 0 0 0 1");

    ASSERT_TRUE(reader.NextRecord(record));
    EXPECT_EQ(record.name, "SECOND");
    EXPECT_DOUBLE_EQ(record.unitFactor, 1.0);
    EXPECT_EQ(record.headerLineNumber, 15);
    ExpectCounts(record.counts, {1, 1, 1, 0, 2, 1});
    // One attribute line and one two-line label come before the pieces.
    EXPECT_EQ(SectionsOf(record), (Sections{13, 3, 9, 9, 11, 13}));
    EXPECT_EQ(record.lines[record.firstPiece], "CLOSED 5 0.1 26");
    EXPECT_EQ(record.LineNumberOf(record.firstStack), 27);

    ASSERT_TRUE(reader.NextRecord(record));
    EXPECT_EQ(record.name, "LONG");
    ASSERT_EQ(record.lines.size(), 5u);
    std::string digits;
    for (int i = 0; i < 200; ++i) {
        digits += static_cast<char>('0' + i % 10);
    }
    EXPECT_EQ(record.lines[4], digits);  // the 250-character line keeps its first 200

    ASSERT_TRUE(reader.NextRecord(record));
    EXPECT_EQ(record.name, "SHORT");
    ExpectCounts(record.counts, {0, 0, 5, 2, 9, 3});
    // The counts promise more than the body holds: every later section starts at its end.
    EXPECT_EQ(SectionsOf(record), (Sections{3, 0, 3, 3, 3, 3}));
    LineCursor cursor(record, record.firstTerminal);
    EXPECT_TRUE(cursor.AtEnd());
    EXPECT_EQ(cursor.Take(), "");

    EXPECT_FALSE(reader.NextRecord(record));
    EXPECT_EQ(reader.CurrentLine(), "*END*");
}

TEST(DecalReaderLibrary, CrLfAndLfGiveTheSameRecords) {
    test::TempDir dir;
    for (const char* name : {"v4_library.d", "v3_library.d", "v3_pcb.asc"}) {
        std::string bytes = ReadBytes(Fixture(name));
        auto lf = AllRecords(dir.WriteFile(std::string("lf_") + name, WithLineEnds(bytes, "\n")));
        auto crlf =
            AllRecords(dir.WriteFile(std::string("crlf_") + name, WithLineEnds(bytes, "\r\n")));
        ASSERT_EQ(lf.size(), crlf.size()) << name;
        ASSERT_FALSE(lf.empty()) << name;
        for (std::size_t i = 0; i < lf.size(); ++i) {
            EXPECT_EQ(lf[i].name, crlf[i].name);
            EXPECT_EQ(lf[i].lines, crlf[i].lines);
            EXPECT_EQ(SectionsOf(lf[i]), SectionsOf(crlf[i]));
            EXPECT_EQ(lf[i].headerLineNumber, crlf[i].headerLineNumber);
        }
    }
}

TEST(DecalReaderLibrary, VersionThreeLibraryWithCrLf) {
    auto records = AllRecords(Fixture("v3_library.d"));
    ASSERT_EQ(records.size(), 2u);
    EXPECT_EQ(records[0].header.version, 3);
    EXPECT_EQ(records[0].header.dialect.drillPlace, DrillPlace::EveryStackLine);
    EXPECT_EQ(records[0].name, "SOT23");
    ExpectCounts(records[0].counts, {0, 0, 2, 0, 3, 2});
    EXPECT_EQ(SectionsOf(records[0]), (Sections{15, 0, 6, 6, 9, 15}));
    EXPECT_EQ(records[0].lines[records[0].firstStack + 4], "PAD 3 1");
    EXPECT_EQ(records[1].name, "AXIAL400");
    EXPECT_EQ(SectionsOf(records[1]), (Sections{11, 0, 3, 5, 7, 11}));
    EXPECT_EQ(records[1].lines.back(), "0 65 R 35 P");
}

TEST(DecalReaderSearch, FindsNamesInFileOrderFromTheCurrentLine) {
    DecalReader reader(Fixture("v4_library.d"));
    DecalRecord record;
    ASSERT_TRUE(reader.FindDecal("FIRST"));
    EXPECT_EQ(reader.CurrentLineNumber(), 3);
    reader.ReadRecord(record);
    EXPECT_EQ(record.name, "FIRST");
    EXPECT_TRUE(reader.CurrentLine().empty());
    EXPECT_EQ(reader.CurrentLineNumber(), 12);

    ASSERT_TRUE(reader.FindDecal("LONG"));
    EXPECT_EQ(reader.CurrentLineNumber(), 31);
    reader.ReadRecord(record);
    EXPECT_EQ(record.name, "LONG");

    // SECOND lies behind: the search runs to the end of the file and stays there.
    EXPECT_FALSE(reader.FindDecal("SECOND"));
    EXPECT_TRUE(reader.Ended());
    EXPECT_FALSE(reader.FindDecal("SHORT"));
    EXPECT_THROW(reader.ReadRecord(record), std::logic_error);
}

TEST(DecalReaderSearch, AnyLineWithTheNameAsFirstWordMatches) {
    DecalReader reader(Fixture("v4_library.d"));
    // The text line "SECOND is the next decal" of FIRST comes before SECOND's header.
    ASSERT_TRUE(reader.FindDecal("SECOND"));
    EXPECT_EQ(reader.CurrentLineNumber(), 8);
    DecalRecord record;
    try {
        reader.ReadRecord(record);
        FAIL() << "no error";
    } catch (const ConversionError& error) {
        EXPECT_EQ(error.line(), 8);
        EXPECT_EQ(error.message(),
                  "the attribute count of decal SECOND is not a number: \"decal\"");
    }

    // The search from the start goes header by header and is not misled.
    ASSERT_TRUE(reader.FindDecalFromStart("SECOND"));
    EXPECT_EQ(reader.CurrentLineNumber(), 15);
    reader.ReadRecord(record);
    ExpectCounts(record.counts, {1, 1, 1, 0, 2, 1});

    // After two blank lines, after one, and the last record.
    ASSERT_TRUE(reader.FindDecalFromStart("LONG"));
    EXPECT_EQ(reader.CurrentLineNumber(), 31);
    ASSERT_TRUE(reader.FindDecalFromStart("SHORT"));
    EXPECT_EQ(reader.CurrentLineNumber(), 38);
    ASSERT_TRUE(reader.FindDecalFromStart("FIRST"));
    EXPECT_EQ(reader.CurrentLineNumber(), 3);
    EXPECT_FALSE(reader.FindDecalFromStart("REF-DES"));
    EXPECT_FALSE(reader.FindDecalFromStart("MISSING"));
}

TEST(DecalReaderSearch, NamesAreComparedExactlyOnTheirFirstFortyCharacters) {
    test::TempDir dir;
    std::string longName(45, 'N');
    auto file = dir.WriteFile("names.d", "*PADS-LIBRARY-PCB-DECALS-V4*\n\n" + longName +
                                             " I 0 0 0 0 0 0 0 0\nbody\n\n"
                                             "lower I 0 0 0 0 0 0 0 0\n\nALONE\n");
    DecalReader reader(file);
    ASSERT_TRUE(reader.FindDecal(longName.substr(0, 40) + "XYZ"));
    DecalRecord record;
    reader.ReadRecord(record);
    EXPECT_EQ(record.name, std::string(40, 'N'));
    EXPECT_EQ(record.lines, (std::vector<std::string>{"body"}));

    EXPECT_FALSE(reader.FindDecalFromStart("LOWER"));
    EXPECT_TRUE(reader.FindDecalFromStart("lower"));
    // A name alone on its line is no decal header.
    EXPECT_FALSE(reader.FindDecalFromStart("ALONE"));
    reader.Rewind();
    EXPECT_FALSE(reader.FindDecal("ALONE"));
    EXPECT_EQ(reader.CurrentLine(), "ALONE");
}

TEST(DecalReaderPcb, FindsTheFirstDecalAfterRemarksAndBlankLines) {
    DecalReader reader(Fixture("v3_pcb.asc"));
    EXPECT_TRUE(reader.Header().pcbFile);
    EXPECT_TRUE(reader.Header().basicUnits);
    EXPECT_EQ(reader.Header().version, 3);
    reader.PositionAtDecals();
    EXPECT_EQ(reader.CurrentLineNumber(), 13);
    EXPECT_EQ(reader.CurrentLine(), "RES400 I 0 0 1 2 1 1 0");

    auto records = AllRecords(Fixture("v3_pcb.asc"));
    ASSERT_EQ(records.size(), 2u);  // the parttype section ends the decals
    EXPECT_EQ(records[0].name, "RES400");
    EXPECT_EQ(records[0].unitLetter, "I");
    EXPECT_DOUBLE_EQ(records[0].unitFactor, 6.666666666666667e-07);  // BASIC wins over "I"
    ExpectCounts(records[0].counts, {0, 0, 1, 1, 2, 1});
    EXPECT_EQ(SectionsOf(records[0]), (Sections{11, 0, 3, 5, 7, 11}));
    EXPECT_EQ(records[1].name, "CAP200");
    EXPECT_EQ(records[1].unitLetter, "M");
    EXPECT_DOUBLE_EQ(records[1].unitFactor, 6.666666666666667e-07);
    EXPECT_EQ(records[1].headerLineNumber, 27);
    EXPECT_EQ(SectionsOf(records[1]), (Sections{15, 0, 9, 9, 11, 15}));
}

TEST(DecalReaderPcb, EverySearchStartsAgainAtTheDecalSection) {
    DecalReader reader(Fixture("v3_pcb.asc"));
    DecalRecord record;
    reader.RestartAtDecals();
    ASSERT_TRUE(reader.FindDecal("CAP200"));
    reader.ReadRecord(record);
    reader.RestartAtDecals();
    ASSERT_TRUE(reader.FindDecal("RES400"));
    EXPECT_EQ(reader.CurrentLineNumber(), 13);
    ASSERT_TRUE(reader.FindDecalFromStart("CAP200"));
    EXPECT_EQ(reader.CurrentLineNumber(), 27);

    DecalReader mils(Fixture("v4_pcb.asc"));
    EXPECT_FALSE(mils.Header().basicUnits);
    EXPECT_EQ(mils.Header().unitsWord, "MILS");
    ASSERT_TRUE(mils.FindDecalFromStart("TP40"));
    mils.ReadRecord(record);
    EXPECT_DOUBLE_EQ(record.unitFactor, 0.0254);
    EXPECT_EQ(SectionsOf(record), (Sections{6, 0, 3, 3, 4, 6}));
}

TEST(DecalReaderPcb, AFileWithoutDecalSectionHasNoDecals) {
    test::TempDir dir;
    auto file = dir.WriteFile("board.asc", "!PADS-POWERPCB-V4.0-MILS!\n*PART*\nU1 X I\n*END*\n");
    DecalReader reader(file);
    DecalRecord record;
    EXPECT_FALSE(reader.NextRecord(record));
    EXPECT_FALSE(reader.FindDecalFromStart("U1"));
    reader.RestartAtDecals();
    EXPECT_TRUE(reader.Ended());
}

TEST(DecalReaderRecord, HeadlessLibrariesStartWithTheirFirstRecord) {
    test::TempDir dir;
    auto file = dir.WriteFile("plain.d", "R1 I 0 0 0 0 0 0 0 0\nT0 0 0 0 1\n\nR2 M 0 0\n");
    auto records = AllRecords(file);
    ASSERT_EQ(records.size(), 2u);
    EXPECT_EQ(records[0].name, "R1");
    EXPECT_EQ(records[0].header.product, FileProduct::Unknown);
    EXPECT_EQ(records[1].name, "R2");
    ExpectCounts(records[1].counts, {0, 0, 0, 0, 0, 0});  // missing counts read as 0
    EXPECT_TRUE(records[1].lines.empty());
}

TEST(DecalReaderRecord, BadCountsNameFileLineAndWord) {
    test::TempDir dir;
    auto notNumber = dir.WriteFile("bad.d", "*PADS-LIBRARY-PCB-DECALS-V4*\nX I 0 0 0 0 2x 0 0 0\n");
    DecalRecord record;
    try {
        AllRecords(notNumber);
        FAIL() << "no error";
    } catch (const ConversionError& error) {
        EXPECT_EQ(error.file(), notNumber.string());
        EXPECT_EQ(error.line(), 2);
        EXPECT_EQ(error.message(), "the piece count of decal X is not a number: \"2x\"");
    }
    auto large =
        dir.WriteFile("large.d", "*PADS-LIBRARY-PCB-DECALS-V4*\nX I 0 0 0 0 0 0 65536 0\n");
    EXPECT_THROW(AllRecords(large), RangeError);
    auto negative = dir.WriteFile("negative.asc",
                                  "!PADS-POWERPCB-V4.0-MILS!\n*PARTDECAL*\nX I 0 0 0 -1 0 0 0\n");
    EXPECT_THROW(AllRecords(negative), RangeError);
    auto largest =
        dir.WriteFile("largest.d", "*PADS-LIBRARY-PCB-DECALS-V4*\nX I 0 0 0 0 0 0 65535 0\n");
    auto records = AllRecords(largest);
    ASSERT_EQ(records.size(), 1u);
    EXPECT_EQ(records[0].counts.terminals, 65535);

    auto badCorners =
        dir.WriteFile("corners.d", "*PADS-LIBRARY-PCB-DECALS-V4*\nX I 0 0 0 0 1 0 0 0\nOPEN two\n");
    try {
        AllRecords(badCorners);
        FAIL() << "no error";
    } catch (const ConversionError& error) {
        EXPECT_EQ(error.line(), 3);
        EXPECT_EQ(error.message(),
                  "the corner count of a piece of decal X is not a number: \"two\"");
    }
    auto badStack = dir.WriteFile(
        "stack.asc", "!PADS-POWERPCB-V4.0-MILS!\n*PARTDECAL*\nX I 0 0 0 0 1 0 0\nPAD 0 1.5\n");
    try {
        AllRecords(badStack);
        FAIL() << "no error";
    } catch (const ConversionError& error) {
        EXPECT_EQ(error.line(), 4);
        EXPECT_EQ(error.message(),
                  "the line count of a pad stack of decal X is not a number: \"1.5\"");
    }
}

TEST(DecalReaderRecord, OnlyABlankLineOrTheEndOfTheFileEndsARecord) {
    test::TempDir dir;
    auto file = dir.WriteFile("noblank.d",
                              "*PADS-LIBRARY-PCB-DECALS-V4*\nX I 0 0 0 0 0 0 1 0\nT0 0 0 0 1\n"
                              "*END*\nY I 0 0 0 0 0 0 0 0\n \t \nZ I 0 0 0 0 0 0 0 0\nlast");
    auto records = AllRecords(file);
    ASSERT_EQ(records.size(), 2u);
    EXPECT_EQ(records[0].lines,
              (std::vector<std::string>{"T0 0 0 0 1", "*END*", "Y I 0 0 0 0 0 0 0 0"}));
    EXPECT_EQ(records[1].name, "Z");
    EXPECT_EQ(records[1].lines, (std::vector<std::string>{"last"}));
}

TEST(DecalReaderRecord, OpenFailureIsAnIoError) {
    test::TempDir dir;
    EXPECT_THROW(DecalReader reader(dir.Path() / "none.d"), IoError);
}

}  // namespace
}  // namespace zantor
