#include "output/page_canvas.h"

namespace zantor {

PlotCanvas* PageCanvas::Synced() {
    if (surface_ != nullptr) {
        surface_->SetPenColour(PenColour());
        surface_->SetPenWidth(PenWidth());
        surface_->SetPenStyle(PenStyleNow());
        surface_->SetFillColour(FillColour());
        surface_->SetFillStyle(FillStyleNow());
        surface_->SetTextColour(TextColour());
    }
    return surface_;
}

void PageCanvas::MoveTo(std::int32_t x, std::int32_t y) {
    if (PlotCanvas* surface = Synced()) {
        surface->MoveTo(x, y);
    }
}

void PageCanvas::LineTo(std::int32_t x, std::int32_t y) {
    if (PlotCanvas* surface = Synced()) {
        surface->LineTo(x, y);
    }
}

void PageCanvas::Arc(std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2,
                     std::int32_t sx, std::int32_t sy, std::int32_t ex, std::int32_t ey) {
    if (PlotCanvas* surface = Synced()) {
        surface->Arc(x1, y1, x2, y2, sx, sy, ex, ey);
    }
}

void PageCanvas::RoundRect(std::int32_t x1, std::int32_t y1, std::int32_t x2, std::int32_t y2,
                           std::int32_t cornerWidth, std::int32_t cornerHeight) {
    if (PlotCanvas* surface = Synced()) {
        surface->RoundRect(x1, y1, x2, y2, cornerWidth, cornerHeight);
    }
}

void PageCanvas::Polygon(std::span<const DevicePoint> points) {
    if (PlotCanvas* surface = Synced()) {
        surface->Polygon(points);
    }
}

void PageCanvas::Text(std::int32_t x, std::int32_t y, std::string_view text,
                      std::string_view fontName, std::int32_t height, TextAlign align) {
    if (PlotCanvas* surface = Synced()) {
        surface->Text(x, y, text, fontName, height, align);
    }
}

}  // namespace zantor
