#include "jobs/index_run.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "common/errors.h"
#include "library/decal_reader.h"
#include "plot/pieces.h"
#include "plot/recording_canvas.h"

namespace zantor {
namespace {

// A V4 library record in millimetres with one outline line from (-5, -2) to (15, 4).
DecalRecord Slant(const std::string& name = "SLANT") {
    DecalRecord record;
    record.header = AnalyseHeader("*PADS-LIBRARY-PCB-DECALS-V4*");
    record.name = name;
    record.unitLetter = "M";
    record.unitFactor = 1.0;
    record.lines = {"OPEN 2 0.2 26", "-5 -2", "15 4"};
    record.counts.pieces = 1;
    LocateSections(record);
    return record;
}

DecalExtents ExtentsOf(const DecalRecord& record) {
    DecalExtents extents;
    PieceExtents(record, extents);
    return extents;
}

PlotSettings Grid(int columns, int partsEachColumn) {
    PlotSettings settings;
    settings.Columns = columns;
    settings.PartsEachColumn = partsEachColumn;
    return settings;
}

TEST(IndexLayout, CellsColumnsAndPages) {
    const IndexLayout layout = IndexLayoutOf(Grid(2, 12), 180, 270, 30);
    EXPECT_EQ(layout.decalsPerPage, 24);
    EXPECT_EQ(layout.pages, 2);
    EXPECT_DOUBLE_EQ(layout.columnWidth, 90);
    EXPECT_DOUBLE_EQ(layout.cellWidth, 53.46);  // (90 - 9) x 0.66
    EXPECT_DOUBLE_EQ(layout.cellHeight, (270.0 - 10 - 3) / 12);

    PlotSettings commented = Grid(2, 12);
    commented.GenComment = "DRAFT";
    commented.GenComSize = 2;
    EXPECT_DOUBLE_EQ(IndexLayoutOf(commented, 180, 270, 1).cellHeight, (270 - 4.5 - 10 - 3) / 12);

    EXPECT_EQ(IndexLayoutOf(Grid(4, 6), 180, 270, 25).pages, 2);
    EXPECT_EQ(IndexLayoutOf(Grid(4, 6), 180, 270, 24).pages, 1);
    EXPECT_EQ(IndexLayoutOf(Grid(4, 6), 180, 270, 49).pages, 3);
    EXPECT_EQ(IndexLayoutOf(Grid(4, 6), 180, 270, 0).pages, 0);
    EXPECT_EQ(IndexLayoutOf(Grid(1, 1), 180, 270, 65535).pages, 65535);
}

TEST(IndexLayout, LayoutsThatCannotBeDrawnAreRangeErrors) {
    EXPECT_THROW(IndexLayoutOf(Grid(1, 1), 180, 270, 65536), RangeError);
    EXPECT_THROW(IndexLayoutOf(Grid(0, 6), 180, 270, 1), RangeError);
    EXPECT_THROW(IndexLayoutOf(Grid(4, 0), 180, 270, 1), RangeError);
    EXPECT_THROW(IndexLayoutOf(Grid(4, 6), 180, 12, 1), RangeError);
    EXPECT_THROW(IndexLayoutOf(Grid(20, 6), 180, 270, 1), RangeError);
}

TEST(IndexScale, FillsTheCellUnlessTheScaleIsPrinted) {
    PlotSettings settings;
    // A 10 mm wide decal in a room where 0.8 of it takes 2.37 times that.
    EXPECT_NEAR(IndexScale(10, 1, 29.625, 1000, settings), 2.37, 1e-12);
    EXPECT_NEAR(IndexScale(100, 1, 46.25, 1000, settings), 0.37, 1e-12);
    EXPECT_DOUBLE_EQ(IndexScale(0.1, 0.1, 1000, 1000, settings), 10);  // MaxScale
    EXPECT_DOUBLE_EQ(IndexScale(0, 0, 50, 50, settings), 10);
    EXPECT_NEAR(IndexScale(10, 0, 50, 50, settings), 4, 1e-12);

    settings.PrintScale = true;
    EXPECT_DOUBLE_EQ(IndexScale(10, 1, 29.625, 1000, settings), 2);
    EXPECT_DOUBLE_EQ(IndexScale(100, 1, 46.25, 1000, settings), 1.0 / 3);
    EXPECT_DOUBLE_EQ(IndexScale(100, 1, 62.5, 1000, settings), 1.0 / 3);  // 0.5 exactly
    settings.MaxScale = 2.5;
    EXPECT_DOUBLE_EQ(IndexScale(0.1, 0.1, 1000, 1000, settings), 2);

    // The view box prints no scale: the whole box, enlargements as they come.
    settings.MaxScale = 10;
    EXPECT_NEAR(IndexScale(10, 1, 23.7, 1000, settings, true), 2.37, 1e-12);
    EXPECT_DOUBLE_EQ(IndexScale(100, 1, 37, 1000, settings, true), 1.0 / 3);
}

TEST(IndexPlacement, DecalsStandInTheRightHandPartOfTheirCells) {
    PlotSettings settings = Grid(2, 12);
    settings.PrintScale = true;
    const IndexLayout layout = IndexLayoutOf(settings, 180, 270, 30);
    DecalExtents extents;
    extents.Widen(-5, -2);
    extents.Widen(15, 4);
    // 0.8 x 53.46 / 20 = 2.14 fits across, so 2 : 1.
    const CellPlacement first = PlaceInCell(layout, 270, 1, 2, extents, 1.0, settings);
    EXPECT_DOUBLE_EQ(first.scale, 2);
    EXPECT_DOUBLE_EQ(first.originX, 180 - 53.46 / 2 - 5 * 2 - 3);
    EXPECT_DOUBLE_EQ(first.originY, 270 - 3 - layout.cellHeight / 2 - 1 * 2);
    const CellPlacement third = PlaceInCell(layout, 270, 3, 1, extents, 1.0, settings);
    EXPECT_DOUBLE_EQ(third.originX, 90 - 53.46 / 2 - 5 * 2 - 3);
    EXPECT_DOUBLE_EQ(third.originY, 270 - 3 - 2 * layout.cellHeight - layout.cellHeight / 2 - 2);
    // In mils the extents are 0.0254 mm a unit.
    const CellPlacement mils = PlaceInCell(layout, 270, 1, 1, extents, 0.0254, settings);
    EXPECT_DOUBLE_EQ(mils.scale, 10);
    EXPECT_DOUBLE_EQ(mils.originX, 90 - 53.46 / 2 - 5 * 0.0254 * 10 - 3);
}

TEST(IndexPageArea, EvenPagesTakeTheRightMarginBeyondItsUnprintableOffset) {
    PlotSettings settings;
    settings.RightMargin = 6;
    EXPECT_DOUBLE_EQ(IndexPageAreaOf({200, 287, 5, 5, 4, 5}, settings).mirroredLeft, 2);
    EXPECT_DOUBLE_EQ(IndexPageAreaOf({200, 287, 5, 5, 9, 5}, settings).mirroredLeft, 0);
}

// A run of `settings` on a 180 x 270 mm area (left edge 12, even pages 6, bottom 9, 297 mm page)
// over a recording canvas in the printer mapping.
struct RunBench {
    PlotSettings settings;
    RecordingCanvas canvas;
    RecordingMessages messages;
    StrokeFont font;
    PlotFrame frame{canvas, settings, messages};
    DecalRecord record = Slant();
    PadStackList stacks;

