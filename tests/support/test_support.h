#pragma once

// Helpers shared by the test executables.

#include <filesystem>
#include <string>

namespace zantor::test {

// Whether the tests run under AddressSanitizer, whose allocator replaces the C library's heap.
#if defined(__SANITIZE_ADDRESS__)
inline constexpr bool kAddressSanitizer = true;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
inline constexpr bool kAddressSanitizer = true;
#else
inline constexpr bool kAddressSanitizer = false;
#endif
#else
inline constexpr bool kAddressSanitizer = false;
#endif

// The folder of handmade fixtures (tests/data).
std::filesystem::path DataDir();
// The repository root.
std::filesystem::path SourceDir();
// The bytes of `file`; empty when it cannot be read.
std::string ReadFileText(const std::filesystem::path& file);

// A fresh temporary folder, removed with the object.
class TempDir {
  public:
    TempDir();
    ~TempDir();
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;

    const std::filesystem::path& Path() const { return path_; }
    // Writes `content` as bytes (no line-end translation) into a file of the folder.
    std::filesystem::path WriteFile(const std::string& name, const std::string& content) const;

  private:
    std::filesystem::path path_;
};

}  // namespace zantor::test
