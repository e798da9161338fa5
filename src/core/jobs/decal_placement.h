#pragma once

// Where a decal page goes on the paper and at what scale the decal is drawn on it. The numbers
// are worked out here as plain functions of millimetres; a thin adapter reads them off a Qt
// paged device (printer or PDF writer).

#include "output/paper.h"
#include "plot/extents.h"
#include "plot/plot_frame.h"
#include "shell/plot_settings.h"

namespace zantor {

// The margins the user asked for, from the sheet's edges (LeftMargin ... in the settings).
struct PageMargins {
    double left = 0;
    double right = 0;
    double top = 0;
    double bottom = 0;
};

PageMargins MarginsOf(const PlotSettings& settings);

// The drawing area of a page, in millimetres from the printable area's corner; the frame of a
// decal page fills it (W = usableWidth, H = usableHeight).
struct PageGeometry {
    double pageWidth = 0;   // printable width
    double pageHeight = 0;  // printable height: where the printer's y counts from
    double left = 0;        // left edge of the drawing area
    double bottom = 0;      // bottom edge, with room for the footer under the frame
    double usableWidth = 0;
    double usableHeight = 0;
};

// A margin counts only beyond the unprintable offset on its side; the bottom keeps 3 mm more for
// the footer line under the frame.
PageGeometry PageGeometryOf(const PaperArea& paper, const PageMargins& margins);

// Less than this much of the paper between the margins (millimetres) is no page to draw on.
inline constexpr double kMinUsablePage = 20.0;

// A RangeError naming the two margins of the side where `page` keeps less than kMinUsablePage.
void CheckPageRoom(const PageGeometry& page, const PlotSettings& settings);

// The whole-number scale of a decal that would just fit at `fit`: enlargements are cut to their
// whole part and to `maxScale` (never below 1), reductions become 1 : n with a whole n that is
// always larger than the exact fit needs.
double WholeScale(double fit, double maxScale);

// What fits the decal on its page.
struct DecalArea {
    double usableWidth = 0;
    double usableHeight = 0;
    double xBorder = 0;
    double yBorder = 0;
    int attributeLines = 0;  // listed at the top of the page (ListedAttributeCount)
};

struct DecalFit {
    double scale = 1;
    // The decal origin in page millimetres from the frame's bottom-left corner.
    double originX = 0;
    double originY = 0;
    double drawingHeight = 0;  // the height the decal is fitted into
};

// The decal fitted into the frame above the title block, between the inner borders and below the
// listed attributes, and centred there. Extents are in library units; empty extents count as a
// single point at the decal origin.
DecalFit PlaceDecal(const DecalArea& area, const DecalExtents& extents, double unitFactor,
                    double maxScale);

// The decal fitted into a whole box of `width` x `height` mm and centred in it (the view box of
// the selection dialog).
DecalFit PlaceDecalInBox(double width, double height, const DecalExtents& extents,
                         double unitFactor, double maxScale);

// The frame's placement for a decal page: the frame's corner at the drawing area's corner, the
// decal as `fit` places it, its library units `unitFactor` mm long.
DecalPlacement PlacementOnPage(const PageGeometry& page, const DecalFit& fit, double unitFactor);

}  // namespace zantor
