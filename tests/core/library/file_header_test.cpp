#include "library/file_header.h"

#include <gtest/gtest.h>

#include <vector>

namespace zantor {
namespace {

std::vector<CountField> CountsOf(const FileHeader& header) {
    auto counts = header.dialect.Counts();
    return {counts.begin(), counts.end()};
}

TEST(AnalyseHeader, VersionsThreeAndFour) {
    FileHeader library = AnalyseHeader("*PADS-LIBRARY-PCB-DECALS-V4*");
    EXPECT_EQ(library.version, 4);
    EXPECT_FALSE(library.pcbFile);
    EXPECT_FALSE(library.basicUnits);
    EXPECT_EQ(library.product, FileProduct::DecalLibrary);
    EXPECT_EQ(library.versionText, "V4");
    EXPECT_EQ(library.line, "*PADS-LIBRARY-PCB-DECALS-V4*");

    EXPECT_EQ(AnalyseHeader("*PADS-LIBRARY-PCB-DECALS-V3*").version, 3);
    EXPECT_EQ(AnalyseHeader("!PADS-POWERPCB-V3.0-MILS! DESIGN DATABASE ASCII FILE 1.0").version, 3);

    FileHeader pcb = AnalyseHeader("!PADS-POWERPCB-V4.0-BASIC! DESIGN DATABASE ASCII FILE 1.0");
    EXPECT_EQ(pcb.version, 4);
    EXPECT_TRUE(pcb.pcbFile);
    EXPECT_TRUE(pcb.basicUnits);
    EXPECT_EQ(pcb.product, FileProduct::PcbDatabase);
    EXPECT_EQ(pcb.versionText, "V4.0");
    EXPECT_EQ(pcb.unitsWord, "BASIC");
}

TEST(AnalyseHeader, EverythingElseIsVersionFive) {
    // The parttype header is version 4 for identification but not for the decal reader.
    FileHeader parttypes = AnalyseHeader("*PADS-LIBRARY-PART-TYPES-V4*");
    EXPECT_EQ(parttypes.version, 5);
    EXPECT_EQ(parttypes.product, FileProduct::ParttypeLibrary);
    EXPECT_EQ(parttypes.versionText, "V4");

    FileHeader v9 = AnalyseHeader("*PADS-LIBRARY-PCB-DECALS-V9*");
    EXPECT_EQ(v9.version, 5);
    EXPECT_EQ(v9.versionText, "V9");

    FileHeader cut =
        AnalyseHeader("!PADS-POWERPCB-V10.0-BASIC-250L! DESIGN DATABASE ASCII FILE 1.");
    EXPECT_EQ(cut.version, 5);
    EXPECT_TRUE(cut.basicUnits);
    EXPECT_EQ(cut.versionText, "V10.0");
    EXPECT_EQ(cut.unitsWord, "BASIC");

    FileHeader metric = AnalyseHeader("!PADS-POWERPCB-V9.5-METRIC! DESIGN DATABASE ASCII FILE 1.0");
    EXPECT_TRUE(metric.pcbFile);
    EXPECT_FALSE(metric.basicUnits);
    EXPECT_EQ(metric.versionText, "V9.5");
    EXPECT_EQ(metric.unitsWord, "METRIC");

    EXPECT_EQ(AnalyseHeader("!PADS-POWERPCB-V2005.0-BASIC! DESIGN").versionText, "V2005.0");
}

TEST(AnalyseHeader, HeaderTextsCountOnlyAtTheStart) {
    FileHeader blanks = AnalyseHeader("  !PADS-POWERPCB-V4.0-BASIC!");
    EXPECT_EQ(blanks.version, 5);
    EXPECT_FALSE(blanks.pcbFile);
    EXPECT_FALSE(blanks.basicUnits);
    EXPECT_EQ(blanks.product, FileProduct::Unknown);

    FileHeader netlist = AnalyseHeader("*PADS-PCB*");
    EXPECT_FALSE(netlist.pcbFile);
    EXPECT_EQ(netlist.product, FileProduct::Unknown);

    // BASIC counts for PCB files only.
    EXPECT_FALSE(AnalyseHeader("*PADS-LIBRARY-PCB-DECALS-V4* BASIC").basicUnits);
    EXPECT_TRUE(AnalyseHeader("!PADS-POWERPCB-V4.0-MILS! BASIC").basicUnits);

    FileHeader empty = AnalyseHeader("");
    EXPECT_EQ(empty.version, 5);
    EXPECT_EQ(empty.product, FileProduct::Unknown);
    EXPECT_EQ(empty.versionText, "");
}

TEST(AnalyseHeader, DialectOfLibrariesAndPcbFiles) {
    FileHeader library = AnalyseHeader("*PADS-LIBRARY-PCB-DECALS-V4*");
    EXPECT_EQ(
        CountsOf(library),
        (std::vector<CountField>{CountField::Attributes, CountField::Labels, CountField::Pieces,
                                 CountField::Texts, CountField::Terminals, CountField::Stacks}));
    EXPECT_TRUE(library.dialect.attributesBeforePieces);
    EXPECT_EQ(library.dialect.labelPlace, LabelPlace::BeforePieces);
    EXPECT_EQ(library.dialect.linesPerLabel, 2u);
    EXPECT_EQ(library.dialect.linesPerText, 2u);
    EXPECT_EQ(library.dialect.leadingLines, 0u);
    EXPECT_EQ(library.dialect.drillPlace, DrillPlace::StackHeader);

    FileHeader pcb = AnalyseHeader("!PADS-POWERPCB-V3.0-BASIC!");
    EXPECT_EQ(CountsOf(pcb),
              (std::vector<CountField>{CountField::Pieces, CountField::Terminals,
                                       CountField::Stacks, CountField::Texts, CountField::Labels}));
    EXPECT_FALSE(pcb.dialect.attributesBeforePieces);
    EXPECT_EQ(pcb.dialect.labelPlace, LabelPlace::Unread);
    EXPECT_EQ(pcb.dialect.drillPlace, DrillPlace::EveryStackLine);

    // Libraries after version 4 keep the drill on the stack header, as version 4 does.
    EXPECT_EQ(AnalyseHeader("*PADS-LIBRARY-PCB-DECALS-V9*").dialect.drillPlace,
              DrillPlace::StackHeader);
    // A header that is not analysed still has a usable dialect.
    EXPECT_EQ(FileHeader{}.dialect.Counts().size(), 6u);
}

TEST(AnalyseHeader, ProductReleaseAndUnitsOfNewerFiles) {
    struct Case {
        const char* line;
        FileProduct product;
        const char* versionText;
        FormatRelease release;
        const char* unitsWord;
        FileUnits units;
        bool basic;
    };
    const Case cases[] = {
        {"*PADS-LIBRARY-PCB-DECALS-V9*",
         FileProduct::DecalLibrary,
         "V9",
         {9, 0},
         "",
         FileUnits::Unstated,
         false},
        {"*PADS-LIBRARY-PART-TYPES-V2007*",
         FileProduct::ParttypeLibrary,
         "V2007",
         {2007, 0},
         "",
         FileUnits::Unstated,
         false},
        {"!PADS-POWERPCB-V2005.0-BASIC! DESIGN DATABASE ASCII FILE 1.0",
         FileProduct::PcbDatabase,
         "V2005.0",
         {2005, 0},
         "BASIC",
         FileUnits::Basic,
         true},
        {"!PADS-POWERPCB-V9.5-METRIC! DESIGN DATABASE ASCII FILE 1.0",
         FileProduct::PcbDatabase,
         "V9.5",
         {9, 5},
         "METRIC",
         FileUnits::Millimetres,
         false},
        {"!PADS-POWERPCB-V9.5-MILS!",
         FileProduct::PcbDatabase,
         "V9.5",
         {9, 5},
         "MILS",
         FileUnits::Mils,
         false},
        {"!PADS-POWERPCB-V9.0-INCHES!",
         FileProduct::PcbDatabase,
         "V9.0",
         {9, 0},
         "INCHES",
         FileUnits::Inches,
         false},
        // Words after the units word, and a line cut short.
        {"!PADS-POWERPCB-V10.0-BASIC-250L! DESIGN DATABASE ASCII FILE 1.",
         FileProduct::PcbDatabase,
         "V10.0",
         {10, 0},
         "BASIC",
         FileUnits::Basic,
         true},
        {"!PADS-POWERPCB-V9.5-MET",
         FileProduct::PcbDatabase,
         "V9.5",
         {9, 5},
         "MET",
         FileUnits::Unstated,
         false},
        {"!PADS-POWERPCB-V9.",
         FileProduct::PcbDatabase,
         "V9.",
         {9, 0},
         "",
         FileUnits::Unstated,
         false},
        // The newer product names.
        {"!PADS-LAYOUT-V2024.2-MM!",
         FileProduct::PcbDatabase,
         "V2024.2",
         {2024, 2},
         "MM",
         FileUnits::Millimetres,
         false},
        {"!PADS-PADS-LAYOUT-V2023.1-INCH-CP1252!",
         FileProduct::PcbDatabase,
         "V2023.1",
         {2023, 1},
         "INCH",
         FileUnits::Inches,
         false},
        // A netlist and other products are not PCB databases.
        {"*PADS-PCB*", FileProduct::Unknown, "", {}, "", FileUnits::Unstated, false},
        {"!PADS-ROUTER-V9.5-BASIC!", FileProduct::Unknown, "", {}, "", FileUnits::Unstated, false},
        {"*PADS-LIBRARY-SCH-DECALS-V2007*",
         FileProduct::Unknown,
         "",
         {},
         "",
         FileUnits::Unstated,
         false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.line);
        const FileHeader header = AnalyseHeader(c.line);
        EXPECT_EQ(header.version, 5);
        EXPECT_EQ(header.product, c.product);
        EXPECT_EQ(header.pcbFile, c.product == FileProduct::PcbDatabase);
        EXPECT_EQ(header.versionText, c.versionText);
        EXPECT_EQ(header.release, c.release);
        EXPECT_EQ(header.unitsWord, c.unitsWord);
        EXPECT_EQ(header.units, c.units);
        EXPECT_EQ(header.basicUnits, c.basic);
    }
    // A BASIC that is not the units word counts only where the units word is not known.
    EXPECT_FALSE(AnalyseHeader("!PADS-POWERPCB-V9.5-MILS! BASIC").basicUnits);
    EXPECT_TRUE(AnalyseHeader("!PADS-POWERPCB-V9.5-X! BASIC").basicUnits);
    EXPECT_EQ(FileVersion("!PADS-LAYOUT-V4.0-MILS!"), 5);
    EXPECT_EQ(FileVersion("!PADS-POWERPCB-V4.0-MILS!"), 4);
}

TEST(FormatRelease, ReleasesAndYearsCompareAsNumbers) {
    EXPECT_EQ(ParseRelease("V9.5"), (FormatRelease{9, 5}));
    EXPECT_EQ(ParseRelease("V10.0"), (FormatRelease{10, 0}));
    EXPECT_EQ(ParseRelease("V2005.0"), (FormatRelease{2005, 0}));
    EXPECT_EQ(ParseRelease("V9"), (FormatRelease{9, 0}));
    EXPECT_EQ(ParseRelease("VX.1"), FormatRelease{});
    EXPECT_EQ(ParseRelease(""), FormatRelease{});
    EXPECT_LT(ParseRelease("V9.4"), ParseRelease("V9.5"));
    EXPECT_LT(ParseRelease("V9.5"), ParseRelease("V10.0"));
    EXPECT_LT(ParseRelease("V10.0"), ParseRelease("V2005.0"));
    EXPECT_TRUE(ParseRelease("V2007").IsYear());
    EXPECT_FALSE(ParseRelease("V10.0").IsYear());
    EXPECT_FALSE(ParseRelease("").Known());
}

TEST(FileDialect, PcbLayoutsFollowTheRelease) {
    struct Case {
        const char* header;
        std::size_t linesPerText;  // and per label
        PieceLayout pieces;
        CornerPlace corner;
    };
    const Case cases[] = {
        {"!PADS-POWERPCB-V5.0-BASIC!", 2, PieceLayout::Layer, CornerPlace::None},
        {"!PADS-POWERPCB-V2005.0-BASIC!", 3, PieceLayout::Layer, CornerPlace::None},
        {"!PADS-POWERPCB-V2007.0-BASIC!", 3, PieceLayout::Layer, CornerPlace::None},
        {"!PADS-POWERPCB-V9.0-BASIC!", 3, PieceLayout::Layer, CornerPlace::AfterFinger},
        {"!PADS-POWERPCB-V9.3-BASIC!", 3, PieceLayout::Layer, CornerPlace::AfterFinger},
        {"!PADS-POWERPCB-V9.4-MILS!", 3, PieceLayout::LineStyleThenLayer, CornerPlace::AfterFinger},
        {"!PADS-POWERPCB-V10.0-BASIC!", 3, PieceLayout::LineStyleThenLayer,
         CornerPlace::AfterFinger},
        {"!PADS-LAYOUT-V2024.2-MM!", 3, PieceLayout::LineStyleThenLayer, CornerPlace::AfterFinger},
        // A release nobody wrote down is read as the newest.
        {"!PADS-POWERPCB-", 3, PieceLayout::LineStyleThenLayer, CornerPlace::AfterFinger},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.header);
        const FileDialect dialect = AnalyseHeader(c.header).dialect;
        EXPECT_EQ(
            CountsOf(AnalyseHeader(c.header)),
            (std::vector<CountField>{CountField::Pieces, CountField::Terminals, CountField::Stacks,
                                     CountField::Texts, CountField::Labels}));
        EXPECT_EQ(dialect.linesPerText, c.linesPerText);
        EXPECT_EQ(dialect.linesPerLabel, c.linesPerText);
        EXPECT_EQ(dialect.labelPlace, LabelPlace::AfterTexts);
        EXPECT_EQ(dialect.pieceLayout, c.pieces);
        EXPECT_EQ(dialect.cornerPlace, c.corner);
        EXPECT_EQ(dialect.drillPlace, DrillPlace::AfterShapeFields);
        EXPECT_EQ(dialect.framing, Framing::Counts);
        EXPECT_TRUE(dialect.arcAnglesInTenths);
        EXPECT_TRUE(dialect.newerPieceKinds);
        EXPECT_EQ(dialect.mirrorWord, "M");
        EXPECT_EQ(dialect.textJustification, TextJustification::Words);
        EXPECT_EQ(dialect.fingerAxis, FingerAxis::AlongXAtZero);
    }
}

TEST(FileDialect, LibrariesAfterVersionFourAndTheOldDialects) {
    const FileDialect v9 = AnalyseHeader("*PADS-LIBRARY-PCB-DECALS-V9*").dialect;
    EXPECT_TRUE(v9.timestampLine);
    EXPECT_EQ(v9.pieceLayout, PieceLayout::LayerThenLineStyle);
    EXPECT_EQ(v9.cornerPlace, CornerPlace::BeforeFinger);
    EXPECT_EQ(v9.mirrorWord, "1");
    EXPECT_EQ(v9.textJustification, TextJustification::Code);

    // Versions 3 and 4, parttype libraries and files without a known header keep the old reading.
    for (const char* line : {"*PADS-LIBRARY-PCB-DECALS-V4*", "!PADS-POWERPCB-V3.0-MILS!",
                             "*PADS-LIBRARY-PART-TYPES-V9*", "R1 I 0 0 0 0 0 0 0 0"}) {
        SCOPED_TRACE(line);
        const FileDialect old = AnalyseHeader(line).dialect;
        EXPECT_EQ(old.framing, Framing::BlankLines);
        EXPECT_FALSE(old.newerPieceKinds);
        EXPECT_FALSE(old.arcAnglesInTenths);
        EXPECT_EQ(old.textJustification, TextJustification::None);
        EXPECT_EQ(old.fingerAxis, FingerAxis::AlongYAtZero);
    }
}

TEST(FileDialect, FingersRunAlongTheirAxis) {
    const FileDialect old = DialectFor(4, false);
    const FileDialect newer = AnalyseHeader("*PADS-LIBRARY-PCB-DECALS-V9*").dialect;
    const Direction up = FingerDirection(old, 0);
    EXPECT_NEAR(up.x, 0, 1e-12);
    EXPECT_NEAR(up.y, 1, 1e-12);
    const Direction right = FingerDirection(newer, 0);
    EXPECT_NEAR(right.x, 1, 1e-12);
    EXPECT_NEAR(right.y, 0, 1e-12);
    const Direction upright = FingerDirection(newer, 90);
    EXPECT_NEAR(upright.x, 0, 1e-12);
    EXPECT_NEAR(upright.y, 1, 1e-12);
    const Direction left = FingerDirection(old, 90);
    EXPECT_NEAR(left.x, -1, 1e-12);
    EXPECT_NEAR(left.y, 0, 1e-12);
}

}  // namespace
}  // namespace zantor
