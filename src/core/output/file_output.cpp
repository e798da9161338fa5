#include "output/file_output.h"

#include <cmath>
#include <system_error>

namespace zantor {
namespace {

int DevicePixels(double millimetres, int dotsPerInch) {
    return static_cast<int>(std::lround(millimetres / 25.4 * dotsPerInch));
}

}  // namespace

PageMetrics FilePageMetrics(PaperSize paper, int dotsPerInch) {
    const PaperMillimetres size = PaperSizeMillimetres(paper);
    PageMetrics metrics;
    metrics.widthMm = size.width;
    metrics.heightMm = size.height;
    metrics.physicalWidth = DevicePixels(size.width, dotsPerInch);
    metrics.physicalHeight = DevicePixels(size.height, dotsPerInch);
    metrics.pixelsPerInchX = dotsPerInch;
    metrics.pixelsPerInchY = dotsPerInch;
    return metrics;
}

QPageSize PageSizeOf(PaperSize paper) {
    switch (paper) {
        case PaperSize::A4:
            return QPageSize(QPageSize::A4);
        case PaperSize::A3:
            return QPageSize(QPageSize::A3);
        case PaperSize::Letter:
            return QPageSize(QPageSize::Letter);
        case PaperSize::Legal:
            return QPageSize(QPageSize::Legal);
    }
    return QPageSize(QPageSize::A4);
}

void RemoveLaterNumberedFiles(const std::filesystem::path& path, int from) noexcept {
    try {
        for (int n = from; n > 0; ++n) {
            std::error_code error;
            const std::filesystem::path numbered = NumberedPath(path, n);
            if (!std::filesystem::is_regular_file(numbered, error)) {
                return;
            }
            std::filesystem::remove(numbered, error);
        }
    } catch (...) {
        // Out of memory: the job's own files are in place; older ones stay.
    }
}

QString PathText(const std::filesystem::path& path) {
    return QString::fromStdU16String(path.u16string());
}

}  // namespace zantor
