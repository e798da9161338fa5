#include "library/attribute_scan.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "common/errors.h"
#include "library/file_header.h"
#include "library/line_reader.h"
#include "library/record_framing.h"
#include "library/words.h"
#include "shell/identification.h"

namespace zantor {
namespace {

constexpr std::size_t kDecalNameShown = 16;
constexpr std::size_t kParttypeNameShown = 40;

// The file as the scan walks it: one line in hand, and whether another follows it.
class ScanLines {
  public:
    explicit ScanLines(const std::filesystem::path& file) : reader_(file) {}

    const std::string& Line() const { return line_; }
    // No line follows the one in hand.
    bool Ended() { return reader_.AtEnd(); }
    // The next line; past the end the line in hand becomes empty and the result is false.
    bool Read() {
        if (!reader_.ReadLine(line_)) {
            line_.clear();
            return false;
        }
        return true;
    }
    TextPlace Place() const { return {reader_.Name(), reader_.LineNumber()}; }
    const std::string& FileName() const { return reader_.Name(); }

    // Passes over the control lines and blank lines before the first record of a library.
    void SkipToFirstRecord() {
        while ((line_.empty() || line_.starts_with('*')) && !Ended()) {
            Read();
        }
    }

  private:
    LineReader reader_;
    std::string line_;
};

bool Contains(std::string_view line, std::string_view text) {
    return line.find(text) != std::string_view::npos;
}

// The attribute name of an attribute line: the text inside the double quotes that open the line,
// or the line's first word. An empty line has none; it is taken as the damaged file it is.
std::string AttributeName(std::string_view line, const TextPlace& place) {
    if (line.empty()) {
        throw RangeError("An attribute line is empty", std::string(place.file), place.line);
    }
    if (line.front() == '"') {
        const std::size_t close = line.find('"', 1);
        return std::string(line.substr(1, close == std::string_view::npos ? close : close - 1));
    }
    return std::string(TakeWord(line));
}

void AddName(std::string_view line, const TextPlace& place, AttributeList& attributes) {
    std::string name = AttributeName(line, place);
    if (name.empty()) {
        return;
    }
    const bool known = std::any_of(attributes.begin(), attributes.end(),
                                   [&](const AttributeEntry& entry) { return entry.name == name; });
    if (!known) {
        attributes.push_back({std::move(name), false});
    }
}

// Decal scans test this only between records, after the first: the record being read adds all
// its names, so even a full list gains the names of one decal.
bool ListFull(const AttributeList& attributes) {
    return attributes.size() >= kMaxAttributes;
}

// Library records of versions 3 and 4, headerless libraries and parttype libraries: the header,
// the attribute lines its count announces, the rest of the record up to an empty line. A decal
// header's count is its sixth word, a parttype header's its fifth. Newer parttype libraries put a
// TIMESTAMP line between the header and the attributes.
void ScanLibraryRecords(ScanLines& lines, ScanKind kind, bool timestampLine,
                        AttributeList& attributes, ScanDisplay& display) {
    const bool decals = kind == ScanKind::Decals;
    lines.SkipToFirstRecord();
    for (bool first = true;; first = false) {
        // Records are separated by one empty line; a second one would be taken for a header.
        while (lines.Line().empty() && !lines.Ended()) {
            lines.Read();
        }
        if (lines.Line().starts_with('*') || (!first && ListFull(attributes)) || lines.Ended()) {
            return;
        }
        std::string_view rest = lines.Line();
        display.ShowItem(CutTo(TakeWord(rest), decals ? kDecalNameShown : kParttypeNameShown));
        for (int word = 2; word < (decals ? 6 : 5); ++word) {
            TakeWord(rest);
        }
        const long long count = WholeNumber(TrimBlanks(TakeWord(rest)), lines.Place());

        bool lineInHand = false;  // a line read ahead that is not a TIMESTAMP line
        if (timestampLine) {
            lines.Read();
            lineInHand = !lines.Line().starts_with("TIMESTAMP");
        }
        for (long long i = 0; i < count; ++i) {
            if (!decals && ListFull(attributes)) {
                break;
            }
            if (!lineInHand) {
                lines.Read();
            }
            lineInHand = false;
            AddName(lines.Line(), lines.Place(), attributes);
        }
        // The rest of the record, the empty line after it, and the next record's header.
        do {
            if (!lineInHand) {
                lines.Read();
            }
            lineInHand = false;
        } while (!lines.Line().empty() && !lines.Ended());
        lines.Read();
    }
}

// Decal libraries after version 4: each record is framed by its header's counts (a record may be
// followed directly by "*END*" or the next header), the attribute count is the header's
// attribute field, and a TIMESTAMP line may stand before the attribute lines.
void ScanNewerDecalLibrary(ScanLines& lines, const FileDialect& dialect, AttributeList& attributes,
                           ScanDisplay& display) {
    lines.SkipToFirstRecord();
    for (bool first = true;; first = false) {
        while (IsBlankLine(lines.Line()) && !lines.Ended()) {
            lines.Read();
        }
        if (lines.Line().starts_with('*') || (!first && ListFull(attributes)) || lines.Ended()) {
            return;
        }
        const DecalHeaderFields header = ReadDecalHeader(lines.Line(), dialect, lines.Place());
        display.ShowItem(CutTo(header.name, kDecalNameShown));
        BodyLayout body(dialect, header.counts, header.name, lines.FileName());
        std::size_t attributesLeft = header.counts.attributes;
        bool firstLine = true;
        while (lines.Read()) {
            const bool timestamp =
                firstLine && dialect.timestampLine && lines.Line().starts_with("TIMESTAMP");
            firstLine = false;
            if (!timestamp && attributesLeft > 0) {
                AddName(lines.Line(), lines.Place(), attributes);
                --attributesLeft;
            } else if (EndsRecord(lines.Line(), dialect, body)) {
                break;
            }
            body.Take(lines.Line(), lines.Place().line);
        }
    }
}

// PCB files: the blocks of "ATTRIBUTE VALUES" in the "*MISC*" section, "DECAL name" or
// "PARTTYPE name", then "{", the attribute lines and "}".
void ScanPcbFile(ScanLines& lines, ScanKind kind, AttributeList& attributes, ScanDisplay& display) {
    const bool decals = kind == ScanKind::Decals;
    const std::string_view keyword = decals ? "DECAL" : "PARTTYPE";
    while (!Contains(lines.Line(), "*MISC*") && !lines.Ended()) {
        lines.Read();
    }
    while (!Contains(lines.Line(), "ATTRIBUTE VALUES") && !lines.Ended()) {
        lines.Read();
    }
    for (;;) {
        while (!lines.Line().starts_with(keyword) && !lines.Ended()) {
            lines.Read();
        }
        if (!lines.Ended()) {
            std::string_view rest = lines.Line();
            TakeWord(rest);
            display.ShowItem(CutTo(TakeWord(rest), decals ? kDecalNameShown : kParttypeNameShown));
            lines.Read();  // "{"
            lines.Read();
            for (;;) {
                if (lines.Line().empty()) {
                    throw RangeError("An attribute line is empty", lines.FileName(),
                                     lines.Place().line);
                }
                if (lines.Line().starts_with('}') || ListFull(attributes)) {
                    break;
                }
                AddName(lines.Line(), lines.Place(), attributes);
                lines.Read();
            }
        }
        if (Contains(lines.Line(), "*END") || lines.Ended()) {
            return;
        }
    }
}

// Ends the display however the scan ends.
class DisplayScope {
  public:
    explicit DisplayScope(ScanDisplay& display) : display_(display) { display_.Begin(); }
    ~DisplayScope() { display_.End(); }
    DisplayScope(const DisplayScope&) = delete;
    DisplayScope& operator=(const DisplayScope&) = delete;

