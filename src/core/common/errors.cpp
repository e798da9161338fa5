#include "common/errors.h"

#include <utility>

namespace zantor {
namespace {

std::string Located(const std::string& message, const std::string& file, long line) {
    if (file.empty()) {
        return message;
    }
    std::string where = file;
    if (line > 0) {
        where += ":" + std::to_string(line);
    }
    return where + ": " + message;
}

}  // namespace

Error::Error(const std::string& message, std::string file, long line)
    : std::runtime_error(Located(message, file, line)),
      message_(message),
      file_(std::move(file)),
      line_(line) {}

}  // namespace zantor
