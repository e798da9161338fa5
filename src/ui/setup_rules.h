#pragma once

// The rules of the setup dialogs that need no window: how choice boxes encode their settings,
// which controls each print kind shows, how layer cells and colour cells are read, and how the
// attribute and library lists are edited. The dialogs call these; tests check them directly.

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "common/user_messages.h"
#include "jobs/plot_context.h"
#include "shell/attribute_list.h"
#include "shell/plot_settings.h"

namespace zantor {

// "Mil", "Metric", "As lib" of the unit boxes, and the four pin-number styles, as stored.
inline constexpr std::array<char, 3> kUnitLetters = {'I', 'M', 'X'};
inline constexpr std::array<char, 4> kPinNoStyleLetters = {'A', 'M', '1', 'X'};

// The index of `letter` among `letters`; -1 (nothing chosen) for a letter not among them.
int ChoiceIndex(std::span<const char> letters, char letter);
// The letter of choice `index`; `unchanged` when nothing is chosen.
char ChoiceLetter(std::span<const char> letters, int index, char unchanged);

// What the decal setup dialog shows for a print kind.
struct SetupLayout {
    std::string_view caption;
    bool indexPanel = true;
    std::string_view columnsLabel = "Columns";
    bool printScale = true;
    bool measPanel = true;
    bool padstackPanel = true;
    bool attrPanel2 = true;
    bool nameAsFormNo = true;
    bool panel3 = true;  // the parttype text heights
    bool gridPage = true;
    bool attributesPage = true;
    bool decalPanel = true;  // height info and 1:1 view
    bool printComments = true;
};
SetupLayout SetupLayoutFor(PlotKind kind);

// The pen table's columns: row 0 is the column "Any", rows 1 to 9 are bound to the layer typed
// into their cell.
inline constexpr int kLayerColumns = 10;
inline constexpr int kColourRows = 10;  // colours 1 to 10; 7 to 10 only in column 0
inline constexpr std::string_view kAnyLayer = "Any";

// The layer of a typed cell text: -1 (column unused) for an empty text or "Any" (trimmed), else
// the whole number; anything else is a ConversionError.
std::int32_t LayerOfCellText(std::string_view text);
// The cell text of a layer: empty for -1.
std::string CellTextOfLayer(std::int32_t layer);

// The colour cells are 32 x 20 pixels, column c and colour k at x = 32c + 1 .. 32c + 31,
// y = 20(k - 1) .. 20(k - 1) + 18.
inline constexpr int kColourCellWidth = 32;
inline constexpr int kColourCellHeight = 20;
struct ColourCell {
    int column = 0;  // 0 to 9: the pen table row
    int colour = 1;  // 1 to 10: the item kind
    friend bool operator==(const ColourCell&, const ColourCell&) = default;
};
// The cell a click at (x, y) places a colour in; nullopt outside the cells and for colours 7 to
// 10 outside column 0, which have no cell.
std::optional<ColourCell> ColourCellAt(int x, int y);
// Whether a cell is painted at all.
bool HasColourCell(int column, int colour);

// The enabled state of a list's buttons for the selected entry (-1: none).
struct ListButtons {
    bool up = false;
    bool down = false;
    bool remove = false;
};
ListButtons ListButtonsFor(int selected, int count);

// Moves the entry at `selected` one place up (`step` -1) or down (+1) when it can move; returns
// the entry's new position, which stays selected.
template <typename T>
int MoveEntry(std::vector<T>& entries, int selected, int step) {
    const int target = selected + step;
    if (selected < 0 || target < 0 || selected >= static_cast<int>(entries.size()) ||
        target >= static_cast<int>(entries.size())) {
        return selected;
    }
    std::swap(entries[static_cast<std::size_t>(selected)],
              entries[static_cast<std::size_t>(target)]);
    return target;
}

inline constexpr std::size_t kMaxAttributeNameLength = 32;

// The attribute list's Add: with fewer than 32 entries, asks "New attribute name" (at most 32
// characters) and appends a confirmed, non-empty answer trimmed and unchecked. True when added.
bool AddAttribute(AttributeList& attributes, UserMessages& messages);
// The attribute list's Del: with an entry selected, asks "OK to delete attribute from list?" and
// removes it on Yes. True when removed.
bool DeleteAttribute(AttributeList& attributes, int selected, UserMessages& messages);

// SaveSettings of the context's record, kind and attribute list to the program's store: what every
// settings dialog does on OK. A failure is shown and gives false.
bool SaveContextSettings(const PlotContext& context, UserMessages& messages);

}  // namespace zantor
