#include <limits>

#include "common/errors.h"
#include "settings_fixture.h"
#include "shell/settings_numbers.h"
#include "shell/settings_store.h"

namespace zantor::test {
namespace {

using StoreTest = SettingsTest;

TEST_F(StoreTest, ValuesComeBackFromTheirOwnFilesAsWritten) {
    const std::string texts[] = {"Brovik, Inc.; Dept. 5", "@home", "  padded  ", "a=b #c",
                                 "C:\\lib\\parts.d",      "\"q\"", "Größe µm",   ""};
    {
        SettingsStore store = SettingsStore::OpenMain();
        for (std::size_t n = 0; n < std::size(texts); ++n) {
            store.WriteString("Decalplot", "Text" + std::to_string(n), texts[n]);
        }
        store.WriteInteger("Decalplot", "Min", std::numeric_limits<std::int32_t>::min());
        store.WriteBool("Decalplot", "On", true);
        store.WriteBool("Decalplot", "Off", false);
        store.Sync();
        SettingsStore zantor = SettingsStore::OpenZantor();
        EXPECT_EQ(zantor.Location(), ZantorFile().string());
        zantor.WriteString("Decalplot", "Attr1", "Value");
        zantor.Sync();
    }
    EXPECT_NE(FileBytes(ZantorFile()).find("Attr1=Value"), std::string::npos);
    const std::string file = FileBytes(MainFile());
    EXPECT_NE(file.find("On=1\n"), std::string::npos) << file;
    EXPECT_NE(file.find("Off=0\n"), std::string::npos) << file;
    const SettingsStore store = MainOnDisk();
    for (std::size_t n = 0; n < std::size(texts); ++n) {
        EXPECT_EQ(store.ReadString("Decalplot", "Text" + std::to_string(n), "x"), texts[n]);
    }
    EXPECT_EQ(store.ReadString("Indexplot", "Text0", "missing"), "missing");
    EXPECT_EQ(store.ReadInteger("Decalplot", "Min", 0), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(store.ReadInteger("Decalplot", "Missing", -1), -1);
    EXPECT_TRUE(store.ReadBool("Decalplot", "On", false));
    EXPECT_FALSE(store.ReadBool("Decalplot", "Off", true));
    EXPECT_TRUE(store.ReadBool("Decalplot", "Missing", true));
}

TEST_F(StoreTest, AHandWrittenGeneralSectionCountsBesideQtsOwn) {
    TempDir folder;
    const auto file = folder.WriteFile("edited.conf",
                                       "[General]\nCompany=Brovik\nLeftMargin=20\nXBorder=5\n"
                                       "[%General]\nLeftMargin=15\n[Decalplot]\nView1_1=1\n");
    const SettingsStore store(file);
    EXPECT_EQ(store.ReadString("General", "Company", ""), "Brovik");
    EXPECT_EQ(store.ReadString("General", "LeftMargin", ""), "15");  // Qt's own section wins
    EXPECT_EQ(store.ReadInteger("General", "XBorder", 0), 5);
    EXPECT_TRUE(store.ReadBool("Decalplot", "View1_1", false));
    // Only the General section looks there.
    EXPECT_EQ(store.ReadString("Decalplot", "Company", "none"), "none");
}

TEST_F(StoreTest, HandEditedValuesAreReadOrNamedInTheError) {
    TempDir folder;
    const auto file = folder.WriteFile("edited.conf",
                                       "[Decalplot]\nA=true\nB=FALSE\nC= 2 \nD=yes\n"
                                       "E=twelve\nF=3000000000\n");
    const SettingsStore store(file);
    EXPECT_TRUE(store.ReadBool("Decalplot", "A", false));
    EXPECT_FALSE(store.ReadBool("Decalplot", "B", true));
    EXPECT_EQ(store.ReadInteger("Decalplot", "C", 0), 2);
    try {
        store.ReadBool("Decalplot", "D", false);
        ADD_FAILURE() << "no error for D";
    } catch (const ConversionError& error) {
        EXPECT_EQ(error.message(), "Settings value \"Decalplot/D\" is not a yes/no value: \"yes\"");
        EXPECT_EQ(error.file(), file.string());
    }
    try {
        store.ReadInteger("Decalplot", "E", 0);
        ADD_FAILURE() << "no error for E";
    } catch (const ConversionError& error) {
        EXPECT_EQ(error.message(),
                  "Settings value \"Decalplot/E\" is not a whole number: \"twelve\"");
    }
    EXPECT_THROW(store.ReadInteger("Decalplot", "F", 0), ConversionError);
}

TEST_F(StoreTest, RemovingASectionAndSavingAFileQtCannotFullyParse) {
    config_.WriteFile("Brovik/Zantor.conf", "[Decalplot]\nX=5\nnot a setting\n");
    {
        SettingsStore store = SettingsStore::OpenMain();
        EXPECT_EQ(store.ReadInteger("Decalplot", "X", 0), 5);
        store.WriteString("Decal_LibList", "File0", "a.d");
        store.Sync();
        store.RemoveSection("Decal_LibList");
        store.WriteInteger("Decalplot", "Y", 6);
        EXPECT_NO_THROW(store.Sync());
    }
    const SettingsStore store = MainOnDisk();
    EXPECT_EQ(store.ReadString("Decal_LibList", "File0", "gone"), "gone");
    EXPECT_EQ(store.ReadInteger("Decalplot", "Y", 0), 6);
}

TEST(SettingsNumbers, RealsAreShortestTextThatReadsBackExactly) {
    EXPECT_EQ(FormatSettingsReal(4), "4");
    EXPECT_EQ(FormatSettingsReal(-0.1), "-0.1");
    EXPECT_EQ(FormatSettingsReal(10.0 / 7.0), "1.4285714285714286");
    EXPECT_EQ(ParseSettingsReal("1.4285714285714286"), 10.0 / 7.0);
    EXPECT_EQ(ParseSettingsReal(" 2.5 "), 2.5);
    EXPECT_EQ(ParseSettingsReal("1e-3"), 0.001);
    for (const char* bad : {"", " ", "ten", "2,5", "2.5mm", "inf", "nan", "1e999"}) {
        EXPECT_EQ(ParseSettingsReal(bad), std::nullopt) << bad;
    }
    EXPECT_EQ(ParseSettingsInteger(" -12 "), -12);
    for (const char* bad : {"", "12a", "1.5", "2147483648"}) {
        EXPECT_EQ(ParseSettingsInteger(bad), std::nullopt) << bad;
    }
}

}  // namespace
}  // namespace zantor::test
