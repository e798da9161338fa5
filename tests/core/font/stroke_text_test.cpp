#include "font/stroke_text.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "common/errors.h"
#include "core/font/font_builder.h"

namespace zantor {
namespace {

using test::SampleFont;

struct Stroke {
    bool line = false;  // false: a move
    double x = 0;
    double y = 0;
};

class RecordingSink : public StrokeSink {
  public:
    void MoveTo(double x, double y) override { strokes.push_back({false, x, y}); }
    void LineTo(double x, double y) override { strokes.push_back({true, x, y}); }
    std::vector<Stroke> strokes;
};

StrokeFont FontOf(int h6) {
    StrokeFont font;
    font.LoadBytes(SampleFont(h6));
    return font;
}

// At size 60.8 a font unit is 2 library units vertically, and horizontally with H6 = 16.
constexpr double kSize = 60.8;

std::vector<Stroke> Draw(int h6, bool mirror, const std::string& text, double x, double y,
                         double angle) {
    RecordingSink sink;
    DrawStrokeText(FontOf(h6), sink, mirror, text, x, y, angle, kSize);
    return sink.strokes;
}

// Compares the recorded moves and lines with the expected ones, 1e-9 apart at most.
void ExpectStrokes(const std::vector<Stroke>& actual, const std::vector<Stroke>& expected) {
    ASSERT_EQ(actual.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_EQ(actual[i].line, expected[i].line) << "stroke " << i;
        EXPECT_NEAR(actual[i].x, expected[i].x, 1e-9) << "stroke " << i;
        EXPECT_NEAR(actual[i].y, expected[i].y, 1e-9) << "stroke " << i;
    }
}

TEST(StrokeText, MovesAndLinesOfTheSampleGlyphs) {
    // From the baseline, with a pen up between the strokes.
    ExpectStrokes(
        Draw(16, false, "A", 100, 50, 0),
        {{false, 100, 50}, {true, 110, 90}, {true, 120, 50}, {false, 104, 66}, {true, 116, 66}});
    // An ignored pair keeps the pen down; the horizontal factor is 16 / H6.
    ExpectStrokes(Draw(16, false, "B", 0, 0, 0), {{false, 0, 0}, {true, 8, 8}});
    ExpectStrokes(Draw(32, false, "B", 0, 0, 0), {{false, 0, 0}, {true, 4, 8}});
    // Rotated, x offsets become y; mirrored, the text runs left.
    ExpectStrokes(Draw(16, false, "BB", 10, 20, 90),
                  {{false, 10, 20}, {true, 2, 28}, {false, 10, 40}, {true, 2, 48}});
    ExpectStrokes(Draw(16, true, "BB", 0, 0, 0),
                  {{false, 0, 0}, {true, -8, 8}, {false, -20, 0}, {true, -28, 8}});
    // Characters outside the font draw as '_'.
    for (const std::string text : {"\x01", "\x7F", "\xC4"}) {
        ExpectStrokes(Draw(16, false, text, 0, 0, 0), {{false, 0, -4}, {true, 24, -4}});
    }
}

TEST(StrokeText, AdvanceIsThe16BitWidthPlus4AndOnly80CharactersDraw) {
    const StrokeFont font = FontOf(16);
    RecordingSink sink;
    // 'A' advances (0x112 + 4) * 2 = 556, the space (10 + 4) * 2 = 28 without drawing.
    DrawStrokeText(font, sink, false, "A B", 0, 0, 0, kSize);
    ASSERT_EQ(sink.strokes.size(), 7U);
    EXPECT_NEAR(sink.strokes[5].x, 584, 1e-9);

    sink.strokes.clear();
    DrawStrokeText(font, sink, false, std::string(81, 'B'), 0, 0, 0, kSize);
    ASSERT_EQ(sink.strokes.size(), 160U);
    EXPECT_NEAR(sink.strokes.back().x, 79 * 20 + 8, 1e-9);
}

TEST(StrokeText, BrokenFontsEndTheTextWithARangeError) {
    RecordingSink sink;
    EXPECT_THROW(DrawStrokeText(FontOf(0), sink, false, "A", 0, 0, 0, kSize), RangeError);
    EXPECT_TRUE(sink.strokes.empty());

    auto bytes = SampleFont(16);
    bytes.resize(bytes.size() - 1);  // cuts the last glyph's end mark
    StrokeFont cut;
    cut.LoadBytes(bytes);
    EXPECT_THROW(DrawStrokeText(cut, sink, false, "g", 0, 0, 0, kSize), RangeError);
}

TEST(StrokeText, CorruptFontsEndInARangeErrorOrDraw) {
    // Damaged copies of the sample font: every byte may be anything, so directory entries,
    // LastChar and point lists point anywhere. Under the sanitizers this shows that nothing is
    // read out of bounds; every call either finishes or raises RangeError.
    std::mt19937 random(20240611);
    std::uniform_int_distribution<int> byte(0, 255);
    int finished = 0;
    int refused = 0;
    for (int round = 0; round < 300; ++round) {
        auto bytes = SampleFont(16);
        for (int damage = 0; damage < 4; ++damage) {
            bytes[random() % bytes.size()] = static_cast<std::uint8_t>(byte(random));
        }
        StrokeFont font;
        font.LoadBytes(bytes);
        RecordingSink sink;
        try {
            font.Extent("Ag_ B\xC4", 10);
            DrawStrokeText(font, sink, round % 2 == 0, "Ag_ B\xC4", 1, 2, 30, 10);
            ++finished;
        } catch (const RangeError&) {
            ++refused;
        }
    }
    EXPECT_GT(refused, 0);
    EXPECT_GT(finished, 0);
}

}  // namespace
}  // namespace zantor
