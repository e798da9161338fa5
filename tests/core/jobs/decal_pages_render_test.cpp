// The sample library's decals as whole A4 decal pages: one PDF of all pages and a PNG per page,
// drawn the way a print run draws them (page geometry from the device, placement, page drawing
// on the printer mapping). Set ZANTOR_RENDER_OUT to a folder to keep the files and look at them.

#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QImage>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "font/font_location.h"
#include "font/stroke_font.h"
#include "jobs/decal_placement.h"
#include "library/decal_reader.h"
#include "library/pad_stacks.h"
#include "plot/decal_attributes.h"
#include "plot/decal_page.h"
#include "plot/pieces.h"
#include "plot/qpainter_canvas.h"
#include "plot/terminals.h"
#include "plot/title_block.h"
#include "support/test_support.h"

namespace zantor {
namespace {

QGuiApplication& App() {
    static int argc = 1;
    static char name[] = "zantor_jobs_tests";
    static char* argv[] = {name, nullptr};
    static auto* app = new QGuiApplication(argc, argv);
    return *app;
}

std::filesystem::path SampleLibrary() {
    return test::SourceDir() / "data" / "samples" / "sample.d";
}

std::vector<DecalRecord> ReadAllDecals(const std::filesystem::path& file) {
    DecalReader reader(file);
    std::vector<DecalRecord> records;
    DecalRecord record;
    while (reader.NextRecord(record)) {
        records.push_back(record);
    }
    return records;
}

// What a print run sets up once: settings, the stroke font, the paper.
struct PrintRun {
    PlotSettings settings;
    RecordingMessages messages;
    StrokeFont font;
    AttributeList attributes;
    std::string date = TodayShortDate();

    PrintRun() {
        settings.Inputfile = SampleLibrary().string();
        settings.View1_1 = true;
        settings.ShowDrill = true;
        settings.PlotPinNo = true;
        settings.PinNoStyle = 'A';
        const std::filesystem::path fontFile = ResolveFontfile("romans.fnt");
        EXPECT_TRUE(font.Load(fontFile.string(), messages)) << fontFile;
    }

    // Places and draws one decal page on `canvas` for paper of `paper`.
    // The PNG pages show the options a page can add: a grid behind the decal, the chosen
    // attributes listed at the top, the height from the Geometry.Height attribute, and pens of
    // their own colours for pads (green), pin numbers and holes (red) and origin and grid (blue).
    void ShowOptions() {
        settings.PenTable[0].colour[kPenPads] = 0x00A000;
        settings.PenTable[0].colour[kPenPinNo] = 0x0000FF;
        settings.PenTable[0].colour[kPenOrigin] = 0xFF0000;
        settings.ShowGrid = true;
        settings.GridSize = 50;
        settings.GridLineWidth = 0.1;
        settings.GridLineStyle = 2;
        settings.PrintAttr = true;
        settings.HeightInfo = 1;
        attributes = {{"Geometry.Height", true}, {"Description", true}, {"Value", false}};
    }

    void DrawPage(QPainterCanvas& canvas, const PaperArea& paper, const DecalRecord& record) {
        const PageGeometry page = PageGeometryOf(paper, MarginsOf(settings));
        const PadStackList stacks = ReadPadStacks(record);
        DecalExtents extents;
        PieceExtents(record, extents);
        TerminalExtents(record, extents);
        const DecalArea area{page.usableWidth, page.usableHeight, settings.XBorder,
                             settings.YBorder,
                             ListedAttributeCount(settings.PrintAttr, attributes)};
        PlotFrame frame(canvas, settings, messages);
        frame.Surface = PlotSurface::Printer;
        ApplyPlacement(frame, page, PlaceDecal(area, extents, record.unitFactor, settings.MaxScale),
                       record.unitFactor);
        DecalPageInputs inputs{.record = record,
                               .stacks = stacks,
                               .font = font,
                               .attributes = attributes,
                               .extents = extents,
                               .width = page.usableWidth,
                               .height = page.usableHeight,
                               .inputPath = settings.Inputfile,
                               .inputKind = {true, false},
                               .date = date};
        DrawDecalPage(frame, inputs);
    }
};

void Keep(const std::filesystem::path& file) {
    if (const char* out = std::getenv("ZANTOR_RENDER_OUT")) {
        std::filesystem::create_directories(out);
        std::filesystem::copy_file(file, std::filesystem::path(out) / file.filename(),
                                   std::filesystem::copy_options::overwrite_existing);
    }
}

int InkCount(const QImage& image, const QRect& area) {
    int count = 0;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            count += image.valid(x, y) && image.pixel(x, y) != qRgb(255, 255, 255) ? 1 : 0;
        }
    }
    return count;
}

