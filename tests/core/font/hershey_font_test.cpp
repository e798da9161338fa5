#include "hershey2fnt/hershey_font.h"

#include <gtest/gtest.h>

#include <vector>

#include "common/errors.h"

namespace zantor::hershey {
namespace {

using Point = Glyph::Point;

// Space, '!' and a made-up descender glyph, as .jhf lines.
constexpr const char* kThreeGlyphs =
    "12345  1JZ\n"
    "12345  9MWRFRT RRYQZR[SZRY\n"
    "    3  3JZRFRa\n";

TEST(HersheyParse, BoundsPointsAndPenUps) {
    const auto glyphs = ParseJhf("  501  9I[RFJ[ RRFZ[ RMTWT\r\n");
    ASSERT_EQ(glyphs.size(), 1U);
    EXPECT_EQ(glyphs[0].left, -9);
    EXPECT_EQ(glyphs[0].right, 9);
    const std::vector<std::optional<Point>> expected = {Point{0, -12}, Point{-8, 9}, std::nullopt,
                                                        Point{0, -12}, Point{8, 9},  std::nullopt,
                                                        Point{-5, 2},  Point{5, 2}};
    EXPECT_EQ(glyphs[0].points, expected);
}

TEST(HersheyParse, GlyphsRunOnOverWrappedLines) {
    const auto whole = ParseJhf("  501  9I[RFJ[ RRFZ[ RMTWT\n  509  3NVRFR[\n");
    const auto wrapped = ParseJhf("  501  9I[RFJ[ R\nRFZ[ RMTWT\n\n  509  3NVRFR[");
    ASSERT_EQ(wrapped.size(), 2U);
    EXPECT_EQ(wrapped[0].points, whole[0].points);
    EXPECT_EQ(wrapped[1].points, whole[1].points);
    EXPECT_EQ(wrapped[1].left, -4);
}

TEST(HersheyParse, MalformedLinesAreFormatErrors) {
    try {
        ParseJhf("12345  1JZ\n  501  9I[RFJ[\n", "rowmans.jhf");
        FAIL() << "no FormatError";
    } catch (const FormatError& error) {
        EXPECT_EQ(error.file(), "rowmans.jhf");
        EXPECT_EQ(error.line(), 2);
    }
    EXPECT_THROW(ParseJhf("  5x1  1JZ\n"), FormatError);
    EXPECT_THROW(ParseJhf("  501  0\n"), FormatError);
    EXPECT_THROW(ParseJhf("  501  1JZRF\n"), FormatError);
    EXPECT_THROW(ParseJhf("  501"), FormatError);
}

TEST(HersheyWrite, ExactBytesOfASmallFont) {
    // Scale 2 above the baseline (y = 9), 0.5 below it.
    const auto bytes = WriteFont(ParseJhf(kThreeGlyphs), Scaling{9, 2.0, 0.5});
    std::vector<std::uint8_t> expected(44, 0);
    expected[6] = 16;   // H6
    expected[24] = 34;  // LastChar; the stroke data start at 28 + 4 * (34 - 30) = 44
    const std::vector<std::uint8_t> directory = {
        0,  0, 28, 0,  // space: offset 0, advance 16 * 2 - 4
        2,  0, 16, 0,  // '!': offset 2, advance 10 * 2 - 4
        20, 0, 28, 0,  // the descender glyph
    };
    std::copy(directory.begin(), directory.end(), expected.begin() + 28);
    const std::vector<std::uint8_t> strokes = {
        255, 255,                                                                    // space
        10,  50,  10, 22, 255, 254, 10, 12, 8, 10, 10, 8, 12, 10, 10, 12, 255, 255,  // '!'
        16,  50,  16, 5,  255, 255,  // 6 below the baseline at 0.5
    };
    expected.insert(expected.end(), strokes.begin(), strokes.end());
    EXPECT_EQ(bytes, expected);
}

TEST(HersheyWrite, GlyphsThatDoNotFitAreFormatErrors) {
    const auto glyphs = ParseJhf(kThreeGlyphs);
    EXPECT_THROW(WriteFont(glyphs, Scaling{9, 20.0, 0.5}), FormatError);  // too tall, too wide
    EXPECT_THROW(WriteFont(glyphs, Scaling{9, 2.0, 2.0}), FormatError);   // below y = 0
    EXPECT_THROW(WriteFont({}, Scaling{}), FormatError);

    // More point data than the 32001 bytes a font may hold.
    Glyph huge{-8, 8, std::vector<std::optional<Point>>(16000, Point{0, 0})};
    EXPECT_THROW(WriteFont({huge, huge}, Scaling{9, 1.0, 1.0}), FormatError);
}

TEST(HersheyScaling, CapitalsBecomeTheTextSize) {
    std::vector<Glyph> glyphs('Z' - 32 + 1);
    auto capital = [&glyphs](char c, int top, int bottom) {
        glyphs[static_cast<std::size_t>(c - 32)].points = {Point{0, top}, Point{0, bottom}};
    };
    capital('A', -12, 9);
    capital('H', -12, 9);
    capital('Q', -12, 11);  // a tail below the baseline
    capital('J', -11, 9);
    const Scaling shallow = ChooseScaling(glyphs);
    EXPECT_EQ(shallow.baseline, 9);
    EXPECT_DOUBLE_EQ(shallow.up, 30.4 / 21);
    EXPECT_DOUBLE_EQ(shallow.down, shallow.up);  // Q's tail fits below the baseline at full scale

    glyphs[',' - 32].points = {Point{0, 16}};
    const Scaling deep = ChooseScaling(glyphs);
    EXPECT_DOUBLE_EQ(deep.up, 30.4 / 21);
    EXPECT_DOUBLE_EQ(deep.down, 8.0 / 7);

    EXPECT_THROW(ChooseScaling(std::vector<Glyph>(10)), FormatError);
}

}  // namespace
}  // namespace zantor::hershey
