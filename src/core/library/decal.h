#pragma once

// A decal as data: everything a page draws of one decal record, read from its lines once.
//
//     DecalRecord record;                       // DecalReader::ReadRecord or DecalSource::Read
//     const Decal decal = ParseDecal(record);   // the one parse of the record
//
// The pages, the cells of index and parttype pages, the view box and the preview draw from the
// Decal (plot/decal_body.h); none of them reads the record's lines again.
//
// Fields that do not read do not stop the parse. The item keeps what it read and the error
// (a FieldFault), and fails with it when a page draws or measures the item, so that a decal with
// one bad text still lists in the catalogue and fails only where that text is drawn.

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "library/decal_record.h"
#include "library/field_reader.h"
#include "library/file_header.h"
#include "library/pad_stacks.h"
#include "library/terminals.h"

namespace zantor {

// A corner line of a piece.
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
    long line = 0;  // in its file; 0 when unknown
    // The first field that did not read; the fields after it are 0.
    std::optional<FieldFault> fault;

    bool StartsArc() const { return startAngle != 0 || sweep != 0; }
};

// A drawing item: its keyword ("OPEN", "COPCLS", ... or one this program does not know, which
// fails where it is drawn), the fields of its header and its corners.
struct DecalPiece {
    std::string keyword;
    std::int32_t cornerCount = 0;  // as the header says
    double width = 0;              // library units
    std::int32_t layer = 0;
    // The line style of the dialects that write one (1 or -1 solid, -2 dashed, -3 dotted, -4
    // dash-dot, -5 dash-double-dot, 0 the old dotted; keepouts keep restriction bits there).
    std::optional<std::int32_t> lineStyle;
    // The pin of copper, when the header names one. Versions 3 and 4 require a whole number
    // there; later files write other things (keepout restrictions such as "RC"), which are no pin.
    std::optional<std::int32_t> pin;
    std::vector<PieceCorner> corners;  // the corner lines the body has, at most cornerCount
    long line = 0;                     // of the header, in its file

    // The corner count did not read: the body cannot be followed past this piece, which is the
    // last one.
    std::optional<FieldFault> countFault;
    // Width, layer or line style did not read.
    std::optional<FieldFault> fieldFault;
    // The pin word did not read (versions 3 and 4 only); it matters where a pin is wanted.
    std::optional<FieldFault> pinFault;
};

// What a text record is to the page.
enum class TextKind {
    Drawn,  // an ordinary text, drawn with the stroke font
    // A "$ " line: its first word and the number after it are kept for the title block.
    TitleValue,
    // A "@@1 ..." to "@@9 ..." line on the comment layer: listed on decal pages.
    Comment,
};

inline constexpr int kCommentLayer = 30;

struct DecalText {
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
    std::string text;  // the text line as the file has it
    long line = 0;     // of the header, in its file
    // The header did not read; the kind and the fields below are not known then.
    std::optional<FieldFault> fault;

    TextKind kind = TextKind::Drawn;
    // The text without blanks at its ends (Drawn).
    std::string_view Trimmed() const;
    // TitleValue and Comment: the first word of the text, and for comments what follows it.
    std::string firstWord;
    std::string rest;
    int commentNumber = 0;  // 1 to 9 (Comment)
    double titleValue = 0;  // the number after the first word (TitleValue)
    std::optional<FieldFault> titleValueFault;
};

// A label record, as its lines are written (nothing on a page draws labels).
struct DecalLabel {
    std::vector<std::string> lines;
    long line = 0;
};

struct DecalAttribute {
    std::string name;   // without its quotes
    std::string value;  // the rest of the line, without blanks at its ends
    long line = 0;

    friend bool operator==(const DecalAttribute& a, const DecalAttribute& b) {
        return a.name == b.name && a.value == b.value;
    }
};

struct Decal {
    FileHeader header;        // of the file the decal came from: its dialect
    std::string fileName;     // for messages
    std::string name;         // at most kMaxDecalNameLength characters
    std::string unitLetter;   // as written in the decal header ("I", "M", ...)
    double unitFactor = 1.0;  // millimetres per file unit
    DecalCounts counts;       // as the header says; the lists below hold what the body has
    long headerLine = 0;      // 1-based; 0 when unknown

    std::vector<DecalAttribute> attributes;
    std::vector<DecalLabel> labels;
    std::vector<DecalPiece> pieces;
    std::vector<DecalText> texts;

    // The terminals in file order; a terminal line that does not read is a fault of the whole
    // list, raised here.
    const std::vector<TerminalLine>& Terminals() const;
    // The merged pad stacks (ReadPadStacks); a stack line that does not read is a fault of the
    // whole list, raised here.
    const PadStackList& Stacks() const;

    std::vector<TerminalLine> terminals;
    std::optional<FieldFault> terminalFault;
    PadStackList stacks;
    std::optional<FieldFault> stackFault;
};

// Reads every item of `record`. Counts that the body is too short for end the lists at its last
// line. Errors of fields stay with their items (see above).
Decal ParseDecal(const DecalRecord& record);

// The number of ParseDecal calls in this process: a print job parses each record it draws once.
std::size_t DecalParseCount();

// The attributes of the first name `name`, compared without regard to case, as people write
// "Geometry.Height" and "GEOMETRY.HEIGHT" alike; empty when there is none.
std::string AttributeValue(const std::vector<DecalAttribute>& attributes, std::string_view name);

// How the lengths of `decal` are measured (LibraryUnitsOf of its record).
LibraryUnits LibraryUnitsOf(const Decal& decal);

}  // namespace zantor
