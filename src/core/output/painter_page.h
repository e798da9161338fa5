#pragma once

// A painter on a page device with the printer-mapped canvas over it, as every painting target
// holds one while a page (or a printer document) is open.

#include <QPaintDevice>
#include <QPainter>
#include <memory>
#include <optional>

#include "plot/qpainter_canvas.h"
#include "plot/text_fonts.h"

namespace zantor {

class PainterPage {
  public:
    PainterPage() = default;
    ~PainterPage() { Abandon(); }
    PainterPage(const PainterPage&) = delete;
    PainterPage& operator=(const PainterPage&) = delete;

    // Starts painting on `device`; false when the device cannot be painted on.
    bool Begin(QPaintDevice& device);
    // A fresh canvas for the next page of a device that pages by itself (printer, PDF), so that
    // no drawing state crosses from one page to the next.
    void RenewCanvas();
    // Ends painting; false when the device reports a failure. When ending throws (out of
    // memory), the painter is given up and the error passed on.
    bool End();
    // Ends painting of a page that is being dropped, whatever happens on the way: an error of
    // the device (out of memory, say) is swallowed, as nothing of the page is kept anyway.
    void Abandon() noexcept;

    bool Active() const { return painter_ && painter_->isActive(); }
    QPainter* Painter() { return Active() ? painter_.get() : nullptr; }
    PlotCanvas* Canvas() { return canvas_ ? &*canvas_ : nullptr; }

  private:
    // The fonts of every page painted through this object: the whole job's.
    TextFonts fonts_;
    std::unique_ptr<QPainter> painter_;
    std::optional<QPainterCanvas> canvas_;
};

}  // namespace zantor
