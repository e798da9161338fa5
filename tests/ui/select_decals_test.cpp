// The selection dialog: the catalogue with its filters, the status texts, the view box, the
// export of names and the printer dialog on OK.

#include <QComboBox>
#include <QImage>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>

#include "ui/name_export.h"
#include "ui/select_decals.h"
#include "ui_test_support.h"

namespace zantor {
namespace {

const std::vector<std::string> kSampleDecals = {"DIP8",  "SO8",    "R0603",
                                                "TO220", "HDR2X5", "SOT223"};

class SelectDecals : public test::WindowTest {
  protected:
    void SetUp() override { PrepareDecalJob(SampleLibrary()); }

    template <typename T>
    static T* Child(const TSelectDecals& dialog, const char* name) {
        return dialog.findChild<T*>(QString::fromLatin1(name));
    }

    static std::vector<std::string> Listed(const TSelectDecals& dialog) {
        std::vector<std::string> names;
        const auto* list = Child<QListWidget>(dialog, "Namelist");
        for (int row = 0; row < list->count(); ++row) {
            names.push_back(list->item(row)->text().toStdString());
        }
        return names;
    }

    static void SelectOnly(TSelectDecals& dialog, std::initializer_list<int> rows) {
        auto* list = Child<QListWidget>(dialog, "Namelist");
        list->clearSelection();
        for (int row : rows) {
            list->item(row)->setSelected(true);
        }
    }

