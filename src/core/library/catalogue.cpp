#include "library/catalogue.h"

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <filesystem>
#include <limits>
#include <optional>
#include <string>
#include <system_error>
#include <unordered_map>
#include <utility>

#include "common/errors.h"
#include "library/decal_record.h"
#include "library/file_header.h"
#include "library/line_reader.h"
#include "library/parttype.h"
#include "library/record_framing.h"
#include "library/words.h"
#include "shell/identification.h"

namespace zantor {
namespace {

constexpr std::string_view kDecalSection = "*PARTDECAL*";
constexpr std::string_view kParttypeSection = "*PARTTYPE*";
constexpr std::string_view kPartSection = "*PART*";
constexpr std::string_view kRemark = "*REMARK*";
constexpr std::string_view kReuse = ".REUSE.";
constexpr std::string_view kHeaderError = "Header-error in ASCII-file: ";
constexpr std::size_t kMaxLogicFamilyLength = 3;

// The catalogue takes its words its own way: before a blank-separated word is taken, the line
// is trimmed at both ends, control characters included (TakeWord only skips leading blanks).
// With ":" (decal lists) nothing is trimmed.
std::string_view TakeItemWord(std::string_view& line, char separator = ' ') {
    if (separator == ' ') {
        line = TrimBlanks(line);
    }
    return TakeWord(line, separator);
}

// The words TakeItemWord yields from `line` before the first empty one: "DIP14::SO14" has one
// decal, not three.
std::size_t ItemWordCount(std::string_view line, char separator = ' ') {
    std::size_t count = 0;
    while (!TakeItemWord(line, separator).empty()) {
        ++count;
    }
    return count;
}

void SkipItemWords(std::string_view& line, int count) {
    for (int i = 0; i < count; ++i) {
        TakeItemWord(line);
    }
}

bool Contains(std::string_view line, std::string_view text) {
    return line.find(text) != std::string_view::npos;
}

// The input file as the catalogue walks it: one line in hand, and whether another follows it.
class ItemLines {
  public:
    explicit ItemLines(const std::filesystem::path& file) : reader_(file) {}

    const std::string& Line() const { return line_; }
    // No line after the one in hand.
    bool AtEnd() { return reader_.AtEnd(); }
    // The next line; past the end the line in hand becomes empty.
    void Read() {
        if (!reader_.ReadLine(line_)) {
            line_.clear();
        }
    }
    TextPlace Place() const { return {reader_.Name(), reader_.LineNumber()}; }
    const std::string& FileName() const { return reader_.Name(); }

    void SkipBlankLines() {
        while (IsBlankLine(line_) && !AtEnd()) {
            Read();
        }
    }

    // Reads on to the line that contains `marker` (the line in hand included), takes the line
    // after it and passes over remarks and blank lines. False when the file ends before a marker
    // line is found.
    bool SeekSection(std::string_view marker) {
        while (!Contains(line_, marker) && !AtEnd()) {
            Read();
        }
        const bool found = Contains(line_, marker);
        Read();
        while ((Contains(line_, kRemark) || IsBlankLine(line_)) && !AtEnd()) {
            Read();
        }
        return found;
    }

    // The item loop's framing for the next item: blank lines are passed over, a line starting
    // with "*" ends the list, and so does a line that is the last of the file (an item header
    // there has no body and is not listed). False when no item follows.
    bool NextItem() {
        if (AtEnd()) {
            return false;
        }
        SkipBlankLines();
        return !line_.starts_with('*') && !AtEnd();
    }

    // Passes over the rest of an item: lines up to the next blank line or the end of the file,
    // and where the file's layout says so, up to a section line such as "*END*".
    void SkipToItemEnd(bool sectionLineEndsItem) {
        do {
            Read();
        } while (!IsBlankLine(line_) && !AtEnd() && !(sectionLineEndsItem && IsSectionLine()));
    }

    // Passes over the rest of a decal record of a dialect framed by counts: the body the counts
    // announce, and after it any lines up to a blank line, a section line or the next decal
    // header. A body whose piece or stack counts are not numbers is passed over up to the next
    // blank line or section line instead: listing names does not need its body.
    void SkipDecalRecord(const FileDialect& dialect, const DecalHeaderFields& header) {
        BodyLayout body(dialect, header.counts, header.name, FileName());
        bool countsHold = true;
        for (;;) {
            Read();
            if (IsBlankLine(line_) || IsSectionLine() || AtEnd()) {
                return;
            }
            if (countsHold && !body.WantsMore() && LooksLikeDecalHeader(line_, dialect)) {
                return;
            }
            if (countsHold) {
                try {
                    body.Take(line_, reader_.LineNumber());
                } catch (const ConversionError&) {
                    countsHold = false;
                }
            }
        }
    }

