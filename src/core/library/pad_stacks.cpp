#include "library/pad_stacks.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstddef>
#include <limits>
#include <string>
#include <string_view>
#include <type_traits>

#include "common/errors.h"
#include "library/field_reader.h"
#include "library/words.h"

namespace zantor {
namespace {

constexpr double kMillimetresPerMil = 0.0254;
constexpr double kMilsPerMillimetre = 39.37008;
constexpr std::size_t kShapeLength = 2;
constexpr std::size_t kPlatedLength = 1;
constexpr std::size_t kMeasureLength = 7;

// The fields that follow the shape word of a stack line.
struct ShapeFields {
    bool finger = false;  // orientation, length or inner diameter, offset or spoke width
    bool spokeCount = false;
    bool innerDiameter = false;
};

ShapeFields FieldsOfShape(std::string_view shape) {
    ShapeFields fields;
    bool thermal = shape == "RT" || shape == "ST";
    fields.finger = thermal || shape == "OF" || shape == "RF";
    fields.spokeCount = thermal;
    fields.innerDiameter = shape == "A";
    return fields;
}

// The words of one body line of a decal, taken off from the front; a field that does not read
// is reported in the words of BadFieldMessage.
class LineFields {
  public:
    LineFields(const DecalRecord& record, std::size_t index, std::string_view item)
        : reader_(record.lines[index],
                  FieldPlace{
                      record.fileName, record.LineNumberOf(index), record.name, item, 0, {}, 0}) {}

    void Skip() { reader_.Word(); }
    bool HasWord() const { return reader_.HasWord(); }
    // Whether the next word reads as a number (a drill, rather than a plated flag).
    bool NextIsNumber() const { return reader_.NextIsNumber(); }
    std::string Text(std::size_t maxLength) {
        return std::string(CutTo(reader_.Word(), maxLength));
    }
    double Real(std::string_view field) { return reader_.Real(field); }

    template <typename Integer>
    Integer Whole(std::string_view field) {
        return static_cast<Integer>(reader_.WholeIn(field, std::numeric_limits<Integer>::min(),
                                                    std::numeric_limits<Integer>::max()));
    }

  private:
    FieldReader reader_;
};

// Reads one stack header: the pin, the number of lines and (by the file dialect) the drill.
PadStackEntry ReadStackHeader(LineFields& fields, DrillPlace drillPlace, long long& lineCount) {
    PadStackEntry header;
    fields.Skip();  // "PAD": the counts frame the blocks, so the keyword is not checked
    header.pin = fields.Whole<std::int32_t>("pin");
    header.pinLast = header.pin;
    lineCount = fields.Whole<long long>("line count");
    if (drillPlace == DrillPlace::StackHeader) {
        header.plated = fields.Text(kPlatedLength);
        header.drill = fields.Real("drill");
        header.drillOri = fields.Real("drill orientation");
        header.drillLength = fields.Real("drill length");
        header.drillOffset = fields.Real("drill offset");
    }
    return header;
}

// The drill a stack line gives after its shape fields (DrillPlace::AfterShapeFields).
struct LineDrill {
    bool given = false;
    double drill = 0.0;
    std::string plated;
    double ori = 0.0;
    double length = 0.0;
    double offset = 0.0;
};

LineDrill ReadLineDrill(LineFields& fields) {
    LineDrill drill;
    if (!fields.NextIsNumber()) {
        return drill;
    }
    drill.given = true;
    drill.drill = fields.Real("drill");
    // A drill without a plated flag is plated.
    drill.plated = fields.HasWord() ? fields.Text(kPlatedLength) : "P";
    if (fields.HasWord()) {
        drill.ori = fields.Real("drill orientation");
        drill.length = fields.Real("drill length");
        drill.offset = fields.Real("drill offset");
    }
    return drill;
}

bool HasCorner(std::string_view shape) {
    return shape == "S" || shape == "RF";
}

PadStackEntry ReadStackLine(LineFields& fields, const FileDialect& dialect,
                            const PadStackEntry& header, LineDrill& lineDrill) {
    PadStackEntry entry = header;
    entry.layer = fields.Whole<std::int32_t>("layer");
    entry.size = fields.Real("size");
    entry.shape = fields.Text(kShapeLength);
    const bool corner = HasCorner(entry.shape);
    if (corner && dialect.cornerPlace == CornerPlace::BeforeFinger) {
        entry.corner = fields.Real("corner");
    }
    ShapeFields shape = FieldsOfShape(entry.shape);
    if (shape.finger) {
        entry.ori = fields.Real("orientation");
        entry.lenOrInner = fields.Real("finger length");
        entry.offsetOrSpoke = fields.Real("finger offset");
    }
    if (shape.spokeCount) {
        entry.spokes = fields.Whole<std::uint16_t>("spoke count");
    }
    if (shape.innerDiameter) {
        entry.lenOrInner = fields.Real("inner diameter");
    }
    if (corner && dialect.cornerPlace == CornerPlace::AfterFinger) {
        entry.corner = fields.Real("corner");
    }
    switch (dialect.drillPlace) {
        case DrillPlace::EveryStackLine:
            entry.drill = fields.Real("drill");
            entry.plated = fields.Text(kPlatedLength);
            break;
        case DrillPlace::AfterShapeFields:
            lineDrill = ReadLineDrill(fields);
            break;
        case DrillPlace::StackHeader:
        case DrillPlace::Nowhere:
            break;
    }
    return entry;
}

// The first drill the lines of a stack give holds for all of them, as a header's drill does.
void ApplyStackDrill(PadStackList& list, std::size_t start, const LineDrill& drill) {
    for (std::size_t i = start; i < list.size(); ++i) {
        list[i].drill = drill.drill;
        list[i].plated = drill.plated;
        list[i].drillOri = drill.ori;
        list[i].drillLength = drill.length;
        list[i].drillOffset = drill.offset;
    }
}

// Everything but the pin range.
bool SamePad(const PadStackEntry& a, const PadStackEntry& b) {
    PadStackEntry other = b;
    other.pin = a.pin;
    other.pinLast = a.pinLast;
    return a == other;
}

bool SamePads(const PadStackList& list, std::size_t first, std::size_t second, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        if (!SamePad(list[first + i], list[second + i])) {
            return false;
        }
    }
    return true;
}

// Fixed-point text that never depends on the locale; a value that rounds to zero has no sign.
std::string Fixed(double value, int decimals) {
    std::array<char, 400> buffer{};
    auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                std::chars_format::fixed, decimals);
    std::string text(buffer.data(), result.ptr);
    if (!text.empty() && text.front() == '-' &&
        text.find_first_not_of("0.", 1) == std::string::npos) {
        text.erase(0, 1);
    }
    return text;
}

