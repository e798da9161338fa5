#include "library/decal_reader.h"

#include <stdexcept>
#include <unordered_set>

#include "common/errors.h"
#include "library/words.h"

namespace zantor {
namespace {

constexpr std::string_view kDecalSection = "*PARTDECAL*";
constexpr std::string_view kRemark = "*REMARK*";

std::string_view FirstWord(std::string_view line) {
    return TakeWord(line);
}

}  // namespace

double UnitFactorFor(std::string_view unitLetter, bool basicUnits) {
    if (basicUnits) {
        return kBasicUnitFactor;
    }
    return unitLetter == "I" ? kMilUnitFactor : kMillimetreUnitFactor;
}

double DecalUnitFactor(const FileHeader& header, std::string_view unitLetter) {
    if (header.pcbFile && header.version == 5) {
        switch (header.units) {
            case FileUnits::Basic:
                return kBasicUnitFactor;
            case FileUnits::Mils:
                return kMilUnitFactor;
            case FileUnits::Millimetres:
                return kMillimetreUnitFactor;
            case FileUnits::Inches:
                return kInchUnitFactor;
            case FileUnits::Unstated:
                break;
        }
    }
    return UnitFactorFor(unitLetter, header.basicUnits);
}

void LocateSections(DecalRecord& record) {
    BodyLayout layout(record.header.dialect, record.counts, record.name, record.fileName);
    // Records framed by their counts must hold what the counts say; older files are framed by
    // blank lines and read as far as their bodies go.
    const bool checked = record.header.dialect.framing == Framing::Counts;
    for (std::size_t i = 0; i < record.lines.size(); ++i) {
        if (checked) {
            layout.CheckAgainstCounts(record.lines[i], record.LineNumberOf(i));
        }
        layout.Take(record.lines[i], record.LineNumberOf(i));
    }
    const BodySections sections = layout.Sections();
    record.firstPiece = sections.firstPiece;
    record.firstText = sections.firstText;
    record.firstTerminal = sections.firstTerminal;
    record.firstStack = sections.firstStack;
    record.endOfStacks = sections.endOfStacks;
    record.firstAttribute = sections.firstAttribute;
    record.firstLabel = sections.firstLabel;
    record.endOfLabels = sections.endOfLabels;
}

DecalReader::DecalReader(const std::filesystem::path& file) : lines_(file) {
    Advance();
    header_ = AnalyseHeader(line_);
}

bool DecalReader::Advance() {
    if (ended_ || !lines_.ReadLine(line_)) {
        line_.clear();
        ended_ = true;
        return false;
    }
    return true;
}

void DecalReader::Rewind() {
    lines_.Rewind();
    ended_ = false;
    found_ = false;
    iterating_ = false;
    Advance();
}

void DecalReader::PositionAtDecals() {
    if (!header_.pcbFile) {
        return;
    }
    while (line_.find(kDecalSection) == std::string::npos) {
        if (!Advance()) {
            return;
        }
    }
    if (!Advance()) {
        return;
    }
    while (line_.find(kRemark) != std::string::npos || IsBlankLine(line_)) {
        if (!Advance()) {
            return;
        }
    }
}

void DecalReader::RestartAtDecals() {
    Rewind();
    PositionAtDecals();
}

void DecalReader::MarkFound(std::string_view name, std::string_view rest) {
    found_ = true;
    foundName_ = name;
    foundRest_ = rest;
    foundLine_ = lines_.LineNumber();
}

bool DecalReader::FindDecal(std::string_view name) {
    found_ = false;
    if (FramedByCounts()) {
        // A library searched from its first line starts after the file header.
        if (lines_.LineNumber() == 1 && !header_.pcbFile &&
            (line_.starts_with('*') || line_.starts_with('!'))) {
            Advance();
        }
        return SearchRecords(name);
    }
    const std::string_view wanted = CutTo(name, kMaxDecalNameLength);
    for (;;) {
        std::string_view rest = line_;
        if (CutTo(TakeWord(rest), kMaxDecalNameLength) == wanted) {
            if (IsBlankLine(rest)) {
                return false;
            }
            MarkFound(wanted, rest);
            return true;
        }
        if (!Advance()) {
            return false;
        }
    }
}

bool DecalReader::FindDecalFromStart(std::string_view name) {
    StartAtFirstRecord();
    if (FramedByCounts()) {
        found_ = false;
        return SearchRecords(name);
    }
    const std::string_view wanted = CutTo(name, kMaxDecalNameLength);
    for (;;) {
        SkipBlankLines();
        if (ended_) {
            return false;
        }
        std::string_view rest = line_;
        if (CutTo(TakeWord(rest), kMaxDecalNameLength) == wanted) {
            return FindDecal(name);
        }
        // Pass over the record: its end is the first line without a first word.
        while (Advance() && !TrimBlanks(FirstWord(line_)).empty()) {
        }
    }
}

DecalPositions DecalReader::LocateDecals(std::span<const std::string> names) {
    found_ = false;
    DecalPositions positions;
    // Views into `names`: the lines' first words are looked up without a copy.
    std::unordered_set<std::string_view> wanted;
    for (const std::string& name : names) {
        wanted.insert(CutTo(name, kMaxDecalNameLength));
    }
    // A search stops at the first line that has the name as its first word, whether a header
    // follows it or not.
    const auto take = [&](std::string_view word, std::string_view rest) {
        const auto at = wanted.find(CutTo(word, kMaxDecalNameLength));
        if (at == wanted.end()) {
            return;
        }
        positions.emplace(std::string(*at), DecalPosition{lines_.LineStart(), lines_.LineNumber(),
                                                          IsBlankLine(rest)});
        wanted.erase(at);
    };
    if (FramedByCounts()) {
        if (lines_.LineNumber() == 1 && !header_.pcbFile &&
            (line_.starts_with('*') || line_.starts_with('!'))) {
            Advance();
        }
        // Record by record, as SearchRecords goes: every search passes over the same records.
        while (!wanted.empty()) {
            SkipToRecord();
            if (ended_ || line_.starts_with('*')) {
                break;
            }
            std::string_view rest = line_;
            take(TakeWord(rest), rest);
            PassOverRecord();
        }
        return positions;
    }
    while (!ended_ && !wanted.empty()) {
        std::string_view rest = line_;
        take(TakeWord(rest), rest);
        Advance();
    }
    return positions;
}

bool DecalReader::FindDecalAt(const DecalPosition& position) {
    found_ = false;
    iterating_ = false;
    ended_ = false;
    lines_.SeekLine(position.offset, position.lineNumber);
    if (!Advance()) {
        throw IoError("the file changed while it was read: line " +
                          std::to_string(position.lineNumber) + " is gone",
                      FileName());
    }
    std::string_view rest = line_;
    const std::string_view name = CutTo(TakeWord(rest), kMaxDecalNameLength);
    if (IsBlankLine(rest)) {
        return false;
    }
    MarkFound(name, rest);
    return true;
}

bool DecalReader::SearchRecords(std::string_view name) {
    const std::string_view wanted = CutTo(name, kMaxDecalNameLength);
    for (;;) {
        SkipToRecord();
        if (ended_ || line_.starts_with('*')) {
            return false;
        }
        std::string_view rest = line_;
        if (CutTo(TakeWord(rest), kMaxDecalNameLength) == wanted) {
            if (IsBlankLine(rest)) {
                return false;
            }
            MarkFound(wanted, rest);
            return true;
        }
        PassOverRecord();
    }
}

void DecalReader::PassOverRecord() {
    const FileDialect& dialect = header_.dialect;
    // A record whose header or counts cannot be read is passed over up to its blank line: the
    // search is after another record, and that one's errors are for the job that prints it.
    try {
        const DecalHeaderFields fields =
            ReadDecalHeader(line_, dialect, TextPlace{FileName(), lines_.LineNumber()});
        BodyLayout body(dialect, fields.counts, fields.name, FileName());
        while (Advance() && !EndsRecord(line_, dialect, body)) {
            body.Take(line_, lines_.LineNumber());
        }
    } catch (const Error&) {
        while (Advance() && !IsBlankLine(line_) && !line_.starts_with('*')) {
        }
    }
}

void DecalReader::ReadRecord(DecalRecord& record) {
    if (!found_) {
        throw std::logic_error("DecalReader::ReadRecord called without a found decal header");
    }
    found_ = false;
    record.header = header_;
    record.fileName = FileName();
    record.name = foundName_;
    record.headerLineNumber = foundLine_;

    const DecalHeaderFields fields = ReadDecalHeaderAfterName(
        foundName_, foundRest_, header_.dialect, TextPlace{FileName(), foundLine_});
    record.unitLetter = fields.unitLetter;
    record.unitFactor = DecalUnitFactor(header_, record.unitLetter);
    record.counts = fields.counts;
    ReadBody(record);
    LocateSections(record);
}

void DecalReader::ReadBody(DecalRecord& record) {
    record.lines.clear();
    const FileDialect& dialect = header_.dialect;
    BodyLayout body(dialect, record.counts, record.name, record.fileName);
    while (Advance() && !EndsRecord(line_, dialect, body)) {
        record.lines.emplace_back(CutTo(line_, kMaxBodyLineLength));
        // Only the end of the counted lines matters here; a count that is no number is reported
        // when the sections are located.
        if (dialect.framing == Framing::Counts) {
            try {
                body.Take(line_, lines_.LineNumber());
            } catch (const ConversionError&) {
                while (Advance() && !IsBlankLine(line_) && !line_.starts_with('*')) {
                    record.lines.emplace_back(CutTo(line_, kMaxBodyLineLength));
                }
                return;
            }
        }
    }
}

bool DecalReader::NextRecord(DecalRecord& record) {
    if (!iterating_) {
        StartAtFirstRecord();
        iterating_ = true;
    }
    SkipToRecord();
    if (ended_ || line_.starts_with('*')) {
        return false;
    }
    std::string_view rest = line_;
    MarkFound(CutTo(TakeWord(rest), kMaxDecalNameLength), rest);
    ReadRecord(record);
    return true;
}

void DecalReader::StartAtFirstRecord() {
    RestartAtDecals();
    // A library's first line is its file header, whatever it looks like (an indented header
    // included), never a record: the catalogue offers nothing from it either.
    if (!header_.pcbFile) {
        Advance();
    }
}

void DecalReader::SkipBlankLines() {
    while (!ended_ && IsBlankLine(line_)) {
        Advance();
    }
}

void DecalReader::SkipToRecord() {
    while (!ended_ && (IsBlankLine(line_) || (FramedByCounts() && line_.starts_with(kRemark)))) {
        Advance();
    }
}

}  // namespace zantor
