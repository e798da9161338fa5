#include "plot/decal_attributes.h"

#include <algorithm>

#include "library/words.h"

namespace zantor {
namespace {

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

}  // namespace

std::vector<DecalAttribute> ReadDecalAttributes(const DecalRecord& record) {
    std::vector<DecalAttribute> attributes;
    if (!record.header.dialect.attributesBeforePieces) {
        return attributes;
    }
    const std::size_t first = record.header.dialect.leadingLines;
    const std::size_t end = std::min(record.lines.size(), first + record.counts.attributes);
    for (std::size_t index = first; index < end; ++index) {
        attributes.push_back(ParseAttribute(record.lines[index]));
    }
    return attributes;
}

std::string AttributeValue(const std::vector<DecalAttribute>& attributes, std::string_view name) {
    for (const DecalAttribute& attribute : attributes) {
        if (SameName(attribute.name, name)) {
            return attribute.value;
        }
    }
    return {};
}

int ListedAttributeCount(bool printAttributes, const AttributeList& list) {
    if (!printAttributes) {
        return 0;
    }
    return static_cast<int>(std::count_if(
        list.begin(), list.end(), [](const AttributeEntry& entry) { return entry.checked; }));
}

}  // namespace zantor
