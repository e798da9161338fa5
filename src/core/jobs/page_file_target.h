#pragma once

// Targets that write one file per page, numbered over the whole job: out-1.png, out-2.png, ...
// The files of a document are put in place when the document ends; a dropped document leaves
// none. Subclasses only open and close the paint device of one page.

#include <QPaintDevice>
#include <filesystem>
#include <vector>

#include "jobs/file_output.h"
#include "jobs/output_target.h"
#include "jobs/painter_page.h"
#include "jobs/pending_files.h"

namespace zantor {

class PageFileTarget : public OutputTarget {
  public:
    PageFileTarget(std::filesystem::path path, PaperSize paper, int resolution);

    PageMetrics Page() const override;
    QPainter* Painter() override { return page_.Painter(); }

  protected:
    // The device of a page that will be written to `temporary`.
    virtual QPaintDevice& OpenDevice(const std::filesystem::path& temporary,
                                     const PageMetrics& metrics) = 0;
    // Writes the page; false when it could not be written.
    virtual bool CloseDevice(const std::filesystem::path& temporary) = 0;
    virtual void ReleaseDevice() noexcept = 0;

    void StartDocument() override;
    void StartPage() override;
    std::vector<std::filesystem::path> FinishDocument() override;
    void DropDocument() noexcept override;

    const std::filesystem::path& CurrentFile() const { return current_; }

  private:
    void OpenPage();
    void ClosePage();

    std::filesystem::path path_;
    PaperSize paper_;
    int resolution_;
    std::filesystem::path current_;    // the final name of the open page
    std::filesystem::path temporary_;  // where it is written until the document ends
    PendingFiles pending_;
    PainterPage page_;
};

}  // namespace zantor
