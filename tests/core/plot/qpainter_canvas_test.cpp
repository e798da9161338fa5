#include "plot/qpainter_canvas.h"
#include "support/recording_messages.h"

#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QImage>
#include <array>
#include <filesystem>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "core/plot/plot_test_support.h"
#include "plot/pieces.h"
#include "plot/plot_frame.h"
#include "plot/text_items.h"
#include "support/test_support.h"

namespace zantor {
namespace {

// Text needs a GUI application for its fonts; the tests run on the offscreen platform.
QGuiApplication& App() {
    static int argc = 1;
    static char name[] = "zantor_plot_tests";
    static char* argv[] = {name, nullptr};
    static auto* app = new QGuiApplication(argc, argv);
    return *app;
}

QImage WhiteImage(int width, int height, int dotsPerMeter = 3780) {
    QImage image(width, height, QImage::Format_RGB32);
    image.setDotsPerMeterX(dotsPerMeter);
    image.setDotsPerMeterY(dotsPerMeter);
    image.fill(Qt::white);
    return image;
}

// Whether any pixel within `radius` of (x, y) is not white.
bool Inked(const QImage& image, int x, int y, int radius = 2) {
    for (int py = y - radius; py <= y + radius; ++py) {
        for (int px = x - radius; px <= x + radius; ++px) {
            if (image.valid(px, py) && image.pixel(px, py) != qRgb(255, 255, 255)) {
                return true;
            }
        }
    }
    return false;
}

int InkCount(const QImage& image, int top = 0, int bottom = -1) {
    if (bottom < 0) {
        bottom = image.height() - 1;
    }
    int count = 0;
    for (int y = top; y <= bottom; ++y) {
        for (int x = 0; x < image.width(); ++x) {
            count += image.pixel(x, y) != qRgb(255, 255, 255) ? 1 : 0;
        }
    }
    return count;
}

// Which quadrants of a 200 x 200 image hold ink: upper right, upper left, lower left, lower
// right as seen on the screen.
std::array<bool, 4> QuadrantsOf(const QImage& image) {
    return {Inked(image, 171, 29), Inked(image, 29, 29), Inked(image, 29, 171),
            Inked(image, 171, 171)};
}

TEST(QPainterCanvas, ArcsRunCounterClockwiseOnBothMappings) {
    App();
    // The screen mapping in pixels, y down; the printer mapping in 0.01 mm at 254 dots per inch
    // (a device unit is a tenth of a pixel), y up from the top edge, so the image lies at
    // negative y. East to north is the upper right quarter; north round the left to east the
    // other three; equal rays the whole circle.
    const auto arc = [](CanvasMapping mapping, std::array<int, 2> start, std::array<int, 2> end) {
        const bool printer = mapping == CanvasMapping::Hundredths;
        QImage image = WhiteImage(200, 200, printer ? 10000 : 3780);
        QPainter painter(&image);
        QPainterCanvas canvas(painter, mapping);
        const int k = printer ? 10 : 1;
        const int s = printer ? -1 : 1;
        canvas.SetPenWidth(3 * k);
        canvas.Arc(0, 0, 200 * k, 200 * s * k, start[0] * k, start[1] * s * k, end[0] * k,
                   end[1] * s * k);
        painter.end();
        return QuadrantsOf(image);
    };
    for (const CanvasMapping mapping : {CanvasMapping::Pixels, CanvasMapping::Hundredths}) {
        SCOPED_TRACE(mapping == CanvasMapping::Pixels ? "screen" : "printer");
        EXPECT_EQ(arc(mapping, {200, 100}, {100, 0}), (std::array{true, false, false, false}));
        EXPECT_EQ(arc(mapping, {100, 0}, {200, 100}), (std::array{false, true, true, true}));
        EXPECT_EQ(arc(mapping, {200, 100}, {200, 100}), (std::array{true, true, true, true}));
    }
}

TEST(QPainterCanvas, DrawsThroughTheCallersTransformAndGivesItBack) {
    App();
    QImage image = WhiteImage(200, 200, 10000);
    QPainter painter(&image);
    painter.translate(100, 0);  // a page offset in pixels
    for (int pass = 0; pass < 2; ++pass) {
        // A second canvas on the same painter maps the same way.
        QPainterCanvas canvas(painter, CanvasMapping::Hundredths);
        canvas.SetPenWidth(20);
        canvas.MoveTo(0, -500 - 500 * pass);
        canvas.LineTo(500, -500 - 500 * pass);
    }
    EXPECT_EQ(painter.worldTransform(), QTransform::fromTranslate(100, 0));
    painter.end();
    EXPECT_TRUE(Inked(image, 125, 50, 1));
    EXPECT_TRUE(Inked(image, 125, 100, 1));
    EXPECT_FALSE(Inked(image, 75, 50, 10));
}

TEST(QPainterCanvas, TextHangsFromItsTopLeftCornerAndStaysUprightOnThePrinterMapping) {
    App();
    QImage image = WhiteImage(200, 200, 10000);
    {
        QPainter painter(&image);
        QPainterCanvas canvas(painter, CanvasMapping::Hundredths);
        // A font nobody has: the system's substitute draws it, 100 px high from (20, 20).
        canvas.Text(200, -200, "T", "No Such Font Zantor", 1000);
    }
    EXPECT_EQ(InkCount(image, 0, 18), 0);
    int top = -1;
    int bottom = -1;
    for (int y = 0; y < image.height(); ++y) {
        if (InkCount(image, y, y) > 0) {
            bottom = y;
            top = top < 0 ? y : top;
        }
    }
    ASSERT_GE(top, 20);
    ASSERT_LE(bottom, 125);
    ASSERT_GT(bottom - top, 40);
    // A "T" the right way up has its bar at the top.
    const int band = (bottom - top) / 4;
    EXPECT_GT(InkCount(image, top, top + band), 2 * InkCount(image, bottom - band, bottom));
}

// Drawings that each set the whole canvas state they need: pens of other colours, widths and
// styles, fills on and off, texts of other sizes, alignments and colours than the pen.
std::vector<std::function<void(QPainterCanvas&)>> MixedDrawings() {
    const auto pen = [](QPainterCanvas& canvas, Colour colour, int width, PenStyle style) {
        canvas.SetPenColour(colour);
        canvas.SetPenWidth(width);
        canvas.SetPenStyle(style);
    };
    const auto fill = [](QPainterCanvas& canvas, Colour colour, FillStyle style) {
        canvas.SetFillColour(colour);
        canvas.SetFillStyle(style);
    };
    return {
        [=](QPainterCanvas& canvas) {
            pen(canvas, 0x0000FF, 40, PenStyle::Dash);
            canvas.MoveTo(100, -100);
            canvas.LineTo(1900, -1900);
        },
        [=](QPainterCanvas& canvas) {
            pen(canvas, 0x0000FF, 40, PenStyle::Solid);
            canvas.SetTextColour(0xFF0000);
            canvas.Text(200, -300, "Upright", "Liberation Sans", 250);
        },
        [=](QPainterCanvas& canvas) {
            // The plot engine's polygon buffer: three corners, then the first one over and over.
            pen(canvas, 0x00AA00, 1, PenStyle::Solid);
            fill(canvas, 0x00AA00, FillStyle::Solid);
            std::vector<DevicePoint> points(1024, DevicePoint{1000, -1000});
            points[1] = {1800, -1000};
            points[2] = {1800, -1800};
            canvas.Polygon(points);
        },
        [=](QPainterCanvas& canvas) {
            pen(canvas, 0x00AA00, 30, PenStyle::Solid);
            fill(canvas, 0x00AA00, FillStyle::Solid);
            canvas.Arc(200, -1200, 800, -1800, 800, -1500, 200, -1500);
        },
        [=](QPainterCanvas& canvas) {
            pen(canvas, 0x000000, 10, PenStyle::Solid);
            canvas.SetTextColour(0x000000);
            canvas.Text(1000, -600, "Centre", "DejaVu Serif", 180, TextAlign::Centre);
            canvas.Text(1900, -800, "Right", "Liberation Sans", 250, TextAlign::Right);
        },
        [=](QPainterCanvas& canvas) {
            pen(canvas, 0xAA00AA, 20, PenStyle::DashDot);
            fill(canvas, 0x00FFFF, FillStyle::None);
            canvas.RoundRect(300, -1900, 900, -1300, 200, 200);
            canvas.MoveTo(100, -1950);
            canvas.LineTo(1900, -1950);
        },
        [=](QPainterCanvas& canvas) {
            pen(canvas, 0x00AA00, 20, PenStyle::Solid);
            canvas.SetTextColour(0xFF0000);
            canvas.Text(200, -1000, "Again", "Liberation Sans", 250);
        },
    };
}

TEST(QPainterCanvas, EachDrawingLooksTheSameWhateverWasDrawnBeforeIt) {
    App();
    // Printer mapping at 254 dots per inch: 2000 units are 200 pixels.
    QImage oneCanvas = WhiteImage(200, 200, 10000);
    {
        QPainter painter(&oneCanvas);
        QPainterCanvas canvas(painter, CanvasMapping::Hundredths);
        for (const auto& draw : MixedDrawings()) {
            draw(canvas);
        }
    }
    // The same drawings, each on a painter and canvas of its own, so that nothing of one can
    // reach the next.
    QImage freshCanvases = WhiteImage(200, 200, 10000);
    for (const auto& draw : MixedDrawings()) {
        QPainter painter(&freshCanvases);
        QPainterCanvas canvas(painter, CanvasMapping::Hundredths);
        draw(canvas);
    }
    EXPECT_GT(InkCount(freshCanvases), 3000);
    EXPECT_EQ(oneCanvas, freshCanvases);
    // The texts are in their own colour, not the pen's.
    int red = 0;
    for (int y = 0; y < 200; ++y) {
        for (int x = 0; x < 200; ++x) {
            red += oneCanvas.pixel(x, y) == qRgb(0, 0, 255) ? 1 : 0;
        }
    }
    EXPECT_GT(red, 20);
}

// A handmade decal in mils: an outline with a rounded corner and a clockwise hump, a copper
// triangle, a pad disc, a circle and two texts.
DecalRecord HandmadeDecal() {
    // One piece or text a row, its lines split at '|'.
    const char* items[] = {
        "CLOSED 6 10 1|-800 -500|800 -500|800 300 0 90 0 -100 800 700|400 700|-800 700|-800 -500",
        "OPEN 2 10 1|-600 0 180 -180 -600 -100 -400 100|-400 0",
        "COPCLS 3 10 1|-300 -300|0 200|300 -300",
        "COPCIR 2 10 1 1|400 -300|600 -300",
        "CIRCLE 2 10 1|-700 400|-500 400",
        "-700 -460 0 1 80 8 N|ZANTOR 1",
        "0 0 0 30 50 5 N|@@1 Handmade decal"};
    std::vector<std::string> lines;
    for (const std::string item : items) {
        std::size_t from = 0;
        for (std::size_t bar = item.find('|'); from <= item.size(); bar = item.find('|', from)) {
            bar = bar == std::string::npos ? item.size() : bar;
            lines.push_back(item.substr(from, bar - from));
            from = bar + 1;
        }
    }
    DecalRecord record = test::MakeRecord(std::move(lines), 5, 2, 20);
    record.unitFactor = 0.0254;
    return record;
}

struct Sheet {
    PlotSettings settings;
    RecordingMessages messages;
    StrokeFont font;

