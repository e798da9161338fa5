#pragma once

// The system fonts a print job draws its texts in: one font and its metrics for each family,
// pixel size and device resolution, built when first asked for and kept for the job, so that
// drawing a text does not look the font up again.

#include <QFont>
#include <QFontMetricsF>
#include <QPaintDevice>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace zantor {

struct TextFont {
    QFont font;
    QFontMetricsF metrics;
};

class TextFonts {
  public:
    TextFonts() = default;
    TextFonts(const TextFonts&) = delete;
    TextFonts& operator=(const TextFonts&) = delete;

    // The font `family` at `pixelSize` pixels with its metrics on `device` (a font that is not
    // installed is replaced by a similar one). The reference stays valid for the object's life.
    const TextFont& Get(std::string_view family, int pixelSize, const QPaintDevice* device);

    // How many fonts have been built so far.
    std::size_t Size() const { return entries_.size(); }

  private:
    struct Entry {
        std::string family;
        int pixelSize = 0;
        int dpiX = 0;
        int dpiY = 0;
        std::unique_ptr<TextFont> font;
    };

    std::vector<Entry> entries_;
    std::size_t last_ = 0;
};

}  // namespace zantor
