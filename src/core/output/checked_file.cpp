#include "output/checked_file.h"

#include <cerrno>
#include <cstring>
#include <string>

namespace zantor {

CheckedFile::~CheckedFile() {
    if (out_.is_open()) {
        out_.close();
    }
}

bool CheckedFile::OpenForWriting() {
    errno = 0;
    out_.open(path_, std::ios::binary | std::ios::trunc);
    if (!out_.is_open()) {
        Fail("cannot open it");
        return false;
    }
    return open(QIODevice::WriteOnly | QIODevice::Unbuffered);
}

bool CheckedFile::Finish() {
    if (out_.is_open()) {
        errno = 0;
        out_.flush();
        if (!out_) {
            Fail("writing failed");
        }
        out_.close();
        if (!out_) {
            Fail("closing failed");
        }
    }
    if (isOpen()) {
        close();
    }
    return !failed_;
}

qint64 CheckedFile::readData(char* /*data*/, qint64 /*maxLength*/) {
    return -1;
}

qint64 CheckedFile::writeData(const char* data, qint64 length) {
    if (failed_) {
        return -1;
    }
    errno = 0;
    out_.write(data, static_cast<std::streamsize>(length));
    if (!out_) {
        Fail("writing failed");
        return -1;
    }
    return length;
}

void CheckedFile::Fail(const char* what) {
    if (failed_) {
        return;
    }
    failed_ = true;
    std::string reason = what;
    if (errno != 0) {
        reason += ": ";
        reason += std::strerror(errno);
    }
    setErrorString(QString::fromStdString(reason));
}

}  // namespace zantor
