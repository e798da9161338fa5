#pragma once

// The user's list of attribute names, each with a check mark: the checked attributes of a decal
// or parttype are the ones printed. The setup dialog edits it, the attribute scan fills it from a
// library file, and the settings keep it.

#include <cstddef>
#include <string>
#include <vector>

namespace zantor {

// The most entries the stored list, the scan and the add command give.
inline constexpr std::size_t kMaxAttributes = 32;

struct AttributeEntry {
    std::string name;
    bool checked = false;

    friend bool operator==(const AttributeEntry&, const AttributeEntry&) = default;
};

// In list order, which is the order of printing.
using AttributeList = std::vector<AttributeEntry>;

}  // namespace zantor
