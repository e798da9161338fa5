#pragma once

// A canvas that writes every drawing call as one line of text, for tests and for the ".trace"
// output of the command line. The format is stable; one line per call, numbers in device units:
//
//   move X Y
//   line X Y pen=P
//   arc X1 Y1 X2 Y2 SX SY EX EY pen=P
//   roundrect X1 Y1 X2 Y2 CW CH pen=P fill=F
//   polygon N X1 Y1 ... XN YN pen=P fill=F
//   text X Y H "FONT" "TEXT" colour=C   (text-centre, text-right: X is the centre or right end)
//
// P is COLOUR/WIDTH/STYLE with STYLE one of solid, dash, dot, dashdot, dashdotdot, clear;
// F is COLOUR/STYLE with STYLE solid or none; C is a COLOUR. COLOUR is the 0x00BBGGRR value as six
// upper-case hex digits (000000 black, 0000FF red). In quoted texts a quote or backslash is
// preceded by a backslash and a byte below 32 is written as \xHH. Setting pen, fill or text state
// writes nothing by itself; it shows in the next drawing line.

#include <string>
#include <vector>

#include "plot/plot_canvas.h"

namespace zantor {

class RecordingCanvas : public PlotCanvas {
  public:
    void MoveTo(std::int32_t x, std::int32_t y) override;
    void LineTo(std::int32_t x, std::int32_t y) override;
    void Arc(std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2, std::int32_t sx,
             std::int32_t sy, std::int32_t ex, std::int32_t ey) override;
    void RoundRect(std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2,
                   std::int32_t cornerWidth, std::int32_t cornerHeight) override;
    void Polygon(std::span<const DevicePoint> points) override;
    void Text(std::int32_t x, std::int32_t y, std::string_view text, std::string_view fontName,
              std::int32_t height, TextAlign align = TextAlign::Left) override;

    const std::vector<std::string>& Lines() const { return lines_; }
    // All lines, each ended by a newline.
    std::string Trace() const;
    void Clear() { lines_.clear(); }

    // The pen and fill parts of a line as they would be written now.
    std::string PenText() const;
    std::string FillText() const;

  private:
    std::vector<std::string> lines_;
};

}  // namespace zantor
