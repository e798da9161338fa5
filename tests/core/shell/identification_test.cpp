#include "shell/identification.h"

#include <gtest/gtest.h>

#include "common/errors.h"
#include "support/test_support.h"

namespace zantor {
namespace {

TEST(LibraryVersion, HeaderTextsAtTheStartOfTheLine) {
    const std::pair<const char*, int> cases[] = {
        {"*PADS-LIBRARY-PCB-DECALS-V4*", 4},
        {"*PADS-LIBRARY-PART-TYPES-V4*", 4},
        {"!PADS-POWERPCB-V4.0-BASIC! DESIGN DATABASE ASCII FILE 1.0", 4},
        {"*PADS-LIBRARY-PART-TYPES-V3*", 3},
        {"!PADS-POWERPCB-V3.0-MILS!", 3},
        {"  *PADS-LIBRARY-PCB-DECALS-V4*", 5},
        {"*PADS-LIBRARY-PCB-DECALS-V9*", 5},
        {"*pads-library-pcb-decals-v4*", 5},  // case counts
        {"*PADS-LIBRARY-PCB-DECALS-V4", 5},   // the closing star counts
        {"", 5},
    };
    for (const auto& [line, version] : cases) {
        EXPECT_EQ(LibraryVersion(line), version) << line;
    }
}

TEST(FirstLineIsLibrary, HeaderTextsAnywhereOrAUnitLetter) {
    EXPECT_TRUE(FirstLineIsLibrary("x !PADS-POWERPCB-V9.5", 2));
    EXPECT_TRUE(FirstLineIsLibrary("!PADS-LAYOUT-V2024.2-MM!", 2));
    EXPECT_TRUE(FirstLineIsLibrary("*PADS-LIBRARY-PART-TYPES-V9*", 2));
    EXPECT_FALSE(FirstLineIsLibrary("*PADS-PCB*", 2));
    EXPECT_FALSE(FirstLineIsLibrary("", 2));
    // The unit letter is the second word for decals, the third for parttypes.
    EXPECT_TRUE(FirstLineIsLibrary("  SO8   M 0 0", 2));
    for (const char* line : {"DIP8 X 0 0", "DIP8 IM 0 0", "DIP8 i 0 0", "DIP8"}) {
        EXPECT_FALSE(FirstLineIsLibrary(line, 2)) << line;
    }
    EXPECT_TRUE(FirstLineIsLibrary("7400 DIP14 I TTL 0 1 0 0 0", 3));
    EXPECT_FALSE(FirstLineIsLibrary("7400 DIP14 I TTL 0 1 0 0 0", 2));
    EXPECT_FALSE(FirstLineIsLibrary("DIP8 I 0 0", 3));
}

TEST(InputKindOfFirstLine, DecalOrParttypeByHeaderOrByTheUnitLetter) {
    const InputKind decal{true, false};
    const InputKind parttype{false, true};
    const InputKind both{true, true};
    const InputKind neither{};
    const std::pair<const char*, InputKind> cases[] = {
        {"*PADS-LIBRARY-PCB-DECALS-V9*", decal},
        {"  *PADS-LIBRARY-PCB-DECALS-V4*", decal},
        {"*PADS-LIBRARY-PART-TYPES-V2007*", parttype},
        {"!PADS-POWERPCB-V9.5-METRIC! DESIGN DATABASE ASCII FILE 1.0", both},
        {"!PADS-LAYOUT-V2024.2-MM!", both},
        {"*PADS-PCB*", neither},  // a netlist
        {"*PADS-LIBRARY-SCH-DECALS-V2007*", neither},
        {"DIP8 I 0 0 0 0 0 0 8 1", decal},
        {"7400 DIP14 I TTL 0 1 0 0", parttype},
        {"", neither},
    };
    for (const auto& [line, kind] : cases) {
        EXPECT_EQ(InputKindOfFirstLine(line), kind) << line;
    }
}

TEST(IsLibraryFile, ReadsOnlyTheFirstLine) {
    test::TempDir dir;
    auto decals = dir.WriteFile("a.d", "DIP8 I 0 0 0 0 0 0 0 0\r\nT0 0 0 0\r\n");
    EXPECT_TRUE(IsDecalFile(decals));
    EXPECT_FALSE(IsParttypeFile(decals));
    // The header test accepts leading blanks and any of the three kinds.
    auto indented = dir.WriteFile("b.d", "  *PADS-LIBRARY-PCB-DECALS-V4*\r\n");
    EXPECT_TRUE(IsParttypeFile(indented));
    EXPECT_FALSE(IsDecalFile(dir.WriteFile("d.d", "\r\n*PADS-LIBRARY-PCB-DECALS-V4*\n")));
    EXPECT_FALSE(IsDecalFile(dir.WriteFile("e.d", "")));
    // A unit letter followed by the CR of a CRLF file is still a unit letter.
    EXPECT_TRUE(IsDecalFile(dir.WriteFile("f.d", "R1 I\r\n")));

    auto missing = dir.Path() / "missing.d";
    try {
        IsDecalFile(missing);
        FAIL() << "no error";
    } catch (const IoError& error) {
        EXPECT_EQ(error.file(), missing.string());
        EXPECT_EQ(error.message(), "cannot open the file: No such file or directory");
    }
    EXPECT_THROW(IsParttypeFile(dir.Path()), IoError);
}

TEST(FileNames, OnlyTheFirstOccurrenceOfTheEndingCounts) {
    EXPECT_TRUE(HasDecalName("C:\\PADS\\LIBS\\Common.D"));
    EXPECT_TRUE(HasDecalName(".d"));
    EXPECT_FALSE(HasDecalName("D"));
    EXPECT_FALSE(HasDecalName("lib.dx"));
    EXPECT_FALSE(HasDecalName("C:\\LIB.DIR\\X.D"));
    EXPECT_FALSE(HasParttypeName("/srv/lib.parts/x.p"));
    EXPECT_FALSE(HasDecalName("/srv/x.asc.bak/y.asc"));
    EXPECT_TRUE(HasDecalName("/srv/x.asc-old/y.d"));  // ".D" stands first only at the end
    EXPECT_EQ(InputKindOfName("board.Asc"), (InputKind{true, true}));
    EXPECT_EQ(InputKindOfName("lib.d"), (InputKind{true, false}));
    EXPECT_EQ(InputKindOfName("lib.p"), (InputKind{false, true}));
    EXPECT_TRUE(InputKindOfName("lib.txt").IsUnknown());
}

}  // namespace
}  // namespace zantor
