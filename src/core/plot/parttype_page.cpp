#include "plot/parttype_page.h"

#include <algorithm>
#include <cmath>

#include "common/errors.h"
#include "plot/index_frame.h"

namespace zantor {
namespace {

constexpr double kMargin = 4.0;    // left and right of the contents, inside the frame
constexpr double kTopGap = 3.0;    // between the frame's top and the name
constexpr double kInfoSize = 3.0;  // logic family and decal list
constexpr double kInfoPitch = 4.5;
constexpr double kTableSize = 2.5;  // pin table text
constexpr double kRowPitch = 3.6;
constexpr double kGroupGap = 3.0;      // between column groups of the table
constexpr double kCellNameRoom = 6.0;  // under a decal cell for its name
constexpr double kCellNameSize = 3.0;
constexpr double kMaxDecalBand = 70.0;  // the decal row's height when a pin table follows
constexpr double kDecalBandShare = 0.4;
constexpr double kLineWidth = 0.25;
// A generous average advance of the formular font, in ems, to size texts without measuring
// them on the device; table columns, whose texts are short and mostly capitals and digits, take
// a closer one and a little room after the text.
constexpr double kAverageAdvance = 0.65;
constexpr double kTableAdvance = 0.6;
constexpr double kTitleAdvance = 0.7;  // the column titles are all capitals
constexpr double kColumnPadding = 1.5;

constexpr const char* kColumnTitles[5] = {"PIN", "GATE", "SWAP", "TYPE", "PIN NAME"};

std::string GateLetter(std::size_t index) {
    std::string letters;
    for (std::size_t n = index + 1; n > 0; n = (n - 1) / 26) {
        letters.insert(letters.begin(), static_cast<char>('A' + (n - 1) % 26));
    }
    return letters;
}

// A list of names as lines of at most `maxCharacters` characters, the first with its label.
std::vector<std::string> NameListLines(const std::string& label,
                                       const std::vector<std::string>& names,
                                       std::size_t maxCharacters) {
    std::vector<std::string> lines{label};
    const std::string indent(label.size() + 1, ' ');
    for (const std::string& name : names) {
        if (lines.back().size() + 2 + name.size() > maxCharacters &&
            lines.back().size() > indent.size()) {
            lines.push_back(indent);
        }
        lines.back() += "  " + name;
    }
    return lines;
}

// The schematic decals of the gates, each name once, in file order.
std::vector<std::string> GateDecalsOf(const Parttype& parttype) {
    std::vector<std::string> names;
    for (const ParttypeGate& gate : parttype.gates) {
        for (const std::string& decal : gate.decals) {
            if (std::find(names.begin(), names.end(), decal) == names.end()) {
                names.push_back(decal);
            }
        }
    }
    return names;
}

// The lines under the name and family line on a parttype's first page: its PCB decals and,
// where its gates name any, their schematic decals.
std::vector<std::string> HeadLines(const Parttype& parttype, std::size_t maxCharacters) {
    std::vector<std::string> lines = NameListLines("PCB DECALS:", parttype.decals, maxCharacters);
    const std::vector<std::string> gateDecals = GateDecalsOf(parttype);
    if (!gateDecals.empty()) {
        for (std::string& line : NameListLines("GATE DECALS:", gateDecals, maxCharacters)) {
            lines.push_back(std::move(line));
        }
    }
    return lines;
}

std::size_t InfoLineCharacters(double width) {
    return static_cast<std::size_t>(
        std::max(20.0, (width - 2 * kMargin) / (kInfoSize * kAverageAdvance)));
}

std::string Trimmed(std::string text, std::size_t maxCharacters) {
    if (text.size() > maxCharacters) {
        text.resize(maxCharacters);
    }
    return text;
}

}  // namespace

std::vector<PinTableRow> PinTableOf(const Parttype& parttype) {
    std::vector<PinTableRow> rows;
    std::size_t lettered = 0;
    for (const ParttypeGate& gate : parttype.gates) {
        const bool logicGate = gate.kind == "GATE" || gate.kind == "G";
        const std::string gateName = logicGate ? GateLetter(lettered++) : gate.kind;
        for (const ParttypePin& pin : gate.pins) {
            rows.push_back({parttype.PinLabel(pin), gateName, pin.swap, pin.type, pin.name});
        }
    }
    for (const ParttypeSignalPin& pin : parttype.signalPins) {
        rows.push_back({pin.pin, "SIGPIN", "", "", pin.signal});
    }
    return rows;
}

ParttypePageStyle ParttypePageStyleOf(const PlotSettings& settings, double nameSize,
                                      double attrSize, const AttributeList& attributes) {
    ParttypePageStyle style;
    style.nameSize = nameSize;
    style.attrSize = attrSize;
    style.listPins = settings.ListPinnames;
    style.showDecals = settings.ShowDecal;
    style.showDecalNames = settings.ShowDecalName;
    style.printAttributes = settings.PrintAttr;
    style.decalCells = settings.Columns;
    if (settings.PrintAttr) {
        for (const AttributeEntry& entry : attributes) {
            if (entry.checked) {
                style.attributes.push_back(entry.name);
            }
        }
    }
    return style;
}

std::string MissingDecalNote(bool pcbInput) {
    return pcbInput ? "not in the decals of the PCB file" : "not in the decal library list";
}

ParttypePageLayout LayOutParttype(const Parttype& parttype, const ParttypePageStyle& style,
                                  double width, double height, double commentBand) {
    ParttypePageLayout layout;
    layout.width = width;
    layout.height = height;
    layout.headTop = height - kTopGap;
    const double nameBase = layout.headTop - style.nameSize;
    const std::size_t decalLines = HeadLines(parttype, InfoLineCharacters(width)).size();
    double y = nameBase - 1.5 - kInfoPitch * static_cast<double>(1 + decalLines);
    if (style.printAttributes && !style.attributes.empty()) {
        y -= style.attrSize * 1.5 * static_cast<double>(style.attributes.size()) + 1.5;
    }
    layout.tableBottom = commentBand + kIndexStripHeight + 2;
    layout.nextTableTop = nameBase - 1.5 - kInfoPitch;

    const std::vector<PinTableRow> rows = PinTableOf(parttype);
    const bool table = style.listPins && !rows.empty();
    if (style.showDecals && !parttype.decals.empty()) {
        if (style.decalCells < 1) {
            throw RangeError("No of decals out of range: " + std::to_string(style.decalCells));
        }
        const std::size_t cells =
            std::min(parttype.decals.size(), static_cast<std::size_t>(style.decalCells));
        const double room = y - 2 - layout.tableBottom;
        const double band =
            table ? std::min(kMaxDecalBand, room * kDecalBandShare) : std::max(0.0, room);
        const double cellWidth = (width - 2 * kMargin) / static_cast<double>(cells);
        const double nameRoom = style.showDecalNames ? kCellNameRoom : 0.0;
        for (std::size_t i = 0; i < cells; ++i) {
            layout.decalCells.push_back({kMargin + static_cast<double>(i) * cellWidth,
                                         y - 2 - band + nameRoom, cellWidth,
                                         std::max(0.0, band - nameRoom)});
        }
        y -= band + 2;
    }
    layout.firstTableTop = y - 2;

    // Column widths from the longest text of each column.
    std::size_t longest[5] = {};
    for (const PinTableRow& row : rows) {
        longest[0] = std::max(longest[0], row.pin.size());
        longest[1] = std::max(longest[1], row.gate.size());
        longest[2] = std::max(longest[2], row.swap.size());
        longest[3] = std::max(longest[3], row.type.size());
        longest[4] = std::max(longest[4], row.name.size());
    }
    double groupWidth = 0;
    for (int c = 0; c < 5; ++c) {
        const double title = static_cast<double>(std::string_view(kColumnTitles[c]).size()) *
                             kTableSize * kTitleAdvance;
        const double cells = static_cast<double>(longest[c]) * kTableSize * kTableAdvance;
        layout.columnWidths[c] = std::max(title, cells) + kColumnPadding;
        groupWidth += layout.columnWidths[c];
    }
    const double across = width - 2 * kMargin;
    layout.groups =
        std::max(1, static_cast<int>(std::floor((across + kGroupGap) / (groupWidth + kGroupGap))));
    if (layout.groups == 1 && groupWidth > across) {
        // A name too long for the page: its column takes what is left.
        layout.columnWidths[4] = std::max(10.0, across - (groupWidth - layout.columnWidths[4]));
    }

    const auto rowsUnder = [&](double top) {
        const double room = top - layout.tableBottom - kRowPitch - 1;
        return room <= 0 ? std::size_t{0}
                         : static_cast<std::size_t>(std::floor(room / kRowPitch)) *
                               static_cast<std::size_t>(layout.groups);
    };
    layout.rowsFirstPage = rowsUnder(layout.firstTableTop);
    layout.rowsNextPage = rowsUnder(layout.nextTableTop);
    if (table && rows.size() > layout.rowsFirstPage) {
        if (layout.rowsNextPage == 0) {
            throw RangeError("the page has no room for the pin table of parttype " + parttype.name);
        }
        const std::size_t rest = rows.size() - layout.rowsFirstPage;
        layout.pages = 1 + (rest + layout.rowsNextPage - 1) / layout.rowsNextPage;
    }
    return layout;
}

void DrawParttypePage(PlotFrame& frame, const Parttype& parttype, const ParttypePageStyle& style,
                      const ParttypePageLayout& layout, std::size_t page,
                      const std::vector<bool>& found, bool pcbInput) {
    const PlotSettings& settings = frame.Settings();
    const std::string& font = settings.FormularFont;
    const Colour text = frame.PenFor(kPenFormText, 0);
    const Colour line = frame.PenFor(kPenFormLine, 0);
    const std::size_t infoCharacters = InfoLineCharacters(layout.width);

    if (text != kNotPlotted) {
        frame.SetColour(text);
        double y = layout.headTop - style.nameSize;
        frame.PageText(page == 0 ? parttype.name : parttype.name + "  (continued)", style.nameSize,
                       y, kMargin, font);
        y -= 1.5 + kInfoPitch;
        frame.PageText(
            "LOGIC FAMILY: " + parttype.logicFamily +
                "     GATES: " + std::to_string(parttype.gates.size()) +
                "     PINS: " + std::to_string(parttype.PinCount()) +
                (parttype.signalPins.empty()
                     ? std::string()
                     : "     SIGNAL PINS: " + std::to_string(parttype.signalPins.size())),
            kInfoSize, y, kMargin, font);
        if (page == 0) {
            for (const std::string& decalLine : HeadLines(parttype, infoCharacters)) {
                y -= kInfoPitch;
                frame.PageText(decalLine, kInfoSize, y, kMargin, font);
            }
            if (style.printAttributes) {
                y -= 1.5;
                const std::size_t attributeCharacters = static_cast<std::size_t>(
                    (layout.width - 2 * kMargin) / (style.attrSize * kAverageAdvance));
                for (const std::string& name : style.attributes) {
                    y -= style.attrSize * 1.5;
                    const std::string* value = parttype.Attribute(name);
                    frame.PageText(Trimmed(name + ": " + (value != nullptr ? *value : ""),
                                           attributeCharacters),
                                   style.attrSize, y, kMargin, font);
                }
            }
            for (std::size_t i = 0; i < layout.decalCells.size(); ++i) {
                const PageBox& cell = layout.decalCells[i];
                const double centre = cell.x + cell.width / 2;
                if (style.showDecalNames) {
                    frame.PageText(parttype.decals[i], kCellNameSize, cell.y - kCellNameRoom + 1.5,
                                   centre, font, TextAlign::Centre);
                }
                if (i >= found.size() || !found[i]) {
                    if (!style.showDecalNames) {
                        frame.PageText(parttype.decals[i], kCellNameSize,
                                       cell.y + cell.height / 2 + 1, centre, font,
                                       TextAlign::Centre);
                    }
                    frame.PageText(MissingDecalNote(pcbInput), kTableSize,
                                   cell.y + cell.height / 2 - 3, centre, font, TextAlign::Centre);
                }
            }
        }
    }

    // A missing decal keeps its cell, outlined.
    if (line != kNotPlotted && page == 0) {
        frame.SetColour(line);
        frame.SetPenWidth(kLineWidth);
        for (std::size_t i = 0; i < layout.decalCells.size(); ++i) {
            if (i < found.size() && found[i]) {
                continue;
            }
            const PageBox& cell = layout.decalCells[i];
            const double x1 = cell.x + 2;
            const double x2 = cell.x + cell.width - 2;
            frame.PageMoveTo(x1, cell.y);
            frame.PageLineTo(x2, cell.y);
            frame.PageLineTo(x2, cell.y + cell.height);
            frame.PageLineTo(x1, cell.y + cell.height);
            frame.PageLineTo(x1, cell.y);
        }
    }

    // The pin table: the rows of this page, down each column group in turn.
    if (!style.listPins) {
        return;
    }
    const std::vector<PinTableRow> rows = PinTableOf(parttype);
    const std::size_t first =
        page == 0 ? 0 : layout.rowsFirstPage + (page - 1) * layout.rowsNextPage;
    const std::size_t capacity = page == 0 ? layout.rowsFirstPage : layout.rowsNextPage;
    if (first >= rows.size() || capacity == 0) {
        return;
    }
    const std::size_t count = std::min(capacity, rows.size() - first);
    const std::size_t perGroup = capacity / static_cast<std::size_t>(layout.groups);
    const double top = page == 0 ? layout.firstTableTop : layout.nextTableTop;
    double groupWidth = 0;
    for (double w : layout.columnWidths) {
        groupWidth += w;
    }
    const std::size_t groupsUsed = (count + perGroup - 1) / perGroup;
    for (std::size_t g = 0; g < groupsUsed; ++g) {
        const double x0 = kMargin + static_cast<double>(g) * (groupWidth + kGroupGap);
        const double headBase = top - kTableSize;
        if (text != kNotPlotted) {
            frame.SetColour(text);
            double x = x0;
            for (int c = 0; c < 5; ++c) {
                frame.PageText(kColumnTitles[c], kTableSize, headBase, x, font);
                x += layout.columnWidths[c];
            }
            for (std::size_t r = 0; r < perGroup; ++r) {
                const std::size_t index = first + g * perGroup + r;
                if (index >= first + count) {
                    break;
                }
                const PinTableRow& row = rows[index];
                const double base = headBase - 1 - kRowPitch * static_cast<double>(r + 1);
                const std::string* cells[5] = {&row.pin, &row.gate, &row.swap, &row.type,
                                               &row.name};
                x = x0;
                for (int c = 0; c < 5; ++c) {
                    if (!cells[c]->empty()) {
                        frame.PageText(*cells[c], kTableSize, base, x, font);
                    }
                    x += layout.columnWidths[c];
                }
            }
        }
        if (line != kNotPlotted) {
            frame.SetColour(line);
            frame.SetPenWidth(kLineWidth);
            const double ruleY = headBase - 1;
            frame.PageMoveTo(x0, ruleY);
            frame.PageLineTo(x0 + groupWidth, ruleY);
        }
    }
    if (line != kNotPlotted && page == 0) {
        frame.SetColour(line);
        frame.SetPenWidth(kLineWidth);
        frame.PageMoveTo(0, top + 1.5);
        frame.PageLineTo(layout.width, top + 1.5);
    }
}

}  // namespace zantor
