#include "jobs/index_run.h"

#include <utility>

#include "plot/decal_body.h"
#include "plot/index_frame.h"

namespace zantor {

IndexRun::IndexRun(PlotFrame& frame, const StrokeFont& font, IndexRunInputs inputs)
    : frame_(frame),
      font_(font),
      inputs_(std::move(inputs)),
      layout_(IndexLayoutOf(frame.Settings(), inputs_.area.page.usableWidth,
                            inputs_.area.page.usableHeight, inputs_.selectedCount)) {
    StartPageAt();
}

// Even pages bind on the right with MirrorMargin, so their left edge comes from the right margin.
void IndexRun::StartPageAt() {
    const bool mirrored = frame_.Settings().MirrorMargin && pageNumber_ % 2 == 0;
    left_ = mirrored ? inputs_.area.mirroredLeft : inputs_.area.page.left;
}

IndexStep IndexRun::AddDecal(const Decal& decal, const DecalExtents& extents,
                             UnknownPieceReports& reports) {
    const PlotSettings& settings = frame_.Settings();
    const PageGeometry& page = inputs_.area.page;
    if (cellsOnPage_ == 0) {
        StartPageAt();
    }
    const auto [placement, fitted] =
        FitWithPinNumbers(frame_, decal, font_, extents, [&](const DecalExtents& e) {
            return PlaceInCell(layout_, page.usableHeight, row_, column_, e, decal.unitFactor,
                               settings);
        });
    frame_.Place({.corner = {left_, page.bottom},
                  .unitFactor = decal.unitFactor,
                  .scale = placement.scale,
                  .origin = {placement.originX, placement.originY}});

    IndexCellPlace place{
        column_,          row_, layout_.cellHeight, layout_.columnWidth, kIndexCellMargin,
        page.usableHeight};
    // The decal's left edge as drawn: its extents at the cell's scale from its origin.
    place.decalLeft = fitted.Empty()
                          ? placement.originX
                          : placement.originX + fitted.xmin * decal.unitFactor * placement.scale;
    DrawIndexCell(frame_, {decal, font_, place, reports});
    pageBegun_ = true;

    IndexStep step;
    step.scale = placement.scale;
    ++cellsOnPage_;
    ++row_;
    const bool moreRemain = printed_ + 1 < inputs_.selectedCount;
    ++printed_;
    if (row_ <= layout_.partsEachColumn && moreRemain) {
        return step;
    }
    // Counting the cells drawn: with one decal per column, counting from 1 would close the page
    // a column early.
    if (cellsOnPage_ < layout_.decalsPerPage && moreRemain) {
        row_ = 1;
        ++column_;
        return step;
    }
    CompletePage(step);
    return step;
}

void IndexRun::CompletePage(IndexStep& step) {
    const PageGeometry& page = inputs_.area.page;
    IndexFrameInputs frameInputs;
    frameInputs.width = page.usableWidth;
    frameInputs.height = page.usableHeight;
    frameInputs.inputPath = inputs_.inputPath;
    frameInputs.pcbInput = inputs_.pcbInput;
    frameInputs.date = inputs_.date;
    frameInputs.pageNumber = pageNumber_;
    frameInputs.pageCount = layout_.pages;
    // The page's frame is drawn in page millimetres only.
    frame_.Place(FrameAt({left_, page.bottom}));
    DrawIndexFrame(frame_, frameInputs);
    step.pageFramed = true;
    step.newPage = pageNumber_ < layout_.pages;
    pageBegun_ = step.newPage;
    ++pageNumber_;
    cellsOnPage_ = 0;
    row_ = 1;
    column_ = 1;
}

bool IndexRun::Finish() {
    // A page with cells, or one the driver has begun for the decals still to come.
    if (!pageBegun_ || (cellsOnPage_ == 0 && pageNumber_ == 1)) {
        return false;
    }
    StartPageAt();
    IndexStep step;
    CompletePage(step);
    pageBegun_ = false;
    return true;
}

}  // namespace zantor
