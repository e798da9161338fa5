#include "plot/index_frame.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "common/errors.h"
#include "core/plot/plot_test_support.h"
#include "library/decal_reader.h"
#include "plot/system_text_width.h"
#include "support/page_test_support.h"

namespace zantor {
namespace {

using test::LinesOf;
using test::PlotBench;
using Lines = std::vector<std::string>;

// Page millimetres are hundredths with y up (the bench's frame); texts show pen kind 9, lines
// kind 10 at 0.25 mm.
const std::string kText = " colour=000009";
const std::string kRule = " pen=00000A/25/solid";

IndexFrameInputs Page190x260() {
    IndexFrameInputs inputs;
    inputs.width = 190;
    inputs.height = 260;
    inputs.inputPath = "C:\\LIBS\\CONN.D";
    inputs.date = "01.02.03";
    inputs.pageNumber = 2;
    inputs.pageCount = 5;
    return inputs;
}

// The move and line calls, pen included.
Lines Strokes(const RecordingCanvas& canvas) {
    Lines strokes;
    for (const std::string& line : canvas.Lines()) {
        if (line.rfind("move ", 0) == 0 || line.rfind("line ", 0) == 0) {
            strokes.push_back(line);
        }
    }
    return strokes;
}

Lines Texts(const RecordingCanvas& canvas) {
    Lines texts;
    for (const std::string& line : canvas.Lines()) {
        if (line.rfind("text", 0) == 0) {
            texts.push_back(line);
        }
    }
    return texts;
}

// The frame rectangle, then the strip's rules, with `columnRules` between them.
Lines FrameStrokes(const Lines& columnRules, const Lines& before = {}) {
    Lines strokes = before;
    for (const char* corner : {"line 19000 0", "line 19000 26000", "line 0 26000", "line 0 0"}) {
        if (strokes.size() == before.size()) {
            strokes.push_back("move 0 0");
        }
        strokes.push_back(corner + kRule);
    }
    strokes.insert(strokes.end(), columnRules.begin(), columnRules.end());
    for (const auto& [from, to] :
         {std::pair{"move 0 1000", "line 19000 1000"}, std::pair{"move 8500 0", "line 8500 1000"},
          std::pair{"move 15000 0", "line 15000 1000"},
          std::pair{"move 15000 500", "line 19000 500"}}) {
        strokes.push_back(from);
        strokes.push_back(to + kRule);
    }
    return strokes;
}

TEST(IndexFrame, StripLabelsValuesAndPageText) {
    PlotBench bench;
    DrawIndexFrame(bench.frame, Page190x260());
    EXPECT_EQ(Texts(bench.canvas),
              (Lines{"text 200 980 280 \"Arial\" \"COMPANY:\"" + kText,
                     "text 8650 980 280 \"Arial\" \"LIBRARY:\"" + kText,
                     "text 15100 430 280 \"Arial\" \"PAGE\"" + kText,
                     "text 15100 930 280 \"Arial\" \"PLOTDATE:\"" + kText,
                     "text 0 -30 170 \"Arial\" \"ZANTOR 7.30 Brovik '96-'03\"" + kText,
                     "text 17200 930 280 \"Arial\" \"01.02.03\"" + kText,
                     "text-centre 11800 700 500 \"Arial\" \"CONN\"" + kText,
                     "text 16800 430 280 \"Arial\" \"2   OF  5\"" + kText}));
    EXPECT_EQ(IndexPageText(12, 300), "12   OF  300");
}

TEST(IndexFrame, ColumnRulesStandBetweenTheColumnsAboveTheStrip) {
    PlotBench bench;
    bench.settings.Columns = 3;
    DrawIndexFrame(bench.frame, Page190x260());
    // At W - 2W/3 and W - W/3, from the strip to the top.
    EXPECT_EQ(Strokes(bench.canvas), FrameStrokes({"move 6333 1000", "line 6333 26000" + kRule,
                                                   "move 12667 1000", "line 12667 26000" + kRule}));

    PlotBench one;
    one.settings.Columns = 1;
    DrawIndexFrame(one.frame, Page190x260());
    EXPECT_EQ(Strokes(one.canvas), FrameStrokes({}));

    PlotBench parttype;
    parttype.settings.Columns = 3;
    DrawParttypeFrame(parttype.frame, Page190x260());
    EXPECT_EQ(Strokes(parttype.canvas), FrameStrokes({}));
    EXPECT_EQ(Texts(parttype.canvas), Texts(bench.canvas));

    PlotBench none;
    none.settings.Columns = 0;
    EXPECT_THROW(DrawIndexFrame(none.frame, Page190x260()), RangeError);
}

TEST(IndexFrame, GeneralCommentWithItsRuleRaisesTheColumnRules) {
    for (const auto& [adjust, expected] :
         {std::pair{0, "text 300 1450 300 \"Arial\" \"DRAFT\""},
          std::pair{1, "text-centre 9500 1450 300 \"Arial\" \"DRAFT\""},
          std::pair{2, "text-right 18700 1450 300 \"Arial\" \"DRAFT\""}}) {
        PlotBench bench;
        bench.settings.Columns = 2;
        bench.settings.GenComment = "DRAFT";
        bench.settings.GenComSize = 3;
        bench.settings.GenComAdjust = adjust;
        DrawIndexFrame(bench.frame, Page190x260());
        EXPECT_EQ(Texts(bench.canvas)[5], expected + kText) << adjust;
        // b = 3 + 2.5: the rule at 3 + 11.5 + 1, the column rule from b + 10.
        EXPECT_EQ(Strokes(bench.canvas), FrameStrokes({"move 9500 1550", "line 9500 26000" + kRule},
                                                      {"move 0 1550", "line 19000 1550" + kRule}));
    }
    PlotBench bench;
    EXPECT_DOUBLE_EQ(IndexCommentBand(bench.settings), 0.0);
    bench.settings.GenComment = "x";
    EXPECT_DOUBLE_EQ(IndexCommentBand(bench.settings), 4.5);
}

TEST(IndexFrame, CompanyAndPcbLabelAndPensThatAreNotPlotted) {
    PlotBench bench;
    bench.settings.Company = "BROVIK";
    bench.settings.CompanyFont = "Courier";
    IndexFrameInputs inputs = Page190x260();
    inputs.pcbInput = true;
    DrawIndexFrame(bench.frame, inputs);
    const Lines texts = Texts(bench.canvas);
    EXPECT_EQ(texts[1], "text 8650 980 280 \"Arial\" \"PCB:\"" + kText);
    EXPECT_EQ(texts[6], "text-centre 4800 900 700 \"Courier\" \"BROVIK\"" + kText);

    // A long name is made smaller to stay in its 60 mm, measured in its font.
    test::App();
    PlotBench longName;
    longName.settings.Company = std::string(30, 'W');
    DrawIndexFrame(longName.frame, inputs);
    std::istringstream words(Texts(longName.canvas)[6]);
    std::string op;
    int x = 0, top = 0, height = 0;
    words >> op >> x >> top >> height;
    EXPECT_EQ(op + " " + std::to_string(x), "text-centre 4800");
    EXPECT_LT(height, 700);
    const double width = SystemTextWidth(longName.settings.Company, "Arial", height / 100.0);
    EXPECT_LE(width, 60);
    EXPECT_GT(width, 55);  // no smaller than it needs to be

    PlotBench noText;
    noText.settings.PenTable[0].colour[kPenFormText] = kNotPlotted;
    noText.settings.PenTable[0].colour[kPenFormLine] = kNotPlotted;
    DrawIndexFrame(noText.frame, inputs);
    EXPECT_TRUE(noText.canvas.Lines().empty());
}

// A V4 library record in millimetres with one 20 mm outline line along x through the origin,
// 0.2 mm wide.
DecalRecord Bar() {
    DecalRecord record;
    record.header = AnalyseHeader("*PADS-LIBRARY-PCB-DECALS-V4*");
    record.name = "BAR20";
    record.unitLetter = "M";
    record.unitFactor = 1.0;
    record.lines = {"OPEN 2 0.2 26", "-10 0", "10 0"};
    record.counts.pieces = 1;
    LocateSections(record);
    return record;
}

// Two columns of three cells, 50 mm high, on a 190 x 260 frame; the bench's frame at 1 : 2 with
// the decal origin at (150, 132).
struct CellBench : PlotBench {
    StrokeFont font;
    DecalRecord record = Bar();

