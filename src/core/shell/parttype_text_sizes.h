#pragma once

// The two text sizes of parttype sheets, kept with the recent files in "General". They are held
// in a converted form: the name size is the stored value plus 1.5 mm, the attribute size the
// stored value times 10/7. The values before any load are not the converted defaults; that is
// how the program has always started.

namespace zantor {

inline constexpr double kPTNameSizeOffset = 1.5;
inline constexpr double kPTAttrSizeFactor = 10.0 / 7.0;

struct ParttypeTextSizes {
    double PTNameSize = 5.0;
    double PTAttrSize = 3.0;
};

}  // namespace zantor
