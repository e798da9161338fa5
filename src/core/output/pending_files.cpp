#include "output/pending_files.h"

#include <QFile>
#include <QString>
#include <string>
#include <system_error>

#include "common/errors.h"

namespace zantor {

PendingFiles::~PendingFiles() {
    Discard();
}

std::filesystem::path PendingFiles::Add(const std::filesystem::path& finalPath) {
    // A hidden name in the same folder, so that the rename never crosses file systems; created
    // exclusively, with the permissions a new file gets there anyway.
    QString reason;
    for (int attempt = 0; attempt < 100; ++attempt) {
        std::string name = ".";
        name += finalPath.filename().string();
        name += '.';
        name += std::to_string(random_());
        name += ".tmp";
        const std::filesystem::path temporary = finalPath.parent_path() / name;
        QFile file(QString::fromStdU16String(temporary.u16string()));
        if (file.open(QIODevice::WriteOnly | QIODevice::NewOnly)) {
            file.close();
            files_.push_back({temporary, finalPath});
            return temporary;
        }
        reason = file.errorString();
        if (file.error() != QFileDevice::OpenError || !file.exists()) {
            break;
        }
    }
    throw IoError("Cannot write the file: " + reason.toStdString(), finalPath.string());
}

std::vector<std::filesystem::path> PendingFiles::Commit() {
    std::vector<std::filesystem::path> done;
    done.reserve(files_.size());
    for (const Entry& entry : files_) {
        std::error_code error;
        std::filesystem::rename(entry.temporary, entry.final, error);
        if (error) {
            const std::filesystem::path failed = entry.final;
            files_.erase(files_.begin(), files_.begin() + static_cast<std::ptrdiff_t>(done.size()));
            Discard();
            throw IoError("Cannot write the file: " + error.message(), failed.string());
        }
        done.push_back(entry.final);
    }
    files_.clear();
    return done;
}

void PendingFiles::Discard() noexcept {
    for (const Entry& entry : files_) {
        std::error_code ignored;
        std::filesystem::remove(entry.temporary, ignored);
    }
    files_.clear();
}

}  // namespace zantor
