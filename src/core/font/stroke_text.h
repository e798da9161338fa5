#pragma once

// Stroke text: a string drawn with the stroke font as pen moves and lines in library
// coordinates. The plot frame is the sink; it sets the pen width before calling this.

#include <string_view>

#include "font/stroke_font.h"

namespace zantor {

class StrokeSink {
  public:
    virtual ~StrokeSink() = default;
    virtual void MoveTo(double x, double y) = 0;
    virtual void LineTo(double x, double y) = 0;
};

// The glyph walk of DrawStrokeText: text cut to 80 characters, origin (x, y) in library units,
// rotation in degrees counter-clockwise, size = text height in library units.
void DrawStrokeText(const StrokeFont& font, StrokeSink& sink, bool mirror, std::string_view text,
                    double x, double y, double rotation, double size);

}  // namespace zantor
