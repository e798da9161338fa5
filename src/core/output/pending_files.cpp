#include "output/pending_files.h"

#include <QFile>
#include <QString>
#include <cstddef>
#include <string>
#include <system_error>

#include "common/errors.h"
#include "output/interrupt_cleanup.h"

namespace zantor {

PendingFiles::~PendingFiles() {
    Discard();
}

std::filesystem::path PendingFiles::Add(const std::filesystem::path& finalPath) {
    // A hidden name in the same folder, so that the rename never crosses file systems; created
    // exclusively, with the permissions a new file gets there anyway.
    QString reason;
    // Room for the entry first: once the file exists, nothing may fail before it is listed.
    files_.reserve(files_.size() + 1);
    for (int attempt = 0; attempt < 100; ++attempt) {
        std::string name = ".";
        name += finalPath.filename().string();
        name += '.';
        name += std::to_string(random_());
        name += ".tmp";
        Entry entry{finalPath.parent_path() / name, finalPath};
        // Guarded before it exists, so that no interruption finds it unguarded.
        entry.guard = GuardTemporary(entry.temporary);
        QFile file(QString::fromStdU16String(entry.temporary.u16string()));
        if (file.open(QIODevice::WriteOnly | QIODevice::NewOnly)) {
            file.close();
            files_.push_back(std::move(entry));
            return files_.back().temporary;
        }
        ReleaseTemporary(entry.guard);
        reason = file.errorString();
        if (file.error() != QFileDevice::OpenError || !file.exists()) {
            break;
        }
    }
    throw IoError("Cannot write the file: " + reason.toStdString(), finalPath.string());
}

std::vector<std::filesystem::path> PendingFiles::Commit() {
    // The final names are copied before anything is renamed, so that nothing after a rename
    // can fail for want of memory.
    std::vector<std::filesystem::path> done;
    done.reserve(files_.size());
    for (const Entry& entry : files_) {
        done.push_back(entry.final);
    }
    for (std::size_t i = 0; i < files_.size(); ++i) {
        std::error_code error;
        std::filesystem::rename(files_[i].temporary, files_[i].final, error);
        if (error) {
            files_.erase(files_.begin(), files_.begin() + static_cast<std::ptrdiff_t>(i));
            Discard();
            throw IoError("Cannot write the file: " + error.message(), done[i].string());
        }
        ReleaseTemporary(files_[i].guard);
    }
    files_.clear();
    return done;
}

void PendingFiles::Discard() noexcept {
    for (const Entry& entry : files_) {
        std::error_code ignored;
        std::filesystem::remove(entry.temporary, ignored);
        ReleaseTemporary(entry.guard);
    }
    files_.clear();
}

}  // namespace zantor
