#include <gtest/gtest.h>

#include <QImage>
#include <QLinearGradient>
#include <QPainter>
#include <filesystem>
#include <memory>
#include <string>

#include "output/file_output.h"
#include "output/output_choice.h"
#include "output/palette_image.h"
#include "support/page_test_support.h"
#include "support/test_support.h"

namespace zantor {
namespace {

using test::App;
using test::TempDir;

// A page as the program draws it in its default colours: smoothed black lines, a circle and text
// on white (grey levels only), at 300 dots per inch.
QImage DrawnPage(QSize size, int shift = 0) {
    QImage image(size, QImage::Format_RGB32);
    image.setDotsPerMeterX(11811);
    image.setDotsPerMeterY(11811);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Qt::black, 2.5));
    painter.drawLine(10 + shift, 10, size.width() - 20, size.height() - 90);
    painter.drawEllipse(QPointF(size.width() / 2.0, size.height() / 3.0), 70.3 + shift, 50.7);
    painter.drawText(QPointF(30, 60), QStringLiteral("U1 SO-14 pin 7"));
    painter.end();
    return image;
}

QImage Argb(const QImage& image) {
    return image.convertToFormat(QImage::Format_ARGB32);
}

QImage Load(const std::filesystem::path& file) {
    return QImage(PathText(file));
}

TEST(PngPages, PagesOfFewColoursAreWrittenAsPalettesOfTheSamePixels) {
    App();
    TempDir dir;
    const QImage page = DrawnPage(QSize(640, 400));
    QImage indexed;
    ASSERT_TRUE(ToPaletteImage(page, indexed));
    EXPECT_LE(indexed.colorCount(), 256);
    const auto rgbFile = dir.Path() / "rgb.png";
    const auto paletteFile = dir.Path() / "palette.png";
    ASSERT_TRUE(page.save(PathText(rgbFile), "PNG"));
    ASSERT_TRUE(indexed.save(PathText(paletteFile), "PNG"));
    const QImage rgb = Load(rgbFile);
    const QImage palette = Load(paletteFile);
    EXPECT_EQ(palette.depth(), 8);
    EXPECT_EQ(Argb(palette), Argb(rgb));
    EXPECT_EQ(Argb(palette), Argb(page));
    EXPECT_EQ(palette.dotsPerMeterX(), 11811);
    EXPECT_EQ(palette.dotsPerMeterY(), 11811);
    EXPECT_LT(std::filesystem::file_size(paletteFile), std::filesystem::file_size(rgbFile));

    // The palette image is used again for the next page, whose colours come in another order.
    const QImage next = DrawnPage(QSize(640, 400), 17);
    ASSERT_TRUE(ToPaletteImage(next, indexed));
    EXPECT_EQ(Argb(indexed), Argb(next));
    const QImage smaller = DrawnPage(QSize(500, 350));
    ASSERT_TRUE(ToPaletteImage(smaller, indexed));
    EXPECT_EQ(Argb(indexed), Argb(smaller));
}

TEST(PngPages, APaletteHoldsAtMost256Colours) {
    App();
    // One colour per pixel: 256 fit, 257 do not.
    QImage page(16, 17, QImage::Format_RGB32);
    for (int y = 0; y < page.height(); ++y) {
        for (int x = 0; x < page.width(); ++x) {
            page.setPixel(x, y, qRgb(x * 16 + y % 16, y == 16 ? 255 : 0, 9));
        }
    }
    QImage indexed;
    EXPECT_FALSE(ToPaletteImage(page, indexed));
    for (int x = 0; x < page.width(); ++x) {
        page.setPixel(x, 16, page.pixel(x, 0));
    }
    ASSERT_TRUE(ToPaletteImage(page, indexed));
    EXPECT_EQ(indexed.colorCount(), 256);
    EXPECT_EQ(Argb(indexed), Argb(page));
}

// A PNG job of `pages` pages on A4, each drawn by `draw` on the page's painter in pixels.
template <typename Draw>
void PrintPng(const std::filesystem::path& file, int pages, Draw draw) {
    auto target = MakePageOutput({"", file, PaperSize::A4, false});
    target->BeginDocument();
    for (int i = 1; i <= pages; ++i) {
        if (i > 1) {
            target->NewPage();
        }
        QPainter* painter = target->Painter();
        ASSERT_NE(painter, nullptr);
        painter->resetTransform();
        draw(*painter, i);
    }
    target->EndDocument();
}

void FillGradient(QPainter& painter) {
    QLinearGradient gradient(0, 0, 2000, 900);
    gradient.setColorAt(0, Qt::red);
    gradient.setColorAt(0.5, Qt::green);
    gradient.setColorAt(1, Qt::blue);
    painter.fillRect(QRect(100, 100, 2000, 900), gradient);
}

TEST(PngPages, PagesInManyColoursAreWrittenInFullColour) {
    App();
    TempDir dir;
    PrintPng(dir.Path() / "colours.png", 1, [](QPainter& painter, int) { FillGradient(painter); });
    const QImage written = Load(dir.Path() / "colours-1.png");
    ASSERT_EQ(written.size(), QSize(2480, 3508));
    EXPECT_GT(written.depth(), 8);
    QImage expected(written.size(), QImage::Format_RGB32);
    expected.fill(Qt::white);
    QPainter painter(&expected);
    FillGradient(painter);
    painter.end();
    EXPECT_EQ(Argb(written), Argb(expected));
}

TEST(PngPages, EveryPageOfAJobStartsBlank) {
    App();
    TempDir dir;
    // Page 1 is black all over, page 2 in many colours, page 3 is left empty.
    PrintPng(dir.Path() / "job.png", 3, [](QPainter& painter, int page) {
        if (page == 1) {
            painter.fillRect(QRect(0, 0, 2480, 3508), Qt::black);
        } else if (page == 2) {
            FillGradient(painter);
        }
    });
    QImage blank(2480, 3508, QImage::Format_RGB32);
    blank.fill(Qt::white);
    const QImage first = Load(dir.Path() / "job-1.png");
    EXPECT_EQ(first.pixel(2479, 3507), qRgb(0, 0, 0));
    EXPECT_EQ(first.dotsPerMeterX(), 11811);
    const QImage second = Load(dir.Path() / "job-2.png");
    EXPECT_EQ(second.pixel(50, 50), qRgb(255, 255, 255));
    EXPECT_EQ(second.pixel(2479, 3507), qRgb(255, 255, 255));
    const QImage third = Load(dir.Path() / "job-3.png");
    EXPECT_EQ(third.dotsPerMeterY(), 11811);
    EXPECT_EQ(Argb(third), Argb(blank));
}

}  // namespace
}  // namespace zantor
