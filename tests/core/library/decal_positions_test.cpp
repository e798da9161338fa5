// Looking a whole selection up in one pass (LocateDecals, FindDecalAt) finds what a search from
// the decals' start finds for each name, line for line.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <tuple>
#include <vector>

#include "library/decal_reader.h"
#include "support/test_support.h"

namespace zantor {
namespace {

struct Lookup {
    bool found = false;
    DecalRecord record;
};

auto Key(const DecalRecord& r) {
    return std::tie(r.name, r.headerLineNumber, r.unitLetter, r.unitFactor, r.lines, r.firstPiece,
                    r.firstText, r.firstTerminal, r.firstStack, r.endOfStacks);
}

// Every name searched for the way a print job searches a PCB file: from the decals' start.
std::vector<Lookup> SearchFromDecals(const std::filesystem::path& file,
                                     const std::vector<std::string>& names) {
    DecalReader reader(file);
    std::vector<Lookup> result;
    for (const std::string& name : names) {
        Lookup lookup;
        reader.RestartAtDecals();
        lookup.found = reader.FindDecal(name);
        if (lookup.found) {
            reader.ReadRecord(lookup.record);
        }
        result.push_back(lookup);
    }
    return result;
}

// The same names placed in one pass, then read from their places.
std::vector<Lookup> LocateThenRead(const std::filesystem::path& file,
                                   const std::vector<std::string>& names) {
    DecalReader reader(file);
    reader.RestartAtDecals();
    const DecalPositions positions = reader.LocateDecals(names);
    std::vector<Lookup> result;
    for (const std::string& name : names) {
        Lookup lookup;
        const auto at = positions.find(std::string(name.substr(0, kMaxDecalNameLength)));
        lookup.found = at != positions.end() && reader.FindDecalAt(at->second);
        if (lookup.found) {
            reader.ReadRecord(lookup.record);
        }
        result.push_back(lookup);
    }
    return result;
}

void ExpectSameLookups(const std::filesystem::path& file, const std::vector<std::string>& names) {
    const std::vector<Lookup> searched = SearchFromDecals(file, names);
    const std::vector<Lookup> located = LocateThenRead(file, names);
    ASSERT_EQ(searched.size(), located.size());
    for (std::size_t i = 0; i < names.size(); ++i) {
        EXPECT_EQ(searched[i].found, located[i].found) << file << " " << names[i];
        if (searched[i].found && located[i].found) {
            EXPECT_EQ(Key(searched[i].record), Key(located[i].record)) << names[i];
        }
    }
}

std::vector<std::string> DecalNames(const std::filesystem::path& file) {
    DecalReader reader(file);
    std::vector<std::string> names;
    DecalRecord record;
    while (reader.NextRecord(record)) {
        names.push_back(record.name);
    }
    return names;
}

TEST(DecalPositions, EveryDecalOfThePcbFixturesIsFoundWhereASearchFindsIt) {
    const std::filesystem::path dir = test::DataDir() / "library";
    for (const auto& file :
         {dir / "v3_pcb.asc", dir / "v4_pcb.asc", dir / "newer" / "v5_mils.asc",
          dir / "newer" / "v95_metric.asc", dir / "newer" / "v2005_basic.asc",
          dir / "newer" / "v10_basic_cut.asc", dir / "newer" / "layout_mm.asc"}) {
        std::vector<std::string> names = DecalNames(file);
        ASSERT_FALSE(names.empty()) << file;
        // Backwards, twice, and with names no decal has: the order of a selection is free.
        std::reverse(names.begin(), names.end());
        names.push_back(names.front());
        names.push_back("NOSUCHDECAL");
        names.push_back("PAD");
        ExpectSameLookups(file, names);
        EXPECT_TRUE(LocateThenRead(file, {names.front()}).front().found) << file;
    }
}

// A PCB file of versions 3 and 4 is searched line by line: a body line whose first word is the
// name stops the search as a decal header would, and a name alone on its line fails it.
constexpr const char* kTrickyPcb =
    "!PADS-POWERPCB-V4.0-MILS! DESIGN DATABASE ASCII FILE 1.0\n"  // 1
    "*PCB*        GENERAL PARAMETERS OF THE PCB DESIGN\n"
    "OPEN 1 2 3\n"  // 3: before the decals, never searched
    "*PARTDECAL*  ITEMS\n"
    "\n"
    "ALONE\n"  // 6: the name alone
    "\n"
    "BOX I 0 0 1 0 0 0 0\n"  // 8
    "OPEN 2 5 26\n"          // 9: first word OPEN
    "-30 0\n"
    "30 0\n"
    "\n"
    "OPEN I 0 0 1 0 0 0 0\n"  // 13: the decal named OPEN comes too late
    "CLOSED 2 5 26\n"
    "-10 0\n"
    "10 0\n"
    "\n"
    "ALONE I 0 0 0 0 0 0 0\n"  // 18: never reached for ALONE
    "\n"
    "*PARTTYPE*   ITEMS\n"
    "LATE I 0 0 0 0 0 0 0\n"  // 21: after the decals, still found line by line
    "*END*     OF ASCII OUTPUT FILE\n";

TEST(DecalPositions, LineByLineSearchesStopAtTheFirstLineWithTheName) {
    test::TempDir dir;
    const auto file = dir.WriteFile("tricky.asc", kTrickyPcb);
    const std::vector<std::string> names = {"OPEN", "ALONE", "BOX", "LATE", "MISSING"};
    ExpectSameLookups(file, names);

    DecalReader reader(file);
    reader.RestartAtDecals();
    const DecalPositions positions = reader.LocateDecals(names);
    ASSERT_EQ(positions.size(), 4u);
    EXPECT_EQ(positions.at("OPEN").lineNumber, 9);
    EXPECT_FALSE(positions.at("OPEN").standsAlone);
    EXPECT_EQ(positions.at("ALONE").lineNumber, 6);
    EXPECT_TRUE(positions.at("ALONE").standsAlone);
    EXPECT_EQ(positions.at("LATE").lineNumber, 21);

    EXPECT_FALSE(reader.FindDecalAt(positions.at("ALONE")));
    EXPECT_EQ(reader.CurrentLineNumber(), 6);
    ASSERT_TRUE(reader.FindDecalAt(positions.at("OPEN")));
    DecalRecord record;
    reader.ReadRecord(record);
    EXPECT_EQ(record.name, "OPEN");
    EXPECT_EQ(record.headerLineNumber, 9);
    EXPECT_EQ(record.lines, (std::vector<std::string>{"-30 0", "30 0"}));

    // The pass ends once every name is placed: one line past BOX on line 8.
    reader.RestartAtDecals();
    reader.LocateDecals(std::vector<std::string>{"BOX", "ALONE"});
    EXPECT_EQ(reader.CurrentLineNumber(), 9);
    EXPECT_FALSE(reader.Ended());
}

// Files framed by counts are searched record by record; a "*" line ends the search.
constexpr const char* kCountedPcb =
    "!PADS-POWERPCB-V9.5-MILS! DESIGN DATABASE ASCII FILE 1.0\n"
    "*PARTDECAL*\n"
    "A I 0 0 1 0 0 1 0\n"  // 3
    "OPEN 2 10 -1 1\n"
    "0 0\n"
    "B 0\n"  // 6: a corner that begins with a decal's name is no header
    "0 10 0 0 50 5 1 N LEFT DOWN\n"
    "Regular <Romansim Stroke Font>\n"
    "B\n"                  // 9: a text line that is the name alone
    "B I 0 0 0 0 0 0 0\n"  // 10
    "*REMARK* between the decals\n"
    "C I 0 0 0 0 0 0 0\n"  // 12
    "*PARTTYPE*\n"
    "D I 0 0 0 0 0 0 0\n"  // 14: after the section, not a decal
    "*END*\n";

TEST(DecalPositions, CountedRecordsAreLookedUpHeaderByHeader) {
    test::TempDir dir;
    const auto file = dir.WriteFile("counted.asc", kCountedPcb);
    const std::vector<std::string> names = {"C", "B", "A", "D", "0"};
    ExpectSameLookups(file, names);
    DecalReader reader(file);
    reader.RestartAtDecals();
    const DecalPositions positions = reader.LocateDecals(names);
    ASSERT_EQ(positions.size(), 3u);
    EXPECT_EQ(positions.at("A").lineNumber, 3);
    EXPECT_EQ(positions.at("B").lineNumber, 10);
    EXPECT_EQ(positions.at("C").lineNumber, 12);
}

}  // namespace
}  // namespace zantor
