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

}  // namespace
}  // namespace zantor
