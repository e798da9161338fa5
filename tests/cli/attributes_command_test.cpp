#include <gtest/gtest.h>

#include <string>

#include "run_zantor.h"

namespace zantor::test {
namespace {

std::string Fixture(const std::string& name) {
    return (DataDir() / "library" / "attributes" / name).string();
}

TEST(AttributesCommand, NamesOfTheScanOnePerLine) {
    const Outcome decals = Zantor({"attributes", Fixture("v4_decals.d")});
    EXPECT_EQ(decals.status, 0);
    EXPECT_EQ(decals.out, "Value\nPart Number\nHeight mm\n");
    EXPECT_EQ(decals.err, "");

    const Outcome parttypes = Zantor({"attributes", "--kind=parttype", Fixture("v4_board.asc")});
    EXPECT_EQ(parttypes.out, "DFT.Allow Stubs\nValue\n");
    EXPECT_EQ(parttypes.status, 0);
}

TEST(AttributesCommand, FailuresAndUsage) {
    const Outcome wrongKind = Zantor({"attributes", Fixture("v4_decals.d"), "--kind", "parttype"});
    EXPECT_EQ(wrongKind.status, 0);  // a decal library has a PADS header: it passes the test

    TempDir dir;
    const auto notDecals = dir.WriteFile("x.p", "7400 DIP14 I TTL 0 1 0 0\n");
    const Outcome refused = Zantor({"attributes", notDecals.string()});
    EXPECT_EQ(refused.status, 1);
    EXPECT_EQ(refused.err, "zantor: No decals found in file.\n");

    const auto damaged = dir.WriteFile(
        "gap.d", "*PADS-LIBRARY-PCB-DECALS-V4*\n\nA M 0 0 2 2 0 0 0 0\nFirst\n\n\n*END*\n");
    const Outcome broken = Zantor({"attributes", damaged.string()});
    EXPECT_EQ(broken.status, 1);
    EXPECT_EQ(broken.out, "First\n");
    EXPECT_NE(broken.err.find("An attribute line is empty"), std::string::npos);

    ExpectUsageErrors({
        {{"attributes"}, "attributes needs a FILE"},
        {{"attributes", "a.d", "--kind", "index"}, "--kind takes decal or parttype, not \"index\""},
        {{"attributes", "a.d", "b.d"}, "attributes takes one FILE"},
    });
}

}  // namespace
}  // namespace zantor::test
