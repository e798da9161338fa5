#include "jobs/parttype_decals.h"

#include "jobs/index_layout.h"
#include "library/decal_reader.h"
#include "plot/decal_body.h"
#include "plot/decal_page.h"

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
            if (wanted.count(record.name) != 0 && decals_.count(record.name) == 0) {
                decals_.emplace(record.name, ParseDecal(record));
                --missing;
            }
        }
    }
}

const Decal* DecalShelf::Find(const std::string& name) const {
    const auto found = decals_.find(name);
    return found == decals_.end() ? nullptr : &found->second;
}

void DrawDecalInCell(PlotFrame& frame, const Decal& decal, const StrokeFont& font,
                     const PageBox& cell, UnknownPieceReports& reports) {
    const PlotSettings& settings = frame.Settings();
    const DecalBox box{cell.x + cell.width / 2, cell.y + cell.height / 2,
                       cell.width * kIndexCellFill, cell.height * kIndexCellFill};
    const CellPlacement fit =
        FitWithPinNumbers(frame, decal, font, ExtentsOf(decal, font), [&](const DecalExtents& e) {
            return PlaceInBox(box, e, decal.unitFactor, settings);
        }).placement;
    frame.Place({.corner = frame.Placement().corner,
                 .unitFactor = decal.unitFactor,
                 .scale = fit.scale,
                 .origin = {fit.originX, fit.originY}});

    if (settings.PlotOrigins && settings.OriginSize > 0.01) {
        DrawOriginMarker(frame);
    }
    DecalBodyPage page;
    page.texts.commentFont = settings.FormularFont;
    DrawDecalBody(frame, decal, font, reports, page);
}

}  // namespace zantor
