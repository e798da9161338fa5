#include "plot/text_fonts.h"

#include <QString>

namespace zantor {
namespace {

// Widths remembered per font before the table starts over: a job of many pages names many
// decals, and memory is not to grow with the job.
constexpr std::size_t kRememberedWidths = 4096;

}  // namespace

TextFont::TextFont(const QFont& font, const QFontMetricsF& metrics)
    : font_(font), metrics_(metrics), ascent_(metrics.ascent()) {}

double TextFont::Width(const QString& text) {
    if (const auto known = widths_.find(text); known != widths_.end()) {
        return known->second;
    }
    if (widths_.size() >= kRememberedWidths) {
        widths_.clear();
    }
    const double width = metrics_.horizontalAdvance(text);
    widths_.emplace(text, width);
    return width;
}

TextFont& TextFonts::Get(std::string_view family, int pixelSize, const QPaintDevice* device) {
    const int dpiX = device != nullptr ? device->logicalDpiX() : 0;
    const int dpiY = device != nullptr ? device->logicalDpiY() : 0;
    const auto matches = [&](const Entry& entry) {
        return entry.pixelSize == pixelSize && entry.dpiX == dpiX && entry.dpiY == dpiY &&
               entry.family == family;
    };
    // A page draws most of its texts in one font: the last one asked for comes first.
    if (last_ < entries_.size() && matches(entries_[last_])) {
        return *entries_[last_].font;
    }
    for (std::size_t i = 0; i < entries_.size(); ++i) {
        if (matches(entries_[i])) {
            last_ = i;
            return *entries_[i].font;
        }
    }
    QFont font(QString::fromLatin1(family.data(), static_cast<qsizetype>(family.size())));
    font.setPixelSize(pixelSize);
    // The metrics need a device whose resolution they take; without one, the screen's.
    QFontMetricsF metrics = device != nullptr ? QFontMetricsF(font, device) : QFontMetricsF(font);
    entries_.push_back(Entry{std::string(family), pixelSize, dpiX, dpiY,
                             std::make_unique<TextFont>(font, metrics)});
    last_ = entries_.size() - 1;
    return *entries_.back().font;
}

}  // namespace zantor
