// A whole run with the setup dialogs: the pens and the company name changed in the dialogs that
// the main window's Setup menu opens, then "Print Decal" to the cups-pdf queue; the PDF shows the
// change. Skipped where there is no such queue.

#include <QAction>
#include <QApplication>
#include <QImage>
#include <QLineEdit>
#include <QListWidget>
#include <QPrinterInfo>
#include <QPushButton>
#include <QTest>
#include <QThread>
#include <QTimer>
#include <chrono>
#include <functional>
#include <set>

#include "support/cups_pdf.h"
#include "support/page_test_support.h"
#include "ui/colour_cells.h"
#include "ui/decal_setup.h"
#include "ui/main_window.h"
#include "ui/options_setup.h"
#include "ui/select_decals.h"
#include "ui_test_support.h"

namespace zantor {
namespace {

// Runs `answer` on the modal dialog of type D once it is open.
template <typename D>
void WhenOpen(std::function<void(D&)> answer, bool& answered, int attemptsLeft = 200) {
    auto* dialog = qobject_cast<D*>(QApplication::activeModalWidget());
    if (dialog == nullptr) {
        if (attemptsLeft > 0) {
            QTimer::singleShot(50, [answer, &answered, attemptsLeft] {
                WhenOpen<D>(answer, answered, attemptsLeft - 1);
            });
        }
        return;
    }
    answered = true;
    answer(*dialog);
}

void PressOk(QDialog& dialog) {
    QTest::mouseClick(dialog.findChild<QPushButton*>(QStringLiteral("OKButton")), Qt::LeftButton);
}

// The red pixels of a page rendered at 50 dpi.
int RedPixels(const std::filesystem::path& pdf, const std::filesystem::path& folder) {
    const auto prefix = folder / "page";
    test::RunTool("pdftoppm",
                  {"-r", "50", "-png", "-singlefile", QString::fromStdString(pdf.string()),
                   QString::fromStdString(prefix.string())});
    const QImage image(QString::fromStdString(prefix.string() + ".png"));
    int red = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor c = image.pixelColor(x, y);
            red += c.red() > 180 && c.green() < 90 && c.blue() < 90 ? 1 : 0;
        }
    }
    return red;
}

class SetupPrintRun : public test::WindowTest {};

TEST_F(SetupPrintRun, PensAndCompanyChangedInTheSetupShowInThePrintedPdf) {
    const std::string queue = test::CupsPdfQueue();
    if (QPrinterInfo::printerInfo(QString::fromStdString(queue)).isNull()) {
        GTEST_SKIP() << "CUPS queue " << queue << " is not available (run scripts/setup-cups.sh)";
    }
    const auto folder = test::CupsPdfFolder(queue);
    if (!folder) {
        GTEST_SKIP() << "no cups-pdf output folder is configured for " << queue;
    }
    const auto before = test::PdfsIn(*folder);

    TMainForm window(services);
    window.SetInputFile(QString::fromStdString(SampleLibrary()));
    window.show();

    bool setupAnswered = false;
    QTimer::singleShot(0, [&setupAnswered] {
        WhenOpen<TDecalSetup>(
            [](TDecalSetup& setup) {
                setup.findChild<ColourPalette*>(QStringLiteral("ColorGrid"))->Choose(9);  // red
                auto* cells = setup.findChild<PenColourCells*>(QStringLiteral("PaintBox"));
                for (int colour : {kPenPads, kPenOutline}) {  // of the column "Any"
                    QTest::mouseClick(cells, Qt::LeftButton, {}, QPoint(10, 20 * colour - 10));
                }
                PressOk(setup);
            },
            setupAnswered);
    });
    window.findChild<QAction*>(QStringLiteral("D1"))->trigger();
    ASSERT_TRUE(setupAnswered);

    bool optionsAnswered = false;
    QTimer::singleShot(0, [&optionsAnswered] {
        WhenOpen<TOptionsSetup>(
            [](TOptionsSetup& options) {
                options.findChild<QLineEdit*>(QStringLiteral("Company"))->setText("SETUP RUN CO");
                PressOk(options);
            },
            optionsAnswered);
    });
    window.findChild<QAction*>(QStringLiteral("O1"))->trigger();
    ASSERT_TRUE(optionsAnswered);

    dialogs.printerAnswer = queue;
    bool selected = false;
    QTimer::singleShot(0, [&selected] {
        WhenOpen<TSelectDecals>(
            [](TSelectDecals& dialog) {
                auto* list = dialog.findChild<QListWidget*>(QStringLiteral("Namelist"));
                list->clearSelection();
                list->item(0)->setSelected(true);  // DIP8
                PressOk(dialog);
            },
            selected);
    });
    QTest::mouseClick(window.findChild<QPushButton*>(QStringLiteral("PrintDecal")), Qt::LeftButton);
    ASSERT_TRUE(selected);
    for (const std::string& text : messages.Texts()) {
        ADD_FAILURE() << text;
    }

    // Other tests print to the same queue, in black: this run's page is the new one in red. (The
    // queue's PDF keeps no readable text to find the company name by.)
    const test::TempDir pages;
    std::optional<std::filesystem::path> pdf;
    std::set<std::filesystem::path> seen = before;
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(60);
    while (!pdf && std::chrono::steady_clock::now() < deadline) {
        for (const auto& file : test::PdfsIn(*folder)) {
            const auto info = seen.count(file) == 0 ? test::ReadPdfInfo(file) : std::nullopt;
            if (info) {
                seen.insert(file);
                if (info->pages == 1 && RedPixels(file, pages.Path()) > 200) {
                    pdf = file;
                }
            }
        }
        QThread::msleep(250);
    }
    ASSERT_TRUE(pdf) << "no page with the pens of the setup dialog arrived in " << *folder;
    std::filesystem::remove(*pdf);
}

}  // namespace
}  // namespace zantor
