#include "output/page_file_target.h"

#include <QRect>
#include <QSize>
#include <cmath>
#include <utility>

#include "common/errors.h"
#include "output/palette_image.h"

namespace zantor {

PageFileTarget::PageFileTarget(std::filesystem::path path, PaperSize paper, int resolution)
    : path_(std::move(path)), paper_(paper), resolution_(resolution) {}

PageMetrics PageFileTarget::Page() const {
    return FilePageMetrics(paper_, resolution_);
}

void PageFileTarget::OpenPage() {
    // The page about to open is the next one of the job.
    current_ = NumberedPath(path_, JobPages() + 1);
    temporary_ = pending_.Add(current_);
    if (!page_.Begin(OpenDevice(temporary_, Page()))) {
        throw IoError("Cannot write the file", current_.string());
    }
    SetSurface(page_.Canvas());
}

void PageFileTarget::ClosePage() {
    const bool ended = page_.End();
    const bool written = CloseDevice(temporary_);
    ReleaseDevice();
    if (!ended || !written) {
        throw IoError("Cannot write the file", current_.string());
    }
}

void PageFileTarget::StartDocument() {
    OpenPage();
}

void PageFileTarget::StartPage() {
    ClosePage();
    OpenPage();
}

std::vector<std::filesystem::path> PageFileTarget::FinishDocument() {
    ClosePage();
    std::vector<std::filesystem::path> files = pending_.Commit();
    RemoveLaterNumberedFiles(path_, JobPages() + 1);
    return files;
}

void PageFileTarget::DropDocument() noexcept {
    page_.Abandon();
    ReleaseDevice();
    pending_.Discard();
}

PngTarget::PngTarget(std::filesystem::path path, PaperSize paper)
    : PageFileTarget(std::move(path), paper, kResolution) {}

PngTarget::~PngTarget() {
    DropUnfinished();
}

QPaintDevice& PngTarget::OpenDevice(const std::filesystem::path& /*temporary*/,
                                    const PageMetrics& metrics) {
    // One image serves every page of the job: it is cleared, not made anew, for the next page.
    if (image_.width() != metrics.physicalWidth || image_.height() != metrics.physicalHeight) {
        image_ = QImage(metrics.physicalWidth, metrics.physicalHeight, QImage::Format_RGB32);
        if (image_.isNull()) {
            throw IoError("Not enough memory for the page image", CurrentFile().string());
        }
        const int dotsPerMetre = static_cast<int>(std::lround(kResolution / 0.0254));
        image_.setDotsPerMeterX(dotsPerMetre);
        image_.setDotsPerMeterY(dotsPerMetre);
    }
    image_.fill(Qt::white);
    return image_;
}

bool PngTarget::CloseDevice(const std::filesystem::path& temporary) {
    // Pages in the default colours hold black, white and the greys of smoothed edges: as a
    // palette image they are the same pixels in a quarter of the data to compress. Pages in more
    // than 256 colours are written in full colour.
    if (ToPaletteImage(image_, palette_)) {
        return palette_.save(PathText(temporary), "PNG");
    }
    return image_.save(PathText(temporary), "PNG");
}

SvgTarget::SvgTarget(std::filesystem::path path, PaperSize paper)
    : PageFileTarget(std::move(path), paper, kResolution) {}

SvgTarget::~SvgTarget() {
    DropUnfinished();
}

QPaintDevice& SvgTarget::OpenDevice(const std::filesystem::path& temporary,
                                    const PageMetrics& metrics) {
    const QSize size(metrics.physicalWidth, metrics.physicalHeight);
    file_ = std::make_unique<CheckedFile>(temporary);
    if (!file_->OpenForWriting()) {
        throw IoError("Cannot write the file: " + file_->errorString().toStdString(),
                      CurrentFile().string());
    }
    generator_ = std::make_unique<QSvgGenerator>();
    generator_->setOutputDevice(file_.get());
    generator_->setTitle(QString::fromLatin1(kDocumentTitle));
    generator_->setResolution(kResolution);
    generator_->setSize(size);
    generator_->setViewBox(QRect(QPoint(0, 0), size));
    return *generator_;
}

}  // namespace zantor

namespace zantor {

bool SvgTarget::CloseDevice(const std::filesystem::path& /*temporary*/) {
    generator_.reset();
    return file_->Finish();
}

void SvgTarget::ReleaseDevice() noexcept {
    generator_.reset();
    file_.reset();
}

}  // namespace zantor
