#pragma once

// Loading and saving the settings record and the small stores kept beside it: the recent input
// files, the parttype text sizes and the attribute list.
//
// "General" holds what all print kinds share; each print kind has a section of its own for its
// plot options ("Parttype", "Decalplot", "Indexplot"), so the record always holds the options of
// the kind it was last loaded for.
//
// Values are read and written one by one in a fixed order. A stored value that cannot be used
// ends a load with ConversionError or RangeError: the values read before it are already in the
// record, the later ones keep what they were. A save ends with SettingsStore::Sync, so a failed
// save throws IoError and leaves the stored settings as they were.

#include <string>
#include <string_view>
#include <vector>

#include "shell/attribute_list.h"
#include "shell/parttype_text_sizes.h"
#include "shell/plot_settings.h"
#include "shell/settings_store.h"

namespace zantor {

inline constexpr std::string_view kGeneralSection = "General";

// The section of a print kind: "Parttype", "Decalplot" or "Indexplot". A value outside the
// three kinds throws RangeError.
std::string_view SettingsSection(PlotKind kind);

// Reads every field from "General" and from the section of `kind`, missing values taking the
// record's defaults. Texts longer than their field are cut.
void LoadSettings(PlotSettings& settings, PlotKind kind, const SettingsStore& store);

// Writes every field to "General" and the section of `kind`, with the attribute list in the
// section of `kind` ("Attr" + n, "ListAttr" + n), then writes the store out.
void SaveSettings(const PlotSettings& settings, PlotKind kind, const AttributeList& attributes,
                  SettingsStore& store);

// Appends "Inputfile1", "Inputfile2", ... from "General" to `recentFiles` up to the first empty
// or missing one, then reads the parttype text sizes.
void LoadRecentFiles(std::vector<std::string>& recentFiles, ParttypeTextSizes& sizes,
                     const SettingsStore& store);

// Writes `recentFiles` as "Inputfile1" onwards and the parttype text sizes, then writes the
// store out. Numbers above the list's length from an earlier, longer list stay in the store.
void SaveRecentFiles(const std::vector<std::string>& recentFiles, const ParttypeTextSizes& sizes,
                     SettingsStore& store);

// Replaces `attributes` by the list stored in the section of `kind`, at most 32 entries, up to
// the first empty name. The program passes the ZANTOR store here, while SaveSettings writes the
// list to the program's own key: a list saved is read back only when the ZANTOR key holds it
// too. That is how the program has always behaved, and stored lists depend on it.
void LoadAttributeList(AttributeList& attributes, PlotKind kind, const SettingsStore& zantorStore);

}  // namespace zantor
