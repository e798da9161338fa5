#pragma once

// SVG files, one per page, numbered over the whole job: out-1.svg, out-2.svg, ... The files of a
// document are put in place when the document ends.

#include <QSvgGenerator>
#include <filesystem>
#include <memory>

#include "jobs/page_file_target.h"

namespace zantor {

class SvgTarget final : public PageFileTarget {
  public:
    // 254 pixels per inch makes a pixel 0.1 mm, so every paper size is a whole number of them.
    static constexpr int kResolution = 254;

    SvgTarget(std::filesystem::path path, PaperSize paper);
    ~SvgTarget() override;

  protected:
    QPaintDevice& OpenDevice(const std::filesystem::path& temporary,
                             const PageMetrics& metrics) override;
    // The generator writes its file when painting ends.
    bool CloseDevice(const std::filesystem::path& /*temporary*/) override { return true; }
    void ReleaseDevice() noexcept override { generator_.reset(); }

  private:
    std::unique_ptr<QSvgGenerator> generator_;
};

}  // namespace zantor