std::string LayerName(std::int32_t layer) {
    switch (layer) {
        case -2:
            return "Top";
        case -1:
            return "Int";
        case 0:
            return "Bot";
        default:
            return std::to_string(layer);
    }
}

PadStackTableRow HeaderRow(const PadStackEntry& stack, char unit, const LibraryUnits& units) {
    PadStackTableRow row;
    row.stackHeader = true;
    auto& cells = row.cells;
    cells.push_back({stack.pin == 0 ? "All" : std::to_string(stack.pin), 4.5, CellAlign::Centre});
    if (stack.pinLast > stack.pin) {
        cells.push_back({std::to_string(stack.pinLast), 14.0, CellAlign::Centre});
    }
    cells.push_back({"DRL", 22.7, CellAlign::Centre});
    cells.push_back({FormatMeasure(unit, stack.drill, units), 37.0, CellAlign::Right});
    cells.push_back({stack.plated == "P" ? "PL" : "NP", 40.0, CellAlign::Left});
    cells.push_back({Fixed(stack.drillOri, 1), 53.5, CellAlign::Right});
    if (stack.drillLength > 0.001) {
        cells.push_back({FormatMeasure(unit, stack.drillLength, units), 66.0, CellAlign::Right});
        cells.push_back({FormatMeasure(unit, stack.drillOffset, units), 77.0, CellAlign::Right});
    }
    return row;
}

PadStackTableRow LineRow(const PadStackEntry& entry, char unit, const LibraryUnits& units) {
    PadStackTableRow row;
    auto& cells = row.cells;
    cells.push_back({LayerName(entry.layer), 20.0, CellAlign::Left});
    cells.push_back({FormatMeasure(unit, entry.size, units), 37.0, CellAlign::Right});
    cells.push_back({entry.shape, 40.0, CellAlign::Left});
    const std::string& shape = entry.shape;
    if (shape == "A") {
        cells.push_back({FormatMeasure(unit, entry.lenOrInner, units), 66.0, CellAlign::Right});
    } else if (shape == "OF" || shape == "RF" || shape == "RT" || shape == "ST") {
        cells.push_back({Fixed(entry.ori, 1), 53.5, CellAlign::Right});
        cells.push_back({FormatMeasure(unit, entry.lenOrInner, units), 66.0, CellAlign::Right});
        std::string offset = FormatMeasure(unit, entry.offsetOrSpoke, units);
        if (shape == "RT" || shape == "ST") {
            offset += "/" + std::to_string(entry.spokes);
        }
        cells.push_back({offset, 77.0, CellAlign::Right});
    }
    return row;
}

std::size_t StackEnd(const PadStackList& stacks, std::size_t first) {
    std::size_t end = first + 1;
    while (end < stacks.size() && SameStack(stacks[end], stacks[first])) {
        ++end;
    }
    return end;
}

}  // namespace

