#include "output/palette_image.h"

#include <QList>
#include <array>
#include <cstdint>

namespace zantor {
namespace {

// The colours of a palette and their indices, looked up by an open-addressing hash with room to
// spare for the 256 colours a palette holds.
class ColourTable {
  public:
    ColourTable() { slots_.fill(kEmpty); }

    // The index of `colour`, added when it is new; -1 when the palette is full.
    int IndexOf(QRgb colour) {
        std::uint32_t slot = Hash(colour);
        for (;;) {
            const std::int16_t index = slots_[slot];
            if (index == kEmpty) {
                break;
            }
            if (colours_[static_cast<qsizetype>(index)] == colour) {
                return index;
            }
            slot = (slot + 1) & (kSlots - 1);
        }
        if (colours_.size() == kMaxColours) {
            return -1;
        }
        slots_[slot] = static_cast<std::int16_t>(colours_.size());
        colours_.append(colour);
        return static_cast<int>(colours_.size() - 1);
    }

    const QList<QRgb>& Colours() const { return colours_; }

  private:
    static constexpr int kMaxColours = 256;
    static constexpr std::uint32_t kSlots = 1024;
    static constexpr std::int16_t kEmpty = -1;

    static std::uint32_t Hash(QRgb colour) { return (colour * 2654435761U) >> 22; }

    std::array<std::int16_t, kSlots> slots_{};
    QList<QRgb> colours_;
};

}  // namespace

bool ToPaletteImage(const QImage& page, QImage& indexed) {
    if (page.format() != QImage::Format_RGB32 || page.isNull()) {
        return false;
    }
    if (indexed.size() != page.size() || indexed.format() != QImage::Format_Indexed8) {
        indexed = QImage(page.size(), QImage::Format_Indexed8);
        if (indexed.isNull()) {
            return false;
        }
    }
    ColourTable table;
    // Pages are mostly runs of one colour: the last colour's index is kept at hand.
    QRgb last = page.pixel(0, 0) | 0xff000000U;
    int lastIndex = table.IndexOf(last);
    const int width = page.width();
    for (int y = 0; y < page.height(); ++y) {
        const auto* from = reinterpret_cast<const QRgb*>(page.constScanLine(y));
        uchar* to = indexed.scanLine(y);
        for (int x = 0; x < width; ++x) {
            // RGB32 pixels are opaque, as the RGB PNG of them is: the alpha byte does not count.
            const QRgb colour = from[x] | 0xff000000U;
            if (colour != last) {
                const int index = table.IndexOf(colour);
                if (index < 0) {
                    return false;
                }
                last = colour;
                lastIndex = index;
            }
            to[x] = static_cast<uchar>(lastIndex);
        }
    }
    indexed.setColorTable(table.Colours());
    indexed.setDotsPerMeterX(page.dotsPerMeterX());
    indexed.setDotsPerMeterY(page.dotsPerMeterY());
    return true;
}

}  // namespace zantor
