#include "shell/attribute_store.h"

#include <gtest/gtest.h>

#include "settings_fixture.h"

namespace zantor::test {
namespace {

using AttributeStore = SettingsTest;

TEST_F(AttributeStore, TheListComesBackInOrderWithItsMarks) {
    const AttributeList list = {{"Value", true}, {"Part Number", false}, {"Height", true}};
    SettingsStore store = SettingsStore::OpenMain();
    SaveAttributes(list, store);

    AttributeList loaded = {{"Something else", false}};
    LoadAttributes(loaded, MainOnDisk());
    EXPECT_EQ(loaded, list);
    SettingsStore disk = MainOnDisk();
    EXPECT_EQ(disk.ReadInteger("AttrList", "AttrCount", -1), 3);
    EXPECT_EQ(disk.ReadString("AttrList", "AttrName2", ""), "Part Number");
    EXPECT_EQ(disk.ReadInteger("AttrList", "AttrChecked3", -1), 1);

    // A shorter list leaves the values above its count in the store, unused.
    SaveAttributes({{"Cost", false}}, store);
    LoadAttributes(loaded, MainOnDisk());
    EXPECT_EQ(loaded, (AttributeList{{"Cost", false}}));
    EXPECT_EQ(MainOnDisk().ReadString("AttrList", "AttrName3", ""), "Height");
}

TEST_F(AttributeStore, NoCountOrCountZeroLeavesTheListAsItIs) {
    const AttributeList held = {{"Value", true}};
    AttributeList list = held;
    LoadAttributes(list, SettingsStore::OpenMain());
    EXPECT_EQ(list, held);

    SettingsStore store = SettingsStore::OpenMain();
    SaveAttributes({}, store);
    LoadAttributes(list, MainOnDisk());
    EXPECT_EQ(list, held);
}

}  // namespace
}  // namespace zantor::test
