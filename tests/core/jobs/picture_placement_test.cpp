// Where the picture of a decal lands on the page: decals whose pads, finger pads, texts and pin
// numbers reach far beyond their outline are printed through the whole job to a trace, and the
// box of everything drawn in the decal's pens must lie inside the room the page gives the decal
// and in its middle, on decal pages, in index cells, in the 1:1 view and in the selection
// dialog's view box.

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "font/font_location.h"
#include "jobs/index_layout.h"
#include "jobs/print_job.h"
#include "jobs/screen_pages.h"
#include "output/trace_target.h"
#include "plot/decal_page.h"
#include "support/page_test_support.h"
#include "support/recording_messages.h"
#include "support/test_support.h"
#include "support/trace_boxes.h"

namespace zantor {
namespace {

using test::Box;

// Millimetre decals whose outline holds only part of what they draw (fingers of version 4 files
// run upright at 0 degrees).
//  BUZZER:  a 12 mm square outline, its two oval fingers reaching 6 mm above and 4 mm below it.
//  FINGERS: a 2 mm square package with a row of fingers sticking out of its left side only.
//  TEXTS:   a 10 x 4 mm outline, a text turned upright far to its right and a mirrored one running
//           left below it.
//  PINS:    a 4 mm square with two round pads; the number of pin 1 moved far up and left.
const char* const kLibrary = R"(*PADS-LIBRARY-PCB-DECALS-V4*

BUZZER M 0 0 0 0 1 0 2 2
CLOSED 5 0.2 26
-6 -6
6 -6
6 6
-6 6
-6 -6
T0 6 0 6 1
T0 -6 0 -6 2
PAD 1 1 P 0 0 0 0
-2 2 OF 0 8 2
PAD 2 1 P 0 0 0 0
-2 2 OF 0 8 0

FINGERS M 0 0 0 0 1 0 4 1
CLOSED 5 0.1 26
-1 -1
1 -1
1 1
-1 1
-1 -1
T-1 0.75 -1 0.75 1
T-1 0.25 -1 0.25 2
T-1 -0.25 -1 -0.25 3
T-1 -0.75 -1 -0.75 4
PAD 0 1 P 0 0 0 0
-2 0.3 RF 90 0.8 0.6

TEXTS M 0 0 0 0 1 2 0 0
CLOSED 5 0.1 26
-5 -2
5 -2
5 2
-5 2
-5 -2
20 5 90 26 2 0.15 N
FAR-AWAY
-8 -6 0 26 1.5 0.1 M
MIRRORED

PINS M 0 0 0 0 1 0 2 1
CLOSED 5 0.1 26
-2 -2
2 -2
2 2
-2 2
-2 -2
T-1 0 -9 4 1
T1 0 1 0 2
PAD 0 1 P 0 0 0 0
-2 1 R

*END*
)";

const std::vector<std::string> kDecals = {"BUZZER", "FINGERS", "TEXTS", "PINS"};

// Everything of the decal is drawn red, the frame and title block black.
constexpr const char* kDecalColour = "0000FF";
constexpr const char* kFormColour = "000000";

// Page millimetres are hundredths on the trace.
constexpr double kUnitsPerMm = 100;

struct PlacementBench {
    test::TempDir dir;
    std::filesystem::path library = dir.WriteFile("outside.d", kLibrary);
    PlotContext context;
    RecordingMessages messages;

    PlacementBench() {
        test::App();
        PlotSettings& settings = context.PlotSettings;
        settings.Inputfile = library.string();
        for (int kind = 1; kind <= kPenKinds; ++kind) {
            settings.PenTable[0].colour[kind] = kind <= kPenPinNo ? 0x0000FF : 0;
        }
        settings.MaxScale = 100;
        settings.PlotPadstack = false;
        settings.PlotOrigins = false;
        settings.PlotPinNo = true;
        settings.PinNoStyle = 'A';
        settings.ScalePinNo = false;
        settings.PinNoSize = 2;
        EXPECT_TRUE(context.StrokeFont.Load(ResolveFontfile("romans.fnt").string(), messages));
    }

