#include "ui/setup_rules.h"

#include <gtest/gtest.h>

#include "common/errors.h"
#include "support/recording_messages.h"

namespace zantor::test {
namespace {

TEST(SetupRules, ChoiceBoxesEncodeTheirLetters) {
    EXPECT_EQ(ChoiceIndex(kUnitLetters, 'X'), 2);
    EXPECT_EQ(ChoiceIndex(kPinNoStyleLetters, '1'), 2);
    EXPECT_EQ(ChoiceIndex(kUnitLetters, 'Q'), -1);  // nothing chosen
    EXPECT_EQ(ChoiceLetter(kPinNoStyleLetters, 3, 'M'), 'X');
    EXPECT_EQ(ChoiceLetter(kUnitLetters, -1, 'M'), 'M');  // nothing chosen keeps the setting
}

TEST(SetupRules, EachKindHasItsCaptionAndControls) {
    const SetupLayout parttype = SetupLayoutFor(PlotKind::Parttype);
    EXPECT_EQ(parttype.caption, "Parttype setup");
    EXPECT_EQ(parttype.columnsLabel, "No of decals");
    EXPECT_TRUE(parttype.indexPanel && parttype.panel3 && parttype.attributesPage);
    EXPECT_FALSE(parttype.printScale || parttype.gridPage || parttype.nameAsFormNo ||
                 parttype.decalPanel || parttype.printComments);

    const SetupLayout decal = SetupLayoutFor(PlotKind::Decal);
    EXPECT_EQ(decal.caption, "PCB-decal setup");
    EXPECT_TRUE(decal.gridPage && decal.attributesPage && decal.measPanel && decal.printComments);
    EXPECT_FALSE(decal.indexPanel || decal.panel3);

    const SetupLayout index = SetupLayoutFor(PlotKind::Index);
    EXPECT_EQ(index.caption, "PCB-decal index setup");
    EXPECT_EQ(index.columnsLabel, "Columns");
    EXPECT_TRUE(index.indexPanel && index.printScale);
    EXPECT_FALSE(index.gridPage || index.attributesPage || index.measPanel || index.padstackPanel ||
                 index.decalPanel);
}

TEST(SetupRules, LayerCellsAndTheirTexts) {
    EXPECT_EQ(LayerOfCellText(""), -1);
    EXPECT_EQ(LayerOfCellText(" Any "), -1);
    EXPECT_EQ(LayerOfCellText(" 26"), 26);
    EXPECT_EQ(LayerOfCellText("251"), 251);  // the check warns, the number is still taken
    EXPECT_THROW(LayerOfCellText("1.5"), ConversionError);
    EXPECT_EQ(CellTextOfLayer(-1), "");
    EXPECT_EQ(CellTextOfLayer(3), "3");
}

TEST(SetupRules, ColourCellsUnderAClick) {
    EXPECT_EQ(ColourCellAt(0, 0), (ColourCell{0, 1}));
    EXPECT_EQ(ColourCellAt(31, 19), (ColourCell{0, 1}));
    EXPECT_EQ(ColourCellAt(32, 20), (ColourCell{1, 2}));
    EXPECT_EQ(ColourCellAt(9 * 32 + 5, 5 * 20 + 5), (ColourCell{9, 6}));  // Keepout, last column
    EXPECT_EQ(ColourCellAt(5, 9 * 20 + 5), (ColourCell{0, 10}));          // Form-line, "Any"
    EXPECT_EQ(ColourCellAt(3 * 32 + 5, 7 * 20 + 5), std::nullopt);        // Origin, column 3
    EXPECT_EQ(ColourCellAt(32 + 5, 6 * 20 + 5), std::nullopt);            // Pin-no., column 1
    EXPECT_EQ(ColourCellAt(10 * 32 + 1, 5), std::nullopt);
    EXPECT_EQ(ColourCellAt(5, 10 * 20 + 1), std::nullopt);
}

TEST(SetupRules, ListButtonsFollowTheSelection) {
    struct Case {
        int selected, count;
        bool up, down, remove;
    };
    const Case cases[] = {
        {0, 1, false, false, true}, {-1, 3, false, false, false}, {0, 3, false, true, true},
        {1, 3, true, true, true},   {2, 3, true, false, true},
    };
    for (const Case& c : cases) {
        const ListButtons buttons = ListButtonsFor(c.selected, c.count);
        EXPECT_EQ(buttons.up, c.up) << c.selected << "/" << c.count;
        EXPECT_EQ(buttons.down, c.down) << c.selected << "/" << c.count;
        EXPECT_EQ(buttons.remove, c.remove) << c.selected << "/" << c.count;
    }
    std::vector<int> entries = {1, 2, 3};
    EXPECT_EQ(MoveEntry(entries, 0, -1), 0);
    EXPECT_EQ(MoveEntry(entries, 0, 1), 1);
    EXPECT_EQ(entries, (std::vector<int>{2, 1, 3}));
}

TEST(SetupRules, AddingAndDeletingAttributesAsks) {
    RecordingMessages messages;
    AttributeList list;
    messages.QueueText("  Part Number  ");
    messages.QueueText("");
    EXPECT_TRUE(AddAttribute(list, messages));
    EXPECT_FALSE(AddAttribute(list, messages));  // an empty answer
    EXPECT_FALSE(AddAttribute(list, messages));  // cancelled
    EXPECT_EQ(list, (AttributeList{{"Part Number", false}}));
    EXPECT_EQ(messages.Texts(),
              (std::vector<std::string>{"New attribute name", "New attribute name",
                                        "New attribute name"}));

    AttributeList full(32, {"A", false});
    messages.Clear();
    EXPECT_FALSE(AddAttribute(full, messages));
    EXPECT_TRUE(messages.Texts().empty());

    messages.QueueYesNo(false);
    messages.QueueYesNo(true);
    EXPECT_FALSE(DeleteAttribute(list, 0, messages));
    EXPECT_FALSE(DeleteAttribute(list, -1, messages));  // nothing selected: no question
    EXPECT_TRUE(DeleteAttribute(list, 0, messages));
    EXPECT_TRUE(list.empty());
    EXPECT_EQ(messages.Texts(), (std::vector<std::string>{"OK to delete attribute from list?",
                                                          "OK to delete attribute from list?"}));
}

}  // namespace
}  // namespace zantor::test
