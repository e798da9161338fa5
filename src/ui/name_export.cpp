#include "ui/name_export.h"

#include <algorithm>
#include <cctype>
#include <fstream>

#include "common/errors.h"

namespace zantor {

std::string SuggestedExportName(const std::string& inputFile) {
    std::string name = inputFile;
    const auto first = name.find_first_not_of(' ');
    name = first == std::string::npos ? std::string()
                                      : name.substr(first, name.find_last_not_of(' ') - first + 1);
    std::transform(name.begin(), name.end(), name.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    // Windows names in the settings use "\", the names of this system "/".
    const auto folderEnd = name.find_last_of("\\/");
    if (folderEnd != std::string::npos) {
        name.erase(0, folderEnd + 1);
    }
    const auto dot = name.find('.');
    if (dot != std::string::npos) {
        name.erase(dot, 4);
    }
    return name + ".txt";
}

std::string ExportQuestion(std::size_t count) {
    return "Export " + std::to_string(count) + " names?";
}

void WriteNameFile(const std::filesystem::path& file, const std::vector<std::string>& names) {
    std::ofstream out(file, std::ios::binary | std::ios::trunc);
    for (const std::string& name : names) {
        out << name << "\r\n";
    }
    out.close();
    if (!out) {
        throw IoError("Cannot write the file " + file.string());
    }
}

}  // namespace zantor
