#include "plot/terminals.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <climits>
#include <cmath>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "core/font/font_builder.h"
#include "core/plot/plot_test_support.h"

namespace zantor {
namespace {

using test::LinesOf;
using test::PlotBench;
using Lines = std::vector<std::string>;

// H6 16, so that a character advances as far as it is high. Every printable character is one
// upright stroke whose length in font units is its code minus 32: a recorded stroke tells which
// character drew it, and the strokes of a text tell the whole text.
StrokeFont GlyphFont() {
    std::map<int, test::TestGlyph> glyphs;
    for (int code = 32; code <= 126; ++code) {
        glyphs[code] = {6, {0, 8, 0, static_cast<std::uint8_t>(8 + code - 32), 255, 255}};
    }
    StrokeFont font;
    font.LoadBytes(test::BuildFont(16, 126, glyphs));
    return font;
}

// At this PinNoSize (paper millimetres) a font unit is 0.1 mm on paper: 10 device units.
constexpr double kTenthMmPinNo = 3.04;

// The texts drawn in the pin-number pen, as "TEXT X Y" (device units of the first stroke), when
// one font unit is `unit` device units: strokes one advance apart on one line make one text.
Lines PinNumbers(const RecordingCanvas& canvas, int unit) {
    struct Drawn {
        std::string text;
        int x = 0;
        int y = 0;
        int lastX = 0;
    };
    std::vector<Drawn> texts;
    const Lines& lines = canvas.Lines();
    for (std::size_t i = 0; i + 1 < lines.size(); ++i) {
        if (!lines[i].starts_with("move ") || !lines[i + 1].starts_with("line ") ||
            lines[i + 1].find("pen=000007/") == std::string::npos) {
            continue;
        }
        std::string op;
        int mx = 0;
        int my = 0;
        int lx = 0;
        int ly = 0;
        std::istringstream(lines[i]) >> op >> mx >> my;
        std::istringstream(lines[i + 1]) >> op >> lx >> ly;
        const char c = static_cast<char>(32 + (ly - my) / unit);
        if (!texts.empty() && texts.back().y == my && texts.back().lastX + 10 * unit == mx) {
            texts.back().text += c;
            texts.back().lastX = mx;
        } else {
            texts.push_back({std::string(1, c), mx, my, mx});
        }
    }
    Lines result;
    for (const Drawn& d : texts) {
        result.push_back(d.text + " " + std::to_string(d.x) + " " + std::to_string(d.y));
    }
    return result;
}

// A recorded polygon without the buffer entries that repeat its first point: "polygon X1 Y1 ...
// pen=... fill=...".
std::string Compact(const std::string& line) {
    std::istringstream in(line);
    std::string op;
    std::size_t count = 0;
    in >> op >> count;
    std::vector<std::pair<int, int>> points(count);
    for (auto& [x, y] : points) {
        in >> x >> y;
    }
    std::string pen;
    std::string fill;
    in >> pen >> fill;
    std::size_t used = points.size();
    while (used > 1 && points[used - 1] == points[0]) {
        --used;
    }
    std::string out = "polygon";
    for (std::size_t i = 0; i < used; ++i) {
        out += " " + std::to_string(points[i].first) + " " + std::to_string(points[i].second);
    }
    return out + " " + pen + " " + fill;
}

Lines Drawn(const RecordingCanvas& canvas) {
    Lines lines = canvas.Lines();
    for (std::string& line : lines) {
        if (line.starts_with("polygon ")) {
            line = Compact(line);
        }
    }
    return lines;
}

PadStackEntry Pad(std::int32_t pin, std::int32_t layer, double size, std::string shape,
                  double ori = 0, double lenOrInner = 0, double offsetOrSpoke = 0) {
    PadStackEntry pad;
    pad.pin = pin;
    pad.pinLast = pin;
    pad.layer = layer;
    pad.size = size;
    pad.shape = std::move(shape);
    pad.ori = ori;
    pad.lenOrInner = lenOrInner;
    pad.offsetOrSpoke = offsetOrSpoke;
    return pad;
}

TerminalLine Terminal(int index, double x, double y) {
    return {index, x, y, x, y, std::to_string(index)};
}

// A bench that draws pads only: no pin-1 mark, no pin numbers.
struct TerminalBench : PlotBench {
    StrokeFont font = GlyphFont();
    TerminalMarks marks;

