#pragma once

// Reads a text file one line at a time. Line ends may be CRLF, LF or a CR alone (PADS files come
// with all three); they are removed. The input is read in blocks of kBlockSize bytes and its line
// ends found with memchr; only the current block and line are held, so memory does not grow with
// the file.

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <istream>
#include <string>
#include <vector>

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
    // The bytes taken from the input at a time.
    static constexpr std::size_t kBlockSize = 1 << 16;

  private:
    // A position in the block that is not known yet.
    static constexpr std::size_t kUnknown = static_cast<std::size_t>(-1);

    // The next byte is at next_ < end_ after it; false at the end of the input.
    bool HasByte() { return next_ < end_ || NextBlock(); }
    // Takes the next block of the input after the current one; false when none follows.
    bool NextBlock();
    // The index of the next `c` at or after next_ in the block (end_ when there is none), from
    // the last search when that still holds, so that every byte is searched once.
    std::size_t Next(char c, std::size_t& at, std::size_t& from);
    // Goes to `offset` in the input; false when the input cannot go there.
    bool Seek(std::streamoff offset);
    std::streamoff NextOffset() const { return blockOffset_ + static_cast<std::streamoff>(next_); }

    std::ifstream file_;
    std::istream* in_;
    std::string name_;
    long lineNumber_ = 0;
    std::streamoff lineStart_ = 0;
    std::vector<char> block_;
    std::streamoff blockOffset_ = 0;  // of block_[0] in the input
    std::size_t next_ = 0;            // of the next byte ReadLine takes
    std::size_t end_ = 0;             // of the bytes in the block
    bool inputEnded_ = false;         // no block after this one
    // The last searches for line ends: no such byte in [from, at), and at it one (or end_).
    std::size_t lfAt_ = 0;
    std::size_t lfFrom_ = kUnknown;
    std::size_t crAt_ = 0;
    std::size_t crFrom_ = kUnknown;
};

}  // namespace zantor
