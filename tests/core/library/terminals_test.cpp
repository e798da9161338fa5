#include "library/terminals.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "common/errors.h"

namespace zantor {
namespace {

using Texts = std::vector<std::string>;

// A record of "lib.d" whose header stands on line 20: a piece line, then `terminalLines`, of
// which the header counts `count`.
DecalRecord Decal(Texts terminalLines, std::uint16_t count) {
    DecalRecord record;
    record.fileName = "lib.d";
    record.name = "SON8";
    record.header.dialect.pinNamesOnTerminals = true;
    record.headerLineNumber = 20;
    record.lines.push_back("OPEN 2 0.1 26");
    record.firstTerminal = 1;
    record.counts.terminals = count;
    record.lines.insert(record.lines.end(), terminalLines.begin(), terminalLines.end());
    record.firstStack = record.lines.size();
    return record;
}

TEST(ReadTerminals, ReadsPositionsLabelsAndPinNamesInFileOrder) {
    const auto terminals = ReadTerminals(
        Decal({"T-1.05 0.75 -1.3  0.9", "T1235 -2e1 0 0", "T0     0.3   0     0.3   FRM-2",
               "T-12750000 -1275000 -12750000 -1275000 MH2"},
              4));
    EXPECT_EQ(terminals,
              (std::vector<TerminalLine>{{1, -1.05, 0.75, -1.3, 0.9, "1"},
                                         {2, 1235, -20, 0, 0, "2"},
                                         {3, 0, 0.3, 0, 0.3, "FRM-2"},
                                         {4, -12750000, -1275000, -12750000, -1275000, "MH2"}}));
}

TEST(ReadTerminals, CountsBodyAndDialectLimitWhatIsRead) {
    const Texts lines = {"T1 2 3 4 A1", "T2.5 1", "T 3 4 5 6 C3"};
    EXPECT_EQ(ReadTerminals(Decal(lines, 2)).size(), 2u);
    // A record cut short gives the terminals it has; missing numbers read as 0 and a detached T
    // is tolerated.
    EXPECT_EQ(ReadTerminals(Decal(lines, 7)),
              (std::vector<TerminalLine>{
                  {1, 1, 2, 3, 4, "A1"}, {2, 2.5, 1, 0, 0, "2"}, {3, 3, 4, 5, 6, "C3"}}));
    DecalRecord past = Decal(lines, 3);
    past.firstTerminal = 9;
    EXPECT_TRUE(ReadTerminals(past).empty());
    // Files without pin names name terminals by their index.
    DecalRecord unnamed = Decal(lines, 3);
    unnamed.header.dialect.pinNamesOnTerminals = false;
    EXPECT_EQ(ReadTerminals(unnamed).back().pinName, "3");
}

TEST(ReadTerminals, BadLinesNameTheDecalFileAndLine) {
    try {
        ReadTerminals(Decal({"T0 0 0 0 1", "T1,5 0 1.5 0 2"}, 2));
        FAIL() << "a comma is not a decimal point";
    } catch (const ConversionError& error) {
        EXPECT_EQ(error.file(), "lib.d");
        EXPECT_EQ(error.line(), 23);  // header 20, piece 21, terminals 22 and 23
        EXPECT_EQ(error.message(), "the x of terminal 2 of decal SON8 is not a number: \"1,5\"");
    }
    EXPECT_THROW(ReadTerminals(Decal({"T0 0 x 0"}, 1)), ConversionError);
    EXPECT_THROW(ReadTerminals(Decal({"T0 1e999 0 0"}, 1)), RangeError);
    try {
        ReadTerminals(Decal({"VALUE 0 0 0 1 1.27 0.127 N LEFT DOWN"}, 1));
        FAIL() << "a label line is no terminal";
    } catch (const FormatError& error) {
        EXPECT_EQ(error.line(), 22);
        EXPECT_EQ(error.message(),
                  "the first word of terminal 1 of decal SON8 is not \"T\" with the x after it: "
                  "\"VALUE\"");
    }
}

}  // namespace
}  // namespace zantor
