// The stroke font loader and text measuring: any bytes as a font file, every character's
// metrics, and a text measured and drawn with it.

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "common/errors.h"
#include "font/stroke_font.h"
#include "font/stroke_text.h"
#include "fuzz_input.h"

namespace {

class CountingSink final : public zantor::StrokeSink {
  public:
    void MoveTo(double /*x*/, double /*y*/) override { ++calls; }
    void LineTo(double /*x*/, double /*y*/) override { ++calls; }
    long calls = 0;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace zantor;
    // The text to measure leads, up to a zero byte; the font file follows.
    std::string text;
    while (size > 0 && *data != 0 && text.size() < 64) {
        text.push_back(static_cast<char>(*data++));
        --size;
    }
    if (size > 0) {
        ++data;
        --size;
    }
    StrokeFont font;
    font.LoadBytes(std::vector<std::uint8_t>(data, data + size));
    try {
        (void)font.H6();
        (void)font.LastChar();
        for (int c = 0; c < 256; ++c) {
            (void)font.Metrics(font.MapChar(static_cast<unsigned char>(c)));
        }
    } catch (const Error&) {
    }
    try {
        (void)font.Extent(text, 2.5);
        CountingSink sink;
        DrawStrokeText(font, sink, false, text, 0, 0, 30, 2.5);
        DrawStrokeText(font, sink, true, text, 10, -5, 270, 1.0);
    } catch (const Error&) {
    }
    return 0;
}
