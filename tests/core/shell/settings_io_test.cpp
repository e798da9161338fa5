#include <iostream>
#include <string>
#include <utility>
#include <vector>

#include "common/errors.h"
#include "settings_fixture.h"
#include "shell/default_font.h"
#include "shell/number_texts.h"
#include "shell/settings_io.h"

#if defined(__unix__) || defined(__APPLE__)
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace zantor::test {
namespace {

// A record in which every field differs from its default; the two seeds make the "General"
// fields and the print kind's fields differ from those of other seeds.
PlotSettings Distinct(int general, int kind) {
    const std::string g = std::to_string(general);
    const std::string k = std::to_string(kind);
    // clang-format off
    PlotSettings s{
        .Inputfile = "C:\\lib\\parts" + g + ".d", .Fontfile = "/opt/pads/romansim" + g + ".fnt",
        .CompanyFont = "Liberation Sans " + g, .Company = "Brovik, Inc.; " + g,
        .RightMargin = 6.5 + general, .LeftMargin = 10.0 / 7.0 + general,
        .TopMargin = 0.1 + general, .BotMargin = 7.0 + general, .XBorder = 21.0 + general,
        .YBorder = 1e-7 + general, .SeperatePages = true, .MirrorMargin = true,
        .MaxPinCenterMark = 2.25 + general, .MaxPin1Mark = 4.0 + general,
        .MinPinnoSize = 0.75 + general, .MinLineWidth = 0.05 + general, .FormNo = "F-" + k,
        .FormularFont = "DejaVu Sans " + k, .MeasUnit = 'I', .StackUnit = 'M',
        .PinNoStyle = static_cast<char>('A' + kind), .PlotPinNo = false, .PlotPadstack = false,
        .PlotOrigins = false, .ShowPinCenter = true, .ShowDrill = true, .OnlyNPDrill = true,
        .MarkPin1 = false, .View1_1 = true, .MaxScale = 12.5 + kind, .OriginSize = 3.3 + kind,
        .DecalAsFormNo = true, .PenTable = {}, .PinNoSize = 1.4 + kind, .ScalePinNo = false,
        .Columns = 3 + kind, .PartsEachColumn = 20 + kind, .PrintSepLines = true,
        .PrintScale = true, .GenComment = "Comment " + k, .GenComSize = 2.5 + kind,
        .GenComAdjust = 1 + kind, .HeightInfo = 2 + kind, .ShowGrid = true, .GridSize = 25.4 + kind,
        .GridLineWidth = 0.5 + kind, .GridLineStyle = 1 + kind, .GridPosition = 2 + kind,
        .GridUnit = 3 + kind, .ShowGridSize = false, .ListPinnames = false, .ShowDecal = false,
        .ShowDecalName = false, .PrintAttr = true, .PrintComm = true};
    // clang-format on
    for (int row = 0; row < kPenRows; ++row) {
        auto& pens = s.PenTable[static_cast<std::size_t>(row)];
        pens.layer = row + kind;
        for (int pen = 1; pen <= kPenKinds; ++pen) {
            pens.colour[static_cast<std::size_t>(pen)] = 0x10000 * (kind + 1) + 0x100 * row + pen;
        }
    }
    s.PenTable[12].colour[11] = -2 - kind;
    return s;
}

AttributeList Attributes(int count) {
    AttributeList list;
    for (int n = 1; n <= count; ++n) {
        list.push_back({"Attr name " + std::to_string(n), n % 3 == 0});
    }
    return list;
}

using SettingsIo = SettingsTest;

TEST_F(SettingsIo, AFreshStoreGivesTheDefaults) {
    PlotSettings settings = Distinct(1, 1);
    LoadSettings(settings, PlotKind::Decal, SettingsStore::OpenMain());
    EXPECT_TRUE(settings == PlotSettings{});
    EXPECT_EQ(settings.Inputfile, "*.d");
    EXPECT_EQ(settings.Fontfile, DefaultFontfile());
    EXPECT_EQ(settings.MaxScale, 10);
    EXPECT_EQ(settings.PartsEachColumn, 12);
    EXPECT_EQ(settings.StackUnit, 'X');
    // Row 0 plots every item in black, the other rows nothing; no row is bound to a layer.
    EXPECT_EQ(settings.PenTable[0].colour[kPenKinds], 0);
    EXPECT_EQ(settings.PenTable[kPenRows - 1].colour[1], 0xFFFFFF);
    EXPECT_EQ(settings.PenTable[0].layer, -1);
}

TEST_F(SettingsIo, EveryFieldOfEveryKindComesBackAndKindsKeepTheirOwnSections) {
    // Each kind saved with "General" fields of its own: the last save's "General" is shared.
    const PlotKind kinds[] = {PlotKind::Parttype, PlotKind::Decal, PlotKind::Index};
    for (int k = 0; k < 3; ++k) {
        SettingsStore store = SettingsStore::OpenMain();
        SaveSettings(Distinct(k, k), kinds[k], {}, store);
    }
    for (int k = 0; k < 3; ++k) {
        PlotSettings loaded;
        LoadSettings(loaded, kinds[k], MainOnDisk());
        EXPECT_TRUE(loaded == Distinct(2, k)) << "kind " << k;
    }
}

TEST_F(SettingsIo, ValuesAreStoredInTheirConventionalForms) {
    SettingsStore store = SettingsStore::OpenMain();
    SaveSettings(Distinct(0, 1), PlotKind::Decal, {}, store);
    const std::string file = FileBytes(MainFile());
    for (const char* line :
         {"SeperatePages=1\n", "MirrorMargin=1\n", "LeftMargin=1.4285714285714286\n",
          "YBorder=1e-07\n", "MaxScale=13.5\n", "PartsEachColumn=21\n", "MeasUnit=I\n",
          "PinNoStyle=B\n", "PlotPinNo=0\n", "PenSelect3Layer=4\n", "PenSelect3Color7=131847\n",
          "PenSelect12Color11=-3\n"}) {
        EXPECT_NE(file.find(line), std::string::npos) << line;
    }
}

TEST_F(SettingsIo, ABadValueStopsTheLoadWhereItStands) {
    for (const char* stored : {"MaxScale=ten", "MaxScale="}) {
        config_.WriteFile("Brovik/Zantor.conf",
                          std::string("[%General]\nInputfile=new.d\n[Decalplot]\nView1_1=1\n"
                                      "FormNo=NEW\nOriginSize=9\n") +
                              stored + "\n");
        PlotSettings settings = Distinct(1, 1);
        try {
            LoadSettings(settings, PlotKind::Decal, MainOnDisk());
            ADD_FAILURE() << "no error for " << stored;
        } catch (const ConversionError& error) {
            EXPECT_EQ(error.message(), "Settings value \"Decalplot/MaxScale\" is not a number: \"" +
                                           std::string(stored + 9) + "\"");
        }
        // Read before MaxScale: the stored values or defaults.
        EXPECT_EQ(settings.Inputfile, "new.d");
        EXPECT_EQ(settings.CompanyFont, "Arial");
        EXPECT_EQ(settings.FormNo, "NEW");
        EXPECT_TRUE(settings.PlotPinNo);
        // From MaxScale on: what the record held.
        EXPECT_EQ(settings.MaxScale, 13.5);
        EXPECT_EQ(settings.OriginSize, Distinct(1, 1).OriginSize);
        EXPECT_EQ(settings.GridUnit, 4);
    }
}

TEST_F(SettingsIo, AnEmptyLetterOrBadTextNumberIsARangeOrConversionError) {
    config_.WriteFile("Brovik/Zantor.conf", "[Decalplot]\nStackUnit=Inch\nPinNoStyle=\n");
    PlotSettings settings = Distinct(1, 1);
    try {
        LoadSettings(settings, PlotKind::Decal, MainOnDisk());
        ADD_FAILURE() << "no error";
    } catch (const RangeError& error) {
        EXPECT_EQ(error.message(), "Settings value \"Decalplot/PinNoStyle\" is not a letter: \"\"");
        EXPECT_FALSE(error.file().empty());
    }
    EXPECT_EQ(settings.MeasUnit, 'M');
    EXPECT_EQ(settings.StackUnit, 'I');
    EXPECT_EQ(settings.PinNoStyle, 'B');

    config_.WriteFile("Brovik/Zantor.conf",
                      "[Indexplot]\nOriginSize=5\nPartsEachColumn=12a\nFormularFont=Courier\n");
    settings = Distinct(1, 1);
    EXPECT_THROW(LoadSettings(settings, PlotKind::Index, MainOnDisk()), ConversionError);
    EXPECT_EQ(settings.OriginSize, 5);
    EXPECT_EQ(settings.FormularFont, "DejaVu Sans 1");
}

// Numbers that no page can be drawn with end the load like a text that is not a number, with
// the setting and its section named; the values at the ends of each range load.
TEST_F(SettingsIo, NumbersOutOfTheirRangeStopTheLoadNamingTheSetting) {
    const std::vector<std::pair<std::string, std::string>> refused = {
        {"Decalplot/MaxScale", "-5"},
        {"Decalplot/MaxScale", "0"},
        {"General/LeftMargin", "-1"},
        {"General/TopMargin", "1e9"},
        {"General/XBorder", "-0.5"},
        {"Decalplot/GridSize", "-100"},
        {"Decalplot/GridSize", "0"},
        {"Decalplot/GridLineWidth", "-1"},
        {"Decalplot/OriginSize", "-6"},
        {"Decalplot/PinNoSize", "1e300"},
        {"Decalplot/Columns", "0"},
        {"Decalplot/Columns", "2147483647"},
        {"Decalplot/PartsEachColumn", "1073741824"},
        {"Decalplot/PartsEachColumn", "-3"},
        {"General/MinLineWidth", "-0.1"},
    };
    for (const auto& [key, text] : refused) {
        const std::string section = key.substr(0, key.find('/'));
        const std::string name = key.substr(key.find('/') + 1);
        config_.WriteFile("Brovik/Zantor.conf",
                          "[" + std::string(section == "General" ? "%General" : section) + "]\n" +
                              name + "=" + text + "\n");
        PlotSettings settings;
        try {
            LoadSettings(settings, PlotKind::Decal, MainOnDisk());
            ADD_FAILURE() << key << "=" << text << " loaded";
        } catch (const RangeError& error) {
            EXPECT_TRUE(
                error.message().starts_with("Settings value \"" + key + "\" is out of range"))
                << error.message();
            EXPECT_TRUE(error.message().ends_with(": \"" + text + "\"")) << error.message();
        }
    }
    config_.WriteFile("Brovik/Zantor.conf",
                      "[%General]\nLeftMargin=0\nMinLineWidth=0\n[Decalplot]\nMaxScale=1000\n"
                      "GridSize=0.001\nColumns=1\nPartsEachColumn=1000\nOriginSize=0\n");
    PlotSettings settings;
    LoadSettings(settings, PlotKind::Decal, MainOnDisk());
    EXPECT_EQ(settings.MaxScale, 1000);
    EXPECT_EQ(settings.GridSize, 0.001);
    EXPECT_EQ(settings.PartsEachColumn, 1000);
}

TEST_F(SettingsIo, TextsLongerThanTheirFieldsAreCut) {
    PlotSettings settings = Distinct(1, 1);
    settings.Inputfile = settings.Company = settings.FormNo = settings.GenComment =
        std::string(100, 'x');
    settings.CompanyFont = std::string(40, 'a') + "\xC3\xA4";  // 41 characters, 42 bytes
    SettingsStore store = SettingsStore::OpenMain();
    SaveSettings(settings, PlotKind::Decal, {}, store);
    PlotSettings loaded;
    LoadSettings(loaded, PlotKind::Decal, MainOnDisk());
    EXPECT_EQ(loaded.Inputfile, std::string(60, 'x'));
    EXPECT_EQ(loaded.Company, std::string(30, 'x'));
    EXPECT_EQ(loaded.FormNo, std::string(16, 'x'));
    EXPECT_EQ(loaded.GenComment, std::string(80, 'x'));
    EXPECT_EQ(loaded.CompanyFont, std::string(30, 'a'));
    EXPECT_EQ(CutToCapacity("\xC3\xA4\xC3\xB6\xC3\xBC", 2), "\xC3\xA4\xC3\xB6");
}

TEST_F(SettingsIo, RealsAreWrittenWithAPointUnderACommaLocale) {
    const GermanNumbers german;
    if (!german.CLibraryUsesComma()) {
        std::cerr << "note: no German C locale on this machine; Qt and C++ streams only\n";
    }
    PlotSettings settings;
    settings.MaxScale = 2.5;
    settings.LeftMargin = 10.0 / 7.0;
    SettingsStore store = SettingsStore::OpenMain();
    SaveSettings(settings, PlotKind::Decal, {}, store);
    const std::string file = FileBytes(MainFile());
    EXPECT_NE(file.find("MaxScale=2.5\n"), std::string::npos);
    EXPECT_NE(file.find("LeftMargin=1.4285714285714286\n"), std::string::npos);
    PlotSettings loaded;
    LoadSettings(loaded, PlotKind::Decal, MainOnDisk());
    EXPECT_EQ(loaded.MaxScale, 2.5);
    EXPECT_EQ(loaded.LeftMargin, 10.0 / 7.0);
}

TEST_F(SettingsIo, RecentFilesStopAtTheFirstGapAndSaveInOrder) {
    config_.WriteFile("Brovik/Zantor.conf",
                      "[%General]\nInputfile1=file1.d\nInputfile2=file2.d\nInputfile3=\n"
                      "Inputfile4=file4.d\nInputfile5=file5.d\n");
    std::vector<std::string> files = {"kept.d"};
    ParttypeTextSizes sizes;
    LoadRecentFiles(files, sizes, MainOnDisk());
    EXPECT_EQ(files, (std::vector<std::string>{"kept.d", "file1.d", "file2.d"}));

    SettingsStore store = SettingsStore::OpenMain();
    SaveRecentFiles({"c.asc", "b.p"}, sizes, store);
    const SettingsStore saved = MainOnDisk();
    // The rest of the earlier, longer list stays behind the gap.
    EXPECT_EQ(saved.ReadString("General", "Inputfile5", ""), "file5.d");
    files.clear();
    LoadRecentFiles(files, sizes, saved);
    EXPECT_EQ(files, (std::vector<std::string>{"c.asc", "b.p"}));
}

TEST_F(SettingsIo, ParttypeTextSizesAreConvertedInMemoryOnly) {
    ParttypeTextSizes sizes;
    EXPECT_EQ(sizes.PTNameSize, 5.0);
    EXPECT_EQ(sizes.PTAttrSize, 3.0);
    std::vector<std::string> files;
    LoadRecentFiles(files, sizes, SettingsStore::OpenMain());
    EXPECT_EQ(sizes.PTNameSize, 5.5);
    EXPECT_EQ(sizes.PTAttrSize, 4.285714285714286);

    config_.WriteFile("Brovik/Zantor.conf", "[%General]\nPTNameSize=2.25\nPTAttrSize=1.7\n");
    LoadRecentFiles(files, sizes, MainOnDisk());
    EXPECT_EQ(sizes.PTNameSize, 3.75);
    SettingsStore store = SettingsStore::OpenMain();
    SaveRecentFiles(files, sizes, store);
    EXPECT_EQ(MainOnDisk().ReadString("General", "PTNameSize", ""), "2.25");
    EXPECT_EQ(MainOnDisk().ReadString("General", "PTAttrSize", ""), "1.7");

    config_.WriteFile("Brovik/Zantor.conf", "[%General]\nInputfile1=a.d\nPTNameSize=big\n");
    EXPECT_THROW(LoadRecentFiles(files, sizes, MainOnDisk()), ConversionError);
    EXPECT_EQ(files, std::vector<std::string>{"a.d"});
    EXPECT_EQ(sizes.PTNameSize, 3.75);
}

TEST_F(SettingsIo, AttributeListsEndWithAnEmptyNameUnlessFull) {
    SettingsStore store = SettingsStore::OpenMain();
    SaveSettings(PlotSettings{}, PlotKind::Decal, Attributes(32), store);
    SaveSettings(PlotSettings{}, PlotKind::Index, Attributes(3), store);
    const SettingsStore saved = MainOnDisk();
    EXPECT_EQ(saved.ReadString("Decalplot", "Attr32", ""), "Attr name 32");
    EXPECT_EQ(saved.ReadString("Decalplot", "Attr33", "missing"), "missing");
    EXPECT_TRUE(saved.ReadBool("Decalplot", "ListAttr30", false));
    EXPECT_FALSE(saved.ReadBool("Decalplot", "ListAttr31", true));
    EXPECT_EQ(saved.ReadString("Indexplot", "Attr4", "missing"), "");
    EXPECT_EQ(saved.ReadString("Indexplot", "ListAttr4", "missing"), "missing");
}

TEST_F(SettingsIo, TheAttributeListIsReadFromTheZantorKeyOnly) {
    {
        SettingsStore store = SettingsStore::OpenMain();
        SaveSettings(PlotSettings{}, PlotKind::Decal, Attributes(3), store);
    }
    AttributeList list = Attributes(2);
    LoadAttributeList(list, PlotKind::Decal, SettingsStore::OpenZantor());
    EXPECT_TRUE(list.empty());

    // A longer list saved earlier ends at the empty name after the shorter one.
    SettingsStore zantor = SettingsStore::OpenZantor();
    SaveSettings(PlotSettings{}, PlotKind::Decal, Attributes(5), zantor);
    SaveSettings(PlotSettings{}, PlotKind::Decal, Attributes(3), zantor);
    LoadAttributeList(list, PlotKind::Decal, SettingsStore::OpenZantor());
    EXPECT_EQ(list, Attributes(3));

    // Reading stops after 32 entries, whatever follows.
    std::string stored = "[Parttype]\n";
    for (int n = 1; n <= 33; ++n) {
        stored += "Attr" + std::to_string(n) + "=A" + std::to_string(n) + "\n";
    }
    config_.WriteFile("ZANTOR.conf", stored + "ListAttr32=true\n");
    LoadAttributeList(list, PlotKind::Parttype, SettingsStore::OpenZantor());
    ASSERT_EQ(list.size(), 32u);
    EXPECT_EQ(list[31], (AttributeEntry{"A32", true}));
    EXPECT_EQ(list[30], (AttributeEntry{"A31", false}));
}

#if defined(__unix__) || defined(__APPLE__)
// Saves in a child process that cannot write the configuration folder (as root, a process
// that has given up root's rights; root writes anywhere). Returns the child's verdict: 0 for
// an IoError that names the file, 1 for no error, 2 for another error, 3 if rights could not
// be given up.
int SaveWithoutWriteAccess(const std::filesystem::path& file, const PlotSettings& settings,
                           bool loadFirst) {
    const pid_t child = fork();
    if (child == 0) {
        if (geteuid() == 0 && (setgid(65534) != 0 || setuid(65534) != 0)) {
            _exit(3);
        }
        int verdict = 1;
        try {
            SettingsStore store = SettingsStore::OpenMain();
            if (loadFirst) {
                PlotSettings loaded;
                LoadSettings(loaded, PlotKind::Decal, store);
            }
            SaveSettings(settings, PlotKind::Decal, {}, store);
        } catch (const IoError& error) {
            verdict = error.file() == file.string() ? 0 : 2;
        } catch (...) {
            verdict = 2;
        }
        _exit(verdict);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

TEST_F(SettingsIo, AFailedSaveReportsTheFileAndLeavesItAsItWas) {
    // The second round has a line Qt cannot parse, read before the save: Qt then reports the
    // parse, which must not hide the failed write.
    for (const bool unparsable : {false, true}) {
        {
            SettingsStore store = SettingsStore::OpenMain();
            SaveSettings(Distinct(1, 1), PlotKind::Decal, {}, store);
        }
        if (unparsable) {
            std::ofstream(MainFile(), std::ios::app) << "not a setting\n";
        }
        const std::string before = FileBytes(MainFile());
        const auto folder = MainFile().parent_path();
        chmod(folder.c_str(), 0555);
        const int verdict = SaveWithoutWriteAccess(MainFile(), Distinct(2, 2), unparsable);
        chmod(folder.c_str(), 0755);
        if (verdict == 3) {
            GTEST_SKIP() << "cannot give up root's rights here";
        }
        EXPECT_EQ(verdict, 0) << "unparsable " << unparsable;
        EXPECT_EQ(FileBytes(MainFile()), before);
    }
}
#endif

TEST(SettingsNames, NumberTextsAndSectionsRefuseWhatIsOutOfRange) {
    EXPECT_EQ(NumberText(1), "1");
    EXPECT_EQ(NumberText(2048), "2048");
    EXPECT_THROW(NumberText(0), RangeError);
    EXPECT_THROW(NumberText(2049), RangeError);
    EXPECT_EQ(SettingsSection(PlotKind::Index), "Indexplot");
    EXPECT_THROW(SettingsSection(static_cast<PlotKind>(3)), RangeError);
}

}  // namespace
}  // namespace zantor::test
