#pragma once

#include <string>

namespace zantor {

// The default of the `Fontfile` setting on this platform.
std::string DefaultFontfile();

}  // namespace zantor
