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

}  // namespace zantor
