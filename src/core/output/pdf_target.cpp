#include "output/pdf_target.h"

#include <QMarginsF>
#include <QPageLayout>

#include "common/errors.h"
#include "output/pdf_outline.h"

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
    if (!heapReuse_) {
        heapReuse_.emplace();
    }
    current_ = files_ == DocumentFiles::Numbered ? NumberedPath(path_, DocumentNumber()) : path_;
    temporary_ = pending_.Add(current_);
    file_ = std::make_unique<CheckedFile>(temporary_);
    if (!file_->OpenForWriting()) {
        throw IoError("Cannot write the file: " + file_->errorString().toStdString(),
                      current_.string());
    }
    writer_ = std::make_unique<QPdfWriter>(file_.get());
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
    writer_.reset();
    // A full disk shows only here: the writer does not look at what its writes return.
    const bool written = file_->Finish();
    if (!ended || !written) {
        throw IoError("Cannot write the file: " + file_->errorString().toStdString(),
                      current_.string());
    }
    file_.reset();
    // The outline, title and subject go into the temporary file, before it is put in place.
    PdfDescription description;
    if (Library().empty()) {
        description.title = kDocumentTitle;
        description.subject = "PADS library pages";
    } else {
        const std::filesystem::path library(Library());
        description.title = std::string(kDocumentTitle) + " - " + library.filename().string();
        description.subject = "PADS library " + Library();
    }
    description.pageNames = PageNames();
    if (!AddPdfOutline(temporary_, description)) {
        throw IoError("Cannot write the file: the bookmarks could not be added", current_.string());
    }
    std::vector<std::filesystem::path> files = pending_.Commit();
    if (files_ == DocumentFiles::Numbered) {
        RemoveLaterNumberedFiles(path_, DocumentNumber() + 1);
    }
    return files;
}

void PdfTarget::DropDocument() noexcept {
    // Out of memory, ending the painter can throw again; the temporary goes all the same.
    page_.Abandon();
    writer_.reset();
    file_.reset();
    pending_.Discard();
}

}  // namespace zantor
