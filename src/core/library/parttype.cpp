#include "library/parttype.h"

#include <algorithm>
#include <cctype>
#include <charconv>

#include "common/errors.h"
#include "shell/identification.h"
#include "shell/number_texts.h"

namespace zantor {
namespace {

constexpr std::string_view kParttypeSection = "*PARTTYPE*";
constexpr std::string_view kRemark = "*REMARK*";
constexpr std::string_view kSignalPin = "SIGPIN";

bool IsWholeNumber(std::string_view word) {
    if (word.starts_with('+') || word.starts_with('-')) {
        word.remove_prefix(1);
    }
    return !word.empty() &&
           std::all_of(word.begin(), word.end(), [](char c) { return c >= '0' && c <= '9'; });
}

// PCB parttype headers are NAME DECALS [UNITS] TYPE GATES SIGPINS PINNMS FLAGS ECO: version 5 and
// the 2005 release still write the unit letter, later releases do not.
bool PcbHeadersHaveUnits(const FileHeader& header) {
    if (header.version == 3 || header.version == 4) {
        return true;
    }
    if (!header.release.Known()) {
        return false;  // read as the newest
    }
    return header.release.IsYear() ? header.release.major <= 2005 : header.release.major < 6;
}

std::size_t Count(std::string_view word, const char* what, std::string_view parttype,
                  const TextPlace& place) {
    const std::string subject =
        std::string("the ") + what + " count of parttype " + std::string(parttype);
    long long value = 0;
    try {
        value = WholeNumber(word, place);
    } catch (const ConversionError&) {
        throw ConversionError(subject + " is not a number: \"" + std::string(word) + "\"",
                              std::string(place.file), place.line);
    }
    if (value < 0) {
        throw RangeError(subject + " is negative: \"" + std::string(word) + "\"",
                         std::string(place.file), place.line);
    }
    return static_cast<std::size_t>(value);
}

// The words after the logic family, as many as there are.
std::vector<std::string_view> WordsOf(std::string_view rest) {
    std::vector<std::string_view> words;
    for (std::string_view word = TakeWord(rest); !word.empty(); word = TakeWord(rest)) {
        words.push_back(word);
    }
    return words;
}

// Where the counts stand after the logic family of this header: old headers have an attribute
// count only when six or more words follow the family.
ParttypeLayout CountsOf(ParttypeLayout layout, std::size_t wordsAfterFamily) {
    if (layout.legacy && !layout.pcbFile && wordsAfterFamily < 6) {
        layout.attributeWord = 0;
        layout.gateWord = 1;
        layout.signalPinWord = 2;
        layout.pinNameWord = 3;
    }
    return layout;
}

}  // namespace

bool IsSectionLine(std::string_view line) {
    const std::string_view word = TakeWord(line);
    if (word.size() < 3 || !word.starts_with('*') || !word.ends_with('*')) {
        return false;
    }
    return std::all_of(word.begin() + 1, word.end() - 1, [](char c) {
        return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-';
    });
}

ParttypeLayout ParttypeLayoutFor(const FileHeader& header) {
    ParttypeLayout layout;
    layout.legacy = header.version == 3 || header.version == 4;
    layout.pcbFile = header.pcbFile;
    if (header.pcbFile) {
        layout.unitsWord = PcbHeadersHaveUnits(header);
        layout.attributeWord = 0;
        layout.gateWord = 1;
        layout.signalPinWord = 2;
        layout.pinNameWord = 3;
    }
    return layout;
}

ParttypeHeaderFields ReadParttypeHeader(std::string_view line, const ParttypeLayout& layout,
                                        const TextPlace& place) {
    ParttypeHeaderFields header;
    header.name = CutTo(TakeWord(line), kMaxParttypeNameLength);
    std::string_view decalList = TakeWord(line);
    while (!decalList.empty()) {
        const std::string_view decal = TakeWord(decalList, ':');
        if (decal.empty()) {
            continue;
        }
        if (header.decals.size() == kMaxParttypeDecals) {
            throw RangeError("parttype " + header.name + " names more than " +
                                 std::to_string(kMaxParttypeDecals) + " decals",
                             std::string(place.file), place.line);
        }
        header.decals.emplace_back(decal);
    }
    if (layout.unitsWord) {
        header.unitLetter = TakeWord(line);
    }
    header.logicFamily = TakeWord(line);
    const std::vector<std::string_view> words = WordsOf(line);
    if (header.logicFamily.empty() || words.empty()) {
        throw FormatError(
            "the header of parttype " + header.name + " has no logic family or no counts after it",
            std::string(place.file), place.line);
    }
    const ParttypeLayout counts = CountsOf(layout, words.size());
    auto word = [&](std::size_t number) {
        return number == 0 || number > words.size() ? std::string_view() : words[number - 1];
    };
    header.counts.attributes = Count(word(counts.attributeWord), "attribute", header.name, place);
    header.counts.gates = Count(word(counts.gateWord), "gate", header.name, place);
    header.counts.signalPins = Count(word(counts.signalPinWord), "signal-pin", header.name, place);
    header.counts.pinNames = Count(word(counts.pinNameWord), "pin-name", header.name, place);
    return header;
}

bool LooksLikeParttypeHeader(std::string_view line, const ParttypeLayout& layout) {
    if (TakeWord(line).empty() || TakeWord(line).empty()) {
        return false;
    }
    if (layout.unitsWord) {
        const std::string_view unit = TakeWord(line);
        if (unit.size() != 1 || std::isalpha(static_cast<unsigned char>(unit[0])) == 0) {
            return false;
        }
    }
    if (TakeWord(line).empty()) {
        return false;
    }
    const std::vector<std::string_view> words = WordsOf(line);
    const ParttypeLayout counts = CountsOf(layout, words.size());
    if (words.size() < counts.pinNameWord) {
        return false;
    }
    return std::all_of(words.begin(), words.begin() + static_cast<long>(counts.pinNameWord),
                       IsWholeNumber);
}

std::size_t Parttype::PinCount() const {
    std::size_t count = 0;
    for (const ParttypeGate& gate : gates) {
        count += gate.pins.size();
    }
    return count;
}

const std::string* Parttype::Attribute(std::string_view name) const {
    for (const ParttypeAttribute& attribute : attributes) {
        if (attribute.name == name) {
            return &attribute.value;
        }
    }
    return nullptr;
}

std::string Parttype::PinLabel(const ParttypePin& pin) const {
    int number = 0;
    const auto [end, error] =
        std::from_chars(pin.number.data(), pin.number.data() + pin.number.size(), number);
    if (error != std::errc{} || end != pin.number.data() + pin.number.size() || number < 1 ||
        number > kNumberTextCount) {
        return pin.number;
    }
    if (static_cast<std::size_t>(number) <= pinNames.size()) {
        return pinNames[static_cast<std::size_t>(number) - 1];
    }
    return NumberText(number);
}

ParttypeBody::ParttypeBody(const ParttypeCounts& counts)
    : counts_(counts), gatesLeft_(counts.gates) {
    Settle();
}

void ParttypeBody::Settle() {
    for (;;) {
        switch (part_) {
            case Part::Lead:
                part_ = Part::Attributes;
                left_ = counts_.attributes;
                continue;
            case Part::Attributes:
                if (left_ > 0) {
                    return;
                }
                part_ = Part::GateHeader;
                continue;
            case Part::GateHeader:
                if (gatesLeft_ > 0) {
                    return;
                }
                part_ = Part::SignalPins;
                left_ = counts_.signalPins;
                continue;
            case Part::GateDecals:
                if (decalsLeft_ > 0) {
                    return;
                }
                part_ = Part::GatePins;
                continue;
            case Part::GatePins:
                if (pinsLeft_ > 0) {
                    return;
                }
                part_ = Part::GateHeader;
                continue;
            case Part::SignalPins:
                if (left_ > 0) {
                    return;
                }
                part_ = Part::PinNames;
                left_ = counts_.pinNames;
                continue;
            case Part::PinNames:
                if (left_ > 0) {
                    return;
                }
                part_ = Part::Done;
                return;
            case Part::Done:
                return;
        }
    }
}

void ParttypeBody::TakeGateHeader(std::string_view line, const TextPlace& place,
                                  Parttype* parttype) {
    ParttypeGate gate;
    gate.kind = TakeWord(line);
    const auto number = [&](const char* what) {
        const std::string_view word = TakeWord(line);
        try {
            const long long value = WholeNumber(word, place);
            return value < 0 ? std::size_t{0} : static_cast<std::size_t>(value);
        } catch (const ConversionError&) {
            throw ConversionError(std::string("the ") + what + " count of a " + gate.kind +
                                      " line is not a number: \"" + std::string(word) + "\"",
                                  std::string(place.file), place.line);
        }
    };
    if (gate.kind == "G") {
        // G swaptype pins: the pins follow as words.
        gate.swap = TakeWord(line);
        decalsLeft_ = 0;
        pinsLeft_ = number("pin");
    } else {
        // GATE decals pins swap, CONN decals pins, ...: decal lines, then pin lines.
        decalsLeft_ = number("decal");
        pinsLeft_ = number("pin");
        gate.swap = TakeWord(line);
    }
    --gatesLeft_;
    wordPins_ = gate.kind == "G";
    if (parttype != nullptr) {
        parttype->gates.push_back(std::move(gate));
    }
    part_ = Part::GateDecals;
}

// A pin of a library gate is a line "number swap type [name]" ("number type [name]" where the
// gate kind has no swap); a pin of a PCB gate is a word "number.swap.type[.name]".
void ParttypeBody::TakePins(std::string_view line, Parttype* parttype) {
    ParttypeGate* gate =
        parttype != nullptr && !parttype->gates.empty() ? &parttype->gates.back() : nullptr;
    if (!wordPins_) {
        --pinsLeft_;
        if (gate == nullptr) {
            return;
        }
        ParttypePin pin;
        pin.number = TakeWord(line);
        std::string_view second = TakeWord(line);
        if (IsWholeNumber(second)) {
            pin.swap = second;
            second = TakeWord(line);
        }
        pin.type = second;
        pin.name = TrimBlanks(line);
        gate->pins.push_back(std::move(pin));
        return;
    }
    for (std::string_view word = TakeWord(line); !word.empty() && pinsLeft_ > 0;
         word = TakeWord(line)) {
        --pinsLeft_;
        if (gate == nullptr) {
            continue;
        }
        ParttypePin pin;
        pin.number = TakeWord(word, '.');
        pin.swap = TakeWord(word, '.');
        pin.type = TakeWord(word, '.');
        pin.name = word;
        gate->pins.push_back(std::move(pin));
    }
}

void ParttypeBody::Take(std::string_view line, const TextPlace& place, Parttype* parttype) {
    const std::string_view trimmed = TrimBlanks(line);
    const bool first = !started_;
    started_ = true;
    // Libraries of newer releases write a TIMESTAMP line right after the header.
    if (first && trimmed.starts_with("TIMESTAMP")) {
        if (parttype != nullptr) {
            std::string_view rest = trimmed;
            TakeWord(rest);
            parttype->timestamp = TrimBlanks(rest);
        }
        return;
    }
    switch (part_) {
        case Part::Attributes:
            --left_;
            if (parttype != nullptr) {
                ParttypeAttribute attribute;
                std::string_view rest = trimmed;
                if (rest.starts_with('"')) {
                    const std::size_t close = rest.find('"', 1);
                    attribute.name = rest.substr(
                        1, close == std::string_view::npos ? std::string_view::npos : close - 1);
                    rest = close == std::string_view::npos ? std::string_view()
                                                           : rest.substr(close + 1);
                } else {
                    attribute.name = TakeWord(rest);
                }
                attribute.value = TrimBlanks(rest);
                parttype->attributes.push_back(std::move(attribute));
            }
            break;
        case Part::GateHeader:
            TakeGateHeader(trimmed, place, parttype);
            break;
        case Part::GateDecals:
            --decalsLeft_;
            if (parttype != nullptr && !parttype->gates.empty()) {
                parttype->gates.back().decals.emplace_back(TakeWord(line));
            }
            break;
        case Part::GatePins:
            TakePins(trimmed, parttype);
            break;
        case Part::SignalPins:
            --left_;
            if (parttype != nullptr) {
                std::string_view rest = trimmed;
                if (rest.starts_with(kSignalPin)) {
                    TakeWord(rest);
                }
                std::vector<std::string_view> words = WordsOf(rest);
                ParttypeSignalPin pin;
                if (!words.empty()) {
                    pin.pin = words.front();
                    pin.signal = words.back();
                }
                if (words.size() >= 3) {
                    pin.width = words[1];
                }
                parttype->signalPins.push_back(std::move(pin));
            }
            break;
        case Part::PinNames: {
            std::string_view rest = trimmed;
            for (std::string_view word = TakeWord(rest); !word.empty() && left_ > 0;
                 word = TakeWord(rest)) {
                --left_;
                if (parttype != nullptr) {
                    parttype->pinNames.emplace_back(word);
                }
            }
            break;
        }
        case Part::Lead:
        case Part::Done:
            return;
    }
    Settle();
}

ParttypeReader::ParttypeReader(const std::filesystem::path& file) : lines_(file) {
    if (!ReadLine()) {
        return;
    }
    header_ = AnalyseHeader(line_);
    header_.version = LibraryVersion(line_);
    layout_ = ParttypeLayoutFor(header_);
    if (header_.pcbFile) {
        while (!ended_ && line_.find(kParttypeSection) == std::string::npos) {
            ReadLine();
        }
        ReadLine();
    } else if (line_.starts_with('*') || line_.starts_with('!') ||
               !LooksLikeParttypeHeader(line_, layout_)) {
        ReadLine();  // a library's header line; a library without one starts with its record
    }
    SkipToRecord();
}

bool ParttypeReader::ReadLine() {
    if (ended_ || !lines_.ReadLine(line_)) {
        ended_ = true;
        line_.clear();
        return false;
    }
    return true;
}

void ParttypeReader::SkipToRecord() {
    while (!ended_ && (IsBlankLine(line_) || line_.find(kRemark) != std::string::npos)) {
        ReadLine();
    }
    here_ = {lines_.LineStart(), lines_.LineNumber()};
}

ParttypePosition ParttypeReader::Position() const {
    return here_;
}

void ParttypeReader::SeekTo(const ParttypePosition& position) {
    lines_.SeekLine(position.offset, position.lineNumber);
    ended_ = false;
    ReadLine();
    SkipToRecord();
}

bool ParttypeReader::Next(Parttype& parttype) {
    SkipToRecord();
    if (ended_ || line_.starts_with('*')) {
        return false;
    }
    const TextPlace headerPlace{lines_.Name(), lines_.LineNumber()};
    ParttypeHeaderFields header = ReadParttypeHeader(line_, layout_, headerPlace);
    parttype = Parttype{};
    parttype.name = std::move(header.name);
    parttype.decals = std::move(header.decals);
    parttype.unitLetter = std::move(header.unitLetter);
    parttype.logicFamily = std::move(header.logicFamily);
    parttype.headerLineNumber = headerPlace.line;

    ParttypeBody body(header.counts);
    while (ReadLine()) {
        if (IsBlankLine(line_) || IsSectionLine(line_)) {
            break;
        }
        if (!body.WantsFreeText() && LooksLikeParttypeHeader(line_, layout_)) {
            break;  // the next record, written right after this one
        }
        if (!body.WantsMore()) {
            continue;  // lines the counts do not announce belong to no field
        }
        body.Take(line_, TextPlace{lines_.Name(), lines_.LineNumber()}, &parttype);
    }
    SkipToRecord();
    return true;
}

std::unordered_map<std::string, ParttypePosition> ParttypeReader::LocateAll() {
    std::unordered_map<std::string, ParttypePosition> positions;
    Parttype parttype;
    SkipToRecord();
    ParttypePosition at = here_;
    while (Next(parttype)) {
        positions.try_emplace(parttype.name, at);
        at = here_;
    }
    return positions;
}

}  // namespace zantor
