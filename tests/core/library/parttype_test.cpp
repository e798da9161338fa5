#include "library/parttype.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "common/errors.h"
#include "support/test_support.h"

namespace zantor {
namespace {

using Names = std::vector<std::string>;

std::filesystem::path Fixture(const std::string& name) {
    return test::DataDir() / "library" / "parttype" / name;
}

std::vector<Parttype> ReadAll(const std::filesystem::path& file) {
    ParttypeReader reader(file);
    std::vector<Parttype> records;
    Parttype parttype;
    while (reader.Next(parttype)) {
        records.push_back(parttype);
    }
    return records;
}

Names NamesOf(const std::vector<Parttype>& records) {
    Names names;
    for (const Parttype& record : records) {
        names.push_back(record.name);
    }
    return names;
}

// One line per pin: label, gate kind, swap, type and name as a page lists them.
Names PinRows(const Parttype& parttype) {
    Names rows;
    for (const ParttypeGate& gate : parttype.gates) {
        for (const ParttypePin& pin : gate.pins) {
            rows.push_back(parttype.PinLabel(pin) + "|" + gate.kind + "|" + pin.swap + "|" +
                           pin.type + "|" + pin.name);
        }
    }
    return rows;
}

TEST(ParttypeReader, ReadsNewerLibraryRecordsWrittenBackToBack) {
    const std::vector<Parttype> records = ReadAll(Fixture("v9_library.p"));
    ASSERT_EQ(NamesOf(records), (Names{"74HC00", "BGA4", "WIDE"}));

    const Parttype& nand = records[0];
    EXPECT_EQ(nand.decals, (Names{"SO14", "DIP14", "TSSOP14"}));
    EXPECT_EQ(nand.unitLetter, "I");
    EXPECT_EQ(nand.logicFamily, "TTL");
    EXPECT_EQ(nand.timestamp, "2024.01.02.03.04.05");
    EXPECT_EQ(nand.headerLineNumber, 3);
    ASSERT_EQ(nand.attributes.size(), 3u);
    EXPECT_EQ(nand.attributes[1].name, "Tolerance");
    EXPECT_EQ(nand.attributes[1].value, "");
    EXPECT_EQ(*nand.Attribute("Manufacturer #1"), "NXP Semiconductors");
    EXPECT_EQ(nand.Attribute("Cost"), nullptr);
    ASSERT_EQ(nand.gates.size(), 2u);
    EXPECT_EQ(nand.gates[0].decals, (Names{"NAND2", "NAND2-DEMORGAN"}));
    EXPECT_EQ(nand.gates[0].swap, "1");
    EXPECT_EQ(PinRows(nand), (Names{"1|GATE|1|I|A", "2|GATE|1|I|B", "3|GATE|0|O|Y", "4|GATE|1|I|A",
                                    "5|GATE|1|I|B", "6|GATE|0|O|Y"}));
    ASSERT_EQ(nand.signalPins.size(), 2u);
    EXPECT_EQ(nand.signalPins[1].pin, "7");
    EXPECT_EQ(nand.signalPins[1].signal, "GND");

    // Pins 1 to 4 carry the alphanumeric names of the record; a connector gate has no swap.
    const Parttype& bga = records[1];
    EXPECT_EQ(bga.unitLetter, "M");
    EXPECT_EQ(bga.attributes[0].value, "");
    EXPECT_EQ(bga.pinNames, (Names{"A1", "A2", "B1", "B2"}));
    EXPECT_EQ(PinRows(bga),
              (Names{"A1|GATE|0|U|VDD", "A2|GATE|0|B|DATA", "B1|CONN||S|", "B2|CONN||G|GND"}));
    EXPECT_EQ(bga.PinCount(), 4u);

    EXPECT_EQ(records[2].decals.size(), kMaxParttypeDecals);
    EXPECT_EQ(records[2].decals.back(), "D16");
    EXPECT_EQ(records[2].timestamp, "");
}

TEST(ParttypeReader, SeventeenDecalsAreARangeErrorNamingTheLine) {
    ParttypeReader reader(Fixture("v9_17decals.p"));
    Parttype parttype;
    try {
        reader.Next(parttype);
        FAIL() << "no error";
    } catch (const RangeError& error) {
        EXPECT_NE(std::string(error.what()).find("TOOWIDE"), std::string::npos);
        EXPECT_EQ(error.line(), 3);
    }
}

TEST(ParttypeReader, OldLibrariesAndPcbFilesTakePinWords) {
    // Version 4: an attribute count only when six words follow the logic family.
    const std::vector<Parttype> old = ReadAll(Fixture("v4_library.p"));
    ASSERT_EQ(NamesOf(old), (Names{"7400", "OLD1"}));
    EXPECT_EQ(old[0].attributes.size(), 1u);
    EXPECT_EQ(old[0].gates.size(), 4u);
    EXPECT_EQ(PinRows(old[0])[11], "11|G|0|O|");
    EXPECT_EQ(PinRows(old[1]), (Names{"1|G|0|U|", "2|G|0|U|"}));

    // The 2005 release writes the unit letter; pins wrap over lines; records back to back.
    const std::vector<Parttype> board = ReadAll(Fixture("v2005_board.asc"));
    ASSERT_EQ(NamesOf(board), (Names{"RELAY", "DIODE"}));
    EXPECT_EQ(board[0].unitLetter, "I");
    EXPECT_EQ(board[0].logicFamily, "UND");
    EXPECT_EQ(board[0].PinCount(), 5u);
    ASSERT_EQ(board[0].signalPins.size(), 1u);
    EXPECT_EQ(board[0].signalPins[0].width, "12");
    EXPECT_EQ(PinRows(board[1]), (Names{"1|G|0|U|A", "2|G|0|U|K"}));

    // Version 10 has no unit letter: the third word is the logic family.
    const std::vector<Parttype> v10 = ReadAll(Fixture("v10_board.asc"));
    ASSERT_EQ(NamesOf(v10), (Names{"CAP", "RES", "DIODE"}));
    EXPECT_EQ(v10[1].logicFamily, "RES");
    EXPECT_EQ(v10[1].decals, (Names{"R0603", "C0603"}));
    EXPECT_EQ(PinRows(v10[0]), (Names{"1|G|0|U|", "2|G|0|U|"}));
}

TEST(ParttypeReader, GoesBackToLocatedRecords) {
    ParttypeReader reader(Fixture("v9_library.p"));
    auto positions = reader.LocateAll();
    ASSERT_EQ(positions.size(), 3u);
    Parttype parttype;
    reader.SeekTo(positions.at("BGA4"));
    ASSERT_TRUE(reader.Next(parttype));
    EXPECT_EQ(parttype.name, "BGA4");
    EXPECT_EQ(parttype.headerLineNumber, 21);
    reader.SeekTo(positions.at("74HC00"));
    ASSERT_TRUE(reader.Next(parttype));
    EXPECT_EQ(parttype.name, "74HC00");
    EXPECT_EQ(parttype.gates.size(), 2u);
}

TEST(ParttypeHeader, BadHeadersAndLineShapes) {
    const ParttypeLayout library;
    EXPECT_THROW(ReadParttypeHeader("X DIP14 I TTL", library, {}), FormatError);
    EXPECT_THROW(ReadParttypeHeader("X DIP14 I TTL 1 x 0 0 0", library, {}), ConversionError);
    EXPECT_THROW(ReadParttypeHeader("X DIP14 I TTL 1 -1 0 0 0", library, {}), RangeError);
    EXPECT_TRUE(LooksLikeParttypeHeader("LM358 SOIC8:DIP8 I ANA 2 2 0 0 0", library));
    EXPECT_FALSE(LooksLikeParttypeHeader("1 0 U VBAT", library));
    EXPECT_FALSE(LooksLikeParttypeHeader("\"Value\" 10uF", library));
    EXPECT_FALSE(LooksLikeParttypeHeader("GATE 1 80 0", library));
}

}  // namespace
}  // namespace zantor
