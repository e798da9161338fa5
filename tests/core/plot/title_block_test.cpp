#include "plot/title_block.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "core/plot/plot_test_support.h"
#include "support/page_test_support.h"
#include "support/trace_boxes.h"

namespace zantor {
namespace {

using test::LinesOf;
using test::PlotBench;
using Lines = std::vector<std::string>;

// The frame's corner stands at (10, 5) mm on the page: page x mm is device 100 x + 1000, page y
// mm (the top edge of a text) is 100 y + 500. Form-text is colour 9, Form-line colour 10.
struct TitleBench : PlotBench {
    TitleBench() {
        frame.Place(FrameAt({10, 5}));
        settings.FormularFont = "Arial";
        settings.CompanyFont = "Courier";
    }

    TitleBlockInputs Inputs() const {
        TitleBlockInputs inputs;
        inputs.decalName = "DIP8";
        inputs.inputPath = "C:\\LIBS\\CONN.D";
        inputs.terminalCount = 8;
        inputs.date = "24.03.03";
        inputs.width = 190;
        inputs.height = 260;
        return inputs;
    }

    // The recorded text line that draws `text`, or "" when none does.
    std::string TextOf(const std::string& text) const {
        const std::string quoted = " \"" + text + "\" ";
        for (const std::string& line : canvas.Lines()) {
            if (line.starts_with("text") && line.find(quoted) != std::string::npos) {
                return line;
            }
        }
        return {};
    }

