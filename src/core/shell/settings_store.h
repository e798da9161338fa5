#pragma once

// The per-user settings store: values by section and name, as string, integer or boolean, each
// read with a default for a value that is missing.
//
// On Windows the store is the registry: the program's key HKEY_CURRENT_USER\Software\Brovik\Zantor
// with one subkey per section, and beside it the key HKEY_CURRENT_USER\ZANTOR. Elsewhere each key
// is a text file in the user's configuration folder ($XDG_CONFIG_HOME, else ~/.config on Linux):
// Brovik/Zantor.conf for the program's key and ZANTOR.conf for the ZANTOR key, one [section] per
// section (Qt writes the section "General" as [%General]; a hand-written [General] is read too).
// The folder is looked up when a store is opened, so pointing XDG_CONFIG_HOME somewhere else and
// opening again gives another store.
//
// This is the only file of the shell that talks to Qt.

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

class QSettings;
class QVariant;

namespace zantor {

class SettingsStore {
  public:
    // The program's key (Software\Brovik\Zantor).
    static SettingsStore OpenMain();
    // The key named ZANTOR directly under the user's root.
    static SettingsStore OpenZantor();
    // A store in a settings file of the given path (the configuration-folder format).
    explicit SettingsStore(const std::filesystem::path& file);

    SettingsStore(SettingsStore&&) noexcept;
    SettingsStore& operator=(SettingsStore&&) noexcept;
    ~SettingsStore();

    // The file or registry key, for messages.
    const std::string& Location() const { return location_; }

    // The stored value, or `fallback` when there is none. A stored integer or boolean that is
    // not one throws ConversionError naming the value and the text found. Booleans read as
    // true/false or as a whole number (not 0 = true).
    std::string ReadString(std::string_view section, std::string_view name,
                           std::string_view fallback) const;
    std::int32_t ReadInteger(std::string_view section, std::string_view name,
                             std::int32_t fallback) const;
    bool ReadBool(std::string_view section, std::string_view name, bool fallback) const;

    // Booleans are written as the integers 0 and 1.
    void WriteString(std::string_view section, std::string_view name, std::string_view value);
    void WriteInteger(std::string_view section, std::string_view name, std::int32_t value);
    void WriteBool(std::string_view section, std::string_view name, bool value);

    // Removes a section (subkey) with everything in it.
    void RemoveSection(std::string_view section);

    // Writes the changes made so far. In the configuration folder the file is replaced as a
    // whole, so a failed write leaves the earlier file as it was; the failure throws IoError
    // naming the file. Qt keeps the unwritten changes for the file while the program runs: later
    // stores of the same file read them, and the next successful save writes them.
    void Sync();

  private:
    SettingsStore(std::unique_ptr<QSettings> settings, std::string location);
    // The stored value of `name` in `section`; invalid when there is none.
    QVariant Lookup(std::string_view section, std::string_view name) const;

    std::unique_ptr<QSettings> settings_;
    std::string location_;
};

// The text of an error about a stored value, e.g.
// Settings value "Decalplot/MaxScale" is not a number: "ten"
std::string SettingsValueMessage(std::string_view section, std::string_view name,
                                 std::string_view problem, std::string_view text);

}  // namespace zantor
