// `zantor print`: the decal and index jobs on the command line, with the user's settings read
// from a configuration folder of the test's own.

#include <gtest/gtest.h>

#include <QImage>
#include <algorithm>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "core/shell/settings_fixture.h"
#include "run_zantor.h"
#include "shell/settings_store.h"
#include "support/page_test_support.h"

namespace zantor::test {
namespace {

int PdfPages(const std::filesystem::path& pdf) {
    return ReadPdfInfo(pdf).value_or(PdfInfo{}).pages;
}

// Every test starts on a machine without settings.
class PrintCommand : public SettingsTest {
  protected:
    PrintCommand() { App(); }

    std::filesystem::path Out(const std::string& name) const { return out_.Path() / name; }
    std::vector<std::string> FilesOut() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(out_.Path())) {
            names.push_back(entry.path().filename().string());
        }
        std::sort(names.begin(), names.end());
        return names;
    }
    void Store(const char* section, const char* key, const std::string& value) {
        SettingsStore main = SettingsStore::OpenMain();
        main.WriteString(section, key, value);
        main.Sync();
    }

    TempDir out_;
};

TEST_F(PrintCommand, DecalPagesToPdfAndNoSettingsWritten) {
    const auto pdf = Out("sample.pdf");
    const Outcome run = Zantor({"print", Sample(), "--output", pdf.string()});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out, pdf.string() + "\n");
    EXPECT_EQ(run.err, "");
    // The pages themselves are the print job's test.
    EXPECT_EQ(PdfPages(pdf), 6);
    EXPECT_NE(PdfPageText(pdf, 6).find("SOT223"), std::string::npos);
    EXPECT_FALSE(std::filesystem::exists(MainFile()));
    EXPECT_FALSE(std::filesystem::exists(ZantorFile()));
}

TEST_F(PrintCommand, SelectedDecalsInCatalogueOrderAsImagesOrOnOtherPaper) {
    const std::vector<std::string> three = {"--select", "HDR2X5",   "--select",
                                            "DIP8",     "--select", "R0603"};
    const auto with = [&](std::vector<std::string> args) {
        args.insert(args.end(), three.begin(), three.end());
        return Zantor(args);
    };
    const Outcome svg = with({"print", Sample(), "--output", Out("p.svg").string()});
    EXPECT_EQ(svg.status, 0) << svg.err;
    EXPECT_EQ(Lines(svg.out),
              (std::vector<std::string>{Out("p-1.svg").string(), Out("p-2.svg").string(),
                                        Out("p-3.svg").string()}));
    EXPECT_NE(FileBytes(Out("p-1.svg")).find("DIP8"), std::string::npos);
    EXPECT_NE(FileBytes(Out("p-3.svg")).find("HDR2X5"), std::string::npos);

    const Outcome png =
        with({"print", Sample(), "--paper", "letter", "--output", Out("p.png").string()});
    EXPECT_EQ(png.status, 0) << png.err;
    const QImage page(QString::fromStdString(Out("p-2.png").string()));
    EXPECT_EQ(page.width(), 2550);  // 8.5 inches at 300 dots per inch
    EXPECT_EQ(page.height(), 3300);

    const Outcome a3 =
        with({"print", Sample(), "--paper", "A3", "--output=" + Out("p.pdf").string()});
    EXPECT_EQ(a3.status, 0) << a3.err;
    const auto info = ReadPdfInfo(Out("p.pdf"));
    ASSERT_TRUE(info);
    EXPECT_EQ(info->pages, 3);
    EXPECT_NEAR(info->widthPoints, 841.9, 1);
    EXPECT_EQ(FilesOut(), (std::vector<std::string>{"p-1.png", "p-1.svg", "p-2.png", "p-2.svg",
                                                    "p-3.png", "p-3.svg", "p.pdf"}));
}

TEST_F(PrintCommand, TheUsersSettingsShapeDecalAndIndexJobs) {
    const auto index = Out("index.pdf");
    const Outcome whole =
        Zantor({"print", Sample(), "--kind", "index", "--output", index.string()});
    EXPECT_EQ(whole.status, 0) << whole.err;
    EXPECT_EQ(PdfPages(index), 1);
    const std::string text = PdfPageText(index, 1);
    for (const char* name : {"DIP8", "SO8", "R0603", "TO220", "HDR2X5", "SOT223", "1 OF 1"}) {
        EXPECT_NE(text.find(name), std::string::npos) << name << " in\n" << text;
    }

    Store("General", "SeperatePages", "1");
    Store("General", "Company", "Brovik Test");
    Store("Indexplot", "Columns", "1");
    Store("Indexplot", "PartsEachColumn", "2");
    const std::string before = FileBytes(MainFile());
    const Outcome decals = Zantor({"print", Sample(), "--select", "SO8", "--select", "TO220",
                                   "--output", Out("each.pdf").string()});
    EXPECT_EQ(decals.status, 0) << decals.err;
    EXPECT_EQ(Lines(decals.out),
              (std::vector<std::string>{Out("each-1.pdf").string(), Out("each-2.pdf").string()}));
    EXPECT_EQ(PdfPages(Out("each-2.pdf")), 1);
    EXPECT_NE(PdfPageText(Out("each-2.pdf"), 1).find("Brovik Test"), std::string::npos);
    // Index pages are one document: 6 decals in cells of 1 column of 2 take 3 pages.
    EXPECT_EQ(Zantor({"print", Sample(), "--kind", "index", "--output", index.string()}).status, 0);
    EXPECT_EQ(PdfPages(index), 3);
    EXPECT_EQ(FileBytes(MainFile()), before);
}

