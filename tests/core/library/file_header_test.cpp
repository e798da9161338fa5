#include "library/file_header.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace zantor {
namespace {

TEST(AnalyseHeader, VersionProductReleaseAndUnits) {
    using enum FileProduct;
    using enum FileUnits;
    struct Case {
        const char* line;
        int version;
        FileProduct product;
        const char* versionText;
        const char* unitsWord;
        FileUnits units;
    };
    const Case cases[] = {
        {"*PADS-LIBRARY-PCB-DECALS-V4*", 4, DecalLibrary, "V4", "", Unstated},
        {"*PADS-LIBRARY-PCB-DECALS-V3*", 3, DecalLibrary, "V3", "", Unstated},
        {"!PADS-POWERPCB-V3.0-MILS! DESIGN DATABASE", 3, PcbDatabase, "V3.0", "MILS", Mils},
        {"!PADS-POWERPCB-V4.0-BASIC! DESIGN DATABASE", 4, PcbDatabase, "V4.0", "BASIC", Basic},
        // The parttype header is version 4 for identification but not for the decal reader.
        {"*PADS-LIBRARY-PART-TYPES-V4*", 5, ParttypeLibrary, "V4", "", Unstated},
        {"*PADS-LIBRARY-PART-TYPES-V2007*", 5, ParttypeLibrary, "V2007", "", Unstated},
        {"*PADS-LIBRARY-PCB-DECALS-V9*", 5, DecalLibrary, "V9", "", Unstated},
        {"!PADS-POWERPCB-V2005.0-BASIC!", 5, PcbDatabase, "V2005.0", "BASIC", Basic},
        {"!PADS-POWERPCB-V9.5-METRIC!", 5, PcbDatabase, "V9.5", "METRIC", Millimetres},
        {"!PADS-POWERPCB-V9.0-INCHES!", 5, PcbDatabase, "V9.0", "INCHES", Inches},
        // Words after the units word, and lines cut short.
        {"!PADS-POWERPCB-V10.0-BASIC-250L! DESIGN DATABASE ASCII FILE 1.", 5, PcbDatabase, "V10.0",
         "BASIC", Basic},
        {"!PADS-POWERPCB-V9.5-MET", 5, PcbDatabase, "V9.5", "MET", Unstated},
        {"!PADS-POWERPCB-V9.", 5, PcbDatabase, "V9.", "", Unstated},
        // The newer product names.
        {"!PADS-LAYOUT-V2024.2-MM!", 5, PcbDatabase, "V2024.2", "MM", Millimetres},
        {"!PADS-PADS-LAYOUT-V2023.1-INCH-CP1252!", 5, PcbDatabase, "V2023.1", "INCH", Inches},
        // Header texts count only at the start; netlists and other products are no decal files.
        {"  !PADS-POWERPCB-V4.0-BASIC!", 5, Unknown, "", "", Unstated},
        {"*PADS-PCB*", 5, Unknown, "", "", Unstated},
        {"!PADS-ROUTER-V9.5-BASIC!", 5, Unknown, "", "", Unstated},
        {"*PADS-LIBRARY-SCH-DECALS-V2007*", 5, Unknown, "", "", Unstated},
        {"", 5, Unknown, "", "", Unstated},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.line);
        const FileHeader header = AnalyseHeader(c.line);
        EXPECT_EQ(header.line, c.line);
        EXPECT_EQ(header.version, c.version);
        EXPECT_EQ(header.product, c.product);
        EXPECT_EQ(header.pcbFile, c.product == PcbDatabase);
        EXPECT_EQ(header.versionText, c.versionText);
        EXPECT_EQ(header.release, ParseRelease(c.versionText));
        EXPECT_EQ(header.unitsWord, c.unitsWord);
        if (c.version == 5) {
            EXPECT_EQ(header.units, c.units);
        }
        EXPECT_EQ(header.basicUnits, c.unitsWord == std::string("BASIC"));
    }
    // A BASIC that is not the units word counts for PCB files whose units word is not known.
    EXPECT_FALSE(AnalyseHeader("*PADS-LIBRARY-PCB-DECALS-V4* BASIC").basicUnits);
    EXPECT_TRUE(AnalyseHeader("!PADS-POWERPCB-V4.0-MILS! BASIC").basicUnits);
    EXPECT_FALSE(AnalyseHeader("!PADS-POWERPCB-V9.5-MILS! BASIC").basicUnits);
    EXPECT_TRUE(AnalyseHeader("!PADS-POWERPCB-V9.5-X! BASIC").basicUnits);
    EXPECT_EQ(FileVersion("!PADS-LAYOUT-V4.0-MILS!"), 5);
    EXPECT_EQ(FileVersion("!PADS-POWERPCB-V4.0-MILS!"), 4);
}

