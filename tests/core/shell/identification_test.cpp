#include "shell/identification.h"

#include <gtest/gtest.h>

#include "common/errors.h"
#include "support/test_support.h"

namespace zantor {
namespace {

TEST(LibraryVersion, HeaderTextsAtTheStartOfTheLine) {
    EXPECT_EQ(LibraryVersion("*PADS-LIBRARY-PCB-DECALS-V4*"), 4);
    EXPECT_EQ(LibraryVersion("*PADS-LIBRARY-PART-TYPES-V4*"), 4);
    EXPECT_EQ(LibraryVersion("!PADS-POWERPCB-V4.0-BASIC! DESIGN DATABASE ASCII FILE 1.0"), 4);
    EXPECT_EQ(LibraryVersion("*PADS-LIBRARY-PCB-DECALS-V3*"), 3);
    EXPECT_EQ(LibraryVersion("*PADS-LIBRARY-PART-TYPES-V3*"), 3);
    EXPECT_EQ(LibraryVersion("!PADS-POWERPCB-V3.0-MILS!"), 3);
    EXPECT_EQ(LibraryVersion("  *PADS-LIBRARY-PCB-DECALS-V4*"), 5);
    EXPECT_EQ(LibraryVersion("*PADS-LIBRARY-PCB-DECALS-V9*"), 5);
    EXPECT_EQ(LibraryVersion("!PADS-POWERPCB-V9.5-BASIC!"), 5);
    EXPECT_EQ(LibraryVersion("*pads-library-pcb-decals-v4*"), 5);  // case counts
    EXPECT_EQ(LibraryVersion("*PADS-LIBRARY-PCB-DECALS-V4"), 5);   // the closing star counts
    EXPECT_EQ(LibraryVersion(""), 5);
}

TEST(FirstLineIsLibrary, HeaderTextsAnywhereOrAUnitLetter) {
    EXPECT_TRUE(FirstLineIsLibrary("  *PADS-LIBRARY-PCB-DECALS-V4*", 2));
    EXPECT_TRUE(FirstLineIsLibrary("x !PADS-POWERPCB-V9.5", 2));
    EXPECT_TRUE(FirstLineIsLibrary("!PADS-LAYOUT-V2024.2-MM!", 2));
    EXPECT_FALSE(FirstLineIsLibrary("*PADS-PCB*", 2));
    EXPECT_TRUE(FirstLineIsLibrary("*PADS-LIBRARY-PART-TYPES-V9*", 2));
    EXPECT_FALSE(FirstLineIsLibrary("*PADS-PCB*", 2));
    EXPECT_FALSE(FirstLineIsLibrary("", 2));

    EXPECT_TRUE(FirstLineIsLibrary("DIP8 I 0 0 1 2 2 1 8 2", 2));
    EXPECT_TRUE(FirstLineIsLibrary("  SO8   M 0 0", 2));
    EXPECT_FALSE(FirstLineIsLibrary("DIP8 X 0 0", 2));
    EXPECT_FALSE(FirstLineIsLibrary("DIP8 IM 0 0", 2));
    EXPECT_FALSE(FirstLineIsLibrary("DIP8 i 0 0", 2));
    EXPECT_FALSE(FirstLineIsLibrary("DIP8", 2));

    EXPECT_TRUE(FirstLineIsLibrary("7400 DIP14 I TTL 0 1 0 0 0", 3));
    EXPECT_FALSE(FirstLineIsLibrary("7400 DIP14 I TTL 0 1 0 0 0", 2));
    EXPECT_FALSE(FirstLineIsLibrary("DIP8 I 0 0", 3));
}

TEST(IsLibraryFile, ReadsOnlyTheFirstLine) {
    test::TempDir dir;
    auto decals = dir.WriteFile("a.d", "DIP8 I 0 0 0 0 0 0 0 0\r\nT0 0 0 0\r\n");
    EXPECT_TRUE(IsDecalFile(decals));
    EXPECT_FALSE(IsParttypeFile(decals));

    auto parttypes = dir.WriteFile("a.p", "7400 DIP14 M TTL 0 1 0 0 0\n");
    EXPECT_TRUE(IsParttypeFile(parttypes));
    EXPECT_FALSE(IsDecalFile(parttypes));

    // The header contains-test accepts leading blanks and any of the three kinds.
    auto indented = dir.WriteFile("b.d", "  *PADS-LIBRARY-PCB-DECALS-V4*\r\n");
    EXPECT_TRUE(IsDecalFile(indented));
    EXPECT_TRUE(IsParttypeFile(indented));

    auto other = dir.WriteFile("c.d", "hello world\nDIP8 I 0 0\n");
    EXPECT_FALSE(IsDecalFile(other));
    auto emptyFirst = dir.WriteFile("d.d", "\r\n*PADS-LIBRARY-PCB-DECALS-V4*\n");
    EXPECT_FALSE(IsDecalFile(emptyFirst));
    auto empty = dir.WriteFile("e.d", "");
    EXPECT_FALSE(IsDecalFile(empty));
    // A unit letter followed by the CR of a CRLF file is still a unit letter.
    auto crlfLetter = dir.WriteFile("f.d", "R1 I\r\n");
    EXPECT_TRUE(IsDecalFile(crlfLetter));
}

TEST(IsLibraryFile, UnopenableFilesAreIoErrorsWithTheReason) {
    test::TempDir dir;
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

TEST(FileNames, EndingsOfDecalAndParttypeSources) {
    EXPECT_TRUE(HasDecalName("lib.asc"));
    EXPECT_TRUE(HasParttypeName("lib.asc"));
    EXPECT_FALSE(HasDecalName("lib.p"));
    EXPECT_TRUE(HasParttypeName("lib.p"));
    EXPECT_FALSE(HasDecalName("lib.dx"));
    EXPECT_FALSE(HasParttypeName("lib.dx"));
    EXPECT_TRUE(HasDecalName("C:\\PADS\\LIBS\\Common.D"));
    EXPECT_TRUE(HasDecalName("board.Asc"));
    EXPECT_FALSE(HasDecalName("D"));
    EXPECT_TRUE(HasDecalName(".d"));
    EXPECT_FALSE(HasDecalName("asc"));
}

TEST(FileNames, OnlyTheFirstOccurrenceOfTheEndingCounts) {
    EXPECT_FALSE(HasDecalName("C:\\LIB.DIR\\X.D"));
    EXPECT_FALSE(HasDecalName("/home/me/old.designs/x.d"));
    EXPECT_FALSE(HasParttypeName("/srv/lib.parts/x.p"));
    EXPECT_FALSE(HasDecalName("/srv/x.asc.bak/y.asc"));
    EXPECT_TRUE(HasDecalName("/srv/x.asc-old/y.d"));  // ".D" stands first only at the end
}

TEST(InputKindOfName, PcbFilesAreBothSources) {
    EXPECT_EQ(InputKindOfName("board.asc"), (InputKind{true, true}));
    EXPECT_EQ(InputKindOfName("lib.d"), (InputKind{true, false}));
    EXPECT_EQ(InputKindOfName("lib.p"), (InputKind{false, true}));
    EXPECT_TRUE(InputKindOfName("lib.txt").IsUnknown());
    EXPECT_FALSE(InputKindOfName("lib.d").IsUnknown());
}

}  // namespace
}  // namespace zantor
