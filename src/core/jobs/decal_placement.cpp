#include "jobs/decal_placement.h"

#include <QPageLayout>
#include <QPagedPaintDevice>
#include <algorithm>
#include <cmath>
#include <string>

#include "common/errors.h"
#include "plot/decal_page.h"
#include "shell/settings_numbers.h"

namespace zantor {
namespace {

// Room under the frame for its footer line.
constexpr double kFooterRoom = 3.0;
// The drawing area starts this far above the frame's bottom: title block, pad-stack table and
// the 1:1 view stand below it.
constexpr double kDrawingAreaBottom = 100.0;

struct Centre {
    double x = 0;
    double y = 0;
};

Centre CentreOf(const DecalExtents& extents) {
    if (extents.Empty()) {
        return {};
    }
    return {(extents.xmin + extents.xmax) / 2, (extents.ymin + extents.ymax) / 2};
}

// The scale that fits a length of `extent` mm into `room` mm; a decal without length in that
// direction fits at any scale, so the largest allowed one.
double FitScale(double room, double extent, double maxScale) {
    return extent == 0 ? maxScale : room / extent;
}

}  // namespace

PageMargins MarginsOf(const PlotSettings& settings) {
    return {settings.LeftMargin, settings.RightMargin, settings.TopMargin, settings.BotMargin};
}

PageGeometry PageGeometryOf(const PaperArea& paper, const PageMargins& margins) {
    PageGeometry page;
    page.pageWidth = paper.width;
    page.pageHeight = paper.height;
    page.left = std::max(0.0, margins.left - paper.leftOffset);
    page.bottom = std::max(0.0, margins.bottom - paper.bottomOffset) + kFooterRoom;
    page.usableWidth = paper.width - page.left - std::max(0.0, margins.right - paper.rightOffset);
    page.usableHeight = paper.height - std::max(0.0, margins.top - paper.topOffset) - page.bottom;
    return page;
}

void CheckPageRoom(const PageGeometry& page, const PlotSettings& settings) {
    const auto refuse = [&](const char* first, double a, const char* second, double b,
                            double sheet) {
        throw RangeError("The margins leave no room on the paper: \"General/" + std::string(first) +
                         "\" " + FormatSettingsReal(a) + " and \"General/" + second + "\" " +
                         FormatSettingsReal(b) + " on a sheet of " + FormatSettingsReal(sheet) +
                         " mm");
    };
    if (!(page.usableWidth >= kMinUsablePage)) {
        refuse("LeftMargin", settings.LeftMargin, "RightMargin", settings.RightMargin,
               page.pageWidth);
    }
    if (!(page.usableHeight >= kMinUsablePage)) {
        refuse("TopMargin", settings.TopMargin, "BotMargin", settings.BotMargin, page.pageHeight);
    }
}

double WholeScale(double fit, double maxScale) {
    if (!(fit > 0)) {
        return 1.0;  // no room at all: nothing fits, so draw life size
    }
    if (fit >= 1) {
        return std::max(1.0, std::floor(std::min(maxScale, fit)));
    }
    const double reduced = 1 / (std::floor(1 / fit) + 1);
    return reduced > 0 ? reduced : 1.0;
}

DecalFit PlaceDecal(const DecalArea& area, const DecalExtents& extents, double unitFactor,
                    double maxScale) {
    const double w = extents.Empty() ? 0.0 : (extents.xmax - extents.xmin) * unitFactor;
    const double h = extents.Empty() ? 0.0 : (extents.ymax - extents.ymin) * unitFactor;
    const double listed = kListLinePitch * area.attributeLines;
    DecalFit placement;
    placement.drawingHeight = area.usableHeight - 2 * area.yBorder - kDrawingAreaBottom - listed;
    const double scaleX = FitScale(area.usableWidth - 2 * area.xBorder, w, maxScale);
    const double scaleY = FitScale(placement.drawingHeight, h, maxScale);
    placement.scale = WholeScale(std::min(scaleX, scaleY), maxScale);

    // Centred between the borders, and in height in the area above the drawing area's bottom
    // (half of it is 50 mm above the frame's middle) and below the listed attributes.
    const Centre centre = CentreOf(extents);
    placement.originX = area.usableWidth / 2 - centre.x * unitFactor * placement.scale;
    placement.originY = area.usableHeight / 2 - listed / 2 -
                        centre.y * unitFactor * placement.scale + kDrawingAreaBottom / 2;
    return placement;
}

DecalFit PlaceDecalInBox(double width, double height, const DecalExtents& extents,
                         double unitFactor, double maxScale) {
    const double w = extents.Empty() ? 0.0 : (extents.xmax - extents.xmin) * unitFactor;
    const double h = extents.Empty() ? 0.0 : (extents.ymax - extents.ymin) * unitFactor;
    DecalFit placement;
    placement.drawingHeight = height;
    placement.scale =
        WholeScale(std::min(FitScale(width, w, maxScale), FitScale(height, h, maxScale)), maxScale);
    const Centre centre = CentreOf(extents);
    placement.originX = width / 2 - centre.x * unitFactor * placement.scale;
    placement.originY = height / 2 - centre.y * unitFactor * placement.scale;
    return placement;
}

DecalPlacement PlacementOnPage(const PageGeometry& page, const DecalFit& fit, double unitFactor) {
    return {.corner = {page.left, page.bottom},
            .unitFactor = unitFactor,
            .scale = fit.scale,
            .origin = {fit.originX, fit.originY}};
}

}  // namespace zantor
