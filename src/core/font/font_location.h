#pragma once

// Where a `Fontfile` setting points. A setting without a folder ("romans.fnt") names a font that
// ships with the program, so the default survives moving or reinstalling the program and fits
// the setting's 60 characters wherever the program lives.

#include <filesystem>
#include <string>
#include <vector>

namespace zantor {

// The folders searched for a font given by name alone, in order: the installed data folder
// (<exe>/../share/zantor), the build tree's (<exe>/../../share/zantor, for build/src/app), and
// the executable's own folder (a Windows or portable install). Empty when the executable's
// folder is unknown.
std::vector<std::filesystem::path> BundledFontDirs();

// The file that `fontfile` means: a path with a folder as it is; a bare name found in a bundled
// font folder there, else as it is (relative to the working folder).
std::filesystem::path ResolveFontfile(const std::string& fontfile);

}  // namespace zantor
