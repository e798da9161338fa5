#include "../../src/app/command_line.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "support/test_support.h"

namespace zantor {
namespace {

struct Outcome {
    int status;
    std::string out;
    std::string err;
};

Outcome Zantor(const std::vector<std::string>& args) {
    std::ostringstream out;
    std::ostringstream err;
    int status = RunCommandLine(args, out, err);
    return {status, out.str(), err.str()};
}

TEST(CommandLine, HelpAndUsageErrors) {
    Outcome help = Zantor({"--help"});
    EXPECT_EQ(help.status, 0);
    EXPECT_NE(help.out.find("  info FILE "), std::string::npos);
    EXPECT_EQ(help.err, "");
    EXPECT_EQ(Zantor({"-h"}).out, help.out);
    EXPECT_EQ(Zantor({"info", "--help"}).out, help.out);

    const std::string usage = "usage: zantor COMMAND ARGUMENTS (see zantor --help)\n";
    Outcome none = Zantor({});
    EXPECT_EQ(none.status, 2);
    EXPECT_EQ(none.err, "zantor: no command given\n" + usage);
    Outcome unknown = Zantor({"plot", "x.d"});
    EXPECT_EQ(unknown.status, 2);
    EXPECT_EQ(unknown.err, "zantor: unknown command \"plot\"\n" + usage);
    EXPECT_EQ(Zantor({"info"}).status, 2);
    Outcome two = Zantor({"info", "a.d", "b.d"});
    EXPECT_EQ(two.status, 2);
    EXPECT_EQ(two.out, "");
}

TEST(InfoCommand, ListsEveryDecalRecordWithItsCounts) {
    test::TempDir dir;
    auto file = dir.WriteFile("small.d",
                              "*PADS-LIBRARY-PCB-DECALS-V4*\r\n\r\n"
                              "R0603 M 0 0 0 1 3 0 2 1\r\nbody\r\n\r\n\r\n"
                              "DIP8 I 0 0 1 2 2 1 8 2\r\n\r\n*END*\r\n");
    Outcome run = Zantor({"info", file.string()});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "");
    const std::string pad(35, ' ');
    EXPECT_EQ(run.out, "File:    " + file.string() +
                           "\n"
                           "Kind:    decal library\n"
                           "Version: 4, written as V4\n"
                           "Units:   each decal by its unit letter (I mils, M millimetres)\n"
                           "\n"
                           "Decal" +
                           pad +
                           " Unit Attrs Labels Pieces Texts Terminals Stacks\n"
                           "R0603" +
                           pad +
                           " M        0      1      3     0         2      1\n"
                           "DIP8 " +
                           pad +
                           " I        1      2      2     1         8      2\n"
                           "2 decals\n");
}

TEST(InfoCommand, PcbFilesShowBasicUnitsAndNoAttributeCounts) {
    Outcome run = Zantor({"info", (test::DataDir() / "library" / "v3_pcb.asc").string()});
    EXPECT_EQ(run.status, 0);
    EXPECT_NE(run.out.find("Kind:    PCB ASCII file\n"), std::string::npos);
    EXPECT_NE(run.out.find("Version: 3, written as V3.0\n"), std::string::npos);
    EXPECT_NE(run.out.find("Units:   BASIC (1/38100000 inch), whatever the unit letters say\n"),
              std::string::npos);
    EXPECT_NE(run.out.find("RES400" + std::string(34, ' ') +
                           " I        -      0      1     1         2      1\n"),
              std::string::npos);
    EXPECT_NE(run.out.find("\n2 decals\n"), std::string::npos);
}

TEST(InfoCommand, TheSampleLibraryReadsWhole) {
    Outcome run = Zantor({"info", (test::SourceDir() / "data" / "samples" / "sample.d").string()});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.err, "");
    EXPECT_NE(run.out.find("\nHDR2X5 "), std::string::npos);
    EXPECT_NE(run.out.find("\n6 decals\n"), std::string::npos);
}

TEST(InfoCommand, FilesWithoutDecalRecords) {
    test::TempDir dir;
    auto parttypes = dir.WriteFile("x.p", "*PADS-LIBRARY-PART-TYPES-V4*\n\n7400 DIP14 I TTL 0 1\n");
    Outcome run = Zantor({"info", parttypes.string()});
    EXPECT_EQ(run.status, 0);
    EXPECT_NE(run.out.find("Kind:    parttype library\nVersion: 5 (newer than V4 or not known)"),
              std::string::npos);
    EXPECT_NE(run.out.find("No decal records"), std::string::npos);

    auto text = dir.WriteFile("notes.txt", "shopping list\n");
    Outcome other = Zantor({"info", text.string()});
    EXPECT_EQ(other.status, 0);
    EXPECT_NE(other.out.find("Kind:    not a PADS library or PCB ASCII file\n"), std::string::npos);
}

TEST(InfoCommand, FailuresGoToStandardErrorWithStatusOne) {
    test::TempDir dir;
    auto missing = dir.Path() / "missing.d";
    Outcome run = Zantor({"info", missing.string()});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err, "zantor: " + missing.string() +
                           ": cannot open the file: No such file or directory\n");

    auto bad = dir.WriteFile("bad.d",
                             "*PADS-LIBRARY-PCB-DECALS-V4*\nGOOD I 0 0 0 0 0 0 0 0\n\n"
                             "BAD I 0 0 0 0 0 0 many 0\n");
    Outcome broken = Zantor({"info", bad.string()});
    EXPECT_EQ(broken.status, 1);
    EXPECT_NE(broken.out.find("\nGOOD "), std::string::npos);  // what was read before the error
    EXPECT_EQ(broken.err, "zantor: " + bad.string() +
                              ":4: the terminal count of decal BAD is not a number: \"many\"\n");
}

}  // namespace
}  // namespace zantor
