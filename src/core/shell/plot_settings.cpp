#include "shell/plot_settings.h"

namespace zantor {

PenTableRows DefaultPenTable() {
    PenTableRows rows{};
    for (int row = 0; row < kPenRows; ++row) {
        rows[row].layer = -1;
        for (int kind = 1; kind <= kPenKinds; ++kind) {
            rows[row].colour[kind] = row == 0 ? 0 : kNotPlotted;
        }
    }
    return rows;
}

std::string CutToCapacity(std::string_view text, std::size_t capacity) {
    std::size_t characters = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const bool continuation = (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80;
        if (!continuation && ++characters > capacity) {
            return std::string(text.substr(0, at));
        }
    }
    return std::string(text);
}

}  // namespace zantor
