#include "library/decal.h"

#include <algorithm>
#include <atomic>
#include <limits>

#include "library/words.h"

namespace zantor {
namespace {

std::atomic<std::size_t> parses{0};

const std::string& LineAt(const DecalRecord& record, std::size_t index) {
    static const std::string kNoLine;
    return index < record.lines.size() ? record.lines[index] : kNoLine;
}

FieldReader ReaderOf(const DecalRecord& record, std::size_t index, std::string_view item,
                     int number, std::string_view partOf = {}, int partOfNumber = 0) {
    return FieldReader(LineAt(record, index),
                       FieldPlace{record.fileName, record.LineNumberOf(index), record.name, item,
                                  number, partOf, partOfNumber});
}

// --- attributes and labels -----------------------------------------------------------------

char Lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool SameName(std::string_view a, std::string_view b) {
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(),
                                              [](char x, char y) { return Lower(x) == Lower(y); });
}

DecalAttribute ParseAttribute(std::string_view line) {
    line = TrimBlanks(line);
    DecalAttribute attribute;
    if (line.starts_with('"')) {
        // A quoted name may hold blanks; an unclosed quote takes the whole line as the name.
        const std::size_t close = line.find('"', 1);
        if (close == std::string_view::npos) {
            attribute.name = std::string(line.substr(1));
            return attribute;
        }
        attribute.name = std::string(line.substr(1, close - 1));
        attribute.value = std::string(TrimBlanks(line.substr(close + 1)));
        return attribute;
    }
    attribute.name = std::string(TakeWord(line));
    attribute.value = std::string(TrimBlanks(line));
    return attribute;
}

void ReadAttributes(const DecalRecord& record, Decal& decal) {
    if (!record.header.dialect.attributesBeforePieces) {
        return;
    }
    const std::size_t first = record.firstAttribute;
    const std::size_t end = std::min(record.lines.size(), first + record.counts.attributes);
    for (std::size_t index = first; index < end; ++index) {
        DecalAttribute attribute = ParseAttribute(record.lines[index]);
        attribute.line = record.LineNumberOf(index);
        decal.attributes.push_back(std::move(attribute));
    }
}

void ReadLabels(const DecalRecord& record, Decal& decal) {
    const std::size_t linesPerLabel = std::max<std::size_t>(record.header.dialect.linesPerLabel, 1);
    const std::size_t end = std::min(record.endOfLabels, record.lines.size());
    for (std::size_t at = record.firstLabel; at < end; at += linesPerLabel) {
        DecalLabel label;
        label.line = record.LineNumberOf(at);
        for (std::size_t i = at; i < std::min(end, at + linesPerLabel); ++i) {
            label.lines.push_back(record.lines[i]);
        }
        decal.labels.push_back(std::move(label));
    }
}

// --- pieces --------------------------------------------------------------------------------

void ReadPieceFields(const DecalRecord& record, FieldReader& reader, DecalPiece& piece) {
    piece.width = reader.Real("width");
    switch (record.header.dialect.pieceLayout) {
        case PieceLayout::Layer:
            piece.layer = reader.Whole("layer");
            break;
        case PieceLayout::LayerThenLineStyle:
            piece.layer = reader.Whole("layer");
            piece.lineStyle = reader.OptionalWhole("line style");
            break;
        case PieceLayout::LineStyleThenLayer:
            piece.lineStyle = reader.Whole("line style");
            piece.layer = reader.Whole("layer");
            break;
    }
}

// The word after the layer (and line style): a whole number in versions 3 and 4 when it is
// there; in later files a word that is no whole number is no pin.
void ReadPiecePin(const DecalRecord& record, FieldReader& reader, DecalPiece& piece) {
    if (!record.header.dialect.newerPieceKinds) {
        try {
            piece.pin = reader.OptionalWhole("pin");
        } catch (const Error& error) {
            piece.pinFault = FieldFault::Of(error);
        }
        return;
    }
    const std::string_view word = reader.Word();
    try {
        if (!word.empty()) {
            piece.pin = static_cast<std::int32_t>(
                std::clamp<long long>(WholeNumber(word), std::numeric_limits<std::int32_t>::min(),
                                      std::numeric_limits<std::int32_t>::max()));
        }
    } catch (const Error&) {
        piece.pin.reset();
    }
}

PieceCorner ReadCorner(const DecalRecord& record, std::size_t index, int piece) {
    FieldReader reader = ReaderOf(record, index, "a corner", 0, "piece", piece);
    PieceCorner corner;
    corner.line = record.LineNumberOf(index);
    try {
        corner.x = reader.Real("x");
        corner.y = reader.Real("y");
        corner.startAngle = reader.Real("start angle");
        corner.sweep = reader.Real("sweep angle");
        if (corner.StartsArc()) {
            corner.x1 = reader.Real("arc box x1");
            corner.y1 = reader.Real("arc box y1");
            corner.x2 = reader.Real("arc box x2");
            corner.y2 = reader.Real("arc box y2");
        }
    } catch (const Error& error) {
        corner.fault = FieldFault::Of(error);
        return corner;
    }
    if (record.header.dialect.arcAnglesInTenths) {
        corner.startAngle /= 10;
        corner.sweep /= 10;
    }
    return corner;
}

void ReadPieces(const DecalRecord& record, Decal& decal) {
    std::size_t at = record.firstPiece;
    for (int n = 1; n <= record.counts.pieces && at < record.lines.size(); ++n) {
        FieldReader reader = ReaderOf(record, at, "piece", n);
        DecalPiece piece;
        piece.line = record.LineNumberOf(at);
        piece.keyword = std::string(reader.Word());
        try {
            piece.cornerCount = reader.Whole("corner count");
        } catch (const Error& error) {
            piece.countFault = FieldFault::Of(error);
            decal.pieces.push_back(std::move(piece));
            return;
        }
        try {
            ReadPieceFields(record, reader, piece);
            ReadPiecePin(record, reader, piece);
        } catch (const Error& error) {
            piece.fieldFault = FieldFault::Of(error);
        }
        const std::size_t corners = static_cast<std::size_t>(std::max(piece.cornerCount, 0));
        for (std::size_t c = 1; c <= corners && at + c < record.lines.size(); ++c) {
            piece.corners.push_back(ReadCorner(record, at + c, n));
        }
        decal.pieces.push_back(std::move(piece));
        at += 1 + corners;
    }
}

// --- texts ---------------------------------------------------------------------------------

// 2 for `high` ("RIGHT", "UP"), 1 for "CENTER", 0 for anything else ("LEFT", "DOWN").
int PlaceOfWord(std::string_view word, std::string_view high) {
    if (word == high) {
        return 2;
    }
    return word == "CENTER" ? 1 : 0;
}

// "17" is centred both ways: the horizontal place in the low four bits, the vertical one above.
void ReadJustificationCode(std::string_view word, DecalText& text) {
    long long code = 0;
    try {
        code = WholeNumber(word);
    } catch (const Error&) {
        return;  // a justification that cannot be read leaves the text where it stands
    }
    const auto place = [](long long value) { return value >= 0 && value <= 2 ? int(value) : 0; };
    text.horizontal = place(code % 16);
    text.vertical = place(code / 16 % 16);
}

void ReadTextHeader(const FileDialect& dialect, FieldReader& reader, DecalText& text) {
    text.x = reader.Real("x");
    text.y = reader.Real("y");
    text.rotation = reader.Real("rotation");
    text.layer = reader.Whole("layer");
    text.size = reader.Real("size");
    text.lineWidth = reader.Real("line width");
    text.mirror = reader.Word() == dialect.mirrorWord;
    switch (dialect.textJustification) {
        case TextJustification::None:
            break;
        case TextJustification::Code:
            ReadJustificationCode(reader.Word(), text);
            break;
        case TextJustification::Words:
            text.horizontal = PlaceOfWord(reader.Word(), "RIGHT");
            text.vertical = PlaceOfWord(reader.Word(), "UP");
            break;
    }
}

// The comment number of a layer-30 text ("@@1 ..." to "@@9 ..."), or 0 when the text is not a
// comment line and is drawn as an ordinary text.
int CommentNumber(const DecalText& text) {
    const std::string_view line = text.text;
    if (text.layer != kCommentLayer || line.size() <= 4 || line.substr(0, 2) != "@@") {
        return 0;
    }
    return line[2] >= '1' && line[2] <= '9' ? line[2] - '0' : 0;
}

void ClassifyText(const DecalRecord& record, std::size_t textLine, int item, DecalText& text) {
    if (text.text.starts_with("$ ")) {
        text.kind = TextKind::TitleValue;
        FieldReader reader = ReaderOf(record, textLine, "text", item);
        text.firstWord = std::string(reader.Word());
        try {
            text.titleValue = reader.Real("value");
        } catch (const Error& error) {
            text.titleValueFault = FieldFault::Of(error);
        }
        return;
    }
    if (const int n = CommentNumber(text); n > 0) {
        text.kind = TextKind::Comment;
        text.commentNumber = n;
        FieldReader reader = ReaderOf(record, textLine, "text", item);
        text.firstWord = std::string(reader.Word());
        text.rest = std::string(reader.Rest());
    }
}

void ReadTexts(const DecalRecord& record, Decal& decal) {
    const FileDialect& dialect = record.header.dialect;
    const std::size_t linesPerText = std::max<std::size_t>(dialect.linesPerText, 2);
    // The text itself is the record's last line, after its header and any font line.
    const std::size_t textOffset = dialect.linesPerText > 2 ? dialect.linesPerText - 1 : 1;
    std::size_t at = record.firstText;
    for (int n = 1; n <= record.counts.texts && at < record.lines.size(); ++n, at += linesPerText) {
        DecalText text;
        text.line = record.LineNumberOf(at);
        text.text = LineAt(record, at + textOffset);
        FieldReader reader = ReaderOf(record, at, "text", n);
        try {
            ReadTextHeader(dialect, reader, text);
        } catch (const Error& error) {
            text.fault = FieldFault::Of(error);
            decal.texts.push_back(std::move(text));
            continue;
        }
        ClassifyText(record, at + textOffset, n, text);
        decal.texts.push_back(std::move(text));
    }
}

}  // namespace