    // The lines of the one page that `name` is printed on as `kind`.
    std::vector<std::string> Page(PlotKind kind, const std::string& name) {
        context.PlotKind = kind;
        const auto trace = dir.Path() / (name + ".trace");
        {
            TraceTarget target(trace, PaperSize::A4, DocumentFiles::Single);
            PrintJob job(context, target, messages);
            const std::vector<std::string> names = {name};
            EXPECT_EQ(job.PrintDecals(names, nullptr).printed, 1) << name;
        }
        std::ifstream in(trace);
        std::vector<std::string> lines;
        int pages = 0;
        for (std::string line; std::getline(in, line);) {
            if (line.starts_with("page ")) {
                ++pages;
            } else {
                lines.push_back(line);
            }
        }
        EXPECT_EQ(pages, 1) << name;
        return lines;
    }
};

// The box of the primitives drawn with the pen `colour` whose middle lies in `area`.
Box InkIn(const std::vector<std::string>& lines, const std::string& colour, const Box& area) {
    Box ink;
    for (const Box& box : test::InkBoxes(lines, colour)) {
        const double x = (box.left + box.right) / 2;
        const double y = (box.bottom + box.top) / 2;
        if (x >= area.left && x <= area.right && y >= area.bottom && y <= area.top) {
            ink.Add(box.left, box.bottom);
            ink.Add(box.right, box.top);
        }
    }
    return ink;
}

Box Everywhere() {
    Box box;
    box.Add(-1e9, -1e9);
    box.Add(1e9, 1e9);
    return box;
}

// A box `left` to `right` and `bottom` to `top` mm from the frame's corner, in trace units.
Box RoomOf(const Box& frame, double left, double bottom, double right, double top) {
    Box room;
    room.Add(frame.left + left * kUnitsPerMm, frame.bottom + bottom * kUnitsPerMm);
    room.Add(frame.left + right * kUnitsPerMm, frame.bottom + top * kUnitsPerMm);
    return room;
}

double Width(const Box& box) {
    return box.right - box.left;
}
double Height(const Box& box) {
    return box.top - box.bottom;
}

// The picture inside `room`, in its middle, and as large as the scale rule lets it be: at least
// `fill` of the room in the direction that limits it. The ends of texts are measured, not drawn
// (the stroke font steps a little differently from how it measures), so the middle may be off by
// `slack` trace units.
void ExpectCentredInside(const Box& picture, const Box& room, double fill, double slack,
                         const std::string& what) {
    ASSERT_FALSE(picture.Empty()) << what;
    EXPECT_TRUE(picture.Inside(room, 1))
        << what << ": picture " << picture.left << " " << picture.bottom << " " << picture.right
        << " " << picture.top << " leaves the room " << room.left << " " << room.bottom << " "
        << room.right << " " << room.top;
    EXPECT_NEAR((picture.left + picture.right) / 2, (room.left + room.right) / 2, slack) << what;
    EXPECT_NEAR((picture.bottom + picture.top) / 2, (room.bottom + room.top) / 2, slack) << what;
    EXPECT_GE(std::max(Width(picture) / Width(room), Height(picture) / Height(room)), fill) << what;
}

// A decal page fits its decal between the inner borders, above the 100 mm of title block,
// pad-stack table and 1:1 view, at a whole scale that fills at least half of that room.
TEST(PicturePlacement, DecalPagesCentreEverythingTheDecalDrawsInTheDrawingArea) {
    PlacementBench bench;
    const PlotSettings& settings = bench.context.PlotSettings;
    for (const std::string& name : kDecals) {
        const std::vector<std::string> page = bench.Page(PlotKind::Decal, name);
        const Box frame = InkIn(page, kFormColour, Everywhere());
        const double w = Width(frame) / kUnitsPerMm;
        const double h = Height(frame) / kUnitsPerMm;
        const Box area = RoomOf(frame, settings.XBorder, 100 + settings.YBorder,
                                w - settings.XBorder, h - settings.YBorder);
        ExpectCentredInside(InkIn(page, kDecalColour, Everywhere()), area, 0.5, 150, name);
    }
    EXPECT_TRUE(bench.messages.Entries().empty());
}

// An index cell's decal fills 0.8 of the right-hand part of its cell (the name stands left of
// it) when the scale is not printed, and stays out of its neighbours.
TEST(PicturePlacement, IndexCellsCentreEverythingTheDecalDrawsInTheirRightHandPart) {
    PlacementBench bench;
    PlotSettings& settings = bench.context.PlotSettings;
    settings.Columns = 2;
    settings.PartsEachColumn = 3;
    for (const bool printScale : {false, true}) {
        settings.PrintScale = printScale;
        for (const std::string& name : kDecals) {
            const std::vector<std::string> page = bench.Page(PlotKind::Index, name);
            const Box frame = InkIn(page, kFormColour, Everywhere());
            const double w = Width(frame) / kUnitsPerMm;
            const double h = Height(frame) / kUnitsPerMm;
            const IndexLayout layout = IndexLayoutOf(settings, w, h, 1);
            const double cx = layout.columnWidth - layout.cellWidth / 2 - kIndexCellMargin;
            const double cy = h - kIndexCellMargin - layout.cellHeight / 2;
            const double rx = kIndexCellFill * layout.cellWidth / 2;
            const double ry = kIndexCellFill * layout.cellHeight / 2;
            const Box room = RoomOf(frame, cx - rx, cy - ry, cx + rx, cy + ry);
            // Filled exactly unless the printed scale is whole (at least half then).
            ExpectCentredInside(InkIn(page, kDecalColour, Everywhere()), room,
                                printScale ? 0.5 : 0.95, 60,
                                name + (printScale ? " with its scale printed" : ""));
        }
    }
    EXPECT_TRUE(bench.messages.Entries().empty());
}

// The 1:1 view shows the decal life size in the middle of its box, the pin numbers at their size
// at 1 : 1.
TEST(PicturePlacement, TheOneToOneViewCentresTheDecalLifeSizeInItsBox) {
    PlacementBench bench;
    bench.context.PlotSettings.View1_1 = true;
    for (const std::string& name : kDecals) {
        const std::vector<std::string> page = bench.Page(PlotKind::Decal, name);
        const Box frame = InkIn(page, kFormColour, Everywhere());
        const double w = Width(frame) / kUnitsPerMm;
        const double x0 = w - kViewBoxWidth - 3;
        const Box box =
            RoomOf(frame, x0, kViewBoxBottom, x0 + kViewBoxWidth, kViewBoxBottom + kViewBoxHeight);
        // The main picture stands above the box, so what is red in the box is its copy.
        const Box picture = InkIn(page, kDecalColour, box);
        ExpectCentredInside(picture, box, 0.0, 50, name + " at 1 : 1");
        if (name == "BUZZER") {
            // From the lower finger's end 10 mm below the origin to the upper one's 12 mm above.
            EXPECT_NEAR(Height(picture), 22 * kUnitsPerMm, 2);
        }
    }
    EXPECT_TRUE(bench.messages.Entries().empty());
}

// The selection dialog's view box keeps 10 pixels round the decal, which the decal job draws at
// a whole scale and the index job fills the box with.
TEST(PicturePlacement, TheViewBoxCentresTheDecalInsideItsBorder) {
    PlacementBench bench;
    const ScreenBox box{217, 301, 96, 96};
    const QRect room(10, 10, box.width - 20, box.height - 20);
    for (const PlotKind kind : {PlotKind::Decal, PlotKind::Index}) {
        bench.context.PlotKind = kind;
        for (const std::string& name : kDecals) {
            QImage image(box.width, box.height, QImage::Format_RGB32);
            image.fill(Qt::gray);
            {
                QPainter painter(&image);
                const std::vector<std::string> selection = {name};
                PaintViewBox(painter, box, bench.context, selection, bench.messages);
            }
            const std::string what = name + (kind == PlotKind::Index ? " (index)" : "");
            const QRect picture =
                test::InkIn(image, QRect(2, 2, box.width - 4, box.height - 4)).bounds;
            ASSERT_FALSE(picture.isEmpty()) << what;
            // Pixels of ink, not centre lines: a line's pen (0.1 mm at 65 : 1 for FINGERS) spreads
            // half its width beyond the extents, which do not count widths.
            EXPECT_TRUE(room.adjusted(-4, -4, 4, 4).contains(picture))
                << what << " " << picture.left() << " " << picture.top() << " " << picture.right()
                << " " << picture.bottom();
            EXPECT_NEAR(picture.center().x(), room.center().x(), 3) << what;
            EXPECT_NEAR(picture.center().y(), room.center().y(), 3) << what;
            if (kind == PlotKind::Index) {
                EXPECT_GE(std::max(picture.width() / double(room.width()),
                                   picture.height() / double(room.height())),
                          0.95)
                    << what << " fills the box";
            }
        }
    }
    EXPECT_TRUE(bench.messages.Entries().empty());
}

}  // namespace
}  // namespace zantor
