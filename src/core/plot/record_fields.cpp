#include "plot/record_fields.h"

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
    FieldReader reader(record, index);
    PieceHeader header;
    header.keyword = std::string(reader.Word());
    header.corners = reader.Whole();
    header.width = reader.Real();
    header.layer = reader.Whole();
    if (readPin) {
        header.pin = reader.OptionalWhole();
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
    header.mirror = reader.Word() == "M";
    return header;
}

}  // namespace zantor