    explicit RunBench(PlotSettings chosen) : settings(std::move(chosen)) {
        frame.Surface = PlotSurface::Printer;
        frame.MmPerUnitX = 0.01;
        frame.MmPerUnitY = 0.01;
    }

    IndexRunInputs Inputs(std::size_t selected) const {
        IndexRunInputs inputs;
        inputs.area.page = {210, 297, 12, 9, 180, 270};
        inputs.area.mirroredLeft = 6;
        inputs.selectedCount = selected;
        inputs.inputPath = "/libs/conn.d";
        inputs.date = "01.02.03";
        return inputs;
    }

    // The page texts of the frames drawn so far.
    std::vector<std::string> PageTexts() const {
        std::vector<std::string> texts;
        for (const std::string& line : canvas.Lines()) {
            const auto at = line.find("   OF  ");
            if (at != std::string::npos) {
                const auto open = line.rfind('"', at);
                texts.push_back(line.substr(open + 1, line.find('"', at) - open - 1));
            }
        }
        return texts;
    }
};

TEST(IndexRun, TwentyFiveDecalsInFourColumnsOfSixTakeTwoFramedPages) {
    RunBench bench(Grid(4, 6));
    IndexRun run(bench.frame, bench.font, bench.Inputs(25));
    EXPECT_EQ(run.Layout().pages, 2);
    for (int n = 0; n < 25; ++n) {
        // Column by column from the top.
        EXPECT_EQ(run.PageNumber(), n < 24 ? 1 : 2) << n;
        EXPECT_EQ(run.Column(), n < 24 ? n / 6 + 1 : 1) << n;
        EXPECT_EQ(run.Row(), n < 24 ? n % 6 + 1 : 1) << n;
        const IndexStep step = run.AddDecal(bench.record, bench.stacks, ExtentsOf(bench.record));
        EXPECT_EQ(step.pageFramed, n == 23 || n == 24) << n;
        EXPECT_EQ(step.newPage, n == 23) << n;
        if (n == 23) {
            EXPECT_EQ(bench.PageTexts(), std::vector<std::string>{"1   OF  2"});
        }
    }
    EXPECT_EQ(bench.PageTexts(), (std::vector<std::string>{"1   OF  2", "2   OF  2"}));
    EXPECT_EQ(run.Printed(), 25u);
    EXPECT_FALSE(run.Finish());
}

TEST(IndexRun, TwentyFourDecalsFillExactlyOnePage) {
    RunBench bench(Grid(4, 6));
    IndexRun run(bench.frame, bench.font, bench.Inputs(24));
    int frames = 0;
    for (int n = 0; n < 24; ++n) {
        const IndexStep step = run.AddDecal(bench.record, bench.stacks, ExtentsOf(bench.record));
        frames += step.pageFramed ? 1 : 0;
        EXPECT_FALSE(step.newPage);
    }
    EXPECT_EQ(frames, 1);
    EXPECT_EQ(bench.PageTexts(), std::vector<std::string>{"1   OF  1"});
    EXPECT_FALSE(run.Finish());
}

TEST(IndexRun, TheLastDecalFramesAPartlyFilledPage) {
    RunBench bench(Grid(2, 3));
    IndexRun run(bench.frame, bench.font, bench.Inputs(2));
    EXPECT_FALSE(run.AddDecal(bench.record, bench.stacks, ExtentsOf(bench.record)).pageFramed);
    const IndexStep last = run.AddDecal(bench.record, bench.stacks, ExtentsOf(bench.record));
    EXPECT_TRUE(last.pageFramed);
    EXPECT_FALSE(last.newPage);
    EXPECT_EQ(bench.PageTexts(), std::vector<std::string>{"1   OF  1"});
}

TEST(IndexRun, EachCellSetsTheFramesScaleAndOrigins) {
    PlotSettings settings = Grid(2, 12);
    settings.PrintScale = true;
    RunBench bench(settings);
    IndexRun run(bench.frame, bench.font, bench.Inputs(3));
    run.AddDecal(bench.record, bench.stacks, ExtentsOf(bench.record));
    const IndexStep second = run.AddDecal(bench.record, bench.stacks, ExtentsOf(bench.record));
    const CellPlacement expected =
        PlaceInCell(run.Layout(), 270, 2, 1, ExtentsOf(bench.record), 1.0, settings);
    EXPECT_DOUBLE_EQ(second.scale, 2);
    EXPECT_DOUBLE_EQ(bench.frame.Scale, 2);
    EXPECT_DOUBLE_EQ(bench.frame.OriginX1, expected.originX);
    EXPECT_DOUBLE_EQ(bench.frame.OriginY1, expected.originY);
    EXPECT_DOUBLE_EQ(bench.frame.OriginX2, 12);
    EXPECT_DOUBLE_EQ(bench.frame.OriginY2, 9);
    EXPECT_DOUBLE_EQ(bench.frame.PageHeight, 297);
}

// The left edge of every frame drawn, from the frame rectangle's first corner.
std::vector<std::string> FrameCorners(const RecordingCanvas& canvas) {
    std::vector<std::string> corners;
    const auto& lines = canvas.Lines();
    for (std::size_t i = 0; i + 1 < lines.size(); ++i) {
        // The rectangle starts at its bottom-left corner (0, 0) and runs along the bottom.
        if (lines[i].rfind("move ", 0) == 0 && lines[i].ends_with(" -28800") &&
            lines[i + 1].rfind("line ", 0) == 0 &&
            lines[i + 1].find(" -28800 ") != std::string::npos) {
            corners.push_back(lines[i]);
        }
    }
    return corners;
}

TEST(IndexRun, MirrorMarginsBindEvenPagesOnTheRight) {
    PlotSettings settings = Grid(2, 1);
    settings.MirrorMargin = true;
    RunBench bench(settings);
    IndexRun run(bench.frame, bench.font, bench.Inputs(6));
    std::vector<double> lefts;
    for (int n = 0; n < 6; ++n) {
        run.AddDecal(bench.record, bench.stacks, ExtentsOf(bench.record));
        lefts.push_back(bench.frame.OriginX2);
    }
    // Two to a page with one decal per column.
    EXPECT_EQ(lefts, (std::vector<double>{12, 12, 6, 6, 12, 12}));
    EXPECT_EQ(bench.PageTexts(), (std::vector<std::string>{"1   OF  3", "2   OF  3", "3   OF  3"}));
    EXPECT_EQ(
        FrameCorners(bench.canvas),
        (std::vector<std::string>{"move 1200 -28800", "move 600 -28800", "move 1200 -28800"}));

    settings.MirrorMargin = false;
    RunBench plain(settings);
    IndexRun same(plain.frame, plain.font, plain.Inputs(4));
    for (int n = 0; n < 4; ++n) {
        same.AddDecal(plain.record, plain.stacks, ExtentsOf(plain.record));
    }
    EXPECT_EQ(FrameCorners(plain.canvas),
              (std::vector<std::string>{"move 1200 -28800", "move 1200 -28800"}));
}

TEST(IndexRun, FinishFramesAPageLeftOpenByNamesNotFound) {
    // Five selected, three found: the page is never completed by the decals.
    RunBench open(Grid(4, 1));
    IndexRun run(open.frame, open.font, open.Inputs(5));
    for (int n = 0; n < 3; ++n) {
        EXPECT_FALSE(run.AddDecal(open.record, open.stacks, ExtentsOf(open.record)).pageFramed);
    }
    EXPECT_TRUE(run.Finish());
    EXPECT_FALSE(run.Finish());
    EXPECT_EQ(open.PageTexts(), std::vector<std::string>{"1   OF  2"});

    // Six selected, four found: page 2 was begun for decals that never came.
    RunBench begun(Grid(4, 1));
    IndexRun second(begun.frame, begun.font, begun.Inputs(6));
    IndexStep step;
    for (int n = 0; n < 4; ++n) {
        step = second.AddDecal(begun.record, begun.stacks, ExtentsOf(begun.record));
    }
    EXPECT_TRUE(step.newPage);
    EXPECT_TRUE(second.Finish());
    EXPECT_EQ(begun.PageTexts(), (std::vector<std::string>{"1   OF  2", "2   OF  2"}));

    // Nothing found: no page to frame.
    RunBench none(Grid(4, 1));
    IndexRun empty(none.frame, none.font, none.Inputs(3));
    EXPECT_FALSE(empty.Finish());
    EXPECT_TRUE(none.canvas.Lines().empty());
}

}  // namespace
}  // namespace zantor