    TerminalBench() {
        settings.MarkPin1 = false;
        settings.PlotPinNo = false;
        settings.PinNoSize = kTenthMmPinNo;
    }

    Lines Draw(const PadStackList& stacks, const TerminalLine& terminal,
               FingerAxis axis = FingerAxis::AlongXAtZero) {
        canvas.Clear();
        DrawTerminal(frame, font, stacks, terminal, marks, axis);
        return Drawn(canvas);
    }
};

const std::string kPadPen = " pen=000001/1/solid fill=000001/solid";

TEST(DrawTerminal, EachPadShapeOnItsAxisAndOrientation) {
    const struct {
        PadStackEntry pad;
        TerminalLine terminal;
        FingerAxis axis;
        Lines expected;
    } cases[] = {
        // Width 0.4, length 1.0 shifted 0.2 along the finger, at (2, 1).
        {Pad(0, -2, 0.4, "RF", 0, 1.0, 0.2),
         Terminal(3, 2, 1),
         FingerAxis::AlongXAtZero,
         {"polygon 170 80 170 120 270 120 270 80" + kPadPen}},
        {Pad(0, -2, 0.4, "RF", 90, 1.0, 0.2),
         Terminal(3, 2, 1),
         FingerAxis::AlongXAtZero,
         {"polygon 220 70 180 70 180 170 220 170" + kPadPen}},
        {Pad(0, -2, 0.4, "RF", 45, 1.0, 0),
         Terminal(3, 0, 0),
         FingerAxis::AlongXAtZero,
         {"polygon -21 -49 -49 -21 21 49 49 21" + kPadPen}},
        // The axis written literally the other way round: width along x, length along y.
        {Pad(0, -2, 0.4, "RF", 0, 1.0, 0.2),
         Terminal(3, 2, 1),
         FingerAxis::AlongYAtZero,
         {"polygon 180 70 220 70 220 170 180 170" + kPadPen}},
        // Squares ignore the orientation field.
        {Pad(0, -2, 0.5, "S", 30, 2.0, 1.0),
         Terminal(3, 0, 0),
         FingerAxis::AlongXAtZero,
         {"polygon -25 -25 -25 25 25 25 25 -25" + kPadPen}},
        // Oval fingers: two caps, 0.3 before and 0.5 after the terminal, and the body between.
        {Pad(0, -2, 0.4, "OF", 0, 1.2, 0.1),
         Terminal(3, 1, 0),
         FingerAxis::AlongXAtZero,
         {"roundrect 90 20 50 -20 40 40" + kPadPen, "roundrect 170 20 130 -20 40 40" + kPadPen,
          "polygon 70 -20 70 20 150 20 150 -20" + kPadPen}},
        {Pad(0, -2, 0.4, "OF", 90, 1.2, 0),
         Terminal(3, 0, 0),
         FingerAxis::AlongXAtZero,
         {"roundrect 20 -20 -20 -60 40 40" + kPadPen, "roundrect 20 60 -20 20 40 40" + kPadPen,
          "polygon 20 -40 -20 -40 -20 40 20 40" + kPadPen}},
        {Pad(0, -2, 0.5, "R"),
         Terminal(3, 1, 0),
         FingerAxis::AlongXAtZero,
         {"roundrect 125 25 75 -25 50 50" + kPadPen}},
        {Pad(0, -2, 1.15, "O"),
         Terminal(3, 0, 0),
         FingerAxis::AlongXAtZero,
         {"arc -40 -40 40 40 40 40 -40 -40 pen=000001/35/solid",
          "arc -40 -40 40 40 -40 -40 40 40 pen=000001/35/solid"}},
    };
    TerminalBench bench;
    for (const auto& c : cases) {
        SCOPED_TRACE(c.pad.shape + " " + std::to_string(c.pad.ori));
        EXPECT_EQ(bench.Draw({c.pad}, c.terminal, c.axis), c.expected);
    }
    // A ring of 1.0 outside, 0.6 inside: a circle through its middle with a pen as wide as the
    // ring, which grows with the scale.
    bench.Rescale(2);
    EXPECT_EQ(bench.Draw({Pad(0, -2, 1.0, "A", 0, 0.6)}, Terminal(3, 0, 0)).at(0),
              "arc -80 -80 80 80 80 80 -80 -80 pen=000001/40/solid");
}

TEST(DrawTerminal, ThermalsAndUnknownShapesHaveNoOutlineAndNoMarks) {
    TerminalBench bench;
    bench.settings.ShowPinCenter = true;
    bench.settings.ShowDrill = true;
    for (const char* shape : {"RT", "ST", "XY"}) {
        SCOPED_TRACE(shape);
        PadStackEntry pad = Pad(0, -2, 1.0, shape, 45, 1.2, 0.2);
        pad.spokes = 4;
        pad.drill = 0.5;
        EXPECT_TRUE(bench.Draw({pad}, Terminal(3, 0, 0)).empty());
    }
    // The pin still gets its number.
    bench.settings.PlotPinNo = true;
    bench.settings.PinNoStyle = 'A';
    bench.Draw({Pad(0, -2, 1.0, "XY")}, Terminal(3, 0, 0));
    EXPECT_EQ(PinNumbers(bench.canvas, 10), Lines{"3 0 0"});
    EXPECT_EQ(bench.canvas.Lines().size(), 2u);
}

TEST(DrawTerminal, LayersRunFrom30DownToTheTopSideWithTheirPlotLayerPens) {
    TerminalBench bench;
    bench.settings.PlotPinNo = true;
    bench.settings.PinNoStyle = 'A';
    // Rows for the plot layers of the top side (1), the bottom side (2) and the inner layers (0)
    // that give a pad colour and leave every other kind to row 0; row 0 plots no pads.
    PenTableRows& pens = bench.settings.PenTable;
    pens[0].colour[kPenPads] = kNotPlotted;
    const std::pair<std::int32_t, Colour> padRows[] = {{1, 0x11}, {2, 0x22}, {0, 0x33}};
    for (std::size_t i = 0; i < std::size(padRows); ++i) {
        PenRow& row = pens[i + 1];
        row.layer = padRows[i].first;
        row.colour.fill(kNotPlotted);
        row.colour[kPenPads] = padRows[i].second;
    }
    const PadStackList stacks = {Pad(0, -2, 0.2, "R"), Pad(0, -1, 0.4, "R"), Pad(0, 0, 0.6, "R"),
                                 Pad(0, 5, 0.8, "R")};
    TerminalLine terminal = Terminal(4, 0, 0);
    terminal.labelX = 1;
    terminal.labelY = 1;
    // Layer 5 has no pad pen, yet its number is printed: one number per layer with an entry.
    const std::string number = "line 100 300 pen=000007/10/solid";
    EXPECT_EQ(
        bench.Draw(stacks, terminal),
        (Lines{"move 100 100", number,
               "roundrect 30 30 -30 -30 60 60 pen=000022/1/solid fill=000022/solid", "move 100 100",
               number, "roundrect 20 20 -20 -20 40 40 pen=000033/1/solid fill=000033/solid",
               "move 100 100", number,
               "roundrect 10 10 -10 -10 20 20 pen=000011/1/solid fill=000011/solid", "move 100 100",
               number}));
}

TEST(DrawTerminal, PinsWithoutAStackUseTheDefaultOneAndOwnStacksLackingALayerHaveNoPadThere) {
    TerminalBench bench;
    PadStackList stacks = {Pad(0, -2, 0.5, "R"), Pad(0, 0, 0.5, "R"), Pad(2, -2, 0.8, "S")};
    EXPECT_EQ(bench.Draw(stacks, Terminal(2, 0, 0)),
              Lines{"polygon -40 -40 -40 40 40 40 40 -40" + kPadPen});
    EXPECT_EQ(bench.Draw(stacks, Terminal(3, 3, 0)).size(), 2u);
    // A merged range covers every pin in it.
    stacks[2].pinLast = 5;
    EXPECT_EQ(bench.Draw(stacks, Terminal(5, 0, 0)),
              Lines{"polygon -40 -40 -40 40 40 40 40 -40" + kPadPen});
    EXPECT_TRUE(bench.Draw({}, Terminal(1, 0, 0)).empty());
}

TEST(DrawTerminal, Pin1HasTheDiamondOrTheCentreMarkNeverBothCappedOnPaper) {
    TerminalBench bench;
    bench.settings.ShowPinCenter = true;
    const PadStackList stacks = {Pad(0, -2, 1.0, "R")};
    const std::string pin1Disc = "roundrect 50 50 -50 -50 100 100" + kPadPen;
    const std::string pin2Disc = "roundrect 250 50 150 -50 100 100" + kPadPen;
    const std::string pin2Centre = "roundrect 225 25 175 -25 25 25" + kPadPen;

    bench.settings.MarkPin1 = true;
    // Half the pad (0.5 mm) is below MaxPin1Mark: the diamond is 0.5 mm across.
    EXPECT_EQ(bench.Draw(stacks, Terminal(1, 0, 0)),
              (Lines{pin1Disc, "polygon 25 0 0 25 -25 0 0 -25" + kPadPen}));
    EXPECT_EQ(bench.Draw(stacks, Terminal(2, 2, 0)), (Lines{pin2Disc, pin2Centre}));
    bench.settings.MarkPin1 = false;
    EXPECT_EQ(bench.Draw(stacks, Terminal(1, 0, 0)),
              (Lines{pin1Disc, "roundrect 25 25 -25 -25 25 25" + kPadPen}));
    // A pin-1 mark too small to draw leaves pin 1 without either mark.
    bench.settings.MarkPin1 = true;
    bench.settings.MaxPin1Mark = 0.01;
    EXPECT_EQ(bench.Draw(stacks, Terminal(1, 0, 0)), Lines{pin1Disc});
    bench.settings.ShowPinCenter = false;
    EXPECT_EQ(bench.Draw(stacks, Terminal(2, 2, 0)), Lines{pin2Disc});

    // The caps are sizes on paper at any scale.
    bench.Rescale(2);
    bench.settings.ShowPinCenter = true;
    bench.settings.MaxPin1Mark = 0.6;  // below the pad's half, 1.0 mm on paper
    bench.settings.MaxPinCenterMark = 0.4;
    EXPECT_EQ(bench.Draw(stacks, Terminal(1, 0, 0)).at(1),
              "polygon 30 0 0 30 -30 0 0 -30" + kPadPen);
    EXPECT_EQ(bench.Draw(stacks, Terminal(2, 2, 0)).at(1),
              "roundrect 420 20 380 -20 20 20" + kPadPen);
}

TEST(DrawTerminal, DrillsFollowShowDrillOnlyNPDrillAndTheirSize) {
    TerminalBench bench;
    bench.settings.ShowDrill = true;
    PadStackEntry pad = Pad(0, -2, 1.0, "R");
    pad.drill = 0.8;
    pad.plated = "P";
    const std::string disc = "roundrect 50 50 -50 -50 100 100" + kPadPen;
    const std::string pen = " pen=000007/25/solid";
    const Lines hole = {disc,
                        "arc -40 -40 40 40 40 40 -40 -40" + pen,
                        "arc -40 -40 40 40 -40 -40 40 40" + pen,
                        "move 28 -28",
                        "line -28 28" + pen,
                        "move -28 -28",
                        "line 28 28" + pen};
    EXPECT_EQ(bench.Draw({pad}, Terminal(3, 0, 0)), hole);
    bench.settings.OnlyNPDrill = true;
    EXPECT_EQ(bench.Draw({pad}, Terminal(3, 0, 0)), Lines{disc});
    pad.plated = "";  // anything but "P" is non-plated
    EXPECT_EQ(bench.Draw({pad}, Terminal(3, 0, 0)), hole);
    pad.drill = 0.01;
    EXPECT_EQ(bench.Draw({pad}, Terminal(3, 0, 0)), Lines{disc});
    pad.drill = 0.8;
    bench.settings.PenTable[0].colour[kPenPinNo] = kNotPlotted;
    EXPECT_EQ(bench.Draw({pad}, Terminal(3, 0, 0)), Lines{disc});
}

TEST(DrawTerminal, SlotsAreTwoHolesJoinedByTheirSidesAlongTheTurnedAxis) {
    TerminalBench bench;
    bench.settings.ShowDrill = true;
    PadStackEntry pad = Pad(0, -2, 2.0, "R");
    pad.drill = 0.5;
    pad.drillLength = 1.6;
    const std::string pen = " pen=000007/25/solid";
    EXPECT_EQ(bench.Draw({pad}, Terminal(3, 0, 0)).at(7), "arc 30 -25 80 25 80 25 30 -25" + pen);
    // Turned upright and moved 0.2 along: holes at -0.35 and 0.75, sides at x = +-0.25.
    pad.drillOri = 90;
    pad.drillOffset = 0.2;
    const Lines upright = bench.Draw({pad}, Terminal(3, 0, 0));
    ASSERT_EQ(upright.size(), 17u);
    EXPECT_EQ(upright[1], "arc -25 -60 25 -10 25 -10 -25 -60" + pen);
    EXPECT_EQ(upright[7], "arc -25 50 25 100 25 100 -25 50" + pen);
    EXPECT_EQ(Lines(upright.end() - 4, upright.end()),
              (Lines{"move 25 -35", "line 25 75" + pen, "move -25 -35", "line -25 75" + pen}));
}

// Terminal 1 at rest, terminal 2 with its number moved up, terminal 3 at rest.
Lines NumbersByStyle(char style, bool moveTerminal1 = false) {
    TerminalBench bench;
    bench.settings.PlotPinNo = true;
    bench.settings.PinNoStyle = style;
    bench.settings.PenTable[0].colour[kPenPads] = kNotPlotted;
    const PadStackList stacks = {Pad(0, -2, 0.1, "R")};
    TerminalLine one = Terminal(1, 0, 0);
    if (moveTerminal1) {
        one.labelY = -1;
    }
    TerminalLine two = Terminal(2, 1, 0);
    two.labelY = 2;
    for (const TerminalLine& terminal : {one, two, Terminal(3, 2, 0)}) {
        DrawTerminal(bench.frame, bench.font, stacks, terminal, bench.marks);
    }
    return PinNumbers(bench.canvas, 10);
}

TEST(DrawTerminal, PinNoStyleChoosesWhichNumbersArePrintedAsTheFileWritesThem) {
    EXPECT_EQ(NumbersByStyle('A'), (Lines{"1 0 0", "2 100 200", "3 200 0"}));
    EXPECT_EQ(NumbersByStyle('M'), Lines{"2 100 200"});
    EXPECT_EQ(NumbersByStyle('1'), Lines{"1 0 0"});
    EXPECT_EQ(NumbersByStyle('X'), Lines{});
    EXPECT_EQ(NumbersByStyle('X', true), Lines{"1 0 -100"});
    EXPECT_EQ(NumbersByStyle('Z'), Lines{});

    TerminalBench bench;
    bench.settings.PlotPinNo = true;
    bench.settings.PinNoStyle = 'A';
    TerminalLine terminal = Terminal(1, 1, 2);
    terminal.pinName = "FRM-2";
    bench.Draw({Pad(0, -2, 0.1, "R")}, terminal);
    EXPECT_EQ(PinNumbers(bench.canvas, 10), Lines{"FRM-2 100 200"});
}

TEST(DrawTerminal, PinNumberSizeFollowsScaleAndMinimumOnPaper) {
    struct Case {
        const char* what;
        double scale;
        double unitFactor;
        bool scalePinNo;
        double pinNoSize;
        double minSize;
        int unit;  // device units per font unit
        const char* expected;
    };
    const Case cases[] = {
        {"scaled with the drawing", 2, 1, true, kTenthMmPinNo, 1, 20, "1 200 0"},
        {"fixed on paper", 2, 1, false, kTenthMmPinNo, 1, 10, "1 200 0"},
        {"minimum wins at a reduction", 0.5, 1, true, kTenthMmPinNo, kTenthMmPinNo, 10, "1 50 0"},
        {"in a mils decal", 1, 0.0254, true, kTenthMmPinNo, 1, 10, "1 100 0"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        TerminalBench bench;
        bench.settings.PlotPinNo = true;
        bench.settings.PinNoStyle = 'A';
        bench.settings.ScalePinNo = c.scalePinNo;
        bench.settings.PinNoSize = c.pinNoSize;
        bench.settings.MinPinnoSize = c.minSize;
        bench.Rescale(c.scale, c.unitFactor);
        TerminalLine terminal = Terminal(1, 0, 0);
        terminal.labelX = 1 / c.unitFactor;
        bench.Draw({Pad(0, -2, 0.1, "R")}, terminal);
        EXPECT_EQ(PinNumbers(bench.canvas, c.unit), Lines{c.expected});
    }
}

// The SON50P200X200X80-9N decal of a vendor's V9 library as the file writes it: a 2 x 2 mm
// package with four pads on each side at 0.5 mm pitch and a thermal pad; the stack lines give
// corner, orientation, length and offset of each finger.
DecalRecord SonDecal() {
    DecalRecord record;
    record.header.dialect = DialectFor(FileProduct::DecalLibrary, 5, ParseRelease("V9"));
    record.name = "SON50P200X200X80-9N";
    record.lines = {"T-1.05 0.75 -1.05 0.75 1",
                    "T-1.05 0.25 -1.05 0.25 2",
                    "T-1.05 -0.25 -1.05 -0.25 3",
                    "T-1.05 -0.75 -1.05 -0.75 4",
                    "T1.05 -0.75 1.05 -0.75 5",
                    "T1.05 -0.25 1.05 -0.25 6",
                    "T1.05 0.25 1.05 0.25 7",
                    "T1.05 0.75 1.05 0.75 8",
                    "T0 0 0 0 9",
                    "PAD 0 3 N 0",
                    "-2 0.3 RF 0 0 0.7 0",
                    "-1 0 R",
                    "0 0 R",
                    "PAD 9 3 N 0",
                    "-2 1 RF 0 90 1.7 0",
                    "-1 0 R",
                    "0 0 R"};
    record.counts.terminals = 9;
    record.counts.stacks = 2;
    record.firstTerminal = 0;
    record.firstStack = 9;
    record.endOfStacks = record.lines.size();
    return record;
}

// left, bottom, right, top of a compacted polygon.
std::array<int, 4> BoxOf(const std::string& compactPolygon) {
    std::istringstream in(compactPolygon.substr(std::string("polygon").size()));
    std::array<int, 4> box{INT_MAX, INT_MAX, INT_MIN, INT_MIN};
    int x = 0;
    int y = 0;
    while (in >> x >> y) {
        box = {std::min(box[0], x), std::min(box[1], y), std::max(box[2], x), std::max(box[3], y)};
    }
    return box;
}

TEST(DrawTerminals, ARealPadRowDrawsSideBySideWithoutOverlapping) {
    TerminalBench bench;
    DecalRecord record = SonDecal();
    DrawTerminals(bench.frame, bench.font, ParseDecal(record), bench.marks);
    Lines pads = LinesOf(bench.canvas, "polygon");
    ASSERT_EQ(pads.size(), 9u);
    for (std::string& pad : pads) {
        pad = Compact(pad);
    }
    // Pins 1 and 2: 0.7 long across x, 0.3 wide, 0.2 apart; the thermal pad upright between the
    // rows, 0.2 clear of them.
    EXPECT_EQ(pads[0], "polygon -140 60 -140 90 -70 90 -70 60" + kPadPen);
    EXPECT_EQ(pads[1], "polygon -140 10 -140 40 -70 40 -70 10" + kPadPen);
    EXPECT_EQ(pads[8], "polygon 50 -85 -50 -85 -50 85 50 85" + kPadPen);
    for (std::size_t i = 0; i < pads.size(); ++i) {
        for (std::size_t j = i + 1; j < pads.size(); ++j) {
            const auto a = BoxOf(pads[i]);
            const auto b = BoxOf(pads[j]);
            const bool apart = a[2] < b[0] || b[2] < a[0] || a[3] < b[1] || b[3] < a[1];
            EXPECT_TRUE(apart) << "pads of pins " << i + 1 << " and " << j + 1 << " overlap";
        }
    }
    // The positions of terminals 1 and 2 are kept for the title block.
    EXPECT_EQ(bench.marks.terminal1X, -1.05);
    EXPECT_EQ(bench.marks.terminal1Y, 0.75);
    EXPECT_EQ(bench.marks.terminal2X, -1.05);
    EXPECT_EQ(bench.marks.terminal2Y, 0.25);

    // The file dialect decides the axis: read the other way, pin 1's finger stands upright.
    record.header.dialect.fingerAxis = FingerAxis::AlongYAtZero;
    bench.canvas.Clear();
    DrawTerminals(bench.frame, bench.font, ParseDecal(record), bench.marks);
    EXPECT_EQ(Compact(LinesOf(bench.canvas, "polygon").at(0)),
              "polygon -120 40 -90 40 -90 110 -120 110" + kPadPen);
}

// The pads as they are drawn: the 0.3 x 0.7 fingers run along x from the side terminals, the
// centre pad's 1 x 1.7 finger turned upright; labels do not count.
TEST(TerminalExtents, CountThePadsAsDrawnAndTheirSlotsButNotLabels) {
    DecalRecord record = SonDecal();
    record.lines[0] = "T-1.05 0.75 -9 9 1";  // a label far off the decal
    DecalExtents extents;
    TerminalExtents(ParseDecal(record), extents);
    EXPECT_NEAR(extents.xmin, -1.4, 1e-12);
    EXPECT_NEAR(extents.xmax, 1.4, 1e-12);
    EXPECT_NEAR(extents.ymin, -0.9, 1e-12);
    EXPECT_NEAR(extents.ymax, 0.9, 1e-12);

    // A 4 mm slot turned upright through the centre pad reaches beyond it.
    record.lines[13] = "PAD 9 3 N 1 90 4 0.5";
    DecalExtents slotted;
    TerminalExtents(ParseDecal(record), slotted);
    EXPECT_NEAR(slotted.ymin, -1.5, 1e-12);
    EXPECT_NEAR(slotted.ymax, 2.5, 1e-12);
    EXPECT_NEAR(slotted.xmax, 1.4, 1e-12);
}

// Pin numbers take room where they are printed, at their size on the decal: "1" and "8" of the
// glyph font measure 0 across and 17 and 24 font units high, which at PinNoSize 3.04 mm on paper
// and scale 1 is 1.7 and 2.4 mm. Pin 1's label is moved far off to (-9, -9); the others stand on
// their pads, pin 8's at (1.05, 0.75), the highest.
TEST(PinNumberExtents, CountTheNumbersPrintedAtTheirSizeOnTheDecal) {
    DecalRecord record = SonDecal();
    record.lines[0] = "T-1.05 0.75 -9 -9 1";
    const Decal decal = ParseDecal(record);
    const auto extents = [&decal](TerminalBench& bench, double scale) {
        DecalExtents e;
        TerminalExtents(decal, e);
        PinNumberExtents(bench.frame, decal, bench.font, scale, e);
        return std::vector<double>{e.xmin, e.ymin, e.xmax, e.ymax};
    };
    using Box = std::vector<double>;
    const Box pads = {-1.4, -0.9, 1.4, 0.9};

    TerminalBench bench;
    EXPECT_EQ(extents(bench, 1), pads) << "PlotPinNo off";
    bench.settings.PlotPinNo = true;
    bench.settings.ScalePinNo = false;
    bench.settings.MinPinnoSize = 0.5;
    bench.settings.PinNoStyle = 'M';  // the moved label only
    EXPECT_EQ(extents(bench, 1), (Box{-9, -9, 1.4, 0.9}));
    bench.settings.PinNoStyle = 'A';
    const Box all = extents(bench, 1);
    EXPECT_EQ(all[0], -9);
    EXPECT_EQ(all[1], -9);
    EXPECT_NEAR(all[3], 0.75 + 2.4, 1e-12);
    bench.settings.PinNoStyle = 'N';
    EXPECT_EQ(extents(bench, 1), pads) << "no style prints nothing";

    // Printed at a size on paper, the numbers double on the decal at half the scale; scaled with
    // the decal they keep their size there until the smallest size on paper holds them up.
    bench.settings.PinNoStyle = 'A';
    EXPECT_NEAR(extents(bench, 0.5)[3], 0.75 + 4.8, 1e-12);
    bench.settings.ScalePinNo = true;
    EXPECT_NEAR(extents(bench, 0.5)[3], 0.75 + 2.4, 1e-12);
    bench.settings.MinPinnoSize = 3.04;
    EXPECT_NEAR(extents(bench, 0.5)[3], 0.75 + 4.8, 1e-12);

    // Without a pen for pin numbers nothing is printed and nothing counts.
    bench.settings.PenTable[0].colour[kPenPinNo] = kNotPlotted;
    EXPECT_EQ(extents(bench, 1), pads);
}

}  // namespace
}  // namespace zantor
