#include "font/executable_dir.h"

#include <cstdint>
#include <string>
#include <system_error>
#include <vector>

#if defined(_WIN32)
#include <windows.h>
#elif defined(__APPLE__)
#include <mach-o/dyld.h>
#endif

namespace zantor {
namespace {

std::filesystem::path ExecutablePath() {
#if defined(_WIN32)
    std::vector<wchar_t> buffer(MAX_PATH);
    for (;;) {
        const DWORD length =
            GetModuleFileNameW(nullptr, buffer.data(), static_cast<DWORD>(buffer.size()));
        if (length == 0) {
            return {};
        }
        if (length < buffer.size()) {
            return std::filesystem::path(std::wstring(buffer.data(), length));
        }
        buffer.resize(buffer.size() * 2);
    }
#elif defined(__APPLE__)
    std::uint32_t length = 0;
    _NSGetExecutablePath(nullptr, &length);
    std::vector<char> buffer(length + 1, '\0');
    if (_NSGetExecutablePath(buffer.data(), &length) != 0) {
        return {};
    }
    return std::filesystem::path(std::string(buffer.data()));
#elif defined(__linux__)
    std::error_code error;
    auto path = std::filesystem::read_symlink("/proc/self/exe", error);
    return error ? std::filesystem::path() : path;
#else
    return {};
#endif
}

}  // namespace

std::filesystem::path ExecutableDir() {
    std::filesystem::path path = ExecutablePath();
    if (path.empty()) {
        return {};
    }
    std::error_code error;
    const auto canonical = std::filesystem::weakly_canonical(path, error);
    return (error ? path : canonical).parent_path();
}

}  // namespace zantor
