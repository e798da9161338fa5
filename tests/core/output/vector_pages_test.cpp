// What the PDF and SVG files say about a page: the painter state the canvas hands the writers, and
// texts where and as large as the canvas was asked for.

#include <gtest/gtest.h>

#include <QRegularExpression>
#include <QString>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "output/output_choice.h"
#include "support/page_test_support.h"
#include "support/test_support.h"

namespace zantor {
namespace {

using test::App;
using test::TempDir;

std::string ReadText(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

int Count(const std::string& text, const std::string& what) {
    int count = 0;
    for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + 1)) {
        ++count;
    }
    return count;
}

// Prints one page through the target `file` names.
template <typename Draw>
void PrintPage(const std::filesystem::path& file, Draw draw) {
    auto target = MakePageOutput({"", file, PaperSize::A4, false});
    target->BeginDocument();
    draw(target->Canvas());
    target->EndDocument();
}

// Rows of short rules in the pen as it is, each a separate line as the stroke font draws them.
void Rules(PlotCanvas& canvas, int count, int top) {
    for (int i = 0; i < count; ++i) {
        const int y = top - 100 * (i % 40);
        canvas.MoveTo(2000 + 40 * (i / 40), y);
        canvas.LineTo(2030 + 40 * (i / 40), y);
    }
}

TEST(VectorPages, SvgItemsOfOnePenShareOneGroup) {
    App();
    TempDir dir;
    PrintPage(dir.Path() / "many.svg", [](PlotCanvas& canvas) {
        canvas.SetPenColour(0);
        canvas.SetPenWidth(25);
        canvas.SetTextColour(0);
        Rules(canvas, 200, -2000);
        for (int i = 0; i < 10; ++i) {
            canvas.Text(10000, -2000 - 500 * i, "PIN " + std::to_string(i), "Liberation Sans", 300);
        }
        Rules(canvas, 200, -8000);
        canvas.SetPenColour(0x0000FF);
        Rules(canvas, 100, -14000);
    });
    const std::string svg = ReadText(dir.Path() / "many-1.svg");
    EXPECT_EQ(Count(svg, "<polyline"), 500);
    EXPECT_EQ(Count(svg, "<text"), 10);
    // The writer's outer group, then one for each run of one state: black rules, the texts,
    // black rules again, red rules.
    EXPECT_LE(Count(svg, "<g "), 5);
    EXPECT_EQ(Count(svg, "stroke=\"#ff0000\""), 1);
}

// A text 5 mm high at (20, 30) mm, geometry in another pen and a filled shape, a text 10 mm
// high at (20, 60) mm, more geometry, and the first size again at (20, 100) mm.
void TextsBetweenDrawings(PlotCanvas& canvas) {
    canvas.SetTextColour(0);
    canvas.Text(2000, -3000, "ALPHA", "Liberation Sans", 500);
    canvas.SetPenColour(0x00FF00);
    canvas.SetPenWidth(80);
    canvas.SetFillColour(0xFF0000);
    canvas.MoveTo(12000, -3000);
    canvas.LineTo(18000, -4000);
    canvas.RoundRect(12000, -5000, 15000, -7000, 500, 500);
    canvas.Text(2000, -6000, "BRAVO", "Liberation Sans", 1000);
    canvas.Arc(12000, -8000, 14000, -10000, 14000, -9000, 12000, -9000);
    canvas.Text(2000, -10000, "CHARLIE", "Liberation Sans", 500);
}

struct Word {
    std::string text;
    double left = 0;
    double top = 0;
    double bottom = 0;
};

// The words of the first page with their boxes in points, as pdftotext finds them.
std::vector<Word> PdfWords(const std::filesystem::path& file) {
    const auto html = test::RunTool(
        "pdftotext", {"-bbox", "-f", "1", "-l", "1", QString::fromStdString(file.string()), "-"});
    std::vector<Word> words;
    if (!html) {
        return words;
    }
    static const QRegularExpression word(
        R"re(<word xMin="([\d.]+)" yMin="([\d.]+)" xMax="[\d.]+" yMax="([\d.]+)">([^<]*)</word>)re");
    auto matches = word.globalMatch(QString::fromStdString(*html));
    while (matches.hasNext()) {
        const auto match = matches.next();
        words.push_back({match.captured(4).toStdString(), match.captured(1).toDouble(),
                         match.captured(2).toDouble(), match.captured(3).toDouble()});
    }
    return words;
}

TEST(VectorPages, TextsKeepTheirPlaceAndSizeAmongOtherDrawings) {
    App();
    TempDir dir;
    PrintPage(dir.Path() / "texts.pdf", TextsBetweenDrawings);
    PrintPage(dir.Path() / "texts.svg", TextsBetweenDrawings);
    constexpr double kPointsPerMm = 72 / 25.4;
    struct Expected {
        std::string text;
        double topMm;
        double heightMm;
    };
    const std::vector<Expected> expected = {
        {"ALPHA", 30, 5}, {"BRAVO", 60, 10}, {"CHARLIE", 100, 5}};

    const std::vector<Word> words = PdfWords(dir.Path() / "texts.pdf");
    ASSERT_EQ(words.size(), expected.size());
    for (std::size_t i = 0; i < words.size(); ++i) {
        SCOPED_TRACE(expected[i].text);
        EXPECT_EQ(words[i].text, expected[i].text);
        EXPECT_NEAR(words[i].left, 20 * kPointsPerMm, 1.5);
        // The box runs from the font's ascent to its descent: a little more than the em.
        const double em = expected[i].heightMm * kPointsPerMm;
        EXPECT_NEAR(words[i].top, expected[i].topMm * kPointsPerMm, 0.15 * em);
        EXPECT_GT(words[i].bottom - words[i].top, 0.95 * em);
        EXPECT_LT(words[i].bottom - words[i].top, 1.35 * em);
    }

    // SVG pixels are 0.1 mm; a text's y is its baseline, one ascent below its top.
    const QString svg = QString::fromStdString(ReadText(dir.Path() / "texts-1.svg"));
    static const QRegularExpression text(
        R"re(<text [^>]*x="([\d.]+)" y="([\d.]+)"[^>]*font-size="([\d.]+)"[^>]*>([^<]*)</text>)re");
    auto matches = text.globalMatch(svg);
    std::size_t found = 0;
    for (; matches.hasNext(); ++found) {
        const auto match = matches.next();
        ASSERT_LT(found, expected.size());
        SCOPED_TRACE(expected[found].text);
        EXPECT_EQ(match.captured(4).toStdString(), expected[found].text);
        EXPECT_DOUBLE_EQ(match.captured(1).toDouble(), 200);
        EXPECT_DOUBLE_EQ(match.captured(3).toDouble(), expected[found].heightMm * 10);
        const double baseline = match.captured(2).toDouble();
        EXPECT_GT(baseline, expected[found].topMm * 10 + 0.7 * expected[found].heightMm * 10);
        EXPECT_LT(baseline, expected[found].topMm * 10 + expected[found].heightMm * 10);
    }
    EXPECT_EQ(found, expected.size());
    // Texts are drawn upright in the page's own pixels; the geometry keeps the printer mapping.
    EXPECT_NE(svg.indexOf("transform=\"matrix(1,0,0,1,0,0)\""), -1);
    EXPECT_NE(svg.indexOf("transform=\"matrix(0.1,0,0,-0.1,0,0)\""), -1);
}

}  // namespace
}  // namespace zantor
