#pragma once

// Reads decal records from a decal library or from the "*PARTDECAL*" section of a PCB ASCII file.
// The reader keeps the file open and stands on one "current line" at a time, the way a print job
// walks through the file: it finds a decal by name from where it stands (or from the start), then
// reads that decal's record into a DecalRecord. Only the current line and one record are held.

#include <filesystem>
#include <ios>
#include <span>
#include <string>
#include <string_view>
#include <unordered_map>

#include "library/decal_record.h"
#include "library/file_header.h"
#include "library/line_reader.h"
#include "library/record_framing.h"

namespace zantor {

// Millimetres per file unit.
inline constexpr double kBasicUnitFactor = 6.666666666666667e-07;  // 1/38100000 inch
inline constexpr double kMilUnitFactor = 0.0254;
inline constexpr double kMillimetreUnitFactor = 1.0;

inline constexpr double kInchUnitFactor = 25.4;

// The unit factor of a decal: BASIC units of a PCB file win over the letter; "I" is mils; any
// other letter is taken as millimetres.
double UnitFactorFor(std::string_view unitLetter, bool basicUnits);
// The unit factor of a decal of a file with `header`. PCB files of releases after version 4 write
// every number in the units their header names (BASIC, MILS, METRIC or MM, INCHES or INCH), so
// there the decal's letter only says what it was drawn in; everywhere else UnitFactorFor.
double DecalUnitFactor(const FileHeader& header, std::string_view unitLetter);

// Sets firstPiece, firstText, firstTerminal, firstStack and endOfStacks of a record from its
// counts, its header's dialect and the corner and stack line counts in its body (BodyLayout).
// Counts beyond the body end at lines.size(). A corner or stack line count that is not a number
// is a ConversionError naming the file and line.
void LocateSections(DecalRecord& record);

// The line where a search for a decal name stops: its first byte in the file and its number.
struct DecalPosition {
    std::streamoff offset = 0;
    long lineNumber = 0;
    // The name stands alone on the line, so the search fails there.
    bool standsAlone = false;
};

// Names (cut to kMaxDecalNameLength) and where FindDecal stops for them; a name FindDecal would
// not find has no entry.
using DecalPositions = std::unordered_map<std::string, DecalPosition>;

class DecalReader {
  public:
    // Opens `file` (IoError with the reason when it cannot be) and analyses its first line,
    // which becomes the current line.
    explicit DecalReader(const std::filesystem::path& file);

    const FileHeader& Header() const { return header_; }
    const std::string& FileName() const { return lines_.Name(); }

    // The line the reader stands on ("" once the file has ended) and its 1-based number.
    const std::string& CurrentLine() const { return line_; }
    long CurrentLineNumber() const { return ended_ ? 0 : lines_.LineNumber(); }
    // Whether the reader has run past the last line.
    bool Ended() const { return ended_; }

    // Back to the first line of the file, which becomes the current line again.
    void Rewind();
    // PCB files: reads on to the "*PARTDECAL*" line, takes the next line and skips "*REMARK*"
    // lines and blank lines; the first decal header is then the current line (or the file has
    // ended). Library files need no positioning: their decals follow the first line.
    void PositionAtDecals();
    // Rewind, then PositionAtDecals for a PCB file: where a print job starts each search in one.
    void RestartAtDecals();

    // Searches from the current line on, the current line included: each line's first word, cut
    // to kMaxDecalNameLength, is compared exactly with `name` (cut the same way). In files framed
    // by blank lines (versions 3 and 4) any line is tested, not only decal headers; in files
    // framed by counts the search goes record by record (as FindDecalFromStart, from here) and
    // a "*" line other than "*REMARK*" ends it. True when a line with that first word and
    // further words is found; ReadRecord then reads its record. False at the end of the file (or
    // of the decals), or when the name stands alone on its line (no header follows it; the
    // reader stays on that line).
    bool FindDecal(std::string_view name);
    // Searches from the file's start header by header, for jobs that look a name up in several
    // files: after a header that does not match, its record is passed over (up to the next line
    // without a first word, or as the dialect frames records), and the next line that is not
    // blank is the next header. Libraries start after their header line, PCB files at the first
    // decal header.
    bool FindDecalFromStart(std::string_view name);

    // Where FindDecal, started from the current line, would stop for each of `names`, found in
    // one pass over the rest of the file instead of one search per name. A print job that
    // starts every search of a PCB file at its decals (RestartAtDecals) looks its selection up
    // here once and then goes to each decal with FindDecalAt. The pass ends at the file's end,
    // where a search would, or once every name is placed; the reader then stands wherever the
    // pass ended.
    DecalPositions LocateDecals(std::span<const std::string> names);
    // Goes to the line of `position` and ends there as FindDecal would: true when ReadRecord can
    // read the decal's record, false when the name stands alone on the line.
    bool FindDecalAt(const DecalPosition& position);

    // Reads the record whose header the last successful search stopped at: unit letter and
    // factor, the counts of the dialect, then the body lines as the dialect frames them (up to
    // the next blank line, a "*" line where the dialect ends records there, a decal header after
    // the counted lines, or the end of the file), and locates the sections. Afterwards the
    // current line is the line that ended the record. A count that is not a number is a
    // ConversionError, one outside 0..65535 a RangeError, both naming file, line and the word.
    void ReadRecord(DecalRecord& record);

    // Reads every decal record of the file in order, one per call, from the file's start on the
    // first call: the records of a library (after its header line, if it has one) or of a PCB
    // file's "*PARTDECAL*" section. Blank lines between records are skipped (and "*REMARK*"
    // lines in files framed by counts); another line that starts with "*" ends the list. False
    // when no record is left.
    bool NextRecord(DecalRecord& record);

  private:
    bool Advance();
    void ReadBody(DecalRecord& record);
    // RestartAtDecals, and past a library's header line.
    void StartAtFirstRecord();
    void SkipBlankLines();
    // Blank lines, and "*REMARK*" lines where records are framed by counts.
    void SkipToRecord();
    bool FramedByCounts() const { return header_.dialect.framing == Framing::Counts; }
    // The record-by-record search of files framed by counts, from the current line.
    bool SearchRecords(std::string_view name);
    // From a header that is not the one looked for to the line that ends its record.
    void PassOverRecord();
    // Remembers the current line as the found header of `name`.
    void MarkFound(std::string_view name, std::string_view rest);

    LineReader lines_;
    FileHeader header_;
    std::string line_;
    bool ended_ = false;
    // Set by a successful search: the matched name and the header words after it.
    bool found_ = false;
    std::string foundName_;
    std::string foundRest_;
    long foundLine_ = 0;
    bool iterating_ = false;
};

}  // namespace zantor
