#include "plot/pieces.h"

#include <gtest/gtest.h>

#include "common/errors.h"
#include "core/plot/plot_test_support.h"
#include "library/file_header.h"

namespace zantor {
namespace {

using test::LinesOf;
using test::MakeRecord;
using test::PlotBench;
using Lines = std::vector<std::string>;

constexpr const char* kV4Library = "*PADS-LIBRARY-PCB-DECALS-V4*";
constexpr const char* kV9Library = "*PADS-LIBRARY-PCB-DECALS-V9*";
constexpr const char* kV95Pcb = "!PADS-POWERPCB-V9.5-METRIC!";
constexpr const char* kV2005Pcb = "!PADS-POWERPCB-V2005.0-BASIC!";

DecalRecord Record(const char* firstLine, Lines lines, int pieces) {
    DecalRecord record = MakeRecord(std::move(lines), pieces);
    record.header = AnalyseHeader(firstLine);
    return record;
}

// Both passes of a page: everything but outlines, then outlines. Layer 20 has pens of its own.
struct PieceRun {
    PlotBench bench;
    UnknownPieceReports reports;
    Lines others;
    Lines outlines;

    explicit PieceRun(const DecalRecord& record) {
        bench.settings.PenTable[1].layer = 20;
        bench.settings.PenTable[1].colour[kPenOutline] = 0x200003;
        bench.settings.PenTable[1].colour[kPenCopper] = 0x200002;
        DrawPieces(bench.frame, ParseDecal(record), false, bench.messages, reports);
        others = bench.canvas.Lines();
        bench.canvas.Clear();
        DrawPieces(bench.frame, ParseDecal(record), true, bench.messages, reports);
        outlines = bench.canvas.Lines();
    }
};

TEST(DrawPieces, EachKeywordTakesItsPenKindAndItsPass) {
    const struct {
        const char* keyword;
        bool outline;
        const char* expected;  // the last drawn line of the piece
    } cases[] = {
        {"OPEN", true, "line 1000 0 pen=000003/10/solid"},
        {"ARWLN1", true, "line 1000 0 pen=000003/10/solid"},
        {"BASPNT", true, "line 1000 0 pen=000003/10/solid"},
        {"CIRCLE", true, "arc 0 -500 1000 500 0 -500 1000 500 pen=000003/10/solid"},
        {"COPOPN", false, "line 1000 0 pen=000002/10/solid"},
        {"COPCUT", false, "line 1000 0 pen=000005/10/solid"},
        {"CIRCUT", false, "arc 0 -500 1000 500 0 -500 1000 500 pen=000005/10/solid"},
        {"COPCIR", false,
         "roundrect 0 -500 1000 500 1000 1000 pen=000002/1/solid fill=000002/solid"},
        {"KPTCIR", false,
         "roundrect 0 -500 1000 500 1000 1000 pen=000006/1/solid fill=000006/solid"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.keyword);
        PieceRun run(MakeRecord({std::string(c.keyword) + " 2 0.1 1", "0 0", "10 0"}, 1));
        EXPECT_TRUE((c.outline ? run.others : run.outlines).empty());
        const Lines& drawn = c.outline ? run.outlines : run.others;
        ASSERT_FALSE(drawn.empty());
        EXPECT_EQ(drawn.back(), c.expected);
        EXPECT_TRUE(run.bench.messages.Entries().empty());
    }
    // Filled outlines are one polygon with a one-unit border; the pass leaves a 0.25 mm pen and
    // a solid fill, whatever the file gives.
    PlotBench bench;
    bench.canvas.SetFillStyle(FillStyle::None);
    DrawPieces(bench.frame, ParseDecal(MakeRecord({"KPTCLS 3 50 1", "0 0", "10 0", "10 10"}, 1)),
               false, bench.messages);
    ASSERT_EQ(bench.canvas.Lines().size(), 1u);
    EXPECT_TRUE(bench.canvas.Lines()[0].starts_with("polygon 1024 0 0 1000 0 1000 1000 0 0 0 0"));
    EXPECT_TRUE(bench.canvas.Lines()[0].ends_with(" pen=000006/1/solid fill=000006/solid"));
    EXPECT_EQ(bench.canvas.FillStyleNow(), FillStyle::Solid);
    const DecalRecord copper = MakeRecord({"COPCLS 3 50 1", "0 0", "10 0", "10 10"}, 1);
    DrawPieces(bench.frame, ParseDecal(copper), true, bench.messages);
    EXPECT_EQ(bench.canvas.Lines().size(), 1u);
    EXPECT_EQ(bench.canvas.PenWidth(), 25);
}

TEST(DrawPieces, CopperOfAPinTakesThePadPenByTheWordAfterTheLayer) {
    const struct {
        const char* file;
        const char* header;
        const char* pen;
    } cases[] = {
        {kV4Library, "COPOPN 2 0.1 1 2", "000001"},
        {kV4Library, "COPOPN 2 0.1 1 -1", "000002"},
        {kV4Library, "COPCUT 2 0.1 1 0", "000001"},
        {kV4Library, "KPTCLS 2 0.1 1 2", "000006"},  // keepouts never
        {kV95Pcb, "COPOPN 2 0.1 -1 20 2", "000001"},
        {kV95Pcb, "COPOPN 2 0.1 -1 20", "200002"},
        {kV2005Pcb, "COPOPN 2 0.1 20 0", "000001"},
        {kV9Library, "COPOPN 2 0.1 20 -1 1", "000001"},
        {kV9Library, "COPOPN 2 0.1 20 -1 RC", "200002"},  // not a pin number
        {kV2005Pcb, "KPTCIR 2 0 20 RC", "000006"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.header);
        PieceRun run(Record(c.file, {c.header, "0 0", "10 0"}, 1));
        ASSERT_FALSE(run.others.empty());
        EXPECT_NE(run.others.back().find(std::string("pen=") + c.pen), std::string::npos)
            << run.others.back();
        EXPECT_TRUE(run.bench.messages.Entries().empty());
    }
    // An outline with a fifth field stays an outline.
    PieceRun outline(MakeRecord({"OPEN 2 0.1 1 2", "0 0", "10 0"}, 1));
    EXPECT_TRUE(outline.others.empty());
}

TEST(DrawPieces, TheLayerAndLineStyleStandWhereTheReleaseWritesThem) {
    const struct {
        const char* file;
        const char* header;
        const char* expected;
    } cases[] = {
        {kV9Library, "CLOSED 2 0.1 20 -1", "line 1000 0 pen=200003/10/solid"},  // layer, style
        {kV95Pcb, "CLOSED 2 0.1 -1 20", "line 1000 0 pen=200003/10/solid"},     // style, level
        {kV2005Pcb, "CLOSED 2 0.1 20", "line 1000 0 pen=200003/10/solid"},
        {kV9Library, "OPEN 2 0.1 1 -2", "line 1000 0 pen=000003/10/dash"},
        {kV9Library, "OPEN 2 0.1 1 -3", "line 1000 0 pen=000003/10/dot"},
        // Style 0 is the old dotted line in a library and the plain line of a PCB file.
        {kV9Library, "OPEN 2 0.1 1 0", "line 1000 0 pen=000003/10/dot"},
        {kV95Pcb, "OPEN 2 0.1 0 1", "line 1000 0 pen=000003/10/solid"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.header);
        PieceRun run(Record(c.file, {c.header, "0 0", "10 0"}, 1));
        EXPECT_EQ(run.outlines, (Lines{"move 0 0", c.expected}));
        EXPECT_EQ(run.bench.canvas.PenStyleNow(), PenStyle::Solid);
    }
}

TEST(DrawPieces, ArcsRunCounterClockwiseAndNegativeSweepsSwapTheirEnds) {
    const struct {
        const char* file;
        const char* corner;  // from (10, 0) on the circle of radius 10 round the origin
        const char* end;
        const char* expected;
    } cases[] = {
        {kV4Library, "10 0 0 90 -10 -10 10 10", "0 10",
         "arc -1000 -1000 1000 1000 1000 0 0 1000 pen=000003/10/solid"},
        {kV4Library, "10 0 0 -90 -10 -10 10 10", "0 -10",
         "arc -1000 -1000 1000 1000 0 -1000 1000 0 pen=000003/10/solid"},
        {kV4Library, "10 0 90 0 -10 -10 10 10", "0 10",  // a start angle alone is an arc too
         "arc -1000 -1000 1000 1000 1000 0 0 1000 pen=000003/10/solid"},
        {kV9Library, "10 0 0 900 -10 -10 10 10", "0 10",  // tenths of a degree
         "arc -1000 -1000 1000 1000 1000 0 0 1000 pen=000003/10/solid"},
        {kV9Library, "10 0 0 -900 -10 -10 10 10", "0 -10",
         "arc -1000 -1000 1000 1000 0 -1000 1000 0 pen=000003/10/solid"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.corner);
        const std::string layer = c.file == kV4Library ? "1" : "1 -1";
        PieceRun run(Record(c.file, {"OPEN 3 0.1 " + layer, c.corner, c.end, "0 20"}, 1));
        ASSERT_EQ(run.outlines.size(), 4u);
        EXPECT_EQ(run.outlines[1], c.expected);
        EXPECT_EQ(run.outlines[2], std::string("move ") + (c.end[2] == '-' ? "0 -1000" : "0 1000"));
    }
    // A whole turn is drawn in two halves.
    PieceRun turn(Record(kV9Library, {"OPEN 2 0.1 1 -1", "10 0 0 -3600 -10 -10 10 10", "10 0"}, 1));
    EXPECT_EQ(LinesOf(turn.bench.canvas, "arc"),
              (Lines{"arc -1000 -1000 1000 1000 1000 0 -1000 0 pen=000003/10/solid",
                     "arc -1000 -1000 1000 1000 -1000 0 1000 0 pen=000003/10/solid"}));
    // Filled pieces follow their arcs in chords of 10 degrees.
    PieceRun half(
        Record(kV95Pcb, {"COPCLS 3 0.1 -1 1", "10 0 0 1800 -10 -10 10 10", "-10 0", "10 0"}, 1));
    ASSERT_EQ(half.others.size(), 1u);
    EXPECT_TRUE(half.others[0].starts_with("polygon 1024 1000 0 985 174 940 342 "));
    EXPECT_NE(half.others[0].find(" -985 174 -1000 0 1000 0 1000 0 "), std::string::npos);
}

TEST(DrawPieces, ClosedOutlinesAreClosedOnlyByTheirOwnLastCorner) {
    PieceRun run(MakeRecord({"CLOSED 3 0.1 1", "0 0", "10 0", "10 10"}, 1));
    EXPECT_EQ(run.outlines, (Lines{"move 0 0", "line 1000 0 pen=000003/10/solid",
                                   "line 1000 1000 pen=000003/10/solid"}));
}

TEST(DrawPieces, CirclesComeFromTheirFirstCornerAndEachLaterOne) {
    // Three corners: two circles of radius 50 round (50, 0) and of radius 30 round (0, 30).
    PieceRun three(MakeRecord({"CIRCLE 3 0.1 1", "0 0", "100 0", "0 60"}, 1));
    EXPECT_EQ(three.outlines,
              (Lines{"arc 0 -5000 10000 5000 10000 5000 0 -5000 pen=000003/10/solid",
                     "arc 0 -5000 10000 5000 0 -5000 10000 5000 pen=000003/10/solid",
                     "arc -3000 0 3000 6000 3000 6000 -3000 0 pen=000003/10/solid",
                     "arc -3000 0 3000 6000 -3000 0 3000 6000 pen=000003/10/solid"}));
    PieceRun filled(MakeRecord({"COPCIR 2 0.1 1", "0 0", "0 100"}, 1));
    EXPECT_EQ(filled.others, (Lines{"roundrect -5000 0 5000 10000 10000 10000 pen=000002/1/solid "
                                    "fill=000002/solid"}));
    // Newer files give a diameter: radius 25 round (15, 20).
    PieceRun newer(Record(kV9Library, {"CIRCLE 2 0.1 1 -1", "0 0", "30 40"}, 1));
    EXPECT_EQ(newer.outlines.at(0),
              "arc -1000 -500 4000 4500 4000 4500 -1000 -500 pen=000003/10/solid");
}

TEST(DrawPieces, PensAndWidthsAreSetEvenForPiecesNotDrawn) {
    PlotBench bench;
    bench.Rescale(3, 0.0254);
    DrawPieces(bench.frame, ParseDecal(MakeRecord({"OPEN 2 10 1", "0 0", "1000 0"}, 1)), true,
               bench.messages);
    // 10 mils at 3:1 is 0.762 mm; 1000 mils at 3:1 is 76.2 mm.
    EXPECT_EQ(bench.canvas.Lines().at(1), "line 7620 0 pen=000003/76/solid");

    // A piece left to the other pass still sets its colour and width.
    bench.canvas.Clear();
    bench.Rescale(1, 1);
    DrawPieces(bench.frame, ParseDecal(MakeRecord({"COPOPN 2 0.1 1", "0 0", "10 0"}, 1)), true,
               bench.messages);
    EXPECT_TRUE(bench.canvas.Lines().empty());
    EXPECT_EQ(bench.canvas.PenColour(), kPenCopper);
    EXPECT_EQ(bench.canvas.PenWidth(), 10);

    // An unplotted pen skips the piece silently and leaves the colour, but sets the width.
    bench.settings.PenTable[0].colour[kPenCopper] = kNotPlotted;
    bench.canvas.SetPenColour(0x777777);
    DrawPieces(bench.frame, ParseDecal(MakeRecord({"COPOPN 2 0.2 5", "0 0", "10 0"}, 1)), false,
               bench.messages);
    EXPECT_TRUE(bench.canvas.Lines().empty());
    EXPECT_EQ(bench.canvas.PenColour(), 0x777777);
    EXPECT_EQ(bench.canvas.PenWidth(), 20);
    EXPECT_TRUE(bench.messages.Entries().empty());
}

TEST(DrawPieces, PassesOverTheCornersOfPiecesItDoesNotDrawAndStopsAtTheBodysEnd) {
    PieceRun run(MakeRecord({"COPCLS 3 0.1 1", "0 0", "10 0", "10 10", "OPEN 2 0.1 1", "1 1", "2 2",
                             "COPOPN 2 0.1 1", "5 5", "6 6"},
                            3));
    EXPECT_EQ(run.outlines, (Lines{"move 100 100", "line 200 200 pen=000003/10/solid"}));
    ASSERT_EQ(run.others.size(), 3u);
    EXPECT_EQ(run.others[1], "move 500 500");

    PieceRun beyond(MakeRecord({"OPEN 5 0.1 1", "0 0", "10 0"}, 4));
    EXPECT_EQ(beyond.outlines, (Lines{"move 0 0", "line 1000 0 pen=000003/10/solid"}));
    EXPECT_TRUE(beyond.bench.messages.Entries().empty());
}

TEST(DrawPieces, AnUnknownKeywordIsReportedAndEndsThePiecesOfAnOldFile) {
    PlotBench bench;
    const DecalRecord record = MakeRecord(
        {"OPEN 2 0.1 1", "0 0", "10 0", "TEXT 1 x y", "0 0", "OPEN 2 0.1 1", "0 0", "0 10"}, 3);
    DrawPieces(bench.frame, ParseDecal(record), true, bench.messages);
    EXPECT_EQ(bench.canvas.Lines(), (Lines{"move 0 0", "line 1000 0 pen=000003/10/solid"}));
    EXPECT_EQ(bench.messages.Texts(), (Lines{"Unknown drawing item: TEXT"}));

    // The newer kinds are unknown there; nothing of the surface changes.
    PlotBench old;
    old.canvas.SetFillStyle(FillStyle::None);
    old.canvas.SetPenWidth(7);
    DrawPieces(old.frame, ParseDecal(MakeRecord({"COPCCO 2 0.1 1", "0 0", "10 0"}, 1)), false,
               old.messages);
    EXPECT_TRUE(old.canvas.Lines().empty());
    EXPECT_EQ(old.messages.Texts(), (Lines{"Unknown drawing item: COPCCO"}));
    EXPECT_EQ(old.canvas.FillStyleNow(), FillStyle::None);
    EXPECT_EQ(old.canvas.PenWidth(), 7);
}

TEST(DrawPieces, NewerFilesPassOverAnUnknownKindAndReportItOncePerJob) {
    const DecalRecord record = Record(
        kV9Library,
        {"WIDGET 2 0.1 1 -1", "0 0", "x y", "OPEN 2 0.1 1 -1", "0 0", "10 0", "GADGET 0 0 1 -1"},
        3);
    PieceRun run(record);
    EXPECT_EQ(run.outlines, (Lines{"move 0 0", "line 1000 0 pen=000003/10/solid"}));
    EXPECT_EQ(run.bench.messages.Texts(),
              (Lines{"Unknown drawing item: WIDGET", "Unknown drawing item: GADGET"}));
    DrawPieces(run.bench.frame, ParseDecal(record), true, run.bench.messages, run.reports);
    EXPECT_EQ(run.bench.messages.Entries().size(), 2u);
    // Without a job's reports, each call reports for itself.
    PlotBench bench;
    DrawPieces(bench.frame, ParseDecal(record), true, bench.messages);
    DrawPieces(bench.frame, ParseDecal(record), false, bench.messages);
    EXPECT_EQ(bench.messages.Entries().size(), 4u);

    // The newer kinds are drawn: board circles and cutouts as outlines, copper cutout circles
    // (of a pin when it says so) with the rest; tags are brackets.
    PieceRun kinds(Record(
        kV95Pcb,
        {"TAG 0 0 0 1", "BRDCIR 2 0.1 -1 1", "0 0", "20 0", "COPCCO 2 0.1 -1 1", "0 0", "20 0",
         "COPCCO 2 0.1 -1 1 3", "0 0", "20 0", "BRDCUT 2 0.1 -1 1", "0 0", "0 10", "TAG 0 0 0 0"},
        6));
    EXPECT_TRUE(kinds.bench.messages.Entries().empty());
    EXPECT_EQ(kinds.outlines.size(), 4u);
    ASSERT_EQ(kinds.others.size(), 4u);
    EXPECT_EQ(kinds.others[0], "arc 0 -1000 2000 1000 2000 1000 0 -1000 pen=000005/10/solid");
    EXPECT_EQ(kinds.others[2], "arc 0 -1000 2000 1000 2000 1000 0 -1000 pen=000001/10/solid");
}

TEST(DrawPieces, AFieldThatIsNotANumberEndsTheDrawingWithItsLine) {
    PlotBench bench;
    DecalRecord record = MakeRecord({"OPEN 2 0.1 1", "0 0", "1O 0"}, 1);
    record.headerLineNumber = 40;
    record.fileName = "lib.d";
    try {
        DrawPieces(bench.frame, ParseDecal(record), true, bench.messages);
        FAIL() << "no error";
    } catch (const ConversionError& error) {
        EXPECT_EQ(error.file(), "lib.d");
        EXPECT_EQ(error.line(), 43);
    }
}

TEST(PieceExtents, CornersArcBoxesAndCircleRoomWidenButWidthsDoNot) {
    DecalExtents extents;
    extents.Widen(-100, 200);
    PieceExtents(ParseDecal(MakeRecord({"OPEN 2 1000 1", "-10 5", "20 -3", "CLOSED 2 1 1",
                                        "0 0 0 90 -40 -40 40 40", "40 0", "TEXT 1 a b", "300 0"},
                                       3)),
                 extents);
    EXPECT_EQ(extents.xmin, -100);
    EXPECT_EQ(extents.xmax, 300);
    EXPECT_EQ(extents.ymin, -40);
    EXPECT_EQ(extents.ymax, 200);

    // Circles reserve their whole width above and below the second corner; cutouts do not.
    for (const auto& [keyword, ymin] : {std::pair{"CIRCLE", -90}, std::pair{"COPCCO", -90},
                                        std::pair{"KPTCIR", -90}, std::pair{"CIRCUT", 10}}) {
        DecalExtents circle;
        PieceExtents(ParseDecal(MakeRecord({std::string(keyword) + " 2 5 1", "0 10", "100 10"}, 1)),
                     circle);
        EXPECT_EQ(circle.ymin, ymin) << keyword;
        EXPECT_EQ(circle.ymax, ymin == -90 ? 110 : 10) << keyword;
    }
    // Newer files: a circle by its diameter.
    DecalExtents newer;
    PieceExtents(
        ParseDecal(Record(
            kV95Pcb, {"CIRCLE 2 0.1 -1 1", "0 -10", "0 10", "BRDCIR 2 0 -1 1", "50 0", "70 0"}, 2)),
        newer);
    EXPECT_EQ(newer.xmin, -10);
    EXPECT_EQ(newer.xmax, 70);
    EXPECT_EQ(newer.ymin, -10);
    EXPECT_EQ(newer.ymax, 10);
}

}  // namespace
}  // namespace zantor
