#pragma once

// PNG images, one per page on a white sheet, numbered over the whole job: out-1.png, out-2.png,
// ... The files of a document are put in place when the document ends.

#include <QImage>
#include <filesystem>

#include "jobs/page_file_target.h"

namespace zantor {

class PngTarget final : public PageFileTarget {
  public:
    // Fine enough for 0.1 mm lines and small pin numbers; an A4 page is 2480 x 3508 pixels.
    static constexpr int kResolution = 300;

    PngTarget(std::filesystem::path path, PaperSize paper);
    ~PngTarget() override;

  protected:
    QPaintDevice& OpenDevice(const std::filesystem::path& temporary,
                             const PageMetrics& metrics) override;
    bool CloseDevice(const std::filesystem::path& temporary) override;
    void ReleaseDevice() noexcept override { image_ = QImage(); }

  private:
    QImage image_;
};

}  // namespace zantor
