// Pieces of files written after version 4: fields where their release puts them, arcs in tenths
// of a degree, the newer piece kinds, and unknown kinds passed over once per job.

#include <gtest/gtest.h>

#include "core/plot/plot_test_support.h"
#include "library/file_header.h"
#include "plot/pieces.h"
#include "plot/record_fields.h"

namespace zantor {
namespace {

using test::LinesOf;
using test::MakeRecord;
using test::PlotBench;
using Lines = std::vector<std::string>;

constexpr const char* kV9Library = "*PADS-LIBRARY-PCB-DECALS-V9*";
constexpr const char* kV95Pcb = "!PADS-POWERPCB-V9.5-METRIC!";
constexpr const char* kV2005Pcb = "!PADS-POWERPCB-V2005.0-BASIC!";

DecalRecord Record(const char* firstLine, Lines lines, int pieces) {
    DecalRecord record = MakeRecord(std::move(lines), pieces);
    record.header = AnalyseHeader(firstLine);
    return record;
}

// Both passes of a page: everything but outlines, then outlines.
struct PieceRun {
    PlotBench bench;
    UnknownPieceReports reports;
    Lines others;
    Lines outlines;

    explicit PieceRun(const DecalRecord& record) {
        bench.settings.PenTable[1].layer = 20;
        bench.settings.PenTable[1].colour[kPenOutline] = 0x200003;
        bench.settings.PenTable[1].colour[kPenCopper] = 0x200002;
        DrawPieces(bench.frame, record, false, bench.messages, reports);
        others = bench.canvas.Lines();
        bench.canvas.Clear();
        DrawPieces(bench.frame, record, true, bench.messages, reports);
        outlines = bench.canvas.Lines();
    }
};

TEST(NewerPieces, TheLayerStandsWhereTheReleaseWritesIt) {
    const struct {
        const char* file;
        const char* header;
    } cases[] = {
        {kV9Library, "CLOSED 2 0.1 20 -1"},  // layer, line style
        {kV95Pcb, "CLOSED 2 0.1 -1 20"},     // line style, level
        {kV2005Pcb, "CLOSED 2 0.1 20"},      // level
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.file);
        PieceRun run(Record(c.file, {c.header, "0 0", "10 0"}, 1));
        EXPECT_EQ(run.outlines, (Lines{"move 0 0", "line 1000 0 pen=200003/10/solid"}));
    }
}

TEST(NewerPieces, CopperOfAPinByTheWordAfterTheLayer) {
    const struct {
        const char* file;
        const char* header;
        const char* pen;
    } cases[] = {
        {kV95Pcb, "COPOPN 2 0.1 -1 20 2", "000001"},  // pin 2: the pad colour
        {kV95Pcb, "COPOPN 2 0.1 -1 20 -1", "200002"},
        {kV95Pcb, "COPOPN 2 0.1 -1 20", "200002"},
        {kV2005Pcb, "COPOPN 2 0.1 20 0", "000001"},
        {kV9Library, "COPOPN 2 0.1 20 -1 1", "000001"},
        {kV9Library, "COPOPN 2 0.1 20 -1 RC", "200002"},  // not a pin number
        {kV2005Pcb, "KPTCIR 2 0 20 RC", "000006"},        // keepout restrictions
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.header);
        PieceRun run(Record(c.file, {c.header, "0 0", "10 0"}, 1));
        ASSERT_FALSE(run.others.empty());
        EXPECT_NE(run.others.back().find(std::string("pen=") + c.pen), std::string::npos)
            << run.others.back();
        EXPECT_TRUE(run.bench.messages.Entries().empty());
    }
}

