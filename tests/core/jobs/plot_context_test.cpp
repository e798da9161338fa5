// The first steps of a print command: settings of the kind, input file, attribute list, an
// optional save, and the stroke font, in the main window's order.

#include "jobs/plot_context.h"
#include "support/recording_messages.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "support/test_support.h"

namespace zantor {
namespace {

class PrintCommandSetup : public ::testing::Test {
  protected:
    PrintCommandSetup() {
        SettingsStore main(mainFile_);
        main.WriteString("General", "Fontfile", "romans.fnt");
        main.WriteString("General", "Inputfile", "old.d");
        main.WriteString("Decalplot", "MaxScale", "5");
        main.WriteString("Indexplot", "MaxScale", "7");
        main.Sync();
        SettingsStore zantor(zantorFile_);
        zantor.WriteString("Decalplot", "Attr1", "Value");
        zantor.WriteBool("Decalplot", "ListAttr1", true);
        zantor.WriteString("Decalplot", "Attr2", "Description");
        zantor.Sync();
    }

    test::TempDir dir_;
    std::filesystem::path mainFile_ = dir_.Path() / "Zantor.conf";
    std::filesystem::path zantorFile_ = dir_.Path() / "ZANTOR.conf";
    RecordingMessages messages_;
};

TEST_F(PrintCommandSetup, LoadsTheKindsSettingsItsAttributesAndTheFontAndSavesWhenAsked) {
    const std::string before = test::ReadFileText(mainFile_);
    SettingsStore main(mainFile_);
    const SettingsStore zantor(zantorFile_);
    PlotContext context;
    ASSERT_TRUE(PreparePrintCommand(context, PlotKind::Decal, "/libs/new.d", main, zantor, nullptr,
                                    messages_));
    EXPECT_EQ(context.PlotSettings.MaxScale, 5);
    EXPECT_EQ(context.PlotSettings.Inputfile, "/libs/new.d");
    EXPECT_EQ(context.AttributeList, (AttributeList{{"Value", true}, {"Description", false}}));
    EXPECT_FALSE(context.StrokeFont.Empty());
    EXPECT_EQ(test::ReadFileText(mainFile_), before);

    // The index kind has its own section and lists no attributes: the list in hand stays.
    ASSERT_TRUE(PreparePrintCommand(context, PlotKind::Index, "/libs/other.d", main, zantor, &main,
                                    messages_));
    EXPECT_EQ(context.PlotKind, PlotKind::Index);
    EXPECT_EQ(context.PlotSettings.MaxScale, 7);
    EXPECT_EQ(context.AttributeList.size(), 2u);
    EXPECT_TRUE(messages_.Entries().empty());
    const std::filesystem::path copy = dir_.Path() / "copy.conf";
    std::filesystem::copy_file(mainFile_, copy);
    EXPECT_EQ(SettingsStore(copy).ReadString("General", "Inputfile", ""), "/libs/other.d");
}

TEST_F(PrintCommandSetup, AMissingFontEndsTheCommandWithItsMessage) {
    {
        SettingsStore main(mainFile_);
        main.WriteString("General", "Fontfile", (dir_.Path() / "romansim.fnt").string());
        main.Sync();
    }
    const SettingsStore main(mainFile_);
    const SettingsStore zantor(zantorFile_);
    PlotContext context;
    context.StrokeFont.LoadBytes({1, 2, 3});  // from an earlier command
    EXPECT_FALSE(
        PreparePrintCommand(context, PlotKind::Index, "x.d", main, zantor, nullptr, messages_));
    EXPECT_EQ(messages_.Texts(), std::vector<std::string>{"FONT-file missing."});
    EXPECT_TRUE(context.StrokeFont.Empty());
}

}  // namespace
}  // namespace zantor
