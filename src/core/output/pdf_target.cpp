#include "output/pdf_target.h"

#include <QMarginsF>
#include <QPageLayout>

#include "common/errors.h"

namespace zantor {
PdfTarget::PdfTarget(std::filesystem::path path, PaperSize paper, DocumentFiles files)
    : path_(std::move(path)), paper_(paper), files_(files) {}

PdfTarget::~PdfTarget() {
    DropUnfinished();
}

PageMetrics PdfTarget::Page() const {
    return FilePageMetrics(paper_, kResolution);
}

void PdfTarget::StartDocument() {
    if (files_ == DocumentFiles::Single && DocumentNumber() > 1) {
        throw IoError("Only one document can be written to this file", path_.string());
    }
    current_ = files_ == DocumentFiles::Numbered ? NumberedPath(path_, DocumentNumber()) : path_;
    const std::filesystem::path temporary = pending_.Add(current_);
    writer_ = std::make_unique<QPdfWriter>(PathText(temporary));
    writer_->setTitle(QString::fromLatin1(kDocumentTitle));
    writer_->setCreator(QString::fromLatin1(kDocumentTitle));
    writer_->setResolution(kResolution);
    writer_->setPageLayout(QPageLayout(PageSizeOf(paper_), QPageLayout::Portrait,
                                       QMarginsF(0, 0, 0, 0), QPageLayout::Millimeter));
    if (!page_.Begin(*writer_)) {
        throw IoError("Cannot write the file", current_.string());
    }
    SetSurface(page_.Canvas());
}

void PdfTarget::StartPage() {
    if (!writer_->newPage()) {
        throw IoError("Cannot write the file", current_.string());
    }
    page_.RenewCanvas();
    SetSurface(page_.Canvas());
}

std::vector<std::filesystem::path> PdfTarget::FinishDocument() {
    const bool ended = page_.End();
    // The writer closes its file when it goes.
    writer_.reset();
    if (!ended) {
        throw IoError("Cannot write the file", current_.string());
    }
    return pending_.Commit();
}

void PdfTarget::DropDocument() noexcept {
    page_.End();
    writer_.reset();
    pending_.Discard();
}

}  // namespace zantor
