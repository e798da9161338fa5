#pragma once

// The typed errors of the program. A run-time error ends the current operation: core code throws
// one of these, and only the place where an operation starts (a dialog command, a print job, a
// command-line command) catches it and shows what() to the user.

#include <stdexcept>
#include <string>

namespace zantor {

class Error : public std::runtime_error {
  public:
    // `message` is the text a person reads; `file` and `line` say where, when known (line 0 =
    // unknown). what() returns the message with the file and line put in front.
    explicit Error(const std::string& message, std::string file = {}, long line = 0);

    const std::string& message() const { return message_; }
    const std::string& file() const { return file_; }
    long line() const { return line_; }

  private:
    std::string message_;
    std::string file_;
    long line_;
};

// An index or value outside its bounds (font data past its block, a count past its slots).
class RangeError : public Error {
  public:
    using Error::Error;
};

// A text that should be a number (or a letter) and is not.
class ConversionError : public Error {
  public:
    using Error::Error;
};

// A file that cannot be opened, read or written.
class IoError : public Error {
  public:
    using Error::Error;
};

// A file whose structure is not what its kind promises.
class FormatError : public Error {
  public:
    using Error::Error;
};

}  // namespace zantor
