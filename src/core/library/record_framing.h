#pragma once

// Where a decal record begins and ends, and where the sections of its body stand, as its header's
// counts and the file dialect lay them out. The decal reader frames records with it, and so can
// any other reader that walks the records of a file (the catalogue): feed it the lines of a file
// after a decal header and it says when the record is over.
//
//     DecalHeaderFields header = ReadDecalHeader(headerLine, dialect, {file, lineNumber});
//     BodyLayout body(dialect, header.counts, header.name, file);
//     while (reader.ReadLine(line) && !EndsRecord(line, dialect, body)) {
//         body.Take(line, reader.LineNumber());
//     }
//     // `line` (unless the file ended) is the blank line, the "*" line or the next decal header
//     // that ended the record; a blank line may be followed by more blank lines.

#include <cstddef>
#include <string>
#include <string_view>

#include "library/decal_record.h"
#include "library/file_dialect.h"
#include "library/words.h"

namespace zantor {

// The fields of a decal header line.
struct DecalHeaderFields {
    std::string name;        // the first word, cut to kMaxDecalNameLength
    std::string unitLetter;  // as written ("I", "M", ...)
    DecalCounts counts;      // the dialect's counts; missing count words read as 0
};

// Reads a decal header line: name, unit letter, the two origin words (not used), then the counts
// in the dialect's order; words after them (a library's maxlayers) are not read. A count that is
// not a number is a ConversionError, one outside 0..65535 a RangeError, both naming `place`, the
// count, the decal and the word.
DecalHeaderFields ReadDecalHeader(std::string_view line, const FileDialect& dialect,
                                  const TextPlace& place);
// The same for a header whose name has been taken off already: `rest` is what follows it.
DecalHeaderFields ReadDecalHeaderAfterName(std::string_view name, std::string_view rest,
                                           const FileDialect& dialect, const TextPlace& place);

// Indices into a record's body lines of the first line of each section. A section the body is too
// short for starts at the number of lines taken.
struct BodySections {
    std::size_t firstPiece = 0;
    std::size_t firstText = 0;
    std::size_t firstTerminal = 0;
    std::size_t firstStack = 0;
    std::size_t endOfStacks = 0;  // just after the last pad-stack line the counts announce
    // The attribute lines (after a TIMESTAMP line) and the label lines, before the pieces or after
    // the texts as the dialect places them.
    std::size_t firstAttribute = 0;
    std::size_t firstLabel = 0;
    std::size_t endOfLabels = 0;
};

// Follows a record body line by line in the dialect's order: an optional TIMESTAMP line, the
// attribute lines and labels (libraries), the pieces (a header whose second word counts its
// corner lines), the texts, the labels after them (PCB files), the terminals and the pad stacks
// (a "PAD" header whose third word counts its lines). Lines beyond what the counts announce are
// taken as well; they belong to no section.
class BodyLayout {
  public:
    // `decalName` and `fileName` are for error messages only.
    BodyLayout(const FileDialect& dialect, const DecalCounts& counts, std::string_view decalName,
               std::string_view fileName);

    // Takes the next body line; `lineNumber` is its 1-based line in the file (0 when unknown).
    // A corner count of a piece header or a line count of a stack header that is not a whole
    // number is a ConversionError naming the decal, the file and the line; a negative count
    // announces no lines. Framing takes any line: a damaged record still ends where it ends.
    void Take(std::string_view line, long lineNumber);
    // Before Take: a FormatError naming the decal, its counts and the line when `line` cannot be
    // the item the counts expect there (a terminal where a piece header is due, a pad stack where
    // a terminal is due): the record's header and its body disagree.
    void CheckAgainstCounts(std::string_view line, long lineNumber) const;

    // Whether the counts announce further lines.
    bool WantsMore() const { return part_ != Part::Done; }
    // Whether the next line the counts announce is one of free text (an attribute line, a line of
    // a label or of a text record), which may begin with anything, "*" included.
    bool WantsFreeText() const;
    // The number of lines taken so far.
    std::size_t Taken() const { return taken_; }
    BodySections Sections() const;

  private:
    enum class Part {
        Lead,
        Attributes,
        LabelsBefore,
        Pieces,
        Texts,
        LabelsAfter,
        Terminals,
        Stacks,
        Done
    };
    static constexpr std::size_t kParts = 9;

    unsigned long long SizeOf(Part part) const;
    void Settle();
    unsigned long long ItemLines(std::string_view line, long lineNumber) const;
    std::size_t StartOf(Part part) const;

    FileDialect dialect_;
    DecalCounts counts_;
    std::string decalName_;
    std::string fileName_;
    Part part_ = Part::Lead;
    unsigned long long left_ = 0;      // lines (or items of pieces and stacks) left in part_
    unsigned long long itemLeft_ = 0;  // lines left of the current piece or stack
    std::size_t taken_ = 0;
    bool timestampSeen_ = false;
    std::size_t starts_[kParts] = {};
    bool entered_[kParts] = {};
};

// Whether a line could be the header of a decal record in a file of `dialect`: a name, a single
// letter, two numbers, then as many whole numbers of 0 or more as the dialect has counts.
bool LooksLikeDecalHeader(std::string_view line, const FileDialect& dialect);

// Whether `line`, the next line of the file after the lines `body` has taken, ends the record
// (and is not part of it): a blank line always does; a line starting with "*" where the dialect
// says so (unless the counts wait for a line of free text); and, in dialects framed by counts, a
// decal header once the counts are read.
bool EndsRecord(std::string_view line, const FileDialect& dialect, const BodyLayout& body);

}  // namespace zantor