TEST(FormatRelease, ReleasesAndYearsCompareAsNumbers) {
    EXPECT_EQ(ParseRelease("V9."), (FormatRelease{9, 0}));
    EXPECT_EQ(ParseRelease("V9"), (FormatRelease{9, 0}));
    EXPECT_EQ(ParseRelease("V2005.0"), (FormatRelease{2005, 0}));
    EXPECT_EQ(ParseRelease("VX.1"), FormatRelease{});
    EXPECT_LT(ParseRelease("V9.4"), ParseRelease("V9.5"));
    EXPECT_LT(ParseRelease("V9.5"), ParseRelease("V10.0"));
    EXPECT_LT(ParseRelease("V10.0"), ParseRelease("V2005.0"));
    EXPECT_TRUE(ParseRelease("V2007").IsYear());
    EXPECT_FALSE(ParseRelease("V10.0").IsYear());
    EXPECT_FALSE(ParseRelease("").Known());
}

// The fields of each dialect show in the records read (decal reader, model and drawing tests);
// here only where releases draw their lines.
TEST(FileDialect, OldReadingsAndTheReleasesOfPcbLayouts) {
    // Versions 3 and 4, parttype libraries and files without a known header keep the old reading.
    for (const char* line : {"*PADS-LIBRARY-PCB-DECALS-V4*", "!PADS-POWERPCB-V3.0-MILS!",
                             "*PADS-LIBRARY-PART-TYPES-V9*", "R1 I 0 0 0 0 0 0 0 0"}) {
        SCOPED_TRACE(line);
        const FileDialect old = AnalyseHeader(line).dialect;
        EXPECT_EQ(old.framing, Framing::BlankLines);
        EXPECT_FALSE(old.newerPieceKinds);
        EXPECT_FALSE(old.arcAnglesInTenths);
    }
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
        {"!PADS-POWERPCB-V9.4-MILS!", 3, PieceLayout::LineStyleThenLayer, CornerPlace::AfterFinger},
        {"!PADS-LAYOUT-V2024.2-MM!", 3, PieceLayout::LineStyleThenLayer, CornerPlace::AfterFinger},
        // A release nobody wrote down is read as the newest.
        {"!PADS-POWERPCB-", 3, PieceLayout::LineStyleThenLayer, CornerPlace::AfterFinger},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.header);
        const FileDialect dialect = AnalyseHeader(c.header).dialect;
        EXPECT_EQ(dialect.linesPerText, c.linesPerText);
        EXPECT_EQ(dialect.linesPerLabel, c.linesPerText);
        EXPECT_EQ(dialect.pieceLayout, c.pieces);
        EXPECT_EQ(dialect.cornerPlace, c.corner);
        EXPECT_EQ(dialect.framing, Framing::Counts);
    }
}

TEST(FileDialect, FingersRunAlongTheirAxis) {
    const FileDialect old = DialectFor(4, false);
    const FileDialect newer = AnalyseHeader("*PADS-LIBRARY-PCB-DECALS-V9*").dialect;
    struct Case {
        const FileDialect& dialect;
        double angle, x, y;
    };
    for (const Case& c :
         {Case{old, 0, 0, 1}, Case{newer, 0, 1, 0}, Case{newer, 90, 0, 1}, Case{old, 90, -1, 0}}) {
        const Direction d = FingerDirection(c.dialect, c.angle);
        EXPECT_NEAR(d.x, c.x, 1e-12) << c.angle;
        EXPECT_NEAR(d.y, c.y, 1e-12) << c.angle;
    }
}

}  // namespace
}  // namespace zantor
