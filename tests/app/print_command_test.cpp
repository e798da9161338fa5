// `zantor print`: the decal and index jobs on the command line, with the user's settings read
// from a configuration folder of the test's own.

#include <gtest/gtest.h>

#include <QImage>
#include <algorithm>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "../../src/app/command_line.h"
#include "core/jobs/jobs_test_support.h"
#include "core/shell/settings_fixture.h"
#include "shell/settings_store.h"
#include "support/test_support.h"

namespace zantor {
namespace {

struct Outcome {
    int status;
    std::string out;
    std::string err;
};

Outcome Zantor(const std::vector<std::string>& args) {
    std::ostringstream out;
    std::ostringstream err;
    int status = RunCommandLine(args, out, err);
    return {status, out.str(), err.str()};
}

std::string Sample() {
    return (test::SourceDir() / "data" / "samples" / "sample.d").string();
}

std::vector<std::string> Lines(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) {
        lines.push_back(line);
    }
    return lines;
}

int PageLines(const std::filesystem::path& trace) {
    const std::string text = test::FileBytes(trace);
    int pages = 0;
    for (const std::string& line : Lines(text)) {
        pages += line.starts_with("page ") ? 1 : 0;
    }
    return pages;
}

// Every test starts on a machine without settings.
class PrintCommand : public test::SettingsTest {
  protected:
    PrintCommand() { test::App(); }

    std::filesystem::path Out(const std::string& name) const { return out_.Path() / name; }
    std::vector<std::string> FilesOut() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(out_.Path())) {
            names.push_back(entry.path().filename().string());
        }
        std::sort(names.begin(), names.end());
        return names;
    }

    test::TempDir out_;
};

TEST_F(PrintCommand, DecalPagesToPdfWithTheTitleBlockTextsAndNoSettingsWritten) {
    const auto pdf = Out("sample.pdf");
    Outcome run = Zantor({"print", Sample(), "--output", pdf.string()});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out, pdf.string() + "\n");
    EXPECT_EQ(run.err, "");
    const auto info = test::ReadPdfInfo(pdf);
    ASSERT_TRUE(info);
    EXPECT_EQ(info->pages, 6);
    EXPECT_NEAR(info->widthPoints, 595.3, 1);
    EXPECT_NEAR(info->heightPoints, 841.9, 1);
    const std::string last = test::PdfPageText(pdf, 6);
    for (const char* text : {"DECAL:", "SOT223", "LIBRARY:", "sample", "TERMS:", "SCALE:"}) {
        EXPECT_NE(last.find(text), std::string::npos) << text << " in\n" << last;
    }
    // The settings are only read: a fresh machine still has none afterwards.
    EXPECT_FALSE(std::filesystem::exists(MainFile()));
    EXPECT_FALSE(std::filesystem::exists(ZantorFile()));
}

