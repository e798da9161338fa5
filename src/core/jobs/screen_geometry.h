#pragma once

// The page geometry of the two on-screen surfaces: the preview window's paint box, laid out like
// a sheet of paper with the user's margins, and the selection dialog's view box, which shows one
// decal alone in the box.

#include "jobs/decal_placement.h"
#include "plot/plot_frame.h"

namespace zantor {

// A paint box on the screen.
struct ScreenBox {
    int width = 0;  // pixels
    int height = 0;
    double dotsPerInchX = 96;
    double dotsPerInchY = 96;
};

// The preview window's paper: the paint box taken as a page of width / dots per inch x 100 mm
// (and the same for the height), without unprintable offsets. That is how the preview has
// always been laid out: a page larger than the screen's inches, so that a whole decal page fits
// the box.
PaperArea PreviewPaper(const ScreenBox& box);
// Its page geometry, with the margins as on paper.
PageGeometry PreviewPageGeometry(const ScreenBox& box, const PageMargins& margins);

// The millimetres of the preview's page per pixel of its paint box, across and down: the page
// of PreviewPageGeometry fills the box.
double PreviewMmPerPixelX(const ScreenBox& box);
double PreviewMmPerPixelY(const ScreenBox& box);

// The view box: 10 pixels of room all round; the rest holds the decal (its "millimetres" are
// the box's pixels).
PageGeometry ViewBoxGeometry(const ScreenBox& box);

// The plot frame's mapping on `surface` for pages of geometry `page`: the printer's 0.01 mm units
// counted from the printable area's top edge, the preview's pixels of the paint box `box` with
// its page filling the box, the view box's pixels taken as millimetres.
DeviceMapping DeviceMappingOf(PlotSurface surface, const PageGeometry& page,
                              const ScreenBox& box = {});

}  // namespace zantor