    // The pixels of the view box that are neither white nor on its black outline.
    static int InkInsideView(const TSelectDecals& dialog) {
        QWidget* view = Child<QWidget>(dialog, "View");
        const QImage image = view->grab().toImage();
        int ink = 0;
        for (int y = 1; y < image.height() - 1; ++y) {
            for (int x = 1; x < image.width() - 1; ++x) {
                ink += image.pixel(x, y) != qRgb(255, 255, 255) ? 1 : 0;
            }
        }
        return ink;
    }
};

TEST_F(SelectDecals, ListsTheDecalsAllSelectedAndEveryFilterChangeSelectsAllAgain) {
    TSelectDecals dialog(services);
    dialog.show();
    EXPECT_EQ(dialog.windowTitle(), "Select items to print");
    EXPECT_EQ(dialog.size(), QSize(612, 348));
    EXPECT_EQ(Child<QWidget>(dialog, "View")->size(), QSize(217, 301));
    EXPECT_EQ(Listed(dialog), kSampleDecals);
    EXPECT_EQ(dialog.SelectedNames(), kSampleDecals);
    EXPECT_EQ(dialog.StatusText(0), "Decals in file:     6");
    EXPECT_EQ(dialog.StatusText(1), "Selected:     6");
    // Decal jobs filter by pins; the contents filter and the library list are for parttypes.
    EXPECT_TRUE(Child<QWidget>(dialog, "PinsPanel")->isVisible());
    EXPECT_FALSE(Child<QWidget>(dialog, "SelectedParts")->isVisible());
    EXPECT_FALSE(Child<QWidget>(dialog, "btnLibList")->isVisible());

    SelectOnly(dialog, {1});
    EXPECT_EQ(dialog.StatusText(1), "Selected:     1");
    Child<QSpinBox>(dialog, "Terminals")->setValue(8);
    EXPECT_EQ(Listed(dialog), (std::vector<std::string>{"DIP8", "SO8"}));
    EXPECT_EQ(dialog.SelectedNames(), Listed(dialog));
    EXPECT_EQ(dialog.StatusText(0), "Decals in file:     2");

    SelectOnly(dialog, {0});
    QTest::keyClicks(Child<QLineEdit>(dialog, "SearchName"), "s");
    EXPECT_EQ(Child<QLineEdit>(dialog, "SearchName")->text(), "S");
    EXPECT_EQ(Listed(dialog), (std::vector<std::string>{"SO8"}));
    EXPECT_EQ(dialog.SelectedNames(), Listed(dialog));

    QTest::mouseClick(Child<QPushButton>(dialog, "btnViewAll"), Qt::LeftButton);
    EXPECT_EQ(Child<QLineEdit>(dialog, "SearchName")->text(), "");
    EXPECT_EQ(Child<QSpinBox>(dialog, "Terminals")->value(), 0);
    EXPECT_EQ(dialog.SelectedNames(), kSampleDecals);

    SelectOnly(dialog, {});
    EXPECT_EQ(dialog.StatusText(1), "Selected:     0");
    QTest::mouseClick(Child<QPushButton>(dialog, "AllButton"), Qt::LeftButton);
    EXPECT_EQ(dialog.StatusText(1), "Selected:     6");
    EXPECT_TRUE(messages.Entries().empty());
}

TEST_F(SelectDecals, ParttypeJobsShowTheContentsFilterAndAGreyViewBox) {
    const std::string parttypes =
        (test::DataDir() / "library" / "catalogue" / "v9_parttypes.p").string();
    context.PlotKind = PlotKind::Parttype;
    context.PlotSettings.Inputfile = parttypes;
    TSelectDecals dialog(services);
    dialog.show();
    EXPECT_TRUE(Child<QWidget>(dialog, "SelectedParts")->isVisible());
    EXPECT_TRUE(Child<QWidget>(dialog, "Label2")->isVisible());
    EXPECT_TRUE(Child<QWidget>(dialog, "btnLibList")->isVisible());
    EXPECT_FALSE(Child<QWidget>(dialog, "PinsPanel")->isVisible());
    EXPECT_EQ(Child<QComboBox>(dialog, "SelectedParts")->count(), 7);
    EXPECT_TRUE(dialog.StatusText(0).startsWith("Parttypes listed: "));
    const std::size_t all = dialog.SelectedNames().size();
    ASSERT_GT(all, 1u);
    SelectOnly(dialog, {0});
    const QImage image = Child<QWidget>(dialog, "View")->grab().toImage();
    EXPECT_EQ(image.pixel(100, 150), qRgb(128, 128, 128));
    // "With several decals" lists fewer, all selected again.
    Child<QComboBox>(dialog, "SelectedParts")->setCurrentIndex(5);
    EXPECT_LT(dialog.SelectedNames().size(), all);
    EXPECT_EQ(dialog.SelectedNames().size(),
              static_cast<std::size_t>(Child<QListWidget>(dialog, "Namelist")->count()));
}

TEST_F(SelectDecals, ViewBoxDrawsADecalOnlyForExactlyOneSelected) {
    TSelectDecals dialog(services);
    dialog.show();
    EXPECT_EQ(InkInsideView(dialog), 0);  // six selected
    SelectOnly(dialog, {0, 3});
    EXPECT_EQ(InkInsideView(dialog), 0);
    SelectOnly(dialog, {});
    EXPECT_EQ(InkInsideView(dialog), 0);
    SelectOnly(dialog, {3});
    EXPECT_GT(InkInsideView(dialog), 200);
    EXPECT_EQ(context.OutputTarget, PlotSurface::ViewBox);
    EXPECT_TRUE(messages.Entries().empty());
}

TEST_F(SelectDecals, ExportWritesTheSelectedNamesWithCrLfAfterTheQuestion) {
    const test::TempDir dir;
    const std::filesystem::path out = dir.Path() / "names.txt";
    TSelectDecals dialog(services);
    dialog.show();
    SelectOnly(dialog, {1, 4});
    auto* exportButton = Child<QPushButton>(dialog, "ListBtn");

    dialogs.saveAnswers = {QString::fromStdString(out.string())};
    messages.QueueYesNo(false);
    QTest::mouseClick(exportButton, Qt::LeftButton);
    EXPECT_TRUE(dialogs.saveSuggested.endsWith("/SAMPLE.txt"))
        << dialogs.saveSuggested.toStdString();
    EXPECT_EQ(dialogs.saveFilters, "Text-file (*.txt)");
    EXPECT_FALSE(std::filesystem::exists(out));

    dialogs.saveAnswers = {QString::fromStdString(out.string())};
    messages.QueueYesNo(true);
    QTest::mouseClick(exportButton, Qt::LeftButton);
    EXPECT_EQ(test::ReadFileText(out), "SO8\r\nHDR2X5\r\n");
    EXPECT_EQ(messages.Texts(), (std::vector<std::string>{"Export 2 names?", "Export 2 names?"}));

    // No name selected: an empty file after "Export 0 names?"; a cancelled save asks nothing.
    SelectOnly(dialog, {});
    dialogs.saveAnswers = {QString::fromStdString(out.string()), QString()};
    messages.QueueYesNo(true);
    QTest::mouseClick(exportButton, Qt::LeftButton);
    QTest::mouseClick(exportButton, Qt::LeftButton);
    EXPECT_EQ(std::filesystem::file_size(out), 0u);
    EXPECT_EQ(messages.Texts().back(), "Export 0 names?");
    EXPECT_EQ(messages.Texts().size(), 3u);
}

TEST(ExportName, IsTheFileNameInUpperCaseWithFourCharactersFromTheFirstDotReplaced) {
    EXPECT_EQ(SuggestedExportName("c:\\lib\\Smd.d"), "SMD.txt");
    EXPECT_EQ(SuggestedExportName("lib.data"), "LIBA.txt");
    EXPECT_EQ(SuggestedExportName("  /home/me/libs/conn.asc "), "CONN.txt");
    EXPECT_EQ(SuggestedExportName("noext"), "NOEXT.txt");
    EXPECT_EQ(ExportQuestion(12), "Export 12 names?");
}

TEST_F(SelectDecals, OkAsksForThePrinterAndItsCancelCancelsTheRun) {
    {
        TSelectDecals dialog(services);
        dialog.show();
        context.OutputTarget = PlotSurface::ViewBox;
        QTest::mouseClick(Child<QPushButton>(dialog, "OKButton"), Qt::LeftButton);
        EXPECT_EQ(dialog.result(), QDialog::Rejected);
        EXPECT_EQ(context.OutputTarget, PlotSurface::Printer);
    }
    dialogs.printerAnswer = "SomeQueue";
    TSelectDecals dialog(services);
    dialog.show();
    QTest::mouseClick(Child<QPushButton>(dialog, "OKButton"), Qt::LeftButton);
    EXPECT_EQ(dialog.result(), QDialog::Accepted);
    EXPECT_EQ(dialogs.printDialogs, 2);
}

}  // namespace
}  // namespace zantor