TEST_F(PrintCommand, EveryFileKindWithItsPagesOnLetterOrA3) {
    const std::vector<std::string> three = {"--select", "HDR2X5",   "--select",
                                            "DIP8",     "--select", "R0603"};
    const auto with = [&](std::vector<std::string> args) {
        args.insert(args.end(), three.begin(), three.end());
        return Zantor(args);
    };
    Outcome svg = with({"print", Sample(), "--output", Out("p.svg").string()});
    EXPECT_EQ(svg.status, 0) << svg.err;
    EXPECT_EQ(Lines(svg.out),
              (std::vector<std::string>{Out("p-1.svg").string(), Out("p-2.svg").string(),
                                        Out("p-3.svg").string()}));
    // In the catalogue's order, whatever the order of the options.
    EXPECT_NE(test::FileBytes(Out("p-1.svg")).find("DIP8"), std::string::npos);
    EXPECT_NE(test::FileBytes(Out("p-3.svg")).find("HDR2X5"), std::string::npos);

    Outcome png = with({"print", Sample(), "--paper", "letter", "--output", Out("p.png").string()});
    EXPECT_EQ(png.status, 0) << png.err;
    EXPECT_EQ(Lines(png.out).size(), 3u);
    const QImage page(QString::fromStdString(Out("p-2.png").string()));
    EXPECT_EQ(page.width(), 2550);  // 8.5 inches at 300 dots per inch
    EXPECT_EQ(page.height(), 3300);

    Outcome trace = with({"print", Sample(), "--output=" + Out("p.trace").string()});
    EXPECT_EQ(trace.status, 0) << trace.err;
    EXPECT_EQ(PageLines(Out("p.trace")), 3);
    const std::string traced = test::FileBytes(Out("p.trace"));
    EXPECT_LT(traced.find("\"DIP8\""), traced.find("\"R0603\""));
    EXPECT_LT(traced.find("\"R0603\""), traced.find("\"HDR2X5\""));

    Outcome a3 = with({"print", Sample(), "--paper", "A3", "--output", Out("p.pdf").string()});
    EXPECT_EQ(a3.status, 0) << a3.err;
    const auto info = test::ReadPdfInfo(Out("p.pdf"));
    ASSERT_TRUE(info);
    EXPECT_EQ(info->pages, 3);
    EXPECT_NEAR(info->widthPoints, 841.9, 1);
    EXPECT_EQ(FilesOut(), (std::vector<std::string>{"p-1.png", "p-1.svg", "p-2.png", "p-2.svg",
                                                    "p-3.png", "p-3.svg", "p.pdf", "p.trace"}));
}

TEST_F(PrintCommand, AnIndexPageOfTheWholeLibrary) {
    const auto pdf = Out("index.pdf");
    Outcome run = Zantor({"print", Sample(), "--kind", "index", "--output", pdf.string()});
    EXPECT_EQ(run.status, 0) << run.err;
    const auto info = test::ReadPdfInfo(pdf);
    ASSERT_TRUE(info);
    EXPECT_EQ(info->pages, 1);
    const std::string text = test::PdfPageText(pdf, 1);
    for (const char* name : {"DIP8", "SO8", "R0603", "TO220", "HDR2X5", "SOT223", "1 OF 1"}) {
        EXPECT_NE(text.find(name), std::string::npos) << name << " in\n" << text;
    }
}

TEST_F(PrintCommand, TheUsersSettingsShapeTheJob) {
    {
        SettingsStore main = SettingsStore::OpenMain();
        main.WriteBool("General", "SeperatePages", true);
        main.WriteString("General", "Company", "Brovik Test");
        main.WriteString("Indexplot", "Columns", "1");
        main.WriteString("Indexplot", "PartsEachColumn", "2");
        main.Sync();
    }
    const std::string before = test::FileBytes(MainFile());
    Outcome decals = Zantor({"print", Sample(), "--select", "SO8", "--select", "TO220", "--output",
                             Out("each.pdf").string()});
    EXPECT_EQ(decals.status, 0) << decals.err;
    EXPECT_EQ(Lines(decals.out),
              (std::vector<std::string>{Out("each-1.pdf").string(), Out("each-2.pdf").string()}));
    EXPECT_EQ(test::ReadPdfInfo(Out("each-2.pdf")).value_or(test::PdfInfo{}).pages, 1);
    EXPECT_NE(test::PdfPageText(Out("each-2.pdf"), 1).find("Brovik Test"), std::string::npos);

    // Index pages are one document: 6 decals in cells of 1 column of 2 take 3 pages.
    Outcome index =
        Zantor({"print", Sample(), "--kind", "index", "--output", Out("index.pdf").string()});
    EXPECT_EQ(index.status, 0) << index.err;
    EXPECT_EQ(test::ReadPdfInfo(Out("index.pdf")).value_or(test::PdfInfo{}).pages, 3);
    EXPECT_EQ(test::FileBytes(MainFile()), before);
}

