#pragma once

// The attribute scan: fills the user's attribute list with the attribute names found in a
// library or PCB ASCII file, for the decal or the parttype job.
//
// In a library file each decal or parttype record lists its attributes after its header; in a
// PCB ASCII file they stand in the "ATTRIBUTE VALUES" block of a "*MISC*" section, one block per
// "DECAL name" or "PARTTYPE name". A name written in double quotes may hold blanks and is taken
// without its quotes; otherwise the name is the first word of the line. Names already in the list
// are not added again (exact comparison), new ones are appended unchecked.
//
// The scan stops adding at 32 entries, but not in the same way for both jobs: a parttype scan
// stops as soon as the list holds 32, a decal scan looks at the count only before each decal, so
// the attributes of the decal it is reading may take the list past 32. Lists made this way have
// always looked like that, and the stored lists depend on it.

#include <filesystem>
#include <functional>
#include <string_view>

#include "common/user_messages.h"
#include "shell/attribute_list.h"
#include "shell/plot_settings.h"

namespace zantor {

// What the scan shows while it runs. The setup dialog shows a panel with the name of the item
// being read and a busy cursor.
class ScanDisplay {
  public:
    virtual ~ScanDisplay() = default;
    // Before the first item: the panel is shown, the cursor busy.
    virtual void Begin() {}
    // The name of the decal or parttype being read (decals cut to 16 characters, parttypes to 40).
    virtual void ShowItem(std::string_view /*name*/) {}
    // After the scan, also when it ends with an error: the panel hidden, the cursor normal.
    virtual void End() {}
};

enum class ScanKind { Decals, Parttypes };

// Scans `file` and appends the names it finds to `attributes`. Does not ask or check anything
// first. An empty line where an attribute line must be is a RangeError that ends the scan; the
// names found before it stay in the list. A file that cannot be read is an IoError.
void ScanAttributes(const std::filesystem::path& file, ScanKind kind, AttributeList& attributes,
                    ScanDisplay& display);

// The "Scan file" command of the setup dialog for the job `kind`:
// - a missing file: "File: " + name + " not found.";
// - the parttype job scans a parttype library or PCB file, after asking "Erase current
//   attribute-list?" (Yes empties the list first, No adds to it); any other file gets
//   "No parttypes found in file.";
// - the decal job the same with decal libraries and "No decals found in file.";
// - the index job scans nothing.
// Errors of the scan itself are thrown as by ScanAttributes, after the display has ended.
void ScanFileCommand(const std::filesystem::path& file, PlotKind kind, AttributeList& attributes,
                     UserMessages& messages, ScanDisplay& display);

}  // namespace zantor
