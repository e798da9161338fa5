#pragma once

// The attribute lines of a decal record ("Geometry.Height" 180mil): what a decal page lists at
// its top and where the title block finds the decal's height.

#include <string>
#include <string_view>
#include <vector>

#include "library/decal_record.h"
#include "shell/attribute_list.h"

namespace zantor {

struct DecalAttribute {
    std::string name;   // without its quotes
    std::string value;  // the rest of the line, without blanks at its ends

    friend bool operator==(const DecalAttribute&, const DecalAttribute&) = default;
};

// The record's attribute lines in file order; none when its file keeps no attributes with the
// decal. A body shorter than its count yields the lines it has.
std::vector<DecalAttribute> ReadDecalAttributes(const DecalRecord& record);

// The value of the first attribute called `name`, compared without regard to case, as people
// write "Geometry.Height" and "GEOMETRY.HEIGHT" alike; empty when there is none.
std::string AttributeValue(const std::vector<DecalAttribute>& attributes, std::string_view name);

// The number of attribute lines a decal page lists at its top: the checked entries of `list`
// when `printAttributes` is on, else none.
int ListedAttributeCount(bool printAttributes, const AttributeList& list);

}  // namespace zantor