TEST_F(PrintCommand, FailuresSayWhyAndLeaveNoFile) {
    const auto pdf = Out("x.pdf");
    Outcome missing =
        Zantor({"print", (out_.Path() / "none.d").string(), "--output", pdf.string()});
    EXPECT_EQ(missing.status, 1);
    EXPECT_EQ(missing.err, "zantor: Inputfile unknown or not a decal-file.\n");

    Outcome unknown = Zantor(
        {"print", Sample(), "--select", "DIP8", "--select", "DIP9", "--output", pdf.string()});
    EXPECT_EQ(unknown.status, 1);
    EXPECT_EQ(unknown.err, "zantor: Not a decal of " + Sample() + ": DIP9\n");

    {
        SettingsStore main = SettingsStore::OpenMain();
        main.WriteString("General", "Fontfile", (out_.Path() / "romansim.fnt").string());
        main.Sync();
    }
    Outcome font = Zantor({"print", Sample(), "--output", pdf.string()});
    EXPECT_EQ(font.status, 1);
    EXPECT_EQ(font.out, "");
    EXPECT_EQ(font.err, "zantor: FONT-file missing.\n");
    {
        SettingsStore main = SettingsStore::OpenMain();
        main.WriteString("General", "Fontfile", "romans.fnt");
        main.WriteString("Decalplot", "MaxScale", "ten");
        main.Sync();
    }
    Outcome setting = Zantor({"print", Sample(), "--output", pdf.string()});
    EXPECT_EQ(setting.status, 1);
    EXPECT_NE(setting.err.find("Decalplot/MaxScale"), std::string::npos) << setting.err;

    // A folder that cannot take the file: the message names it.
    {
        SettingsStore main = SettingsStore::OpenMain();
        main.WriteString("Decalplot", "MaxScale", "10");
        main.Sync();
    }
    const auto nowhere = out_.Path() / "no folder" / "x.pdf";
    Outcome folder = Zantor({"print", Sample(), "--output", nowhere.string()});
    EXPECT_EQ(folder.status, 1);
    EXPECT_NE(folder.err.find(nowhere.string()), std::string::npos) << folder.err;
    EXPECT_EQ(FilesOut(), std::vector<std::string>{});

    Outcome printer = Zantor({"print", Sample(), "--printer", "No Such Queue 42"});
    EXPECT_EQ(printer.status, 1);
    EXPECT_EQ(printer.err, "zantor: Printer not found: No Such Queue 42\n");
}

TEST_F(PrintCommand, UsageErrors) {
    const std::string usage = "usage: zantor COMMAND ARGUMENTS (see zantor --help)\n";
    const std::vector<std::pair<std::vector<std::string>, std::string>> cases = {
        {{"print", "--output", "x.pdf"}, "print needs a FILE"},
        {{"print", "a.d", "b.d", "--output", "x.pdf"}, "print takes one FILE"},
        {{"print", "a.d"}, "print needs --output OUT or --printer QUEUE"},
        {{"print", "a.d", "--output", "x.pdf", "--printer", "P"},
         "print writes to --output or to --printer, not to both"},
        {{"print", "a.d", "--output", "x.doc"},
         "--output takes a .pdf, .svg, .png or .trace file, not \"x.doc\""},
        {{"print", "a.d", "--output", "x.pdf", "--kind", "parttype"},
         "--kind takes decal or index, not \"parttype\""},
        {{"print", "a.d", "--output", "x.pdf", "--paper", "B5"},
         "--paper takes A4, A3, Letter or Legal, not \"B5\""},
        {{"print", "a.d", "--printer", "P", "--paper", "A4"},
         "--paper is for --output files; a printer prints on its own paper"},
        {{"print", "a.d", "--output", "x.pdf", "--select"}, "--select needs a value"},
        {{"print", "a.d", "--output", "x.pdf", "--copies", "2"}, "print has no option --copies"},
    };
    for (const auto& [args, problem] : cases) {
        Outcome run = Zantor(args);
        EXPECT_EQ(run.status, 2) << problem;
        EXPECT_EQ(run.out, "");
        EXPECT_EQ(run.err, "zantor: " + problem + "\n" + usage);
    }
    Outcome help = Zantor({"--help"});
    EXPECT_NE(help.out.find("\n  print FILE [--kind decal|index] [--select NAME]... "
                            "(--output OUT | --printer QUEUE)\n"),
              std::string::npos);
    EXPECT_LT(help.out.find("  list FILE"), help.out.find("  print FILE"));
}

}  // namespace
}  // namespace zantor
