#include "plot/pad_stack_table.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/plot/plot_test_support.h"

namespace zantor {
namespace {

using test::LinesOf;
using test::PlotBench;
using Lines = std::vector<std::string>;

PadStackEntry Line(std::int32_t pin, std::int32_t pinLast, std::int32_t layer, double size,
                   std::string shape) {
    PadStackEntry entry;
    entry.pin = pin;
    entry.pinLast = pinLast;
    entry.layer = layer;
    entry.size = size;
    entry.shape = std::move(shape);
    return entry;
}

// The default stack (one round pad on top, no drill) and pins 1 to 8 merged into one stack with
// a plated 0.8 drill: an oval finger on top and a round pad at the bottom.
PadStackList TwoStacks() {
    PadStackEntry finger = Line(1, 8, -2, 1.2, "OF");
    finger.ori = 90;
    finger.lenOrInner = 2;
    PadStackEntry bottom = Line(1, 8, 0, 1.2, "R");
    for (PadStackEntry* entry : {&finger, &bottom}) {
        entry->drill = 0.8;
        entry->plated = "P";
    }
    PadStackEntry all = Line(0, 0, -2, 0.6, "R");
    all.plated = "N";
    return {all, finger, bottom};
}

constexpr LibraryUnits kMillimetres{1.0, false};

// Millimetre decal on a 200 mm wide drawing: the left table's edge at 50 - 39.403 = 10.597 mm.
Lines PrintTable(PlotBench& bench, const PadStackList& stacks, int placement = 1) {
    bench.canvas.Clear();
    PrintPadStackTable(bench.frame, stacks, PadStackTableLineCount(stacks), placement, 200, 'M',
                       kMillimetres, "Arial");
    return bench.canvas.Lines();
}

TEST(PrintPadStackTable, RowsStandUnderTitleAndHeadingsInsideTheirRules) {
    PlotBench bench;
    // Five rows (two headers, three stack lines) and the title and heading rows: 24.5 mm from
    // the bottom edge at 40 mm. Texts stand 0.5 mm above the bottom of their 3.5 mm row; 23 data
    // texts, then the frame, eight column rules and the line under the headings.
    const Lines all = PrintTable(bench, TwoStacks());
    ASSERT_EQ(all.size(), 53u);
    const std::string line = " colour=00000A";
    const std::string data = " colour=000009";
    const std::string pen = " pen=00000A/25/solid";
    EXPECT_EQ(all[0], "text-centre 5000 6400 250 \"Arial\" \"PAD-STACK DEFINITIONS (mm)\"" + line);
    EXPECT_EQ(all[1], "text-centre 1510 6050 250 \"Arial\" \"PIN\"" + line);
    EXPECT_EQ(all[8], "text-centre 8360 6050 250 \"Arial\" \"OFFSET\"" + line);
    const Lines stacks(all.begin() + 9, all.begin() + 32);
    EXPECT_EQ(Lines(stacks.begin(), stacks.begin() + 8),
              (Lines{// the default stack
                     "text-centre 1510 5700 250 \"Arial\" \"All\"" + data,
                     "text-centre 3330 5700 250 \"Arial\" \"DRL\"" + data,
                     "text-right 4760 5700 250 \"Arial\" \"0.000\"" + data,
                     "text 5060 5700 250 \"Arial\" \"NP\"" + data,
                     "text-right 6410 5700 250 \"Arial\" \"0.0\"" + data,
                     "text 3060 5350 250 \"Arial\" \"Top\"" + data,
                     "text-right 4760 5350 250 \"Arial\" \"0.600\"" + data,
                     "text 5060 5350 250 \"Arial\" \"R\"" + data}));
    // Pins 1 to 8: the range, the plated drill, the finger's orientation, length and offset.
    EXPECT_EQ(stacks[9], "text-centre 2460 5000 250 \"Arial\" \"8\"" + data);
    EXPECT_EQ(stacks[12], "text 5060 5000 250 \"Arial\" \"PL\"" + data);
    EXPECT_EQ(Lines(stacks.begin() + 17, stacks.begin() + 20),
              (Lines{"text-right 6410 4650 250 \"Arial\" \"90.0\"" + data,
                     "text-right 7660 4650 250 \"Arial\" \"2.000\"" + data,
                     "text-right 8760 4650 250 \"Arial\" \"0.000\"" + data}));
    EXPECT_EQ(stacks[20], "text 3060 4300 250 \"Arial\" \"Bot\"" + data);
    EXPECT_EQ(Lines(all.begin() + 32, all.begin() + 39),
              (Lines{"move 1060 4000", "line 8940 4000" + pen, "line 8940 6450" + pen,
                     "line 1060 6450" + pen, "line 1060 4000" + pen, "move 1960 6100",
                     "line 1960 4000" + pen}));
    EXPECT_EQ(Lines(all.end() - 2, all.end()), (Lines{"move 1060 5750", "line 8940 5750" + pen}));

    // Only the texts without a form-line pen; only the rules without a form-text pen.
    bench.settings.PenTable[0].colour[kPenFormLine] = kNotPlotted;
    EXPECT_EQ(PrintTable(bench, TwoStacks()), stacks);
    bench.settings.PenTable[0].colour[kPenFormLine] = kPenFormLine;
    bench.settings.PenTable[0].colour[kPenFormText] = kNotPlotted;
    Lines rulesAndHeadings(all.begin(), all.begin() + 9);
    rulesAndHeadings.insert(rulesAndHeadings.end(), all.begin() + 32, all.end());
    EXPECT_EQ(PrintTable(bench, TwoStacks()), rulesAndHeadings);
}

// The rows' contents and their limit of sixteen are the table content's test (library).
TEST(PrintPadStackTable, LaterPlacementsTakeTheRightHalfAndNothingIsDrawnWithoutLines) {
    PlotBench bench;
    const Lines right = PrintTable(bench, TwoStacks(), 2);
    EXPECT_TRUE(right.at(0).starts_with("text-centre 15000 6400 250 "));
    EXPECT_EQ(LinesOf(bench.canvas, "move").at(0), "move 11060 4000");

    bench.canvas.Clear();
    PrintPadStackTable(bench.frame, TwoStacks(), 0, 1, 200, 'M', kMillimetres, "Arial");
    EXPECT_TRUE(bench.canvas.Lines().empty());
    bench.settings.PlotPadstack = false;
    EXPECT_TRUE(PrintTable(bench, TwoStacks()).empty());
}

}  // namespace
}  // namespace zantor