    Sheet() {
        PenTableRows& rows = settings.PenTable;
        rows[0].colour[kPenPads] = 0x00AA00;
        rows[0].colour[kPenCopper] = 0x0000FF;
        rows[0].colour[kPenText] = 0xFF0000;
        const auto path = test::SourceDir() / "data" / "fonts" / "romans.fnt";
        EXPECT_TRUE(font.Load(path.string(), messages)) << path;
    }

    // Sets the frame to the decal at 2:1 with its origin at (105, 160) mm of an A4 page.
    static void Place(PlotFrame& frame) {
        frame.Place({.corner = {0, 0}, .unitFactor = 0.0254, .scale = 2, .origin = {105, 160}});
    }

    void Draw(PlotFrame& frame) {
        DrawPieces(frame, ParseDecal(HandmadeDecal()), false, messages);
        TextItemsPage page;
        page.decalRun = true;
        page.printComments = true;
        page.commentTop = 60;
        page.rightLimit = 200;
        page.commentFont = settings.FormularFont;
        DrawTextItems(frame, ParseDecal(HandmadeDecal()), font, page);
        DrawPieces(frame, ParseDecal(HandmadeDecal()), true, messages);
    }
};

// Draws the decal on `image` as the preview window (2 pixels per mm, y down) or as the printer
// (0.01 mm units, y up) does, and checks its telling points where the frame put them.
void RenderAndCheckDecal(QImage& image, CanvasMapping mapping, Sheet& sheet) {
    QPainter painter(&image);
    QPainterCanvas canvas(painter, mapping);
    RecordingMessages messages;
    const bool printer = mapping == CanvasMapping::Hundredths;
    DeviceMapping device{.surface = PlotSurface::Printer,
                         .mmPerUnitX = 0.01,
                         .mmPerUnitY = 0.01,
                         .pageHeight = 297,
                         .paintBoxHeight = 0};
    if (!printer) {
        device = {.surface = PlotSurface::PreviewWindow,
                  .mmPerUnitX = 0.5,
                  .mmPerUnitY = 0.5,
                  .pageHeight = 297,
                  .paintBoxHeight = image.height()};
    }
    PlotFrame frame(canvas, device, sheet.settings, messages);
    Sheet::Place(frame);
    sheet.Draw(frame);
    painter.end();
    const double pixelsPerUnit = image.logicalDpiX() / 2540.0;
    auto at = [&](double x, double y) {
        if (!printer) {
            return QPoint(frame.DevX(x), frame.DevY(y));
        }
        return QPoint(static_cast<int>(frame.DevX(x) * pixelsPerUnit),
                      static_cast<int>(-frame.DevY(y) * pixelsPerUnit));
    };
    const auto inked = [&](double x, double y) {
        const QPoint p = at(x, y);
        return Inked(image, p.x(), p.y());
    };
    EXPECT_EQ(image.pixel(at(500, -300)), qRgb(0, 170, 0));  // the pad disc
    EXPECT_EQ(image.pixel(at(0, -100)), qRgb(255, 0, 0));    // the copper triangle
    // The rounded corner bulges out; the long way round would pass through (0, 300).
    EXPECT_TRUE(inked(683, 583));
    EXPECT_FALSE(inked(0, 300));
    // The clockwise arc is a hump, not a dip.
    EXPECT_TRUE(inked(-500, 100));
    EXPECT_FALSE(inked(-500, -100));
    EXPECT_TRUE(inked(-600, 500));
    EXPECT_FALSE(inked(-600, 400));
    // The decal's top edge is above its bottom edge on the sheet.
    EXPECT_LT(at(0, 700).y(), at(0, -500).y());
    EXPECT_TRUE(inked(0, 700));
    EXPECT_TRUE(inked(0, -500));
}

TEST(QPainterCanvasRendering, PreviewAndPrinterShowTheDecalTheRightWayUp) {
    App();
    Sheet sheet;
    QImage preview = WhiteImage(420, 594);         // A4 at 2 pixels per millimetre
    QImage printer = WhiteImage(827, 1170, 3937);  // A4 at 100 dots per inch
    RenderAndCheckDecal(preview, CanvasMapping::Pixels, sheet);
    RenderAndCheckDecal(printer, CanvasMapping::Hundredths, sheet);
    EXPECT_TRUE(sheet.messages.Entries().empty());

    // The comment line stands on 60 - 4 + 1 = 57 mm, 3 mm high, with the separator at 56 mm.
    EXPECT_EQ(InkCount(preview, 594 - 2 * 64, 594 - 2 * 60 - 2), 0);
    EXPECT_GT(InkCount(preview, 594 - 2 * 60, 594 - 2 * 57), 20);
    EXPECT_TRUE(Inked(preview, 300, 594 - 2 * 56, 1));
}

}  // namespace
}  // namespace zantor
