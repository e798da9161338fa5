#pragma once

// Parttype records: the typed model of one parttype and the reader that walks the parttypes of a
// parttype library (".p") or of the "*PARTTYPE*" section of a PCB ASCII file.
//
// A record is a header line, then (libraries) a TIMESTAMP line and the attribute lines, then the
// gates with their pins, the signal pins and the alphanumeric pin names. The header's counts say
// how many of each follow, so a record ends where its counts say: some writers put the next
// header right after the last line of a record, without a blank line between them.
//
//     ParttypeReader reader(file);
//     Parttype parttype;
//     while (reader.Next(parttype)) { ... }

#include <cstddef>
#include <filesystem>
#include <ios>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "library/file_header.h"
#include "library/line_reader.h"
#include "library/words.h"

namespace zantor {

// The alternate PCB decals one parttype can name; one more is a RangeError.
inline constexpr std::size_t kMaxParttypeDecals = 16;
// A parttype name as the catalogue lists it.
inline constexpr std::size_t kMaxParttypeNameLength = 40;

struct ParttypeAttribute {
    std::string name;   // without its quotes
    std::string value;  // as written after the name, may be empty
};

struct ParttypePin {
    std::string number;  // as written: "1", "A12", "MH2"
    std::string swap;    // swap type ("" when the gate kind has none)
    std::string type;    // pin type letter(s): U, S, L, G, P, ...
    std::string name;    // the pin's function name, may be empty
};

struct ParttypeGate {
    // "GATE", "CONN" or another keyword of a library record; "G" in a PCB file.
    std::string kind;
    std::string swap;                 // the gate's swap type as written
    std::vector<std::string> decals;  // the gate's schematic decals (libraries)
    std::vector<ParttypePin> pins;
};

struct ParttypeSignalPin {
    std::string pin;
    std::string width;  // PCB files only
    std::string signal;
};

// Where the fields of a parttype header stand in one kind and version of file.
struct ParttypeLayout {
    // A unit letter stands between the decal list and the logic family.
    bool unitsWord = true;
    // Words after the logic family: the attribute count (0: none), gate, signal-pin and pin-name
    // counts, 1-based.
    std::size_t attributeWord = 1;
    std::size_t gateWord = 2;
    std::size_t signalPinWord = 3;
    std::size_t pinNameWord = 4;
    // Versions 3 and 4: whether the attribute count is there depends on the number of words.
    bool legacy = false;
    // A PCB file: gate pins are words "pin.swap.type.name" wrapped over lines.
    bool pcbFile = false;
};

// The layout of the parttype headers of a file.
ParttypeLayout ParttypeLayoutFor(const FileHeader& header);

struct ParttypeCounts {
    std::size_t attributes = 0;
    std::size_t gates = 0;
    std::size_t signalPins = 0;
    std::size_t pinNames = 0;
};

struct ParttypeHeaderFields {
    std::string name;                 // cut to kMaxParttypeNameLength
    std::vector<std::string> decals;  // the ":"-separated decal list, in order
    std::string unitLetter;           // "" where the layout has none
    std::string logicFamily;
    ParttypeCounts counts;
};

// Reads a parttype header line. A header without a logic family or without words after it is a
// FormatError; more than 16 decals a RangeError; a count that is not a whole number of 0 or more
// a ConversionError or RangeError; each names `place`.
ParttypeHeaderFields ReadParttypeHeader(std::string_view line, const ParttypeLayout& layout,
                                        const TextPlace& place);

// Whether a line could be a parttype header of `layout`: name, decal list, unit letter where the
// layout has one, logic family and whole numbers for the counts up to the pin-name count.
bool LooksLikeParttypeHeader(std::string_view line, const ParttypeLayout& layout);

struct Parttype {
    std::string name;
    std::vector<std::string> decals;
    std::string unitLetter;
    std::string logicFamily;
    std::string timestamp;  // "" when the record has none
    std::vector<ParttypeAttribute> attributes;
    std::vector<ParttypeGate> gates;
    std::vector<ParttypeSignalPin> signalPins;
    std::vector<std::string> pinNames;  // alphanumeric pin names in pin-number order
    long headerLineNumber = 0;

    // The number of gate pins.
    std::size_t PinCount() const;
    // The value of attribute `name` (exact comparison), or nullptr.
    const std::string* Attribute(std::string_view name) const;
    // The pin as a table shows it: the alphanumeric name of a pin number the record names, the
    // number text of a numeric pin from 1 to 2048, and otherwise the pin as written.
    std::string PinLabel(const ParttypePin& pin) const;
};

// Follows the body of a parttype record line by line by its header's counts.
class ParttypeBody {
  public:
    explicit ParttypeBody(const ParttypeCounts& counts);

    // Takes the next body line into `parttype` (when given). A count in a gate header that is
    // not a whole number is a ConversionError naming `place`.
    void Take(std::string_view line, const TextPlace& place, Parttype* parttype = nullptr);
    // Whether the counts announce further lines.
    bool WantsMore() const { return part_ != Part::Done; }
    // Whether the next line the counts announce is an attribute line, whose value is free text.
    // Any other line that looks like a parttype header begins the next record: a record whose
    // counts promise more than it holds ends there.
    bool WantsFreeText() const { return part_ == Part::Attributes; }

  private:
    enum class Part {
        Lead,
        Attributes,
        GateHeader,
        GateDecals,
        GatePins,
        SignalPins,
        PinNames,
        Done
    };
    void Settle();
    void TakeGateHeader(std::string_view line, const TextPlace& place, Parttype* parttype);
    void TakePins(std::string_view line, Parttype* parttype);

    ParttypeCounts counts_;
    Part part_ = Part::Lead;
    std::size_t left_ = 0;       // items left in part_
    std::size_t gatesLeft_ = 0;  // gates not yet begun
    std::size_t decalsLeft_ = 0;
    std::size_t pinsLeft_ = 0;
    bool wordPins_ = false;  // the current gate's pins are words "pin.swap.type.name"
    bool started_ = false;   // a line has been taken
};

// Where a parttype record stands in its file, for going back to it.
struct ParttypePosition {
    std::streamoff offset = 0;
    long lineNumber = 0;
};

class ParttypeReader {
  public:
    // Opens `file` (IoError when it cannot be) and goes to its first parttype: after a library's
    // header line, or to the record after the "*PARTTYPE*" line of a PCB file.
    explicit ParttypeReader(const std::filesystem::path& file);

    const FileHeader& Header() const { return header_; }
    const ParttypeLayout& Layout() const { return layout_; }
    const std::string& FileName() const { return lines_.Name(); }

    // Reads the next record; false once the records end (a section line such as "*END*", or the
    // end of the file). Errors of a header or a count throw, naming the file and line.
    bool Next(Parttype& parttype);

    // The position of the record Next will read.
    ParttypePosition Position() const;
    // Goes back to a position found with Position.
    void SeekTo(const ParttypePosition& position);

    // The positions of every record by name (the first of a name wins), found in one pass; the
    // reader then stands at the end of the records.
    std::unordered_map<std::string, ParttypePosition> LocateAll();

  private:
    bool ReadLine();
    void SkipToRecord();

    LineReader lines_;
    FileHeader header_;
    ParttypeLayout layout_;
    std::string line_;
    bool ended_ = false;
    ParttypePosition here_;
};

// Whether a line is a section line: a keyword between stars ("*END*", "*PART*   ITEMS").
bool IsSectionLine(std::string_view line);

}  // namespace zantor
