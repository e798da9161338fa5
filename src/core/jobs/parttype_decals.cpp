#include "jobs/parttype_decals.h"

#include "jobs/index_layout.h"
#include "library/decal_reader.h"
#include "library/pad_stacks.h"
#include "plot/decal_page.h"
#include "plot/pieces.h"
#include "plot/terminals.h"
#include "plot/text_items.h"

namespace zantor {

void DecalShelf::Fill(const std::vector<std::filesystem::path>& files,
                      const std::set<std::string>& wanted, UserMessages& messages) {
    std::size_t missing = wanted.size();
    for (const std::filesystem::path& file : files) {
        if (missing == 0) {
            return;
        }
        std::error_code error;
        if (!std::filesystem::is_regular_file(file, error)) {
            messages.ShowError("Decal library not found: " + file.string());
            continue;
        }
        DecalReader reader(file);
        if (reader.Header().product == FileProduct::ParttypeLibrary) {
            messages.ShowError("Not a decal library: " + file.string());
            continue;
        }
        DecalRecord record;
        while (missing > 0 && reader.NextRecord(record)) {
            if (wanted.count(record.name) != 0 && records_.count(record.name) == 0) {
                records_.emplace(record.name, record);
                --missing;
            }
        }
    }
}

const DecalRecord* DecalShelf::Find(const std::string& name) const {
    const auto found = records_.find(name);
    return found == records_.end() ? nullptr : &found->second;
}

void DrawDecalInCell(PlotFrame& frame, const DecalRecord& record, const StrokeFont& font,
                     const PageBox& cell, UnknownPieceReports& reports) {
    const PlotSettings& settings = frame.Settings();
    DecalExtents extents;
    PieceExtents(record, extents);
    TerminalExtents(record, extents);
    const bool empty = extents.Empty();
    const double factor = record.unitFactor;
    const double w = empty ? 0.0 : (extents.xmax - extents.xmin) * factor;
    const double h = empty ? 0.0 : (extents.ymax - extents.ymin) * factor;
    const double cx = empty ? 0.0 : (extents.xmin + extents.xmax) / 2;
    const double cy = empty ? 0.0 : (extents.ymin + extents.ymax) / 2;
    const double scale =
        IndexScale(w, h, cell.width * kIndexCellFill, cell.height * kIndexCellFill, settings);
    frame.Scale = scale;
    frame.UnitFactor = factor;
    frame.OriginX1 = cell.x + cell.width / 2 - cx * factor * scale;
    frame.OriginY1 = cell.y + cell.height / 2 - cy * factor * scale;

    if (settings.PlotOrigins && settings.OriginSize > 0.01) {
        DrawOriginMarker(frame);
    }
    const PadStackList stacks = ReadPadStacks(record);
    TerminalMarks marks;
    TextItemsPage page;
    page.commentFont = settings.FormularFont;
    // Pieces under the pads, the pads, the texts, and the outlines on top, as on a decal page.
    DrawPieces(frame, record, false, frame.Messages(), reports);
    DrawTerminals(frame, font, record, stacks, marks);
    DrawTextItems(frame, record, font, page);
    DrawPieces(frame, record, true, frame.Messages(), reports);
}

}  // namespace zantor
