#include "jobs/page_file_target.h"

#include <utility>

#include "common/errors.h"

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
    return pending_.Commit();
}

void PageFileTarget::DropDocument() noexcept {
    page_.End();
    ReleaseDevice();
    pending_.Discard();
}

}  // namespace zantor
