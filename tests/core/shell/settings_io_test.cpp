#include <array>
#include <iostream>
#include <string>
#include <vector>

#include "common/errors.h"
#include "settings_fixture.h"
#include "shell/default_font.h"
#include "shell/number_texts.h"
#include "shell/settings_io.h"
#include "shell/settings_numbers.h"

#if defined(__unix__) || defined(__APPLE__)
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace zantor::test {
namespace {

constexpr std::array<PlotKind, 3> kKinds = {PlotKind::Parttype, PlotKind::Decal, PlotKind::Index};

// A record in which every field differs from its default; the two seeds make the "General"
// fields and the print kind's fields differ from those of other seeds.
PlotSettings Distinct(int general, int kind) {
    const std::string g = std::to_string(general);
    const std::string k = std::to_string(kind);
    PlotSettings s;
    s.Inputfile = "C:\\lib\\parts" + g + ".d";
    s.Fontfile = "/opt/pads/romansim" + g + ".fnt";
    s.CompanyFont = "Liberation Sans " + g;
    s.Company = "Brovik, Inc.; " + g;
    s.RightMargin = 6.5 + general;
    s.LeftMargin = 10.0 / 7.0 + general;
    s.TopMargin = 0.1 + general;
    s.BotMargin = 7 + general;
    s.XBorder = 21 + general;
    s.YBorder = 1e-7 + general;
    s.SeperatePages = true;
    s.MirrorMargin = true;
    s.MaxPinCenterMark = 2.25 + general;
    s.MaxPin1Mark = 4 + general;
    s.MinPinnoSize = 0.75 + general;
    s.MinLineWidth = 0.05 + general;
    s.FormNo = "F-" + k;
    s.FormularFont = "DejaVu Sans " + k;
    s.MeasUnit = 'I';
    s.StackUnit = 'M';
    s.PinNoStyle = static_cast<char>('A' + kind);
    s.PlotPinNo = false;
    s.PlotPadstack = false;
    s.PlotOrigins = false;
    s.ShowPinCenter = true;
    s.ShowDrill = true;
    s.OnlyNPDrill = true;
    s.MarkPin1 = false;
    s.View1_1 = true;
    s.MaxScale = 12.5 + kind;
    s.OriginSize = 3.3 + kind;
    s.DecalAsFormNo = true;
    for (int row = 0; row < kPenRows; ++row) {
        auto& pens = s.PenTable[static_cast<std::size_t>(row)];
        pens.layer = row + kind;
        for (int pen = 1; pen <= kPenKinds; ++pen) {
            pens.colour[static_cast<std::size_t>(pen)] = 0x10000 * (kind + 1) + 0x100 * row + pen;
        }
    }
    s.PenTable[12].colour[11] = -2 - kind;
    s.PinNoSize = 1.4 + kind;
    s.ScalePinNo = false;
    s.Columns = 3 + kind;
    s.PartsEachColumn = 20 + kind;
    s.PrintSepLines = true;
    s.PrintScale = true;
    s.GenComment = "Comment " + k;
    s.GenComSize = 2.5 + kind;
    s.GenComAdjust = 1 + kind;
    s.HeightInfo = 2 + kind;
    s.ShowGrid = true;
    s.GridSize = 25.4 + kind;
    s.GridLineWidth = 0.5 + kind;
    s.GridLineStyle = 1 + kind;
    s.GridPosition = 2 + kind;
    s.GridUnit = 3 + kind;
    s.ShowGridSize = false;
    s.ListPinnames = false;
    s.ShowDecal = false;
    s.ShowDecalName = false;
    s.PrintAttr = true;
    s.PrintComm = true;
    return s;
}

// One line per field, so that a failed comparison names the fields that differ.
std::vector<std::string> Describe(const PlotSettings& s) {
    std::vector<std::string> lines;
    const auto add = [&lines](const char* name, const std::string& value) {
        lines.push_back(std::string(name) + "=" + value);
    };
#define TEXT(field) add(#field, s.field)
#define REAL(field) add(#field, FormatSettingsReal(s.field))
#define NUMBER(field) add(#field, std::to_string(s.field))
#define LETTER(field) add(#field, std::string(1, s.field))
    TEXT(Inputfile), TEXT(Fontfile), TEXT(CompanyFont), TEXT(Company);
    REAL(RightMargin), REAL(LeftMargin), REAL(TopMargin), REAL(BotMargin), REAL(XBorder);
    REAL(YBorder), NUMBER(SeperatePages), NUMBER(MirrorMargin), REAL(MaxPinCenterMark);
    REAL(MaxPin1Mark), REAL(MinPinnoSize), REAL(MinLineWidth), TEXT(FormNo), TEXT(FormularFont);
    LETTER(MeasUnit), LETTER(StackUnit), LETTER(PinNoStyle), NUMBER(PlotPinNo);
    NUMBER(PlotPadstack), NUMBER(PlotOrigins), NUMBER(ShowPinCenter), NUMBER(ShowDrill);
    NUMBER(OnlyNPDrill), NUMBER(MarkPin1), NUMBER(View1_1), REAL(MaxScale), REAL(OriginSize);
    NUMBER(DecalAsFormNo), REAL(PinNoSize), NUMBER(ScalePinNo), NUMBER(Columns);
    NUMBER(PartsEachColumn), NUMBER(PrintSepLines), NUMBER(PrintScale), TEXT(GenComment);
    REAL(GenComSize), NUMBER(GenComAdjust), NUMBER(HeightInfo), NUMBER(ShowGrid);
    REAL(GridSize), REAL(GridLineWidth), NUMBER(GridLineStyle), NUMBER(GridPosition);
    NUMBER(GridUnit), NUMBER(ShowGridSize), NUMBER(ListPinnames), NUMBER(ShowDecal);
    NUMBER(ShowDecalName), NUMBER(PrintAttr), NUMBER(PrintComm);
#undef TEXT
#undef REAL
#undef NUMBER
#undef LETTER
    for (int row = 0; row < kPenRows; ++row) {
        const auto& pens = s.PenTable[static_cast<std::size_t>(row)];
        std::string line = std::to_string(pens.layer);
        for (int pen = 1; pen <= kPenKinds; ++pen) {
            line += " " + std::to_string(pens.colour[static_cast<std::size_t>(pen)]);
        }
        add(("PenTable" + std::to_string(row)).c_str(), line);
    }
    return lines;
}

void ExpectSameFields(const PlotSettings& actual, const PlotSettings& expected) {
    const auto got = Describe(actual);
    const auto want = Describe(expected);
    ASSERT_EQ(got.size(), want.size());
    for (std::size_t n = 0; n < got.size(); ++n) {
        EXPECT_EQ(got[n], want[n]);
    }
    EXPECT_TRUE(actual == expected);
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
    ExpectSameFields(settings, PlotSettings{});
    EXPECT_EQ(settings.Inputfile, "*.d");
    EXPECT_EQ(settings.Fontfile, DefaultFontfile());
    EXPECT_EQ(settings.MaxScale, 10);
    EXPECT_EQ(settings.PartsEachColumn, 12);
    EXPECT_EQ(settings.StackUnit, 'X');
    for (int row = 0; row < kPenRows; ++row) {
        const auto& pens = settings.PenTable[static_cast<std::size_t>(row)];
        EXPECT_EQ(pens.layer, -1);
        for (int pen = 1; pen <= kPenKinds; ++pen) {
            EXPECT_EQ(pens.colour[static_cast<std::size_t>(pen)], row == 0 ? 0 : 0xFFFFFF);
        }
    }
}

TEST_F(SettingsIo, EveryFieldOfEveryKindComesBackAndKindsKeepTheirOwnSections) {
    // Every field is tested only if the test record differs from the defaults in every field.
    const auto defaults = Describe(PlotSettings{});
    const auto distinct = Describe(Distinct(1, 1));
    ASSERT_EQ(defaults.size(), distinct.size());
    for (std::size_t n = 0; n < defaults.size(); ++n) {
        EXPECT_NE(defaults[n], distinct[n]);
    }

    // Each kind saved with "General" fields of its own: the last save's "General" is shared.
    for (int k = 0; k < 3; ++k) {
        SettingsStore store = SettingsStore::OpenMain();
        SaveSettings(Distinct(k, k), kKinds[static_cast<std::size_t>(k)], {}, store);
    }
    for (int k = 0; k < 3; ++k) {
        PlotSettings loaded;
        LoadSettings(loaded, kKinds[static_cast<std::size_t>(k)], MainOnDisk());
        SCOPED_TRACE("kind " + std::to_string(k));
        ExpectSameFields(loaded, Distinct(2, k));
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
    struct Case {
        const char* stored;
        const char* message;
    };
    const Case cases[] = {
        {"MaxScale=ten", "Settings value \"Decalplot/MaxScale\" is not a number: \"ten\""},
        {"MaxScale=", "Settings value \"Decalplot/MaxScale\" is not a number: \"\""},
    };
    for (const Case& c : cases) {
        config_.WriteFile("Brovik/Zantor.conf",
                          std::string("[%General]\nInputfile=new.d\n[Decalplot]\nView1_1=1\n"
                                      "FormNo=NEW\nOriginSize=9\n") +
                              c.stored + "\n");
        PlotSettings settings = Distinct(1, 1);
        try {
            LoadSettings(settings, PlotKind::Decal, MainOnDisk());
            ADD_FAILURE() << "no error for " << c.stored;
        } catch (const ConversionError& error) {
            EXPECT_EQ(error.message(), c.message);
        }
        // Read before MaxScale: the stored values or defaults.
        EXPECT_EQ(settings.Inputfile, "new.d");
        EXPECT_EQ(settings.CompanyFont, "Arial");
        EXPECT_EQ(settings.FormNo, "NEW");
        EXPECT_TRUE(settings.PlotPinNo);
        // From MaxScale on: what the record held.
        EXPECT_EQ(settings.MaxScale, 13.5);
        EXPECT_EQ(settings.OriginSize, Distinct(1, 1).OriginSize);
        EXPECT_EQ(settings.PartsEachColumn, 21);
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
    EXPECT_FALSE(settings.PlotPinNo);

    config_.WriteFile("Brovik/Zantor.conf",
                      "[Indexplot]\nOriginSize=5\nPartsEachColumn=12a\nFormularFont=Courier\n");
    settings = Distinct(1, 1);
    EXPECT_THROW(LoadSettings(settings, PlotKind::Index, MainOnDisk()), ConversionError);
    EXPECT_EQ(settings.OriginSize, 5);
    EXPECT_EQ(settings.FormularFont, "DejaVu Sans 1");

    config_.WriteFile("Brovik/Zantor.conf",
                      "[Parttype]\nPenSelect2Color4=7\nPenSelect2Color5=red\n");
    settings = Distinct(1, 1);
    EXPECT_THROW(LoadSettings(settings, PlotKind::Parttype, MainOnDisk()), ConversionError);
    EXPECT_EQ(settings.PenTable[2].colour[4], 7);
    EXPECT_EQ(settings.PenTable[2].colour[5], Distinct(1, 1).PenTable[2].colour[5]);
    EXPECT_EQ(settings.PinNoSize, Distinct(1, 1).PinNoSize);
}

TEST_F(SettingsIo, TextsLongerThanTheirFieldsAreCut) {
    const std::string longText(100, 'x');
    const std::string umlauts = std::string(40, 'a') + "\xC3\xA4";  // 41 characters, 42 bytes
    PlotSettings settings = Distinct(1, 1);
    settings.Inputfile = longText;
    settings.Company = longText;
    settings.CompanyFont = umlauts;
    settings.FormNo = longText;
    settings.FormularFont = longText;
    settings.GenComment = longText;
    SettingsStore store = SettingsStore::OpenMain();
    SaveSettings(settings, PlotKind::Decal, {}, store);
    PlotSettings loaded;
    LoadSettings(loaded, PlotKind::Decal, MainOnDisk());
    EXPECT_EQ(loaded.Inputfile, std::string(60, 'x'));
    EXPECT_EQ(loaded.Company, std::string(30, 'x'));
    EXPECT_EQ(loaded.FormNo, std::string(16, 'x'));
    EXPECT_EQ(loaded.FormularFont, std::string(30, 'x'));
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
    EXPECT_NE(file.find("GridSize=100\n"), std::string::npos);
    PlotSettings loaded;
    LoadSettings(loaded, PlotKind::Decal, MainOnDisk());
    EXPECT_EQ(loaded.MaxScale, 2.5);
    EXPECT_EQ(loaded.LeftMargin, 10.0 / 7.0);
}

TEST_F(SettingsIo, RecentFilesStopAtTheFirstGapAndSaveInOrder) {
    std::string stored = "[%General]\n";
    for (int n = 1; n <= 10; ++n) {
        stored += "Inputfile" + std::to_string(n) + "=" +
                  (n == 4 ? "" : "file" + std::to_string(n) + ".d") + "\n";
    }
    config_.WriteFile("Brovik/Zantor.conf", stored);
    std::vector<std::string> files = {"kept.d"};
    ParttypeTextSizes sizes;
    LoadRecentFiles(files, sizes, MainOnDisk());
    EXPECT_EQ(files, (std::vector<std::string>{"kept.d", "file1.d", "file2.d", "file3.d"}));

    SettingsStore store = SettingsStore::OpenMain();
    SaveRecentFiles({"c.asc", "b.p", "a.d"}, sizes, store);
    const SettingsStore saved = MainOnDisk();
    EXPECT_EQ(saved.ReadString("General", "Inputfile1", ""), "c.asc");
    EXPECT_EQ(saved.ReadString("General", "Inputfile2", ""), "b.p");
    EXPECT_EQ(saved.ReadString("General", "Inputfile3", ""), "a.d");
    // The rest of the earlier, longer list stays behind the gap.
    EXPECT_EQ(saved.ReadString("General", "Inputfile5", ""), "file5.d");
    files.clear();
    LoadRecentFiles(files, sizes, saved);
    EXPECT_EQ(files, (std::vector<std::string>{"c.asc", "b.p", "a.d"}));
}

TEST_F(SettingsIo, ParttypeTextSizesAreConvertedInMemoryOnly) {
    ParttypeTextSizes sizes;
    EXPECT_EQ(sizes.PTNameSize, 5.0);
    EXPECT_EQ(sizes.PTAttrSize, 3.0);
    std::vector<std::string> files;
    LoadRecentFiles(files, sizes, SettingsStore::OpenMain());
    EXPECT_EQ(sizes.PTNameSize, 5.5);
    EXPECT_EQ(sizes.PTAttrSize, 4.285714285714286);
    {
        SettingsStore store = SettingsStore::OpenMain();
        SaveRecentFiles(files, sizes, store);
    }
    EXPECT_EQ(MainOnDisk().ReadString("General", "PTNameSize", ""), "4");
    EXPECT_EQ(MainOnDisk().ReadString("General", "PTAttrSize", ""), "3");

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
    SaveSettings(PlotSettings{}, PlotKind::Parttype, {}, store);
    const SettingsStore saved = MainOnDisk();
    EXPECT_EQ(saved.ReadString("Decalplot", "Attr32", ""), "Attr name 32");
    EXPECT_EQ(saved.ReadString("Decalplot", "Attr33", "missing"), "missing");
    EXPECT_TRUE(saved.ReadBool("Decalplot", "ListAttr30", false));
    EXPECT_FALSE(saved.ReadBool("Decalplot", "ListAttr31", true));
    EXPECT_EQ(saved.ReadString("Indexplot", "Attr3", ""), "Attr name 3");
    EXPECT_EQ(saved.ReadString("Indexplot", "Attr4", "missing"), "");
    EXPECT_EQ(saved.ReadString("Indexplot", "ListAttr4", "missing"), "missing");
    EXPECT_EQ(saved.ReadString("Parttype", "Attr1", "missing"), "");
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
    LoadAttributeList(list, PlotKind::Index, SettingsStore::OpenZantor());
    EXPECT_TRUE(list.empty());
}

TEST_F(SettingsIo, AttributeLoadStopsAtAGapAndAfterThirtyTwo) {
    std::string stored = "[Parttype]\n";
    for (int n = 1; n <= 33; ++n) {
        stored += "Attr" + std::to_string(n) + "=A" + std::to_string(n) + "\n";
    }
    config_.WriteFile("ZANTOR.conf", stored +
                                         "ListAttr32=true\n[Decalplot]\nAttr1=Value\n"
                                         "ListAttr1=1\nAttr2=\nAttr3=Height\n");
    AttributeList list;
    LoadAttributeList(list, PlotKind::Parttype, SettingsStore::OpenZantor());
    ASSERT_EQ(list.size(), 32u);
    EXPECT_EQ(list[31], (AttributeEntry{"A32", true}));
    EXPECT_EQ(list[30], (AttributeEntry{"A31", false}));
    LoadAttributeList(list, PlotKind::Decal, SettingsStore::OpenZantor());
    EXPECT_EQ(list, (AttributeList{{"Value", true}}));
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
        PlotSettings loaded;
        LoadSettings(loaded, PlotKind::Decal, MainOnDisk());
        EXPECT_TRUE(loaded == Distinct(1, 1));
    }
}
#endif

TEST(NumberTexts, HoldOneTo2048) {
    EXPECT_EQ(NumberText(1), "1");
    EXPECT_EQ(NumberText(10), "10");
    EXPECT_EQ(NumberText(2048), "2048");
    EXPECT_EQ(&NumberText(7), &NumberText(7));
    EXPECT_THROW(NumberText(0), RangeError);
    EXPECT_THROW(NumberText(2049), RangeError);
}

TEST(SettingsSections, NameThePrintKinds) {
    EXPECT_EQ(SettingsSection(PlotKind::Parttype), "Parttype");
    EXPECT_EQ(SettingsSection(PlotKind::Decal), "Decalplot");
    EXPECT_EQ(SettingsSection(PlotKind::Index), "Indexplot");
    EXPECT_THROW(SettingsSection(static_cast<PlotKind>(3)), RangeError);
}

}  // namespace
}  // namespace zantor::test
