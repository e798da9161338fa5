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

// The queue scripts/setup-cups.sh makes; ZANTOR_TEST_PRINTER names another cups-pdf queue.
std::string TestQueue() {
    const char* queue = std::getenv("ZANTOR_TEST_PRINTER");
    return queue != nullptr && *queue != '\0' ? queue : "ZantorPDF";
}

// Where cups-pdf puts this user's PDFs for `queue`: the Out line of the queue's own cups-pdf
// configuration (or the shared one), with ${HOME} and ${USER} filled in as cups-pdf does.
std::optional<std::filesystem::path> CupsPdfFolder(const std::string& queue) {
#ifdef __unix__
    const passwd* user = getpwuid(getuid());
    if (user == nullptr) {
        return std::nullopt;
    }
    for (const std::string& name :
         {"/etc/cups/cups-pdf-" + queue + ".conf", std::string("/etc/cups/cups-pdf.conf")}) {
        std::ifstream config(name);
        std::string line;
        while (std::getline(config, line)) {
            if (line.rfind("Out ", 0) != 0) {
                continue;
            }
            std::string folder = line.substr(4);
            for (const auto& [key, value] :
                 {std::pair<std::string, std::string>{"${HOME}", user->pw_dir},
                  std::pair<std::string, std::string>{"${USER}", user->pw_name}}) {
                for (auto at = folder.find(key); at != std::string::npos; at = folder.find(key)) {
                    folder.replace(at, key.size(), value);
                }
            }
            return std::filesystem::path(folder);
        }
    }
#else
    (void)queue;
#endif
    return std::nullopt;
}

std::set<std::filesystem::path> PdfsIn(const std::filesystem::path& folder) {
    std::set<std::filesystem::path> files;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(folder, error)) {
        if (entry.path().extension() == ".pdf") {
            files.insert(entry.path());
        }
    }
    return files;
}

// Waits (up to a minute) for a new PDF in `folder` that pdfinfo reads completely.
std::optional<std::filesystem::path> AwaitNewPdf(const std::filesystem::path& folder,
                                                 const std::set<std::filesystem::path>& before,
                                                 int pages) {
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    while (std::chrono::steady_clock::now() < deadline) {
        for (const auto& file : PdfsIn(folder)) {
            if (before.count(file) == 0) {
                const auto info = test::ReadPdfInfo(file);
                if (info && info->pages == pages) {
                    return file;
                }
            }
        }
        QThread::msleep(250);
    }
    return std::nullopt;
}

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

// The test queue and the folder its PDFs arrive in; the test is skipped when there is none.
class SystemPrinter : public ::testing::Test {
  protected:
    void SetUp() override {
        App();
        queue_ = TestQueue();
        if (QPrinterInfo::printerInfo(QString::fromStdString(queue_)).isNull()) {
            GTEST_SKIP() << "CUPS queue " << queue_
                         << " is not available (CUPS is not running here, or "
                            "scripts/setup-cups.sh has not set it up): the system print path "
                            "is not tested";
        }
        const auto folder = CupsPdfFolder(queue_);
        if (!folder) {
            GTEST_SKIP() << "no cups-pdf output folder is configured for " << queue_;
        }
        folder_ = *folder;
        before_ = PdfsIn(folder_);
    }

    // Removes a PDF the test has looked at. Other PDFs that arrive meanwhile may belong to a
    // test running beside this one, and are left to it.
    static void Remove(const std::filesystem::path& pdf) {
        std::error_code ignored;
        std::filesystem::remove(pdf, ignored);
    }

    std::string queue_;
    std::filesystem::path folder_;
    std::set<std::filesystem::path> before_;
};

TEST_F(SystemPrinter, ThreePagesArriveAsOnePdfOnThePrintersPaper) {
    PrinterTarget printer(queue_);
    const PageMetrics page = printer.Page();
    ASSERT_GT(page.pixelsPerInchX, 0);
    PrintTestPages(printer, 3);
    printer.EndDocument();
    EXPECT_TRUE(printer.WrittenFiles().empty());

    const auto pdf = AwaitNewPdf(folder_, before_, 3);
    ASSERT_TRUE(pdf) << "no PDF of 3 pages arrived in " << folder_ << " within a minute";
    const auto info = test::ReadPdfInfo(*pdf);
    ASSERT_TRUE(info);
    // The sheet the printer reported, in points.
    EXPECT_NEAR(info->widthPoints, page.physicalWidth * 72.0 / page.pixelsPerInchX, 1.0);
    EXPECT_NEAR(info->heightPoints, page.physicalHeight * 72.0 / page.pixelsPerInchY, 1.0);
    // The print path turns text into outlines, so the pages are told apart by their rules.
    const double left = page.physicalOffsetX * 25.4 / page.pixelsPerInchX;
    const double top = page.physicalOffsetY * 25.4 / page.pixelsPerInchY;
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
