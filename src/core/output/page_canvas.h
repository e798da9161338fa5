#pragma once

// The canvas the print runs draw on for a whole job. Every page of a target has its own drawing
// surface (a painter on the printer, a new image for every PNG page), but the plot frame holds one
// canvas for its life; this one passes each call on to the surface of the current page, with the
// pen, fill and text state it holds. Without a page (before a document is begun, after an abort)
// drawing goes nowhere, as a printer ignores drawing outside its document.

#include "plot/plot_canvas.h"

namespace zantor {

class PageCanvas : public PlotCanvas {
  public:
    // `surface` draws the following calls; nullptr drops them.
    void SetSurface(PlotCanvas* surface) { surface_ = surface; }
    bool HasSurface() const { return surface_ != nullptr; }

    void MoveTo(std::int32_t x, std::int32_t y) override;
    void LineTo(std::int32_t x, std::int32_t y) override;
    void Arc(std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2, std::int32_t sx,
             std::int32_t sy, std::int32_t ex, std::int32_t ey) override;
    void RoundRect(std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2,
                   std::int32_t cornerWidth, std::int32_t cornerHeight) override;
    void Polygon(std::span<const DevicePoint> points) override;
    void Text(std::int32_t x, std::int32_t y, std::string_view text, std::string_view fontName,
              std::int32_t height, TextAlign align = TextAlign::Left) override;

  private:
    // The surface with this canvas's state copied in; nullptr without a page.
    PlotCanvas* Synced();

    PlotCanvas* surface_ = nullptr;
};

}  // namespace zantor
