#include "library/record_framing.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "common/errors.h"
#include "library/file_header.h"

namespace zantor {
namespace {

using Texts = std::vector<std::string>;

const FileDialect& V9Library() {
    static const FileDialect dialect = AnalyseHeader("*PADS-LIBRARY-PCB-DECALS-V9*").dialect;
    return dialect;
}

const FileDialect& V95Pcb() {
    static const FileDialect dialect = AnalyseHeader("!PADS-POWERPCB-V9.5-MILS!").dialect;
    return dialect;
}

// Frames `lines` (the lines after a header with `counts`) and returns the lines of the record.
Texts Frame(const FileDialect& dialect, const DecalCounts& counts, const Texts& lines) {
    BodyLayout body(dialect, counts, "X", "lib.d");
    Texts taken;
    for (const std::string& line : lines) {
        if (EndsRecord(line, dialect, body)) {
            break;
        }
        body.Take(line, 0);
        taken.push_back(line);
    }
    return taken;
}

TEST(BodyLayout, ALeadingTimestampLineOnlyAfterVersionFour) {
    DecalCounts counts;
    counts.terminals = 2;
    BodyLayout body(V9Library(), counts, "X", "");
    body.Take("TIMESTAMP 2024.01.01.00.00.00", 0);
    body.Take("T0 0 0 0 1", 0);
    EXPECT_TRUE(body.WantsMore());
    body.Take("T1 0 1 0 2", 0);
    EXPECT_FALSE(body.WantsMore());
    EXPECT_EQ(body.Sections().firstTerminal, 1u);
    EXPECT_EQ(body.Sections().firstStack, 3u);
    // Versions 3 and 4 have no such line: it is the first attribute line there.
    counts.attributes = 1;
    BodyLayout old(AnalyseHeader("*PADS-LIBRARY-PCB-DECALS-V4*").dialect, counts, "X", "");
    old.Take("TIMESTAMP 2024.01.01.00.00.00", 0);
    EXPECT_EQ(old.Sections().firstTerminal, 1u);
}

TEST(BodyLayout, ShortBodiesAndBadCounts) {
    DecalCounts counts;
    counts.pieces = 2;
    counts.terminals = 3;
    BodyLayout body(V9Library(), counts, "X", "");
    body.Take("OPEN -4 0.1 26 -1", 0);  // a negative count announces no lines
    body.Take("CLOSED 9 0.1 26 -1", 0);
    body.Take("0 0", 0);
    EXPECT_TRUE(body.WantsMore());
    // Sections the body did not reach start where it ends.
    EXPECT_EQ(body.Sections().firstPiece, 0u);
    EXPECT_EQ(body.Sections().firstText, 3u);
    EXPECT_EQ(body.Sections().endOfStacks, 3u);

    BodyLayout bad(V9Library(), counts, "SO8", "lib.d");
    try {
        bad.Take("OPEN 2.5 0.1 26 -1", 41);
        FAIL() << "no error";
    } catch (const ConversionError& error) {
        EXPECT_EQ(error.line(), 41);
        EXPECT_EQ(error.message(),
                  "the corner count of a piece of decal SO8 is not a number: \"2.5\"");
    }
}

// A header that counts more pieces or terminals than the body holds: the first line that cannot
// be what the counts expect there is named, with the decal and what its header counts.
TEST(BodyLayout, ALineThatDisagreesWithTheCountsIsNamed) {
    const struct {
        std::uint16_t pieces;
        std::uint16_t terminals;
        long badLine;
        const char* message;
    } cases[] = {
        {2, 2, 44,
         "decal BUZZER does not hold what its header counts (2 pieces, 0 texts, 2 terminals, 1 "
         "pad stack): the header of a piece was due here, not \"T0 9 0 9 1\""},
        {1, 3, 46,
         "decal BUZZER does not hold what its header counts (1 piece, 0 texts, 3 terminals, 1 "
         "pad stack): a terminal was due here, not \"PAD 0 2\""},
    };
    const std::vector<std::string> body = {"CLOSED 2 0.1 26 -1", "-6 -6",        "6 6",
                                           "T0 9 0 9 1",         "T0 -9 0 -9 2", "PAD 0 2",
                                           "-2 3 OF 0 8 0",      "-1 0 R"};
    for (const auto& c : cases) {
        DecalCounts counts;
        counts.pieces = c.pieces;
        counts.terminals = c.terminals;
        counts.stacks = 1;
        BodyLayout layout(V9Library(), counts, "BUZZER", "lib.d");
        try {
            for (std::size_t i = 0; i < body.size(); ++i) {
                layout.CheckAgainstCounts(body[i], 41 + static_cast<long>(i));
                layout.Take(body[i], 41 + static_cast<long>(i));
            }
            ADD_FAILURE() << "no error for " << c.pieces << " pieces";
        } catch (const FormatError& error) {
            EXPECT_EQ(error.line(), c.badLine);
            EXPECT_EQ(error.message(), c.message);
        }
    }
    // Counts that agree: keywords of any kind, arcs, fingers.
    DecalCounts counts;
    counts.pieces = 2;
    counts.terminals = 2;
    counts.stacks = 1;
    BodyLayout good(V9Library(), counts, "BUZZER", "lib.d");
    for (const char* line :
         {"ARWLN1 1 0.1 26 -1", "0 0 0 900 -1 -1 1 1", "TAG 0 0 0 1", "T0 9 0 9 1",
          "T-0.5 -9 0 -9 2", "PAD 0 2", "-2 3 OF 0 8 0", "-1 0 R"}) {
        EXPECT_NO_THROW(good.CheckAgainstCounts(line, 0)) << line;
        good.Take(line, 0);
    }
    EXPECT_FALSE(good.WantsMore());
}

TEST(EndsRecord, BlankAndStarLinesAndHeadersAfterTheCounts) {
    DecalCounts one;
    one.terminals = 1;
    // Records of versions 3 and 4 run to a blank line, whatever their counts.
    const FileDialect old = AnalyseHeader("*PADS-LIBRARY-PCB-DECALS-V4*").dialect;
    EXPECT_EQ(Frame(old, one, {"T0 0 0 0 1", "*END*", "Y I 0 0 0 0 0 0 1 0", "", "Z"}),
              (Texts{"T0 0 0 0 1", "*END*", "Y I 0 0 0 0 0 0 1 0"}));
    // Later ones end at a "*" line, or at the next header once the counts are read.
    EXPECT_EQ(Frame(V9Library(), one, {"T0 0 0 0 1", "*END*"}), (Texts{"T0 0 0 0 1"}));
    EXPECT_EQ(Frame(V9Library(), one, {"T0 0 0 0 1", "Y I 0 0 0 0 0 0 1 0 0"}),
              (Texts{"T0 0 0 0 1"}));
    // A header-like line the counts still wait for is a body line; so is a line after the
    // counts that is no header.
    EXPECT_EQ(Frame(V9Library(), one, {"Y I 0 0 0 0 0 0 1 0 0", "-2 1 R", "", "T"}),
              (Texts{"Y I 0 0 0 0 0 0 1 0 0", "-2 1 R"}));
    // A text may begin with "*": the counts wait for it. Elsewhere a "*" line ends the record.
    DecalCounts text;
    text.texts = 1;
    text.terminals = 1;
    EXPECT_EQ(Frame(V95Pcb(), text, {"0 0 0 26 1 0.1 N LEFT DOWN", "Regular", "*NOTE*", "*END*"}),
              (Texts{"0 0 0 26 1 0.1 N LEFT DOWN", "Regular", "*NOTE*"}));
    // A blank line ends a short record.
    DecalCounts three;
    three.terminals = 3;
    EXPECT_EQ(Frame(V95Pcb(), three, {"T0 0 0 0 1", "  ", "T1 0 1 0 2"}), (Texts{"T0 0 0 0 1"}));
}

TEST(LooksLikeDecalHeader, NameLetterOriginAndCounts) {
    EXPECT_TRUE(LooksLikeDecalHeader("SO8 I -500 50.5 1 2 3 4 8 2 0", V9Library()));
    EXPECT_TRUE(LooksLikeDecalHeader("SO8 M 0 0 3 8 2 4 2", V95Pcb()));
    // Too few counts, a count that is negative or not whole, a unit that is no letter.
    EXPECT_FALSE(LooksLikeDecalHeader("SO8 M 0 0 3 8 2 4", V95Pcb()));
    EXPECT_FALSE(LooksLikeDecalHeader("SO8 M 0 0 3 -8 2 4 2", V95Pcb()));
    EXPECT_FALSE(LooksLikeDecalHeader("SO8 M 0 0 3 8.5 2 4 2", V95Pcb()));
    EXPECT_FALSE(LooksLikeDecalHeader("SO8 MM 0 0 3 8 2 4 2", V95Pcb()));
    EXPECT_FALSE(LooksLikeDecalHeader("-2.1 0.0 -1800 1800 -2.1 -0.05 -2 0.05", V95Pcb()));
    EXPECT_FALSE(LooksLikeDecalHeader("VALUE 0 0 0.000 1 1905000 190500 N LEFT DOWN", V95Pcb()));
    EXPECT_FALSE(LooksLikeDecalHeader("SO8 M x 0 3 8 2 4 2", V95Pcb()));
    EXPECT_FALSE(LooksLikeDecalHeader("", V95Pcb()));
}

}  // namespace
}  // namespace zantor
