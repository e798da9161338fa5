#include "jobs/screen_geometry.h"

namespace zantor {
namespace {

// The preview counts a page's width in hundredths of the screen's inches.
constexpr double kPreviewMmPerInch = 100.0;
// The view box keeps this many pixels free on each side.
constexpr double kViewBoxRoom = 10.0;
// The printer's device unit in millimetres.
constexpr double kPrinterMmPerUnit = 0.01;

double PreviewMillimetres(int pixels, double dotsPerInch) {
    return dotsPerInch > 0 ? pixels / dotsPerInch * kPreviewMmPerInch : 0.0;
}

}  // namespace

PaperArea PreviewPaper(const ScreenBox& box) {
    PaperArea paper;
    paper.width = PreviewMillimetres(box.width, box.dotsPerInchX);
    paper.height = PreviewMillimetres(box.height, box.dotsPerInchY);
    return paper;
}

PageGeometry PreviewPageGeometry(const ScreenBox& box, const PageMargins& margins) {
    return PageGeometryOf(PreviewPaper(box), margins);
}

double PreviewMmPerPixelX(const ScreenBox& box) {
    return box.dotsPerInchX > 0 ? kPreviewMmPerInch / box.dotsPerInchX : 1.0;
}

double PreviewMmPerPixelY(const ScreenBox& box) {
    return box.dotsPerInchY > 0 ? kPreviewMmPerInch / box.dotsPerInchY : 1.0;
}

PageGeometry ViewBoxGeometry(const ScreenBox& box) {
    PageGeometry page;
    page.pageWidth = box.width;
    page.pageHeight = box.height;
    page.left = kViewBoxRoom;
    page.bottom = kViewBoxRoom;
    page.usableWidth = box.width - 2 * kViewBoxRoom;
    page.usableHeight = box.height - 2 * kViewBoxRoom;
    return page;
}

DeviceMapping DeviceMappingOf(PlotSurface surface, const PageGeometry& page, const ScreenBox& box) {
    DeviceMapping mapping;
    mapping.surface = surface;
    mapping.pageHeight = page.pageHeight;
    switch (surface) {
        case PlotSurface::Printer:
            mapping.mmPerUnitX = kPrinterMmPerUnit;
            mapping.mmPerUnitY = kPrinterMmPerUnit;
            break;
        case PlotSurface::PreviewWindow:
            mapping.mmPerUnitX = PreviewMmPerPixelX(box);
            mapping.mmPerUnitY = PreviewMmPerPixelY(box);
            mapping.paintBoxHeight = box.height;
            break;
        case PlotSurface::ViewBox:
            mapping.mmPerUnitX = 1;
            mapping.mmPerUnitY = 1;
            mapping.paintBoxHeight = box.height;
            break;
    }
    return mapping;
}

}  // namespace zantor