std::string_view DecalText::Trimmed() const {
    return TrimBlanks(text);
}

const std::vector<TerminalLine>& Decal::Terminals() const {
    RaiseIfAny(terminalFault);
    return terminals;
}

const PadStackList& Decal::Stacks() const {
    RaiseIfAny(stackFault);
    return stacks;
}

Decal ParseDecal(const DecalRecord& record) {
    parses.fetch_add(1, std::memory_order_relaxed);
    Decal decal;
    decal.header = record.header;
    decal.fileName = record.fileName;
    decal.name = record.name;
    decal.unitLetter = record.unitLetter;
    decal.unitFactor = record.unitFactor;
    decal.counts = record.counts;
    decal.headerLine = record.headerLineNumber;
    ReadAttributes(record, decal);
    ReadLabels(record, decal);
    ReadPieces(record, decal);
    ReadTexts(record, decal);
    try {
        decal.terminals = ReadTerminals(record);
    } catch (const Error& error) {
        decal.terminalFault = FieldFault::Of(error);
    }
    try {
        decal.stacks = ReadPadStacks(record);
    } catch (const Error& error) {
        decal.stackFault = FieldFault::Of(error);
    }
    return decal;
}

std::size_t DecalParseCount() {
    return parses.load(std::memory_order_relaxed);
}

std::string AttributeValue(const std::vector<DecalAttribute>& attributes, std::string_view name) {
    for (const DecalAttribute& attribute : attributes) {
        if (SameName(attribute.name, name)) {
            return attribute.value;
        }
    }
    return {};
}

LibraryUnits LibraryUnitsOf(const Decal& decal) {
    return {decal.unitFactor, decal.unitLetter == "I"};
}

}  // namespace zantor
