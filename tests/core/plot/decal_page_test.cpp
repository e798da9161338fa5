#include "plot/decal_page.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <tuple>

#include "core/plot/plot_test_support.h"
#include "library/decal_reader.h"
#include "plot/decal_attributes.h"
#include "plot/pieces.h"

namespace zantor {
namespace {

using test::LinesOf;
using test::PlotBench;
using Lines = std::vector<std::string>;

constexpr double kWidth = 190;
constexpr double kHeight = 260;

// A V4 library record in millimetres: `attributes` lines, then the given pieces and texts.
DecalRecord LibraryRecord(const Lines& attributes, const Lines& pieces, int pieceCount,
                          const Lines& texts = {}, int textCount = 0) {
    DecalRecord record;
    record.header = AnalyseHeader("*PADS-LIBRARY-PCB-DECALS-V4*");
    record.name = "PAGE1";
    record.unitLetter = "M";
    record.unitFactor = 1.0;
    record.lines = attributes;
    record.lines.insert(record.lines.end(), pieces.begin(), pieces.end());
    record.lines.insert(record.lines.end(), texts.begin(), texts.end());
    record.counts.attributes = static_cast<std::uint16_t>(attributes.size());
    record.counts.pieces = static_cast<std::uint16_t>(pieceCount);
    record.counts.texts = static_cast<std::uint16_t>(textCount);
    LocateSections(record);
    return record;
}

// A line of 20 mm along x through the origin on the outline layer.
DecalRecord Bar() {
    return LibraryRecord({}, {"OPEN 2 0.2 26", "-10 0", "10 0"}, 1);
}

DecalExtents ExtentsOf(const DecalRecord& record) {
    DecalExtents extents;
    PieceExtents(ParseDecal(record), extents);
    return extents;
}

// The frame's corner on the page's (0, 0): page millimetres are hundredths with y up. The decal
// origin stands at (100, 150) mm, at 2 : 1.
struct PageBench : PlotBench {
    StrokeFont font;
    AttributeList attributes;

    PageBench() {
        Rescale(2);
        MoveOrigin({100, 150});
        settings.PlotOrigins = false;
        settings.PlotPadstack = false;
        settings.GridLineWidth = 0.1;
    }

    void Draw(const DecalRecord& record) {
        const Decal decal = ParseDecal(record);
        DecalPageInputs inputs{.decal = decal,
                               .font = font,
                               .attributes = attributes,
                               .extents = ExtentsOf(record),
                               .width = kWidth,
                               .height = kHeight,
                               .inputPath = "/libs/test.d",
                               .inputKind = {true, false},
                               .date = "01.02.03"};
        DrawDecalPage(frame, inputs);
    }

