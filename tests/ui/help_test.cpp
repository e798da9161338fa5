// The bundled help: every help context of the windows leads to a page that ships with the
// program, and the about box names the program and the stroke font's origin.

#include <gtest/gtest.h>

#include <QApplication>

#include "ui/help.h"
#include "ui_test_support.h"

namespace zantor {
namespace {

TEST(Help, EveryContextHasItsPageInTheHelpFolder) {
    test::UiApp();
    const std::filesystem::path dir = HelpDir();
    ASSERT_FALSE(dir.empty()) << "no help folder next to the program or in the build tree";
    for (const int context : std::initializer_list<int>{
             kHelpIntroduction, kHelpContents, kHelpMainWindow, kHelpSelectDecals, kHelpSelectAll,
             kHelpNamelist, kHelpPreview, kHelpProgress, kHelpDecalLibList, kHelpFontFile, 999}) {
        const std::string page = HelpPage(context).section(QLatin1Char('#'), 0, 0).toStdString();
        EXPECT_TRUE(std::filesystem::is_regular_file(dir / page)) << context << ": " << page;
    }
    EXPECT_EQ(HelpPage(999), "index.html");
    EXPECT_EQ(HelpPage(kHelpSelectAll), "select_decals.html#select-all");
}

TEST(Help, AboutNamesTheProgramItsVersionAndTheStrokeFont) {
    test::UiApp();
    QApplication::setApplicationVersion(QStringLiteral("1.2.3"));
    const QString about = AboutText();
    EXPECT_TRUE(about.contains(QStringLiteral("Zantor 1.2.3")));
    EXPECT_TRUE(about.contains(QStringLiteral("Hershey")));
    EXPECT_TRUE(about.contains(QStringLiteral("James Hurt")));
}

}  // namespace
}  // namespace zantor