    // Passes over the rest of a parttype record of a newer file: the lines its header's counts
    // announce, and after them any lines up to a blank line, a section line or the next parttype
    // header, so that records written back to back are told apart. A header or body whose counts
    // cannot be read is passed over up to the next blank line or section line instead.
    void SkipParttypeRecord(const ParttypeLayout& layout, std::string_view headerLine) {
        std::optional<ParttypeBody> body;
        try {
            body.emplace(ReadParttypeHeader(headerLine, layout, Place()).counts);
        } catch (const Error&) {
            body.reset();
        }
        for (;;) {
            Read();
            if (IsBlankLine(line_) || IsSectionLine() || AtEnd()) {
                return;
            }
            if ((!body || !body->WantsFreeText()) && LooksLikeParttypeHeader(line_, layout)) {
                return;
            }
            if (body && body->WantsMore()) {
                try {
                    body->Take(line_, Place());
                } catch (const Error&) {
                    body.reset();
                }
            }
        }
    }

  private:
    // A section line begins with a keyword between stars ("*END*     OF ASCII OUTPUT FILE",
    // "*REMARK* AP", "*PARTTYPE*   ITEMS"). The text line of a text record may begin with a
    // star too ("*", "*1"), and must not end its decal.
    bool IsSectionLine() const {
        std::string_view rest = line_;
        const std::string_view word = TakeWord(rest);
        if (word.size() < 3 || !word.starts_with('*') || !word.ends_with('*')) {
            return false;
        }
        return std::all_of(word.begin() + 1, word.end() - 1, [](char c) {
            return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-';
        });
    }

    LineReader reader_;
    std::string line_;
};

// Where the catalogue finds its fields in one file. The decal fields follow the file's dialect;
// the parttype and part fields, which only the catalogue reads, are decided here.
struct CatalogueLayout {
    // V3 and V4 files: every field where those files put it, as the program has always read
    // them, quirks included.
    bool legacy = true;
    FileDialect dialect;
    // The word number of a decal header's terminal count. Old files take word 9 even in PCB
    // files, where it is the label count.
    std::size_t terminalWord = 9;
    // Decal records end where their counts say (and at a blank line or a section line), so that
    // records without blank lines between them are told apart.
    bool decalsByCounts = false;
    // Newer parttype headers: whether a unit letter stands between the decal list and the logic
    // family, and which word after the logic family is the attribute count (0: none) and the
    // pin-name count.
    bool parttypeUnitsWord = true;
    std::size_t parttypeAttributeWord = 0;
    std::size_t parttypePinNameWord = 0;
    // Lines of each label record that follows a part line.
    std::size_t linesPerPartLabel = 2;
    // A section line ("*END*") ends an item even without a blank line before it.
    bool sectionLineEndsItem = false;
    // A part type "type@decal" names the part's own decal after the "@".
    bool partTypeAtDecal = false;
    // A PCB file without parts offers all its decals.
    bool allDecalsWithoutParts = false;
    // Parttype records end where their counts say (and at a blank line or a section line).
    bool parttypesByCounts = false;
    ParttypeLayout parttypes;
};

// PCB parttype headers are NAME DECALS [UNITS] TYPE GATES SIGPINS PINNMS FLAGS ECO: V5 and the
// 2005 release still write the unit letter, later releases do not.
bool PcbParttypesHaveUnits(const FormatRelease& release) {
    if (!release.Known()) {
        return false;  // read as the newest
    }
    return release.IsYear() ? release.major <= 2005 : release.major < 6;
}

CatalogueLayout CatalogueLayoutFor(const FileHeader& header, int libraryVersion) {
    CatalogueLayout layout;
    layout.dialect = header.dialect;
    if (libraryVersion == 3 || libraryVersion == 4) {
        return layout;
    }
    layout.legacy = false;
    const auto counts = header.dialect.Counts();
    const auto terminals = std::find(counts.begin(), counts.end(), CountField::Terminals);
    layout.terminalWord = 5 + static_cast<std::size_t>(terminals - counts.begin());
    layout.decalsByCounts = header.dialect.framing == Framing::Counts;
    if (header.pcbFile) {
        layout.parttypeUnitsWord = PcbParttypesHaveUnits(header.release);
        layout.parttypeAttributeWord = 0;
        layout.parttypePinNameWord = 3;
        // Part labels are written as the labels of the file's decals are.
        layout.linesPerPartLabel = header.dialect.linesPerLabel;
    } else {
        // Library headers: name decals unit family attrs gates sigpins pinmap flag.
        layout.parttypeUnitsWord = true;
        layout.parttypeAttributeWord = 1;
        layout.parttypePinNameWord = 4;
    }
    layout.sectionLineEndsItem = true;
    layout.parttypesByCounts = true;
    layout.parttypes = ParttypeLayoutFor(header);
    layout.partTypeAtDecal = true;
    layout.allDecalsWithoutParts = true;
    return layout;
}

// The absolute value of a count of a part line, which must fit 16 bits.
std::uint16_t PartLineCount(std::string_view word, const char* what, const TextPlace& place) {
    const long long value = WholeNumber(word, place);
    const unsigned long long magnitude = value < 0 ? 0ULL - static_cast<unsigned long long>(value)
                                                   : static_cast<unsigned long long>(value);
    if (magnitude > std::numeric_limits<std::uint16_t>::max()) {
        throw RangeError(std::string("the ") + what + " of a part is beyond 65535: \"" +
                             std::string(word) + "\"",
                         std::string(place.file), place.line);
    }
    return static_cast<std::uint16_t>(magnitude);
}

struct ParttypeCounts {
    std::string_view firstDecal;
    std::size_t decalCount = 0;
    long long attributes = 0;
    long long pinNames = 0;
};

bool PassesContentsFilter(int filter, std::string_view name, const ParttypeCounts& counts) {
    switch (filter) {
        case 1:
            return counts.pinNames > 0;
        case 2:
            return counts.attributes > 0;
        case 3:
            return counts.pinNames > 0 && counts.attributes > 0;
        case 4:
            return counts.pinNames > 0 || counts.attributes > 0;
        case 5:
            return counts.decalCount > 1;
        case 6:
            return name != counts.firstDecal;
        default:
            return true;
    }
}

// The alternate decals of the parttypes of a PCB file, looked up by parttype name.
class PartTypeDecals {
  public:
    void Add(std::string_view name, std::string_view decalList, const TextPlace& place) {
        std::vector<std::string> decals;
        while (!decalList.empty()) {
            if (decals.size() == kMaxPartTypeDecals) {
                throw RangeError("parttype " + std::string(name) + " has more than " +
                                     std::to_string(kMaxPartTypeDecals) + " decals",
                                 std::string(place.file), place.line);
            }
            decals.emplace_back(CutTo(TakeItemWord(decalList, ':'), kMaxDecalNameLength));
        }
        // The first record of a name is the one parts find.
        if (byName_.try_emplace(std::string(name), records_.size()).second) {
            records_.push_back(std::move(decals));
        }
    }