TEST_F(PrintCommand, FailuresSayWhyAndLeaveNoFile) {
    const auto pdf = Out("x.pdf");
    const Outcome missing = Zantor({"print", Out("none.d").string(), "--output", pdf.string()});
    EXPECT_EQ(missing.status, 1);
    EXPECT_EQ(missing.err, "zantor: Inputfile unknown or not a decal-file.\n");

    const Outcome unknown = Zantor(
        {"print", Sample(), "--select", "DIP8", "--select", "DIP9", "--output", pdf.string()});
    EXPECT_EQ(unknown.status, 1);
    EXPECT_EQ(unknown.err, "zantor: Not a decal of " + Sample() + ": DIP9\n");

    Store("General", "Fontfile", Out("romansim.fnt").string());
    const Outcome font = Zantor({"print", Sample(), "--output", pdf.string()});
    EXPECT_EQ(font.status, 1);
    EXPECT_EQ(font.out, "");
    EXPECT_EQ(font.err, "zantor: FONT-file missing.\n");

    Store("General", "Fontfile", "romans.fnt");
    Store("Decalplot", "MaxScale", "ten");
    const Outcome setting = Zantor({"print", Sample(), "--output", pdf.string()});
    EXPECT_EQ(setting.status, 1);
    EXPECT_NE(setting.err.find("Decalplot/MaxScale"), std::string::npos) << setting.err;

    Store("Decalplot", "MaxScale", "10");
    const auto nowhere = Out("no folder") / "x.pdf";
    const Outcome folder = Zantor({"print", Sample(), "--output", nowhere.string()});
    EXPECT_EQ(folder.status, 1);
    EXPECT_NE(folder.err.find(nowhere.string()), std::string::npos) << folder.err;
    EXPECT_EQ(FilesOut(), std::vector<std::string>{});

    const Outcome printer = Zantor({"print", Sample(), "--printer", "No Such Queue 42"});
    EXPECT_EQ(printer.status, 1);
    EXPECT_EQ(printer.err, "zantor: Printer not found: No Such Queue 42\n");
}

// The header of a library is its first line, indented or not; files that are no decal source
// are refused by the check the list command shares.
TEST_F(PrintCommand, PrintsALibraryWithAnIndentedHeader) {
    TempDir dir;
    const auto indented =
        dir.WriteFile("lib.d",
                      "  *PADS-LIBRARY-PCB-DECALS-V4*\n\nR1 I 0 0 0 0 1 0 1 1\nOPEN 2 10 1\n"
                      "-50 0\n50 0\nT0 0 0 0 1\nPAD 0 3\n-2 60 R\n-1 0 R\n0 0 R\n\n*END*\n");
    const Outcome run = Zantor({"print", indented.string(), "--output", Out("r.pdf").string()});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.err, "");
    EXPECT_EQ(PdfPages(Out("r.pdf")), 1);
}

TEST_F(PrintCommand, UsageErrors) {
    ExpectUsageErrors({
        {{"print", "--output", "x.pdf"}, "print needs a FILE"},
        {{"print", "a.d"}, "print needs --output OUT or --printer QUEUE"},
        {{"print", "a.d", "--output", "x.pdf", "--printer", "P"},
         "print writes to --output or to --printer, not to both"},
        {{"print", "a.d", "--output", "x.doc"},
         "--output takes a .pdf, .svg, .png or .trace file, not \"x.doc\""},
        {{"print", "a.d", "--output", "x.pdf", "--kind", "parts"},
         "--kind takes decal, index or parttype, not \"parts\""},
        {{"print", "a.d", "--output", "x.pdf", "--paper", "B5"},
         "--paper takes A4, A3, Letter or Legal, not \"B5\""},
        {{"print", "a.d", "--printer", "P", "--paper", "A4"},
         "--paper is for --output files; a printer prints on its own paper"},
        {{"print", "a.d", "--output", "x.pdf", "--copies", "2"}, "print has no option --copies"},
    });
}

}  // namespace
}  // namespace zantor::test
