#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>

#include "run_zantor.h"

namespace zantor::test {
namespace {

TEST(CommandLine, HelpAndUsageErrors) {
    const Outcome help = Zantor({"--help"});
    EXPECT_EQ(help.status, 0);
    EXPECT_EQ(help.err, "");
    const std::size_t info = help.out.find("  info FILE ");
    const std::size_t list = help.out.find(
        "\n  list FILE [--kind decal|index|parttype] [--search TEXT] [--pins N] [--contents N]\n");
    const std::size_t print = help.out.find(
        "\n  print FILE [--kind decal|index|parttype] [--select NAME]...\n"
        "        [--decal-lib PATH]... (--output OUT | --printer QUEUE)\n");
    EXPECT_NE(info, std::string::npos);
    EXPECT_NE(print, std::string::npos);
    EXPECT_LT(info, list);
    EXPECT_LT(list, print);
    EXPECT_NE(help.out.find("6 Where name <> decalname"), std::string::npos);
    for (const char* command : {"-h", "info", "list", "print"}) {
        EXPECT_EQ(Zantor({command, "--help"}).out, help.out) << command;
    }
    ExpectUsageErrors({{{}, "no command given"},
                       {{"plot", "x.d"}, "unknown command \"plot\""},
                       {{"info"}, "info takes one FILE"},
                       {{"info", "a.d", "b.d"}, "info takes one FILE"}});
}

TEST(CommandLine, VersionAndOptionForms) {
    const Outcome version = Zantor({"--version"});
    EXPECT_EQ(version.status, 0);
    EXPECT_EQ(version.err, "");
    EXPECT_TRUE(version.out.starts_with("zantor ")) << version.out;
    EXPECT_EQ(std::count(version.out.begin(), version.out.end(), '.'), 2) << version.out;
    EXPECT_NE(Zantor({"--help"}).out.find("  --version "), std::string::npos);

    // A value given with "=", a long option with one dash, and "--" before a file whose name
    // starts with a dash all reach the command as the plain form does.
    TempDir dir;
    const auto file = dir.Path() / "-odd.d";
    std::filesystem::copy_file(Sample(), file);
    const std::string plain = Zantor({"list", file.string(), "--kind", "decal"}).out;
    EXPECT_NE(plain, "");
    EXPECT_EQ(Zantor({"list", file.string(), "--kind=decal"}).out, plain);
    EXPECT_EQ(Zantor({"list", "-kind", "decal", file.string()}).out, plain);
    const std::filesystem::path cwd = std::filesystem::current_path();
    std::filesystem::current_path(dir.Path());
    EXPECT_EQ(Zantor({"list", "--", "-odd.d"}).out, plain);
    std::filesystem::current_path(cwd);
    // The last of a repeated option counts, and each is checked.
    EXPECT_EQ(Zantor({"list", file.string(), "--kind", "parttype", "--kind", "decal"}).out, plain);

    // Help after a command, and usage errors about the forms themselves.
    EXPECT_EQ(Zantor({"list", file.string(), "--help"}).out, Zantor({"--help"}).out);
    ExpectUsageErrors({
        {{"--colour"}, "unknown option --colour"},
        {{"list", "a.d", "-x"}, "list has no option -x"},
        {{"list", "a.d", "--colour=red"}, "list has no option --colour"},
        {{"list", "a.d", "--help=yes"}, "--help takes no value"},
        {{"print", "a.d", "--output"}, "--output needs a value"},
        {{"list", "a.d", "--kind", "sheet", "--kind", "decal"},
         "--kind takes decal, index or parttype, not \"sheet\""},
        {{"info", "--kind", "decal", "a.d"}, "info has no option --kind"},
    });
}

TEST(InfoCommand, ListsEveryDecalRecordWithItsCounts) {
    TempDir dir;
    auto file = dir.WriteFile("small.d",
                              "*PADS-LIBRARY-PCB-DECALS-V4*\r\n\r\n"
                              "R0603 M 0 0 0 1 3 0 2 1\r\nbody\r\n\r\n\r\n"
                              "DIP8 I 0 0 1 2 2 1 8 2\r\n\r\n*END*\r\n");
    const Outcome run = Zantor({"info", file.string()});
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
    const Outcome run = Zantor({"info", (DataDir() / "library" / "v3_pcb.asc").string()});
    EXPECT_EQ(run.status, 0);
    EXPECT_NE(run.out.find("Kind:    PCB ASCII file\nVersion: 3, written as V3.0\n"
                           "Units:   BASIC (1/38100000 inch), whatever the unit letters say\n"),
              std::string::npos);
    EXPECT_NE(run.out.find("RES400" + std::string(34, ' ') +
                           " I        -      0      1     1         2      1\n"),
              std::string::npos);
}

TEST(InfoCommand, FilesWithoutDecalRecords) {
    TempDir dir;
    auto parttypes = dir.WriteFile("x.p", "*PADS-LIBRARY-PART-TYPES-V4*\n\n7400 DIP14 I TTL 0 1\n");
    const Outcome run = Zantor({"info", parttypes.string()});
    EXPECT_EQ(run.status, 0);
    EXPECT_NE(run.out.find("Kind:    parttype library\nVersion: 5 (newer than V4 or not known)"),
              std::string::npos);
    EXPECT_NE(run.out.find("No decal records"), std::string::npos);
    const Outcome other = Zantor({"info", dir.WriteFile("notes.txt", "shopping\n").string()});
    EXPECT_EQ(other.status, 0);
    EXPECT_NE(other.out.find("Kind:    not a PADS library or PCB ASCII file\n"), std::string::npos);
}

TEST(InfoCommand, FailuresGoToStandardErrorWithStatusOne) {
    TempDir dir;
    auto missing = dir.Path() / "missing.d";
    const Outcome run = Zantor({"info", missing.string()});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err, "zantor: " + missing.string() +
                           ": cannot open the file: No such file or directory\n");

