// Printing through the system print path to a real CUPS queue backed by cups-pdf, and reading
// the PDF that arrives. scripts/setup-cups.sh sets the queue up; where CUPS cannot run the test
// says so and is skipped.

#include <gtest/gtest.h>

#include <QImage>
#include <QPrinterInfo>
#include <QString>
#include <QThread>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>
#include <set>
#include <string>

#include "core/jobs/cups_pdf_queue.h"
#include "core/jobs/jobs_test_support.h"
#include "jobs/printer_target.h"
#include "support/test_support.h"

#ifdef __unix__
#include <pwd.h>
#include <unistd.h>
#endif

namespace zantor {
namespace {

using test::App;
using test::AwaitNewPdf;
using test::Dots;
using test::kDotsPerMm;
using test::PageImage;
using test::PdfsIn;
using SystemPrinter = test::CupsPdfQueue;

// Whether a line crosses (x, y): ink within half a millimetre above or below.
bool InkedRow(const QImage& image, int x, int y) {
    for (int dy = -kDotsPerMm / 2; dy <= kDotsPerMm / 2; ++dy) {
        if (image.valid(x, y + dy) && qGray(image.pixel(x, y + dy)) < 160) {
            return true;
        }
    }
    return false;
}

// Page n of a test job: its number, and a rule 5 + n cm below the top of the printable area,
// from 2 cm to 10 cm.
void DrawTestPage(PlotCanvas& canvas, int n) {
    canvas.SetPenColour(0);
    canvas.SetTextColour(0);
    canvas.SetPenWidth(50);
    canvas.Text(2000, -3000, "PRINTED PAGE " + std::to_string(n), "Liberation Sans", 800);
    canvas.MoveTo(2000, -(5000 + 1000 * n));
    canvas.LineTo(10000, -(5000 + 1000 * n));
}

void PrintTestPages(PrinterTarget& printer, int pages) {
    printer.BeginDocument();
    for (int n = 1; n <= pages; ++n) {
        if (n > 1) {
            printer.NewPage();
        }
        DrawTestPage(printer.Canvas(), n);
    }
}

TEST_F(SystemPrinter, ThreePagesArriveAsOnePdfOnThePrintersPaper) {
    PrinterTarget printer(queue_);
    const PageMetrics page = printer.Page();
    ASSERT_GT(page.pixelsPerInchX, 0);
    PrintTestPages(printer, 3);
    printer.EndDocument();
    EXPECT_TRUE(printer.WrittenFiles().empty());

    const double left = page.physicalOffsetX * 25.4 / page.pixelsPerInchX;
    const double top = page.physicalOffsetY * 25.4 / page.pixelsPerInchY;
    // Another test may print three pages meanwhile: this job's first page has the first rule.
    const auto pdf = AwaitNewPdf(folder_, before_, 3, [&](const std::filesystem::path& file) {
        return InkedRow(PageImage(file, 1), Dots(left + 60), Dots(top + 60));
    });
    ASSERT_TRUE(pdf) << "no PDF of 3 pages arrived in " << folder_ << " within a minute";
    const auto info = test::ReadPdfInfo(*pdf);
    ASSERT_TRUE(info);
    // The sheet the printer reported, in points.
    EXPECT_NEAR(info->widthPoints, page.physicalWidth * 72.0 / page.pixelsPerInchX, 1.0);
    EXPECT_NEAR(info->heightPoints, page.physicalHeight * 72.0 / page.pixelsPerInchY, 1.0);
    // The print path turns text into outlines, so the pages are told apart by their rules.
    for (int n = 1; n <= 3; ++n) {
        const QImage image = PageImage(*pdf, n);
        ASSERT_FALSE(image.isNull()) << "page " << n;
        const int x = Dots(left + 60);
        for (int rule = 1; rule <= 3; ++rule) {
            EXPECT_EQ(InkedRow(image, x, Dots(top + 50 + 10 * rule)), rule == n)
                << "page " << n << ", rule of page " << rule;
        }
    }
    // A PDF that fails the checks is left for a look.
    if (!HasFailure()) {
        Remove(*pdf);
    }
}

TEST_F(SystemPrinter, AnAbortedDocumentNeverReachesTheQueue) {
    PrinterTarget printer(queue_);
    PrintTestPages(printer, 2);
    printer.Abort();
    EXPECT_TRUE(printer.Aborted());
    // The queue prints in order: had the aborted document gone out, it would arrive first.
    PrintTestPages(printer, 1);
    printer.EndDocument();
    const auto pdf = AwaitNewPdf(folder_, before_, 1);
    ASSERT_TRUE(pdf) << "no PDF of 1 page arrived in " << folder_ << " within a minute";
    Remove(*pdf);
    // Tests beside this one print other page counts; two pages can only be the aborted document.
    for (const auto& file : PdfsIn(folder_)) {
        if (before_.count(file) == 0) {
            const auto info = test::ReadPdfInfo(file);
            EXPECT_FALSE(info && info->pages == 2) << file << " arrived";
        }
    }
}

}  // namespace
}  // namespace zantor
