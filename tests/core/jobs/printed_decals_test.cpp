// Three decals of the sample library printed through the system print path to a real CUPS queue
// backed by cups-pdf, and the PDF that arrives. Where CUPS cannot run the test says so and is
// skipped.

#include <gtest/gtest.h>

#include <QImage>
#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "core/jobs/cups_pdf_queue.h"
#include "core/jobs/jobs_test_support.h"
#include "font/font_location.h"
#include "jobs/print_job.h"
#include "jobs/printer_target.h"
#include "support/test_support.h"

namespace zantor {
namespace {

using test::Dots;
using PrintedDecals = test::CupsPdfQueue;

// Whether a frame line runs down through (x, y): ink within half a millimetre to either side.
bool InkedColumn(const QImage& image, int x, int y) {
    for (int dx = -test::kDotsPerMm / 2; dx <= test::kDotsPerMm / 2; ++dx) {
        if (image.valid(x + dx, y) && qGray(image.pixel(x + dx, y)) < 160) {
            return true;
        }
    }
    return false;
}

TEST_F(PrintedDecals, ThreeDecalPagesArriveAsOneA4Pdf) {
    PlotContext context;
    RecordingMessages messages;
    context.PlotSettings.Inputfile = (test::SourceDir() / "data" / "samples" / "sample.d").string();
    ASSERT_TRUE(context.StrokeFont.Load(ResolveFontfile("romans.fnt").string(), messages));

    PrinterTarget printer(queue_);
    const PageMetrics page = printer.Page();
    ASSERT_GT(page.pixelsPerInchX, 0);
    PrintJob job(context, printer, messages);
    const PrintSummary summary =
        job.PrintDecals(std::vector<std::string>{"DIP8", "TO220", "SOT223"});
    EXPECT_EQ(summary.printed, 3);
    EXPECT_TRUE(printer.WrittenFiles().empty());
    EXPECT_TRUE(messages.Entries().empty());

    // The frame's left side stands at the left margin (or the printable area's edge, whichever
    // is further in), half way down the sheet, on every page: the test pages of other tests have
    // no line there.
    const PaperArea paper = PaperAreaOf(page);
    const double frameLeft = std::max(paper.leftOffset, context.PlotSettings.LeftMargin);
    const int x = Dots(frameLeft);
    const int y = Dots(paper.topOffset + paper.height / 2);
    const auto pdf = test::AwaitNewPdf(folder_, before_, 3, [&](const std::filesystem::path& file) {
        return InkedColumn(test::PageImage(file, 1), x, y);
    });
    ASSERT_TRUE(pdf) << "no PDF of 3 decal pages arrived in " << folder_ << " within a minute";
    const auto info = test::ReadPdfInfo(*pdf);
    ASSERT_TRUE(info);
    // A4, as the queue is set up, and the sheet the printer reported.
    EXPECT_NEAR(info->widthPoints, 595.3, 1.0);
    EXPECT_NEAR(info->heightPoints, 841.9, 1.0);
    EXPECT_NEAR(info->widthPoints, page.physicalWidth * 72.0 / page.pixelsPerInchX, 1.0);
    for (int n = 1; n <= 3; ++n) {
        const QImage image = test::PageImage(*pdf, n);
        ASSERT_FALSE(image.isNull()) << "page " << n;
        EXPECT_TRUE(InkedColumn(image, x, y)) << "page " << n;
        // Nothing left of the frame but the margin.
        EXPECT_FALSE(InkedColumn(image, Dots(frameLeft / 2), y)) << "page " << n;
    }
    if (!HasFailure()) {
        Remove(*pdf);
    }
}

}  // namespace
}  // namespace zantor
