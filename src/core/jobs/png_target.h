#pragma once

// PNG images, one per page on a white sheet, numbered over the whole job: out-1.png, out-2.png,
// ... The files of a document are put in place when the document ends.

#include <QImage>
#include <filesystem>

#include "jobs/file_output.h"
#include "jobs/output_target.h"
#include "jobs/painter_page.h"
#include "jobs/pending_files.h"

namespace zantor {

class PngTarget final : public OutputTarget {
  public:
    // Fine enough for 0.1 mm lines and small pin numbers; an A4 page is 2480 x 3508 pixels.
    static constexpr int kResolution = 300;

    PngTarget(std::filesystem::path path, PaperSize paper);
    ~PngTarget() override;

    PageMetrics Page() const override;
    QPainter* Painter() override { return page_.Painter(); }

  protected:
    void StartDocument() override;
    void StartPage() override;
    std::vector<std::filesystem::path> FinishDocument() override;
    void DropDocument() noexcept override;

  private:
    void OpenPage();
    void ClosePage();

    std::filesystem::path path_;
    PaperSize paper_;
    std::filesystem::path current_;  // the final name of the open page
    std::filesystem::path temporary_;
    PendingFiles pending_;
    QImage image_;
    PainterPage page_;
};

}  // namespace zantor
