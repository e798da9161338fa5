#pragma once

// The system fonts a print job draws its texts in: one font and its metrics for each family,
// pixel size and device resolution, built when first asked for and kept for the job, so that
// drawing a text does not look the font up again.

#include <QFont>
#include <QFontMetricsF>
#include <QPaintDevice>
#include <QString>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace zantor {

class TextFont {
  public:
    TextFont(const QFont& font, const QFontMetricsF& metrics);

    const QFont& Font() const { return font_; }
    // From the top of the text line to its baseline, in pixels.
    double Ascent() const { return ascent_; }
    // The advance width of `text` in pixels. Widths asked for once are remembered: page after
    // page measures the same labels.
    double Width(const QString& text);

  private:
    QFont font_;
    QFontMetricsF metrics_;
    double ascent_;
    std::unordered_map<QString, double> widths_;
};

class TextFonts {
  public:
    TextFonts() = default;
    TextFonts(const TextFonts&) = delete;
    TextFonts& operator=(const TextFonts&) = delete;

    // The font `family` at `pixelSize` pixels with its metrics on `device` (a font that is not
    // installed is replaced by a similar one). The reference stays valid for the object's life.
    TextFont& Get(std::string_view family, int pixelSize, const QPaintDevice* device);

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
