// Decal records as the print job reads them: libraries and PCB files of every version, each
// framed and laid out by its dialect, the bundled sample library and the shared real files.

#include "library/decal_reader.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iomanip>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "common/errors.h"
#include "library/catalogue.h"
#include "library/line_reader.h"
#include "library/pad_stacks.h"
#include "support/recording_messages.h"
#include "support/test_support.h"

namespace zantor {
namespace {

using Texts = std::vector<std::string>;

std::filesystem::path Fixture(const std::string& name) {
    return test::DataDir() / "library" / name;
}

std::filesystem::path Newer(const std::string& name) {
    return Fixture("newer/" + name);
}

// The real PADS files next to the project's folder, when this machine has them.
std::filesystem::path SampleFolder() {
    return test::SourceDir().parent_path() / "shared" / "pads-samples";
}

#define SKIP_WITHOUT_SAMPLES()                                           \
    if (!std::filesystem::is_directory(SampleFolder())) {                \
        GTEST_SKIP() << "no shared sample folder at " << SampleFolder(); \
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

DecalRecord OnlyRecord(const std::string& name) {
    const auto records = AllRecords(SampleFolder() / name);
    EXPECT_EQ(records.size(), 1u) << name;
    return records.empty() ? DecalRecord{} : records.front();
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

TEST(DecalReader, EveryFixtureRecordIsFramedByItsDialect) {
    constexpr double kBasic = 6.666666666666667e-07;
    struct File {
        const char* name;
        Texts decals;
    };
    const File files[] = {
        {"v4_library.d", {"FIRST", "SECOND", "LONG", "SHORT"}},
        {"v3_library.d", {"SOT23", "AXIAL400"}},
        {"v3_pcb.asc", {"RES400", "CAP200"}},  // the parttype section ends the decals
        {"v4_pcb.asc", {"TP40"}},
        {"newer/v9_library.d", {"FINGER", "ONE", "TWO", "COPPER"}},
        {"newer/v2005_basic.asc", {"RELAY"}},
        {"newer/v5_mils.asc", {"HDR2"}},
        {"newer/v95_metric.asc", {"SOT", "MARK"}},
        {"newer/v10_basic_cut.asc", {"TP1", "TP2"}},
        {"newer/layout_mm.asc", {"R0402"}},
    };
    for (const File& file : files) {
        EXPECT_EQ(Names(AllRecords(Fixture(file.name))), file.decals) << file.name;
    }
    struct Row {
        const char* file;
        std::size_t index;
        double unitFactor;
        Sections sections;
    };
    const Row rows[] = {
        {"v4_library.d", 0, 0.0254, {8, 0, 3, 5, 6, 8}},
        // One attribute line and one two-line label come before the pieces.
        {"v4_library.d", 1, 1.0, {13, 3, 9, 9, 11, 13}},
        // The counts promise more than the body holds: every later section starts at its end.
        {"v4_library.d", 3, 0.0254, {3, 0, 3, 3, 3, 3}},
        {"v3_library.d", 0, 1.0, {15, 0, 6, 6, 9, 15}},
        {"v3_library.d", 1, 0.0254, {11, 0, 3, 5, 7, 11}},
        // BASIC units whatever the decal's letter says.
        {"v3_pcb.asc", 0, kBasic, {11, 0, 3, 5, 7, 11}},
        {"v3_pcb.asc", 1, kBasic, {15, 0, 9, 9, 11, 15}},
        {"v4_pcb.asc", 0, 0.0254, {6, 0, 3, 3, 4, 6}},
        // TIMESTAMP, one attribute line, one label of two lines, then the pieces.
        {"newer/v9_library.d", 0, 1.0, {34, 4, 18, 20, 22, 34}},
        {"newer/v9_library.d", 1, 0.0254, {1, 0, 0, 0, 1, 1}},
        // A text of three lines, two labels of three lines each, then the terminals.
        {"newer/v2005_basic.asc", 0, kBasic, {34, 0, 10, 19, 22, 34}},
        // MILS in the file header: the "M" of the decal does not make it millimetres.
        {"newer/v5_mils.asc", 0, 0.0254, {21, 0, 9, 13, 15, 21}},
        {"newer/v95_metric.asc", 0, 1.0, {44, 0, 18, 27, 30, 44}},
        {"newer/v10_basic_cut.asc", 0, kBasic, {6, 0, 3, 3, 4, 6}},
        {"newer/v10_basic_cut.asc", 1, kBasic, {5, 0, 2, 2, 3, 5}},
        {"newer/layout_mm.asc", 0, 1.0, {12, 0, 6, 6, 8, 12}},
    };
    for (const Row& row : rows) {
        const auto records = AllRecords(Fixture(row.file));
        ASSERT_LT(row.index, records.size()) << row.file;
        SCOPED_TRACE(records[row.index].name);
        EXPECT_DOUBLE_EQ(records[row.index].unitFactor, row.unitFactor);
        EXPECT_EQ(SectionsOf(records[row.index]), row.sections);
    }
}

TEST(DecalReaderLibrary, RecordsSeparatedBySeveralBlankLines) {
    DecalReader reader(Fixture("v4_library.d"));
    EXPECT_EQ(reader.Header().version, 4);
    DecalRecord record;
    ASSERT_TRUE(reader.NextRecord(record));
    EXPECT_EQ(record.unitLetter, "I");
    EXPECT_EQ(record.headerLineNumber, 3);
    EXPECT_EQ(record.fileName, Fixture("v4_library.d").string());
    ASSERT_TRUE(reader.NextRecord(record));
    EXPECT_EQ(record.headerLineNumber, 15);
    EXPECT_EQ(CountsOf(record), (std::vector<int>{1, 1, 1, 0, 2, 1}));
    EXPECT_EQ(record.LineNumberOf(record.firstStack), 27);
    ASSERT_TRUE(reader.NextRecord(record));
    ASSERT_EQ(record.lines.size(), 5u);
    std::string digits;
    for (int i = 0; i < 200; ++i) {
        digits += static_cast<char>('0' + i % 10);
    }
    EXPECT_EQ(record.lines[4], digits);  // the 250-character line keeps its first 200
    ASSERT_TRUE(reader.NextRecord(record));
    EXPECT_EQ(CountsOf(record), (std::vector<int>{0, 0, 5, 2, 9, 3}));
    EXPECT_TRUE(LineCursor(record, record.firstTerminal).AtEnd());
    EXPECT_FALSE(reader.NextRecord(record));
    EXPECT_EQ(reader.CurrentLine(), "*END*");
}

TEST(DecalReaderLibrary, RecordsAreTheSameWhereverTheFileIsSplitIntoBlocks) {
    // Blank lines after the header move the 250-character text line of LONG over the end of the
    // first block the line reader takes; every kind of line end, with and without one at the end
    // of the file.
    test::TempDir dir;
    std::ifstream in(Fixture("v4_library.d"), std::ios::binary);
    std::ostringstream lf;
    lf << in.rdbuf();
    const auto expected = AllRecords(Fixture("v4_library.d"));
    ASSERT_EQ(expected.size(), 4u);
    int files = 0;
    for (const std::string end : {"\n", "\r\n", "\r"}) {
        for (bool finalEnd : {true, false}) {
            std::string text;
            for (char c : lf.str()) {
                text += c == '\n' ? end : std::string(1, c);
            }
            if (!finalEnd) {
                text.resize(text.size() - end.size());
            }
            const std::size_t longLine = text.find("0123456789");
            const std::size_t blanks = (LineReader::kBlockSize - 100 - longLine) / end.size();
            std::string padding;
            for (std::size_t i = 0; i < blanks; ++i) {
                padding += end;
            }
            text.insert(text.find(end) + end.size(), padding);
            const auto records =
                AllRecords(dir.WriteFile("split" + std::to_string(++files) + ".d", text));
            SCOPED_TRACE("line end " + std::to_string(end.size()) + " bytes");
            ASSERT_EQ(records.size(), expected.size());
            for (std::size_t i = 0; i < records.size(); ++i) {
                EXPECT_EQ(records[i].name, expected[i].name);
                EXPECT_EQ(records[i].lines, expected[i].lines);
                EXPECT_EQ(records[i].headerLineNumber,
                          expected[i].headerLineNumber + static_cast<long>(blanks));
            }
            EXPECT_EQ(records[2].lines[4].size(), kMaxBodyLineLength);
        }
    }
}

TEST(DecalReaderSearch, FindsTheFirstLineWithTheNameFromTheCurrentLine) {
    DecalReader reader(Fixture("v4_library.d"));
    DecalRecord record;
    ASSERT_TRUE(reader.FindDecal("FIRST"));
    reader.ReadRecord(record);
    EXPECT_TRUE(reader.CurrentLine().empty());
    EXPECT_EQ(reader.CurrentLineNumber(), 12);
    // The text line "SECOND is the next decal" of FIRST lay behind; the search from the start
    // goes header by header and is not misled by it.
    ASSERT_TRUE(reader.FindDecal("LONG"));
    EXPECT_EQ(reader.CurrentLineNumber(), 31);
    reader.ReadRecord(record);
    EXPECT_FALSE(reader.FindDecal("SECOND"));
    EXPECT_TRUE(reader.Ended());
    EXPECT_THROW(reader.ReadRecord(record), std::logic_error);
    ASSERT_TRUE(reader.FindDecalFromStart("SECOND"));
    EXPECT_EQ(reader.CurrentLineNumber(), 15);
    ASSERT_TRUE(reader.FindDecalFromStart("SHORT"));
    EXPECT_EQ(reader.CurrentLineNumber(), 38);
    EXPECT_FALSE(reader.FindDecalFromStart("REF-DES"));

    reader.Rewind();
    ASSERT_TRUE(reader.FindDecal("SECOND"));
    EXPECT_EQ(reader.CurrentLineNumber(), 8);
    try {
        reader.ReadRecord(record);
        FAIL() << "no error";
    } catch (const ConversionError& error) {
        EXPECT_EQ(error.line(), 8);
        EXPECT_EQ(error.message(),
                  "the attribute count of decal SECOND is not a number: \"decal\"");
    }
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

TEST(DecalReaderPcb, EverySearchStartsAgainAtTheDecalSection) {
    DecalReader reader(Fixture("v3_pcb.asc"));
    reader.PositionAtDecals();  // after remarks and blank lines
    EXPECT_EQ(reader.CurrentLineNumber(), 13);
    EXPECT_EQ(reader.CurrentLine(), "RES400 I 0 0 1 2 1 1 0");
    DecalRecord record;
    ASSERT_TRUE(reader.FindDecal("CAP200"));
    EXPECT_EQ(reader.CurrentLineNumber(), 27);
    reader.ReadRecord(record);
    reader.RestartAtDecals();
    ASSERT_TRUE(reader.FindDecal("RES400"));
    EXPECT_EQ(reader.CurrentLineNumber(), 13);

    DecalReader metric(Newer("v95_metric.asc"));
    metric.PositionAtDecals();
    EXPECT_EQ(metric.CurrentLine(), "SOT I 0 0 5 3 3 1 2");  // right after "*PARTDECAL*"
    DecalReader cut(Newer("v10_basic_cut.asc"));
    ASSERT_TRUE(cut.FindDecalFromStart("TP2"));
    EXPECT_EQ(cut.CurrentLineNumber(), 10);
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
    EXPECT_THROW(DecalReader missing(dir.Path() / "none.d"), IoError);
}

TEST(DecalReaderRecord, TheFirstLineOfALibraryIsItsHeaderWhateverItHolds) {
    test::TempDir dir;
    auto records = AllRecords(dir.WriteFile(
        "plain.d", "R1 I 0 0 0 0 0 0 0 0\n\nR2 I 0 0 0 0 0 0 1 0\nT0 0 0 0 1\n\nR3 M 0 0\n"));
    ASSERT_EQ(Names(records), (Texts{"R2", "R3"}));
    EXPECT_EQ(records[0].header.product, FileProduct::Unknown);
    // Missing counts read as 0.
    EXPECT_EQ(CountsOf(records[1]), (std::vector<int>{0, 0, 0, 0, 0, 0}));
    auto indented = AllRecords(
        dir.WriteFile("indented.d", "  *PADS-LIBRARY-PCB-DECALS-V4*\n\nR1 I 0 0 0 0 0 0 0 0\n"));
    EXPECT_EQ(Names(indented), Texts{"R1"});
}

TEST(DecalReaderRecord, BadCountsNameFileLineAndWord) {
    test::TempDir dir;
    auto notNumber = dir.WriteFile("bad.d", "*PADS-LIBRARY-PCB-DECALS-V4*\nX I 0 0 0 0 2x 0 0 0\n");
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
    EXPECT_EQ(AllRecords(largest).at(0).counts.terminals, 65535);
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

TEST(NewerLibrary, RecordsFramedByTheirCountsAndSearchedHeaderByHeader) {
    // FINGER follows the file header without a blank line; ONE, TWO and COPPER follow each other
    // directly; "*END*" follows COPPER's last piece, and the remarks after it are no records.
    const auto records = AllRecords(Newer("v9_library.d"));
    ASSERT_EQ(records.size(), 4u);
    EXPECT_EQ(CountsOf(records[0]), (std::vector<int>{1, 1, 3, 1, 2, 2}));
    EXPECT_EQ(records[0].lines[records[0].firstTerminal + 1], "T1.5 0 1.6 0.2 MH2");
    EXPECT_EQ(records[2].lines, (Texts{"T100 0 100 0 A"}));
    EXPECT_EQ(records[3].lines.size(), 15u);  // the TIMESTAMP line and five pieces

    DecalReader reader(Newer("v9_library.d"));
    DecalRecord record;
    ASSERT_TRUE(reader.FindDecal("FINGER"));
    EXPECT_EQ(reader.CurrentLineNumber(), 2);
    reader.ReadRecord(record);
    ASSERT_TRUE(reader.FindDecal("TWO"));
    EXPECT_EQ(reader.CurrentLineNumber(), 40);
    reader.ReadRecord(record);
    EXPECT_EQ(reader.CurrentLine(), "COPPER I 0 0 0 0 5 0 0 0 0");
    // Body lines are not headers: a label name or a text is not found, and the search ends at
    // "*END*" without reading the remarks after it.
    EXPECT_FALSE(reader.FindDecalFromStart("REF-DES"));
    EXPECT_FALSE(reader.FindDecalFromStart("A1"));
    EXPECT_EQ(reader.CurrentLine(), "*END*");
    EXPECT_FALSE(reader.FindDecalFromStart("model.stp/0/0/0/0/0/0"));
    reader.RestartAtDecals();
    EXPECT_FALSE(reader.FindDecal("*END*"));
}

TEST(DecalReaderStacks, EachReleaseWritesItsDrillsCornersAndSlots) {
    // "pins layer size shape ori/length/offset/spokes corner | plated drill slot".
    struct Case {
        const char* file;
        std::size_t count, index;
        const char* stack;
    };
    const Case cases[] = {
        {"v9_library.d", 10, 0, "0..0 -2 1.2 S 0/0/0/0 c0.1 | P 0.6 0/0/0"},
        // Libraries: the corner 0.2 first, then orientation 90, length 2.4, offset 0.1.
        {"v9_library.d", 10, 4, "2..2 -2 1 RF 90/2.4/0.1/0 c0.2 | N 0.8 90/2/0.1"},
        {"v9_library.d", 10, 6, "2..2 -1 0.9 RT 45/1.5/0.2/4 c0 | N 0.8 90/2/0.1"},
        // Drills straight after the shape fields; no corner radius before release 9.
        {"v2005_basic.asc", 9, 6, "3..3 -2 1524000 OF 90/3048000/0/0 c0 | N 1143000 0/0/0"},
        {"v5_mils.asc", 4, 3, "2..2 -2 60 RF 90/120/0/0 c0 | N 35 0/0/0"},
        {"v95_metric.asc", 11, 0, "0..0 -2 0.6 RF 0/1.1/0/0 c0.1 | N 0 0/0/0"},
        // A plated drill of 0.7 with a slot of 1.3 at 90 degrees.
        {"v95_metric.asc", 11, 4, "3..3 -2 1.2 OF 90/2.4/0/0 c0 | P 0.7 90/1.3/0"},
        // Corner, then the drill without a plated flag: plated.
        {"v95_metric.asc", 11, 8, "2..2 -2 0.8 S 0/0/0/0 c0.15 | P 0.5 0/0/0"},
        {"v10_basic_cut.asc", 1, 0, "0..0 -2 2399995 R 0/0/0/0 c0 | P 1499997 0/0/0"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.file);
        const Texts stacks = Stacks(AllRecords(Newer(c.file)).at(0));
        ASSERT_EQ(stacks.size(), c.count);
        EXPECT_EQ(stacks[c.index], c.stack);
    }
    // With two lines for the inner layer the first one is the pad there.
    const PadStackList finger = ReadPadStacks(AllRecords(Newer("v9_library.d")).at(0));
    ASSERT_NE(FindStackEntry(finger, 2, -1), nullptr);
    EXPECT_EQ(FindStackEntry(finger, 2, -1)->shape, "OF");
    EXPECT_EQ(FindStackEntry(finger, 1, 28), nullptr);
    const auto metric = AllRecords(Newer("v95_metric.asc"));
    const PadStackList sot = ReadPadStacks(metric.at(0));
    EXPECT_TRUE(IsAntiPad(sot[1]));
    EXPECT_FALSE(IsAntiPad(sot[2]));
    EXPECT_EQ(metric.at(1).lines, (Texts{"BRDCIR 2 0.1 -1 20", "-1 0", "1 0"}));
}

TEST(NewerPcb, ASearchPassesOverABrokenRecordToItsBlankLine) {
    test::TempDir dir;
    const std::string broken =
        "!PADS-POWERPCB-V9.5-METRIC!\n*PARTDECAL*\nX M 0 0 1 0 0 0 0\nOPEN many 0.1 -1 26\n0 0\n";
    EXPECT_THROW(AllRecords(dir.WriteFile("bad.asc", broken + "Y M 0 0 0 0 0 0 0\n")),
                 ConversionError);
    DecalReader reader(dir.WriteFile("search.asc", broken + "\nY M 0 0 0 0 0 0 0\n"));
    EXPECT_TRUE(reader.FindDecalFromStart("Y"));
}

// The records of a real file: the counts account for every body line, no more and no fewer,
// and the pad stacks read.
std::vector<DecalRecord> ReadWholeRecords(const std::filesystem::path& file) {
    std::vector<DecalRecord> records;
    EXPECT_NO_THROW(records = AllRecords(file)) << file;
    for (const DecalRecord& record : records) {
        SCOPED_TRACE(record.name);
        EXPECT_EQ(record.endOfStacks, record.lines.size());
        EXPECT_LE(record.firstPiece, record.firstText);
        EXPECT_LE(record.firstText, record.firstTerminal);
        EXPECT_EQ(record.firstStack - record.firstTerminal, record.counts.terminals);
        for (std::size_t t = record.firstTerminal; t < record.firstStack; ++t) {
            EXPECT_TRUE(record.lines[t].starts_with('T')) << record.lines[t];
        }
        EXPECT_TRUE(record.lines[record.firstStack].starts_with("PAD "));
        EXPECT_FALSE(ReadPadStacks(record).empty());
    }
    return records;
}

TEST(SampleLibrary, EveryRecordEndsExactlyWhereItsCountsSay) {
    const auto records = ReadWholeRecords(test::SourceDir() / "data" / "samples" / "sample.d");
    EXPECT_EQ(Names(records), (Texts{"DIP8", "SO8", "R0603", "TO220", "HDR2X5", "SOT223"}));
    for (const DecalRecord& record : records) {
        SCOPED_TRACE(record.name);
        EXPECT_EQ(record.header.version, 4);
        // Two lines a label and a text in this version.
        EXPECT_EQ(record.firstPiece, record.counts.attributes + 2u * record.counts.labels);
        EXPECT_EQ(record.firstTerminal - record.firstText, 2u * record.counts.texts);
        // Every body line holds only whole words of numbers or keywords: none was cut.
        for (const std::string& line : record.lines) {
            EXPECT_LT(line.size(), kMaxBodyLineLength);
        }
    }
}

TEST(SampleDecals, EveryRecordOfEveryDecalSourceReadsToItsEnd) {
    SKIP_WITHOUT_SAMPLES();
    int files = 0;
    std::size_t decals = 0;
    for (const auto& entry : std::filesystem::directory_iterator(SampleFolder())) {
        const FileProduct product = DecalReader(entry.path()).Header().product;
        if (product == FileProduct::DecalLibrary || product == FileProduct::PcbDatabase) {
            SCOPED_TRACE(entry.path().filename().string());
            ++files;
            std::vector<DecalRecord> records = ReadWholeRecords(entry.path());
            decals += records.size();
            // A library offers every record, and so does a PCB file in which every decal is used
            // or no part is placed.
            RecordingMessages messages;
            const Catalogue catalogue = LoadPartnames(entry.path(), PlotKind::Decal, {}, messages);
            EXPECT_TRUE(messages.Entries().empty());
            Texts listed;
            for (const CatalogueEntry& item : catalogue.entries) {
                listed.push_back(item.name);
            }
            Texts names = Names(records);
            if (catalogue.sorted) {
                std::sort(names.begin(), names.end());
            }
            EXPECT_EQ(listed, names);
        }
    }
    EXPECT_EQ(files, 11);
    EXPECT_EQ(decals, 11u);
}

TEST(SampleDecals, TheSameDecalGivesTheSamePadsInLibraryAndPcbSyntax) {
    SKIP_WITHOUT_SAMPLES();
    const PadStackList drilled = ReadPadStacks(OnlyRecord("np_1725737.d"));
    EXPECT_EQ(drilled, ReadPadStacks(OnlyRecord("np_1725737.asc")));
    ASSERT_EQ(drilled.size(), 6u);
    for (const PadStackEntry& entry : drilled) {
        EXPECT_DOUBLE_EQ(entry.size, 1.65);
        EXPECT_DOUBLE_EQ(entry.drill, 1.1);
        EXPECT_EQ(entry.plated, "P");
    }
    const PadStackList son = ReadPadStacks(OnlyRecord("np_SON50P200X200X80-9N.d"));
    EXPECT_EQ(son, ReadPadStacks(OnlyRecord("np_DRV8220DSGR.asc")));
    ASSERT_EQ(son.size(), 6u);
    // Pins 1 to 8: 0.7 long at 0 degrees; the exposed pad 9: 1.7 long at 90.
    EXPECT_EQ(son[0].shape, "RF");
    EXPECT_DOUBLE_EQ(son[0].lenOrInner, 0.7);
    EXPECT_EQ(son[3].pin, 9);
    EXPECT_DOUBLE_EQ(son[3].ori, 90);
    EXPECT_DOUBLE_EQ(son[3].lenOrInner, 1.7);
    // The QFP: the side rows at 0 degrees, the default stack at 90.
    const PadStackList qfp = ReadPadStacks(OnlyRecord("np_QFP50P1400X1400X160-80N.d"));
    EXPECT_EQ(qfp, ReadPadStacks(OnlyRecord("np_STM32G484MET6.asc")));
    ASSERT_NE(FindStackEntry(qfp, 1, -2), nullptr);
    EXPECT_DOUBLE_EQ(FindStackEntry(qfp, 1, -2)->ori, 0);
    EXPECT_DOUBLE_EQ(FindStackEntry(qfp, 21, -2)->ori, 90);
}

}  // namespace
}  // namespace zantor
