#pragma once

// PDF files: a printer document is a PDF document, its pages the PDF's pages; texts stay text.

#include <QPdfWriter>
#include <filesystem>
#include <memory>
#include <optional>

#include "output/checked_file.h"
#include "output/file_output.h"
#include "output/heap_reuse.h"
#include "output/page_output.h"
#include "output/painter_page.h"
#include "output/paper.h"
#include "output/pending_files.h"

namespace zantor {

class PdfTarget final : public PageOutput {
  public:
    // PDF pages are laid out at this many device pixels per inch.
    static constexpr int kResolution = 1200;

    PdfTarget(std::filesystem::path path, PaperSize paper, DocumentFiles files);
    ~PdfTarget() override;

    PageMetrics Page() const override;
    QPainter* Painter() override { return page_.Painter(); }

  protected:
    void StartDocument() override;
    void StartPage() override;
    std::vector<std::filesystem::path> FinishDocument() override;
    void DropDocument() noexcept override;

  private:
    std::filesystem::path path_;
    PaperSize paper_;
    DocumentFiles files_;
    std::filesystem::path current_;    // the final name of the open document
    std::filesystem::path temporary_;  // where it is written meanwhile
    PendingFiles pending_;
    // From the first document to the end of the job.
    std::optional<HeapReuse> heapReuse_;
    // The writer writes into the file, so it goes first.
    std::unique_ptr<CheckedFile> file_;
    std::unique_ptr<QPdfWriter> writer_;
    PainterPage page_;
};

}  // namespace zantor
