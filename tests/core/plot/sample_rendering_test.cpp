// The real files in ../shared/pads-samples (when the folder is there) through the piece and text
// drawing: the outlines stand on their layers, the two syntaxes of one decal draw the same
// picture, round things come out round, and every decal draws onto a picture without a message.
// Set ZANTOR_RENDER_OUT to a folder to keep the pictures.

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "core/plot/plot_test_support.h"
#include "library/decal_reader.h"
#include "plot/pieces.h"
#include "plot/qpainter_canvas.h"
#include "plot/record_fields.h"
#include "plot/text_items.h"
#include "support/test_support.h"

namespace zantor {
namespace {

using Lines = std::vector<std::string>;

std::filesystem::path SampleFolder() {
    return test::SourceDir().parent_path() / "shared" / "pads-samples";
}

#define SKIP_WITHOUT_SAMPLES()                                                              \
    if (!std::filesystem::is_directory(SampleFolder())) {                                   \
        GTEST_SKIP() << "no shared sample folder at " << SampleFolder()                     \
                     << " (a fresh clone has none; the handmade fixtures cover the rules)"; \
    }

DecalRecord OnlyRecord(const std::string& name) {
    DecalReader reader(SampleFolder() / name);
    DecalRecord record;
    EXPECT_TRUE(reader.NextRecord(record)) << name;
    return record;
}

std::vector<int> PieceLayers(const DecalRecord& record) {
    std::vector<int> layers;
    std::size_t at = record.firstPiece;
    for (int piece = 0; piece < record.counts.pieces; ++piece) {
        const PieceHeader header = ReadPieceHeader(record, at, false);
        layers.push_back(header.layer);
        at += 1 + static_cast<std::size_t>(std::max(header.corners, 0));
    }
    return layers;
}

TEST(SampleRendering, OutlinesStandOnTheirLayers) {
    SKIP_WITHOUT_SAMPLES();
    // Assembly 27, placement outline 20, silk 26: the same in both syntaxes.
    for (const char* name : {"np_1725737.d", "np_1725737.asc"}) {
        EXPECT_EQ(PieceLayers(OnlyRecord(name)), (std::vector<int>{27, 20, 26, 26})) << name;
    }
    for (const char* name : {"np_QFP50P1400X1400X160-80N.d", "np_STM32G484MET6.asc"}) {
        EXPECT_EQ(PieceLayers(OnlyRecord(name)), (std::vector<int>{20, 27, 27, 26, 26})) << name;
    }
    EXPECT_EQ(PieceLayers(OnlyRecord("p2s_MOLEX_1051330011.d")),
              (std::vector<int>{20, 20, 20, 20, 27, 26, 26}));
    EXPECT_EQ(PieceLayers(OnlyRecord("opl_RA5P-L1920W1560.asc")),
              (std::vector<int>{1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 25, 20}));
}

// A picture of a decal's pieces and texts, 10 pixels per millimetre of page, the decal scaled to
// fill most of it.
struct Picture {
    QImage image{1000, 800, QImage::Format_RGB32};
    RecordingMessages messages;
    PlotSettings settings;
    StrokeFont font;
    double scale = 1;
    double originX = 0;
    double originY = 0;
    double unitFactor = 1;

    explicit Picture(const DecalRecord& record) {
        image.fill(Qt::white);
        PenTableRows& rows = settings.PenTable;
        for (int kind = 1; kind <= kPenKinds; ++kind) {
            rows[0].colour[kind] = 0x808080;
        }
        rows[1].layer = 20;  // placement outline: blue
        rows[1].colour[kPenOutline] = 0xFF0000;
        rows[2].layer = 26;  // silk: black
        rows[2].colour[kPenOutline] = 0x000000;
        rows[2].colour[kPenText] = 0x000000;
        rows[3].layer = 27;  // assembly: green
        rows[3].colour[kPenOutline] = 0x00A000;
        rows[4].layer = 1;  // top: red
        rows[4].colour[kPenOutline] = 0x0000C0;
        rows[4].colour[kPenCopper] = 0x0000FF;
        EXPECT_TRUE(
            font.Load((test::SourceDir() / "data" / "fonts" / "romans.fnt").string(), messages));

        DecalExtents extents;
        PieceExtents(record, extents);
        unitFactor = record.unitFactor;
        const double width = (extents.xmax - extents.xmin) * unitFactor;
        const double height = (extents.ymax - extents.ymin) * unitFactor;
        scale = std::min(80.0 / width, 60.0 / height);
        originX = 50 - (extents.xmin + extents.xmax) / 2 * unitFactor * scale;
        originY = 40 - (extents.ymin + extents.ymax) / 2 * unitFactor * scale;

        QPainter painter(&image);
        QPainterCanvas canvas(painter, CanvasMapping::Pixels);
        PlotFrame frame = Frame(canvas);
        UnknownPieceReports reports;
        DrawPieces(frame, record, false, messages, reports);
        DrawTextItems(frame, record, font, TextItemsPage{});
        DrawPieces(frame, record, true, messages, reports);
    }

    PlotFrame Frame(PlotCanvas& canvas) {
        PlotFrame frame(canvas, settings, messages);
        frame.Surface = PlotSurface::PreviewWindow;
        frame.MmPerUnitX = 0.1;
        frame.MmPerUnitY = 0.1;
        frame.PaintBoxHeight = image.height();
        frame.Scale = scale;
        frame.UnitFactor = unitFactor;
        frame.OriginX1 = originX;
        frame.OriginY1 = originY;
        return frame;
    }

