#include "output/trace_target.h"

#include "common/errors.h"

namespace zantor {

TraceTarget::TraceTarget(std::filesystem::path path, PaperSize paper, DocumentFiles files)
    : path_(std::move(path)), paper_(paper), files_(files) {}

TraceTarget::~TraceTarget() {
    DropUnfinished();
}

PageMetrics TraceTarget::Page() const {
    return FilePageMetrics(paper_, kResolution);
}

void TraceTarget::Flush() {
    for (const std::string& line : recorder_.Lines()) {
        out_ << line << '\n';
    }
    recorder_.Clear();
    if (!out_) {
        throw IoError("Cannot write the file", current_.string());
    }
}

void TraceTarget::StartDocument() {
    if (files_ == DocumentFiles::Single && DocumentNumber() > 1) {
        throw IoError("Only one document can be written to this file", path_.string());
    }
    current_ = files_ == DocumentFiles::Numbered ? NumberedPath(path_, DocumentNumber()) : path_;
    const std::filesystem::path temporary = pending_.Add(current_);
    out_.open(temporary, std::ios::binary | std::ios::trunc);
    if (!out_) {
        throw IoError("Cannot write the file", current_.string());
    }
    recorder_.Clear();
    out_ << "page 1\n";
    SetSurface(&recorder_);
}

void TraceTarget::StartPage() {
    Flush();
    out_ << "page " << DocumentPages() + 1 << '\n';
}

std::vector<std::filesystem::path> TraceTarget::FinishDocument() {
    Flush();
    out_.close();
    if (!out_) {
        throw IoError("Cannot write the file", current_.string());
    }
    std::vector<std::filesystem::path> files = pending_.Commit();
    if (files_ == DocumentFiles::Numbered) {
        RemoveLaterNumberedFiles(path_, DocumentNumber() + 1);
    }
    return files;
}

void TraceTarget::DropDocument() noexcept {
    recorder_.Clear();
    out_.close();
    out_.clear();
    pending_.Discard();
}

}  // namespace zantor
