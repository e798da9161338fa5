#pragma once

// One decal record in memory: its header values and its body lines, as the reader framed them.
// Only one record is held at a time; ParseDecal (library/decal.h) reads its items once, and the
// pages draw from that model, never from these lines.

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "library/file_header.h"

namespace zantor {

inline constexpr std::size_t kMaxDecalNameLength = 40;
inline constexpr std::size_t kMaxBodyLineLength = 200;

struct DecalCounts {
    std::uint16_t attributes = 0;  // library files only
    std::uint16_t labels = 0;
    std::uint16_t pieces = 0;
    std::uint16_t texts = 0;
    std::uint16_t terminals = 0;
    std::uint16_t stacks = 0;
};

struct DecalRecord {
    FileHeader header;        // of the file the record came from
    std::string fileName;     // the file the record came from, for messages
    std::string name;         // at most kMaxDecalNameLength characters
    std::string unitLetter;   // as written in the decal header ("I", "M", ...)
    double unitFactor = 1.0;  // millimetres per file unit
    DecalCounts counts;
    long headerLineNumber = 0;       // 1-based line number of the decal header in its file
    std::vector<std::string> lines;  // body lines in file order, each cut to kMaxBodyLineLength

    // Index into `lines` of the first line of each section, found by walking the body in its
    // order with the counts. A section that the body is too short for starts at lines.size().
    std::size_t firstPiece = 0;
    std::size_t firstText = 0;
    std::size_t firstTerminal = 0;
    std::size_t firstStack = 0;
    // Index just after the last pad-stack line as the counts say: lines.size() when the counts
    // and the body agree.
    std::size_t endOfStacks = 0;
    // The first attribute line, and the label lines: [firstLabel, endOfLabels).
    std::size_t firstAttribute = 0;
    std::size_t firstLabel = 0;
    std::size_t endOfLabels = 0;

    // The 1-based line number in its file of body line `index` (the body follows its header
    // without a gap); 0 when the header's line number is not known.
    long LineNumberOf(std::size_t index) const;
};

// Walks the body lines of a record. Past the end it yields empty lines, so that counts larger
// than the body leave the cursor at the end of the list.
class LineCursor {
  public:
    LineCursor(const DecalRecord& record, std::size_t position)
        : lines_(&record.lines), position_(position) {}

    bool AtEnd() const { return position_ >= lines_->size(); }
    std::size_t Position() const { return position_; }
    // The current line without advancing ("" at the end).
    const std::string& Peek() const;
    // The current line; the cursor moves to the next one.
    const std::string& Take();

  private:
    const std::vector<std::string>* lines_;
    std::size_t position_;
};

}  // namespace zantor
