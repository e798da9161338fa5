// The progress line of `zantor print` on a terminal: what it says, its bar and time left, and
// that it never runs past the terminal's width.

#include "cli/terminal_progress.h"

#include <gtest/gtest.h>

#include <QProcess>
#include <QStandardPaths>
#include <chrono>
#include <sstream>
#include <string>
#include <vector>

#include "core/shell/settings_fixture.h"
#include "run_zantor.h"
#include "support/page_test_support.h"

namespace zantor {
namespace {

using std::chrono::seconds;
using std::chrono::steady_clock;

// A run of `names` on a terminal `width` wide, each item taking ten seconds; the lines written,
// as the terminal shows them one after the other.
std::vector<std::string> ShownLines(const std::vector<std::string>& names, int width) {
    std::ostringstream err;
    steady_clock::time_point now{};
    TerminalProgress progress(err, width, [&now] { return now; });
    progress.Started(static_cast<int>(names.size()));
    for (const std::string& name : names) {
        progress.Looking(name);
        now += seconds(10);
    }
    progress.Finished("Printing completed.");
    std::vector<std::string> lines;
    std::istringstream in(err.str());
    for (std::string line; std::getline(in, line, '\r');) {
        if (!line.empty()) {
            lines.push_back(line);
        }
    }
    return lines;
}

TEST(TerminalProgress, NamesCountBarAndTimeLeft) {
    const std::vector<std::string> lines = ShownLines({"R0603", "DIP8", "SO14", "QFP44"}, 100);
    ASSERT_EQ(lines.size(), 5U);
    // Nothing is done yet: an empty bar and no estimate.
    EXPECT_TRUE(lines[0].starts_with("Printing 1 of 4: R0603 ")) << lines[0];
    EXPECT_NE(lines[0].find("[..............................]   0% ETA   --:--"), std::string::npos)
        << lines[0];
    // Two of four done in twenty seconds: twenty more.
    EXPECT_TRUE(lines[2].starts_with("Printing 3 of 4: SO14 ")) << lines[2];
    EXPECT_NE(lines[2].find("[###############...............]  50% ETA    0:20"), std::string::npos)
        << lines[2];
    // The bar stays in its place while the names change.
    EXPECT_EQ(lines[0].find('['), lines[3].find('['));
    // The last line replaces the bar, blanking what is left of it.
    EXPECT_TRUE(lines[4].starts_with("Printing completed.   ")) << lines[4];
    EXPECT_EQ(lines[4].back(), '\n');
}

TEST(TerminalProgress, LongRunsShowHours) {
    std::vector<std::string> names(2000, "N");
    const std::vector<std::string> lines = ShownLines(names, 80);
    // One done in ten seconds, 1999 to go: 5:33:10.
    EXPECT_NE(lines[1].find("ETA 5:33:10"), std::string::npos) << lines[1];
}

TEST(TerminalProgress, EveryLineFitsTheTerminal) {
    const std::string longName(150, 'X');
    for (const int width : {10, 20, 40, 60, 80, 132, 300}) {
        const std::vector<std::string> lines =
            ShownLines({"A", longName, "SHORT", longName}, width);
        ASSERT_EQ(lines.size(), 5U);
        for (std::string line : lines) {
            if (line.back() == '\n') {
                line.pop_back();
            }
            // The last column stays free, so that no terminal wraps the line.
            EXPECT_LT(line.size(), static_cast<std::size_t>(width)) << width << ": " << line;
        }
        // Wide enough, a long name is cut and the bar still shown; narrow, the bar goes first.
        const bool bar = lines[1].find(" [") != std::string::npos;
        EXPECT_EQ(bar, width >= 80) << width << ": " << lines[1];
        if (width >= 40) {
            EXPECT_TRUE(lines[1].starts_with("Printing 2 of 4: XXX")) << lines[1];
        }
    }
}

#if defined(ZANTOR_PROGRAM)
// The program itself: with standard error on a pseudo-terminal (made by script(1)) it shows the
// progress line; with standard error piped it says nothing.
class ProgressOnTheTerminal : public test::SettingsTest {};

TEST_F(ProgressOnTheTerminal, ShownOnATerminalOnlyAndTheJobIsTheSame) {
    test::TempDir dir;
    const std::string program = ZANTOR_PROGRAM;
    const std::string piped = (dir.Path() / "piped.pdf").string();
    QProcess run;
    run.start(QString::fromStdString(program), {"print", QString::fromStdString(test::Sample()),
                                                "--output", QString::fromStdString(piped)});
    ASSERT_TRUE(run.waitForFinished(120000));
    EXPECT_EQ(run.exitCode(), 0);
    EXPECT_EQ(run.readAllStandardError().toStdString(), "");
    EXPECT_EQ(run.readAllStandardOutput().toStdString(), piped + "\n");

    if (QStandardPaths::findExecutable("script").isEmpty()) {
        GTEST_SKIP() << "no script(1) to make a terminal";
    }
    const std::string shown = (dir.Path() / "terminal.pdf").string();
    QProcess terminal;
    terminal.start("script", {"-qec",
                              QString::fromStdString("stty cols 100; '" + program + "' print '" +
                                                     test::Sample() + "' --output '" + shown + "'"),
                              "/dev/null"});
    ASSERT_TRUE(terminal.waitForFinished(120000));
    EXPECT_EQ(terminal.exitCode(), 0);
    const std::string screen = terminal.readAllStandardOutput().toStdString();
    EXPECT_NE(screen.find("\rPrinting 1 of 6: "), std::string::npos) << screen;
    EXPECT_NE(screen.find("ETA"), std::string::npos) << screen;
    EXPECT_NE(screen.find("\rPrinting completed."), std::string::npos) << screen;
    EXPECT_NE(screen.find(shown), std::string::npos) << screen;
    const auto shownInfo = test::ReadPdfInfo(shown);
    const auto pipedInfo = test::ReadPdfInfo(piped);
    ASSERT_TRUE(shownInfo && pipedInfo);
    EXPECT_EQ(shownInfo->pages, 6);
    EXPECT_EQ(pipedInfo->pages, 6);
}
#endif

}  // namespace
}  // namespace zantor
