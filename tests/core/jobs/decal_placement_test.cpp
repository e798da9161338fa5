#include "jobs/decal_placement.h"
#include "support/recording_messages.h"

#include <gtest/gtest.h>

#include <QMarginsF>
#include <QPageLayout>
#include <QPageSize>

#include "common/user_messages.h"
#include "jobs/screen_geometry.h"
#include "plot/recording_canvas.h"

namespace zantor {
namespace {

DecalExtents Box(double xmin, double ymin, double xmax, double ymax) {
    DecalExtents extents;
    extents.Widen(xmin, ymin);
    extents.Widen(xmax, ymax);
    return extents;
}

// A portrait A4 drawing area as the default margins leave it: 180 x 260 mm, 20 mm borders.
DecalArea A4Area(int attributeLines = 0) {
    return {180, 260, 20, 20, attributeLines};
}

TEST(WholeScale, EnlargementsAreWholeAndCappedReductionsAreOneToN) {
    const struct {
        double fit, cap, scale;
    } cases[] = {
        {3.7, 10, 3},          {42, 10, 10},       {3.7, 2.5, 2},
        {3.7, 0.5, 1},  // a cap below 1 would make an enlargement a reduction
        {0.3, 10, 1.0 / 4},    {0.5, 10, 1.0 / 3},  // exactly 1 : 2 still becomes 1 : 3
        {0.9999, 10, 1.0 / 2}, {0, 10, 1},         {-4, 10, 1},
    };
    for (const auto& c : cases) {
        EXPECT_DOUBLE_EQ(WholeScale(c.fit, c.cap), c.scale) << c.fit << " capped at " << c.cap;
    }
}

TEST(PlaceDecal, FitsTheDecalBetweenTheBordersAboveTheTitleBlock) {
    // 400 x 500 mils = 10.16 x 12.7 mm: (180 - 40) / 10.16 = 13.8 across, (260 - 40 - 100) /
    // 12.7 = 9.45 up, so 9 : 1.
    const DecalFit centred = PlaceDecal(A4Area(), Box(-200, -250, 200, 250), 0.0254, 10);
    EXPECT_EQ(centred.scale, 9);
    EXPECT_DOUBLE_EQ(centred.drawingHeight, 120);
    EXPECT_DOUBLE_EQ(centred.originX, 90);
    EXPECT_DOUBLE_EQ(centred.originY, 180);  // half of 260, and 50 up into the drawing area

    // Off-centre extents move the origin so that their middle lands in the same place.
    const DecalFit moved = PlaceDecal(A4Area(), Box(0, -100, 400, 400), 0.0254, 10);
    EXPECT_DOUBLE_EQ(moved.originX, 90 - 200 * 0.0254 * 9);
    EXPECT_DOUBLE_EQ(moved.originY, 180 - 150 * 0.0254 * 9);

    // Listed attributes take 4 mm each from the top: 120 mm high fits 1 : 1 in 120 mm of room,
    // 1 : 2 in the 108 mm that three leave.
    const DecalExtents tall = Box(-5, -60, 5, 60);
    EXPECT_EQ(PlaceDecal(A4Area(), tall, 1.0, 10).scale, 1);
    const DecalFit listed = PlaceDecal(A4Area(3), tall, 1.0, 10);
    EXPECT_DOUBLE_EQ(listed.drawingHeight, 108);
    EXPECT_DOUBLE_EQ(listed.scale, 0.5);
    EXPECT_DOUBLE_EQ(listed.originY, 180 - 6);

    // 600 mm across 140 mm of room needs 0.233: drawn at 1 : 5.
    EXPECT_DOUBLE_EQ(PlaceDecal(A4Area(), Box(-300, -10, 300, 10), 1.0, 10).scale, 0.2);
}

TEST(PlaceDecal, PointsAndTinyDecalsAreDrawnAtTheLargestScale) {
    EXPECT_EQ(PlaceDecal(A4Area(), Box(3, 4, 3, 4), 1.0, 10).scale, 10);
    const DecalFit empty = PlaceDecal(A4Area(), DecalExtents{}, 1.0, 7);
    EXPECT_EQ(empty.scale, 7);
    EXPECT_DOUBLE_EQ(empty.originX, 90);
    EXPECT_DOUBLE_EQ(empty.originY, 180);
    // A line along x only: its height does not limit it.
    EXPECT_EQ(PlaceDecal(A4Area(), Box(0, 0, 50, 0), 1.0, 10).scale, 2);
}

TEST(PlaceDecal, ViewBoxCentresInTheWholeBox) {
    const DecalFit box = PlaceDecalInBox(100, 80, Box(0, 0, 20, 10), 1.0, 10);
    EXPECT_EQ(box.scale, 5);
    EXPECT_DOUBLE_EQ(box.originX, 50 - 10 * 5);
    EXPECT_DOUBLE_EQ(box.originY, 40 - 5 * 5);
}

TEST(PageGeometry, MarginsCountBeyondTheUnprintableOffsets) {
    // A4 with 5 mm unprintable all round, and the default margins (left 12, the others 6).
    const PageGeometry page = PageGeometryOf({200, 287, 5, 5, 5, 5}, {12, 6, 6, 6});
    EXPECT_DOUBLE_EQ(page.left, 7);
    EXPECT_DOUBLE_EQ(page.bottom, 1 + 3);
    EXPECT_DOUBLE_EQ(page.usableWidth, 200 - 7 - 1);
    EXPECT_DOUBLE_EQ(page.usableHeight, 287 - 1 - 4);

    // Margins inside the unprintable area count as none; the footer keeps its 3 mm.
    const PageGeometry tight = PageGeometryOf({200, 287, 8, 9, 10, 11}, {2, 2, 2, 2});
    EXPECT_DOUBLE_EQ(tight.left, 0);
    EXPECT_DOUBLE_EQ(tight.bottom, 3);
    EXPECT_DOUBLE_EQ(tight.usableWidth, 200);
    EXPECT_DOUBLE_EQ(tight.usableHeight, 284);

    const PaperArea paper =
        PaperAreaOf(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait,
                                QMarginsF(5, 6, 7, 8), QPageLayout::Millimeter));
    EXPECT_NEAR(paper.width, 198, 1e-9);
    EXPECT_NEAR(paper.height, 283, 1e-9);
    EXPECT_NEAR(paper.leftOffset, 5, 1e-9);
    EXPECT_NEAR(paper.topOffset, 6, 1e-9);
    EXPECT_NEAR(paper.rightOffset, 7, 1e-9);
    EXPECT_NEAR(paper.bottomOffset, 8, 1e-9);
}

TEST(PageGeometry, PlacementSetsTheFrameForThePrinterMapping) {
    PlotSettings settings;
    RecordingCanvas canvas;
    RecordingMessages messages;
    const PageGeometry page = PageGeometryOf({210, 297, 0, 0, 0, 0}, {12, 6, 6, 6});
    PlotFrame frame(canvas, DeviceMappingOf(PlotSurface::Printer, page), settings, messages);
    const DecalFit fit = PlaceDecal({page.usableWidth, page.usableHeight, 20, 20, 0},
                                    Box(-200, -250, 200, 250), 0.0254, 10);
    frame.Place(PlacementOnPage(page, fit, 0.0254));
    EXPECT_EQ(frame.Placement().scale, fit.scale);
    // The decal origin in the middle of the drawing area: 12 + 192 / 2 mm from the paper's left
    // edge, and (282 / 2 + 50) + 9 mm from its bottom edge, on the printer's y-up mapping.
    EXPECT_EQ(frame.DevX(0), 10800);
    EXPECT_EQ(frame.DevY(0), -(29700 - 20000));
    // The frame's corner.
    EXPECT_EQ(frame.PageDevX(0), 1200);
    EXPECT_EQ(frame.PageDevY(0), -(29700 - 900));
}

}  // namespace
}  // namespace zantor
