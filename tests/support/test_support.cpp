#include "support/test_support.h"

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <random>
#include <stdexcept>

namespace zantor::test {
namespace {

std::filesystem::path FromEnv(const char* name, const char* fallback) {
    const char* value = std::getenv(name);
    return value != nullptr ? std::filesystem::path(value) : std::filesystem::path(fallback);
}

}  // namespace

std::filesystem::path DataDir() {
    return FromEnv("ZANTOR_TEST_DATA", ZANTOR_TEST_DATA_DIR);
}

std::filesystem::path SourceDir() {
    return FromEnv("ZANTOR_SOURCE_DIR", ZANTOR_SOURCE_ROOT);
}

std::string ReadFileText(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

TempDir::TempDir() {
    std::random_device device;
    std::mt19937_64 generator(device());
    for (int attempt = 0; attempt < 100; ++attempt) {
        auto candidate =
            std::filesystem::temp_directory_path() / ("zantor-test-" + std::to_string(generator()));
        if (std::filesystem::create_directory(candidate)) {
            path_ = candidate;
            return;
        }
    }
    throw std::runtime_error("cannot create a temporary folder");
}

TempDir::~TempDir() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

std::filesystem::path TempDir::WriteFile(const std::string& name,
                                         const std::string& content) const {
    auto file = path_ / name;
    std::filesystem::create_directories(file.parent_path());
    std::ofstream out(file, std::ios::binary);
    out << content;
    return file;
}

}  // namespace zantor::test
