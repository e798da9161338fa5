#include "jobs/svg_target.h"

#include <QRect>
#include <QSize>

#include "common/errors.h"

namespace zantor {

SvgTarget::SvgTarget(std::filesystem::path path, PaperSize paper)
    : path_(std::move(path)), paper_(paper) {}

SvgTarget::~SvgTarget() {
    DropUnfinished();
}

PageMetrics SvgTarget::Page() const {
    return FilePageMetrics(paper_, kResolution);
}

void SvgTarget::OpenPage() {
    // The page about to open is the next one of the job.
    current_ = NumberedPath(path_, JobPages() + 1);
    const std::filesystem::path temporary = pending_.Add(current_);
    const PageMetrics metrics = Page();
    const QSize size(metrics.physicalWidth, metrics.physicalHeight);
    generator_ = std::make_unique<QSvgGenerator>();
    generator_->setFileName(PathText(temporary));
    generator_->setTitle(QString::fromLatin1(kDocumentTitle));
    generator_->setResolution(kResolution);
    generator_->setSize(size);
    generator_->setViewBox(QRect(QPoint(0, 0), size));
    if (!page_.Begin(*generator_)) {
        throw IoError("Cannot write the file", current_.string());
    }
    SetSurface(page_.Canvas());
}

void SvgTarget::ClosePage() {
    const bool ended = page_.End();
    generator_.reset();
    if (!ended) {
        throw IoError("Cannot write the file", current_.string());
    }
}

void SvgTarget::StartDocument() {
    OpenPage();
}

void SvgTarget::StartPage() {
    ClosePage();
    OpenPage();
}

std::vector<std::filesystem::path> SvgTarget::FinishDocument() {
    ClosePage();
    return pending_.Commit();
}

void SvgTarget::DropDocument() noexcept {
    page_.End();
    generator_.reset();
    pending_.Discard();
}

}  // namespace zantor
