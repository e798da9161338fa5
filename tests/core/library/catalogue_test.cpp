#include "library/catalogue.h"
#include "support/recording_messages.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "common/errors.h"
#include "common/user_messages.h"
#include "library/decal_reader.h"
#include "shell/identification.h"
#include "support/test_support.h"

namespace zantor {
namespace {

using Names = std::vector<std::string>;

std::filesystem::path Fixture(const std::string& name) {
    return test::DataDir() / "library" / "catalogue" / name;
}

struct Listing {
    Catalogue catalogue;
    RecordingMessages messages;

    Names EntryNames() const {
        Names names;
        for (const CatalogueEntry& entry : catalogue.entries) {
            names.push_back(entry.name);
        }
        return names;
    }
    bool AllSelected() const {
        return std::all_of(catalogue.entries.begin(), catalogue.entries.end(),
                           [](const CatalogueEntry& entry) { return entry.selected; });
    }
};

Listing List(const std::filesystem::path& file, PlotKind kind = PlotKind::Decal,
             const CatalogueFilters& filters = {}) {
    Listing listing;
    listing.catalogue = LoadPartnames(file, kind, filters, listing.messages);
    return listing;
}

Names ListNames(const std::filesystem::path& file, PlotKind kind = PlotKind::Decal,
                const CatalogueFilters& filters = {}) {
    Listing listing = List(file, kind, filters);
    EXPECT_TRUE(listing.AllSelected());
    EXPECT_EQ(listing.messages.Texts(), Names{});
    return listing.EntryNames();
}

CatalogueFilters Search(std::string text) {
    CatalogueFilters filters;
    filters.searchText = std::move(text);
    return filters;
}

CatalogueFilters Pins(std::string text) {
    CatalogueFilters filters;
    filters.pinCountText = std::move(text);
    return filters;
}

CatalogueFilters Contents(int index) {
    CatalogueFilters filters;
    filters.contentsFilter = index;
    return filters;
}

// A decal record of a V4 library: name, unit, origin, attrs, labels, pieces, texts, terminals,
// stacks, then its body.
std::string V4Decal(const std::string& name, int terminals) {
    std::string record = name + " I 0 0 0 0 1 0 " + std::to_string(terminals) + " 1\n" +
                         "OPEN 2 10 26\n0 0\n100 0\n";
    for (int pin = 1; pin <= terminals; ++pin) {
        record += "T" + std::to_string(pin * 100) + " 0 0 0 " + std::to_string(pin) + "\n";
    }
    return record + "PAD 0 1 P 30 0 0 0\n-2 60 R\n";
}

TEST(LibraryCatalogue, ListsDecalsInFileOrderAllSelected) {
    test::TempDir dir;
    auto file = dir.WriteFile("lib.d", "*PADS-LIBRARY-PCB-DECALS-V4*\r\n\r\n" + V4Decal("SO8", 8) +
                                           "\r\n\r\n\r\n" + V4Decal("DIP8", 8) + "\n" +
                                           V4Decal("R0603", 2) + "\n*END*\n");
    for (PlotKind kind : {PlotKind::Decal, PlotKind::Index}) {
        Listing listing = List(file, kind);
        EXPECT_EQ(listing.EntryNames(), (Names{"SO8", "DIP8", "R0603"}));
        EXPECT_TRUE(listing.AllSelected());
        EXPECT_FALSE(listing.catalogue.sorted);
        EXPECT_EQ(listing.catalogue.statusText, "Decals in file:     3");
        EXPECT_TRUE(listing.messages.Entries().empty());
    }
    // The same library with a CR alone after every line, as old Macintosh files have it.
    std::string text = "*PADS-LIBRARY-PCB-DECALS-V4*\n\n" + V4Decal("SO8", 8) + "\n" +
                       V4Decal("DIP8", 8) + "\n" + V4Decal("R0603", 2) + "\n*END*\n";
    std::replace(text.begin(), text.end(), '\n', '\r');
    const auto mac = dir.WriteFile("mac.d", text);
    EXPECT_TRUE(IsDecalFile(mac));
    Listing listing = List(mac);
    EXPECT_EQ(listing.EntryNames(), (Names{"SO8", "DIP8", "R0603"}));
    EXPECT_EQ(listing.catalogue.statusText, "Decals in file:     3");
}

TEST(LibraryCatalogue, ItemFraming) {
    test::TempDir dir;
    const std::string longName(45, 'L');
    // Items that follow each other without a blank line are read as one item's body; the header
    // line is never an item; a header on the very last line has no body and is not listed.
    auto file = dir.WriteFile("lib.d",
                              "*PADS-LIBRARY-PCB-DECALS-V4*\nFIRST I 0 0 0 0 0 0 1 0\n"
                              "T0 0 0 0 1\nGLUED I 0 0 0 0 0 0 1 0\nT0 0 0 0 1\n\n" +
                                  longName +
                                  " I 0 0 0 0 0 0 1 0\nT0 0 0 0 1\n\n\n"
                                  "LAST I 0 0 0 0 0 0 1 0");
    EXPECT_EQ(ListNames(file), (Names{"FIRST", longName.substr(0, 40)}));
    // With a line end after it, the header is still the last line of the file.
    auto ended = dir.WriteFile("ended.d",
                               "*PADS-LIBRARY-PCB-DECALS-V4*\n\nONLY I 0 0 0 0 0 0 1 0\n"
                               "T0 0 0 0 1\n\nLAST I 0 0 0 0 0 0 1 0\n");
    EXPECT_EQ(ListNames(ended), Names{"ONLY"});
    // The first line of a library is its header line whatever it holds, indented or missing.
    auto indented = dir.WriteFile("indented.d",
                                  "  *PADS-LIBRARY-PCB-DECALS-V4*\n\n"
                                  "SO8 I 0 0 0 0 1 0 8 1\nOPEN 2 10 26\n0 0\n1 1\n\n");
    EXPECT_EQ(ListNames(indented), (Names{"SO8"}));
    auto plain = dir.WriteFile("plain.d",
                               "DIP8 I 0 0 0 0 0 0 0 0\n\n"
                               "SO8 I 0 0 0 0 1 0 8 1\nOPEN 2 10 26\n0 0\n1 1\n\n");
    EXPECT_EQ(ListNames(plain), (Names{"SO8"}));
    auto empty = dir.WriteFile("empty.d", "");
    Listing nothing = List(empty);
    EXPECT_TRUE(nothing.catalogue.entries.empty());
    EXPECT_EQ(nothing.catalogue.statusText, "Decals in file:     0");
}

TEST(LibraryCatalogue, SearchAndPinCountFilters) {
    test::TempDir dir;
    auto file =
        dir.WriteFile("lib.d", "*PADS-LIBRARY-PCB-DECALS-V4*\n\n" + V4Decal("SN7400", 14) + "\n" +
                                   V4Decal("74LS00", 14) + "\n" + V4Decal("sn74ls02", 14) + "\n" +
                                   V4Decal("DIP8", 8) + "\n" + V4Decal("R0603", 2) + "\n*END*\n");
    EXPECT_EQ(ListNames(file, PlotKind::Decal, Search(" 74 ")),
              (Names{"SN7400", "74LS00", "sn74ls02"}));
    EXPECT_EQ(ListNames(file, PlotKind::Decal, Search("LS")), Names{"74LS00"});
    EXPECT_EQ(ListNames(file, PlotKind::Decal, Search("ls")), Names{"sn74ls02"});

    EXPECT_EQ(ListNames(file, PlotKind::Decal, Pins("14")),
              (Names{"SN7400", "74LS00", "sn74ls02"}));
    EXPECT_EQ(ListNames(file, PlotKind::Index, Pins(" 2 ")), Names{"R0603"});
    EXPECT_EQ(ListNames(file, PlotKind::Decal, Pins("3")), Names{});
    EXPECT_EQ(ListNames(file, PlotKind::Decal, Pins("0")).size(), 5u);

    CatalogueFilters both = Pins("14");
    both.searchText = "LS";
    both.contentsFilter = 5;  // not a decal filter
    EXPECT_EQ(ListNames(file, PlotKind::Decal, both), Names{"74LS00"});
}

TEST(LibraryCatalogue, FailuresEndTheListing) {
    test::TempDir dir;
    auto bad = dir.WriteFile("bad.d",
                             "*PADS-LIBRARY-PCB-DECALS-V4*\n\nGOOD I 0 0 0 0 0 0 1 0\n"
                             "T0 0 0 0 1\n\nBAD I 0 0 0 0 0 0 many 0\nT0 0 0 0 1\n");
    RecordingMessages messages;
    try {
        LoadPartnames(bad, PlotKind::Decal, {}, messages);
        ADD_FAILURE() << "a terminal count that is not a number was accepted";
    } catch (const ConversionError& error) {
        EXPECT_EQ(error.file(), bad.string());
        EXPECT_EQ(error.line(), 6);
    }
    EXPECT_THROW(LoadPartnames(bad, PlotKind::Decal, Pins("x"), messages), ConversionError);
    EXPECT_THROW(LoadPartnames(dir.Path() / "missing.d", PlotKind::Decal, {}, messages), IoError);
    EXPECT_TRUE(messages.Entries().empty());
}

// Parttype headers of an old parttype library: name, decal list, unit, logic family; six or more
// words after the family carry the attribute count (word 5) and the pin-name count (word 8),
// fewer carry only the pin-name count (word 7).
constexpr const char* kV4Parttypes =
    "*PADS-LIBRARY-PART-TYPES-V4*\n\n"
    "7400 DIP14:SO14 I TTL 2 1 0 0 0 0\nGATE\n\n"
    "74LS00 DIP14 I TTL 0 1 0 3 0 0\nGATE\n\n"
    "DIP14 DIP14 I UND 1 1 0 2 0 0\nGATE\n\n"
    "CONN CONN10 I CON 1 0 5 0 0\nGATE\n\n"
    "R RES I UND 0 0 0 0 0 0\nGATE\n\n"
    "*END*\n";

TEST(ParttypeCatalogue, ContentsFilters) {
    test::TempDir dir;
    auto file = dir.WriteFile("lib.p", kV4Parttypes);
    const Names all{"7400", "74LS00", "DIP14", "CONN", "R"};
    Listing listing = List(file, PlotKind::Parttype);
    EXPECT_EQ(listing.EntryNames(), all);
    EXPECT_EQ(listing.catalogue.statusText, "Parttypes listed:     5");
    EXPECT_FALSE(listing.catalogue.sorted);
    EXPECT_EQ(CatalogueStatusText(PlotKind::Parttype, 65535), "Parttypes listed: 65535");

    EXPECT_EQ(ListNames(file, PlotKind::Parttype, Contents(1)), (Names{"74LS00", "DIP14", "CONN"}));
    EXPECT_EQ(ListNames(file, PlotKind::Parttype, Contents(2)), (Names{"7400", "DIP14"}));
    EXPECT_EQ(ListNames(file, PlotKind::Parttype, Contents(3)), Names{"DIP14"});
    EXPECT_EQ(ListNames(file, PlotKind::Parttype, Contents(4)),
              (Names{"7400", "74LS00", "DIP14", "CONN"}));
    EXPECT_EQ(ListNames(file, PlotKind::Parttype, Contents(5)), Names{"7400"});
    EXPECT_EQ(ListNames(file, PlotKind::Parttype, Contents(6)),
              (Names{"7400", "74LS00", "CONN", "R"}));
    EXPECT_EQ(ListNames(file, PlotKind::Parttype, Contents(7)), all);

    CatalogueFilters searchAndPins = Search("74");
    searchAndPins.pinCountText = "99";  // not a parttype filter
    EXPECT_EQ(ListNames(file, PlotKind::Parttype, searchAndPins), (Names{"7400", "74LS00"}));
}

TEST(ParttypeCatalogue, DecalListsCountTheirPartsUpToAnEmptyOne) {
    test::TempDir dir;
    auto file = dir.WriteFile("lib.p",
                              "*PADS-LIBRARY-PART-TYPES-V4*\n\n"
                              "A DIP14::SO14 I TTL 0 0\n\nB DIP14:SO14: I TTL 0 0\n\n"
                              "C :DIP14 I TTL 0 0\n\nEND\n");
    EXPECT_EQ(ListNames(file, PlotKind::Parttype, Contents(5)), Names{"B"});
    EXPECT_EQ(ListNames(file, PlotKind::Parttype, Contents(6)), (Names{"A", "B", "C"}));
}

TEST(ParttypeCatalogue, HeaderErrorsAreReportedAndSkipped) {
    test::TempDir dir;
    const std::string longName(44, 'N');
    auto file = dir.WriteFile("lib.p",
                              "*PADS-LIBRARY-PART-TYPES-V4*\n\n"
                              "X DIP14 I TTL\nGATE\n\n"
                              "7400 DIP14 I TTL 0 1 0 0\nGATE\n\n"
                              "Y DIP14 I\nGATE\n\n" +
                                  longName + " DIP14 I TTL   \nGATE\n\nEND\n");
    Listing listing = List(file, PlotKind::Parttype);
    EXPECT_EQ(listing.EntryNames(), Names{"7400"});
    ASSERT_EQ(listing.messages.Entries().size(), 3u);
    for (const auto& entry : listing.messages.Entries()) {
        EXPECT_EQ(entry.kind, RecordingMessages::Kind::Error);
    }
    EXPECT_EQ(listing.messages.Texts(),
              (Names{"Header-error in ASCII-file: X", "Header-error in ASCII-file: Y",
                     "Header-error in ASCII-file: " + longName.substr(0, 40)}));
    // Items the search leaves out are not checked.
    Listing searched = List(file, PlotKind::Parttype, Search("74"));
    EXPECT_EQ(searched.EntryNames(), Names{"7400"});
    EXPECT_TRUE(searched.messages.Entries().empty());
}

// A V4 PCB file: `decals` decal records (D00, D01, ...), the parttypes and the part lines given.
std::string V4Board(int decals, const std::string& parttypes, const std::string& parts) {
    std::string text =
        "!PADS-POWERPCB-V4.0-MILS! DESIGN DATABASE ASCII FILE 1.0\n"
        "*PCB*        GENERAL PARAMETERS OF THE PCB DESIGN\nUNITS        1\n\n"
        "*PARTDECAL*  ITEMS\n*REMARK* NAME UNITS ORIX ORIY PIECES TERMINALS STACKS TEXT LABELS\n\n";
    // Written in reverse order, so that the catalogue has to sort them.
    for (int i = decals - 1; i >= 0; --i) {
        std::string name = (i < 10 ? "D0" : "D") + std::to_string(i);
        text += name +
                " I 0 0 1 1 1 0 0\nCIRCLE 2 5 26\n-30 0\n30 0\nT0 0 0 0\n"
                "PAD 0 1 P 20 0 0 0\n-2 40 R\n\n";
    }
    return text + "*PARTTYPE*   ITEMS\n*REMARK* NAME DECALNM UNITS TYPE GATES SIGPINS PINNMS\n\n" +
           parttypes + "*PART*       ITEMS\n*REMARK* REFNM PTYPENM X Y ORI GLUE MIRROR ALT\n\n" +
           parts + "\n*MISC*\n\n*END*     OF ASCII OUTPUT FILE\n";
}

std::string PartLine(const std::string& ref, const std::string& type, const std::string& alt,
                     const std::string& labels) {
    return ref + " " + type + " 1000 2000 0 U N " + alt + " -1 0 -1 " + labels + "\n";
}

constexpr const char* kTwoLineLabels =
    "VALUE 0 0 0 1 100 10 N LEFT UP\nRef.Des.\n"
    "VALUE 0 0 0 1 100 10 N LEFT DOWN\nPart Type\n";

TEST(PcbCatalogue, ListsOnlyTheDecalsPartsUseSorted) {
    test::TempDir dir;
    const std::string parttypes =
        "7400 D31:D05 I TTL 0 0 0\nG 0 3\n1.0.I 2.0.I 3.0.O\n\n"
        "RES D17 I UND 1 0 0\nG 0 2\n1.0.U 2.0.U\n\n"
        "CAP D22 I UND 1 0 0\n\n";
    // U2 takes the second decal of 7400 through a negative index; R1 and R2 share a decal; the
    // parts follow each other directly after their labels and reuse lines.
    const std::string parts =
        PartLine("U1", "7400", "0", "2") + kTwoLineLabels + PartLine("U2", "7400", "-1", "-2") +
        ".REUSE. INSTANCE RPART\n" + kTwoLineLabels + PartLine("R1", "RES", "0", "0") +
        PartLine("R2", "RES", "0", "2") + kTwoLineLabels + PartLine("X1", "UNKNOWN", "0", "0");
    auto file = dir.WriteFile("board.asc", V4Board(40, parttypes, parts));
    Listing listing = List(file);
    EXPECT_EQ(listing.EntryNames(), (Names{"D05", "D17", "D31"}));
    EXPECT_TRUE(listing.catalogue.sorted);
    EXPECT_TRUE(listing.AllSelected());
    EXPECT_EQ(listing.catalogue.statusText, "Decals in file:     3");
    EXPECT_TRUE(listing.messages.Entries().empty());

    // The filters apply to the decal section before the parts are looked at.
    EXPECT_EQ(ListNames(file, PlotKind::Index, Search("1")), (Names{"D17", "D31"}));
    EXPECT_EQ(ListNames(file, PlotKind::Decal, Pins("1")), Names{});  // word 9: no labels

    Listing parttypeListing = List(file, PlotKind::Parttype);
    EXPECT_EQ(parttypeListing.EntryNames(), (Names{"7400", "CAP", "RES"}));
    EXPECT_TRUE(parttypeListing.catalogue.sorted);
    EXPECT_EQ(parttypeListing.catalogue.statusText, "Parttypes listed:     3");
}

TEST(PcbCatalogue, OldFilesKeepTheirRules) {
    test::TempDir dir;
    // Word 9 of a PCB decal header is its label count, but the pin count filter of old files
    // has always looked there.
    auto labelled =
        dir.WriteFile("labelled.asc",
                      "!PADS-POWERPCB-V4.0-MILS! DESIGN DATABASE ASCII FILE 1.0\n*PARTDECAL*\n\n"
                      "TWO I 0 0 0 2 1 0 5\nT0 0 0 0\nT1 0 0 0\nPAD 0 1\n-2 40 R\n\n"
                      "*PARTTYPE*\n\nTT TWO I UND 1 0 0\n\n*PART*\n\n" +
                          PartLine("J1", "TT", "0", "0") + "\n*END*\n");
    EXPECT_EQ(ListNames(labelled, PlotKind::Decal, Pins("5")), Names{"TWO"});
    EXPECT_EQ(ListNames(labelled, PlotKind::Decal, Pins("2")), Names{});
    // Without parts, no decal is used; "type@decal" is not a decal name of its own.
    auto unused = dir.WriteFile("unused.asc", V4Board(3, "", ""));
    EXPECT_EQ(ListNames(unused), Names{});
    auto atDecal = dir.WriteFile("at.asc", V4Board(3, "", PartLine("U1", "X@D01", "0", "0")));
    EXPECT_EQ(ListNames(atDecal), Names{});
}

TEST(PcbCatalogue, RangeErrors) {
    test::TempDir dir;
    std::string seventeen;
    for (int i = 0; i < 17; ++i) {
        seventeen += (i == 0 ? "" : ":") + std::string("D0") + std::to_string(i % 3);
    }
    auto tooMany = dir.WriteFile("many.asc", V4Board(3,
                                                     "OK D00:D01 I UND 1 0 0\n\n"
                                                     "BIG " +
                                                         seventeen + " I UND 1 0 0\n\n",
                                                     ""));
    RecordingMessages messages;
    try {
        LoadPartnames(tooMany, PlotKind::Decal, {}, messages);
        ADD_FAILURE() << "17 decals were accepted";
    } catch (const RangeError& error) {
        EXPECT_EQ(error.file(), tooMany.string());
        EXPECT_EQ(error.line(), 37);
        EXPECT_NE(error.message().find("BIG"), std::string::npos);
    }
    // Sixteen are fine, and the last slot is index 15.
    const std::string sixteen = seventeen.substr(0, seventeen.rfind(':'));
    auto full = dir.WriteFile("full.asc", V4Board(3, "BIG " + sixteen + " I UND 1 0 0\n\n",
                                                  PartLine("U1", "BIG", "15", "0")));
    EXPECT_EQ(ListNames(full), Names{"D00"});  // slot 15 is "D00"

    auto index16 = dir.WriteFile(
        "alt.asc", V4Board(3, "T D00:D01 I UND 1 0 0\n\n", PartLine("U1", "T", "-16", "0")));
    EXPECT_THROW(LoadPartnames(index16, PlotKind::Decal, {}, messages), RangeError);
    // Only an index that is used is checked; one beyond the list selects nothing.
    auto unknownType = dir.WriteFile(
        "unknown.asc", V4Board(3, "T D00:D01 I UND 1 0 0\n\n",
                               PartLine("U1", "Q", "99", "0") + PartLine("U2", "T", "7", "0") +
                                   PartLine("U3", "T", "1", "0")));
    EXPECT_EQ(ListNames(unknownType), Names{"D01"});

    auto labels = dir.WriteFile(
        "labels.asc", V4Board(3, "T D00 I UND 1 0 0\n\n", PartLine("U1", "T", "0", "-65536")));
    EXPECT_THROW(LoadPartnames(labels, PlotKind::Decal, {}, messages), RangeError);
    auto notNumber = dir.WriteFile(
        "nan.asc", V4Board(3, "T D00 I UND 1 0 0\n\n", PartLine("U1", "T", "first", "0")));
    EXPECT_THROW(LoadPartnames(notNumber, PlotKind::Decal, {}, messages), ConversionError);
    EXPECT_TRUE(messages.Entries().empty());
}

TEST(NewerCatalogue, FixtureFilesOfNewerReleases) {
    struct Case {
        const char* file;
        PlotKind kind;
        CatalogueFilters filters;
        Names names;
    };
    // v95_board: DIP14 and SO14 through the alternates of 7400, R0603 for two resistors,
    // DIP14_WIDE as the local decal of "7400@DIP14_WIDE"; TP and C0805 are not used; the
    // terminal count is word 6 of a PCB decal header (word 9 is the label count, 2 in all).
    // tool_decals: "*PARTDECAL*" without remarks or a blank line and no parts: every decal is
    // offered, sorted without regard to case. v9_library: "*END*" follows the last stack line
    // directly; the lines after it are not items.
    const Case cases[] = {
        {"v95_board.asc", PlotKind::Decal, {}, {"DIP14", "DIP14_WIDE", "R0603", "SO14"}},
        {"v95_board.asc", PlotKind::Decal, Pins("2"), {"R0603"}},
        {"v95_board.asc", PlotKind::Index, Pins("14"), {"DIP14", "DIP14_WIDE", "SO14"}},
        {"v95_board.asc", PlotKind::Parttype, {}, {"7400", "CAP", "RES", "TP"}},
        {"v95_board.asc", PlotKind::Parttype, Contents(1), {"RES"}},
        {"v95_board.asc", PlotKind::Parttype, Contents(6), {"7400", "CAP", "RES"}},
        {"tool_decals.asc", PlotKind::Decal, {}, {"CAP0402", "led_0603", "SOT23"}},
        {"v9_library.d", PlotKind::Decal, {}, {"SOIC8", "TO92"}},
        {"v9_library.d", PlotKind::Decal, Pins("3"), {"TO92"}},
        // name decals unit family attrs gates sigpins pinmap flag
        {"v9_parttypes.p", PlotKind::Parttype, {}, {"LM358", "BAT54", "SOT23"}},
        {"v9_parttypes.p", PlotKind::Parttype, Contents(1), {"BAT54"}},
        {"v9_parttypes.p", PlotKind::Parttype, Contents(2), {"LM358"}},
        {"v9_parttypes.p", PlotKind::Parttype, Contents(5), {"LM358"}},
        // Parttypes back to back; every parttype of the board is read, so every decal a part
        // uses is offered (UNUSED is not).
        {"../parttype/v9_library.p", PlotKind::Parttype, {}, {"74HC00", "BGA4", "WIDE"}},
        {"../parttype/v10_board.asc", PlotKind::Decal, {}, {"C0603", "R0603", "SOD123"}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.file);
        EXPECT_EQ(ListNames(Fixture(c.file), c.kind, c.filters), c.names);
    }
    EXPECT_TRUE(List(Fixture("v95_board.asc")).catalogue.sorted);
    EXPECT_TRUE(List(Fixture("tool_decals.asc")).catalogue.sorted);
    EXPECT_FALSE(List(Fixture("v9_library.d")).catalogue.sorted);
}

TEST(NewerCatalogue, RecordsFramedByTheirCounts) {
    test::TempDir dir;
    // Some exporters write records without blank lines between them; their counts tell where
    // each ends. A body whose counts cannot be followed ends at the next blank line.
    auto library = dir.WriteFile("packed.d",
                                 "*PADS-LIBRARY-PCB-DECALS-V9*\n"
                                 "A M 0 0 0 0 0 0 1 0 0\nT0 0 0 0 1\n"
                                 "B M 0 0 0 0 1 0 2 0 0\nOPEN 2 0.1 26 -1\n0 0\n1 0\n"
                                 "T0 0 0 0 1\nT1 0 1 0 2\n"
                                 "C M 0 0 0 0 0 0 0 0 0\n"
                                 "D M 0 0 0 0 1 0 1 0 0\nOPEN x 0.1 26 -1\n0 0\n"
                                 "E M 0 0 0 0 0 0 0 0 0\nT0 0 0 0 1\n\n"
                                 "F M 0 0 0 0 0 0 1 0 0\nT0 0 0 0 1\n*END*\n");
    EXPECT_EQ(ListNames(library), (Names{"A", "B", "C", "D", "F"}));
    EXPECT_EQ(ListNames(library, PlotKind::Decal, Pins("2")), Names{"B"});

    auto board = dir.WriteFile("packed.asc",
                               "!PADS-POWERPCB-V10.0-BASIC-250L! DESIGN DATABASE ASCII FILE 1.\n"
                               "*PARTDECAL*\nA I 0 0 0 1 0 0 0\nT0 0 0 0 1\n"
                               "B I 0 0 0 2 0 0 0\nT0 0 0 0 1\nT1 0 1 0 2\n*END*\n");
    EXPECT_EQ(ListNames(board), (Names{"A", "B"}));
}

// A small board of a newer version whose part labels take `labelLines` lines and whose parttype
// headers carry a unit letter.
std::string NewerBoard(const std::string& version, int labelLines) {
    std::string label = "VALUE 0 0 0.000 1 1905000 190500 N LEFT UP\n";
    if (labelLines == 3) {
        label += "Regular <Romansim Stroke Font>\n";
    }
    label += "Ref.Des.\n";
    return "!PADS-POWERPCB-" + version + "-BASIC! DESIGN DATABASE ASCII FILE 1.0\n" +
           "*PARTDECAL*  ITEMS\n\n"
           "AA I 0 0 0 1 1 0 0\nT0 0 0 0\nPAD 0 1\n-2 1905000 R 952500\n\n"
           "BB I 0 0 0 2 1 0 0\nT0 0 0 0\nT3810000 0 3810000 0\nPAD 0 1\n-2 1905000 R 952500\n\n"
           "CC I 0 0 0 1 1 0 0\nT0 0 0 0\nPAD 0 1\n-2 1905000 R 952500\n\n"
           "*PARTTYPE*   ITEMS\n\n"
           "TA AA I UND  1   0   0     0 Y\nG 0 1\n1.0.U\n\n"
           "TB BB:CC I CON  1   0   2     0 Y\nG 0 2\n1.0.U 2.0.U\n\n"
           "*PART*       ITEMS\n\n" +
           PartLine("J1", "TB", "1", "3") + label + label + label + PartLine("J2", "TA", "0", "1") +
           label + "\n*END*     OF ASCII OUTPUT FILE\n";
}

TEST(NewerCatalogue, PartLabelsTakeTwoLinesInV5AndThreeFromV2005) {
    test::TempDir dir;
    for (auto [version, lines] : {std::pair{"V5.0", 2}, std::pair{"V2005.0", 3}}) {
        SCOPED_TRACE(version);
        auto board = dir.WriteFile(std::string(version) + ".asc", NewerBoard(version, lines));
        EXPECT_EQ(ListNames(board), (Names{"AA", "CC"}));
        EXPECT_EQ(ListNames(board, PlotKind::Decal, Pins("1")), (Names{"AA", "CC"}));
        EXPECT_EQ(ListNames(board, PlotKind::Parttype, Contents(1)), Names{"TB"});
    }
    // Read with the other count of label lines, the parts go astray: a V5.0 reader meets a label
    // line where it expects a part, a V2005 reader passes over the second part.
    auto v5 = dir.WriteFile("v5-with-font-lines.asc", NewerBoard("V5.0", 3));
    RecordingMessages messages;
    EXPECT_THROW(LoadPartnames(v5, PlotKind::Decal, {}, messages), ConversionError);
    auto v2005 = dir.WriteFile("v2005-without-font-lines.asc", NewerBoard("V2005.0", 2));
    EXPECT_EQ(ListNames(v2005), Names{"CC"});
}

}  // namespace
}  // namespace zantor
