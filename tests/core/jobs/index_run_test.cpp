#include "jobs/index_run.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "common/errors.h"
#include "plot/pieces.h"

namespace zantor {
namespace {

PlotSettings Grid(int columns, int partsEachColumn) {
    PlotSettings settings;
    settings.Columns = columns;
    settings.PartsEachColumn = partsEachColumn;
    return settings;
}

TEST(IndexLayout, CellsColumnsPagesAndLayoutsThatCannotBeDrawn) {
    const IndexLayout layout = IndexLayoutOf(Grid(2, 12), 180, 270, 30);
    EXPECT_EQ(layout.decalsPerPage, 24);
    EXPECT_EQ(layout.pages, 2);
    EXPECT_DOUBLE_EQ(layout.columnWidth, 90);
    EXPECT_DOUBLE_EQ(layout.cellWidth, 53.46);  // (90 - 9) x 0.66
    EXPECT_DOUBLE_EQ(layout.cellHeight, (270.0 - 10 - 3) / 12);

    PlotSettings commented = Grid(2, 12);
    commented.GenComment = "DRAFT";
    commented.GenComSize = 2;
    EXPECT_DOUBLE_EQ(IndexLayoutOf(commented, 180, 270, 1).cellHeight, (270 - 4.5 - 10 - 3) / 12);

    EXPECT_EQ(IndexLayoutOf(Grid(4, 6), 180, 270, 49).pages, 3);
    EXPECT_EQ(IndexLayoutOf(Grid(4, 6), 180, 270, 0).pages, 0);
    EXPECT_EQ(IndexLayoutOf(Grid(1, 1), 180, 270, 65535).pages, 65535);
    EXPECT_THROW(IndexLayoutOf(Grid(1, 1), 180, 270, 65536), RangeError);
    EXPECT_THROW(IndexLayoutOf(Grid(0, 6), 180, 270, 1), RangeError);
    EXPECT_THROW(IndexLayoutOf(Grid(4, 0), 180, 270, 1), RangeError);
    EXPECT_THROW(IndexLayoutOf(Grid(4, 6), 180, 12, 1), RangeError);
    EXPECT_THROW(IndexLayoutOf(Grid(20, 6), 180, 270, 1), RangeError);
}

// Settings far beyond any page: the layout is refused with a message before any product of
// them is formed, never cells of a millionth of a millimetre.
TEST(IndexLayout, HugeGridsAreRefusedAsHavingNoRoom) {
    for (const auto& [columns, parts] :
         {std::pair{1, 1073741824}, std::pair{2147483647, 1}, std::pair{65536, 65536},
          std::pair{2147483647, 2147483647}, std::pair{2, 200}}) {
        try {
            IndexLayoutOf(Grid(columns, parts), 180, 270, 10);
            ADD_FAILURE() << columns << " x " << parts;
        } catch (const RangeError& error) {
            EXPECT_EQ(error.message(), "The index page has no room for " + std::to_string(columns) +
                                           " x " + std::to_string(parts) + " decals")
                << columns << " x " << parts;
        }
    }
}

TEST(IndexScale, FillsTheCellUnlessTheScaleIsPrinted) {
    PlotSettings settings;
    // A 10 mm wide decal in a room where 0.8 of it takes 2.37 times that.
    EXPECT_NEAR(IndexScale(10, 1, 29.625, 1000, settings), 2.37, 1e-12);
    EXPECT_DOUBLE_EQ(IndexScale(0.1, 0.1, 1000, 1000, settings), 10);  // MaxScale
    EXPECT_DOUBLE_EQ(IndexScale(0, 0, 50, 50, settings), 10);

    settings.PrintScale = true;
    EXPECT_DOUBLE_EQ(IndexScale(10, 1, 29.625, 1000, settings), 2);
    EXPECT_DOUBLE_EQ(IndexScale(100, 1, 62.5, 1000, settings), 1.0 / 3);  // 0.5 exactly
    settings.MaxScale = 2.5;
    EXPECT_DOUBLE_EQ(IndexScale(0.1, 0.1, 1000, 1000, settings), 2);

    // The view box prints no scale: the whole box, enlargements as they come.
    settings.MaxScale = 10;
    EXPECT_NEAR(IndexScale(10, 1, 23.7, 1000, settings, true), 2.37, 1e-12);
}

TEST(IndexPlacement, DecalsStandInTheRightHandPartOfTheirCells) {
    PlotSettings settings = Grid(2, 12);
    settings.PrintScale = true;
    const IndexLayout layout = IndexLayoutOf(settings, 180, 270, 30);
    DecalExtents extents;
    extents.Widen(-5, -2);
    extents.Widen(15, 4);
    // 0.8 x 53.46 / 20 = 2.14 fits across, so 2 : 1.
    const CellPlacement first = PlaceInCell(layout, 270, 1, 2, extents, 1.0, settings);
    EXPECT_DOUBLE_EQ(first.scale, 2);
    EXPECT_DOUBLE_EQ(first.originX, 180 - 53.46 / 2 - 5 * 2 - 3);
    EXPECT_DOUBLE_EQ(first.originY, 270 - 3 - layout.cellHeight / 2 - 1 * 2);
    // In mils the extents are 0.0254 mm a unit.
    const CellPlacement mils = PlaceInCell(layout, 270, 1, 1, extents, 0.0254, settings);
    EXPECT_DOUBLE_EQ(mils.scale, 10);
    EXPECT_DOUBLE_EQ(mils.originX, 90 - 53.46 / 2 - 5 * 0.0254 * 10 - 3);
}

TEST(IndexPageArea, EvenPagesTakeTheRightMarginBeyondItsUnprintableOffset) {
    PlotSettings settings;
    settings.RightMargin = 6;
    EXPECT_DOUBLE_EQ(IndexPageAreaOf({200, 287, 5, 5, 4, 5}, settings).mirroredLeft, 2);
    EXPECT_DOUBLE_EQ(IndexPageAreaOf({200, 287, 5, 5, 9, 5}, settings).mirroredLeft, 0);
}

}  // namespace
}  // namespace zantor
