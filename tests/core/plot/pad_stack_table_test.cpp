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
    // the bottom edge at 40 mm. Texts stand 0.5 mm above the bottom of their 3.5 mm row.
    const std::string line = " colour=00000A";
    const std::string data = " colour=000009";
    const std::string pen = " pen=00000A/25/solid";
    const Lines expected = {
        "text-centre 5000 6400 250 \"Arial\" \"PAD-STACK DEFINITIONS (mm)\"" + line,
        "text-centre 1510 6050 250 \"Arial\" \"PIN\"" + line,
        "text-centre 2460 6050 250 \"Arial\" \"RNG\"" + line,
        "text-centre 3330 6050 250 \"Arial\" \"LVL\"" + line,
        "text-centre 4310 6050 250 \"Arial\" \"SIZE\"" + line,
        "text-centre 5230 6050 250 \"Arial\" \"SH\"" + line,
        "text-centre 6010 6050 250 \"Arial\" \"ORI\"" + line,
        "text-centre 7210 6050 250 \"Arial\" \"LEN/ID\"" + line,
        "text-centre 8360 6050 250 \"Arial\" \"OFFSET\"" + line,
        // the default stack
        "text-centre 1510 5700 250 \"Arial\" \"All\"" + data,
        "text-centre 3330 5700 250 \"Arial\" \"DRL\"" + data,
        "text-right 4760 5700 250 \"Arial\" \"0.000\"" + data,
        "text 5060 5700 250 \"Arial\" \"NP\"" + data,
        "text-right 6410 5700 250 \"Arial\" \"0.0\"" + data,
        "text 3060 5350 250 \"Arial\" \"Top\"" + data,
        "text-right 4760 5350 250 \"Arial\" \"0.600\"" + data,
        "text 5060 5350 250 \"Arial\" \"R\"" + data,
        // pins 1 to 8
        "text-centre 1510 5000 250 \"Arial\" \"1\"" + data,
        "text-centre 2460 5000 250 \"Arial\" \"8\"" + data,
        "text-centre 3330 5000 250 \"Arial\" \"DRL\"" + data,
        "text-right 4760 5000 250 \"Arial\" \"0.800\"" + data,
        "text 5060 5000 250 \"Arial\" \"PL\"" + data,
        "text-right 6410 5000 250 \"Arial\" \"0.0\"" + data,
        "text 3060 4650 250 \"Arial\" \"Top\"" + data,
        "text-right 4760 4650 250 \"Arial\" \"1.200\"" + data,
        "text 5060 4650 250 \"Arial\" \"OF\"" + data,
        "text-right 6410 4650 250 \"Arial\" \"90.0\"" + data,
        "text-right 7660 4650 250 \"Arial\" \"2.000\"" + data,
        "text-right 8760 4650 250 \"Arial\" \"0.000\"" + data,
        "text 3060 4300 250 \"Arial\" \"Bot\"" + data,
        "text-right 4760 4300 250 \"Arial\" \"1.200\"" + data,
        "text 5060 4300 250 \"Arial\" \"R\"" + data,
        // the frame, the column rules from the heading row down, the line under the headings
        "move 1060 4000",
        "line 8940 4000" + pen,
        "line 8940 6450" + pen,
        "line 1060 6450" + pen,
        "line 1060 4000" + pen,
        "move 1960 6100",
        "line 1960 4000" + pen,
        "move 2910 6100",
        "line 2910 4000" + pen,
        "move 3710 6100",
        "line 3710 4000" + pen,
        "move 4980 6100",
        "line 4980 4000" + pen,
        "move 5540 6100",
        "line 5540 4000" + pen,
        "move 6610 6100",
        "line 6610 4000" + pen,
        "move 7810 6100",
        "line 7810 4000" + pen,
        "move 1060 5750",
        "line 8940 5750" + pen,
    };
    EXPECT_EQ(PrintTable(bench, TwoStacks()), expected);
}

TEST(PrintPadStackTable, SixteenRowsAtMostAndTheRightHalfForLaterPlacements) {
    PlotBench bench;
    // Six stacks of three lines on pins that do not follow each other: 24 lines.
    PadStackList stacks;
    for (std::int32_t pin : {1, 3, 5, 7, 9, 11}) {
        for (std::int32_t layer : {-2, -1, 0}) {
            stacks.push_back(Line(pin, pin, layer, 1.0, "R"));
        }
    }
    ASSERT_EQ(PadStackTableLineCount(stacks), 24);
    PrintTable(bench, stacks);
    // 18 rows of 3.5 mm above 40 mm; the sixteenth data row is the lowest.
    const Lines lines = LinesOf(bench.canvas, "line");
    EXPECT_EQ(lines.at(1), "line 8940 10300 pen=00000A/25/solid");
    int dataRows = 0;
    std::string lastY;
    for (const std::string& text : bench.canvas.Lines()) {
        if (text.ends_with("colour=000009")) {
            const std::string y = text.substr(text.find(' ', text.find(' ') + 1) + 1, 4);
            if (y != lastY) {
                ++dataRows;
                lastY = y;
            }
        }
    }
    EXPECT_EQ(dataRows, 16);
    EXPECT_EQ(lastY, "4300");

    // Placement 2 moves the table right by half the drawing width.
    const Lines right = PrintTable(bench, TwoStacks(), 2);
    EXPECT_EQ(right.at(0),
              "text-centre 15000 6400 250 \"Arial\" \"PAD-STACK DEFINITIONS (mm)\" colour=00000A");
    EXPECT_EQ(LinesOf(bench.canvas, "move").at(0), "move 11060 4000");
}

TEST(PrintPadStackTable, PartsWhosePenIsNotPlottedAreLeftOut) {
    PlotBench bench;
    const Lines whole = PrintTable(bench, TwoStacks());
    ASSERT_EQ(whole.size(), 53u);

    bench.settings.PenTable[0].colour[kPenFormText] = kNotPlotted;
    const Lines withoutRows = PrintTable(bench, TwoStacks());
    EXPECT_EQ(withoutRows.size(), 30u);  // 53 less the 23 data texts
    for (const std::string& text : withoutRows) {
        EXPECT_EQ(text.find("colour=000009"), std::string::npos) << text;
    }

    bench.settings.PenTable[0].colour[kPenFormText] = kPenFormText;
    bench.settings.PenTable[0].colour[kPenFormLine] = kNotPlotted;
    const Lines rowsOnly = PrintTable(bench, TwoStacks());
    EXPECT_EQ(rowsOnly.size(), 23u);
    for (const std::string& text : rowsOnly) {
        EXPECT_TRUE(text.ends_with("colour=000009")) << text;
    }
}

TEST(PrintPadStackTable, NothingWithoutLinesOrWhenSwitchedOff) {
    PlotBench bench;
    PrintPadStackTable(bench.frame, TwoStacks(), 0, 1, 200, 'M', kMillimetres, "Arial");
    EXPECT_TRUE(bench.canvas.Lines().empty());
    bench.settings.PlotPadstack = false;
    EXPECT_TRUE(PrintTable(bench, TwoStacks()).empty());
}

TEST(PrintPadStackTable, TitleNamesTheUnitOfTheNumbers) {
    PlotBench bench;
    PrintPadStackTable(bench.frame, TwoStacks(), 5, 1, 200, 'X', {0.0254, true}, "Arial");
    ASSERT_FALSE(bench.canvas.Lines().empty());
    EXPECT_NE(bench.canvas.Lines()[0].find("\"PAD-STACK DEFINITIONS (mi)\""), std::string::npos);
}

}  // namespace
}  // namespace zantor
