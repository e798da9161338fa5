#include "output/painter_page.h"

#include <array>
#include <cstddef>

#include "output/page_output.h"

namespace zantor {
namespace {

// Painters whose end failed half-way (out of memory while a PDF is finished): destroying one
// would end it again inside its destructor, and a second failure there ends the process. They
// are kept, never used again, for the rest of the run; beyond the table's size they are let go.
constexpr std::size_t kForsakenPainters = 1024;
std::array<QPainter*, kForsakenPainters> gForsaken{};
std::size_t gForsakenCount = 0;

void Forsake(std::unique_ptr<QPainter> painter) noexcept {
    QPainter* kept = painter.release();
    if (gForsakenCount < gForsaken.size()) {
        gForsaken[gForsakenCount++] = kept;
    }
}

}  // namespace

bool PainterPage::Begin(QPaintDevice& device) {
    End();
    painter_ = std::make_unique<QPainter>();
    if (!painter_->begin(&device)) {
        painter_.reset();
        return false;
    }
    canvas_.emplace(*painter_, PageOutput::kMapping, &fonts_);
    return true;
}

void PainterPage::RenewCanvas() {
    if (!Active()) {
        return;
    }
    canvas_.reset();
    canvas_.emplace(*painter_, PageOutput::kMapping, &fonts_);
}

bool PainterPage::End() {
    // The canvas gives the painter its transform back, so it goes first.
    canvas_.reset();
    bool ended = true;
    if (painter_ && painter_->isActive()) {
        try {
            ended = painter_->end();
        } catch (...) {
            Forsake(std::move(painter_));
            throw;
        }
    }
    painter_.reset();
    return ended;
}

void PainterPage::Abandon() noexcept {
    try {
        End();
    } catch (...) {
        // The page is dropped; there is nothing left to tell.
    }
}

}  // namespace zantor