    // The decals of the parttype `name`, or nullptr when there is none of that name.
    const std::vector<std::string>* Find(std::string_view name) const {
        auto found = byName_.find(std::string(name));
        return found == byName_.end() ? nullptr : &records_[found->second];
    }

  private:
    std::vector<std::vector<std::string>> records_;
    std::unordered_map<std::string, std::size_t> byName_;
};

class CatalogueBuilder {
  public:
    CatalogueBuilder(const std::filesystem::path& file, PlotKind kind,
                     const CatalogueFilters& filters, UserMessages& messages)
        : lines_(file), kind_(kind), filters_(filters), messages_(messages) {
        // About one name to a kilobyte of a file; the list holds at most 65535.
        std::error_code error;
        const std::uintmax_t bytes = std::filesystem::file_size(file, error);
        catalogue_.entries.reserve(error ? 0 : std::min<std::uintmax_t>(bytes / 1024 + 16, 65536));
        search_ = TrimBlanks(filters_.searchText);
        std::string_view pins = TrimBlanks(filters_.pinCountText);
        pinFilter_ = WholeNumber(pins.empty() ? std::string_view("0") : pins);
    }

    Catalogue Build() {
        lines_.Read();
        const std::string firstLine = lines_.Line();
        const FileHeader header = AnalyseHeader(firstLine);
        layout_ = CatalogueLayoutFor(header, LibraryVersion(firstLine));
        const bool listsParttypes = kind_ == PlotKind::Parttype;

        // The first line of a file is its header, never an item, whatever it looks like: a
        // header indented by blanks is still the header.
        lines_.Read();
        if (header.pcbFile) {
            catalogue_.sorted = true;
            lines_.SeekSection(listsParttypes ? kParttypeSection : kDecalSection);
        }
        ListItems(listsParttypes);
        if (header.pcbFile && !listsParttypes) {
            KeepDecalsOfParts();
        }
        Finish();
        return std::move(catalogue_);
    }

