// Runs a fuzz target over files and folders of inputs without libFuzzer, so that the ordinary
// build and its tests replay the seed corpora and every input that once made a target fail.
// Usage: <target>_replay PATH...; a crash or a sanitizer report fails the run.

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) __attribute__((weak));

namespace {

int Replay(const std::filesystem::path& file) {
    std::ifstream in(file, std::ios::binary);
    const std::vector<char> bytes{std::istreambuf_iterator<char>(in),
                                  std::istreambuf_iterator<char>()};
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
    return 1;
}

}  // namespace

int main(int argc, char** argv) {
    if (LLVMFuzzerInitialize != nullptr) {
        LLVMFuzzerInitialize(&argc, &argv);
    }
    int inputs = 0;
    for (int i = 1; i < argc; ++i) {
        const std::filesystem::path path = argv[i];
        if (std::filesystem::is_directory(path)) {
            for (const auto& entry : std::filesystem::recursive_directory_iterator(path)) {
                if (entry.is_regular_file()) {
                    inputs += Replay(entry.path());
                }
            }
        } else if (std::filesystem::is_regular_file(path)) {
            inputs += Replay(path);
        }
        // A target without inputs that once failed has no folder of them.
    }
    std::cout << "replayed " << inputs << " inputs\n";
    return 0;
}
