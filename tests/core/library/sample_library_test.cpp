// The bundled sample library must read back exactly: every count of every record has to land on
// the boundary of its section, or the plot code would draw one kind of line as another.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "library/decal_reader.h"
#include "library/words.h"
#include "support/test_support.h"

namespace zantor {
namespace {

std::filesystem::path SampleLibrary() {
    return test::SourceDir() / "data" / "samples" / "sample.d";
}

std::string FirstWordOf(const std::string& line) {
    std::string_view rest = line;
    return std::string(TakeWord(rest));
}

TEST(SampleLibrary, EveryRecordEndsExactlyWhereItsCountsSay) {
    DecalReader reader(SampleLibrary());
    EXPECT_EQ(reader.Header().line, "*PADS-LIBRARY-PCB-DECALS-V4*");
    EXPECT_EQ(reader.Header().version, 4);

    std::vector<std::string> names;
    DecalRecord record;
    while (reader.NextRecord(record)) {
        SCOPED_TRACE(record.name);
        names.push_back(record.name);
        EXPECT_EQ(record.endOfStacks, record.lines.size());
        EXPECT_EQ(record.firstPiece, record.counts.attributes + 2u * record.counts.labels);
        EXPECT_EQ(record.firstTerminal - record.firstText, 2u * record.counts.texts);
        EXPECT_EQ(record.firstStack - record.firstTerminal, record.counts.terminals);
        for (std::size_t i = record.firstTerminal; i < record.firstStack; ++i) {
            EXPECT_EQ(record.lines[i].front(), 'T') << record.lines[i];
        }
        EXPECT_EQ(FirstWordOf(record.lines[record.firstStack]), "PAD");
        if (record.counts.pieces > 0) {
            const std::string keyword = FirstWordOf(record.lines[record.firstPiece]);
            EXPECT_TRUE(keyword == "OPEN" || keyword == "CLOSED") << keyword;
        }
        // Every body line holds only whole words of numbers or keywords: none was cut.
        for (const std::string& line : record.lines) {
            EXPECT_LT(line.size(), kMaxBodyLineLength);
        }
    }
    EXPECT_EQ(names,
              (std::vector<std::string>{"DIP8", "SO8", "R0603", "TO220", "HDR2X5", "SOT223"}));
    EXPECT_EQ(reader.CurrentLine(), "*END*");
}

TEST(SampleLibrary, RecordsCarryTheirUnitsAndCounts) {
    DecalReader reader(SampleLibrary());
    DecalRecord record;
    ASSERT_TRUE(reader.FindDecal("DIP8"));
    reader.ReadRecord(record);
    EXPECT_DOUBLE_EQ(record.unitFactor, 0.0254);
    EXPECT_EQ(record.counts.terminals, 8);
    EXPECT_EQ(record.counts.stacks, 2);
    EXPECT_EQ(record.firstPiece, 5u);
    EXPECT_EQ(record.firstText, 16u);
    EXPECT_EQ(record.lines[record.firstText + 1], "DIP-8");

    ASSERT_TRUE(reader.FindDecal("SO8"));
    reader.ReadRecord(record);
    EXPECT_EQ(record.unitLetter, "M");
    EXPECT_DOUBLE_EQ(record.unitFactor, 1.0);
    EXPECT_EQ(record.lines[record.firstStack + 1], "-2 0.6 RF 90 1.55 0");

    ASSERT_TRUE(reader.FindDecal("TO220"));
    reader.ReadRecord(record);
    // The slot: plated, 35 mil wide, 55 mil long, along the finger pads.
    EXPECT_EQ(record.lines[record.firstStack], "PAD 0 3 P 35 0 55 0");
    EXPECT_EQ(record.counts.texts, 0);
    EXPECT_EQ(record.firstText, record.firstTerminal);
}

}  // namespace
}  // namespace zantor
