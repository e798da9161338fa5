#include "jobs/svg_target.h"

#include <QRect>
#include <QSize>
#include <utility>

namespace zantor {

SvgTarget::SvgTarget(std::filesystem::path path, PaperSize paper)
    : PageFileTarget(std::move(path), paper, kResolution) {}

SvgTarget::~SvgTarget() {
    DropUnfinished();
}

QPaintDevice& SvgTarget::OpenDevice(const std::filesystem::path& temporary,
                                    const PageMetrics& metrics) {
    const QSize size(metrics.physicalWidth, metrics.physicalHeight);
    generator_ = std::make_unique<QSvgGenerator>();
    generator_->setFileName(PathText(temporary));
    generator_->setTitle(QString::fromLatin1(kDocumentTitle));
    generator_->setResolution(kResolution);
    generator_->setSize(size);
    generator_->setViewBox(QRect(QPoint(0, 0), size));
    return *generator_;
}

}  // namespace zantor