    std::ptrdiff_t IndexOf(const std::string& line) const {
        const Lines& all = canvas.Lines();
        return std::find(all.begin(), all.end(), line) - all.begin();
    }
    bool Has(const std::string& line) const {
        return IndexOf(line) < static_cast<std::ptrdiff_t>(canvas.Lines().size());
    }
    bool HasPart(const std::string& part) const {
        return FirstIndexWith(part) < static_cast<std::ptrdiff_t>(canvas.Lines().size());
    }
    std::ptrdiff_t FirstIndexWith(const std::string& part) const {
        const Lines& all = canvas.Lines();
        return std::find_if(
                   all.begin(), all.end(),
                   [&](const std::string& line) { return line.find(part) != std::string::npos; }) -
               all.begin();
    }
};

// The y (horizontal lines) or x (vertical lines) of the grid lines recorded, in order.
std::vector<int> GridLines(const RecordingCanvas& canvas, bool horizontal) {
    std::vector<int> found;
    const Lines& all = canvas.Lines();
    for (std::size_t i = 0; i + 1 < all.size(); ++i) {
        int x1 = 0, y1 = 0, x2 = 0, y2 = 0;
        if (std::sscanf(all[i].c_str(), "move %d %d", &x1, &y1) != 2 ||
            std::sscanf(all[i + 1].c_str(), "line %d %d", &x2, &y2) != 2 ||
            all[i + 1].find("pen=000008/") == std::string::npos) {
            continue;
        }
        if (horizontal && y1 == y2) {
            found.push_back(y1);
        } else if (!horizontal && x1 == x2) {
            found.push_back(x1);
        }
    }
    return found;
}

TEST(DrawGrid, LinesRunThroughTheOriginAtTheStepAndStopBelowTheListedAttributes) {
    PageBench bench;
    bench.settings.GridSize = 50;
    bench.settings.GridUnit = 1;
    bench.settings.GridLineStyle = 1;
    DrawGrid(bench.frame, kWidth, kHeight, 0);
    // 50 mils at 2 : 1 is 2.54 mm. The area: x 10 to 180, y 110 to 250. Through the origin
    // first, then upwards, then downwards.
    const std::vector<int> rows = GridLines(bench.canvas, true);
    ASSERT_EQ(rows.size(), 40u + 15u);
    EXPECT_EQ((std::vector<int>{rows[0], rows[1], rows[39], rows[40], rows[54]}),
              (std::vector<int>{15000, 15254, 24906, 14746, 11190}));
    const std::vector<int> columns = GridLines(bench.canvas, false);
    ASSERT_EQ(columns.size(), 32u + 35u);
    EXPECT_EQ((std::vector<int>{columns[0], columns[31], columns[32], columns[66]}),
              (std::vector<int>{10000, 17874, 9746, 1110}));
    EXPECT_EQ(bench.canvas.Lines()[1], "line 18000 15000 pen=000008/10/dash");
    // The pitch in the area's lower left corner, in the Origin colour; the pen is solid again.
    EXPECT_EQ(bench.canvas.Lines().back(),
              R"(text 1000 11280 280 "Arial" "Grid = 50.00 mils" colour=000008)");
    EXPECT_EQ(bench.canvas.PenStyleNow(), PenStyle::Solid);

    PageBench mm;
    mm.settings.GridSize = 5;
    mm.settings.GridUnit = 0;
    mm.settings.GridLineStyle = 2;
    mm.Rescale(1);
    DrawGrid(mm.frame, kWidth, kHeight, 2);
    // The area's top is 250 - 2 x 4 = 242 mm; 240 is the last line up, 115 the last down (a line
    // on the bottom bound 110 is not drawn).
    const std::vector<int> mmRows = GridLines(mm.canvas, true);
    ASSERT_EQ(mmRows.size(), 19u + 7u);
    EXPECT_EQ(mmRows[18], 24000);
    EXPECT_EQ(mmRows.back(), 11500);
    EXPECT_EQ(mm.IndexOf("line 10000 24200 pen=000008/10/dot"), mm.IndexOf("move 10000 11000") + 1);
    EXPECT_EQ(mm.canvas.Lines().back(),
              R"(text 1000 11280 280 "Arial" "Grid = 5.00 mm" colour=000008)");
}

TEST(DrawGrid, OptionsAndPensLeaveThingsOut) {
    PageBench noLabel;
    noLabel.settings.ShowGridSize = false;
    DrawGrid(noLabel.frame, kWidth, kHeight, 0);
    EXPECT_FALSE(noLabel.canvas.Lines().empty());
    EXPECT_TRUE(LinesOf(noLabel.canvas, "text").empty());

    PageBench noPen;
    noPen.settings.PenTable[0].colour[kPenOrigin] = kNotPlotted;
    DrawGrid(noPen.frame, kWidth, kHeight, 0);
    EXPECT_TRUE(noPen.canvas.Lines().empty());

    // A pitch of nothing, or so fine it would only blacken the page.
    for (const double size : {0.0, 0.001}) {
        PageBench bench;
        bench.settings.GridSize = size;
        bench.settings.GridUnit = 0;
        DrawGrid(bench.frame, kWidth, kHeight, 0);
        EXPECT_TRUE(LinesOf(bench.canvas, "line").empty()) << size;
    }
}

// A decal far from its origin puts the origin far off the page; the grid must still come out
// (a line where a step lands inside the area) and in bounded time, whichever side it lies on.
TEST(DrawGrid, OriginFarOffThePageEndsWithTheLinesThatFallInside) {
    for (const double far : {1e17, -1e17, 3e15, -3e15, 1e300}) {
        for (const bool horizontal : {true, false}) {
            PageBench bench;
            bench.settings.GridSize = 5;
            bench.settings.GridUnit = 0;
            bench.Rescale(1);
            bench.MoveOrigin(horizontal ? PagePoint{100, far} : PagePoint{far, 150});
            DrawGrid(bench.frame, kWidth, kHeight, 0);
            // Rows from 110 to 250 mm, columns from 10 to 180 mm at most, one per 5 mm: where
            // the far origin's multiples land depends on rounding, the count must not.
            const std::vector<int> lines = GridLines(bench.canvas, horizontal);
            EXPECT_LE(lines.size(), horizontal ? 29u : 35u) << far;
            for (const int at : lines) {
                EXPECT_GT(at, horizontal ? 11000 : 1000) << far;
                EXPECT_LT(at, horizontal ? 25000 : 18000) << far;
            }
        }
    }
}

TEST(DecalPage, OriginMarkerIsACircleWithACrossOfOriginSizeOnPaperWhenAskedFor) {
    PageBench bench;
    bench.settings.OriginSize = 6;
    DrawOriginMarker(bench.frame);
    // 6 mm across at 2 : 1 is a radius of 1.5 library units, 3 mm on the page.
    EXPECT_EQ(bench.canvas.Lines(),
              (Lines{"arc 9700 14700 10300 15300 10300 15300 9700 14700 pen=000008/12/solid",
                     "arc 9700 14700 10300 15300 9700 14700 10300 15300 pen=000008/12/solid",
                     "move 9700 15000", "line 10300 15000 pen=000008/12/solid", "move 10000 14700",
                     "line 10000 15300 pen=000008/12/solid"}));
    for (const auto& [plot, size, drawn] :
         {std::tuple{true, 6.0, true}, std::tuple{true, 0.01, false},
          std::tuple{false, 6.0, false}}) {
        PageBench page;
        page.settings.PlotOrigins = plot;
        page.settings.OriginSize = size;
        page.Draw(Bar());
        EXPECT_EQ(LinesOf(page.canvas, "arc").size(), drawn ? 2u : 0u) << plot << " " << size;
    }
}

TEST(DecalPage, GridStandsBehindOrInFrontOfTheDecal) {
    const std::string piece = "line 12000 15000 pen=000003/40/solid";
    for (const int position : {0, 1}) {
        PageBench bench;
        bench.settings.ShowGrid = true;
        bench.settings.GridPosition = position;
        bench.Draw(Bar());
        ASSERT_TRUE(bench.Has(piece));
        EXPECT_EQ(bench.FirstIndexWith("pen=000008/10/") < bench.IndexOf(piece), position == 0);
    }
    PageBench none;
    none.Draw(Bar());
    EXPECT_FALSE(none.HasPart("pen=000008/"));
}

TEST(DecalPage, ViewBoxSaysThePictureIsTooBigAtTwoToOne) {
    PageBench bench;
    bench.settings.View1_1 = true;
    bench.Draw(Bar());
    // The box 78.806 x 56 mm in the lower right corner, 3 mm in from the frame.
    EXPECT_EQ(bench.IndexOf("move 10819 4000") + 1,
              bench.IndexOf("line 18700 4000 pen=00000A/25/solid"));
    EXPECT_TRUE(bench.Has("line 18700 9600 pen=00000A/25/solid"));
    EXPECT_TRUE(bench.Has("text 11019 9550 200 \"Arial\" \"(1 : 1)\" colour=000009"));
    EXPECT_TRUE(bench.Has("text 13760 7000 400 \"Arial\" \"(picture too big)\" colour=000009"));
    // The decal is drawn once, in the main picture.
    EXPECT_EQ(std::count_if(bench.canvas.Lines().begin(), bench.canvas.Lines().end(),
                            [](const std::string& line) {
                                return line.find("pen=000003/") != std::string::npos;
                            }),
              1);
}

TEST(DecalPage, ViewBoxShowsTheDecalLifeSizeCentredAtFiveToOne) {
    PageBench bench;
    bench.settings.View1_1 = true;
    bench.Rescale(5);
    // A bar whose extents reach further right and up: their middle (10, 1) goes to the box's
    // middle (147.597, 68).
    const DecalRecord record =
        LibraryRecord({}, {"OPEN 2 0.2 26", "-10 0", "10 0", "OPEN 2 0.2 26", "30 2", "30 2"}, 2);
    bench.Draw(record);
    EXPECT_EQ(bench.IndexOf("move 12760 6700") + 1,
              bench.IndexOf("line 14760 6700 pen=000003/20/solid"));
    // The main picture at 5 : 1 round (100, 150), and no "(picture too big)".
    EXPECT_EQ(bench.IndexOf("move 5000 15000") + 1,
              bench.IndexOf("line 15000 15000 pen=000003/100/solid"));
    EXPECT_FALSE(bench.HasPart("picture too big"));
    // The page's own placement is back.
    EXPECT_EQ(bench.frame.Placement().scale, 5);
    EXPECT_EQ(bench.frame.Placement().origin.x, 100);
    EXPECT_EQ(bench.frame.Placement().origin.y, 150);
}

TEST(DecalPage, CheckedAttributesAreListedAtTheTopAboveTheComments) {
    PageBench bench;
    bench.settings.PrintAttr = true;
    bench.settings.PrintComm = true;
    bench.settings.HeightInfo = 1;
    bench.attributes = {
        {"Geometry.Height", true}, {"Description", false}, {"Value", true}, {"Tolerance", true}};
    const DecalRecord record = LibraryRecord(
        {"\"GEOMETRY.HEIGHT\" 6.7mm", "\"Description\" Two pins", "Value 10k"},
        {"OPEN 2 0.2 26", "-10 0", "10 0"}, 1, {"0 0 0 30 1 0.1 N", "@@1 Keep clear"}, 1);
    bench.Draw(record);
    // 3 mm lines, 4 mm apart from the frame's top at 260 mm.
    const Lines texts = LinesOf(bench.canvas, "text");
    const auto has = [&texts](const std::string& line) {
        return std::find(texts.begin(), texts.end(), line) != texts.end();
    };
    EXPECT_TRUE(has(R"(text 300 26000 300 "Arial" "Geometry.Height: 6.7mm" colour=000009)"));
    EXPECT_TRUE(has(R"(text 300 25600 300 "Arial" "Value: 10k" colour=000009)"));
    EXPECT_TRUE(has(R"(text 300 25200 300 "Arial" "Tolerance:" colour=000009)"));
    // The comment lines follow under the three listed attributes, with their separator.
    EXPECT_TRUE(has(R"(text 300 24800 300 "Arial" "Keep clear" colour=000009)"));
    EXPECT_TRUE(bench.Has("line 19000 24400 pen=00000A/25/solid"));
    EXPECT_FALSE(bench.HasPart("Description"));
    // The height comes from the attribute, whatever its case in the file.
    EXPECT_TRUE(std::find_if(bench.canvas.Lines().begin(), bench.canvas.Lines().end(),
                             [](const std::string& line) {
                                 return line.starts_with("text-right 6800 2130 ") &&
                                        line.find("\"6.7mm\"") != std::string::npos;
                             }) != bench.canvas.Lines().end());
}

TEST(DecalPage, HeightFromTheDollarLineInTheMeasurementUnit) {
    PageBench bench;
    bench.settings.MeasUnit = 'M';
    const DecalRecord record =
        LibraryRecord({}, {"OPEN 2 0.2 26", "-10 0", "10 0"}, 1, {"0 0 0 1 1 0.1 N", "$ 4.5"}, 1);
    bench.Draw(record);
    EXPECT_TRUE(bench.Has(R"(text-right 6800 2130 280 "Arial" "4.500" colour=000009)"));
    // No terminals: both measured positions are the origin.
    EXPECT_TRUE(bench.Has(R"(text-right 5100 1280 280 "Arial" "0.000" colour=000009)"));
    EXPECT_TRUE(bench.Has(R"(text-right 6800 930 280 "Arial" "0.000" colour=000009)"));
}

}  // namespace
}  // namespace zantor
