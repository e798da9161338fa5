#pragma once

// The attribute list as the setup dialog keeps it between runs: the subkey "AttrList" of the
// program's key, with "AttrCount" and the numbered values "AttrName" + n and "AttrChecked" + n
// (n from 1). The print kinds' sections keep a copy of their own ("Attr" + n, see settings_io.h).

#include <string_view>

#include "shell/attribute_list.h"
#include "shell/settings_store.h"

namespace zantor {

inline constexpr std::string_view kAttributeListSection = "AttrList";

// Replaces `attributes` by the stored list when "AttrCount" is above 0. With no count, or 0, the
// list is left as it is, so a fresh store does not empty a list the dialog already holds.
void LoadAttributes(AttributeList& attributes, const SettingsStore& store);

// Writes the count and the entries, then writes the store out. Values numbered above the count
// from an earlier, longer list stay in the store unused.
void SaveAttributes(const AttributeList& attributes, SettingsStore& store);

}  // namespace zantor
