// The real files in ../shared/pads-samples (next to the project's folder, when it is there):
// every decal record of every decal source reads, its counts land on its end, and the pads are
// what the files say.

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "library/decal_reader.h"
#include "library/pad_stacks.h"
#include "support/test_support.h"

namespace zantor {
namespace {

std::filesystem::path SampleFolder() {
    return test::SourceDir().parent_path() / "shared" / "pads-samples";
}

#define SKIP_WITHOUT_SAMPLES()                                                              \
    if (!std::filesystem::is_directory(SampleFolder())) {                                   \
        GTEST_SKIP() << "no shared sample folder at " << SampleFolder()                     \
                     << " (a fresh clone has none; the handmade fixtures cover the rules)"; \
    }

// Every record of `file`, read the way a print job reads them.
std::vector<DecalRecord> Records(const std::filesystem::path& file) {
    DecalReader reader(file);
    std::vector<DecalRecord> records;
    DecalRecord record;
    while (reader.NextRecord(record)) {
        records.push_back(record);
    }
    return records;
}

DecalRecord OnlyRecord(const std::string& name) {
    const auto records = Records(SampleFolder() / name);
    EXPECT_EQ(records.size(), 1u) << name;
    return records.empty() ? DecalRecord{} : records.front();
}

TEST(SampleDecals, EveryRecordOfEveryDecalSourceReadsToItsEnd) {
    SKIP_WITHOUT_SAMPLES();
    int files = 0;
    int decals = 0;
    for (const auto& entry : std::filesystem::directory_iterator(SampleFolder())) {
        const auto& file = entry.path();
        DecalReader reader(file);
        const FileProduct product = reader.Header().product;
        if (product != FileProduct::DecalLibrary && product != FileProduct::PcbDatabase) {
            continue;
        }
        SCOPED_TRACE(file.filename().string());
        ++files;
        std::vector<DecalRecord> records;
        ASSERT_NO_THROW(records = Records(file));
        EXPECT_FALSE(records.empty());
        for (const DecalRecord& record : records) {
            SCOPED_TRACE(record.name);
            ++decals;
            // The counts account for every body line, no more and no fewer.
            EXPECT_EQ(record.endOfStacks, record.lines.size());
            EXPECT_LE(record.firstPiece, record.firstText);
            EXPECT_LE(record.firstText, record.firstTerminal);
            EXPECT_EQ(record.firstStack - record.firstTerminal, record.counts.terminals);
            for (std::size_t t = record.firstTerminal; t < record.firstStack; ++t) {
                EXPECT_TRUE(record.lines[t].starts_with('T')) << record.lines[t];
            }
            EXPECT_TRUE(record.lines[record.firstStack].starts_with("PAD "));
            PadStackList stacks;
            ASSERT_NO_THROW(stacks = ReadPadStacks(record));
            EXPECT_FALSE(stacks.empty());
        }
    }
    EXPECT_EQ(files, 11);
    EXPECT_EQ(decals, 11);
}

TEST(SampleDecals, TheNetlistIsNoDecalSource) {
    SKIP_WITHOUT_SAMPLES();
    DecalReader reader(SampleFolder() / "tms_TMS1mmX19Carrier.asc");
    EXPECT_FALSE(reader.Header().pcbFile);
    EXPECT_EQ(reader.Header().product, FileProduct::Unknown);
}

TEST(SampleDecals, DrilledPadsOfTheSameDecalInBothSyntaxes) {
    SKIP_WITHOUT_SAMPLES();
    for (const char* name : {"np_1725737.d", "np_1725737.asc"}) {
        SCOPED_TRACE(name);
        const PadStackList stacks = ReadPadStacks(OnlyRecord(name));
        ASSERT_EQ(stacks.size(), 6u);
        for (const PadStackEntry& entry : stacks) {
            EXPECT_DOUBLE_EQ(entry.size, 1.65);
            EXPECT_DOUBLE_EQ(entry.drill, 1.1);
            EXPECT_EQ(entry.plated, "P");
            EXPECT_DOUBLE_EQ(entry.drillLength, 0);
        }
        EXPECT_EQ(stacks[0].shape, "R");
        EXPECT_EQ(stacks[0].pin, 0);
        EXPECT_EQ(stacks[3].shape, "S");
        EXPECT_EQ(stacks[3].pin, 1);
    }
}

TEST(SampleDecals, RectangularFingersWithTheirCornerAndOrientation) {
    SKIP_WITHOUT_SAMPLES();
    const PadStackList library = ReadPadStacks(OnlyRecord("np_SON50P200X200X80-9N.d"));
    const PadStackList board = ReadPadStacks(OnlyRecord("np_DRV8220DSGR.asc"));
    EXPECT_EQ(library, board);
    ASSERT_EQ(library.size(), 6u);
    // Pins 1 to 8: 0.3 wide, 0.7 long at 0 degrees; the exposed pad 9: 1 wide, 1.7 long at 90.
    EXPECT_EQ(library[0].shape, "RF");
    EXPECT_DOUBLE_EQ(library[0].size, 0.3);
    EXPECT_DOUBLE_EQ(library[0].ori, 0);
    EXPECT_DOUBLE_EQ(library[0].lenOrInner, 0.7);
    EXPECT_DOUBLE_EQ(library[0].offsetOrSpoke, 0);
    EXPECT_EQ(library[3].pin, 9);
    EXPECT_DOUBLE_EQ(library[3].size, 1);
    EXPECT_DOUBLE_EQ(library[3].ori, 90);
    EXPECT_DOUBLE_EQ(library[3].lenOrInner, 1.7);
    EXPECT_DOUBLE_EQ(library[3].drill, 0);
    EXPECT_EQ(library[3].plated, "N");

    // The QFP: 80 pins in four rows, the side rows at 0 degrees, the default stack at 90.
    const PadStackList qfp = ReadPadStacks(OnlyRecord("np_QFP50P1400X1400X160-80N.d"));
    EXPECT_EQ(qfp, ReadPadStacks(OnlyRecord("np_STM32G484MET6.asc")));
    ASSERT_NE(FindStackEntry(qfp, 1, -2), nullptr);
    EXPECT_DOUBLE_EQ(FindStackEntry(qfp, 1, -2)->ori, 0);
    EXPECT_DOUBLE_EQ(FindStackEntry(qfp, 60, -2)->ori, 0);
    EXPECT_DOUBLE_EQ(FindStackEntry(qfp, 21, -2)->ori, 90);
    EXPECT_DOUBLE_EQ(FindStackEntry(qfp, 80, -2)->lenOrInner, 1.475);
}

TEST(SampleDecals, SlotsMaskLayersAndThermalsOfALibraryConnector) {
    SKIP_WITHOUT_SAMPLES();
    const DecalRecord molex = OnlyRecord("p2s_MOLEX_1051330011.d");
    const PadStackList stacks = ReadPadStacks(molex);
    const PadStackEntry* slot = FindStackEntry(stacks, 6, -2);
    ASSERT_NE(slot, nullptr);
    EXPECT_EQ(slot->plated, "P");
    EXPECT_DOUBLE_EQ(slot->drill, 0.5);
    EXPECT_DOUBLE_EQ(slot->drillOri, 0);
    EXPECT_DOUBLE_EQ(slot->drillLength, 1.6);
    EXPECT_EQ(slot->shape, "OF");
    EXPECT_DOUBLE_EQ(slot->size, 1.1);
    EXPECT_DOUBLE_EQ(slot->lenOrInner, 2.2);
    // Pins 7 and 8 merge into one stack with a 1.2 slot.
    EXPECT_EQ(FindStackEntry(stacks, 8, 0)->pin, 7);
    EXPECT_EQ(FindStackEntry(stacks, 8, 0)->pinLast, 8);
    EXPECT_DOUBLE_EQ(FindStackEntry(stacks, 8, 0)->drillLength, 1.2);
    // Mask and paste lines are kept; the thermal is the second inner-layer line.
    ASSERT_NE(FindStackEntry(stacks, 3, 21), nullptr);
    EXPECT_DOUBLE_EQ(FindStackEntry(stacks, 3, 23)->lenOrInner, 1.5);
    EXPECT_DOUBLE_EQ(FindStackEntry(stacks, 3, 23)->ori, 90);
    EXPECT_EQ(FindStackEntry(stacks, 6, -1)->shape, "OF");
    int thermals = 0;
    for (const PadStackEntry& entry : stacks) {
        thermals += entry.shape == "RT" ? 1 : 0;
    }
    EXPECT_EQ(thermals, 2);  // pin 6, and pins 7..8 merged
    EXPECT_EQ(molex.lines[molex.firstTerminal + 5], "T0     0.3   0     0.3   FRM-2");
}

TEST(SampleDecals, BasicUnitsOfTheV2005Board) {
    SKIP_WITHOUT_SAMPLES();
    const DecalRecord relay = OnlyRecord("opl_RA5P-L1920W1560.asc");
    EXPECT_DOUBLE_EQ(relay.unitFactor, 6.666666666666667e-07);
    const PadStackList stacks = ReadPadStacks(relay);
    ASSERT_NE(FindStackEntry(stacks, 2, -2), nullptr);
    // Pin 2 has the default stack: 3000000 BASIC units (2 mm) round with a drill of 1800000
    // (1.2 mm) and no plated flag, which makes it plated.
    EXPECT_NEAR(FindStackEntry(stacks, 2, -2)->size * relay.unitFactor, 2.0, 1e-9);
    EXPECT_NEAR(FindStackEntry(stacks, 2, -2)->drill * relay.unitFactor, 1.2, 1e-9);
    EXPECT_EQ(FindStackEntry(stacks, 2, -2)->plated, "P");
    EXPECT_NEAR(FindStackEntry(stacks, 1, 0)->drill * relay.unitFactor, 0.8, 1e-9);
    EXPECT_NEAR(FindStackEntry(stacks, 3, 28)->size * relay.unitFactor, 1.95, 1e-9);
}

}  // namespace
}  // namespace zantor
