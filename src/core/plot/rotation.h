#pragma once

// Turning an offset about its origin by an angle: how pads, drill slots and anything else given
// in its own rotated frame find their place on the decal.

namespace zantor {

struct PlanePoint {
    double x = 0.0;
    double y = 0.0;

    bool operator==(const PlanePoint&) const = default;
};

// (x, y) turned counter-clockwise by `degrees`. Whole quarter turns are exact, so that pads at 0,
// 90, 180 and 270 degrees keep their corners on the numbers the file gives and never round to a
// neighbouring device unit.
PlanePoint RotateOffset(double x, double y, double degrees);

}  // namespace zantor
