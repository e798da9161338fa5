// The decal model: every item of a record read once, with its source line, and fields that do not
// read kept with their items in one wording.

#include "library/decal.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "common/errors.h"
#include "library/decal_reader.h"
#include "library/record_framing.h"

namespace zantor {
namespace {

using Texts = std::vector<std::string>;

// A record of "lib.d" of a file with `firstLine`, its header on line 10 and `body` after it.
DecalRecord Record(std::string_view firstLine, std::string_view headerLine, Texts body) {
    DecalRecord record;
    record.header = AnalyseHeader(firstLine);
    record.fileName = "lib.d";
    record.headerLineNumber = 10;
    const DecalHeaderFields fields = ReadDecalHeader(headerLine, record.header.dialect, {});
    record.name = fields.name;
    record.unitLetter = fields.unitLetter;
    record.counts = fields.counts;
    record.lines = std::move(body);
    LocateSections(record);
    return record;
}

std::string FaultText(const std::optional<FieldFault>& fault) {
    if (!fault) {
        return "";
    }
    try {
        fault->Raise();
    } catch (const Error& error) {
        return error.what();
    }
    return "?";
}

// A V9 library decal with an attribute, a label, two pieces (one with an arc), a text and two
// terminals with one pad stack.
const Texts kFinger = {
    "TIMESTAMP 2024.01.02.03.04.05",                              // 11
    "\"Part Height\" 1.2mm",                                      // 12
    "0 1.5 0 0 1.27 0.127 1 17 34 \"Regular <My Stroke Font>\"",  // 13
    "REF-DES",                                                    // 14
    "OPEN 3 0.2 26 -2",                                           // 15
    "-2 1",                                                       // 16
    "1.5 1 900 -900 1 0 2 1",                                     // 17
    "2 0.5",                                                      // 18
    "COPCLS 3 0.1 1 -1 2",                                        // 19
    "0 0",                                                        // 20
    "1 0",                                                        // 21
    "1 1",                                                        // 22
    "0.5 -0.5 90 26 0.8 0.1 1 17 0 0 \"Default Font\"",           // 23
    "A1",                                                         // 24
    "T-1.5 0 -1.5 0 1",                                           // 25
    "T1.5 0 1.6 0.2 MH2",                                         // 26
    "PAD 0 1 P 0.6",                                              // 27
    "-2 1.2 S 0.1",                                               // 28
};

TEST(ParseDecal, ReadsEveryItemWithItsSourceLine) {
    const Decal decal =
        ParseDecal(Record("*PADS-LIBRARY-PCB-DECALS-V9*", "FINGER M 0 0 1 1 2 1 2 1 0", kFinger));
    EXPECT_EQ(decal.name, "FINGER");
    EXPECT_EQ(decal.headerLine, 10);
    ASSERT_EQ(decal.attributes.size(), 1u);
    EXPECT_EQ(decal.attributes[0], (DecalAttribute{"Part Height", "1.2mm"}));
    EXPECT_EQ(decal.attributes[0].line, 12);
    ASSERT_EQ(decal.labels.size(), 1u);
    EXPECT_EQ(decal.labels[0].line, 13);
    EXPECT_EQ(decal.labels[0].lines.back(), "REF-DES");

    ASSERT_EQ(decal.pieces.size(), 2u);
    const DecalPiece& open = decal.pieces[0];
    EXPECT_EQ(open.keyword, "OPEN");
    EXPECT_EQ(open.line, 15);
    EXPECT_EQ(open.layer, 26);
    EXPECT_EQ(open.lineStyle, -2);
    ASSERT_EQ(open.corners.size(), 3u);
    // Tenths of a degree in this release.
    EXPECT_EQ(open.corners[1].startAngle, 90);
    EXPECT_EQ(open.corners[1].sweep, -90);
    EXPECT_EQ(open.corners[1].x2, 2);
    EXPECT_EQ(open.corners[1].line, 17);
    EXPECT_EQ(decal.pieces[1].pin, 2);
    EXPECT_EQ(decal.pieces[1].line, 19);

    ASSERT_EQ(decal.texts.size(), 1u);
    EXPECT_EQ(decal.texts[0].line, 23);
    EXPECT_EQ(decal.texts[0].text, "A1");
    EXPECT_EQ(decal.texts[0].horizontal, 1);
    EXPECT_EQ(decal.texts[0].vertical, 1);

    ASSERT_EQ(decal.Terminals().size(), 2u);
    EXPECT_EQ(decal.Terminals()[1].pinName, "MH2");
    EXPECT_EQ(decal.Terminals()[1].line, 26);
    ASSERT_EQ(decal.Stacks().size(), 1u);
    EXPECT_EQ(decal.Stacks()[0].corner, 0.1);
}

TEST(ParseDecal, TextsAreDrawnTitleValuesOrComments) {
    const struct {
        const char* header;
        const char* text;
        TextKind kind;
        const char* firstWord;
        const char* rest;
        double value;
        int comment;
    } cases[] = {
        {"0 0 0 1 10 1 N", "  Hello ", TextKind::Drawn, "", "", 0, 0},
        {"0 0 0 1 10 1 N", "$ 12.5 mm", TextKind::TitleValue, "$", "", 12.5, 0},
        {"0 0 0 30 10 1 N", "@@3 checked  by me ", TextKind::Comment, "@@3", "checked  by me", 0,
         3},
        // Only the comment layer lists comments; "@@0" is no comment number.
        {"0 0 0 29 10 1 N", "@@3 checked", TextKind::Drawn, "", "", 0, 0},
        {"0 0 0 30 10 1 N", "@@0 checked", TextKind::Drawn, "", "", 0, 0},
    };
    for (const auto& c : cases) {
        const Decal decal = ParseDecal(
            Record("*PADS-LIBRARY-PCB-DECALS-V4*", "T M 0 0 0 0 0 1 0 0", {c.header, c.text}));
        ASSERT_EQ(decal.texts.size(), 1u) << c.text;
        const DecalText& text = decal.texts[0];
        EXPECT_EQ(text.kind, c.kind) << c.text;
        EXPECT_EQ(text.firstWord, c.firstWord) << c.text;
        EXPECT_EQ(text.rest, c.rest) << c.text;
        EXPECT_EQ(text.titleValue, c.value) << c.text;
        EXPECT_EQ(text.commentNumber, c.comment) << c.text;
    }
}

TEST(ParseDecal, AttributeNamesWithOrWithoutQuotesAndTheirValues) {
    const Decal decal =
        ParseDecal(Record("*PADS-LIBRARY-PCB-DECALS-V4*", "A M 0 0 4 0 0 0 0 0",
                          {"\"Geometry.Height\" 180mil", "\"Description\"  Pin header, 2 rows  ",
                           "Plain value", "\"Unclosed name", "not an attribute"}));
    EXPECT_EQ(decal.attributes, (std::vector<DecalAttribute>{{"Geometry.Height", "180mil"},
                                                             {"Description", "Pin header, 2 rows"},
                                                             {"Plain", "value"},
                                                             {"Unclosed name", ""}}));
    EXPECT_EQ(AttributeValue(decal.attributes, "GEOMETRY.HEIGHT"), "180mil");
    EXPECT_EQ(AttributeValue(decal.attributes, "Geometry.Width"), "");
    // A count beyond the body reads what there is; PCB decals have no attribute lines.
    DecalRecord cut = Record("*PADS-LIBRARY-PCB-DECALS-V4*", "A M 0 0 4 0 0 0 0 0", {"a 1"});
    EXPECT_EQ(ParseDecal(cut).attributes.size(), 1u);
    cut.header = AnalyseHeader("!PADS-POWERPCB-V4.0-MILS!");
    EXPECT_TRUE(ParseDecal(cut).attributes.empty());
}

TEST(ParseDecal, TerminalsInFileOrderWithTheirPinNames) {
    using Terminals = std::vector<TerminalLine>;
    Texts lines = {"T-1.05 0.75 -1.3  0.9", "T1235 -2e1 0 0", "T0     0.3   0     0.3   FRM-2",
                   "T2.5 1"};
    const char* v9 = "*PADS-LIBRARY-PCB-DECALS-V9*";
    // Missing numbers read as 0; unnamed pins take their index.
    EXPECT_EQ(ParseDecal(Record(v9, "D M 0 0 0 0 0 0 4 0 0", lines)).Terminals(),
              (Terminals{{1, -1.05, 0.75, -1.3, 0.9, "1"},
                         {2, 1235, -20, 0, 0, "2"},
                         {3, 0, 0.3, 0, 0.3, "FRM-2"},
                         {4, 2.5, 1, 0, 0, "4"}}));
    // The count limits what is read; a body cut short gives the terminals it has.
    EXPECT_EQ(ParseDecal(Record(v9, "D M 0 0 0 0 0 0 2 0 0", lines)).Terminals().size(), 2u);
    EXPECT_EQ(ParseDecal(Record(v9, "D M 0 0 0 0 0 0 9 0 0", lines)).Terminals().size(), 4u);
    // Versions 3 and 4 write no pin names; a T apart from its x is passed over.
    lines.push_back("T 3 4 5 6 C3");
    const Decal v4 =
        ParseDecal(Record("*PADS-LIBRARY-PCB-DECALS-V4*", "D M 0 0 0 0 0 0 5 0", lines));
    EXPECT_EQ(v4.Terminals().at(2).pinName, "3");
    EXPECT_EQ(v4.Terminals().at(4), (TerminalLine{5, 3, 4, 5, 6, "5"}));
}

// A field that does not read leaves the parse whole: the item keeps the error, worded the same
// everywhere, for the page that draws or measures it.
TEST(ParseDecal, FieldsThatDoNotReadStayWithTheirItems) {
    const char* v4 = "*PADS-LIBRARY-PCB-DECALS-V4*";
    const struct {
        const char* header;
        Texts body;
        const char* expected;
    } cases[] = {
        {"D M 0 0 0 0 1 0 0 0",
         {"OPEN 2 wide 26", "0 0", "1 1"},
         "lib.d:11: the width of piece 1 of decal D is not a number: \"wide\""},
        {"D M 0 0 0 0 1 0 0 0",
         {"COPOPN 2 1 26 pin", "0 0", "1 1"},
         "lib.d:11: the pin of piece 1 of decal D is not a whole number: \"pin\""},
        {"D M 0 0 0 0 1 0 0 0",
         {"OPEN 2 1 26", "0 0", "1 1O"},
         "lib.d:13: the y of a corner of piece 1 of decal D is not a number: \"1O\""},
        {"D M 0 0 0 0 1 0 0 0",
         {"OPEN 9999999999 1 26", "0 0"},
         "lib.d:11: the corner count of piece 1 of decal D is not a whole number from "
         "-2147483648 to 2147483647: \"9999999999\""},
        {"D M 0 0 0 0 0 1 0 0",
         {"0 0 0 1 big 1 N", "TEXT"},
         "lib.d:11: the size of text 1 of decal D is not a number: \"big\""},
        {"D M 0 0 0 0 0 1 0 0",
         {"0 0 0 1 10 1 N", "$ x1"},
         "lib.d:12: the value of text 1 of decal D is not a number: \"x1\""},
        {"D M 0 0 0 0 0 0 2 0",
         {"T0 0 0 0 1", "T1,5 0 1.5 0 2"},
         "lib.d:12: the x of terminal 2 of decal D is not a number: \"1,5\""},
        {"D M 0 0 0 0 0 0 1 0",
         {"VALUE 0 0 0 1 1.27 0.127 N LEFT DOWN"},
         "lib.d:11: the first word of terminal 1 of decal D is not \"T\" with the x after it: "
         "\"VALUE\""},
        {"D M 0 0 0 0 0 0 1 0",
         {"T0 0 0 1e999"},
         "lib.d:11: the label y of terminal 1 of decal D is not a number within the range of "
         "numbers: \"1e999\""},
        {"D M 0 0 0 0 0 0 0 1",
         {"PAD 1 1", "-2 60 RT 0 1 1 70000"},
         "lib.d:12: the spoke count of a pad stack line of decal D is not a whole number from 0 "
         "to 65535: \"70000\""},
    };
    for (const auto& c : cases) {
        Decal decal;
        ASSERT_NO_THROW(decal = ParseDecal(Record(v4, c.header, c.body))) << c.expected;
        std::string found;
        for (const DecalPiece& piece : decal.pieces) {
            found += FaultText(piece.countFault) + FaultText(piece.fieldFault) +
                     FaultText(piece.pinFault);
            for (const PieceCorner& corner : piece.corners) {
                found += FaultText(corner.fault);
            }
        }
        for (const DecalText& text : decal.texts) {
            found += FaultText(text.fault) + FaultText(text.titleValueFault);
        }
        found += FaultText(decal.terminalFault) + FaultText(decal.stackFault);
        EXPECT_EQ(found, c.expected);
    }
    // The lists that are read whole fail where they are asked for, with their kind of error.
    const Decal bad = ParseDecal(Record(v4, "D M 0 0 0 0 0 0 1 1", {"X0 0 0 0", "PAD 1 1 P x"}));
    EXPECT_THROW(bad.Terminals(), FormatError);
    EXPECT_THROW(bad.Stacks(), ConversionError);
}

// Newer files may write anything after the layer of a piece; older ones a pin or nothing. An
// unknown keyword is kept for the drawing to report.
TEST(ParseDecal, PiecePinsAndUnknownKeywords) {
    const Decal v9 = ParseDecal(Record("*PADS-LIBRARY-PCB-DECALS-V9*", "D M 0 0 0 0 2 0 0 0 0",
                                       {"KPTCLS 1 0 1 -1 RC", "0 0", "WIDGET 1 0 1 -1", "0 0"}));
    ASSERT_EQ(v9.pieces.size(), 2u);
    EXPECT_FALSE(v9.pieces[0].pin);
    EXPECT_FALSE(v9.pieces[0].pinFault);
    EXPECT_EQ(v9.pieces[1].keyword, "WIDGET");
    // Pieces stop where the body ends.
    const Decal cut = ParseDecal(Record("*PADS-LIBRARY-PCB-DECALS-V4*", "D M 0 0 0 0 3 0 0 0",
                                        {"OPEN 3 1 26", "0 0", "1 1"}));
    ASSERT_EQ(cut.pieces.size(), 1u);
    EXPECT_EQ(cut.pieces[0].cornerCount, 3);
    EXPECT_EQ(cut.pieces[0].corners.size(), 2u);
}

}  // namespace
}  // namespace zantor
