#pragma once

// How wide a line of text comes out in a system font: the adapter over Qt's font metrics that
// lets the title block and the index pages keep their texts inside their fields.

#include <string_view>

namespace zantor {

// The advance width of `text` (8-bit text, as the canvas takes it) drawn with an em height of
// `size` in the system font `fontName`, in the unit of `size`. Measured at a large pixel size so
// that hinting does not count. Without a GUI application there are no fonts to ask (and no
// device draws text): the width is then 0, and every text keeps the height it was given.
double SystemTextWidth(std::string_view text, std::string_view fontName, double size);

}  // namespace zantor