  private:
    ScanDisplay& display_;
};

}  // namespace

void ScanAttributes(const std::filesystem::path& file, ScanKind kind, AttributeList& attributes,
                    ScanDisplay& display) {
    ScanLines lines(file);
    DisplayScope scope(display);
    lines.Read();
    const FileHeader header = AnalyseHeader(lines.Line());
    if (header.pcbFile) {
        ScanPcbFile(lines, kind, attributes, display);
    } else if (kind == ScanKind::Decals && header.version == 5 &&
               header.product == FileProduct::DecalLibrary) {
        ScanNewerDecalLibrary(lines, header.dialect, attributes, display);
    } else {
        const bool timestampLine = header.version == 5 && header.product != FileProduct::Unknown;
        ScanLibraryRecords(lines, kind, timestampLine, attributes, display);
    }
}

void ScanFileCommand(const std::filesystem::path& file, PlotKind kind, AttributeList& attributes,
                     UserMessages& messages, ScanDisplay& display) {
    std::error_code error;
    if (!std::filesystem::is_regular_file(file, error)) {
        messages.ShowError("File: " + file.string() + " not found.");
        return;
    }
    if (kind == PlotKind::Index) {
        return;
    }
    const bool parttypes = kind == PlotKind::Parttype;
    if (!(parttypes ? IsParttypeFile(file) : IsDecalFile(file))) {
        messages.ShowError(parttypes ? "No parttypes found in file." : "No decals found in file.");
        return;
    }
    if (messages.AskYesNo("Erase current attribute-list?")) {
        attributes.clear();
    }
    ScanAttributes(file, parttypes ? ScanKind::Parttypes : ScanKind::Decals, attributes, display);
}

}  // namespace zantor
