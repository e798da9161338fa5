#include "jobs/png_target.h"

#include <cmath>
#include <utility>

#include "common/errors.h"

namespace zantor {

PngTarget::PngTarget(std::filesystem::path path, PaperSize paper)
    : PageFileTarget(std::move(path), paper, kResolution) {}

PngTarget::~PngTarget() {
    DropUnfinished();
}

QPaintDevice& PngTarget::OpenDevice(const std::filesystem::path& /*temporary*/,
                                    const PageMetrics& metrics) {
    image_ = QImage(metrics.physicalWidth, metrics.physicalHeight, QImage::Format_RGB32);
    if (image_.isNull()) {
        throw IoError("Not enough memory for the page image", CurrentFile().string());
    }
    const int dotsPerMetre = static_cast<int>(std::lround(kResolution / 0.0254));
    image_.setDotsPerMeterX(dotsPerMetre);
    image_.setDotsPerMeterY(dotsPerMetre);
    image_.fill(Qt::white);
    return image_;
}

bool PngTarget::CloseDevice(const std::filesystem::path& temporary) {
    return image_.save(PathText(temporary), "PNG");
}

}  // namespace zantor
