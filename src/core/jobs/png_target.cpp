#include "jobs/png_target.h"

#include <cmath>

#include "common/errors.h"

namespace zantor {

PngTarget::PngTarget(std::filesystem::path path, PaperSize paper)
    : path_(std::move(path)), paper_(paper) {}

PngTarget::~PngTarget() {
    DropUnfinished();
}

PageMetrics PngTarget::Page() const {
    return FilePageMetrics(paper_, kResolution);
}

void PngTarget::OpenPage() {
    current_ = NumberedPath(path_, JobPages() + 1);
    temporary_ = pending_.Add(current_);
    const PageMetrics metrics = Page();
    image_ = QImage(metrics.physicalWidth, metrics.physicalHeight, QImage::Format_RGB32);
    if (image_.isNull()) {
        throw IoError("Not enough memory for the page image", current_.string());
    }
    const int dotsPerMetre = static_cast<int>(std::lround(kResolution / 0.0254));
    image_.setDotsPerMeterX(dotsPerMetre);
    image_.setDotsPerMeterY(dotsPerMetre);
    image_.fill(Qt::white);
    if (!page_.Begin(image_)) {
        throw IoError("Cannot write the file", current_.string());
    }
    SetSurface(page_.Canvas());
}

void PngTarget::ClosePage() {
    page_.End();
    const bool saved = image_.save(PathText(temporary_), "PNG");
    image_ = QImage();
    if (!saved) {
        throw IoError("Cannot write the file", current_.string());
    }
}

void PngTarget::StartDocument() {
    OpenPage();
}

void PngTarget::StartPage() {
    ClosePage();
    OpenPage();
}

std::vector<std::filesystem::path> PngTarget::FinishDocument() {
    ClosePage();
    return pending_.Commit();
}

void PngTarget::DropDocument() noexcept {
    page_.End();
    image_ = QImage();
    pending_.Discard();
}

}  // namespace zantor
