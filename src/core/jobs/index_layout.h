#pragma once

// The geometry of an index run: the cells of a page, how many pages the selection takes, and how
// one decal is fitted into its cell. All lengths are page millimetres.

#include <cstddef>

#include "jobs/decal_placement.h"
#include "plot/extents.h"
#include "shell/plot_settings.h"

namespace zantor {

// The cells keep this far from the frame's top and from their column's right edge.
inline constexpr double kIndexCellMargin = 3.0;
// A decal fills at most this part of its cell's width and height.
inline constexpr double kIndexCellFill = 0.8;
inline constexpr int kMaxIndexPages = 65535;
// The smallest cell height and decal width an index page is laid out with, in millimetres.
inline constexpr double kMinIndexCell = 2.0;

// Where the pages of an index run are drawn: the drawing area of the page geometry, and the
// left edge that even pages take instead when MirrorMargin binds them on the other side.
struct IndexPageArea {
    PageGeometry page;
    double mirroredLeft = 0;
};

// The page geometry of `paper` with the settings' margins; even pages' left edge from the right
// margin.
IndexPageArea IndexPageAreaOf(const PaperArea& paper, const PlotSettings& settings);

struct IndexLayout {
    int columns = 1;
    int partsEachColumn = 1;
    int decalsPerPage = 1;
    int pages = 0;
    double commentBand = 0;  // b: the general comment's height above the strip
    double cellHeight = 0;
    double columnWidth = 0;
    double cellWidth = 0;  // the right-hand part of a column that holds the decal
};

// The cells of `usableWidth` x `usableHeight` pages for `selectedCount` decals. A RangeError when
// Columns or PartsEachColumn is below 1, when the cells get no room (less than kMinIndexCell), or
// when the run would take more than 65535 pages.
IndexLayout IndexLayoutOf(const PlotSettings& settings, double usableWidth, double usableHeight,
                          std::size_t selectedCount);

// The scale of a decal `width` x `height` mm drawn in a room of `roomWidth` x `roomHeight` mm:
// as large as fits, at most MaxScale. With PrintScale, so that the scale printed under the name
// reads n : 1 or 1 : n with a whole n, enlargements are cut to their whole part (not in the view
// box, which prints no scale) and reductions become 1 : n with n above the exact fit.
double IndexScale(double width, double height, double roomWidth, double roomHeight,
                  const PlotSettings& settings, bool viewBox = false);

struct CellPlacement {
    double scale = 1;
    // The decal origin in page millimetres from the frame's bottom-left corner.
    double originX = 0;
    double originY = 0;
};

// The decal of `extents` (library units) fitted into the cell of `row` and `column` (from 1) and
// centred in the cell's right-hand part, its name's part of the column staying free. Empty
// extents count as a single point at the decal origin.
CellPlacement PlaceInCell(const IndexLayout& layout, double usableHeight, int row, int column,
                          const DecalExtents& extents, double unitFactor,
                          const PlotSettings& settings);

// A box of the page that a decal is fitted into, in page millimetres from the frame's
// bottom-left corner.
struct DecalBox {
    double centreX = 0;
    double centreY = 0;
    double width = 0;
    double height = 0;
};

// The decal of `extents` (library units) fitted into `box` as an index cell fits it (IndexScale,
// `viewBox` as there) and centred on the box. For pages that draw decals in boxes of their own.
CellPlacement PlaceInBox(const DecalBox& box, const DecalExtents& extents, double unitFactor,
                         const PlotSettings& settings, bool viewBox = false);

}  // namespace zantor