    CellBench() {
        settings.Columns = 2;
        settings.PartsEachColumn = 3;
        settings.PlotOrigins = false;
        Rescale(0.5);
        MoveOrigin({150, 132});
    }

    void Draw(int column, int row) {
        UnknownPieceReports reports;
        DrawIndexCell(frame, {ParseDecal(record), font, {column, row, 50, 95, 3, 260}, reports});
    }
};

TEST(IndexCell, NameAtTheLeftOfTheColumnScaleUnderItAndTheDecalAtTheFramesPlacement) {
    CellBench bench;
    bench.Draw(2, 3);
    // Cell bottom 260 - 3 x 50 - 3 = 107, centre 132; the name 6/2 mm high at x 40/2 + 95.
    EXPECT_EQ(Texts(bench.canvas),
              Lines{"text-centre 11500 13350 300 \"Arial\" \"BAR20\"" + kText});
    EXPECT_EQ(LinesOf(bench.canvas, "line"), Lines{"line 15500 13200 pen=000003/10/solid"});
    EXPECT_EQ(LinesOf(bench.canvas, "move"), Lines{"move 14500 13200"});

    CellBench scaled;
    scaled.settings.PrintScale = true;
    scaled.Rescale(0.25);
    scaled.Draw(2, 3);
    EXPECT_EQ(Texts(scaled.canvas),
              (Lines{"text-centre 11500 13500 300 \"Arial\" \"BAR20\"" + kText,
                     "text-centre 11500 13150 250 \"Arial\" \"(1 : 4)\"" + kText}));
    EXPECT_EQ(IndexScaleText(3), "(3 : 1)");
    EXPECT_EQ(IndexScaleText(1.0 / 3), "(1 : 3)");
}

TEST(IndexCell, SeparatorUnderEveryCellButAColumnsLastAndOriginMarkerWhenLargeEnough) {
    for (int row = 1; row <= 3; ++row) {
        CellBench bench;
        bench.settings.PrintSepLines = true;
        bench.Draw(2, row);
        const Lines rules = LinesOf(bench.canvas, "line");
        ASSERT_EQ(rules.size(), row < 3 ? 2u : 1u) << row;
        if (row < 3) {
            const std::string y = std::to_string((260 - 50 * row - 3) * 100);
            EXPECT_EQ(rules[0], "line 19000 " + y + kRule) << row;
            EXPECT_EQ(LinesOf(bench.canvas, "move")[0], "move 9500 " + y);
        }
    }
    for (const auto& [size, arcs] : {std::pair{6.0, 2u}, std::pair{0.01, 0u}}) {
        CellBench bench;
        bench.settings.PlotOrigins = true;
        bench.settings.OriginSize = size;
        bench.Draw(1, 1);
        EXPECT_EQ(LinesOf(bench.canvas, "arc").size(), arcs) << size;
    }
}

}  // namespace
}  // namespace zantor