    // The pixel of library point (x, y).
    QPoint At(double x, double y) {
        RecordingCanvas canvas;
        PlotFrame frame = Frame(canvas);
        return {frame.DevX(x), frame.DevY(y)};
    }

    bool Inked(QPoint at, int radius = 1) const {
        for (int y = at.y() - radius; y <= at.y() + radius; ++y) {
            for (int x = at.x() - radius; x <= at.x() + radius; ++x) {
                if (image.valid(x, y) && image.pixel(x, y) != qRgb(255, 255, 255)) {
                    return true;
                }
            }
        }
        return false;
    }

    int InkCount() const {
        int count = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                count += image.pixel(x, y) != qRgb(255, 255, 255) ? 1 : 0;
            }
        }
        return count;
    }

    void Keep(const std::string& name) const {
        if (const char* out = std::getenv("ZANTOR_RENDER_OUT")) {
            image.save(QString::fromStdString((std::filesystem::path(out) / name).string()));
        }
    }
};

TEST(SampleRendering, RoundCornersAndArcsComeOutRound) {
    SKIP_WITHOUT_SAMPLES();
    // The relay symbol of the V2005 board: arcs of 180 and 270 degrees between its corners, in
    // tenths of a degree. The first runs from 135 degrees through 225 to 315 round
    // (22027500, 15397500) with a radius of 1092480.
    const DecalRecord relay = OnlyRecord("opl_RA5P-L1920W1560.asc");
    Picture picture(relay);
    picture.Keep("sample-opl_RA5P-L1920W1560.png");
    EXPECT_TRUE(picture.messages.Entries().empty());
    const double r = 1092480;
    const double c = std::sqrt(0.5);
    EXPECT_TRUE(picture.Inked(picture.At(22027500 - r, 15397500)));
    EXPECT_TRUE(picture.Inked(picture.At(22027500 - c * r, 15397500 - c * r)));
    EXPECT_TRUE(picture.Inked(picture.At(22027500, 15397500 - r)));
    // Not the other way round, and no chord across it.
    EXPECT_FALSE(picture.Inked(picture.At(22027500 + c * r, 15397500 + c * r * 0.5)));
    EXPECT_FALSE(picture.Inked(picture.At(22027500, 15397500)));

    // The small circle of the switch: two half circles of radius 0.1 round (-4.9, -1.6).
    const DecalRecord button = OnlyRecord("np_TL3305BF160QG.d");
    Picture zoom(button);
    zoom.Keep("sample-np_TL3305BF160QG.png");
    for (double angle = 0; angle < 360; angle += 45) {
        const double a = angle * std::acos(-1.0) / 180;
        EXPECT_TRUE(zoom.Inked(zoom.At(-4.9 + 0.1 * std::cos(a), -1.6 + 0.1 * std::sin(a)), 2))
            << angle;
    }
}

TEST(SampleRendering, EveryDecalDrawsWithoutAMessage) {
    SKIP_WITHOUT_SAMPLES();
    int drawn = 0;
    for (const auto& entry : std::filesystem::directory_iterator(SampleFolder())) {
        DecalReader reader(entry.path());
        if (reader.Header().product != FileProduct::DecalLibrary &&
            reader.Header().product != FileProduct::PcbDatabase) {
            continue;
        }
        DecalRecord record;
        while (reader.NextRecord(record)) {
            SCOPED_TRACE(entry.path().filename().string() + " " + record.name);
            const Picture picture(record);
            EXPECT_TRUE(picture.messages.Entries().empty());
            EXPECT_GT(picture.InkCount(), 2000);
            picture.Keep("sample-" + entry.path().stem().string() + "-" +
                         entry.path().extension().string().substr(1) + ".png");
            ++drawn;
        }
    }
    EXPECT_EQ(drawn, 11);
}

TEST(SampleRendering, BothSyntaxesOfADecalDrawTheSamePicture) {
    SKIP_WITHOUT_SAMPLES();
    const std::pair<const char*, const char*> pairs[] = {
        {"np_1725737.d", "np_1725737.asc"},
        {"np_SON50P200X200X80-9N.d", "np_DRV8220DSGR.asc"},
        {"np_QFP50P1400X1400X160-80N.d", "np_STM32G484MET6.asc"},
    };
    for (const auto& [library, board] : pairs) {
        SCOPED_TRACE(library);
        const DecalRecord d = OnlyRecord(library);
        const DecalRecord asc = OnlyRecord(board);
        EXPECT_EQ(d.name, asc.name);
        // The pieces draw the same picture at the same scale; the terminals are written alike.
        const Picture dPicture(d);
        const Picture ascPicture(asc);
        EXPECT_GT(dPicture.InkCount(), 2000);
        EXPECT_TRUE(dPicture.image == ascPicture.image);
        EXPECT_EQ(
            std::vector(d.lines.begin() + d.firstTerminal, d.lines.begin() + d.firstStack),
            std::vector(asc.lines.begin() + asc.firstTerminal, asc.lines.begin() + asc.firstStack));
    }
}

}  // namespace
}  // namespace zantor
