#include "output/painter_page.h"

#include "output/page_output.h"

namespace zantor {

bool PainterPage::Begin(QPaintDevice& device) {
    End();
    painter_.emplace();
    if (!painter_->begin(&device)) {
        painter_.reset();
        return false;
    }
    canvas_.emplace(*painter_, PageOutput::kMapping);
    return true;
}

void PainterPage::RenewCanvas() {
    if (!Active()) {
        return;
    }
    canvas_.reset();
    canvas_.emplace(*painter_, PageOutput::kMapping);
}

bool PainterPage::End() {
    // The canvas gives the painter its transform back, so it goes first.
    canvas_.reset();
    bool ended = true;
    if (painter_ && painter_->isActive()) {
        ended = painter_->end();
    }
    painter_.reset();
    return ended;
}

}  // namespace zantor
