#pragma once

// A file for Qt's PDF and SVG writers that remembers a write that failed. Those writers carry on
// when the disk is full or the file-size limit is reached and report nothing, so the target asks
// this file instead, once the writer is done, before the document is put in place. It keeps no
// buffer of Qt's: an allocation that fails in the middle of a write leaves nothing half-updated
// that closing the file would trip over.

#include <QIODevice>
#include <QString>
#include <filesystem>
#include <fstream>

namespace zantor {

class CheckedFile final : public QIODevice {
  public:
    explicit CheckedFile(std::filesystem::path path) : path_(std::move(path)) {}
    ~CheckedFile() override;

    // Opens the file for writing, emptied; false when it cannot be (the reason in errorString).
    bool OpenForWriting();
    // Writes out what is buffered and closes the file; false when any write since the opening
    // failed. The reason is errorString().
    bool Finish();

  protected:
    qint64 readData(char* data, qint64 maxLength) override;
    qint64 writeData(const char* data, qint64 length) override;

  private:
    // Records the first failure and its reason.
    void Fail(const char* what);

    std::filesystem::path path_;
    std::ofstream out_;
    bool failed_ = false;
};

}  // namespace zantor
