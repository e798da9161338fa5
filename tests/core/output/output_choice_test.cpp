#include "output/output_choice.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "common/errors.h"
#include "output/file_output.h"
#include "output/pdf_target.h"
#include "output/trace_target.h"
#include "support/page_test_support.h"
#include "support/test_support.h"

namespace zantor {
namespace {

using test::App;
using test::TempDir;

OutputRequest ToFile(const std::filesystem::path& file, PaperSize paper = PaperSize::A4) {
    return {"", file, paper, false};
}

// Page n: its number as text and a rule 2 + n cm below the top edge, 1 cm to 5 cm from the left,
// so that the pages of a file can be told apart and found where the printer mapping puts them.
void DrawPage(PlotCanvas& canvas, int n) {
    canvas.SetPenColour(0);
    canvas.SetTextColour(0);
    canvas.SetPenWidth(50);
    canvas.Text(2000, -3000, "PAGE " + std::to_string(n), "Liberation Sans", 800);
    canvas.MoveTo(1000, -(2000 + 1000 * n));
    canvas.LineTo(5000, -(2000 + 1000 * n));
}

// Documents of the given page counts, each page drawn with its number over the job.
void PrintDocuments(PageOutput& target, const std::vector<int>& pagesPerDocument) {
    int page = 0;
    for (int pages : pagesPerDocument) {
        target.BeginDocument();
        for (int i = 0; i < pages; ++i) {
            if (i > 0) {
                target.NewPage();
            }
            DrawPage(target.Canvas(), ++page);
        }
        target.EndDocument();
    }
}

std::vector<std::string> FileNames(const std::filesystem::path& folder) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
}

bool Inked(const QImage& image, int x, int y) {
    return image.valid(x, y) && image.pixel(x, y) != qRgb(255, 255, 255);
}

// The rule of page n on an image of `dotsPerMm`: inked on its row, white 3 mm below it.
void ExpectRuleOfPage(const QImage& image, int n, double dotsPerMm) {
    const int row = static_cast<int>((20.0 + 10.0 * n) * dotsPerMm + 0.5);
    const int column = static_cast<int>(30.0 * dotsPerMm);
    EXPECT_TRUE(Inked(image, column, row)) << "page " << n;
    EXPECT_FALSE(Inked(image, column, row + static_cast<int>(3 * dotsPerMm))) << "page " << n;
}

TEST(OutputTargets, PaperAndFileKindByName) {
    EXPECT_EQ(ParsePaperSize("LETTER"), PaperSize::Letter);
    EXPECT_FALSE(ParsePaperSize("A5"));
    EXPECT_EQ(FileOutputKind("out.PDF"), OutputKind::Pdf);
    EXPECT_EQ(FileOutputKind("x.Png"), OutputKind::Png);
    EXPECT_FALSE(FileOutputKind("pdf"));
    try {
        MakePageOutput(ToFile("/tmp/out.jpg"));
        FAIL() << "no error";
    } catch (const IoError& error) {
        EXPECT_EQ(error.file(), "/tmp/out.jpg");
    }
    App();
    EXPECT_THROW(MakePageOutput(OutputRequest{"NoSuchZantorQueue", {}, PaperSize::A4, false}),
                 IoError);
}

TEST(OutputTargets, PaperAreaFromThePrintersMetrics) {
    PageMetrics page;
    page.widthMm = 200;
    page.heightMm = 280;
    page.physicalWidth = 1000;  // 254 mm at 100 dots per inch
    page.physicalHeight = 1200;
    page.physicalOffsetX = 50;
    page.physicalOffsetY = 20;
    page.pixelsPerInchX = 100;
    page.pixelsPerInchY = 100;
    const PaperArea paper = PaperAreaOf(page);
    EXPECT_DOUBLE_EQ(paper.width, 200);
    EXPECT_DOUBLE_EQ(paper.height, 280);
    EXPECT_DOUBLE_EQ(paper.leftOffset, 12.7);
    EXPECT_DOUBLE_EQ(paper.topOffset, 5.08);
    EXPECT_NEAR(paper.rightOffset, 254 - 200 - 12.7, 1e-9);
    EXPECT_NEAR(paper.bottomOffset, 304.8 - 280 - 5.08, 1e-9);
    // Files print to the sheet's edges.
    const PaperArea a4 =
        PaperAreaOf(PdfTarget("x.pdf", PaperSize::A4, DocumentFiles::Single).Page());
    EXPECT_DOUBLE_EQ(a4.leftOffset, 0);
    EXPECT_NEAR(a4.rightOffset, 0, 0.02);
    EXPECT_DOUBLE_EQ(a4.bottomOffset, 0);  // 14031 dots are a hair short of 297 mm
}

TEST(OutputTargets, DocumentStateAndPageCounts) {
    TempDir dir;
    TraceTarget target(dir.Path() / "run.trace", PaperSize::A4, DocumentFiles::Numbered);
    EXPECT_FALSE(target.Printing());
    // Drawing outside a document goes nowhere.
    DrawPage(target.Canvas(), 9);
    target.BeginDocument();
    EXPECT_TRUE(target.Printing());
    target.NewPage();
    target.NewPage();
    EXPECT_EQ(target.DocumentPages(), 3);
    target.EndDocument();
    EXPECT_FALSE(target.Printing());
    target.BeginDocument();
    EXPECT_EQ(target.DocumentPages(), 1);
    EXPECT_EQ(target.JobPages(), 4);
    target.Abort();
    EXPECT_TRUE(target.Aborted());
    EXPECT_FALSE(target.Printing());
    // A new document clears the aborted state.
    target.BeginDocument();
    EXPECT_FALSE(target.Aborted());
    target.EndDocument();
    EXPECT_EQ(target.WrittenFiles(), (std::vector<std::filesystem::path>{
                                         dir.Path() / "run-1.trace", dir.Path() / "run-3.trace"}));
    EXPECT_EQ(FileNames(dir.Path()), (std::vector<std::string>{"run-1.trace", "run-3.trace"}));
    EXPECT_EQ(test::ReadFileText(dir.Path() / "run-1.trace"), "page 1\npage 2\npage 3\n");
}

TEST(OutputTargets, PdfIsOneFileOfAllPagesOnTheChosenPaper) {
    App();
    TempDir dir;
    auto target = MakePageOutput(ToFile(dir.Path() / "index.pdf", PaperSize::Letter));
    PrintDocuments(*target, {3});
    const auto info = test::ReadPdfInfo(dir.Path() / "index.pdf");
    ASSERT_TRUE(info);
    EXPECT_EQ(info->pages, 3);
    EXPECT_NEAR(info->widthPoints, 612.0, 0.01);
    EXPECT_NEAR(info->heightPoints, 792.0, 0.01);
    const std::string second = test::PdfPageText(dir.Path() / "index.pdf", 2);
    EXPECT_TRUE(second.find("PAGE 2") != std::string::npos &&
                second.find("PAGE 3") == std::string::npos);
    // The file holds one document.
    EXPECT_THROW(target->BeginDocument(), IoError);
    EXPECT_FALSE(target->Printing());
    EXPECT_EQ(FileNames(dir.Path()), std::vector<std::string>{"index.pdf"});
}

TEST(OutputTargets, PngAndSvgPagesAreNumberedFilesInThePrinterMapping) {
    App();
    TempDir dir;
    PrintDocuments(*MakePageOutput(ToFile(dir.Path() / "page.png", PaperSize::Legal)), {1, 1});
    PrintDocuments(*MakePageOutput(ToFile(dir.Path() / "sheet.svg")), {1, 2});
    EXPECT_EQ(FileNames(dir.Path()),
              (std::vector<std::string>{"page-1.png", "page-2.png", "sheet-1.svg", "sheet-2.svg",
                                        "sheet-3.svg"}));
    for (int n = 1; n <= 2; ++n) {
        const QImage image(PathText(dir.Path() / ("page-" + std::to_string(n) + ".png")));
        EXPECT_EQ(image.size(), QSize(2550, 4200));
        ExpectRuleOfPage(image, n, 300 / 25.4);
    }
    for (int n = 1; n <= 3; ++n) {
        const auto file = dir.Path() / ("sheet-" + std::to_string(n) + ".svg");
        EXPECT_NE(test::ReadFileText(file).find("width=\"210mm\" height=\"297mm\""),
                  std::string::npos);
        QSvgRenderer renderer(PathText(file));
        // Rendered at 2 dots per millimetre.
        QImage image(420, 594, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        renderer.render(&painter);
        painter.end();
        ExpectRuleOfPage(image, n, 2.0);
    }
}

TEST(OutputTargets, AbortedOrFailedDocumentsLeaveTheOldFilesAndNoOther) {
    App();
    TempDir dir;
    const auto old = dir.WriteFile("report.pdf", "old report");
    dir.WriteFile("scan-1.svg", "old first page");
    auto pdf = MakePageOutput(ToFile(old));
    pdf->BeginDocument();
    DrawPage(pdf->Canvas(), 1);
    pdf->NewPage();
    pdf->Abort();
    EXPECT_TRUE(pdf->WrittenFiles().empty());
    try {
        auto svg = MakePageOutput(ToFile(dir.Path() / "scan.svg"));
        svg->BeginDocument();
        DrawPage(svg->Canvas(), 1);
        svg->NewPage();
        throw FormatError("the decal ends early");
    } catch (const FormatError&) {
    }
    EXPECT_EQ(test::ReadFileText(old), "old report");
    EXPECT_EQ(test::ReadFileText(dir.Path() / "scan-1.svg"), "old first page");
    EXPECT_EQ(FileNames(dir.Path()), (std::vector<std::string>{"report.pdf", "scan-1.svg"}));
}

TEST(OutputTargets, WritingErrorsNameTheFile) {
    App();
    TempDir dir;
    const auto missingFolder = dir.Path() / "no-such-folder" / "out.pdf";
    auto target = MakePageOutput(ToFile(missingFolder));
    try {
        target->BeginDocument();
        FAIL() << "no error";
    } catch (const IoError& error) {
        EXPECT_EQ(error.file(), missingFolder.string());
    }
    EXPECT_FALSE(target->Printing());

    // A folder where the file should go: the document cannot be put in place.
    std::filesystem::create_directory(dir.Path() / "taken.trace");
    auto trace = MakePageOutput(ToFile(dir.Path() / "taken.trace"));
    trace->BeginDocument();
    DrawPage(trace->Canvas(), 1);
    try {
        trace->EndDocument();
        FAIL() << "no error";
    } catch (const IoError& error) {
        EXPECT_EQ(error.file(), (dir.Path() / "taken.trace").string());
    }
    EXPECT_FALSE(trace->Printing());
    EXPECT_EQ(FileNames(dir.Path()), std::vector<std::string>{"taken.trace"});
    EXPECT_TRUE(std::filesystem::is_empty(dir.Path() / "taken.trace"));
}

}  // namespace
}  // namespace zantor