PadStackList ReadPadStacks(const DecalRecord& record) {
    const FileDialect& dialect = record.header.dialect;
    const DrillPlace drillPlace = dialect.drillPlace;
    PadStackList list;
    LineCursor cursor(record, record.firstStack);

    // The stack read before the current one: where its entries start, how many there are and
    // its pin range (kept apart from the entries, since a stack may have no lines).
    bool havePrevious = false;
    std::size_t previousStart = 0;
    std::size_t previousSize = 0;
    std::int64_t previousPinLast = 0;

    for (unsigned stack = 0; stack < record.counts.stacks && !cursor.AtEnd(); ++stack) {
        LineFields headerFields(record, cursor.Position(), "a pad stack");
        cursor.Take();
        long long lineCount = 0;
        const PadStackEntry header = ReadStackHeader(headerFields, drillPlace, lineCount);

        const std::size_t start = list.size();
        LineDrill stackDrill;
        for (long long line = 0; line < lineCount && !cursor.AtEnd(); ++line) {
            LineFields fields(record, cursor.Position(), "a pad stack line");
            cursor.Take();
            LineDrill lineDrill;
            list.push_back(ReadStackLine(fields, dialect, header, lineDrill));
            if (lineDrill.given && !stackDrill.given) {
                stackDrill = lineDrill;
            }
        }
        if (drillPlace == DrillPlace::AfterShapeFields) {
            ApplyStackDrill(list, start, stackDrill);
        }
        const std::size_t size = list.size() - start;

        if (havePrevious && size == previousSize && header.pin == previousPinLast + 1 &&
            SamePads(list, previousStart, start, size)) {
            ++previousPinLast;
            for (std::size_t i = previousStart; i < start; ++i) {
                list[i].pinLast = static_cast<std::int32_t>(previousPinLast);
            }
            list.resize(start);
            continue;
        }
        havePrevious = true;
        previousStart = start;
        previousSize = size;
        previousPinLast = header.pinLast;
    }
    return list;
}

bool IsAntiPad(const PadStackEntry& entry) {
    return entry.shape == "RA" || entry.shape == "SA";
}

bool SameStack(const PadStackEntry& a, const PadStackEntry& b) {
    return a.pin == b.pin && a.pinLast == b.pinLast;
}

const PadStackEntry* FindStackEntry(const PadStackList& stacks, std::int32_t pin,
                                    std::int32_t layer) {
    if (stacks.empty()) {
        return nullptr;
    }
    auto start = std::find_if(stacks.begin(), stacks.end(), [pin](const PadStackEntry& entry) {
        return entry.pin == pin || (entry.pinLast > 0 && entry.pin <= pin && pin <= entry.pinLast);
    });
    if (start == stacks.end()) {
        start = stacks.begin();  // the default stack
    }
    auto found = std::find_if(start, stacks.end(),
                              [layer](const PadStackEntry& entry) { return entry.layer == layer; });
    if (found == stacks.end() || !SameStack(*found, *start)) {
        return nullptr;
    }
    return &*found;
}

LibraryUnits LibraryUnitsOf(const DecalRecord& record) {
    return {record.unitFactor, record.unitLetter == "I"};
}

std::string UnitSuffix(char unitChar, bool libraryIsMils) {
    switch (unitChar) {
        case 'I':
            return "mi";
        case 'M':
            return "mm";
        default:
            return libraryIsMils ? "mi" : "mm";
    }
}

std::string FormatMeasure(char unitChar, double value, const LibraryUnits& units) {
    double shown = 0.0;
    if (UnitSuffix(unitChar, units.mils) == "mi") {
        // A decal stored in mils is shown as written, not through a round trip of two factors.
        shown = units.unitFactor == kMillimetresPerMil
                    ? value
                    : value * units.unitFactor * kMilsPerMillimetre;
    } else {
        shown = value * units.unitFactor;
    }
    std::string text = Fixed(shown, 3).substr(0, kMeasureLength);
    return text.empty() ? "0" : text;
}

int PadStackTableLineCount(const PadStackList& stacks) {
    int lines = 0;
    for (std::size_t first = 0; first < stacks.size();) {
        std::size_t end = StackEnd(stacks, first);
        lines += 1 + static_cast<int>(end - first);
        first = end;
    }
    return lines;
}

PadStackTable PadStackTableContent(const PadStackList& stacks, int lineCount, char stackUnit,
                                   const LibraryUnits& units) {
    PadStackTable table;
    if (lineCount <= 0) {
        return table;
    }
    table.rowCount = std::min(lineCount, kPadStackTableMaxRows);
    table.title = "PAD-STACK DEFINITIONS (" + UnitSuffix(stackUnit, units.mils) + ")";
    table.headings = {
        {"PIN", 4.5, CellAlign::Centre},     {"RNG", 14.0, CellAlign::Centre},
        {"LVL", 22.7, CellAlign::Centre},    {"SIZE", 32.5, CellAlign::Centre},
        {"SH", 41.7, CellAlign::Centre},     {"ORI", 49.5, CellAlign::Centre},
        {"LEN/ID", 61.5, CellAlign::Centre}, {"OFFSET", 73.0, CellAlign::Centre},
    };
    const auto rowsLeft = [&table] { return static_cast<int>(table.rows.size()) < table.rowCount; };
    for (std::size_t first = 0; first < stacks.size() && rowsLeft();) {
        std::size_t end = StackEnd(stacks, first);
        table.rows.push_back(HeaderRow(stacks[first], stackUnit, units));
        for (std::size_t i = first; i < end && rowsLeft(); ++i) {
            table.rows.push_back(LineRow(stacks[i], stackUnit, units));
        }
        first = end;
    }
    return table;
}

}  // namespace zantor
