// One whole print run as a user makes it: the main window's "Print Decal", four decals chosen in
// the selection dialog, OK, the printer dialog's choice of the cups-pdf queue, the progress
// window, and the PDF that the queue writes. Skipped where there is no such queue.

#include <QApplication>
#include <QListWidget>
#include <QPrinterInfo>
#include <QPushButton>
#include <QTest>
#include <QThread>
#include <QTimer>
#include <chrono>

#include "support/cups_pdf.h"
#include "support/page_test_support.h"
#include "ui/main_window.h"
#include "ui/select_decals.h"
#include "ui_test_support.h"

namespace zantor {
namespace {

class PrintRun : public test::WindowTest {};

// Chooses rows `rows` in the selection dialog once it is open and presses OK.
void AnswerSelectionDialog(std::vector<int> rows, int attemptsLeft, bool& answered) {
    auto* dialog = qobject_cast<TSelectDecals*>(QApplication::activeModalWidget());
    if (dialog == nullptr) {
        if (attemptsLeft > 0) {
            QTimer::singleShot(50, [rows, attemptsLeft, &answered] {
                AnswerSelectionDialog(rows, attemptsLeft - 1, answered);
            });
        }
        return;
    }
    auto* list = dialog->findChild<QListWidget*>(QStringLiteral("Namelist"));
    list->clearSelection();
    for (int row : rows) {
        list->item(row)->setSelected(true);
    }
    answered = true;
    QTest::mouseClick(dialog->findChild<QPushButton*>(QStringLiteral("OKButton")), Qt::LeftButton);
}

TEST_F(PrintRun, FromTheMainWindowToThePrinterQueue) {
    const std::string queue = test::CupsPdfQueue();
    if (QPrinterInfo::printerInfo(QString::fromStdString(queue)).isNull()) {
        GTEST_SKIP() << "CUPS queue " << queue
                     << " is not available (run scripts/setup-cups.sh): the print run to a "
                        "printer is not tested";
    }
    const auto folder = test::CupsPdfFolder(queue);
    if (!folder) {
        GTEST_SKIP() << "no cups-pdf output folder is configured for " << queue;
    }
    const auto before = test::PdfsIn(*folder);

    TMainForm window(services);
    window.SetInputFile(QString::fromStdString(SampleLibrary()));
    window.show();
    dialogs.printerAnswer = queue;
    bool answered = false;
    // DIP8, SO8, R0603 and HDR2X5 of the sample library.
    QTimer::singleShot(0, [&answered] { AnswerSelectionDialog({0, 1, 2, 4}, 200, answered); });
    QTest::mouseClick(window.findChild<QPushButton*>(QStringLiteral("PrintDecal")), Qt::LeftButton);
    ASSERT_TRUE(answered);
    EXPECT_EQ(dialogs.printDialogs, 1);
    EXPECT_TRUE(messages.Entries().empty()) << messages.Texts().front();
    // The font is let go after the command.
    EXPECT_TRUE(context.StrokeFont.Empty());

    std::optional<std::filesystem::path> pdf;
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    while (!pdf && std::chrono::steady_clock::now() < deadline) {
        for (const auto& file : test::PdfsIn(*folder)) {
            const auto info = before.count(file) == 0 ? test::ReadPdfInfo(file) : std::nullopt;
            // Other tests print three pages to the queue; this run prints four.
            if (info && info->pages == 4) {
                pdf = file;
            }
        }
        QThread::msleep(250);
    }
    ASSERT_TRUE(pdf) << "no PDF of the four decal pages arrived in " << *folder;
    // The queue's A4 paper, as the printer dialog left it.
    EXPECT_NEAR(test::ReadPdfInfo(*pdf)->widthPoints, 595.3, 1.0);
    std::filesystem::remove(*pdf);
}

TEST_F(PrintRun, ParttypesFromTheMainWindowToAPdfFileChosenInThePrintDialog) {
    const test::TempDir dir;
    const std::filesystem::path pdf = dir.Path() / "parttypes.pdf";
    TMainForm window(services);
    window.SetInputFile(QString::fromStdString(
        (test::DataDir() / "library" / "catalogue" / "v9_parttypes.p").string()));
    window.show();
    dialogs.printerAnswer = pdf.string();
    dialogs.printToFile = true;
    // The paper chosen for the printer is the paper of the run.
    printer.setPageSize(QPageSize(QPageSize::A3));
    bool answered = false;
    QTimer::singleShot(0, [&answered] { AnswerSelectionDialog({0, 1}, 200, answered); });
    QTest::mouseClick(window.findChild<QPushButton*>(QStringLiteral("PrintParttype")),
                      Qt::LeftButton);
    ASSERT_TRUE(answered);
    EXPECT_EQ(context.PlotKind, PlotKind::Parttype);
    const auto info = test::ReadPdfInfo(pdf);
    ASSERT_TRUE(info) << "no PDF at " << pdf;
    EXPECT_GE(info->pages, 2);
    EXPECT_NEAR(info->widthPoints, 841.9, 1.0);
    for (const std::string& text : messages.Texts()) {
        ADD_FAILURE() << text;
    }
}

}  // namespace
}  // namespace zantor
