#include "plot/pieces.h"

#include <gtest/gtest.h>

#include "common/errors.h"
#include "core/plot/plot_test_support.h"

namespace zantor {
namespace {

using test::LinesOf;
using test::MakeRecord;
using test::PlotBench;
using Lines = std::vector<std::string>;

// Draws both passes the way a page does: everything but outlines, then outlines.
struct PieceRun {
    PlotBench bench;
    Lines others;
    Lines outlines;

    explicit PieceRun(const DecalRecord& record) {
        DrawPieces(bench.frame, record, false, bench.messages);
        others = bench.canvas.Lines();
        bench.canvas.Clear();
        DrawPieces(bench.frame, record, true, bench.messages);
        outlines = bench.canvas.Lines();
    }
};

TEST(DrawPieces, EachKeywordTakesItsPenKindAndItsPass) {
    struct Case {
        const char* keyword;
        bool outline;
        const char* expected;  // the first drawn line of the piece
    };
    const Case cases[] = {
        {"OPEN", true, "line 1000 0 pen=000003/10/solid"},
        {"CLOSED", true, "line 1000 0 pen=000003/10/solid"},
        {"ARWLN1", true, "line 1000 0 pen=000003/10/solid"},
        {"ARWLN2", true, "line 1000 0 pen=000003/10/solid"},
        {"ARWHD1", true, "line 1000 0 pen=000003/10/solid"},
        {"ARWHD2", true, "line 1000 0 pen=000003/10/solid"},
        {"EXTLN1", true, "line 1000 0 pen=000003/10/solid"},
        {"EXTLN2", true, "line 1000 0 pen=000003/10/solid"},
        {"BASPNT", true, "line 1000 0 pen=000003/10/solid"},
        {"CIRCLE", true, "arc 0 -500 1000 500 1000 500 0 -500 pen=000003/10/solid"},
        {"COPOPN", false, "line 1000 0 pen=000002/10/solid"},
        {"COPCUT", false, "line 1000 0 pen=000005/10/solid"},
        {"CIRCUT", false, "arc 0 -500 1000 500 1000 500 0 -500 pen=000005/10/solid"},
        {"COPCIR", false,
         "roundrect 0 -500 1000 500 1000 1000 pen=000002/1/solid fill=000002/solid"},
        {"KPTCIR", false,
         "roundrect 0 -500 1000 500 1000 1000 pen=000006/1/solid fill=000006/solid"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.keyword);
        PieceRun run(MakeRecord({std::string(c.keyword) + " 2 0.1 1", "0 0", "10 0"}, 1));
        const Lines& drawn = c.outline ? run.outlines : run.others;
        const Lines& empty = c.outline ? run.others : run.outlines;
        EXPECT_TRUE(empty.empty());
        ASSERT_GE(drawn.size(), 1u);
        if (drawn[0].starts_with("move")) {
            EXPECT_EQ(drawn[0], "move 0 0");
            ASSERT_EQ(drawn.size(), 2u);
            EXPECT_EQ(drawn[1], c.expected);
        } else {
            EXPECT_EQ(drawn[0], c.expected);
        }
        EXPECT_TRUE(run.bench.messages.Entries().empty());
    }
}

TEST(DrawPieces, FilledOutlinesAreOnePolygonWithAOneUnitBorder) {
    for (const char* keyword : {"COPCLS", "KPTCLS"}) {
        SCOPED_TRACE(keyword);
        PieceRun run(MakeRecord({std::string(keyword) + " 3 50 1", "0 0", "10 0", "10 10"}, 1));
        ASSERT_EQ(run.others.size(), 1u);
        const std::string colour = keyword[0] == 'C' ? "000002" : "000006";
        EXPECT_TRUE(run.others[0].starts_with("polygon 1024 0 0 1000 0 1000 1000 0 0 0 0"));
        EXPECT_TRUE(
            run.others[0].ends_with(" pen=" + colour + "/1/solid fill=" + colour + "/solid"));
        // The pass that leaves it sets the 0.25 mm pen, whatever width the file gives.
        EXPECT_TRUE(run.outlines.empty());
        EXPECT_EQ(run.bench.canvas.PenWidth(), 25);
    }
}

TEST(DrawPieces, CopperAndCutoutsOfAPinTakeThePadPenButKeepoutsAndOutlinesNever) {
    struct Case {
        const char* header;
        const char* pen;
    };
    const Case cases[] = {
        {"COPOPN 2 0.1 1 2", "000001"}, {"COPOPN 2 0.1 1 -1", "000002"},
        {"COPOPN 2 0.1 1", "000002"},   {"COPCUT 2 0.1 1 0", "000001"},
        {"CIRCUT 2 0.1 1 3", "000001"}, {"KPTCLS 2 0.1 1 2", "000006"},
        {"KPTCIR 2 0.1 1 2", "000006"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.header);
        PieceRun run(MakeRecord({c.header, "0 0", "10 0"}, 1));
        ASSERT_FALSE(run.others.empty());
        EXPECT_NE(run.others.back().find(std::string("pen=") + c.pen), std::string::npos)
            << run.others.back();
    }
    // An outline with a fifth field stays an outline.
    PieceRun outline(MakeRecord({"OPEN 2 0.1 1 2", "0 0", "10 0"}, 1));
    EXPECT_TRUE(outline.others.empty());
    EXPECT_EQ(outline.outlines.back(), "line 1000 0 pen=000003/10/solid");
}

TEST(DrawPieces, PenColourIsSetAlsoForAPieceLeftToTheOtherPass) {
    PlotBench bench;
    bench.canvas.SetPenColour(0x777777);
    DrawPieces(bench.frame, MakeRecord({"COPOPN 2 0.1 1", "0 0", "10 0"}, 1), true, bench.messages);
    EXPECT_TRUE(bench.canvas.Lines().empty());
    EXPECT_EQ(bench.canvas.PenColour(), kPenCopper);
    EXPECT_EQ(bench.canvas.PenWidth(), 10);
}

TEST(DrawPieces, AnUnplottedPenSkipsThePieceSilentlyAndLeavesTheColour) {
    PlotBench bench;
    bench.settings.PenTable[0].colour[kPenCopper] = kNotPlotted;
    bench.settings.PenTable[1].layer = 6;
    bench.settings.PenTable[1].colour[kPenCopper] = 0x00AA00;
    bench.canvas.SetPenColour(0x777777);
    DrawPieces(bench.frame, MakeRecord({"COPOPN 2 0.2 5", "0 0", "10 0"}, 1), false,
               bench.messages);
    EXPECT_TRUE(bench.canvas.Lines().empty());
    EXPECT_EQ(bench.canvas.PenColour(), 0x777777);
    EXPECT_EQ(bench.canvas.PenWidth(), 20);  // the width is set in every case

    DrawPieces(bench.frame, MakeRecord({"COPOPN 2 0.1 6", "0 0", "20 0"}, 1), false,
               bench.messages);
    EXPECT_EQ(bench.canvas.Lines(), (Lines{"move 0 0", "line 2000 0 pen=00AA00/10/solid"}));
    EXPECT_TRUE(bench.messages.Entries().empty());
}

TEST(DrawPieces, ArcsRunCounterClockwiseAndNegativeSweepsSwapTheirEnds) {
    // A quarter of the circle of radius 10 round the origin, then a straight line.
    PieceRun ccw(MakeRecord({"OPEN 3 0.1 1", "10 0 0 90 -10 -10 10 10", "0 10", "0 20"}, 1));
    EXPECT_EQ(ccw.outlines,
              (Lines{"move 1000 0", "arc -1000 -1000 1000 1000 1000 0 0 1000 pen=000003/10/solid",
                     "move 0 1000", "line 0 2000 pen=000003/10/solid"}));

    // Clockwise from (10, 0) down to (0, -10): the page's counter-clockwise arc from the second
    // corner to the first.
    PieceRun cw(MakeRecord({"OPEN 2 0.1 1", "10 0 0 -90 -10 -10 10 10", "0 -10"}, 1));
    EXPECT_EQ(cw.outlines,
              (Lines{"move 1000 0", "arc -1000 -1000 1000 1000 0 -1000 1000 0 pen=000003/10/solid",
                     "move 0 -1000"}));

    // A start angle alone makes an arc too; filled outlines use chords instead.
    PieceRun angleOnly(MakeRecord({"COPOPN 2 0.1 1", "10 0 90 0 -10 -10 10 10", "0 10"}, 1));
    EXPECT_EQ(angleOnly.others.at(1),
              "arc -1000 -1000 1000 1000 1000 0 0 1000 pen=000002/10/solid");
    PieceRun chords(MakeRecord({"COPCLS 2 0.1 1", "10 0 0 90 -10 -10 10 10", "0 10"}, 1));
    EXPECT_TRUE(chords.others.at(0).starts_with("polygon 1024 1000 0 0 1000 1000 0 "));
}

TEST(DrawPieces, ClosedOutlinesAreClosedOnlyByTheirOwnLastCorner) {
    PieceRun run(MakeRecord({"CLOSED 3 0.1 1", "0 0", "10 0", "10 10"}, 1));
    EXPECT_EQ(run.outlines, (Lines{"move 0 0", "line 1000 0 pen=000003/10/solid",
                                   "line 1000 1000 pen=000003/10/solid"}));
}

TEST(DrawPieces, CirclesComeFromTheirFirstCornerAndEachLaterOne) {
    // Horizontal diameter: radius 50 round (50, 0).
    PieceRun horizontal(MakeRecord({"CIRCLE 2 0.1 1", "0 0", "100 0"}, 1));
    EXPECT_EQ(horizontal.outlines,
              (Lines{"arc 0 -5000 10000 5000 10000 5000 0 -5000 pen=000003/10/solid",
                     "arc 0 -5000 10000 5000 0 -5000 10000 5000 pen=000003/10/solid"}));
    // Vertical diameter: radius 50 round (0, 50).
    PieceRun vertical(MakeRecord({"CIRCLE 2 0.1 1", "0 0", "0 100"}, 1));
    EXPECT_EQ(vertical.outlines.at(0),
              "arc -5000 0 5000 10000 5000 10000 -5000 0 pen=000003/10/solid");
    // Three corners: two circles, each with the first corner.
    PieceRun three(MakeRecord({"CIRCLE 3 0.1 1", "0 0", "100 0", "0 60"}, 1));
    const Lines arcs = LinesOf(three.bench.canvas, "arc");
    ASSERT_EQ(arcs.size(), 4u);
    EXPECT_EQ(arcs[2], "arc -3000 0 3000 6000 3000 6000 -3000 0 pen=000003/10/solid");
    // Filled circles pass their diameter as the corner size.
    PieceRun filled(MakeRecord({"COPCIR 2 0.1 1", "0 0", "0 100"}, 1));
    EXPECT_EQ(filled.others, (Lines{"roundrect -5000 0 5000 10000 10000 10000 pen=000002/1/solid "
                                    "fill=000002/solid"}));
}

TEST(DrawPieces, WidthsFollowScaleAndUnitFactor) {
    PlotBench bench;
    bench.frame.Scale = 3;
    bench.frame.UnitFactor = 0.0254;
    DrawPieces(bench.frame, MakeRecord({"OPEN 2 10 1", "0 0", "1000 0"}, 1), true, bench.messages);
    // 10 mils at 3:1 is 0.762 mm; 1000 mils at 3:1 is 76.2 mm.
    EXPECT_EQ(bench.canvas.Lines().at(1), "line 7620 0 pen=000003/76/solid");
}

TEST(DrawPieces, PassesOverTheCornersOfPiecesItDoesNotDraw) {
    const DecalRecord record = MakeRecord({"COPCLS 3 0.1 1", "0 0", "10 0", "10 10", "OPEN 2 0.1 1",
                                           "1 1", "2 2", "COPOPN 2 0.1 1", "5 5", "6 6"},
                                          3);
    PieceRun run(record);
    EXPECT_EQ(run.outlines, (Lines{"move 100 100", "line 200 200 pen=000003/10/solid"}));
    ASSERT_EQ(run.others.size(), 3u);
    EXPECT_EQ(run.others[1], "move 500 500");
}

TEST(DrawPieces, AnUnknownKeywordIsReportedAndEndsThePieces) {
    PlotBench bench;
    const DecalRecord record = MakeRecord(
        {"OPEN 2 0.1 1", "0 0", "10 0", "TEXT 1 x y", "0 0", "OPEN 2 0.1 1", "0 0", "0 10"}, 3);
    DrawPieces(bench.frame, record, true, bench.messages);
    EXPECT_EQ(bench.canvas.Lines(), (Lines{"move 0 0", "line 1000 0 pen=000003/10/solid"}));
    EXPECT_EQ(bench.messages.Texts(), (Lines{"Unknown drawing item: TEXT"}));

    // COPCCO counts for the extents but is not a drawing item; nothing of the surface changes.
    PlotBench first;
    first.canvas.SetFillStyle(FillStyle::None);
    first.canvas.SetPenWidth(7);
    DrawPieces(first.frame, MakeRecord({"COPCCO 2 0.1 1", "0 0", "10 0"}, 1), false,
               first.messages);
    EXPECT_TRUE(first.canvas.Lines().empty());
    EXPECT_EQ(first.messages.Texts(), (Lines{"Unknown drawing item: COPCCO"}));
    EXPECT_EQ(first.canvas.FillStyleNow(), FillStyle::None);
    EXPECT_EQ(first.canvas.PenWidth(), 7);
}

TEST(DrawPieces, LeavesTheFillSolid) {
    PlotBench bench;
    bench.canvas.SetFillStyle(FillStyle::None);
    DrawPieces(bench.frame, MakeRecord({"OPEN 2 0.1 1", "0 0", "10 0"}, 1), false, bench.messages);
    EXPECT_EQ(bench.canvas.FillStyleNow(), FillStyle::Solid);
}

TEST(DrawPieces, AFieldThatIsNotANumberEndsTheDrawingWithItsLine) {
    PlotBench bench;
    DecalRecord record = MakeRecord({"OPEN 2 0.1 1", "0 0", "1O 0"}, 1);
    record.headerLineNumber = 40;
    record.fileName = "lib.d";
    try {
        DrawPieces(bench.frame, record, true, bench.messages);
        FAIL() << "no error";
    } catch (const ConversionError& error) {
        EXPECT_EQ(error.file(), "lib.d");
        EXPECT_EQ(error.line(), 43);
    }
}

TEST(DrawPieces, CountsBeyondTheBodyStopAtItsEnd) {
    PlotBench bench;
    DrawPieces(bench.frame, MakeRecord({"OPEN 5 0.1 1", "0 0", "10 0"}, 4), true, bench.messages);
    EXPECT_EQ(bench.canvas.Lines(), (Lines{"move 0 0", "line 1000 0 pen=000003/10/solid"}));
    EXPECT_TRUE(bench.messages.Entries().empty());
}

TEST(PieceExtents, CornersAndArcBoxesWidenButWidthsDoNot) {
    DecalExtents extents;
    EXPECT_TRUE(extents.Empty());
    PieceExtents(MakeRecord({"OPEN 2 1000 1", "-10 5", "20 -3", "CLOSED 2 1 1",
                             "0 0 0 90 -40 -40 40 40", "40 0"},
                            2),
                 extents);
    EXPECT_FALSE(extents.Empty());
    EXPECT_EQ(extents.xmin, -40);
    EXPECT_EQ(extents.xmax, 40);
    EXPECT_EQ(extents.ymin, -40);
    EXPECT_EQ(extents.ymax, 40);
}

TEST(PieceExtents, CirclesReserveTheirWholeWidthAboveAndBelowTheSecondCorner) {
    for (const char* keyword : {"CIRCLE", "COPCIR", "COPCCO", "KPTCIR"}) {
        SCOPED_TRACE(keyword);
        DecalExtents extents;
        PieceExtents(MakeRecord({std::string(keyword) + " 2 5 1", "0 10", "100 10"}, 1), extents);
        EXPECT_EQ(extents.xmin, 0);
        EXPECT_EQ(extents.xmax, 100);
        EXPECT_EQ(extents.ymin, -90);
        EXPECT_EQ(extents.ymax, 110);
    }
    // A cutout circle counts by its corners only.
    DecalExtents cut;
    PieceExtents(MakeRecord({"CIRCUT 2 5 1", "0 10", "100 10"}, 1), cut);
    EXPECT_EQ(cut.ymin, 10);
    EXPECT_EQ(cut.ymax, 10);
}

TEST(PieceExtents, WidensExtentsThatAreAlreadySet) {
    DecalExtents extents;
    extents.Widen(-100, 200);
    PieceExtents(MakeRecord({"OPEN 2 1 1", "0 0", "50 -50", "TEXT 1 a b", "300 0"}, 2), extents);
    EXPECT_EQ(extents.xmin, -100);
    EXPECT_EQ(extents.xmax, 300);
    EXPECT_EQ(extents.ymin, -50);
    EXPECT_EQ(extents.ymax, 200);
}

}  // namespace
}  // namespace zantor
