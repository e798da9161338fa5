// Printing through the system print path to a real CUPS queue backed by cups-pdf (the one
// scripts/setup-cups.sh makes, or ZANTOR_TEST_PRINTER), and reading the PDF that arrives. Where
// there is no such queue the tests say so and are skipped.

#include <gtest/gtest.h>

#include <QImage>
#include <QPrinterInfo>
#include <QString>
#include <QThread>
#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "font/font_location.h"
#include "jobs/print_job.h"
#include "output/printer_target.h"
#include "support/cups_pdf.h"
#include "support/page_test_support.h"
#include "support/recording_messages.h"
#include "support/test_support.h"

namespace zantor {
namespace {

// Pages are rendered at 5 dots per millimetre.
constexpr int kDotsPerMm = 5;

int Dots(double millimetres) {
    return static_cast<int>(millimetres * kDotsPerMm + 0.5);
}

QImage PageImage(const std::filesystem::path& pdf, int page) {
    const test::TempDir dir;
    const QString number = QString::number(page);
    const QString prefix = QString::fromStdString((dir.Path() / "page").string());
    if (!test::RunTool("pdftoppm",
                       {"-r", QString::number(kDotsPerMm * 25.4), "-f", number, "-l", number,
                        "-singlefile", "-png", QString::fromStdString(pdf.string()), prefix})) {
        return {};
    }
    return QImage(prefix + ".png");
}

// Whether a frame line runs down through (x, y): ink within half a millimetre to either side.
bool InkedColumn(const QImage& image, int x, int y) {
    for (int dx = -kDotsPerMm / 2; dx <= kDotsPerMm / 2; ++dx) {
        if (image.valid(x + dx, y) && qGray(image.pixel(x + dx, y)) < 160) {
            return true;
        }
    }
    return false;
}

class Printer : public ::testing::Test {
  protected:
    void SetUp() override {
        test::App();
        queue_ = test::CupsPdfQueue();
        if (QPrinterInfo::printerInfo(QString::fromStdString(queue_)).isNull()) {
            GTEST_SKIP() << "CUPS queue " << queue_
                         << " is not available (CUPS is not running here, or "
                            "scripts/setup-cups.sh has not set it up): the system print path "
                            "is not tested";
        }
        const auto folder = test::CupsPdfFolder(queue_);
        if (!folder) {
            GTEST_SKIP() << "no cups-pdf output folder is configured for " << queue_;
        }
        folder_ = *folder;
        before_ = test::PdfsIn(folder_);
        context_.PlotSettings.Inputfile =
            (test::SourceDir() / "data" / "samples" / "sample.d").string();
        ASSERT_TRUE(context_.StrokeFont.Load(ResolveFontfile("romans.fnt").string(), messages_));
    }

    // Waits (up to a minute) for a new PDF of `pages` pages that pdfinfo reads completely and
    // that `belongs` takes for the one awaited: tests beside this one may print too.
    std::optional<std::filesystem::path> AwaitNewPdf(
        int pages, const std::function<bool(const std::filesystem::path&)>& belongs) {
        const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(60);
        while (std::chrono::steady_clock::now() < deadline) {
            for (const auto& file : test::PdfsIn(folder_)) {
                const auto info = before_.count(file) == 0 ? test::ReadPdfInfo(file) : std::nullopt;
                if (info && info->pages == pages && belongs(file)) {
                    return file;
                }
            }
            QThread::msleep(250);
        }
        return std::nullopt;
    }

    std::string queue_;
    std::filesystem::path folder_;
    std::set<std::filesystem::path> before_;
    PlotContext context_;
    RecordingMessages messages_;
};

TEST_F(Printer, ThreeDecalPagesArriveAsOneA4Pdf) {
    PrinterTarget printer(queue_);
    const PageMetrics page = printer.Page();
    ASSERT_GT(page.pixelsPerInchX, 0);
    PrintJob job(context_, printer, messages_);
    EXPECT_EQ(job.PrintDecals(std::vector<std::string>{"DIP8", "TO220", "SOT223"}).printed, 3);
    EXPECT_TRUE(printer.WrittenFiles().empty());
    EXPECT_TRUE(messages_.Entries().empty());

    // The frame's left side stands at the left margin (or the printable area's edge, whichever
    // is further in), half way down the sheet, on every page.
    const PaperArea paper = PaperAreaOf(page);
    const double frameLeft = std::max(paper.leftOffset, context_.PlotSettings.LeftMargin);
    const int x = Dots(frameLeft);
    const int y = Dots(paper.topOffset + paper.height / 2);
    const auto pdf = AwaitNewPdf(3, [&](const std::filesystem::path& file) {
        return InkedColumn(PageImage(file, 1), x, y);
    });
    ASSERT_TRUE(pdf) << "no PDF of 3 decal pages arrived in " << folder_ << " within a minute";
    const auto info = test::ReadPdfInfo(*pdf);
    ASSERT_TRUE(info);
    // A4, as the queue is set up, and the sheet the printer reported.
    EXPECT_NEAR(info->widthPoints, 595.3, 1.0);
    EXPECT_NEAR(info->heightPoints, 841.9, 1.0);
    EXPECT_NEAR(info->widthPoints, page.physicalWidth * 72.0 / page.pixelsPerInchX, 1.0);
    for (int n = 1; n <= 3; ++n) {
        const QImage image = PageImage(*pdf, n);
        ASSERT_FALSE(image.isNull()) << "page " << n;
        EXPECT_TRUE(InkedColumn(image, x, y)) << "page " << n;
        EXPECT_FALSE(InkedColumn(image, Dots(frameLeft / 2), y)) << "page " << n;
    }
    // A PDF that fails the checks is left for a look.
    if (!HasFailure()) {
        std::filesystem::remove(*pdf);
    }
}

}  // namespace
}  // namespace zantor