TEST(NewerPieces, ArcAnglesAreTenthsOfADegree) {
    const DecalRecord record =
        Record(kV9Library, {"OPEN 3 0.1 1 -1", "10 0 0 900 -10 -10 10 10", "0 10", "0 20"}, 1);
    const PieceCorner corner = ReadPieceCorner(record, 1);
    EXPECT_DOUBLE_EQ(corner.startAngle, 0);
    EXPECT_DOUBLE_EQ(corner.sweep, 90);
    PieceRun ccw(record);
    EXPECT_EQ(ccw.outlines,
              (Lines{"move 1000 0", "arc -1000 -1000 1000 1000 1000 0 0 1000 pen=000003/10/solid",
                     "move 0 1000", "line 0 2000 pen=000003/10/solid"}));
    // A clockwise quarter runs counter-clockwise from its far end.
    PieceRun cw(Record(kV95Pcb, {"OPEN 2 0.1 -1 1", "10 0 0 -900 -10 -10 10 10", "0 -10"}, 1));
    EXPECT_EQ(cw.outlines.at(1), "arc -1000 -1000 1000 1000 0 -1000 1000 0 pen=000003/10/solid");
}

TEST(NewerPieces, AWholeTurnIsDrawnInTwoHalves) {
    PieceRun run(Record(kV9Library, {"OPEN 2 0.1 1 -1", "10 0 0 -3600 -10 -10 10 10", "10 0"}, 1));
    EXPECT_EQ(LinesOf(run.bench.canvas, "arc"),
              (Lines{"arc -1000 -1000 1000 1000 1000 0 -1000 0 pen=000003/10/solid",
                     "arc -1000 -1000 1000 1000 -1000 0 1000 0 pen=000003/10/solid"}));
}

TEST(NewerPieces, FilledPiecesFollowTheirArcsInShortChords) {
    // A half disc: from (10, 0) counter-clockwise over the top to (-10, 0), then back.
    PieceRun run(
        Record(kV95Pcb, {"COPCLS 3 0.1 -1 1", "10 0 0 1800 -10 -10 10 10", "-10 0", "10 0"}, 1));
    ASSERT_EQ(run.others.size(), 1u);
    const std::string& polygon = run.others[0];
    // Chords of 10 degrees: (10, 0), (9.85, 1.74), ... (0, 10) ... (-10, 0), (10, 0).
    EXPECT_TRUE(polygon.starts_with("polygon 1024 1000 0 985 174 940 342 ")) << polygon;
    EXPECT_NE(polygon.find(" 0 1000 -174 985 "), std::string::npos) << polygon;
    EXPECT_NE(polygon.find(" -985 174 -1000 0 1000 0 1000 0 "), std::string::npos) << polygon;
}

TEST(NewerPieces, CirclesAreGivenByADiameter) {
    PieceRun run(Record(kV9Library, {"CIRCLE 2 0.1 1 -1", "0 0", "30 40"}, 1));
    // Radius 25 round (15, 20), whichever way the diameter lies.
    EXPECT_EQ(run.outlines.at(0),
              "arc -1000 -500 4000 4500 4000 4500 -1000 -500 pen=000003/10/solid");

    DecalExtents extents;
    PieceExtents(
        Record(kV95Pcb, {"CIRCLE 2 0.1 -1 1", "0 -10", "0 10", "BRDCIR 2 0 -1 1", "50 0", "70 0"},
               2),
        extents);
    EXPECT_EQ(extents.xmin, -10);
    EXPECT_EQ(extents.xmax, 70);
    EXPECT_EQ(extents.ymin, -10);
    EXPECT_EQ(extents.ymax, 10);
}

