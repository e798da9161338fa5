#pragma once

// Reads a text file one line at a time. Line ends may be CRLF, LF or a CR alone (PADS files come
// with all three); they are removed. Only the current line is held, so memory does not grow with
// the file.

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <istream>
#include <string>

namespace zantor {

class LineReader {
  public:
    // Opens `file`; an IoError names the file and the reason when it cannot be opened.
    explicit LineReader(const std::filesystem::path& file);
    // Reads from a stream the caller keeps alive; `name` is used in error messages.
    LineReader(std::istream& in, std::string name);

    LineReader(const LineReader&) = delete;
    LineReader& operator=(const LineReader&) = delete;

    // The next line without its line end; false (and `line` empty) at the end of the input.
    bool ReadLine(std::string& line);
    // Whether the input has no further line.
    bool AtEnd();
    // The 1-based number of the line read last (0 before the first).
    long LineNumber() const { return lineNumber_; }
    // Back to the first line.
    void Rewind();

    // The byte offset in the input of the first byte of the line read last (0 before the first).
    std::streamoff LineStart() const { return lineStart_; }
    // Goes to `offset`, the first byte of a line found by LineStart earlier, so that the next
    // ReadLine reads that line again and numbers it `lineNumber`. An IoError when the input
    // cannot go there.
    void SeekLine(std::streamoff offset, long lineNumber);

    // The file name (or stream name) for messages.
    const std::string& Name() const { return name_; }

    // A line longer than this keeps its first kMaxLineLength characters; the rest is skipped.
    // No field of a PADS file comes near it; it only bounds the memory of a broken file.
    static constexpr std::size_t kMaxLineLength = 1 << 20;

  private:
    std::ifstream file_;
    std::istream* in_;
    std::string name_;
    long lineNumber_ = 0;
    std::streamoff lineStart_ = 0;
    std::streamoff nextOffset_ = 0;  // of the next byte ReadLine takes
};

}  // namespace zantor
