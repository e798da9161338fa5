#include "output/page_output.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

namespace zantor {

void PageOutput::BeginDocument() {
    if (printing_) {
        return;
    }
    aborted_ = false;
    ++documents_;
    documentPages_ = 0;
    pageNames_.clear();
    try {
        StartDocument();
    } catch (...) {
        SetSurface(nullptr);
        DropDocument();
        throw;
    }
    printing_ = true;
    documentPages_ = 1;
    ++jobPages_;
}

void PageOutput::NewPage() {
    if (!printing_) {
        return;
    }
    try {
        StartPage();
    } catch (...) {
        SetSurface(nullptr);
        printing_ = false;
        DropDocument();
        throw;
    }
    ++documentPages_;
    ++jobPages_;
}

void PageOutput::EndDocument() {
    if (!printing_) {
        return;
    }
    printing_ = false;
    SetSurface(nullptr);
    std::vector<std::filesystem::path> files;
    try {
        // Room first: once the files are in place, listing them must not fail.
        writtenFiles_.reserve(writtenFiles_.size() + static_cast<std::size_t>(documentPages_));
        files = FinishDocument();
    } catch (...) {
        DropDocument();
        throw;
    }
    writtenFiles_.insert(writtenFiles_.end(), std::make_move_iterator(files.begin()),
                         std::make_move_iterator(files.end()));
}

void PageOutput::NamePage(std::string name) {
    if (!printing_ || documentPages_ < 1) {
        return;
    }
    pageNames_.resize(static_cast<std::size_t>(documentPages_));
    pageNames_.back() = std::move(name);
}

void PageOutput::Abort() {
    aborted_ = true;
    if (!printing_) {
        return;
    }
    printing_ = false;
    SetSurface(nullptr);
    DropDocument();
}

void PageOutput::DropUnfinished() noexcept {
    if (printing_) {
        printing_ = false;
        SetSurface(nullptr);
        DropDocument();
    }
}

PaperArea PaperAreaOf(const PageMetrics& page) {
    PaperArea paper;
    paper.width = page.widthMm;
    paper.height = page.heightMm;
    if (page.pixelsPerInchX > 0 && page.pixelsPerInchY > 0) {
        const double mmPerDotX = 25.4 / page.pixelsPerInchX;
        const double mmPerDotY = 25.4 / page.pixelsPerInchY;
        paper.leftOffset = page.physicalOffsetX * mmPerDotX;
        paper.topOffset = page.physicalOffsetY * mmPerDotY;
        // A sheet of whole device pixels can come out a hair smaller than the printable area.
        paper.rightOffset =
            std::max(0.0, page.physicalWidth * mmPerDotX - page.widthMm - paper.leftOffset);
        paper.bottomOffset =
            std::max(0.0, page.physicalHeight * mmPerDotY - page.heightMm - paper.topOffset);
    }
    return paper;
}

std::filesystem::path NumberedPath(const std::filesystem::path& path, int n) {
    std::filesystem::path numbered = path;
    numbered.replace_filename(path.stem().string() + "-" + std::to_string(n) +
                              path.extension().string());
    return numbered;
}

}  // namespace zantor
