#include "output/canvas_spool.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "plot/recording_canvas.h"

namespace zantor {
namespace {

// One call of every kind, each with its own pen, fill and text state.
void DrawEverything(PlotCanvas& canvas) {
    canvas.SetPenColour(0x0000FF);
    canvas.SetPenWidth(25);
    canvas.MoveTo(-5, 7);
    canvas.LineTo(2147483647, -2147483647 - 1);
    canvas.SetPenStyle(PenStyle::DashDot);
    canvas.Arc(1, 2, 3, 4, 5, 6, 7, 8);
    canvas.SetFillColour(0x123456);
    canvas.SetFillStyle(FillStyle::None);
    canvas.RoundRect(-10, -20, 30, 40, 5, 6);
    const std::array<DevicePoint, 3> corners{{{0, 0}, {100, 0}, {50, -80}}};
    canvas.SetFillStyle(FillStyle::Solid);
    canvas.Polygon(corners);
    canvas.Polygon({});
    canvas.SetTextColour(0x00FF00);
    canvas.Text(300, -400, "R1 \"x\"\x01", "Liberation Sans", 280, TextAlign::Centre);
    canvas.Text(0, 0, "", "", 0, TextAlign::Right);
}

TEST(CanvasSpool, PlaysBackEveryCallWithItsStateAndThePageBreaksOfTheOpenSpoolOnly) {
    RecordingCanvas direct;
    DrawEverything(direct);
    direct.MoveTo(1, 1);
    DrawEverything(direct);

    CanvasSpool spool;
    spool.MoveTo(9, 9);  // not open: dropped
    spool.Open();
    spool.MoveTo(3, 4);
    spool.Open();  // a new spool
    DrawEverything(spool);
    spool.PageBreak();
    DrawEverything(spool);
    RecordingCanvas played;
    spool.Replay(played, [&] { played.MoveTo(1, 1); });  // stands for the page break
    EXPECT_EQ(played.Lines(), direct.Lines());
    spool.Close();
    RecordingCanvas none;
    spool.Replay(none, [] {});
    EXPECT_TRUE(none.Lines().empty());
}

}  // namespace
}  // namespace zantor
