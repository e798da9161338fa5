#include "support/cups_pdf.h"

#include <cstdlib>
#include <fstream>
#include <utility>

#ifdef __unix__
#include <pwd.h>
#include <unistd.h>
#endif

namespace zantor::test {

std::string CupsPdfQueue() {
    const char* queue = std::getenv("ZANTOR_TEST_PRINTER");
    return queue != nullptr && *queue != '\0' ? queue : "ZantorPDF";
}

std::optional<std::filesystem::path> CupsPdfFolder(const std::string& queue) {
#ifdef __unix__
    const passwd* user = getpwuid(getuid());
    for (const std::string& name :
         {"/etc/cups/cups-pdf-" + queue + ".conf", std::string("/etc/cups/cups-pdf.conf")}) {
        std::ifstream config(name);
        std::string line;
        while (user != nullptr && std::getline(config, line)) {
            if (!line.starts_with("Out ")) {
                continue;
            }
            std::string folder = line.substr(4);
            for (const auto& [key, value] :
                 {std::pair<std::string, std::string>{"${HOME}", user->pw_dir},
                  {"${USER}", user->pw_name}}) {
                for (auto at = folder.find(key); at != std::string::npos; at = folder.find(key)) {
                    folder.replace(at, key.size(), value);
                }
            }
            return std::filesystem::path(folder);
        }
    }
#else
    (void)queue;
#endif
    return std::nullopt;
}

std::set<std::filesystem::path> PdfsIn(const std::filesystem::path& folder) {
    std::set<std::filesystem::path> files;
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(folder, error)) {
        if (entry.path().extension() == ".pdf") {
            files.insert(entry.path());
        }
    }
    return files;
}

}  // namespace zantor::test
