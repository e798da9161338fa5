#pragma once

// The attributes a decal page lists at its top (the decal's own attributes are read with the
// decal, library/decal.h).

#include "shell/attribute_list.h"

namespace zantor {

// The number of attribute lines a decal page lists at its top: the checked entries of `list`
// when `printAttributes` is on, else none.
int ListedAttributeCount(bool printAttributes, const AttributeList& list);

}  // namespace zantor
