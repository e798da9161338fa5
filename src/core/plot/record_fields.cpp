#include "plot/record_fields.h"

#include <algorithm>
#include <limits>

#include "common/errors.h"
#include "library/words.h"

namespace zantor {

FieldReader::FieldReader(const DecalRecord& record, std::size_t index)
    : FieldReader(BodyLine(record, index), record.fileName, record.LineNumberOf(index)) {}

std::string_view FieldReader::Word() {
    return TakeWord(rest_);
}

double FieldReader::Real() {
    return RealNumber(Word(), TextPlace{file_, lineNumber_});
}

std::int32_t FieldReader::Whole() {
    const std::string_view word = Word();
    const long long value = WholeNumber(word, TextPlace{file_, lineNumber_});
    if (value < std::numeric_limits<std::int32_t>::min() ||
        value > std::numeric_limits<std::int32_t>::max()) {
        throw RangeError("\"" + std::string(word) + "\" is too large for a whole number",
                         std::string(file_), lineNumber_);
    }
    return static_cast<std::int32_t>(value);
}

std::optional<std::int32_t> FieldReader::OptionalWhole() {
    if (TrimBlanks(rest_).empty()) {
        return std::nullopt;
    }
    return Whole();
}

std::string_view FieldReader::Rest() {
    std::string_view rest = rest_;
    while (!rest.empty() && static_cast<unsigned char>(rest.back()) <= ' ') {
        rest.remove_suffix(1);
    }
    return rest;
}

const std::string& BodyLine(const DecalRecord& record, std::size_t index) {
    static const std::string kNoLine;
    return index < record.lines.size() ? record.lines[index] : kNoLine;
}

namespace {

// 2 for `high` ("RIGHT", "UP"), 1 for "CENTER", 0 for anything else ("LEFT", "DOWN").
int PlaceOfWord(std::string_view word, std::string_view high) {
    if (word == high) {
        return 2;
    }
    return word == "CENTER" ? 1 : 0;
}

// "17" is centred both ways: the horizontal place in the low four bits, the vertical one above.
void ReadJustificationCode(std::string_view word, TextHeader& header) {
    long long code = 0;
    try {
        code = WholeNumber(word);
    } catch (const Error&) {
        return;  // a justification that cannot be read leaves the text where it stands
    }
    const auto place = [](long long value) { return value >= 0 && value <= 2 ? int(value) : 0; };
    header.horizontal = place(code % 16);
    header.vertical = place(code / 16 % 16);
}

}  // namespace

std::string ReadPieceKeyword(const DecalRecord& record, std::size_t index) {
    FieldReader reader(record, index);
    return std::string(reader.Word());
}

PieceHeader ReadPieceCornerCount(const DecalRecord& record, std::size_t index) {
    FieldReader reader(record, index);
    PieceHeader header;
    header.keyword = std::string(reader.Word());
    header.corners = reader.Whole();
    return header;
}

PieceHeader ReadPieceHeader(const DecalRecord& record, std::size_t index, bool readPin) {
    const PieceLayout layout = record.header.dialect.pieceLayout;
    FieldReader reader(record, index);
    PieceHeader header;
    header.keyword = std::string(reader.Word());
    header.corners = reader.Whole();
    header.width = reader.Real();
    switch (layout) {
        case PieceLayout::Layer:
            header.layer = reader.Whole();
            break;
        case PieceLayout::LayerThenLineStyle:
            header.layer = reader.Whole();
            header.lineStyle = reader.OptionalWhole();
            break;
        case PieceLayout::LineStyleThenLayer:
            header.lineStyle = reader.Whole();
            header.layer = reader.Whole();
            break;
    }
    if (!readPin) {
        return header;
    }
    if (!record.header.dialect.newerPieceKinds) {
        header.pin = reader.OptionalWhole();
        return header;
    }
    const std::string_view word = reader.Word();
    try {
        if (!word.empty()) {
            header.pin = static_cast<std::int32_t>(
                std::clamp<long long>(WholeNumber(word), std::numeric_limits<std::int32_t>::min(),
                                      std::numeric_limits<std::int32_t>::max()));
        }
    } catch (const Error&) {
        header.pin.reset();
    }
    return header;
}

PieceCorner ReadPieceCorner(const DecalRecord& record, std::size_t index) {
    FieldReader reader(record, index);
    PieceCorner corner;
    corner.x = reader.Real();
    corner.y = reader.Real();
    corner.startAngle = reader.Real();
    corner.sweep = reader.Real();
    if (corner.StartsArc()) {
        corner.x1 = reader.Real();
        corner.y1 = reader.Real();
        corner.x2 = reader.Real();
        corner.y2 = reader.Real();
    }
    if (record.header.dialect.arcAnglesInTenths) {
        corner.startAngle /= 10;
        corner.sweep /= 10;
    }
    return corner;
}

TextHeader ReadTextHeader(const DecalRecord& record, std::size_t index) {
    FieldReader reader(record, index);
    TextHeader header;
    header.x = reader.Real();
    header.y = reader.Real();
    header.rotation = reader.Real();
    header.layer = reader.Whole();
    header.size = reader.Real();
    header.lineWidth = reader.Real();
    header.mirror = reader.Word() == record.header.dialect.mirrorWord;
    switch (record.header.dialect.textJustification) {
        case TextJustification::None:
            break;
        case TextJustification::Code:
            ReadJustificationCode(reader.Word(), header);
            break;
        case TextJustification::Words:
            header.horizontal = PlaceOfWord(reader.Word(), "RIGHT");
            header.vertical = PlaceOfWord(reader.Word(), "UP");
            break;
    }
    return header;
}

std::size_t TextLineOf(const DecalRecord& record, std::size_t headerIndex) {
    const std::size_t lines = record.header.dialect.linesPerText;
    return headerIndex + (lines > 2 ? lines - 1 : 1);
}

}  // namespace zantor
