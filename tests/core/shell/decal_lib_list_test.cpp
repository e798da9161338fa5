#include "shell/decal_lib_list.h"

#include <gtest/gtest.h>

#include "settings_fixture.h"

namespace zantor::test {
namespace {

using DecalLibListStore = SettingsTest;

TEST_F(DecalLibListStore, LoadsUpToTheFirstMissingPositionAndCutsLongPaths) {
    const std::string longPath = "/" + std::string(120, 'x') + ".d";
    config_.WriteFile("Brovik/Zantor.conf",
                      "[Decal_LibList]\nFile0=/lib/a.d\nFile1=" + longPath + "\nFile3=/lib/d.d\n");
    EXPECT_EQ(LoadDecalLibList(SettingsStore::OpenMain()),
              (DecalLibList{"/lib/a.d", longPath.substr(0, 100)}));
}

TEST_F(DecalLibListStore, SavingReplacesTheWholeList) {
    SettingsStore store = SettingsStore::OpenMain();
    SaveDecalLibList({"/lib/a.d", "/lib/b.d", "/lib/c.d"}, store);
    SaveDecalLibList({"/lib/c.d"}, store);
    SettingsStore disk = MainOnDisk();
    EXPECT_EQ(LoadDecalLibList(disk), DecalLibList{"/lib/c.d"});
    EXPECT_EQ(disk.ReadString("Decal_LibList", "File1", "gone"), "gone");
}

TEST(DecalLibListAdd, TakesEachDecalLibraryOnceAndRefusesOtherFilesSilently) {
    TempDir dir;
    const auto library = dir.WriteFile("a.d", "*PADS-LIBRARY-PCB-DECALS-V9*\n");
    const auto headerless = dir.WriteFile("b.d", "DIP8 I 0 0 0 0 0 0 0 0\n");
    const auto parttypes = dir.WriteFile("c.p", "7400 DIP14 I TTL 0 1 0 0\n");
    DecalLibList list;
    EXPECT_TRUE(AddDecalLibrary(list, library));
    EXPECT_FALSE(AddDecalLibrary(list, library));
    EXPECT_TRUE(AddDecalLibrary(list, headerless));
    EXPECT_FALSE(AddDecalLibrary(list, parttypes));
    EXPECT_FALSE(AddDecalLibrary(list, dir.Path() / "missing.d"));
    EXPECT_EQ(list, (DecalLibList{library.string(), headerless.string()}));
}

}  // namespace
}  // namespace zantor::test
