#include <gtest/gtest.h>

#include <string>

#include "run_zantor.h"

namespace zantor::test {
namespace {

constexpr const char* kParttypes =
    "*PADS-LIBRARY-PART-TYPES-V4*\n\n"
    "7400 DIP14:SO14 I TTL 0 1 0 0\nGATE\n\n"
    "X DIP14 I TTL\nGATE\n\n"
    "DIP8 DIP8 I UND 0 1 2 0\nGATE\n\n"
    "*END*\n";

TEST(ListCommand, NamesOnStandardOutputStatusOnStandardError) {
    const Outcome run = Zantor({"list", Sample()});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out, "DIP8\nSO8\nR0603\nTO220\nHDR2X5\nSOT223\n");
    EXPECT_EQ(run.err, "Decals in file:     6\n");
    EXPECT_EQ(Zantor({"list", "--kind=index", Sample(), "--pins=0"}).out, run.out);
}

TEST(ListCommand, FiltersAsTheSelectionDialogHasThem) {
    // The search box of the dialog gives upper case.
    const Outcome search = Zantor({"list", Sample(), "--search", "so"});
    EXPECT_EQ(search.out, "SO8\nSOT223\n");
    EXPECT_EQ(search.err, "Decals in file:     2\n");
    EXPECT_EQ(Zantor({"list", Sample(), "--pins", "8"}).out, "DIP8\nSO8\n");

    TempDir dir;
    auto file = dir.WriteFile("lib.p", kParttypes);
    const Outcome several =
        Zantor({"list", file.string(), "--kind", "parttype", "--contents", "5"});
    EXPECT_EQ(several.out, "7400\n");
    EXPECT_EQ(several.err, "zantor: Header-error in ASCII-file: X\nParttypes listed:     1\n");
    EXPECT_EQ(several.status, 1);  // the header error is an error message
    const Outcome named =
        Zantor({"list", "--kind", "parttype", "--contents", "1", file.string(), "--search", "dip"});
    EXPECT_EQ(named.out, "DIP8\n");
    EXPECT_EQ(named.err, "Parttypes listed:     1\n");
    EXPECT_EQ(named.status, 0);
}

TEST(ListCommand, RefusesAFileThatIsNotASourceOfTheKindAsTheMainWindowDoes) {
    TempDir dir;
    const auto parttypes = dir.WriteFile("lib.p", kParttypes);
    const auto netlist = dir.WriteFile("board.asc", "*PADS-PCB*\n*PART*\nU1 DIP8\n*END*\n");
    const auto decals = Sample();
    const struct {
        std::string file;
        std::string kind;
        std::string message;
    } refused[] = {
        {parttypes.string(), "decal", "Inputfile unknown or not a decal-file."},
        {parttypes.string(), "index", "Inputfile unknown or not a decal-file."},
        {netlist.string(), "decal", "Inputfile unknown or not a decal-file."},
        {decals, "parttype", "Inputfile unknown or not a parttype-file."},
        {(dir.Path() / "none.p").string(), "parttype", "Inputfile unknown or not a parttype-file."},
    };
    for (const auto& [file, kind, message] : refused) {
        const Outcome run = Zantor({"list", file, "--kind", kind});
        EXPECT_EQ(run.status, 1) << file << " " << kind;
        EXPECT_EQ(run.out, "");
        EXPECT_EQ(run.err, "zantor: " + message + "\n");
    }
}

TEST(ListCommand, UsageErrors) {
    ExpectUsageErrors({
        {{"list"}, "list needs a FILE"},
        {{"list", "a.d", "--kind", "sheet"},
         "--kind takes decal, index or parttype, not \"sheet\""},
        {{"list", "a.d", "--kind"}, "--kind needs a value"},
        {{"list", "a.d", "--pins", "8x"},
         "--pins takes a terminal count from 0 to 65535, not \"8x\""},
        {{"list", "a.p", "--kind", "parttype", "--contents", "7"},
         "--contents takes a number from 0 to 6, not \"7\""},
        {{"list", "a.d", "--contents", "1"},
         "--contents filters parttypes (--kind parttype); decals are filtered with --pins"},
        {{"list", "a.p", "--kind", "parttype", "--pins", "1"},
         "--pins filters decals; parttypes are filtered with --contents"},
        {{"list", "a.d", "--colour", "red"}, "list has no option --colour"},
    });
}

// Nothing is listed when the listing fails on the way.
TEST(ListCommand, AListingThatFailsListsNothing) {
    TempDir dir;
    auto board = dir.WriteFile("board.asc",
                               "!PADS-POWERPCB-V4.0-MILS! DESIGN DATABASE ASCII FILE 1.0\n"
                               "*PARTDECAL*\n\nD1 I 0 0 0 0 0 0 0\nT0 0 0 0\n\n"
                               "*PARTTYPE*\n\nT D1 I UND 1 0 0\n\n*PART*\n\n"
                               "U1 T 0 0 0 U N 16 -1 0 -1 0\n\n*END*\n");
    const Outcome range = Zantor({"list", board.string()});
    EXPECT_EQ(range.status, 1);
    EXPECT_EQ(range.out, "");
    EXPECT_EQ(range.err, "zantor: " + board.string() +
                             ":13: the alternate decal index of a part is above 15: 16\n");
}

}  // namespace
}  // namespace zantor::test