    auto bad = dir.WriteFile("bad.d",
                             "*PADS-LIBRARY-PCB-DECALS-V4*\nGOOD I 0 0 0 0 0 0 0 0\n\n"
                             "BAD I 0 0 0 0 0 0 many 0\n");
    const Outcome broken = Zantor({"info", bad.string()});
    EXPECT_EQ(broken.status, 1);
    EXPECT_NE(broken.out.find("\nGOOD "), std::string::npos);  // what was read before the error
    EXPECT_EQ(broken.err, "zantor: " + bad.string() +
                              ":4: the terminal count of decal BAD is not a number: \"many\"\n");
}

TEST(InfoCommand, ADamagedRecordIsListedMarkedAndItsLineNamed) {
    TempDir dir;
    // BUZZER's header counts two pieces; its body holds one.
    auto damaged =
        dir.WriteFile("damaged.d",
                      "*PADS-LIBRARY-PCB-DECALS-V9*\n\nGOOD M 0 0 0 0 0 0 0 0 0\n\n"
                      "BUZZER M 0 0 0 0 2 0 2 1 0\nCLOSED 2 0.1 26 -1\n-6 -6\n6 6\n"
                      "T0 9 0 9 1\nT0 -9 0 -9 2\nPAD 0 1\n-2 3 R\n\nLATER M 0 0 0 0 0 0 0 0 0\n");
    const Outcome run = Zantor({"info", damaged.string()});
    EXPECT_EQ(run.status, 1);
    EXPECT_NE(run.out.find("\nGOOD" + std::string(37, ' ') +
                           "M        0      0      0     0"
                           "         0      0\n"
                           "BUZZER" +
                           std::string(35, ' ') +
                           "M        0      0      2     0"
                           "         2      1  DAMAGED\n1 decal read before the damaged record\n"),
              std::string::npos)
        << run.out;
    EXPECT_EQ(run.err, "zantor: " + damaged.string() +
                           ":9: decal BUZZER does not hold what its header counts (2 pieces, 0 "
                           "texts, 2 terminals, 1 pad stack): the header of a piece was due "
                           "here, not \"T0 9 0 9 1\"\n");
}

}  // namespace
}  // namespace zantor::test
