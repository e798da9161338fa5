// `zantor print --kind parttype`: parttype pages of a parttype library with the decals of
// libraries given on the command line or stored in the decal library list, and of a PCB file
// with its own decals, to PDF (searchable text) and to a trace.

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "core/shell/settings_fixture.h"
#include "run_zantor.h"
#include "shell/decal_lib_list.h"
#include "shell/settings_store.h"
#include "support/page_test_support.h"

namespace zantor::test {
namespace {

std::string Parts(const std::string& name) {
    return (DataDir() / "library" / "parttype" / name).string();
}

class ParttypePrint : public SettingsTest {
  protected:
    ParttypePrint() { App(); }
    std::filesystem::path Out(const std::string& name) const { return out_.Path() / name; }
    TempDir out_;
};

TEST_F(ParttypePrint, LibraryToPdfWithDecalsFromTheGivenLibraries) {
    const auto pdf = Out("parts.pdf");
    const Outcome run = Zantor({"print", Parts("cli_parts.p"), "--kind", "parttype", "--decal-lib",
                                Sample(), "--output", pdf.string()});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out, pdf.string() + "\n");
    EXPECT_EQ(run.err, "");
    const auto info = ReadPdfInfo(pdf);
    ASSERT_TRUE(info);
    EXPECT_EQ(info->pages, 4);
    // The page texts are text of the PDF: a search finds the parttype, its values and pins.
    const std::string first = PdfPageText(pdf, 1);
    for (const char* text :
         {"LM358", "INMINUSB", "OUTB", "SO8", "DIP8", "NOSUCHDECAL", "cli_parts", "PIN NAME"}) {
        EXPECT_NE(first.find(text), std::string::npos) << text << " in\n" << first;
    }
    const std::string last = PdfPageText(pdf, 4);
    EXPECT_NE(last.find("(continued)"), std::string::npos) << last;
    EXPECT_NE(last.find("SIG400"), std::string::npos) << last;
    EXPECT_FALSE(std::filesystem::exists(MainFile()));
}

TEST_F(ParttypePrint, StoredLibraryListAndPcbFilesToTrace) {
    // Without --decal-lib the stored list is searched: here it holds the sample library.
    {
        SettingsStore main = SettingsStore::OpenMain();
        SaveDecalLibList({Sample()}, main);
    }
    const auto trace = Out("lm.trace");
    Outcome run = Zantor({"print", Parts("cli_parts.p"), "--kind", "parttype", "--select", "LM358",
                          "--output", trace.string()});
    EXPECT_EQ(run.status, 0) << run.err;
    std::string text = ReadFileText(trace);
    EXPECT_NE(text.find("\"1   OF  1\""), std::string::npos);
    // Only NOSUCHDECAL is missing, and with two decal cells it has none.
    EXPECT_EQ(text.find("not in the decal library list"), std::string::npos);
    EXPECT_NE(text.find("\"SO8\""), std::string::npos);

    // A PCB file's parttypes take the file's decals; the list is not searched.
    const auto board = Out("board.trace");
    run = Zantor(
        {"print", Parts("v2005_board.asc"), "--kind", "parttype", "--output", board.string()});
    EXPECT_EQ(run.status, 0) << run.err;
    text = ReadFileText(board);
    for (const char* name : {"\"RELAY\"", "\"DIODE\"", "\"RLY5\"", "\"GND\"",
                             "\"not in the decals of the PCB file\"", "\"PCB:\""}) {
        EXPECT_NE(text.find(name), std::string::npos) << name;
    }
}

TEST_F(ParttypePrint, WrongInputsAndOptions) {
    const auto pdf = Out("x.pdf");
    Outcome run = Zantor({"print", Sample(), "--kind", "parttype", "--output", pdf.string()});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.err, "zantor: Inputfile unknown or not a parttype-file.\n");
    run = Zantor({"print", Parts("cli_parts.p"), "--kind", "parttype", "--select", "NOPE",
                  "--output", pdf.string()});
    EXPECT_EQ(run.status, 1);
    EXPECT_NE(run.err.find("Not a parttype of"), std::string::npos) << run.err;
    ExpectUsageErrors({
        {{"print", Sample(), "--decal-lib", Sample(), "--output", pdf.string()},
         "--decal-lib is for parttype pages (--kind parttype)"},
    });
}

}  // namespace
}  // namespace zantor::test
