#pragma once

// What the fuzz targets share: the fuzzed bytes as a file (the readers take paths, as the program
// gives them), a message sink that keeps nothing, and a small cursor over leading option bytes.

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "common/user_messages.h"

namespace zantor::fuzz {

// Writes `data` to this process's input file (replaced on every call) and returns its path.
std::filesystem::path WriteInput(const std::uint8_t* data, std::size_t size);

// The bytes as text.
inline std::string_view Text(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

// The text up to its first line end.
inline std::string_view FirstLine(std::string_view text) {
    return text.substr(0, text.find_first_of("\r\n"));
}

// Takes option bytes off the front of the input; 0 once it is used up.
class Options {
  public:
    Options(const std::uint8_t*& data, std::size_t& size) : data_(data), size_(size) {}
    std::uint8_t Byte() {
        if (size_ == 0) {
            return 0;
        }
        --size_;
        return *data_++;
    }
    bool Flag() { return (Byte() & 1) != 0; }

  private:
    const std::uint8_t*& data_;
    std::size_t& size_;
};

class SilentMessages final : public UserMessages {
  public:
    void ShowError(const std::string& /*text*/) override {}
    void ShowInfo(const std::string& /*text*/) override {}
    bool AskYesNo(const std::string& /*question*/) override { return false; }
    std::optional<std::string> AskText(const std::string& /*prompt*/,
                                       const std::string& /*initial*/,
                                       std::size_t /*maxLength*/) override {
        return std::nullopt;
    }
};

}  // namespace zantor::fuzz