std::string FileText(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

// The page objects of a PDF ("/Type /Page", not the "/Type /Pages" tree above them).
int PageObjects(const std::string& pdf) {
    const std::string key = "/Type /Page";
    int count = 0;
    for (std::size_t at = pdf.find(key); at != std::string::npos; at = pdf.find(key, at + 1)) {
        const std::size_t next = at + key.size();
        count += next < pdf.size() && pdf[next] == 's' ? 0 : 1;
    }
    return count;
}

TEST(DecalPagesRendering, SampleLibraryPrintsOnePdfPagePerDecal) {
    App();
    test::TempDir dir;
    PrintRun run;
    const std::vector<DecalRecord> decals = ReadAllDecals(SampleLibrary());
    ASSERT_EQ(decals.size(), 6u);

    const auto pdf = dir.Path() / "sample-pages.pdf";
    {
        QPdfWriter writer(QString::fromStdString(pdf.string()));
        writer.setPageSize(QPageSize(QPageSize::A4));
        writer.setPageMargins(QMarginsF(0, 0, 0, 0));
        writer.setResolution(600);
        QPainter painter(&writer);
        for (std::size_t i = 0; i < decals.size(); ++i) {
            if (i > 0) {
                writer.newPage();
            }
            QPainterCanvas canvas(painter, CanvasMapping::Hundredths);
            run.DrawPage(canvas, PaperAreaOf(writer), decals[i]);
        }
    }
    Keep(pdf);
    EXPECT_TRUE(run.messages.Entries().empty());

    EXPECT_EQ(PageObjects(FileText(pdf)), 6);
}

TEST(DecalPagesRendering, EveryPngPageHasTheDecalAboveTheTitleBlock) {
    App();
    test::TempDir dir;
    PrintRun run;
    run.ShowOptions();
    // A4 at 100 dots per inch, without unprintable edges.
    constexpr double kDotsPerMm = 3937.0 / 1000;
    const PaperArea paper{210, 297, 0, 0, 0, 0};
    const PageGeometry page = PageGeometryOf(paper, MarginsOf(run.settings));
    const auto pixel = [&](double mm) { return static_cast<int>(mm * kDotsPerMm); };
    // Page millimetres of the frame, y up from the paper's bottom edge, as image pixels.
    const int left = pixel(page.left);
    const int right = pixel(page.left + page.usableWidth);
    const int frameTop = pixel(297 - page.bottom - page.usableHeight);
    const int titleTop = pixel(297 - page.bottom - kTitleBlockHeight);
    const int frameBottom = pixel(297 - page.bottom);
    // The decal's own area: above the pad-stack table and the 1:1 view.
    const int drawingBottom = pixel(297 - page.bottom - 100);
    const QRect drawing(QPoint(left + 8, frameTop + 8), QPoint(right - 8, drawingBottom));
    const QRect titleBlock(QPoint(left + 2, titleTop + 2), QPoint(right - 2, frameBottom - 2));

    for (const DecalRecord& record : ReadAllDecals(SampleLibrary())) {
        QImage image(827, 1170, QImage::Format_RGB32);
        image.setDotsPerMeterX(3937);
        image.setDotsPerMeterY(3937);
        image.fill(Qt::white);
        {
            QPainter painter(&image);
            QPainterCanvas canvas(painter, CanvasMapping::Hundredths);
            run.DrawPage(canvas, paper, record);
        }
        const auto file = dir.Path() / ("page-" + record.name + ".png");
        ASSERT_TRUE(image.save(QString::fromStdString(file.string())));
        Keep(file);
        EXPECT_GT(InkCount(image, drawing), 1500) << record.name;
        EXPECT_GT(InkCount(image, titleBlock), 3000) << record.name;
        // Nothing outside the frame but the footer under it.
        EXPECT_EQ(InkCount(image, QRect(QPoint(0, 0), QPoint(left - 3, image.height() - 1))), 0)
            << record.name;
        EXPECT_EQ(InkCount(image, QRect(QPoint(0, 0), QPoint(image.width() - 1, frameTop - 3))), 0)
            << record.name;
    }
    EXPECT_TRUE(run.messages.Entries().empty());
}

}  // namespace
}  // namespace zantor
