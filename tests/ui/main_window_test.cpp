// The main window: which print buttons a name enables, the recent-file list kept across runs,
// and the failures of a print command, which change nothing.

#include <QAction>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "shell/settings_io.h"
#include "ui/input_file_rules.h"
#include "ui/main_window.h"
#include "ui_test_support.h"

namespace zantor {
namespace {

class MainWindow : public test::WindowTest {
  protected:
    struct Buttons {
        bool decal, index, parttype;
        bool operator==(const Buttons&) const = default;
    };

    static Buttons Enabled(const TMainForm& window) {
        auto enabled = [&window](const char* name) {
            return window.findChild<QPushButton*>(QString::fromLatin1(name))->isEnabled();
        };
        return {enabled("PrintDecal"), enabled("PrintIndex"), enabled("PrintParttype")};
    }

    static void Type(TMainForm& window, const std::string& text) {
        QLineEdit* edit = window.findChild<QComboBox*>(QStringLiteral("InputFile"))->lineEdit();
        edit->clear();
        QTest::keyClicks(edit, QString::fromStdString(text));
    }

    // A Fontfile that is not there: a print command then ends after its first steps, with
    // "FONT-file missing.", before any dialog.
    static void StoreMissingFont() {
        SettingsStore store = SettingsStore::OpenMain();
        store.WriteString("General", "Fontfile", "/nowhere/romansim.fnt");
        store.Sync();
    }
};

TEST_F(MainWindow, PrintButtonsFollowTheTypedName) {
    const test::TempDir dir;
    TMainForm window(services);
    window.show();
    const struct {
        std::string name;
        Buttons expected;
    } cases[] = {
        {dir.WriteFile("x.asc", "").string(), {true, true, true}},
        {dir.WriteFile("x.p", "").string(), {false, false, true}},
        {dir.WriteFile("X.D", "").string(), {true, true, false}},
        {dir.WriteFile("x.dx", "").string(), {false, false, false}},
        {(dir.Path() / "missing.d").string(), {false, false, false}},
        {(dir.Path() / "*.d").string(), {false, false, false}},
    };
    for (const auto& c : cases) {
        Type(window, c.name);
        EXPECT_EQ(Enabled(window), c.expected) << c.name;
    }
    // A name with "*" enables nothing, even when such a file exists.
    const std::string star = dir.WriteFile("a*b.asc", "").string();
    EXPECT_EQ(EnabledPrintButtons(star), PrintButtons{});
    // The record follows the box, cut to its 60 characters.
    Type(window, std::string(70, 'a'));
    EXPECT_EQ(context.PlotSettings.Inputfile, std::string(60, 'a'));
}

TEST_F(MainWindow, EveryMenuEntryIsThereWithItsText) {
    TMainForm window(services);
    EXPECT_EQ(window.windowTitle(), "Zantor");
    const std::vector<std::pair<const char*, const char*>> entries = {
        {"Open1", "&Open..."},
        {"Printersetup1", "&Printer setup..."},
        {"Exit1", "E&xit"},
        {"D1", "PCB-&decal..."},
        {"I1", "PCB-decal &index..."},
        {"Parttype1", "Par&ttype..."},
        {"P1", "&Paper..."},
        {"O1", "&Options..."},
        {"Fontfile1", "&Fontfile..."},
        {"About1", "&About..."},
    };
    for (const auto& [name, text] : entries) {
        const auto* action = window.findChild<QAction*>(QString::fromLatin1(name));
        ASSERT_NE(action, nullptr) << name;
        EXPECT_EQ(action->text(), text) << name;
        EXPECT_TRUE(action->isEnabled()) << name;
    }
}

TEST_F(MainWindow, OpenDialogOffersTheFourFiltersAndKeepsTheNameOnCancel) {
    const test::TempDir dir;
    const std::string chosen = dir.WriteFile("chosen.p", "").string();
    TMainForm window(services);
    window.SetInputFile(QStringLiteral("old.d"));
    dialogs.openAnswers = {QString::fromStdString(chosen), QString()};
    auto* open = window.findChild<QPushButton*>(QStringLiteral("btnOpen"));
    QTest::mouseClick(open, Qt::LeftButton);
    EXPECT_EQ(dialogs.openFilters,
              "Library decal  ASCII-file (*.d);;Library parttype ASCII-file (*.p);;"
              "PCB ASCII-file (*.asc);;(any file) (*.*)");
    EXPECT_EQ(dialogs.openDirectory, "old.d");
    EXPECT_EQ(Enabled(window), (Buttons{false, false, true}));
    QTest::mouseClick(open, Qt::LeftButton);
    EXPECT_EQ(context.PlotSettings.Inputfile, chosen);
}

TEST_F(MainWindow, RecentFilesKeepNineNewestFirstAndSurviveTheProgram) {
    StoreMissingFont();
    const test::TempDir dir;
    std::vector<std::string> files;
    for (int n = 0; n < 10; ++n) {
        files.push_back(dir.WriteFile("lib" + std::to_string(n) + ".d", "").string());
    }
    {
        TMainForm window(services);
        window.show();
        auto* print = window.findChild<QPushButton*>(QStringLiteral("PrintDecal"));
        for (const std::string& file : files) {
            Type(window, file);
            QTest::mouseClick(print, Qt::LeftButton);
        }
        const std::vector<std::string> newestFirst(files.rbegin(), files.rend() - 1);
        EXPECT_EQ(window.RecentFiles(), newestFirst);
        // A listed name keeps its place.
        Type(window, files[4]);
        QTest::mouseClick(print, Qt::LeftButton);
        EXPECT_EQ(window.RecentFiles(), newestFirst);
        EXPECT_EQ(messages.Texts(), std::vector<std::string>(11, "FONT-file missing."));
        window.close();
    }
    TMainForm again(services);
    EXPECT_EQ(again.RecentFiles().size(), 9u);
    EXPECT_EQ(again.RecentFiles().front(), files[9]);
    // The last command's file is the stored input file the box shows.
    EXPECT_EQ(context.PlotSettings.Inputfile, files[4]);
}

TEST_F(MainWindow, FailedCommandsShowTheirMessageAndChangeNothing) {
    const test::TempDir dir;
    TMainForm window(services);
    window.show();
    const PlotSettings before = context.PlotSettings;

    // A file that is gone by the time the button is pressed.
    const std::string gone = dir.WriteFile("gone.asc", "").string();
    Type(window, gone);
    std::filesystem::remove(gone);
    QTest::mouseClick(window.findChild<QPushButton*>(QStringLiteral("PrintIndex")), Qt::LeftButton);
    QTest::mouseClick(window.findChild<QPushButton*>(QStringLiteral("PrintParttype")),
                      Qt::LeftButton);
    // A parttype name whose first line is no parttype header.
    Type(window, dir.WriteFile("notes.p", "just some text\n").string());
    QTest::mouseClick(window.findChild<QPushButton*>(QStringLiteral("PrintParttype")),
                      Qt::LeftButton);
    // A stored setting that is not a number ends the command with its message.
    {
        SettingsStore store = SettingsStore::OpenMain();
        store.WriteString("Decalplot", "MaxScale", "ten");
        store.Sync();
    }
    Type(window, SampleLibrary());
    const PlotSettings typed = context.PlotSettings;
    QTest::mouseClick(window.findChild<QPushButton*>(QStringLiteral("PrintDecal")), Qt::LeftButton);

    ASSERT_EQ(messages.Entries().size(), 4u);
    EXPECT_EQ(messages.Texts()[0], "Inputfile unknown or not a decal-file.");
    EXPECT_EQ(messages.Texts()[1], "Inputfile unknown or not a parttype-file.");
    EXPECT_EQ(messages.Texts()[2], "Inputfile unknown or not a parttype-file.");
    EXPECT_NE(messages.Texts()[3].find("MaxScale"), std::string::npos) << messages.Texts()[3];
    EXPECT_EQ(context.PlotSettings.MaxScale, before.MaxScale);
    EXPECT_EQ(context.PlotSettings.Inputfile, typed.Inputfile);
    EXPECT_EQ(context.PlotKind, PlotKind::Decal);
    EXPECT_TRUE(context.StrokeFont.Empty());
    EXPECT_TRUE(window.isVisible());
}

}  // namespace
}  // namespace zantor
