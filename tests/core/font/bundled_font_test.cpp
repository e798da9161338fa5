// The stroke font that ships with the program, and how the default `Fontfile` finds it.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "font/executable_dir.h"
#include "font/font_location.h"
#include "font/stroke_font.h"
#include "font/stroke_text.h"
#include "hershey2fnt/hershey_font.h"
#include "shell/default_font.h"
#include "support/recording_messages.h"
#include "support/test_support.h"

namespace zantor {
namespace {

std::vector<std::uint8_t> ReadBytes(const std::filesystem::path& path) {
    const std::string text = test::ReadFileText(path);
    return {text.begin(), text.end()};
}

// The copy of data/fonts/romans.fnt the build tree holds next to the executables: the file the
// program itself loads.
std::filesystem::path BundledFontFile() {
    return ResolveFontfile("romans.fnt");
}

StrokeFont BundledStrokeFont() {
    StrokeFont font;
    font.LoadBytes(ReadBytes(BundledFontFile()));
    return font;
}

// Counts what a text drew and keeps its extremes.
class BoundsSink : public StrokeSink {
  public:
    void MoveTo(double x, double y) override { Add(x, y); }
    void LineTo(double x, double y) override {
        Add(x, y);
        ++lines;
    }
    void Add(double x, double y) {
        minX = std::min(minX, x);
        maxX = std::max(maxX, x);
        minY = std::min(minY, y);
    }
    double minX = 1e9, maxX = -1e9, minY = 1e9;
    int lines = 0;
};

TEST(BundledFont, HeaderMetricsAndEveryGlyphInsideItsCell) {
    const StrokeFont font = BundledStrokeFont();
    ASSERT_FALSE(font.Empty());
    EXPECT_EQ(font.H6(), 16);
    EXPECT_EQ(font.LastChar(), 126);
    // Capitals are 30 font units tall: a capital drawn at size s is s * 30 / 30.4 tall.
    EXPECT_EQ(font.Metrics('H').maxY, 30);
    EXPECT_EQ(font.Metrics('M').advance, 31);
    EXPECT_EQ(font.Metrics(' ').advance, 19);
    EXPECT_LT(font.Metrics('x').maxY, 30);
    // Size 30.4 with H6 = 16: one library unit per font unit.
    for (int code = 33; code <= 126; ++code) {
        BoundsSink sink;
        const std::string text(1, static_cast<char>(code));
        DrawStrokeText(font, sink, false, text, 0, 0, 0, 30.4);
        EXPECT_GT(sink.lines, 0) << text;
        EXPECT_GE(sink.minX, 0) << text;
        EXPECT_LE(sink.maxX, font.Advance16(code) + 4 + 1e-9) << text;
        EXPECT_GE(sink.minY, -8 - 1e-9) << text;
    }
}

TEST(BundledFont, IsWhatTheConverterMakesOfRomanSimplex) {
    const std::filesystem::path source = "/usr/share/hershey-fonts/rowmans.jhf";
    if (!std::filesystem::exists(source)) {
        GTEST_SKIP() << "hershey-fonts-data is not installed";
    }
    EXPECT_EQ(hershey::ConvertJhf(test::ReadFileText(source)), ReadBytes(BundledFontFile()));
}

#if !defined(_WIN32)
TEST(DefaultFontfile, NamesTheBundledFontFoundFromTheBuildTree) {
    const std::string fontfile = DefaultFontfile();
    EXPECT_LE(fontfile.size(), 60U);
    const std::filesystem::path resolved = ResolveFontfile(fontfile);
    ASSERT_TRUE(std::filesystem::is_regular_file(resolved)) << resolved;
    EXPECT_EQ(resolved.parent_path(), ExecutableDir().parent_path() / "share" / "zantor");

    RecordingMessages messages;
    StrokeFont font;
    EXPECT_TRUE(font.Load(fontfile, messages));
    EXPECT_TRUE(messages.Entries().empty());
    EXPECT_EQ(font.LastChar(), 126);
}
#endif

TEST(DefaultFontfile, PathsWithAFolderAreTakenAsTheyAre) {
    EXPECT_EQ(ResolveFontfile("/opt/pads/romansim.fnt"), "/opt/pads/romansim.fnt");
    EXPECT_EQ(ResolveFontfile("no-such-font.fnt"), "no-such-font.fnt");
    EXPECT_EQ(ResolveFontfile(""), "");
}

}  // namespace
}  // namespace zantor
