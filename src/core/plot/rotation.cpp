#include "plot/rotation.h"

#include <cmath>
#include <numbers>

namespace zantor {

PlanePoint RotateOffset(double x, double y, double degrees) {
    double turn = std::fmod(degrees, 360.0);
    if (turn < 0) {
        turn += 360.0;
    }
    if (turn == 0.0) {
        return {x, y};
    }
    if (turn == 90.0) {
        return {-y, x};
    }
    if (turn == 180.0) {
        return {-x, -y};
    }
    if (turn == 270.0) {
        return {y, -x};
    }
    const double angle = std::numbers::pi * degrees / 180.0;
    const double cosA = std::cos(angle);
    const double sinA = std::sin(angle);
    return {x * cosA - y * sinA, x * sinA + y * cosA};
}

}  // namespace zantor
