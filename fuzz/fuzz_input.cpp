#include "fuzz_input.h"

#include <cstdio>
#include <fstream>
#include <string>

#if defined(__unix__) || defined(__APPLE__)
#include <unistd.h>
#endif

namespace zantor::fuzz {

std::filesystem::path WriteInput(const std::uint8_t* data, std::size_t size) {
#if defined(__unix__) || defined(__APPLE__)
    const std::string id = std::to_string(getpid());
#else
    const std::string id = "0";
#endif
    static const std::filesystem::path path =
        std::filesystem::temp_directory_path() / ("zantor-fuzz-" + id + ".input");
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    out.write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
    return path;
}

}  // namespace zantor::fuzz