    // The text drawn at device position (x, y).
    std::string TextAt(int x, int y) const {
        const std::string at = " " + std::to_string(x) + " " + std::to_string(y) + " ";
        for (const std::string& line : canvas.Lines()) {
            if (line.starts_with("text") && line.find(at) != std::string::npos) {
                return line;
            }
        }
        return {};
    }
};

TEST(TitleBlock, LabelsAndValuesStandAtTheirPlacesInTheFormularFont) {
    TitleBench bench;
    DrawTitleBlock(bench.frame, bench.Inputs());
    const std::pair<const char*, const char*> cases[] = {
        {"DECAL:", "text 1200 3780 280"},
        {"LIBRARY:", "text 11200 1980 280"},
        {"DRAWING  DATE:", "text 8150 2680 280"},
        {"APPROVED DATE:", "text 8100 1580 280"},
        {"HEIGTH:", "text 4370 2630 280"},
        {"Term.1 to term.2", "text 1200 1430 280"},
        {"ZANTOR 7.30 Brovik '96-'03", "text 1000 470 170"},  // the footer under the frame
        {"DIP8", "text-centre 6000 3400 500"},
        {"8", "text-right 3700 2630 280"},
        {"24.03.03", "text 6400 930 280"},
        // The library's name in the middle of its field, (190 - 100) / 2 + 105 = 150 mm.
        {"CONN", "text-centre 16000 1700 500"},
        {"1    OF    1", "text 18200 930 280"},
    };
    for (const auto& [text, start] : cases) {
        EXPECT_EQ(bench.TextOf(text),
                  std::string(start) + " \"Arial\" \"" + text + "\" colour=000009");
    }
    EXPECT_EQ(bench.TextOf("PCB:"), "");
    // No form number set: an empty one centred at W - 54.
    EXPECT_EQ(bench.TextAt(14600, 930), "text-centre 14600 930 280 \"Arial\" \"\" colour=000009");
}

TEST(TitleBlock, ScaleReadsAsEnlargementOrReduction) {
    const std::pair<double, const char*> cases[] = {
        {0.5, "1 : 2"}, {2, "2 : 1"}, {1, "1 : 1"}, {1.0 / 3, "1 : 3"}, {10, "10 : 1"}};
    for (const auto& [scale, text] : cases) {
        TitleBench bench;
        bench.Rescale(scale);
        DrawTitleBlock(bench.frame, bench.Inputs());
        EXPECT_EQ(bench.TextAt(3000, 930),
                  std::string("text 3000 930 280 \"Arial\" \"") + text + "\" colour=000009")
            << scale;
    }
}

TEST(TitleBlock, LibraryNameIsTheFileNameWithoutItsExtension) {
    EXPECT_EQ(LibraryNameOf("C:\\LIBS\\CONN.D"), "CONN");
    EXPECT_EQ(LibraryNameOf("C:\\LIBS\\CONNECTORS"), "CONNECTORS");
    EXPECT_EQ(LibraryNameOf("D:/mixed\\dir/conn.asc"), "conn");
    EXPECT_EQ(LibraryNameOf("sample.d"), "sample");
    // Only the first dot and three characters after it go.
    EXPECT_EQ(LibraryNameOf("C:\\LIBS\\MY.LIB.D"), "MY.D");
    // Cut to 50 characters before the extension is looked for.
    const std::string longName(55, 'N');
    EXPECT_EQ(LibraryNameOf("C:\\" + longName + ".D"), std::string(50, 'N'));
    EXPECT_EQ(LibraryNameOf(""), "");
    EXPECT_EQ(LibraryNameOf("C:\\LIBS\\"), "");

    // PCB files are labelled PCB.
    TitleBench bench;
    TitleBlockInputs inputs = bench.Inputs();
    inputs.pcbInput = true;
    inputs.inputPath = "/boards/main.asc";
    DrawTitleBlock(bench.frame, inputs);
    EXPECT_EQ(bench.TextOf("PCB:"), "text 11200 1980 280 \"Arial\" \"PCB:\" colour=000009");
    EXPECT_EQ(bench.TextOf("LIBRARY:"), "");
    EXPECT_EQ(bench.TextOf("main"), "text-centre 16000 1700 500 \"Arial\" \"main\" colour=000009");
}

TEST(TitleBlock, CompanyInItsOwnFontAndFormNumberAsSet) {
    test::App();  // the company's width is measured in its font
    TitleBench named;
    named.settings.Company = "Brovik";
    named.settings.FormNo = "F-17";
    DrawTitleBlock(named.frame, named.Inputs());
    // Centred at (190 - 110) / 2 + 105 = 145 mm, 10 mm high on the line 18.5 mm.
    EXPECT_EQ(named.TextOf("Brovik"),
              "text-centre 15500 3350 1000 \"Courier\" \"Brovik\" colour=000009");
    EXPECT_EQ(named.TextAt(14600, 930),
              "text-centre 14600 930 280 \"Arial\" \"F-17\" colour=000009");

    // A long name is made smaller so that it keeps to its 70 mm; the decal name as form number.
    TitleBench wide;
    wide.settings.Company = "Brovik Elektronik og Mekanikk AS";  // 32 characters
    wide.settings.FormNo = "F-17";
    wide.settings.DecalAsFormNo = true;
    DrawTitleBlock(wide.frame, wide.Inputs());
    std::istringstream words(wide.TextOf(wide.settings.Company));
    std::string op;
    int x = 0;
    int y = 0;
    int height = 0;
    words >> op >> x >> y >> height;
    EXPECT_EQ(op, "text-centre");
    EXPECT_EQ(x, 15500);
    EXPECT_LT(height, 400);
    EXPECT_GT(height, 200);
    EXPECT_EQ(wide.TextAt(14600, 930),
              "text-centre 14600 930 280 \"Arial\" \"DIP8\" colour=000009");

    // No company: nothing in its font.
    TitleBench empty;
    DrawTitleBlock(empty.frame, empty.Inputs());
    EXPECT_EQ(empty.canvas.Trace().find("\"Courier\""), std::string::npos);
}

TEST(TitleBlock, RulesAreQuarterMillimetreFormLinesAndUnplottedPensLeaveTheirPartOut) {
    TitleBench bench;
    DrawTitleBlock(bench.frame, bench.Inputs());
    const Lines lines = LinesOf(bench.canvas, "line");
    // The frame's four sides, eight horizontal and nine vertical rules.
    EXPECT_EQ(lines.size(), 21u);
    for (const std::string& line : lines) {
        EXPECT_TRUE(line.ends_with(" pen=00000A/25/solid")) << line;
    }
    const Lines& all = bench.canvas.Lines();
    EXPECT_EQ(Lines(all.begin(), all.begin() + 3),
              (Lines{"move 1000 500", "line 20000 500 pen=00000A/25/solid",
                     "line 20000 26500 pen=00000A/25/solid"}));
    const auto has = [&all](const std::string& move, const std::string& to) {
        const auto at = std::find(all.begin(), all.end(), move);
        return at != all.end() && at + 1 != all.end() && at[1] == to + " pen=00000A/25/solid";
    };
    EXPECT_TRUE(has("move 1000 3800", "line 20000 3800"));  // top of the title block
    EXPECT_TRUE(has("move 16400 500", "line 16400 1000"));  // x W - 36 from 0 to 5
    EXPECT_TRUE(has("move 4250 2200", "line 4250 2700"));   // x 32.5 from 17 to 22

    TitleBench noLines;
    noLines.settings.PenTable[0].colour[kPenFormLine] = kNotPlotted;
    DrawTitleBlock(noLines.frame, noLines.Inputs());
    EXPECT_TRUE(LinesOf(noLines.canvas, "line").empty());
    EXPECT_NE(noLines.TextOf("DECAL:"), "");

    TitleBench noTexts;
    noTexts.settings.PenTable[0].colour[kPenFormText] = kNotPlotted;
    DrawTitleBlock(noTexts.frame, noTexts.Inputs());
    DrawMeasurements(noTexts.frame, {});
    EXPECT_EQ(LinesOf(noTexts.canvas, "line").size(), 21u);
    EXPECT_EQ(noTexts.canvas.Trace().find("text"), std::string::npos);
}

// DIP8 of the sample library: mils, terminal 1 at (-150, 150), terminal 2 at (-150, 50), 180 mil
// high.
MeasurementInputs Dip8() {
    MeasurementInputs inputs;
    inputs.terminal1X = -150;
    inputs.terminal1Y = 150;
    inputs.terminal2X = -150;
    inputs.terminal2Y = 50;
    inputs.heightValue = 180;
    inputs.heightAttribute = "180mil";
    inputs.units = {0.0254, true};
    inputs.width = 190;
    return inputs;
}

TEST(TitleBlock, MeasurementsAreTerminalOneAndTheStepToTerminalTwo) {
    TitleBench metric;
    metric.settings.MeasUnit = 'M';
    DrawMeasurements(metric.frame, Dip8());
    const auto text = [](const std::string& place, const std::string& value) {
        return "text-right " + place + " 280 \"Arial\" \"" + value + "\" colour=000009";
    };
    EXPECT_EQ(metric.TextAt(6100, 1780), text("6100 1780", "-3.810"));
    EXPECT_EQ(metric.TextAt(7800, 1780), text("7800 1780", "3.810"));
    EXPECT_EQ(metric.TextAt(6100, 1430), text("6100 1430", "0.000"));
    EXPECT_EQ(metric.TextAt(7800, 1430), text("7800 1430", "-2.540"));
    EXPECT_EQ(metric.TextOf("(mm)"), "text-right 4500 2100 200 \"Arial\" \"(mm)\" colour=000009");
    // HeightInfo 0: the decal's own height value, in the same unit.
    EXPECT_EQ(metric.TextAt(7800, 2630), text("7800 2630", "4.572"));

    TitleBench mils;
    mils.settings.MeasUnit = 'X';  // as the library: mils
    mils.settings.HeightInfo = 1;
    DrawMeasurements(mils.frame, Dip8());
    EXPECT_EQ(mils.TextAt(7800, 1430), text("7800 1430", "-100.00"));
    EXPECT_NE(mils.TextOf("(mi)"), "");
    // HeightInfo 1: the Geometry.Height attribute as written.
    EXPECT_EQ(mils.TextAt(7800, 2630), text("7800 2630", "180mil"));
}

TEST(TitleBlock, GeneralCommentStandsAboveTheTitleBlockAsAdjusted) {
    const std::pair<int, std::string> cases[] = {
        {0, "text 1300 4250"}, {1, "text-centre 10500 4250"}, {2, "text-right 19700 4250"}};
    for (const auto& [adjust, start] : cases) {
        TitleBench bench;
        bench.settings.GenComment = "Check pin 1";
        bench.settings.GenComSize = 3;
        bench.settings.GenComAdjust = adjust;
        DrawMeasurements(bench.frame, Dip8());
        EXPECT_EQ(bench.TextOf("Check pin 1"),
                  start + " 300 \"Arial\" \"Check pin 1\" colour=000009");
    }
}

// Converter output names its decals with up to 40 characters, and libraries get long names: on
// every page size the title block keeps each text inside its field, at the normal height when it
// fits and smaller only when it does not.
TEST(TitleBlock, LongNamesShrinkToTheirFieldsAndShortOnesKeepTheirHeight) {
    test::App();  // the fonts are measured
    const std::string names[] = {
        "CAPC1608X90N_0603_CONVERTED_PAD_WIDE_40C",
        "WWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWWW",
        "QFP50P1400X1400X160-80N",
    };
    for (double width : {190.0, 277.0, 400.0}) {
        for (const std::string& name : names) {
            TitleBench bench;
            bench.frame.Place(FrameAt({0, 0}));
            bench.settings.Company = "Brovik Elektronik og Mekanikk AS";
            bench.settings.DecalAsFormNo = true;
            bench.settings.GenComment = std::string(80, 'M');
            bench.settings.HeightInfo = 1;
            TitleBlockInputs inputs = bench.Inputs();
            inputs.decalName = name;
            inputs.width = width;
            inputs.inputPath = "/srv/libs/" + name + "_AND_A_VENDORS_LIBRARY_NAME.d";
            inputs.terminalCount = 65535;
            DrawTitleBlock(bench.frame, inputs);
            MeasurementInputs measures;
            measures.terminal1X = -123456.789;
            measures.terminal1Y = 98765.4321;
            measures.terminal2X = 555555.5;
            measures.heightAttribute = "12.345 mm above the board, see drawing";
            measures.width = width;
            DrawMeasurements(bench.frame, measures);

            const test::TracedPage page = test::TracePage(bench.canvas.Lines());
            test::Box frame;
            frame.Add(0, -250);  // the footer stands under the frame
            frame.Add(width * 100, inputs.height * 100);
            EXPECT_EQ(test::TextFaults(page, frame), std::vector<std::string>{})
                << name << " on a frame " << width << " mm wide";
            for (const test::TracedText& text : page.texts) {
                const bool isName = text.text == name;
                if (isName && text.box.top < 1000) {
                    EXPECT_LE(text.height, 280) << "the form number " << name;
                } else if (isName) {
                    EXPECT_LE(text.height, 500) << name;
                    EXPECT_EQ(text.height == 500, name.size() < 30) << name << " " << width;
                }
            }
        }
    }
}

}  // namespace
}  // namespace zantor
