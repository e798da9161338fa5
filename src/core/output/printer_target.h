#pragma once

// The system printer, by its queue name, through the platform's own print path (CUPS on Linux).
// The paper is the printer's default paper; the unprintable borders are the printer's. A document
// is spooled while it is drawn and goes to the printer whole when it ends, so that an aborted
// document prints nothing.

#include <QPageSize>
#include <QPrinter>
#include <string>

#include "output/canvas_spool.h"
#include "output/page_output.h"
#include "output/painter_page.h"

namespace zantor {

class PrinterTarget final : public PageOutput {
  public:
    // An IoError "Printer not found: <queue>" when the print system does not know `queue`.
    // `paper` is the paper chosen for the printer; without one the printer's default paper.
    explicit PrinterTarget(const std::string& queue, const QPageSize& paper = QPageSize());
    ~PrinterTarget() override;

    PageMetrics Page() const override;
    const std::string& Queue() const { return queue_; }

  protected:
    void StartDocument() override;
    void StartPage() override;
    std::vector<std::filesystem::path> FinishDocument() override;
    void DropDocument() noexcept override;

  private:
    std::string queue_;
    QPrinter printer_;
    CanvasSpool spool_;
    PainterPage page_;
};

}  // namespace zantor
