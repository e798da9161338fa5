#include "jobs/index_layout.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>

#include "common/errors.h"
#include "plot/index_frame.h"

namespace zantor {
namespace {

double FitScale(double room, double extent, double maxScale) {
    return extent == 0 ? maxScale : room / extent;
}

}  // namespace

IndexPageArea IndexPageAreaOf(const PaperArea& paper, const PlotSettings& settings) {
    IndexPageArea area;
    area.page = PageGeometryOf(paper, MarginsOf(settings));
    area.mirroredLeft = std::max(0.0, settings.RightMargin - paper.rightOffset);
    return area;
}

IndexLayout IndexLayoutOf(const PlotSettings& settings, double usableWidth, double usableHeight,
                          std::size_t selectedCount) {
    if (settings.Columns < 1) {
        throw RangeError("Columns out of range: " + std::to_string(settings.Columns));
    }
    if (settings.PartsEachColumn < 1) {
        throw RangeError("Decals per column out of range: " +
                         std::to_string(settings.PartsEachColumn));
    }
    // A cell smaller than this holds neither a decal nor its name. Checked before Columns and
    // PartsEachColumn are multiplied, so that no setting can overflow the product.
    const double commentBand = IndexCommentBand(settings);
    const double cellHeight = (usableHeight - commentBand - kIndexStripHeight - kIndexCellMargin) /
                              settings.PartsEachColumn;
    const double columnWidth = usableWidth / settings.Columns;
    const double cellWidth = (columnWidth - 3 * kIndexCellMargin) * 0.66;
    const long long decalsPerPage =
        static_cast<long long>(settings.Columns) * static_cast<long long>(settings.PartsEachColumn);
    if (!(cellHeight >= kMinIndexCell) || !(cellWidth >= kMinIndexCell) ||
        decalsPerPage > std::numeric_limits<int>::max()) {
        throw RangeError("The index page has no room for " + std::to_string(settings.Columns) +
                         " x " + std::to_string(settings.PartsEachColumn) + " decals");
    }
    IndexLayout layout;
    layout.columns = settings.Columns;
    layout.partsEachColumn = settings.PartsEachColumn;
    layout.decalsPerPage = static_cast<int>(decalsPerPage);
    layout.commentBand = commentBand;
    layout.cellHeight = cellHeight;
    layout.columnWidth = columnWidth;
    layout.cellWidth = cellWidth;
    const std::size_t perPage = static_cast<std::size_t>(layout.decalsPerPage);
    const std::size_t pages = selectedCount / perPage + (selectedCount % perPage != 0 ? 1 : 0);
    if (pages > static_cast<std::size_t>(kMaxIndexPages)) {
        throw RangeError("Too many index pages: " + std::to_string(pages));
    }
    layout.pages = static_cast<int>(pages);
    return layout;
}

double IndexScale(double width, double height, double roomWidth, double roomHeight,
                  const PlotSettings& settings, bool viewBox) {
    const double fill = viewBox ? 1.0 : kIndexCellFill;
    double s = std::min(FitScale(fill * roomWidth, width, settings.MaxScale),
                        FitScale(fill * roomHeight, height, settings.MaxScale));
    if (s >= 1) {
        s = std::min(settings.MaxScale, s);
        if (settings.PrintScale && !viewBox) {
            s = std::floor(s);
        }
    } else if (s > 0 && settings.PrintScale) {
        s = 1 / (std::floor(1 / s) + 1);
    }
    return s;
}

CellPlacement PlaceInCell(const IndexLayout& layout, double usableHeight, int row, int column,
                          const DecalExtents& extents, double unitFactor,
                          const PlotSettings& settings) {
    const bool empty = extents.Empty();
    const double w = empty ? 0.0 : (extents.xmax - extents.xmin) * unitFactor;
    const double h = empty ? 0.0 : (extents.ymax - extents.ymin) * unitFactor;
    const double cx = empty ? 0.0 : (extents.xmin + extents.xmax) / 2;
    const double cy = empty ? 0.0 : (extents.ymin + extents.ymax) / 2;
    CellPlacement placement;
    placement.scale = IndexScale(w, h, layout.cellWidth, layout.cellHeight, settings);
    placement.originX = column * layout.columnWidth - layout.cellWidth / 2 -
                        cx * unitFactor * placement.scale - kIndexCellMargin;
    placement.originY = usableHeight - kIndexCellMargin - (row - 1) * layout.cellHeight -
                        layout.cellHeight / 2 - cy * unitFactor * placement.scale;
    return placement;
}

CellPlacement PlaceInBox(const DecalBox& box, const DecalExtents& extents, double unitFactor,
                         const PlotSettings& settings, bool viewBox) {
    const bool empty = extents.Empty();
    const double w = empty ? 0.0 : (extents.xmax - extents.xmin) * unitFactor;
    const double h = empty ? 0.0 : (extents.ymax - extents.ymin) * unitFactor;
    const double cx = empty ? 0.0 : (extents.xmin + extents.xmax) / 2;
    const double cy = empty ? 0.0 : (extents.ymin + extents.ymax) / 2;
    CellPlacement placement;
    placement.scale = IndexScale(w, h, box.width, box.height, settings, viewBox);
    placement.originX = box.centreX - cx * unitFactor * placement.scale;
    placement.originY = box.centreY - cy * unitFactor * placement.scale;
    return placement;
}

}  // namespace zantor
