#include "plot/plot_frame.h"

#include <gtest/gtest.h>

#include <sstream>

#include "common/errors.h"
#include "core/plot/plot_test_support.h"

namespace zantor {
namespace {

using test::PlotBench;

std::vector<DevicePoint> PolygonPoints(const std::string& line) {
    std::istringstream in(line);
    std::string op;
    std::size_t count = 0;
    in >> op >> count;
    std::vector<DevicePoint> points(count);
    for (DevicePoint& point : points) {
        in >> point.x >> point.y;
    }
    return points;
}

DeviceMapping Mapping(PlotSurface surface, double mmPerUnit, double pageHeight,
                      std::int32_t paintBoxHeight) {
    return {.surface = surface,
            .mmPerUnitX = mmPerUnit,
            .mmPerUnitY = mmPerUnit,
            .pageHeight = pageHeight,
            .paintBoxHeight = paintBoxHeight};
}

TEST(PlotFrameTransform, EachSurfaceMapsLibraryAndPageMillimetresItsOwnWay) {
    // Printer: hundredths of a millimetre, y up from the page's top edge.
    PlotBench printer(Mapping(PlotSurface::Printer, 0.01, 297, 0));
    printer.frame.Place({.corner = {5, 7}, .unitFactor = 0.0254, .scale = 2, .origin = {10, 20}});
    EXPECT_EQ(printer.frame.DevX(1000), 6580);    // (50.8 + 15) mm
    EXPECT_EQ(printer.frame.DevY(1000), -21920);  // 50.8 + 27 - 297 mm
    EXPECT_EQ(printer.frame.PageDevX(100), 10500);
    EXPECT_EQ(printer.frame.PageDevY(290), 0);
    EXPECT_EQ(printer.frame.DevLen(3), 300);

    // Preview window: pixels, y down from the paint box's height.
    PlotBench preview(Mapping(PlotSurface::PreviewWindow, 0.5, 297, 600));
    preview.frame.Place(FrameAt({2, 4}));
    EXPECT_EQ(preview.frame.DevX(10), 24);
    EXPECT_EQ(preview.frame.DevY(10), 572);
    preview.frame.Place({.corner = {2, 4}, .unitFactor = 1, .scale = 1, .origin = {10, 16}});
    EXPECT_EQ(preview.frame.DevX(10), 44);
    EXPECT_EQ(preview.frame.DevY(10), 540);
    EXPECT_EQ(preview.frame.PageDevY(3), 586);
    EXPECT_EQ(preview.frame.DevLen(3), 6);

    // View box: page millimetres as they are, no offset in y.
    PlotBench box(Mapping(PlotSurface::ViewBox, 1, 297, 150));
    box.frame.Place({.corner = {3, 2}, .unitFactor = 1, .scale = 0.5, .origin = {40, 30}});
    EXPECT_EQ(box.frame.DevX(20), 53);
    EXPECT_EQ(box.frame.DevY(20), 108);
    EXPECT_EQ(box.frame.PageDevY(10), 140);
    EXPECT_EQ(box.frame.DevLen(7), 7);
}

TEST(PlotFrameTransform, RoundsHalfWaysToEvenOnEverySurface) {
    PlotBench printer(Mapping(PlotSurface::Printer, 1, 0, 0));
    const PlotFrame& frame = printer.frame;
    EXPECT_EQ(frame.DevX(2.5), 2);
    EXPECT_EQ(frame.DevX(3.5), 4);
    EXPECT_EQ(frame.DevX(-2.5), -2);
    EXPECT_EQ(frame.DevX(2.5000001), 3);
    EXPECT_EQ(frame.DevY(1.5), 2);
    EXPECT_EQ(frame.DevLen(0.5), 0);

    PlotBench preview(Mapping(PlotSurface::PreviewWindow, 0.5, 0, 600));
    EXPECT_EQ(preview.frame.DevY(0.25), 600);      // 599.5
    EXPECT_EQ(preview.frame.DevY(0.75), 598);      // 598.5
    EXPECT_EQ(preview.frame.PageDevY(1.25), 598);  // 597.5
    EXPECT_EQ(preview.frame.DevLen(1.75), 4);

    PlotBench box(Mapping(PlotSurface::ViewBox, 1, 0, 100));
    EXPECT_EQ(box.frame.DevY(0.5), 100);
    EXPECT_EQ(box.frame.PageDevX(1.5), 2);
}

TEST(PlotFrameTransform, CoordinatesBeyondThirtyTwoBitsAreRangeErrors) {
    PlotBench bench(Mapping(PlotSurface::Printer, 1, 0, 0));
    PlotFrame& frame = bench.frame;
    EXPECT_EQ(frame.DevX(2147483647.0), 2147483647);
    EXPECT_EQ(frame.DevX(-2147483648.4), -2147483647 - 1);
    EXPECT_THROW(frame.DevX(2147483647.6), RangeError);
    EXPECT_THROW(frame.DevLen(1e300), RangeError);
    EXPECT_THROW(frame.LineTo(0, 1e12), RangeError);
}

TEST(PlotFramePens, RowZeroFillsEveryGapAndLaterRowsOfTheSameLayerAreConsulted) {
    PlotBench bench;
    PenTableRows& rows = bench.settings.PenTable;
    rows[0].colour[kPenText] = 0x123456;
    rows[1].layer = 1;
    rows[1].colour[kPenText] = 0x0000FF;
    rows[2].layer = 26;
    rows[2].colour[kPenText] = kNotPlotted;
    rows[3].layer = 26;
    rows[3].colour[kPenText] = 0x00FF00;
    rows[4].layer = 7;
    rows[4].colour[kPenText] = kNotPlotted;
    rows[10].layer = 8;  // rows 10 to 12 are never consulted
    rows[10].colour[kPenText] = 0xABCDEF;

    const PlotFrame& frame = bench.frame;
    EXPECT_EQ(frame.PenFor(kPenText, 1), 0x0000FF);
    EXPECT_EQ(frame.PenFor(kPenText, 26), 0x00FF00);
    EXPECT_EQ(frame.PenFor(kPenText, 7), 0x123456);  // "not plotted" on its row is filled in
    EXPECT_EQ(frame.PenFor(kPenText, 5), 0x123456);
    EXPECT_EQ(frame.PenFor(kPenText, 8), 0x123456);
    EXPECT_EQ(frame.PenFor(kPenCopper, 1), kPenCopper);  // row 1 has no copper colour

    rows[0].colour[kPenText] = kNotPlotted;
    EXPECT_EQ(frame.PenFor(kPenText, 7), kNotPlotted);
    EXPECT_THROW(frame.PenFor(0, 1), RangeError);
    EXPECT_THROW(frame.PenFor(12, 1), RangeError);
}

TEST(PlotFramePens, PenWidthNeverGoesBelowTheMinimumLineWidth) {
    PlotBench bench;
    bench.settings.MinLineWidth = 0.2;
    bench.frame.SetPenWidth(0.1);
    EXPECT_EQ(bench.canvas.PenWidth(), 20);
    bench.frame.SetPenWidth(0.35);
    EXPECT_EQ(bench.canvas.PenWidth(), 35);
    bench.frame.SetColour(0x0000FF);
    EXPECT_EQ(bench.canvas.PenColour(), 0x0000FF);
    EXPECT_EQ(bench.canvas.TextColour(), 0x0000FF);
}

TEST(PlotFramePolygon, AlwaysA1024PointBufferPaddedWithTheFirstPoint) {
    PlotBench bench;
    bench.frame.SetColour(0x00FF00);
    bench.frame.SetPenWidth(0.5);
    bench.canvas.SetFillColour(0x0000FF);
    for (int n = 1; n <= 1030; ++n) {
        bench.frame.AddPolygonPoint(n, n, -n);
    }
    bench.frame.FillPolygon();
    const std::string& line = bench.canvas.Lines().at(0);
    EXPECT_NE(line.find(" pen=00FF00/1/solid fill=00FF00/solid"), std::string::npos) << line;
    std::vector<DevicePoint> points = PolygonPoints(line);
    ASSERT_EQ(points.size(), 1024u);
    EXPECT_EQ(points[1023], (DevicePoint{102400, -102400}));
    // The fill colour comes back; the one-unit border stays.
    EXPECT_EQ(bench.canvas.FillColour(), 0x0000FF);
    EXPECT_EQ(bench.canvas.PenWidth(), 1);

    // Point one starts afresh: nothing of the long polygon is left.
    bench.frame.AddPolygonPoint(1, 7, 7);
    bench.frame.AddPolygonPoint(2, 8, 8);
    bench.frame.FillPolygon();
    points = PolygonPoints(bench.canvas.Lines().at(1));
    ASSERT_EQ(points.size(), 1024u);
    EXPECT_EQ(points[1], (DevicePoint{800, 800}));
    for (std::size_t i = 2; i < points.size(); ++i) {
        ASSERT_EQ(points[i], (DevicePoint{700, 700})) << i;
    }
    EXPECT_THROW(bench.frame.AddPolygonPoint(0, 1, 1), RangeError);
}

}  // namespace
}  // namespace zantor
