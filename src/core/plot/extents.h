#pragma once

// The smallest and largest x and y of a decal in its file units, widened by its pieces and
// terminals before the decal is scaled to its page.

#include <algorithm>
#include <limits>

namespace zantor {

struct DecalExtents {
    double xmin = std::numeric_limits<double>::max();
    double xmax = std::numeric_limits<double>::lowest();
    double ymin = std::numeric_limits<double>::max();
    double ymax = std::numeric_limits<double>::lowest();

    // Whether nothing has widened the extents yet.
    bool Empty() const { return xmin > xmax || ymin > ymax; }

    void Widen(double x, double y) {
        WidenX(x);
        WidenY(y);
    }
    void WidenX(double x) {
        xmin = std::min(xmin, x);
        xmax = std::max(xmax, x);
    }
    void WidenY(double y) {
        ymin = std::min(ymin, y);
        ymax = std::max(ymax, y);
    }
};

}  // namespace zantor
