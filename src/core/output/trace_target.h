#pragma once

// Trace files: every drawing call of a document as the recording canvas writes it, each page
// introduced by a line "page N" (N counting the document's pages from 1). With numbered
// documents every document is a file of its own, as with PDF.

#include <filesystem>
#include <fstream>

#include "output/file_output.h"
#include "output/page_output.h"
#include "output/pending_files.h"
#include "plot/recording_canvas.h"

namespace zantor {

class TraceTarget final : public PageOutput {
  public:
    // The trace's device numbers are those of a printer of this resolution on `paper`.
    static constexpr int kResolution = 1200;

    TraceTarget(std::filesystem::path path, PaperSize paper, DocumentFiles files);
    ~TraceTarget() override;

    PageMetrics Page() const override;

  protected:
    void StartDocument() override;
    void StartPage() override;
    std::vector<std::filesystem::path> FinishDocument() override;
    void DropDocument() noexcept override;

  private:
    // Writes the recorded lines of the page so far, so that memory holds one page at most.
    void Flush();

    std::filesystem::path path_;
    PaperSize paper_;
    DocumentFiles files_;
    std::filesystem::path current_;  // the final name of the open document
    PendingFiles pending_;
    std::ofstream out_;
    RecordingCanvas recorder_;
};

}  // namespace zantor