  private:
    void ListItems(bool listsParttypes) {
        while (lines_.NextItem()) {
            std::string_view rest = lines_.Line();
            std::string name(CutTo(TakeItemWord(rest), kMaxDecalNameLength));
            const bool wanted = search_.empty() || Contains(name, search_);
            bool passes = false;
            if (listsParttypes) {
                passes = wanted && ParttypePasses(name, rest);
                SkipParttype();
            } else if (layout_.decalsByCounts) {
                const DecalHeaderFields header =
                    ReadDecalHeaderAfterName(name, rest, layout_.dialect, lines_.Place());
                passes = wanted && PinCountPasses(header.counts.terminals);
                lines_.SkipDecalRecord(layout_.dialect, header);
            } else {
                passes = wanted && DecalPasses(rest);
                lines_.SkipToItemEnd(layout_.sectionLineEndsItem);
            }
            if (passes) {
                catalogue_.entries.push_back({std::move(name), false});
            }
        }
    }

    // `rest` is the header line after the name.
    bool ParttypePasses(std::string_view name, std::string_view rest) {
        ParttypeCounts counts;
        std::string_view decalList = TakeItemWord(rest);
        std::string_view firstPart = decalList;
        counts.firstDecal = CutTo(TakeItemWord(firstPart, ':'), kMaxDecalNameLength);
        counts.decalCount = ItemWordCount(decalList, ':');
        if (layout_.parttypeUnitsWord) {
            TakeItemWord(rest);
        }
        const std::string_view logicFamily = CutTo(TakeItemWord(rest), kMaxLogicFamilyLength);
        if (TrimBlanks(rest).empty() || logicFamily.empty()) {
            messages_.ShowError(std::string(kHeaderError) + std::string(name));
            return false;
        }
        const TextPlace place = lines_.Place();
        if (layout_.legacy) {
            // Old headers have an attribute count only when six or more words follow the logic
            // family; the pin-name count then stands three words later.
            if (ItemWordCount(rest) < 6) {
                SkipItemWords(rest, 2);
            } else {
                counts.attributes = WholeNumber(TakeItemWord(rest), place);
                SkipItemWords(rest, 2);
            }
            counts.pinNames = WholeNumber(TakeItemWord(rest), place);
        } else {
            counts.attributes = WordAfterFamily(rest, layout_.parttypeAttributeWord, place);
            counts.pinNames = WordAfterFamily(rest, layout_.parttypePinNameWord, place);
        }
        return PassesContentsFilter(filters_.contentsFilter, name, counts);
    }

    // The whole number of word `number` (1-based) after the logic family; 0 for none.
    static long long WordAfterFamily(std::string_view rest, std::size_t number,
                                     const TextPlace& place) {
        if (number == 0) {
            return 0;
        }
        SkipItemWords(rest, static_cast<int>(number - 1));
        return WholeNumber(TakeItemWord(rest), place);
    }

    // `rest` is the header line after the name.
    bool DecalPasses(std::string_view rest) {
        // Word 1 is the name, already taken.
        SkipItemWords(rest, static_cast<int>(layout_.terminalWord) - 2);
        return PinCountPasses(WholeNumber(TakeItemWord(rest), lines_.Place()));
    }

    bool PinCountPasses(long long terminals) const {
        return pinFilter_ == 0 || terminals == pinFilter_;
    }

    // From the parttype header in hand to the line after its record.
    void SkipParttype() {
        if (layout_.parttypesByCounts) {
            lines_.SkipParttypeRecord(layout_.parttypes, lines_.Line());
        } else {
            lines_.SkipToItemEnd(layout_.sectionLineEndsItem);
        }
    }

    // A PCB file offers only the decals its parts use: the parttypes say which decals they can
    // have, each part which parttype and which of its decals it has.
    void KeepDecalsOfParts() {
        PartTypeDecals partTypes;
        lines_.SeekSection(kParttypeSection);
        while (lines_.NextItem()) {
            std::string_view rest = lines_.Line();
            const std::string_view name = CutTo(TakeItemWord(rest), kMaxDecalNameLength);
            partTypes.Add(name, TakeItemWord(rest), lines_.Place());
            SkipParttype();
        }

        std::unordered_map<std::string_view, std::size_t> entryOf;
        for (std::size_t i = catalogue_.entries.size(); i-- > 0;) {
            entryOf[catalogue_.entries[i].name] = i;  // the first entry of a name wins
        }
        const bool sectionFound = lines_.SeekSection(kPartSection);
        bool anyPart = false;
        while (lines_.NextItem()) {
            anyPart = true;
            const std::string decal = DecalOfPart(partTypes);
            auto entry = entryOf.find(decal);
            if (!decal.empty() && entry != entryOf.end()) {
                catalogue_.entries[entry->second].selected = true;
            }
        }
        // Library tools write PCB files with decals and no parts; newer files of that kind offer
        // all their decals rather than none.
        if (layout_.allDecalsWithoutParts && (!sectionFound || !anyPart)) {
            return;
        }
        std::erase_if(catalogue_.entries,
                      [](const CatalogueEntry& entry) { return !entry.selected; });
    }

