// The preview window (its page and its portrait shape) and the progress window, which runs a
// job to its end or cancels it between two decals.

#include <QImage>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include "jobs/print_job.h"
#include "output/output_choice.h"
#include "support/page_test_support.h"
#include "ui/preview_window.h"
#include "ui/progress_window.h"
#include "ui_test_support.h"

namespace zantor {
namespace {

class Windows : public test::WindowTest {
  protected:
    void SetUp() override { PrepareDecalJob(SampleLibrary()); }

    static double InkShare(const QImage& image) {
        int ink = 0;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                ink += qGray(image.pixel(x, y)) < 200 ? 1 : 0;
            }
        }
        return static_cast<double>(ink) / (image.width() * image.height());
    }
};

TEST(PreviewWidth, IsTheHeightTimesPoint707RoundedHalfToEven) {
    EXPECT_EQ(PreviewWidthForHeight(500), 354);    // 353.5
    EXPECT_EQ(PreviewWidthForHeight(1500), 1060);  // 1060.5
    EXPECT_EQ(PreviewWidthForHeight(380), 269);
    EXPECT_EQ(PreviewWidthForHeight(100), 71);
}

TEST_F(Windows, PreviewKeepsThePageShapeAndDrawsTheDecalPage) {
    TPreviewWin preview(services, {"TO220"});
    EXPECT_EQ(preview.windowTitle(), "Zantor Preview");
    preview.show();
    preview.resize(700, 500);
    EXPECT_EQ(preview.size(), QSize(354, 500));
    preview.resize(200, 200);
    EXPECT_EQ(preview.minimumSize(), QSize(269, 380));
    EXPECT_GE(preview.height(), 380);
    EXPECT_EQ(preview.width(), PreviewWidthForHeight(preview.height()));

    const QImage page = preview.PaintBox()->grab().toImage();
    EXPECT_EQ(preview.windowTitle(), "Decalpage");
    EXPECT_EQ(context.OutputTarget, PlotSurface::PreviewWindow);
    // A page with its frame and title block, not an empty box.
    EXPECT_GT(InkShare(page), 0.01);
    EXPECT_TRUE(messages.Entries().empty());
}

TEST_F(Windows, ProgressRunsTheJobToItsEndAndClosesItself) {
    const test::TempDir dir;
    OutputRequest request;
    request.file = dir.Path() / "run.pdf";
    const auto target = MakePageOutput(request);
    const std::vector<std::string> names = {"DIP8", "TO220", "SOT223"};
    TProcWin progress(
        *target,
        [&](PrintProgress& shown) {
            PrintJob job(context, *target, messages);
            job.PrintDecals(names, &shown);
        },
        messages);
    EXPECT_EQ(progress.windowTitle(), "Printing decals");
    EXPECT_EQ(progress.exec(), QDialog::Accepted);
    EXPECT_FALSE(progress.Cancelled());
    EXPECT_EQ(progress.findChild<QLabel*>(QStringLiteral("NameDisp"))->text(),
              "Printing completed.");
    const auto* bar = progress.findChild<QProgressBar*>(QStringLiteral("ProgressBar1"));
    EXPECT_EQ(bar->maximum(), 3);
    EXPECT_EQ(bar->value(), 3);
    EXPECT_EQ(progress.findChild<QPushButton*>(QStringLiteral("ExitButton"))->text(), "OK");
    const auto info = test::ReadPdfInfo(request.file);
    ASSERT_TRUE(info);
    EXPECT_EQ(info->pages, 3);
}

TEST_F(Windows, CancelStopsTheRunBeforeTheNextDecalAndWritesNothing) {
    const test::TempDir dir;
    OutputRequest request;
    request.file = dir.Path() / "run.pdf";
    const auto target = MakePageOutput(request);
    const std::vector<std::string> names = {"DIP8", "TO220", "SOT223"};
    int looked = 0;
    struct Counting : PrintProgress {
        PrintProgress& shown;
        int& looked;
        Counting(PrintProgress& s, int& l) : shown(s), looked(l) {}
        void Started(int total) override { shown.Started(total); }
        void Looking(const std::string& name) override {
            ++looked;
            shown.Looking(name);
        }
        void Position(int printed) override { shown.Position(printed); }
        void Finished(const std::string& text) override { shown.Finished(text); }
    };
    TProcWin* window = nullptr;
    TProcWin progress(
        *target,
        [&](PrintProgress& shown) {
            // The user presses Cancel while the first decal is drawn.
            QTimer::singleShot(0, window, [window] {
                QTest::mouseClick(window->findChild<QPushButton*>(QStringLiteral("ExitButton")),
                                  Qt::LeftButton);
            });
            Counting counting(shown, looked);
            PrintJob job(context, *target, messages);
            job.PrintDecals(names, &counting);
        },
        messages);
    window = &progress;
    EXPECT_EQ(progress.exec(), QDialog::Rejected);
    EXPECT_TRUE(progress.Cancelled());
    EXPECT_EQ(looked, 1);
    EXPECT_TRUE(target->Aborted());
    EXPECT_FALSE(std::filesystem::exists(request.file));
    EXPECT_TRUE(messages.Entries().empty());
}

TEST_F(Windows, AFailingJobIsReportedAndTheWindowCloses) {
    const test::TempDir dir;
    OutputRequest request;
    request.file = dir.Path() / "run.pdf";
    const auto target = MakePageOutput(request);
    context.PlotSettings.Inputfile = (dir.Path() / "vanished.d").string();
    TProcWin progress(
        *target,
        [&](PrintProgress& shown) {
            PrintJob job(context, *target, messages);
            job.PrintDecals(std::vector<std::string>{"DIP8"}, &shown);
        },
        messages);
    EXPECT_EQ(progress.exec(), QDialog::Rejected);
    ASSERT_EQ(messages.Entries().size(), 1u);
    EXPECT_NE(messages.Texts()[0].find("vanished.d"), std::string::npos) << messages.Texts()[0];
    EXPECT_FALSE(std::filesystem::exists(request.file));
}

}  // namespace
}  // namespace zantor
