#pragma once

// The field layout of the piece and text lines of a decal record. Every reader of those lines
// goes through here, so that a file dialect with other fields changes this file only.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "library/decal_record.h"

namespace zantor {

// Takes blank-separated words off the front of a line with the shared word operations and
// converts them. A number that does not convert is a ConversionError (a RangeError when it is too
// large) naming the line; a missing word reads as 0.
class FieldReader {
  public:
    // `file` and `lineNumber` say where the line stands (empty and 0 when unknown), for the error
    // message.
    FieldReader(std::string_view line, std::string_view file, long lineNumber)
        : rest_(line), file_(file), lineNumber_(lineNumber) {}
    // Body line `index` of `record` (an empty line past its end).
    FieldReader(const DecalRecord& record, std::size_t index);

    std::string_view Word();
    double Real();
    std::int32_t Whole();
    // The whole number of the next word, or nullopt when the line has no word left.
    std::optional<std::int32_t> OptionalWhole();
    // What is left of the line after the last word and the one blank after it, without trailing
    // blanks (blanks after that first one stay).
    std::string_view Rest();

  private:
    std::string_view rest_;
    std::string_view file_;
    long lineNumber_;
};

// Body line `index` of `record`, or "" past its end.
const std::string& BodyLine(const DecalRecord& record, std::size_t index);

struct PieceHeader {
    std::string keyword;
    std::int32_t corners = 0;
    double width = 0;  // library units
    std::int32_t layer = 0;
    // The line style of the dialects that write one (1 or -1 solid, -2 dashed, -3 dotted, -4
    // dash-dot, -5 dash-double-dot, 0 the old dotted; keepouts keep restriction bits there).
    std::optional<std::int32_t> lineStyle;
    std::optional<std::int32_t> pin;  // only read when the caller asks for it
};

// The keyword alone, read before the other fields so that an unknown piece is reported even when
// its fields are not numbers.
std::string ReadPieceKeyword(const DecalRecord& record, std::size_t index);
// Keyword and corner count only (what walking the pieces needs).
PieceHeader ReadPieceCornerCount(const DecalRecord& record, std::size_t index);
// All fields, where the record's dialect puts them (its pieceLayout); `readPin`: whether a pin
// number may follow the layer (and line style). In versions 3 and 4 that word must be a whole
// number when it is there; later files may write other things there (keepout restrictions such as
// "RC"), so a word that is no whole number is no pin.
PieceHeader ReadPieceHeader(const DecalRecord& record, std::size_t index, bool readPin);

struct PieceCorner {
    double x = 0;
    double y = 0;
    // Degrees, whatever the file writes (dialects with tenths of a degree are converted).
    double startAngle = 0;
    double sweep = 0;  // degrees, positive counter-clockwise
    // The box of the arc's circle; read only when an angle is not 0.
    double x1 = 0;
    double y1 = 0;
    double x2 = 0;
    double y2 = 0;

    bool StartsArc() const { return startAngle != 0 || sweep != 0; }
};

PieceCorner ReadPieceCorner(const DecalRecord& record, std::size_t index);

struct TextHeader {
    double x = 0;
    double y = 0;
    double rotation = 0;
    std::int32_t layer = 0;
    double size = 0;
    double lineWidth = 0;  // library units
    bool mirror = false;   // the 7th word is the dialect's mirrorWord ("M", or "1" in libraries)
    // Which point of the text the position is, in files that say so: 0 the left end (or the
    // bottom), 1 the centre, 2 the right end (or the top). Without a justification both are 0,
    // the left end of the baseline.
    int horizontal = 0;
    int vertical = 0;
};

TextHeader ReadTextHeader(const DecalRecord& record, std::size_t index);

// The body line that holds the text of the text record whose header is body line
// `headerIndex`: the record's last line, after its header and any font line.
std::size_t TextLineOf(const DecalRecord& record, std::size_t headerIndex);

}  // namespace zantor