    // Reads the part line in hand and the lines that belong to it; the line in hand is then the
    // next part line. The decal the part uses ("" when it cannot be told).
    std::string DecalOfPart(const PartTypeDecals& partTypes) {
        const TextPlace place = lines_.Place();
        std::string_view rest = lines_.Line();
        TakeItemWord(rest);  // reference designator
        std::string_view partType = CutTo(TakeItemWord(rest), kMaxDecalNameLength);
        SkipItemWords(rest, 5);
        const std::uint16_t alternate =
            PartLineCount(TakeItemWord(rest), "alternate decal index", place);
        SkipItemWords(rest, 3);
        const std::uint16_t labels = PartLineCount(TakeItemWord(rest), "label count", place);

        std::string decal;
        const std::size_t at = partType.find('@');
        if (layout_.partTypeAtDecal && at != std::string_view::npos) {
            // A part whose decal was changed on the board names it after "@"; the decal
            // section holds it under that name.
            decal = partType.substr(at + 1);
        } else if (const std::vector<std::string>* decals = partTypes.Find(partType)) {
            if (alternate >= kMaxPartTypeDecals) {
                throw RangeError("the alternate decal index of a part is above " +
                                     std::to_string(kMaxPartTypeDecals - 1) + ": " +
                                     std::to_string(alternate),
                                 std::string(place.file), place.line);
            }
            if (alternate < decals->size()) {
                decal = (*decals)[alternate];
            }
        }

        do {
            lines_.Read();
        } while (lines_.Line().starts_with(kReuse));
        const std::size_t labelLines = std::size_t{labels} * layout_.linesPerPartLabel;
        for (std::size_t i = 0; i < labelLines && !lines_.AtEnd(); ++i) {
            lines_.Read();
        }
        return decal;
    }

    void Finish() {
        if (catalogue_.sorted) {
            std::stable_sort(catalogue_.entries.begin(), catalogue_.entries.end(),
                             [](const CatalogueEntry& a, const CatalogueEntry& b) {
                                 return NameBefore(a.name, b.name);
                             });
        }
        for (CatalogueEntry& entry : catalogue_.entries) {
            entry.selected = true;
        }
        if (catalogue_.entries.size() > std::numeric_limits<std::uint16_t>::max()) {
            throw RangeError("the list holds " + std::to_string(catalogue_.entries.size()) +
                                 " names, more than 65535",
                             lines_.FileName());
        }
        catalogue_.statusText = CatalogueStatusText(kind_, catalogue_.entries.size());
    }

    // Names sort alphabetically without regard to case; names that differ in case only, in
    // character order.
    static bool NameBefore(const std::string& a, const std::string& b) {
        auto lower = [](char c) {
            return static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        };
        const auto [aEnd, bEnd] =
            std::mismatch(a.begin(), a.end(), b.begin(), b.end(),
                          [&](char x, char y) { return lower(x) == lower(y); });
        if (aEnd == a.end() || bEnd == b.end()) {
            return a.size() != b.size() ? a.size() < b.size() : a < b;
        }
        return static_cast<unsigned char>(lower(*aEnd)) < static_cast<unsigned char>(lower(*bEnd));
    }

    ItemLines lines_;
    PlotKind kind_;
    const CatalogueFilters& filters_;
    UserMessages& messages_;
    std::string_view search_;
    long long pinFilter_ = 0;
    CatalogueLayout layout_;
    Catalogue catalogue_;
};

}  // namespace

Catalogue LoadPartnames(const std::filesystem::path& file, PlotKind kind,
                        const CatalogueFilters& filters, UserMessages& messages) {
    return CatalogueBuilder(file, kind, filters, messages).Build();
}

std::string CatalogueStatusText(PlotKind kind, std::size_t count) {
    std::string number = std::to_string(count);
    if (number.size() < 5) {
        number.insert(0, 5 - number.size(), ' ');
    }
    return (kind == PlotKind::Parttype ? "Parttypes listed: " : "Decals in file: ") + number;
}

}  // namespace zantor
