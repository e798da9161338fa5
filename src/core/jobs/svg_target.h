#pragma once

// SVG files, one per page, numbered over the whole job: out-1.svg, out-2.svg, ... The files of a
// document are put in place when the document ends.

#include <QSvgGenerator>
#include <filesystem>
#include <memory>

#include "jobs/file_output.h"
#include "jobs/output_target.h"
#include "jobs/painter_page.h"
#include "jobs/pending_files.h"

namespace zantor {

class SvgTarget final : public OutputTarget {
  public:
    // 254 pixels per inch makes a pixel 0.1 mm, so every paper size is a whole number of them.
    static constexpr int kResolution = 254;

    SvgTarget(std::filesystem::path path, PaperSize paper);
    ~SvgTarget() override;

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
    PendingFiles pending_;
    std::unique_ptr<QSvgGenerator> generator_;
    PainterPage page_;
};

}  // namespace zantor
