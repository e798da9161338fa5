#include "ui/setup_rules.h"

#include <algorithm>
#include <exception>
#include <limits>

#include "common/errors.h"
#include "library/words.h"
#include "shell/settings_io.h"

namespace zantor {

int ChoiceIndex(std::span<const char> letters, char letter) {
    const auto found = std::find(letters.begin(), letters.end(), letter);
    return found == letters.end() ? -1 : static_cast<int>(found - letters.begin());
}

char ChoiceLetter(std::span<const char> letters, int index, char unchanged) {
    if (index < 0 || index >= static_cast<int>(letters.size())) {
        return unchanged;
    }
    return letters[static_cast<std::size_t>(index)];
}

SetupLayout SetupLayoutFor(PlotKind kind) {
    SetupLayout layout;
    switch (kind) {
        case PlotKind::Parttype:
            layout.caption = "Parttype setup";
            layout.columnsLabel = "No of decals";
            layout.printScale = false;
            layout.nameAsFormNo = false;
            layout.gridPage = false;
            layout.decalPanel = false;
            layout.printComments = false;
            break;
        case PlotKind::Decal:
            layout.caption = "PCB-decal setup";
            layout.indexPanel = false;
            layout.panel3 = false;
            break;
        case PlotKind::Index:
            layout.caption = "PCB-decal index setup";
            layout.measPanel = false;
            layout.padstackPanel = false;
            layout.nameAsFormNo = false;
            layout.panel3 = false;
            layout.gridPage = false;
            layout.attributesPage = false;
            layout.decalPanel = false;
            break;
    }
    return layout;
}

std::int32_t LayerOfCellText(std::string_view text) {
    text = TrimBlanks(text);
    if (text.empty() || text == kAnyLayer) {
        return -1;
    }
    const long long layer = WholeNumber(text);
    if (layer < std::numeric_limits<std::int32_t>::min() ||
        layer > std::numeric_limits<std::int32_t>::max()) {
        throw RangeError("Layer number out of range: \"" + std::string(text) + "\"");
    }
    return static_cast<std::int32_t>(layer);
}

std::string CellTextOfLayer(std::int32_t layer) {
    return layer == -1 ? std::string() : std::to_string(layer);
}

bool HasColourCell(int column, int colour) {
    if (column < 0 || column >= kLayerColumns || colour < 1 || colour > kColourRows) {
        return false;
    }
    return colour <= kPenKeepout || column == 0;
}

std::optional<ColourCell> ColourCellAt(int x, int y) {
    if (x < 0 || y < 0) {
        return std::nullopt;
    }
    const ColourCell cell{x / kColourCellWidth, y / kColourCellHeight + 1};
    if (!HasColourCell(cell.column, cell.colour)) {
        return std::nullopt;
    }
    return cell;
}

ListButtons ListButtonsFor(int selected, int count) {
    const bool valid = selected >= 0 && selected < count;
    return {valid && selected >= 1, valid && selected < count - 1, valid};
}

bool AddAttribute(AttributeList& attributes, UserMessages& messages) {
    if (attributes.size() >= kMaxAttributes) {
        return false;
    }
    const std::optional<std::string> answer =
        messages.AskText("New attribute name", "", kMaxAttributeNameLength);
    if (!answer) {
        return false;
    }
    const std::string_view name = TrimBlanks(*answer);
    if (name.empty()) {
        return false;
    }
    attributes.push_back({std::string(CutTo(name, kMaxAttributeNameLength)), false});
    return true;
}

bool DeleteAttribute(AttributeList& attributes, int selected, UserMessages& messages) {
    if (selected < 0 || selected >= static_cast<int>(attributes.size())) {
        return false;
    }
    if (!messages.AskYesNo("OK to delete attribute from list?")) {
        return false;
    }
    attributes.erase(attributes.begin() + selected);
    return true;
}

bool SaveContextSettings(const PlotContext& context, UserMessages& messages) {
    try {
        SettingsStore store = SettingsStore::OpenMain();
        SaveSettings(context.PlotSettings, context.PlotKind, context.AttributeList, store);
    } catch (const std::exception& error) {
        messages.ShowError(error.what());
        return false;
    }
    return true;
}

}  // namespace zantor
