#include "library/line_reader.h"

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

LineReader::LineReader(const std::filesystem::path& file) : in_(&file_), name_(file.string()) {
    errno = 0;
    if (!std::filesystem::is_directory(file)) {
        file_.open(file, std::ios::binary);
    }
    if (!file_.is_open()) {
        int openErrno = errno;
        throw IoError("cannot open the file: " + OpenFailureReason(file, openErrno), name_);
    }
}

LineReader::LineReader(std::istream& in, std::string name) : in_(&in), name_(std::move(name)) {}

bool LineReader::ReadLine(std::string& line) {
    line.clear();
    std::streambuf* buffer = in_->rdbuf();
    if (buffer == nullptr || !in_->good()) {
        return false;
    }
    bool readAny = false;
    const std::streamoff start = nextOffset_;
    for (;;) {
        int c = buffer->sbumpc();
        if (c == std::char_traits<char>::eof()) {
            in_->setstate(std::ios::eofbit);
            break;
        }
        readAny = true;
        ++nextOffset_;
        if (c == '\n') {
            break;
        }
        if (c == '\r') {
            // CRLF, or a CR alone as old Macintosh files end their lines.
            if (buffer->sgetc() == '\n') {
                buffer->sbumpc();
                ++nextOffset_;
            }
            break;
        }
        if (line.size() < kMaxLineLength) {
            line.push_back(static_cast<char>(c));
        }
    }
    if (!readAny) {
        return false;
    }
    lineStart_ = start;
    ++lineNumber_;
    return true;
}

bool LineReader::AtEnd() {
    std::streambuf* buffer = in_->rdbuf();
    return buffer == nullptr || !in_->good() || buffer->sgetc() == std::char_traits<char>::eof();
}

void LineReader::Rewind() {
    in_->clear();
    in_->seekg(0);
    if (in_->fail()) {
        throw IoError("cannot go back to the start of the file", name_);
    }
    lineNumber_ = 0;
    lineStart_ = 0;
    nextOffset_ = 0;
}

void LineReader::SeekLine(std::streamoff offset, long lineNumber) {
    in_->clear();
    in_->seekg(offset);
    if (in_->fail()) {
        throw IoError("cannot go back to line " + std::to_string(lineNumber) + " of the file",
                      name_);
    }
    nextOffset_ = offset;
    lineStart_ = offset;
    lineNumber_ = lineNumber - 1;
}

}  // namespace zantor