TEST(NewerPieces, NewerKindsAreDrawnAndTagsAreBrackets) {
    const DecalRecord record =
        Record(kV95Pcb,
               {"TAG 0 0 0 1", "BRDCIR 2 0.1 -1 1", "0 0", "20 0", "COPCCO 2 0.1 -1 1", "0 0",
                "20 0", "COPCCO 2 0.1 -1 1 3", "0 0", "20 0", "BRDCUT 2 0.1 -1 1", "0 0", "0 10",
                "BRDCCO 2 0.1 -1 1", "0 0", "0 20", "TAG 0 0 0 0"},
               7);
    PieceRun run(record);
    EXPECT_TRUE(run.bench.messages.Entries().empty());
    EXPECT_EQ(run.outlines, (Lines{"arc 0 -1000 2000 1000 2000 1000 0 -1000 pen=000003/10/solid",
                                   "arc 0 -1000 2000 1000 0 -1000 2000 1000 pen=000003/10/solid",
                                   "move 0 0", "line 0 1000 pen=000003/10/solid",
                                   "arc -1000 0 1000 2000 1000 2000 -1000 0 pen=000003/10/solid",
                                   "arc -1000 0 1000 2000 -1000 0 1000 2000 pen=000003/10/solid"}));
    // A copper cutout circle, and one that belongs to a pin.
    ASSERT_EQ(run.others.size(), 4u);
    EXPECT_EQ(run.others[0], "arc 0 -1000 2000 1000 2000 1000 0 -1000 pen=000005/10/solid");
    EXPECT_EQ(run.others[2], "arc 0 -1000 2000 1000 2000 1000 0 -1000 pen=000001/10/solid");

    // Versions 3 and 4 know none of them.
    PlotBench old;
    DrawPieces(old.frame, MakeRecord({"BRDCIR 2 0.1 1", "0 0", "20 0"}, 1), true, old.messages);
    EXPECT_EQ(old.messages.Texts(), (Lines{"Unknown drawing item: BRDCIR"}));
}

TEST(NewerPieces, AnUnknownKindIsPassedOverAndReportedOncePerJob) {
    const DecalRecord record = Record(
        kV9Library,
        {"WIDGET 2 0.1 1 -1", "0 0", "x y", "OPEN 2 0.1 1 -1", "0 0", "10 0", "GADGET 0 0 1 -1"},
        3);
    PieceRun run(record);
    // The corners of the unknown piece are not read; the outline after it is drawn.
    EXPECT_EQ(run.outlines, (Lines{"move 0 0", "line 1000 0 pen=000003/10/solid"}));
    EXPECT_EQ(run.bench.messages.Texts(),
              (Lines{"Unknown drawing item: WIDGET", "Unknown drawing item: GADGET"}));
    // A later page of the same job says nothing more.
    DrawPieces(run.bench.frame, record, true, run.bench.messages, run.reports);
    EXPECT_EQ(run.bench.messages.Entries().size(), 2u);
    // Without a job's reports, each call reports for itself.
    PlotBench bench;
    DrawPieces(bench.frame, record, true, bench.messages);
    DrawPieces(bench.frame, record, false, bench.messages);
    EXPECT_EQ(bench.messages.Entries().size(), 4u);
}

TEST(NewerPieces, OutlinesTakeTheirLineStyle) {
    PieceRun run(Record(kV9Library,
                        {"OPEN 2 0.1 1 -2", "0 0", "10 0", "CIRCLE 2 0.1 1 -3", "0 0", "0 10",
                         "OPEN 2 0.1 1 -1", "0 0", "0 10", "KPTCLS 3 0.1 1 7", "0 0", "1 0", "1 1"},
                        4));
    EXPECT_EQ(run.outlines.at(1), "line 1000 0 pen=000003/10/dash");
    EXPECT_TRUE(run.outlines.at(2).ends_with("pen=000003/10/dot"));
    EXPECT_EQ(run.outlines.back(), "line 0 1000 pen=000003/10/solid");
    EXPECT_TRUE(run.others.at(0).find("/solid") != std::string::npos);
    EXPECT_EQ(run.bench.canvas.PenStyleNow(), PenStyle::Solid);

    // Style 0 is the old dotted line in a library and the plain line of a PCB file.
    PieceRun library(Record(kV9Library, {"OPEN 2 0.1 1 0", "0 0", "10 0"}, 1));
    EXPECT_EQ(library.outlines.at(1), "line 1000 0 pen=000003/10/dot");
    PieceRun board(Record(kV95Pcb, {"OPEN 2 0.1 0 1", "0 0", "10 0"}, 1));
    EXPECT_EQ(board.outlines.at(1), "line 1000 0 pen=000003/10/solid");
}

}  // namespace
}  // namespace zantor
