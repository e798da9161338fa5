#include "library/line_reader.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <system_error>

#include "common/errors.h"

namespace zantor {
namespace {

std::string OpenFailureReason(const std::filesystem::path& file, int openErrno) {
    std::error_code error;
    if (std::filesystem::is_directory(file, error)) {
        return "it is a folder, not a file";
    }
    if (openErrno != 0) {
        return std::strerror(openErrno);
    }
    if (!std::filesystem::exists(file, error)) {
        return std::strerror(ENOENT);
    }
    return "the file cannot be read";
}

}  // namespace

LineReader::LineReader(const std::filesystem::path& file)
    : in_(&file_), name_(file.string()), block_(kBlockSize) {
    errno = 0;
    if (!std::filesystem::is_directory(file)) {
        file_.open(file, std::ios::binary);
    }
    if (!file_.is_open()) {
        int openErrno = errno;
        throw IoError("cannot open the file: " + OpenFailureReason(file, openErrno), name_);
    }
}

LineReader::LineReader(std::istream& in, std::string name)
    : in_(&in), name_(std::move(name)), block_(kBlockSize) {}

bool LineReader::NextBlock() {
    if (inputEnded_) {
        return false;
    }
    blockOffset_ += static_cast<std::streamoff>(end_);
    next_ = 0;
    end_ = 0;
    lfFrom_ = kUnknown;
    crFrom_ = kUnknown;
    std::streambuf* buffer = in_->rdbuf();
    if (buffer != nullptr && in_->good()) {
        const std::streamsize got =
            buffer->sgetn(block_.data(), static_cast<std::streamsize>(block_.size()));
        end_ = got > 0 ? static_cast<std::size_t>(got) : 0;
    }
    if (end_ == 0) {
        inputEnded_ = true;
        in_->setstate(std::ios::eofbit);
        return false;
    }
    return true;
}

std::size_t LineReader::Next(char c, std::size_t& at, std::size_t& from) {
    if (from != kUnknown && from <= next_ && next_ <= at) {
        return at;
    }
    const void* found = std::memchr(block_.data() + next_, c, end_ - next_);
    from = next_;
    at = found == nullptr
             ? end_
             : static_cast<std::size_t>(static_cast<const char*>(found) - block_.data());
    return at;
}

bool LineReader::ReadLine(std::string& line) {
    line.clear();
    if (!HasByte()) {
        return false;
    }
    lineStart_ = NextOffset();
    for (;;) {
        const std::size_t stop = std::min(Next('\n', lfAt_, lfFrom_), Next('\r', crAt_, crFrom_));
        if (line.size() < kMaxLineLength) {
            line.append(block_.data() + next_,
                        std::min(stop - next_, kMaxLineLength - line.size()));
        }
        next_ = stop;
        if (stop < end_) {
            ++next_;
            // CRLF, or a CR alone as old Macintosh files end their lines.
            if (block_[stop] == '\r' && HasByte() && block_[next_] == '\n') {
                ++next_;
            }
            break;
        }
        if (!NextBlock()) {
            break;  // the last line has no line end
        }
    }
    ++lineNumber_;
    return true;
}

bool LineReader::AtEnd() {
    return !HasByte();
}

bool LineReader::Seek(std::streamoff offset) {
    // A line of the block in hand is found again without reading.
    if (offset >= blockOffset_ && offset <= blockOffset_ + static_cast<std::streamoff>(end_)) {
        next_ = static_cast<std::size_t>(offset - blockOffset_);
        return true;
    }
    in_->clear();
    in_->seekg(offset);
    if (in_->fail()) {
        return false;
    }
    blockOffset_ = offset;
    next_ = 0;
    end_ = 0;
    inputEnded_ = false;
    lfFrom_ = kUnknown;
    crFrom_ = kUnknown;
    return true;
}

void LineReader::Rewind() {
    if (!Seek(0)) {
        throw IoError("cannot go back to the start of the file", name_);
    }
    lineNumber_ = 0;
    lineStart_ = 0;
}

void LineReader::SeekLine(std::streamoff offset, long lineNumber) {
    if (!Seek(offset)) {
        throw IoError("cannot go back to line " + std::to_string(lineNumber) + " of the file",
                      name_);
    }
    lineStart_ = offset;
    lineNumber_ = lineNumber - 1;
}

}  // namespace zantor
