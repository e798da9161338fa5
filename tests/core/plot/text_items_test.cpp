#include "plot/text_items.h"

#include <gtest/gtest.h>

#include <cmath>

#include "common/errors.h"
#include "core/font/font_builder.h"
#include "core/plot/plot_test_support.h"
#include "library/file_header.h"

namespace zantor {
namespace {

using test::MakeRecord;
using test::PlotBench;
using Lines = std::vector<std::string>;

// A font of codes 32 to 95 with H6 = 16, so that at size 30.4 one font unit is one library unit
// both ways. "A" is a stroke from (0, 0) to (4, 0) with an advance of 6, "_" a stroke from
// (0, -2) to (6, -2); every other code is empty with an advance of 2.
StrokeFont TinyFont() {
    constexpr int kLast = 95;
    constexpr std::size_t kBase = 28 + 4 * (kLast - 30);
    std::vector<std::uint8_t> bytes(kBase, 0);
    bytes[6] = 16;
    bytes[24] = kLast;
    for (int code = 32; code <= kLast; ++code) {
        const std::size_t entry = 28 + 4 * static_cast<std::size_t>(code - 32);
        const int offset = code == 'A' ? 2 : code == '_' ? 8 : 0;
        bytes[entry] = static_cast<std::uint8_t>(offset);
        bytes[entry + 2] = code == 'A' ? 6 : 2;
    }
    const std::uint8_t strokes[] = {255, 255,                   // empty glyph
                                    0,   8,   4, 8, 255, 255,   // A
                                    0,   6,   6, 6, 255, 255};  // _
    bytes.insert(bytes.end(), std::begin(strokes), std::end(strokes));
    StrokeFont font;
    font.LoadBytes(std::move(bytes));
    return font;
}

// A record of text items only, each a header line and a text line.
DecalRecord TextRecord(const std::vector<std::pair<std::string, std::string>>& items) {
    std::vector<std::string> lines;
    for (const auto& [header, text] : items) {
        lines.push_back(header);
        lines.push_back(text);
    }
    return MakeRecord(std::move(lines), 0, static_cast<int>(items.size()), 0);
}

TextItemsPage ListingPage() {
    TextItemsPage page;
    page.decalRun = true;
    page.printComments = true;
    page.commentTop = 250;
    page.commentBase = 2;
    page.rightLimit = 190;
    page.commentFont = "Liberation Sans";
    return page;
}

TEST(DrawTextItems, OrdinaryTextsAreTrimmedAndDrawnWithTheTextPenOfTheirLayer) {
    PlotBench bench;
    bench.settings.PenTable[1].layer = 7;
    bench.settings.PenTable[1].colour[kPenText] = 0x0000FF;
    const StrokeFont font = TinyFont();
    const DecalRecord record = TextRecord({{"1 2 0 1 30.4 0.1 N", "  AA \t"},
                                           {"1 2 0 7 30.4 0.2 M", "AA"},
                                           {"1 2 90 1 30.4 0.1", "A"}});
    const TextItemsResult result =
        DrawTextItems(bench.frame, ParseDecal(record), font, ListingPage());
    EXPECT_EQ(bench.canvas.Lines(),
              (Lines{// plain, the second "A" one advance (6 + 4) further
                     "move 100 200", "line 500 200 pen=000004/10/solid", "move 1100 200",
                     "line 1500 200 pen=000004/10/solid",
                     // mirrored, in the layer's own colour, running to the left
                     "move 100 200", "line -300 200 pen=0000FF/20/solid", "move -900 200",
                     "line -1300 200 pen=0000FF/20/solid",
                     // rotated by 90 degrees: the baseline goes up
                     "move 100 200", "line 100 600 pen=000004/10/solid"}));
    // No comment line: no separator, nothing left for the title block.
    EXPECT_EQ(result.largestComment, 0);
    EXPECT_EQ(result.nameSlot, "");
}

TEST(DrawTextItems, WidthsFollowTheScaleUnplottedLayersAreSkippedAndDollarLinesKept) {
    PlotBench bench;
    bench.Rescale(2, 0.0254);
    DrawTextItems(bench.frame, ParseDecal(TextRecord({{"0 0 0 1 30.4 10 N", "A"}})), TinyFont(),
                  TextItemsPage{});
    // 4 mils at 2:1 is 0.2032 mm; the 10 mil line is 0.508 mm wide.
    EXPECT_EQ(bench.canvas.Lines(), (Lines{"move 0 0", "line 20 0 pen=000004/51/solid"}));

    PlotBench unplotted;
    unplotted.settings.PenTable[0].colour[kPenText] = kNotPlotted;
    unplotted.canvas.SetPenColour(0x777777);
    DrawTextItems(unplotted.frame, ParseDecal(TextRecord({{"1 2 0 3 30.4 0.1 N", "AA"}})),
                  TinyFont(), ListingPage());
    EXPECT_TRUE(unplotted.canvas.Lines().empty());
    EXPECT_EQ(unplotted.canvas.PenColour(), 0x777777);

    // The height for the title block is not drawn.
    PlotBench dollar;
    const TextItemsResult result =
        DrawTextItems(dollar.frame, ParseDecal(TextRecord({{"1 2 0 1 30.4 0.1 N", "$ 12.5 mm"}})),
                      TinyFont(), ListingPage());
    EXPECT_TRUE(dollar.canvas.Lines().empty());
    EXPECT_EQ(result.nameSlot, "$");
    EXPECT_EQ(result.labelValue, 12.5);
}

TEST(DrawTextItems, CommentLinesAreListedOnTheDecalPageWithTheirSeparator) {
    PlotBench bench({.surface = PlotSurface::Printer,
                     .mmPerUnitX = 0.01,
                     .mmPerUnitY = 0.01,
                     .pageHeight = 297,
                     .paintBoxHeight = 0});
    const DecalRecord record = TextRecord({
        {"0 0 0 30 30.4 0.1 N", "@@3 Third line"},
        {"0 0 0 30 30.4 0.1 N", "@@1abcdefghijklmnopq First  line  "},
        {"0 0 0 30 30.4 0.1 N", "@@0 x"},  // no comment number: ordinary text
        {"0 0 0 20 30.4 0.1 N", "@@2 x"},  // not on the comment layer
        {"0 0 0 30 30.4 0.1 N", "@@1x"},   // too short
    });
    const TextItemsResult result =
        DrawTextItems(bench.frame, ParseDecal(record), TinyFont(), ListingPage());
    EXPECT_EQ(bench.canvas.Lines(),
              (Lines{// at 3 mm from the left, lower edges at 231 and 239 mm
                     R"(text 300 -6300 300 "Liberation Sans" "Third line" colour=000009)",
                     R"(text 300 -5500 300 "Liberation Sans" "First  line" colour=000009)",
                     // "x" is beyond the font and drawn as "_" after four empty glyphs
                     "move 2400 -29900", "line 3000 -29900 pen=000004/10/solid", "move 2400 -29900",
                     "line 3000 -29900 pen=000004/10/solid", "move 1800 -29900",
                     "line 2400 -29900 pen=000004/10/solid",
                     // under the lowest comment slot, across the page
                     "move 0 -6700", "line 19000 -6700 pen=00000A/25/solid"}));
    EXPECT_EQ(result.largestComment, 3);
    EXPECT_EQ(result.nameSlot, "@@1abcdefghijklm");
}

TEST(DrawTextItems, CommentsOutsideAListingAreNotDrawnAtAllAndNeedTheirPens) {
    const DecalRecord record = TextRecord({{"0 0 0 30 30.4 0.1 N", "@@2 Comment"}});
    TextItemsPage indexPage = ListingPage();
    indexPage.decalRun = false;
    TextItemsPage optionOff = ListingPage();
    optionOff.printComments = false;
    for (const TextItemsPage& page : {indexPage, optionOff}) {
        PlotBench bench;
        const TextItemsResult result =
            DrawTextItems(bench.frame, ParseDecal(record), TinyFont(), page);
        EXPECT_TRUE(bench.canvas.Lines().empty());
        EXPECT_EQ(result.largestComment, 0);
    }
    PlotBench noFormText;
    noFormText.settings.PenTable[0].colour[kPenFormText] = kNotPlotted;
    DrawTextItems(noFormText.frame, ParseDecal(record), TinyFont(), ListingPage());
    EXPECT_TRUE(noFormText.canvas.Lines().empty());
    // No separator without a form-line pen.
    PlotBench noFormLine;
    noFormLine.settings.PenTable[0].colour[kPenFormLine] = kNotPlotted;
    const TextItemsResult result =
        DrawTextItems(noFormLine.frame, ParseDecal(record), TinyFont(), ListingPage());
    ASSERT_EQ(noFormLine.canvas.Lines().size(), 1u);
    EXPECT_TRUE(noFormLine.canvas.Lines()[0].starts_with("text "));
    EXPECT_EQ(result.largestComment, 2);
}

TEST(DrawTextItems, NewerFilesTakeTheTextFromTheLastLineOfEachRecord) {
    // PCB files from V2005 on: header, font line, text; mirrored by "M".
    DecalRecord pcb = MakeRecord({"1 2 0 1 30.4 0.1 M LEFT DOWN", "Regular <Romansim Stroke Font>",
                                  "A", "1 2 90 1 30.4 0.1 N CENTER CENTER", "Regular", "$ 7.5"},
                                 0, 2, 0);
    pcb.header = AnalyseHeader("!PADS-POWERPCB-V9.5-MILS!");
    PlotBench bench;
    const TextItemsResult result =
        DrawTextItems(bench.frame, ParseDecal(pcb), TinyFont(), ListingPage());
    EXPECT_EQ(bench.canvas.Lines(), (Lines{"move 100 200", "line -300 200 pen=000004/10/solid"}));
    EXPECT_EQ(result.nameSlot, "$");
    EXPECT_EQ(result.labelValue, 7.5);

    // Libraries after version 4 mark a mirrored text with 1 and quote the font on the line.
    DecalRecord library =
        MakeRecord({"1 2 0 1 30.4 0.1 1 0 0 0 \"Default Font\"", "A",
                    "1 2 0 1 30.4 0.1 0 0 0 0 \"Regular <Romansim Stroke Font>\"", "A"},
                   0, 2, 0);
    library.header = AnalyseHeader("*PADS-LIBRARY-PCB-DECALS-V9*");
    PlotBench lib;
    DrawTextItems(lib.frame, ParseDecal(library), TinyFont(), ListingPage());
    EXPECT_EQ(lib.canvas.Lines(), (Lines{"move 100 200", "line -300 200 pen=000004/10/solid",
                                         "move 100 200", "line 500 200 pen=000004/10/solid"}));
}

TEST(DrawTextItems, NewerFilesPlaceTheJustifiedPointOfATextAtItsPosition) {
    // "A" is 10 wide as drawn (advance 6 + 4) and the size is 30.4 high; the position is (1, 2).
    const auto drawn = [](const char* firstLine, std::vector<std::string> lines) {
        DecalRecord record = MakeRecord(std::move(lines), 0, 1, 0);
        record.header = AnalyseHeader(firstLine);
        PlotBench bench;
        DrawTextItems(bench.frame, ParseDecal(record), TinyFont(), ListingPage());
        return bench.canvas.Lines();
    };
    const char* library = "*PADS-LIBRARY-PCB-DECALS-V9*";
    const char* board = "!PADS-POWERPCB-V9.5-MILS!";
    // Centred both ways (17), mirrored: the text runs from x 6 to -4, its middle on y 2.
    EXPECT_EQ(drawn(library, {"1 2 0 1 30.4 0.1 1 17 0 0 \"Default Font\"", "A"}),
              (Lines{"move 600 -1320", "line 200 -1320 pen=000004/10/solid"}));
    // Right and top (2 + 16 x 2): the text ends at x 1 and hangs below y 2.
    EXPECT_EQ(drawn(library, {"1 2 0 1 30.4 0.1 0 34 0 0 \"Default Font\"", "A"}),
              (Lines{"move -900 -2840", "line -500 -2840 pen=000004/10/solid"}));
    EXPECT_EQ(drawn(board, {"1 2 0 1 30.4 0.1 N CENTER UP", "Regular", "A"}),
              (Lines{"move -400 -2840", "line 0 -2840 pen=000004/10/solid"}));
    // Right-justified and turned by 90 degrees: it ends at the position, running upwards.
    EXPECT_EQ(drawn(board, {"1 2 90 1 30.4 0.1 N RIGHT DOWN", "Regular", "A"}),
              (Lines{"move 100 -800", "line 100 -400 pen=000004/10/solid"}));
    // Versions 3 and 4 know no justification: the words after the mirror mark change nothing.
    DecalRecord old = MakeRecord({"1 2 0 1 30.4 0.1 N CENTER UP", "A"}, 0, 1, 0);
    PlotBench bench;
    DrawTextItems(bench.frame, ParseDecal(old), TinyFont(), ListingPage());
    EXPECT_EQ(bench.canvas.Lines(), (Lines{"move 100 200", "line 500 200 pen=000004/10/solid"}));
}

// The room a text takes on the decal is its measured extent from the point the text starts at,
// turned and mirrored as it is drawn. With H6 19 at size 30.4 a font unit is one library unit:
// "AA" measures one 8-bit advance (18) plus the last "A"'s ink (10) across and 20 high.
TEST(TextExtents, MeasuredBoxFromTheTextsStartTurnedAndMirroredAsDrawn) {
    StrokeFont font;
    font.LoadBytes(test::SampleFont(19));
    const auto extents = [&font](std::vector<std::string> lines) {
        const int texts = static_cast<int>(lines.size() / 2);
        DecalExtents e;
        TextExtents(ParseDecal(MakeRecord(std::move(lines), 0, texts, 0)), font, e);
        // To a millionth: the font's factors are not exact in binary.
        const auto round = [](double v) { return std::round(v * 1e6) / 1e6; };
        return e.Empty() ? std::vector<double>{}
                         : std::vector<double>{round(e.xmin), round(e.ymin), round(e.xmax),
                                               round(e.ymax)};
    };
    using Box = std::vector<double>;
    EXPECT_EQ(extents({"5 7 0 1 30.4 0.1 N", "  AA "}), (Box{5, 7, 33, 27}));
    // Turned by 90 degrees the text runs up and stands to the left of its baseline.
    EXPECT_EQ(extents({"5 7 90 1 30.4 0.1 N", "AA"}), (Box{-15, 7, 5, 35}));
    // Mirrored it runs to the left; half the size, half the room.
    EXPECT_EQ(extents({"5 7 0 1 15.2 0.1 M", "AA"}), (Box{-9, 7, 5, 17}));
    EXPECT_EQ(extents({"5 7 180 1 30.4 0.1 M", "AA"}), (Box{5, -13, 33, 7}));
    // Two texts: the box of both.
    EXPECT_EQ(extents({"0 0 0 1 30.4 0.1 N", "A", "-50 -60 0 1 30.4 0.1 N", "A"}),
              (Box{-50, -60, 10, 20}));

    // Title values and comments are not drawn on the decal, blank texts draw nothing: no room.
    EXPECT_EQ(extents({"900 900 0 1 30.4 0.1 N", "$ HEIGHT 3.5", "900 900 0 30 30.4 0.1 N",
                       "@@1 a comment line", "900 900 0 1 30.4 0.1 N", "   "}),
              Box{});

    // Newer files place the text by its justified point. Centred both ways and mirrored, "A" of
    // the tiny font is drawn from x 6 (half its 10 units right of 1) and y 2 - 15.2, and measures
    // 4 x 19 / 16 to the left, with no height.
    DecalRecord justified = MakeRecord({"1 2 0 1 30.4 0.1 1 17 0 0 \"Default Font\"", "A"}, 0, 1);
    justified.header = AnalyseHeader("*PADS-LIBRARY-PCB-DECALS-V9*");
    DecalExtents e;
    TextExtents(ParseDecal(justified), TinyFont(), e);
    EXPECT_DOUBLE_EQ(e.xmin, 1.25);
    EXPECT_DOUBLE_EQ(e.xmax, 6);
    EXPECT_DOUBLE_EQ(e.ymin, -13.2);
    EXPECT_DOUBLE_EQ(e.ymax, -13.2);

    // A text whose header does not read fails the measuring as it fails the drawing.
    EXPECT_THROW(extents({"5 x 0 1 30.4 0.1 N", "A"}), Error);
}

}  // namespace
}  // namespace zantor
